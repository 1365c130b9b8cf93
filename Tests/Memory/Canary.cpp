#include "Tests/Memory/Canary.hpp"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace Rellinor::Tests {

namespace {

constexpr std::uint64_t mixed(std::uint64_t value) noexcept {
    value ^= value >> 30U;
    value *= 0xBF58476D1CE4E5B9U;
    value ^= value >> 27U;
    value *= 0x94D049BB133111EBU;
    return value ^ value >> 31U;
}

/// The letter of a Base64 text that stands for six bits; the last two of the alphabet never occur.
constexpr char letterOf(unsigned bits) noexcept {
    if (bits < 26) {
        return static_cast<char>('A' + bits);
    }
    return static_cast<char>(bits < 52 ? 'a' + (bits - 26) : '0' + (bits - 52));
}

constexpr std::string_view forms = "qbunx";

/// What a name in a template says.
struct Name {
    Canary canary;
    char form;
};

Name nameIn(std::string_view text, std::uint32_t family) {
    const auto number = [&] {
        std::uint32_t value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc()) {
            throw std::runtime_error("a template names no canary");
        }
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        return value;
    };
    const std::uint32_t canary = number();
    char form = ' ';
    if (!text.empty() && forms.contains(text.front())) {
        form = text.front();
        text.remove_prefix(1);
    }
    if (!text.starts_with(':')) {
        return {.canary = Canary(family, canary), .form = form};
    }
    text.remove_prefix(1);
    return {.canary = Canary(family, canary, number()), .form = form};
}

void forEachPart(std::string_view text, std::uint32_t family, auto&& visitText, auto&& visitName) {
    for (;;) {
        const std::size_t begin = text.find('<');
        visitText(text.substr(0, begin));
        if (begin == std::string_view::npos) {
            return;
        }
        const std::size_t end = text.find('>', begin);
        visitName(nameIn(text.substr(begin + 1, end - begin - 1), family));
        text.remove_prefix(end + 1);
    }
}

void appendHexadecimal(std::string& text, char byte) {
    constexpr std::string_view digits = "0123456789abcdef";
    text += digits[static_cast<unsigned char>(byte) >> 4U];
    text += digits[static_cast<unsigned char>(byte) & 0xFU];
}

std::string_view breakOf(char form) noexcept {
    switch (form) {
    case 'q':
        return "\"\"";
    case 'b':
        return "\\\"";
    case 'n':
        return "\\n\\u00e4";
    default:
        return "";
    }
}

void append(std::string& text, const Name& name) {
    if (name.form == 'x') {
        for (std::size_t index = 0; index < name.canary.decodedSize(); ++index) {
            appendHexadecimal(text, name.canary.decodedByte(index));
        }
        return;
    }
    for (std::size_t index = 0; index < name.canary.length(); ++index) {
        if (index > 0 && index % sizeOfPiece == 0) {
            text += breakOf(name.form);
        }
        if (name.form == 'u') {
            text += "\\u00";
            appendHexadecimal(text, name.canary.letter(index));
        } else {
            text += name.canary.letter(index);
        }
    }
}

void appendPieces(std::vector<Piece>& pieces, std::size_t size, auto&& byteAt) {
    for (std::size_t begin = 0; begin + sizeOfPiece <= size; begin += sizeOfPiece) {
        Piece piece = 0;
        for (std::size_t index = 0; index < sizeOfPiece; ++index) {
            const auto mask = static_cast<unsigned char>(maskOfPieces);
            const auto masked = static_cast<unsigned char>(byteAt(begin + index) ^ mask);
            piece |= Piece{masked} << (8 * index);
        }
        pieces.push_back(piece);
    }
}

} // namespace

char Canary::letter(std::size_t index) const noexcept {
    return letterOf(static_cast<unsigned>(
        mixed(mixed((std::uint64_t{_family} << 32U) + _number) + index) % 62));
}

char Canary::decodedByte(std::size_t index) const noexcept {
    const auto bitsOf = [&](std::size_t letterIndex) {
        const char character = letter(letterIndex);
        const int base = character >= 'a' ? 'a' - 26 : character >= 'A' ? 'A' : '0' - 52;
        return static_cast<unsigned>(character - base);
    };
    const std::size_t first = index / 3 * 4 + index % 3;
    const auto shift = static_cast<unsigned>(2 * (index % 3) + 2);
    return static_cast<char>(bitsOf(first) << shift | bitsOf(first + 1) >> (6 - shift));
}

std::vector<Piece> maskedPiecesOf(const Canary& canary) {
    std::vector<Piece> pieces;
    appendPieces(pieces, canary.length(), [&](std::size_t index) { return canary.letter(index); });
    return pieces;
}

std::vector<Piece> maskedPiecesOfUTF16(const Canary& canary) {
    std::vector<Piece> pieces;
    appendPieces(pieces, canary.length() * 2, [&](std::size_t index) { // lowest byte first
        return index % 2 == 0 ? canary.letter(index / 2) : '\0';
    });
    return pieces;
}

std::vector<Piece> maskedPiecesOfDecoded(const Canary& canary) {
    std::vector<Piece> pieces;
    appendPieces(pieces, canary.decodedSize(),
                 [&](std::size_t index) { return canary.decodedByte(index); });
    return pieces;
}

std::vector<Canary> canariesIn(std::string_view text, std::uint32_t family) {
    std::vector<Canary> canaries;
    forEachPart(
        text, family, [](std::string_view /*text*/) {},
        [&](const Name& name) { canaries.push_back(name.canary); });
    std::ranges::sort(canaries);
    canaries.erase(std::ranges::unique(canaries).begin(), canaries.end());
    return canaries;
}

std::string expanded(std::string_view text, std::uint32_t family) {
    std::string whole;
    forEachPart(
        text, family, [&](std::string_view part) { whole += part; },
        [&](const Name& name) { append(whole, name); });
    return whole;
}

} // namespace Rellinor::Tests
