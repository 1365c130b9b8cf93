#include <Rellinor/Detection.hpp>

namespace Rellinor {

Detection detect(const ExportFile& /*file*/) {
    return {};
}

} // namespace Rellinor
