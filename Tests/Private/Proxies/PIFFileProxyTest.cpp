#include "Private/Proxies/PIFFileProxy.hpp"

#include <array>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Private/Proxies/PIFParsingError.hpp"
#include "Private/Text/UTF8.hpp"
#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/RandomText.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::array<std::string_view, 4> keys = {"records", "a", "b", "x"};

constexpr std::string_view notOpened = "The file couldn\u2019t be opened.";
constexpr std::string_view notUTF8 =
    "The file couldn\u2019t be opened because its text encoding isn\u2019t UTF-8.";
constexpr std::string_view notJSON =
    "The data couldn\u2019t be read because it isn\u2019t in the correct format.";

/// The kept members of an object, written down.
std::string shown(const JSONObject& object);

std::string shown(const JSONValue& value) {
    if (const auto text = value.text()) {
        return '"' + std::string(*text) + '"';
    }
    if (const auto integer = value.integer()) {
        return std::to_string(*integer);
    }
    if (const auto object = value.object()) {
        return shown(*object);
    }
    if (const auto objects = value.objects()) {
        std::string list = "[";
        for (const JSONObject& object : *objects) {
            list += shown(object);
        }
        return list + "]";
    }
    return value.isNull() ? "null" : "other";
}

std::string shown(const JSONObject& object) {
    std::string text = "{";
    for (std::size_t place = 0; place < keys.size(); ++place) {
        if (const auto value = object.valueAt(place)) {
            text += std::string(text == "{" ? "" : " ") + std::string(keys.at(place)) + "=" +
                    shown(*value);
        }
    }
    return text + "}";
}

/// The outcome of reading, written down: the members, or the description of the error.
std::string outcome(const auto& read) {
    try {
        return shown(read().contents());
    } catch (const PIFParsingError& error) {
        return std::string(error.description());
    }
}

/// What is read of a file.
std::string readAt(std::string_view path, std::string_view topLevelKey = "records") {
    ImportMemory memory;
    return outcome([&] {
        return PIFFileProxy::toJSON(URL::fileURLWithPath(path), topLevelKey, keys, memory);
    });
}

/// What is read of a file with this text.
std::string read(std::string_view text, std::string_view topLevelKey = "records") {
    const TemporaryFolder folder;
    return readAt(folder.file("export.1pif", text), topLevelKey);
}

/// What is to be read of it: the text that the rules put together, word by word, is parsed as any
/// other.
std::string expected(std::string_view file) {
    if (!isUTF8(file)) {
        return std::string(notUTF8);
    }
    std::istringstream text{std::string(file.starts_with("\uFEFF") ? file.substr(3) : file)};
    std::string whole = "{ \"records\": [";
    bool isFirst = true;
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with("{")) {
            whole += isFirst ? "" : ",";
            whole += line;
            isFirst = false;
        }
    }
    whole += "] }";
    ImportMemory memory;
    const auto document = JSONDocument::parsed(whole, keys, memory);
    return document ? shown(document->root()) : std::string(notJSON);
}

std::string typicalExport() {
    return contentsOf(RELLINOR_FIXTURES "/OnePassword/typical.1pif");
}

// Lines

TEST(PIFFileProxyTest, readsTheRecordLinesInTheirOrder) {
    EXPECT_EQ(read("{\"a\":1}\n***\n{\"a\":2}\n***\n{\"a\":3}\n***\n"),
              "{records=[{a=1}{a=2}{a=3}]}");
}

TEST(PIFFileProxyTest, readsATypicalExport) {
    const std::string text = typicalExport();
    EXPECT_EQ(read(text), "{records=[{}{}{}{}{}{}{}{}{}{}]}");
    EXPECT_EQ(read(text), expected(text));
}

TEST(PIFFileProxyTest, passesOverLinesThatBeginWithAnythingElse) {
    EXPECT_EQ(read("\n[1]\n\"text\"\n***\n}\n\xC3\xA9{\"a\":1}\n{\"a\":2}\n#{}\n"),
              "{records=[{a=2}]}");
}

TEST(PIFFileProxyTest, hasNoRecordsInAFileOfSeparatorLines) {
    EXPECT_EQ(read("***a***\n***b***\n"), "{records=[]}");
    EXPECT_EQ(read("no records"), "{records=[]}");
}

TEST(PIFFileProxyTest, hasNoRecordsInAnEmptyFile) {
    EXPECT_EQ(read(""), "{records=[]}");
    EXPECT_EQ(read("\n"), "{records=[]}");
    EXPECT_EQ(read("\n\n\r\n"), "{records=[]}");
}

TEST(PIFFileProxyTest, dropsAnIndentedRecord) {
    EXPECT_EQ(read(" {\"a\":1}\n\t{\"a\":2}\n{\"a\":3}\n\r{\"a\":4}\n\u00A0{\"a\":5}\n"),
              "{records=[{a=3}]}");
    EXPECT_EQ(read(" {"), "{records=[]}");
}

TEST(PIFFileProxyTest, takesABraceForARecordEvenIfACombiningMarkFollows) {
    EXPECT_EQ(read("{\"a\":1}\n{\u0301\n"), notJSON);
}

TEST(PIFFileProxyTest, readsCarriageReturnsBeforeTheLineFeeds) {
    EXPECT_EQ(read("{\"a\":1}\r\n***\r\n\r\n{\"a\":2}\r\n"), "{records=[{a=1}{a=2}]}");
}

TEST(PIFFileProxyTest, takesNoOtherCharacterForALineBreak) {
    EXPECT_EQ(read("***\r{\"a\":1}"), "{records=[]}");
    EXPECT_EQ(read("***\v{\"a\":1}\f{\"a\":2}\u0085{\"a\":3}\u2028{\"a\":4}\u2029{\"a\":5}"),
              "{records=[]}");
    EXPECT_EQ(read("{\"a\":1}\r{\"a\":2}"), notJSON);
    EXPECT_EQ(read("{\"a\":\r1}"), "{records=[{a=1}]}");
}

TEST(PIFFileProxyTest, readsTheLastLineWithoutALineFeed) {
    EXPECT_EQ(read("{\"a\":1}"), "{records=[{a=1}]}");
    EXPECT_EQ(read("{\"a\":1}\n***\n{\"a\":2}"), "{records=[{a=1}{a=2}]}");
}

TEST(PIFFileProxyTest, keepsBlanksBehindARecord) {
    EXPECT_EQ(read("{\"a\":1} \t\n{\"a\":2}\t\r\n"), "{records=[{a=1}{a=2}]}");
}

// The text of the file

TEST(PIFFileProxyTest, dropsOneByteOrderMark) {
    EXPECT_EQ(read("\uFEFF{\"a\":1}\n{\"a\":2}\n"), "{records=[{a=1}{a=2}]}");
    EXPECT_EQ(read("\uFEFF\uFEFF{\"a\":1}\n{\"a\":2}\n"), "{records=[{a=2}]}");
    EXPECT_EQ(read("\uFEFF"), "{records=[]}");
    EXPECT_EQ(read("{\"a\":1}\n\uFEFF{\"a\":2}\n"), "{records=[{a=1}]}");
}

TEST(PIFFileProxyTest, failsForAFileThatCannotBeRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(readAt(folder / "missing"), notOpened);
    EXPECT_EQ(readAt(folder.path().native()), notOpened);
}

TEST(PIFFileProxyTest, failsForAFileInAnotherEncoding) {
    EXPECT_EQ(read("{\"a\":\"caf\xE9\"}\n"), notUTF8);
}

TEST(PIFFileProxyTest, failsForALineInAnotherEncodingEvenIfItIsNoRecord) {
    EXPECT_EQ(read("{\"a\":1}\n***caf\xE9***\n"), notUTF8);
    EXPECT_EQ(read("{\"a\":1}\n***\xED\xA0\x80***\n"), notUTF8);
    EXPECT_EQ(read("\xFF"), notUTF8);
}

TEST(PIFFileProxyTest, failsForATextInUTF16) {
    using namespace std::string_view_literals;
    EXPECT_EQ(read("\xFF\xFE{\0}\0"sv), notUTF8);
    EXPECT_EQ(read("{\0}\0"sv), notJSON);
}

// Records that are not JSON

TEST(PIFFileProxyTest, failsForARecordThatIsNotJSON) {
    EXPECT_EQ(read("{\"a\":1}\n{a:1}\n{\"a\":3}\n"), notJSON);
    EXPECT_EQ(read("{'a':1}\n"), notJSON);
    EXPECT_EQ(read("{}}\n"), notJSON);
}

TEST(PIFFileProxyTest, failsForARecordWithATrailingComma) {
    EXPECT_EQ(read("{\"a\":1,}\n"), notJSON);
    EXPECT_EQ(read("{\"a\":1},\n"), notJSON);
    EXPECT_EQ(read("{\"a\":1},\n{\"a\":2}\n"), notJSON);
}

TEST(PIFFileProxyTest, failsForARecordThatIsCutShort) {
    EXPECT_EQ(read("{\"a\":1\n"), notJSON);
    EXPECT_EQ(read("{\"a\":1}\n{\"a\":\"te"), notJSON);
    EXPECT_EQ(read("{\"a\":\n1}\n"), notJSON); // the rest stands on a line of its own
}

TEST(PIFFileProxyTest, failsForALoneBrace) {
    EXPECT_EQ(read("{"), notJSON);
    EXPECT_EQ(read("{\n"), notJSON);
    EXPECT_EQ(read("{\r\n"), notJSON);
}

TEST(PIFFileProxyTest, failsForTwoRecordsOnALine) {
    EXPECT_EQ(read("{\"a\":1}{\"a\":2}\n"), notJSON);
    EXPECT_EQ(read("{\"a\":1} {\"a\":2}\n"), notJSON);
}

TEST(PIFFileProxyTest, readsRecordsNestedAsDeepAsJSONMayBe) {
    // The list of the records and the object around it are two of 512.
    EXPECT_EQ(read(nestedObjects(510)).substr(0, 12), "{records=[{a");
    EXPECT_EQ(read(nestedObjects(511)), notJSON);
    EXPECT_EQ(read(endlessJSON().at(1)), notJSON);
}

TEST(PIFFileProxyTest, saysNothingOfTheRecordInAnError) {
    for (const std::string_view text : {"{\"a\":\"secret\"", "{\"a\":\"secret\xFF\"}"}) {
        EXPECT_EQ(read(text).find("secret"), std::string::npos);
    }
}

// Lines that are records only together with the rest

TEST(PIFFileProxyTest, strangeLinesTakePartInTheWhole) {
    // One that ends the list and begins another.
    EXPECT_EQ(read("{}],\"x\":[{}\n"), "{records=[{}] x=[{}]}");
    // One that ends the list and adds a second, which does not count.
    EXPECT_EQ(read("{\"a\":1}],\"records\":[{\"a\":2}\n{\"a\":3}\n"), "{records=[{a=1}]}");
    EXPECT_EQ(read("{\"a\":1}],\"records\":5,\"b\":[{\"a\":2}\n"), "{records=[{a=1}] b=[{a=2}]}");
    // A text that runs from one kept line into the next; what stands between them is lost.
    EXPECT_EQ(read("{\"a\":\"one\n***\n{two\"}\n"), "{records=[{a=\"one,{two\"}]}");
    EXPECT_EQ(read("{\"a\":\"one\r\n{two\"}\n"), notJSON); // a text holds no carriage return
    // Two records with a comma of their own, and one that needs the comma between lines.
    EXPECT_EQ(read("{\"a\":1},{\"a\":2}\n"), "{records=[{a=1}{a=2}]}");
    EXPECT_EQ(read("{\"a\":[{\"b\":1}\n{\"b\":2}]}\n"), "{records=[{a=[{b=1}{b=2}]}]}");
    // One that makes a list of something else.
    EXPECT_EQ(read("{\"a\":1},5\n"), "{records=other}");
    EXPECT_EQ(read("{\"a\":1},null\n{\"a\":2}\n"), "{records=other}");
}

TEST(PIFFileProxyTest, cannotLeaveTheObjectAtTheTop) {
    EXPECT_EQ(read("{}]}[\n"), notJSON);
    EXPECT_EQ(read("{}] }\n"), notJSON);
    EXPECT_EQ(read("{}]} {\"records\":[{}\n"), notJSON);
}

// The key at the top

TEST(PIFFileProxyTest, putsTheRecordsUnderTheKey) {
    EXPECT_EQ(read("{\"a\":1}\n", "x"), "{x=[{a=1}]}");
    EXPECT_EQ(read("***\n", "b"), "{b=[]}");
    EXPECT_EQ(read("{\"a\":1}\n", "unknown"), "{}");
    EXPECT_EQ(read("{\"a\":1}\n", ""), "{}");
}

TEST(PIFFileProxyTest, failsForAKeyWithADoubleQuote) {
    EXPECT_EQ(read("{\"a\":1}\n", "rec\"ords"), notJSON);
    EXPECT_EQ(read("", "\""), notJSON);
}

TEST(PIFFileProxyTest, insertsTheKeyAsItIs) {
    EXPECT_EQ(read("{\"a\":1}\n", R"(rec\u006Frds)"), "{records=[{a=1}]}");
    EXPECT_EQ(read("{\"a\":1}\n", R"(a":5,"records)"), "{records=[{a=1}] a=5}");
    EXPECT_EQ(read("{\"a\":1}\n", "\\"), notJSON);
}

TEST(PIFFileProxyTest, failsForAKeyThatIsNotUTF8) {
    EXPECT_EQ(read("{\"a\":1}\n", "rec\xFFords"), "Could not parse JSON string as data");
}

// Any text

std::string json(std::string_view text) {
    ImportMemory memory;
    return outcome([&] { return PIFFileProxy::json(text, keys, memory); });
}

TEST(PIFFileProxyTest, readsTheObjectThatATextIs) {
    EXPECT_EQ(json("{\"records\":[{\"a\":\"text\"}]}"), "{records=[{a=\"text\"}]}");
}

TEST(PIFFileProxyTest, failsForAnArrayAtTheTop) {
    constexpr std::string_view notAnObject = "Could not parse JSON object as [String: AnyObject]";
    EXPECT_EQ(json("[]"), notAnObject);
    EXPECT_EQ(json("[{\"records\":[]}]"), notAnObject);
}

TEST(PIFFileProxyTest, failsForASingleValueAtTheTop) {
    for (const std::string_view value : singleJSONValues()) {
        EXPECT_EQ(json(value), notJSON) << value;
    }
}

// The error

TEST(PIFParsingErrorTest, becomesAnErrorObjectWithoutItsDescription) {
    try {
        throw PIFParsingError("description");
    } catch (...) {
        const NSError error = thrownError();
        EXPECT_EQ(error, NSError("Rellinor.PIFParsingError", 1));
        EXPECT_TRUE(error.userInfo().empty());
        EXPECT_EQ(error.localizedDescription(),
                  "The operation couldn\u2019t be completed. (Rellinor.PIFParsingError error 1.)");
    }
}

// Against the text put together word by word

TEST(PIFFileProxyTest, readsAFileThatIsCutAnywhere) {
    const TemporaryFolder folder;
    const std::string whole = "\uFEFF" + typicalExport() +
                              "{\"a\":\"\u00E9\\u00E9\"}\r\n{\"b\":[{\"x\":1}],\"x\":null}\n \n{}";
    const std::size_t step = isThorough() ? 1 : 7;
    for (std::size_t length = 0; length <= whole.size(); length += step) {
        const std::string cut = whole.substr(0, length);
        ASSERT_EQ(readAt(folder.file("export.1pif", cut)), expected(cut)) << length;
    }
}

TEST(PIFFileProxyTest, readsRandomLinesAsOneText) {
    constexpr std::array<std::string_view, 24> pieces = {
        "{",        "}",           "{}",    "\n{}",      "\n",
        "\n",       "\r\n",        "***\n", "\n{\"a\":", "\"",
        "\"",       "{\"b\":1}\n", "],",    "\"x\":[",   "\n{\"a\":\"x\"}",
        ",",        "null",        "[",     "]",         "\\",
        "\xC3\xA9", "\uFEFF",      " ",     "\xFF",
    };
    const TemporaryFolder folder;
    std::size_t accepted = 0;
    for (std::uint64_t seed = 0; seed < affordable(5000U); ++seed) {
        RandomText random(seed);
        const std::string text = random.of(pieces, 10);
        const std::string outcome = readAt(folder.file("export.1pif", text));
        ASSERT_EQ(outcome, expected(text)) << testing::PrintToString(text);
        accepted += outcome.starts_with("{records=[{") ? 1U : 0U;
    }
    EXPECT_GT(accepted, affordable(300)); // so that the texts are worth comparing
}

} // namespace

} // namespace Rellinor::Tests
