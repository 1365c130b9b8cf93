#include "Host/Inspection/KeyedCSV.hpp"

#include <algorithm>
#include <utility>

#include "Host/Inspection/CSVInspection.hpp"

namespace Rellinor::Host {

KeyedCSV::KeyedCSV(const std::string& path, const RecordsResult& result,
                   std::span<const CSVLayout> layouts, Inspection& inspection)
    : _inspection(&inspection), _rows(rowsToInspect(path, result, inspection)) {
    if (!_rows) {
        return;
    }
    readFirstRow(layouts);
    if (!result) {
        while (_rows->next(_row)) {
            _quotes.look(_row);
        }
        _layout = nullptr;
    } else if (_layout != nullptr) {
        inspection.count = 0;
    }
}

void KeyedCSV::readFirstRow(std::span<const CSVLayout> layouts) {
    const bool isFine = _inspection->wrong.empty();
    if (!_rows->next(_row)) {
        reportBlank(*_inspection);
        return;
    }
    const auto layout = std::ranges::find(
        layouts, _row.numberOfCells, [](const CSVLayout& each) { return each.columns.size(); });
    if (layout != layouts.end()) {
        _layout = &*layout;
        _header.emplace(_row, *layout);
        _lengths.emplace(_row);
    }
    _runsOn = _quotes.look(_row);
    if (isFine && !_runsOn) {
        reportHeader(_row, layouts, *_inspection);
    }
}

std::optional<KeyedRow> KeyedCSV::next() {
    if (!_header) {
        return std::nullopt;
    }
    const bool isFirst = std::exchange(_isFirst, false);
    if (!isFirst || _header->isThere()) {
        if (!_rows->next(_row)) {
            return std::nullopt;
        }
        _runsOn = _quotes.look(_row);
        if (!_runsOn) {
            _lengths->look(_row);
        }
    }
    ++*_inspection->count;
    return KeyedRow(_row, *_header);
}

void KeyedCSV::lookAtPassword(std::size_t column) {
    if (!_runsOn) {
        _texts.lookAtPassword(_header->cell(_row, column).value_or(""), _row.line);
    }
}

void KeyedCSV::lookAtText(std::size_t column) {
    if (!_runsOn) {
        _texts.lookAtOther(_header->cell(_row, column).value_or(""), _row.line);
    }
}

void KeyedCSV::report(bool escapesBackslashes) {
    if (_rows && !_rows->areOneLine()) {
        _quotes.report(*_inspection);
    }
    if (_lengths) {
        _lengths->report(*_inspection);
    }
    _texts.report(*_inspection, escapesBackslashes);
}

} // namespace Rellinor::Host
