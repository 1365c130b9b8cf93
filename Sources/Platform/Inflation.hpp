#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace Rellinor {

/// Unpacks bytes that were packed with "deflate", piece by piece. The memory that this takes is
/// wiped.
class Inflation {
public:
    /// @param packed  outlives this; no header stands in front of the bytes
    /// @throws std::bad_alloc
    explicit Inflation(std::string_view packed);

    Inflation(const Inflation&) = delete;
    Inflation& operator=(const Inflation&) = delete;
    ~Inflation();

    /// Writes what comes next; fewer bytes than `target` takes once there is no more. Absent if the
    /// packed bytes are damaged or cut short.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::optional<std::size_t> next(std::span<char> target);

    /// How many packed bytes have been used up.
    [[nodiscard]] std::size_t used() const noexcept;

private:
    struct State;

    std::unique_ptr<State> _state;
};

/// The CRC-32 of bytes, as archives store it.
[[nodiscard]] std::uint32_t checksumOf(std::string_view bytes) noexcept;

} // namespace Rellinor
