#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "Private/Importers/VaultItem.hpp"
#include "Private/Memory/ImportMemory.hpp"
#include "Private/Proxies/JSONDocument.hpp"
#include "Private/Reports/Reporter.hpp"

namespace Rellinor {

/// What becomes of a member by its name.
struct MemberRule {
    enum class Use : std::uint8_t {
        title,
        note,
        field,
        address,
        value,
        fact,
        tags,
        truth, ///< a fact with the value "true" if the member is true or a number other than 0
        unread,
        nothing, ///< something else has looked at it
    };

    std::string_view name; ///< a literal
    Use use = Use::nothing;
    ItemField field = ItemField::none; ///< of use `field`
    ExtraKind kind =
        ExtraKind::customText;  ///< of a value or fact; of a field that is taken already
    std::string_view part = {}; ///< of use `unread`; a literal
};

// The rules, in the words of a table.

consteval MemberRule titleIn(std::string_view name) noexcept {
    return {.name = name, .use = MemberRule::Use::title};
}

consteval MemberRule noteIn(std::string_view name) noexcept {
    return {.name = name, .use = MemberRule::Use::note};
}

consteval MemberRule fieldIn(std::string_view name, ItemField field,
                             ExtraKind kind = ExtraKind::customText) noexcept {
    return {.name = name, .use = MemberRule::Use::field, .field = field, .kind = kind};
}

consteval MemberRule addressIn(std::string_view name) noexcept {
    return {.name = name, .use = MemberRule::Use::address};
}

consteval MemberRule valueIn(std::string_view name, ExtraKind kind) noexcept {
    return {.name = name, .use = MemberRule::Use::value, .kind = kind};
}

consteval MemberRule factIn(std::string_view name, ExtraKind kind) noexcept {
    return {.name = name, .use = MemberRule::Use::fact, .kind = kind};
}

consteval MemberRule tagsIn(std::string_view name) noexcept {
    return {.name = name, .use = MemberRule::Use::tags};
}

consteval MemberRule truthIn(std::string_view name, ExtraKind kind) noexcept {
    return {.name = name, .use = MemberRule::Use::truth, .kind = kind};
}

consteval MemberRule unreadIn(std::string_view name, std::string_view part) noexcept {
    return {.name = name, .use = MemberRule::Use::unread, .part = part};
}

consteval MemberRule ignored(std::string_view name) noexcept {
    return {.name = name};
}

using MemberRules = std::span<const MemberRule>;

// Parts that never arrive, of many products.
inline constexpr std::string_view identifiersPart = "identifiers";
inline constexpr std::string_view settingsPart = "settings of the product";
inline constexpr std::string_view attachmentsPart = "attachments";
inline constexpr std::string_view passwordHistoryPart = "password history";
inline constexpr std::string_view passkeysPart = "passkeys";
inline constexpr std::string_view looksPart = "icons and colours";
inline constexpr std::string_view sectionTitlesPart = "titles of sections";
inline constexpr std::string_view otherMembersPart = "other members";

/// Builds one item of the values that a product finds. A value of another type than it should have
/// is left out, and is told to the reporter under a name, which is a literal; null is nothing.
class VaultItemBuilder {
public:
    VaultItemBuilder(VaultItem& item, ImportMemory& memory, Reporter& reporter) noexcept
        : _item(item), _memory(memory), _reporter(reporter) {}

    [[nodiscard]] VaultItem& item() noexcept { return _item; }

    [[nodiscard]] ImportMemory& memory() noexcept { return _memory; }

    void leaveOut(LeftOutReason reason) noexcept {
        _item.shape = ItemShape::none;
        _item.reason = reason;
    }

    // Values, each empty if there is none.

    [[nodiscard]] std::string_view text(const JSONValue& value, std::string_view name);

    /// A text, a number in digits, or a truth in letters.
    [[nodiscard]] std::string_view scalar(const JSONValue& value, std::string_view name);

    /// Whether a value is true, or a number other than 0.
    [[nodiscard]] bool truth(const JSONValue& value, std::string_view name);

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

    /// Tells of a value that nobody can read.
    void stillEncrypted(std::string_view name) noexcept {
        _reporter.found(FindingKind::stillEncrypted, name);
    }

    // What is built.

    /// Takes a text over; the first of several counts.
    void assign(std::string_view& target, const JSONValue& value, std::string_view name);

    /// A field, or a value if the field is taken or no field of the item's shape.
    void addField(ItemField field, ExtraKind kind, std::string_view label, std::string_view text);

    void addValue(ExtraKind kind, std::string_view label, std::string_view text);

    /// A value, or those that an object or list holds, such as the parts of an address.
    void addAny(ExtraKind kind, std::string_view label, const JSONValue& value,
                std::string_view name, ItemField field = ItemField::none);

    /// A field that a person has named. That there is nothing but the name is told.
    void addCustom(ExtraKind kind, std::string_view label, const JSONValue& value,
                   std::string_view name);

    void addFact(ExtraKind kind, std::string_view label, std::string_view text);

    /// The address of a login, or a further one.
    void addAddress(std::string_view label, std::string_view text);

    /// Passes over a value, and tells so if something is in it.
    void passOver(const JSONValue& value, std::string_view part);

    void tellUnread(std::string_view part);

    /// Does what the rules say of a member. False if they do not know its name.
    [[nodiscard]] bool take(MemberRules rules, std::string_view name, const JSONValue& value);

    /// Does what the rules say of each member of an object, and passes over the others.
    void takeAll(MemberRules rules, const JSONObject& object);

    /// When nothing follows: an e-mail address or a further name stands in for a missing user name.
    void finish();

private:
    VaultItem& _item;
    ImportMemory& _memory;
    Reporter& _reporter;
};

/// A path one level deeper, with a slash between. Without what is around it if that is very long: a
/// path takes little more than its own name in the file.
///
/// @throws std::bad_alloc
[[nodiscard]] std::string_view pathOf(std::string_view parent, std::string_view name,
                                      ImportMemory& memory);

/// The label of a part of a value, such as the street of an address. Without the value's own label
/// if that is long, for the same reason.
///
/// @throws std::bad_alloc
[[nodiscard]] std::string_view labelOfPart(std::string_view label, std::string_view part,
                                           ImportMemory& memory);

/// The member of an object by its name, the first of several; null if there is none.
[[nodiscard]] JSONValue memberOf(const JSONObject& object, std::string_view name) noexcept;

} // namespace Rellinor
