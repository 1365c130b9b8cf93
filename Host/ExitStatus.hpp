#pragma once

namespace Rellinor::Host::ExitStatus {

inline constexpr int success = 0;
inline constexpr int importFailed = 1; ///< at least one path; the others are still shown
inline constexpr int wrongUsage = 2;
inline constexpr int unwritableOutput = 2;

} // namespace Rellinor::Host::ExitStatus
