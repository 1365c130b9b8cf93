#pragma once

#include <vector>

#include "Host/RecordsFormat.hpp"

namespace Rellinor::Host {

/// One Tirel export with the records of all paths, in order, on one line. Secrets are as they are:
/// a masked export would lose them without a word. What a Tirel record has no place for stands at
/// the end of its note, one `label: value` a line.
class TirelFormat final : public RecordsFormat {
public:
    void write(std::string_view path, const ImportedExport& imported, const Masking& masking,
               std::ostream& out) override;
    void finish(std::ostream& out) override;

private:
    std::vector<ImportedExport> _imports; ///< which share the memory of the library
};

} // namespace Rellinor::Host
