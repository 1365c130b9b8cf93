#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace Rellinor {

/// How large a buffer `base64` needs for so many bytes: the text and a byte behind it.
[[nodiscard]] std::size_t sizeOfBase64Buffer(std::size_t numberOfBytes) noexcept;

/// The Base64 text of `bytes`, written into `buffer`: the standard alphabet, padded with "=", no
/// line breaks.
///
/// @param buffer  as large as `sizeOfBase64Buffer` says
[[nodiscard]] std::string_view base64(std::span<const char> bytes, std::span<char> buffer) noexcept;

} // namespace Rellinor
