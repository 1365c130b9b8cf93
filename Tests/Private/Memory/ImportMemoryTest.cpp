#include "Private/Memory/ImportMemory.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Allocations.hpp"

namespace Rellinor::Tests {

namespace {

TEST(ImportMemoryTest, keepsCopiesOfTextsInPlace) {
    ImportMemory memory;
    std::vector<std::string> texts;
    std::vector<std::string_view> copies;
    for (std::size_t size = 0; size < 2000; ++size) {
        texts.emplace_back(size * 7 % 1500, static_cast<char>('a' + size % 26));
        copies.push_back(memory.copy(texts.back()));
    }
    EXPECT_TRUE(std::ranges::equal(texts, copies));
}

TEST(ImportMemoryTest, givesExactlyAsManyBytesAsAsked) {
    ImportMemory memory;
    for (const std::size_t size : {0U, 1U, 1023U, 1024U, 1025U, 4096U, 4097U, 1'000'000U}) {
        EXPECT_EQ(memory.allocate(size).size(), size);
    }
}

TEST(ImportMemoryTest, copiesAnEmptyText) {
    ImportMemory memory;
    EXPECT_EQ(memory.copy(""), "");
}

TEST(ImportMemoryTest, sharesChunksBetweenSmallPieces) {
    ImportMemory memory;
    EXPECT_LT(allocationsOf([&] {
                  for (int count = 0; count < 100'000; ++count) {
                      (void)memory.copy("about twenty letters");
                  }
              }),
              40);
}

TEST(ImportMemoryTest, doesNotLoseTheRestOfASharedChunkToALargePiece) {
    ImportMemory memory;
    const char* const first = memory.copy("first").data();
    EXPECT_EQ(memory.allocate(1'000'000).size(), 1'000'000);
    EXPECT_EQ(memory.copy("second").data(), first + 5);
}

TEST(ImportMemoryTest, isWipedBeforeItIsGivenBack) {
    std::optional<ImportMemory> memory(std::in_place);
    std::ranges::fill(memory->allocate(1000), 's'); // in a shared chunk
    EXPECT_TRUE(givesBackZeros(4096, [&] { memory.reset(); }));

    memory.emplace();
    std::ranges::fill(memory->allocate(5000), 's'); // in one of its own
    EXPECT_TRUE(givesBackZeros(5000, [&] { memory.reset(); }));
}

} // namespace

} // namespace Rellinor::Tests
