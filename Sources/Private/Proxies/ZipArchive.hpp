#pragma once

#include <cstdint>
#include <expected>
#include <span>
#include <string_view>
#include <vector>

#include <Rellinor/ExportFile.hpp>
#include <Rellinor/FailureReason.hpp>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/FileParts.hpp"
#include "Private/Proxies/ZipDirectory.hpp"

namespace Rellinor {

/// A ZIP archive of which single members are read. Nothing of it is written anywhere.
///
/// The archive must be one file of less than 4 GiB, and a member that is read stored or deflated.
/// What contradicts itself is refused.
class ZipArchive {
public:
    /// Opens an archive, or says why not.
    ///
    /// @param mostBytes     a larger file is not read
    /// @param mostUnpacked  how many bytes all members that are read may have together
    /// @throws std::bad_alloc
    [[nodiscard]] static std::expected<ZipArchive, FailureReason>
    opened(const ExportFile& file, std::uint64_t mostBytes, std::uint64_t mostUnpacked);

    /// All members, in the order of the list.
    [[nodiscard]] std::span<const ZipMember> members() const noexcept { return _members; }

    /// The bytes of one of the members, which the caller may rewrite; or why there are none.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::expected<std::span<char>, FailureReason> read(const ZipMember& member,
                                                                     ImportMemory& memory);

    /// The bytes that a member begins with, at most so many; or why there are none.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::expected<FilePart, FailureReason> beginning(const ZipMember& member,
                                                                   std::size_t most) const;

private:
    ZipArchive(FileParts file, FilePart list, std::vector<ZipMember> members, std::uint64_t end,
               std::uint64_t mostUnpacked);

    [[nodiscard]] bool isAlone(const ZipMember& member, std::uint64_t end) const noexcept;
    [[nodiscard]] std::expected<std::uint64_t, FailureReason>
    beginOfBytes(const ZipMember& member) const;
    [[nodiscard]] std::expected<FilePart, FailureReason> packedBytes(const ZipMember& member,
                                                                     std::size_t most) const;

    FileParts _file;
    FilePart _list; // in which the names stand
    std::vector<ZipMember> _members;
    std::vector<std::uint64_t> _begins; // of all members and of the list, ascending
    std::uint64_t _mostUnpacked;
};

} // namespace Rellinor
