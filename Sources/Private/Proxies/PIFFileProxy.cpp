#include "Private/Proxies/PIFFileProxy.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "Platform/File.hpp"
#include "Platform/Text.hpp"
#include "Private/Proxies/PIFParsingError.hpp"

namespace Rellinor {

namespace {

std::span<char> contentsOf(const URL& file, ImportMemory& memory) {
    auto contents = readFile(file.path());
    if (!contents) {
        throw PIFParsingError("The file couldn\u2019t be opened.");
    }
    const auto text = decodedText(memory.adopt(*std::move(contents)));
    if (!text) {
        throw PIFParsingError(
            "The file couldn\u2019t be opened because its text encoding isn\u2019t UTF-8.");
    }
    return *text;
}

/// Moves the lines that begin with "{" together, in place, with a comma between two of them.
std::string_view joinedRecords(std::span<char> text) noexcept {
    const std::string_view view(text.data(), text.size());
    std::size_t kept = 0;
    for (std::size_t begin = 0; begin < view.size();) {
        const std::size_t end = std::min(view.find('\n', begin), view.size());
        if (view[begin] == '{') {
            if (kept > 0) {
                text[kept++] = ','; // where the line before had its line feed
            }
            std::ranges::copy(view.substr(begin, end - begin), text.subspan(kept).begin());
            kept += end - begin;
        }
        begin = end + 1;
    }
    return view.substr(0, kept);
}

JSONDocument rawJSON(std::initializer_list<std::string_view> pieces, JSONKeys keys,
                     ImportMemory& memory) {
    auto document = JSONDocument::parsed(pieces, keys, memory);
    if (!document) {
        throw PIFParsingError("The data couldn\u2019t be read because it isn\u2019t in the "
                              "correct format.");
    }
    return *std::move(document);
}

} // namespace

JSON PIFFileProxy::toJSON(const URL& file, std::string_view topLevelKey, JSONKeys keys,
                          ImportMemory& memory) {
    const std::string_view records = joinedRecords(contentsOf(file, memory));
    if (!isUTF8(topLevelKey)) {
        throw PIFParsingError("Could not parse JSON string as data");
    }
    // Quirk: strange lines take part in the whole.
    return json({"{ \"", topLevelKey, "\": [", records, "] }"}, keys, memory);
}

JSON PIFFileProxy::json(std::initializer_list<std::string_view> pieces, JSONKeys keys,
                        ImportMemory& memory) {
    JSONDocument document = rawJSON(pieces, keys, memory);
    if (!document.root().object()) {
        throw PIFParsingError("Could not parse JSON object as [String: AnyObject]");
    }
    return {std::move(document), keys};
}

} // namespace Rellinor
