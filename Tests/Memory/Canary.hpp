#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Rellinor::Tests {

/// A secret that this process can look for without ever having it: its letters are computed one by
/// one, and compared under a mask. It looks like random letters and digits.
class Canary {
public:
    static constexpr std::size_t usualLength = 24;

    /// @param family  canaries of different families have nothing in common
    /// @param length  in letters; whole pieces and, to be Base64 of something, whole groups of four
    Canary(std::uint32_t family, std::uint32_t number, std::size_t length = usualLength) noexcept
        : _family(family), _number(number), _length(length) {}

    [[nodiscard]] std::uint32_t number() const noexcept { return _number; }

    [[nodiscard]] std::size_t length() const noexcept { return _length; }

    [[nodiscard]] char letter(std::size_t index) const noexcept;

    /// A byte of what the letters are the Base64 text of.
    [[nodiscard]] char decodedByte(std::size_t index) const noexcept;

    [[nodiscard]] std::size_t decodedSize() const noexcept { return _length / 4 * 3; }

    auto operator<=>(const Canary&) const = default;

private:
    std::uint32_t _family;
    std::uint32_t _number;
    std::size_t _length;
};

// What a search compares: eight bytes at a time, each under the mask. A copy of fifteen bytes of a
// canary, wherever it begins, holds a whole piece.

using Piece = std::uint64_t;

inline constexpr std::size_t sizeOfPiece = sizeof(Piece);
inline constexpr Piece maskOfPieces = 0xA7A7A7A7A7A7A7A7U;

/// The pieces of a canary in UTF-8.
[[nodiscard]] std::vector<Piece> maskedPiecesOf(const Canary& canary);

/// Its pieces in UTF-16, of four letters each: which may well be those of another, so that only two
/// in a row tell that it is there.
[[nodiscard]] std::vector<Piece> maskedPiecesOfUTF16(const Canary& canary);

/// The pieces of the bytes that it is the Base64 text of.
[[nodiscard]] std::vector<Piece> maskedPiecesOfDecoded(const Canary& canary);

// A template is the text of an export in which canaries are named: <7> is the one of number 7,
// <7:64> is 64 letters long. A letter says how it is written; breaks come between pieces:
//
//     <7q>  with doubled quotes   <7b>  with escaped quotes (\")   <7u>  each letter as \u0041
//     <7n>  with escaped breaks   <7x>  decoded, in hexadecimal

/// The canaries that a template names.
[[nodiscard]] std::vector<Canary> canariesIn(std::string_view text, std::uint32_t family);

/// The text that a template stands for. To be called in a process of its own.
[[nodiscard]] std::string expanded(std::string_view text, std::uint32_t family);

} // namespace Rellinor::Tests
