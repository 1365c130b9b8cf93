#include "Private/Importers/JSONCell.hpp"

#include <array>
#include <charconv>
#include <limits>
#include <utility>

namespace Rellinor {

namespace {

std::string_view digitsOf(std::int64_t number, ImportMemory& memory) {
    std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> digits{};
    const auto written = std::to_chars(digits.begin(), digits.end(), number);
    return memory.copy({digits.data(), written.ptr});
}

} // namespace

std::optional<JSONDocument> documentIn(const CSVEntry& cell, CSVItem& item) {
    auto parsed = JSONDocument::parsed(cell.text, {}, item.memory(), JSONExtent::everything);
    return parsed ? std::optional(*std::move(parsed)) : std::nullopt;
}

void addAsItStands(const CSVEntry& cell, CSVItem& item) {
    item.reporter().found(FindingKind::valueOfOtherType, cell.name);
    item.add(cell);
}

std::string_view textOf(const JSONValue& value, const CSVEntry& cell, CSVItem& item) {
    if (const auto text = value.text()) {
        return *text;
    }
    if (const auto integer = value.integer()) {
        return digitsOf(*integer, item.memory());
    }
    if (const auto boolean = value.boolean()) {
        return *boolean ? "true" : "false";
    }
    if (!value.isNull()) {
        item.reporter().found(FindingKind::valueOfOtherType, cell.name);
    }
    return {};
}

} // namespace Rellinor
