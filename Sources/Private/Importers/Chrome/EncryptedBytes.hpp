#pragma once

#include <span>
#include <string_view>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Text/Base64.hpp"

namespace Rellinor {

/// The Base64 text of bytes that the browser has encrypted.
///
/// @throws std::bad_alloc
[[nodiscard]] inline std::string_view base64Of(std::span<const char> bytes, ImportMemory& memory) {
    const std::span<char> text = memory.allocate(sizeOfBase64(bytes.size()));
    writeBase64(bytes, text);
    return {text.data(), text.size()};
}

} // namespace Rellinor
