#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include <Rellinor/Detection.hpp>

namespace Rellinor::Tests {

/// What a file is taken for, without the words. The layout of an unknown file is empty.
struct Found {
    std::string_view layout = {};
    Confidence confidence = Confidence::none;
    FailureReason obstacle = FailureReason::unknown;
    std::optional<ImportSource> source = std::nullopt;

    bool operator==(const Found&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Found& found) {
    return out << '"' << found.layout << "\", confidence " << static_cast<int>(found.confidence)
               << ", obstacle " << static_cast<int>(found.obstacle) << ", source "
               << (found.source ? static_cast<int>(*found.source) : -1);
}

inline Found foundBy(const Detection& detection) {
    return {.layout = detection.layout ? identifier(*detection.layout) : "",
            .confidence = detection.confidence,
            .obstacle = detection.obstacle,
            .source = detection.source};
}

/// What bytes in memory are taken for.
inline Found detected(std::string_view bytes, std::string_view name = {}) {
    return foundBy(detect(ExportFile::inMemory(bytes, name)));
}

/// What a file or folder is taken for.
inline Found detectedAt(std::string_view path) {
    return foundBy(detect(ExportFile::atPath(path)));
}

/// A layout, with what keeps it from being read by this build.
inline Found layoutFound(std::string_view identifier, Confidence confidence = Confidence::certain,
                         std::optional<ImportSource> source = std::nullopt) {
    const std::optional<Layout> layout = layoutWithIdentifier(identifier);
    const bool isReadNow = layout && (isRead(*layout) || confidence == Confidence::possible);
    return {.layout = identifier,
            .confidence = confidence,
            .obstacle = isReadNow ? FailureReason::none : FailureReason::notBuiltIn,
            .source = source};
}

/// The same with another obstacle.
inline Found obstructedBy(FailureReason obstacle, std::string_view identifier = {},
                          Confidence confidence = Confidence::none) {
    return {.layout = identifier,
            .confidence = confidence,
            .obstacle = obstacle,
            .source = std::nullopt};
}

} // namespace Rellinor::Tests
