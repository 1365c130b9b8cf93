// What rellinor check tells of CSV files.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Host/Tool.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Lines = std::vector<std::string>;

constexpr std::string_view identifier = "{01234567-89AB-CDEF-0123-456789ABCDEF}";

/// What check prints of a file, without its path.
std::string told(std::string_view source, std::string_view contents) {
    const TemporaryFolder folder;
    const std::string path = folder.file("export.csv", contents);
    return rellinor({"check", "--source", std::string(source), path}).out.substr(path.size() + 2);
}

/// The lines below a heading.
Lines under(std::string_view heading, std::string_view report) {
    Lines lines;
    std::size_t position = report.find("  " + std::string(heading) + ":\n");
    position = std::min(report.find('\n', position), report.size() - 1) + 1;
    while (report.substr(position).starts_with("    ")) {
        const std::size_t end = report.find('\n', position);
        lines.emplace_back(report.substr(position + 4, end - position - 4));
        position = end + 1;
    }
    return lines;
}

Lines wrong(std::string_view source, std::string_view contents) {
    return under("looks wrong", told(source, contents));
}

Lines wrongInLastPass(std::string_view rows) {
    return wrong("lastPass", lastPassRows(rows));
}

std::string classicRows(std::string_view rows) {
    return "\"Account\",\"Login Name\",\"Password\",\"Web Site\",\"Comments\"\r\n" +
           std::string(rows);
}

// Quotes

TEST(CSVInspectionTest, saysWhatAnOpenQuoteSwallows) {
    EXPECT_EQ(wrongInLastPass("https://a.example,ann,one,,A,,0\n"
                              "https://b.example,bob,5\" disk,,B,,0\n"
                              "https://c.example,cem,two,,C,,0\n"
                              "https://d.example,dan,three,,D,,0\n"),
              (Lines{"line 3: a quote that is not closed swallows the next 2 lines"}));
}

TEST(CSVInspectionTest, saysWhereAQuotedCellIsNotClosed) {
    EXPECT_EQ(wrongInLastPass("https://a.example,ann,\"one,,A,,0\n"
                              "https://b.example,\"bob\",two,,B,,0\n"
                              "https://c.example,cem,x\"y,,C,,0\n"
                              "https://d.example,dan,three,,D,,0\n"),
              (Lines{"line 2: a quote that is not closed swallows the next 2 lines"}));
}

TEST(CSVInspectionTest, sumsUpWhatSeveralOpenQuotesSwallow) {
    EXPECT_EQ(wrongInLastPass("https://a.example,ann,1\",,A,,0\n"
                              "https://b.example,bob,2\",,B,,0\n"
                              "https://c.example,cem,two,,C,,0\n"
                              "https://d.example,dan,3\",,D,,0\n"
                              "https://e.example,eve,4\",,E,,0\n"),
              (Lines{"lines 2 and 5: quotes that are not closed swallow 2 lines"}));
}

TEST(CSVInspectionTest, findsAnOpenQuoteThatSwallowsNoLine) {
    EXPECT_EQ(wrongInLastPass("https://a.example,ann,one,,A,,\"0"),
              (Lines{"line 2: a quote that is not closed"}));
}

TEST(CSVInspectionTest, findsAnOpenQuoteInTheHeader) {
    EXPECT_EQ(wrong("lastPass", "url,user\"name,password,extra,name,grouping,fav\na,b,c,d,e,f,0\n"),
              (Lines{"line 1: a quote that is not closed swallows the next line"}));
}

TEST(CSVInspectionTest, saysThatABackslashKeepsACellOpen) {
    EXPECT_EQ(wrongInLastPass("https://a.example,\"C:\\\",one,,A,,0\n"
                              "https://b.example,\"bob\",two,,B,,0\n"),
              (Lines{"line 2: a backslash that keeps a quote from closing its cell swallows the "
                     "next line"}));
    EXPECT_EQ(wrong("keePass", classicRows("\"A\",\"C:\\\\\",\"one\",\"https://a.example\",\"\"\r\n"
                                           "\"B\",\"bob\",\"two\",\"https://b.example\",\"\"\r\n")),
              (Lines{"line 2: a backslash that keeps a quote from closing its cell swallows the "
                     "next line"}));
}

TEST(CSVInspectionTest, isCalmAboutHonestQuotes) {
    EXPECT_EQ(
        wrongInLastPass("https://a.example,\"ann, the first\",\"two\nlines\",,A,,0\n"
                        "https://b.example,\"\",5\" by 3\",\"5\"\" disk, \"\"new\"\"\",B,,0\n"),
        Lines());
    EXPECT_EQ(wrong("keePass", classicRows("\"A\",\"ann\",\"one\",\"https://a.example\","
                                           "\"say \\\"hi\\\", then\\\\\r\n\\\"go\\\"\"\r\n")),
              Lines());
}

TEST(CSVInspectionTest, findsBlanksOutsideTheQuotes) {
    EXPECT_EQ(wrongInLastPass("https://a.example, \"ann, b\",one,,A,,0\n"),
              (Lines{"line 2: something outside the quotes of a cell: the quotes arrive as part of "
                     "it"}));
}

// Texts

TEST(CSVInspectionTest, findsDoubleQuotesThatArriveDoubled) {
    EXPECT_EQ(wrongInLastPass("https://a.example,ann,\"a\"\"b\",,A,,0\n"
                              "https://b.example,\"\"\"bob\"\"\",two,,\"\"\"B\"\"\",,0\n"
                              "https://c.example,cem,a\"\"b,\"left \"\"out\"\"\",C,,0\n"
                              "http://sn,,,\"a \"\"text\"\"\",N,,0\n"),
              (Lines{"line 2: a double quote in the password arrives as two",
                     "lines 3 and 5: a double quote in another text arrives as two"}));
    EXPECT_EQ(wrong("dashlane", "A,https://a.example,ann,,\"\"\"\",\n"),
              (Lines{"line 1: a double quote in the password arrives as two"}));
}

TEST(CSVInspectionTest, findsBackslashesThatKeePassDoubles) {
    const std::string doubled = "\"A\",\"E\\\\ann\",\"C:\\\\x\",\"https://a.example\",\"\"\r\n";
    EXPECT_EQ(wrong("keePass", classicRows(doubled)),
              (Lines{"line 2: a backslash in the password arrives as two",
                     "line 2: a backslash in another text arrives as two"}));
    // One that stands alone tells that they are not doubled.
    EXPECT_EQ(wrong("keePass", classicRows(doubled + "\"B\",\"bob\",\"a\\b\",\"\",\"\"\r\n")),
              Lines());
}

TEST(CSVInspectionTest, findsHTMLEscapesInPasswords) {
    EXPECT_EQ(wrongInLastPass("https://a.example,ann,a&amp;b,,A,,0\n"
                              "https://b.example?x&amp;y,a&lt;,b&c;&am;,,B,,0\n"
                              "https://c.example,cem,&#39;,,C,,0\n"),
              (Lines{"lines 2 and 4: an HTML escape such as &amp; in the password arrives as it "
                     "stands"}));
}

// The text as a whole

TEST(CSVInspectionTest, isCalmAboutAByteOrderMark) {
    EXPECT_EQ(told("lastPass", "\uFEFF" + lastPassRows("https://a.example,ann,one,,A,,0\n")),
              "read as lastPass, 1 row\n"
              "  1 record would arrive: 1 password, 0 notes, 0 cards\n"
              "  everything would arrive, nothing looks wrong\n");
}

TEST(CSVInspectionTest, saysWhereATextIsNotUTF8) {
    EXPECT_EQ(wrongInLastPass("https://a.example,ann,one,,A,,0\nhttps://b.example,\xE9,two,,B,,0\n"
                              "\xE9\n"),
              (Lines{"line 3: the text is not UTF-8: save the file as UTF-8"}));
}

TEST(CSVInspectionTest, recognisesUTF16) {
    const Lines utf16 = {"the text is in UTF-16: save the file as UTF-8"};
    using namespace std::string_view_literals;
    EXPECT_EQ(wrong("lastPass", "\xFF\xFEu\0r\0l\0"sv), utf16);
    EXPECT_EQ(wrong("lastPass", "\xFE\xFF\0u\0r\0l"sv), utf16);
    EXPECT_EQ(wrong("keePass", "u\0r\0l\0"sv), utf16);
    EXPECT_EQ(wrong("dashlane", "\0u\0r\0l"sv), utf16);
}

TEST(CSVInspectionTest, saysThatAFileHasNoRows) {
    for (const std::string_view source : {"lastPass", "keePass", "dashlane"}) {
        EXPECT_EQ(wrong(source, ""), Lines{"the file is empty"});
        EXPECT_EQ(wrong(source, "\n \t\n"), Lines{"the file has nothing but blank lines"});
    }
}

TEST(CSVInspectionTest, findsCarriageReturnsAlone) {
    const Lines expected = {"the lines end with carriage returns alone, so that they are read as "
                            "one: save the file with line feeds"};
    for (const std::string_view text : {"A,https://a.example,ann,one,\rB,https://b.example,bob,,\r",
                                        "A,https://a.example,ann,\"one\",\"\"\r\"B\",b,c,d,e\r"}) {
        EXPECT_EQ(wrong("dashlane", text), expected);
    }
    EXPECT_EQ(wrong("lastPass", "url,username,password,extra,name,grouping,fav\r"
                                "\"a\",b,c,d,e,f,\"0\"\r\"a\",b,c,d,e,f,0\r"),
              expected);
    EXPECT_EQ(wrong("lastPass", "a,b,c,d,e,f,\"0\"\r\"\"\r"),
              expected); // as many as there should be
}

// Columns

TEST(CSVInspectionTest, saysWhichColumnsAreTooMany) {
    EXPECT_EQ(wrong("lastPass", "url,username,password,totp,extra,name,grouping,fav\n"),
              (Lines{"line 1: 8 columns, where a LastPass export has 7: take out \"totp\" and try "
                     "again"}));
    EXPECT_EQ(wrong("keePassXC", "Group,Title,Username,Password,URL,Notes,TOTP,Icon\n"),
              (Lines{"line 1: 8 columns, where a KeePass export has 5, and a KeePassXC export has "
                     "6: take out \"TOTP\" and \"Icon\" and try again"}));
    EXPECT_EQ(wrong("lastPass", "url,username,password,x,extra,name,grouping,fav\n"),
              (Lines{"line 1: 8 columns, where a LastPass export has 7: take out all but \"url\", "
                     "\"username\", \"password\", \"extra\", \"name\", \"grouping\" and \"fav\""}));
}

TEST(CSVInspectionTest, saysWhichColumnsAreMissing) {
    EXPECT_EQ(wrong("lastPass", "url,username,password,extra,name,grouping\n"),
              (Lines{"line 1: 6 columns, where a LastPass export has 7: \"fav\" is missing"}));
}

TEST(CSVInspectionTest, recognisesOtherSeparators) {
    const std::string end = ", but only commas are read: export with commas";
    EXPECT_EQ(wrong("lastPass", "url;username;password;extra;name;grouping;fav\n"),
              Lines{"line 1: the columns are separated by semicolons" + end});
    EXPECT_EQ(wrong("keePass", "Account\tLogin Name\tPassword\tWeb Site\tComments\n"),
              Lines{"line 1: the columns are separated by tabs" + end});
    EXPECT_EQ(wrong("dashlane", "A;https://a.example;ann;one;\n"),
              Lines{"the columns are separated by semicolons" + end});
}

TEST(CSVInspectionTest, saysThatAFileHasNoHeader) {
    EXPECT_EQ(wrong("lastPass", "https://a.example,ann,one,,A,,0\n"),
              (Lines{"line 1: no header: every row is read by position, this one included"}));
    EXPECT_EQ(wrong("lastPass", "url,user,password,extra,name,grouping,Fav\n"),
              (Lines{"line 1: the header lacks \"username\" and \"fav\" in just this spelling, so "
                     "that every row is read by position, this one included"}));
    EXPECT_EQ(wrong("keePass", "Group,Title,Username,Password,URL\n"),
              (Lines{"line 1: column names of KeePassXC, but as many columns as KeePass has: every "
                     "row is read by position, this one included, and texts arrive in the wrong "
                     "places"}));
}

TEST(CSVInspectionTest, findsRowsOfAnotherLength) {
    EXPECT_EQ(wrongInLastPass("https://a.example,ann\n"
                              "https://b.example,bob,two,,B,,0,\n"
                              "https://c.example,cem,three,,C,,0\n"),
              (Lines{"line 2: fewer cells than the first row",
                     "line 3: more cells than the first row: those at the end are not read"}));
}

// LastPass

TEST(CSVInspectionTest, countsTheRowsThatLastPassLeavesOut) {
    EXPECT_EQ(told("lastPass", lastPassRows("https://a.example,ann,one,,A,,0\n"
                                            ",,,,,Group,1\n"
                                            "http://sn,,,,,,0\n"
                                            ",,,text,,,0\n"
                                            "http://sn,,,text,,,0\n")),
              "read as lastPass, 5 rows\n"
              "  2 records would arrive: 1 password, 1 note, 0 cards\n"
              "  3 rows would be left out:\n"
              "    line 3: a login without URL, user name, password and name\n"
              "    line 4: a note without name and text\n"
              "    line 5: a login with nothing but extra text: give it a name and export again\n");
}

TEST(CSVInspectionTest, tellsNotesByTheLoginsThatArrive) {
    // The host of the second and third is no other than that of notes, but written in another way.
    EXPECT_EQ(under("2 rows would be left out",
                    told("lastPass", lastPassRows("https://sn.example,,,,,,0\n"
                                                  "http://%73n/,,,,,,0\n"
                                                  "http://u@sn:80/,,,,,,0\n"
                                                  "https://sn.example,,,,,,0\n"))),
              (Lines{"lines 3 and 4: a note without name and text"}));
}

TEST(CSVInspectionTest, takesAMissingColumnForFilled) {
    // Without a header, and the second row ends before its name.
    EXPECT_EQ(told("lastPass", ",,,,A,,0\n,,\n,,,,\n"),
              "read as lastPass, 3 rows\n"
              "  2 records would arrive: 2 passwords, 0 notes, 0 cards\n"
              "  1 row would be left out:\n"
              "    line 3: a login without URL, user name, password and name\n"
              "  looks wrong:\n"
              "    line 1: no header: every row is read by position, this one included\n"
              "    lines 2 and 3: fewer cells than the first row\n");
}

TEST(CSVInspectionTest, countsWhatLastPassNeverBringsAlong) {
    EXPECT_EQ(under("never imported from this source",
                    told("lastPass", lastPassRows("https://a.example,ann,one,text,A,G,1\n"
                                                  "https://b.example,bob,two,,B,G,0\n"
                                                  "http://sn,,,text,N,,0\n"))),
              (Lines{"column \"extra\" of a login: filled in 1 row",
                     "column \"grouping\": filled in 2 rows", "column \"fav\": filled in 1 row"}));
}

// Dashlane

TEST(CSVInspectionTest, countsTheRowsThatDashlaneLeavesOut) {
    const std::string id(identifier);
    EXPECT_EQ(told("dashlane", "A,https://a.example,ann,one,\n"
                               "a note,text\n"
                               "B,,,x," +
                                   id + "\n" + "C,,{01234567-89AB-,\"CDEF-0123-456789abcdef}\",\n"),
              "read as dashlane, 4 rows\n"
              "  1 record would arrive: 1 password, 0 notes, 0 cards\n"
              "  3 rows would be left out:\n"
              "    line 2: fewer than 5 cells\n"
              "    lines 3 and 4: an identifier in braces, which no login has\n");
}

TEST(CSVInspectionTest, knowsWhereAnIdentifierIsOverlooked) {
    const std::string id(identifier);
    // An emoji takes two units, so that the last brace is one too far unless something follows.
    EXPECT_EQ(
        told("dashlane", "🔑,,,," + id + "\n🔑,,,x," + id + "y\n"),
        "read as dashlane, 2 rows\n"
        "  1 record would arrive: 1 password, 0 notes, 0 cards\n"
        "  1 row would be left out:\n"
        "    line 2: an identifier in braces, which no login has\n"
        "  looks wrong:\n"
        "    line 1: an identifier in braces, which no login has, is overlooked at the end of "
        "the row: it arrives as a login\n"
        "  never imported from this source:\n"
        "    last cell: filled in 1 row\n");
}

TEST(CSVInspectionTest, findsAHeaderThatArrivesAsALogin) {
    EXPECT_EQ(wrong("dashlane", "\"Title\",\"Address\",\"Login\",\"Password\",\"Note\"\n"),
              (Lines{"line 1: the first row looks like a header and arrives as a login"}));
    EXPECT_EQ(wrong("dashlane", "title,url,username,password,note,category\n"),
              (Lines{"line 1: the first row looks like a header and arrives as a login",
                     "the password is not in the last column but one, from which it is read: texts "
                     "arrive in the wrong places"}));
    EXPECT_EQ(wrong("dashlane", "Title,https://a.example,Login,Password,Note\n"), Lines());
}

TEST(CSVInspectionTest, countsWhatDashlaneNeverBringsAlong) {
    EXPECT_EQ(under("never imported from this source",
                    told("dashlane", "A,https://a.example,ann,second,one,\n"
                                     "B,https://b.example,bob,,two,note\n"
                                     "C,https://c.example,cem,three,note\n")),
              (Lines{"cells between user name and password: filled in 1 row",
                     "last cell: filled in 2 rows"}));
}

// KeePass

TEST(CSVInspectionTest, countsTheRowsThatKeePassLeavesOut) {
    EXPECT_EQ(under("2 rows would be left out",
                    told("keePass", "A,ann,one,https://a.example,\nB,bob,two\nC,cem,three,\nD\n")),
              (Lines{"lines 2 and 4: the row ends before user name, password or URL"}));
    EXPECT_EQ(under("1 row would be left out",
                    told("keePassXC", "G,A,ann,one,https://a.example,\nG,B,bob,two\nG,C,,,\n")),
              (Lines{"line 2: the row ends before user name, password or URL"}));
}

TEST(CSVInspectionTest, countsWhatKeePassNeverBringsAlong) {
    EXPECT_EQ(under("never imported from this source",
                    told("keePass", classicRows("A,ann,one,,text\nB,bob,two,,\n"))),
              (Lines{"column \"Comments\": filled in 1 row"}));
    EXPECT_EQ(under("never imported from this source",
                    told("keePassXC", "Group,Title,Username,Password,URL,Notes\nG,A,ann,one,,\n"
                                      "G,B,bob,two,,text\n")),
              (Lines{"column \"Group\": filled in 2 rows", "column \"Notes\": filled in 1 row"}));
}

} // namespace

} // namespace Rellinor::Tests
