#include "Private/Importers/NamedColumnsImporter.hpp"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Importers/CSVLayouts.hpp"
#include "Tests/Support/Reading.hpp"
#include "Tests/Support/Reports.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Extras = std::vector<std::string>;

constexpr std::string_view strongbox = "Title,Username,Email,Password,URL,OTPAuth,Notes\n";

const Outcome one = {
    .passwords = {{.username = "ann", .password = "one", .url = "https://a", .service = "A"}}};

FailureReason reasonFor(Layout layout, std::string_view text) {
    const Reading reading = readingOf(layout, text);
    EXPECT_TRUE(reading.records.error) << text;
    EXPECT_EQ(reading.report.recordCount(), 0) << text;
    return reading.report.failure().reason;
}

TEST(NamedColumnsImporterTest, takesColumnsInAnyOrderCaseAndBlanks) {
    for (const std::string_view text :
         {"Title,Username,Email,Password,URL,OTPAuth,Notes\nA,ann,,one,https://a,,\n",
          "NOTES,otpauth,URL,password, Email ,username,\ttitle\n,,https://a,one,,ann,A\n",
          "\"Title\",\"Username\",\"Email\",\"Password\",\"URL\",\"OTPAuth\",\"Notes\"\r\n"
          "A,ann,,one,https://a,,\r\n"}) {
        const Reading reading = readingOf(text);
        EXPECT_EQ(reading.records, one) << text;
        EXPECT_EQ(reading.report.layout(), Layout::strongboxCSV);
    }
}

TEST(NamedColumnsImporterTest, readsWhatSpreadsheetsMakeOfAFile) {
    for (const std::string_view text :
         {"Title;Username;Email;Password;URL;OTPAuth;Notes\nA;ann;;one;https://a;;\n",
          "Title\tUsername\tEmail\tPassword\tURL\tOTPAuth\tNotes\nA\tann\t\tone\thttps://a\t\t\n",
          "sep=;\r\nTitle;Username;Email;Password;URL;OTPAuth;Notes\r\nA;ann;;one;https://a;;\r\n",
          "sep=|\nTitle|Username|Email|Password|URL|OTPAuth|Notes\nA|ann||one|https://a||\n"}) {
        EXPECT_EQ(readingOf(text).records, one) << text;
    }
}

TEST(NamedColumnsImporterTest, keepsOtherColumnsAndThoseThatRepeatAName) {
    const Reading reading =
        readingOf("Title,Username,Email,Password,URL,OTPAuth,Notes, Color ,"
                  "password,,Color\nA,ann,,one,https://a,,,blue,two,x,red,y,\n");
    EXPECT_EQ(reading.records, one);
    EXPECT_EQ(reading.extras, Extras{"other  Color =blue\nother password=two\nother =x\n"
                                     "other Color=red\nother =y\n"});
    EXPECT_EQ(reading.found(FindingKind::repeatedColumn, "password"), 1);
    EXPECT_EQ(reading.report.findings().front().places.first, std::vector<std::uint64_t>{1});
}

TEST(NamedColumnsImporterTest, readsUsualNamesAsTheLastResort) {
    const Reading reading =
        readingOf("e-mail,Login,name,title,pass,uri,url,comment,otp,group,tags,x\n"
                  "a@b,ann,N,A,one,https://b,https://a,c,o,g,t,y\n"
                  "a@b,,,,two,,,,,,,\n");
    EXPECT_EQ(reading.records.passwords.at(0), (Password{.username = "ann",
                                                         .password = "one",
                                                         .url = "https://a",
                                                         .service = "A",
                                                         .color = {},
                                                         .note = "c"}));
    EXPECT_EQ(reading.records.passwords.at(1).username, "a@b");
    EXPECT_EQ(reading.extras.at(0),
              "email e-mail=a@b\ncustomText name=N\nfurtherURL uri=https://b\n"
              "oneTimePassword otp=o\nfolder group=g\nfolder tags=t\n"
              "other x=y\n");
    EXPECT_EQ(reading.found(FindingKind::lastResort), 1);
    EXPECT_EQ(reading.report.layout(), Layout::genericCSV);
}

TEST(NamedColumnsImporterTest, refusesWhatIsNoSuchFile) {
    using enum FailureReason;
    EXPECT_EQ(reasonFor(Layout::strongboxCSV, "Title,Username,Email,URL,OTPAuth,Notes\nx\n"),
              wrongColumns);
    EXPECT_EQ(reasonFor(Layout::genericCSV, "title,url,note\nx,y,z\n"), wrongColumns);
    EXPECT_EQ(reasonFor(Layout::genericCSV, "password\nx\n"), wrongColumns);
    EXPECT_EQ(readingOf("title,url,remark\nx,y,z\n").report.failure().reason, unknown);
    EXPECT_EQ(reasonFor(Layout::strongboxCSV, std::string(strongbox) + "\xFF"), notUTF8);
    for (const Layout layout : {Layout::strongboxCSV, Layout::genericCSV, Layout::keeperCSV}) {
        for (const std::string_view blank : {"", "\uFEFF", "\n\r\n"}) {
            EXPECT_EQ(reasonFor(layout, blank), noRows);
        }
    }
    const ImportedExport nowhere =
        readExport(ExportFile::atPath("/nowhere/x.csv"), {.as = Layout::strongboxCSV});
    EXPECT_EQ(nowhere.report.failure().reason, FailureReason::missing);
}

TEST(NamedColumnsImporterTest, tellsTheLinesOfWhatWasMended) {
    for (const std::string end : {"\n", "\r\n", "\r"}) {
        const std::string text = std::string(strongbox.substr(0, strongbox.size() - 1)) + end +
                                 "A,ann,,one,https://a,,first" + end + "second" + end +
                                 "B,,,\"a\"b\",,," + end + "C,,,\"x\",,,,more" + end +
                                 "D,,,\"open,,," + end;
        const Reading reading = readingOf(text);
        EXPECT_EQ(reading.delivered() + reading.leftOut(LeftOutReason::empty), 5);
        EXPECT_EQ(reading.records.passwords.back().password, "\"open");
        EXPECT_EQ(reading.extras.at(3), "other =more\n");
        using Lines = std::vector<std::uint64_t>;
        for (const auto& [kind, lines] : {std::pair(FindingKind::strayQuote, Lines{4, 6}),
                                          std::pair(FindingKind::longRow, Lines{5})}) {
            const auto found = std::ranges::find(reading.report.findings(), kind, &Finding::kind);
            ASSERT_NE(found, reading.report.findings().end());
            EXPECT_EQ(found->places.first, lines);
        }
    }
}

TEST(NamedColumnsImporterTest, succeedsWithAHeaderAlone) {
    for (const std::string_view text : {std::string_view(strongbox), strongbox.substr(0, 53)}) {
        const Reading reading = readingOf(text);
        EXPECT_EQ(reading.records, Outcome());
        EXPECT_EQ(reading.report.recordCount(), 0);
    }
}

TEST(NamedColumnsImporterTest, readsFilesAndMemoryAlike) {
    const TemporaryFolder folder;
    const std::string text = "\"a\",\"b\",\"c\"\n\n\"d\"\n";
    const std::string path = folder.file("x.csv", text);
    const Reading fromFile = readingOf(Layout::keeperCSV, ExportFile::atPath(path));
    const Reading fromMemory = readingOf(Layout::keeperCSV, text);
    EXPECT_EQ(fromFile.records, fromMemory.records);
    EXPECT_EQ(textOf(fromFile.report), textOf(fromMemory.report));
    EXPECT_EQ(fromFile.leftOut(LeftOutReason::empty), 1);
    EXPECT_EQ(fromFile.report.leftOut().front().places.first, std::vector<std::uint64_t>{3});
}

/// What stands in the cells of a kind column of a layout, or one text if it has no such column.
std::vector<std::string> kindsOf(const CSVLayout& layout) {
    std::vector<std::string> kinds = {"t-kind"};
    for (const CSVKindName& kind : layout.kinds) {
        if (kind.kind != CSVKind::placeholder) {
            kinds.emplace_back(kind.name);
        }
    }
    return kinds;
}

void expectEveryCell(const CSVLayout& table, const std::string& kind) {
    std::string header;
    std::string row;
    std::vector<std::string> tokens;
    std::size_t unread = 0;
    for (const CSVColumn& column : table.columns) {
        tokens.push_back("t-" + std::to_string(tokens.size()) + "-t");
        header += std::string(column.name) + ",";
        row += (column.field == CSVField::kind ? kind : tokens.back()) + ",";
        if (!column.unread.empty()) {
            ++unread;
            tokens.pop_back();
            tokens.emplace_back();
        } else if (column.field == CSVField::kind) {
            tokens.back() = kind == "t-kind" ? kind : "";
        }
    }
    const Reading reading = readingOf(table.layout, header + "more\n" + row + "t-more\n");
    ASSERT_EQ(reading.delivered(), 1) << header << kind;
    tokens.emplace_back("t-more");
    for (const std::string& token : tokens) {
        EXPECT_TRUE(reading.texts().contains(token)) << header << "\n" << kind << token;
    }
    std::size_t told = 0;
    for (const Unread& part : reading.report.unread()) {
        told += part.count;
    }
    EXPECT_EQ(told, unread) << header;
}

TEST(NamedColumnsImporterTest, losesNoCellWithoutAWord) {
    for (const Layout layout : allLayouts()) {
        for (const CSVLayout& table : csvTablesOf(layout)) {
            if (!table.columns.empty()) {
                std::ranges::for_each(kindsOf(table), std::bind_front(expectEveryCell, table));
            }
        }
    }
}

} // namespace

} // namespace Rellinor::Tests
