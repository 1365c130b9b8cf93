#include "Tests/Memory/Store.hpp"

#include <algorithm>
#include <array>
#include <ostream>

#include "Tests/Support/Connection.hpp"
#include "Tests/Support/OtherProcess.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::size_t largeSize = std::size_t{1} << 20U;

using enum ImportSource;

// As many columns as matter here.
const Statements chromeSchema = {
    "CREATE TABLE logins(origin_url, username_value, password_value BLOB, blacklisted_by_user "
    "INTEGER, action_url)",
    "CREATE INDEX logins_url ON logins(origin_url, username_value)",
    "CREATE TABLE passwords(origin_url, username_value)"};

const Statements firefoxSchema = {
    "CREATE TABLE moz_logins(hostname, encryptedUsername, encryptedPassword, formSubmitURL)",
    "CREATE INDEX moz_logins_hostname ON moz_logins(hostname, formSubmitURL)"};

constexpr std::string_view beforeNested =
    R"({"logins":[{"color":3,"custName":"<1>","loginName":"<2>",)"
    R"("note":"<3n:20000>","pwd":"<4u>","pwdChange":5,"url":"<5>",)"
    R"("other":)";
constexpr std::string_view nested = R"({"<101n>":"<102n:5000>","b":["<103>",{"c":"<104u:300>"}]})";
constexpr std::string_view afterNested = R"(}],"notes":[],"cards":[]})";
constexpr std::size_t depth = 500; // and some more around; 512 are read

constexpr auto deeplyNested = [] {
    std::array<char, beforeNested.size() + depth + nested.size() + depth + afterNested.size()>
        text{};
    auto end = std::ranges::copy(beforeNested, text.begin()).out;
    end = std::ranges::fill_n(end, depth, '[');
    end = std::ranges::copy(nested, end).out;
    end = std::ranges::fill_n(end, depth, ']');
    std::ranges::copy(afterNested, end);
    return text;
}();

constexpr Store stores[] = {
    {.name = "lastPass",
     .source = lastPass,
     .file = "export.csv",
     .text = "url,username,password,extra,name,grouping,fav\r\n"
             "https://<1>.example,<2>,<3:8>,<101>,<4>,<102>,0\r\n"
             "https://a.example/\?<5>,\"<6q:32>\",\"<7:32>,\r\n\",\"<103b>\",\"<8b>\",,1\r\n"
             "https://<9>@b.example/,\xC3\xA4<10>\xC3\xA4,<11:256>,,\"\",,\r\n"
             "http://sn,,,\"<12:20000>\r\n<13>\",<14>,<104>,0\r\n",
     .filler = "https://a.example,somebody,something,,\"some\r\nwhere\",,0\r\n"},
    {.name = "lastPassByPosition",
     .source = lastPass,
     .file = "export.csv",
     .text = "https://<1>.example,<2>,<3>,<101>,<4>,<102>,0\n",
     .filler = "https://a.example,somebody,something,,somewhere,,0\n"},
    {.name = "lastPassWithTooManyColumns",
     .source = lastPass,
     .file = "export.csv",
     .text = "https://<101>.example,<102>,\"<103q>\",<104b>,<105>,<106>,<107>,0\r\n",
     .fate = Fate::failed},
    {.name = "lastPassThatIsNoText",
     .source = lastPass,
     .file = "export.csv",
     .text = "https://<101>.example,<102>,<103>,<104>,<105>,<106>,0\n\xFF",
     .fate = Fate::failed},
    {.name = "dashlane",
     .source = dashlane,
     .file = "export.csv",
     .text = "<1>,https://<2>.example,<3>,<101>,<4>,<102>\n"
             "<5>,\"<6q>\",<7>,\"<8b>\",\n"
             "<103>,<104>,<105>,{01234567-89AB-CDEF-0123-456789ABCDEF},<106>,<107>\n"
             "<108>,<109>,<110>,{01234567-89AB-,CDEF-0123-456789ABCDEF},<111:3000>,<112>\n"
             "<113>,<114>\n",
     .filler = "Mail,https://a.example,somebody,\"{nothing}\",something,\n"},
    {.name = "keePass",
     .source = keePass,
     .file = "export.csv",
     .text = "\"Account\",\"Login Name\",\"Password\",\"Web Site\",\"Comments\"\r\n"
             "\"<1>\",\"<2b>\",\"<3q>\",\"https://<4>.example\",\"<101>\r\n<102:6000>\"\r\n",
     .filler = "\"Mail\",\"some\\\"body\",\"something\",\"https://a.example\",\"\"\r\n"},
    {.name = "keePassWithoutTheRequiredColumns",
     .source = keePass,
     .file = "export.csv",
     .text = "<101>,<102>,<103>\n",
     .fate = Fate::failed},
    {.name = "keePassXC",
     .source = keePassXC,
     .file = "export.csv",
     .text = "\"Group\",\"Title\",\"Username\",\"Password\",\"URL\",\"Notes\"\n"
             "\"<101>\",\"<1>\",\"<2>\",\"<3>\",\"<4>\",\"<102>\"\n",
     .filler = "\"Root\",\"Mail\",\"somebody\",\"something\",\"https://a.example\",\"\"\n"},
    {.name = "onePassword",
     .source = onePassword,
     .file = "data.1pif",
     .text = R"({"uuid":"<101>","title":"<1n>","location":"<102>","typeName":"webforms.WebForm",)"
             R"("secureContents":{"URLs":[{"url":"https://<2>.example"},{"url":"<103>"}],)"
             R"("fields":[{"value":"<3>","designation":"username"},)"
             R"({"value":"<4u>","designation":"password"},{"value":"<104n>"}],)"
             R"("notesPlain":"<105n:5000>","<106>":"<107>"}})"
             "\n***5642bee8-a5ff-11dc-8314-0800200c9a66***\n"
             R"({"title":"<5u:64>","typeName":"securenotes.SecureNote",)"
             R"("secureContents":{"notesPlain":"<6n:20000>"}})"
             "\n",
     .filler = R"({"title":"Mail","typeName":"system.folder.Regular","location":"\u0041"})"
               "\n***5642bee8-a5ff-11dc-8314-0800200c9a66***\n"},
    {.name = "onePasswordWithABrokenLine",
     .source = onePassword,
     .file = "data.1pif",
     .text = R"({"title":"<101n>","typeName":"webforms.WebForm","secureContents":{"fields":)"
             R"([{"value":"<102u:40>","designation":"username"},)"
             R"({"value":"<103n:9000>","designation":"password"}]}})"
             "\n"
             R"({"title":"<104n:5000>)"
             "\n",
     .fate = Fate::failed},
    {.name = "tirel",
     .source = tirel,
     .file = "export.json",
     .text =
         R"({"logins":[{"color":3,"custName":"<1n>","loginName":"<2>","note":"<3n:20000>",)"
         R"("pwd":"<4u>","pwdChange":5,"url":"<5:8>","<101n>":"<102n:5000>"},)"
         R"({"color":3,"loginName":"<14>","note":"","pwd":"<15:8>","url":""}],)"
         R"("notes":[{"color":3,"label":"<6u:64>","text":"<7:300>"}],)"
         R"("cards":[{"cardNumber":"<8n>","custName":"<9>","holderName":"<10>","cvv":"<11u:8>",)"
         R"("pin":"<12>","note":"<13n>","expirationDate":{"day":1,"month":2,"year":3},)"
         R"("other":[[[[["<103u:2000>"]]]]]}]})",
     .filler = "                                "},
    {.name = "tirelDeeplyNested",
     .source = tirel,
     .file = "export.json",
     .text = {deeplyNested.data(), deeplyNested.size()}},
    {.name = "tirelWithoutCards",
     .source = tirel,
     .file = "export.json",
     .text =
         R"({"logins":[{"color":3,"custName":"<101n>","loginName":"<102>","note":"<103n:20000>",)"
         R"("pwd":"<104u>","pwdChange":5,"url":"<105u:2000>"}],"notes":[]})",
     .fate = Fate::failed},
    {.name = "tirelThatEndsTooEarly",
     .source = tirel,
     .file = "export.json",
     .text =
         R"({"logins":[{"color":3,"custName":"<101n>","loginName":"<102>","note":"<103n:20000>",)"
         R"("pwd":"<104u>","pwdChange":5,"url":"<105n:3000>)",
     .fate = Fate::failed},
    {.name = "firefox",
     .source = firefox,
     .file = "logins.json",
     .text = R"({"nextId":2,"logins":[{"id":1,"hostname":"https://<1>.example","httpRealm":null,)"
             R"("encryptedUsername":"<2>","encryptedPassword":"<3n:4000>","guid":"<101u>"},)"
             R"({"hostname":"<4u>","encryptedUsername":"<5n:64>","encryptedPassword":"<6>"}],)"
             R"("version":3})",
     .filler = "                                "},
    {.name = "chrome",
     .source = chrome,
     .file = "Login Data",
     .text = "INSERT INTO logins VALUES('https://<1>.example','<2>',x'<3x>',0,'<101>');"
             "INSERT INTO logins VALUES('https://<4:6000>','<5:20000>',x'<6x:12000>',0,'<102>');"
             "INSERT INTO logins VALUES('https://<103>','<104>',x'<105x>',1,'<106>');",
     .filler = "INSERT INTO logins VALUES('<#:40>','<#:40>',x'<@x>',0,'<#:96>');"},
    {.name = "chromeInUTF16",
     .source = chrome,
     .file = "Login Data",
     .text = "INSERT INTO logins VALUES('https://<1>.example','<2:64>',x'<3x>',0,'<101>');"},
    {.name = "chromeWithAnotherTable",
     .source = chrome,
     .file = "Login Data",
     .text = "INSERT INTO passwords VALUES('<101>','<102>');"
             "DROP TABLE logins"},
    {.name = "firefoxSignons",
     .source = firefox,
     .file = "signons.sqlite",
     .text = "INSERT INTO moz_logins VALUES('https://<1>.example','<2>','<3>','<101>');"
             "INSERT INTO moz_logins VALUES('https://<4:6000>','<5:20000>','<6>','<102>');",
     .filler = "INSERT INTO moz_logins VALUES('<#:40>','<#:40>','<#:24>','<#:96>');"},
};

/// Rows, each with canaries of its own.
std::string rowsOf(std::string_view filler) {
    std::string text;
    for (std::uint32_t row = 0; !filler.empty() && row < Store::numberOfRows; ++row) {
        for (const char character : filler) {
            text += character == '#'   ? std::to_string(Store::firstOfRows + row)
                    : character == '@' ? std::to_string(Store::firstOfPasswords + row)
                                       : std::string(1, character);
        }
    }
    return text;
}

/// Text so often that a large store comes of it.
std::string muchOf(std::string_view filler) {
    std::string text;
    while (!filler.empty() && text.size() < largeSize) {
        text += filler;
    }
    return text;
}

} // namespace

bool Store::isDatabase() const noexcept {
    return source == chrome || file == "signons.sqlite";
}

std::string Store::contents(bool isLarge) const {
    std::string contents(text);
    if (isLarge) {
        contents += isDatabase() ? rowsOf(filler) : muchOf(filler);
    }
    return contents;
}

std::string Store::write(const TemporaryFolder& folder, bool isLarge, std::uint32_t family) const {
    const std::string path = folder / file;
    dieAfter([&] {
        const std::string expandedContents = expanded(contents(isLarge), family);
        if (!isDatabase()) {
            (void)folder.file(file, expandedContents);
            return;
        }
        const Connection connection(path);
        if (name.contains("UTF16")) {
            connection.execute({"PRAGMA encoding = 'UTF-16le'"});
        }
        connection.execute(source == chrome ? chromeSchema : firefoxSchema);
        connection.execute({"BEGIN", expandedContents, "COMMIT"});
    });
    return source == firefox ? folder.path().string() : path;
}

std::span<const Store> allStores() {
    return stores;
}

std::ostream& operator<<(std::ostream& out, const Store& store) {
    return out << store.name;
}

} // namespace Rellinor::Tests
