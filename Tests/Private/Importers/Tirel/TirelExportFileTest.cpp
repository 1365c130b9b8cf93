#include "Private/Importers/Tirel/TirelExportFile.hpp"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/TirelExport.hpp"

namespace Rellinor::Tests {

namespace {

using Key = TirelRecordKey;
using Names = std::vector<std::string>;

/// The raw records of an export, each by the text that names its kind best; absent if the text is
/// no export.
std::optional<Names> records(std::string_view text) {
    ImportMemory memory;
    auto document = JSONDocument::parsed(text, TirelExportFile::keys, memory);
    const auto file = document ? TirelExportFile::decoded(*std::move(document)) : std::nullopt;
    if (!file) {
        return std::nullopt;
    }
    Names names;
    for (const TirelRecord& record : *file) {
        for (const Key key : {Key::username, Key::label, Key::cardNumber}) {
            if (const auto name = record[key].and_then(&JSONValue::text)) {
                names.emplace_back(*name);
            }
        }
    }
    return names;
}

TEST(TirelExportFileTest, readsLoginsThenNotesThenCardsInFileOrder) {
    const Members whole = {
        {"cards", listOf({aCard(), aCard().with("cardNumber", R"("0002")")})},
        {"notes", listOf({aNote().with("label", R"("b")"), aNote().with("label", R"("a")")})},
        {"logins", listOf({aLogin().with("loginName", R"("zoe")"), aLogin()})},
    };
    EXPECT_EQ(records(whole.text()), (Names{"zoe", "ann", "b", "a", "0001", "0002"}));
}

TEST(TirelExportFileTest, readsThreeEmptyLists) {
    EXPECT_EQ(records(R"({"logins":[],"notes":[],"cards":[]})"), Names{});
}

TEST(TirelExportFileTest, isAbsentWithoutAnyOfTheLists) {
    EXPECT_EQ(records(R"({"notes":[],"cards":[]})"), std::nullopt);
    EXPECT_EQ(records(R"({"logins":[],"cards":[]})"), std::nullopt);
    EXPECT_EQ(records(R"({"logins":[],"notes":[]})"), std::nullopt);
    EXPECT_EQ(records("{}"), std::nullopt);
}

TEST(TirelExportFileTest, isAbsentIfTheTopIsNotAnObject) {
    EXPECT_EQ(records("[]"), std::nullopt);
    EXPECT_EQ(records(arrayOf({emptyExport().text()})), std::nullopt);
}

TEST(TirelExportFileTest, isAbsentForAnythingElseInPlaceOfWhatIsRequired) {
    for (const std::string& text : rejectedTirelExports()) {
        EXPECT_EQ(records(text), std::nullopt) << text;
    }
}

TEST(TirelExportFileTest, passesOverWhatItDoesNotKnow) {
    for (const std::string& text : acceptedTirelExports()) {
        EXPECT_TRUE(records(text)) << text;
    }
}

TEST(TirelExportFileTest, requiresTheNameInACardThoughNotInALogin) {
    EXPECT_TRUE(records(exportOfLogin(aLogin().without("custName"))));
    EXPECT_FALSE(records(exportOfCard(aCard().without("custName"))));
}

TEST(TirelExportFileTest, takesNullInAnOptionalMemberForAbsent) {
    EXPECT_TRUE(records(exportOfLogin(aLogin().with("custName", "null"))));
    EXPECT_TRUE(records(exportOfLogin(aLogin().with("pwdChange", "null"))));
}

TEST(TirelExportFileTest, isAbsentForAnOptionalMemberOfAnotherType) {
    EXPECT_FALSE(records(exportOfLogin(aLogin().with("custName", "5"))));
    EXPECT_FALSE(records(exportOfLogin(aLogin().with("pwdChange", R"("5")"))));
    EXPECT_FALSE(records(exportOfLogin(aLogin().with("pwdChange", "1.5"))));
}

TEST(TirelExportFileTest, comparesNamesExactly) {
    EXPECT_FALSE(records(emptyExport().without("cards").with("Cards", "[]").text()));
    EXPECT_FALSE(records(exportOfLogin(aLogin().without("pwd").with("PWD", R"("one")"))));
    EXPECT_FALSE(records(exportOfLogin(aLogin().without("pwd").with("password", R"("one")"))));
    EXPECT_FALSE(
        records(exportOfLogin(aLogin().without("loginName").with("username", R"("ann")"))));
}

TEST(TirelExportFileTest, decodesNamesWithEscapes) {
    EXPECT_EQ(records(R"({"log\u0069ns":[],"\u006Eotes":[],"cards":[]})"), Names{});
}

TEST(TirelExportFileTest, takesMembersInAnyOrder) {
    const Members note = {{"text", R"("x")"}, {"label", R"("a")"}, {"color", "1"}};
    EXPECT_EQ(records(exportOfNote(note)), Names{"a"});
}

TEST(TirelExportFileTest, takesTheFirstOfTwoMembersOfOneName) {
    EXPECT_EQ(records(Members{
                  {"logins", listOf({aLogin()})}, {"logins", "5"}, {"notes", "[]"}, {"cards", "[]"}}
                          .text()),
              Names{"ann"});
    EXPECT_EQ(records(Members{
                  {"logins", "5"}, {"logins", listOf({aLogin()})}, {"notes", "[]"}, {"cards", "[]"}}
                          .text()),
              std::nullopt);
    const Members twice = {
        {"color", "1"}, {"label", R"("a")"}, {"label", "5"}, {"text", R"("x")"}, {"color", "true"}};
    EXPECT_EQ(records(exportOfNote(twice)), Names{"a"});
    const Members brokenFirst = {
        {"color", "1"}, {"label", "5"}, {"label", R"("a")"}, {"text", R"("x")"}};
    EXPECT_EQ(records(exportOfNote(brokenFirst)), std::nullopt);
}

TEST(TirelExportFileTest, isAbsentIfTheTextIsCutAnywhere) {
    const std::string whole = exportOfCard(aCard());
    ASSERT_EQ(records(whole), Names{"0001"});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(records(whole.substr(0, length)), std::nullopt) << length;
    }
}

} // namespace

} // namespace Rellinor::Tests
