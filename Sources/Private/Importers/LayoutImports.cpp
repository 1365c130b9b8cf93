#include "Private/Importers/LayoutImports.hpp"

#include <expected>

#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/Bitwarden/BitwardenJSON.hpp"
#include "Private/Importers/Chrome/ChromiumLoginsImporter.hpp"
#include "Private/Importers/CredentialExchange/CredentialExchangeJSON.hpp"
#include "Private/Importers/Enpass/EnpassJSON.hpp"
#include "Private/Importers/Firefox/FirefoxProfileImporter.hpp"
#include "Private/Importers/Importer.hpp"
#include "Private/Importers/KeePass/KeePassXML.hpp"
#include "Private/Importers/Keeper/KeeperJSON.hpp"
#include "Private/Importers/OnePassword/OnePIF.hpp"
#include "Private/Importers/OnePassword/OnePUX.hpp"
#include "Private/Importers/ProtonPass/ProtonPassJSON.hpp"
#include "Private/Importers/Tirel/FaithfulTirelImporter.hpp"
#include "Private/Importers/VaultImporter.hpp"

namespace Rellinor {

namespace {

template <Importer LayoutImporter>
Assembled readAs(const ExportFile& file, Reporter& reporter) {
    LayoutImporter importer;
    return readWith(importer, file, &reporter);
}

} // namespace

Assembled failedImport(FailureReason reason, Reporter& reporter) {
    reporter.fail(reason);
    const ReadError error(reason);
    return {.records = std::unexpected(NSError(error.domain(), error.code())), .extras = {}};
}

Assembled importLayout(const ExportFile& file, Layout layout, Reporter& reporter) {
    reporter.setLayout(layout);
    switch (layout) {
        using enum Layout;
    case chromiumLogins:
        return readAs<ChromiumLoginsImporter>(file, reporter);
    case firefoxProfile:
        return readAs<FirefoxProfileImporter>(file, reporter);
    case keePassXML:
        return readAs<VaultImporter<KeePassXML>>(file, reporter);
    case onePassword1PIF:
        return readAs<VaultImporter<OnePIF>>(file, reporter);
    case onePassword1PUX:
        return readAs<VaultImporter<OnePUX>>(file, reporter);
    case bitwardenJSON:
        return readAs<VaultImporter<BitwardenJSON>>(file, reporter);
    case bitwardenZip:
        return readAs<VaultImporter<BitwardenZip>>(file, reporter);
    case protonPassJSON:
        return readAs<VaultImporter<ProtonPassJSON>>(file, reporter);
    case protonPassZip:
        return readAs<VaultImporter<ProtonPassZip>>(file, reporter);
    case enpassJSON:
        return readAs<VaultImporter<EnpassJSON>>(file, reporter);
    case keeperJSON:
        return readAs<VaultImporter<KeeperJSON>>(file, reporter);
    case credentialExchangeJSON:
        return readAs<VaultImporter<CredentialExchangeJSON>>(file, reporter);
    case tirelJSON:
        return readAs<FaithfulTirelImporter>(file, reporter);
    default:
        return failedImport(FailureReason::notRead, reporter);
    }
}

} // namespace Rellinor
