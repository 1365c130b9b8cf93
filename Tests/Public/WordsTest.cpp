// The words and names of all codes: a host shows the ones, and machines compare the others.

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include <Rellinor/ExportReader.hpp>
#include <gtest/gtest.h>

namespace Rellinor {

namespace {

constexpr std::uint64_t everyNumber = 255; // and more than there are of any code

/// Whether a machine takes a text for one word.
bool isName(std::string_view text) {
    return text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                  "0123456789-") == std::string_view::npos;
}

/// The numbers that have a name. Expects no name twice.
template <typename Code>
std::set<std::uint64_t> named() {
    std::set<std::uint64_t> numbers;
    std::set<std::string_view> names;
    for (std::uint64_t number = 0; number <= everyNumber; ++number) {
        const std::string_view name = identifier(static_cast<Code>(number));
        if (!name.empty()) {
            EXPECT_TRUE(isName(name)) << name;
            EXPECT_TRUE(names.insert(name).second) << name;
            numbers.insert(number);
        }
    }
    return numbers;
}

/// The numbers that have a sentence. Expects no sentence twice.
template <typename Code>
std::set<std::uint64_t> described() {
    std::set<std::uint64_t> numbers;
    std::set<std::string_view> sentences;
    for (std::uint64_t number = 0; number <= everyNumber; ++number) {
        const std::string_view sentence = description(static_cast<Code>(number));
        if (!sentence.empty()) {
            EXPECT_TRUE(sentence.front() >= 'A' && sentence.front() <= 'Z') << sentence;
            EXPECT_TRUE(sentence.ends_with('.')) << sentence;
            EXPECT_TRUE(sentences.insert(sentence).second) << sentence;
            numbers.insert(number);
        }
    }
    return numbers;
}

/// The numbers from one to another.
std::set<std::uint64_t> numbers(std::uint64_t first, std::uint64_t last) {
    std::set<std::uint64_t> numbers;
    for (std::uint64_t number = first; number <= last; ++number) {
        numbers.insert(number);
    }
    return numbers;
}

TEST(Words, thereAreSomeForEachCodeAndNoneForAnotherNumber) {
    EXPECT_EQ(named<FailureReason>(), numbers(0, 24));
    EXPECT_EQ(described<FailureReason>(), numbers(0, 24));
    EXPECT_EQ(named<LeftOutReason>(), numbers(1, 9));
    EXPECT_EQ(described<LeftOutReason>(), numbers(1, 9));
    EXPECT_EQ(named<FindingKind>(), numbers(1, 23));
    EXPECT_EQ(described<FindingKind>(), numbers(1, 23));
    EXPECT_EQ(named<PlaceUnit>(), numbers(0, 2));
    EXPECT_EQ(named<ExtraKind>(), numbers(1, 15));
    EXPECT_EQ(named<ImportSource>(), numbers(0, 7));
    EXPECT_EQ(named<Layout>().size(), allLayouts().size());
}

} // namespace

} // namespace Rellinor
