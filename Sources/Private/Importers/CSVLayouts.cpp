#include "Private/Importers/CSVLayouts.hpp"

#include <algorithm>
#include <array>

namespace Rellinor {

namespace {

constexpr auto layouts = std::array{
    &lastPassCSV,
    &dashlaneCredentialsCSV,
    &dashlaneNotesCSV,
    &dashlanePaymentsCSV,
    &dashlaneDocumentsCSV,
    &dashlanePersonsCSV,
    &dashlaneNetworksCSV,
    &keePassCSV,
    &keePassXCCSV,
    &onePassword8CSV,
    &onePassword7MacCSV,
    &onePassword7MacChosenCSV,
    &onePassword7WindowsCSV,
    &chromiumCSV,
    &firefoxCSV,
    &olderFirefoxCSV,
    &appleCSV,
    &bitwardenCSV,
    &protonPassCSV,
    &nordPassCSV,
    &roboFormCSV,
    &strongboxCSV,
    &buttercupCSV,
};

constexpr auto withoutHeader = std::array{
    &dashlanePositionalCSV,
    &enpassCSV,
    &keeperCSV,
};

} // namespace

std::span<const CSVLayout* const> csvLayouts() noexcept {
    return layouts;
}

std::span<const CSVLayout* const> csvLayoutsWithoutHeader() noexcept {
    return withoutHeader;
}

bool isCSV(Layout layout) noexcept {
    const auto isIn = [&](std::span<const CSVLayout* const> tables) {
        return std::ranges::find(tables, layout, &CSVLayout::layout) != tables.end();
    };
    return isIn(layouts) || isIn(withoutHeader) || layout == genericCSV.layout;
}

} // namespace Rellinor
