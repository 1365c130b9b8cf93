#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "Private/Text/SeparatorScanner.hpp"

namespace Rellinor {

/// Walks a CSV text row by row and each row cell by cell, once, in order.
///
///     CSVCursor cursor(text);
///     while (cursor.nextRow()) {
///         while (const auto cell = cursor.nextCell()) { … }
///     }
///
/// Rows and cells are views into the text; nothing is stored, so that neither a long file nor a
/// long row costs memory. Copying a cursor gives a second one at the same place.
class CSVCursor {
public:
    /// @param text  UTF-8 whose line ends are line feeds; outlives the cursor and its cells
    explicit CSVCursor(std::string_view text) noexcept : _text(text), _separators(text) {}

    /// Goes to the next row that is not blank, whether or not the current one was walked to its
    /// end. False when there is none left.
    [[nodiscard]] bool nextRow() noexcept;

    /// The next cell of the current row; absent after its last.
    ///
    /// If its first and its last character are double quotes, these two are taken off.
    [[nodiscard]] std::optional<std::string_view> nextCell() noexcept {
        if (!_inRow) {
            return std::nullopt;
        }
        const std::string_view cell = _text.substr(_cellBegin, _cellEnd - _cellBegin);
        if (isLastOfRow()) {
            _inRow = false;
        } else {
            findCell();
        }
        return unquoted(cell);
    }

    /// Where the current row begins in the text.
    [[nodiscard]] std::size_t rowBegin() const noexcept { return _rowBegin; }

private:
    /// Goes on to the cell behind the current one's separator.
    void findCell() noexcept {
        _cellBegin = _cellEnd + 1;
        _cellEnd = _separators.next();
    }

    [[nodiscard]] bool isLastOfRow() const noexcept {
        return _cellEnd == _text.size() || _text[_cellEnd] == '\n';
    }

    // Quirk: doubled quotes stay doubled.
    static constexpr std::string_view unquoted(std::string_view cell) noexcept {
        if (!cell.starts_with('"') || !cell.ends_with('"')) {
            return cell;
        }
        cell.remove_prefix(1);
        if (!cell.empty()) { // it is if the cell was a single quote
            cell.remove_suffix(1);
        }
        return cell;
    }

    static constexpr auto beforeTheText = static_cast<std::size_t>(-1);

    std::string_view _text;
    SeparatorScanner _separators;
    std::size_t _cellBegin = 0;
    std::size_t _cellEnd = beforeTheText; // its separator, or the end of the text
    std::size_t _rowBegin = 0;
    bool _inRow = false; // whether the cell is still to be handed out
};

} // namespace Rellinor
