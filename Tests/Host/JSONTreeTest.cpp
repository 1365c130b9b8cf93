#include "Host/Inspection/JSONTree.hpp"

#include <array>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

constexpr std::array<std::string_view, 4> words = {"a", "b", "yes", "begin*"};
constexpr JSONWord a = numberOf("a", words);
constexpr JSONWord b = numberOf("b", words);

JSONTree tree(std::string_view text) {
    return JSONTree::parsed({text}, words).value();
}

JSONKind kindOfA(std::string_view text) {
    return tree(text).root()[a].value().kind();
}

TEST(JSONTreeTest, keepsTheMembersWhoseKeysAreWords) {
    const JSONTree all = tree(R"({"x":1,"b":{"a":null},"y":{"a":{}}})");
    EXPECT_EQ(all.root().count(), 3U);
    EXPECT_FALSE(all.root()[a].has_value());
    EXPECT_EQ(all.root()[b].value()[a].value().kind(), JSONKind::null);
}

TEST(JSONTreeTest, tellsTheKinds) {
    EXPECT_EQ(kindOfA(R"({"a":{}})"), JSONKind::object);
    EXPECT_EQ(kindOfA(R"({"a":[]})"), JSONKind::objects);
    EXPECT_EQ(kindOfA(R"({"a":[{},{}]})"), JSONKind::objects);
    EXPECT_EQ(kindOfA(R"({"a":[{},[]]})"), JSONKind::array);
    EXPECT_EQ(kindOfA(R"({"a":"x"})"), JSONKind::text);
    EXPECT_EQ(kindOfA(R"({"a":1.0})"), JSONKind::integer);
    EXPECT_EQ(kindOfA(R"({"a":18446744073709551615})"), JSONKind::other);
    EXPECT_EQ(kindOfA(R"({"a":1.5})"), JSONKind::other);
    EXPECT_EQ(kindOfA(R"({"a":true})"), JSONKind::yes);
    EXPECT_EQ(kindOfA(R"({"a":false})"), JSONKind::other);
}

TEST(JSONTreeTest, hasTheFirstOfTwoMembersOfOneName) {
    EXPECT_EQ(kindOfA(R"({"a":1,"a":"x","b":{"a":null}})"), JSONKind::integer);
    EXPECT_EQ(kindOfA(R"({"b":{"a":null},"a":1})"), JSONKind::integer);
}

TEST(JSONTreeTest, countsElementsAndKeepsTheObjectsBeforeAnyOther) {
    const JSONTree all = tree(R"({"a":[{},{"b":1},5,{}]})");
    const JSONValue list = all.root()[a].value();
    EXPECT_EQ(list.count(), 4U);
    EXPECT_EQ(std::distance(list.begin(), list.end()), 2);
    EXPECT_FALSE((*list.begin())[b].has_value());
}

TEST(JSONTreeTest, knowsTextsThatAreWords) {
    constexpr JSONWord yes = numberOf("yes", words);
    constexpr JSONWord beginning = numberOf("begin*", words);
    EXPECT_TRUE(tree(R"({"a":"yes"})").root()[a]->is(yes));
    EXPECT_TRUE(tree(R"({"a":"y\u0065s"})").root()[a]->is(yes));
    EXPECT_FALSE(tree(R"({"a":"yes "})").root()[a]->is(yes));
    EXPECT_TRUE(tree(R"({"a":"beginning"})").root()[a]->is(beginning));
    EXPECT_TRUE(tree(R"({"a":"begin)" + std::string(9000, 'n') + "\"}").root()[a]->is(beginning));
    EXPECT_FALSE(tree(R"({"a":"bEginning"})").root()[a]->is(beginning));
    EXPECT_FALSE(tree(R"({"\u0061":5})").root()[a]->is(0));
}

TEST(JSONTreeTest, readsPiecesAsOne) {
    const JSONTree all =
        JSONTree::parsed({R"({"a":[{"b":)", "12", R"(}, {"b":"x"}])", "}"}, words).value();
    EXPECT_EQ(all.root()[a]->count(), 2U);
    EXPECT_EQ((*all.root()[a]->begin())[b]->kind(), JSONKind::integer);
}

TEST(JSONTreeTest, tellsWhereATextIsNotJSON) {
    const auto failure = [](std::string_view text) {
        return JSONTree::parsed({text}, words).error();
    };
    EXPECT_EQ(failure("{\"a\":}").offset, 5U);
    EXPECT_EQ(failure("{\"a\":}").reason, JSONFailure::Reason::other);
    EXPECT_EQ(failure("{\"a\":1").reason, JSONFailure::Reason::cutShort);
    EXPECT_EQ(failure("").reason, JSONFailure::Reason::cutShort);
    EXPECT_EQ(failure("{} {}").reason, JSONFailure::Reason::somethingBehind);
    EXPECT_EQ(failure("{} {}").offset, 3U);
    EXPECT_EQ(failure("\"\xFF\"").reason, JSONFailure::Reason::other);
}

TEST(JSONTreeTest, readsAsDeepAsItMay) {
    const auto nested = [](std::size_t depth) {
        return std::string(depth, '[') + std::string(depth, ']');
    };
    EXPECT_TRUE(JSONTree::parsed({nested(512)}, words).has_value());
    EXPECT_EQ(JSONTree::parsed({nested(513)}, words).error().reason, JSONFailure::Reason::tooDeep);
    EXPECT_FALSE(JSONTree::parsed({nested(3)}, words, 2).has_value());
}

} // namespace

} // namespace Rellinor::Host
