#include <algorithm>
#include <array>
#include <bitset>
#include <cstdint>
#include <span>
#include <utility>

#include "Private/Detection/Recognisers.hpp"
#include "Private/Text/JSONParser.hpp"

namespace Rellinor {

namespace {

/// Members that tell who wrote a document.
enum class Member : std::uint8_t {
    encrypted,
    encryptedTrue,
    keyValidation,
    passwordProtected,
    items,
    folders,
    collections,
    itemsCredentials,
    itemsTemplate,
    vaults,
    userId,
    version,
    accounts,
    accountsVaults,
    accountsCredentials,
    exporter,
    records,
    recordsType,
    sharedFolders,
    paymentCards,
    metadataType,
    logins,
    notes,
    cards,
    loginsName,
    notesLabel,
    cardsHolder,
    nextId,
    loginsEncrypted,
    count,
};

/// Where a member stands: its name behind those of the objects around it, each in front of a slash,
/// and "[]" behind the name of a list.
struct KnownPath {
    std::string_view path;
    Member member;
};

/// Members of any kind.
constexpr auto names = std::to_array<KnownPath>({
    {"encrypted", Member::encrypted},
    {"encKeyValidation_DO_NOT_EDIT", Member::keyValidation},
    {"passwordProtected", Member::passwordProtected},
    {"items[]/credentials", Member::itemsCredentials},
    {"items[]/template_type", Member::itemsTemplate},
    {"userId", Member::userId},
    {"version", Member::version},
    {"accounts[]/vaults", Member::accountsVaults},
    {"accounts[]/items[]/credentials", Member::accountsCredentials},
    {"exporterRpId", Member::exporter},
    {"records[]/$type", Member::recordsType},
    {"metadata/data_type", Member::metadataType},
    {"logins[]/loginName", Member::loginsName},
    {"notes[]/label", Member::notesLabel},
    {"cards[]/holderName", Member::cardsHolder},
    {"nextId", Member::nextId},
    {"logins[]/encryptedPassword", Member::loginsEncrypted},
});

constexpr auto lists = std::to_array<KnownPath>({
    {"items", Member::items},
    {"folders", Member::folders},
    {"collections", Member::collections},
    {"accounts", Member::accounts},
    {"records", Member::records},
    {"shared_folders", Member::sharedFolders},
    {"payment_cards", Member::paymentCards},
    {"logins", Member::logins},
    {"notes", Member::notes},
    {"cards", Member::cards},
});

constexpr auto objects = std::to_array<KnownPath>({
    {"vaults", Member::vaults},
});

/// Notes which of the known members a document has, as far as it goes.
class MembersSeen {
public:
    /// @param text  what is parsed
    explicit MembersSeen(std::string_view text) noexcept : _text(text) {}

    [[nodiscard]] bool has(Member member) const noexcept {
        return _seen[std::to_underlying(member)];
    }

    // What the parser tells.

    void beginObject() noexcept { begin(objects, _depth == 0 ? "" : "/"); }

    void endObject() noexcept { end(); }

    void beginArray() noexcept { begin(lists, "[]"); }

    void endArray() noexcept { end(); }

    void key(JSONString name) noexcept {
        if (_depth <= deepest) {
            _size = _sizes[_depth - 1];
            append(name.written());
            note(names);
            if (path() == "encrypted" && isTrue(name)) {
                _seen.set(std::to_underlying(Member::encryptedTrue));
            }
        }
    }

    void string(JSONString /*text*/) noexcept {}

    void integer(std::int64_t /*value*/) noexcept {}

    void null() noexcept {}

    void boolean(bool /*truth*/) noexcept {}

    void otherNumber() noexcept {}

private:
    static constexpr std::size_t deepest = 6;
    static constexpr std::size_t longestPath = 64;

    /// @param suffix  what stands in a path between the name of this and those in it
    void begin(std::span<const KnownPath> known, std::string_view suffix) noexcept {
        if (_depth < deepest) {
            // An object in a list begins where the list left the path.
            note(known);
            append(suffix);
            _sizes[_depth] = _size;
        }
        ++_depth;
    }

    void end() noexcept {
        --_depth;
        if (_depth > 0 && _depth <= deepest) {
            _size = _sizes[_depth - 1];
        }
    }

    /// A path that is too long is none of the known ones.
    void append(std::string_view piece) noexcept {
        const std::size_t count = std::min(piece.size(), longestPath - _size);
        std::ranges::copy(piece.substr(0, count), _path.begin() + _size);
        _size += count;
    }

    [[nodiscard]] std::string_view path() const noexcept { return {_path.data(), _size}; }

    void note(std::span<const KnownPath> known) noexcept {
        const auto* const found =
            std::ranges::find(known.data(), known.data() + known.size(), path(), &KnownPath::path);
        if (found != known.data() + known.size()) {
            _seen.set(std::to_underlying(found->member));
        }
    }

    /// Whether the value of a member is true.
    [[nodiscard]] bool isTrue(JSONString name) const noexcept {
        const auto behind =
            static_cast<std::size_t>(name.written().data() - _text.data()) + name.written().size();
        const std::size_t value = _text.find_first_not_of("\" \t\r\n:", behind);
        return value != std::string_view::npos && _text.substr(value).starts_with("true");
    }

    std::string_view _text;
    std::bitset<std::to_underlying(Member::count)> _seen;
    std::array<char, longestPath> _path = {};
    std::size_t _size = 0;                        // of the path
    std::array<std::size_t, deepest> _sizes = {}; // of the path in each object and list around
    std::size_t _depth = 0;
};

std::optional<Detection> detectVault(const MembersSeen& seen) noexcept {
    using enum Member;
    const auto has = [&](Member member) { return seen.has(member); };

    if (has(vaults) && (has(version) || has(userId))) {
        const Detection found = recognised(Layout::protonPassJSON, Confidence::certain,
                                           "Proton Pass", "the object vaults, version and userId");
        return has(encryptedTrue)
                   ? obstructed(found, FailureReason::encrypted,
                                "export from Proton Pass as ZIP or CSV, without a passphrase")
                   : found;
    }
    if (has(keyValidation) || has(passwordProtected) ||
        (has(encrypted) &&
         (has(encryptedTrue) || has(items) || has(folders) || has(collections)))) {
        const Detection found =
            recognised(Layout::bitwardenJSON, Confidence::certain, "Bitwarden",
                       "the members encrypted and items, or those of an encrypted export");
        return has(encryptedTrue)
                   ? obstructed(found, FailureReason::encrypted,
                                "export from Bitwarden as .json or .csv, not as encrypted .json")
                   : found;
    }
    if (has(accounts) && has(accountsVaults)) {
        return recognised(Layout::onePassword1PUX, Confidence::certain, "1Password",
                          "the lists accounts and vaults");
    }
    if (has(exporter) || has(accountsCredentials) || has(itemsCredentials)) {
        return recognised(Layout::credentialExchangeJSON, Confidence::certain,
                          "a program that writes FIDO Credential Exchange files",
                          "items with a list of credentials, or the member exporterRpId");
    }
    if (has(records) && (has(recordsType) || has(sharedFolders))) {
        return recognised(Layout::keeperJSON, Confidence::certain, "Keeper",
                          "the list records, and shared_folders or $type");
    }
    if (has(items) && has(itemsTemplate)) {
        return recognised(Layout::enpassJSON, Confidence::certain, "Enpass",
                          "items with a template_type");
    }
    if (has(paymentCards) && has(metadataType)) {
        return recognised(Layout::safariZip, Confidence::certain, "Safari",
                          "the list payment_cards and the member data_type");
    }
    return std::nullopt;
}

std::optional<Detection> detectLogins(const MembersSeen& seen) noexcept {
    using enum Member;
    if (seen.has(logins) && (seen.has(nextId) || seen.has(loginsEncrypted))) {
        return obstructed(recognised(Layout::firefoxProfile, Confidence::certain, "Firefox",
                                     "the list logins as Firefox writes it"),
                          FailureReason::other, "give the profile folder that the file is in");
    }
    if ((seen.has(logins) && seen.has(notes) && seen.has(cards)) || seen.has(loginsName) ||
        (seen.has(notesLabel) && seen.has(cards)) || seen.has(cardsHolder)) {
        Detection found = recognised(Layout::tirelJSON, Confidence::certain, "Tirel",
                                     "the lists logins, notes and cards, or their members");
        found.source = ImportSource::tirel;
        return found;
    }
    return std::nullopt;
}

} // namespace

std::optional<Detection> detectJSON(std::string_view text) noexcept {
    MembersSeen seen(text);
    JSONParser parser(text, seen);
    (void)parser.parse(); // up to where the text is cut or broken
    const auto found = detectVault(seen);
    return found ? found : detectLogins(seen);
}

} // namespace Rellinor
