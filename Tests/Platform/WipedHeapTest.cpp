#include "Platform/WipedHeap.hpp"

#include <cstring>
#include <limits>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

TEST(WipedHeapTest, keepsWhatFitsIntoAnotherPiece) {
    void* memory = reallocateWiped(nullptr, 4);
    std::memcpy(memory, "abcd", 4);
    memory = reallocateWiped(memory, 100'000);
    EXPECT_EQ(std::memcmp(memory, "abcd", 4), 0);
    memory = reallocateWiped(memory, 2);
    EXPECT_EQ(std::memcmp(memory, "ab", 2), 0);
    freeWiped(memory);
    freeWiped(nullptr);
}

TEST(WipedHeapTest, hasNothingForSizesThatDoNotExist) {
    constexpr auto most = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(allocateWiped(most), nullptr);
    void* const memory = allocateWiped(1);
    EXPECT_EQ(reallocateWiped(memory, most - 64), nullptr);
    freeWiped(memory);
}

} // namespace

} // namespace Rellinor::Tests
