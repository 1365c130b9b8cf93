#include "Tests/Reference/KeePassReference.hpp"

#include <string>
#include <vector>

#include "Tests/Reference/CSVReference.hpp"

namespace Rellinor::Tests {

namespace {

std::optional<std::string> cellOf(const Dictionary& record, const std::string& column) {
    const auto cell = record.find(column);
    return cell == record.end() ? std::nullopt : std::optional(cell->second);
}

} // namespace

Outcome referenceKeePassImport(std::string_view text) {
    const Rows rows = referenceRows(text);
    if (rows.empty() || (rows.front().size() != 5 && rows.front().size() != 6)) {
        return failedWithText();
    }
    const bool isClassic = rows.front().size() == 5;
    const std::vector<std::string> columns =
        isClassic
            ? std::vector<std::string>{"Account", "Login Name", "Password", "Web Site", "Comments"}
            : std::vector<std::string>{"Group", "Title", "Username", "Password", "URL", "Notes"};
    const auto records = referenceKeyedRecords(rows, columns);
    if (!records) {
        return failedWithText();
    }
    Outcome outcome;
    for (const Dictionary& record : *records) {
        const auto url = cellOf(record, isClassic ? "Web Site" : "URL");
        const auto username = cellOf(record, isClassic ? "Login Name" : "Username");
        const auto password = cellOf(record, "Password");
        if (url && username && password) {
            outcome.passwords.push_back(
                {.username = *username,
                 .password = *password,
                 .url = *url,
                 .service = cellOf(record, isClassic ? "Account" : "Title")});
        }
    }
    return outcome;
}

} // namespace Rellinor::Tests
