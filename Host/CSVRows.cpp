#include "Host/CSVRows.hpp"

#include <algorithm>

#include "Host/DisplayText.hpp"

namespace Rellinor::Host {

namespace {

/// The text with `\"` as a doubled quote, CR LF as LF, and without a byte-order mark.
std::string normalised(std::string_view contents) {
    constexpr std::string_view byteOrderMark = "\uFEFF";
    if (contents.starts_with(byteOrderMark)) {
        contents.remove_prefix(byteOrderMark.size());
    }
    std::string text;
    text.reserve(contents.size());
    for (std::size_t i = 0; i < contents.size(); ++i) {
        const std::string_view pair = contents.substr(i, 2);
        if (pair == "\\\"") {
            text += "\"\"";
            ++i;
        } else if (pair == "\r\n") {
            text += '\n';
            ++i;
        } else {
            text += contents[i];
        }
    }
    return text;
}

/// Where the first `separator` is that follows an even number of quotes; the end if there is none.
std::size_t endOfPiece(std::string_view text, char separator) noexcept {
    bool open = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') {
            open = !open;
        } else if (text[i] == separator && !open) {
            return i;
        }
    }
    return text.size();
}

} // namespace

std::string_view unquoted(std::string_view cell) noexcept {
    if (!cell.starts_with('"') || !cell.ends_with('"')) {
        return cell;
    }
    return cell.size() < 2 ? std::string_view() : cell.substr(1, cell.size() - 2);
}

CSVRows::CSVRows(std::string_view contents) : _text(normalised(contents)) {}

bool CSVRows::next(CSVRow& row) {
    do {
        if (_ended) {
            return false;
        }
        row.text = takeRow(row.line);
    } while (isBlank(row.text));

    row.cells.clear();
    std::string_view rest = row.text;
    for (;;) {
        const std::size_t end = endOfPiece(rest, ',');
        row.cells.push_back(rest.substr(0, end));
        if (end == rest.size()) {
            return true;
        }
        rest.remove_prefix(end + 1);
    }
}

std::string_view CSVRows::takeRow(std::size_t& line) {
    const std::string_view rest = std::string_view(_text).substr(_position);
    const std::string_view row = rest.substr(0, endOfPiece(rest, '\n'));
    line = _line;
    _line += static_cast<std::size_t>(std::ranges::count(row, '\n')) + 1;
    _ended = row.size() == rest.size();
    _position += row.size() + 1;
    return row;
}

} // namespace Rellinor::Host
