#include "Platform/Base64.hpp"

#include <sodium/utils.h>

namespace Rellinor {

std::size_t sizeOfBase64Buffer(std::size_t numberOfBytes) noexcept {
    return ::sodium_base64_encoded_len(numberOfBytes, sodium_base64_VARIANT_ORIGINAL);
}

std::string_view base64(std::span<const char> bytes, std::span<char> buffer) noexcept {
    // The library takes its bytes as unsigned characters.
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data()); // NOLINT(*-cast)
    ::sodium_bin2base64(buffer.data(), buffer.size(), data, bytes.size(),
                        sodium_base64_VARIANT_ORIGINAL);
    return {buffer.data(), buffer.size() - 1}; // without the closing NUL
}

} // namespace Rellinor
