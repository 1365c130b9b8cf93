#include "Platform/WipedBuffer.hpp"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include <Rellinor/ExportReader.hpp>
#include <gtest/gtest.h>

#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

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

#if defined(__linux__)
/// Whether the page at an address is left out of memory dumps.
bool isLeftOutOfDumps(const char* address) {
    std::ifstream file("/proc/self/smaps");
    bool isThere = false;
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
        char dash = ' ';
        if (words >> std::hex >> begin >> dash >> end && dash == '-') {
            const auto place = reinterpret_cast<std::uintptr_t>(address); // NOLINT(*-cast)
            isThere = begin <= place && place < end;
        } else if (isThere && line.starts_with("VmFlags:")) {
            return line.contains(" dd");
        }
    }
    return false;
}

TEST(WipedBufferTest, isLeftOutOfMemoryDumpsUnlessItIsSmall) {
    if (!std::filesystem::exists("/proc/self/smaps")) {
        GTEST_SKIP() << "nothing here tells what is dumped";
    }
    for (const std::size_t size : {ownPagesSize, ownPagesSize + 1, std::size_t{3'000'001}}) {
        const char* address = nullptr;
        {
            const WipedBuffer other(size); // which may stand beside it
            WipedBuffer buffer = filled(size);
            address = buffer.bytes().data();
            EXPECT_TRUE(isLeftOutOfDumps(address)) << size;
            EXPECT_TRUE(isLeftOutOfDumps(address + size - 1)) << size;
        }
        EXPECT_FALSE(isLeftOutOfDumps(address)) << size;
    }
}

TEST(WipedBufferTest, keepsTheTextsOfALargeImportOutOfMemoryDumps) {
    std::string rows = "url,username,password,extra,name,grouping,fav\n";
    for (int row = 0; row < 2000; ++row) {
        rows += "https://a.example,somebody,\"something \"\" secret\",,Somewhere,,0\n";
    }
    const TemporaryFolder folder;
    const ImportedExport imported = readExport(ExportFile::atPath(folder.file("export.csv", rows)),
                                               {.as = Layout::lastPassCSV});
    ASSERT_EQ(imported.records->passwords.size(), 2000);
    for (const std::size_t number : {0U, 1000U, 1999U}) {
        const std::string_view password = imported.records->passwords[number]->password();
        EXPECT_EQ(password, "something \" secret");
        EXPECT_TRUE(isLeftOutOfDumps(password.data())) << number;
    }
}
#endif

TEST(WipedBufferTest, mayBeEmpty) {
    EXPECT_EQ(WipedBuffer().size(), 0);
    EXPECT_TRUE(WipedBuffer(0).bytes().empty());
}

} // namespace

} // namespace Rellinor::Tests
