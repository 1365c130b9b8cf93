#include <algorithm>
#include <array>
#include <cstdint>

#include "Private/Detection/Recognisers.hpp"
#include "Private/Proxies/ZipDirectory.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

using namespace std::string_view_literals;

/// The most bytes of the list of members that are looked at: those of some thousand members.
constexpr std::size_t sizeOfList = std::size_t{256} * 1024;

/// What the members of an archive tell. The first that is there counts.
struct KnownMember {
    std::string_view name; ///< of the file, or with the folders around it
    std::optional<Layout> layout;
    Confidence confidence;
    FailureReason obstacle; ///< beside that of the layout
    std::string_view product;
    std::string_view evidence;
    std::string_view advice = {};
};

constexpr std::string_view protonAdvice =
    "export from Proton Pass as ZIP or CSV, without a passphrase";
constexpr std::string_view saveAsCSV = "if it is a spreadsheet, save it as CSV in UTF-8";

constexpr KnownMember knownMembers[] = {
    {"export.data", Layout::onePassword1PUX, Confidence::certain, FailureReason::none, "1Password",
     "an archive with the file export.data"},
    {"credentials.csv", Layout::dashlaneZip, Confidence::certain, FailureReason::none, "Dashlane",
     "an archive with the file credentials.csv"},
    {"securenotes.csv", Layout::dashlaneZip, Confidence::certain, FailureReason::none, "Dashlane",
     "an archive with the file securenotes.csv"},
    {"payments.csv", Layout::dashlaneZip, Confidence::likely, FailureReason::none, "Dashlane",
     "an archive with the file payments.csv"},
    {"data.pgp", Layout::protonPassZip, Confidence::certain, FailureReason::encrypted,
     "Proton Pass", "an archive with the file data.pgp", protonAdvice},
    {"Proton Pass/data.json", Layout::protonPassZip, Confidence::certain, FailureReason::none,
     "Proton Pass", "an archive with the file Proton Pass/data.json"},
    {"data.json", Layout::bitwardenZip, Confidence::likely, FailureReason::none, "Bitwarden",
     "an archive with the file data.json"},
    {"PaymentCards.json", Layout::safariZip, Confidence::certain, FailureReason::none, "Safari",
     "an archive with the file PaymentCards.json"},
    {"Passwords.csv", Layout::safariZip, Confidence::likely, FailureReason::none, "Safari",
     "an archive with the file Passwords.csv"},
    {"index.jwe", Layout::credentialExchangeJSON, Confidence::certain, FailureReason::encrypted,
     "a program that writes FIDO Credential Exchange files", "an archive with the file index.jwe",
     "export without encryption"},
    {"cxf.json", Layout::credentialExchangeJSON, Confidence::likely, FailureReason::none,
     "a program that writes FIDO Credential Exchange files", "an archive with the file cxf.json"},
    {"payload.json", Layout::credentialExchangeJSON, Confidence::likely, FailureReason::none,
     "a program that writes FIDO Credential Exchange files",
     "an archive with the file payload.json"},
    {"xl/workbook.xml", std::nullopt, Confidence::none, FailureReason::none, "", "a spreadsheet",
     saveAsCSV},
    {"content.xml", std::nullopt, Confidence::none, FailureReason::none, "",
     "a file of an office program", saveAsCSV},
};

/// What a list of members holds.
struct Contents {
    std::array<bool, std::size(knownMembers)> known = {};
    bool isEncrypted = false; ///< a known member, or any member if none is known
    bool hasKnown = false;
    std::size_t csvFiles = 0;
    std::size_t jsonFiles = 0;
    std::size_t webPages = 0;
    std::size_t others = 0;

    /// Where members of the kind that a name tells are counted.
    [[nodiscard]] std::size_t& countFor(std::string_view name) noexcept {
        if (hasExtension(name, ".csv")) {
            return csvFiles;
        }
        if (hasExtension(name, ".json")) {
            return jsonFiles;
        }
        return hasExtension(name, ".html") ? webPages : others;
    }
};

Contents contentsOf(std::string_view list) {
    Contents contents;
    bool isAnyEncrypted = false;
    while (const auto member = nextZipMember(list)) {
        isAnyEncrypted = isAnyEncrypted || member->isEncrypted;
        for (std::size_t i = 0; i < contents.known.size(); ++i) {
            if (member->isNamed(knownMembers[i].name)) {
                contents.known.at(i) = true;
                contents.hasKnown = true;
                contents.isEncrypted = contents.isEncrypted || member->isEncrypted;
            }
        }
        std::size_t& count = contents.countFor(member->name);
        count += member->isFolder() ? 0U : 1U;
    }
    contents.isEncrypted = contents.hasKnown ? contents.isEncrypted : isAnyEncrypted;
    return contents;
}

Detection detectionOf(const KnownMember& known, bool isEncrypted) noexcept {
    if (!known.layout) {
        return unknown(known.evidence, known.advice);
    }
    const Detection found =
        recognised(*known.layout, known.confidence, known.product, known.evidence);
    if (known.obstacle != FailureReason::none) {
        return obstructed(found, known.obstacle, known.advice);
    }
    return isEncrypted ? obstructed(found, FailureReason::encrypted,
                                    "export without a password, or unpack the archive with it")
                       : found;
}

/// What the kinds of files tell where no name does: those of Safari are in the user's language.
Detection detectKinds(const Contents& contents) noexcept {
    if (contents.isEncrypted) {
        return obstructed(FailureReason::encrypted, "an archive with encrypted files",
                          "unpack it with its password");
    }
    if (contents.csvFiles == 1 && contents.jsonFiles > 0 && contents.webPages > 0 &&
        contents.others == 0) {
        return recognised(Layout::safariZip, Confidence::likely, "Safari",
                          "an archive with one CSV file, JSON files and a web page");
    }
    if (contents.jsonFiles == 1 && contents.csvFiles + contents.webPages + contents.others == 0) {
        Detection found;
        found.layout = Layout::credentialExchangeJSON;
        found.confidence = Confidence::possible;
        found.product = "a program that writes FIDO Credential Exchange files";
        found.evidence = "an archive with a JSON file alone";
        return found;
    }
    return unknown("a ZIP archive", "unpack it, and look at what is in it");
}

Detection detectMembers(const Contents& contents) noexcept {
    for (std::size_t i = 0; i < contents.known.size(); ++i) {
        if (contents.known.at(i)) {
            return detectionOf(knownMembers[i], contents.isEncrypted);
        }
    }
    return detectKinds(contents);
}

} // namespace

std::optional<Detection> detectArchive(const FileParts& file, std::string_view beginning) {
    if (!isZip(beginning)) {
        return std::nullopt;
    }
    const auto place = zipListOf(file);
    if (!place) {
        return obstructed(place.error(), "a ZIP archive without a list of its files");
    }
    const auto list = file.part(place->begin, std::min(place->size, sizeOfList));
    if (!list) {
        return obstructed(FailureReason::unreadable);
    }
    Detection found = detectMembers(contentsOf(list->bytes()));
    if (!hasArchives && found.obstacle == FailureReason::none) {
        found.obstacle = FailureReason::notBuiltIn;
    }
    return found;
}

} // namespace Rellinor
