#include "Host/Inspection/TextLines.hpp"

#include <algorithm>

#include <utf8proc.h>

namespace Rellinor::Host {

bool TextLines::next(TextLine& line) noexcept {
    if (_rest.empty()) {
        return false;
    }
    line = {.number = ++_number, .text = _rest.substr(0, _rest.find('\n'))};
    _rest.remove_prefix(std::min(line.text.size() + 1, _rest.size()));
    return true;
}

std::size_t lineAt(std::string_view text, std::size_t offset) noexcept {
    return static_cast<std::size_t>(std::ranges::count(text.substr(0, offset), '\n')) + 1;
}

std::size_t sizeOfUTF8(std::string_view text) noexcept {
    constexpr auto isASCII = [](char letter) { return static_cast<unsigned char>(letter) < 0x80U; };

    std::size_t size = 0;
    while (size < text.size()) {
        if (isASCII(text[size])) {
            ++size;
            continue;
        }
        const std::string_view rest = text.substr(size);
        utf8proc_int32_t codePoint = 0;
        // The library takes its bytes as unsigned characters.
        const auto* bytes =
            reinterpret_cast<const utf8proc_uint8_t*>(rest.data()); // NOLINT(*-cast)
        const utf8proc_ssize_t length =
            ::utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(rest.size()), &codePoint);
        if (length <= 0) {
            break;
        }
        size += static_cast<std::size_t>(length);
    }
    return size;
}

std::string_view withoutByteOrderMark(std::string_view text) noexcept {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    return text.starts_with(byteOrderMark) ? text.substr(byteOrderMark.size()) : text;
}

} // namespace Rellinor::Host
