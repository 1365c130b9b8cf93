#include "Private/Proxies/ZipArchive.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Inflation.hpp"

namespace Rellinor {

namespace {

constexpr std::uint16_t stored = 0;
constexpr std::uint16_t deflated = 8;

/// Whether so few bytes become so many in honest files.
bool isCredible(std::size_t packed, std::size_t unpacked) noexcept {
    constexpr std::size_t always = std::size_t{64} * 1024 * 1024;
    constexpr std::size_t mostTimes = 256;

    return unpacked <= always || unpacked / mostTimes <= packed;
}

/// Room for the bytes of a member, as much as is likely to be needed.
std::size_t firstRoomFor(const ZipMember& member) noexcept {
    constexpr std::size_t smallest = std::size_t{64} * 1024;
    constexpr std::size_t times = 16;

    return std::min(member.size, std::max(smallest, member.packedSize * times));
}

FileContents grown(FileContents contents, std::size_t size) {
    FileContents larger{.buffer = WipedBuffer(size), .begin = 0, .size = contents.size};
    std::ranges::copy(contents.bytes(), larger.bytes().begin());
    return larger;
}

/// What packed bytes are, of which the list tells the number.
std::expected<FileContents, FailureReason> unpacked(std::string_view packed,
                                                    const ZipMember& member) {
    constexpr std::size_t growth = 4;
    constexpr std::size_t step = std::size_t{1024} * 1024;

    Inflation inflation(packed);
    FileContents contents{.buffer = WipedBuffer(firstRoomFor(member)), .begin = 0, .size = 0};
    for (;;) {
        if (contents.size == contents.buffer.size() && contents.size < member.size) {
            const std::size_t room = std::min(member.size, contents.buffer.size() * growth);
            contents = grown(std::move(contents), room);
        }
        const std::size_t room = std::min(step, contents.buffer.size() - contents.size);
        char one = 0; // for a byte more than the list tells
        const std::span<char> target =
            room > 0 ? contents.buffer.bytes().subspan(contents.size, room) : std::span(&one, 1);
        const auto written = inflation.next(target);
        if (!written) {
            return std::unexpected(FailureReason::damaged);
        }
        if (*written > 0 && room == 0) {
            return std::unexpected(FailureReason::damaged);
        }
        contents.size += *written;
        if (!isCredible(inflation.used(), contents.size)) {
            return std::unexpected(FailureReason::refusedForItsCost);
        }
        if (*written < target.size()) {
            const bool isWhole = contents.size == member.size && inflation.used() == packed.size();
            return isWhole ? std::expected<FileContents, FailureReason>(std::move(contents))
                           : std::unexpected(FailureReason::damaged);
        }
    }
}

std::expected<FileContents, FailureReason> copied(std::string_view bytes, const ZipMember& member) {
    if (bytes.size() != member.size) {
        return std::unexpected(FailureReason::damaged);
    }
    FileContents contents{.buffer = WipedBuffer(bytes.size()), .begin = 0, .size = bytes.size()};
    std::ranges::copy(bytes, contents.bytes().begin());
    return contents;
}

} // namespace

ZipArchive::ZipArchive(FileParts file, FilePart list, std::vector<ZipMember> members,
                       std::uint64_t end, std::uint64_t mostUnpacked)
    : _file(std::move(file)), _list(std::move(list)), _members(std::move(members)),
      _mostUnpacked(mostUnpacked) {
    _begins.reserve(_members.size() + 1);
    for (const ZipMember& member : _members) {
        _begins.push_back(member.begin);
    }
    _begins.push_back(end);
    std::ranges::sort(_begins);
}

std::expected<ZipArchive, FailureReason> ZipArchive::opened(const ExportFile& exportFile,
                                                            std::uint64_t mostBytes,
                                                            std::uint64_t mostUnpacked) {
    auto file = FileParts::of(exportFile);
    if (!file) {
        return std::unexpected(file.error());
    }
    if (file->size() > mostBytes) {
        return std::unexpected(FailureReason::tooLarge);
    }
    const auto place = zipListOf(*file);
    if (!place) {
        return std::unexpected(place.error());
    }
    auto list = file->part(place->begin, place->size);
    if (!list) {
        return std::unexpected(FailureReason::unreadable);
    }
    std::string_view rest = list->bytes();
    std::vector<ZipMember> members;
    members.reserve(place->count);
    while (members.size() < place->count) {
        const auto member = nextZipMember(rest);
        if (!member) {
            return std::unexpected(FailureReason::damaged);
        }
        members.push_back(*member);
    }
    if (!rest.empty() || list->bytes().size() != place->size) {
        return std::unexpected(FailureReason::damaged);
    }
    return ZipArchive(*std::move(file), *std::move(list), std::move(members), place->begin,
                      mostUnpacked);
}

/// Whether no other member, nor the list, begins within a member.
bool ZipArchive::isAlone(const ZipMember& member, std::uint64_t end) const noexcept {
    const auto [first, last] = std::ranges::equal_range(_begins, member.begin);
    return last - first == 1 && last != _begins.end() && end <= *last;
}

/// Where the bytes of a member begin, behind a header that agrees with the list.
std::expected<std::uint64_t, FailureReason>
ZipArchive::beginOfBytes(const ZipMember& member) const {
    const auto part = _file.part(member.begin, sizeOfZipHeader + member.name.size());
    if (!part) {
        return std::unexpected(FailureReason::unreadable);
    }
    const auto header = zipHeaderOf(part->bytes());
    const bool agrees = header && header->method == member.method &&
                        header->sizeOfName == member.name.size() &&
                        part->bytes().substr(sizeOfZipHeader) == member.name;
    if (!agrees) {
        return std::unexpected(FailureReason::damaged);
    }
    return member.begin + sizeOfZipHeader + header->sizeOfName + header->sizeOfRest;
}

/// The bytes of a member as they stand in the archive, at most so many.
std::expected<FilePart, FailureReason> ZipArchive::packedBytes(const ZipMember& member,
                                                               std::size_t most) const {
    if (member.isEncrypted) {
        return std::unexpected(FailureReason::encrypted);
    }
    if (member.method != stored && member.method != deflated) {
        return std::unexpected(FailureReason::notRead);
    }
    const auto begin = beginOfBytes(member);
    if (!begin) {
        return std::unexpected(begin.error());
    }
    if (!isAlone(member, *begin + member.packedSize)) {
        return std::unexpected(FailureReason::damaged);
    }
    const std::size_t size = std::min(member.packedSize, most);
    auto packed = _file.part(*begin, size);
    if (!packed) {
        return std::unexpected(FailureReason::unreadable);
    }
    if (packed->bytes().size() != size) {
        return std::unexpected(FailureReason::damaged);
    }
    return *std::move(packed);
}

std::expected<FilePart, FailureReason> ZipArchive::beginning(const ZipMember& member,
                                                             std::size_t most) const {
    // What cannot be packed takes a little more room than it has bytes.
    auto packed = packedBytes(member, member.method == stored ? most : 2 * most);
    if (!packed || member.method == stored) {
        return packed;
    }
    Inflation inflation(packed->bytes());
    WipedBuffer buffer(most);
    const auto written = inflation.next(buffer.bytes());
    return written ? std::expected<FilePart, FailureReason>(FilePart(std::move(buffer), *written))
                   : std::unexpected(FailureReason::damaged);
}

std::expected<std::span<char>, FailureReason> ZipArchive::read(const ZipMember& member,
                                                               ImportMemory& memory) {
    const auto packed = packedBytes(member, member.packedSize);
    if (!packed) {
        return std::unexpected(packed.error());
    }
    if (member.size > _mostUnpacked) {
        return std::unexpected(FailureReason::tooLarge);
    }
    auto contents = member.method == stored ? copied(packed->bytes(), member)
                                            : unpacked(packed->bytes(), member);
    if (!contents) {
        return std::unexpected(contents.error());
    }
    const std::span<char> bytes = memory.adopt(*std::move(contents));
    if (checksumOf({bytes.data(), bytes.size()}) != member.checksum) {
        return std::unexpected(FailureReason::damaged);
    }
    _mostUnpacked -= member.size;
    return bytes;
}

} // namespace Rellinor
