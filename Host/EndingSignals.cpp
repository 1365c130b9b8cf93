#include "Host/EndingSignals.hpp"

#include <algorithm>
#include <atomic>
#include <iterator>

#include <unistd.h>

namespace Rellinor::Host {

namespace {

/// The signals that end no process by themselves. All others do.
constexpr int otherSignals[] = {
    SIGCHLD, SIGCONT, SIGSTOP, SIGTSTP, SIGTTIN, SIGTTOU, SIGURG, SIGWINCH,
#if defined(__APPLE__)
    SIGINFO, SIGIO,
#endif
};

/// A handler can reach nothing else.
std::atomic<const char*> fileToRemove = nullptr; // NOLINT(*-non-const-global-variables)
static_assert(std::atomic<const char*>::is_always_lock_free);

/// All other signals wait meanwhile.
extern "C" void removeFileAndEnd(int signal) {
    if (const char* const path = fileToRemove) {
        ::unlink(path);
    }
    // Only now its own action: with that, a second such signal ends the process at once. The exit
    // status tells of the signal.
    ::signal(signal, SIG_DFL);
    ::raise(signal);
}

} // namespace

void removeOnEndingSignal(const char* path) noexcept {
    fileToRemove = path;
    if (path == nullptr) {
        return;
    }
    for (int signal = 1; signal < NSIG; ++signal) {
        struct sigaction action{};
        if (std::ranges::find(otherSignals, signal) != std::end(otherSignals) ||
            ::sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL) {
            continue;
        }
        action.sa_handler = removeFileAndEnd;
        ::sigfillset(&action.sa_mask);
        ::sigaction(signal, &action, nullptr); // fails for SIGKILL
    }
}

SignalsHeld::SignalsHeld() noexcept {
    ::sigset_t signals{};
    ::sigfillset(&signals);
    ::sigprocmask(SIG_BLOCK, &signals, &_before);
}

SignalsHeld::~SignalsHeld() {
    ::sigprocmask(SIG_SETMASK, &_before, nullptr);
}

} // namespace Rellinor::Host
