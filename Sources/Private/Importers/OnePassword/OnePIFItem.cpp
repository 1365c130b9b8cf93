#include "Private/Importers/OnePassword/OnePIFItem.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <optional>
#include <span>

#include "Private/Memory/Join.hpp"

namespace Rellinor {

namespace {

using Field = OnePasswordField;

constexpr auto names = std::to_array<std::string_view>({
    "typeName",
    "uuid",
    "title",
    "trashed",
    "designation",
    "name",
    "type",
    "value",
    "label",
    "url",
    "k",
    "n",
    "t",
    "v",
});

/// In the order of their names.
enum class Key : std::uint8_t {
    typeName,
    uuid,
    title,
    trashed,
    designation,
    name,
    type,
    value,
    label,
    url,
    k,
    n,
    t,
    v,
};

constexpr std::string_view rawValue(Key key) noexcept {
    return names[indexOf(key)];
}

static_assert(rawValue(Key::v) == "v");

/// A member that never arrives, and the part that it belongs to.
struct UnreadMember {
    std::string_view name;
    std::string_view part;
};

constexpr std::string_view identifiers = "identifiers and hashes";
constexpr std::string_view pageForm = "form of the web page";
constexpr std::string_view settings = "settings of the product";
constexpr std::string_view otherMembers = "other members";

constexpr auto unreadMembers = std::array{
    UnreadMember{"uuid", identifiers},
    UnreadMember{"keyID", identifiers},
    UnreadMember{"locationKey", identifiers},
    UnreadMember{"contentsHash", identifiers},
    UnreadMember{"usernameHash", identifiers},
    UnreadMember{"securityLevel", settings},
    UnreadMember{"scope", settings},
    UnreadMember{"autosubmit", settings},
    UnreadMember{"passwordStrength", settings},
    UnreadMember{"txTimestamp", settings},
    UnreadMember{"generatorSettings", settings},
    UnreadMember{"htmlMethod", pageForm},
    UnreadMember{"htmlForm", pageForm},
    UnreadMember{"htmlAction", pageForm},
    UnreadMember{"htmlName", pageForm},
    UnreadMember{"htmlID", pageForm},
    UnreadMember{"passwordHistory", "password history"},
    UnreadMember{"attachments", "attachments"},
    UnreadMember{"attachmentUuids", "attachments"},
    UnreadMember{"files", "attachments"},
    UnreadMember{"customIcon", "icon"},
    UnreadMember{"icon", "icon"},
};

bool contains(const auto& range, const auto& value, auto projection) noexcept {
    return std::ranges::find(range, value, projection) != std::ranges::end(range);
}

bool contains(const auto& range, const auto& value) noexcept {
    return contains(range, value, std::identity());
}

/// What a field of a form or section becomes by its type.
ExtraKind kindOf(std::string_view type) noexcept {
    if (type == "P" || type == "concealed") {
        return ExtraKind::customSecret;
    }
    if (type == "E" || type == "email") {
        return ExtraKind::email;
    }
    if (type == "TEL" || type == "phone") {
        return ExtraKind::phone;
    }
    return type == "U" || type == "URL" || type == "url" ? ExtraKind::furtherURL
                                                         : ExtraKind::customText;
}

/// Decodes one entry.
class Decoder {
public:
    Decoder(const OnePIFFolders& folders, ImportMemory& memory, Reporter& reporter,
            OnePIFItem& item) noexcept
        : _folders(folders), _memory(memory), _reporter(reporter), _item(item) {}

    void decode(const JSONObject& entry) {
        entry.forEachNamed(onePIFKeys, [&](std::string_view name, const JSONValue& value) {
            if (name == "title") {
                assign(_item.title, value, "title");
            } else if (name == "secureContents") {
                withObject(value, "secureContents",
                           [&](const JSONObject& contents) { decodeContents(contents); });
            } else if (name == "openContents") {
                withObject(value, "openContents", [&](const JSONObject& contents) {
                    contents.forEachNamed(onePIFKeys,
                                          [&](std::string_view inner, const JSONValue& fact) {
                                              decodeFact(inner, fact);
                                          });
                });
            } else if (name != "typeName") { // which was looked at first
                decodeFact(name, value);
            }
        });
        gatherAddresses();
        gatherUserName();
    }

private:
    // Each empty for null. A value of another type is told under a name, which is a literal.

    std::string_view text(const JSONValue& value, std::string_view name) {
        if (!value.text() && !value.isNull()) {
            otherType(name);
        }
        return value.text().value_or("");
    }

    /// Takes a text over; the first of several counts.
    void assign(std::string_view& target, const JSONValue& value, std::string_view name) {
        const std::string_view taken = text(value, name);
        if (!target.empty() && !taken.empty()) {
            _reporter.found(FindingKind::repeatedMember, name);
            return;
        }
        target = target.empty() ? taken : target;
    }

    /// A text, or a number in digits.
    std::string_view textOrNumber(const JSONValue& value, std::string_view name) {
        const auto integer = value.integer();
        return integer ? digits(*integer) : text(value, name);
    }

    std::string_view digits(std::int64_t number) {
        std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> buffer{};
        const auto written = std::to_chars(buffer.begin(), buffer.end(), number);
        return _memory.copy({buffer.data(), written.ptr});
    }

    void withObject(const JSONValue& value, std::string_view name, auto&& visit) {
        if (const auto object = value.object()) {
            visit(*object);
        } else if (!value.isNull()) {
            otherType(name);
        }
    }

    void withElements(const JSONValue& value, std::string_view name, auto&& visit) {
        if (const auto elements = value.elements()) {
            std::ranges::for_each(*elements, visit);
        } else if (!value.isNull()) {
            otherType(name);
        }
    }

    void withObjects(const JSONValue& value, std::string_view name, auto&& visit) {
        withElements(value, name,
                     [&](const JSONValue& element) { withObject(element, name, visit); });
    }

    void otherType(std::string_view name) noexcept {
        _reporter.found(FindingKind::valueOfOtherType, name);
    }

    /// The text of a member that is known, empty if there is none.
    std::string_view member(const JSONObject& object, Key key) {
        const auto value = object[key];
        return value ? text(*value, rawValue(key)) : "";
    }

    void tellUnread(std::string_view part) {
        if (!contains(_item.unread, part)) {
            _item.unread.push_back(part);
        }
    }

    /// Passes over a member, and tells so if something is in it.
    void passOver(std::string_view name, const JSONValue& value) {
        const auto elements = value.elements();
        const bool isNothing = value.isNull() || value.text() == "" ||
                               (elements && elements->begin() == elements->end());
        if (!isNothing) {
            const auto* const found = std::ranges::find(unreadMembers, name, &UnreadMember::name);
            tellUnread(found != unreadMembers.end() ? found->part : otherMembers);
        }
    }

    static bool isUnread(std::string_view name) noexcept {
        return contains(unreadMembers, name, &UnreadMember::name);
    }

    void addFact(ExtraKind kind, std::string_view label, std::string_view value) {
        if (!value.empty()) {
            _item.facts.push_back({.kind = kind, .label = label, .value = value});
        }
    }

    /// A member outside the secure contents.
    void decodeFact(std::string_view name, const JSONValue& value) {
        if (name == "location") {
            assign(_location, value, "location");
        } else if (name == "URLs") {
            decodeAddresses(value);
        } else if (name == "folderUuid") {
            decodeFolder(text(value, "folderUuid"));
        } else if (name == "tags") {
            withElements(value, "tags", [&](const JSONValue& tag) {
                addFact(ExtraKind::tag, "tags", text(tag, "tags"));
            });
        } else if (name == "faveIndex") {
            const bool isFavourite =
                !textOrNumber(value, "faveIndex").empty() && value.integer() != std::int64_t{0};
            addFact(ExtraKind::favourite, "faveIndex", isFavourite ? "true" : "");
        } else if (name == "createdAt") {
            addFact(ExtraKind::createdAt, "createdAt", textOrNumber(value, "createdAt"));
        } else if (name == "updatedAt") {
            addFact(ExtraKind::modifiedAt, "updatedAt", textOrNumber(value, "updatedAt"));
        } else if (name == "trashed") { // and not true
            if (!value.boolean() && !value.isNull()) {
                otherType("trashed");
            }
        } else {
            passOver(name, value);
        }
    }

    void decodeFolder(std::string_view uuid) {
        const auto folder = _folders.find(uuid);
        if (folder != _folders.end()) {
            addFact(ExtraKind::folder, "folderUuid", folder->second);
        } else if (!uuid.empty()) {
            tellUnread("folder that is not in the file");
        }
    }

    void decodeAddresses(const JSONValue& value) {
        withObjects(value, "URLs", [&](const JSONObject& entry) {
            const std::string_view label = member(entry, Key::label);
            const std::string_view address = member(entry, Key::url);
            if (!address.empty()) {
                _addresses.push_back(
                    {.kind = ExtraKind::furtherURL, .label = label, .value = address});
            }
        });
    }

    void decodeContents(const JSONObject& contents) {
        contents.forEachNamed(onePIFKeys, [&](std::string_view name, const JSONValue& value) {
            if (name == "fields") {
                withObjects(value, "fields",
                            [&](const JSONObject& field) { decodeFormField(field); });
            } else if (name == "sections") {
                withObjects(value, "sections",
                            [&](const JSONObject& section) { decodeSection(section); });
            } else if (name == "URLs") {
                decodeAddresses(value);
            } else if (name == "notesPlain") {
                assign(_item.note, value, "notesPlain");
            } else if (isUnread(name)) {
                passOver(name, value);
            } else {
                const bool isHidden = isHiddenInOnePassword(name);
                decodeValue(value, "secureContents",
                            {.name = name,
                             .label = name,
                             .kind = isHidden ? ExtraKind::customSecret : ExtraKind::customText});
            }
        });
    }

    /// What is known of a field besides its value.
    struct Description {
        std::string_view name; ///< empty if it does not tell what the field is
        std::string_view label;
        ExtraKind kind = ExtraKind::customText;
        Field field = Field::none; ///< if that is told by something else
    };

    void decodeFormField(const JSONObject& field) {
        const std::string_view designation = member(field, Key::designation);
        const std::string_view name = member(field, Key::name);
        Description description{.name = {},
                                .label = name.empty() ? designation : name,
                                .kind = kindOf(member(field, Key::type))};
        const bool isLogin = _item.category.shape == OnePasswordShape::webForm ||
                             _item.category.shape == OnePasswordShape::login;
        if (isLogin && designation == "username") {
            description.field = Field::username;
        } else if (isLogin && designation == "password") {
            description.field = Field::password;
        }
        if (const auto value = field[Key::value]) {
            decodeValue(*value, "value", description);
        }
        tellOthers(field, {"designation", "name", "type", "value"});
    }

    void decodeSection(const JSONObject& section) {
        section.forEachNamed(onePIFKeys, [&](std::string_view name, const JSONValue& value) {
            if (name == "fields") {
                withObjects(value, "sections",
                            [&](const JSONObject& field) { decodeSectionField(field); });
            } else if (name == "title" && !text(value, "title").empty()) {
                tellUnread("titles of sections");
            }
        });
        tellOthers(section, {"fields", "title"});
    }

    void decodeSectionField(const JSONObject& field) {
        const std::string_view name = member(field, Key::n);
        const std::string_view label = member(field, Key::t);
        const std::string_view type = member(field, Key::k);
        const bool isOneTime = name.starts_with("TOTP_");
        if (const auto value = field[Key::v]) {
            decodeValue(*value, "v",
                        {.name = name,
                         .label = label.empty() ? name : label,
                         .kind = isOneTime ? ExtraKind::oneTimePassword : kindOf(type)});
        }
        tellOthers(field, {"k", "n", "t", "v"});
    }

    /// Tells of members of a field or section that are not read: identifiers and looks.
    void tellOthers(const JSONObject& object, std::initializer_list<std::string_view> known) {
        object.forEachNamed(onePIFKeys, [&](std::string_view name, const JSONValue& value) {
            if (!contains(known, name) && !value.isNull()) {
                tellUnread("identifiers and looks of fields");
            }
        });
    }

    /// A value, or the parts of one that is an object, such as an address.
    void decodeValue(const JSONValue& value, std::string_view unknownName,
                     const Description& description) {
        const auto parts = value.object();
        if (!parts) {
            addValue(description, textOrNumber(value, unknownName));
            return;
        }
        parts->forEachNamed(onePIFKeys, [&](std::string_view name, const JSONValue& part) {
            const std::string_view text = textOrNumber(part, unknownName);
            if (!text.empty()) {
                const std::string_view label = joined(
                    {description.label, description.label.empty() ? "" : " ", name}, _memory);
                addValue({.name = {}, .label = label, .kind = description.kind}, text);
            }
        });
    }

    void addValue(const Description& description, std::string_view text) {
        if (text.empty() || isRepeated(description.name, text)) {
            return;
        }
        const Field byName = onePasswordFieldOf(_item.category.shape, description.name);
        const Field field = description.field != Field::none ? description.field : byName;
        if (field != Field::none && _item[field].empty()) {
            _item.fields[std::to_underlying(field)] = text;
            return;
        }
        _item.values.push_back(
            {.kind = description.kind, .label = description.label, .value = text});
    }

    /// Whether a field of that name has had that text: newer versions of the product write fields
    /// twice. Only so many are compared, so that reading stays linear.
    bool isRepeated(std::string_view name, std::string_view text) {
        constexpr std::size_t mostFields = 128;

        if (name.empty() || _seen.size() == mostFields) {
            return false;
        }
        const bool isRepeated = contains(_seen, std::pair(name, text));
        _seen.emplace_back(name, text);
        return isRepeated;
    }

    /// The location of a login, or its first address, is the address of the login; the others are
    /// further ones.
    void gatherAddresses() {
        const bool isLogin = _item.category.shape == OnePasswordShape::webForm ||
                             _item.category.shape == OnePasswordShape::login;
        std::string_view& address = _item.fields[std::to_underlying(Field::address)];
        const std::string_view byName = address;
        if (isLogin && (!_location.empty() || !_addresses.empty())) {
            address = !_location.empty() ? _location : _addresses.front().value;
        } else if (!_location.empty()) {
            addFact(ExtraKind::furtherURL, "location", _location);
        }
        if (byName != address) {
            addFact(ExtraKind::furtherURL, "url", byName);
        }
        for (const Extra& further : _addresses) {
            if (further.value != (isLogin ? address : _location)) {
                _item.facts.push_back(further);
            } else if (!further.label.empty()) {
                tellUnread("label of the first address");
            }
        }
    }

    /// An e-mail address stands in for a user name.
    void gatherUserName() {
        const bool isLogin = _item.category.shape == OnePasswordShape::webForm ||
                             _item.category.shape == OnePasswordShape::login;
        const auto email = std::ranges::find(_item.values, ExtraKind::email, &Extra::kind);
        if (isLogin && _item[Field::username].empty() && email != _item.values.end()) {
            _item.fields[std::to_underlying(Field::username)] = email->value;
            _item.values.erase(email);
        }
    }

    const OnePIFFolders& _folders;
    ImportMemory& _memory;
    Reporter& _reporter;
    OnePIFItem& _item;
    std::string_view _location;
    std::vector<Extra> _addresses;
    std::vector<std::pair<std::string_view, std::string_view>> _seen;
};

OnePasswordCategory categoryOf(const JSONObject& entry) noexcept {
    return onePasswordCategoryOf(entry.text(Key::typeName).value_or(""));
}

} // namespace

const JSONKeys onePIFKeys = names;

bool OnePIFItem::isEmpty() const noexcept {
    const bool hasFields =
        std::ranges::any_of(fields, [](std::string_view text) { return !text.empty(); });
    const bool hasAddress = contains(facts, ExtraKind::furtherURL, &Extra::kind);
    return title.empty() && note.empty() && !hasFields && values.empty() && !hasAddress;
}

std::string_view OnePIFItem::linesAndNote(ImportMemory& memory) const {
    std::vector<std::string_view> parts;
    for (const Extra& value : values) {
        parts.insert(parts.end(), {parts.empty() ? "" : "\n", value.label,
                                   value.label.empty() ? "" : ": ", value.value});
    }
    if (!note.empty()) {
        parts.insert(parts.end(), {parts.empty() ? "" : "\n\n", note});
    }
    return joined(parts, memory);
}

void addFolder(const JSONObject& entry, OnePIFFolders& folders) {
    const auto uuid = entry.text(Key::uuid);
    const auto title = entry.text(Key::title);
    if (categoryOf(entry).shape == OnePasswordShape::folder && uuid && title) {
        folders.emplace(*uuid, *title);
    }
}

void decode(const JSONObject& entry, const OnePIFFolders& folders, ImportMemory& memory,
            Reporter& reporter, OnePIFItem& item) {
    const auto typeName = entry[Key::typeName];
    const auto trashed = entry[Key::trashed];
    item = {.category = categoryOf(entry),
            .isTrashed = trashed && trashed->boolean() == true,
            .title = {},
            .note = {},
            .fields = {},
            .values = {},
            .facts = {},
            .unread = {}};
    if (typeName && !typeName->text() && !typeName->isNull()) {
        reporter.found(FindingKind::valueOfOtherType, "typeName");
    }
    if (!item.isTrashed && item.category.shape != OnePasswordShape::folder) {
        Decoder(folders, memory, reporter, item).decode(entry);
    }
}

} // namespace Rellinor
