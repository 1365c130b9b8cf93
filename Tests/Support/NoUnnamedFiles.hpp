#pragma once

namespace Rellinor::Tests {

/// A system without files that have no name, for a scope. It stands between the tool and the system
/// in a test program that is linked for it.
class NoUnnamedFiles {
public:
    explicit NoUnnamedFiles(bool isSo) noexcept;
    ~NoUnnamedFiles();
    NoUnnamedFiles(const NoUnnamedFiles&) = delete;
    NoUnnamedFiles& operator=(const NoUnnamedFiles&) = delete;
};

} // namespace Rellinor::Tests
