#pragma once

#include <cstddef>
#include <string_view>

#include "Platform/WipedBuffer.hpp"

namespace Rellinor {

/// Whether bytes begin with a byte-order mark of UTF-16, of either order.
[[nodiscard]] constexpr bool hasUTF16Mark(std::string_view bytes) noexcept {
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

/// A text that was UTF-16, in UTF-8.
struct DecodedUTF16 {
    WipedBuffer buffer;
    std::size_t size = 0;     ///< of the text, which stands at the beginning of the buffer
    std::size_t replaced = 0; ///< surrogates without another and odd bytes, each now U+FFFD

    [[nodiscard]] std::string_view view() noexcept { return {buffer.bytes().data(), size}; }
};

/// Decodes a text that begins with a byte-order mark of UTF-16; the mark is no part of the result.
///
/// @throws std::bad_alloc
[[nodiscard]] DecodedUTF16 decodedUTF16(std::string_view bytes);

} // namespace Rellinor
