#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace Rellinor::Benchmarks {

/// Makes a login database of invented data with Chrome's own tables, by SQLite itself: every
/// twentieth login is one that the user excluded. The same arguments give the same rows everywhere.
void makeChromeDatabase(const std::filesystem::path& file, std::size_t logins,
                        std::uint64_t seed = 1);

/// Makes the "signons.sqlite" of an old Firefox in that way; what stands for ciphertext is invented
/// too.
void makeFirefoxDatabase(const std::filesystem::path& file, std::size_t logins,
                         std::uint64_t seed = 1);

} // namespace Rellinor::Benchmarks
