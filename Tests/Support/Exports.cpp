#include "Tests/Support/Exports.hpp"

#include <filesystem>

namespace Rellinor::Tests {

namespace {

using enum ImportSource;

const Outcome noRecords;
const Outcome notPIF = {.error = NSError("Rellinor.PIFParsingError", 1)};

const Export exports[] = {
    {"chrome", chrome, "Chrome/Login Data", "", true, noRecords, noRecords},
    {"lastPass", lastPass, "LastPass/export.csv", "", false, failedWithText(), failedWithText()},
    {"dashlane", dashlane, "Dashlane/export.csv", "", false, failedWithText(), noRecords},
    {"onePassword", onePassword, "OnePassword/export.1pif", "", false, notPIF, noRecords},
    {"tirel", tirel, "Tirel/export.json", "", false, failedWithText(), failedWithText()},
    {"keePass", keePass, "KeePass/export.csv", "", false, failedWithText(), failedWithText()},
    {"keePassXC", keePassXC, "KeePassXC/export.csv", "", false, failedWithText(), failedWithText()},
    {"firefox", firefox, "Firefox/current.profile/logins.json", "logins.json", false, noRecords,
     noRecords},
    {"signons", firefox, "Firefox/old.profile/signons.sqlite", "signons.sqlite", true, noRecords,
     noRecords},
};

std::filesystem::path pathOf(const Export& item) {
    return std::filesystem::path(RELLINOR_EXAMPLES) / item.file;
}

std::vector<Export> filtered(bool isDatabase) {
    std::vector<Export> found;
    for (const Export& item : exports) {
        if (item.isDatabase == isDatabase) {
            found.push_back(item);
        }
    }
    return found;
}

} // namespace

std::string Export::bytes() const {
    return contentsOf(pathOf(*this));
}

Outcome Export::whole() const {
    return outcomeOf(source,
                     (member.empty() ? pathOf(*this) : pathOf(*this).parent_path()).native());
}

std::string Export::fileIn(const TemporaryFolder& folder) const {
    return folder / (member.empty() ? "export" : member);
}

std::string Export::importedIn(const TemporaryFolder& folder) const {
    return member.empty() ? fileIn(folder) : folder.path().native();
}

std::string Export::written(const TemporaryFolder& folder, std::string_view bytes) const {
    (void)folder.file(member.empty() ? "export" : member, bytes);
    return importedIn(folder);
}

std::string nameOf(const testing::TestParamInfo<Export>& info) {
    return std::string(info.param.name);
}

std::span<const Export> allExports() {
    return exports;
}

std::vector<Export> allDatabases() {
    return filtered(true);
}

std::vector<Export> allFiles() {
    return filtered(false);
}

} // namespace Rellinor::Tests
