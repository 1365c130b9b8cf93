#include <algorithm>
#include <string>

#include "Platform/WipedStack.hpp"
#include "Private/Detection/Recognisers.hpp"
#include "Private/Proxies/ExportContents.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view blanks = " \t\r\n";

/// Whether a text begins like JSON, and like no row of a table.
bool isPlainlyJSON(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(blanks);
    const std::size_t second = text.find_first_not_of(blanks, first + 1);
    return second != std::string_view::npos && std::string_view("{[").contains(text[first]) &&
           std::string_view("\"{}[]").contains(text[second]);
}

Detection detectFile(const FileParts& file, std::string_view name) {
    const auto part = file.part(0, sizeOfBeginning);
    if (!part) {
        return obstructed(FailureReason::unreadable);
    }
    const std::string_view beginning = part->bytes();
    if (auto found = detectDatabase(file, beginning)) {
        return *found;
    }
    if (auto found = detectArchive(file, beginning)) {
        return *found;
    }
    if (auto found = detectSignature(beginning)) {
        return *found;
    }
    const Detection found =
        detectEncodedText({.text = beginning, .isWhole = beginning.size() == file.size()});
    return found.layout ? found : detectName(name).value_or(found);
}

// Kept out of line: what the detection had on the stack lies beyond the end of the caller's frame.
[[gnu::noinline]] Detection detected(const ExportFile& file) {
    if (!file.url()) {
        return detectFile(FileParts(file.bytes()), file.name());
    }
    const std::string path(file.url()->path());
    // Only what is a regular file is opened: to open a device may do something.
    const auto kind = kindOfFile(path);
    if (!kind) {
        return obstructed(reasonOf(kind.error()));
    }
    if (*kind == FileKind::folder) {
        return detectFolder(*file.url());
    }
    if (*kind == FileKind::other) {
        return obstructed(FailureReason::notAFile, "a device, pipe or socket");
    }
    const auto opened = FileParts::of(file);
    return opened ? detectFile(*opened, path) : obstructed(opened.error());
}

} // namespace

Detection detectText(Beginning beginning) {
    if (beginning.isWhole && beginning.text.find_first_not_of(blanks) == std::string_view::npos) {
        return obstructed(FailureReason::noRows, "there is nothing but blanks in it");
    }
    if (auto found = detectMarkup(beginning.text)) {
        return *found;
    }
    if (auto found = detectJSON(beginning.text)) {
        return *found;
    }
    if (auto found = detectRecordLines(beginning.text)) {
        return *found;
    }
    if (!isPlainlyJSON(beginning.text)) {
        if (auto found = detectColumns(beginning)) {
            return *found;
        }
        if (auto found = detectPositions(beginning)) {
            return *found;
        }
    }
    return unknown("nothing in it tells the source");
}

Detection detect(const ExportFile& file) {
    Detection found = detected(file);
    wipeStack();
    return found;
}

} // namespace Rellinor
