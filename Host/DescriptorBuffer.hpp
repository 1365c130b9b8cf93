#pragma once

#include <array>
#include <cstddef>
#include <streambuf>

namespace Rellinor::Host {

/// What a stream writes goes to a file descriptor, which closes in the end.
class DescriptorBuffer final : public std::streambuf {
public:
    explicit DescriptorBuffer(int descriptor) noexcept;
    ~DescriptorBuffer() override;
    DescriptorBuffer(const DescriptorBuffer&) = delete;
    DescriptorBuffer& operator=(const DescriptorBuffer&) = delete;

    /// Brings what was written to the disk. Returns 0, or the `errno` of the first call that failed
    /// since the beginning.
    [[nodiscard]] int finish();

    /// Closes the descriptor, as the last call.
    void close() noexcept;

protected:
    int_type overflow(int_type character) override;
    int sync() override;

private:
    /// Writes what is waiting; false if that fails, or failed before.
    bool drain();

    int _descriptor;
    int _failure = 0;
    std::array<char, std::size_t{64} << 10U> _waiting{};
};

} // namespace Rellinor::Host
