#include "Private/Importers/Chrome/ChromeImporter.hpp"

#include <array>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "Private/Importers/Chrome/ChromeRecord.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/Database.hpp"
#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/OtherProcess.hpp"
#include "Tests/Support/RecordKeys.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

using Key = ChromeRecordKey;

/// What the browser itself lays down in a new profile.
std::string schema() {
    return contentsOf(RELLINOR_FIXTURES "/Chrome/schema.sql");
}

/// The statement that adds a login. Each argument is an SQL expression.
std::string login(const std::string& username, const std::string& password, const std::string& url,
                  const std::string& excluded = "0") {
    return "INSERT INTO logins (origin_url, action_url, username_element, username_value, "
           "password_element, password_value, signon_realm, date_created, blacklisted_by_user, "
           "scheme, form_data) VALUES (" +
           url + ", 'https://form.example/', 'user', " + username + ", 'pass', " + password +
           ", 'https://realm.example/' || random(), 13300000000000000, " + excluded +
           ", 0, x'00010203')";
}

/// What becomes of a login database to which these statements were put.
Outcome import(const Statements& statements) {
    const TemporaryFolder folder;
    const std::string path = database(folder, {schema()});
    Connection(path).execute(statements);
    return outcomeOf(ImportSource::chrome, path);
}

const std::string ann = login("'ann'", "x'763130'", "'https://a.example/'");
const std::string bob = login("'bob'", "x'763130FF'", "'https://b.example/'");
const Password annsLogin = {"ann", "djEw", "https://a.example/"};
const Password bobsLogin = {"bob", "djEw/w==", "https://b.example/"};

// The database

TEST(ChromeImporterTest, asksForTheLoginsInTheseWords) {
    EXPECT_EQ(ChromeImporter::statement(),
              "SELECT username_value, origin_url, password_value FROM logins WHERE "
              "blacklisted_by_user = 0 AND username_value IS NOT NULL AND username_value != '' AND "
              "origin_url IS NOT NULL AND origin_url != '' AND password_value IS NOT NULL AND "
              "password_value != ''");
}

TEST(ChromeImporterTest, importsLoginsInTheDatabasesOrder) {
    EXPECT_EQ(import({bob, ann}), (Outcome{.passwords = {bobsLogin, annsLogin}}));
}

TEST(ChromeImporterTest, importsNeitherNotesNorCards) {
    const TemporaryFolder folder;
    const std::string path = database(folder, {schema()});
    Connection(path).execute({ann,
                              "INSERT INTO password_notes (parent_id, key, value, date_created) "
                              "SELECT id, '', x'6E6F7465', 0 FROM logins",
                              "CREATE TABLE credit_cards (name_on_card, card_number_encrypted)",
                              "INSERT INTO credit_cards VALUES ('Ann', x'00')"});
    EXPECT_EQ(outcomeOf(ImportSource::chrome, path), Outcome{.passwords = {annsLogin}});
}

TEST(ChromeImporterTest, importsADatabaseWithoutLogins) {
    EXPECT_EQ(import({}), Outcome{});
}

TEST(ChromeImporterTest, succeedsWithoutRecordsForAMissingFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(outcomeOf(ImportSource::chrome, folder / "missing"), Outcome{});
    EXPECT_EQ(outcomeOf(ImportSource::chrome, folder / "missing/database"), Outcome{});
}

TEST(ChromeImporterTest, leavesAnEmptyFileWhereALinkLedNowhere) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink(folder / "missing", folder / "link");
    EXPECT_EQ(outcomeOf(ImportSource::chrome, folder / "link"), Outcome{});
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    EXPECT_EQ(contentsOf(folder / "missing"), "");
}

TEST(ChromeImporterTest, succeedsWithoutRecordsForAFolderOrAnotherFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(outcomeOf(ImportSource::chrome, folder.path().native()), Outcome{});
    EXPECT_EQ(outcomeOf(ImportSource::chrome, folder.file("empty", "")), Outcome{});
    EXPECT_EQ(outcomeOf(ImportSource::chrome, folder.file("text", "url,username,password\n")),
              Outcome{});
}

TEST(ChromeImporterTest, succeedsWithoutRecordsForAnotherDatabase) {
    const TemporaryFolder folder;
    const std::string path = database(folder, {"CREATE TABLE passwords (v)"});
    EXPECT_EQ(outcomeOf(ImportSource::chrome, path), Outcome{});
    Connection(path).execute(
        {"CREATE TABLE logins (username_value, origin_url, password_value)",
         "INSERT INTO logins VALUES ('ann', 'https://a.example/', x'763130')"});
    EXPECT_EQ(outcomeOf(ImportSource::chrome, path), Outcome{}); // a column is missing
}

TEST(ChromeImporterTest, importsTheLoginsBeforeAnError) {
    const TemporaryFolder folder;
    const std::string path = database(folder, {schema()});
    Connection(path).execute({ann, bob, login("'c'", "x'00'", longText), ann});
    damageLongTexts(path);
    EXPECT_EQ(outcomeOf(ImportSource::chrome, path),
              (Outcome{.passwords = {annsLogin, bobsLogin}}));
}

TEST(ChromeImporterTest, readsTheFileAtAPathWithOddCharacters) {
    const TemporaryFolder folder;
    const std::string path = folder / "Login Data é?#%20;file:x";
    Connection(path).execute({schema(), ann});
    EXPECT_EQ(outcomeOf(ImportSource::chrome, path), (Outcome{.passwords = {annsLogin}}));
}

// The rows

TEST(ChromeImporterTest, leavesOutLoginsThatTheUserExcluded) {
    EXPECT_EQ(import({login("'eve'", "x'00'", "'https://e.example/'", "1"), ann,
                      login("'eve'", "x'00'", "'https://f.example/'", "2"),
                      login("'eve'", "x'00'", "'https://g.example/'", "-1")}),
              (Outcome{.passwords = {annsLogin}}));
}

TEST(ChromeImporterTest, leavesOutLoginsWithAnEmptyField) {
    EXPECT_EQ(import({login("''", "x'00'", "'https://e.example/'"),
                      login("'eve'", "''", "'https://f.example/'"), //
                      login("'eve'", "x'00'", "''"), ann}),
              (Outcome{.passwords = {annsLogin}}));
}

TEST(ChromeImporterTest, leavesOutLoginsWithoutAField) {
    EXPECT_EQ(import({login("NULL", "x'00'", "'https://e.example/'"),
                      login("'eve'", "NULL", "'https://f.example/'"), ann}),
              (Outcome{.passwords = {annsLogin}}));
}

TEST(ChromeImporterTest, dropsALoginWhosePasswordIsAnEmptyBlob) {
    // The database does not filter it: a blob differs from any text.
    EXPECT_EQ(import({login("'eve'", "x''", "'https://e.example/'"), ann}),
              (Outcome{.passwords = {annsLogin}}));
}

TEST(ChromeImporterTest, aLoginWhosePasswordIsATextIsDropped) {
    EXPECT_EQ(import({login("'eve'", "'plain'", "'https://e.example/'"), ann}),
              (Outcome{.passwords = {annsLogin}}));
}

TEST(ChromeImporterTest, dropsALoginWhosePasswordIsANumber) {
    EXPECT_EQ(import({login("'eve'", "42", "'https://e.example/'"),
                      login("'eve'", "1.5", "'https://f.example/'"), ann}),
              (Outcome{.passwords = {annsLogin}}));
}

TEST(ChromeImporterTest, dropsALoginWhoseUsernameOrURLIsNotAText) {
    EXPECT_EQ(import({login("x'616E6E'", "x'00'", "'https://e.example/'"),
                      login("'eve'", "x'00'", "x'68747470'"), ann}),
              (Outcome{.passwords = {annsLogin}}));
}

TEST(ChromeImporterTest, takesTextsAsTheyStand) {
    EXPECT_EQ(import({login("' Grüße '", "x'00'", "' HTTPS://A.example:8443/p?q#f '")}),
              (Outcome{.passwords = {{" Grüße ", "AA==", " HTTPS://A.example:8443/p?q#f "}}}));
}

TEST(ChromeImporterTest, handsOnThePasswordAsTheBase64TextOfItsBytes) {
    EXPECT_EQ(import({login("'1'", "x'76'", "'a'"), login("'2'", "x'7631'", "'a'"),
                      login("'3'", "x'763130'", "'a'"), login("'4'", "x'76313000'", "'a'"),
                      login("'5'", "x'FBEFBE'", "'a'"), login("'6'", "x'FFFFFF'", "'a'")}),
              (Outcome{.passwords = {{"1", "dg==", "a"},
                                     {"2", "djE=", "a"},
                                     {"3", "djEw", "a"},
                                     {"4", "djEwAA==", "a"},
                                     {"5", "++++", "a"},
                                     {"6", "////", "a"}}}));
}

TEST(ChromeImporterTest, breaksALongPasswordIntoNoLines) {
    EXPECT_EQ(import({login("'ann'", "zeroblob(3000)", "'a'")}),
              (Outcome{.passwords = {{"ann", std::string(4000, 'A'), "a"}}}));
}

TEST(ChromeImporterTest, importsAPasswordOfThirtyMegabytes) {
    const Outcome outcome = import(
        {login("'ann'", "CAST(replace(hex(zeroblob(3000000)), '00', '0123456789') || '!' AS BLOB)",
               "'a'")});
    std::string expected;
    for (int thirtyBytes = 0; thirtyBytes < 1'000'000; ++thirtyBytes) {
        expected += "MDEyMzQ1Njc4OTAxMjM0NTY3ODkwMTIzNDU2Nzg5";
    }
    ASSERT_EQ(outcome.passwords.size(), 1);
    EXPECT_EQ(outcome.passwords[0].username, "ann");
    EXPECT_TRUE(outcome.passwords[0].password == expected + "IQ=="); // too long to be shown
}

// Single records

constexpr std::array<std::string_view, 3> columns = {"username_value", "origin_url",
                                                     "password_value"};
constexpr std::string_view bytes = "v10";

/// The column for which a record with these columns, or those of them that come first, is left out;
/// empty if it is not.
std::string_view reason(std::vector<SQLiteValue> values) {
    ImportMemory memory;
    const SQLiteRow record{std::span(columns).first(values.size()), values, memory};
    const auto built = ChromeImporter::buildPassword(record);
    EXPECT_TRUE(built || built.error().reason == LeftOutReason::fieldOfOtherType);
    return built ? "" : built.error().field;
}

TEST(ChromeImporterTest, saysWhyARecordIsDropped) {
    const SQLiteValue text("a"sv);
    const SQLiteValue blob{std::span(bytes)};
    EXPECT_EQ(reason({text, text, blob}), "");
    EXPECT_EQ(reason({}), "username_value");
    EXPECT_EQ(reason({text}), "origin_url");
    EXPECT_EQ(reason({text, text}), "password_value");
    EXPECT_EQ(reason({SQLiteValue(), text, blob}), "username_value");
    EXPECT_EQ(reason({text, SQLiteValue(), blob}), "origin_url");
    EXPECT_EQ(reason({text, text, SQLiteValue()}), "password_value");
    EXPECT_EQ(reason({blob, text, blob}), "username_value");
    EXPECT_EQ(reason({text, blob, blob}), "origin_url");
    EXPECT_EQ(reason({text, text, text}), "password_value");
    EXPECT_EQ(reason({SQLiteValue(std::int64_t{1}), text, blob}), "username_value");
    EXPECT_EQ(reason({text, SQLiteValue(1.0), blob}), "origin_url");
}

TEST(ChromeImporterTest, takesEveryRecordForAPassword) {
    ImportMemory memory;
    const SQLiteRow record({}, {}, memory);
    EXPECT_TRUE(ChromeImporter::isPassword(record));
}

TEST(ChromeRecordTest, namesTheColumns) {
    EXPECT_EQ(namesInOrder({Key::username, Key::password, Key::url}),
              "username_value|password_value|origin_url|");
}

// A browser at work

TEST(ChromeImporterTest, leavesADatabaseInEitherJournalModeAsItIs) {
    for (const std::string mode : {"DELETE", "TRUNCATE", "PERSIST", "WAL"}) {
        const TemporaryFolder folder;
        const std::string path = folder / "Login Data";
        dieAfter([&] {
            auto* browser = new Connection(path);
            browser->execute(
                {"PRAGMA page_size = 2048", "PRAGMA journal_mode = " + mode, schema(), ann, bob});
        });
        const std::string before = contentsOf(path);
        EXPECT_EQ(outcomeOf(ImportSource::chrome, path),
                  (Outcome{.passwords = {annsLogin, bobsLogin}}))
            << mode;
        EXPECT_EQ(contentsOf(path), before) << mode;
    }
}

TEST(ChromeImporterTest, succeedsWithoutRecordsWhileTheBrowserHasTheDatabaseLocked) {
    const TemporaryFolder folder;
    const std::string path = database(folder, {schema(), ann});
    const std::string before = contentsOf(path);
    {
        const OtherProcess browser([&] {
            auto* connection = new Connection(path);
            connection->execute({"PRAGMA locking_mode = EXCLUSIVE", "BEGIN EXCLUSIVE", "COMMIT"});
        });
        EXPECT_EQ(outcomeOf(ImportSource::chrome, path), Outcome{});
    }
    EXPECT_EQ(outcomeOf(ImportSource::chrome, path), (Outcome{.passwords = {annsLogin}}));
    EXPECT_EQ(contentsOf(path), before);
}

TEST(ChromeImporterTest, importsFromADatabaseThatTheBrowserHasOpen) {
    const TemporaryFolder folder;
    const std::string path = database(folder, {schema(), ann});
    const OtherProcess browser([&] {
        auto* connection = new Connection(path);
        connection->execute({"SELECT * FROM logins"});
    });
    EXPECT_EQ(outcomeOf(ImportSource::chrome, path), (Outcome{.passwords = {annsLogin}}));
}

TEST(ChromeImporterTest, importsWhatABrowserThatDiedHadCommitted) {
    const TemporaryFolder folder;
    const std::string path =
        database(folder, {schema(), ann, bob,
                          "WITH n AS (SELECT 1 AS v UNION ALL SELECT v + 1 FROM n WHERE v < 1000) "
                          "INSERT INTO stats SELECT 'https://' || v, '', 0, 0 FROM n"});
    const std::string before = contentsOf(path);
    dieAfter([&] {
        auto* connection = new Connection(path);
        connection->execute({"PRAGMA cache_size = 1", "BEGIN", "DELETE FROM logins",
                             "UPDATE stats SET username_value = hex(randomblob(50))"});
    });
    ASSERT_TRUE(std::filesystem::exists(path + "-journal"));
    ASSERT_NE(contentsOf(path), before);
    EXPECT_EQ(outcomeOf(ImportSource::chrome, path),
              (Outcome{.passwords = {annsLogin, bobsLogin}}));
    EXPECT_EQ(contentsOf(path), before);
}

// Memory

TEST(ChromeImporterTest, leavesNothingButOneHandlePerImport) {
    const std::size_t imports = affordable(1000U);
    if (!allowDescriptors(imports + 100)) {
        GTEST_SKIP() << "this process may not have so many files open";
    }
    const TemporaryFolder folder;
    const std::string path = database(folder, {schema(), ann, bob});
    RecordsImporter importer;
    const auto import = [&] {
        importer.records(URL::fileURLWithPath(path), ImportSource::chrome,
                         [](const RecordsResult& result) {
                             ASSERT_TRUE(result);
                             ASSERT_EQ(result->passwords.size(), 2);
                         });
    };
    import(); // the importer itself is made at its first use
    const std::size_t descriptors = openDescriptors();
    const std::size_t pieces = piecesInUse();
    // What SQLite itself keeps of an import, the connection and its statement, is the same each
    // time.
    const ::sqlite3_int64 before = ::sqlite3_memory_used();
    import();
    const ::sqlite3_int64 keptByOne = ::sqlite3_memory_used() - before;
    for (std::size_t count = 1; count < imports; ++count) {
        import();
    }
    EXPECT_LE(openDescriptors(), descriptors + imports);
    EXPECT_EQ(piecesInUse(), pieces);
    EXPECT_LE(keptByOne, 160 * 1024);
    EXPECT_NEAR(static_cast<double>(::sqlite3_memory_used() - before),
                static_cast<double>(keptByOne) * static_cast<double>(imports), 4096);
}

TEST(ChromeImporterTest, wipesWhatItReadWhenTheLastRecordIsLetGo) {
    const TemporaryFolder folder;
    // So long that its text has a piece of memory of its own.
    const std::string path = database(folder, {schema(), login("'ann'", "zeroblob(3000)", "'a'")});
    std::shared_ptr<const ImportedPasswordInfoProviding> last;
    RecordsImporter().records(URL::fileURLWithPath(path), ImportSource::chrome,
                              [&](RecordsResult result) { last = result->passwords.back(); });
    EXPECT_EQ(last->password(), std::string(4000, 'A'));
    EXPECT_TRUE(givesBackZeros(4000, [&] { last.reset(); }));
}

} // namespace

} // namespace Rellinor::Tests
