#include "Private/Proxies/CSVFileProxy.hpp"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Extensions/String.hpp"
#include "Tests/Support/CSV.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using enum Column;
using Dictionaries = std::vector<Dictionary>;

/// A CSV file with a reader on it.
class CSVFileProxyTest : public testing::Test {
protected:
    CSVFileProxy& file(std::string_view contents) {
        return fileAt(_folder.file("file.csv", contents));
    }

    CSVFileProxy& fileAt(std::string_view path) {
        return _file.emplace(URL::fileURLWithPath(path), _memory);
    }

    /// The data rows of a file, for some expected headers.
    template <typename... Columns>
    Dictionaries keyed(std::string_view contents, Columns... columns) {
        return dictionariesOf(file(contents).keyedRecords(
            csvHeaders(std::array<Column, sizeof...(columns)>{columns...})));
    }

    /// The message with which that fails.
    template <typename... Columns>
    static std::string failure(CSVFileProxy& file, Columns... columns) {
        try {
            (void)file.keyedRecords(csvHeaders(std::array<Column, sizeof...(columns)>{columns...}));
        } catch (const TextError& error) {
            return error.what();
        }
        return "nothing was thrown";
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
    ImportMemory _memory;
    std::optional<CSVFileProxy> _file;
};

std::optional<std::string> asString(std::optional<std::span<char>> text) {
    return text.transform(
        [](std::span<char> bytes) { return std::string(bytes.begin(), bytes.end()); });
}

// fileData

TEST_F(CSVFileProxyTest, readsTheWholeFileAsText) {
    EXPECT_EQ(asString(file("a,b\r\nü\n").fileData()), "a,b\r\nü\n");
}

TEST_F(CSVFileProxyTest, readsTheFileOnce) {
    CSVFileProxy& csv = file("before");
    ASSERT_EQ(asString(csv.fileData()), "before");
    (void)folder().file("file.csv", "after");
    EXPECT_EQ(asString(csv.fileData()), "before");
}

TEST_F(CSVFileProxyTest, hasNoTextIfTheFileCannotBeReadOrIsNotUTF8) {
    EXPECT_EQ(asString(fileAt(folder() / "missing").fileData()), std::nullopt);
    EXPECT_EQ(asString(fileAt(folder().path().native()).fileData()), std::nullopt);
    EXPECT_EQ(asString(file("caf\xE9").fileData()), std::nullopt);
}

TEST_F(CSVFileProxyTest, triesAgainAfterAFailure) {
    CSVFileProxy& csv = fileAt(folder() / "file.csv");
    EXPECT_EQ(csv.records(), std::nullopt);
    (void)folder().file("file.csv", "a\n");
    EXPECT_EQ(asString(csv.fileData()), "a\n");
    EXPECT_EQ(csv.records().transform(rowsOf), (Rows{{"a"}}));
}

TEST_F(CSVFileProxyTest, readsNothingAtConstruction) {
    CSVFileProxy& csv = fileAt(folder() / "file.csv");
    (void)folder().file("file.csv", "a\n");
    EXPECT_EQ(asString(csv.fileData()), "a\n");
}

TEST_F(CSVFileProxyTest, dropsAByteOrderMark) {
    EXPECT_EQ(keyed("\uFEFFa,b\n1,2\n", a, b), (Dictionaries{{{"a", "1"}, {"b", "2"}}}));
}

// records and numberOfFields

TEST_F(CSVFileProxyTest, givesTheRowsOfTheFileAsOftenAsAsked) {
    CSVFileProxy& csv = file("a,\"x\\\"y\"\r\nc\r\n");
    const Rows expected = {{"a", "x\"\"y"}, {"c"}};
    EXPECT_EQ(csv.records().transform(rowsOf), expected);
    EXPECT_EQ(csv.records().transform(rowsOf), expected);
}

TEST_F(CSVFileProxyTest, countsTheCellsOfTheFirstRow) {
    EXPECT_EQ(file("\n \na,b,c\nd\n").numberOfFields(), 3);
    EXPECT_EQ(file("\"a,b\",c\n").numberOfFields(), 2);
    EXPECT_EQ(file("a").numberOfFields(), 1);
}

TEST_F(CSVFileProxyTest, hasNoNumberOfFieldsWithoutRowsOrFile) {
    EXPECT_EQ(file("").numberOfFields(), std::nullopt);
    EXPECT_EQ(file(" \n\t\n").numberOfFields(), std::nullopt);
    EXPECT_EQ(fileAt(folder() / "missing").numberOfFields(), std::nullopt);
}

// keyedRecords, with a header row

TEST_F(CSVFileProxyTest, keysRowsByTheHeaderRow) {
    EXPECT_EQ(keyed("a,b\n1,2\n3,4\n", a, b),
              (Dictionaries{{{"a", "1"}, {"b", "2"}}, {{"a", "3"}, {"b", "4"}}}));
}

TEST_F(CSVFileProxyTest, findsHeadersInAnyOrderAndIgnoresOtherColumns) {
    EXPECT_EQ(keyed("x,c,y,a,b\n1,2,3,4,5\n", a, b, c),
              (Dictionaries{{{"a", "4"}, {"b", "5"}, {"c", "2"}}}));
}

TEST_F(CSVFileProxyTest, takesTheFirstOfTwoColumnsOfOneName) {
    EXPECT_EQ(keyed("a,b,a\n1,2,3\n", a, b), (Dictionaries{{{"a", "1"}, {"b", "2"}}}));
}

TEST_F(CSVFileProxyTest, givesEmptyTextsForTheMissingColumnsOfAShortRow) {
    EXPECT_EQ(
        keyed("a,b,c\n1\n1,2\n", a, b, c),
        (Dictionaries{{{"a", "1"}, {"b", ""}, {"c", ""}}, {{"a", "1"}, {"b", "2"}, {"c", ""}}}));
}

TEST_F(CSVFileProxyTest, ignoresTheExtraCellsOfALongRow) {
    EXPECT_EQ(keyed("a,b\n1,2,3,4\n5,6\n", a, b),
              (Dictionaries{{{"a", "1"}, {"b", "2"}}, {{"a", "5"}, {"b", "6"}}}));
}

TEST_F(CSVFileProxyTest, comparesHeadersExactly) {
    EXPECT_EQ(keyed("A,b\n", a, b), (Dictionaries{{{"a", "A"}, {"b", "b"}}}));
    EXPECT_EQ(keyed(" a,b\n", a, b), (Dictionaries{{{"a", " a"}, {"b", "b"}}}));
    EXPECT_EQ(keyed("\"a\",b\n1,2\n", a, b), (Dictionaries{{{"a", "1"}, {"b", "2"}}}));
}

TEST_F(CSVFileProxyTest, hasNoDataRowsUnderALoneHeaderRow) {
    EXPECT_EQ(keyed("a,b\n", a, b), Dictionaries{});
}

TEST_F(CSVFileProxyTest, takesTheFirstRowForAHeaderRowIfNoHeaderIsExpected) {
    EXPECT_EQ(keyed("x,y\n1,2\n"), Dictionaries{{}});
}

TEST_F(CSVFileProxyTest, mapsDuplicateExpectedHeadersToTheSameColumn) {
    EXPECT_EQ(keyed("b,a\n1,2\n", a, a), (Dictionaries{{{"a", "2"}}}));
}

// keyedRecords, without a header row

TEST_F(CSVFileProxyTest, keysRowsByPositionWithoutAHeaderRowTheFirstIncluded) {
    EXPECT_EQ(keyed("1,2\n3,4\n", a, b),
              (Dictionaries{{{"a", "1"}, {"b", "2"}}, {{"a", "3"}, {"b", "4"}}}));
}

TEST_F(CSVFileProxyTest, takesAFileForHeaderlessIfOneHeaderIsMissing) {
    EXPECT_EQ(keyed("b,x\n3,4\n", a, b),
              (Dictionaries{{{"a", "b"}, {"b", "x"}}, {{"a", "3"}, {"b", "4"}}}));
}

TEST_F(CSVFileProxyTest, leavesOutTheTrailingColumnsOfAShortRowWithoutAHeaderRow) {
    EXPECT_EQ(keyed("1,2,3\n4,5\n", a, b, c),
              (Dictionaries{{{"a", "1"}, {"b", "2"}, {"c", "3"}}, {{"a", "4"}, {"b", "5"}}}));
}

TEST_F(CSVFileProxyTest, dropsTheExtraCellsOfALaterLongRowWithoutAHeaderRow) {
    EXPECT_EQ(keyed("1,2\n3,4,5\n", a, b),
              (Dictionaries{{{"a", "1"}, {"b", "2"}}, {{"a", "3"}, {"b", "4"}}}));
}

TEST_F(CSVFileProxyTest, letsTheLaterOfDuplicateExpectedHeadersReplaceTheEarlier) {
    EXPECT_EQ(keyed("1,2\n3\n", a, a), (Dictionaries{{{"a", "2"}}, {{"a", "3"}}}));
}

// Failures

TEST_F(CSVFileProxyTest, failsWithTheURLOfAFileThatCannotBeRead) {
    EXPECT_EQ(failure(fileAt("/no/such/a b.csv"), a),
              "Could not read the csv at: file:///no/such/a%20b.csv");
}

TEST_F(CSVFileProxyTest, failsWithTheURLOfAFileThatIsNotUTF8) {
    EXPECT_EQ(failure(file("a\nb\xFF\n"), a),
              "Could not read the csv at: file://" + (folder() / "file.csv"));
}

TEST_F(CSVFileProxyTest, failsWithTheURLOfAFileOfBlankLinesOnly) {
    const std::string message = "Could not read the csv at: file://" + (folder() / "file.csv");
    EXPECT_EQ(failure(file(""), a), message);
    EXPECT_EQ(failure(file("\n \n\t\r\n\u00A0\n"), a), message);
    EXPECT_EQ(failure(file("\uFEFF"), a), message);
}

TEST_F(CSVFileProxyTest, failsIfThereIsNoHeaderRowAndTheNumberOfFieldsDiffers) {
    EXPECT_EQ(
        failure(file("1,2,3\n"), a, b),
        "The number of fields must be equal to the number of headers for a csv without headers");
    EXPECT_EQ(
        failure(file("a\n"), a, b),
        "The number of fields must be equal to the number of headers for a csv without headers");
}

TEST_F(CSVFileProxyTest, keepsWhatItReadAfterAFailure) {
    CSVFileProxy& csv = file("1,2,3\n");
    EXPECT_NE(failure(csv, a, b), "nothing was thrown");
    (void)folder().file("file.csv", "changed\n");
    EXPECT_EQ(csv.numberOfFields(), 3);
    EXPECT_EQ(failure(csv, a, b, c), "nothing was thrown");
}

} // namespace

} // namespace Rellinor::Tests
