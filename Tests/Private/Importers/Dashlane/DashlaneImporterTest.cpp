#include "Private/Importers/Dashlane/DashlaneImporter.hpp"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Private/Extensions/String.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/ImportAllocations.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

const std::string identifier = "{01234567-89AB-CDEF-0123-456789ABCDEF}";

/// What becomes of an export with this text.
Outcome import(std::string_view text) {
    const TemporaryFolder folder;
    return outcomeOf(ImportSource::dashlane, folder.file("export.csv", text));
}

/// Whether the one row in this text, which has more than four cells, is kept. The text is read in a
/// heap buffer of exactly its size.
bool keepsRow(std::string_view text) {
    const auto copy = std::make_unique_for_overwrite<char[]>(text.size());
    std::ranges::copy(text, copy.get());
    DashlaneRows rows(CSVCursor({copy.get(), text.size()}));
    std::size_t count = 0;
    bool kept = false;
    for (const DashlaneRow& row : rows) {
        kept = DashlaneImporter::isPassword(row);
        ++count;
    }
    EXPECT_EQ(count, 1);
    return kept;
}

/// Whether a row of five cells whose joined cells are `joined` is kept: each of them in turn holds
/// it alone, and it is cut between two of them wherever that can be.
bool keeps(std::string_view joined) {
    const std::string quoted = '"' + std::string(joined) + '"';
    const bool kept = keepsRow(quoted + ",,,,");
    for (const std::string& row : {"," + quoted + ",,,", ",," + quoted + ",,", ",,," + quoted + ",",
                                   ",,,," + quoted, ",,,,,,," + quoted + "\n"}) {
        EXPECT_EQ(keepsRow(row), kept) << testing::PrintToString(row);
    }
    for (std::size_t cut = 1; cut < joined.size(); ++cut) {
        if ((static_cast<unsigned char>(joined[cut]) & 0xC0U) == 0x80U) {
            continue; // inside a code point
        }
        const std::string row = ",,\"" + std::string(joined.substr(0, cut)) + "\",\"" +
                                std::string(joined.substr(cut)) + "\",";
        EXPECT_EQ(keepsRow(row), kept) << testing::PrintToString(row);
    }
    return kept;
}

// The file

TEST(DashlaneImporterTest, importsLoginsByPosition) {
    EXPECT_EQ(import("Mail,https://a.example,ann,,one,note\n"
                     "\"Bank, old\",https://b.example,bob,\"second\nlogin\",\"t,wo\",\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"},
                                     {"bob", "t,wo", "https://b.example", "Bank, old"}}}));
}

TEST(DashlaneImporterTest, aHeaderLineIsARowLikeAnyOther) {
    EXPECT_EQ(import("title,url,login,password,note\nMail,https://a.example,ann,one,\n"),
              (Outcome{.passwords = {{"login", "password", "url", "title"},
                                     {"ann", "one", "https://a.example", "Mail"}}}));
}

TEST(DashlaneImporterTest, takesThePasswordFromTheLastCellButOne) {
    EXPECT_EQ(import("1,2,3,4,5\n"), (Outcome{.passwords = {{"3", "4", "2", "1"}}}));
    EXPECT_EQ(import("1,2,3,4,5,6\n"), (Outcome{.passwords = {{"3", "5", "2", "1"}}}));
    EXPECT_EQ(import("1,2,3,4,5,6,7\n"), (Outcome{.passwords = {{"3", "6", "2", "1"}}}));
    EXPECT_EQ(import("1,2,3" + std::string(100, ',') + "x,\n"),
              (Outcome{.passwords = {{"3", "x", "2", "1"}}}));
}

TEST(DashlaneImporterTest, dropsRowsOfFourCellsAndFewer) {
    EXPECT_EQ(import("1\n1,2\n1,2,3\n1,2,3,4\n\"1,2,3,4,5,6\"\n1,2,3,4,5\n\n,,,\n"),
              (Outcome{.passwords = {{"3", "4", "2", "1"}}}));
}

TEST(DashlaneImporterTest, importsNothingFromAFileOfShortRows) {
    EXPECT_EQ(import("1,2,3,4\n\n\"a\",b\n"), Outcome{});
}

TEST(DashlaneImporterTest, importsNothingFromAFileWithoutRows) {
    for (const std::string_view text : {"", "\n", " \n\t\r\n", "\uFEFF"}) {
        EXPECT_EQ(import(text), Outcome{}) << testing::PrintToString(text);
    }
}

TEST(DashlaneImporterTest, importsNothingFromAFileWithAnIdentifierInEachRow) {
    EXPECT_EQ(import("1,2,3,4," + identifier + "\n" + identifier + ",2,3,4,5,6\n"), Outcome{});
}

TEST(DashlaneImporterTest, failsForAFileThatCannotBeRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(outcomeOf(ImportSource::dashlane, folder / "missing"), failedWithText());
    EXPECT_EQ(outcomeOf(ImportSource::dashlane, folder.path().native()), failedWithText());
}

TEST(DashlaneImporterTest, failsForAFileInAnotherEncoding) {
    EXPECT_EQ(import("Mail,https://a.example,caf\xE9,one,\n"), failedWithText());
}

TEST(DashlaneImporterTest, saysWhyAFileCannotBeImported) {
    const TemporaryFolder folder;
    ImportMemory memory;
    for (const std::string& path :
         {folder / "missing", folder.file("latin-1", "1,2,3,4,caf\xE9\n")}) {
        try {
            (void)DashlaneImporter::read(URL::fileURLWithPath(path), memory);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const TextError& error) {
            EXPECT_EQ(std::string_view(error.what()),
                      "failed to import dashlane records - not csv");
        }
    }
}

TEST(DashlaneImporterTest, dropsAByteOrderMark) {
    EXPECT_EQ(import("\uFEFFMail,https://a.example,ann,one,\n"),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
}

TEST(DashlaneImporterTest, readsCRLFLineEnds) {
    EXPECT_EQ(import("1,2,3,4,5\r\n\"a\r\nb\",2,3,4,5\r\n"),
              (Outcome{.passwords = {{"3", "4", "2", "1"}, {"3", "4", "2", "a\nb"}}}));
}

TEST(DashlaneImporterTest, takesACROnlyFileForOneRow) {
    EXPECT_EQ(import("1,2,3\r4,5,6\r"), (Outcome{.passwords = {{"3\r4", "5", "2", "1"}}}));
}

TEST(DashlaneImporterTest, endsTheLastRowWithTheFile) {
    EXPECT_EQ(import("1,2,3,4,5"), (Outcome{.passwords = {{"3", "4", "2", "1"}}}));
    EXPECT_EQ(import("1,2,3,4,\"5,\n6,7"), (Outcome{.passwords = {{"3", "4", "2", "1"}}}));
}

// Rows

TEST(DashlaneImporterTest, takesValuesAsTheyStand) {
    EXPECT_EQ(
        import(" Mail ,\thttps://A.example, Ann ,\" one \"\"two\"\" \",\n"),
        (Outcome{.passwords = {{" Ann ", " one \"\"two\"\" ", "\thttps://A.example", " Mail "}}}));
}

TEST(DashlaneImporterTest, keepsARowOfEmptyCells) {
    EXPECT_EQ(import(",,,,\n"), (Outcome{.passwords = {{"", "", "", ""}}}));
}

TEST(DashlaneImporterTest, keepsSecretsWithBraces) {
    EXPECT_EQ(import("Mail,https://a.example,{ann},p}w{{,}\n"),
              (Outcome{.passwords = {{"{ann}", "p}w{{", "https://a.example", "Mail"}}}));
}

TEST(DashlaneImporterTest, goesOnBehindARowWithAnIdentifier) {
    EXPECT_EQ(import("a,b,c,d,e\n1,2,3,4," + identifier + "\nf,g,h,i,j\n" + identifier +
                     ",2,3,4,5\n{k},l,m,n,o\n"),
              (Outcome{.passwords = {
                           {"c", "d", "b", "a"}, {"h", "i", "g", "f"}, {"m", "n", "l", "{k}"}}}));
}

// Identifiers

TEST(DashlaneImporterTest, dropsARowWithAnIdentifierInAnyCell) {
    EXPECT_FALSE(keeps(identifier));
    EXPECT_FALSE(keeps("before " + identifier));
    EXPECT_FALSE(keeps(identifier + " behind"));
    EXPECT_FALSE(keeps("{" + identifier + "}"));
    EXPECT_FALSE(keeps(identifier + identifier));
}

TEST(DashlaneImporterTest, knowsAnIdentifierInLowerCase) {
    EXPECT_FALSE(keeps("{01234567-89ab-cdef-0123-456789abcdef}"));
    EXPECT_FALSE(keeps("{01234567-89Ab-cDeF-0123-456789AbcdEf}"));
}

TEST(DashlaneImporterTest, anIdentifierMayBeginInOneCellAndEndInTheNext) {
    EXPECT_FALSE(keepsRow("1,2,{01234567-89AB-,CDEF-0123-456789ABCDEF},5"));
    EXPECT_FALSE(keepsRow("{01234567,-89AB,-CDEF,-0123-,456789ABCDEF}"));
    EXPECT_FALSE(keepsRow("{,0,1,2,3,4,5,6,7,-,8,9,A,B,-,C,D,E,F,-,0,1,2,3,-,4,5,6,7,8,9,A,B,C,D,"
                          "E,F,}"));
    EXPECT_FALSE(keepsRow("1,2,\"{01234567-89AB-\",\"CDEF-0123-456789ABCDEF}\",5"));
}

TEST(DashlaneImporterTest, findsNoIdentifierAcrossRows) {
    EXPECT_EQ(
        import("1,2,3,4,{01234567-89AB-\nCDEF-0123-456789ABCDEF},2,3,4,5\n"),
        (Outcome{.passwords = {{"3", "4", "2", "1"}, {"3", "4", "2", "CDEF-0123-456789ABCDEF}"}}}));
}

TEST(DashlaneImporterTest, findsNoIdentifierAcrossWhatStandsInACell) {
    EXPECT_TRUE(keepsRow("1,2,\"{01234567-89AB-,CDEF-0123-456789ABCDEF}\",4,5"));
    EXPECT_TRUE(keepsRow("1,2,\"{01234567-89AB-\nCDEF-0123-456789ABCDEF}\",4,5"));
    EXPECT_TRUE(keepsRow("1,2, \"{01234567-89AB-\",\"CDEF-0123-456789ABCDEF}\",5"));
}

TEST(DashlaneImporterTest, keepsARowWithAnIdentifierThatLacksAGroup) {
    for (const std::string_view text :
         {"{-89AB-CDEF-0123-456789ABCDEF}", "{01234567-CDEF-0123-456789ABCDEF}",
          "{01234567-89AB-CDEF-456789ABCDEF}", "{01234567-89AB-CDEF-0123}",
          "{01234567-89AB-CDEF-0123-}", "{}", "{{{{}}}}"}) {
        EXPECT_TRUE(keeps(text)) << text;
    }
}

TEST(DashlaneImporterTest, keepsARowWithAnythingThatIsNotAnIdentifier) {
    for (const std::string_view text :
         {"01234567-89AB-CDEF-0123-456789ABCDEF", "(01234567-89AB-CDEF-0123-456789ABCDEF)",
          "{01234567-89AB-CDEF-0123-456789ABCDEF", "01234567-89AB-CDEF-0123-456789ABCDEF}",
          "{01234567-89AB-CDEF-0123-456789ABCDEG}", "{01234567-89AB-CDEF-0123-456789ABCDE}",
          "{01234567-89AB-CDEF-0123-456789ABCDEF0}", "{0123456789ABCDEF0123456789ABCDEF0123}",
          "{01234567_89AB_CDEF_0123_456789ABCDEF}", "{ 1234567-89AB-CDEF-0123-456789ABCDEF}",
          "{01234567-89AB-CDEF-0123-456789ABCDE\u0410}",
          "{\uFF10\uFF11234567-89AB-CDEF-0123-456789ABCDEF}"}) {
        EXPECT_TRUE(keeps(text)) << text;
    }
}

// The search window

TEST(DashlaneImporterTest, dropsAnIdentifierAlone) {
    EXPECT_FALSE(keeps(identifier));
}

TEST(DashlaneImporterTest, keepsAnIdentifierBehindAnEmojiAtTheEndOfTheRow) {
    EXPECT_TRUE(keeps("\U0001F511" + identifier));
}

TEST(DashlaneImporterTest, dropsAnIdentifierBehindAnEmojiAndBeforeALetter) {
    EXPECT_FALSE(keeps("\U0001F511" + identifier + "x"));
}

TEST(DashlaneImporterTest, keepsAnIdentifierBehindALetterWithACombiningMark) {
    EXPECT_TRUE(keeps("e\u0301" + identifier));
}

TEST(DashlaneImporterTest, dropsAnIdentifierBehindAnAccentedLetterOfOneCodePoint) {
    EXPECT_FALSE(keeps("\u00E9" + identifier));
}

TEST(DashlaneImporterTest, keepsAnIdentifierBehindAFlag) {
    EXPECT_TRUE(keeps("\U0001F1E9\U0001F1EA" + identifier));
}

TEST(DashlaneImporterTest, dropsAnIdentifierBeforeACombiningMark) {
    EXPECT_FALSE(keeps(identifier + "\u0301"));
}

TEST(DashlaneImporterTest, reachesAnIdentifierBehindAFamilyWithSevenLettersBehindIt) {
    const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467"; // 8 units
    EXPECT_FALSE(keeps(family + identifier + "letters"));
    EXPECT_TRUE(keeps(family + identifier + "letter"));
}

TEST(DashlaneImporterTest, theSearchEndsAfterAsManyUTF16UnitsAsTheTextHasCharacters) {
    // Each emoji takes a unit more than it counts, each letter behind the identifier makes up one.
    for (std::size_t emoji = 0; emoji < 5; ++emoji) {
        for (std::size_t letters = 0; letters < 5; ++letters) {
            std::string text;
            for (std::size_t count = 0; count < emoji; ++count) {
                text += "\U0001F511";
            }
            text += identifier + std::string(letters, 'x');
            EXPECT_EQ(keeps(text), letters < emoji) << emoji << ' ' << letters;
        }
    }
}

TEST(DashlaneImporterTest, reachesTheFirstOfTwoIdentifiersEvenIfTheSecondIsOutside) {
    EXPECT_FALSE(keeps("\U0001F511" + identifier + identifier));
}

TEST(DashlaneImporterTest, countsCRLFAsOneCharacterEvenAcrossCells) {
    EXPECT_TRUE(keepsRow("\"\r\n\"," + identifier + ",,,"));
    EXPECT_TRUE(keepsRow("\r,\"\n\"," + identifier + ",,"));
    EXPECT_FALSE(keepsRow("\"\n\r\"," + identifier + ",,,"));
    EXPECT_FALSE(keepsRow("\"\r\n\"," + identifier + ",x,,"));
    // Of a CR and a CR LF in the file, the dialect leaves CR LF.
    EXPECT_EQ(import("\"\r\r\n\"," + identifier + ",3,4,5\n"), Outcome{});
    EXPECT_EQ(import("\"\r\r\n\",,,4," + identifier + "\n"),
              (Outcome{.passwords = {{"", "4", "", "\r\n"}}}));
}

TEST(DashlaneImporterTest, countsAMarkThatBeginsACellWithTheLetterBeforeIt) {
    EXPECT_TRUE(keepsRow("e,\u0301" + identifier + ",,,"));
    EXPECT_FALSE(keepsRow("e,\u0301" + identifier + ",x,,"));
}

// Large rows: each of these would take minutes if time grew faster than the row.

std::string repeated(std::string_view piece, std::size_t size) {
    std::string text;
    text.reserve(size + piece.size());
    while (text.size() < size) {
        text += piece;
    }
    return text;
}

const std::size_t large = affordable(std::size_t{64} << 20U);

TEST(DashlaneImporterTest, readsOneRowOfBraces) {
    EXPECT_TRUE(keepsRow(",,,," + std::string(large, '{')));
}

TEST(DashlaneImporterTest, readsOneRowOfPairsOfBraces) {
    EXPECT_TRUE(keepsRow(",,,," + repeated("{}", large)));
}

TEST(DashlaneImporterTest, readsOneRowOfTruncatedIdentifiers) {
    EXPECT_TRUE(keepsRow(",,,," + repeated("{01234567-89AB-CDEF-0123-456789ABCDE-}", large)));
    EXPECT_TRUE(keepsRow(",,,," + repeated("{-", large)));
}

TEST(DashlaneImporterTest, readsOneRowOfIdentifiersBehindWideCharacters) {
    const std::string emoji = repeated("\U0001F511", large / 2);
    EXPECT_TRUE(keepsRow(",,,," + emoji + identifier));
    EXPECT_FALSE(keepsRow(",,,," + identifier + emoji));
}

TEST(DashlaneImporterTest, readsARowOfMillionsOfCells) {
    const std::string text = std::string(large / 8, ',') + "{,}," + std::string(large / 8, ',');
    EXPECT_TRUE(keepsRow(text));
    EXPECT_FALSE(keepsRow(text + identifier));
}

// Memory

std::string manyRows(std::size_t count) {
    std::string text;
    for (std::size_t row = 0; row < count; ++row) {
        text += "Mail,https://a.example,ann,,\"one, two\",\n";
        text += "Mail,https://a.example,{ann},,{one}," + std::string(40, 'x') + "}\n";
        text += "Mail,https://a.example,ann,,one," + identifier + "\n";
        text += "Mail,https://a.example,\U0001F511,,one," + identifier + "\n";
        text += "a short row\n";
    }
    return text;
}

TEST(DashlaneImporterTest, takesNoMemoryOfItsOwnForARow) {
    EXPECT_LT(allocationsOfImport(ImportSource::dashlane, manyRows(9000)),
              allocationsOfImport(ImportSource::dashlane, manyRows(1000)) + 20);
}

TEST(DashlaneImporterTest, wipesTheTextOfTheFileWhenTheLastRecordIsLetGo) {
    const TemporaryFolder folder;
    const std::string text = manyRows(200);
    const std::string path = folder.file("export.csv", text);
    std::shared_ptr<const ImportedPasswordInfoProviding> first;
    RecordsImporter().records(URL::fileURLWithPath(path), ImportSource::dashlane,
                              [&](RecordsResult result) { first = result->passwords.front(); });
    EXPECT_EQ(first->password(), "one, two");
    // The buffer has a byte more than the file, to see the file's end.
    EXPECT_TRUE(givesBackZeros(text.size() + 1, [&] { first.reset(); }));
}

TEST(DashlaneImporterTest, wipesTheJoinedTextWhenTheRowsAreLetGo) {
    const std::string row = "Mail,https://a.example,{ann},one," + std::string(1000, 'x');
    EXPECT_TRUE(givesBackZeros(row.size(), [&] { EXPECT_TRUE(keepsRow(row)); }));
}

TEST(DashlaneImporterTest, wipesTheJoinedTextWhenALongerRowFollows) {
    const std::string row = "Mail,https://a.example,{ann},one," + std::string(1000, 'x');
    const std::string longer = row + std::string(5000, 'y');
    const std::string text = row + "\n" + longer + "\n";
    EXPECT_TRUE(givesBackZeros(row.size(), [&] {
        DashlaneRows rows{CSVCursor(text)};
        std::size_t kept = 0;
        for (const DashlaneRow& each : rows) {
            kept += DashlaneImporter::isPassword(each) ? 1U : 0U;
        }
        EXPECT_EQ(kept, 2);
    }));
}

TEST(DashlaneImporterTest, failsWithoutALeakWhenThereIsNoMemory) {
    const TemporaryFolder folder;
    const URL url = URL::fileURLWithPath(folder.file("export.csv", manyRows(10)));
    const NSError outOfMemory("Rellinor.UnexpectedError", 0);
    bool succeeded = false;
    for (std::size_t nth = 1; !succeeded && nth < 200; ++nth) {
        RecordsImporter importer;
        const std::size_t pieces = piecesInUse();
        std::optional<NSError> error;
        failAllocation(nth, [&] {
            importer.records(url, ImportSource::dashlane, [&](const RecordsResult& result) {
                succeeded = result.has_value();
                error = result ? std::nullopt : std::optional(result.error());
            });
        });
        EXPECT_EQ(error, succeeded ? std::nullopt : std::optional(outOfMemory)) << nth;
        ASSERT_EQ(piecesInUse(), pieces) << nth;
    }
    EXPECT_TRUE(succeeded);
}

} // namespace

} // namespace Rellinor::Tests
