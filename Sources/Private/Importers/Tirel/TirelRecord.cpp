#include "Private/Importers/Tirel/TirelRecord.hpp"

#include <algorithm>
#include <array>
#include <span>

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

std::optional<JSONValue> valueIn(const JSONObject& object, std::span<const Origin> origins,
                                 TirelRecordKey key) noexcept {
    const auto origin = std::ranges::find(origins, key, &Origin::key);
    const auto value = origin != origins.end() ? object[origin->member] : std::nullopt;
    return value && !value->isNull() ? value : std::nullopt;
}

} // namespace

std::optional<JSONValue> TirelRecord::operator[](TirelRecordKey key) const noexcept {
    switch (_type) {
        using enum TirelRecordType;
    case webPassword:
        return valueIn(_entry, originsOfLogin, key);
    case secureNote:
        return valueIn(_entry, originsOfNote, key);
    case creditCard:
        if (const auto value = valueIn(_entry, originsOfCard, key)) {
            return value;
        }
        const auto date = _entry[Member::expirationDate].and_then(&JSONValue::object);
        return date ? valueIn(*date, originsOfExpirationDate, key) : std::nullopt;
    }
    fault();
}

} // namespace Rellinor
