#pragma once

#include "Host/RecordsFormat.hpp"

namespace Rellinor::Host {

/// One line with the counts for each path.
class SummaryFormat final : public RecordsFormat {
public:
    void write(std::string_view path, const ImportedExport& imported, const Masking& masking,
               std::ostream& out) override;
};

} // namespace Rellinor::Host
