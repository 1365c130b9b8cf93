#pragma once

#include <span>
#include <vector>

#include "Host/RecordsFormat.hpp"

namespace Rellinor::Host {

/// A format for other products: one file with the records of all paths, in order. Secrets are as
/// they are: a masked export would lose them without a word.
class ExportFormat : public RecordsFormat {
public:
    void write(std::string_view /*path*/, const ImportedExport& imported,
               const Masking& /*masking*/, std::ostream& /*out*/) final {
        _imports.push_back(imported);
    }

protected:
    /// What was imported from all paths, for the end.
    [[nodiscard]] std::span<const ImportedExport> imports() const noexcept { return _imports; }

private:
    std::vector<ImportedExport> _imports; ///< which share the memory of the library
};

} // namespace Rellinor::Host
