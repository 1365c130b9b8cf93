#pragma once

#include "Host/RecordsFormat.hpp"
#include "Host/Terminal.hpp"

namespace Rellinor::Host {

/// Aligned columns for people: a heading for each path, and under it a table for each kind of
/// record that it holds. Texts are shortened to fit a terminal, but stay whole in a file; no
/// control character of theirs reaches either.
class TableFormat final : public RecordsFormat {
public:
    TableFormat(const Terminal& terminal, Door door) noexcept : _terminal(terminal), _door(door) {}

    void write(std::string_view path, const ImportedExport& imported, const Masking& masking,
               std::ostream& out) override;

private:
    Terminal _terminal;
    Door _door;
};

} // namespace Rellinor::Host
