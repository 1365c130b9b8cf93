#include "Platform/Text.hpp"

#include <cstdint>
#include <cstring>

#include <utf8proc.h>

namespace Rellinor {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

constexpr bool isASCII(char character) noexcept {
    return static_cast<unsigned char>(character) < 0x80U;
}

/// How many of the leading bytes are ASCII, counted in steps of 8 and then one by one.
std::size_t lengthOfASCIIPrefix(std::string_view bytes) noexcept {
    constexpr std::uint64_t highBits = 0x8080808080808080U;

    std::size_t length = 0;
    for (std::uint64_t word = 0; bytes.size() - length >= sizeof word; length += sizeof word) {
        std::memcpy(&word, bytes.data() + length, sizeof word);
        if ((word & highBits) != 0) {
            break;
        }
    }
    while (length < bytes.size() && isASCII(bytes[length])) {
        ++length;
    }
    return length;
}

/// The code point that a text begins with, and the number of bytes it takes.
struct CodePoint {
    utf8proc_int32_t value = 0;
    utf8proc_ssize_t length = 0; ///< not positive if the bytes are not UTF-8
};

CodePoint firstCodePoint(std::string_view text) noexcept {
    CodePoint first;
    // The library takes its bytes as unsigned characters.
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()); // NOLINT(*-cast)
    first.length =
        ::utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &first.value);
    return first;
}

} // namespace

bool isUTF8(std::string_view bytes) noexcept {
    for (;;) {
        bytes.remove_prefix(lengthOfASCIIPrefix(bytes));
        if (bytes.empty()) {
            return true;
        }
        const CodePoint first = firstCodePoint(bytes);
        if (first.length <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(first.length));
    }
}

std::optional<std::span<char>> decodedText(std::span<char> bytes) noexcept {
    const std::string_view view(bytes.data(), bytes.size());
    if (!isUTF8(view)) {
        return std::nullopt;
    }
    return view.starts_with(byteOrderMark) ? bytes.subspan(byteOrderMark.size()) : bytes;
}

bool isBlank(std::string_view text) noexcept {
    while (!text.empty()) {
        if (text.front() == ' ' || text.front() == '\t') {
            text.remove_prefix(1);
            continue;
        }
        if (isASCII(text.front())) {
            return false;
        }
        const CodePoint first = firstCodePoint(text);
        if (first.length <= 0 || ::utf8proc_category(first.value) != UTF8PROC_CATEGORY_ZS) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(first.length));
    }
    return true;
}

} // namespace Rellinor
