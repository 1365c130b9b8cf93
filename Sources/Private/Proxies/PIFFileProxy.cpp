#include "Private/Proxies/PIFFileProxy.hpp"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <utility>

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

/// Goes from line to line.
class LineWalk {
public:
    explicit LineWalk(std::string_view text) noexcept : _rest(text) {}

    /// Goes to the next line; false at the end.
    bool next() noexcept {
        if (_rest.empty()) {
            return false;
        }
        _line = _rest.substr(0, _rest.find('\n'));
        _rest.remove_prefix(std::min(_line.size() + 1, _rest.size()));
        ++_number;
        return true;
    }

    [[nodiscard]] std::string_view line() const noexcept { return _line; }

    /// From 1 on.
    [[nodiscard]] std::uint64_t number() const noexcept { return _number; }

    /// Whether the line is a record.
    [[nodiscard]] bool isAtRecord() const noexcept { return _line.starts_with('{'); }

private:
    std::string_view _rest;
    std::string_view _line;
    std::uint64_t _number = 0;
};

/// Moves the records together, in place, with a comma between two of them.
std::span<char> joinedRecords(std::span<char> text, PIFLines* lines) {
    std::size_t kept = 0;
    for (LineWalk walk({text.data(), text.size()}); walk.next();) {
        if (walk.isAtRecord()) {
            if (lines != nullptr) {
                lines->add(walk.number());
            }
            if (kept > 0) {
                text[kept++] = ','; // where the line before had its line feed
            }
            std::memmove(&text[kept], walk.line().data(), walk.line().size());
            kept += walk.line().size();
        }
    }
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
    LineWalk walk({text.data(), text.size()});
    bool hasRecords = false;
    std::uint64_t otherLines = 0;
    const auto nextRecord = [&]() -> std::optional<std::string_view> {
        while (walk.next()) {
            if (walk.isAtRecord()) {
                hasRecords = true;
                if (lines != nullptr) {
                    lines->add(walk.number());
                }
                return walk.line();
            }
            if (isOther(walk.line())) {
                ++otherLines;
            }
        }
        return std::nullopt;
    };
    auto document = JSONDocument::parsedEach(nextRecord, keys, memory);
    if (!document) {
        const JSONFailure& failure = document.error();
        throw notJSON(
            {.reason = failureOf(failure, walk.line()).reason, .position = failure.element});
    }
    if (!hasRecords && otherLines > 0) {
        throw notJSON({.reason = FailureReason::notJSON, .position = {}});
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
