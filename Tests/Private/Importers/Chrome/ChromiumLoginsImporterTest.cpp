#include "Private/Importers/Chrome/ChromiumLoginsImporter.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Database.hpp"
#include "Tests/Support/Reading.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Extras = std::vector<ExtraTexts>;

/// What the browser itself lays down in a new profile.
std::string schema() {
    return contentsOf(RELLINOR_FIXTURES "/Chrome/schema.sql");
}

/// The statement that adds a login with a key. Other columns are empty.
std::string login(int key, const std::string& url, const std::string& username,
                  const std::string& password, const std::string& excluded = "0") {
    return "INSERT INTO logins (id, origin_url, username_value, password_value, signon_realm, "
           "date_created, blacklisted_by_user, scheme) VALUES (" +
           std::to_string(key) + ", " + url + ", " + username + ", " + password + ", '', 0, " +
           excluded + ", 0)";
}

class ChromiumLoginsImporterTest : public testing::Test {
protected:
    [[nodiscard]] ImportedExport read(const Statements& statements,
                                      const std::string& name = "Login Data") const {
        const std::string path = _folder / name;
        Connection(path).execute({schema()});
        Connection(path).execute(statements);
        return readAs(Layout::chromiumLogins, path);
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
};

TEST_F(ChromiumLoginsImporterTest, readsAllThatARowHolds) {
    const ImportedExport read = this->read(
        {"INSERT INTO logins (origin_url, action_url, username_element, username_value, "
         "password_element, password_value, submit_element, signon_realm, date_created, "
         "blacklisted_by_user, scheme, times_used, form_data, display_name, icon_url, "
         "federation_url, id, date_last_used, date_password_modified) VALUES "
         "('https://a.example/', 'https://form.example/', 'user', ' ann' || char(0) || 'x', "
         "'pass', x'763130FF', 'send', 'https://a.example', 13340000000000001, 0, 0, 7, "
         "x'0001', 'Ann', 'https://icon.example/', '', 5, 13340000000000002, 13340000000000003)"});
    EXPECT_EQ(copyOf(read.records), (Outcome{.passwords = {{.username = std::string(" ann\0x", 6),
                                                            .password = "djEw/w==",
                                                            .url = "https://a.example/",
                                                            .pwdChange = 1695526400}}}));
    EXPECT_EQ(copyOf(read.extras.ofPassword(0)),
              (Extras{{ExtraKind::other, "action_url", "https://form.example/"},
                      {ExtraKind::other, "username_element", "user"},
                      {ExtraKind::other, "password_element", "pass"},
                      {ExtraKind::other, "submit_element", "send"},
                      {ExtraKind::other, "signon_realm", "https://a.example"},
                      {ExtraKind::createdAt, "date_created", "13340000000000001"},
                      {ExtraKind::other, "times_used", "7"},
                      {ExtraKind::other, "display_name", "Ann"},
                      {ExtraKind::lastUsedAt, "date_last_used", "13340000000000002"}}));
    EXPECT_EQ(findingsOf(read.report),
              (Told<FindingKind>{{FindingKind::stillEncrypted, "password_value", 1}}));
    EXPECT_EQ(read.report.layout(), Layout::chromiumLogins);
    EXPECT_EQ(read.report.placeUnit(), PlaceUnit::row);
    const auto isIcon = [](const Unread& part) { return part.part == "icon_url"; };
    EXPECT_TRUE(std::ranges::any_of(read.report.unread(), isIcon));
}

TEST_F(ChromiumLoginsImporterTest, takesTheFormOrTheRealmForAMissingAddress) {
    const ImportedExport read =
        this->read({"INSERT INTO logins (origin_url, action_url, signon_realm, username_value, "
                    "date_created, blacklisted_by_user, scheme) VALUES "
                    "('', 'https://form.example/', 'realm', 'ann', 0, 0, 0), "
                    "('', '', 'realm', 'bob', 0, 0, 0)"});
    EXPECT_EQ(copyOf(read.records),
              (Outcome{.passwords = {{"ann", "", "https://form.example/"}, {"bob", "", "realm"}}}));
}

TEST_F(ChromiumLoginsImporterTest, keepsATextInPlaceOfAPasswordAndLosesBytesInPlaceOfAText) {
    const ImportedExport read =
        this->read({login(1, "'a'", "'ann'", "'a text'"), login(2, "x'00'", "x'01'", "x'763130'")});
    EXPECT_EQ(copyOf(read.records),
              (Outcome{.passwords = {{"ann", "a text", "a"}, {"", "djEw", ""}}}));
    EXPECT_EQ(findingsOf(read.report),
              (Told<FindingKind>{{FindingKind::valueOfOtherType, "origin_url", 1},
                                 {FindingKind::valueOfOtherType, "username_value", 1},
                                 {FindingKind::stillEncrypted, "password_value", 1}}));
}

TEST_F(ChromiumLoginsImporterTest, accountsForEachRow) {
    const ImportedExport read =
        this->read({login(1, "'a'", "''", "x''"), login(2, "'never'", "''", "x''", "1"),
                    login(3, "''", "''", "x''"), login(4, "'b'", "'bob'", "x'763130'")});
    EXPECT_EQ(copyOf(read.records), (Outcome{.passwords = {{"", "", "a"}, {"bob", "djEw", "b"}}}));
    EXPECT_EQ(leftOutOf(read.report),
              (Told<LeftOutReason>{{LeftOutReason::otherKind, "excluded site", 1},
                                   {LeftOutReason::empty, "", 1}}));
    EXPECT_EQ(read.report.recordCount(), 4U);
    EXPECT_TRUE(accountsForAll(read));
}

TEST_F(ChromiumLoginsImporterTest, readsTheNotesOfALogin) {
    const std::string note = "INSERT INTO password_notes (parent_id, key, value, date_created) "
                             "VALUES ";
    const ImportedExport read = this->read(
        {login(1, "'a'", "'ann'", "x''"), login(2, "'b'", "'bob'", "x''"),
         note + "(1, 'further', x'763130', 0), (1, '', x'76313000', 0), (7, '', 'x', 0)"});
    EXPECT_EQ(
        copyOf(read.records),
        (Outcome{.passwords = {{.username = "ann", .password = "", .url = "a", .note = "djEwAA=="},
                               {"bob", "", "b"}}}));
    EXPECT_EQ(copyOf(read.extras.ofPassword(0)),
              (Extras{{ExtraKind::customSecret, "further", "djEw"}}));
    EXPECT_EQ(findingsOf(read.report),
              (Told<FindingKind>{{FindingKind::stillEncrypted, "password_notes", 2}}));
    EXPECT_EQ(std::ranges::count(read.report.unread(), "note without a login", &Unread::part), 1);
}

TEST_F(ChromiumLoginsImporterTest, readsTheBytesOfANoteThatTheBrowserStoresAsAText) {
    const ImportedExport read = this->read({login(1, "'a'", "'ann'", "x''"),
                                            "INSERT INTO password_notes (parent_id, key, value, "
                                            "date_created) VALUES (1, '', CAST(x'763130FF00FE' AS "
                                            "TEXT), 0)"});
    EXPECT_EQ(copyOf(read.records),
              (Outcome{.passwords = {
                           {.username = "ann", .password = "", .url = "a", .note = "djEw/wD+"}}}));
    EXPECT_EQ(findingsOf(read.report),
              (Told<FindingKind>{{FindingKind::stillEncrypted, "password_notes", 1}}));
}

TEST_F(ChromiumLoginsImporterTest, readsWhateverColumnsThereAre) {
    const TemporaryFolder other;
    const std::string path =
        database(other, {"CREATE TABLE logins (username_value, origin_url, new_text, new_number)",
                         "INSERT INTO logins VALUES ('ann', 'a', 'new', 3)"});
    const ImportedExport read = readAs(Layout::chromiumLogins, path);
    EXPECT_EQ(copyOf(read.records), (Outcome{.passwords = {{"ann", "", "a"}}}));
    EXPECT_EQ(copyOf(read.extras.ofPassword(0)), (Extras{{ExtraKind::other, "new_text", "new"}}));
    ASSERT_EQ(read.report.unread().size(), 1U);
    EXPECT_EQ(read.report.unread().front().part, "column without a text");
}

TEST_F(ChromiumLoginsImporterTest, readsBothDatabasesOfAProfile) {
    (void)read({login(1, "'b'", "'bob'", "x''")}, "Login Data For Account");
    const std::string profile = folder().path().native();
    const Outcome bob = {.passwords = {{"bob", "", "b"}}};
    EXPECT_EQ(copyOf(readAs(Layout::chromiumLogins, profile).records), bob);
    (void)read({login(1, "'a'", "'ann'", "x''")});
    EXPECT_EQ(copyOf(readAs(Layout::chromiumLogins, profile).records),
              (Outcome{.passwords = {{"ann", "", "a"}, {"bob", "", "b"}}}));
}

TEST_F(ChromiumLoginsImporterTest, failsForAReason) {
    const auto reasonFor = [](const std::string& path) {
        const ImportedExport read = readAs(Layout::chromiumLogins, path);
        EXPECT_FALSE(read.records.has_value());
        return read.report.failure().reason;
    };
    const TemporaryFolder other;
    EXPECT_EQ(reasonFor(other / "missing"), FailureReason::missing);
    EXPECT_EQ(reasonFor(other.path().native()), FailureReason::noStore);
    EXPECT_EQ(reasonFor("/dev/null"), FailureReason::notAFile);
    EXPECT_EQ(reasonFor(other.file("text", std::string(2000, 'x'))), FailureReason::unknown);
    EXPECT_EQ(reasonFor(database(other, {"CREATE TABLE t (a)"})), FailureReason::wrongShape);
}

TEST_F(ChromiumLoginsImporterTest, readsTheRowsBeforeDamageAndSaysSo) {
    const std::string path = folder() / "Login Data";
    (void)read({login(1, "'a'", "'ann'", "x''"), login(2, longText, "'bob'", "x''")});
    damageLongTexts(path);
    const ImportedExport read = readAs(Layout::chromiumLogins, path);
    EXPECT_EQ(copyOf(read.records), (Outcome{.passwords = {{"ann", "", "a"}}}));
    EXPECT_EQ(findingsOf(read.report), (Told<FindingKind>{{FindingKind::damaged, "", 1}}));
}

TEST_F(ChromiumLoginsImporterTest, hasAnEmptyResultForADatabaseWithoutLogins) {
    const ImportedExport read = this->read({});
    EXPECT_EQ(copyOf(read.records), Outcome{});
    EXPECT_EQ(read.report.failure().reason, FailureReason::none);
}

TEST_F(ChromiumLoginsImporterTest, readsValuesOfEveryType) {
    const TemporaryFolder other;
    const std::string path =
        database(other, {"CREATE TABLE logins (id INTEGER PRIMARY KEY, origin_url, username_value, "
                         "password_value, date_password_modified, \"a\"\"b\", new_number)",
                         "CREATE TABLE password_notes (parent_id, key, value)",
                         "INSERT INTO logins VALUES (1, 'a', 1.5, 17, 'soon', 'new', 0), "
                         "(2, '', '', '', 0, 'only', NULL), (3, '', NULL, x'', 0, '', 2.5), "
                         "(4, '', '', '', 0, '', 0), (5, '', '', '', 0, NULL, 0)",
                         "INSERT INTO password_notes VALUES (1, '', ''), (4, 'one', 'first'), "
                         "(4, 'two', 'second'), (NULL, '', 'stray')"});
    const std::string bytes = contentsOf(path);
    const ImportedExport read =
        readExport(ExportFile::inMemory(bytes, ""), {.as = Layout::chromiumLogins});
    EXPECT_EQ(
        copyOf(read.records),
        (Outcome{.passwords = {{"1.5", "17", "a"},
                               {"", "", ""},
                               {"", "", ""},
                               {.username = "", .password = "", .url = "", .note = "Zmlyc3Q="}}}));
    EXPECT_EQ(copyOf(read.extras.ofPassword(0)), (Extras{{ExtraKind::other, "a\"b", "new"}}));
    EXPECT_EQ(copyOf(read.extras.ofPassword(1)), (Extras{{ExtraKind::other, "a\"b", "only"}}));
    EXPECT_EQ(copyOf(read.extras.ofPassword(3)),
              (Extras{{ExtraKind::customSecret, "two", "c2Vjb25k"}}));
    EXPECT_EQ(findingsOf(read.report),
              (Told<FindingKind>{{FindingKind::valueOfOtherType, "date_password_modified", 1},
                                 {FindingKind::stillEncrypted, "password_notes", 2}}));
    EXPECT_EQ(leftOutOf(read.report), (Told<LeftOutReason>{{LeftOutReason::empty, "", 1}}));
    EXPECT_EQ(std::ranges::count(read.report.unread(), "note without a login", &Unread::part), 1);
    EXPECT_EQ(std::ranges::count(read.report.unread(), "column without a text", &Unread::part), 1);
}

TEST_F(ChromiumLoginsImporterTest, tellsWhatCostsTooMuch) {
    const TemporaryFolder other;
    const std::string endless = "CREATE VIEW logins AS WITH n (v) AS (SELECT 1 UNION ALL SELECT v "
                                "+ 1 FROM n WHERE ";
    const ImportedExport none =
        readAs(Layout::chromiumLogins,
               database(other, {endless + "1) SELECT 'a' AS origin_url FROM n WHERE v < 0"}));
    EXPECT_EQ(none.report.failure().reason, FailureReason::refusedForItsCost);
    const TemporaryFolder another;
    const ImportedExport some = readAs(
        Layout::chromiumLogins, database(another, {endless + "1) SELECT v AS origin_url FROM n"}));
    EXPECT_GT(some.report.recordCount(), 0);
    ASSERT_EQ(some.report.findings().size(), 1);
    EXPECT_EQ(some.report.findings().front().kind, FindingKind::refusedForItsCost);
}

} // namespace

} // namespace Rellinor::Tests
