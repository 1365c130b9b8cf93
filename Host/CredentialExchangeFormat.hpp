#pragma once

#include <vector>

#include "Host/RecordsFormat.hpp"

namespace Rellinor::Host {

/// One file of the FIDO Credential Exchange Format 1.0 with the records of all paths, in order, on
/// one line, as one account. Secrets are as they are: a masked export would lose them without a
/// word. What an item has no member for is a custom field.
class CredentialExchangeFormat final : public RecordsFormat {
public:
    void write(std::string_view path, const ImportedExport& imported, const Masking& masking,
               std::ostream& out) override;
    void finish(std::ostream& out) override;

private:
    std::vector<ImportedExport> _imports; ///< which share the memory of the library
};

} // namespace Rellinor::Host
