#include "Host/DetectionWords.hpp"

#include <array>
#include <cstddef>
#include <new>
#include <string_view>
#include <utility>
#include <variant>

#include "Host/ReportWords.hpp"
#include "Host/Source.hpp"

namespace Rellinor::Host {

namespace {

void append(std::string& text, std::string_view joiner, std::string_view part) {
    if (!part.empty()) {
        text += text.empty() ? "" : joiner;
        text += part;
    }
}

std::string_view described(Confidence confidence) {
    constexpr std::array<std::string_view, 4> words = {"", "possible", "likely", "certain"};
    return words.at(static_cast<std::size_t>(confidence));
}

/// What a person should know of a store before anything else.
std::string_view warning(Layout layout) {
    switch (layout) {
    case Layout::chromiumLogins:
        return "the passwords in it are encrypted";
    case Layout::firefoxProfile:
        return "the user names and passwords in it are encrypted";
    default:
        return {};
    }
}

/// How a file is called: by its layout, or else by its product; empty if neither is known.
std::string kindOf(const Detection& detection) {
    if (!detection.layout) {
        return std::string(detection.product);
    }
    return std::string(identifier(*detection.layout)) + " (" +
           std::string(description(*detection.layout)) + ')';
}

std::string optionOf(ImportSource source) {
    return "--source " + std::string(identifier(source));
}

/// Whether a file is read only by whoever names its layout.
bool mustBeNamed(const Detection& detection) noexcept {
    return detection.confidence == Confidence::possible && isReadable(detection);
}

/// How to name a layout.
std::string nameIt(Layout layout) {
    return "if it is one, read it with --layout " + std::string(identifier(layout));
}

/// What is wrong with a file and what to do about that.
std::string remedied(std::string problem, const Detection& detection, const ReadAs& as = {}) {
    std::string remedy(detection.advice);
    if (std::holds_alternative<ImportSource>(as)) {
        append(remedy, "; ", isReadable(detection) ? "try without --source" : "");
    } else if (detection.source && detection.layout && !isRead(*detection.layout)) {
        append(remedy, "; ", optionOf(*detection.source) + " reads it");
    }
    if (!remedy.empty() && problem.ends_with('.')) {
        problem.pop_back();
    }
    append(problem, ": ", remedy);
    return problem;
}

bool sameImporter(ImportSource one, ImportSource other) noexcept {
    const auto isKeePass = [](ImportSource source) {
        return source == ImportSource::keePass || source == ImportSource::keePassXC;
    };
    return one == other || (isKeePass(one) && isKeePass(other));
}

} // namespace

Detection lookAt(const ExportFile& file) {
    try {
        return detect(file);
    } catch (const std::bad_alloc&) {
        Detection nothing;
        nothing.obstacle = FailureReason::outOfMemory;
        return nothing;
    }
}

bool isHindered(const Detection& detection) noexcept {
    switch (detection.obstacle) {
        using enum FailureReason;
    case none:
    case unknown:
    case notRead:
    case notBuiltIn:
    case outOfMemory:
        return false;
    default:
        return true;
    }
}

bool isReadable(const Detection& detection) noexcept {
    return detection.layout && isRead(*detection.layout) &&
           detection.obstacle == FailureReason::none;
}

std::string described(const Detection& detection) {
    std::string text(detection.layout ? identifier(*detection.layout) : detection.product);
    if (text.empty()) {
        text = "unknown";
    }
    if (const std::string_view confidence = described(detection.confidence); !confidence.empty()) {
        text += " (" + std::string(confidence) + ')';
    }
    std::string details(detection.layout ? detection.product : "");
    append(details, "; ", detection.evidence);
    if (detection.source) {
        append(details, "; ", "meant for " + optionOf(*detection.source));
    }
    if (detection.layout) {
        append(details, "; ", warning(*detection.layout));
    }
    if (mustBeNamed(detection)) {
        append(details, "; ", nameIt(*detection.layout));
    }
    if (!isReadable(detection)) {
        const FailureReason known =
            detection.layout ? FailureReason::notRead : FailureReason::unknown;
        const FailureReason obstacle =
            detection.obstacle == FailureReason::none ? known : detection.obstacle;
        append(details, "; ", remedied(std::string(description(obstacle)), detection));
    }
    append(text, ": ", details);
    return text;
}

std::string refusal(const Detection& detection, const ReadAs& as, const Failure& failure,
                    PlaceUnit unit) {
    if (failure.reason == FailureReason::unknown && mustBeNamed(detection)) {
        return "it may be " + kindOf(detection) + ": " + nameIt(*detection.layout);
    }
    Failure reason = failure;
    if (reason.reason == FailureReason::none) {
        reason.reason = detection.obstacle;
    }
    std::string text;
    if (reason.reason == detection.obstacle || reason.reason == FailureReason::notRead) {
        text = kindOf(detection);
    }
    std::string problem = described(reason, unit);
    const bool isRemedied = reason.reason != FailureReason::outOfMemory;
    append(text, ": ", isRemedied ? remedied(std::move(problem), detection, as) : problem);
    return text;
}

std::string objection(const Detection& detection, ImportSource source) {
    const std::string kind = kindOf(detection);
    if (kind.empty() || detection.confidence < Confidence::likely ||
        (detection.source && sameImporter(*detection.source, source))) {
        return {};
    }
    const std::string begin = "this looks like " + kind;
    if (isReadable(detection)) {
        return begin + ": try without --source";
    }
    if (isHindered(detection)) {
        return begin + ": " + remedied(std::string(description(detection.obstacle)), detection);
    }
    return detection.source ? begin + ": try " + optionOf(*detection.source) : begin;
}

} // namespace Rellinor::Host
