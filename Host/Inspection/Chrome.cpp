#include "Host/Inspection/Inspectors.hpp"

namespace Rellinor::Host {

Inspection inspectChrome(const std::string& /*path*/, const RecordsResult& /*result*/) {
    return {};
}

} // namespace Rellinor::Host
