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
    for (const CSVLayout* const layout : csvLayouts()) {
        const Confidence own = header.confidenceIn(*layout);
        const std::size_t most = best != nullptr ? best->required.size() : 0;
        if (own == Confidence::none || layout->required.size() < most) {
            continue;
        }
        if (best == nullptr || layout->required.size() > most) {
            best = layout;
            confidence = own;
        } else if (layout->layout != best->layout) {
            confidence = std::min(confidence, Confidence::likely);
        }
    }
    return best != nullptr ? std::optional(detection(*best, confidence, header)) : std::nullopt;
}

std::optional<Detection> detectUsualNames(const CSVColumnNames& header) noexcept {
    const Confidence confidence = header.confidenceIn(genericCSV);
    return confidence != Confidence::none ? std::optional(detection(genericCSV, confidence, header))
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
