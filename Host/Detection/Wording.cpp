#include "Host/Detection/Wording.hpp"

#include <string_view>

#include "Host/DisplayText.hpp"
#include "Host/Source.hpp"

namespace Rellinor::Host {

namespace {

std::string_view word(Confidence confidence) {
    switch (confidence) {
    case Confidence::possible:
        return "possible";
    case Confidence::likely:
        return "likely";
    case Confidence::certain:
        return "certain";
    }
    return "";
}

} // namespace

std::string described(const Detection& detection) {
    std::string text;
    if (detection.layout.empty()) {
        text = "unknown";
    } else {
        text = detection.source ? std::string(nameOf(*detection.source)) : "not read";
        text += " (";
        text += word(detection.confidence);
        text += "): ";
        text += detection.layout;
    }
    if (!detection.reason.empty()) {
        text += "; " + detection.reason;
    }
    if (!detection.advice.empty()) {
        text += "; " + detection.advice;
    }
    return displayText(text);
}

std::string proposal(const Detection& detection) {
    std::string text = "this looks like a " + detection.layout;
    if (detection.source) {
        text += ": try --source ";
        text += nameOf(*detection.source);
    } else if (!detection.advice.empty()) {
        text += ": " + detection.advice;
    }
    return text;
}

} // namespace Rellinor::Host
