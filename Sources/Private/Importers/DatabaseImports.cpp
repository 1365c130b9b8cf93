#include "Private/Importers/DatabaseImports.hpp"

#include <string>

#include "Platform/Fault.hpp"
#include "Private/Proxies/SQLiteFileProxy.hpp"

namespace Rellinor {

SQLiteRows rowsOfSource(const ExportFile& database, std::string_view query, ImportMemory& memory,
                        Reporter* reporter) {
    if (reporter == nullptr) {
        return SQLiteFileProxy(std::string(database.name()), memory).select(query);
    }
    reporter->setPlaces(PlaceUnit::row);
    auto snapshot = SQLiteSnapshot::of(database, reporter->limits().largestFile);
    if (!snapshot) {
        reporter->fail(snapshot.error());
        return SQLiteRows(memory);
    }
    reportSideFiles(*snapshot, *reporter);
    SQLiteFileProxy proxy(*snapshot, SQLiteFaithfulness::narrowed, memory);
    SQLiteRows rows = proxy.select(query);
    reporter->expect(rows.size());
    if (rows.size() > 0) {
        reportEnding(proxy.ending(), rows.size(), *reporter);
    } else if (const FailureReason reason = reasonOf(proxy.ending());
               reason != FailureReason::none) {
        reporter->fail(reason);
    }
    return rows;
}

void reportSideFiles(const SQLiteSnapshot& snapshot, Reporter& reporter) noexcept {
    if (snapshot.hasLeftOutJournal()) {
        reporter.foundMany(FindingKind::leftOutSideFile, "-journal", 1);
    }
    if (snapshot.hasLeftOutLog()) {
        reporter.foundMany(FindingKind::leftOutSideFile, "-wal", 1);
    }
}

FailureReason reasonOf(SQLiteEnding ending) noexcept {
    switch (ending) {
        using enum SQLiteEnding;
    case complete:
        return FailureReason::none;
    case notOpened:
        return FailureReason::unreadable;
    case notADatabase:
        return FailureReason::unknown;
    case notPrepared:
        return FailureReason::wrongShape;
    case locked:
        return FailureReason::locked;
    case damaged:
        return FailureReason::damaged;
    case refused:
        return FailureReason::refusedForItsCost;
    }
    fault();
}

void reportEnding(SQLiteEnding ending, std::size_t rows, Reporter& reporter) noexcept {
    switch (ending) {
    case SQLiteEnding::complete:
        return;
    case SQLiteEnding::refused:
        reporter.found(FindingKind::refusedForItsCost, {}, rows);
        return;
    case SQLiteEnding::locked:
        reporter.found(FindingKind::locked, {}, rows);
        return;
    default:
        reporter.found(FindingKind::damaged, {}, rows);
        return;
    }
}

} // namespace Rellinor
