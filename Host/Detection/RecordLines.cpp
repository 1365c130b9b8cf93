#include <array>
#include <fstream>

#include "Host/Detection/Recognisers.hpp"
#include "Host/FileContents.hpp"

namespace Rellinor::Host {

namespace {

/// Whether an object in one line has a member of this name somewhere. In a text its quotes would be
/// escaped.
bool hasMember(std::string_view line, std::string_view quotedName) noexcept {
    for (std::size_t at = line.find(quotedName); at != std::string_view::npos;
         at = line.find(quotedName, at + 1)) {
        const std::size_t next = line.find_first_not_of(" \t", at + quotedName.size());
        if (next != std::string_view::npos && line[next] == ':' &&
            (at == 0 || line[at - 1] != '\\')) {
            return true;
        }
    }
    return false;
}

bool isSeparator(std::string_view line) noexcept {
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    constexpr std::string_view stars = "***";
    return line.size() > 2 * stars.size() && line.starts_with(stars) && line.ends_with(stars);
}

bool hasRecordLine(std::string_view text, char lineEnd) noexcept {
    const std::array<char, 2> begin = {lineEnd, '{'};
    return text.starts_with('{') || text.contains(std::string_view(begin.data(), begin.size()));
}

/// Reads the next line; false if there is none, or if it cannot be read.
///
/// @param file  throws what makes it bad
/// @throws std::bad_alloc
bool nextLine(std::ifstream& file, std::string& line, char lineEnd) {
    try {
        return static_cast<bool>(std::getline(file, line, lineEnd));
    } catch (const std::ios::failure&) {
        return false;
    }
}

Detection onePassword(Confidence confidence, std::string_view reason) {
    return {.layout = "1Password export (1PIF)",
            .source = ImportSource::onePassword,
            .confidence = confidence,
            .reason = std::string(reason),
            .advice = {}};
}

} // namespace

std::optional<Detection> detectRecordLines(const std::string& path, std::string_view beginning,
                                           char lineEnd) {
    if (!hasRecordLine(beginning, lineEnd)) {
        return std::nullopt;
    }
    std::ifstream file = openedText(path);
    file.exceptions(std::ios::badbit); // a line that lacks memory would look like the end
    bool hasRecord = false;
    bool hasSeparator = false;
    for (std::string line; (!hasRecord || !hasSeparator) && nextLine(file, line, lineEnd);) {
        hasSeparator = hasSeparator || isSeparator(line);
        hasRecord =
            hasRecord || (line.starts_with('{') && hasMember(line, "\"typeName\"") &&
                          (hasMember(line, "\"secureContents\"") || hasMember(line, "\"uuid\"")));
    }
    if (!hasRecord) {
        return std::nullopt;
    }
    return hasSeparator ? onePassword(Confidence::certain,
                                      "records with a typeName, parted by lines of stars")
                        : onePassword(Confidence::likely, "records with a typeName");
}

} // namespace Rellinor::Host
