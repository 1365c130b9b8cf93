// The grammar of JSON, through every source whose files hold it.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::size_t deepestNesting = 512;

constexpr NSError noMemory("Rellinor.UnexpectedError", 0);

/// A source, and an export of one record in which any JSON can be put where nobody reads it.
struct JSONSource {
    std::string_view name;
    ImportSource source;
    std::string_view fileName; ///< if the source reads a folder
    std::string_view before;   ///< the export up to that JSON
    std::string_view after;    ///< and from it on
    std::size_t levels;        ///< how many containers are around it
    Outcome good;              ///< of the export
    Outcome bad;               ///< of a text that is not JSON

    friend std::ostream& operator<<(std::ostream& out, const JSONSource& item) {
        return out << item.name;
    }
};

std::string nameOf(const testing::TestParamInfo<JSONSource>& info) {
    return std::string(info.param.name);
}

const Outcome annsLogin = {.passwords = {{"ann", "one", "https://a.example"}}};

const JSONSource firefox = {
    .name = "firefox",
    .source = ImportSource::firefox,
    .fileName = "logins.json",
    .before = R"({"logins":[{"hostname":"https://a.example","encryptedUsername":"ann",)"
              R"("encryptedPassword":"one"}],"more":)",
    .after = "}",
    .levels = 1,
    .good = annsLogin,
    .bad = {},
};

const JSONSource onePassword = {
    .name = "onePassword",
    .source = ImportSource::onePassword,
    .fileName = {},
    .before = R"({"typeName":"webforms.WebForm","secureContents":{"URLs":[{"url":)"
              R"("https://a.example"}],"fields":[{"designation":"username","value":"ann"},)"
              R"({"designation":"password","value":"one"}]},"more":)",
    .after = "}",
    .levels = 3, // the record, the list of the records and the object around it
    .good = annsLogin,
    .bad = {.error = NSError("Rellinor.PIFParsingError", 1)},
};

const JSONSource tirel = {
    .name = "tirel",
    .source = ImportSource::tirel,
    .fileName = {},
    .before = R"({"logins":[],"notes":[{"color":1,"label":"Wi-Fi","text":"text"}],"cards":[],)"
              R"("more":)",
    .after = "}",
    .levels = 1,
    .good = {.notes = {{1, "Wi-Fi", "text"}}},
    .bad = failedWithText(),
};

class JSONSourcesTest : public testing::TestWithParam<JSONSource> {
protected:
    /// Writes an export with this text; returns the path to import.
    [[nodiscard]] std::string exportWith(std::string_view text) const {
        const bool readsFolder = !GetParam().fileName.empty();
        const std::string path = _folder.file(readsFolder ? GetParam().fileName : "export", text);
        return readsFolder ? _folder.path().native() : path;
    }

    /// What becomes of an export with this text.
    [[nodiscard]] Outcome import(std::string_view text) const {
        return outcomeOf(GetParam().source, exportWith(text));
    }

    /// The text of an export with this JSON in it.
    [[nodiscard]] static std::string around(std::string_view json) {
        return std::string(GetParam().before).append(json).append(GetParam().after);
    }

    /// What becomes of an export with this JSON in it.
    [[nodiscard]] Outcome importAround(std::string_view json) const { return import(around(json)); }

private:
    TemporaryFolder _folder;
};

TEST_P(JSONSourcesTest, importsWhateverJSONThereIsBesides) {
    for (const auto texts : {acceptedJSON(), singleJSONValues()}) {
        for (const std::string_view json : texts) {
            std::string text(json);
            if (GetParam().source == ImportSource::onePassword) {
                std::ranges::replace(text, '\n', '\r'); // a line feed ends the record
            }
            EXPECT_EQ(importAround(text), GetParam().good) << testing::PrintToString(text);
        }
    }
}

TEST_P(JSONSourcesTest, importsNothingFromWhatIsNotJSON) {
    ASSERT_EQ(importAround("[]"), GetParam().good);
    for (const std::string_view text : rejectedJSON()) {
        EXPECT_EQ(importAround(text), GetParam().bad) << testing::PrintToString(text);
    }
}

TEST_P(JSONSourcesTest, importsNothingIfSomethingFollows) {
    const std::string whole = around("[]");
    ASSERT_EQ(import(whole + " \t\r\n"), GetParam().good);
    for (const std::string_view more : {"x", "{}", ",", "}", "]", "\uFEFF", "\xFF", "//"}) {
        EXPECT_EQ(import(whole + std::string(more)), GetParam().bad) << more;
    }
    EXPECT_EQ(import(whole + '\0'), GetParam().bad);
}

TEST_P(JSONSourcesTest, importsNothingFromATextThatIsCutAnywhere) {
    const std::string whole = around(R"([1,"\u00e9é"])");
    ASSERT_EQ(import(whole), GetParam().good);
    for (std::size_t length = 1; length < whole.size(); ++length) {
        EXPECT_EQ(import(whole.substr(0, length)), GetParam().bad) << length;
    }
}

TEST_P(JSONSourcesTest, dropsOneByteOrderMark) {
    const std::string whole = around("[]");
    EXPECT_EQ(import("\uFEFF" + whole), GetParam().good);
}

TEST_P(JSONSourcesTest, saysThatThereIsNoMemory) {
    const URL url = URL::fileURLWithPath(exportWith(around(nestedObjects(20))));
    RecordsImporter importer;
    for (std::size_t nth = 1;; ++nth) {
        ASSERT_LT(nth, 100) << "every allocation failed";
        int calls = 0;
        std::optional<NSError> error;
        failAllocation(nth, [&] {
            importer.records(url, GetParam().source, [&](const RecordsResult& result) {
                ++calls;
                error = result ? std::nullopt : std::optional(result.error());
            });
        });
        ASSERT_EQ(calls, 1) << nth;
        if (!error) {
            EXPECT_GT(nth, 4);
            break;
        }
        ASSERT_EQ(error, noMemory) << nth;
    }
}

TEST_P(JSONSourcesTest, imports512NestedContainersAndNoMore) {
    const std::size_t deepest = deepestNesting - GetParam().levels;
    EXPECT_EQ(importAround(nestedArrays(deepest)), GetParam().good);
    EXPECT_EQ(importAround(nestedArrays(deepest + 1)), GetParam().bad);
    EXPECT_EQ(importAround(nestedObjects(deepest)), GetParam().good);
    EXPECT_EQ(importAround(nestedObjects(deepest + 1)), GetParam().bad);
}

TEST_P(JSONSourcesTest, importsNothingFromTextsThatOpenContainersWithoutEnd) {
    for (const std::string& text : endlessJSON()) {
        EXPECT_EQ(importAround(text), GetParam().bad) << text.substr(0, 5);
        // A line that does not begin with a brace is no record.
        const bool isNoRecord =
            GetParam().source == ImportSource::onePassword && text.starts_with('[');
        EXPECT_EQ(import(text), isNoRecord ? Outcome{} : GetParam().bad) << text.substr(0, 5);
    }
}

INSTANTIATE_TEST_SUITE_P(Importers, JSONSourcesTest, testing::Values(firefox, onePassword, tirel),
                         nameOf);

} // namespace

} // namespace Rellinor::Tests
