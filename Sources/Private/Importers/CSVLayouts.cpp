#include "Private/Importers/CSVLayouts.hpp"

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

} // namespace Rellinor
