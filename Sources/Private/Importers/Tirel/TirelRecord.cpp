#include "Private/Importers/Tirel/TirelRecord.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "Platform/Fault.hpp"

namespace Rellinor {

namespace {

using Key = TirelRecordKey;
using Member = TirelExportMember;

struct Origin {
    TirelRecordKey key;
    TirelExportMember member;
};

constexpr auto originsOfLogin = std::array{
    Origin{Key::username, Member::loginName},
    Origin{Key::password, Member::pwd},
    Origin{Key::url, Member::url},
    Origin{Key::note, Member::note},
    Origin{Key::color, Member::color},
    Origin{Key::custName, Member::custName},
    Origin{Key::pwdChange, Member::pwdChange},
};

constexpr auto originsOfNote = std::array{
    Origin{Key::color, Member::color},
    Origin{Key::label, Member::label},
    Origin{Key::text, Member::text},
};

constexpr auto originsOfCard = std::array{
    Origin{Key::cardNumber, Member::cardNumber},
    Origin{Key::custName, Member::custName},
    Origin{Key::holderName, Member::holderName},
    Origin{Key::cvv, Member::cvv},
    Origin{Key::pin, Member::pin},
    Origin{Key::note, Member::note},
};

constexpr auto originsOfExpirationDate = std::array{
    Origin{Key::expirationDay, Member::day},
    Origin{Key::expirationMonth, Member::month},
    Origin{Key::expirationYear, Member::year},
};

/// For each member of an object the key whose value it is.
using Keys = std::array<std::optional<Key>, namesOfTirelExportMembers.size()>;

consteval Keys keysOf(std::span<const Origin> origins) noexcept {
    Keys keys;
    for (const Origin& origin : origins) {
        keys[indexOf(origin.member)] = origin.key;
    }
    return keys;
}

constexpr Keys keysOfLogin = keysOf(originsOfLogin);
constexpr Keys keysOfNote = keysOf(originsOfNote);
constexpr Keys keysOfCard = keysOf(originsOfCard);
constexpr Keys keysOfExpirationDate = keysOf(originsOfExpirationDate);

/// Takes over the members of an object, the first of those of one name.
void take(auto& values, const JSONObject& object, const Keys& keys) noexcept {
    object.forEach([&](std::size_t member, const JSONValue& value) {
        if (const auto key = keys[member]) {
            JSONValue& taken = values[indexOf(*key)];
            taken = taken.isNowhere() ? value : taken;
        }
    });
}

} // namespace

std::optional<TirelRecordKey> tirelRecordKeyOf(std::string_view rawValue) noexcept {
    const auto found = std::ranges::find(namesOfTirelRecordKeys, rawValue);
    if (found == namesOfTirelRecordKeys.end()) {
        return std::nullopt;
    }
    return static_cast<TirelRecordKey>(found - namesOfTirelRecordKeys.begin());
}

TirelRecord::TirelRecord(TirelRecordType type, const JSONObject& entry) noexcept {
    switch (type) {
        using enum TirelRecordType;
    case webPassword:
        take(_values, entry, keysOfLogin);
        return;
    case secureNote:
        take(_values, entry, keysOfNote);
        return;
    case creditCard:
        take(_values, entry, keysOfCard);
        if (const auto date = entry.object(Member::expirationDate)) {
            take(_values, *date, keysOfExpirationDate);
        }
        return;
    }
    fault();
}

} // namespace Rellinor
