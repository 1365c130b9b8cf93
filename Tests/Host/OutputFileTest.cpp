#include "Host/OutputFile.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <ios>
#include <iterator>
#include <string>
#include <vector>

#include <signal.h> // NOLINT(modernize-deprecated-headers): SIGXFSZ is POSIX
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "Tests/Support/Descriptors.hpp"
#include "Tests/Support/Limits.hpp"
#include "Tests/Support/NoUnnamedFiles.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Host {

namespace {

using Tests::contentsOf;
using Tests::FileSizeLimit;
using Tests::Umask;

constexpr std::size_t mebibyte = std::size_t{1} << 20U;

/// The message of the failure of `work`; empty if it does not fail.
std::string failureOf(const auto& work) {
    try {
        work();
    } catch (const OutputError& error) {
        return error.what();
    }
    return "";
}

/// The rights of a file, nine bits of them and those of special programs.
mode_t modeOf(const std::filesystem::path& file) {
    struct stat status{};
    return ::lstat(file.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

/// Whether the C library keeps a signal to itself.
bool isOfCLibrary(int signal) {
    return signal > SIGSYS && signal < SIGRTMIN;
}

/// On a system that has files without names, and on one that has none.
class OutputFileTest : public testing::TestWithParam<bool> {
protected:
    OutputFileTest() : _noUnnamed(!GetParam()) {}

    [[nodiscard]] const Tests::TemporaryFolder& folder() const { return _folder; }

    [[nodiscard]] std::string path() const { return _folder / "out"; }

    /// What the folder holds.
    [[nodiscard]] std::vector<std::filesystem::path> entries() const {
        std::vector<std::filesystem::path> entries;
        for (const auto& entry : std::filesystem::directory_iterator(_folder.path())) {
            entries.push_back(entry.path());
        }
        return entries;
    }

    void write(const std::string& text, Existing existing = Existing::kept) const {
        OutputFile file(path(), existing);
        file.stream() << text;
        file.commit();
    }

    /// Nothing can be opened in the place of `path`.
    static std::string refusalOf(const std::string& path, Existing existing) {
        return failureOf([&] { const OutputFile file(path, existing); });
    }

    /// The file or link at `path` is kept.
    void expectKept(const std::string& path) const {
        const std::size_t count = entries().size();
        EXPECT_EQ(refusalOf(path, Existing::kept), path + ": exists already; --force replaces it");
        EXPECT_EQ(entries().size(), count);
    }

    /// What is at `path` is kept in any case.
    void expectNotReplaced(const std::string& path) const {
        const std::size_t count = entries().size();
        for (const Existing existing : {Existing::kept, Existing::replaced}) {
            EXPECT_EQ(refusalOf(path, existing), path + ": exists already and is not a file");
        }
        EXPECT_EQ(entries().size(), count);
    }

    /// The signal that ends a process which has written half of a file, if it gets these at once.
    [[nodiscard]] int endOf(std::initializer_list<int> signals) const {
        std::array<int, 2> ready{};
        EXPECT_EQ(::pipe(ready.data()), 0);
        const pid_t process = ::fork();
        if (process == 0) {
            stopHalfWay(ready[1]);
        }
        ::close(ready[1]);
        char byte = 0;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
        for (const int signal : signals) {
            ::kill(process, signal);
        }
        int status = 0;
        EXPECT_EQ(::waitpid(process, &status, 0), process);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    /// Writes half of a file, says so, and waits for a signal.
    [[noreturn]] void stopHalfWay(int ready) const {
        const rlimit none{};
        ::setrlimit(RLIMIT_CORE, &none);
        for (int signal = 1; signal < NSIG; ++signal) {
            ::signal(signal, SIG_DFL); // some may be ignored, or a sanitizer's
        }
        OutputFile file(path(), Existing::kept);
        file.stream() << "half";
        file.stream().flush();
        if (::write(ready, "", 1) == 1) {
            for (;;) {
                ::pause();
            }
        }
        ::_exit(1);
    }

    Tests::TemporaryFolder _folder;
    Tests::NoUnnamedFiles _noUnnamed;
};

INSTANTIATE_TEST_SUITE_P(Each, OutputFileTest, testing::Bool(), [](const auto& test) {
    return std::string(test.param ? "withoutAName" : "underAnotherName");
});

// Writing

TEST_P(OutputFileTest, holdsWhatWasWritten) {
    write("one\ntwo\n");
    EXPECT_EQ(contentsOf(path()), "one\ntwo\n");
    EXPECT_EQ(entries().size(), 1);
}

TEST_P(OutputFileTest, mayBeEmpty) {
    write("");
    EXPECT_EQ(contentsOf(path()), "");
}

TEST_P(OutputFileTest, holdsALongTextInPiecesOfAnySize) {
    std::string expected;
    OutputFile file(path(), Existing::kept);
    for (std::size_t size = 1; expected.size() < mebibyte; size = size * 3 % 70001) {
        const std::string piece(size, static_cast<char>('a' + (size % 26)));
        file.stream() << piece;
        file.stream().put('\n');
        expected += piece + '\n';
    }
    file.stream().flush() << "end";
    file.commit();
    EXPECT_TRUE(contentsOf(path()) == expected + "end");
}

TEST_P(OutputFileTest, isForItsOwnerAlone) {
    for (const mode_t mask : {0000U, 0022U, 0077U}) {
        const Umask umask(mask);
        write("secret", Existing::replaced);
        EXPECT_EQ(modeOf(path()), 0600U) << mask;
    }
}

TEST_P(OutputFileTest, isForItsOwnerAloneFromTheBeginning) {
    const Umask umask(0000);
    OutputFile file(path(), Existing::kept);
    file.stream() << "secret";
    file.stream().flush();
    for (const std::filesystem::path& entry : entries()) { // none if it has no name
        EXPECT_EQ(contentsOf(entry), "secret");
        EXPECT_EQ(modeOf(entry), 0600U);
    }
}

TEST_P(OutputFileTest, isNotWholeIfItsStreamFailed) {
    {
        OutputFile file(path(), Existing::kept);
        file.stream().setstate(std::ios::badbit);
        EXPECT_NE(failureOf([&] { file.commit(); }), "");
    }
    EXPECT_TRUE(entries().empty());
}

TEST_P(OutputFileTest, hasItsNameOnlyWhenItIsWhole) {
    OutputFile file(path(), Existing::kept);
    file.stream() << std::string(mebibyte, 'a');
    file.stream().flush();
    EXPECT_FALSE(std::filesystem::exists(path()));
    file.commit();
    EXPECT_EQ(std::filesystem::file_size(path()), mebibyte);
}

TEST_P(OutputFileTest, leavesNothingBehindUnlessCommitted) {
    const std::size_t descriptors = Tests::openDescriptors();
    {
        OutputFile file(path(), Existing::kept);
        file.stream() << "secret";
        file.stream().flush();
        EXPECT_EQ(Tests::openDescriptors(), descriptors + 1);
    }
    EXPECT_TRUE(entries().empty());
    EXPECT_EQ(Tests::openDescriptors(), descriptors);
}

TEST_P(OutputFileTest, closesItsDescriptor) {
    const std::size_t descriptors = Tests::openDescriptors();
    OutputFile file(path(), Existing::kept);
    file.commit();
    EXPECT_EQ(Tests::openDescriptors(), descriptors);
}

TEST_P(OutputFileTest, mayStandInTheCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder().path());
    const std::string failure = failureOf([] {
        OutputFile file("out", Existing::kept);
        file.stream() << "text";
        file.commit();
    });
    std::filesystem::current_path(before);
    EXPECT_EQ(failure, "");
    EXPECT_EQ(contentsOf(path()), "text");
    EXPECT_EQ(entries().size(), 1);
}

TEST_P(OutputFileTest, mayHaveTheLongestName) {
    const std::string name(255, 'n');
    OutputFile file(folder() / name, Existing::kept);
    file.commit();
    EXPECT_TRUE(std::filesystem::exists(folder() / name));
}

// What ends the process

TEST_P(OutputFileTest, leavesNothingBehindWhicheverSignalEndsTheProcess) {
    constexpr int others[] = {SIGKILL, SIGCHLD, SIGCONT, SIGSTOP, SIGTSTP,
                              SIGTTIN, SIGTTOU, SIGURG,  SIGWINCH};
    for (int signal = 1; signal <= SIGRTMAX; ++signal) {
        if (std::ranges::find(others, signal) == std::end(others) && !isOfCLibrary(signal)) {
            EXPECT_EQ(endOf({signal}), signal);
            EXPECT_TRUE(entries().empty()) << signal;
        }
    }
}

TEST_P(OutputFileTest, leavesNothingBehindIfASecondSignalComesWhileTheFirstIsHandled) {
    const int times = GetParam() ? 1 : 50; // without a name there is nothing to leave behind
    for (int time = 0; time < times; ++time) {
        EXPECT_NE(endOf({SIGTERM, SIGTERM}), 0);
        EXPECT_NE(endOf({SIGINT, SIGUSR1, SIGINT}), 0);
        ASSERT_TRUE(entries().empty()) << time;
    }
}

TEST_P(OutputFileTest, thatHasNoNameIsNotLeftBehindByWhatCannotBeCaught) {
    EXPECT_EQ(endOf({SIGKILL}), SIGKILL);
    EXPECT_EQ(entries().size(), GetParam() ? 0 : 1);
}

// What exists. A pipe stands for every device: a test that fails must not cost root a real one.

TEST_P(OutputFileTest, keepsAFileOrLink) {
    expectKept(folder().file("file", "old"));
    EXPECT_EQ(contentsOf(folder() / "file"), "old");

    std::filesystem::create_symlink(folder() / "file", folder() / "link");
    expectKept(folder() / "link");

    std::filesystem::create_symlink(folder() / "nowhere", folder() / "dangling");
    expectKept(folder() / "dangling");
    EXPECT_FALSE(std::filesystem::exists(folder() / "nowhere"));
}

TEST_P(OutputFileTest, keepsWhateverCameMeanwhile) {
    const std::string message = path() + ": exists already; --force replaces it";
    {
        OutputFile file(path(), Existing::kept);
        file.stream() << "new";
        static_cast<void>(folder().file("out", "meanwhile"));
        EXPECT_EQ(failureOf([&] { file.commit(); }), message);
    }
    EXPECT_EQ(contentsOf(path()), "meanwhile");
    EXPECT_EQ(entries().size(), 1);
    std::filesystem::remove(path());
    {
        OutputFile file(path(), Existing::kept);
        file.stream() << "new";
        std::filesystem::create_symlink(folder() / "nowhere", path());
        EXPECT_EQ(failureOf([&] { file.commit(); }), message);
    }
    EXPECT_TRUE(std::filesystem::is_symlink(path()));
    EXPECT_EQ(entries().size(), 1);
}

TEST_P(OutputFileTest, replacesAFileWhole) {
    static_cast<void>(folder().file("out", "old and longer"));
    std::filesystem::permissions(path(), std::filesystem::perms::all);
    {
        OutputFile file(path(), Existing::replaced);
        file.stream() << "new";
        file.stream().flush();
        EXPECT_EQ(contentsOf(path()), "old and longer");
        file.commit();
    }
    EXPECT_EQ(contentsOf(path()), "new");
    EXPECT_EQ(modeOf(path()), 0600U);
    EXPECT_EQ(entries().size(), 1);
}

TEST_P(OutputFileTest, replacesNothingUnlessCommitted) {
    static_cast<void>(folder().file("out", "old"));
    {
        OutputFile file(path(), Existing::replaced);
        file.stream() << "new";
    }
    EXPECT_EQ(contentsOf(path()), "old");
    EXPECT_EQ(entries().size(), 1);
}

TEST_P(OutputFileTest, replacesALinkAndDoesNotFollowIt) {
    static_cast<void>(folder().file("target", "old"));
    for (const std::string target : {"target", "nowhere"}) {
        std::filesystem::remove(path());
        std::filesystem::create_symlink(folder() / target, path());
        write("new", Existing::replaced);
        EXPECT_FALSE(std::filesystem::is_symlink(path())) << target;
        EXPECT_EQ(contentsOf(path()), "new") << target;
    }
    EXPECT_EQ(contentsOf(folder() / "target"), "old");
    EXPECT_FALSE(std::filesystem::exists(folder() / "nowhere"));
}

TEST_P(OutputFileTest, keepsWhateverElseExists) {
    std::filesystem::create_directory(folder() / "folder");
    expectNotReplaced(folder() / "folder");
    expectNotReplaced(folder() / "folder/");
    expectNotReplaced(folder() / ".");

    ASSERT_EQ(::mkfifo((folder() / "pipe").c_str(), 0600), 0);
    expectNotReplaced(folder() / "pipe");
}

TEST_P(OutputFileTest, keepsALinkToWhateverElseExists) {
    std::filesystem::create_directory(folder() / "folder");
    ASSERT_EQ(::mkfifo((folder() / "pipe").c_str(), 0600), 0);
    for (const std::string target : {"folder", "pipe"}) {
        const std::string link = folder() / ("to-" + target);
        std::filesystem::create_symlink(folder() / target, link);
        expectNotReplaced(link);
        std::filesystem::create_symlink(link, folder() / ("to-to-" + target));
        expectNotReplaced(folder() / ("to-to-" + target));
        EXPECT_TRUE(std::filesystem::is_symlink(link));
    }
}

TEST_P(OutputFileTest, doesNotReplaceAFolderThatCameMeanwhile) {
    {
        OutputFile file(path(), Existing::replaced);
        std::filesystem::create_directory(path());
        EXPECT_TRUE(
            failureOf([&] { file.commit(); }).starts_with(path() + ": cannot be written: "));
    }
    EXPECT_TRUE(std::filesystem::is_directory(path()));
    EXPECT_EQ(entries().size(), 1);
}

// What cannot be written

TEST_P(OutputFileTest, saysAtOnceThatAFolderCannotBeWrittenTo) {
    static_cast<void>(folder().file("file", ""));
    for (const std::string& path :
         {folder() / "missing/out", folder() / "missing/", folder() / "file/out",
          folder() / std::string(256, 'n'), std::string()}) {
        for (const Existing existing : {Existing::kept, Existing::replaced}) {
            EXPECT_TRUE(refusalOf(path, existing).starts_with(path + ": cannot be written: "))
                << path;
        }
    }
    EXPECT_EQ(entries().size(), 1);
}

/// On a disk that is full after 100 KiB. (What the system says of a limit is not what it says of a
/// full disk.)
class OutputFileOnAFullDiskTest : public OutputFileTest {
protected:
    OutputFileOnAFullDiskTest() : _signal(::signal(SIGXFSZ, SIG_IGN)) {}

    ~OutputFileOnAFullDiskTest() override { ::signal(SIGXFSZ, _signal); }

    OutputFileOnAFullDiskTest(const OutputFileOnAFullDiskTest&) = delete;
    OutputFileOnAFullDiskTest& operator=(const OutputFileOnAFullDiskTest&) = delete;

    [[nodiscard]] std::string failureOfWriting(std::size_t size, Existing existing) const {
        const FileSizeLimit limit(std::size_t{100} << 10U);
        return failureOf([&] { write(std::string(size, 'a'), existing); });
    }

private:
    void (*_signal)(int);
};

INSTANTIATE_TEST_SUITE_P(Each, OutputFileOnAFullDiskTest, testing::Bool());

TEST_P(OutputFileOnAFullDiskTest, holdsWhatFits) {
    EXPECT_EQ(failureOfWriting(std::size_t{100} << 10U, Existing::kept), "");
    EXPECT_EQ(std::filesystem::file_size(path()), std::size_t{100} << 10U);
}

TEST_P(OutputFileOnAFullDiskTest, leavesNothingOfWhatDoesNotFit) {
    const std::size_t descriptors = Tests::openDescriptors();
    // One byte too many, which shows at the end; and so many that it shows on the way.
    for (const std::size_t size : {(std::size_t{100} << 10U) + 1, mebibyte}) {
        EXPECT_EQ(failureOfWriting(size, Existing::kept),
                  path() + ": cannot be written: File too large");
        EXPECT_TRUE(entries().empty());
    }
    EXPECT_EQ(Tests::openDescriptors(), descriptors);
}

TEST_P(OutputFileOnAFullDiskTest, keepsWhatWasToBeReplaced) {
    static_cast<void>(folder().file("out", "old"));
    EXPECT_NE(failureOfWriting(mebibyte, Existing::replaced), "");
    EXPECT_EQ(contentsOf(path()), "old");
    EXPECT_EQ(entries().size(), 1);
}

TEST_P(OutputFileOnAFullDiskTest, doesNotGoOnAfterAFailure) {
    OutputFile file(path(), Existing::kept);
    {
        const FileSizeLimit limit(1);
        file.stream() << "secret";
        file.stream().flush();
        EXPECT_TRUE(file.stream().bad());
    }
    file.stream().clear();
    file.stream() << "the rest";
    EXPECT_NE(failureOf([&] { file.commit(); }), "");
    EXPECT_FALSE(std::filesystem::exists(path()));
}

} // namespace

} // namespace Rellinor::Host
