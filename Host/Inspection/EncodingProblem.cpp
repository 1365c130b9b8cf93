#include "Host/Inspection/EncodingProblem.hpp"

#include <string>

#include "Host/Inspection/TextLines.hpp"
#include "Host/TextEncoding.hpp"

namespace Rellinor::Host {

std::optional<Remark> encodingProblem(std::string_view text) {
    const auto fault = encodingFault(text);
    if (!fault) {
        return std::nullopt;
    }
    Remark remark{.text = std::string(fault->reason), .places = {}};
    remark.text += ": ";
    remark.text += saveAsUTF8;
    if (fault->offset) {
        remark.places.push_back(lineAt(text, *fault->offset));
    }
    return remark;
}

} // namespace Rellinor::Host
