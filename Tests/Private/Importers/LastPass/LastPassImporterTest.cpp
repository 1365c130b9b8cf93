#include "Private/Importers/LastPass/LastPassImporter.hpp"

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "Private/Importers/LastPass/LastPassRecord.hpp"
#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/ImportAllocations.hpp"
#include "Tests/Support/RecordKeys.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Key = LastPassRecordKey;

/// What becomes of an export with this text.
Outcome import(std::string_view text) {
    const TemporaryFolder folder;
    return outcomeOf(ImportSource::lastPass, folder.file("export.csv", text));
}

/// What becomes of these rows under the header row.
Outcome importRows(std::string_view rows) {
    return import("url,username,password,extra,name,grouping,fav\n" + std::string(rows));
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
    std::array<std::string_view, allLastPassRecordKeys.size()> _cells;
};

// The file

TEST(LastPassImporterTest, importsLoginsAndSecureNotesInFileOrder) {
    EXPECT_EQ(importRows("https://a.example,ann,one,,Mail,Private,0\n"
                         "http://sn,,,\"first\nsecond, third\",Wi-Fi,Home,1\n"
                         "https://b.example,bob,two,,Bank,,0\n"
                         "http://sn,,,text,Safe,,0\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"},
                                     {"bob", "two", "https://b.example", "Bank"}},
                       .notes = {{std::nullopt, "Wi-Fi", "first\nsecond, third"},
                                 {std::nullopt, "Safe", "text"}}}));
}

TEST(LastPassImporterTest, importsAHeaderAndNoRows) {
    EXPECT_EQ(importRows(""), Outcome{});
}

TEST(LastPassImporterTest, findsTheColumnsInAnyOrder) {
    EXPECT_EQ(import("fav,name,url,grouping,extra,password,username\n"
                     "0,Mail,https://a.example,Private,notes,one,ann\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
}

TEST(LastPassImporterTest, readsByPositionIfTheFirstRowLacksAName) {
    EXPECT_EQ(import("URL,username,password,extra,name,grouping,fav\n"
                     "https://a.example,ann,one,,Mail,,0\n"),
              (Outcome{.passwords = {{"username", "password", "URL", "name"},
                                     {"ann", "one", "https://a.example", "Mail"}}}));
}

TEST(LastPassImporterTest, failsForAFileThatCannotBeRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(outcomeOf(ImportSource::lastPass, folder / "missing"), failedWithText());
    EXPECT_EQ(outcomeOf(ImportSource::lastPass, folder.path().native()), failedWithText());
}

TEST(LastPassImporterTest, failsForAFileWithoutRows) {
    EXPECT_EQ(import(""), failedWithText());
    EXPECT_EQ(import(" \n\n"), failedWithText());
}

TEST(LastPassImporterTest, failsForAFileInAnotherEncoding) {
    EXPECT_EQ(importRows("https://a.example,caf\xE9,one,,Mail,,0\n"), failedWithText());
}

TEST(LastPassImporterTest, failsForAnyOtherNumberOfColumns) {
    EXPECT_EQ(import("url,username,password,extra,name,grouping\n"
                     "https://a.example,ann,one,,Mail,\n"),
              failedWithText());
    EXPECT_EQ(import("a,b\n"), failedWithText());
}

TEST(LastPassImporterTest, failsForEightColumnsEvenIfTheFirstSevenAreTheExpectedOnes) {
    EXPECT_EQ(import("url,username,password,extra,name,grouping,fav,totp\n"
                     "https://a.example,ann,one,,Mail,,0,\n"),
              failedWithText());
}

TEST(LastPassImporterTest, readsRowsOfUnequalLengthUnderAGoodHeader) {
    EXPECT_EQ(importRows("https://a.example,ann\n"
                         "https://b.example,bob,two,,Bank,,0,more,cells\n"),
              (Outcome{.passwords = {{"ann", "", "https://a.example", ""},
                                     {"bob", "two", "https://b.example", "Bank"}}}));
}

TEST(LastPassImporterTest, leavesTheServiceAbsentInAShortRowWithoutAHeader) {
    EXPECT_EQ(import("1,2,3,4,5,6,7\nhttps://a.example,ann\n"),
              (Outcome{.passwords = {{"2", "3", "1", "5"},
                                     {"ann", "", "https://a.example", std::nullopt}}}));
}

// Logins

TEST(LastPassImporterTest, takesValuesAsTheyStand) {
    EXPECT_EQ(importRows(" https://A.example , Ann ,\" one \"\"two\"\" \",,\tMail\t,,\n"),
              (Outcome{.passwords = {
                           {" Ann ", " one \"\"two\"\" ", " https://A.example ", "\tMail\t"}}}));
}

TEST(LastPassImporterTest, theExtraTextOfALoginIsLeftOut) {
    EXPECT_EQ(importRows("https://a.example,ann,one,my notes,Mail,,0\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
}

TEST(LastPassImporterTest, dropsALoginWithOnlyGroupingExtraOrFavourite) {
    EXPECT_EQ(importRows(",,,,,Group,\n"
                         ",,,,,,1\n"
                         ",,,text,,,\n"
                         ",,,,,,\n"),
              Outcome{});
}

TEST(LastPassImporterTest, keepsPresentButEmptyTextsOfALoginWithOnlyAPassword) {
    EXPECT_EQ(importRows(",,one,,,,\n"), (Outcome{.passwords = {{"", "one", "", ""}}}));
}

TEST(LastPassImporterTest, keepsALoginWithASingleBlank) {
    EXPECT_EQ(importRows(",,,, ,,\n"), (Outcome{.passwords = {{"", "", "", " "}}}));
}

// Secure notes

TEST(LastPassImporterTest, tellsANoteByTheHostSN) {
    EXPECT_EQ(importRows("http://sn,,,a,1,,\n"
                         "https://sn/x,,,b,2,,\n"
                         "//sn,,,c,3,,\n"
                         "http://%73n/,,,d,4,,\n"),
              (Outcome{.notes = {{std::nullopt, "1", "a"},
                                 {std::nullopt, "2", "b"},
                                 {std::nullopt, "3", "c"},
                                 {std::nullopt, "4", "d"}}}));
}

TEST(LastPassImporterTest, takesALongerHostThatBeginsWithSNForALogin) {
    EXPECT_EQ(
        importRows("http://snx,,,,,,\nhttp://sn.example,,,,,,\n"),
        (Outcome{.passwords = {{"", "", "http://snx", ""}, {"", "", "http://sn.example", ""}}}));
}

TEST(LastPassImporterTest, takesAnURLWithoutHostForALogin) {
    EXPECT_EQ(importRows("sn,,,text,,,\n"), (Outcome{.passwords = {{"", "", "sn", ""}}}));
}

TEST(LastPassImporterTest, takesAnUpperCaseHostOrAnUnparsableURLForALogin) {
    EXPECT_EQ(importRows("http://SN,,,text,,,\n http://sn,,,text,,,\n"),
              (Outcome{.passwords = {{"", "", "http://SN", ""}, {"", "", " http://sn", ""}}}));
}

TEST(LastPassImporterTest, dropsANoteWithoutNameAndExtra) {
    EXPECT_EQ(importRows("http://sn,ann,one,,,Group,1\n"), Outcome{});
}

TEST(LastPassImporterTest, keepsANoteWithOnlyATitleOrOnlyAText) {
    EXPECT_EQ(importRows("http://sn,,,text,,,\nhttp://sn,,,,title,,\n"),
              (Outcome{.notes = {{std::nullopt, "", "text"}, {std::nullopt, "title", ""}}}));
}

// Records that lack a column

TEST(LastPassImporterTest, isNoNoteWithoutAnURL) {
    EXPECT_FALSE(LastPassImporter::isNote(Record{{Key::extra, "text"}}));
    EXPECT_TRUE(LastPassImporter::isPassword(Record{{Key::extra, "text"}}));
}

TEST(LastPassImporterTest, aMissingColumnCountsAsNonEmpty) {
    EXPECT_TRUE(LastPassImporter::buildPassword(
        Record{{Key::url, ""}, {Key::username, ""}, {Key::password, ""}}));
    EXPECT_TRUE(LastPassImporter::buildNote(Record{{Key::name, ""}}));
    EXPECT_FALSE(LastPassImporter::buildPassword(
        Record{{Key::url, ""}, {Key::username, ""}, {Key::password, ""}, {Key::name, ""}}));
    EXPECT_FALSE(LastPassImporter::buildNote(Record{{Key::name, ""}, {Key::extra, ""}}));
}

TEST(LastPassImporterTest, buildsEmptyTextsAndNoServiceFromMissingColumns) {
    EXPECT_EQ(copyOf(LastPassImporter::buildPassword(Record{}).value()),
              (Password{"", "", "", std::nullopt}));
    EXPECT_EQ(copyOf(LastPassImporter::buildNote(Record{}).value()), (Note{std::nullopt, "", ""}));
}

TEST(LastPassImporterTest, saysWhyARecordIsDropped) {
    constexpr Dropped empty{.reason = LeftOutReason::empty, .field = ""};
    EXPECT_EQ(LastPassImporter::buildPassword(
                  Record{{Key::url, ""}, {Key::username, ""}, {Key::password, ""}, {Key::name, ""}})
                  .error(),
              empty);
    EXPECT_EQ(LastPassImporter::buildNote(Record{{Key::name, ""}, {Key::extra, ""}}).error(),
              empty);
}

// The columns

TEST(LastPassRecordTest, hasTheSevenColumnsInOrder) {
    EXPECT_EQ(namesInOrder({Key::url, Key::username, Key::password, Key::extra, Key::name,
                            Key::grouping, Key::favorite}),
              "url|username|password|extra|name|grouping|fav|");
}

TEST(LastPassRecordTest, knowsTheTellingColumnsOfEachKind) {
    const auto names = [](LastPassRecordType type) {
        std::string text;
        for (const Key key : keys(type)) {
            text += std::string(rawValue(key)) + ' ';
        }
        return text;
    };
    EXPECT_EQ(names(LastPassRecordType::login), "url username password name ");
    EXPECT_EQ(names(LastPassRecordType::secureNote), "name extra ");
}

// Memory

std::string manyRows(std::size_t count) {
    std::string rows;
    for (std::size_t row = 0; row < count; ++row) {
        rows += "https://a.example,ann,\"one, two\",,Mail,,0\n";
    }
    return rows;
}

TEST(LastPassImporterTest, takesNoMemoryOfItsOwnForARow) {
    const std::string header = "url,username,password,extra,name,grouping,fav\n";
    EXPECT_LT(allocationsOfImport(ImportSource::lastPass, header + manyRows(9000)),
              allocationsOfImport(ImportSource::lastPass, header + manyRows(1000)) + 20);
}

TEST(LastPassImporterTest, wipesTheTextOfTheFileWhenTheLastRecordIsLetGo) {
    const TemporaryFolder folder;
    const std::string text = "url,username,password,extra,name,grouping,fav\n" + manyRows(1000);
    const std::string path = folder.file("export.csv", text);
    std::shared_ptr<const ImportedPasswordInfoProviding> last;
    RecordsImporter().records(URL::fileURLWithPath(path), ImportSource::lastPass,
                              [&](RecordsResult result) { last = result->passwords.back(); });
    EXPECT_EQ(last->password(), "one, two");
    // The buffer has a byte more than the file, to see the file's end.
    EXPECT_TRUE(givesBackZeros(text.size() + 1, [&] { last.reset(); }));
}

} // namespace

} // namespace Rellinor::Tests
