#include "Private/Importers/Firefox/FirefoxLoginsFile.hpp"

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Importers/Firefox/EncryptedKeys.hpp"

namespace Rellinor::Tests {

namespace {

using Entry = std::map<std::string_view, std::string>;
using Entries = std::vector<Entry>;

/// The entries of a file with this text, copied out with the fields that they have.
Entries entries(std::string_view text) {
    ImportMemory memory;
    auto document = JSONDocument::parsed(text, FirefoxLoginsFile::keys, memory);
    const auto file = document ? FirefoxLoginsFile::decoded(*std::move(document)) : std::nullopt;
    if (!file) {
        return {};
    }
    Entries copies;
    for (const JSONObject& entry : *file) {
        Entry& copy = copies.emplace_back();
        for (const EncryptedKeys key : keysUpTo<EncryptedKeys::password>()) {
            if (const auto field = entry[key].and_then(&JSONValue::text)) {
                copy[rawValue(key)] = *field;
            }
        }
    }
    return copies;
}

const Entries one = {{{"hostname", "h"}, {"encryptedUsername", "u"}, {"encryptedPassword", "p"}}};

constexpr std::string_view oneEntry =
    R"({"hostname":"h","encryptedUsername":"u","encryptedPassword":"p"})";

Entries entriesOfList(std::string_view list) {
    return entries(R"({"logins":)" + std::string(list) + "}");
}

std::string list(std::string_view first, std::string_view second) {
    std::string text = "[";
    text.append(first).append(",").append(second).append("]");
    return text;
}

TEST(FirefoxLoginsFileTest, readsTheEntriesInTheirOrder) {
    EXPECT_EQ(entriesOfList(R"([{"hostname":"1"},{"hostname":"2"},{"hostname":"3"}])"),
              (Entries{{{"hostname", "1"}}, {{"hostname", "2"}}, {{"hostname", "3"}}}));
}

TEST(FirefoxLoginsFileTest, readsAnEmptyListOrAnEmptyEntry) {
    EXPECT_EQ(entriesOfList("[]"), Entries{});
    EXPECT_EQ(entriesOfList("[{},{}]"), (Entries{{}, {}}));
}

TEST(FirefoxLoginsFileTest, readsTheNamedMembersWhateverElseThereIs) {
    EXPECT_EQ(
        entries(R"( {"nextId":2,"more":{"logins":[1]},"list":[{"hostname":"x"}],"logins":[{"id":1,)"
                R"("deep":{"hostname":"x","list":["y"]},"hostname":"h","many":[{"hostname":"x"}],)"
                R"("encryptedUsername":"u","httpRealm":null,"encryptedPassword":"p",)"
                R"("timesUsed":100000000000000000000}],"version":3} )"),
        one);
}

TEST(FirefoxLoginsFileTest, comparesNamesExactly) {
    EXPECT_EQ(entriesOfList(R"([{"Hostname":"x","hostname ":"x","encryptedusername":"x"}])"),
              Entries{{}});
    EXPECT_EQ(entries(R"({"Logins":[)" + std::string(oneEntry) + "]}"), Entries{});
}

TEST(FirefoxLoginsFileTest, decodesNamesAndTexts) {
    EXPECT_EQ(
        entries(R"({"log\u0069ns":[{"h\u006Fstname":"a\/\"\\\n\u00E9\uD83D\uDD11\u0000z"}]})"),
        (Entries{{{"hostname", std::string("a/\"\\\n\u00E9\U0001F511\0z", 13)}}}));
}

TEST(FirefoxLoginsFileTest, leavesOutAFieldThatIsNotAText) {
    for (const std::string_view value : {"1", "1.5", "true", "false", "null", "{}", "[]",
                                         R"(["text"])", R"({"hostname":"text"})"}) {
        EXPECT_EQ(entriesOfList(R"([{"hostname":)" + std::string(value) +
                                R"(,"encryptedUsername":"u"}])"),
                  (Entries{{{"encryptedUsername", "u"}}}))
            << value;
    }
}

TEST(FirefoxLoginsFileTest, takesTheFirstOfTwoMembersOfOneName) {
    EXPECT_EQ(entriesOfList(R"([{"hostname":"1","hostname":"2"}])"),
              (Entries{{{"hostname", "1"}}}));
    EXPECT_EQ(entriesOfList(R"([{"hostname":1,"hostname":"2"},{"hostname":"3"}])"),
              (Entries{{}, {{"hostname", "3"}}}));
    EXPECT_EQ(entries(R"({"logins":[{"hostname":"1"}],"logins":[{"hostname":"2"}]})"),
              (Entries{{{"hostname", "1"}}}));
    EXPECT_EQ(entries(R"({"logins":[{"hostname":"1"}],"logins":2})"),
              (Entries{{{"hostname", "1"}}}));
    EXPECT_EQ(entries(R"({"logins":null,"logins":[{"hostname":"2"}]})"), Entries{});
}

TEST(FirefoxLoginsFileTest, hasNoEntriesIfTheTopIsNotAnObject) {
    const std::string entry(oneEntry);
    for (const std::string& text : {"[" + entry + "]", "[{\"logins\":[" + entry + "]}]",
                                    "[\"logins\",[" + entry + "]]", std::string("[]")}) {
        EXPECT_EQ(entries(text), Entries{}) << text;
    }
}

TEST(FirefoxLoginsFileTest, hasNoEntriesIfTheListIsMissingOrOfAnotherShape) {
    for (const std::string_view text :
         {R"({})", R"({"logins":null})", R"({"logins":1})", R"({"logins":"text"})",
          R"({"logins":true})", R"({"logins":{}})", R"({"logins":{"logins":[{"hostname":"h"}]}})",
          R"({"logins":{"a":{"hostname":"h"}}})", R"({"other":[{"hostname":"h"}]})"}) {
        EXPECT_EQ(entries(text), Entries{}) << text;
    }
}

TEST(FirefoxLoginsFileTest, hasNoEntriesIfOneElementIsNotAnObject) {
    for (const std::string_view other :
         {"5", "1.5", "null", "true", R"("text")", "[]", R"([{"hostname":"h"}])"}) {
        EXPECT_EQ(entriesOfList(list(oneEntry, other)), Entries{}) << other;
        EXPECT_EQ(entriesOfList(list(other, oneEntry)), Entries{}) << other;
    }
}

TEST(FirefoxLoginsFileTest, hasNoEntriesIfTheTextIsCutAnywhere) {
    const std::string whole = R"({"nextId":2,"logins":[)" + std::string(oneEntry) + R"(],"v":3})";
    ASSERT_EQ(entries(whole), one);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        EXPECT_EQ(entries(cut), Entries{}) << cut;
    }
}

TEST(FirefoxLoginsFileTest, hasNoEntriesIfSomethingFollowsTheText) {
    const std::string whole = R"({"logins":[)" + std::string(oneEntry) + "]}";
    EXPECT_EQ(entries(whole + "\n"), one);
    EXPECT_EQ(entries(whole + "x"), Entries{});
    EXPECT_EQ(entries(whole + "{}"), Entries{});
    EXPECT_EQ(entries(whole + '\0'), Entries{});
}

} // namespace

} // namespace Rellinor::Tests
