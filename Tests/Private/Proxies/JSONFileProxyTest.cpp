#include "Private/Proxies/JSONFileProxy.hpp"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::array<std::string_view, 1> keyOfName = {"name"};
constexpr std::array<std::string_view, 2> keysOfNumber = {"other", "number"};

/// What is made of an object with a text "name".
struct Name {
    static constexpr JSONKeys keys = keyOfName;

    static std::optional<Name> decoded(const JSONDocument& document) {
        const auto top = document.root().object();
        const auto name = top ? top->valueAt(0).and_then(&JSONValue::text) : std::nullopt;
        return name ? std::optional(Name{std::string(*name)}) : std::nullopt;
    }

    std::string text;
};

/// What is made of an object with an integer "number".
struct Number {
    static constexpr JSONKeys keys = keysOfNumber;

    static std::optional<Number> decoded(const JSONDocument& document) {
        const auto top = document.root().object();
        const auto number = top ? top->valueAt(1).and_then(&JSONValue::integer) : std::nullopt;
        return number ? std::optional(Number{*number}) : std::nullopt;
    }

    std::int64_t value = 0;
};

/// The name in what a reader reads.
std::optional<std::string> nameIn(JSONFileProxyType& reader) {
    const auto name = reader.containerObject<Name>();
    return name ? std::optional(name->text) : std::nullopt;
}

/// A JSON file with a reader on it.
class JSONFileProxyTest : public testing::Test {
protected:
    JSONFileProxy& file(std::string_view contents) {
        return fileAt(_folder.file("file.json", contents));
    }

    JSONFileProxy& fileAt(std::string_view path) {
        return _file.emplace(URL::fileURLWithPath(path), _memory);
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
    ImportMemory _memory;
    std::optional<JSONFileProxy> _file;
};

TEST_F(JSONFileProxyTest, decodesTheFile) {
    EXPECT_EQ(nameIn(file(R"({"a":[1],"name":"a\u00E9","b":{"name":"x"}})")), "aé");
}

TEST_F(JSONFileProxyTest, decodesOneFileIntoSeveralTypes) {
    JSONFileProxy& json = file(R"({"number":7,"name":"a"})");
    const auto number = json.containerObject<Number>();
    ASSERT_TRUE(number);
    EXPECT_EQ(number->value, 7);
    EXPECT_EQ(nameIn(json), "a");
}

TEST_F(JSONFileProxyTest, readsNothingAtConstruction) {
    JSONFileProxy& json = fileAt(folder() / "file.json");
    (void)folder().file("file.json", R"({"name":"a"})");
    EXPECT_EQ(nameIn(json), "a");
}

TEST_F(JSONFileProxyTest, readsTheFileOnce) {
    JSONFileProxy& json = file(R"({"name":"before"})");
    ASSERT_EQ(nameIn(json), "before");
    (void)folder().file("file.json", R"({"name":"after"})");
    EXPECT_EQ(nameIn(json), "before");
    std::filesystem::remove(folder() / "file.json");
    EXPECT_EQ(nameIn(json), "before");
}

TEST_F(JSONFileProxyTest, keepsTheBytesOfAFileThatItCannotDecode) {
    for (const std::string_view text : {"no JSON", "", "[]"}) {
        JSONFileProxy& json = file(text);
        ASSERT_EQ(nameIn(json), std::nullopt) << text;
        (void)folder().file("file.json", R"({"name":"after"})");
        EXPECT_EQ(nameIn(json), std::nullopt) << text;
    }
}

TEST_F(JSONFileProxyTest, isAbsentIfTheFileCannotBeRead) {
    EXPECT_EQ(nameIn(fileAt(folder() / "missing")), std::nullopt);
    EXPECT_EQ(nameIn(fileAt(folder().path().native())), std::nullopt);
}

TEST_F(JSONFileProxyTest, triesAgainAfterAFailureToRead) {
    JSONFileProxy& json = fileAt(folder() / "file.json");
    ASSERT_EQ(nameIn(json), std::nullopt);
    (void)folder().file("file.json", R"({"name":"a"})");
    EXPECT_EQ(nameIn(json), "a");
}

TEST_F(JSONFileProxyTest, isAbsentForAnEmptyFile) {
    EXPECT_EQ(nameIn(file("")), std::nullopt);
}

TEST_F(JSONFileProxyTest, isAbsentForWhatIsNotJSON) {
    for (const std::string_view text : rejectedJSON()) {
        EXPECT_EQ(nameIn(file(text)), std::nullopt) << testing::PrintToString(text);
        EXPECT_EQ(nameIn(file(R"({"name":"a","x":)" + std::string(text) + "}")), std::nullopt)
            << testing::PrintToString(text);
    }
    for (const std::string_view text : singleJSONValues()) {
        EXPECT_EQ(nameIn(file(text)), std::nullopt) << text;
    }
}

TEST_F(JSONFileProxyTest, isAbsentForAnotherShape) {
    for (const std::string_view text : {"{}", "[]", R"({"name":1})", R"([{"name":"a"}])"}) {
        EXPECT_EQ(nameIn(file(text)), std::nullopt) << text;
    }
}

TEST_F(JSONFileProxyTest, dropsOneByteOrderMark) {
    EXPECT_EQ(nameIn(file("\uFEFF{\"name\":\"\uFEFFa\"}")), "\uFEFFa");
    EXPECT_EQ(nameIn(file("\uFEFF\uFEFF{\"name\":\"a\"}")), std::nullopt);
    EXPECT_EQ(nameIn(file("\uFEFF")), std::nullopt);
}

TEST_F(JSONFileProxyTest, isAbsentForAFileInAnotherEncoding) {
    EXPECT_EQ(nameIn(file("{\"name\":\"caf\xE9\"}")), std::nullopt);
}

TEST_F(JSONFileProxyTest, lendsItsPlaceToAnotherReader) {
    class Double final : public JSONFileProxyType {
    private:
        std::optional<JSONDocument> document(JSONKeys keys, JSONExtent /*extent*/) override {
            return JSONDocument::parsed(R"({"name":"double"})", keys, _memory).value();
        }

        ImportMemory _memory;
    };

    Double reader;
    EXPECT_EQ(nameIn(reader), "double");
}

} // namespace

} // namespace Rellinor::Tests
