#include <algorithm>

#include "Private/Detection/Recognisers.hpp"

namespace Rellinor {

namespace {

/// Whether an object in one line has a member of this name somewhere. In a text its quotes would be
/// escaped.
bool hasMember(std::string_view line, std::string_view quotedName) noexcept {
    for (std::size_t at = line.find(quotedName); at != std::string_view::npos;
         at = line.find(quotedName, at + 1)) {
        const std::size_t next = line.find_first_not_of(" \t", at + quotedName.size());
        if (next != std::string_view::npos && line[next] == ':' && line[at - 1] != '\\') {
            return true;
        }
    }
    return false;
}

bool isSeparator(std::string_view line) noexcept {
    constexpr std::string_view stars = "***";
    return line.size() > 2 * stars.size() && line.starts_with(stars) && line.ends_with(stars);
}

bool isRecord(std::string_view line) noexcept {
    return line.starts_with('{') && hasMember(line, "\"uuid\"") &&
           (hasMember(line, "\"typeName\"") || hasMember(line, "\"securityLevel\""));
}

} // namespace

std::optional<Detection> detectRecordLines(std::string_view text) noexcept {
    bool hasRecord = false;
    bool hasSeparator = false;
    while (!text.empty() && (!hasRecord || !hasSeparator)) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        hasSeparator = hasSeparator || isSeparator(line);
        hasRecord = hasRecord || isRecord(line);
    }
    if (!hasRecord) {
        return std::nullopt;
    }
    Detection found =
        recognised(Layout::onePassword1PIF, hasSeparator ? Confidence::certain : Confidence::likely,
                   "1Password",
                   hasSeparator ? "records with a typeName, parted by lines of stars"
                                : "records with a uuid and a typeName");
    found.source = ImportSource::onePassword;
    return found;
}

} // namespace Rellinor
