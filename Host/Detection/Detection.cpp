#include "Host/Detection/Detection.hpp"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "Host/Detection/Recognisers.hpp"
#include "Host/FileContents.hpp"
#include "Host/Obstacle.hpp"
#include "Host/TextEncoding.hpp"

namespace Rellinor::Host {

namespace {

/// Whether a text begins like JSON, and like no row of a table.
bool isPlainlyJSON(std::string_view text) noexcept {
    constexpr std::string_view blanks = " \t\r\n";

    const std::size_t first = text.find_first_not_of(blanks);
    const std::size_t second = text.find_first_not_of(blanks, first + 1);
    return second != std::string_view::npos && std::string_view("{[").contains(text[first]) &&
           std::string_view("\"{}[]").contains(text[second]);
}

/// A text, by the first that recognises it. Names tell more than positions.
Detection detectText(const std::string& path, std::string_view beginning) {
    const std::string_view text = withoutByteOrderMark(beginning);
    if (auto found = detectMarkup(text)) {
        return *found;
    }
    if (auto found = detectJSON(path, text)) {
        return *found;
    }
    if (auto found = detectCarriageReturns(path, beginning)) {
        return *found;
    }
    if (auto found = detectNamedColumns(beginning)) {
        return *found;
    }
    if (auto found = detectRecordLines(path, text)) {
        return *found;
    }
    if (!isPlainlyJSON(text)) {
        if (auto found = detectPositions(beginning)) {
            return *found;
        }
        if (auto found = detectSeparators(beginning)) {
            return *found;
        }
    }
    return unknown("nothing in it tells the source");
}

Detection detectFile(const std::string& path) {
    const std::optional<std::string> beginning = contentsOf(path, sizeOfBeginning);
    if (!beginning) {
        return unknown("it cannot be read");
    }
    if (beginning->empty()) {
        return unknown("the file is empty");
    }
    if (auto found = detectDatabase(path, *beginning)) {
        return *found;
    }
    if (auto found = detectArchive(path, *beginning)) {
        return *found;
    }
    if (auto found = detectSignature(*beginning)) {
        return *found;
    }
    if (auto found = detectEncoding(*beginning)) {
        return *found;
    }
    return detectText(path, *beginning);
}

} // namespace

Detection detect(const std::string& path) {
    if (const std::string reason = obstacle(path); !reason.empty()) {
        return unknown(reason);
    }
    std::error_code error;
    return std::filesystem::is_directory(path, error) ? detectFolder(path) : detectFile(path);
}

} // namespace Rellinor::Host
