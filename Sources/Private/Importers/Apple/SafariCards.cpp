#include "Private/Importers/Apple/SafariCards.hpp"

#include <array>
#include <cstddef>
#include <vector>

#include "Private/Reports/LineCounter.hpp"

namespace Rellinor {

namespace {

constexpr std::array<std::string_view, 2> topMembers = {"payment_cards", "metadata"};

constexpr auto rules = std::to_array<MemberRule>({
    titleIn("card_name"),
    fieldIn("card_number", ItemField::cardNumber),
    fieldIn("cardholder_name", ItemField::cardHolder),
    fieldIn("card_expiration_month", ItemField::expiryMonth),
    fieldIn("card_expiration_year", ItemField::expiryYear),
    factIn("card_last_used_time_usec", ExtraKind::lastUsedAt),
});

/// Where in a text the first name of an object's members stands; `otherwise` if it has none.
std::size_t placeOf(const JSONValue& value, std::string_view text, std::size_t otherwise) {
    std::size_t place = otherwise;
    if (const auto object = value.object()) {
        object->forEachNamed({}, [&](std::string_view name, const JSONValue& /*value*/) {
            const bool isInText = name.data() >= text.data() && // and not one with escapes
                                  name.data() < text.data() + text.size();
            if (place == otherwise && isInText) {
                place = static_cast<std::size_t>(name.data() - text.data());
            }
        });
    }
    return place;
}

} // namespace

/// The places of cards are lines: so are those of the logins in the same archive.
JSONEntries SafariCards::read(const ExportFile& file, ImportMemory& memory, Reporter& reporter) {
    const std::string_view text = jsonTextOf(file, memory, reporter);
    JSONDocument document = parsedJSON(text, memory, reporter);
    std::vector<JSONEntry> entries;
    std::vector<std::size_t> places;
    if (const auto cards =
            listOfEntriesIn(topOf(document, topMembers), "payment_cards", reporter)) {
        for (const JSONValue card : *cards) {
            entries.push_back({.value = card});
            places.push_back(placeOf(card, text, places.empty() ? 0 : places.back()));
        }
    }
    reporter.setPlaces(PlaceUnit::line, [places = std::move(places),
                                         lines = LineCounter(text)](std::uint64_t card) mutable {
        return lines(card > 0 && card <= places.size() ? places[card - 1] : 0);
    });
    return {std::move(document), std::move(entries), reporter};
}

void SafariCards::decode(const RawRecord& entry, VaultItemBuilder& builder) {
    const auto card = entry.value.object();
    if (!card) {
        builder.leaveOut(LeftOutReason::fieldOfOtherType);
        return;
    }
    builder.item().shape = ItemShape::card;
    builder.takeAll(rules, *card);
}

} // namespace Rellinor
