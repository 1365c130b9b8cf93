#include "Private/Models/JSON.hpp"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Proxies/JSONError.hpp"
#include "Private/Proxies/JSONRecords.hpp"

namespace Rellinor::Tests {

namespace {

using Case = JSONError::Case;
using Names = std::vector<std::string>;

constexpr std::array<std::string_view, 3> keys = {"records", "name", "other"};
constexpr std::size_t placeOfName = 1;

/// The names of objects, copied out.
Names names(const auto& objects) {
    Names names;
    for (const JSONObject& object : objects) {
        names.emplace_back(object.valueAt(placeOfName).and_then(&JSONValue::text).value_or("none"));
    }
    return names;
}

/// JSON texts with an object at the top, asked for the member "records".
class JSONTest : public testing::Test {
protected:
    /// @param text  outlives the test
    JSON json(std::string_view text) {
        return {JSONDocument::parsed(text, keys, _memory).value(), keys};
    }

    /// The names of the objects that a key holds.
    Names namesUnder(std::string_view key, std::string_view text) {
        return names(json(text).value(key));
    }

    /// The error with which asking for a key fails.
    std::optional<JSONError> failure(std::string_view key, std::string_view text) {
        try {
            (void)json(text).value(key);
        } catch (const JSONError& error) {
            return error;
        }
        return std::nullopt;
    }

    ImportMemory& memory() { return _memory; }

private:
    ImportMemory _memory;
};

TEST_F(JSONTest, givesAListOfObjectsInItsOrder) {
    EXPECT_EQ(namesUnder("records", R"({"other":1,"records":[{"name":"b"},{"name":"a"},{}]})"),
              (Names{"b", "a", "none"}));
}

TEST_F(JSONTest, givesAnEmptyList) {
    EXPECT_EQ(namesUnder("records", R"({"records":[]})"), Names{});
}

TEST_F(JSONTest, findsNoValueForAMissingKey) {
    const auto error = failure("records", R"({"other":[{"name":"a"}]})");
    ASSERT_TRUE(error);
    EXPECT_EQ(error->which(), Case::valueNotFound);
    EXPECT_EQ(error->forKey(), "records");
    EXPECT_EQ(error->type(), "");
}

TEST_F(JSONTest, findsNoValueInAnEmptyObject) {
    EXPECT_EQ(failure("records", "{}")->which(), Case::valueNotFound);
}

TEST_F(JSONTest, findsNoValueForAKeyThatWasNotKept) {
    const auto error = failure("unknown", R"({"unknown":[{"name":"a"}]})");
    ASSERT_TRUE(error);
    EXPECT_EQ(error->which(), Case::valueNotFound);
    EXPECT_EQ(error->forKey(), "unknown");
}

TEST_F(JSONTest, comparesKeysExactly) {
    for (const std::string_view text :
         {R"({"Records":[]})", R"({"records ":[]})", R"({"record":[]})", R"({"":[]})",
          R"({"a":{"records":[]}})"}) {
        const auto error = failure("records", text);
        ASSERT_TRUE(error) << text;
        EXPECT_EQ(error->which(), Case::valueNotFound) << text;
    }
}

TEST_F(JSONTest, takesNullForAValueOfAnotherType) {
    const auto error = failure("records", R"({"records":null})");
    ASSERT_TRUE(error);
    EXPECT_EQ(error->which(), Case::invalidValueCast);
}

TEST_F(JSONTest, takesAnArrayOfArraysForAValueOfAnotherType) {
    const auto error = failure("records", R"({"records":[[{"name":"a"}],[]]})");
    ASSERT_TRUE(error);
    EXPECT_EQ(error->which(), Case::invalidValueCast);
}

TEST_F(JSONTest, namesTheKeyAndTheTypeThatTheValueIsNotOf) {
    const auto error = failure("records", R"({"records":5})");
    ASSERT_TRUE(error);
    EXPECT_EQ(error->which(), Case::invalidValueCast);
    EXPECT_EQ(error->forKey(), "records");
    EXPECT_EQ(error->type(), "[[String: AnyObject]]");
}

TEST_F(JSONTest, castsNothingElseToAListOfObjects) {
    for (const std::string_view text :
         {R"({"records":{}})", R"({"records":{"records":[{"name":"a"}]}})", R"({"records":"text"})",
          R"({"records":1})", R"({"records":1.5})", R"({"records":true})", R"({"records":["a"]})",
          R"({"records":[1]})", R"({"records":[null]})"}) {
        const auto error = failure("records", text);
        ASSERT_TRUE(error) << text;
        EXPECT_EQ(error->which(), Case::invalidValueCast) << text;
    }
}

TEST_F(JSONTest, castsAListWhollyOrNotAtAll) {
    for (const std::string_view text :
         {R"({"records":[{"name":"a"},5]})", R"({"records":[5,{"name":"a"}]})",
          R"({"records":[{"name":"a"},null,{"name":"b"}]})",
          R"({"records":[{"name":"a"},[{"name":"b"}]]})"}) {
        const auto error = failure("records", text);
        ASSERT_TRUE(error) << text;
        EXPECT_EQ(error->which(), Case::invalidValueCast) << text;
    }
}

TEST_F(JSONTest, takesTheFirstOfTwoMembersOfOneName) {
    EXPECT_EQ(namesUnder("records", R"({"records":[{"name":"a"}],"records":5})"), Names{"a"});
    EXPECT_EQ(failure("records", R"({"records":5,"records":[{"name":"a"}]})")->which(),
              Case::invalidValueCast);
}

TEST_F(JSONTest, offersItsMembers) {
    const JSON document = json(R"({"name":"a","other":7})");
    EXPECT_EQ(document.contents().valueAt(placeOfName).and_then(&JSONValue::text), "a");
    EXPECT_EQ(document.contents().valueAt(2).and_then(&JSONValue::integer), 7);
    EXPECT_FALSE(document.contents().valueAt(0));
}

TEST_F(JSONTest, givesTheDocumentOnWhichTheListRests) {
    JSON document = json(R"({"records":[{"name":"a"},{"name":"b"}]})");
    const JSONObjects list = document.value("records");
    const JSONRecords records(std::move(document).takeDocument(), list);
    EXPECT_EQ(names(records), (Names{"a", "b"}));
}

TEST_F(JSONTest, stopsForADocumentWithoutAnObjectAtTheTop) {
    EXPECT_DEATH((void)json("[]"), "^$");
}

/// The error object that a host receives for what `thrower` throws.
std::optional<NSError> errorObject(const auto& thrower) {
    try {
        thrower();
    } catch (...) {
        return thrownError();
    }
    return std::nullopt;
}

TEST(JSONErrorTest, becomesAnErrorObjectWithTheOrdinalOfItsCase) {
    EXPECT_EQ(errorObject([] { throw JSONError::valueNotFound("records"); }),
              NSError("Rellinor.JSONError", 0));
    EXPECT_EQ(errorObject([] { throw JSONError::invalidValueCast("records", "type"); }),
              NSError("Rellinor.JSONError", 1));
}

TEST(JSONErrorTest, attachesNoMessage) {
    const auto error = errorObject([] { throw JSONError::invalidValueCast("records", "type"); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->userInfo().empty());
    EXPECT_EQ(error->localizedDescription(),
              "The operation couldn\u2019t be completed. (Rellinor.JSONError error 1.)");
}

TEST(JSONErrorTest, keepsTheKeyForItself) {
    std::optional<JSONError> error;
    {
        const std::string key(100, 'k');
        error = JSONError::valueNotFound(key);
    }
    EXPECT_EQ(error->forKey(), std::string(100, 'k'));
}

} // namespace

} // namespace Rellinor::Tests
