// What a result tells besides its records: their extras, and the report.

#include <cstddef>
#include <cstdint>
#include <span>

#include "Public/C/rellinorResult.hpp"

namespace Rellinor {

namespace {

rellinor_extra extraAt(std::size_t index, std::span<const Extra> extras) noexcept {
    if (index >= extras.size()) {
        return {};
    }
    const Extra& extra = extras[index];
    return {.kind = static_cast<rellinor_extra_kind>(extra.kind),
            .label = asC(extra.label),
            .value = asC(extra.value)};
}

rellinor_places placesOf(const Places& places) noexcept {
    return {.count = places.count,
            .first = places.first.data(),
            .first_count = places.first.size(),
            .member = asC(places.member)};
}

} // namespace

} // namespace Rellinor

size_t rellinor_login_extra_count(const rellinor_result* result, size_t index) {
    return result->extras.ofPassword(index).size();
}

rellinor_extra rellinor_login_extra(const rellinor_result* result, size_t index, size_t extra) {
    return Rellinor::extraAt(extra, result->extras.ofPassword(index));
}

size_t rellinor_note_extra_count(const rellinor_result* result, size_t index) {
    return result->extras.ofNote(index).size();
}

rellinor_extra rellinor_note_extra(const rellinor_result* result, size_t index, size_t extra) {
    return Rellinor::extraAt(extra, result->extras.ofNote(index));
}

size_t rellinor_card_extra_count(const rellinor_result* result, size_t index) {
    return result->extras.ofCard(index).size();
}

rellinor_extra rellinor_card_extra(const rellinor_result* result, size_t index, size_t extra) {
    return Rellinor::extraAt(extra, result->extras.ofCard(index));
}

rellinor_layout rellinor_report_layout(const rellinor_result* result) {
    return Rellinor::numberOf(result->report.layout());
}

rellinor_place_unit rellinor_report_place_unit(const rellinor_result* result) {
    return static_cast<rellinor_place_unit>(result->report.placeUnit());
}

uint64_t rellinor_report_record_count(const rellinor_result* result) {
    return result->report.recordCount();
}

bool rellinor_report_is_complete(const rellinor_result* result) {
    return result->report.isComplete();
}

size_t rellinor_report_left_out_count(const rellinor_result* result) {
    return result->report.leftOut().size();
}

rellinor_left_out rellinor_report_left_out(const rellinor_result* result, size_t index) {
    const auto entries = result->report.leftOut();
    if (index >= entries.size()) {
        return {};
    }
    return {.reason = static_cast<rellinor_left_out_reason>(entries[index].reason),
            .field = Rellinor::asC(entries[index].field),
            .places = Rellinor::placesOf(entries[index].places)};
}

size_t rellinor_report_finding_count(const rellinor_result* result) {
    return result->report.findings().size();
}

rellinor_finding rellinor_report_finding(const rellinor_result* result, size_t index) {
    const auto findings = result->report.findings();
    if (index >= findings.size()) {
        return {};
    }
    return {.kind = static_cast<rellinor_finding_kind>(findings[index].kind),
            .field = Rellinor::asC(findings[index].field),
            .places = Rellinor::placesOf(findings[index].places)};
}

size_t rellinor_report_unread_count(const rellinor_result* result) {
    return result->report.unread().size();
}

rellinor_unread rellinor_report_unread(const rellinor_result* result, size_t index) {
    const auto parts = result->report.unread();
    if (index >= parts.size()) {
        return {};
    }
    return {.part = Rellinor::asC(parts[index].part), .count = parts[index].count};
}

rellinor_failure rellinor_report_failure(const rellinor_result* result) {
    const Rellinor::Failure& failure = result->report.failure();
    return {.reason = static_cast<rellinor_failure_reason>(failure.reason),
            .place = failure.place,
            .field = Rellinor::asC(failure.field)};
}
