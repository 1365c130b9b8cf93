#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// How the bytes of a text stand for its characters and lines. An import takes UTF-8 alone, with or
// without a mark in front, and line feeds, alone or behind carriage returns.

namespace Rellinor::Host {

/// The mark of UTF-8, which some programs write in front of a text.
inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The text without a byte-order mark of UTF-8.
[[nodiscard]] std::string_view withoutByteOrderMark(std::string_view text) noexcept;

/// What keeps bytes from being text in UTF-8.
struct EncodingFault {
    std::string_view reason;
    std::optional<std::size_t> offset; ///< of the first wrong byte; absent if all is wrong
};

/// What to do about any of them.
inline constexpr std::string_view saveAsUTF8 = "save the file as UTF-8";

/// Absent if the bytes are UTF-8. Text in UTF-16 is known by its mark, or else by the NULs beside
/// the plain letters that it begins with.
[[nodiscard]] std::optional<EncodingFault> encodingFault(std::string_view bytes);

/// Whether carriage returns part lines from each other and nothing else does, so that an import
/// takes them for one.
[[nodiscard]] bool hasCarriageReturnsOnly(std::string_view text) noexcept;

} // namespace Rellinor::Host
