#include "Private/Importers/VaultItemBuilder.hpp"

#include <array>
#include <charconv>
#include <limits>

#include "Private/Importers/NestedValues.hpp"
#include "Private/Memory/Join.hpp"

namespace Rellinor {

namespace {

std::string_view digits(std::int64_t number, ImportMemory& memory) {
    std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> buffer{};
    const auto written = std::to_chars(buffer.begin(), buffer.end(), number);
    return memory.copy({buffer.data(), written.ptr});
}

bool isFieldOf(ItemShape shape, ItemField field) noexcept {
    if (field <= ItemField::address) {
        return shape == ItemShape::login;
    }
    return field != ItemField::none && shape == ItemShape::card;
}

} // namespace

std::string_view VaultItemBuilder::text(const JSONValue& value, std::string_view name) {
    if (!value.text() && !value.isNull()) {
        otherType(name);
    }
    return value.text().value_or("");
}

std::string_view VaultItemBuilder::scalar(const JSONValue& value, std::string_view name) {
    if (const auto integer = value.integer()) {
        return digits(*integer, _memory);
    }
    if (const auto boolean = value.boolean()) {
        return *boolean ? "true" : "false";
    }
    return text(value, name);
}

bool VaultItemBuilder::truth(const JSONValue& value, std::string_view name) {
    const auto boolean = value.boolean();
    const auto integer = value.integer();
    if (!boolean && !integer && !value.isNull()) {
        otherType(name);
    }
    return boolean == true || integer.value_or(0) != 0;
}

void VaultItemBuilder::assign(std::string_view& target, const JSONValue& value,
                              std::string_view name) {
    const std::string_view taken = text(value, name);
    if (!target.empty() && !taken.empty()) {
        _reporter.found(FindingKind::repeatedMember, name);
        return;
    }
    target = target.empty() ? taken : target;
}

void VaultItemBuilder::addField(ItemField field, ExtraKind kind, std::string_view label,
                                std::string_view text) {
    if (isFieldOf(_item.shape, field) && _item[field].empty()) {
        _item[field] = text;
    } else if (field == ItemField::username && kind == ExtraKind::customText) {
        addValue(ExtraKind::furtherUserName, label, text);
    } else {
        addValue(kind, label, text);
    }
}

void VaultItemBuilder::addValue(ExtraKind kind, std::string_view label, std::string_view text) {
    if (!text.empty()) {
        _item.values.push_back({.kind = kind, .label = label, .value = text});
    }
}

void VaultItemBuilder::addAny(ExtraKind kind, std::string_view label, const JSONValue& value,
                              std::string_view name, ItemField field) {
    struct Part {
        std::string_view label;
        JSONValue value;
        ItemField field;
    };

    const auto visit = [&](const Part& next, auto& held) {
        if (const auto parts = next.value.object()) {
            parts->forEachNamed({}, [&](std::string_view part, const JSONValue& inner) {
                held.push_back({labelOfPart(next.label, part, _memory), inner, ItemField::none});
            });
        } else if (const auto elements = next.value.elements()) {
            for (const JSONValue element : *elements) {
                held.push_back({next.label, element, next.field});
            }
        } else {
            addField(next.field, kind, next.label, scalar(next.value, name));
        }
    };
    forEachNested(Part{label, value, field}, visit);
}

void VaultItemBuilder::addCustom(ExtraKind kind, std::string_view label, const JSONValue& value,
                                 std::string_view name) {
    const std::size_t before = _item.values.size();
    addAny(kind, label, value, name);
    if (_item.values.size() == before && !label.empty()) {
        tellUnread("names of empty fields");
    }
}

void VaultItemBuilder::addFact(ExtraKind kind, std::string_view label, std::string_view text) {
    if (!text.empty()) {
        _item.facts.push_back({.kind = kind, .label = label, .value = text});
    }
}

void VaultItemBuilder::addAddress(std::string_view label, std::string_view text) {
    if (text != _item[ItemField::address]) {
        addField(ItemField::address, ExtraKind::furtherURL, label, text);
    }
}

void VaultItemBuilder::passOver(const JSONValue& value, std::string_view part) {
    const auto elements = value.elements();
    const bool isNothing =
        value.isNull() || value.text() == "" || (elements && elements->begin() == elements->end());
    if (!isNothing) {
        tellUnread(part);
    }
}

void VaultItemBuilder::tellUnread(std::string_view part) {
    if (std::ranges::find(_item.unread, part) == _item.unread.end()) {
        _item.unread.push_back(part);
    }
}

bool VaultItemBuilder::take(MemberRules rules, std::string_view name, const JSONValue& value) {
    using Use = MemberRule::Use;

    const auto rule = std::ranges::find(rules, name, &MemberRule::name);
    if (rule == rules.end()) {
        return false;
    }
    switch (rule->use) {
    case Use::title:
        assign(_item.title, value, rule->name);
        break;
    case Use::note:
        assign(_item.note, value, rule->name);
        break;
    case Use::field:
        addField(rule->field, rule->kind, rule->name, scalar(value, rule->name));
        break;
    case Use::address:
        addAddress(rule->name, text(value, rule->name));
        break;
    case Use::value:
        addValue(rule->kind, rule->name, scalar(value, rule->name));
        break;
    case Use::fact:
        addFact(rule->kind, rule->name, scalar(value, rule->name));
        break;
    case Use::tags:
        withElements(value, rule->name, [&](const JSONValue& tag) {
            addFact(ExtraKind::tag, rule->name, text(tag, rule->name));
        });
        break;
    case Use::truth:
        addFact(rule->kind, rule->name, truth(value, rule->name) ? "true" : "");
        break;
    case Use::unread:
        passOver(value, rule->part);
        break;
    case Use::nothing:
        break;
    }
    return true;
}

void VaultItemBuilder::takeAll(MemberRules rules, const JSONObject& object) {
    object.forEachNamed({}, [&](std::string_view name, const JSONValue& value) {
        if (!take(rules, name, value)) {
            passOver(value, otherMembersPart);
        }
    });
}

void VaultItemBuilder::finish() {
    const auto isName = [](const Extra& value) {
        return value.kind == ExtraKind::email || value.kind == ExtraKind::furtherUserName;
    };
    if (_item.shape != ItemShape::login || !_item[ItemField::username].empty()) {
        return;
    }
    const auto found = std::ranges::find_if(_item.values, isName);
    if (found != _item.values.end()) {
        _item[ItemField::username] = found->value;
        _item.values.erase(found);
    }
}

std::string_view pathOf(std::string_view parent, std::string_view name, ImportMemory& memory) {
    constexpr std::size_t longest = 1024;

    const bool isJoined = !parent.empty() && parent.size() <= longest;
    return isJoined ? joined({parent, "/", name}, memory) : name;
}

std::string_view labelOfPart(std::string_view label, std::string_view part, ImportMemory& memory) {
    constexpr std::size_t longest = 64;

    const bool isJoined = !label.empty() && label.size() <= longest;
    return isJoined ? joined({label, " ", part}, memory) : part;
}

JSONValue memberOf(const JSONObject& object, std::string_view name) noexcept {
    JSONValue found;
    object.forEachNamed({}, [&](std::string_view other, const JSONValue& value) {
        found = found.isNowhere() && other == name ? value : found;
    });
    return found;
}

} // namespace Rellinor
