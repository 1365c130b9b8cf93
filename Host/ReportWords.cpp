#include "Host/ReportWords.hpp"

#include <numeric>
#include <string_view>

#include "Host/Places.hpp"

namespace Rellinor::Host {

namespace {

std::string remark(std::string where, std::string_view field, std::string_view sentence) {
    if (where.empty()) {
        where = field;
    } else if (!field.empty()) {
        where += " (" + std::string(field) + ')';
    }
    return where + (where.empty() ? "" : ": ") + std::string(sentence);
}

} // namespace

std::string described(const LeftOut& leftOut, PlaceUnit unit, std::size_t mostPlaces) {
    return remark(described(leftOut.places, unit, mostPlaces), leftOut.field,
                  description(leftOut.reason));
}

std::string described(const Finding& finding, PlaceUnit unit, std::size_t mostPlaces) {
    return remark(described(finding.places, unit, mostPlaces), finding.field,
                  description(finding.kind));
}

std::string described(const Unread& unread) {
    return std::string(unread.part) + " (" + std::to_string(unread.count) + ')';
}

std::string described(const Failure& failure, PlaceUnit unit) {
    if (failure.reason == FailureReason::none) {
        return {};
    }
    std::string where = failure.place == 0
                            ? ""
                            : std::string(identifier(unit)) + ' ' + std::to_string(failure.place);
    return remark(std::move(where), failure.field, description(failure.reason));
}

bool isWithoutLoss(const ImportReport& report) noexcept {
    return report.leftOut().empty() && report.findings().empty() && report.isComplete();
}

std::uint64_t countOfLeftOut(const ImportReport& report) noexcept {
    const auto leftOut = report.leftOut();
    return std::accumulate(
        leftOut.begin(), leftOut.end(), std::uint64_t{0},
        [](std::uint64_t sum, const LeftOut& left) { return sum + left.places.count; });
}

} // namespace Rellinor::Host
