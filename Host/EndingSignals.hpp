#pragma once

#include <signal.h> // NOLINT(modernize-deprecated-headers): sigset_t is POSIX

namespace Rellinor::Host {

/// From now on a signal that ends the process first removes the file at `path`, which outlives the
/// call; none if it is null. Signals that are ignored stay so.
void removeOnEndingSignal(const char* path) noexcept;

/// Lets all signals wait, for a scope.
class SignalsHeld {
public:
    SignalsHeld() noexcept;
    ~SignalsHeld();
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

private:
    ::sigset_t _before{};
};

} // namespace Rellinor::Host
