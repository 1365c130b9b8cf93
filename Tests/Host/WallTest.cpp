#include "Host/Wall.hpp"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/landlock.h>
#include <stdio.h> // NOLINT(modernize-deprecated-headers): renameat is POSIX
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Host {

namespace {

/// Whether something works in a process behind a wall: then it returns what is not negative.
bool works(const WallGates& gates, const std::function<int()>& attempt) {
    const pid_t process = ::fork();
    if (process == 0) {
        wallIn(gates);
        ::_exit(attempt() < 0 ? 1 : 0);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFEXITED(status)) << status;
    return WEXITSTATUS(status) == 0;
}

/// A line of what the system says of a process behind a wall.
std::string lineOfStatus(const std::string& name) {
    const Tests::TemporaryFolder folder;
    std::ofstream out(folder / "line");
    EXPECT_TRUE(works({}, [&] {
        std::ifstream status("/proc/self/status");
        for (std::string line; std::getline(status, line);) {
            out << (line.starts_with(name) ? line : "");
        }
        out.flush();
        return 0;
    }));
    return Tests::contentsOf(folder / "line");
}

/// Whether the system tells folders apart.
bool hasLandlock() {
    return ::syscall(SYS_landlock_create_ruleset, nullptr, 0, // NOLINT(*-vararg)
                     LANDLOCK_CREATE_RULESET_VERSION) > 0;
}

class WallTest : public testing::Test {
protected:
    WallTest() {
        if (!lineOfStatus("Seccomp:").ends_with('2')) {
            _isBuilt = false;
        }
    }

    void SetUp() override {
        if (!_isBuilt) {
            GTEST_SKIP() << "the tool is built without a wall, or the system has none";
        }
    }

    [[nodiscard]] std::string path(const std::string& name) const { return _folder / name; }

    [[nodiscard]] std::string file() const { return _folder.file("file", "text"); }

    [[nodiscard]] std::string folder() const { return _folder.path(); }

private:
    bool _isBuilt = true;
    Tests::TemporaryFolder _folder;
};

int opened(const std::string& path, int flags) {
    return ::open(path.c_str(), flags, 0600); // NOLINT(*-vararg)
}

TEST_F(WallTest, letsFilesBeRead) {
    const std::string there = file();
    EXPECT_TRUE(works({}, [&] { return opened(there, O_RDONLY); }));
}

TEST_F(WallTest, stopsConnections) {
    for (const int family : {AF_INET, AF_INET6, AF_UNIX, AF_NETLINK}) {
        EXPECT_FALSE(works({}, [&] { return ::socket(family, SOCK_DGRAM, 0); })) << family;
    }
    int pair[2]{}; // NOLINT(*-avoid-c-arrays)
    EXPECT_FALSE(works({}, [&] { return ::socketpair(AF_UNIX, SOCK_STREAM, 0, pair); }));
}

TEST_F(WallTest, stopsPrograms) {
    const auto start = [] {
        char name[] = "true"; // NOLINT(*-avoid-c-arrays)
        char* const words[] = {name, nullptr};
        return ::execv("/bin/true", words);
    };
    ASSERT_TRUE(works({}, [] { return ::access("/bin/true", X_OK); }));
    EXPECT_FALSE(works({}, start));
    EXPECT_FALSE(works({}, [] { return ::fork(); }));
}

TEST_F(WallTest, stopsEveryChangeOfFiles) {
    const std::string there = file();
    const std::string fresh = path("fresh");
    const std::function<int()> attempts[] = {
        [&] { return opened(there, O_WRONLY); },
        [&] { return opened(there, O_RDWR); },
        [&] { return opened(there, O_RDONLY | O_TRUNC); },
        [&] { return opened(fresh, O_RDONLY | O_CREAT); },
        [&] { return opened(folder(), O_TMPFILE | O_WRONLY); },
        [&] { return ::truncate(there.c_str(), 0); },
        [&] { return ::unlink(there.c_str()); },
        [&] { return ::rename(there.c_str(), fresh.c_str()); },
        [&] { return ::link(there.c_str(), fresh.c_str()); },
        [&] { return ::symlink(there.c_str(), fresh.c_str()); },
        [&] { return ::mkdir(fresh.c_str(), 0700); },
        [&] { return ::mkfifo(fresh.c_str(), 0600); },
        [&] { return ::chmod(there.c_str(), 0777); },
    };
    for (std::size_t i = 0; i < std::size(attempts); ++i) {
        EXPECT_FALSE(works({}, attempts[i])) << i;
    }
    EXPECT_EQ(Tests::contentsOf(there), "text");
    EXPECT_FALSE(std::filesystem::exists(fresh));
}

TEST_F(WallTest, letsAnOutputTakeItsPlaceInItsFolderAlone) {
    const std::string there = file();
    const std::string fresh = path("fresh");
    const Tests::TemporaryFolder other;
    const WallGates gates{.output = folder(), .isOpenToFiles = false};
    EXPECT_TRUE(works(gates, [&] { return ::link(there.c_str(), fresh.c_str()); }));
    EXPECT_TRUE(works(gates, [&] { return ::rename(fresh.c_str(), there.c_str()); }));
    EXPECT_FALSE(works(gates, [&] { return opened(there, O_WRONLY); }));
    const std::string elsewhere = other.file("file", "text");
    if (hasLandlock()) {
        EXPECT_FALSE(works(gates, [&] { return ::unlink(elsewhere.c_str()); }));
        EXPECT_FALSE(works(gates, [&] { return ::rename(there.c_str(), elsewhere.c_str()); }));
    }
}

TEST_F(WallTest, letsAnyFileBeChangedIfSQLiteDoesSo) {
    const WallGates gates{.output = {}, .isOpenToFiles = true};
    EXPECT_TRUE(works(gates, [&] { return opened(path("db-journal"), O_RDWR | O_CREAT); }));
    EXPECT_TRUE(works(gates, [&] { return ::unlink(path("db-journal").c_str()); }));
    EXPECT_FALSE(works(gates, [] { return ::socket(AF_INET, SOCK_STREAM, 0); }));
}

} // namespace

} // namespace Rellinor::Host
