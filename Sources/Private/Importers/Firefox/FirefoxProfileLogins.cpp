#include "Private/Importers/Firefox/FirefoxProfileLogins.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace Rellinor {

namespace {

constexpr std::size_t numberOfKeys = allFirefoxProfileKeys.size();
constexpr std::size_t keyOfLogins = numberOfKeys;
constexpr std::size_t keyOfVulnerable = numberOfKeys + 1;
constexpr std::size_t keyOfAlerts = numberOfKeys + 2;

constexpr auto keptMembers = [] {
    std::array<std::string_view, numberOfKeys + 3> names{};
    std::ranges::transform(allFirefoxProfileKeys, names.begin(),
                           [](FirefoxProfileKey key) { return rawValue(key); });
    names[keyOfLogins] = "logins";
    names[keyOfVulnerable] = "potentiallyVulnerablePasswords";
    names[keyOfAlerts] = "dismissedBreachAlertsByLoginGUID";
    return names;
}();

} // namespace

const JSONKeys FirefoxProfileLogins::keys = keptMembers;

std::optional<FirefoxProfileLogins> FirefoxProfileLogins::decoded(JSONDocument document) {
    const auto top = document.root().object();
    const auto list = top ? top->valueAt(keyOfLogins) : std::nullopt;
    const auto elements = list ? list->elements() : std::nullopt;
    if (!elements) {
        return std::nullopt;
    }
    FirefoxProfileLogins logins(std::move(document)); // its values stay where they are
    for (const JSONValue& element : *elements) {
        logins._records.emplace_back(element);
    }
    const auto vulnerable = top->valueAt(keyOfVulnerable);
    const auto entries = vulnerable ? vulnerable->elements() : std::nullopt;
    logins._hasVulnerablePasswords = entries && entries->begin() != entries->end();
    const auto alerts = top->valueAt(keyOfAlerts);
    logins._hasDismissedAlerts = alerts && alerts->object();
    return logins;
}

FirefoxProfileLogins::FirefoxProfileLogins(SQLiteRows rows) {
    const SQLiteRows& kept = _rows.emplace(std::move(rows));
    _records.reserve(kept.size());
    for (const SQLiteRow& row : kept) {
        _records.emplace_back(row);
    }
}

} // namespace Rellinor
