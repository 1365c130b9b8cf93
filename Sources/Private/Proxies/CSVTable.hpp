#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <span>
#include <string_view>
#include <vector>

#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/CSVDialect.hpp"
#include "Private/Proxies/CSVHeaderRow.hpp"
#include "Private/Proxies/CSVLine.hpp"
#include "Private/Proxies/CSVLines.hpp"

namespace Rellinor {

/// What was mended in a row.
enum class CSVDamage : std::uint8_t {
    strayQuote,  ///< a quote was taken for a letter: none may stand there, or it closes no cell
    joinedLines, ///< a row that was written over several lines without quotes was joined
    shortRow,    ///< fewer cells than the header
    longRow,     ///< more cells than the header, and not all of them empty
};

/// Reads a CSV text with a header as products write it, by RFC 4180, and mends what is broken: one
/// broken row costs no other row. Linear in the size of the text, whatever that holds.
///
///     CSVTable table(text, dialect, memory, onDamage);
///     for (const std::span<const std::string_view> row : table) { … }
///
/// - Rows end with LF, and carriage returns before it belong to the row end; or with CR alone if
///   the first row end does. Lines without any character are no rows.
/// - A first line such as `sep=;` names the separator and is no row.
/// - A quote in a cell that does not begin with one is a letter. `CSVRecovery` says what becomes of
///   quotes that do not close.
/// - Lines of fewer cells than the header are joined where they give the header's number of cells
///   together: notes that were written without quotes.
class CSVTable {
public:
    /// Told of damage with the place in the text at which the row begins; before the row is handed
    /// out.
    using DamageHandler = std::function<void(CSVDamage damage, std::size_t position)>;

    /// Reads the header, without mending.
    ///
    /// @param text      without a byte-order mark; outlives the table and all cells, which are
    /// views
    ///                  into it. Quotes are undone in it, but all before the row that was read last
    ///                  keeps as many line ends.
    /// @param memory    outlives them too; holds cells that were joined
    /// @param onDamage  may be empty
    /// @throws std::bad_alloc
    CSVTable(std::span<char> text, const CSVDialect& dialect, ImportMemory& memory,
             DamageHandler onDamage);

    CSVTable(const CSVTable&) = delete;
    CSVTable& operator=(const CSVTable&) = delete;
    ~CSVTable() = default;

    /// The cells of the header; none if the text has no row.
    [[nodiscard]] std::span<const std::string_view> header() const noexcept { return _header; }

    /// What ends the lines of the text, to count them by.
    [[nodiscard]] char lineEnd() const noexcept { return _grammar.rowEnd(); }

    class Iterator {
    public:
        using value_type = std::span<const std::string_view>;
        using difference_type = std::ptrdiff_t;

        explicit Iterator(CSVTable& table) : _table(&table) { ++*this; }

        /// The cells of the row, which may be fewer than the header has, or more if the last of
        /// these is not empty. They are valid
        /// until the next row is read, and what they point at as long as the text.
        [[nodiscard]] value_type operator*() const noexcept { return _table->_row.cells(); }

        Iterator& operator++() {
            _atEnd = !_table->readRow();
            return *this;
        }

        void operator++(int) { ++*this; }

        [[nodiscard]] bool operator==(std::default_sentinel_t /*end*/) const noexcept {
            return _atEnd;
        }

    private:
        CSVTable* _table;
        bool _atEnd = false;
    };

    /// The rows behind the one that was read last: a single pass.
    [[nodiscard]] Iterator begin() { return Iterator(*this); }

    [[nodiscard]] static std::default_sentinel_t end() noexcept { return {}; }

    /// Where the row that was read last begins in the text.
    [[nodiscard]] std::size_t position() const noexcept { return _row.begin(); }

private:
    struct Run {
        std::size_t lines = 0;
        bool isRow = false; // or else they are rows of their own
    };

    CSVTable(std::span<char> text, CSVHeaderRow header, ImportMemory& memory,
             DamageHandler onDamage);

    [[nodiscard]] bool readRow();
    void readShortRow();
    [[nodiscard]] Run followingRun();
    void join(std::size_t lines);
    void undoQuotesOf(CSVLine& line) const noexcept;
    void tell(CSVDamage damage) const;

    std::span<char> _text;
    CSVGrammar _grammar;
    ImportMemory& _memory;
    DamageHandler _onDamage;
    std::vector<std::string_view> _header;
    CSVLines _lines;
    CSVLine _row;
    CSVLine _nextLine;          // while lines are counted or joined
    std::size_t _shortRows = 0; // how many of the next lines are rows of their own
};

} // namespace Rellinor
