#include "Host/Inspection/Inspectors.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "Host/Counted.hpp"
#include "Host/FileContents.hpp"
#include "Host/Inspection/Database.hpp"
#include "Host/Inspection/Settled.hpp"
#include "Host/Inspection/SettledDatabase.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::array<std::string_view, 4> columns = {"blacklisted_by_user", "username_value",
                                                     "origin_url", "password_value"};

/// Each comparison as an import makes it, then what is compared.
constexpr std::string_view query =
    "SELECT blacklisted_by_user = 0, username_value != '', origin_url != '', password_value != '', "
    "blacklisted_by_user, username_value, origin_url, password_value FROM logins NOT INDEXED";

enum Column : std::uint8_t {
    isKept,
    hasUsername,
    hasURL,
    hasPassword,
    excluded,
    username,
    url,
    password,
};

/// Why a login is left out; empty if it arrives.
std::string_view reasonOf(const DatabaseRow& login) {
    if (!login.isTrue(isKept)) {
        return login.isNull(excluded) ? "not told whether it was excluded from saving"
                                      : "excluded from saving by the user";
    }
    if (!login.isTrue(hasUsername)) {
        return "no user name";
    }
    if (!login.isTrue(hasURL)) {
        return "no address";
    }
    if (!login.isTrue(hasPassword) || login.isEmptyBlob(password)) {
        return "no password";
    }
    const bool isOfChrome =
        login.isText(username) && login.isText(url) && login.isFilledBlob(password);
    return isOfChrome ? "" : "stored in another form than Chrome's";
}

/// Counts the notes of logins, of which none arrives.
std::size_t countOfNotes(Database& database) {
    constexpr std::array<std::string_view, 1> columnsOfNotes = {"value"};

    std::size_t count = 0;
    if (database.hasTable("password_notes", columnsOfNotes)) {
        database.forEachRow("SELECT value != '' FROM password_notes NOT INDEXED",
                            [&](const DatabaseRow& note) { count += note.isTrue(0) ? 1U : 0U; });
    }
    return count;
}

} // namespace

Inspection inspectChrome(const std::string& path, const RecordsResult& result) {
    Inspection inspection;
    inspection.unit = "login";
    inspection.place = "row";
    if (!contentsOf(path, 0)) {
        return inspection;
    }
    Database database(path);
    database.requireTable("logins", columns);
    std::size_t row = 0;
    database.forEachRow(std::string(query), [&](const DatabaseRow& login) {
        ++row;
        if (const std::string_view reason = reasonOf(login); !reason.empty()) {
            Inspection::add(inspection.leftOut, reason, row);
        }
    });
    settleDatabase(inspection, path, database, row, result);
    if (const std::size_t notes = countOfNotes(database); notes > 0) {
        inspection.notImported.push_back(
            {.text = counted(notes, "note") + " of logins", .places = {}});
    }
    return inspection;
}

} // namespace Rellinor::Host
