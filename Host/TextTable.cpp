#include "Host/TextTable.hpp"

#include <algorithm>
#include <numeric>
#include <ostream>

#include "Host/DisplayText.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::size_t narrowestTerminal = 20; ///< one that is narrower is not worth the trouble

/// How wide a column is at least if it is to be worth a look.
constexpr std::size_t narrowestColumn = 10;
constexpr std::size_t narrowestWholeColumn = 24;

/// How wide a column of a file is at most.
constexpr std::size_t widestAligned = 36;

/// Stands before each column.
constexpr std::string_view gap = "  ";

/// One line, whose blanks are written only once something follows them.
class Line {
public:
    void addBlanks(std::size_t count) { _blanks += count; }

    /// Adds a text, and blanks to make it that wide.
    void add(const Cell& cell, std::size_t width, const Terminal& terminal) {
        const std::string_view text =
            std::string_view(cell.text).substr(0, cell.text.find_last_not_of(' ') + 1);
        if (!text.empty()) {
            _text.append(_blanks, ' ');
            _text += styled(text, cell.style, terminal);
            _blanks = 0;
        }
        const std::size_t taken = displayWidth(text);
        addBlanks(width > taken ? width - taken : 0);
    }

    [[nodiscard]] std::string_view text() const noexcept { return _text; }

private:
    std::string _text;
    std::size_t _blanks = 0;
};

std::size_t sum(const std::vector<std::size_t>& widths) {
    return std::accumulate(widths.begin(), widths.end(), std::size_t{0});
}

} // namespace

std::string styled(std::string_view text, Style style, const Terminal& terminal) {
    if (style == Style::plain || !terminal.colours) {
        return std::string(text);
    }
    std::string written = style == Style::bold ? "\x1B[1m" : "\x1B[2m";
    written += text;
    written += "\x1B[0m";
    return written;
}

TextTable::TextTable(std::span<const Column> columns, const Terminal& terminal)
    : _columns(columns), _terminal(terminal), _widest(widestCell) {
    if (_terminal.width) {
        _terminal.width = std::max(*_terminal.width, narrowestTerminal);
        _widest = *_terminal.width;
    }
    for (const Column& column : columns) {
        _widths.push_back(displayWidth(column.heading));
    }
}

void TextTable::measure(std::span<const Cell> row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        _widths[i] = std::max(_widths[i], displayWidth(row[i].text));
    }
}

void TextTable::writeHeadings(std::ostream& out) {
    if (_terminal.width) {
        fitTerminal();
    } else {
        for (std::size_t& width : _widths) {
            width = std::min(width, widestAligned);
        }
    }
    if (_isList) {
        return;
    }
    std::vector<Cell> headings;
    std::vector<Cell> rule;
    for (std::size_t i = 0; i < _columns.size(); ++i) {
        headings.emplace_back(std::string(_columns[i].heading), Style::bold);
        rule.emplace_back(std::string(_widths[i], '-'), Style::dim);
    }
    writeLine(headings, out);
    writeLine(rule, out);
}

void TextTable::write(std::span<const Cell> row, std::ostream& out) const {
    if (_isList) {
        writeFields(row, out);
    } else {
        writeLine(row, out);
    }
}

void TextTable::fitTerminal() {
    std::vector<std::size_t> widths = _widths;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        widths[i] =
            std::min(widths[i], _columns[i].isWhole ? narrowestWholeColumn : narrowestColumn);
    }
    const std::size_t gaps = gap.size() * widths.size();
    _isList = gaps + sum(widths) > *_terminal.width;
    if (_isList) {
        return;
    }
    // Each column that is left goes to the narrowest of those that lack some.
    for (std::size_t left = *_terminal.width - gaps - sum(widths); left > 0; --left) {
        std::size_t* narrowest = nullptr;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            if (widths[i] < _widths[i] && (narrowest == nullptr || widths[i] < *narrowest)) {
                narrowest = &widths[i];
            }
        }
        if (narrowest == nullptr) {
            break;
        }
        ++*narrowest;
    }
    _widths = widths;
}

void TextTable::writeLine(std::span<const Cell> row, std::ostream& out) const {
    Line line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        line.addBlanks(gap.size());
        const std::size_t widest = _terminal.width ? _widths[i] : _widest;
        line.add({.text = shortened(row[i].text, widest), .style = row[i].style}, _widths[i],
                 _terminal);
    }
    out << line.text() << '\n';
}

void TextTable::writeFields(std::span<const Cell> row, std::ostream& out) const {
    std::size_t labels = 0;
    for (const Column& column : _columns) {
        labels = std::max(labels, displayWidth(column.heading));
    }
    const std::size_t width = *_terminal.width - (2 * gap.size()) - labels;
    out << '\n';
    for (std::size_t i = 0; i < row.size(); ++i) {
        Line line;
        line.addBlanks(gap.size());
        line.add({.text = std::string(_columns[i].heading), .style = Style::bold}, labels,
                 _terminal);
        line.addBlanks(gap.size());
        line.add({.text = shortened(row[i].text, width), .style = row[i].style}, 0, _terminal);
        out << line.text() << '\n';
    }
}

} // namespace Rellinor::Host
