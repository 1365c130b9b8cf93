#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Rellinor::Tests {

// What files of SQLite's are made of.

/// What a journal and each of its parts begins with.
inline constexpr std::string_view journalMagic = "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7";

/// A number in so many bytes, the high one first.
[[nodiscard]] inline std::string sqliteNumber(std::size_t value, std::size_t size = 4) {
    std::string bytes(size, '\0');
    for (; size > 0; value >>= 8U) {
        bytes[--size] = static_cast<char>(value & 0xFFU);
    }
    return bytes;
}

/// What a journal ends with that has SQLite delete a file.
[[nodiscard]] inline std::string journalEndNaming(std::string_view file) {
    std::size_t sum = 0;
    for (const char character : file) {
        sum += static_cast<unsigned char>(character);
    }
    return std::string(file) + sqliteNumber(file.size()) + sqliteNumber(sum) +
           std::string(journalMagic);
}

} // namespace Rellinor::Tests
