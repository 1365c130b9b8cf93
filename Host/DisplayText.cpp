#include "Host/DisplayText.hpp"

#include <algorithm>
#include <utility>

#include <utf8proc.h>

namespace Rellinor::Host {

namespace {

constexpr utf8proc_int32_t replacementCharacter = 0xFFFD;

/// Takes the first code point off a text; U+FFFD for a byte that begins none.
utf8proc_int32_t takeCodePoint(std::string_view& text) {
    utf8proc_int32_t codePoint = 0;
    // The library takes its bytes as unsigned characters.
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()); // NOLINT(*-cast)
    const utf8proc_ssize_t length =
        ::utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
    text.remove_prefix(static_cast<std::size_t>(std::max<utf8proc_ssize_t>(length, 1)));
    return length > 0 ? codePoint : replacementCharacter;
}

/// What is shown of the code points of a text, taken one after the other.
class Display {
public:
    utf8proc_int32_t operator()(utf8proc_int32_t codePoint) {
        const utf8proc_int32_t shown = displayable(codePoint);
        _inFlag = shown == blackFlag || (_inFlag && isTag(shown));
        return shown;
    }

private:
    static constexpr utf8proc_int32_t blackFlag = 0x1F3F4;

    /// Whether it is one of the letters that make Scotland's flag of a black one.
    static bool isTag(utf8proc_int32_t codePoint) {
        return codePoint >= 0xE0020 && codePoint <= 0xE007F;
    }

    [[nodiscard]] utf8proc_int32_t displayable(utf8proc_int32_t codePoint) const {
        constexpr utf8proc_int32_t controlPictures = 0x2400;
        constexpr utf8proc_int32_t deleteCharacter = 0x7F;
        constexpr utf8proc_int32_t zeroWidthJoiner = 0x200D; // holds emoji together

        if (codePoint < ' ') {
            return controlPictures + codePoint;
        }
        if (codePoint == deleteCharacter) {
            return controlPictures + ' ' + 1;
        }
        switch (::utf8proc_category(codePoint)) {
        case UTF8PROC_CATEGORY_CF:
            return codePoint == zeroWidthJoiner || (_inFlag && isTag(codePoint))
                       ? codePoint
                       : replacementCharacter;
        case UTF8PROC_CATEGORY_CC:
        case UTF8PROC_CATEGORY_ZL:
        case UTF8PROC_CATEGORY_ZP:
            return replacementCharacter;
        default:
            return codePoint;
        }
    }

    bool _inFlag = false;
};

void append(std::string& text, utf8proc_int32_t codePoint) {
    utf8proc_uint8_t bytes[4]; // NOLINT(*-avoid-c-arrays): what the library fills
    const utf8proc_ssize_t length = ::utf8proc_encode_char(codePoint, bytes);
    text.append(bytes, bytes + length);
}

/// Whether a terminal shows two columns of it once a variation selector asks for an emoji.
bool mayBecomeEmoji(utf8proc_int32_t codePoint) {
    return (codePoint >= '0' && codePoint <= '9') || codePoint == '#' || codePoint == '*' ||
           ::utf8proc_get_property(codePoint)->boundclass ==
               UTF8PROC_BOUNDCLASS_EXTENDED_PICTOGRAPHIC;
}

/// The columns of a text whose code points come one after the other. A grapheme cluster takes what
/// its code points take, but two at most: a family is as wide as one of its members.
class Columns {
public:
    /// Whether a cluster begins with this code point.
    bool add(utf8proc_int32_t codePoint) {
        constexpr utf8proc_int32_t emojiSelector = 0xFE0F;
        constexpr std::size_t widestCluster = 2;

        const bool begins =
            _last == 0 || ::utf8proc_grapheme_break_stateful(_last, codePoint, &_state);
        if (begins) {
            _before += std::exchange(_cluster, 0);
        }
        _cluster += codePoint == emojiSelector && mayBecomeEmoji(_last)
                        ? widestCluster
                        : static_cast<std::size_t>(std::max(::utf8proc_charwidth(codePoint), 0));
        _cluster = std::min(_cluster, widestCluster);
        _last = codePoint;
        return begins;
    }

    [[nodiscard]] std::size_t count() const noexcept { return _before + _cluster; }

private:
    std::size_t _before = 0;
    std::size_t _cluster = 0;
    utf8proc_int32_t _last = 0;
    utf8proc_int32_t _state = 0;
};

/// Whether every byte is a character that is shown as it is, in one column. That is so of nearly
/// every text, and soon told.
bool isPlain(std::string_view text) {
    return std::ranges::all_of(text, [](char letter) { return letter >= ' ' && letter <= '~'; });
}

} // namespace

std::string displayText(std::string_view text) {
    std::string displayed;
    displayed.reserve(text.size());
    Display display;
    while (!text.empty()) {
        append(displayed, display(takeCodePoint(text)));
    }
    return displayed;
}

std::string displayPath(std::string_view path) {
    return path.empty() ? "\"\"" : displayText(path);
}

std::size_t displayWidth(std::string_view text) {
    if (isPlain(text)) {
        return text.size();
    }
    Columns columns;
    while (!text.empty()) {
        columns.add(takeCodePoint(text));
    }
    return columns.count();
}

std::string shortened(std::string_view text, std::size_t width) {
    constexpr std::string_view ellipsis = "…";
    const std::size_t longest = width * bytesPerColumn;

    if (isPlain(text.substr(0, width + 1))) {
        std::string plain(text.substr(0, text.size() > width ? width - 1 : width));
        plain += text.size() > width ? ellipsis : "";
        return plain;
    }
    std::string beginning;
    std::size_t end = 0; // of what leaves room for the ellipsis
    Display display;
    Columns columns;
    while (!text.empty()) {
        const utf8proc_int32_t codePoint = display(takeCodePoint(text));
        const std::size_t before = columns.count();
        if (columns.add(codePoint) && before < width) {
            end = beginning.size();
        }
        append(beginning, codePoint);
        if (columns.count() > width || beginning.size() > longest) {
            beginning.resize(end);
            beginning += ellipsis;
            break;
        }
    }
    return beginning;
}

} // namespace Rellinor::Host
