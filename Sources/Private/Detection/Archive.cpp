#include <algorithm>
#include <array>
#include <cstdint>

#include "Private/Detection/Recognisers.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

using namespace std::string_view_literals;

/// The most bytes of the list of members that are looked at: those of some thousand members.
constexpr std::size_t sizeOfList = std::size_t{256} * 1024;

constexpr std::size_t sizeOfEndRecord = 22;
constexpr std::size_t sizeOfEntry = 46;
constexpr std::string_view signatureOfEndRecord = "PK\5\6";
constexpr std::string_view signatureOfEntry = "PK\1\2";

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

std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t size) noexcept {
    std::uint32_t value = 0;
    for (std::size_t i = size; i > 0; --i) {
        value = (value << 8U) | static_cast<unsigned char>(bytes[at + i - 1]);
    }
    return value;
}

/// Whether a member has this name, in any folder of the archive.
bool isNamed(std::string_view member, std::string_view name) noexcept {
    if (member.size() < name.size()) {
        return false;
    }
    const std::size_t begin = member.size() - name.size();
    return sameIgnoringCase(member.substr(begin), name) && (begin == 0 || member[begin - 1] == '/');
}

/// Calls `tell` for each member that a list names, with its name and whether it is encrypted.
void forEachMember(std::string_view list, auto&& tell) {
    while (list.size() >= sizeOfEntry && list.starts_with(signatureOfEntry)) {
        const std::size_t sizeOfName = number(list, 28, 2);
        const std::size_t size =
            sizeOfEntry + sizeOfName + number(list, 30, 2) + number(list, 32, 2);
        if (list.size() - sizeOfEntry < sizeOfName) {
            return;
        }
        tell(list.substr(sizeOfEntry, sizeOfName), (number(list, 8, 2) & 1U) != 0);
        list.remove_prefix(std::min(size, list.size()));
    }
}

bool hasExtension(std::string_view name, std::string_view extension) noexcept {
    return name.size() > extension.size() &&
           sameIgnoringCase(name.substr(name.size() - extension.size()), extension);
}

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
    forEachMember(list, [&](std::string_view name, bool isEncrypted) {
        isAnyEncrypted = isAnyEncrypted || isEncrypted;
        for (std::size_t i = 0; i < contents.known.size(); ++i) {
            if (isNamed(name, knownMembers[i].name)) {
                contents.known.at(i) = true;
                contents.hasKnown = true;
                contents.isEncrypted = contents.isEncrypted || isEncrypted;
            }
        }
        std::size_t& count = contents.countFor(name);
        count += name.ends_with('/') ? 0U : 1U;
    });
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

/// The list of members as far as it is looked at; absent if the archive has none.
std::optional<FilePart> listOf(const FileParts& file) {
    constexpr std::size_t longestComment = 0xFFFF;

    const std::uint64_t size = file.size();
    const std::uint64_t begin =
        size - std::min<std::uint64_t>(size, sizeOfEndRecord + longestComment);
    const auto end = file.part(begin, sizeOfEndRecord + longestComment);
    if (!end || end->bytes().size() < sizeOfEndRecord) {
        return std::nullopt;
    }
    const std::size_t last = end->bytes().size() - sizeOfEndRecord;
    const std::size_t record = end->bytes().rfind(signatureOfEndRecord, last);
    if (record == std::string_view::npos) {
        return std::nullopt;
    }
    const std::size_t count = number(end->bytes(), record + 10, 2);
    const std::size_t sizeOfAll = number(end->bytes(), record + 12, 4);
    auto list = file.part(number(end->bytes(), record + 16, 4), std::min(sizeOfAll, sizeOfList));
    const bool isSound = list && (count == 0 || list->bytes().starts_with(signatureOfEntry));
    return isSound ? std::move(list) : std::nullopt;
}

} // namespace

std::optional<Detection> detectArchive(const FileParts& file, std::string_view beginning) {
    if (!beginning.starts_with("PK\3\4") && !beginning.starts_with(signatureOfEndRecord)) {
        return std::nullopt;
    }
    const auto list = listOf(file);
    if (!list) {
        return obstructed(FailureReason::damaged, "a ZIP archive without a list of its files");
    }
    const Contents contents = contentsOf(list->bytes());
    for (std::size_t i = 0; i < contents.known.size(); ++i) {
        if (contents.known.at(i)) {
            return detectionOf(knownMembers[i], contents.isEncrypted);
        }
    }
    return detectKinds(contents);
}

} // namespace Rellinor
