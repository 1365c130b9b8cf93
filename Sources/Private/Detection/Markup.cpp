#include <algorithm>

#include "Private/Detection/Recognisers.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view blanks = " \t\r\n";

bool startsWithWord(std::string_view text, std::string_view word) noexcept {
    return sameIgnoringCase(text.substr(0, word.size()), word);
}

/// What ends a declaration or comment that a text begins with; empty if it begins with neither.
std::string_view endOfPrologue(std::string_view text) noexcept {
    if (text.starts_with("<?")) {
        return "?>";
    }
    return text.starts_with("<!--") ? "-->" : "";
}

/// What follows declarations and comments, down to the first element or what is none of these.
std::string_view rootOf(std::string_view text) noexcept {
    for (;;) {
        text.remove_prefix(std::min(text.size(), text.find_first_not_of(blanks)));
        const std::string_view end = endOfPrologue(text);
        const std::size_t place = end.empty() ? std::string_view::npos : text.find(end);
        if (place == std::string_view::npos) {
            return text;
        }
        text.remove_prefix(place + end.size());
    }
}

bool isElement(std::string_view root, std::string_view name) noexcept {
    const std::string_view behind = root.substr(std::min(root.size(), name.size() + 1));
    return root.starts_with('<') && root.substr(1).starts_with(name) && !behind.empty() &&
           std::string_view(" \t\r\n/>").contains(behind.front());
}

} // namespace

std::optional<Detection> detectMarkup(std::string_view text) noexcept {
    const std::string_view root = rootOf(text);
    if (!root.starts_with('<')) {
        return std::nullopt;
    }
    if (isElement(root, "KeePassFile")) {
        return recognised(Layout::keePassXML, Confidence::certain, "KeePass",
                          "the element KeePassFile");
    }
    if (isElement(root, "pwlist")) {
        Detection found =
            unknown("the element pwlist", "export from KeePass as KeePass CSV (1.x) or XML (2.x)");
        found.product = "KeePass";
        return found;
    }
    if (root.contains("url,username,password,") && root.contains(",name,grouping,fav")) {
        return obstructed(recognised(Layout::lastPassCSV, Confidence::certain, "LastPass",
                                     "the names of the columns in a web page"),
                          FailureReason::wrongColumns,
                          "copy the text of the page into a file, as text in UTF-8");
    }
    if (startsWithWord(root, "<!doctype html") || startsWithWord(root, "<html")) {
        return unknown("a web page");
    }
    return std::nullopt;
}

} // namespace Rellinor
