#include "Private/Proxies/ExportContents.hpp"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "Platform/Fault.hpp"
#include "Private/Text/UTF16.hpp"

namespace Rellinor {

namespace {

std::expected<FileContents, FileError> copyOf(std::span<const char> bytes, FileMargins margins,
                                              std::uint64_t mostBytes) {
    if (bytes.size() > mostBytes) {
        return std::unexpected(FileError::tooLarge);
    }
    FileContents contents{.buffer = WipedBuffer(margins.before + bytes.size() + margins.behind),
                          .begin = margins.before,
                          .size = bytes.size()};
    std::ranges::copy(bytes, contents.bytes().begin());
    return contents;
}

} // namespace

FailureReason reasonOf(FileError error) noexcept {
    switch (error) {
    case FileError::missing:
        return FailureReason::missing;
    case FileError::noPermission:
        return FailureReason::noPermission;
    case FileError::notAFile:
        return FailureReason::notAFile;
    case FileError::unreadable:
        return FailureReason::unreadable;
    case FileError::tooLarge:
        return FailureReason::tooLarge;
    }
    fault();
}

std::expected<FileContents, FailureReason> contentsOf(const ExportFile& file, FileMargins margins,
                                                      std::uint64_t mostBytes) {
    auto contents = file.url() ? readFile(file.url()->path(), margins, mostBytes)
                               : copyOf(file.bytes(), margins, mostBytes);
    if (!contents) {
        return std::unexpected(reasonOf(contents.error()));
    }
    return *std::move(contents);
}

FailureReason reasonForNoUTF8(std::string_view bytes) noexcept {
    return hasUTF16Mark(bytes) ? FailureReason::utf16 : FailureReason::notUTF8;
}

} // namespace Rellinor
