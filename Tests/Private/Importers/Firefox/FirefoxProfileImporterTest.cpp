#include "Private/Importers/Firefox/FirefoxProfileImporter.hpp"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Database.hpp"
#include "Tests/Support/Reading.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Extras = std::vector<ExtraTexts>;

class FirefoxProfileImporterTest : public testing::Test {
protected:
    void logins(std::string_view text) const { (void)_folder.file("logins.json", text); }

    /// What the browser itself lays down, and these statements.
    void signons(const Statements& statements) const {
        const Connection connection(_folder / "signons.sqlite");
        connection.execute({contentsOf(RELLINOR_FIXTURES "/Firefox/signons.sql")});
        connection.execute(statements);
    }

    [[nodiscard]] ImportedExport read() const { return readAs(Layout::firefoxProfile, path()); }

    [[nodiscard]] std::string path() const { return _folder.path().native(); }

    [[nodiscard]] FailureReason failure() const {
        const ImportedExport read = this->read();
        EXPECT_FALSE(read.records.has_value());
        return read.report.failure().reason;
    }

private:
    TemporaryFolder _folder;
};

TEST_F(FirefoxProfileImporterTest, readsACurrentProfile) {
    logins(contentsOf(RELLINOR_FIXTURES "/Firefox/logins.json"));
    const std::string head = "MDIEEPgAAAAAAAAAAAAAAAAAAAEwFAYIKoZIhvcNAwcECGludmVudGVkBAh";
    const ImportedExport read = this->read();
    EXPECT_EQ(copyOf(read.records), (Outcome{.passwords = {{.username = head + "Vc2VyMDAwMQ==",
                                                            .password = head + "QYXNzMDAwMQ==",
                                                            .url = "https://mail.example",
                                                            .pwdChange = 1700000000},
                                                           {.username = head + "Vc2VyMDAwMg==",
                                                            .password = head + "QYXNzMDAwMg==",
                                                            .url = "https://intranet.example:8443",
                                                            .pwdChange = 1700000000}}}));
    EXPECT_EQ(copyOf(read.extras.ofPassword(0)),
              (Extras{{ExtraKind::other, "formSubmitURL", "https://mail.example"},
                      {ExtraKind::other, "usernameField", "user"},
                      {ExtraKind::other, "passwordField", "pass"},
                      {ExtraKind::createdAt, "timeCreated", "1700000000001"},
                      {ExtraKind::lastUsedAt, "timeLastUsed", "1700000100001"},
                      {ExtraKind::other, "timesUsed", "7"}}));
    EXPECT_EQ(copyOf(read.extras.ofPassword(1)),
              (Extras{{ExtraKind::other, "httpRealm", "Staff only"},
                      {ExtraKind::createdAt, "timeCreated", "1700000000002"},
                      {ExtraKind::lastUsedAt, "timeLastUsed", "1700000100002"},
                      {ExtraKind::other, "timesUsed", "1"}}));
    EXPECT_EQ(leftOutOf(read.report),
              (Told<LeftOutReason>{{LeftOutReason::browserAccount, "", 1}}));
    EXPECT_EQ(findingsOf(read.report),
              (Told<FindingKind>{{FindingKind::stillEncrypted, "encryptedUsername", 2},
                                 {FindingKind::stillEncrypted, "encryptedPassword", 2}}));
    EXPECT_TRUE(accountsForAll(read));
    std::vector<std::pair<std::string_view, std::uint64_t>> unread;
    for (const Unread& part : read.report.unread()) {
        unread.emplace_back(part.part, part.count);
    }
    EXPECT_EQ(unread, (std::vector<std::pair<std::string_view, std::uint64_t>>{
                          {"potentiallyVulnerablePasswords", 1},
                          {"dismissedBreachAlertsByLoginGUID", 1},
                          {"id", 2},
                          {"guid", 2},
                          {"encType", 2},
                          {"syncCounter", 2},
                          {"everSynced", 2},
                          {"encryptedUnknownFields", 1}}));
}

TEST_F(FirefoxProfileImporterTest, losesAValueOfAnotherTypeAndNoMore) {
    logins(R"({"logins":[{"hostname":"a","encryptedUsername":5,"encryptedPassword":null,)"
           R"("httpRealm":["x"],"timePasswordChanged":"1","timesUsed":true}]})");
    const ImportedExport read = this->read();
    EXPECT_EQ(copyOf(read.records), (Outcome{.passwords = {{"", "", "a"}}}));
    EXPECT_EQ(findingsOf(read.report),
              (Told<FindingKind>{{FindingKind::valueOfOtherType, "encryptedUsername", 1},
                                 {FindingKind::valueOfOtherType, "timePasswordChanged", 1},
                                 {FindingKind::valueOfOtherType, "httpRealm", 1},
                                 {FindingKind::valueOfOtherType, "timesUsed", 1}}));
}

TEST_F(FirefoxProfileImporterTest, leavesOutWhatIsNoEntry) {
    logins(R"({"logins":[5,{"hostname":"a"},"x",[{"hostname":"b"}],null,{},{"hostname":""},)"
           R"({"hostname":"c"}],"logins":[]})");
    const ImportedExport read = this->read();
    EXPECT_EQ(copyOf(read.records), (Outcome{.passwords = {{"", "", "a"}, {"", "", "c"}}}));
    EXPECT_EQ(leftOutOf(read.report),
              (Told<LeftOutReason>{{LeftOutReason::fieldOfOtherType, "logins", 4},
                                   {LeftOutReason::empty, "", 2}}));
    EXPECT_EQ(read.report.leftOut()[0].places.first, (std::vector<std::uint64_t>{1, 3, 4, 5}));
    EXPECT_EQ(read.report.recordCount(), 8U);
}

TEST_F(FirefoxProfileImporterTest, readsTheOldDatabaseIfThereIsNoNewStore) {
    signons({"INSERT INTO moz_logins (hostname, httpRealm, formSubmitURL, usernameField, "
             "passwordField, encryptedUsername, encryptedPassword, encType, timePasswordChanged) "
             "VALUES ('https://a.example', NULL, '', 'user', '', 'MDI=', 'MDM=', 1, "
             "1700000000999), ('chrome://FirefoxAccounts', '', '', '', '', 'x', 'x', 1, 0)"});
    const ImportedExport read = this->read();
    EXPECT_EQ(copyOf(read.records), (Outcome{.passwords = {{.username = "MDI=",
                                                            .password = "MDM=",
                                                            .url = "https://a.example",
                                                            .pwdChange = 1700000000}}}));
    EXPECT_EQ(copyOf(read.extras.ofPassword(0)),
              (Extras{{ExtraKind::other, "usernameField", "user"}}));
    EXPECT_EQ(read.report.placeUnit(), PlaceUnit::row);
    EXPECT_TRUE(accountsForAll(read));
    logins(R"({"logins":[]})");
    EXPECT_EQ(copyOf(this->read().records), Outcome{});
}

TEST_F(FirefoxProfileImporterTest, failsForAReason) {
    EXPECT_EQ(failure(), FailureReason::noStore);
    logins("{\n\"logins\":[}");
    EXPECT_EQ(failure(), FailureReason::notJSON);
    EXPECT_EQ(read().report.failure().place, 2U);
    logins(R"({"logins":[{"hostname":"a"})");
    EXPECT_EQ(failure(), FailureReason::cutShort);
    for (const std::string_view text : {"[]", "{}", R"({"logins":{}})", R"({"logins":5})"}) {
        logins(text);
        EXPECT_EQ(failure(), FailureReason::wrongShape) << text;
    }
}

// What the source tells

TEST_F(FirefoxProfileImporterTest, letsTheSourceTellWhatItDrops) {
    logins(R"({"logins":[{"hostname":"a","encryptedUsername":"1","encryptedPassword":"1"},)"
           R"({"hostname":"b","encryptedUsername":5,"encryptedPassword":"2"},{}]})");
    const ImportedExport read = readExport(
        ExportFile::atPath(path()), {.as = ImportSource::firefox, .onProgress = {}, .limits = {}});
    EXPECT_EQ(copyOf(read.records), (Outcome{.passwords = {{"1", "1", "a"}}}));
    EXPECT_EQ(leftOutOf(read.report),
              (Told<LeftOutReason>{{LeftOutReason::fieldOfOtherType, "encryptedUsername", 1},
                                   {LeftOutReason::missingField, "hostname", 1}}));
    EXPECT_TRUE(accountsForAll(read));
}

TEST_F(FirefoxProfileImporterTest, tellsWhatIsNoStoreFromAnEmptyOne) {
    EXPECT_EQ(readExport(ExportFile::inMemory("{}", ""), {.as = Layout::firefoxProfile})
                  .report.failure()
                  .reason,
              FailureReason::noStore);
    signons({});
    EXPECT_EQ(copyOf(read().records), Outcome{});
    const TemporaryFolder text;
    (void)text.file("signons.sqlite", std::string(2000, 'x'));
    EXPECT_EQ(readAs(Layout::firefoxProfile, text.path().native()).report.failure().reason,
              FailureReason::unknown);
    const TemporaryFolder other;
    std::filesystem::create_directory(other / "signons.sqlite");
    EXPECT_EQ(readAs(Layout::firefoxProfile, other.path().native()).report.failure().reason,
              FailureReason::notAFile);
}

TEST_F(FirefoxProfileImporterTest, tellsNothingOfListsWithoutEntries) {
    logins(R"({"logins":[],"potentiallyVulnerablePasswords":[],)"
           R"("dismissedBreachAlertsByLoginGUID":null})");
    EXPECT_TRUE(read().report.unread().empty());
}

} // namespace

} // namespace Rellinor::Tests
