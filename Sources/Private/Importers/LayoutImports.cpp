#include "Private/Importers/LayoutImports.hpp"

#include <array>
#include <expected>
#include <new>
#include <span>
#include <string>

#include "Platform/File.hpp"
#include "Private/Errors/ReadError.hpp"
#include "Private/Importers/Apple/SafariZip.hpp"
#include "Private/Importers/Bitwarden/BitwardenJSON.hpp"
#include "Private/Importers/CSVLayouts.hpp"
#include "Private/Importers/Chrome/ChromiumLoginsImporter.hpp"
#include "Private/Importers/CredentialExchange/CredentialExchangeJSON.hpp"
#include "Private/Importers/Dashlane/DashlaneZip.hpp"
#include "Private/Importers/Enpass/EnpassJSON.hpp"
#include "Private/Importers/FileReports.hpp"
#include "Private/Importers/Firefox/FirefoxProfileImporter.hpp"
#include "Private/Importers/Importer.hpp"
#include "Private/Importers/KeePass/KeePassXML.hpp"
#include "Private/Importers/Keeper/KeeperJSON.hpp"
#include "Private/Importers/NamedColumnsImporter.hpp"
#include "Private/Importers/OnePassword/OnePIF.hpp"
#include "Private/Importers/OnePassword/OnePUX.hpp"
#include "Private/Importers/ProtonPass/ProtonPassJSON.hpp"
#include "Private/Importers/Tirel/FaithfulTirelImporter.hpp"
#include "Private/Importers/VaultImporter.hpp"
#include "Private/Proxies/ExportContents.hpp"
#include "Private/Text/UTF16.hpp"

namespace Rellinor {

namespace {

template <Importer LayoutImporter>
Assembled readAs(const ExportFile& file, Reporter& reporter) {
    LayoutImporter importer;
    return readWith(importer, file, &reporter);
}

Assembled readCSV(const ExportFile& file, Layout layout, Reporter& reporter) {
    NamedColumnsImporter importer(layout);
    return readWith(importer, file, &reporter);
}

Assembled readFiles(const ExportFile& file, Reporter& reporter,
                    void (*read)(const ExportFile& file, RecordsBlock& block, Reporter& reporter)) {
    return readWith(true, &reporter, [&](RecordsBlock& block) { read(file, block, reporter); });
}

Assembled readUTF8(const ExportFile& file, Layout layout, Reporter& reporter) {
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
    case dashlaneZip:
        return readFiles(file, reporter, readDashlaneFiles);
    case safariZip:
        return readFiles(file, reporter, readSafariFiles);
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
        return !csvTablesOf(layout).empty() ? readCSV(file, layout, reporter)
                                            : failedImport(FailureReason::notRead, reporter);
    }
}

/// Whether a file is a text in UTF-16. What cannot be looked at is none.
bool isUTF16(const ExportFile& file) {
    std::array<char, 2> mark{};
    if (!file.url()) {
        return hasUTF16Mark({file.bytes().data(), file.bytes().size()});
    }
    return readBytes(std::string(file.url()->path()), 0, mark) &&
           hasUTF16Mark({mark.data(), mark.size()});
}

Assembled readUTF16(const ExportFile& file, Layout layout, Reporter& reporter) {
    auto contents = contentsOf(file, {}, reporter.limits().largestFile);
    if (!contents) {
        return failedImport(contents.error(), reporter);
    }
    const std::span<const char> bytes = contents->bytes();
    DecodedUTF16 text = decodedUTF16({bytes.data(), bytes.size()}, reporter);
    return readUTF8(ExportFile::inMemory(text.view(), file.name()), layout, reporter);
}

} // namespace

Assembled failedImport(FailureReason reason, Reporter& reporter) {
    reporter.fail(reason);
    const ReadError error(reason);
    return {.records = std::unexpected(NSError(error.domain(), error.code())), .extras = {}};
}

Assembled importLayout(const ExportFile& file, Layout layout, Reporter& reporter) {
    reporter.setLayout(layout);
    try {
        return isUTF16(file) ? readUTF16(file, layout, reporter) : readUTF8(file, layout, reporter);
    } catch (const std::bad_alloc&) {
        return failedImport(FailureReason::outOfMemory, reporter);
    }
}

} // namespace Rellinor
