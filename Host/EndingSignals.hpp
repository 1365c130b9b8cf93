#pragma once

#include <signal.h> // NOLINT(modernize-deprecated-headers): sigset_t is POSIX

namespace Rellinor::Host {

/// From now on a signal that ends the process first removes the file at `path`, which outlives the
/// call; none if it is null. Signals that are ignored stay so.
void removeOnEndingSignal(const char* path) noexcept;

/// Lets the signals that end the process wait, for a scope.
class EndingSignalsHeld {
public:
    EndingSignalsHeld() noexcept;
    ~EndingSignalsHeld();
    EndingSignalsHeld(const EndingSignalsHeld&) = delete;
    EndingSignalsHeld& operator=(const EndingSignalsHeld&) = delete;

private:
    ::sigset_t _before{};
};

} // namespace Rellinor::Host
