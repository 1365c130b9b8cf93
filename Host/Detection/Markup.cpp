#include <algorithm>

#include "Host/Detection/Recognisers.hpp"
#include "Host/Letters.hpp"

namespace Rellinor::Host {

namespace {

bool startsWithWord(std::string_view text, std::string_view word) {
    return std::ranges::equal(text.substr(0, word.size()), word, sameLetter);
}

} // namespace

std::optional<Detection> detectMarkup(std::string_view beginning) {
    beginning.remove_prefix(std::min(beginning.size(), beginning.find_first_not_of(" \t\r\n")));
    if (!beginning.starts_with('<')) {
        return std::nullopt;
    }
    if (beginning.contains("<KeePassFile>") || beginning.contains("<pwlist>")) {
        return notRead("KeePass export in XML", Confidence::certain,
                       "an element as KeePass writes it", "export as KeePass CSV (1.x) instead");
    }
    if (beginning.contains("url,username,password,") && beginning.contains(",name,grouping,fav")) {
        return notRead("LastPass export in a web page", Confidence::certain,
                       "the names of the columns in its text",
                       "copy the text of the page into a file, as text in UTF-8");
    }
    if (startsWithWord(beginning, "<!doctype html") || startsWithWord(beginning, "<html")) {
        return unknown("a web page");
    }
    return std::nullopt;
}

} // namespace Rellinor::Host
