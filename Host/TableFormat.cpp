#include "Host/TableFormat.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Host/DisplayText.hpp"
#include "Host/TextTable.hpp"

namespace Rellinor::Host {

namespace {

using Row = std::vector<Cell>;

constexpr Column passwordColumns[] = {
    {"SERVICE"}, {"USERNAME"}, {"PASSWORD", true}, {"URL"}, {"NOTE"}};

constexpr Column noteColumns[] = {{"TITLE"}, {"CONTENT"}};

constexpr Column cardColumns[] = {{"NAME"},      {"HOLDER"},        {"NUMBER", true}, {"CVV", true},
                                  {"PIN", true}, {"EXPIRES", true}, {"NOTE"}};

/// When a card expires, without the parts that are not known; through the first door as the source
/// has all three.
std::string expiryOf(const ImportedCardInfoProviding& card, Door door) {
    std::string date;
    for (const std::int64_t part :
         {card.expirationDay(), card.expirationMonth(), card.expirationYear()}) {
        if (part != 0 || door == Door::first) {
            date += date.empty() ? "" : ".";
            date += std::to_string(part);
        }
    }
    return date;
}

/// Makes the cells of records.
class Cells {
public:
    Cells(const Masking& masking, Door door, std::size_t widest) noexcept
        : _masking(masking), _door(door), _widest(widest) {}

    [[nodiscard]] Row row(const ImportedPasswordInfoProviding& password) const {
        return {cell(loginService, password.service()), cell(loginUsername, password.username()),
                cell(loginPassword, password.password()), cell(loginURL, password.url()),
                cell(loginNote, password.note())};
    }

    [[nodiscard]] Row row(const ImportedNoteInfoProviding& note) const {
        return {cell(noteTitle, note.title()), cell(noteContent, note.content())};
    }

    [[nodiscard]] Row row(const ImportedCardInfoProviding& card) const {
        return {cell(cardName, card.custName()),     cell(cardHolder, card.holderName()),
                cell(cardNumber, card.cardNumber()), cell(cardCVV, card.cvv()),
                cell(cardPIN, card.pin()),           {.text = expiryOf(card, _door)},
                cell(cardNote, card.note())};
    }

private:
    using enum Field;

    [[nodiscard]] Cell cell(Field field, std::string_view text) const {
        return {.text = shortened(_masking.shown(field, text), _widest),
                .style = _masking.masks(field) ? Style::dim : Style::plain};
    }

    [[nodiscard]] Cell cell(Field field, const std::optional<std::string_view>& text) const {
        return text ? cell(field, *text) : Cell{.text = "-", .style = Style::dim};
    }

    const Masking& _masking;
    Door _door;
    std::size_t _widest;
};

void writeTable(std::string_view title, std::span<const Column> columns, const auto& records,
                const Masking& masking, Door door, const Terminal& terminal, std::ostream& out) {
    if (records.empty()) {
        return;
    }
    TextTable table(columns, terminal);
    const Cells cells(masking, door, table.widest());
    for (const auto& record : records) {
        table.measure(cells.row(*record));
    }
    const std::string heading = std::string(title) + " (" + std::to_string(records.size()) + ")";
    out << '\n' << styled(heading, Style::bold, terminal) << '\n';
    table.writeHeadings(out);
    for (const auto& record : records) {
        table.write(cells.row(*record), out);
    }
}

} // namespace

void TableFormat::write(std::string_view path, const ImportedExport& imported,
                        const Masking& masking, std::ostream& out) {
    const ImportedRecords& records = *imported.records;
    out << styled(displayText(path), Style::bold, _terminal) << '\n';
    writeTable("Passwords", passwordColumns, records.passwords, masking, _door, _terminal, out);
    writeTable("Notes", noteColumns, records.notes, masking, _door, _terminal, out);
    writeTable("Cards", cardColumns, records.cards, masking, _door, _terminal, out);
    if (records.passwords.empty() && records.notes.empty() && records.cards.empty()) {
        out << "\nno records\n";
    }
    out << '\n';
}

} // namespace Rellinor::Host
