#include "Host/CSVRows.hpp"

#include <algorithm>
#include <utility>

#include "Host/DisplayText.hpp"
#include "Host/TextEncoding.hpp"

namespace Rellinor::Host {

namespace {

/// Drops a byte-order mark, and the CR of every CR LF.
void keepLineFeedsOnly(std::string& text) {
    constexpr std::string_view lineEnd = "\r\n";

    if (text.starts_with(byteOrderMark)) {
        text.erase(0, byteOrderMark.size());
    }
    std::size_t kept = std::min(text.find(lineEnd), text.size());
    for (std::size_t i = kept; i < text.size(); ++i) {
        if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n') {
            text[kept++] = text[i];
        }
    }
    text.resize(kept);
}

constexpr std::string_view escaped = "\\\"";

/// Makes a doubled quote of each `\"`, which is as long.
void doubleEscapedQuotes(std::string& text) {
    for (std::size_t i = text.find(escaped); i < text.size(); i = text.find(escaped, i + 2)) {
        text[i] = '"';
    }
}

/// Where the first line feed is that follows an even number of quotes; the end if there is none.
std::size_t endOfRow(std::string_view text) noexcept {
    std::ptrdiff_t quotes = 0;
    for (std::size_t begin = 0;;) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        quotes += std::ranges::count(text.substr(begin, end - begin), '"');
        if (end == text.size() || quotes % 2 == 0) {
            return end;
        }
        begin = end + 1;
    }
}

/// Where the first comma is that follows an even number of quotes; the end if there is none.
std::size_t endOfCell(std::string_view text) noexcept {
    bool open = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') {
            open = !open;
        } else if (text[i] == ',' && !open) {
            return i;
        }
    }
    return text.size();
}

} // namespace

bool CSVCells::next(std::string_view& cell) noexcept {
    if (_ended) {
        return false;
    }
    cell = _rest.substr(0, endOfCell(_rest));
    _ended = cell.size() == _rest.size();
    _rest.remove_prefix(cell.size() + (_ended ? 0 : 1));
    return true;
}

CSVRows::CSVRows(std::string&& contents) : _written(std::move(contents)) {
    keepLineFeedsOnly(_written);
    if (_written.contains(escaped)) {
        _text = _written;
        doubleEscapedQuotes(_text);
    }
}

bool CSVRows::next(CSVRow& row) {
    do {
        if (_ended) {
            return false;
        }
        takeRow(row);
    } while (isBlank(row.text));

    row.cells.clear();
    row.numberOfCells = 0;
    CSVCells cells(row.text);
    for (std::string_view cell; cells.next(cell); ++row.numberOfCells) {
        if (row.cells.size() < mostCells) {
            row.cells.push_back(cell);
        }
    }
    return true;
}

bool CSVRows::areOneLine() const noexcept {
    return hasCarriageReturnsOnly(_written);
}

void CSVRows::takeRow(CSVRow& row) {
    const std::string_view rest = text().substr(_position);
    row.text = rest.substr(0, endOfRow(rest));
    row.written = std::string_view(_written).substr(_position, row.text.size());
    row.line = _line;
    _line += static_cast<std::size_t>(std::ranges::count(row.text, '\n')) + 1;
    _ended = row.text.size() == rest.size();
    _position += row.text.size() + 1;
}

} // namespace Rellinor::Host
