// What a path may lead to besides a file.

#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h> // NOLINT(modernize-deprecated-headers): SIGIO is POSIX
#include <stdlib.h> // NOLINT(modernize-deprecated-headers): so are terminals
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <Rellinor/ExportReader.hpp>

#include "Tests/Support/Exports.hpp"
#include "Tests/Support/OtherProcess.hpp"

namespace Rellinor::Tests {

namespace {

namespace fs = std::filesystem;

/// Makes a socket with a name.
void makeSocket(const std::string& path) {
    ::sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const int result =
        ::bind(socket, reinterpret_cast<const ::sockaddr*>(&address), sizeof address);
    ::close(socket);
    if (result != 0) {
        throw std::runtime_error("no socket");
    }
}

/// A place that is read as a file of the export, or the folder around it.
class PathsTest : public testing::TestWithParam<Export> {
protected:
    [[nodiscard]] std::string file() const { return GetParam().fileIn(_folder); }

    [[nodiscard]] Outcome imported() const {
        return outcomeOf(GetParam().source, GetParam().importedIn(_folder));
    }

    /// What becomes of an export of which the file is not there.
    [[nodiscard]] static Outcome missing() {
        return GetParam().member.empty() ? GetParam().unreadable : failedWithText();
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
};

TEST_P(PathsTest, mayLeadToAFolder) {
    fs::create_directory(file());
    EXPECT_EQ(imported(), GetParam().unreadable);
    EXPECT_TRUE(fs::is_empty(file()));
}

TEST_P(PathsTest, mayLeadToADevice) {
    for (const char* const device : {"/dev/null", "/dev/zero"}) {
        fs::create_symlink(device, file());
        EXPECT_EQ(imported(), GetParam().unreadable) << device;
        fs::remove(file());
    }
}

/// Ends this process, with 0 if it has no terminal after an import of what is one: whoever leads a
/// session and opens a terminal may get it.
[[noreturn]] void exitAfterImporting(const Export& exported, const TemporaryFolder& folder) {
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (::setsid() < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0) {
        ::_exit(1);
    }
    fs::create_symlink(::ptsname(terminal), exported.fileIn(folder)); // NOLINT(*-mt-unsafe)
    const std::string path = exported.importedIn(folder);
    const bool isUnreadable = outcomeOf(exported.source, path) == exported.unreadable;
    (void)readExport(ExportFile::atPath(path), {.as = exported.source});
    (void)detect(ExportFile::atPath(path));
    ::_exit(isUnreadable && ::open("/dev/tty", O_RDWR) < 0 ? 0 : 1); // NOLINT(*-vararg)
}

TEST_P(PathsTest, mayLeadToATerminalWhichDoesNotBecomeThatOfTheProcess) {
    EXPECT_EXIT(exitAfterImporting(GetParam(), folder()), testing::ExitedWithCode(0), "");
}

TEST_P(PathsTest, mayLeadToAPipe) {
    ASSERT_EQ(::mkfifo(file().c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(imported(), GetParam().unreadable);
}

TEST_P(PathsTest, mayLeadToASocket) {
    makeSocket(file());
    EXPECT_EQ(imported(), GetParam().unreadable);
}

TEST_P(PathsTest, mayLeadToItself) {
    fs::create_symlink(file(), file());
    EXPECT_EQ(imported(), missing());
}

TEST_P(PathsTest, mayLeadNowhere) {
    fs::create_symlink(folder() / "missing/file", file());
    EXPECT_EQ(imported(), missing());
    EXPECT_FALSE(fs::exists(folder() / "missing"));
}

TEST_P(PathsTest, mayLeadThroughAFile) {
    (void)folder().file("through", "");
    EXPECT_EQ(outcomeOf(GetParam().source, folder() / "through/export"), missing());
}

TEST_P(PathsTest, mayBeEmptyOrTooLong) {
    EXPECT_EQ(outcomeOf(GetParam().source, folder() / std::string(256, 'x')), missing());
    EXPECT_EQ(outcomeOf(GetParam().source, "/" + std::string(5000, 'x')), missing());
    EXPECT_EQ(outcomeOf(GetParam().source, std::string(3'000'000, '/')), missing());
}

TEST_P(PathsTest, mayHaveAnyName) {
    for (const std::string& name :
         {std::string(255, 'x'), std::string("\xFF\xFE\x80"), std::string("a\nb"),
          std::string(" %00?#;&'\"\\"), std::string("file:x?mode=memory"), std::string("-")}) {
        const std::string path = folder() / name;
        if (GetParam().member.empty()) {
            (void)folder().file(name, GetParam().bytes());
        } else {
            fs::create_directory(path);
            (void)folder().file(name + "/" + std::string(GetParam().member), GetParam().bytes());
        }
        EXPECT_EQ(outcomeOf(GetParam().source, path), GetParam().whole())
            << testing::PrintToString(name);
    }
}

TEST_P(PathsTest, mayLeadThroughLinks) {
    const TemporaryFolder elsewhere;
    const std::string path = GetParam().written(elsewhere, GetParam().bytes());
    fs::create_symlink(path, folder() / "one");
    fs::create_symlink(folder() / "one", folder() / "two");
    EXPECT_EQ(outcomeOf(GetParam().source, folder() / "two"), GetParam().whole());
}

INSTANTIATE_TEST_SUITE_P(Importers, PathsTest, testing::ValuesIn(allExports()), nameOf);

#if defined(__linux__)
/// The same but for databases, for which SQLite may wait.
class PathsOfFilesTest : public PathsTest {};

/// A file that somebody else holds makes whoever opens it wait.
TEST_P(PathsOfFilesTest, mayLeadToAFileThatIsHeldAndNotWaitedFor) {
    const std::string path = GetParam().written(folder(), GetParam().bytes());
    const OtherProcess holder([&] {
        ::signal(SIGIO, SIG_IGN);
        const int descriptor = ::open(file().c_str(), O_WRONLY); // NOLINT(*-vararg)
        if (::fcntl(descriptor, F_SETLEASE, F_WRLCK) != 0) {     // NOLINT(*-vararg)
            throw std::runtime_error("no lease");
        }
    });
    const std::time_t begin = ::time(nullptr);
    EXPECT_EQ(outcomeOf(GetParam().source, path), GetParam().unreadable);
    EXPECT_LT(::time(nullptr) - begin, 5);
}

INSTANTIATE_TEST_SUITE_P(Importers, PathsOfFilesTest, testing::ValuesIn(allFiles()), nameOf);
#endif

} // namespace

} // namespace Rellinor::Tests
