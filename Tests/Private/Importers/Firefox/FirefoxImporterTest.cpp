#include "Private/Importers/Firefox/FirefoxImporter.hpp"

#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Private/Extensions/String.hpp"
#include "Private/Importers/Firefox/EncryptedKeys.hpp"
#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/Database.hpp"
#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/Nobody.hpp"
#include "Tests/Support/RecordKeys.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Reason = FirefoxImportFailureReason;
using Key = FirefoxRecordKey;

constexpr std::string_view annInJSON =
    R"({"logins":[{"hostname":"https://a.example","encryptedUsername":"MDI=","encryptedPassword":"MDM="}]})";
const Outcome annsLogin = {.passwords = {{"MDI=", "MDM=", "https://a.example"}}};

/// The statement that adds a login to "signons.sqlite". Each argument is an SQL expression.
std::string login(const std::string& hostname, const std::string& username,
                  const std::string& password) {
    return "INSERT INTO moz_logins (hostname, formSubmitURL, usernameField, passwordField, "
           "encryptedUsername, encryptedPassword, encType, timesUsed) VALUES (" +
           hostname + ", '', 'user', 'pass', " + username + ", " + password + ", 1, 1)";
}

/// A profile folder.
class FirefoxImporterTest : public testing::Test {
protected:
    void logins(std::string_view text) const { (void)_folder.file("logins.json", text); }

    /// What the browser itself lays down, and these statements.
    void signons(const Statements& statements) const {
        const Connection connection(_folder / "signons.sqlite");
        connection.execute({contentsOf(RELLINOR_FIXTURES "/Firefox/signons.sql")});
        connection.execute(statements);
    }

    [[nodiscard]] Outcome imported() const {
        return outcomeOf(ImportSource::firefox, _folder.path().native());
    }

    [[nodiscard]] URL url() const { return URL::fileURLWithPath(_folder.path().native()); }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

    /// The message with which a read of the folder fails.
    static std::string failure(FirefoxImporter& importer, const URL& url) {
        try {
            ImportMemory memory;
            (void)importer.read(url, memory);
        } catch (const TextError& error) {
            return error.what();
        }
        return "nothing was thrown";
    }

private:
    TemporaryFolder _folder;
};

// logins.json

TEST_F(FirefoxImporterTest, importsACurrentProfile) {
    logins(contentsOf(RELLINOR_FIXTURES "/Firefox/logins.json"));
    const std::string head = "MDIEEPgAAAAAAAAAAAAAAAAAAAEwFAYIKoZIhvcNAwcECGludmVudGVkBAh";
    EXPECT_EQ(
        imported(),
        (Outcome{
            .passwords = {
                {head + "Vc2VyMDAwMQ==", head + "QYXNzMDAwMQ==", "https://mail.example"},
                {head + "Vc2VyMDAwMg==", head + "QYXNzMDAwMg==", "https://intranet.example:8443"},
                {head + "Vc2VyMDAwMw==", head + "QYXNzMDAwMw==", "chrome://FirefoxAccounts"}}}));
}

TEST_F(FirefoxImporterTest, keepsEmptyTexts) {
    logins(R"({"logins":[{"hostname":"","encryptedUsername":"","encryptedPassword":""}]})");
    EXPECT_EQ(imported(), (Outcome{.passwords = {{"", "", ""}}}));
}

TEST_F(FirefoxImporterTest, takesTextsAsTheyStand) {
    logins(R"({"logins":[{"hostname":" HTTPS://A.example:8443 ","encryptedUsername":" MDI=\n",)"
           R"("encryptedPassword":"Grüße \u0000\uD83D\uDD11"}]})");
    EXPECT_EQ(imported(), (Outcome{.passwords = {{" MDI=\n", std::string("Grüße \0\U0001F511", 13),
                                                  " HTTPS://A.example:8443 "}}}));
}

TEST_F(FirefoxImporterTest, dropsALoginThatLacksAField) {
    logins(R"({"logins":[{"encryptedUsername":"1","encryptedPassword":"1"},)"
           R"({"hostname":"2","encryptedPassword":"2"},{"hostname":"3","encryptedUsername":"3"},)"
           R"({},{"hostname":"4","encryptedUsername":"4","encryptedPassword":"4"}]})");
    EXPECT_EQ(imported(), (Outcome{.passwords = {{"4", "4", "4"}}}));
}

TEST_F(FirefoxImporterTest, dropsALoginWithAFieldThatIsNotAText) {
    logins(R"({"logins":[{"hostname":1,"encryptedUsername":"1","encryptedPassword":"1"},)"
           R"({"hostname":"2","encryptedUsername":null,"encryptedPassword":"2"},)"
           R"({"hostname":"3","encryptedUsername":"3","encryptedPassword":["3"]},)"
           R"({"hostname":"4","encryptedUsername":"4","encryptedPassword":"4"}]})");
    EXPECT_EQ(imported(), (Outcome{.passwords = {{"4", "4", "4"}}}));
}

TEST_F(FirefoxImporterTest, importsNoLoginsIfOneElementIsNotAnObject) {
    logins(R"({"logins":[{"hostname":"1","encryptedUsername":"1","encryptedPassword":"1"},5]})");
    EXPECT_EQ(imported(), Outcome{});
}

TEST_F(FirefoxImporterTest, importsNoLoginsFromATopLevelArray) {
    logins("[" + std::string(annInJSON) + "]");
    EXPECT_EQ(imported(), Outcome{});
}

TEST_F(FirefoxImporterTest, importsNoLoginsFromWhatIsNotJSON) {
    for (const std::string_view text :
         {"", "   ", "logins", R"({"logins":[{]})", "{'logins':[]}"}) {
        logins(text);
        EXPECT_EQ(imported(), Outcome{}) << text;
    }
    logins(std::string(annInJSON) + "x");
    EXPECT_EQ(imported(), Outcome{});
}

TEST_F(FirefoxImporterTest, dropsAByteOrderMark) {
    logins("\uFEFF" + std::string(annInJSON));
    EXPECT_EQ(imported(), annsLogin);
}

TEST_F(FirefoxImporterTest, choosesAFolderNamedLoginsAndCannotReadIt) {
    std::filesystem::create_directory(folder() / "logins.json");
    signons({login("'h'", "'u'", "'p'")});
    EXPECT_EQ(imported(), Outcome{});
}

// signons.sqlite

TEST_F(FirefoxImporterTest, asksForTheLoginsInTheseWords) {
    EXPECT_EQ(FirefoxImporter::statement(),
              "SELECT hostname, encryptedUsername, encryptedPassword FROM moz_logins");
}

TEST_F(FirefoxImporterTest, importsAnOldProfile) {
    signons({login("'https://b.example'", "'MDQ='", "'MDU='"),
             login("'https://a.example'", "'MDI='", "'MDM='")});
    EXPECT_EQ(imported(), (Outcome{.passwords = {{"MDQ=", "MDU=", "https://b.example"},
                                                 {"MDI=", "MDM=", "https://a.example"}}}));
}

TEST_F(FirefoxImporterTest, keepsEmptyTextsOfAnOldProfile) {
    signons({login("''", "''", "''")});
    EXPECT_EQ(imported(), (Outcome{.passwords = {{"", "", ""}}}));
}

TEST_F(FirefoxImporterTest, dropsARowWithAValueThatIsNotAText) {
    const Connection connection(folder() / "signons.sqlite");
    connection.execute(
        {"CREATE TABLE moz_logins (hostname, encryptedUsername, encryptedPassword)",
         "INSERT INTO moz_logins VALUES (NULL, '1', '1'), ('2', NULL, '2'), ('3', '3', NULL), "
         "(x'34', '4', '4'), ('5', 5, '5'), ('6', '6', 6.5), ('7', '7', '7')"});
    EXPECT_EQ(imported(), (Outcome{.passwords = {{"7", "7", "7"}}}));
}

TEST_F(FirefoxImporterTest, importsNoLoginsFromAnotherDatabaseOrAnotherFile) {
    Connection(folder() / "signons.sqlite").execute({"CREATE TABLE moz_disabledHosts (id)"});
    EXPECT_EQ(imported(), Outcome{});
    (void)folder().file("signons.sqlite", "no database");
    EXPECT_EQ(imported(), Outcome{});
}

TEST_F(FirefoxImporterTest, importsTheRowsBeforeAnError) {
    const std::string path = folder() / "signons.sqlite";
    Connection(path).execute(
        {"CREATE TABLE moz_logins (hostname, encryptedUsername, encryptedPassword)",
         "INSERT INTO moz_logins VALUES ('h1', 'u', 'p'), ('h2', 'u', 'p'), ('h3', " + longText +
             ", 'p'), ('h4', 'u', 'p')"});
    damageLongTexts(path);
    EXPECT_EQ(imported(), (Outcome{.passwords = {{"u", "p", "h1"}, {"u", "p", "h2"}}}));
}

// Which store

TEST_F(FirefoxImporterTest, readsOnlyTheJSONFileIfThereAreBoth) {
    signons({login("'h'", "'u'", "'p'")});
    logins(annInJSON);
    EXPECT_EQ(imported(), annsLogin);
    logins(R"({"logins":[]})");
    EXPECT_EQ(imported(), Outcome{});
    logins("no JSON");
    EXPECT_EQ(imported(), Outcome{});
}

TEST_F(FirefoxImporterTest, takesAJSONFileThatCannotBeReadForMissing) {
    signons({login("'h'", "'u'", "'p'")});
    logins(annInJSON);
    std::filesystem::permissions(folder().path(), std::filesystem::perms::all);
    std::filesystem::permissions(folder() / "signons.sqlite", std::filesystem::perms::all);
    std::filesystem::permissions(folder() / "logins.json", std::filesystem::perms::none);
    const Outcome expected = {.passwords = {{"u", "p", "h"}}};
    EXPECT_EXIT(exitAsNobody([&] { return imported() == expected; }), testing::ExitedWithCode(0),
                "");
}

TEST_F(FirefoxImporterTest, takesADanglingLinkForMissing) {
    std::filesystem::create_symlink(folder() / "elsewhere", folder() / "logins.json");
    signons({login("'h'", "'u'", "'p'")});
    EXPECT_EQ(imported(), (Outcome{.passwords = {{"u", "p", "h"}}}));
}

TEST_F(FirefoxImporterTest, findsTheStoreBehindATrailingSlash) {
    logins(annInJSON);
    EXPECT_EQ(outcomeOf(ImportSource::firefox, folder().path().native() + "/"), annsLogin);
}

// Failures

TEST_F(FirefoxImporterTest, failsForAFolderWithoutAStore) {
    EXPECT_EQ(imported(), failedWithText());
}

TEST_F(FirefoxImporterTest, failsForAMissingFolderOrAFile) {
    EXPECT_EQ(outcomeOf(ImportSource::firefox, folder() / "missing"), failedWithText());
    logins(annInJSON);
    EXPECT_EQ(outcomeOf(ImportSource::firefox, folder() / "logins.json"), failedWithText());
}

TEST_F(FirefoxImporterTest, makesNoFileInAFolderWithoutAStore) {
    EXPECT_EQ(imported(), failedWithText());
    EXPECT_TRUE(std::filesystem::is_empty(folder().path()));
}

TEST_F(FirefoxImporterTest, failsWithThePathOfTheFolder) {
    FirefoxImporter importer;
    EXPECT_EQ(failure(importer, url()), "Failed to find logins.json or signons.sqlite for provided "
                                        "firefox profile folder " +
                                            folder().path().native());
    EXPECT_EQ(failure(importer, URL::fileURLWithPath("/no/such/a b é/")),
              "Failed to find logins.json or signons.sqlite for provided firefox profile folder "
              "/no/such/a b é");
}

// State

TEST_F(FirefoxImporterTest, startsWithoutAFailureAndWithoutMetaData) {
    const FirefoxImporter importer;
    EXPECT_EQ(importer.failureReason(), Reason::notAFailure);
    EXPECT_FALSE(importer.meta());
}

TEST_F(FirefoxImporterTest, remembersWhatItFoundLast) {
    FirefoxImporter importer;
    ImportMemory memory;
    logins(annInJSON);
    EXPECT_EQ(importer.read(url(), memory).size(), 1);
    EXPECT_EQ(importer.meta()->logins->path(), folder() / "logins.json");
    EXPECT_FALSE(importer.meta()->signons);

    signons({});
    EXPECT_EQ(importer.read(url(), memory).size(), 1);
    EXPECT_EQ(importer.meta()->logins->path(), folder() / "logins.json");
    EXPECT_EQ(importer.meta()->signons->path(), folder() / "signons.sqlite");

    EXPECT_NE(failure(importer, URL::fileURLWithPath("/no/such/folder")), "nothing was thrown");
    EXPECT_FALSE(importer.meta()->logins);
    EXPECT_FALSE(importer.meta()->signons);
}

TEST_F(FirefoxImporterTest, theReasonOfAFailureStaysThroughLaterSuccesses) {
    FirefoxImporter importer;
    ImportMemory memory;
    logins(annInJSON);
    EXPECT_EQ(importer.read(url(), memory).size(), 1);
    EXPECT_EQ(importer.failureReason(), Reason::notAFailure);

    EXPECT_NE(failure(importer, URL::fileURLWithPath("/no/such/folder")), "nothing was thrown");
    EXPECT_EQ(importer.failureReason(), Reason::invalidProfile);

    EXPECT_EQ(importer.read(url(), memory).size(), 1);
    EXPECT_EQ(importer.failureReason(), Reason::invalidProfile);
}

TEST_F(FirefoxImporterTest, doesNotTakeAnUnusableStoreForAFailure) {
    FirefoxImporter importer;
    ImportMemory memory;
    logins("no JSON");
    EXPECT_EQ(importer.read(url(), memory).size(), 0);
    EXPECT_EQ(importer.failureReason(), Reason::notAFailure);
}

// Single records

TEST_F(FirefoxImporterTest, takesEveryRecordForAPassword) {
    FirefoxImporter importer;
    EXPECT_TRUE(importer.isPassword(FirefoxRecord()));
}

TEST_F(FirefoxImporterTest, stopsForARecordThatLacksAKey) {
    for (const Key missing : {Key::hostname, Key::username, Key::password}) {
        FirefoxRecord record;
        for (const Key key : {Key::hostname, Key::username, Key::password}) {
            if (key != missing) {
                record.set(key, "text");
            }
        }
        EXPECT_DEATH((void)FirefoxImporter::buildPassword(record), "^$") << rawValue(missing);
    }
}

TEST(FirefoxRecordTest, namesTheKeysInOrder) {
    EXPECT_EQ(namesInOrder({Key::hostname, Key::username, Key::password}),
              "Hostname|Username|Password|");
}

TEST(FirefoxRecordTest, namesTheStoredFieldsInOrder) {
    using enum EncryptedKeys;
    EXPECT_EQ(namesInOrder({host, user, password}),
              "hostname|encryptedUsername|encryptedPassword|");
}

// Memory

TEST_F(FirefoxImporterTest, wipesTheTextOfTheFileAsSoonAsItIsRead) {
    const std::string text = std::string(annInJSON) + std::string(5000, ' ');
    logins(text);
    // The buffer has a byte more than the file, to see the file's end.
    EXPECT_TRUE(givesBackZeros(text.size() + 1, [&] { EXPECT_EQ(imported(), annsLogin); }));
}

TEST_F(FirefoxImporterTest, leavesNothingBehindAnImportOfTheJSONFile) {
    logins(annInJSON);
    RecordsImporter importer;
    const auto import = [&] {
        importer.records(url(), ImportSource::firefox, [](const RecordsResult& result) {
            ASSERT_EQ(result.value().passwords.size(), 1);
        });
    };
    import(); // the importer itself is made at its first use
    const std::size_t descriptors = openDescriptors();
    const std::size_t pieces = piecesInUse();
    for (int count = 0; count < 1000; ++count) {
        import();
    }
    EXPECT_EQ(openDescriptors(), descriptors);
    EXPECT_EQ(piecesInUse(), pieces);
}

} // namespace

} // namespace Rellinor::Tests
