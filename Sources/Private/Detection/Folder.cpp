#include <string>

#include "Platform/File.hpp"
#include "Private/Detection/Recognisers.hpp"
#include "Private/Importers/Firefox/FirefoxImportMetaData.hpp"
#include "Private/Proxies/ExportContents.hpp"

namespace Rellinor {

namespace {

/// A folder that holds a certain file. The first that fits is meant.
struct KnownFolder {
    std::string_view file;
    std::optional<Layout> layout;
    FailureReason obstacle; ///< beside that of the layout
    std::string_view product;
    std::string_view evidence;
    std::string_view advice = {};
};

constexpr std::string_view chromium = "Chrome, Edge or another Chromium browser";
constexpr std::string_view dashlane = "Dashlane";
constexpr std::string_view onePassword = "1Password";
constexpr std::string_view vaultAdvice =
    "open it in 1Password, and export from there: File > Export";
constexpr std::string_view profileAdvice = "give the folder of one profile in it";

constexpr KnownFolder knownFolders[] = {
    {"Login Data", Layout::chromiumLogins, FailureReason::none, chromium, "the file Login Data"},
    {"Login Data For Account", Layout::chromiumLogins, FailureReason::none, chromium,
     "the file Login Data For Account"},
    {"data.1pif", Layout::onePassword1PIF, FailureReason::none, onePassword, "the file data.1pif"},
    {"credentials.csv", Layout::dashlaneZip, FailureReason::none, dashlane,
     "the file credentials.csv"},
    {"securenotes.csv", Layout::dashlaneZip, FailureReason::none, dashlane,
     "the file securenotes.csv"},
    {"secureNotes.csv", Layout::dashlaneZip, FailureReason::none, dashlane,
     "the file secureNotes.csv"},
    {"payments.csv", Layout::dashlaneZip, FailureReason::none, dashlane, "the file payments.csv"},
    {"PaymentCards.json", Layout::safariZip, FailureReason::none, "Safari",
     "the file PaymentCards.json"},
    {"export.data", Layout::onePassword1PUX, FailureReason::none, onePassword,
     "the file export.data"},
    {"default/profile.js", std::nullopt, FailureReason::encrypted, onePassword,
     "the file default/profile.js of a vault", vaultAdvice},
    {"data/default/contents.js", std::nullopt, FailureReason::encrypted, onePassword,
     "the file data/default/contents.js of a keychain", vaultAdvice},
    {"Default/Login Data", std::nullopt, FailureReason::noStore, chromium,
     "the file Default/Login Data", profileAdvice},
    {"profiles.ini", std::nullopt, FailureReason::noStore, "Firefox", "the file profiles.ini",
     profileAdvice},
    {"key4.db", std::nullopt, FailureReason::noStore, "Firefox",
     "neither logins.json nor signons.sqlite is there",
     "give the profile folder that has one of them"},
};

Detection detection(const KnownFolder& known) noexcept {
    if (known.layout) {
        return recognised(*known.layout, Confidence::certain, known.product, known.evidence);
    }
    Detection found = obstructed(known.obstacle, known.evidence, known.advice);
    found.product = known.product;
    found.confidence = Confidence::certain;
    return found;
}

} // namespace

Detection detectFolder(const URL& folder) {
    const FirefoxImportMetaData stores = FirefoxImportMetaData::of(folder);
    if (stores.logins || stores.signons) {
        Detection found =
            recognised(Layout::firefoxProfile, Confidence::certain, "Firefox",
                       stores.logins ? "the file logins.json" : "the file signons.sqlite");
        found.source = ImportSource::firefox;
        return found;
    }
    for (const KnownFolder& known : knownFolders) {
        const auto kind = kindOfFile(std::string(folder.appendingPathComponent(known.file).path()));
        if (kind == FileKind::file) {
            return detection(known);
        }
        if (!kind && kind.error() == FileError::noPermission) {
            return obstructed(FailureReason::noPermission);
        }
    }
    return obstructed(FailureReason::noStore, "a folder with nothing known in it");
}

} // namespace Rellinor
