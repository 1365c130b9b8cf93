#include "Tests/Reference/FirefoxReference.hpp"

#include <string>

#include "Tests/Reference/JSONReference.hpp"

namespace Rellinor::Tests {

namespace {

std::optional<std::string> textOf(const JSONReferenceValue& login, std::string_view name) {
    const JSONReferenceValue* const value = login.member(name);
    return value == nullptr ? std::nullopt : value->string();
}

} // namespace

Outcome referenceFirefoxImport(std::string_view bytes) {
    const auto top = referenceJSON(bytes.starts_with("\uFEFF") ? bytes.substr(3) : bytes);
    const JSONReferenceValue* const member = top ? top->member("logins") : nullptr;
    const auto* const logins = member == nullptr ? nullptr : member->objects();
    if (logins == nullptr) {
        return {};
    }
    Outcome outcome;
    for (const JSONReferenceValue& login : *logins) {
        const auto host = textOf(login, "hostname");
        const auto username = textOf(login, "encryptedUsername");
        const auto password = textOf(login, "encryptedPassword");
        if (host && username && password) {
            outcome.passwords.push_back(
                {.username = *username, .password = *password, .url = *host});
        }
    }
    return outcome;
}

} // namespace Rellinor::Tests
