#include "Private/Importers/NamedColumnsImporter.hpp"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "Platform/Fault.hpp"
#include "Private/Detection/CSVBeginning.hpp"
#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/CSVColumnNames.hpp"
#include "Private/Importers/CSVLayouts.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Proxies/ExportContents.hpp"
#include "Private/Text/Letters.hpp"
#include "Private/Text/UTF8.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view unknownKind = "unknown kind";

/// How much room a header of one column takes, in front of a file without one: no row is then too
/// short.
constexpr std::size_t sizeOfHeader = 2;

/// A text that is absent if it is empty.
std::optional<std::string_view> ifAny(std::string_view text) noexcept {
    return text.empty() ? std::nullopt : std::optional(text);
}

/// The text of a file, with room for a header in front.
std::span<char> textOf(const ExportFile& file, ImportMemory& memory, const Reporter* reporter) {
    auto contents = contentsOf(file, {.before = sizeOfHeader}, largestFileFor(reporter));
    if (!contents) {
        throw ReadError(contents.error());
    }
    const std::span<char> bytes = memory.adopt(*std::move(contents));
    const auto text = decodedText(bytes);
    if (!text) {
        throw ReadError(reasonForNoUTF8({bytes.data(), bytes.size()}));
    }
    return *text;
}

FindingKind findingOf(CSVDamage damage) noexcept {
    switch (damage) {
    case CSVDamage::strayQuote:
        return FindingKind::strayQuote;
    case CSVDamage::joinedLines:
        return FindingKind::joinedLines;
    case CSVDamage::shortRow:
        return FindingKind::shortRow;
    case CSVDamage::longRow:
        return FindingKind::longRow;
    }
    fault();
}

/// The table of a layout, and the header by which it is recognised.
struct Choice {
    const CSVLayout* table = nullptr;
    char separator = ',';
};

/// The table with the most names that fit a text.
std::optional<Choice> chosen(CSVTables tables, std::string_view text) {
    const auto headers = headersOf({.text = text, .isWhole = true});
    for (const CSVColumnNames& header : headers) {
        const CSVLayout* best = nullptr;
        for (const CSVLayout& table : tables) {
            const bool isBetter = best == nullptr || table.required.size() > best->required.size();
            if (isBetter && header.fits(table)) {
                best = &table;
            }
        }
        if (best != nullptr) {
            return Choice{.table = best, .separator = header.separator()};
        }
    }
    return std::nullopt;
}

} // namespace

CSVRows NamedColumnsImporter::read(const ExportFile& file, ImportMemory& memory,
                                   Reporter* reporter) {
    _memory = &memory;
    _reporter = reporter;
    const std::span<char> text = textOf(file, memory, reporter);
    const std::string_view view(text.data(), text.size());
    if (view.find_first_not_of("\r\n") == std::string_view::npos) {
        throw ReadError(FailureReason::noRows);
    }
    reporter->expect(text.size());
    const CSVTables tables = csvTablesOf(_layout);
    _table = &tables.front();
    return _table->readRow == nullptr ? rowsWithHeader(text) : rowsWithoutHeader(text);
}

CSVRows NamedColumnsImporter::rowsWithHeader(std::span<char> text) {
    const auto choice = chosen(csvTablesOf(_layout), {text.data(), text.size()});
    if (!choice) {
        throw ReadError(FailureReason::wrongColumns);
    }
    _table = choice->table;
    if (_layout == Layout::genericCSV) {
        _reporter->foundMany(FindingKind::lastResort, {}, 1);
    }
    CSVRows rows = rowsOf(text, 0, choice->separator);
    readHeader(rows.header());
    return rows;
}

CSVRows NamedColumnsImporter::rowsWithoutHeader(std::span<char> text) {
    const std::string_view view(text.data(), text.size());
    CSVBeginning beginning({.text = view, .isWhole = true}, ',');
    CSVCells cells;
    (void)beginning.next(cells); // up to the first row end
    const bool hasCarriageReturnsOnly = !view.contains('\n') || beginning.hasCarriageReturnsOnly();
    const std::size_t heading =
        _table->lengthOfHeading != nullptr ? _table->lengthOfHeading(view) : 0;
    const auto offset =
        static_cast<std::ptrdiff_t>(heading) - static_cast<std::ptrdiff_t>(sizeOfHeader);
    const std::span<char> rows(text.data() + offset, text.data() + text.size());
    rows[0] = 'x';
    rows[1] = hasCarriageReturnsOnly ? '\r' : '\n';
    return rowsOf(rows, offset, ',');
}

/// @param offset  where `text` begins in the text of the file
CSVRows NamedColumnsImporter::rowsOf(std::span<char> text, std::ptrdiff_t offset, char separator) {
    const bool mayBeLong = _table->readRow != nullptr || _table->further != nullptr;
    const auto onDamage = [reporter = _reporter, mayBeLong, offset](CSVDamage damage,
                                                                    std::size_t position) {
        if (damage != CSVDamage::longRow || !mayBeLong) {
            reporter->found(findingOf(damage), {}, position + static_cast<std::size_t>(offset));
        }
    };
    const CSVDialect dialect{
        .separator = separator, .quotes = _table->quotes, .hasHeader = _table->readRow == nullptr};
    auto table = std::make_unique<CSVTable>(text, dialect, *_memory, onDamage);
    const std::string_view whole(text.data() - offset, text.data() + text.size());
    _reporter->setPlaces(PlaceUnit::line, LineCounter(whole, table->lineEnd()));
    return {std::move(table), offset};
}

/// Finds out what each column is. Of columns with one name the first counts, and of those of one
/// field the first in the order of the table; the others are extras.
void NamedColumnsImporter::readHeader(std::span<const std::string_view> header) {
    const auto known = _table->columns;
    std::vector<std::optional<std::size_t>> places(known.size()); // in the file
    for (const std::string_view label : header) {
        const std::string_view name = withoutBlanksAround(label);
        const auto found = std::ranges::find_if(
            known, [&](const CSVColumn& column) { return sameIgnoringCase(column.name, name); });
        CSVOtherColumn column{.column = {.name = {}}, .label = label};
        if (found == known.end()) {
            const auto other =
                _table->otherColumn != nullptr ? _table->otherColumn(name) : std::nullopt;
            column = other.value_or(column);
        } else if (auto& place = places[static_cast<std::size_t>(found - known.begin())]; place) {
            _reporter->found(FindingKind::repeatedColumn, found->name, 0);
        } else {
            place = _columns.size();
            column.column = *found;
        }
        _columns.push_back({.cell = {.field = column.column.field,
                                     .extra = column.column.extra,
                                     .name = column.column.name,
                                     .label = column.label},
                            .unread = column.column.unread,
                            .read = column.column.read});
    }
    std::vector<CSVField> filled;
    for (const auto& place : places) {
        if (!place || _columns[*place].cell.field == CSVField::none) {
            continue;
        }
        CSVEntry& cell = _columns[*place].cell;
        if (std::ranges::find(filled, cell.field) != filled.end()) {
            cell.extra = CSVItem::extraKindOf(cell);
            cell.field = CSVField::none;
        } else {
            filled.push_back(cell.field);
        }
    }
}

bool NamedColumnsImporter::isPassword(const RawRecord& record) {
    _item.begin(*_memory, *_reporter);
    readRow(record);
    _item.settle();
    return isOf(CSVKind::login);
}

inline void NamedColumnsImporter::readCell(const Column& column, std::string_view cell) {
    if (cell.empty()) {
        return;
    }
    const std::string_view text = _table->plain != nullptr ? _table->plain(cell) : cell;
    if (column.isText()) {
        _item.add(column.cell, text);
    } else {
        readOtherCell(column, text);
    }
}

// Kept out of line: it would take registers from the cells that are read as they are.
[[gnu::noinline]] void NamedColumnsImporter::readOtherCell(const Column& column,
                                                           std::string_view text) {
    if (column.read != nullptr) {
        CSVEntry cell = column.cell;
        cell.text = text;
        column.read(_item, cell);
    } else if (text != "0") { // which stands for none
        _item.addUnread(column.unread);
    }
}

void NamedColumnsImporter::readRow(std::span<const std::string_view> row) {
    if (_table->readRow != nullptr) {
        _table->readRow(_item, row);
        return;
    }
    const std::size_t known = std::min(row.size(), _columns.size());
    for (std::size_t index = 0; index < known; ++index) {
        readCell(_columns[index], row[index]);
    }
    for (const std::string_view cell : row.subspan(known)) {
        readCell({.cell = {}, .read = _table->further}, cell);
    }
    readKind();
    if (_table->finish != nullptr) {
        _table->finish(_item);
    }
}

void NamedColumnsImporter::readKind() {
    if (_table->kinds.empty()) {
        _item.setKind(_table->usualKind);
        return;
    }
    const std::string_view name = _item.text(CSVField::kind);
    const auto known = std::ranges::find_if(
        _table->kinds, [&](const CSVKindName& kind) { return sameIgnoringCase(kind.name, name); });
    if (known != _table->kinds.end()) {
        _item.setKind(known->kind);
        _item.setKindName(known->name);
        _item.remove(CSVField::kind);
    } else {
        _item.setKind(name.empty() ? _table->usualKind : CSVKind::other);
        _item.setKindName(name.empty() ? std::string_view() : unknownKind);
    }
}

bool NamedColumnsImporter::isNote(const RawRecord& /*record*/) const noexcept {
    return isOf(CSVKind::note) || isOf(CSVKind::other);
}

bool NamedColumnsImporter::isCard(const RawRecord& /*record*/) const noexcept {
    return isOf(CSVKind::card);
}

bool NamedColumnsImporter::isOf(CSVKind kind) const noexcept {
    return _item.kind() == kind && !_item.isEmpty();
}

Built<ImportedPassword>
NamedColumnsImporter::buildPassword(const RawRecord& /*record*/) const noexcept {
    using enum CSVField;
    std::optional<std::int64_t> change;
    if (const std::string_view digits = _item.text(passwordChange); !digits.empty()) {
        std::from_chars(digits.data(), digits.data() + digits.size(), change.emplace());
    }
    return ImportedPassword{
        _item.text(username),
        _item.text(password),
        _item.text(url),
        ifAny(_item.text(title)),
        std::nullopt, // color
        ifAny(_item.text(note)),
        change,
    };
}

Built<ImportedNote> NamedColumnsImporter::buildNote(const RawRecord& /*record*/) const {
    using enum CSVField;
    const bool isOther = _item.kind() == CSVKind::other;
    if (isOther) {
        _reporter->found(FindingKind::arrivedAsNote,
                         _item.kindName().empty() ? unknownKind : _item.kindName());
    }
    return ImportedNote{
        std::nullopt, // color
        _item.text(title),
        isOther ? _item.linesAndNote() : _item.text(note),
    };
}

Built<ImportedCard> NamedColumnsImporter::buildCard(const RawRecord& /*record*/) const noexcept {
    using enum CSVField;
    return ImportedCard{
        _item.text(cardNumber),
        _item.text(title),
        _item.text(cardHolder),
        _item.text(cvv),
        _item.text(pin),
        _item.text(note),
        0, // expirationDay
        _item.date().month,
        _item.date().year,
    };
}

void NamedColumnsImporter::addExtras(const RawRecord& /*record*/, ExtrasTable& extras) const {
    _item.forEachExtra([&](const CSVEntry& entry) {
        extras.add(CSVItem::extraKindOf(entry), entry.label, entry.text);
    });
}

void NamedColumnsImporter::tellUnread(const RawRecord& /*record*/,
                                      Reporter& reporter) const noexcept {
    for (const std::string_view part : _item.unread()) {
        reporter.unread(part);
    }
}

Dropped NamedColumnsImporter::whyNoKind(const RawRecord& /*record*/) const noexcept {
    switch (_item.kind()) {
    case CSVKind::placeholder:
        return {.reason = LeftOutReason::placeholder, .field = {}};
    case CSVKind::browserAccount:
        return {.reason = LeftOutReason::browserAccount, .field = {}};
    case CSVKind::tooShort:
        return {.reason = LeftOutReason::tooFewCells, .field = {}};
    default:
        return {.reason = LeftOutReason::empty, .field = {}};
    }
}

} // namespace Rellinor
