#include "Tests/Reference/TirelReference.hpp"

#include <string>

#include "Tests/Reference/JSONReference.hpp"

namespace Rellinor::Tests {

namespace {

using Value = JSONReferenceValue;

/// The file is of another shape.
struct NoExport {};

const Value& memberOf(const Value& object, std::string_view name) {
    const Value* const value = object.member(name);
    if (value == nullptr) {
        throw NoExport();
    }
    return *value;
}

template <typename Type>
Type present(const std::optional<Type>& value) {
    if (!value) {
        throw NoExport();
    }
    return *value;
}

std::string textOf(const Value& object, std::string_view name) {
    return present(memberOf(object, name).string());
}

std::int64_t integerOf(const Value& object, std::string_view name) {
    return present(memberOf(object, name).integer());
}

bool lacks(const Value& object, std::string_view name) {
    const Value* const value = object.member(name);
    return value == nullptr || value->kind == Value::Kind::null;
}

std::optional<std::string> optionalTextOf(const Value& object, std::string_view name) {
    return lacks(object, name) ? std::nullopt : std::optional(textOf(object, name));
}

std::optional<std::int64_t> optionalIntegerOf(const Value& object, std::string_view name) {
    return lacks(object, name) ? std::nullopt : std::optional(integerOf(object, name));
}

const std::vector<Value>& listOf(const Value& top, std::string_view name) {
    const std::vector<Value>* const entries = memberOf(top, name).objects();
    if (entries == nullptr) {
        throw NoExport();
    }
    return *entries;
}

Password passwordOf(const Value& login) {
    return {
        .username = textOf(login, "loginName"),
        .password = textOf(login, "pwd"),
        .url = textOf(login, "url"),
        .service = optionalTextOf(login, "custName"),
        .color = integerOf(login, "color"),
        .note = textOf(login, "note"),
        .pwdChange = optionalIntegerOf(login, "pwdChange"),
    };
}

Note noteOf(const Value& note) {
    return {
        .color = integerOf(note, "color"),
        .title = textOf(note, "label"),
        .content = textOf(note, "text"),
    };
}

Card cardOf(const Value& card) {
    const Value& date = memberOf(card, "expirationDate");
    if (date.kind != Value::Kind::object) {
        throw NoExport();
    }
    return {
        .cardNumber = textOf(card, "cardNumber"),
        .custName = textOf(card, "custName"),
        .holderName = textOf(card, "holderName"),
        .cvv = textOf(card, "cvv"),
        .pin = textOf(card, "pin"),
        .note = textOf(card, "note"),
        .expirationDay = integerOf(date, "day"),
        .expirationMonth = integerOf(date, "month"),
        .expirationYear = integerOf(date, "year"),
    };
}

Outcome outcomeOf(const Value& top) {
    Outcome outcome;
    for (const Value& login : listOf(top, "logins")) {
        outcome.passwords.push_back(passwordOf(login));
    }
    for (const Value& note : listOf(top, "notes")) {
        outcome.notes.push_back(noteOf(note));
    }
    for (const Value& card : listOf(top, "cards")) {
        outcome.cards.push_back(cardOf(card));
    }
    return outcome;
}

} // namespace

Outcome referenceTirelImport(std::string_view bytes) {
    const auto top = referenceJSON(bytes.starts_with("\uFEFF") ? bytes.substr(3) : bytes);
    if (!top) {
        return failedWithText();
    }
    try {
        return outcomeOf(*top);
    } catch (const NoExport&) {
        return failedWithText();
    }
}

} // namespace Rellinor::Tests
