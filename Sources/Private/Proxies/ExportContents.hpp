#pragma once

#include <cstdint>
#include <expected>
#include <limits>
#include <string_view>

#include <Rellinor/ExportFile.hpp>
#include <Rellinor/FailureReason.hpp>

#include "Platform/File.hpp"

namespace Rellinor {

inline constexpr std::uint64_t anyNumberOfBytes = std::numeric_limits<std::uint64_t>::max();

/// The bytes of a file, or a copy of those in memory; or why there are none.
///
/// @param mostBytes  more are not read
/// @throws std::bad_alloc
[[nodiscard]] std::expected<FileContents, FailureReason>
contentsOf(const ExportFile& file, FileMargins margins, std::uint64_t mostBytes);

/// The same reason for a host.
[[nodiscard]] FailureReason reasonOf(FileError error) noexcept;

/// What bytes that are not UTF-8 are likely to be.
[[nodiscard]] FailureReason reasonForNoUTF8(std::string_view bytes) noexcept;

} // namespace Rellinor
