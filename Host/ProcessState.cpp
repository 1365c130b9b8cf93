#include "Host/ProcessState.hpp"

#include <cerrno>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

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
    ::umask(S_IRWXG | S_IRWXO);
}

} // namespace Rellinor::Host
