#pragma once

#include "Host/ExportFormat.hpp"

namespace Rellinor::Host {

/// One file of the FIDO Credential Exchange Format 1.0, on one line, as one account. What an item
/// has no member for is a custom field.
class CredentialExchangeFormat final : public ExportFormat {
public:
    void finish(std::ostream& out) override;
};

} // namespace Rellinor::Host
