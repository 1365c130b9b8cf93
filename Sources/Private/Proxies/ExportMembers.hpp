#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <Rellinor/ExportFile.hpp>
#include <Rellinor/FailureReason.hpp>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/ZipArchive.hpp"

namespace Rellinor {

/// The files of an export that has several: the members of an archive, or what stands in a folder.
/// Of the files in a folder the name alone is known until they are read.
class ExportMembers {
public:
    /// Opens an archive or folder, or says why not.
    ///
    /// @param mostBytes     a larger archive is not read
    /// @param mostUnpacked  how many bytes all members that are read may have together
    /// @throws std::bad_alloc
    [[nodiscard]] static std::expected<ExportMembers, FailureReason>
    opened(const ExportFile& file, std::uint64_t mostBytes, std::uint64_t mostUnpacked);

    /// All members, in their order; folders among them.
    [[nodiscard]] std::span<const ZipMember> all() const noexcept;

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
    explicit ExportMembers(ZipArchive archive) noexcept : _archive(std::move(archive)) {}

    ExportMembers(std::string folder, std::vector<std::string> names, std::uint64_t most);

    [[nodiscard]] std::string pathOf(const ZipMember& member) const;

    std::optional<ZipArchive> _archive;
    std::string _folder;
    std::vector<std::string> _names;
    std::vector<ZipMember> _members;
    std::uint64_t _most = 0; // bytes that may still be read
};

} // namespace Rellinor
