#include "Platform/WipedBuffer.hpp"

#include <algorithm>
#include <utility>

#include <gtest/gtest.h>

#include "Tests/Support/Allocations.hpp"

namespace Rellinor::Tests {

namespace {

WipedBuffer filled(std::size_t size) {
    WipedBuffer buffer(size);
    std::ranges::fill(buffer.bytes(), 's');
    return buffer;
}

TEST(WipedBufferTest, isWipedBeforeItsMemoryIsGivenBack) {
    EXPECT_TRUE(givesBackZeros(1000, [] { (void)filled(1000); }));
}

TEST(WipedBufferTest, isWipedWhenItIsReplaced) {
    WipedBuffer buffer = filled(1000);
    EXPECT_TRUE(givesBackZeros(1000, [&] { buffer = filled(2000); }));
    EXPECT_EQ(buffer.size(), 2000);
}

TEST(WipedBufferTest, keepsItsBytesInPlaceWhenItIsMoved) {
    WipedBuffer buffer = filled(1000);
    const char* const bytes = buffer.bytes().data();
    WipedBuffer moved = std::move(buffer);
    EXPECT_EQ(moved.bytes().data(), bytes);
    EXPECT_EQ(moved.size(), 1000);
}

TEST(WipedBufferTest, mayBeEmpty) {
    EXPECT_EQ(WipedBuffer().size(), 0);
    EXPECT_TRUE(WipedBuffer(0).bytes().empty());
}

} // namespace

} // namespace Rellinor::Tests
