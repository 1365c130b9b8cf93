#include <gtest/gtest.h>

#include "Private/Models/ImportedCard.hpp"
#include "Private/Models/ImportedNote.hpp"
#include "Private/Models/ImportedPassword.hpp"
#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

namespace {

TEST(ImportedPasswordTest, returnsEachFieldUnchanged) {
    const ImportedPassword password("ann", " secret ", "https://a.example", "Mail", 7, "note", -1);
    EXPECT_EQ(copyOf(password),
              (Password{"ann", " secret ", "https://a.example", "Mail", 7, "note", -1}));
}

TEST(ImportedPasswordTest, reportsServiceColourNoteAndChangeTimeAsAbsent) {
    const ImportedPassword password("", "", "", std::nullopt, std::nullopt, std::nullopt,
                                    std::nullopt);
    EXPECT_EQ(password.service(), std::nullopt);
    EXPECT_EQ(password.color(), std::nullopt);
    EXPECT_EQ(password.note(), std::nullopt);
    EXPECT_EQ(password.pwdChange(), std::nullopt);
}

TEST(ImportedPasswordTest, tellsAnEmptyTextWithoutDataFromAbsent) {
    const ImportedPassword password("", "", "", std::string_view(), std::nullopt,
                                    std::string_view(), std::nullopt);
    EXPECT_EQ(password.service(), "");
    EXPECT_EQ(password.note(), "");
}

TEST(ImportedPasswordTest, tellsEmptyAndZeroFromAbsent) {
    const ImportedPassword password("", "", "", "", 0, "", 0);
    EXPECT_EQ(password.service(), "");
    EXPECT_EQ(password.color(), 0);
    EXPECT_EQ(password.note(), "");
    EXPECT_EQ(password.pwdChange(), 0);
}

TEST(ImportedNoteTest, returnsEachFieldUnchanged) {
    EXPECT_EQ(copyOf(ImportedNote(3, "title", "two\nlines")), (Note{3, "title", "two\nlines"}));
    EXPECT_EQ(copyOf(ImportedNote(std::nullopt, "", "")), (Note{std::nullopt, "", ""}));
}

TEST(ImportedCardTest, alwaysReportsDayMonthAndYear) {
    const ImportedCard card("4111", "main", "Ann", "123", "0000", "note", 0, 13, -2030);
    EXPECT_EQ(copyOf(card), (Card{"4111", "main", "Ann", "123", "0000", "note", 0, 13, -2030}));
}

} // namespace

} // namespace Rellinor::Tests
