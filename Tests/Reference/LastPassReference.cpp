#include "Tests/Reference/LastPassReference.hpp"

#include <algorithm>
#include <vector>

#include "Tests/Reference/CSVReference.hpp"

namespace Rellinor::Tests {

namespace {

bool isPresentAndEmpty(const Dictionary& record, const std::string& column) {
    const auto cell = record.find(column);
    return cell != record.end() && cell->second.empty();
}

bool allPresentAndEmpty(const Dictionary& record, const std::vector<std::string>& columns) {
    return std::ranges::all_of(
        columns, [&](const std::string& column) { return isPresentAndEmpty(record, column); });
}

std::optional<std::string> cellOf(const Dictionary& record, const std::string& column) {
    const auto cell = record.find(column);
    return cell == record.end() ? std::nullopt : std::optional(cell->second);
}

} // namespace

Outcome referenceLastPassImport(std::string_view text, const std::set<std::string>& urlsOfNotes) {
    const std::vector<std::string> columns = {"url",  "username", "password", "extra",
                                              "name", "grouping", "fav"};
    const Rows rows = referenceRows(text);
    if (rows.empty() || rows.front().size() != 7) {
        return failedWithText();
    }
    const auto records = referenceKeyedRecords(rows, columns);
    if (!records) {
        return failedWithText();
    }
    Outcome outcome;
    for (const Dictionary& record : *records) {
        const bool isNote = urlsOfNotes.contains(cellOf(record, "url").value_or(""));
        if (!isNote && !allPresentAndEmpty(record, {"url", "username", "password", "name"})) {
            outcome.passwords.push_back({.username = cellOf(record, "username").value_or(""),
                                         .password = cellOf(record, "password").value_or(""),
                                         .url = cellOf(record, "url").value_or(""),
                                         .service = cellOf(record, "name")});
        } else if (isNote && !allPresentAndEmpty(record, {"name", "extra"})) {
            outcome.notes.push_back({.color = std::nullopt,
                                     .title = cellOf(record, "name").value_or(""),
                                     .content = cellOf(record, "extra").value_or("")});
        }
    }
    return outcome;
}

} // namespace Rellinor::Tests
