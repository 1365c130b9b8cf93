/// @file
/// Teaches Boost.JSON to write and to read a `TirelExportData`, for a host that has Boost.JSON
/// anyway:
///
///     std::string text = boost::json::serialize(boost::json::value_from(data));
///     auto data = boost::json::value_to<Rellinor::TirelExportData>(boost::json::parse(text));
///
/// What `TirelExportData::encode` writes is read as the same value, and what is written here is
/// decoded as the same. Reading throws, or fails with `boost::json::try_value_to`, where `decode`
/// gives nothing, but for what Boost.JSON itself sees in another way:
///
/// - An integer with a point or an exponent is a floating-point number there, with 53 bits:
///   9007199254740993.0 becomes 9007199254740992, 9223372036854775807.0 is refused, and
///   1.00000000000000000001 becomes 1, which `decode` refuses.
/// - Of members of one name the last counts, and not the first.
/// - A byte-order mark is refused, and so is what is nested deeper than the host allows: 32 levels
///   unless `boost::json::parse_options` say something else.
/// - A text that is not UTF-8 is written as it is, and not repaired.
///
/// This header alone needs Boost.JSON, version 1.81 or later.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <boost/json/conversion.hpp>
#include <boost/json/object.hpp>
#include <boost/json/value.hpp>
#include <boost/json/value_from.hpp>
#include <boost/json/value_to.hpp>

#include <Rellinor/Models/TirelExportData.hpp>

/// @cond
// Not for hosts to call: Boost.JSON finds what it needs.

namespace Rellinor {

namespace TirelExportDataJSON {

/// Adds a member.
void encode(boost::json::object& object, auto key, const auto& value) {
    object.emplace(stringValue(key), boost::json::value_from(value, object.storage()));
}

/// Adds a member if it is present.
void encodeIfPresent(boost::json::object& object, auto key, const auto& value) {
    if (value) {
        encode(object, key, *value);
    }
}

/// The value of a member.
template <typename Value>
[[nodiscard]] Value decode(const boost::json::object& object, auto key) {
    return boost::json::value_to<Value>(object.at(stringValue(key)));
}

/// The value of a member; absent if it is missing or null.
template <typename Value>
[[nodiscard]] std::optional<Value> decodeIfPresent(const boost::json::object& object, auto key) {
    const boost::json::value* const member = object.if_contains(stringValue(key));
    if (member == nullptr || member->is_null()) {
        return std::nullopt;
    }
    return boost::json::value_to<Value>(*member);
}

} // namespace TirelExportDataJSON

// Boost.JSON finds these by their first argument. The names and the order are its own.
// NOLINTBEGIN(readability-identifier-naming)

inline void tag_invoke(boost::json::value_from_tag /*tag*/, boost::json::value& json,
                       const TirelExportData::Password& password) {
    using namespace TirelExportDataJSON;
    using enum TirelExportData::Password::CodingKeys;
    boost::json::object& object = json.emplace_object();
    encode(object, color, password.color());
    encodeIfPresent(object, custName, password.custName());
    encode(object, loginName, password.loginName());
    encode(object, note, password.note());
    encode(object, pwd, password.pwd());
    encodeIfPresent(object, pwdChange, password.pwdChange());
    encode(object, url, password.url());
}

inline TirelExportData::Password
tag_invoke(boost::json::value_to_tag<TirelExportData::Password> /*tag*/,
           const boost::json::value& json) {
    using namespace TirelExportDataJSON;
    using enum TirelExportData::Password::CodingKeys;
    const boost::json::object& object = json.as_object();
    return {
        decode<std::int64_t>(object, color),    decodeIfPresent<std::string>(object, custName),
        decode<std::string>(object, loginName), decode<std::string>(object, note),
        decode<std::string>(object, pwd),       decodeIfPresent<std::int64_t>(object, pwdChange),
        decode<std::string>(object, url),
    };
}

inline void tag_invoke(boost::json::value_from_tag /*tag*/, boost::json::value& json,
                       const TirelExportData::Note& note) {
    using namespace TirelExportDataJSON;
    using enum TirelExportData::Note::CodingKeys;
    boost::json::object& object = json.emplace_object();
    encode(object, color, note.color());
    encode(object, label, note.label());
    encode(object, text, note.text());
}

inline TirelExportData::Note tag_invoke(boost::json::value_to_tag<TirelExportData::Note> /*tag*/,
                                        const boost::json::value& json) {
    using namespace TirelExportDataJSON;
    using enum TirelExportData::Note::CodingKeys;
    const boost::json::object& object = json.as_object();
    return {
        decode<std::int64_t>(object, color),
        decode<std::string>(object, label),
        decode<std::string>(object, text),
    };
}

inline void tag_invoke(boost::json::value_from_tag /*tag*/, boost::json::value& json,
                       const TirelExportData::Card::ExpirationDate& date) {
    using namespace TirelExportDataJSON;
    using enum TirelExportData::Card::ExpirationDate::CodingKeys;
    boost::json::object& object = json.emplace_object();
    encode(object, day, date.day());
    encode(object, month, date.month());
    encode(object, year, date.year());
}

inline TirelExportData::Card::ExpirationDate
tag_invoke(boost::json::value_to_tag<TirelExportData::Card::ExpirationDate> /*tag*/,
           const boost::json::value& json) {
    using namespace TirelExportDataJSON;
    using enum TirelExportData::Card::ExpirationDate::CodingKeys;
    const boost::json::object& object = json.as_object();
    return {
        decode<std::int64_t>(object, day),
        decode<std::int64_t>(object, month),
        decode<std::int64_t>(object, year),
    };
}

inline void tag_invoke(boost::json::value_from_tag /*tag*/, boost::json::value& json,
                       const TirelExportData::Card& card) {
    using namespace TirelExportDataJSON;
    using enum TirelExportData::Card::CodingKeys;
    boost::json::object& object = json.emplace_object();
    encode(object, cardNumber, card.cardNumber());
    encode(object, custName, card.custName());
    encode(object, holderName, card.holderName());
    encode(object, cvv, card.cvv());
    encode(object, pin, card.pin());
    encode(object, note, card.note());
    encode(object, expirationDate, card.expirationDate());
}

inline TirelExportData::Card tag_invoke(boost::json::value_to_tag<TirelExportData::Card> /*tag*/,
                                        const boost::json::value& json) {
    using namespace TirelExportDataJSON;
    using enum TirelExportData::Card::CodingKeys;
    const boost::json::object& object = json.as_object();
    return {
        decode<std::string>(object, cardNumber),
        decode<std::string>(object, custName),
        decode<std::string>(object, holderName),
        decode<std::string>(object, cvv),
        decode<std::string>(object, pin),
        decode<std::string>(object, note),
        decode<TirelExportData::Card::ExpirationDate>(object, expirationDate),
    };
}

inline void tag_invoke(boost::json::value_from_tag /*tag*/, boost::json::value& json,
                       const TirelExportData& data) {
    using namespace TirelExportDataJSON;
    using enum TirelExportData::CodingKeys;
    boost::json::object& object = json.emplace_object();
    encode(object, logins, data.logins);
    encode(object, notes, data.notes);
    encode(object, cards, data.cards);
}

inline TirelExportData tag_invoke(boost::json::value_to_tag<TirelExportData> /*tag*/,
                                  const boost::json::value& json) {
    using namespace TirelExportDataJSON;
    using enum TirelExportData::CodingKeys;
    const boost::json::object& object = json.as_object();
    TirelExportData data;
    data.logins = decode<std::vector<TirelExportData::Password>>(object, logins);
    data.notes = decode<std::vector<TirelExportData::Note>>(object, notes);
    data.cards = decode<std::vector<TirelExportData::Card>>(object, cards);
    return data;
}

// NOLINTEND(readability-identifier-naming)

} // namespace Rellinor

/// @endcond
