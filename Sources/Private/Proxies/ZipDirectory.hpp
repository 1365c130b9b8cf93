#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string_view>

#include <Rellinor/FailureReason.hpp>

#include "Private/Proxies/FileParts.hpp"

// The list of members at the end of a ZIP archive, which tells all that is believed of them. Names
// are compared, and never used as paths.

namespace Rellinor {

/// A member as the list tells it.
struct ZipMember {
    std::string_view name;   ///< with the folders around it; stands in the list
    std::uint64_t begin = 0; ///< where the header in front of its bytes is
    std::size_t packedSize = 0;
    std::size_t size = 0;
    std::uint32_t checksum = 0;
    std::uint16_t method = 0; ///< how its bytes are packed
    bool isEncrypted = false;

    [[nodiscard]] bool isFolder() const noexcept { return name.ends_with('/'); }

    /// Whether it has this name, in any folder of the archive and any case of ASCII letters.
    [[nodiscard]] bool isNamed(std::string_view wanted) const noexcept;
};

/// The member of that name, in any folder; of several the one in the fewest folders. Null if there
/// is none; damaged if two are in as few.
[[nodiscard]] std::expected<const ZipMember*, FailureReason>
memberNamed(std::string_view name, std::span<const ZipMember> members) noexcept;

/// Where the list is.
struct ZipList {
    std::size_t count = 0; ///< of the members
    std::uint64_t begin = 0;
    std::size_t size = 0;
};

/// Whether a file begins like an archive.
[[nodiscard]] bool isZip(std::string_view beginning) noexcept;

/// Where the list of an archive is, which must be one file of less than 4 GiB; or why there is
/// none.
///
/// @throws std::bad_alloc
[[nodiscard]] std::expected<ZipList, FailureReason> zipListOf(const FileParts& file);

/// Takes the next member off a list. Absent at its end, and where no whole member stands: something
/// is left of the list then.
[[nodiscard]] std::optional<ZipMember> nextZipMember(std::string_view& list) noexcept;

/// What stands in front of the bytes of a member, followed by the name and other things.
struct ZipHeader {
    std::size_t sizeOfName = 0;
    std::size_t sizeOfRest = 0;
    std::uint16_t method = 0;
};

inline constexpr std::size_t sizeOfZipHeader = 30;

/// Absent if the bytes are no such header.
[[nodiscard]] std::optional<ZipHeader> zipHeaderOf(std::string_view bytes) noexcept;

} // namespace Rellinor
