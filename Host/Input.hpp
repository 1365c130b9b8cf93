#pragma once

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <Rellinor/ExportFile.hpp>

namespace Rellinor::Host {

/// A stream that cannot be read.
struct InputError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// Overwrites memory before it is given back.
void overwrite(void* bytes, std::size_t size) noexcept;

/// Memory for what is secret.
template <typename Value>
struct WipingAllocator {
    using value_type = Value;

    WipingAllocator() = default;

    template <typename Other>
    explicit(false) WipingAllocator(const WipingAllocator<Other>& /*other*/) noexcept {}

    [[nodiscard]] Value* allocate(std::size_t count) {
        return std::allocator<Value>().allocate(count);
    }

    void deallocate(Value* values, std::size_t count) noexcept {
        overwrite(values, count * sizeof(Value));
        std::allocator<Value>().deallocate(values, count);
    }

    friend bool operator==(const WipingAllocator&, const WipingAllocator&) noexcept = default;
};

/// What a word of the command line names: a file or folder, which the library reads by itself, or
/// a stream, which can be read once and is kept in memory: "-", the standard input, and a pipe that
/// the process was started with, such as "/dev/fd/63".
class Input {
public:
    /// Reads a stream to its end.
    ///
    /// @throws InputError  it cannot be read
    explicit Input(const std::string& path);

    [[nodiscard]] const ExportFile& file() const noexcept { return _file; }

    [[nodiscard]] bool isStream() const noexcept { return _isStream; }

private:
    bool _isStream;
    std::vector<char, WipingAllocator<char>> _bytes; // of a stream
    ExportFile _file;
};

} // namespace Rellinor::Host
