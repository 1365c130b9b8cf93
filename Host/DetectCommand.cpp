#include "Host/DetectCommand.hpp"

#include <ostream>

#include "Host/Detection/Detection.hpp"
#include "Host/Detection/Wording.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"

namespace Rellinor::Host {

int runDetect(const std::vector<std::string>& paths, std::ostream& out) {
    int status = ExitStatus::success;
    for (const std::string& path : paths) {
        const Detection detection = detect(path);
        out << displayPath(path) << ": " << described(detection) << '\n';
        if (!detection.source) {
            status = ExitStatus::importFailed;
        }
    }
    return status;
}

} // namespace Rellinor::Host
