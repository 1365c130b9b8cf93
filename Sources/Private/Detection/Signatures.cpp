#include "Private/Detection/Recognisers.hpp"
#include "Private/Text/Letters.hpp"

namespace Rellinor {

namespace {

using namespace std::string_view_literals;

/// What a file of a kind begins with, or what its name ends with.
struct Signature {
    std::string_view text;
    std::string_view product; ///< empty if nothing is to be imported from it
    std::string_view evidence;
    std::string_view advice;
    FailureReason obstacle = FailureReason::unknown;
    std::optional<Layout> layout = std::nullopt;
};

constexpr std::string_view keePass = "KeePass or KeePassXC";
constexpr std::string_view keePassAdvice =
    "open it in KeePassXC, and export from there: Database > Export > CSV File; or in KeePass: "
    "File > Export > KeePass CSV (1.x)";
constexpr std::string_view protonAdvice =
    "export from Proton Pass as ZIP or CSV, without a passphrase";

constexpr Signature beginnings[] = {
    {.text = "\x03\xD9\xA2\x9A",
     .product = keePass,
     .evidence = "the first bytes of a KeePass database",
     .advice = keePassAdvice,
     .obstacle = FailureReason::encrypted},
    {.text = "-----BEGIN PGP MESSAGE-----",
     .product = "Proton Pass",
     .evidence = "a message that is encrypted with PGP",
     .advice = protonAdvice,
     .obstacle = FailureReason::encrypted},
    {.text = "\x89PNG\r\n\x1A\n", .product = {}, .evidence = "a picture", .advice = {}},
    {.text = "\xFF\xD8\xFF", .product = {}, .evidence = "a picture", .advice = {}},
    {.text = "%PDF-", .product = {}, .evidence = "a PDF document", .advice = {}},
    {.text = "\x1F\x8B",
     .product = {},
     .evidence = "a compressed file",
     .advice = "unpack it, and look at what comes out"},
    {.text = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1",
     .product = {},
     .evidence = "a file of an office program",
     .advice = "if it is a spreadsheet, save it as CSV in UTF-8"},
};

constexpr Signature extensions[] = {
    {.text = ".dash",
     .product = "Dashlane",
     .evidence = "the name of an encrypted Dashlane export",
     .advice = "export from Dashlane as CSV",
     .obstacle = FailureReason::encrypted},
    {.text = ".pgp",
     .product = "Proton Pass",
     .evidence = "the name of a file that is encrypted with PGP",
     .advice = protonAdvice,
     .obstacle = FailureReason::encrypted},
    {.text = ".jwe",
     .product = "a program that writes FIDO Credential Exchange files",
     .evidence = "the name of an encrypted FIDO Credential Exchange file",
     .advice = "export without encryption",
     .obstacle = FailureReason::encrypted,
     .layout = Layout::credentialExchangeJSON},
};

Detection detection(const Signature& signature, Confidence confidence) noexcept {
    Detection found = obstructed(signature.obstacle, signature.evidence, signature.advice);
    if (!signature.product.empty()) {
        found.product = signature.product;
        found.layout = signature.layout;
        found.confidence = confidence;
    }
    return found;
}

} // namespace

std::optional<Detection> detectSignature(std::string_view beginning) noexcept {
    for (const Signature& signature : beginnings) {
        if (beginning.starts_with(signature.text)) {
            return detection(signature, Confidence::certain);
        }
    }
    return std::nullopt;
}

std::optional<Detection> detectName(std::string_view name) noexcept {
    for (const Signature& signature : extensions) {
        if (name.size() > signature.text.size() &&
            sameIgnoringCase(name.substr(name.size() - signature.text.size()), signature.text)) {
            return detection(signature, Confidence::likely);
        }
    }
    return std::nullopt;
}

} // namespace Rellinor
