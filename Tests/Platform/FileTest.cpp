#include "Platform/File.hpp"

#include <algorithm>
#include <filesystem>
#include <span>
#include <string>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "Tests/Support/Nobody.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

std::optional<std::string> textAt(const std::string& path) {
    auto contents = readFile(path);
    if (!contents) {
        return std::nullopt;
    }
    const auto bytes = contents->bytes();
    return std::string(bytes.begin(), bytes.end());
}

TEST(FileTest, readsAWholeFile) {
    const TemporaryFolder folder;
    std::string text(3'000'000, 'x');
    text[2'999'999] = 'y';
    EXPECT_EQ(textAt(folder.file("file", text)), text);
}

TEST(FileTest, readsAnEmptyFileAsEmpty) {
    const TemporaryFolder folder;
    EXPECT_EQ(textAt(folder.file("file", "")), "");
}

TEST(FileTest, followsLinks) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink(folder.file("file", "text"), folder / "link");
    EXPECT_EQ(textAt(folder / "link"), "text");
}

TEST(FileTest, readsOnWhenTheFileIsLargerThanItSaid) {
    if (!std::filesystem::exists("/proc/self/stat")) {
        GTEST_SKIP() << "no file here tells a size of zero and holds something";
    }
    const auto text = textAt("/proc/self/stat"); // tells a size of zero
    ASSERT_TRUE(text);
    EXPECT_FALSE(text->empty());
}

TEST(FileTest, isAbsentForAMissingFile) {
    EXPECT_EQ(textAt(TemporaryFolder() / "missing"), std::nullopt);
}

TEST(FileTest, isAbsentForAFolder) {
    EXPECT_EQ(textAt(TemporaryFolder().path()), std::nullopt);
}

TEST(FileTest, isAbsentForADevice) {
    EXPECT_EQ(textAt("/dev/null"), std::nullopt);
    EXPECT_EQ(textAt("/dev/zero"), std::nullopt);
}

TEST(FileTest, isAbsentForAPipeAndDoesNotWaitForItsWriter) {
    const TemporaryFolder folder;
    const std::string path = folder / "pipe";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(textAt(path), std::nullopt);
}

TEST(FileTest, isAbsentForASocket) {
    const TemporaryFolder folder;
    const std::string path = folder / "socket";
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::ranges::copy(path, address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(textAt(path), std::nullopt);
    ::close(socket);
}

TEST(FileTest, isAbsentForADanglingOrLoopingLink) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink(folder / "missing", folder / "dangling");
    std::filesystem::create_symlink(folder / "loop", folder / "loop");
    EXPECT_EQ(textAt(folder / "dangling"), std::nullopt);
    EXPECT_EQ(textAt(folder / "loop"), std::nullopt);
}

TEST(FileTest, isAbsentForAFileThatMayNotBeRead) {
    const TemporaryFolder folder;
    const std::string path = folder.file("file", "text");
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(path, std::filesystem::perms::none);
    EXPECT_EXIT(exitAsNobody([&] { return !textAt(path); }), testing::ExitedWithCode(0), "");
}

TEST(FileTest, doesNotCutAPathAtItsNUL) {
    const TemporaryFolder folder;
    const std::string path = folder.file("file", "text");
    EXPECT_EQ(textAt(path + '\0' + "more"), std::nullopt);
    EXPECT_FALSE(isReadableFile(path + '\0' + "more"));
}

TEST(FileTest, isAbsentForAnEmptyPath) {
    EXPECT_EQ(textAt(""), std::nullopt);
}

TEST(FileTest, tellsTheSizeOfAFileAlone) {
    const TemporaryFolder folder;
    EXPECT_EQ(sizeOfFile(folder.file("file", "text")), 4U);
    EXPECT_EQ(sizeOfFile(folder.file("empty", "")), 0U);
    EXPECT_EQ(sizeOfFile(folder / "missing"), 0U);
    EXPECT_EQ(sizeOfFile(folder.path()), std::nullopt);
    std::filesystem::create_symlink(folder / "file", folder / "link");
    EXPECT_EQ(sizeOfFile(folder / "link"), std::nullopt);
}

TEST(FileTest, readsBytesFromAPositionOn) {
    const TemporaryFolder folder;
    const std::string path = folder.file("file", "abcdef");
    std::string bytes(3, ' ');
    EXPECT_TRUE(readBytes(path, 1, bytes));
    EXPECT_EQ(bytes, "bcd");
    EXPECT_TRUE(readBytes(path, 3, bytes));
    EXPECT_EQ(bytes, "def");
    EXPECT_TRUE(readBytes(path, 5, std::span(bytes).first(1)));
    EXPECT_EQ(bytes, "fef");
    EXPECT_FALSE(readBytes(path, 4, bytes));
    EXPECT_FALSE(readBytes(path, 7, bytes));
    EXPECT_FALSE(readBytes(folder / "missing", 0, bytes));
    EXPECT_FALSE(readBytes(folder.path(), 0, bytes));
}

TEST(FileTest, readsPartsOfAnOpenFile) {
    const TemporaryFolder folder;
    const auto file = OpenFile::at(folder.file("file", "abcdef"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->size(), 6U);
    std::string bytes(4, ' ');
    EXPECT_EQ(file->read(4, bytes), 2U);
    EXPECT_EQ(bytes, "ef  ");
    EXPECT_EQ(file->read(6, bytes), 0U);
    EXPECT_EQ(file->read(std::numeric_limits<std::uint64_t>::max(), bytes), std::nullopt);
    EXPECT_EQ(OpenFile::at(folder / "missing").error(), FileError::missing);
    EXPECT_EQ(OpenFile::at(folder.path()).error(), FileError::notAFile);
}

TEST(FileTest, tellsWhatIsAtAPath) {
    const TemporaryFolder folder;
    EXPECT_EQ(kindOfFile(folder.file("file", "")), FileKind::file);
    std::filesystem::create_symlink(folder.path(), folder / "link");
    EXPECT_EQ(kindOfFile(folder / "link"), FileKind::folder);
    EXPECT_EQ(kindOfFile("/dev/null"), FileKind::other);
    for (const std::string& path :
         {folder / "missing", folder / "file/below", folder / "file" + '\0'}) {
        EXPECT_EQ(kindOfFile(path), std::unexpected(FileError::missing));
    }
}

TEST(FileTest, waitsForNoWriterOfBytes) {
    const TemporaryFolder folder;
    const std::string path = folder / "pipe";
    ASSERT_EQ(::mkfifo(path.c_str(), S_IRUSR | S_IWUSR), 0);
    std::string bytes(3, ' ');
    EXPECT_FALSE(readBytes(path, 0, bytes));
}

TEST(FileTest, isReadableIfItIsThere) {
    const TemporaryFolder folder;
    EXPECT_TRUE(isReadableFile(folder.file("file", "")));
    std::filesystem::create_symlink(folder / "file", folder / "link");
    EXPECT_TRUE(isReadableFile(folder / "link"));
    EXPECT_FALSE(isReadableFile(folder / "missing"));
    std::filesystem::create_symlink(folder / "missing", folder / "dangling");
    EXPECT_FALSE(isReadableFile(folder / "dangling"));
    EXPECT_FALSE(isReadableFile(folder / "file/below"));
    EXPECT_FALSE(isReadableFile(""));
}

TEST(FileTest, isReadableIfItIsAFolder) {
    EXPECT_TRUE(isReadableFile(TemporaryFolder().path().native()));
}

TEST(FileTest, isNotReadableIfItMayNotBeRead) {
    const TemporaryFolder folder;
    const std::string path = folder.file("file", "text");
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(path, std::filesystem::perms::none);
    EXPECT_EXIT(exitAsNobody([&] { return !isReadableFile(path); }), testing::ExitedWithCode(0),
                "");
}

} // namespace

} // namespace Rellinor::Tests
