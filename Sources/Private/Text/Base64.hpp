#pragma once

#include <cstddef>
#include <span>

namespace Rellinor {

/// How many characters the Base64 text of so many bytes has.
[[nodiscard]] std::size_t sizeOfBase64(std::size_t numberOfBytes) noexcept;

/// Writes the Base64 text of `bytes`: the standard alphabet, padded with "=", no line breaks.
///
/// @param target  as large as `sizeOfBase64` says
void writeBase64(std::span<const char> bytes, std::span<char> target) noexcept;

} // namespace Rellinor
