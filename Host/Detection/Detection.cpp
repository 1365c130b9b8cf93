#include "Host/Detection/Detection.hpp"

namespace Rellinor::Host {

Detection detect(const std::string& /*path*/) {
    return {};
}

} // namespace Rellinor::Host
