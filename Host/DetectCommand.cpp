#include "Host/DetectCommand.hpp"

#include <ostream>

#include "Host/DetectionWords.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"

namespace Rellinor::Host {

int runDetect(const std::vector<std::string>& paths, std::ostream& out) {
    int status = ExitStatus::success;
    for (const std::string& path : paths) {
        const Detection detection = lookAt(path);
        out << displayPath(path) << ": " << described(detection) << '\n';
        if (!isReadable(detection)) {
            status = ExitStatus::importFailed;
        }
    }
    return status;
}

} // namespace Rellinor::Host
