#include "Private/Proxies/CSVTable.hpp"

#include <algorithm>
#include <utility>

#include "Private/Memory/Join.hpp"

namespace Rellinor {

CSVTable::CSVTable(std::span<char> text, const CSVDialect& dialect, ImportMemory& memory,
                   DamageHandler onDamage)
    : CSVTable(text, CSVHeaderRow({text.data(), text.size()}, dialect), memory,
               std::move(onDamage)) {}

CSVTable::CSVTable(std::span<char> text, CSVHeaderRow header, ImportMemory& memory,
                   DamageHandler onDamage)
    : _text(text), _grammar(header.grammar), _memory(memory), _onDamage(std::move(onDamage)),
      _lines(_grammar, header.line.count()) {
    undoQuotesOf(header.line);
    _header.assign(header.line.cells().begin(), header.line.cells().end());
    _lines.goTo(header.end);
}

bool CSVTable::readRow() {
    if (!_lines.read(_row)) {
        return false;
    }
    if (_row.count() < _header.size()) [[unlikely]] {
        readShortRow();
    }
    undoQuotesOf(_row);
    if (_row.hasStrayQuote()) [[unlikely]] {
        tell(CSVDamage::strayQuote);
    }
    if (_row.count() > _header.size() && _grammar.dialect().hasHeader) [[unlikely]] {
        _row.trim(_header.size());
        if (_row.count() > _header.size()) {
            tell(CSVDamage::longRow);
        }
    }
    _row.fill();
    return true;
}

/// Joins the line that was read and those behind it if they give a row together. If they do not,
/// they are all rows of their own.
void CSVTable::readShortRow() {
    if (_shortRows == 0) {
        const std::size_t behind = _lines.place();
        const Run run = followingRun();
        _lines.goTo(behind);
        if (run.isRow) {
            join(run.lines);
            tell(CSVDamage::joinedLines);
            return;
        }
        _shortRows = run.lines + 1;
    }
    --_shortRows;
    tell(CSVDamage::shortRow);
}

/// The lines that follow the one that was read and may be joined to it.
CSVTable::Run CSVTable::followingRun() {
    Run run;
    std::size_t count = _row.count();
    while (_lines.read(_nextLine) && _nextLine.count() < _header.size()) {
        count += _nextLine.count() - 1;
        if (count > _header.size()) {
            break;
        }
        ++run.lines;
        if (count == _header.size()) {
            run.isRow = true;
            break;
        }
    }
    return run;
}

/// Joins so many lines to the one that was read: the last cell goes on in the first of the next.
void CSVTable::join(std::size_t lines) {
    undoQuotesOf(_row);
    _row.fill();
    std::vector<std::string_view> parts = {_row.cells().back()};
    const auto endCell = [&] { _row.replace(_row.count() - 1, joined(parts, _memory)); };
    for (; lines > 0 && _lines.read(_nextLine); --lines) {
        undoQuotesOf(_nextLine);
        _nextLine.fill();
        _row.takeDamageOf(_nextLine);
        const std::span<const std::string_view> cells = _nextLine.cells();
        parts.insert(parts.end(), {"\n", cells.front()});
        if (cells.size() > 1) {
            endCell();
            std::ranges::for_each(cells.subspan(1), [&](auto cell) { _row.append(cell); });
            parts = {cells.back()};
        }
    }
    endCell();
}

/// Undoes the quotes that are still as they are written.
void CSVTable::undoQuotesOf(CSVLine& line) const noexcept {
    for (const std::size_t index : line.written()) {
        const std::string_view cell = line.cells()[index];
        const auto begin = static_cast<std::size_t>(cell.data() - _text.data());
        const std::span<char> bytes = _text.subspan(begin, cell.size());
        line.replace(index, cell.substr(0, undoQuotes(bytes, _grammar.dialect().quotes)));
    }
    line.forgetWritten();
}

void CSVTable::tell(CSVDamage damage) const {
    if (_onDamage) {
        _onDamage(damage, _row.begin());
    }
}

} // namespace Rellinor
