#pragma once

#include <span>

#include "Private/Importers/CSVLayout.hpp"

namespace Rellinor {

/// The tables of the layouts that a header tells, those of one product together. A layout may have
/// several, one for each kind of file that it stands for.
[[nodiscard]] std::span<const CSVLayout* const> csvLayouts() noexcept;

/// The tables of the layouts that are read when they are asked for alone: they have no header.
[[nodiscard]] std::span<const CSVLayout* const> csvLayoutsWithoutHeader() noexcept;

/// Whether a layout has a table, one of those without a header included.
[[nodiscard]] bool isCSV(Layout layout) noexcept;

/// Any file with usual names of columns. What no other layout knows is read by it.
extern const CSVLayout genericCSV;

// The tables, each in the folder of its product.
extern const CSVLayout lastPassCSV;
extern const CSVLayout dashlaneCredentialsCSV;
extern const CSVLayout dashlaneNotesCSV;
extern const CSVLayout dashlanePaymentsCSV;
extern const CSVLayout dashlaneDocumentsCSV;
extern const CSVLayout dashlanePersonsCSV;
extern const CSVLayout dashlaneNetworksCSV;
extern const CSVLayout keePassCSV;
extern const CSVLayout keePassXCCSV;
extern const CSVLayout onePassword8CSV;
extern const CSVLayout onePassword7MacCSV;
extern const CSVLayout onePassword7MacChosenCSV;
extern const CSVLayout onePassword7WindowsCSV;
extern const CSVLayout chromiumCSV;
extern const CSVLayout firefoxCSV;
extern const CSVLayout olderFirefoxCSV;
extern const CSVLayout appleCSV;
extern const CSVLayout bitwardenCSV;
extern const CSVLayout protonPassCSV;
extern const CSVLayout nordPassCSV;
extern const CSVLayout roboFormCSV;
extern const CSVLayout strongboxCSV;
extern const CSVLayout buttercupCSV;

extern const CSVLayout dashlanePositionalCSV;
extern const CSVLayout enpassCSV;
extern const CSVLayout keeperCSV;

} // namespace Rellinor
