// CSV texts, by the names of their columns and by position.

#include <algorithm>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Host/Detection/CSVLayouts.hpp"
#include "Tests/Host/Detected.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::string_view keePassAdvice =
    "rename them to Account, Login Name, Password, Web Site and Comments, and use --source keePass";

// What is read

TEST(DetectionOfColumnsTest, knowsLastPassInAnyOrderOfColumns) {
    const std::string expected = "lastPass (certain): LastPass export; the columns url, username, "
                                 "password, extra, name, grouping and fav";
    EXPECT_EQ(detected("url,username,password,extra,name,grouping,fav\n"), expected);
    EXPECT_EQ(detected("fav,name,grouping,url,extra,password,username\n1,2,3,4,5,6,7\n"), expected);
}

TEST(DetectionOfColumnsTest, knowsBothForksOfKeePass) {
    EXPECT_EQ(detected("\"Account\",\"Login Name\",\"Password\",\"Web Site\",\"Comments\"\r\n"),
              "keePass (certain): KeePass export; the columns Account, Login Name, Password, "
              "Web Site and Comments");
    EXPECT_EQ(
        detected("\"Group\",\"Title\",\"Username\",\"Password\",\"URL\",\"Notes\"\n"),
        "keePassXC (certain): KeePassXC export; the columns Group, Title, Username, Password, "
        "URL and Notes");
}

TEST(DetectionOfColumnsTest, looksPastAByteOrderMarkAndBlankLines) {
    EXPECT_TRUE(detected("\uFEFFurl,username,password,extra,name,grouping,fav\n")
                    .starts_with("lastPass (certain)"));
    EXPECT_TRUE(detected("\n  \nurl,username,password,extra,name,grouping,fav\n")
                    .starts_with("lastPass (certain)"));
}

TEST(DetectionOfColumnsTest, looksAtTheBeginningOfALongFile) {
    std::string text = "url,username,password,extra,name,grouping,fav\n";
    while (text.size() < 200'000) {
        text += "https://a.example,ann,öne,,Mäil,,0\n";
    }
    EXPECT_TRUE(detected(text).starts_with("lastPass (certain)"));
}

// Columns too many, too few or under other names

TEST(DetectionOfColumnsTest, tellsWhichNewColumnOfLastPassToTakeOut) {
    EXPECT_EQ(detected("url,username,password,totp,extra,name,grouping,fav\n"),
              "not read (certain): LastPass export with 8 columns instead of 7; the columns url, "
              "username, password, extra, name, grouping, fav and totp; take the column totp out");
}

TEST(DetectionOfColumnsTest, tellsWhichNewColumnsOfKeePassXCToTakeOut) {
    EXPECT_EQ(detected("\"Group\",\"Title\",\"Username\",\"Password\",\"URL\",\"Notes\",\"TOTP\","
                       "\"Icon\",\"Last Modified\",\"Created\"\n"),
              "not read (certain): KeePassXC export with 10 columns instead of 6; the columns "
              "Group, Title, Username, Password, URL, Notes, TOTP, Icon, Last Modified and "
              "Created; take the columns TOTP, Icon, Last Modified and Created out");
}

TEST(DetectionOfColumnsTest, doesNotNameColumnsThatItDoesNotKnow) {
    EXPECT_EQ(detected("url,username,password,extra,name,grouping,fav,secret\n"),
              "not read (likely): LastPass export with 8 columns instead of 7; the columns url, "
              "username, password, extra, name, grouping and fav, and others; its columns must be "
              "url, username, password, extra, name, grouping and fav");
}

TEST(DetectionOfColumnsTest, tellsAColumnTooFew) {
    EXPECT_EQ(
        detected("url,username,password,extra,name,grouping\n"),
        "not read (likely): LastPass export with 6 columns instead of 7; the column fav is "
        "missing; its columns must be url, username, password, extra, name, grouping and fav");
    EXPECT_EQ(detected("Account,Login Name,Password,Web Site\n"),
              "not read (likely): KeePass export with 4 columns instead of 5; the column Comments "
              "is missing; its columns must be Account, Login Name, Password, Web Site and "
              "Comments");
}

TEST(DetectionOfColumnsTest, tellsAColumnOfAnotherName) {
    EXPECT_EQ(
        detected("url,username,password,extra,name,grouping,favourite\n"),
        "not read (likely): LastPass export with other names of columns; the column fav is "
        "missing; its columns must be url, username, password, extra, name, grouping and fav");
}

TEST(DetectionOfColumnsTest, tellsNamesInOtherCase) {
    EXPECT_EQ(detected("URL,Username,Password,Extra,Name,Grouping,Fav\n"),
              "not read (likely): LastPass export with other names of columns; the names are "
              "written otherwise; its columns must be url, username, password, extra, name, "
              "grouping and fav");
}

TEST(DetectionOfColumnsTest, takesNoMoreThanAHundredColumnsForAHeader) {
    EXPECT_TRUE(
        detected("url,username,password,extra,name,grouping,fav" + std::string(93, ',') + '\n')
            .starts_with("not read (likely): LastPass export with 100 columns"));
    EXPECT_EQ(
        detected("url,username,password,extra,name,grouping,fav" + std::string(94, ',') + '\n'),
        "unknown; nothing in it tells the source");
}

TEST(DetectionOfColumnsTest, guessesNothingOfTwoMissingColumns) {
    EXPECT_EQ(detected("url,username,password,extra,name\n"),
              "unknown; nothing in it tells the source");
}

// What is known and not read

TEST(DetectionOfColumnsTest, knowsTheLoginsOfDashlane) {
    const std::string expected =
        "not read (certain): Dashlane export of logins (credentials.csv); the columns username, "
        "username2, username3, title, password, note and url; to import it, keep only the columns "
        "title, username, password, url and note, " +
        std::string(keePassAdvice);
    EXPECT_EQ(detected("username,username2,username3,title,password,note,url,category,otpSecret\n"),
              expected);
    EXPECT_EQ(detected("username,username2,username3,title,password,note,url,category,otpUrl\n"),
              expected);
    EXPECT_EQ(detected("username,username2,username3,title,password,note,url\n"), expected);
}

TEST(DetectionOfColumnsTest, knowsTheOtherTablesOfDashlane) {
    EXPECT_EQ(detected("type,account_name,account_holder,cc_number,code,expiration_month,"
                       "expiration_year,routing_number,account_number,country,issuing_bank\n"),
              "not read (certain): Dashlane export of payments (payments.csv); the columns type, "
              "account_name, account_holder, cc_number, code, expiration_month and "
              "expiration_year; nothing of it can be imported");
    EXPECT_TRUE(detected("type,number,name,issue_date,expiration_date,place_of_issue,state\n")
                    .starts_with("not read (certain): Dashlane export of identities (ids.csv); "));
    EXPECT_TRUE(detected("type,title,first_name,middle_name,last_name,login,date_of_birth,email\n")
                    .starts_with("not read (certain): Dashlane export of personal data "
                                 "(personalInfo.csv); "));
    EXPECT_TRUE(
        detected("title,note\n")
            .starts_with("not read (possible): Dashlane export of notes (securenotes.csv); "));
    EXPECT_TRUE(
        detected("title,note,category\n")
            .starts_with("not read (possible): Dashlane export of notes (securenotes.csv); "));
}

TEST(DetectionOfColumnsTest, knowsTheTablesOfBrowsers) {
    EXPECT_EQ(detected("name,url,username,password,note\n"),
              "not read (likely): Chrome or Edge CSV export; the columns name, url, username, "
              "password and note; to import it, rename the columns name, username, password, url "
              "and note to Account, Login Name, Password, Web Site and Comments, and use --source "
              "keePass");
    EXPECT_EQ(detected("name,url,username,password\n"),
              "not read (likely): Chrome or Edge CSV export; the columns name, url, username and "
              "password; to import it, rename the columns name, username, password and url to "
              "Account, Login Name, Password and Web Site, add an empty column Comments, and use "
              "--source keePass");
    EXPECT_EQ(detected("\"url\",\"username\",\"password\",\"httpRealm\",\"formActionOrigin\","
                       "\"guid\",\"timeCreated\",\"timeLastUsed\",\"timePasswordChanged\"\r\n"),
              "not read (certain): Firefox CSV export; the columns url, username, password, "
              "httpRealm, formActionOrigin and guid; to import it, keep only the columns username, "
              "password and url, rename them to Login Name, Password and Web Site, add empty "
              "columns Account and Comments, and use --source keePass");
    EXPECT_EQ(detected("Title,URL,Username,Password,Notes,OTPAuth\n"),
              "not read (certain): Safari CSV export; the columns Title, URL, Username, Password, "
              "Notes and OTPAuth; to import it, keep only the columns Title, Username, Password, "
              "URL and Notes, " +
                  std::string(keePassAdvice));
    EXPECT_TRUE(detected("Title,URL,Username,Password,OTPAuth\n")
                    .starts_with("not read (certain): Safari CSV export; "));
}

TEST(DetectionOfColumnsTest, knowsTheTableOf1Password) {
    EXPECT_EQ(
        detected("Title,Url,Username,Password,OTPAuth,Favorite,Archived,Tags,Notes\n"),
        "not read (likely): 1Password CSV export; the columns Title, Url, Username, Password, "
        "OTPAuth, Favorite and Archived; to import it, keep only the columns Title, Username, "
        "Password and Url, rename them to Account, Login Name, Password and Web Site, add an "
        "empty column Comments, and use --source keePass");
}

TEST(DetectionOfColumnsTest, knowsOtherSeparators) {
    EXPECT_EQ(detected("url;username;password;extra;name;grouping;fav\n"),
              "not read (certain): LastPass export with semicolons between the columns; the "
              "columns url, username, password, extra, name, grouping and fav; save it with commas "
              "between the columns");
    EXPECT_TRUE(detected("\"Group\"\t\"Title\"\t\"Username\"\t\"Password\"\t\"URL\"\t\"Notes\"\n")
                    .starts_with("not read (certain): KeePassXC export with tabs between"));
    EXPECT_EQ(detected("a;b;c\n1;2;3\n"),
              "unknown; semicolons between the columns; save it with commas between the columns");
}

TEST(DetectionOfColumnsTest, nameColumnsOfTheirOwn) {
    for (const OtherLayout& layout : otherLayouts()) {
        for (const std::string_view name : layout.renamed) {
            EXPECT_TRUE(name.empty() ||
                        std::ranges::find(layout.columns, name) != layout.columns.end())
                << layout.layout << ", " << name;
        }
    }
}

// By position

TEST(DetectionOfColumnsTest, knowsDashlaneByItsAddresses) {
    const std::string expected = "dashlane (likely): Dashlane export; rows of five cells or more, "
                                 "mostly with an address in the second";
    EXPECT_EQ(detected("Mail,https://a.example,ann,one,\n"), expected);
    EXPECT_EQ(detected("Mail,https://a.example,ann,,one,\nBank,www.b.example,bob,two,\n"),
              expected);
    EXPECT_EQ(detected("Title,Address,Login,Password,Note\nMail,https://a.example,ann,one,\n"),
              expected);
}

TEST(DetectionOfColumnsTest, takesHalfOfTheRowsForMostOfThem) {
    EXPECT_TRUE(
        detected("A,https://a.example,c,d,e\nA,b,c,d,e\n").starts_with("dashlane (likely)"));
    EXPECT_TRUE(
        detected("A,https://a.example,c,d,e\nA,b,c,d,e\nA,b,c,d,e\n").starts_with("unknown"));
}

TEST(DetectionOfColumnsTest, leavesOutRowsThatDashlaneLeavesOut) {
    EXPECT_TRUE(detected("A,https://a.example,c,d,e\na\nb,c\n"
                         "a,b,c,d,{01234567-89AB-cdef-0123-456789ABCDEF}\n"
                         "a,b,c,d,{01234567-89AB-cdef-0123-456789ABCDEF}\n")
                    .starts_with("dashlane (likely)"));
}

TEST(DetectionOfColumnsTest, thinksOfDashlaneForAnIdentifierInBraces) {
    EXPECT_EQ(detected("a,b,c,d,{01234567-89AB-cdef-0123-456789ABCDEF}\n"),
              "dashlane (possible): Dashlane export; rows with identifiers in braces");
    EXPECT_TRUE(
        detected("a,b,c,d,{01234567-89AB-cdef-0123-456789ABCDEG}\n").starts_with("unknown"));
    EXPECT_TRUE(detected("a,b,c,d,{01234567-89AB-cdef-0123-456789ABCDE}\n").starts_with("unknown"));
    EXPECT_TRUE(detected("a,b,{01234567-89AB-cdef-0123-456789ABCDEF}\n").starts_with("unknown"));
}

TEST(DetectionOfColumnsTest, isNotMisledByAnAddressWhereThePasswordIsElsewhere) {
    EXPECT_TRUE(detected("name,url,username,password,note,folder\n"
                         "Mail,https://a.example,ann,one,,\n")
                    .starts_with("unknown"));
    EXPECT_TRUE(
        detected("Mail,https://a.example,https://b.example,ann,one,x\n").starts_with("unknown"));
}

TEST(DetectionOfColumnsTest, thinksOfThoseWithoutNamesOfColumns) {
    EXPECT_EQ(detected("https://a.example,ann,one,,A,,0\n"),
              "lastPass (possible): LastPass export; seven columns without names, mostly with an "
              "address in the first");
    EXPECT_EQ(detected("Mail,ann,one,https://a.example,\n"),
              "keePass (possible): KeePass export; five columns without names, mostly with an "
              "address in the fourth");
    EXPECT_EQ(detected("Root,Mail,ann,one,https://a.example,\n"),
              "keePassXC (possible): KeePassXC export; six columns without names, mostly with an "
              "address in the fifth");
}

TEST(DetectionOfColumnsTest, knowsNoOtherTable) {
    for (const std::string_view text :
         {"a,b\n1,2\n", "a,b,c,d,e\n1,2,3,4,5\n", "a,b,c,d,e,f,g\n1,2,3,4,5,6,7\n",
          "id,date,amount\n1,2020-01-01,3.50\n", ",,,,\n", "one\ntwo\n", "x"}) {
        EXPECT_EQ(detected(text), "unknown; nothing in it tells the source") << text;
    }
}

} // namespace

} // namespace Rellinor::Host
