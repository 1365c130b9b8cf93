#include "Private/Importers/CSVCells.hpp"

#include <algorithm>

#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

/// Calls `visit` with the parts of a text.
void forEachPart(std::string_view text, std::string_view separator, auto&& visit) {
    for (;;) {
        const std::size_t end = std::min(text.find(separator), text.size());
        visit(text.substr(0, end));
        if (end == text.size()) {
            return;
        }
        text.remove_prefix(end + separator.size());
    }
}

bool hasScheme(std::string_view address) noexcept {
    const auto isPartOfScheme = [](char character) {
        const char letter = lowerCase(character);
        return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') ||
               std::string_view("+-.").contains(letter);
    };
    const std::size_t end = address.find("://");
    return end != std::string_view::npos && end > 0 &&
           std::ranges::all_of(address.substr(0, end), isPartOfScheme);
}

} // namespace

void readFlag(CSVItem& item, const CSVEntry& cell) {
    if (cell.text == "1" || sameIgnoringCase(cell.text, "true")) {
        item.add(cell, cell.extra, cell.label, "true");
    } else if (cell.text != "0" && !sameIgnoringCase(cell.text, "false")) {
        item.add(cell, ExtraKind::other, cell.label, cell.text);
    }
}

void readTags(CSVItem& item, const CSVEntry& cell) {
    forEachPart(cell.text, cell.text.contains(';') ? ";" : ",", [&](std::string_view tag) {
        tag.remove_prefix(std::min(tag.find_first_not_of(' '), tag.size()));
        item.add(cell, ExtraKind::tag, cell.label, tag);
    });
}

void readAddress(CSVItem& item, const CSVEntry& cell) {
    item.addAddress(cell, cell.text);
}

void readAddresses(CSVItem& item, const CSVEntry& cell, std::string_view separator) {
    bool areAddresses = true;
    forEachPart(cell.text, separator,
                [&](std::string_view part) { areAddresses = areAddresses && hasScheme(part); });
    if (areAddresses) {
        forEachPart(cell.text, separator,
                    [&](std::string_view part) { item.addAddress(cell, part); });
    } else {
        item.addAddress(cell, cell.text);
    }
}

} // namespace Rellinor
