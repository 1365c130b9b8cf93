#include "Host/Obstacle.hpp"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Tests/Support/Nobody.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Host {

namespace {

TEST(ObstacleTest, isNoneToAFileOrFolder) {
    const Tests::TemporaryFolder folder;
    EXPECT_EQ(obstacle(folder.path()), "");
    EXPECT_EQ(obstacle(folder.file("file", "")), "");
}

TEST(ObstacleTest, isThatNothingIsThere) {
    const Tests::TemporaryFolder folder;
    const std::string expected = "there is no such file or folder";
    EXPECT_EQ(obstacle(folder / "missing"), expected);
    EXPECT_EQ(obstacle(""), expected);
    EXPECT_EQ(obstacle(folder.file("file", "") + "/below"), expected);
    EXPECT_EQ(obstacle((folder / "file") + '\0'), expected);
}

TEST(ObstacleTest, isALinkThatLeadsNowhere) {
    const Tests::TemporaryFolder folder;
    std::filesystem::create_symlink(folder / "missing", folder / "dangling");
    EXPECT_EQ(obstacle(folder / "dangling"), "it is a link that leads nowhere");
}

TEST(ObstacleTest, isAPipe) {
    const Tests::TemporaryFolder folder;
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(obstacle(pipe), "it is a pipe: save what comes out of it as a file first");
}

TEST(ObstacleTest, isThatItIsNeitherAFileNorAFolder) {
    EXPECT_EQ(obstacle("/dev/null"), "it is neither a file nor a folder");
}

TEST(ObstacleTest, isThatItCannotBeLookedAt) {
    const Tests::TemporaryFolder folder;
    const std::string expected = "it cannot be looked at";
    EXPECT_EQ(obstacle(folder / std::string(256, 'n')), expected); // longer than any name
    std::filesystem::create_symlink(folder / "loop", folder / "loop");
    EXPECT_EQ(obstacle(folder / "loop"), expected);
}

TEST(ObstacleTest, isThatAFileMayNotBeRead) {
    const Tests::TemporaryFolder folder;
    const std::string path = folder.file("closed", "text");
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(path, std::filesystem::perms::none);
    const std::string expected = "it may not be read: look at its permissions";
    const auto isTold = [&] {
        return obstacle(path) == expected && obstacle(path, ImportSource::lastPass) == expected;
    };
    EXPECT_EXIT(Tests::exitAsNobody(isTold), testing::ExitedWithCode(0), "");
}

TEST(ObstacleTest, isAFolderToWhatReadsAFile) {
    const Tests::TemporaryFolder folder;
    EXPECT_EQ(obstacle(folder.path(), ImportSource::chrome),
              "it is a folder, and chrome reads a file");
    EXPECT_EQ(obstacle(folder.path(), ImportSource::firefox), "");
}

TEST(ObstacleTest, isAFileToWhatReadsAProfileFolder) {
    const Tests::TemporaryFolder folder;
    const std::string path = folder.file("file", "");
    EXPECT_EQ(obstacle(path, ImportSource::firefox),
              "it is a file, and firefox reads a profile folder");
    EXPECT_EQ(obstacle(path, ImportSource::chrome), "");
}

} // namespace

} // namespace Rellinor::Host
