#include "Host/TableFormat.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "Host/DisplayText.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::size_t widestColumn = 36;

/// Enough of a text to fill a column, whatever characters it is made of: nobody sees the rest of a
/// text of many megabytes.
constexpr std::size_t longestCell = std::size_t{64} * widestColumn;

using Row = std::vector<std::string>;

std::string cell(std::string_view text) {
    return shortened(displayText(text.substr(0, longestCell)), widestColumn);
}

std::string cell(std::int64_t number) {
    return std::to_string(number);
}

template <typename Value>
std::string cell(const std::optional<Value>& optional) {
    return optional ? cell(*optional) : "-";
}

Row row(const ImportedPasswordInfoProviding& password, Secrets secrets) {
    return {cell(password.service()), cell(password.username()),
            cell(shown(password.password(), secrets)), cell(password.url()), cell(password.note())};
}

Row row(const ImportedNoteInfoProviding& note, Secrets /*secrets*/) {
    return {cell(note.title()), cell(note.content())};
}

Row row(const ImportedCardInfoProviding& card, Secrets secrets) {
    return {cell(card.custName()),
            cell(card.holderName()),
            cell(shown(card.cardNumber(), secrets)),
            cell(shown(card.cvv(), secrets)),
            cell(shown(card.pin(), secrets)),
            cell(card.expirationDay()) + '.' + cell(card.expirationMonth()) + '.' +
                cell(card.expirationYear()),
            cell(card.note())};
}

void writeRow(const Row& row, const std::vector<std::size_t>& widths, std::ostream& out) {
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column) {
        line += "  ";
        line += row[column];
        line.append(widths[column] - displayWidth(row[column]), ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

void writeTable(std::string_view title, Row header, const auto& records, Secrets secrets,
                std::ostream& out) {
    if (records.empty()) {
        return;
    }
    std::vector<Row> rows{std::move(header)};
    for (const auto& record : records) {
        rows.push_back(row(*record, secrets));
    }
    std::vector<std::size_t> widths(rows.front().size());
    for (const Row& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], displayWidth(row[column]));
        }
    }
    Row rule;
    for (const std::size_t width : widths) {
        rule.emplace_back(width, '-');
    }
    rows.insert(rows.begin() + 1, std::move(rule));

    out << '\n' << title << " (" << records.size() << ")\n";
    for (const Row& row : rows) {
        writeRow(row, widths, out);
    }
}

} // namespace

void TableFormat::write(std::string_view path, const ImportedRecords& records, std::ostream& out) {
    out << displayText(path) << '\n';
    writeTable("Passwords", {"SERVICE", "USERNAME", "PASSWORD", "URL", "NOTE"}, records.passwords,
               _secrets, out);
    writeTable("Notes", {"TITLE", "CONTENT"}, records.notes, _secrets, out);
    writeTable("Cards", {"NAME", "HOLDER", "NUMBER", "CVV", "PIN", "EXPIRES", "NOTE"},
               records.cards, _secrets, out);
    if (records.passwords.empty() && records.notes.empty() && records.cards.empty()) {
        out << "\nno records\n";
    }
    out << '\n';
}

} // namespace Rellinor::Host
