#include "Private/Proxies/ZipDirectory.hpp"

#include <algorithm>

#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

constexpr std::size_t sizeOfEndRecord = 22;
constexpr std::size_t longestComment = 0xFFFF;
constexpr std::size_t sizeOfLargeLocator = 20;
constexpr std::size_t sizeOfEntry = 46;

constexpr std::string_view signatureOfEndRecord = "PK\5\6";
constexpr std::string_view signatureOfLargeLocator = "PK\6\7";
constexpr std::string_view signatureOfEntry = "PK\1\2";
constexpr std::string_view signatureOfHeader = "PK\3\4";

/// What stands in place of a number that is told elsewhere, in the form for large archives.
constexpr std::uint32_t elsewhere16 = 0xFFFF;
constexpr std::uint32_t elsewhere32 = 0xFFFFFFFF;

std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t size) noexcept {
    std::uint32_t value = 0;
    for (std::size_t i = size; i > 0; --i) {
        value = (value << 8U) | static_cast<unsigned char>(bytes[at + i - 1]);
    }
    return value;
}

std::uint32_t number16(std::string_view bytes, std::size_t at) noexcept {
    return number(bytes, at, 2);
}

std::uint32_t number32(std::string_view bytes, std::size_t at) noexcept {
    return number(bytes, at, 4);
}

/// Where the end record stands in the last bytes of a file: the last one whose comment ends with
/// the file.
std::optional<std::size_t> endRecordIn(std::string_view bytes) noexcept {
    std::size_t place = bytes.rfind(signatureOfEndRecord);
    while (place != std::string_view::npos) {
        const std::size_t behind = bytes.size() - place;
        if (behind >= sizeOfEndRecord && number16(bytes, place + 20) == behind - sizeOfEndRecord) {
            return place;
        }
        place = place > 0 ? bytes.rfind(signatureOfEndRecord, place - 1) : std::string_view::npos;
    }
    return std::nullopt;
}

} // namespace

bool ZipMember::isNamed(std::string_view wanted) const noexcept {
    if (name.size() < wanted.size()) {
        return false;
    }
    const std::size_t place = name.size() - wanted.size();
    return sameIgnoringCase(name.substr(place), wanted) && (place == 0 || name[place - 1] == '/');
}

std::expected<const ZipMember*, FailureReason>
memberNamed(std::string_view name, std::span<const ZipMember> members) noexcept {
    const auto depthOf = [](const ZipMember& member) {
        return std::ranges::count(member.name, '/');
    };
    const ZipMember* found = nullptr;
    bool isUnique = true;
    for (const ZipMember& member : members) {
        if (!member.isNamed(name)) {
            continue;
        }
        if (found == nullptr || depthOf(member) < depthOf(*found)) {
            found = &member;
            isUnique = true;
        } else if (depthOf(member) == depthOf(*found)) {
            isUnique = false;
        }
    }
    if (!isUnique) {
        return std::unexpected(FailureReason::damaged);
    }
    return found;
}

bool isZip(std::string_view beginning) noexcept {
    return beginning.starts_with(signatureOfHeader) || beginning.starts_with(signatureOfEndRecord);
}

std::expected<ZipList, FailureReason> zipListOf(const FileParts& file) {
    constexpr std::size_t longest = sizeOfEndRecord + longestComment;

    const std::uint64_t begin = file.size() - std::min<std::uint64_t>(file.size(), longest);
    const auto part = file.part(begin, longest);
    if (!part) {
        return std::unexpected(FailureReason::unreadable);
    }
    const std::string_view bytes = part->bytes();
    const auto place = endRecordIn(bytes);
    if (!place) {
        return std::unexpected(FailureReason::damaged);
    }
    const std::uint32_t disk = number16(bytes, *place + 4);
    const std::uint32_t diskOfList = number16(bytes, *place + 6);
    const std::uint32_t countOfDisk = number16(bytes, *place + 8);
    const std::uint32_t count = number16(bytes, *place + 10);
    const std::uint32_t size = number32(bytes, *place + 12);
    const std::uint32_t beginOfList = number32(bytes, *place + 16);

    const bool isLarge =
        count == elsewhere16 || size == elsewhere32 || beginOfList == elsewhere32 ||
        (*place >= sizeOfLargeLocator &&
         bytes.substr(*place - sizeOfLargeLocator).starts_with(signatureOfLargeLocator));
    if (isLarge || disk != 0 || diskOfList != 0) {
        return std::unexpected(FailureReason::notRead);
    }
    const bool isSound = countOfDisk == count && size / sizeOfEntry >= count &&
                         std::uint64_t{beginOfList} + size <= begin + *place;
    if (!isSound) {
        return std::unexpected(FailureReason::damaged);
    }
    return ZipList{.count = count, .begin = beginOfList, .size = size};
}

std::optional<ZipMember> nextZipMember(std::string_view& list) noexcept {
    if (list.size() < sizeOfEntry || !list.starts_with(signatureOfEntry)) {
        return std::nullopt;
    }
    const std::size_t sizeOfName = number16(list, 28);
    const std::size_t size = sizeOfEntry + sizeOfName + number16(list, 30) + number16(list, 32);
    if (list.size() < size) {
        return std::nullopt;
    }
    const ZipMember member{.name = list.substr(sizeOfEntry, sizeOfName),
                           .begin = number32(list, 42),
                           .packedSize = number32(list, 20),
                           .size = number32(list, 24),
                           .checksum = number32(list, 16),
                           .method = static_cast<std::uint16_t>(number16(list, 10)),
                           .isEncrypted = (number16(list, 8) & 1U) != 0};
    list.remove_prefix(size);
    return member;
}

std::optional<ZipHeader> zipHeaderOf(std::string_view bytes) noexcept {
    if (bytes.size() < sizeOfZipHeader || !bytes.starts_with(signatureOfHeader)) {
        return std::nullopt;
    }
    return ZipHeader{.sizeOfName = number16(bytes, 26),
                     .sizeOfRest = number16(bytes, 28),
                     .method = static_cast<std::uint16_t>(number16(bytes, 8))};
}

} // namespace Rellinor
