#include "Private/Importers/OnePassword/OnePasswordDecoder.hpp"

#include <algorithm>
#include <cstddef>

#include "Private/Importers/NestedValues.hpp"

namespace Rellinor {

namespace {

using Field = ItemField;

} // namespace

ExtraKind onePasswordKindOf(std::string_view type) noexcept {
    if (type == "P" || type == "concealed") {
        return ExtraKind::customSecret;
    }
    if (type == "E" || type == "email") {
        return ExtraKind::email;
    }
    if (type == "TEL" || type == "phone") {
        return ExtraKind::phone;
    }
    if (type == "totp") {
        return ExtraKind::oneTimePassword;
    }
    return type == "U" || type == "URL" || type == "url" ? ExtraKind::furtherURL
                                                         : ExtraKind::customText;
}

OnePasswordDecoder::OnePasswordDecoder(const OnePasswordCategory& category,
                                       VaultItemBuilder& builder) noexcept
    : _category(category), _builder(builder) {
    builder.item().shape = itemShapeOf(category.shape);
    builder.item().kind = category.name;
}

void OnePasswordDecoder::addFormField(std::string_view designation, std::string_view name,
                                      std::string_view type, const JSONValue& value) {
    const bool isLogin = _builder.item().shape == ItemShape::login;
    OnePasswordFieldFacts facts{
        .name = {}, .label = name.empty() ? designation : name, .kind = onePasswordKindOf(type)};
    if (isLogin && designation == "username") {
        facts.field = Field::username;
    } else if (isLogin && designation == "password") {
        facts.field = Field::password;
    }
    addNamed(facts, value);
}

void OnePasswordDecoder::addNamed(const OnePasswordFieldFacts& facts, const JSONValue& value) {
    struct Part {
        OnePasswordFieldFacts facts;
        JSONValue value;
    };

    const auto visit = [&](const Part& next, auto& held) {
        const auto parts = next.value.object();
        if (!parts) {
            addText(next.facts, _builder.scalar(next.value, "value"));
            return;
        }
        parts->forEachNamed({}, [&](std::string_view name, const JSONValue& part) {
            const auto label = labelOfPart(next.facts.label, name, _builder.memory());
            held.push_back({{.name = {}, .label = label, .kind = next.facts.kind}, part});
        });
    };
    forEachNested(Part{facts, value}, visit);
}

void OnePasswordDecoder::setLocation(const JSONValue& value, std::string_view name) {
    _builder.assign(_location, value, name);
    _nameOfLocation = name;
}

void OnePasswordDecoder::addAddress(std::string_view label, std::string_view address) {
    if (!address.empty()) {
        _addresses.push_back({.kind = ExtraKind::furtherURL, .label = label, .value = address});
    }
}

void OnePasswordDecoder::finish() {
    const bool isLogin = _builder.item().shape == ItemShape::login;
    std::string_view& address = _builder.item()[Field::address];
    const std::string_view byName = address;
    if (isLogin && (!_location.empty() || !_addresses.empty())) {
        address = !_location.empty() ? _location : _addresses.front().value;
    } else if (!_location.empty()) {
        _builder.addFact(ExtraKind::furtherURL, _nameOfLocation, _location);
    }
    if (byName != address) {
        _builder.addFact(ExtraKind::furtherURL, "url", byName);
    }
    for (const Extra& further : _addresses) {
        if (further.value != (isLogin ? address : _location)) {
            _builder.addFact(further.kind, further.label, further.value);
        } else if (!further.label.empty()) {
            _builder.tellUnread("label of the first address");
        }
    }
}

void OnePasswordDecoder::addText(const OnePasswordFieldFacts& facts, std::string_view text) {
    if (text.empty() || isRepeated(facts.name, text)) {
        return;
    }
    const Field byName = onePasswordFieldOf(_category.shape, facts.name);
    const Field field = facts.field != Field::none ? facts.field : byName;
    _builder.addField(field, facts.kind, facts.label, text);
}

/// Whether a field of that name has had that text: newer versions of the product write fields
/// twice. Only so many are compared, so that reading stays linear.
bool OnePasswordDecoder::isRepeated(std::string_view name, std::string_view text) {
    constexpr std::size_t mostFields = 128;

    if (name.empty() || _seen.size() == mostFields) {
        return false;
    }
    const std::pair field(name, text);
    const bool isRepeated = std::ranges::find(_seen, field) != _seen.end();
    _seen.push_back(field);
    return isRepeated;
}

} // namespace Rellinor
