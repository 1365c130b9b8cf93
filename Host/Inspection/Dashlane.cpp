#include "Host/Inspection/Inspectors.hpp"

namespace Rellinor::Host {

Inspection inspectDashlane(const std::string& /*path*/, const RecordsResult& /*result*/) {
    return {};
}

} // namespace Rellinor::Host
