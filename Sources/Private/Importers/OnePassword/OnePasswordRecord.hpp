#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Private/Proxies/RecordKey.hpp"

namespace Rellinor {

/// The kinds of record, by the value of "typeName".
enum class OnePasswordRecordType : std::uint8_t {
    identity,
    regular,
    license,
    creditCard,
    driversLicense,
    rewardProgram,
    password,
    webForm,
    secureNote,
};

/// Their names, in their order.
inline constexpr auto namesOfOnePasswordRecordTypes = std::to_array<std::string_view>({
    "identities.Identity",
    "system.folder.Regular",
    "wallet.computer.License",
    "wallet.financial.CreditCard",
    "wallet.government.DriversLicense",
    "wallet.membership.RewardProgram",
    "passwords.Password",
    "webforms.WebForm",
    "securenotes.SecureNote",
});
static_assert(namesOfOnePasswordRecordTypes.size() ==
              indexOf(OnePasswordRecordType::secureNote) + 1);

/// The name of a kind as it stands in the file.
[[nodiscard]] constexpr std::string_view rawValue(OnePasswordRecordType type) noexcept {
    return namesOfOnePasswordRecordTypes[indexOf(type)];
}

/// The names that are looked for in a record: of members, and of fields by their "designation".
enum class OnePasswordRecordKey : std::uint8_t {
    title,
    url,
    password,
    username,
    note,
    type,
    fields,
    secureContents,
    designation,
    urls,
    value,
};

/// Their names, in their order.
inline constexpr auto namesOfOnePasswordRecordKeys = std::to_array<std::string_view>({
    "title",
    "url",
    "password",
    "username",
    "notesPlain",
    "typeName",
    "fields",
    "secureContents",
    "designation",
    "URLs",
    "value",
});
static_assert(namesOfOnePasswordRecordKeys.size() == indexOf(OnePasswordRecordKey::value) + 1);

/// The name as it stands in the file.
[[nodiscard]] constexpr std::string_view rawValue(OnePasswordRecordKey key) noexcept {
    return namesOfOnePasswordRecordKeys[indexOf(key)];
}

} // namespace Rellinor
