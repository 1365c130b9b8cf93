#include "Host/ProcessState.hpp"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#if defined(__linux__)
#include <sys/prctl.h>
#endif

#include <gtest/gtest.h>

namespace Rellinor::Host {

namespace {

/// Whether `work` returns true in another process, whose state it may change.
bool holdsElsewhere(const auto& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(work() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(ProcessStateTest, takesThePlacesOfClosedStreams) {
    EXPECT_TRUE(holdsElsewhere([] {
        for (int stream = 0; stream < 3; ++stream) {
            ::close(stream);
        }
        return openMissingStreams() && ::open("/dev/null", O_RDONLY) > 2; // NOLINT(*-vararg)
    }));
}

TEST(ProcessStateTest, letsAClosedStreamFail) {
    EXPECT_TRUE(holdsElsewhere([] {
        for (int stream = 0; stream < 3; ++stream) {
            ::close(stream);
        }
        char byte = 'a';
        return openMissingStreams() && ::read(0, &byte, 1) < 0 && ::write(1, &byte, 1) < 0 &&
               ::write(2, &byte, 1) < 0;
    }));
}

TEST(ProcessStateTest, leavesAnOpenStreamAsItIs) {
    EXPECT_TRUE(holdsElsewhere([] {
        int ends[2]; // NOLINT(*-avoid-c-arrays): what the system fills
        if (::pipe(ends) != 0 || ::dup2(ends[1], 1) != 1 || ::close(2) != 0) {
            return false;
        }
        char byte = 'a';
        return openMissingStreams() && ::write(1, &byte, 1) == 1 && ::read(ends[0], &byte, 1) == 1;
    }));
}

TEST(ProcessStateTest, leavesNoMemoryDump) {
    EXPECT_TRUE(holdsElsewhere([] {
        protectSecrets();
        rlimit limit{};
        return ::getrlimit(RLIMIT_CORE, &limit) == 0 && limit.rlim_cur == 0 && limit.rlim_max == 0;
    }));
}

#if defined(__linux__) && !defined(RELLINOR_SANITIZED)
TEST(ProcessStateTest, isClosedToOtherProcesses) {
    EXPECT_TRUE(holdsElsewhere([] {
        const bool before = ::prctl(PR_GET_DUMPABLE) != 0; // NOLINT(*-vararg)
        protectSecrets();
        return before && ::prctl(PR_GET_DUMPABLE) == 0; // NOLINT(*-vararg)
    }));
}
#endif

TEST(ProcessStateTest, createsFilesForTheirOwnerAlone) {
    EXPECT_TRUE(holdsElsewhere([] {
        ::umask(0);
        protectSecrets();
        return ::umask(0) == 0077;
    }));
}

} // namespace

} // namespace Rellinor::Host
