#include <algorithm>
#include <span>
#include <vector>

#include "Private/Detection/Recognisers.hpp"
#include "Private/Importers/CSVColumnNames.hpp"
#include "Private/Importers/CSVLayouts.hpp"

namespace Rellinor {

namespace {

Detection detection(const CSVLayout& layout, Confidence confidence,
                    const CSVColumnNames& header) noexcept {
    Detection found = recognised(layout.layout, confidence, layout.product, layout.evidence);
    if (layout.source && header.isExactly(layout.exactNames)) {
        found.source = layout.source;
    }
    return found;
}

/// The layout with the most names of those that fit.
std::optional<Detection> detectProduct(const CSVColumnNames& header) noexcept {
    const CSVLayout* best = nullptr;
    Confidence confidence = Confidence::none;
    const auto compare = [&](const CSVLayout& table) {
        const Confidence own = header.confidenceIn(table);
        const std::size_t most = best != nullptr ? best->required.size() : 0;
        if (own == Confidence::none || table.required.size() < std::max<std::size_t>(most, 1)) {
            return;
        }
        if (table.required.size() > most) {
            best = &table;
            confidence = own;
        } else if (table.layout != best->layout) {
            confidence = std::min(confidence, Confidence::likely);
        }
    };
    for (const Layout layout : allLayouts()) {
        std::ranges::for_each(csvTablesOf(layout), compare);
    }
    return best != nullptr ? std::optional(detection(*best, confidence, header)) : std::nullopt;
}

std::optional<Detection> detectUsualNames(const CSVColumnNames& header) noexcept {
    const CSVLayout& usual = genericCSV.front();
    const Confidence confidence = header.confidenceIn(usual);
    return confidence != Confidence::none ? std::optional(detection(usual, confidence, header))
                                          : std::nullopt;
}

} // namespace

/// By the names of a product if they are found with any of the separators, or else by usual ones.
std::optional<Detection> detectColumns(Beginning beginning) {
    const std::vector<CSVColumnNames> headers = headersOf(beginning);
    for (const auto recognise : {detectProduct, detectUsualNames}) {
        for (const CSVColumnNames& header : headers) {
            if (auto found = recognise(header)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

} // namespace Rellinor
