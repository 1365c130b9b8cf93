#include "Private/Importers/VaultItem.hpp"

#include <algorithm>
#include <optional>

#include "Private/Importers/CardDate.hpp"
#include "Private/Memory/Join.hpp"

namespace Rellinor {

namespace {

/// A text that is absent if it is empty.
std::optional<std::string_view> ifAny(std::string_view text) noexcept {
    return text.empty() ? std::nullopt : std::optional(text);
}

/// The values as lines, and the note behind them.
std::string_view linesAndNote(const VaultItem& item, ImportMemory& memory) {
    std::vector<std::string_view> parts;
    for (const Extra& value : item.values) {
        parts.insert(parts.end(), {parts.empty() ? "" : "\n", value.label,
                                   value.label.empty() ? "" : ": ", value.value});
    }
    if (!item.note.empty()) {
        parts.insert(parts.end(), {parts.empty() ? "" : "\n\n", item.note});
    }
    return joined(parts, memory);
}

} // namespace

bool VaultItem::isEmpty() const noexcept {
    const bool hasFields =
        std::ranges::any_of(fields, [](std::string_view text) { return !text.empty(); });
    const bool hasAddress =
        std::ranges::find(facts, ExtraKind::furtherURL, &Extra::kind) != facts.end();
    return title.empty() && note.empty() && !hasFields && values.empty() && !hasAddress;
}

ImportedPassword passwordOf(const VaultItem& item) noexcept {
    return {
        item[ItemField::username],
        item[ItemField::password],
        item[ItemField::address],
        ifAny(item.title),
        std::nullopt, // color
        ifAny(item.note),
        std::nullopt, // pwdChange
    };
}

ImportedNote noteOf(const VaultItem& item, ImportMemory& memory, Reporter& reporter) {
    const bool isOther = item.shape == ItemShape::other;
    if (isOther) {
        reporter.found(FindingKind::arrivedAsNote, item.kind);
    }
    return {
        std::nullopt, // color
        item.title,
        isOther ? linesAndNote(item, memory) : item.note,
    };
}

ImportedCard cardOf(VaultItem& item, const CardDateNames& names, Reporter& reporter) {
    using enum ItemField;

    CardDate date;
    const auto take = [&](ItemField field, std::string_view name,
                          const std::optional<CardDate>& read) {
        if (!read) {
            reporter.found(FindingKind::unreadableDate, name);
        }
        if (!read || !date.complete(*read)) {
            item.values.push_back(
                {.kind = ExtraKind::customText, .label = name, .value = item[field]});
        }
    };
    take(expiry, names.both, cardDate(item[expiry]));
    take(expiryMonth, names.month, cardDate(item[expiryMonth], ""));
    take(expiryYear, names.year, cardDate("", item[expiryYear]));
    return {
        item[cardNumber],
        item.title,
        item[cardHolder],
        item[cvv],
        item[pin],
        item.note,
        0, // expirationDay
        date.month,
        date.year,
    };
}

} // namespace Rellinor
