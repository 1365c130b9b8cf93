#include "Private/Importers/Dashlane/DashlaneIdentifier.hpp"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Support/Affordable.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::string_view identifier = "{01234567-89ab-CDEF-0123-456789aBcDeF}";

/// Where the first match of an identifier begins. The text is searched in a heap buffer of exactly
/// its size.
std::optional<std::size_t> found(std::string_view text) {
    const auto copy = std::make_unique_for_overwrite<char[]>(text.size());
    std::ranges::copy(text, copy.get());
    const std::string_view searched(copy.get(), text.size());
    const auto match = firstIdentifier(searched);
    if (!match) {
        return std::nullopt;
    }
    EXPECT_EQ(match->size(), identifier.size());
    return static_cast<std::size_t>(match->data() - searched.data());
}

TEST(DashlaneIdentifierTest, findsTheFirstIdentifier) {
    const std::string text(identifier);
    EXPECT_EQ(found(text), 0);
    EXPECT_EQ(found("x" + text + "y"), 1);
    EXPECT_EQ(found(text + text), 0);
    EXPECT_EQ(found("{{" + text + "}}"), 2);
    EXPECT_EQ(found("{01234567-89ab-" + text), 15);
    EXPECT_EQ(found("é\n" + text), 3);
    EXPECT_EQ(found(std::string("\0", 1) + text), 1);
}

TEST(DashlaneIdentifierTest, findsNothingInAnEmptyText) {
    EXPECT_EQ(found(""), std::nullopt);
}

TEST(DashlaneIdentifierTest, findsNoTruncatedIdentifier) {
    for (std::size_t length = 0; length < identifier.size(); ++length) {
        EXPECT_EQ(found(identifier.substr(0, length)), std::nullopt) << length;
        EXPECT_EQ(found(identifier.substr(identifier.size() - length)), std::nullopt) << length;
    }
}

TEST(DashlaneIdentifierTest, findsNoneThatLacksACharacterInTheMiddle) {
    for (std::size_t index = 0; index < identifier.size(); ++index) {
        std::string text(identifier);
        text.erase(index, 1);
        EXPECT_EQ(found(text), std::nullopt) << index;
    }
}

// In place of each character of the identifier in turn, every byte there is.
TEST(DashlaneIdentifierTest, disregardsCaseInASCIIAndMatchesNothingElse) {
    constexpr std::string_view digits = "0123456789abcdefABCDEF";
    for (std::size_t index = 0; index < identifier.size(); ++index) {
        const bool isDigit = digits.contains(identifier[index]);
        for (int byte = 0; byte < 256; ++byte) {
            std::string text(identifier);
            text[index] = static_cast<char>(byte);
            const bool expected =
                isDigit ? digits.contains(text[index]) : text[index] == identifier[index];
            EXPECT_EQ(firstIdentifier(text).has_value(), expected) << index << ' ' << byte;
        }
    }
}

// Each of these would take minutes if time grew faster than the text.
TEST(DashlaneIdentifierTest, searchesAnyTextInLinearTime) {
    const std::size_t large = affordable(std::size_t{16} << 20U);
    for (const std::string_view piece :
         {"{", "{0", "{01234567-", "{01234567-89ab-cdef-0123-456789abcde-", "0", "-", "{}"}) {
        std::string text;
        while (text.size() < large) {
            text += piece;
        }
        EXPECT_EQ(found(text), std::nullopt) << piece;
        EXPECT_EQ(found(text + std::string(identifier)), text.size()) << piece;
    }
}

} // namespace

} // namespace Rellinor::Tests
