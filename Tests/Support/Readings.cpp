#include "Tests/Support/Readings.hpp"

namespace Rellinor::Tests {

namespace {

template <typename Code>
Told<Code> toldOf(const auto& entries, auto code) {
    Told<Code> told;
    for (const auto& entry : entries) {
        told.emplace_back(entry.*code, entry.field, entry.places.count);
    }
    return told;
}

} // namespace

std::vector<ExtraTexts> copyOf(std::span<const Extra> extras) {
    std::vector<ExtraTexts> copies;
    for (const Extra& extra : extras) {
        copies.emplace_back(extra.kind, extra.label, extra.value);
    }
    return copies;
}

Told<LeftOutReason> leftOutOf(const ImportReport& report) {
    return toldOf<LeftOutReason>(report.leftOut(), &LeftOut::reason);
}

Told<FindingKind> findingsOf(const ImportReport& report) {
    return toldOf<FindingKind>(report.findings(), &Finding::kind);
}

ImportedExport readAs(Layout layout, std::string_view path) {
    return readExport(ExportFile::atPath(path), {.as = layout, .onProgress = {}, .limits = {}});
}

bool accountsForAll(const ImportedExport& read) {
    std::uint64_t count = 0;
    if (read.records) {
        count = read.records->passwords.size() + read.records->notes.size() +
                read.records->cards.size();
    }
    for (const LeftOut& leftOut : read.report.leftOut()) {
        count += leftOut.places.count;
    }
    return count == read.report.recordCount();
}

} // namespace Rellinor::Tests
