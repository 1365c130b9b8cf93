#include <algorithm>
#include <array>

#include "Private/Importers/CSVLayouts.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

using enum CSVField;
using enum ExtraKind;

/// What fields are by their labels, which are in the user's language: these are English.
constexpr auto labels = std::array{
    CSVColumn{.name = "username", .field = username},
    CSVColumn{.name = "login", .field = username},
    CSVColumn{.name = "password", .field = password},
    CSVColumn{.name = "url", .field = url},
    CSVColumn{.name = "website", .field = url},
    CSVColumn{.name = "email", .extra = email},
    CSVColumn{.name = "e-mail", .extra = email},
    CSVColumn{.name = "phone", .extra = phone},
    CSVColumn{.name = "phone number", .extra = phone},
    CSVColumn{.name = "totp", .extra = oneTimePassword},
    CSVColumn{.name = "one-time code", .extra = oneTimePassword},
    CSVColumn{.name = "cardholder", .field = cardHolder},
    CSVColumn{.name = "number", .field = cardNumber},
    CSVColumn{.name = "cvc", .field = cvv},
    CSVColumn{.name = "pin", .field = pin},
    CSVColumn{.name = "expiry date", .field = expiry},
};

/// Older files begin with a line that tells this: `"Title","Field","Value",…`.
std::size_t lengthOfHeading(std::string_view text) {
    constexpr std::string_view heading = R"("Title","Field","Value",)";

    if (!text.starts_with(heading)) {
        return 0;
    }
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const bool hasBoth = text.substr(end).starts_with("\r\n");
    return std::min(end + (hasBoth ? 2U : 1U), text.size());
}

/// Title, pairs of label and value, and the note if the number of cells is even. The labels of what
/// the product hides begin with an asterisk.
void readRow(CSVItem& item, std::span<const std::string_view> row) {
    const bool hasNote = row.size() % 2 == 0;
    const auto pairs = row.subspan(1, row.size() - (hasNote ? 2 : 1));
    item.add({.field = title, .text = row.front()});
    for (std::size_t index = 0; index < pairs.size(); index += 2) {
        std::string_view label = pairs[index];
        const bool isHidden = label.starts_with('*');
        label.remove_prefix(isHidden ? 1 : 0);
        const auto* const known = std::ranges::find_if(
            labels, [&](const CSVColumn& column) { return sameIgnoringCase(column.name, label); });
        CSVEntry entry = {.extra = isHidden ? customSecret : customText,
                          .label = label,
                          .text = pairs[index + 1]};
        if (known != labels.end()) {
            entry.name = known->name;
            entry.field = known->field;
            entry.extra = known->extra;
        }
        item.add(entry);
    }
    if (hasNote) {
        item.add({.field = note, .text = row.back()});
    }

    const auto has = [&](CSVField field) { return !item.text(field).empty(); };
    if (has(cardNumber) && (has(cardHolder) || has(cvv) || has(expiry))) {
        item.setKind(CSVKind::card);
    } else if (has(username) || has(password) || has(url)) {
        item.setKind(CSVKind::login);
    } else {
        const bool hasPairs = std::ranges::any_of(item.entries(), [](const CSVEntry& entry) {
            return entry.field != title && entry.field != note;
        });
        item.setKind(hasPairs ? CSVKind::other : CSVKind::note);
    }
}

constexpr auto tables = std::array{
    CSVLayout{
        .layout = Layout::enpassCSV,
        .product = "Enpass",
        .lengthOfHeading = lengthOfHeading,
        .readRow = readRow,
    },
};

} // namespace

constinit const CSVTables enpassCSV = tables;

} // namespace Rellinor
