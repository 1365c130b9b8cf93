#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Importers/CSVLayouts.hpp"
#include "Tests/Private/Detection/Detected.hpp"

namespace Rellinor::Tests {

namespace {

using enum Confidence;

constexpr std::string_view lastPass = "url,username,password,extra,name,grouping,fav";

struct KnownHeader {
    std::string_view header;
    Found found;
};

/// What products write today, and have written.
const std::vector<KnownHeader>& headers() {
    static const std::vector<KnownHeader> all = {
        {lastPass, layoutFound("lastpass-csv", certain, ImportSource::lastPass)},
        {"url,username,password,totp,extra,name,grouping,fav", layoutFound("lastpass-csv")},
        {"username,username2,username3,title,password,note,url,category,otpUrl",
         layoutFound("dashlane-csv")},
        {"username,username2,username3,title,password,note,url,category,otpSecret",
         layoutFound("dashlane-csv")},
        {"title,note,category", layoutFound("dashlane-csv", likely)},
        {"title,note", layoutFound("dashlane-csv", likely)},
        {"type,account_name,account_holder,cc_number,code,expiration_month,expiration_year,"
         "routing_number,account_number,country,issuing_bank,note,name",
         layoutFound("dashlane-csv")},
        {"type,number,name,issue_date,expiration_date,place_of_issue,state",
         layoutFound("dashlane-csv")},
        {"type,title,first_name,middle_name,last_name,login,date_of_birth,place_of_birth,email,"
         "email_type,item_name,phone_number,address,country,state,city,zip,address_recipient,"
         "address_building,address_apartment,address_floor,address_door_code,job_title,url",
         layoutFound("dashlane-csv")},
        {"ssid,passphrase,name,note,hidden,encription_type", layoutFound("dashlane-csv")},
        {R"("Account","Login Name","Password","Web Site","Comments")",
         layoutFound("keepass-csv", certain, ImportSource::keePass)},
        {R"("Group","Title","Username","Password","URL","Notes")",
         layoutFound("keepassxc-csv", certain, ImportSource::keePassXC)},
        {R"("Group","Title","Username","Password","URL","Notes","TOTP","Icon","Last Modified",)"
         R"("Created")",
         layoutFound("keepassxc-csv")},
        {"Title,Url,Username,Password,OTPAuth,Favorite,Archived,Tags,Notes",
         layoutFound("1password8-csv")},
        {"Title,Username,Password,URL,Notes,Type", layoutFound("1password7-mac-csv", likely)},
        {R"(,"auth method",cardholder name(cardholder),number(ccnum),"Notes","Password",)"
         R"("Scope","Tags","Title","Type","URL","Username",)",
         layoutFound("1password7-mac-csv")},
        {R"("UUID","TITLE","USERNAME","PASSWORD","URL","URLS","EMAIL","MASTER-PASSWORD",)"
         R"("ACCOUNT-KEY","SCOPE","AUTOSUBMIT","TAGS","NOTES","1: NUMBER")",
         layoutFound("1password7-windows-csv")},
        {"name,url,username,password", layoutFound("chromium-csv", likely)},
        {"name,url,username,password,note", layoutFound("chromium-csv", likely)},
        {R"("url","username","password","httpRealm","formActionOrigin","guid","timeCreated",)"
         R"("timeLastUsed","timePasswordChanged")",
         layoutFound("firefox-csv")},
        {"url,username,password,httpRealm,formSubmitURL,guid", layoutFound("firefox-csv")},
        {"Title,URL,Username,Password,Notes,OTPAuth", layoutFound("apple-csv", likely)},
        {"Title,URL,Username,Password", layoutFound("apple-csv", likely)},
        {"folder,favorite,type,name,notes,fields,reprompt,archivedDate,login_uri,login_username,"
         "login_password,login_totp",
         layoutFound("bitwarden-csv")},
        {"collections,type,name,notes,fields,login_uri,login_username,login_password,login_totp",
         layoutFound("bitwarden-csv")},
        {"type,name,url,email,username,password,note,totp,createTime,modifyTime,vault",
         layoutFound("protonpass-csv")},
        {"name,url,additional_urls,username,password,note,cardholdername,cardnumber,cvc,pin,"
         "expirydate,zipcode,folder,full_name,phone_number,email,address1,address2,city,country,"
         "state,type,custom_fields",
         layoutFound("nordpass-csv")},
        {"Name,Url,MatchUrl,Login,Pwd,Note,Folder,RfFieldsV2", layoutFound("roboform-csv")},
        {"Title,Username,Email,Password,URL,OTPAuth,Notes", layoutFound("strongbox-csv")},
        {"!type,!group_id,!group_name,!group_parent,title,username,password,URL,id,Notes",
         layoutFound("buttercup-csv")},
        {"id,Login Name,Web Site,Pass", layoutFound("generic-csv", likely)},
        {"Secret Name,Description,Secret URL,SecretData", {}},
        {"password,note", {}},
        {"id,date,amount", {}},
    };
    return all;
}

/// The same without the import of the first door: it knows its columns as they are written, with
/// commas.
Found withoutSource(Found found) {
    found.source.reset();
    return found;
}

std::string replaced(std::string text, char from, char to) {
    std::ranges::replace(text, from, to);
    return text;
}

TEST(ColumnsTest, knowsWhatProductsWrite) {
    for (const auto& [header, found] : headers()) {
        EXPECT_EQ(detected(std::string(header) + "\r\na,b\r\n"), found) << header;
        EXPECT_EQ(detected("\uFEFF" + std::string(header)), found) << header;
    }
}

TEST(ColumnsTest, mindsNeitherCaseNorBlanksNorQuotes) {
    for (const auto& [header, found] : headers()) {
        std::string other;
        for (const char character : header) {
            if (character == '"') {
                continue;
            }
            other += character == ',' ? " ,\t" : std::string(1, character);
        }
        std::ranges::transform(other, other.begin(), [](unsigned char character) {
            return static_cast<char>(std::toupper(character));
        });
        EXPECT_EQ(detected(other + "\n"), withoutSource(found)) << other;
    }
    EXPECT_EQ(detected("\"url\",username,\"password\",extra,name,grouping,\"fav\"\n"),
              layoutFound("lastpass-csv", certain, ImportSource::lastPass));
    EXPECT_EQ(detected(R"("a \"quoted\" name","b ""quoted"" name",)" + std::string(lastPass)),
              layoutFound("lastpass-csv"));
}

TEST(ColumnsTest, takesAnyOrder) {
    for (const auto& [header, found] : headers()) {
        std::string reversed;
        for (std::size_t end = header.size(); end != std::string_view::npos;) {
            const std::size_t comma = end > 0 ? header.rfind(',', end - 1) : std::string::npos;
            const std::size_t begin = comma == std::string_view::npos ? 0 : comma + 1;
            reversed += (reversed.empty() && end == header.size() ? "" : ",") +
                        std::string(header.substr(begin, end - begin));
            end = comma;
        }
        EXPECT_EQ(detected(reversed + "\n"), found) << reversed;
    }
}

TEST(ColumnsTest, takesSemicolonsAndTabsIfTheHeaderIsKnownSo) {
    for (const auto& [header, found] : headers()) {
        EXPECT_EQ(detected(replaced(std::string(header), ',', ';')), withoutSource(found));
        EXPECT_EQ(detected(replaced(std::string(header), ',', '\t')), withoutSource(found));
        EXPECT_EQ(detected("sep=|\r\n" + replaced(std::string(header), ',', '|')),
                  withoutSource(found));
        EXPECT_EQ(detected("sep=\t\n" + replaced(std::string(header), ',', '\t')),
                  withoutSource(found));
    }
    for (const std::string_view line : {"sep=;;", "sep=a", "sep=\x7F", "sep=\"", "sep=\u00e9"}) {
        EXPECT_EQ(detected(std::string(line) + "\ntitle;username;password\n").layout, "") << line;
    }
}

TEST(ColumnsTest, endsRowsAsTheFirstEnds) {
    for (const std::string_view end : {"\n", "\r\n", "\r\r\n"}) {
        EXPECT_EQ(detected("\n" + std::string(lastPass) + std::string(end) + "x"),
                  layoutFound("lastpass-csv", certain, ImportSource::lastPass));
    }
    EXPECT_EQ(detected(std::string(lastPass) + "\rhttps://a.example,ann,one,,A,,0\r"),
              layoutFound("lastpass-csv"));
}

std::vector<CSVLayout> tablesWithHeader() {
    std::vector<CSVLayout> all;
    for (const Layout layout : allLayouts()) {
        std::ranges::copy_if(csvTablesOf(layout), std::back_inserter(all),
                             [](const CSVLayout& table) { return !table.required.empty(); });
    }
    return all;
}

TEST(ColumnsTest, needsEveryName) {
    for (const CSVLayout& table : tablesWithHeader()) {
        for (const std::string_view missing : table.required) {
            std::string header = "x";
            for (const std::string_view name : table.required) {
                header += name != missing ? "," + std::string(name) : "";
            }
            EXPECT_NE(detected(header).layout, identifier(table.layout)) << header;
        }
    }
}

TEST(ColumnsTest, isSureOfEveryLayoutByItsRequiredNames) {
    for (const CSVLayout& table : tablesWithHeader()) {
        std::string header;
        for (const std::string_view name : table.required) {
            header += (header.empty() ? "" : ",") + std::string(name);
        }
        EXPECT_EQ(detected(header).layout, identifier(table.layout)) << header;
        EXPECT_GE(detected(header).confidence, likely) << header;
        EXPECT_FALSE(table.evidence.empty() || table.product.empty()) << header;
    }
}

TEST(ColumnsTest, isLessSureAmongManyOtherColumns) {
    std::string header = "Group,Title,Username,Password,URL,Notes,Color";
    EXPECT_EQ(detected(header), layoutFound("keepassxc-csv", likely));
    for (int column = 8; column <= 52; ++column) {
        header += ",column " + std::to_string(column);
    }
    EXPECT_EQ(detected(header), layoutFound("generic-csv", likely));
}

TEST(ColumnsTest, saysTheLayoutOfMoreNamesIfTwoFit) {
    EXPECT_EQ(detected(std::string(lastPass) +
                       ",type,notes,fields,login_uri,login_username,login_password,login_totp"),
              layoutFound("bitwarden-csv"));
    EXPECT_EQ(detected(std::string(lastPass) + ",title,email,otpauth,notes"),
              layoutFound("lastpass-csv", likely));
}

TEST(ColumnsTest, takesNoHeaderForRowsWithoutOne) {
    for (const std::string_view header :
         {"Secret Name,Description,Secret URL,SecretData,Tags", "Name,Url,Login,Pass Phrase,Note",
          "title,address,login,secret,note"}) {
        const Found found = detected(std::string(header) + "\nMail,https://a.example,ann,one,\n" +
                                     "Bank,https://b.example,bob,two,\n");
        EXPECT_TRUE(found == Found{}) << header << ": " << found;
    }
}

// Without a header

TEST(ColumnsTest, thinksOfOldFilesOfDashlane) {
    const Found found = layoutFound("dashlane-positional-csv", possible, ImportSource::dashlane);
    for (const std::string_view text :
         {"Mail,https://a.example,ann,one,\n", "A,https://a.example,c,d,e\nA,b,c,d,e\n",
          "Mail,https://a.example,ann,,one,\nBank,www.b.example,bob,two,\n",
          "A,https://a.example,c,d,e\na\nb,c\na,b,c,d,{01234567-89AB-cdef-0123-456789ABCDEF}\n",
          "a,b,c,d,{01234567-89AB-cdef-0123-456789ABCDEF}\n"}) {
        EXPECT_EQ(detected(text), found) << text;
    }
}

TEST(ColumnsTest, thinksOfKeeperAndEnpass) {
    EXPECT_EQ(detected(R"("Work","Mail","ann","one","https://a.example","","")"
                       "\n"),
              layoutFound("keeper-csv", possible));
    EXPECT_EQ(detected(R"("Mail","Username","ann","Password","one","Website",)"
                       R"("https://a.example","note")"
                       "\n"),
              layoutFound("enpass-csv", possible));
}

TEST(ColumnsTest, knowsNoOtherTable) {
    for (const std::string_view text :
         {"a,b\n1,2\n", "a,b,c,d,e\n1,2,3,4,5\n", "A,https://a.example,c,d,e\nA,b,c,d,e\nA,b,c,d,e",
          "a,b,c,d,{01234567-89AB-cdef-0123-456789ABCDEG}\n", ",,,,\n", "one\ntwo\n", "x",
          "a,b,{01234567-89AB-cdef-0123-456789ABCDEF}\n", "A,c++://a,c,d,e\n", "A,://a,c,d,e\n",
          "A,{://a,c,d,e\n", "A,https://a.example,https://b.example,d,e\n"}) {
        EXPECT_EQ(detected(text), Found{}) << text;
    }
}

// What somebody made up

TEST(ColumnsTest, endsAtHeadersThatNobodyWrites) {
    const std::string cells = std::string(1'000'000, ',');
    const std::string quotes(65'536, '"');
    const std::vector<std::string> texts = {cells,
                                            std::string(lastPass) + cells,
                                            quotes,
                                            "\"" + std::string(lastPass),
                                            "\"a\"b," + std::string(lastPass),
                                            std::string(1'000'000, '\0'),
                                            std::string(100'000, '\n') + std::string(lastPass),
                                            "sep=,",
                                            "sep=",
                                            "sep=\n\n"};
    for (const std::string& text : texts) {
        EXPECT_EQ(detected(text).layout, "") << text.substr(0, 20);
    }
    EXPECT_EQ(detected(std::string(lastPass) + "\n" + quotes + cells),
              layoutFound("lastpass-csv", certain, ImportSource::lastPass));
}

} // namespace

} // namespace Rellinor::Tests
