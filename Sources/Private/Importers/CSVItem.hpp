#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include <Rellinor/Extras.hpp>

#include "Private/Importers/CardDate.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Reports/Reporter.hpp"

namespace Rellinor {

/// What becomes of a row.
enum class CSVKind : std::uint8_t {
    login,
    note,
    card,
    other,          ///< a note that lists the cells
    placeholder,    ///< none, since the row stands for a folder
    browserAccount, ///< none
    tooShort,       ///< none, since the row has too few cells
};

/// The fields of records that cells are. A kind has some of them; the others become extras.
enum class CSVField : std::uint8_t {
    none,
    kind, ///< the product's own kind of the entry
    title,
    url,
    username,
    password,
    note,
    cardHolder,
    cardNumber,
    cvv,
    pin,
    expiry, ///< month and year in one
    expiryMonth,
    expiryYear,
    passwordChange, ///< in seconds since 1970
};

inline constexpr std::size_t numberOfFields = std::to_underlying(CSVField::passwordChange) + 1;

/// A text of an entry. One that is no field of the record is an extra of that kind and label.
struct CSVEntry {
    CSVField field = CSVField::none;
    ExtraKind extra = ExtraKind::other;
    std::string_view name = {};  ///< of the column, as the layout knows it: a literal, or empty
    std::string_view label = {}; ///< of the column, as the file has it
    std::string_view text = {};
    bool isTaken = false; ///< whether the record has it as a field
};

/// One row, with all that a person has put into it, in the file's order. Texts stand in the
/// import's memory.
class CSVItem {
public:
    /// @param memory, reporter  outlive this
    void begin(ImportMemory& memory, Reporter& reporter) noexcept;

    [[nodiscard]] ImportMemory& memory() const noexcept { return *_memory; }

    [[nodiscard]] Reporter& reporter() const noexcept { return *_reporter; }

    /// Adds a text unless it is empty.
    ///
    /// @throws std::bad_alloc
    void add(const CSVEntry& entry) { add(entry, entry.text); }

    /// Adds an entry with another text.
    void add(const CSVEntry& entry, std::string_view text) {
        if (!text.empty()) {
            _entries.push_back(entry);
            _entries.back().text = text;
            if (!has(entry.field)) {
                setFirst(entry.field, _entries.size() - 1);
            }
        }
    }

    /// Adds an extra that stands in a cell.
    void add(const CSVEntry& cell, ExtraKind extra, std::string_view label,
             std::string_view value) {
        add({.field = CSVField::none,
             .extra = extra,
             .name = cell.name,
             .label = label,
             .text = value});
    }

    /// Adds an address of a cell: the first is the address of the entry, the others are further
    /// ones. One that is the entry's has arrived already.
    void addAddress(const CSVEntry& cell, std::string_view address);

    /// Tells of a part that never arrives; a literal.
    void addUnread(std::string_view part) { _unread.push_back(part); }

    [[nodiscard]] std::span<const CSVEntry> entries() const noexcept { return _entries; }

    [[nodiscard]] std::span<const std::string_view> unread() const noexcept { return _unread; }

    /// The first text of a field; empty if there is none.
    [[nodiscard]] std::string_view text(CSVField field) const noexcept {
        return has(field) ? _entries[_first[std::to_underlying(field)]].text : std::string_view();
    }

    /// Takes all texts of a field out.
    ///
    /// @throws std::bad_alloc
    void remove(CSVField field) {
        expand(field, [](const CSVEntry&) {});
    }

    /// Puts in place of each entry of a field what `visit` adds for it.
    void expand(CSVField field, auto&& visit) {
        _before.swap(_entries);
        clear();
        for (const CSVEntry& entry : _before) {
            if (entry.field == field) {
                visit(entry);
            } else {
                add(entry);
            }
        }
    }

    /// Takes as fields what the kind has, once nothing is added any more.
    void settle();

    /// Whether a person has put in nothing but where the entry stands.
    [[nodiscard]] bool isEmpty() const noexcept;

    /// What is no field of the record, as lines, and the note behind them.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] std::string_view linesAndNote() const;

    /// Calls `visit` with what is neither a field of the record nor one of its lines.
    void forEachExtra(auto&& visit) const {
        for (const CSVEntry& entry : _entries) {
            if (!entry.isTaken && (_kind != CSVKind::other || isFact(entry))) {
                visit(entry);
            }
        }
    }

    /// What an entry is that is no field of its record.
    [[nodiscard]] static ExtraKind extraKindOf(const CSVEntry& entry) noexcept;

    [[nodiscard]] CSVKind kind() const noexcept { return _kind; }

    void setKind(CSVKind kind) noexcept { _kind = kind; }

    /// How the product calls the kind; a literal.
    [[nodiscard]] std::string_view kindName() const noexcept { return _kindName; }

    void setKindName(std::string_view name) noexcept { _kindName = name; }

    /// When a card expires.
    [[nodiscard]] const CardDate& date() const noexcept { return _date; }

    /// Takes a date as that of the card. False if the card has another one.
    [[nodiscard]] bool takeDate(const CardDate& date) noexcept { return _date.complete(date); }

private:
    /// Whether an entry tells where something stands or when, and not what.
    [[nodiscard]] static bool isFact(const CSVEntry& entry) noexcept;

    [[nodiscard]] bool has(CSVField field) const noexcept {
        return (_fields >> std::to_underlying(field) & 1U) != 0;
    }

    void setFirst(CSVField field, std::size_t index) noexcept {
        _fields |= 1U << std::to_underlying(field);
        _first[std::to_underlying(field)] = index;
    }

    void clear() noexcept;
    void takeFields() noexcept;
    void takeDates();

    ImportMemory* _memory = nullptr;
    Reporter* _reporter = nullptr;
    CSVKind _kind = CSVKind::login;
    std::string_view _kindName;
    CardDate _date;
    std::vector<CSVEntry> _entries;
    std::uint32_t _fields = 0;                           // a bit for each that an entry has
    std::array<std::size_t, numberOfFields> _first = {}; // of the entries of these fields
    std::vector<CSVEntry> _before;
    std::vector<std::string_view> _unread;
};

} // namespace Rellinor
