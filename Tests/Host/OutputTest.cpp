// The host tool's output files.

#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "Tests/Host/Tool.hpp"
#include "Tests/Support/Limits.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

class OutputTest : public testing::Test {
protected:
    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

    /// A LastPass export of one login and one note.
    [[nodiscard]] const std::string& source() const { return _source; }

    [[nodiscard]] std::string output() const { return _outputs / "out"; }

    /// How many files there are where the output belongs.
    [[nodiscard]] std::ptrdiff_t countOfOutputs() const {
        return std::distance(std::filesystem::directory_iterator(_outputs.path()), {});
    }

    /// A pipe, which stands for every device: a test that fails must not cost root a real one.
    [[nodiscard]] std::string pipe() const {
        std::string path = _folder / "pipe";
        ::mkfifo(path.c_str(), 0600);
        return path;
    }

    /// Imports from LastPass, with more arguments.
    static Ended imported(const std::vector<std::string>& more) {
        std::vector<std::string> arguments = {"import", "--source", "lastPass"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return rellinor(std::move(arguments));
    }

    /// The output is refused with this message, and nothing is imported.
    static void expectRefused(const std::string& output, const std::string& message,
                              const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = {"--output", output, "/nowhere/missing.csv"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Ended ended = imported(arguments);
        EXPECT_EQ(ended.status, 2) << output;
        EXPECT_EQ(ended.out, "") << output;
        EXPECT_EQ(ended.errors, "rellinor: " + output + ": " + message + "\n");
    }

private:
    TemporaryFolder _folder;
    TemporaryFolder _outputs;
    std::string _source =
        _folder.file("export.csv", lastPassRows("https://a.example,ann,s3cret,,Mail,,0\n"
                                                "http://sn,,,\"two\nlines\",Wi-Fi,,0\n"));
};

TEST_F(OutputTest, takesWhatWouldBeShown) {
    for (const std::string format : {"summary", "table", "json", "tirel"}) {
        const Ended shown = imported({"--format", format, source()});
        const Ended written =
            imported({"--format", format, "--output", output(), "--force", source()});
        EXPECT_EQ(written.status, 0) << format;
        EXPECT_EQ(written.out, "") << format;
        EXPECT_EQ(written.errors, "") << format;
        EXPECT_EQ(contentsOf(output()), shown.out) << format;
        EXPECT_EQ(countOfOutputs(), 1) << format;
        EXPECT_EQ(shown.out.contains("s3cret"), format == "tirel") << format;
    }
}

TEST_F(OutputTest, masksSecretsInAFileToo) {
    EXPECT_EQ(imported({"--format", "json", "--output", output(), source()}).status, 0);
    EXPECT_FALSE(contentsOf(output()).contains("s3cret"));
    EXPECT_EQ(imported({"--format", "json", "--reveal", "--output", output(), "--force", source()})
                  .status,
              0);
    EXPECT_TRUE(contentsOf(output()).contains("s3cret"));
}

TEST_F(OutputTest, isForItsOwnerAlone) {
    for (const mode_t mask : {0000U, 0077U}) {
        const Umask umask(mask);
        EXPECT_EQ(imported({"--output", output(), "--force", source()}).status, 0);
        struct stat status{};
        ASSERT_EQ(::stat(output().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0600U) << mask;
    }
}

TEST_F(OutputTest, isWrittenEvenIfAPathFails) {
    const Ended ended = imported(
        {"--format", "json", "--output", output(), source(), folder() / "missing", source()});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(linesIn(ended.errors), 1);
    EXPECT_EQ(linesIn(contentsOf(output())), 3);
}

TEST_F(OutputTest, isRefusedBeforeTheImportIfItExists) {
    const std::string old = folder().file("old", "old");
    expectRefused(old, "exists already; --force replaces it");
    EXPECT_EQ(contentsOf(old), "old");
    std::filesystem::create_symlink(folder() / "nowhere", folder() / "dangling");
    expectRefused(folder() / "dangling", "exists already; --force replaces it");
    EXPECT_FALSE(std::filesystem::exists(folder() / "nowhere"));
}

TEST_F(OutputTest, isReplacedByForce) {
    const std::string old = folder().file("old", "old");
    EXPECT_EQ(imported({"--output", old, "--force", source()}).status, 0);
    EXPECT_EQ(contentsOf(old), source() + ": 1 password, 1 note, 0 cards\n");
}

TEST_F(OutputTest, doesNotReplaceAFolderOrAPipe) {
    for (const std::string& output : {folder().path().string(), pipe()}) {
        expectRefused(output, "exists already and is not a file");
        expectRefused(output, "exists already and is not a file", {"--force"});
    }
    EXPECT_TRUE(std::filesystem::is_fifo(pipe()));
}

TEST_F(OutputTest, doesNotReplaceALinkToAPipe) {
    const std::string link = folder() / "link";
    std::filesystem::create_symlink(pipe(), link);
    expectRefused(link, "exists already and is not a file");
    expectRefused(link, "exists already and is not a file", {"--force"});
    EXPECT_TRUE(std::filesystem::is_symlink(link));
}

TEST_F(OutputTest, mayReplaceItsSource) {
    EXPECT_EQ(imported({"--format", "tirel", "--output", source(), "--force", source()}).status, 0);
    EXPECT_TRUE(contentsOf(source()).starts_with("{\"logins\":[{"));
}

TEST_F(OutputTest, isRefusedBeforeTheImportIfItCannotBeWritten) {
    expectRefused(folder() / "missing/out", "cannot be written: No such file or directory");
    expectRefused(source() + "/out", "cannot be written: Not a directory");
    expectRefused("", "cannot be written: No such file or directory");
}

TEST_F(OutputTest, leavesNothingBehindOnAFullDisk) {
    const std::string large =
        folder().file("large.csv", lastPassRows("http://sn,,," + std::string(50000, 'x') +
                                                ",a long note that is not to be seen,,0\n"));
    for (const std::string format : {"json", "tirel"}) {
        const FileSizeLimit limit(4096);
        const Ended ended = imported({"--format", format, "--output", output(), large});
        EXPECT_EQ(ended.status, 2) << format;
        EXPECT_EQ(ended.out, "") << format;
        EXPECT_EQ(ended.errors, "rellinor: " + output() + ": cannot be written: File too large\n");
        EXPECT_EQ(countOfOutputs(), 0) << format;
    }
}

TEST_F(OutputTest, isNamedOnOneLine) {
    const Ended ended = imported({"--output", folder() / "a\nb\x1B/out", source()});
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(linesIn(ended.errors), 1);
    EXPECT_TRUE(ended.errors.contains("a␊b␛")) << ended.errors;
}

TEST_F(OutputTest, needsAName) {
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"--force", source()},
             {source(), "--output"},
             {"--output", output(), "--output", output(), source()}}) {
        const Ended ended = imported(arguments);
        EXPECT_EQ(ended.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(ended.out, "") << testing::PrintToString(arguments);
        EXPECT_EQ(linesIn(ended.errors), 1) << ended.errors;
        EXPECT_EQ(countOfOutputs(), 0) << testing::PrintToString(arguments);
    }
}

} // namespace

} // namespace Rellinor::Tests
