#include "Host/DetectCommand.hpp"

#include <ostream>

#include "Host/DetectionWords.hpp"
#include "Host/DisplayText.hpp"
#include "Host/ExitStatus.hpp"
#include "Host/Input.hpp"

namespace Rellinor::Host {

int runDetect(const std::vector<std::string>& paths, Wording wording, std::ostream& out) {
    int status = ExitStatus::success;
    for (const std::string& path : paths) {
        const Detection detection = lookAt(Input(path).file());
        if (wording == Wording::people) {
            out << displayPath(path) << ": " << described(detection) << '\n';
        } else {
            JSONText json;
            json.beginObject();
            json.member("path", displayText(path));
            json.key("detection");
            writeDetection(detection, json);
            json.endObject();
            out << json.written() << '\n';
        }
        if (!isReadable(detection)) {
            status = ExitStatus::importFailed;
        }
    }
    return status;
}

} // namespace Rellinor::Host
