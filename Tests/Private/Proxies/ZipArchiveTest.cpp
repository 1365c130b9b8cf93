#include "Private/Proxies/ZipArchive.hpp"

#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Zip.hpp"

namespace Rellinor::Tests {

namespace {

using enum FailureReason;

/// The contents of a member, or why there are none; empty if there is no such member.
using Contents = std::variant<std::string, FailureReason>;

constexpr std::uint64_t any = std::numeric_limits<std::uint64_t>::max();

Contents contentsOf(std::string_view archive, std::string_view name, std::uint64_t most = 1 << 30) {
    const std::vector<char> exact(archive.begin(), archive.end());
    auto opened = ZipArchive::opened(ExportFile::inMemory(exact, "a.zip"), any, most);
    if (!opened) {
        return opened.error();
    }
    const auto member = memberNamed(name, opened->members());
    if (!member || *member == nullptr) {
        return member ? Contents("") : Contents(member.error());
    }
    ImportMemory memory;
    const auto bytes = opened->read(**member, memory);
    return bytes ? Contents(std::string(bytes->begin(), bytes->end())) : Contents(bytes.error());
}

/// Packed by hand: one block with fixed codes, "aaaaaaaaaa".
constexpr std::string_view tenLetters("\x4B\x84\x03\x00", 4);

TEST(ZipArchiveTest, readsStoredAndDeflatedMembers) {
    const std::string text(100'000, 'x');
    for (const bool hasSizesInFront : {true, false}) {
        const std::string archive = zipOf(
            {{.name = "files/", .contents = ""},
             {.name = "a", .contents = "stored", .hasSizesInFront = hasSizesInFront},
             {.name = "b",
              .contents = text,
              .isDeflated = true,
              .hasSizesInFront = hasSizesInFront},
             {.name = "c", .contents = "", .isDeflated = true},
             {.name = "d", .contents = "aaaaaaaaaa", .isDeflated = true, .packed = tenLetters}},
            "a comment with PK\5\6 in it");
        EXPECT_EQ(contentsOf(archive, "a"), Contents("stored"));
        EXPECT_EQ(contentsOf(archive, "b"), Contents(text));
        EXPECT_EQ(contentsOf(archive, "c"), Contents(""));
        EXPECT_EQ(contentsOf(archive, "d"), Contents("aaaaaaaaaa"));
        EXPECT_EQ(contentsOf(archive, "e"), Contents(""));
    }
}

TEST(ZipArchiveTest, comparesNamesInAnyFolderAndCase) {
    const std::string archive = zipOf({{.name = "../../etc/EXPORT.data", .contents = "1"},
                                       {.name = "my-other.data", .contents = "2"},
                                       {.name = "x/y/deep.json", .contents = "3"},
                                       {.name = "x/deep.json", .contents = "4"}});
    EXPECT_EQ(contentsOf(archive, "export.data"), Contents("1"));
    EXPECT_EQ(contentsOf(archive, "other.data"), Contents(""));
    EXPECT_EQ(contentsOf(archive, "deep.json"), Contents("4"));
}

TEST(ZipArchiveTest, refusesTwoMembersOfOneName) {
    EXPECT_EQ(contentsOf(zipOf({{.name = "a"}, {.name = "A"}}), "a"), Contents(damaged));
    EXPECT_EQ(contentsOf(zipOf({{.name = "x/a"}, {.name = "y/a"}}), "a"), Contents(damaged));
    const std::vector<ZipFile> many(1000, {.name = "a", .contents = "x"});
    EXPECT_EQ(contentsOf(zipOf(many), "a"), Contents(damaged));
    EXPECT_EQ(
        contentsOf(zipOf({{.name = "b"}, {.name = "b"}, {.name = "a", .contents = "1"}}), "a"),
        Contents("1"));
}

TEST(ZipArchiveTest, refusesWhatItCannotRead) {
    EXPECT_EQ(contentsOf(zipOf({{.name = "a", .isEncrypted = true}}), "a"), Contents(encrypted));
    EXPECT_EQ(contentsOf(zipOf({{.name = "a", .method = 12}}), "a"), Contents(notRead));
    EXPECT_EQ(contentsOf("", "a"), Contents(damaged));

    const std::string whole = zipOf({{.name = "a", .contents = "1"}});
    const std::size_t end = whole.find("PK\5\6");
    for (const auto& [place, value] :
         std::vector<std::pair<std::size_t, std::string>>{{4, zipNumber(1, 2)},
                                                          {6, zipNumber(1, 2)},
                                                          {10, zipNumber(0xFFFF, 2)},
                                                          {12, zipNumber(0xFFFFFFFF, 4)},
                                                          {16, zipNumber(0xFFFFFFFF, 4)}}) {
        std::string archive = whole;
        archive.replace(end + place, value.size(), value);
        EXPECT_EQ(contentsOf(archive, "a"), Contents(notRead)) << place;
    }
    std::string large = whole;
    large.insert(end, "PK\6\7" + std::string(16, '\0'));
    EXPECT_EQ(contentsOf(large, "a"), Contents(notRead));
}

TEST(ZipArchiveTest, refusesWhatContradictsItself) {
    const std::vector<ZipFile> files = {
        {.name = "a", .contents = "12345", .size = 4},
        {.name = "a", .contents = "12345", .size = 6},
        {.name = "a", .contents = "12345", .isDeflated = true, .size = 4},
        {.name = "a", .contents = "12345", .isDeflated = true, .size = 6},
        {.name = "a", .contents = "12345", .isDeflated = true, .size = 0},
        {.name = "a", .contents = "12345", .packedSize = 6},
        {.name = "a", .contents = "12345", .isDeflated = true, .packedSize = 6},
        {.name = "a", .contents = "12345", .packedSize = 0xFFFFFFF0},
        {.name = "a", .contents = "12345", .checksum = 1},
        {.name = "a", .contents = "12345", .begin = 1},
        {.name = "a", .contents = "12345", .begin = 0xFFFFFFF0},
        {.name = "a", .contents = "12345", .nameInFront = "b"},
        {.name = "a", .contents = "12345", .nameInFront = "aa"},
        {.name = "a", .contents = "12345", .isDeflated = true, .packed = "12345"},
        {.name = "a", .contents = "", .isDeflated = true, .packed = ""},
        {.name = "a", .contents = "aaaaaaaaaa", .isDeflated = true, .packed = "\x4B\x84\x03"},
    };
    for (const ZipFile& file : files) {
        EXPECT_EQ(contentsOf(zipOf({file, {.name = "b"}}), "a"), Contents(damaged))
            << &file - files.data();
    }
    std::string otherMethod = zipOf({{.name = "a", .contents = "1"}});
    otherMethod[8] = 8; // in front of the member alone
    EXPECT_EQ(contentsOf(otherMethod, "a"), Contents(damaged));
}

TEST(ZipArchiveTest, refusesMembersThatOverlap) {
    // Two names for one member, and a member whose bytes are others.
    EXPECT_EQ(contentsOf(zipOf({{.name = "a", .contents = "1"}, {.name = "a2", .begin = 0}}), "a"),
              Contents(damaged));
    const std::string inner = zipOf({{.name = "b", .contents = "2"}});
    const std::string quoted = inner.substr(0, inner.find("PK\1\2"));
    const auto within = static_cast<std::uint32_t>(sizeOfZipHeader + 1);
    const std::string archive =
        zipOf({{.name = "a", .contents = quoted}, {.name = "b", .contents = "2", .begin = within}});
    EXPECT_EQ(contentsOf(archive, "a"), Contents(damaged));
}

TEST(ZipArchiveTest, unpacksNoMoreThanTheLimit) {
    const std::string archive =
        zipOf({{.name = "a", .contents = "12345"}, {.name = "b", .contents = "12345"}});
    EXPECT_EQ(contentsOf(archive, "a", 4), Contents(tooLarge));
    auto opened = ZipArchive::opened(ExportFile::inMemory(archive, ""), any, 9);
    ImportMemory memory;
    EXPECT_TRUE(opened->read(opened->members()[0], memory));
    EXPECT_EQ(opened->read(opened->members()[1], memory).error(), tooLarge);
    EXPECT_EQ(ZipArchive::opened(ExportFile::inMemory(archive, ""), 10, any).error(), tooLarge);
}

TEST(ZipArchiveTest, stopsUnpackingABomb) {
    const std::string bomb = deflatedZeros(std::size_t{10} * 1024);
    for (const std::uint32_t size : {0U, 1000U, 1U << 30U, 0xFFFFFFFFU}) {
        const Contents contents = contentsOf(
            zipOf({{.name = "a", .isDeflated = true, .size = size, .packed = bomb}}), "a");
        EXPECT_TRUE(std::holds_alternative<FailureReason>(contents)) << size;
    }
    EXPECT_EQ(
        contentsOf(zipOf({{.name = "a", .isDeflated = true, .size = 1U << 30U, .packed = bomb}}),
                   "a"),
        Contents(refusedForItsCost));
}

TEST(ZipArchiveTest, endsWhereverTheArchiveIsCutOrChanged) {
    const std::string whole = zipOf({{.name = "b", .contents = "bbb", .isDeflated = true},
                                     {.name = "a", .contents = "12345", .isDeflated = true}},
                                    "comment");
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(contentsOf(std::string_view(whole).substr(0, size), "a"), Contents(damaged))
            << size;
    }
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (const char byte : {'\0', '\1', '\x7F', '\xFF'}) {
            std::string changed = whole;
            changed[place] = byte;
            const Contents contents = contentsOf(changed, "a");
            EXPECT_TRUE(std::holds_alternative<FailureReason>(contents) ||
                        contents == Contents("12345") || contents == Contents(""))
                << place;
        }
    }
}

} // namespace

} // namespace Rellinor::Tests
