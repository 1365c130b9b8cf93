#include "Host/Inspection/PIFRecordStarts.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

using Numbers = std::vector<std::size_t>;

struct Found {
    Numbers starts;
    Numbers odd;

    bool operator==(const Found&) const = default;
};

/// @param count  how many records there are
Found found(std::string_view text, std::string_view joined, std::size_t count) {
    Found all;
    PIFRecordStarts starts(text, joined);
    for (std::size_t i = 0; i < count; ++i) {
        all.starts.push_back(starts.next());
    }
    all.odd = starts.takeOddLines();
    return all;
}

TEST(PIFRecordStartsTest, findsARecordOnEachLineOfTwo) {
    EXPECT_EQ(found("{}\n***\n{\"a\":[{}]}\r\n\n{}", "{},{\"a\":[{}]}\r,{}", 3),
              (Found{.starts = {1, 3, 5}, .odd = {}}));
}

TEST(PIFRecordStartsTest, passesOverBracketsInTexts) {
    EXPECT_EQ(found("{\"}\\\"{\":\"{[\"}\n{}", "{\"}\\\"{\":\"{[\"},{}", 2),
              (Found{.starts = {1, 2}, .odd = {}}));
}

TEST(PIFRecordStartsTest, tellsAnEscapedQuoteByTheNumberOfBackslashes) {
    const std::string even = R"({"}\\\\":"\\","{":1})";
    const std::string odd = R"({"}\\\"{":"\"","[":"\\\\\"["})";
    EXPECT_EQ(found(even + "\n{}", even + ",{}", 2), (Found{.starts = {1, 2}, .odd = {}}));
    EXPECT_EQ(found(odd + "\n{}", odd + ",{}", 2), (Found{.starts = {1, 2}, .odd = {}}));
}

TEST(PIFRecordStartsTest, findsTwoRecordsOnALine) {
    EXPECT_EQ(found("{},{}\n{}", "{},{},{}", 3), (Found{.starts = {1, 1, 2}, .odd = {1}}));
}

TEST(PIFRecordStartsTest, findsARecordOverTwoLines) {
    EXPECT_EQ(found("{\"a\":[{}\n{}]}\n{}", "{\"a\":[{},{}]},{}", 2),
              (Found{.starts = {1, 3}, .odd = {1, 2}}));
}

TEST(PIFRecordStartsTest, findsLinesBehindTheEndOfTheList) {
    EXPECT_EQ(found("{}\n{}],\"x\":[{}\n{}", "{},{}],\"x\":[{},{}", 2),
              (Found{.starts = {1, 2}, .odd = {2, 3}}));
}

} // namespace

} // namespace Rellinor::Host
