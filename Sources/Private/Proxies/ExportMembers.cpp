#include "Private/Proxies/ExportMembers.hpp"

#include <utility>

#include "Platform/File.hpp"
#include "Private/Proxies/ExportContents.hpp"

namespace Rellinor {

ExportMembers::ExportMembers(std::string folder, std::vector<std::string> names, std::uint64_t most)
    : _folder(std::move(folder)), _names(std::move(names)), _most(most) {
    _members.reserve(_names.size());
    for (const std::string& name : _names) {
        _members.push_back({.name = name});
    }
}

std::expected<ExportMembers, FailureReason>
ExportMembers::opened(const ExportFile& file, std::uint64_t mostBytes, std::uint64_t mostUnpacked) {
    if (file.url() && isFolder(file.url()->path())) {
        std::string folder(file.url()->path());
        auto names = filesIn(folder);
        if (!names) {
            return std::unexpected(reasonOf(names.error()));
        }
        return ExportMembers(std::move(folder), *std::move(names), mostUnpacked);
    }
    auto archive = ZipArchive::opened(file, mostBytes, mostUnpacked);
    if (!archive) {
        return std::unexpected(archive.error());
    }
    return ExportMembers(*std::move(archive));
}

std::span<const ZipMember> ExportMembers::all() const noexcept {
    return _archive ? _archive->members() : std::span(_members);
}

std::string ExportMembers::pathOf(const ZipMember& member) const {
    return _folder + '/' + std::string(member.name);
}

std::expected<std::span<char>, FailureReason> ExportMembers::read(const ZipMember& member,
                                                                  ImportMemory& memory) {
    if (_archive) {
        return _archive->read(member, memory);
    }
    auto contents = readFile(pathOf(member), {}, _most);
    if (!contents) {
        return std::unexpected(reasonOf(contents.error()));
    }
    _most -= contents->size;
    return memory.adopt(*std::move(contents));
}

std::expected<FilePart, FailureReason> ExportMembers::beginning(const ZipMember& member,
                                                                std::size_t most) const {
    if (_archive) {
        return _archive->beginning(member, most);
    }
    auto file = OpenFile::at(pathOf(member));
    if (!file) {
        return std::unexpected(reasonOf(file.error()));
    }
    auto part = FileParts(*std::move(file)).part(0, most);
    if (!part) {
        return std::unexpected(FailureReason::unreadable);
    }
    return *std::move(part);
}

} // namespace Rellinor
