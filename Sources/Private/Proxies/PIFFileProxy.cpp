#include "Private/Proxies/PIFFileProxy.hpp"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "Private/Proxies/PIFParsingError.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

namespace {

/// The text of a file, with room around it.
std::span<char> textOf(const ExportFile& file, FileMargins margins, ImportMemory& memory,
                       std::uint64_t mostBytes) {
    auto contents = contentsOf(file, margins, mostBytes);
    if (!contents) {
        throw PIFParsingError("The file couldn\u2019t be opened.",
                              {.reason = contents.error(), .position = {}});
    }
    const std::span<char> bytes = memory.adopt(*std::move(contents));
    const auto text = decodedText(bytes);
    if (!text) {
        throw PIFParsingError(
            "The file couldn\u2019t be opened because its text encoding isn\u2019t UTF-8.",
            {.reason = reasonForNoUTF8({bytes.data(), bytes.size()}), .position = {}});
    }
    return *text;
}

/// Whether a line holds anything, and is not one of asterisks that stands between two records.
bool isOther(std::string_view line) noexcept {
    return line.find_first_not_of(" \t\r") != std::string_view::npos && !line.starts_with("***");
}

/// Calls `visit` with each line and its number, from 1 on.
void forEachLine(std::string_view text, auto&& visit) {
    std::uint64_t number = 1;
    for (std::size_t begin = 0; begin < text.size(); ++number) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        visit(text.substr(begin, end - begin), number);
        begin = end + 1;
    }
}

/// Moves the lines that begin with "{" together, in place, with a comma between two of them.
std::span<char> joinedRecords(std::span<char> text, PIFLines* lines) {
    const std::string_view view(text.data(), text.size());
    std::size_t kept = 0;
    forEachLine(view, [&](std::string_view line, std::uint64_t number) {
        if (line.starts_with('{')) {
            if (lines != nullptr) {
                lines->add(number);
            }
            if (kept > 0) {
                text[kept++] = ','; // where the line before had its line feed
            }
            std::memmove(&text[kept], line.data(), line.size());
            kept += line.size();
        }
    });
    return text.first(kept);
}

/// Puts something before and behind a text, where there is room for it.
std::string_view surrounded(std::span<char> text, std::string_view before,
                            std::string_view behind) noexcept {
    char* const begin = text.data() - before.size();
    char* const end = text.data() + text.size();
    std::ranges::copy(before, begin);
    return {begin, std::ranges::copy(behind, end).out};
}

PIFParsingError notJSON(ReadFailure failure) {
    return PIFParsingError(
        "The data couldn\u2019t be read because it isn\u2019t in the correct format.", failure);
}

JSONDocument rawJSON(std::string_view text, JSONKeys keys, ImportMemory& memory) {
    auto document = JSONDocument::parsed(text, keys, memory);
    if (!document) {
        throw notJSON({.reason = failureOf(document.error(), text).reason,
                       .position = document.error().element});
    }
    return *std::move(document);
}

} // namespace

JSON PIFFileProxy::toJSON(const ExportFile& file, std::string_view topLevelKey, JSONKeys keys,
                          ImportMemory& memory, PIFLines* lines, std::uint64_t mostBytes) {
    const std::string before = "{ \"" + std::string(topLevelKey) + "\": [";
    constexpr std::string_view behind = "] }";
    const FileMargins margins{.before = before.size(), .behind = behind.size()};
    const std::span<char> records = joinedRecords(textOf(file, margins, memory, mostBytes), lines);
    if (!isUTF8(topLevelKey)) {
        throw PIFParsingError("Could not parse JSON string as data");
    }
    // Quirk: strange lines take part in the whole.
    return json(surrounded(records, before, behind), keys, memory);
}

PIFRecords PIFFileProxy::records(const ExportFile& file, JSONKeys keys, ImportMemory& memory,
                                 PIFLines* lines, std::uint64_t mostBytes) {
    const std::span<char> text = textOf(file, {}, memory, mostBytes);
    std::vector<std::string_view> records;
    std::uint64_t otherLines = 0;
    forEachLine({text.data(), text.size()}, [&](std::string_view line, std::uint64_t number) {
        if (line.starts_with('{')) {
            records.push_back(line);
            if (lines != nullptr) {
                lines->add(number);
            }
        } else if (isOther(line)) {
            ++otherLines;
        }
    });
    if (records.empty() && otherLines > 0) {
        throw notJSON({.reason = FailureReason::notJSON, .position = {}});
    }
    auto document = JSONDocument::parsedEach(records, keys, memory);
    if (!document) {
        const JSONFailure& failure = document.error();
        throw notJSON({.reason = failureOf(failure, records[failure.element - 1]).reason,
                       .position = failure.element});
    }
    return {.document = *std::move(document), .otherLines = otherLines};
}

JSON PIFFileProxy::json(std::string_view text, JSONKeys keys, ImportMemory& memory) {
    JSONDocument document = rawJSON(text, keys, memory);
    if (!document.root().object()) {
        throw PIFParsingError("Could not parse JSON object as [String: AnyObject]",
                              {.reason = FailureReason::wrongShape, .position = {}});
    }
    return {std::move(document), keys};
}

} // namespace Rellinor
