#include "Private/Importers/Apple/SafariZip.hpp"

#include "Platform/File.hpp"
#include "Private/Detection/Recognisers.hpp"
#include "Private/Importers/Apple/SafariCards.hpp"
#include "Private/Importers/MembersImport.hpp"
#include "Private/Importers/NamedColumnsImporter.hpp"
#include "Private/Importers/VaultImporter.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

constexpr std::string_view passwords = "Passwords.csv";
constexpr std::string_view cards = "PaymentCards.json";

/// The layout of a file by what it begins with.
std::optional<Layout> layoutOf(const ZipMember& member, const ExportMembers& members) {
    const auto part = members.beginning(member, sizeOfBeginning);
    if (!part) {
        throw ReadError(part.error());
    }
    return detectEncodedText(
               {.text = part->bytes(), .isWhole = part->bytes().size() < sizeOfBeginning})
        .layout;
}

bool isAlone(const ExportFile& file) {
    if (file.url() && isFolder(file.url()->path())) {
        return false;
    }
    const auto parts = FileParts::of(file);
    const auto beginning = parts ? parts->part(0, sizeOfZipHeader) : std::nullopt;
    return beginning && !isZip(beginning->bytes());
}

} // namespace

void readSafariFiles(const ExportFile& file, RecordsBlock& block, Reporter& reporter) {
    if (isAlone(file)) {
        VaultImporter<SafariCards> importer;
        Assembly(importer, block, &reporter).read(file);
        return;
    }
    MembersImport import(file, block, reporter);
    const ZipMember* passwordsFile = nullptr;
    const ZipMember* cardsFile = nullptr;
    for (const ZipMember& member : import.members().all()) {
        const bool isCSV = hasExtension(member.name, ".csv");
        const bool isJSON = hasExtension(member.name, ".json");
        const auto layout =
            isCSV || isJSON ? layoutOf(member, import.members()) : std::optional<Layout>();
        const ZipMember** known = nullptr;
        if (isCSV && layout == Layout::appleCSV) {
            known = &passwordsFile;
        } else if (isJSON && layout == Layout::safariZip) {
            known = &cardsFile;
        }
        if (known == nullptr) {
            if (!member.isFolder()) {
                reporter.unread(otherFilesPart);
            }
        } else if (*known != nullptr) {
            throw ReadError(FailureReason::damaged);
        } else {
            *known = &member;
        }
    }
    if (passwordsFile == nullptr && cardsFile == nullptr) {
        throw ReadError(FailureReason::wrongShape);
    }
    if (passwordsFile != nullptr) {
        import.read(*passwordsFile, passwords, NamedColumnsImporter(Layout::appleCSV));
    }
    if (cardsFile != nullptr) {
        import.read(*cardsFile, cards, VaultImporter<SafariCards>());
    }
}

} // namespace Rellinor
