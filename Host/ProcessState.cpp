#include "Host/ProcessState.hpp"

#include <cerrno>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#if defined(__linux__)
#include <sys/prctl.h>
#endif

namespace Rellinor::Host {

bool openMissingStreams() noexcept {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (::fcntl(stream, F_GETFD) >= 0 || errno != EBADF) { // NOLINT(*-vararg)
            continue;
        }
        // Opened the wrong way round: nothing can be read from it, or written to it.
        const int mode = stream == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (::open("/dev/null", mode) != stream) { // NOLINT(*-vararg): the lowest that is free
            return false;
        }
    }
    return true;
}

void protectSecrets() noexcept {
    const rlimit none{};
    ::setrlimit(RLIMIT_CORE, &none);
#if defined(__linux__) && !defined(RELLINOR_SANITIZED) // leak checkers look into the process
    // The limit does not hold for a dump that goes to another program. Nor may one look in.
    ::prctl(PR_SET_DUMPABLE, 0); // NOLINT(*-vararg)
#endif
    ::umask(S_IRWXG | S_IRWXO);
}

} // namespace Rellinor::Host
