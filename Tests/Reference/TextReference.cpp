#include "Tests/Reference/TextReference.hpp"

#include <algorithm>
#include <vector>

#include <utf8proc.h>

namespace Rellinor::Tests {

namespace {

struct ByteRange {
    unsigned lowest;
    unsigned highest;
};

using Sequence = std::vector<ByteRange>;

/// The well-formed sequences of bytes, as the standard's table has them.
const std::vector<Sequence>& wellFormedSequences() {
    static const std::vector<Sequence> sequences = {
        {{0x00, 0x7F}},
        {{0xC2, 0xDF}, {0x80, 0xBF}},
        {{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}},
        {{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}},
        {{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}},
        {{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}},
        {{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
        {{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
        {{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}},
    };
    return sequences;
}

unsigned byteAt(std::string_view bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes[index]);
}

/// How many of the leading bytes are those of a sequence.
std::size_t lengthInCommon(std::string_view bytes, const Sequence& sequence) {
    std::size_t length = 0;
    while (length < bytes.size() && length < sequence.size() &&
           byteAt(bytes, length) >= sequence[length].lowest &&
           byteAt(bytes, length) <= sequence[length].highest) {
        ++length;
    }
    return length;
}

struct Beginning {
    std::size_t length = 0;
    bool isWhole = false;
};

/// The longest beginning of a well-formed sequence that bytes begin with.
Beginning longestBeginning(std::string_view bytes) {
    Beginning longest;
    for (const Sequence& sequence : wellFormedSequences()) {
        const std::size_t length = lengthInCommon(bytes, sequence);
        if (length > longest.length) {
            longest = {.length = length, .isWhole = length == sequence.size()};
        }
    }
    return longest;
}

char32_t codePointOf(std::string_view sequence) {
    const unsigned first = byteAt(sequence, 0);
    switch (sequence.size()) {
    case 1:
        return first;
    case 2:
        return (first - 0xC0) * 64 + (byteAt(sequence, 1) - 0x80);
    case 3:
        return (first - 0xE0) * 4096 + (byteAt(sequence, 1) - 0x80) * 64 +
               (byteAt(sequence, 2) - 0x80);
    default:
        return (first - 0xF0) * 262144 + (byteAt(sequence, 1) - 0x80) * 4096 +
               (byteAt(sequence, 2) - 0x80) * 64 + (byteAt(sequence, 3) - 0x80);
    }
}

/// The property that the rules are about.
int classOf(char32_t codePoint) {
    return ::utf8proc_get_property(static_cast<utf8proc_int32_t>(codePoint))->boundclass;
}

bool isOneOf(int value, std::initializer_list<int> values) {
    return std::ranges::find(values, value) != values.end();
}

/// Whether a cluster ends before the code point at `index`, which is not the first.
bool isBoundary(const std::vector<int>& classes, std::size_t index) {
    const int before = classes[index - 1];
    const int after = classes[index];
    const auto isBreakingControl = [](int value) {
        return isOneOf(
            value, {UTF8PROC_BOUNDCLASS_CONTROL, UTF8PROC_BOUNDCLASS_CR, UTF8PROC_BOUNDCLASS_LF});
    };

    // GB3
    if (before == UTF8PROC_BOUNDCLASS_CR && after == UTF8PROC_BOUNDCLASS_LF) {
        return false;
    }
    // GB4, GB5
    if (isBreakingControl(before) || isBreakingControl(after)) {
        return true;
    }
    // GB6
    if (before == UTF8PROC_BOUNDCLASS_L &&
        isOneOf(after, {UTF8PROC_BOUNDCLASS_L, UTF8PROC_BOUNDCLASS_V, UTF8PROC_BOUNDCLASS_LV,
                        UTF8PROC_BOUNDCLASS_LVT})) {
        return false;
    }
    // GB7
    if (isOneOf(before, {UTF8PROC_BOUNDCLASS_LV, UTF8PROC_BOUNDCLASS_V}) &&
        isOneOf(after, {UTF8PROC_BOUNDCLASS_V, UTF8PROC_BOUNDCLASS_T})) {
        return false;
    }
    // GB8
    if (isOneOf(before, {UTF8PROC_BOUNDCLASS_LVT, UTF8PROC_BOUNDCLASS_T}) &&
        after == UTF8PROC_BOUNDCLASS_T) {
        return false;
    }
    // GB9, GB9a
    if (isOneOf(after, {UTF8PROC_BOUNDCLASS_EXTEND, UTF8PROC_BOUNDCLASS_ZWJ,
                        UTF8PROC_BOUNDCLASS_SPACINGMARK})) {
        return false;
    }
    // GB9b
    if (before == UTF8PROC_BOUNDCLASS_PREPEND) {
        return false;
    }
    // GB11
    if (before == UTF8PROC_BOUNDCLASS_ZWJ && after == UTF8PROC_BOUNDCLASS_EXTENDED_PICTOGRAPHIC) {
        std::size_t base = index - 1; // of the joiner
        while (base > 0 && classes[base - 1] == UTF8PROC_BOUNDCLASS_EXTEND) {
            --base;
        }
        if (base > 0 && classes[base - 1] == UTF8PROC_BOUNDCLASS_EXTENDED_PICTOGRAPHIC) {
            return false;
        }
    }
    // GB12, GB13
    if (after == UTF8PROC_BOUNDCLASS_REGIONAL_INDICATOR) {
        std::size_t indicatorsBefore = 0;
        while (indicatorsBefore < index &&
               classes[index - 1 - indicatorsBefore] == UTF8PROC_BOUNDCLASS_REGIONAL_INDICATOR) {
            ++indicatorsBefore;
        }
        if (indicatorsBefore % 2 == 1) {
            return false;
        }
    }
    // GB999
    return true;
}

} // namespace

std::optional<std::u32string> referenceCodePoints(std::string_view bytes) {
    std::u32string codePoints;
    while (!bytes.empty()) {
        const Beginning beginning = longestBeginning(bytes);
        if (!beginning.isWhole) {
            return std::nullopt;
        }
        codePoints += codePointOf(bytes.substr(0, beginning.length));
        bytes.remove_prefix(beginning.length);
    }
    return codePoints;
}

std::string referenceRepairedText(std::string_view bytes) {
    std::string text;
    while (!bytes.empty()) {
        const Beginning beginning = longestBeginning(bytes);
        if (beginning.isWhole) {
            text += bytes.substr(0, beginning.length);
        } else {
            text += "\uFFFD";
        }
        bytes.remove_prefix(std::max<std::size_t>(beginning.length, 1));
    }
    return text;
}

std::optional<std::string> referenceDecodedText(std::string_view bytes) {
    if (!referenceCodePoints(bytes)) {
        return std::nullopt;
    }
    return std::string(bytes.starts_with("\uFEFF") ? bytes.substr(3) : bytes);
}

std::size_t referenceNumberOfCharacters(std::u32string_view text) {
    std::vector<int> classes;
    for (const char32_t codePoint : text) {
        classes.push_back(classOf(codePoint));
    }
    std::size_t count = text.empty() ? 0U : 1U;
    for (std::size_t index = 1; index < classes.size(); ++index) {
        count += isBoundary(classes, index) ? 1U : 0U;
    }
    return count;
}

std::u16string referenceUTF16(std::u32string_view text) {
    std::u16string units;
    for (const char32_t codePoint : text) {
        if (codePoint < 0x10000) {
            units += static_cast<char16_t>(codePoint);
        } else {
            units += static_cast<char16_t>(0xD800 + (codePoint - 0x10000) / 1024);
            units += static_cast<char16_t>(0xDC00 + (codePoint - 0x10000) % 1024);
        }
    }
    return units;
}

bool referenceIsBlank(std::u32string_view text) {
    constexpr std::u32string_view blanks =
        U"\t \u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A"
        U"\u202F\u205F\u3000";
    return text.find_first_not_of(blanks) == std::u32string_view::npos;
}

} // namespace Rellinor::Tests
