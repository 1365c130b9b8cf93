#pragma once

namespace Rellinor::Host {

/// Takes the places of the standard streams that are closed, so that no file which is opened later
/// gets what is meant for one of them. Whatever uses such a stream still fails. To be called before
/// any file is opened; false if it cannot be done.
[[nodiscard]] bool openMissingStreams() noexcept;

/// Keeps what the process holds from others: it leaves no memory dump, its user's other processes
/// cannot look into it where the system is Linux, and what it creates is for its owner alone.
void protectSecrets() noexcept;

} // namespace Rellinor::Host
