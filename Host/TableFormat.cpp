#include "Host/TableFormat.hpp"

#include <cstddef>
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

/// Makes the cells of records.
class Cells {
public:
    Cells(Secrets secrets, Door door, std::size_t widest) noexcept
        : _secrets(secrets), _door(door), _widest(widest) {}

    [[nodiscard]] Row row(const ImportedPasswordInfoProviding& password) const {
        return {cellOrDash(password.service()), cell(password.username()),
                secret(password.password()), cell(password.url()), note(password.note())};
    }

    [[nodiscard]] Row row(const ImportedNoteInfoProviding& note) const {
        return {cell(note.title()), this->note(note.content())};
    }

    [[nodiscard]] Row row(const ImportedCardInfoProviding& card) const {
        return {cell(card.custName()),
                cell(card.holderName()),
                secret(card.cardNumber()),
                secret(card.cvv()),
                secret(card.pin()),
                cell(std::to_string(card.expirationDay()) + '.' +
                     std::to_string(card.expirationMonth()) + '.' +
                     std::to_string(card.expirationYear())),
                note(card.note())};
    }

private:
    [[nodiscard]] Cell cell(std::string_view text) const {
        return {.text = shortened(text, _widest)};
    }

    [[nodiscard]] Cell cellOrDash(const std::optional<std::string_view>& text) const {
        return text ? cell(*text) : Cell{.text = "-", .style = Style::dim};
    }

    [[nodiscard]] Cell note(const std::optional<std::string_view>& text) const {
        return _door == Door::first || !text ? cellOrDash(text) : secret(*text);
    }

    [[nodiscard]] Cell secret(std::string_view text) const {
        Cell made = cell(shown(text, _secrets));
        made.style = _secrets == Secrets::masked ? Style::dim : Style::plain;
        return made;
    }

    Secrets _secrets;
    Door _door;
    std::size_t _widest;
};

void writeTable(std::string_view title, std::span<const Column> columns, const auto& records,
                Secrets secrets, Door door, const Terminal& terminal, std::ostream& out) {
    if (records.empty()) {
        return;
    }
    TextTable table(columns, terminal);
    const Cells cells(secrets, door, table.widest());
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

void TableFormat::write(std::string_view path, const ImportedExport& imported, std::ostream& out) {
    const ImportedRecords& records = *imported.records;
    out << styled(displayText(path), Style::bold, _terminal) << '\n';
    writeTable("Passwords", passwordColumns, records.passwords, _secrets, _door, _terminal, out);
    writeTable("Notes", noteColumns, records.notes, _secrets, _door, _terminal, out);
    writeTable("Cards", cardColumns, records.cards, _secrets, _door, _terminal, out);
    if (records.passwords.empty() && records.notes.empty() && records.cards.empty()) {
        out << "\nno records\n";
    }
    out << '\n';
}

} // namespace Rellinor::Host
