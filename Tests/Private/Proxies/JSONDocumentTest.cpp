#include "Private/Proxies/JSONDocument.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Platform/Fault.hpp"

namespace Rellinor::Tests {

namespace {

/// The members that are kept in these tests.
enum class Key : std::uint8_t { a, b, list, more };

constexpr std::string_view rawValue(Key key) noexcept {
    switch (key) {
    case Key::a:
        return "a";
    case Key::b:
        return "b";
    case Key::list:
        return "list";
    case Key::more:
        return "";
    }
    fault();
}

constexpr std::array keys = {rawValue(Key::a), rawValue(Key::b), rawValue(Key::list),
                             rawValue(Key::more)};

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text += part;
    }
    return text;
}

/// Writes down what is kept of a value, in the order of the keys.
std::string kept(const JSONValue& value);

std::string kept(const JSONObject& object) {
    std::string text = "{";
    for (const Key key : {Key::a, Key::b, Key::list, Key::more}) {
        if (const auto member = object[key]) {
            text.append(rawValue(key)).append("=").append(kept(*member));
        }
    }
    return text + "}";
}

std::string kept(const JSONValue& value) {
    if (const auto object = value.object()) {
        return kept(*object);
    }
    if (const auto objects = value.objects()) {
        std::string text = "[";
        for (const JSONObject& object : *objects) {
            text += kept(object);
        }
        return text + "]";
    }
    if (const auto text = value.text()) {
        return joined({"<", *text, ">"});
    }
    if (const auto integer = value.integer()) {
        return std::to_string(*integer) + ";";
    }
    if (const auto boolean = value.boolean()) {
        return *boolean ? "+" : "!";
    }
    return value.isNull() ? "-" : ".";
}

/// What is kept of a text; "error" if it is not JSON.
std::string kept(std::string_view text) {
    ImportMemory memory;
    const auto document = JSONDocument::parsed(text, keys, memory);
    return document ? kept(document->root()) : "error";
}

TEST(JSONDocumentTest, keepsTheMembersWithKnownKeys) {
    EXPECT_EQ(kept(R"({"b":1,"x":2,"a":"text","y":{"a":1},"z":[{"a":1}],"":null})"),
              "{a=<text>b=1;=-}");
}

TEST(JSONDocumentTest, keepsWhatIsNested) {
    EXPECT_EQ(
        kept(R"({"a":{"b":{"a":{},"b":2},"a":1},"list":[{"a":[{"b":{}}]},{},{"b":3}],"b":4})"),
        "{a={a=1;b={a={}b=2;}}b=4;list=[{a=[{b={}}]}{}{b=3;}]}");
}

TEST(JSONDocumentTest, tellsTheTypesApart) {
    EXPECT_EQ(kept(R"({"a":true,"b":false})"), "{a=+b=!}");
    EXPECT_EQ(kept(R"({"a":1.5,"b":1.0,"list":9223372036854775808,"":-3})"), "{a=.b=1;list=.=-3;}");
    EXPECT_EQ(kept(R"({"a":"","b":"1","list":null})"), "{a=<>b=<1>list=-}");
}

TEST(JSONDocumentTest, keepsAnArrayOfNothingButObjects) {
    EXPECT_EQ(kept("[]"), "[]");
    EXPECT_EQ(kept("[{},{}]"), "[{}{}]");
    EXPECT_EQ(kept(R"([{"a":[]},{"a":[{}]}])"), "[{a=[]}{a=[{}]}]");
}

TEST(JSONDocumentTest, keepsNoArrayWithAnythingElse) {
    for (const std::string_view other : {"1", "1.5", "null", "true", "\"text\"", "[]", "[{}]"}) {
        EXPECT_EQ(kept(joined({"[", other, "]"})), ".") << other;
        EXPECT_EQ(kept(joined({R"([{"a":1},)", other, R"(,{"a":2}])"})), ".") << other;
        EXPECT_EQ(kept(joined({R"({"list":[{"a":1},)", other, R"(,{"a":2}],"b":3})"})),
                  "{b=3;list=.}")
            << other;
        EXPECT_EQ(kept(joined({R"({"list":[)", other, R"(,{"a":2}],"b":3})"})), "{b=3;list=.}")
            << other;
    }
}

/// What is kept of all members and elements; "error" if the text is not JSON.
std::string all(const JSONValue& value);

std::string allOf(const JSONElements& elements) {
    std::string text = "[";
    for (const JSONValue element : elements) {
        text += all(element);
    }
    return text + "]";
}

std::string all(const JSONValue& value) {
    if (const auto object = value.object()) {
        std::string text = "{";
        object->forEachNamed(keys, [&](std::string_view name, const JSONValue& member) {
            text.append(name).append("=").append(all(member));
        });
        return text + "}";
    }
    const auto elements = value.elements();
    return elements ? allOf(*elements) : kept(value);
}

std::string all(std::string_view text, JSONExtent extent) {
    ImportMemory memory;
    const auto document = JSONDocument::parsed(text, keys, memory, extent);
    return document ? all(document->root()) : "error";
}

TEST(JSONDocumentTest, keepsAnyArrayIfAllListsAreAskedFor) {
    constexpr std::string_view text =
        R"({"list":[{"a":1,"x":2},3,[true,[]],"t",null],"x":[4],"b":[{}]})";
    EXPECT_EQ(all(text, JSONExtent::allLists), "{list=[{a=1;}3;[+[]]<t>-]b=[{}]}");
    ImportMemory memory;
    const auto document = JSONDocument::parsed(text, keys, memory, JSONExtent::allLists);
    const JSONObject top = document.value().root().object().value();
    EXPECT_FALSE(top.objects(Key::list));
    EXPECT_TRUE(top.objects(Key::b));
}

TEST(JSONDocumentTest, keepsEverythingIfThatIsAskedFor) {
    EXPECT_EQ(all(R"({"x":{"a":[1,{"y":"t"}],"\u007a":false},"a":1,"":2,"x":1.5})",
                  JSONExtent::everything),
              "{x={a=[1;{y=<t>}]z=!}a=1;=2;x=.}");
    // Names stand at chunk ends too.
    std::string text = R"({"x":0)";
    std::string expected = "{x=0;";
    for (int count = 1; count < 5000; ++count) {
        const std::string number = std::to_string(count);
        text += joined({R"(,"x)", number, R"(":)", number, R"(,"a":[])"});
        expected += joined({"x", number, "=", number, ";a=[]"});
    }
    EXPECT_EQ(all(text + "}", JSONExtent::everything), expected + "}");
}

TEST(JSONDocumentTest, parsesEachOfSeveralTexts) {
    ImportMemory memory;
    const auto parsed = [&](std::initializer_list<std::string_view> texts) {
        auto text = texts.begin();
        return JSONDocument::parsedEach(
            [&] { return text == texts.end() ? std::nullopt : std::optional(*text++); }, keys,
            memory);
    };
    EXPECT_EQ(kept(parsed({R"({"a":1})", R"({"b":2})"}).value().root()), "[{a=1;}{b=2;}]");
    EXPECT_EQ(kept(parsed({}).value().root()), "[]");
    for (const std::string_view part : {"{},{}", "{}]", "", R"({"a":[{})"}) {
        const auto document = parsed({"{}", part, "{}"});
        ASSERT_FALSE(document) << part;
        EXPECT_EQ(document.error().element, 2) << part;
    }
}

TEST(JSONDocumentTest, takesNothingInAnArrayForAMemberOfWhatTheArrayIsIn) {
    EXPECT_EQ(kept(R"({"list":[{"a":1},{"b":2},5],"a":"x"})"), "{a=<x>list=.}");
    EXPECT_EQ(kept(R"({"list":[{"a":1},{"b":2}],"a":"x"})"), "{a=<x>list=[{a=1;}{b=2;}]}");
}

TEST(JSONDocumentTest, hasTheFirstOfTwoMembersOfOneName) {
    EXPECT_EQ(kept(R"({"a":1,"b":2,"a":3})"), "{a=1;b=2;}");
    EXPECT_EQ(kept(R"({"a":{"b":1},"a":{"b":2}})"), "{a={b=1;}}");
    EXPECT_EQ(kept(R"({"a":null,"a":1})"), "{a=-}");
}

TEST(JSONDocumentTest, comparesKeysExactly) {
    EXPECT_EQ(kept(R"({"A":1,"a ":2,"lis":3,"listt":4,"a\u0000":5})"), "{}");
    EXPECT_EQ(kept(R"({"\u0061":1,"l\u0069st":2})"), "{a=1;list=2;}");
}

TEST(JSONDocumentTest, tellsAKeyFromEveryOtherOfItsLength) {
    for (std::size_t length = 1; length <= 40; ++length) {
        const std::string key(length, 'a');
        const std::array known = {std::string_view(key)};
        const auto isKnown = [&](std::string_view name) {
            ImportMemory memory;
            const std::string text = joined({R"({")", name, R"(":1})"});
            const auto document = JSONDocument::parsed(text, known, memory);
            return document.value().root().object().value().valueAt(0).has_value();
        };
        EXPECT_TRUE(isKnown(key)) << length;
        std::string zeros;
        for (std::size_t position = 0; position < length; ++position) {
            std::string other = key;
            other[position] = 'b';
            EXPECT_FALSE(isKnown(other)) << other;
            zeros += "\\u0000";
            EXPECT_FALSE(isKnown(zeros + key.substr(position + 1))) << length << ' ' << position;
        }
    }
}

TEST(JSONDocumentTest, decodesTexts) {
    EXPECT_EQ(kept(R"({"a":"x\"\u00E9\n","b":"\ud83d\udd11"})"), "{a=<x\"\u00E9\n>b=<\U0001F511>}");
}

TEST(JSONDocumentTest, pointsIntoTheTextWhereItCan) {
    const std::string text = R"({"a":"plain","b":"escap\u0065d"})";
    ImportMemory memory;
    const auto document = JSONDocument::parsed(text, keys, memory);
    ASSERT_TRUE(document);
    const JSONObject top = *document->root().object();
    EXPECT_EQ(top[Key::a]->text()->data(), text.data() + 6);
    const char* const escaped = top[Key::b]->text()->data();
    EXPECT_FALSE(text.data() <= escaped && escaped < text.data() + text.size());
}

TEST(JSONDocumentTest, isAbsentForWhatIsNotJSON) {
    for (const std::string_view text : {"", "{", R"({"a":1)", R"({"a":1}x)", "1", "[1,]"}) {
        EXPECT_EQ(kept(text), "error") << text;
    }
}

TEST(JSONDocumentTest, checksWhatItDoesNotKeep) {
    EXPECT_EQ(kept(R"({"x":[1,{"y":"\uD800"}]})"), "error");
    EXPECT_EQ(kept(R"({"x":[1,{"y":01}]})"), "error");
    EXPECT_EQ(kept("[1,{\"x\":\"\xFF\"}]"), "error");
}

TEST(JSONDocumentTest, keepsManyValuesInOrderOverAllChunks) {
    // From a few kilobytes to many megabytes, so that objects begin, end and nest at chunk ends.
    for (const std::size_t count : {50U, 84U, 85U, 86U, 255U, 256U, 257U, 5000U, 300'000U}) {
        std::string text = "[";
        for (std::size_t index = 0; index < count; ++index) {
            const std::string number = std::to_string(index);
            text += joined({index == 0 ? "" : ",", R"({"a":)", number});
            text += index % 3 == 0 ? joined({R"(,"list":[{"b":)", number, "},{}]}"}) : "}";
        }
        text += "]";
        ImportMemory memory;
        const auto document = JSONDocument::parsed(text, keys, memory);
        ASSERT_TRUE(document);
        const JSONObjects objects = *document->root().objects();
        std::size_t index = 0;
        for (const JSONObject& object : objects) {
            ASSERT_EQ(object[Key::a]->integer(), index);
            const auto list = object[Key::list];
            ASSERT_EQ(list.has_value(), index % 3 == 0);
            if (list) {
                ASSERT_EQ(kept(*list), joined({"[{b=", std::to_string(index), ";}{}]"}));
            }
            ++index;
        }
        EXPECT_EQ(index, count);
    }
}

TEST(JSONDocumentTest, isWholeAfterItMoved) {
    ImportMemory memory;
    std::optional<JSONDocument> second;
    {
        auto first = JSONDocument::parsed(R"({"list":[{"a":1},{"a":"x"}]})", keys, memory);
        ASSERT_TRUE(first);
        second.emplace(*std::move(first));
    }
    EXPECT_EQ(kept(second->root()), "{list=[{a=1;}{a=<x>}]}");
}

TEST(JSONDocumentTest, readsALongArrayOfSmallValues) {
    std::string text = R"({"a":[)";
    for (int count = 0; count < 1'000'000; ++count) {
        text += "1,";
    }
    text += "1]}";
    EXPECT_EQ(kept(text), "{a=.}");
}

TEST(JSONDocumentTest, keepsAMemberOfUpTo255AndNoMore) {
    ImportMemory memory;
    std::vector<std::string_view> many(254);
    many.emplace_back("a");
    const auto document = JSONDocument::parsed(R"({"a":1})", many, memory);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->root().object()->valueAt(254)->integer(), 1);
    many.emplace_back("b");
    EXPECT_DEATH((void)JSONDocument::parsed("{}", many, memory), "^$");
}

TEST(JSONDocumentTest, keepsNoMemberWithoutKeys) {
    ImportMemory memory;
    const auto document = JSONDocument::parsed(R"({"a":1,"b":[{}]})", {}, memory);
    const auto object = document.value().root().object();
    object.value().forEach([](std::size_t, const JSONValue&) { FAIL(); });
}

} // namespace

} // namespace Rellinor::Tests
