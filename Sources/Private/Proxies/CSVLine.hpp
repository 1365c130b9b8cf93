#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace Rellinor {

/// The cells of one line of a CSV text, which takes several lines of the file if there are line
/// ends inside quotes. Filled time and again without an allocation each time.
class CSVLine {
public:
    /// Where the line begins in the text.
    [[nodiscard]] std::size_t begin() const noexcept { return _begin; }

    /// Whether a quote where none may stand was taken for a letter.
    [[nodiscard]] bool hasStrayQuote() const noexcept { return _firstStray < count(); }

    /// The cells without the quotes around them, up to the last that was filled.
    [[nodiscard]] std::span<const std::string_view> cells() const noexcept {
        return std::span(_cells).first(_filled);
    }

    /// How many cells there are, the empty ones at the end included.
    [[nodiscard]] std::size_t count() const noexcept { return _filled + _empty; }

    /// Which cells hold quotes as they are written, to be undone.
    [[nodiscard]] std::span<const std::size_t> written() const noexcept { return _written; }

    /// Forgets everything.
    void beginAt(std::size_t place) noexcept {
        keepFirst(0);
        _begin = place;
    }

    void keepFirst(std::size_t count) noexcept {
        _filled = std::min(_filled, count);
        _empty = count - _filled;
        while (!_written.empty() && _written.back() >= count) {
            _written.pop_back();
        }
        if (_firstStray >= count) {
            _firstStray = none;
        }
    }

    /// Leaves out the empty cells at the end, but those among the first so many.
    void trim(std::size_t width) noexcept {
        std::size_t filled = _filled;
        while (filled > width && _cells[filled - 1].empty()) {
            --filled;
        }
        keepFirst(std::clamp(count(), filled, std::max(filled, width)));
    }

    /// Fills the empty cells at the end.
    ///
    /// @throws std::bad_alloc
    void fill() {
        for (; _empty != 0; --_empty) {
            put({});
        }
    }

    /// Says that the next cell has a quote where none may stand.
    void addStrayQuote() noexcept { _firstStray = std::min(_firstStray, count()); }

    /// @throws std::bad_alloc
    void append(std::string_view cell) {
        if (_empty != 0) {
            fill();
        }
        put(cell);
    }

    /// Appends an empty cell, which is filled when another follows.
    void appendEmpty() noexcept { ++_empty; }

    /// Appends a cell that holds quotes as they are written.
    ///
    /// @throws std::bad_alloc
    void appendWritten(std::string_view cell) {
        _written.push_back(count());
        append(cell);
    }

    /// Says that no cell holds quotes as they are written any more.
    void forgetWritten() noexcept { _written.clear(); }

    /// Takes over what is said of the quotes of a line that becomes a part of this one.
    void takeDamageOf(const CSVLine& line) noexcept {
        _firstStray = line.hasStrayQuote() ? 0 : _firstStray;
    }

    void replace(std::size_t index, std::string_view cell) noexcept { _cells[index] = cell; }

private:
    static constexpr auto none = static_cast<std::size_t>(-1);

    void put(std::string_view cell) {
        if (_filled == _cells.size()) {
            _cells.resize(std::max<std::size_t>(8, 2 * _filled));
        }
        _cells[_filled++] = cell;
    }

    std::vector<std::string_view> _cells;
    std::size_t _begin = 0;
    std::size_t _filled = 0; // of the cells
    std::size_t _empty = 0;  // cells behind these
    std::vector<std::size_t> _written;
    std::size_t _firstStray = none; // the first cell with a quote where none may stand
};

} // namespace Rellinor
