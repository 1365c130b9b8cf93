#include "Tests/Reference/CSVReference.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace Rellinor::Tests {

namespace {

std::string replaced(std::string_view text, std::string_view what, std::string_view with) {
    std::string result;
    for (;;) {
        const auto position = text.find(what);
        result += text.substr(0, position);
        if (position == std::string_view::npos) {
            return result;
        }
        result += with;
        text.remove_prefix(position + what.size());
    }
}

std::vector<std::string> pieces(std::string_view text, char separator) {
    std::vector<std::string> list;
    for (;;) {
        const auto position = text.find(separator);
        list.emplace_back(text.substr(0, position));
        if (position == std::string_view::npos) {
            return list;
        }
        text.remove_prefix(position + 1);
    }
}

/// Joins pieces back: one is a new element if the last element has an even number of quotes, and is
/// appended to it otherwise.
std::vector<std::string> joined(const std::vector<std::string>& pieces, char joiner) {
    std::vector<std::string> list;
    for (const std::string& piece : pieces) {
        if (list.empty() || std::ranges::count(list.back(), '"') % 2 == 0) {
            list.push_back(piece);
        } else {
            list.back() += joiner + piece;
        }
    }
    return list;
}

/// Tab, and every character of the Unicode category Zs, written out.
constexpr std::array<std::string_view, 18> blanks = {
    "\t",     " ",      "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004",
    "\u2005", "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000",
};

bool isBlankLine(std::string_view line) {
    while (!line.empty()) {
        const auto* const blank = std::ranges::find_if(
            blanks, [&](std::string_view candidate) { return line.starts_with(candidate); });
        if (blank == blanks.end()) {
            return false;
        }
        line.remove_prefix(blank->size());
    }
    return true;
}

std::string withoutQuotes(const std::string& cell) {
    if (cell == "\"") {
        return "";
    }
    if (cell.starts_with('"') && cell.ends_with('"')) {
        return cell.substr(1, cell.size() - 2);
    }
    return cell;
}

} // namespace

Rows referenceRows(std::string_view text) {
    const std::string doubled = replaced(text, "\\\"", "\"\"");
    const std::string lines = replaced(doubled, "\r\n", "\n");
    Rows rows;
    for (const std::string& line : joined(pieces(lines, '\n'), '\n')) {
        if (isBlankLine(line)) {
            continue;
        }
        Row& row = rows.emplace_back();
        for (const std::string& cell : joined(pieces(line, ','), ',')) {
            row.push_back(withoutQuotes(cell));
        }
    }
    return rows;
}

std::optional<std::vector<Dictionary>>
referenceKeyedRecords(const Rows& rows, const std::vector<std::string>& expectedHeaders) {
    if (rows.empty()) {
        return std::nullopt;
    }
    const Row& first = rows.front();
    const bool hasHeaderRow = std::ranges::all_of(expectedHeaders, [&](const std::string& header) {
        return std::ranges::find(first, header) != first.end();
    });
    if (!hasHeaderRow && first.size() != expectedHeaders.size()) {
        return std::nullopt;
    }

    std::vector<Dictionary> dictionaries;
    for (std::size_t index = hasHeaderRow ? 1 : 0; index < rows.size(); ++index) {
        const Row& row = rows[index];
        Dictionary& dictionary = dictionaries.emplace_back();
        for (std::size_t header = 0; header < expectedHeaders.size(); ++header) {
            const std::string& name = expectedHeaders[header];
            if (hasHeaderRow) {
                const auto position = std::ranges::find(first, name) - first.begin();
                dictionary[name] = position < std::ssize(row) ? row[std::size_t(position)] : "";
            } else if (header < row.size()) {
                dictionary[name] = row[header];
            }
        }
    }
    return dictionaries;
}

} // namespace Rellinor::Tests
