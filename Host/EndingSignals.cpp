#include "Host/EndingSignals.hpp"

#include <atomic>

#include <unistd.h>

namespace Rellinor::Host {

namespace {

/// Those by which a person or the system ends a process.
constexpr int endingSignals[] = {SIGHUP, SIGINT, SIGPIPE, SIGQUIT, SIGTERM, SIGXCPU};

/// A handler can reach nothing else.
std::atomic<const char*> fileToRemove = nullptr; // NOLINT(*-non-const-global-variables)
static_assert(std::atomic<const char*>::is_always_lock_free);

extern "C" void removeFileAndEnd(int signal) {
    if (const char* const path = fileToRemove.exchange(nullptr)) {
        ::unlink(path);
    }
    // Its own action is back in place, so that the exit status tells of the signal.
    ::raise(signal);
}

} // namespace

void removeOnEndingSignal(const char* path) noexcept {
    fileToRemove = path;
    if (path == nullptr) {
        return;
    }
    for (const int signal : endingSignals) {
        struct sigaction action{};
        if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_DFL) {
            action.sa_handler = removeFileAndEnd;
            action.sa_flags = static_cast<int>(SA_RESETHAND);
            ::sigaction(signal, &action, nullptr);
        }
    }
}

EndingSignalsHeld::EndingSignalsHeld() noexcept {
    ::sigset_t signals{};
    ::sigemptyset(&signals);
    for (const int signal : endingSignals) {
        ::sigaddset(&signals, signal);
    }
    ::sigprocmask(SIG_BLOCK, &signals, &_before);
}

EndingSignalsHeld::~EndingSignalsHeld() {
    ::sigprocmask(SIG_SETMASK, &_before, nullptr);
}

} // namespace Rellinor::Host
