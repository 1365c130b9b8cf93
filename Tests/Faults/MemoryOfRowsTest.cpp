// How much memory a byte of a CSV file takes at most: of rows that are as short as rows can be.

#include <cstddef>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <tuple>

#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <Rellinor/Rellinor.hpp>

#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

/// What of this process lies in the memory of the machine.
std::size_t residentMemory() {
    ::malloc_trim(0);
    std::size_t ofProgram = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> ofProgram >> resident;
    return resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

std::string rowsOf(std::string_view first, std::string_view row) {
    constexpr std::size_t size = std::size_t{4} * 1024 * 1024;

    std::string text(first);
    while (text.size() < size) {
        text += row;
    }
    return text;
}

constexpr std::string_view rows[] = { // NOLINT(*-avoid-c-arrays)
    "x\n", ",x\n", ",,,,\n", "\"\n\"\n", "12345678\n", "x\n12345678\n"};

/// How many bytes of memory a work takes that calls what it is given while it has its records.
std::size_t memoryOf(const std::function<void(const std::function<void()>&)>& work) {
    const std::size_t before = residentMemory();
    std::size_t after = before;
    work([&] { after = residentMemory(); });
    return after - before;
}

class MemoryOfRowsTest : public testing::TestWithParam<std::tuple<ImportSource, std::string_view>> {
};

TEST_P(MemoryOfRowsTest, isNoMoreThan24TimesTheFile) {
    const auto& [source, first] = GetParam();
    for (const std::string_view row : rows) {
        const TemporaryFolder folder;
        const std::string text = rowsOf(first, row);
        const std::string path = folder.file("export.csv", text);
        const std::size_t memory = memoryOf([&](const auto& measure) {
            RecordsImporter().records(URL::fileURLWithPath(path), source,
                                      [&](const RecordsResult& /*result*/) { measure(); });
        });
        EXPECT_LE(memory, 24 * text.size()) << row;
    }
}

TEST(MemoryOfFaithfulRowsTest, isNoMoreThan52TimesTheFile) {
    const TemporaryFolder folder;
    for (const std::string_view first : {"url,username,password\n", "other,url,password\n"}) {
        const std::string text = rowsOf(first, "x\n");
        const std::string path = folder.file("export.csv", text);
        const std::size_t memory = memoryOf([&](const auto& measure) {
            const auto imported = readExport(ExportFile::atPath(path), {.as = Layout::genericCSV});
            measure();
            EXPECT_TRUE(imported.records);
        });
        EXPECT_LE(memory, 52 * text.size()) << first;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Importers, MemoryOfRowsTest,
    testing::Values(
        std::tuple(ImportSource::lastPass, "url,username,password,extra,name,grouping,fav\n"),
        std::tuple(ImportSource::lastPass, "a,b,c,d,e,f,g\n"),
        std::tuple(ImportSource::dashlane, ""),
        std::tuple(ImportSource::keePass, "Account,Login Name,Password,Web Site,Comments\n"),
        std::tuple(ImportSource::keePassXC, "Group,Title,Username,Password,URL,Notes\n")));

} // namespace

} // namespace Rellinor::Tests
