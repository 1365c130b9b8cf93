#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Rellinor::Benchmarks {

/// The "logins.json" of a profile with invented data, about 600 bytes a login, with all members
/// that the browser writes; what stands for ciphertext is invented too. The same arguments give the
/// same text everywhere.
[[nodiscard]] std::string firefoxLogins(std::size_t logins, std::uint64_t seed = 1);

} // namespace Rellinor::Benchmarks
