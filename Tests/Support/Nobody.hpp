#pragma once

#include <filesystem>

#include <unistd.h>

namespace Rellinor::Tests {

/// Ends this process, with 0 if something holds for a user whom the modes of files stop, which they
/// do not do to root. For `EXPECT_EXIT`.
[[noreturn]] void exitAsNobody(auto&& holds) {
    constexpr uid_t nobody = 65534;
    const bool isStopped = ::geteuid() != 0 || ::setuid(nobody) == 0;
    ::_exit(isStopped && holds() ? 0 : 1);
}

/// Lets everybody read a file in a folder of ours, and nobody write it.
inline void forbidWriting(const std::filesystem::path& path) {
    using enum std::filesystem::perms;
    std::filesystem::permissions(path.parent_path(), all);
    std::filesystem::permissions(path, owner_read | group_read | others_read);
}

} // namespace Rellinor::Tests
