#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Platform/Fault.hpp"

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

/// The name of a kind as it stands in the file.
[[nodiscard]] constexpr std::string_view rawValue(OnePasswordRecordType type) noexcept {
    switch (type) {
        using enum OnePasswordRecordType;
    case identity:
        return "identities.Identity";
    case regular:
        return "system.folder.Regular";
    case license:
        return "wallet.computer.License";
    case creditCard:
        return "wallet.financial.CreditCard";
    case driversLicense:
        return "wallet.government.DriversLicense";
    case rewardProgram:
        return "wallet.membership.RewardProgram";
    case password:
        return "passwords.Password";
    case webForm:
        return "webforms.WebForm";
    case secureNote:
        return "securenotes.SecureNote";
    }
    fault();
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

/// All of them, in their order.
inline constexpr auto allOnePasswordRecordKeys = std::array{
    OnePasswordRecordKey::title,       OnePasswordRecordKey::url,
    OnePasswordRecordKey::password,    OnePasswordRecordKey::username,
    OnePasswordRecordKey::note,        OnePasswordRecordKey::type,
    OnePasswordRecordKey::fields,      OnePasswordRecordKey::secureContents,
    OnePasswordRecordKey::designation, OnePasswordRecordKey::urls,
    OnePasswordRecordKey::value,
};

/// The name as it stands in the file.
[[nodiscard]] constexpr std::string_view rawValue(OnePasswordRecordKey key) noexcept {
    switch (key) {
        using enum OnePasswordRecordKey;
    case title:
        return "title";
    case url:
        return "url";
    case password:
        return "password";
    case username:
        return "username";
    case note:
        return "notesPlain";
    case type:
        return "typeName";
    case fields:
        return "fields";
    case secureContents:
        return "secureContents";
    case designation:
        return "designation";
    case urls:
        return "URLs";
    case value:
        return "value";
    }
    fault();
}

} // namespace Rellinor
