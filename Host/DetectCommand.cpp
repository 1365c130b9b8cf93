#include "Host/DetectCommand.hpp"

#include <new>
#include <ostream>

#include "Host/Detection/Detection.hpp"
#include "Host/Detection/Recognisers.hpp"
#include "Host/Detection/Wording.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"

namespace Rellinor::Host {

namespace {

/// What is found at a path. A damaged database may claim more memory than there is, which is no
/// reason to tell nothing of the other paths.
Detection found(const std::string& path) {
    try {
        return detect(path);
    } catch (const std::bad_alloc&) {
        return unknown("there is not enough memory to look at it");
    }
}

} // namespace

int runDetect(const std::vector<std::string>& paths, std::ostream& out) {
    int status = ExitStatus::success;
    for (const std::string& path : paths) {
        const Detection detection = found(path);
        out << displayPath(path) << ": " << described(detection) << '\n';
        if (!detection.source) {
            status = ExitStatus::importFailed;
        }
    }
    return status;
}

} // namespace Rellinor::Host
