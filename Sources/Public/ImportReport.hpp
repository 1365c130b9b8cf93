#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include <Rellinor/Export.hpp>
#include <Rellinor/FailureReason.hpp>
#include <Rellinor/Layout.hpp>

namespace Rellinor {

/// What the places of a report count.
enum class PlaceUnit : std::uint8_t {
    line,   ///< of the file; an empty line counts
    row,    ///< of a database, as it gave them
    record, ///< of the file, in its order
};

/// Where something is in a file.
struct Places {
    std::uint64_t count = 0;          ///< how many places there are
    std::vector<std::uint64_t> first; ///< the first thousand of them, ascending, counted from 1
    /// In which file of an archive or folder that has several; a literal, or empty.
    std::string_view member = {};
};

/// Why a raw record is no record of the result. A number keeps its meaning for ever.
enum class LeftOutReason : std::uint16_t { // NOLINT(performance-enum-size): it grows
    missingField = 1,                      ///< a field without which there is no record
    empty = 2,                             ///< no text in any field that counts
    otherKind = 3,                         ///< a kind of record that the import does not read
    fieldOfOtherType = 4, ///< a field that is no text, or an entry that is no object
    tooFewCells = 5,
    bracedIdentifier = 6, ///< an identifier in braces stands in the row
    placeholder = 7,      ///< the row stands for a folder
    trashed = 8,
    browserAccount = 9, ///< the account of the browser itself
};

/// What arrives but looks wrong, or other than a person would expect. A number keeps its meaning
/// for ever.
enum class FindingKind : std::uint16_t { // NOLINT(performance-enum-size): it grows
    arrivedAsNote = 1,  ///< a kind that has no record of its own; `field` is the product's name
    stillEncrypted = 2, ///< a text that the product stores encrypted
    doubledQuote = 3,   ///< two quotes that stand for one
    lostQuote = 4,      ///< a quote at an end of a cell was taken off alone
    runOnCell = 5,      ///< a quote that is not closed joined rows
    strayQuote = 6,     ///< a quote where none may stand was taken for a letter
    joinedLines = 7,    ///< a row that was written without quotes over several lines
    shortRow = 8,       ///< fewer cells than the header
    longRow = 9,        ///< more cells than the header
    unreadableDate = 10,
    valueOfOtherType = 11, ///< a value was left out, since it is no text
    htmlEntity = 12,       ///< a text that may have been encoded
    typedNote = 13,        ///< a note that holds fields; `field` is its type
    repeatedColumn = 14,
    repeatedMember = 15,
    lastResort = 16,        ///< the columns are known by usual names alone
    leftOutSideFile = 17,   ///< a journal or log beside a database that does not belong to it
    refusedForItsCost = 18, ///< a database was not read to its end
    damaged = 19,           ///< a database could not be read to its end
    locked = 20,
    repairedText = 21, ///< bytes that are no UTF-8 were replaced
    narrowedNumber = 22,
    headerTakenForRecord = 23,
};

/// Raw records that were left out for one reason.
struct LeftOut {
    LeftOutReason reason = LeftOutReason::missingField; ///< why
    std::string_view field; ///< which one, or which kind; a literal, or empty
    Places places;          ///< where
};

/// Something that arrives but looks wrong.
struct Finding {
    FindingKind kind = FindingKind::arrivedAsNote; ///< what looks wrong
    std::string_view field;                        ///< a literal, or empty
    Places places;                                 ///< where
};

/// A part of the layout that never arrives, and how many records or files have it.
struct Unread {
    std::string_view part;   ///< a literal
    std::uint64_t count = 0; ///< how many records or files have it
};

/// Why there is nothing.
struct Failure {
    FailureReason reason = FailureReason::none; ///< none if there are records
    std::uint64_t place = 0; ///< where, in the unit of the report; 0 if that is not known
    std::string_view field;  ///< which column, member or file; a literal, or empty
};

/// One plain English sentence for a reason or kind.
[[nodiscard]] RELLINOR_PUBLIC std::string_view description(LeftOutReason reason) noexcept;
[[nodiscard]] RELLINOR_PUBLIC std::string_view description(FindingKind kind) noexcept;

/// A short name for machines, such as "missingField"; empty for a number that is none.
[[nodiscard]] RELLINOR_PUBLIC std::string_view identifier(LeftOutReason reason) noexcept;
[[nodiscard]] RELLINOR_PUBLIC std::string_view identifier(FindingKind kind) noexcept;
[[nodiscard]] RELLINOR_PUBLIC std::string_view identifier(FailureReason reason) noexcept;
[[nodiscard]] RELLINOR_PUBLIC std::string_view identifier(PlaceUnit unit) noexcept;

/// What became of a file. It holds numbers and names from the program, never a part of the
/// contents: it may be logged, kept and copied.
///
/// Every raw record is accounted for: `recordCount()` is the number of records that were delivered
/// and of those that `leftOut()` counts.
class RELLINOR_PUBLIC ImportReport {
public:
    /// What was read; absent if that is not known, and for a source.
    [[nodiscard]] std::optional<Layout> layout() const noexcept { return _layout; }

    /// What all places in this report count.
    [[nodiscard]] PlaceUnit placeUnit() const noexcept { return _placeUnit; }

    /// How many raw records were seen.
    [[nodiscard]] std::uint64_t recordCount() const noexcept { return _recordCount; }

    /// What is left out, an entry for each reason, field and file.
    [[nodiscard]] std::span<const LeftOut> leftOut() const noexcept { return _leftOut; }

    /// What arrives but looks wrong, an entry for each kind, field and file.
    [[nodiscard]] std::span<const Finding> findings() const noexcept { return _findings; }

    /// What never arrives.
    [[nodiscard]] std::span<const Unread> unread() const noexcept { return _unread; }

    /// Why there is nothing, or what kept a store from being read.
    [[nodiscard]] const Failure& failure() const noexcept { return _failure; }

    /// False if memory ran out while the report was written. The records are whole all the same.
    [[nodiscard]] bool isComplete() const noexcept { return _isComplete; }

private:
    friend class Reporter;

    std::optional<Layout> _layout;
    PlaceUnit _placeUnit = PlaceUnit::record;
    std::uint64_t _recordCount = 0;
    std::vector<LeftOut> _leftOut;
    std::vector<Finding> _findings;
    std::vector<Unread> _unread;
    Failure _failure;
    bool _isComplete = true;
};

} // namespace Rellinor
