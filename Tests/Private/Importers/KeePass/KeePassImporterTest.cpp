#include "Private/Importers/KeePass/KeePassImporter.hpp"

#include <array>
#include <initializer_list>
#include <memory>
#include <new>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Extensions/String.hpp"
#include "Private/Importers/KeePass/KeePassFork.hpp"
#include "Private/Importers/KeePass/KeePassRecord.hpp"
#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/ImportAllocations.hpp"
#include "Tests/Support/RecordKeys.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Key = KeePassRecordKey;

constexpr std::string_view classicHeader =
    R"("Account","Login Name","Password","Web Site","Comments")"
    "\n";
constexpr std::string_view xcHeader = R"("Group","Title","Username","Password","URL","Notes")"
                                      "\n";

/// What becomes of an export with this text.
Outcome import(std::string_view text, ImportSource source = ImportSource::keePass) {
    const TemporaryFolder folder;
    return outcomeOf(source, folder.file("export.csv", text));
}

/// What becomes of these rows under the header row of the classic fork.
Outcome importClassic(std::string_view rows) {
    return import(std::string(classicHeader) + std::string(rows));
}

/// What becomes of these rows under the header row of KeePassXC.
Outcome importXC(std::string_view rows) {
    return import(std::string(xcHeader) + std::string(rows), ImportSource::keePassXC);
}

/// Reads a file with this text; the message if that fails, and an empty text otherwise.
std::string failure(KeePassImporter& importer, std::string_view text) {
    const TemporaryFolder folder;
    try {
        ImportMemory memory;
        (void)importer.read(URL::fileURLWithPath(folder.file("export.csv", text)), memory);
    } catch (const TextError& error) {
        return error.what();
    }
    return "";
}

std::string failure(std::string_view text) {
    KeePassImporter importer;
    return failure(importer, text);
}

/// A record of the columns that are given; it lacks the others.
class Record {
public:
    Record(std::initializer_list<std::pair<Key, std::string_view>> cells) {
        for (const auto& [key, cell] : cells) {
            _cells.at(static_cast<std::size_t>(key)) = cell;
        }
    }

    operator CSVRecord() const { return CSVRecord(_cells); } // NOLINT(*-explicit-*)

private:
    std::array<std::string_view, 10> _cells;
};

/// An importer that has recognised a fork.
KeePassImporter& importerOf(KeePassFork fork) {
    static KeePassImporter classic;
    static KeePassImporter xc;
    KeePassImporter& importer = fork == KeePassFork::keepass ? classic : xc;
    EXPECT_EQ(failure(importer, fork == KeePassFork::keepass ? classicHeader : xcHeader), "");
    EXPECT_EQ(importer.fork(), fork);
    return importer;
}

/// A reader that does not find the headers in its first attempts.
class TestProxy final : public CSVFileProxyType {
public:
    TestProxy(std::size_t numberOfFields, std::size_t failures)
        : _numberOfFields(numberOfFields), _failures(failures) {}

    std::optional<CSVCursor> records() override { return std::nullopt; }

    std::optional<std::size_t> numberOfFields() override { return _numberOfFields; }

    CSVKeyedRecords keyedRecords(std::span<const CSVHeader> expectedHeaders) override {
        std::string names;
        for (const CSVHeader& header : expectedHeaders) {
            names += std::string(header.name) + ' ';
        }
        _attempts.push_back(std::move(names));
        if (_attempts.size() <= _failures) {
            throw TextError("File does not contain expected headers");
        }
        return {CSVCursor("1,2,3\n"),
                CSVColumns::byPosition(expectedHeaders, expectedHeaders.size())};
    }

    /// The headers of each attempt.
    [[nodiscard]] const std::vector<std::string>& attempts() const { return _attempts; }

private:
    std::size_t _numberOfFields;
    std::size_t _failures;
    std::vector<std::string> _attempts;
};

// The file

TEST(KeePassImporterTest, importsAnExportOfTheClassicFork) {
    EXPECT_EQ(importClassic("\"Mail\",\"ann\",\"one\",\"https://a.example\",\"first\nsecond\"\n"
                            "\"Bank, old\",\"bob\",\"t,wo\",\"https://b.example\",\"\"\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"},
                                     {"bob", "t,wo", "https://b.example", "Bank, old"}}}));
}

TEST(KeePassImporterTest, importsAnExportOfKeePassXC) {
    EXPECT_EQ(importXC("\"Root\",\"Mail\",\"ann\",\"one\",\"https://a.example\",\"\"\n"
                       "\"Root/Old\",\"Bank\",\"bob\",\"t,wo\",\"https://b.example\",\"a\nb\"\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"},
                                     {"bob", "t,wo", "https://b.example", "Bank"}}}));
}

TEST(KeePassImporterTest, readsAClassicFileAsTheClassicForkWhicheverSourceIsNamed) {
    const std::string text = std::string(classicHeader) + "Mail,ann,one,https://a.example,\n";
    const Outcome expected = {.passwords = {{"ann", "one", "https://a.example", "Mail"}}};
    EXPECT_EQ(import(text, ImportSource::keePassXC), expected);
    EXPECT_EQ(import(text, ImportSource::keePass), expected);
}

TEST(KeePassImporterTest, readsAFileOfKeePassXCAsSuchWhicheverSourceIsNamed) {
    const std::string text = std::string(xcHeader) + "Root,Mail,ann,one,https://a.example,\n";
    const Outcome expected = {.passwords = {{"ann", "one", "https://a.example", "Mail"}}};
    EXPECT_EQ(import(text, ImportSource::keePassXC), expected);
    EXPECT_EQ(import(text, ImportSource::keePass), expected);
}

TEST(KeePassImporterTest, importsAHeaderAndNoRows) {
    EXPECT_EQ(importClassic(""), Outcome{});
    EXPECT_EQ(importXC(""), Outcome{});
}

TEST(KeePassImporterTest, findsTheColumnsInAnyOrder) {
    EXPECT_EQ(import("Comments,Password,Account,Web Site,Login Name\n"
                     "notes,one,Mail,https://a.example,ann\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
    EXPECT_EQ(import("Notes,URL,Password,Username,Title,Group\n"
                     "notes,https://a.example,one,ann,Mail,Root\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
}

TEST(KeePassImporterTest, readsByPositionIfTheFirstRowLacksAName) {
    EXPECT_EQ(import("Account,Login Name,Password,Web Site,comments\n"
                     "Mail,ann,one,https://a.example,\n"),
              (Outcome{.passwords = {{"Login Name", "Password", "Web Site", "Account"},
                                     {"ann", "one", "https://a.example", "Mail"}}}));
    EXPECT_EQ(import("Root,Mail,ann,one,https://a.example,\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
}

TEST(KeePassImporterTest, aFiveColumnExportOfKeePassXCIsTakenForTheClassicFork) {
    EXPECT_EQ(import("\"Group\",\"Title\",\"Username\",\"Password\",\"URL\"\n"
                     "\"Root\",\"Mail\",\"ann\",\"one\",\"https://a.example\"\n",
                     ImportSource::keePassXC),
              (Outcome{.passwords = {{"Title", "Username", "Password", "Group"},
                                     {"Mail", "ann", "one", "Root"}}}));
}

TEST(KeePassImporterTest, takesSixColumnsWithTheClassicNamesForKeePassXC) {
    EXPECT_EQ(import("Account,Login Name,Password,Web Site,Comments,Extra\n"
                     "Mail,ann,one,https://a.example,,\n"),
              (Outcome{.passwords = {{"Password", "Web Site", "Comments", "Login Name"},
                                     {"one", "https://a.example", "", "ann"}}}));
}

TEST(KeePassImporterTest, dropsAByteOrderMark) {
    EXPECT_EQ(import("\uFEFF" + std::string(classicHeader) + "Mail,ann,one,https://a.example,\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
}

TEST(KeePassImporterTest, readsCRLFLineEnds) {
    EXPECT_EQ(import("Group,Title,Username,Password,URL,Notes\r\n"
                     "Root,Mail,ann,one,https://a.example,\"a\r\nb\"\r\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
}

// Files that fail

TEST(KeePassImporterTest, failsForAFileThatCannotBeRead) {
    constexpr std::string_view message = "The provided CSV file does not have any fields";
    const TemporaryFolder folder;
    for (const std::string& path : {folder / "missing", folder.path().native()}) {
        EXPECT_EQ(outcomeOf(ImportSource::keePass, path), failedWithText());
        EXPECT_EQ(outcomeOf(ImportSource::keePassXC, path), failedWithText());
        KeePassImporter importer;
        ImportMemory memory;
        try {
            (void)importer.read(URL::fileURLWithPath(path), memory);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const TextError& error) {
            EXPECT_EQ(error.what(), message);
        }
    }
}

TEST(KeePassImporterTest, failsForAFileWithoutRows) {
    for (const std::string_view text : {"", "\n", " \n\t\r\n", "\uFEFF"}) {
        EXPECT_EQ(import(text), failedWithText());
        EXPECT_EQ(failure(text), "The provided CSV file does not have any fields");
    }
}

TEST(KeePassImporterTest, failsForAFileInAnotherEncoding) {
    EXPECT_EQ(importClassic("caf\xE9,ann,one,https://a.example,\n"), failedWithText());
    EXPECT_EQ(failure("caf\xE9,ann,one,https://a.example,\n"),
              "The provided CSV file does not have any fields");
}

TEST(KeePassImporterTest, failsForAnyOtherNumberOfColumns) {
    for (const std::string_view text :
         {"Account\n", "Account,Login Name,Password,Web Site\n", "a,b,c,d,e,f,g\n",
          "\"Group\",\"Title\",\"Username\",\"Password\",\"URL\",\"Notes\",\"TOTP\"\n",
          "\"Account,Login Name,Password,Web Site,Comments\"\n",
          "Account;Login Name;Password;Web Site;Comments\n"}) {
        EXPECT_EQ(import(text), failedWithText()) << text;
        EXPECT_EQ(failure(text), "Unrecognized KeePass fork: the provided CSV file doesnt have the "
                                 "expected number of fields for any supported fork")
            << text;
    }
}

TEST(KeePassImporterTest, countsTheColumnsOfTheFirstRowAlone) {
    EXPECT_EQ(failure("a,b,c\na,b,c,d,e\n").substr(0, 12), "Unrecognized");
    EXPECT_EQ(import("\n \nMail,ann,one,https://a.example,\na,b,c,d,e,f,g,h\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"},
                                     {"b", "c", "d", "a"}}}));
}

TEST(KeePassImporterTest, takesTheRequiredColumnsIfNotAllAreFound) {
    TestProxy classic(5, 1);
    KeePassImporter importer;
    std::size_t records = 0;
    for (auto keyed = importer.read(classic); const CSVRecord& record : keyed) {
        EXPECT_EQ(copyOf(importer.buildPassword(record).value()),
                  (Password{"2", "3", "1", std::nullopt}));
        ++records;
    }
    EXPECT_EQ(records, 1);
    EXPECT_EQ(classic.attempts(),
              (std::vector<std::string>{"Account Login Name Password Web Site Comments ",
                                        "Web Site Login Name Password "}));

    TestProxy xc(6, 1);
    (void)importer.read(xc);
    EXPECT_EQ(xc.attempts(), (std::vector<std::string>{"Group Title Username Password URL Notes ",
                                                       "URL Username Password "}));
}

TEST(KeePassImporterTest, makesNoSecondAttemptIfTheFirstSucceeds) {
    TestProxy proxy(6, 0);
    (void)KeePassImporter().read(proxy);
    EXPECT_EQ(proxy.attempts().size(), 1);
}

TEST(KeePassImporterTest, failsIfNotEvenTheRequiredColumnsAreFound) {
    for (const std::size_t numberOfFields : {5U, 6U}) {
        TestProxy proxy(numberOfFields, 2);
        KeePassImporter importer;
        try {
            (void)importer.read(proxy);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const TextError& error) {
            EXPECT_EQ(std::string_view(error.what()),
                      "The provided CSV field doesn't have the expected fields");
        }
        EXPECT_EQ(proxy.attempts().size(), 2);
    }
}

TEST(KeePassImporterTest, letsLackOfMemoryThrough) {
    class OutOfMemoryProxy final : public CSVFileProxyType {
    public:
        std::optional<CSVCursor> records() override { return std::nullopt; }

        std::optional<std::size_t> numberOfFields() override { return 5; }

        CSVKeyedRecords keyedRecords(std::span<const CSVHeader> /*expectedHeaders*/) override {
            throw std::bad_alloc();
        }
    };

    OutOfMemoryProxy proxy;
    KeePassImporter importer;
    EXPECT_THROW((void)importer.read(proxy), std::bad_alloc);
}

// Rows

TEST(KeePassImporterTest, takesValuesAsTheyStand) {
    EXPECT_EQ(importClassic("\tMail\t, Ann ,\" one \"\"two\"\" \", HTTPS://A.example ,x\n"),
              (Outcome{.passwords = {
                           {" Ann ", " one \"\"two\"\" ", " HTTPS://A.example ", "\tMail\t"}}}));
    EXPECT_EQ(importXC("Root,\tMail\t, Ann ,\"one\\\"two\", HTTPS://A.example ,x\n"),
              (Outcome{.passwords = {{" Ann ", "one\"\"two", " HTTPS://A.example ", "\tMail\t"}}}));
}

TEST(KeePassImporterTest, keepsAClassicRowWithEmptyLoginNameAndPassword) {
    EXPECT_EQ(importClassic("Mail,,,https://a.example,\n"),
              (Outcome{.passwords = {{"", "", "https://a.example", "Mail"}}}));
}

TEST(KeePassImporterTest, keepsARowOfEmptyCells) {
    EXPECT_EQ(importClassic(",,,,\n"), (Outcome{.passwords = {{"", "", "", ""}}}));
    EXPECT_EQ(importXC(",,,,,\n"), (Outcome{.passwords = {{"", "", "", ""}}}));
}

TEST(KeePassImporterTest, theCommentsAreLeftOut) {
    EXPECT_EQ(importClassic("Mail,ann,one,https://a.example,comments\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
}

TEST(KeePassImporterTest, theGroupAndTheNotesAreLeftOut) {
    EXPECT_EQ(importXC("Root,Mail,ann,one,https://a.example,notes\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
}

TEST(KeePassImporterTest, readsRowsOfUnequalLengthUnderAHeader) {
    EXPECT_EQ(importClassic("Mail\nBank,bob,two,https://b.example,,more,cells\n"),
              (Outcome{.passwords = {{"", "", "", "Mail"},
                                     {"bob", "two", "https://b.example", "Bank"}}}));
    EXPECT_EQ(importXC("Root,Mail,ann\nRoot,Bank,bob,two,https://b.example,,more\n"),
              (Outcome{.passwords = {{"ann", "", "", "Mail"},
                                     {"bob", "two", "https://b.example", "Bank"}}}));
}

TEST(KeePassImporterTest, dropsAShortRowWithoutAHeaderThatLacksARequiredColumn) {
    EXPECT_EQ(import("1,2,3,4,5\nMail,ann,one\nBank,bob,two,https://b.example\n"),
              (Outcome{.passwords = {{"2", "3", "4", "1"},
                                     {"bob", "two", "https://b.example", "Bank"}}}));
    EXPECT_EQ(import("1,2,3,4,5,6\nRoot,Mail,ann,one\nRoot,Bank,bob,two,https://b.example\n"),
              (Outcome{.passwords = {{"3", "4", "5", "2"},
                                     {"bob", "two", "https://b.example", "Bank"}}}));
}

// Records that lack a column

/// The column for which a fork makes no login of a record.
std::string_view missingColumn(KeePassFork fork, const Record& record) {
    const Dropped dropped = importerOf(fork).buildPassword(record).error();
    EXPECT_EQ(dropped.reason, LeftOutReason::missingField);
    return dropped.field;
}

TEST(KeePassImporterTest, buildsNoPasswordWithoutARequiredColumn) {
    using enum KeePassFork;
    EXPECT_EQ(missingColumn(keepass, {{Key::site, ""}, {Key::login, ""}}), "Password");
    EXPECT_EQ(missingColumn(keepass, {{Key::site, ""}, {Key::password, ""}}), "Login Name");
    EXPECT_EQ(missingColumn(keepass, {{Key::login, ""}, {Key::password, ""}}), "Web Site");
    EXPECT_EQ(missingColumn(keepass, {}), "Web Site");
    EXPECT_EQ(missingColumn(keepassXC, {{Key::url, ""}, {Key::username, ""}}), "Password");
    EXPECT_EQ(missingColumn(keepassXC, {{Key::url, ""}, {Key::password, ""}}), "Username");
    EXPECT_EQ(missingColumn(keepassXC, {{Key::username, ""}, {Key::password, ""}}), "URL");
    EXPECT_EQ(missingColumn(keepassXC, {}), "URL");
}

TEST(KeePassImporterTest, looksAtTheColumnsOfItsForkAlone) {
    const Record classicRecord = {{Key::site, "s"}, {Key::login, "l"}, {Key::password, "p"}};
    const Record xcRecord = {{Key::url, "u"}, {Key::username, "n"}, {Key::password, "p"}};
    EXPECT_FALSE(importerOf(KeePassFork::keepassXC).buildPassword(classicRecord));
    EXPECT_FALSE(importerOf(KeePassFork::keepass).buildPassword(xcRecord));
}

TEST(KeePassImporterTest, leavesTheServiceAbsentIfItsColumnIsMissing) {
    EXPECT_EQ(
        copyOf(importerOf(KeePassFork::keepass)
                   .buildPassword(Record{{Key::site, "s"}, {Key::login, "l"}, {Key::password, "p"}})
                   .value()),
        (Password{"l", "p", "s", std::nullopt}));
    EXPECT_EQ(copyOf(importerOf(KeePassFork::keepassXC)
                         .buildPassword(
                             Record{{Key::url, "u"}, {Key::username, "n"}, {Key::password, "p"}})
                         .value()),
              (Password{"n", "p", "u", std::nullopt}));
}

TEST(KeePassImporterTest, skipsEveryRecordUntilAForkIsRecognised) {
    const KeePassImporter importer;
    const Record record = {{Key::site, "s"}, {Key::login, "l"}, {Key::password, "p"}};
    EXPECT_FALSE(importer.isPassword(record));
    EXPECT_TRUE(importerOf(KeePassFork::keepass).isPassword(record));
    EXPECT_TRUE(importerOf(KeePassFork::keepassXC).isPassword(Record{}));
}

TEST(KeePassImporterTest, stopsForARecordBeforeAForkIsRecognised) {
    EXPECT_DEATH((void)KeePassImporter().buildPassword(Record{}), "^$");
}

// The forks

std::string namesOf(std::span<const CSVHeader> headers) {
    std::string names;
    for (const CSVHeader& header : headers) {
        names += std::string(header.name) + '|';
    }
    return names;
}

TEST(KeePassForkTest, hasAllColumnsInTheirOrder) {
    EXPECT_EQ(namesOf(allKeys(KeePassFork::keepass)),
              "Account|Login Name|Password|Web Site|Comments|");
    EXPECT_EQ(namesOf(allKeys(KeePassFork::keepassXC)), "Group|Title|Username|Password|URL|Notes|");
}

TEST(KeePassForkTest, hasTheRequiredColumnsInTheirOrder) {
    EXPECT_EQ(namesOf(requiredKeys(KeePassFork::keepass)), "Web Site|Login Name|Password|");
    EXPECT_EQ(namesOf(requiredKeys(KeePassFork::keepassXC)), "URL|Username|Password|");
}

TEST(KeePassRecordTest, namesTheColumns) {
    EXPECT_EQ(namesInOrder({Key::account, Key::login, Key::password, Key::site, Key::comments,
                            Key::group, Key::title, Key::username, Key::url, Key::notes}),
              "Account|Login Name|Password|Web Site|Comments|Group|Title|Username|URL|Notes|");
}

// Memory

std::string manyRows(std::size_t count) {
    std::string text(xcHeader);
    for (std::size_t row = 0; row < count; ++row) {
        text += "\"Root\",\"Mail\",\"ann\",\"one, two\",\"https://a.example\",\"\"\n";
    }
    return text;
}

TEST(KeePassImporterTest, takesNoMemoryOfItsOwnForARow) {
    EXPECT_LT(allocationsOfImport(ImportSource::keePassXC, manyRows(9000)),
              allocationsOfImport(ImportSource::keePassXC, manyRows(1000)) + 20);
}

TEST(KeePassImporterTest, wipesTheTextOfTheFileWhenTheLastRecordIsLetGo) {
    const TemporaryFolder folder;
    const std::string text = manyRows(1000);
    const std::string path = folder.file("export.csv", text);
    std::shared_ptr<const ImportedPasswordInfoProviding> last;
    RecordsImporter().records(URL::fileURLWithPath(path), ImportSource::keePass,
                              [&](RecordsResult result) { last = result->passwords.back(); });
    EXPECT_EQ(last->password(), "one, two");
    // The buffer has a byte more than the file, to see the file's end.
    EXPECT_TRUE(givesBackZeros(text.size() + 1, [&] { last.reset(); }));
}

} // namespace

} // namespace Rellinor::Tests
