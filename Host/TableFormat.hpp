#pragma once

#include "Host/RecordsFormat.hpp"

namespace Rellinor::Host {

/// Aligned columns for people: a heading for each path, and under it a table for each kind of
/// record that it holds. Long texts are shortened, and no control character reaches the terminal.
class TableFormat final : public RecordsFormat {
public:
    explicit TableFormat(Secrets secrets) noexcept : _secrets(secrets) {}

    void write(std::string_view path, const ImportedRecords& records, std::ostream& out) override;

private:
    Secrets _secrets;
};

} // namespace Rellinor::Host
