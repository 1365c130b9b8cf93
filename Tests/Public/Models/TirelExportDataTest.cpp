#include <concepts>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include <Rellinor/Models/TirelExportData.hpp>
#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

using Login = TirelExportData::Password;
using Note = TirelExportData::Note;
using Card = TirelExportData::Card;
using Date = Card::ExpirationDate;

TEST(TirelExportDataTest, startsEmpty) {
    const TirelExportData data;
    EXPECT_TRUE(data.logins.empty());
    EXPECT_TRUE(data.notes.empty());
    EXPECT_TRUE(data.cards.empty());
}

TEST(TirelExportDataTest, letsTheHostFillItsLists) {
    TirelExportData data;
    data.logins.emplace_back(1, std::nullopt, "ann", "", "one", std::nullopt, "");
    data.logins.emplace_back(2, "Mail", "bob", "", "two", 3, "");
    data.notes.emplace_back(3, "Wi-Fi", "text");
    data.cards.emplace_back("0001", "Travel", "Ann", "002", "0003", "", Date(31, 12, 2030));
    ASSERT_EQ(data.logins.size(), 2);
    EXPECT_EQ(data.logins[0].loginName(), "ann");
    EXPECT_EQ(data.logins[1].loginName(), "bob");
    EXPECT_EQ(data.notes.at(0).label(), "Wi-Fi");
    EXPECT_EQ(data.cards.at(0).cardNumber(), "0001");
    data.logins.clear();
    EXPECT_TRUE(data.logins.empty());
}

TEST(TirelExportDataTest, isAValue) {
    TirelExportData data;
    data.notes.emplace_back(3, "Wi-Fi", "text");
    const TirelExportData copy = data;
    data.notes.clear();
    EXPECT_EQ(copy.notes.at(0).text(), "text");
}

TEST(TirelExportDataTest, givesTheFieldsOfALogin) {
    const Login login(4, "Mail", "ann", "a note", "one", 1700000000, "https://a.example");
    EXPECT_EQ(login.color(), 4);
    EXPECT_EQ(login.custName(), "Mail");
    EXPECT_EQ(login.loginName(), "ann");
    EXPECT_EQ(login.note(), "a note");
    EXPECT_EQ(login.pwd(), "one");
    EXPECT_EQ(login.pwdChange(), 1700000000);
    EXPECT_EQ(login.url(), "https://a.example");
}

TEST(TirelExportDataTest, tellsAbsentFieldsOfALoginFromEmptyOnes) {
    const Login absent(0, std::nullopt, "", "", "", std::nullopt, "");
    EXPECT_EQ(absent.custName(), std::nullopt);
    EXPECT_EQ(absent.pwdChange(), std::nullopt);
    const Login empty(0, "", "", "", "", 0, "");
    EXPECT_EQ(empty.custName(), "");
    EXPECT_EQ(empty.pwdChange(), 0);
}

TEST(TirelExportDataTest, givesTheFieldsOfANote) {
    const Note note(-7, "Wi-Fi", std::string("a\0b", 3));
    EXPECT_EQ(note.color(), -7);
    EXPECT_EQ(note.label(), "Wi-Fi");
    EXPECT_EQ(note.text(), std::string_view("a\0b", 3));
}

TEST(TirelExportDataTest, givesTheFieldsOfACard) {
    const Card card("0001", "Travel", "Ann", "002", "0003", "a note", Date(31, 12, 2030));
    EXPECT_EQ(card.cardNumber(), "0001");
    EXPECT_EQ(card.custName(), "Travel");
    EXPECT_EQ(card.holderName(), "Ann");
    EXPECT_EQ(card.cvv(), "002");
    EXPECT_EQ(card.pin(), "0003");
    EXPECT_EQ(card.note(), "a note");
    EXPECT_EQ(card.expirationDate().day(), 31);
    EXPECT_EQ(card.expirationDate().month(), 12);
    EXPECT_EQ(card.expirationDate().year(), 2030);
}

TEST(TirelExportDataTest, checksNoRange) {
    using Limits = std::numeric_limits<std::int64_t>;
    const Date date(Limits::min(), 0, Limits::max());
    EXPECT_EQ(date.day(), Limits::min());
    EXPECT_EQ(date.month(), 0);
    EXPECT_EQ(date.year(), Limits::max());
}

TEST(TirelExportDataTest, entriesCannotBeChangedOrMadeWithoutTheirFields) {
    static_assert(!std::is_default_constructible_v<Login>);
    static_assert(!std::is_default_constructible_v<Note>);
    static_assert(!std::is_default_constructible_v<Card>);
    static_assert(!std::is_default_constructible_v<Date>);
    static_assert(std::same_as<decltype(std::declval<Login&>().pwd()), std::string_view>);
    static_assert(std::same_as<decltype(std::declval<Note&>().color()), std::int64_t>);
    static_assert(std::same_as<decltype(std::declval<Card&>().expirationDate()), const Date&>);
}

TEST(TirelExportDataTest, definesNoEquality) {
    static_assert(!std::equality_comparable<TirelExportData>);
    static_assert(!std::equality_comparable<Login>);
    static_assert(!std::equality_comparable<Note>);
    static_assert(!std::equality_comparable<Card>);
    static_assert(!std::equality_comparable<Date>);
}

/// The names of coding keys, which must come in their order.
template <typename Key>
std::string names(std::initializer_list<Key> keys) {
    std::string names;
    int ordinal = 0;
    for (const Key key : keys) {
        EXPECT_EQ(static_cast<int>(key), ordinal++);
        names += std::string(stringValue(key)) + ' ';
    }
    return names;
}

TEST(TirelExportDataTest, namesTheListsInOrder) {
    using enum TirelExportData::CodingKeys;
    EXPECT_EQ(names({logins, notes, cards}), "logins notes cards ");
}

TEST(TirelExportDataTest, namesTheMembersOfALoginInOrder) {
    using enum Login::CodingKeys;
    EXPECT_EQ(names({color, custName, loginName, note, pwd, pwdChange, url}),
              "color custName loginName note pwd pwdChange url ");
}

TEST(TirelExportDataTest, namesTheMembersOfANoteInOrder) {
    using enum Note::CodingKeys;
    EXPECT_EQ(names({color, label, text}), "color label text ");
}

TEST(TirelExportDataTest, namesTheMembersOfACardInOrder) {
    using enum Card::CodingKeys;
    EXPECT_EQ(names({cardNumber, custName, holderName, cvv, pin, note, expirationDate}),
              "cardNumber custName holderName cvv pin note expirationDate ");
}

TEST(TirelExportDataTest, namesThePartsOfADateInOrder) {
    using enum Date::CodingKeys;
    EXPECT_EQ(names({day, month, year}), "day month year ");
}

} // namespace

} // namespace Rellinor::Tests
