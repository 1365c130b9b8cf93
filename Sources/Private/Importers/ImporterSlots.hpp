#pragma once

#include <optional>

#include <Rellinor/ExportFile.hpp>
#include <Rellinor/Models/ImportSource.hpp>

#include "Private/Importers/Chrome/ChromeImporter.hpp"
#include "Private/Importers/Dashlane/DashlaneImporter.hpp"
#include "Private/Importers/Firefox/FirefoxImporter.hpp"
#include "Private/Importers/KeePass/KeePassImporter.hpp"
#include "Private/Importers/LastPass/LastPassImporter.hpp"
#include "Private/Importers/OnePassword/OnePasswordImporter.hpp"
#include "Private/Importers/RecordsBlock.hpp"
#include "Private/Importers/Tirel/TirelImporter.hpp"

namespace Rellinor {

/// The importers of a `RecordsImporter`. Each is created at the first import from its source, stays
/// to the end, and so carries its state from one import to the next.
struct ImporterSlots {
    std::optional<ChromeImporter> chromeImporter;
    std::optional<LastPassImporter> lastPassImporter;
    std::optional<DashlaneImporter> dashlaneImporter;
    std::optional<OnePasswordImporter> onePasswordImporter;
    std::optional<TirelImporter> tirelImporter;
    std::optional<KeePassImporter> keePassImporter; ///< for both of its forks
    std::optional<FirefoxImporter> firefoxImporter;

    /// Reads with the importer of `source`; a value that is no case is a fault of the program.
    ///
    /// @param reporter  may be null
    [[nodiscard]] Assembled read(const ExportFile& file, ImportSource source, Reporter* reporter);
};

} // namespace Rellinor
