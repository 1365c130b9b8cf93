#include "Tests/Support/Reports.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <sstream>

namespace Rellinor::Tests {

namespace {

void print(std::ostream& out, std::string_view what, std::string_view field, const Places& places) {
    out << what << ' ' << field << ' ' << places.count << ':';
    for (const std::uint64_t place : places.first) {
        out << ' ' << place;
    }
    out << '\n';
}

bool ascend(const Places& places) {
    constexpr std::size_t most = 1000;
    return places.first.size() <= std::min<std::uint64_t>(places.count, most) &&
           std::ranges::is_sorted(places.first) &&
           (places.first.empty() || places.first.front() > 0);
}

} // namespace

std::string textOf(const ImportReport& report) {
    std::ostringstream out;
    out << report.layout().transform([](Layout layout) { return identifier(layout); }).value_or("-")
        << ", " << identifier(report.placeUnit()) << ", " << report.recordCount() << " records\n";
    for (const LeftOut& entry : report.leftOut()) {
        print(out, identifier(entry.reason), entry.field, entry.places);
    }
    for (const Finding& finding : report.findings()) {
        print(out, identifier(finding.kind), finding.field, finding.places);
    }
    for (const Unread& unread : report.unread()) {
        out << "unread " << unread.part << ' ' << unread.count << '\n';
    }
    const Failure& failure = report.failure();
    out << identifier(failure.reason) << ' ' << failure.place << ' ' << failure.field << ' '
        << report.isComplete() << '\n';
    return out.str();
}

bool isConsistent(const ImportedExport& imported) {
    const ImportReport& report = imported.report;
    if (!imported.records) {
        return report.failure().reason != FailureReason::none && report.recordCount() == 0 &&
               report.leftOut().empty();
    }
    const ImportedRecords& records = *imported.records;
    std::uint64_t accounted =
        records.passwords.size() + records.notes.size() + records.cards.size();
    for (const LeftOut& entry : report.leftOut()) {
        accounted += entry.places.count;
    }
    const auto placesAscend = [](const auto& entry) { return ascend(entry.places); };
    return accounted == report.recordCount() &&
           std::ranges::all_of(report.leftOut(), placesAscend) &&
           std::ranges::all_of(report.findings(), placesAscend);
}

} // namespace Rellinor::Tests
