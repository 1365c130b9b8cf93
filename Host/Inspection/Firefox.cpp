#include "Host/Inspection/Inspectors.hpp"

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

#include <unistd.h>

#include "Host/FileContents.hpp"
#include "Host/Inspection/Database.hpp"
#include "Host/Inspection/JSONProblem.hpp"
#include "Host/Inspection/JSONTree.hpp"
#include "Host/Inspection/Settled.hpp"
#include "Host/Inspection/SettledDatabase.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::array<std::string_view, 5> words = {"hostname", "encryptedUsername",
                                                   "encryptedPassword", "logins", "deleted"};

/// What a login needs to arrive: columns of one store, members in the other.
constexpr std::span<const std::string_view> fields = std::span(words).first(3);

consteval JSONWord word(std::string_view text) {
    return numberOf(text, words);
}

void addWrong(Inspection& inspection, std::string_view text) {
    inspection.wrong.push_back({.text = std::string(text), .places = {}});
}

/// Whether an import finds a store there.
bool isReadable(const std::string& path) {
    return ::access(path.c_str(), R_OK) == 0;
}

/// Why a login is left out; empty if it arrives.
std::string reasonOf(const JSONValue& login) {
    for (JSONWord key = 0; const std::string_view field : fields) {
        const auto value = login[++key];
        if (!value || value->kind() != JSONKind::text) {
            if (login.find(word("deleted"), JSONKind::yes)) {
                return "deleted in Firefox: only its trace is left";
            }
            return std::string(field) + (value ? " is not a text" : " is missing");
        }
    }
    return {};
}

void inspectLogin(const JSONValue& login, std::size_t place, Inspection& inspection) {
    if (const std::string reason = reasonOf(login); !reason.empty()) {
        Inspection::add(inspection.leftOut, reason, place);
    } else if (login.find(word("deleted"), JSONKind::yes)) {
        Inspection::add(inspection.wrong, "deleted in Firefox, but imported all the same", place);
    }
}

void inspectLogins(const JSONValue& logins, const RecordsResult& result, Inspection& inspection) {
    std::size_t place = 0;
    if (logins.kind() == JSONKind::array) {
        for (auto login = logins.begin(); login != logins.end(); ++login) {
            ++place;
        }
        Inspection::add(inspection.wrong, "not an object, so that no login of logins.json arrives",
                        place + 1);
        return;
    }
    for (const JSONValue& login : logins) {
        inspectLogin(login, ++place, inspection);
    }
    settleCount(inspection, logins.count(), result);
}

void inspectLoginsFile(const std::string& path, const RecordsResult& result,
                       Inspection& inspection) {
    const auto contents = contentsOf(path);
    if (!contents) {
        addWrong(inspection, "logins.json is not a file that can be read");
        return;
    }
    const auto tree = parseJSONFile(*contents, words, inspection);
    if (!tree) {
        for (Remark& remark : inspection.wrong) {
            remark.text += "; nothing of logins.json arrives";
        }
        return;
    }
    const auto root = tree->root();
    const auto logins = root.kind() == JSONKind::object ? root[word("logins")] : std::nullopt;
    if (!logins || (logins->kind() != JSONKind::objects && logins->kind() != JSONKind::array)) {
        addWrong(inspection, "logins.json has no list of logins");
        return;
    }
    inspectLogins(*logins, result, inspection);
}

void inspectSignons(const std::string& path, const RecordsResult& result, Inspection& inspection) {
    if (!contentsOf(path, 0)) {
        addWrong(inspection, "signons.sqlite is not a file that can be read");
        return;
    }
    Database database(path);
    database.requireTable("moz_logins", fields);
    std::size_t place = 0;
    database.forEachRow(
        "SELECT hostname, encryptedUsername, encryptedPassword FROM moz_logins NOT INDEXED",
        [&](const DatabaseRow& login) {
            ++place;
            for (int column = 0; const std::string_view field : fields) {
                if (!login.isText(column)) {
                    Inspection::add(inspection.leftOut,
                                    std::string(field) +
                                        (login.isNull(column) ? " is missing" : " is not a text"),
                                    place);
                    break;
                }
                ++column;
            }
        });
    settleDatabase(inspection, path, database, place, result);
}

/// Tells that there is an older store too, which may hold what is missed if the newer gave nothing.
void addSecondStore(const RecordsResult& result, Inspection& inspection) {
    if (deliveredBy(result) == 0) {
        addWrong(inspection, "logins.json gave no login, and signons.sqlite beside it is not read");
    } else {
        inspection.notImported.push_back(
            {.text = "signons.sqlite, since logins.json beside it is read", .places = {}});
    }
}

/// Why there is no profile folder at a path; empty if there is one.
std::string_view folderProblem(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return "there is no such folder";
    }
    return std::filesystem::is_directory(status)
               ? ""
               : "it is a file: give the profile folder that it is in";
}

} // namespace

Inspection inspectFirefox(const std::string& path, const RecordsResult& result) {
    Inspection inspection;
    inspection.unit = "login";
    inspection.place = "login";
    if (const std::string_view problem = folderProblem(path); !problem.empty()) {
        addWrong(inspection, problem);
        return inspection;
    }
    const std::filesystem::path folder(path);
    const std::string logins = (folder / "logins.json").string();
    const std::string signons = (folder / "signons.sqlite").string();
    if (isReadable(logins)) {
        inspectLoginsFile(logins, result, inspection);
        if (isReadable(signons)) {
            addSecondStore(result, inspection);
        }
    } else if (isReadable(signons)) {
        inspectSignons(signons, result, inspection);
    } else {
        addWrong(inspection, "neither logins.json nor signons.sqlite can be read in the folder: "
                             "about:support in Firefox shows the right one");
    }
    return inspection;
}

} // namespace Rellinor::Host
