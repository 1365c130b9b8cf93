#include "Private/Proxies/CSVFileProxy.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "Private/Extensions/String.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

namespace {

/// Makes a doubled quote of every backslash followed by a quote. Both take two bytes.
// Quirk: a backslash escapes even the quote that should close a cell.
void doubleEscapedQuotes(std::span<char> text) noexcept {
    // Each byte depends on itself and the next alone, so that many are done in one step.
    const auto doubled = [](char character, char next) {
        return character == '\\' && next == '"' ? '"' : character;
    };
    for (std::size_t index = 1; index < text.size(); ++index) {
        text[index - 1] = doubled(text[index - 1], text[index]);
    }
}

/// Makes a line feed of every CR LF; a lone CR stays. Returns how much of the text is left.
std::span<char> withLineFeedsOnly(std::span<char> text) noexcept {
    constexpr std::string_view lineEnd = "\r\n";

    const std::string_view view(text.data(), text.size());
    std::size_t kept = std::min(view.find(lineEnd), view.size());
    for (std::size_t index = kept; index < text.size(); ++index) {
        const bool dropped =
            text[index] == '\r' && index + 1 < text.size() && text[index + 1] == '\n';
        text[kept] = text[index];
        kept += dropped ? 0 : 1;
    }
    return text.first(kept);
}

std::string locationOf(const ExportFile& file) {
    return file.url() ? file.url()->absoluteString() : std::string(file.name());
}

} // namespace

std::string_view CSVFileProxy::parseFileData(std::span<char> text) noexcept {
    doubleEscapedQuotes(text);
    const std::span<char> lines = withLineFeedsOnly(text);
    return {lines.data(), lines.size()};
}

std::optional<std::span<char>> CSVFileProxy::fileData() {
    if (!_fileData) {
        auto contents = contentsOf(_file, {}, _mostBytes);
        if (!contents) {
            _failure = contents.error();
            return std::nullopt;
        }
        const std::span<char> bytes = _memory.adopt(*std::move(contents));
        _fileData = decodedText(bytes);
        if (!_fileData) {
            _failure = reasonForNoUTF8({bytes.data(), bytes.size()});
        }
    }
    return _fileData;
}

std::optional<CSVCursor> CSVFileProxy::records() {
    if (!_records) {
        _records = fileData().transform(parseFileData);
    }
    return _records.transform([](std::string_view text) { return CSVCursor(text); });
}

std::optional<std::size_t> CSVFileProxy::numberOfFields() {
    std::optional<CSVCursor> rows = records();
    if (!rows || !rows->nextRow()) {
        return std::nullopt;
    }
    std::size_t count = 0;
    while (rows->nextCell()) {
        ++count;
    }
    return count;
}

CSVKeyedRecords CSVFileProxy::keyedRecords(std::span<const CSVHeader> expectedHeaders) {
    const std::optional<CSVCursor> allRows = records();
    auto rows = allRows;
    if (!rows || !rows->nextRow()) {
        throw TextError("Could not read the csv at: " + locationOf(_file));
    }

    std::vector<std::optional<std::size_t>> positions(expectedHeaders.size());
    std::size_t headersFound = 0;
    std::size_t numberOfFields = 0;
    while (const auto cell = rows->nextCell()) {
        for (std::size_t header = 0; header < expectedHeaders.size(); ++header) {
            if (!positions[header] && expectedHeaders[header].name == *cell) {
                positions[header] = numberOfFields;
                ++headersFound;
            }
        }
        ++numberOfFields;
    }

    if (headersFound == expectedHeaders.size()) {
        return {*rows, CSVColumns::fromHeaderRow(expectedHeaders, positions)};
    }
    return {*allRows, CSVColumns::byPosition(expectedHeaders, numberOfFields)};
}

} // namespace Rellinor
