#include "Host/ReportJSON.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Rellinor::Host {

namespace {

/// Null if it is empty.
std::optional<std::string_view> ifAny(std::string_view text) noexcept {
    return text.empty() ? std::nullopt : std::optional(text);
}

/// What has a code, such as a record left out, or a finding.
void writePlaces(std::string_view code, std::string_view identifier, std::string_view field,
                 const Places& places, JSONText& json) {
    json.beginObject();
    json.member(code, identifier);
    json.member("field", field);
    if (!places.member.empty()) {
        json.member("file", places.member);
    }
    json.member("count", places.count);
    json.key("places");
    json.beginArray();
    for (const std::uint64_t place : places.first) {
        json.value(place);
    }
    json.endArray();
    json.endObject();
}

void writeList(std::string_view name, const auto& entries, JSONText& json, const auto& writeEntry) {
    json.key(name);
    json.beginArray();
    for (const auto& entry : entries) {
        writeEntry(entry);
    }
    json.endArray();
}

} // namespace

void writeReport(const ImportReport& report, JSONText& json) {
    json.beginObject();
    json.member("placeUnit", identifier(report.placeUnit()));
    json.member("recordCount", report.recordCount());
    writeList("leftOut", report.leftOut(), json, [&](const LeftOut& left) {
        writePlaces("reason", identifier(left.reason), left.field, left.places, json);
    });
    writeList("findings", report.findings(), json, [&](const Finding& finding) {
        writePlaces("kind", identifier(finding.kind), finding.field, finding.places, json);
    });
    writeList("unread", report.unread(), json, [&](const Unread& unread) {
        json.beginObject();
        json.member("part", unread.part);
        json.member("count", unread.count);
        json.endObject();
    });
    json.member("isComplete", report.isComplete());
    json.endObject();
}

void writeFailure(const ImportReport& report, JSONText& json) {
    const Failure& failure = report.failure();
    json.beginObject();
    json.member("reason", identifier(failure.reason));
    json.member("placeUnit", identifier(report.placeUnit()));
    json.member("place", failure.place == 0 ? std::nullopt : std::optional(failure.place));
    json.member("field", ifAny(failure.field));
    json.endObject();
}

void writeDetection(const Detection& detection, JSONText& json) {
    constexpr std::array<std::string_view, 4> confidences = {"none", "possible", "likely",
                                                             "certain"};
    json.beginObject();
    json.member("layout",
                detection.layout.transform([](Layout layout) { return identifier(layout); }));
    json.member("confidence", confidences.at(static_cast<std::size_t>(detection.confidence)));
    json.member("source",
                detection.source.transform([](ImportSource source) { return identifier(source); }));
    json.member("obstacle", detection.obstacle == FailureReason::none
                                ? std::nullopt
                                : std::optional(identifier(detection.obstacle)));
    json.member("product", ifAny(detection.product));
    json.member("evidence", ifAny(detection.evidence));
    json.member("advice", ifAny(detection.advice));
    json.endObject();
}

} // namespace Rellinor::Host
