#include "Private/Memory/ChunkedList.hpp"

#include <vector>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

std::vector<const int*> addressesIn(const ChunkedList<int>& list) {
    std::vector<const int*> addresses;
    list.forEach([&](const int& element) { addresses.push_back(&element); });
    return addresses;
}

TEST(ChunkedListTest, keepsTheOrder) {
    ChunkedList<int> list;
    std::vector<int> expected;
    for (int number = 0; number < 20000; ++number) {
        list.append(number);
        expected.push_back(number);
    }
    std::vector<int> visited;
    list.forEach([&](int element) { visited.push_back(element); });
    EXPECT_EQ(list.size(), expected.size());
    EXPECT_EQ(visited, expected);
    for (const std::size_t index : {0UZ, 1023UZ, 1024UZ, 3071UZ, 3072UZ, 19999UZ}) {
        EXPECT_EQ(list[index], expected[index]);
    }
}

TEST(ChunkedListTest, neverMovesAnElement) {
    ChunkedList<int> list;
    for (int number = 0; number < 50; ++number) {
        list.append(number);
    }
    const auto before = addressesIn(list);
    for (int number = 0; number < 20000; ++number) {
        list.append(number);
    }
    auto after = addressesIn(list);
    after.resize(before.size());
    EXPECT_EQ(after, before);
}

TEST(ChunkedListTest, mayBeEmpty) {
    EXPECT_TRUE(addressesIn({}).empty());
    EXPECT_EQ(ChunkedList<int>().size(), 0);
}

} // namespace

} // namespace Rellinor::Tests
