#pragma once

#include <span>
#include <utility>
#include <vector>

#include "Host/RecordsFormat.hpp"

namespace Rellinor::Host {

/// A format for other products: one file with the records of all paths, in order. Secrets are as
/// they are: a masked export would lose them without a word.
class ExportFormat : public RecordsFormat {
public:
    void write(std::string_view /*path*/, const ImportedExport& /*imported*/,
               const Masking& /*masking*/, std::ostream& /*out*/) final {}

    void keep(ImportedExport imported) final { _imports.push_back(std::move(imported)); }

protected:
    /// What was imported from all paths, for the end.
    [[nodiscard]] std::span<const ImportedExport> imports() const noexcept { return _imports; }

private:
    std::vector<ImportedExport> _imports;
};

} // namespace Rellinor::Host
