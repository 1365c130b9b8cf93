#include "Tests/Reference/CSVTableReference.hpp"

#include <algorithm>
#include <optional>
#include <set>

namespace Rellinor::Tests {

namespace {

/// A cell as it was read.
struct Cell {
    std::string text;
    std::size_t begin = 0;
    std::size_t end = 0;             // behind the cell and its quotes
    std::vector<std::size_t> strays; // quotes inside a quoted cell that are nothing else
    bool isQuoted = false;
    bool runsOut = false; // the text ends inside it
};

/// Cells up to a row end that is outside quotes.
struct Line {
    std::vector<Cell> cells;
    std::size_t begin = 0;
    std::size_t next = 0;
};

class Reader {
public:
    Reader(std::string_view text, const CSVDialect& dialect) : _text(text), _dialect(dialect) {}

    Table read() {
        std::size_t place = 0;
        if (_text.size() >= 5 && _text.starts_with("sep=") && isNameableSeparator(_text[4]) &&
            (_text.size() == 5 || _text[5] == '\n' || _text[5] == '\r')) {
            _dialect.separator = _text[4];
            place = 5;
        }
        _crOnly = firstRowEndIsCR(place);
        place += rowEndAt(place);

        Table table;
        place = withoutEmptyLines(place);
        if (place == _text.size()) {
            return table;
        }
        const Line header = headerAt(place);
        table.header = textsOf(header);
        std::vector<Line> lines;
        for (place = withoutEmptyLines(header.next); place < _text.size();
             place = withoutEmptyLines(lines.back().next)) {
            lines.push_back(mended(place));
        }
        join(lines, table);
        return table;
    }

private:
    static bool isNameableSeparator(char c) {
        constexpr std::string_view all = "\t !#$%&'()*+,-./:;<=>?@[]^_`{|}~";
        return all.find(c) != std::string_view::npos;
    }

    char at(std::size_t place) const { return place < _text.size() ? _text[place] : '\0'; }

    /// How long the row end at a place is; 0 if there is none.
    std::size_t rowEndAt(std::size_t place) const {
        if (_crOnly) {
            return at(place) == '\r' ? 1 : 0;
        }
        std::size_t end = place;
        while (at(end) == '\r') {
            ++end;
        }
        return at(end) == '\n' ? end + 1 - place : 0;
    }

    bool isOver(std::size_t place) const {
        return place >= _text.size() || _text[place] == _dialect.separator || rowEndAt(place) > 0;
    }

    std::size_t withoutEmptyLines(std::size_t place) const {
        while (rowEndAt(place) > 0) {
            place += rowEndAt(place);
        }
        return std::min(place, _text.size());
    }

    /// Whether the first row end outside quotes is a CR that no LF follows.
    bool firstRowEndIsCR(std::size_t place) {
        bool beginsCell = true;
        while (place < _text.size()) {
            const char c = _text[place];
            if (c == '\r' || c == '\n') {
                _crOnly = false;
                return rowEndAt(place) == 0;
            }
            if (beginsCell && c == '"') {
                // Up to a quote that may close the cell, whatever row ends turn out to be.
                for (++place; place < _text.size();) {
                    if (const std::size_t size = sizeOfWrittenQuote(place); size > 0) {
                        place += size;
                    } else if (at(place) == '"' && (isOver(place + 1) || at(place + 1) == '\r')) {
                        ++place;
                        break;
                    } else {
                        ++place;
                    }
                }
                beginsCell = false;
                continue;
            }
            beginsCell = c == _dialect.separator;
            ++place;
        }
        return false;
    }

    /// How long what stands for a quote or a backslash inside quotes is; 0 if nothing does.
    std::size_t sizeOfWrittenQuote(std::size_t place) const {
        const std::string_view two = _text.substr(place, 2);
        const bool isWritten = two == "\"\"" || (_dialect.quotes == CSVQuotes::backslashed &&
                                                 (two == "\\\"" || two == "\\\\"));
        return isWritten ? 2 : 0;
    }

    Cell plainCell(std::size_t place) const {
        Cell cell;
        cell.begin = place;
        while (!isOver(place)) {
            cell.text += _text[place++];
        }
        cell.end = place;
        return cell;
    }

    Cell quotedCell(std::size_t place) const {
        Cell cell;
        cell.begin = place;
        cell.isQuoted = true;
        for (++place; place < _text.size();) {
            if (sizeOfWrittenQuote(place) > 0) {
                cell.text += _text[place + 1];
                place += 2;
                continue;
            }
            if (_text[place] == '"') {
                if (isOver(place + 1)) {
                    cell.end = place + 1;
                    return cell;
                }
                cell.strays.push_back(place);
            }
            cell.text += _text[place++];
        }
        cell.end = _text.size();
        cell.runsOut = true;
        return cell;
    }

    void finish(Line& line, std::size_t place) const { line.next = place + rowEndAt(place); }

    Line headerAt(std::size_t place) {
        Line line;
        line.begin = place;
        for (;;) {
            line.cells.push_back(at(place) == '"' ? quotedCell(place) : plainCell(place));
            place = line.cells.back().end;
            if (place >= _text.size() || _text[place] != _dialect.separator) {
                finish(line, place);
                _width = line.cells.size();
                return line;
            }
            ++place;
        }
    }

    /// Whether a cell is later in its line than eight quotes that were found to be letters.
    static bool isBehindEight(std::size_t place, const std::vector<std::size_t>& letters) {
        return letters.size() >= 8 && place > *std::min_element(letters.begin() + 7, letters.end());
    }

    /// Reads a line while some quotes are known to be letters.
    Line lineAt(std::size_t place, const std::vector<std::size_t>& letters) const {
        Line line;
        line.begin = place;
        for (;;) {
            const bool isLetter = std::ranges::find(letters, place) != letters.end();
            Cell cell = at(place) == '"' && !isLetter ? quotedCell(place) : plainCell(place);
            if (cell.isQuoted && !cell.strays.empty() && isBehindEight(place, letters)) {
                cell = plainCell(place);
            }
            line.cells.push_back(cell);
            place = cell.end;
            if (place >= _text.size() || _text[place] != _dialect.separator) {
                finish(line, place);
                return line;
            }
            ++place;
        }
    }

    Line mended(std::size_t place) const {
        std::vector<std::size_t> letters;
        for (;;) {
            Line line = lineAt(place, letters);
            const auto broken = std::ranges::find_if(
                line.cells, [&](const Cell& cell) { return isBroken(cell, line.cells.size()); });
            if (broken == line.cells.end()) {
                return line;
            }
            letters.push_back(broken->begin);
        }
    }

    bool isBroken(const Cell& cell, std::size_t count) const {
        if (cell.runsOut) {
            return true;
        }
        return std::ranges::any_of(
            cell.strays, [&](std::size_t stray) { return !isLetter(stray, cell, count); });
    }

    char lineEnd() const { return _crOnly ? '\r' : '\n'; }

    bool isLetter(std::size_t stray, const Cell& cell, std::size_t count) const {
        if (_text.substr(stray, cell.end - stray).find(lineEnd()) != std::string_view::npos) {
            return false; // the cell ends on another line
        }
        if (count != _width) {
            return false;
        }
        std::size_t lineBegin = stray;
        while (lineBegin > 0 && _text[lineBegin - 1] != lineEnd()) {
            --lineBegin;
        }
        return cell.begin >= lineBegin || !isSoundRow(lineBegin);
    }

    /// Whether a line of the text is by itself a sound row of as many cells as the header.
    bool isSoundRow(std::size_t begin) const {
        const std::size_t end = std::min(_text.find(lineEnd(), begin), _text.size());
        const Line line = lineAt(begin, {});
        const bool isSound = std::ranges::all_of(line.cells, [&](const Cell& cell) {
            return !cell.runsOut && cell.strays.empty() && cell.end <= end;
        });
        return isSound && line.cells.size() == _width;
    }

    static Row textsOf(const Line& line) {
        Row texts;
        for (const Cell& cell : line.cells) {
            texts.push_back(cell.text);
        }
        return texts;
    }

    /// Makes a row of lines.
    void add(const std::vector<Line>& lines, std::size_t first, std::size_t count,
             Table& table) const {
        std::set<CSVDamage> damage;
        TableRow& row = table.rows.emplace_back();
        row.position = lines[first].begin;
        for (std::size_t index = first; index < first + count; ++index) {
            Row texts = textsOf(lines[index]);
            if (index > first) {
                damage.insert(CSVDamage::joinedLines);
                row.cells.back() += "\n" + texts.front();
                texts.erase(texts.begin());
            }
            row.cells.insert(row.cells.end(), texts.begin(), texts.end());
            for (const Cell& cell : lines[index].cells) {
                if (!cell.strays.empty() ||
                    (!cell.isQuoted && cell.text.find('"') != std::string::npos)) {
                    damage.insert(CSVDamage::strayQuote);
                }
            }
        }
        if (row.cells.size() < _width) {
            damage.insert(CSVDamage::shortRow);
        }
        while (_dialect.hasHeader && row.cells.size() > _width && row.cells.back().empty()) {
            row.cells.pop_back();
        }
        if (_dialect.hasHeader && row.cells.size() > _width) {
            damage.insert(CSVDamage::longRow);
        }
        row.damage.assign(damage.begin(), damage.end());
    }

    void join(const std::vector<Line>& lines, Table& table) const {
        std::size_t index = 0;
        while (index < lines.size()) {
            std::size_t width = lines[index].cells.size();
            std::size_t taken = 1;
            while (width < _width && index + taken < lines.size()) {
                const std::size_t more = lines[index + taken].cells.size();
                if (more >= _width || width + more - 1 > _width) {
                    break;
                }
                width += more - 1;
                ++taken;
            }
            if (width >= _width) {
                add(lines, index, taken, table);
            } else {
                for (std::size_t own = 0; own < taken; ++own) {
                    add(lines, index + own, 1, table);
                }
            }
            index += taken;
        }
    }

    std::string_view _text;
    CSVDialect _dialect;
    bool _crOnly = false;
    std::size_t _width = 0;
};

} // namespace

Table referenceTable(std::string_view text, const CSVDialect& dialect) {
    return Reader(text, dialect).read();
}

} // namespace Rellinor::Tests
