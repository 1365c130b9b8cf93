#include "Host/Inspection/OnePasswordRecords.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Host/Counted.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::array<std::string_view, 32> list = {
    "", "records", "typeName", "title", "trashed", "folderUuid", "openContents", "tags",
    "secureContents", "URLs", "url", "fields", "designation", "value", "username", "password",
    "notesPlain", "passwordHistory", "sections", "n", "v", "TOTP_*", "otpauth://*",
    // The types.
    "webforms.WebForm", "securenotes.SecureNote", "identities.Identity", "system.folder.Regular",
    "wallet.computer.License", "wallet.financial.CreditCard", "wallet.government.DriversLicense",
    "wallet.membership.RewardProgram", "passwords.Password"};

consteval JSONWord word(std::string_view text) {
    return numberOf(text, list);
}

/// What a record of a type that is not imported is to people.
constexpr std::array<std::pair<JSONWord, std::string_view>, 7> otherTypes = {{
    {word("identities.Identity"), "an identity"},
    {word("system.folder.Regular"), "a folder"},
    {word("wallet.computer.License"), "a software licence"},
    {word("wallet.financial.CreditCard"), "a credit card"},
    {word("wallet.government.DriversLicense"), "a driving licence"},
    {word("wallet.membership.RewardProgram"), "a reward programme"},
    {word("passwords.Password"), "a password without a website"},
}};

bool isOfType(const JSONValue& record, JSONWord type) {
    const auto typeName = record[word("typeName")];
    return typeName && typeName->is(type);
}

bool hasText(const std::optional<JSONValue>& object, JSONWord member) {
    return object && object->find(member, JSONKind::text);
}

std::optional<JSONValue> secureContentsOf(const JSONValue& record) {
    return record.find(word("secureContents"), JSONKind::object);
}

/// The list of objects that is a member; absent if it is anything else.
std::optional<JSONValue> listOf(const std::optional<JSONValue>& object, JSONWord member) {
    return object ? object->find(member, JSONKind::objects) : std::nullopt;
}

/// Whether the first field of that designation has a text for its value.
bool hasValue(const std::optional<JSONValue>& fields, JSONWord designation) {
    if (!fields) {
        return false;
    }
    const auto field = std::ranges::find_if(*fields, [&](const JSONValue& candidate) {
        const auto found = candidate[word("designation")];
        return found && found->is(designation);
    });
    return field != fields->end() && hasText(*field, word("value"));
}

std::string_view reasonOfLogin(const JSONValue& record) {
    const auto secureContents = secureContentsOf(record);
    const auto fields = listOf(secureContents, word("fields"));
    if (!fields && secureContents && (*secureContents)[word("fields")]) {
        return "a login whose fields are not a list of objects";
    }
    const bool hasUsername = hasValue(fields, word("username"));
    const bool hasPassword = hasValue(fields, word("password"));
    if (!hasUsername && !hasPassword) {
        return "a login without user name and password";
    }
    if (!hasUsername) {
        return "a login without a user name";
    }
    return hasPassword ? "" : "a login without a password";
}

std::string_view reasonOfNote(const JSONValue& record) {
    const bool hasTitle = hasText(record, word("title"));
    const bool hasContent = hasText(secureContentsOf(record), word("notesPlain"));
    if (!hasTitle && !hasContent) {
        return "a secure note without title and text";
    }
    if (!hasTitle) {
        return "a secure note without a title";
    }
    return hasContent ? "" : "a secure note without a text";
}

/// Why a record is left out; empty if it arrives.
std::string_view reasonLeftOut(const JSONValue& record) {
    if (isOfType(record, word("webforms.WebForm"))) {
        return reasonOfLogin(record);
    }
    if (isOfType(record, word("securenotes.SecureNote"))) {
        return reasonOfNote(record);
    }
    for (const auto& [type, name] : otherTypes) {
        if (isOfType(record, type)) {
            return name;
        }
    }
    return record.find(word("typeName"), JSONKind::text) ? "a record of an unknown type"
                                                         : "a record without a type";
}

// What a record may have that never arrives.

bool hasNotes(const JSONValue& record) {
    const auto secureContents = secureContentsOf(record);
    return isOfType(record, word("webforms.WebForm")) &&
           hasText(secureContents, word("notesPlain")) &&
           !(*secureContents)[word("notesPlain")]->is(word(""));
}

bool hasFurtherURLs(const JSONValue& record) {
    const auto urls = listOf(secureContentsOf(record), word("URLs"));
    return urls && urls->count() > 1;
}

bool hasFurtherFields(const JSONValue& record) {
    const auto fields = listOf(secureContentsOf(record), word("fields"));
    return fields && fields->count() > (isOfType(record, word("webforms.WebForm")) ? 2 : 0);
}

/// Whether one of the fields of one of the sections is such a field.
bool hasFieldInSection(const JSONValue& record, bool (*isSuch)(const JSONValue&)) {
    const auto sections = listOf(secureContentsOf(record), word("sections"));
    return sections && std::ranges::any_of(*sections, [&](const JSONValue& section) {
               const auto fields = listOf(section, word("fields"));
               return fields && std::ranges::any_of(*fields, isSuch);
           });
}

bool isOneTimePassword(const JSONValue& field) {
    const auto name = field[word("n")];
    const auto value = field[word("v")];
    return (name && name->is(word("TOTP_*"))) || (value && value->is(word("otpauth://*")));
}

bool hasOneTimePassword(const JSONValue& record) {
    return hasFieldInSection(record, isOneTimePassword);
}

bool hasSections(const JSONValue& record) {
    return hasFieldInSection(record, [](const JSONValue& field) {
        return field[word("v")].has_value() && !isOneTimePassword(field);
    });
}

bool hasEarlierPasswords(const JSONValue& record) {
    const auto history = listOf(secureContentsOf(record), word("passwordHistory"));
    return history && history->count() > 0;
}

bool hasTags(const JSONValue& record) {
    const auto open = record.find(word("openContents"), JSONKind::object);
    const auto tags = open ? open->find(word("tags"), JSONKind::array) : std::nullopt;
    return tags && tags->count() > 0;
}

bool isInFolder(const JSONValue& record) {
    return hasText(record, word("folderUuid"));
}

struct Part {
    std::string_view text;
    bool (*isIn)(const JSONValue& record);
};

constexpr std::array<Part, 8> parts = {{
    {.text = "the notes of ", .isIn = hasNotes},
    {.text = "all web addresses but the first of ", .isIn = hasFurtherURLs},
    {.text = "further fields of ", .isIn = hasFurtherFields},
    {.text = "one-time passwords of ", .isIn = hasOneTimePassword},
    {.text = "sections of ", .isIn = hasSections},
    {.text = "earlier passwords of ", .isIn = hasEarlierPasswords},
    {.text = "tags of ", .isIn = hasTags},
    {.text = "the folder of ", .isIn = isInFolder},
}};

} // namespace

const JSONWords OnePasswordRecords::words = list;

std::optional<JSONValue> OnePasswordRecords::listIn(const JSONValue& document) noexcept {
    return document.find(word("records"), JSONKind::objects);
}

void OnePasswordRecords::add(const JSONValue& record, std::size_t line) {
    if (const std::string_view reason = reasonLeftOut(record); !reason.empty()) {
        Inspection::add(_inspection.leftOut, reason, line);
        return;
    }
    if (record.find(word("trashed"), JSONKind::yes)) {
        Inspection::add(_inspection.wrong, "in the trash of 1Password, but imported all the same",
                        line);
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        _counts[i] += parts[i].isIn(record) ? std::size_t{1} : std::size_t{0};
    }
}

void OnePasswordRecords::finish() {
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (_counts[i] > 0) {
            _inspection.notImported.push_back(
                {.text = std::string(parts[i].text) + counted(_counts[i], "record"), .places = {}});
        }
    }
}

} // namespace Rellinor::Host
