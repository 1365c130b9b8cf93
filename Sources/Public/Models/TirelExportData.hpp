#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Rellinor {

/// The content of a Tirel export file: one JSON object with a list of logins, one of secure notes
/// and one of payment cards. The members of each object bear the names of its fields, which
/// `CodingKeys` lists.
///
/// A host that writes such a file fills the lists and hands the value to its JSON library;
/// <Rellinor/Models/TirelExportDataJSON.hpp> teaches Boost.JSON to write and read it. All texts are
/// UTF-8, in ordinary strings, which nobody wipes: let the value go soon.
struct TirelExportData {
    /// Three empty lists, to be filled.
    TirelExportData() = default;

    /// The members of the file, in their order.
    enum class CodingKeys : std::uint8_t { logins, notes, cards };

    /// A login.
    class Password {
    public:
        /// The members of a login, in their order.
        enum class CodingKeys : std::uint8_t {
            color,
            custName,
            loginName,
            note,
            pwd,
            pwdChange,
            url,
        };

        /// Takes every text as it is.
        Password(std::int64_t color, std::optional<std::string> custName, std::string loginName,
                 std::string note, std::string pwd, std::optional<std::int64_t> pwdChange,
                 std::string url) noexcept
            : _color(color), _custName(std::move(custName)), _loginName(std::move(loginName)),
              _note(std::move(note)), _pwd(std::move(pwd)), _pwdChange(pwdChange),
              _url(std::move(url)) {}

        /// Colour code, in Tirel's palette.
        [[nodiscard]] std::int64_t color() const noexcept { return _color; }

        /// Name of the entry; left out of the file if absent.
        [[nodiscard]] std::optional<std::string_view> custName() const noexcept {
            return _custName;
        }

        /// Login name.
        [[nodiscard]] std::string_view loginName() const noexcept { return _loginName; }

        /// Free text attached to the login; empty if there is none.
        [[nodiscard]] std::string_view note() const noexcept { return _note; }

        /// Password.
        [[nodiscard]] std::string_view pwd() const noexcept { return _pwd; }

        /// Time of the last password change, in Tirel's unit; left out of the file if absent.
        [[nodiscard]] std::optional<std::int64_t> pwdChange() const noexcept { return _pwdChange; }

        /// Address of the site or service.
        [[nodiscard]] std::string_view url() const noexcept { return _url; }

    private:
        std::int64_t _color;
        std::optional<std::string> _custName;
        std::string _loginName;
        std::string _note;
        std::string _pwd;
        std::optional<std::int64_t> _pwdChange;
        std::string _url;
    };

    /// A secure note.
    class Note {
    public:
        /// The members of a note, in their order.
        enum class CodingKeys : std::uint8_t { color, label, text };

        /// Takes every text as it is.
        Note(std::int64_t color, std::string label, std::string text) noexcept
            : _color(color), _label(std::move(label)), _text(std::move(text)) {}

        /// Colour code, in Tirel's palette.
        [[nodiscard]] std::int64_t color() const noexcept { return _color; }

        /// Title of the note.
        [[nodiscard]] std::string_view label() const noexcept { return _label; }

        /// Body of the note.
        [[nodiscard]] std::string_view text() const noexcept { return _text; }

    private:
        std::int64_t _color;
        std::string _label;
        std::string _text;
    };

    /// A payment card. Its number, CVV and PIN are texts, never numbers.
    class Card {
    public:
        /// The members of a card, in their order.
        enum class CodingKeys : std::uint8_t {
            cardNumber,
            custName,
            holderName,
            cvv,
            pin,
            note,
            expirationDate,
        };

        /// When a card expires. No part is checked to be in any range.
        class ExpirationDate {
        public:
            /// The members of the date, in their order.
            enum class CodingKeys : std::uint8_t { day, month, year };

            /// Takes any three numbers.
            ExpirationDate(std::int64_t day, std::int64_t month, std::int64_t year) noexcept
                : _day(day), _month(month), _year(year) {}

            /// Day of expiry.
            [[nodiscard]] std::int64_t day() const noexcept { return _day; }

            /// Month of expiry.
            [[nodiscard]] std::int64_t month() const noexcept { return _month; }

            /// Year of expiry.
            [[nodiscard]] std::int64_t year() const noexcept { return _year; }

        private:
            std::int64_t _day;
            std::int64_t _month;
            std::int64_t _year;
        };

        /// Takes every text as it is.
        Card(std::string cardNumber, std::string custName, std::string holderName, std::string cvv,
             std::string pin, std::string note, ExpirationDate expirationDate) noexcept
            : _cardNumber(std::move(cardNumber)), _custName(std::move(custName)),
              _holderName(std::move(holderName)), _cvv(std::move(cvv)), _pin(std::move(pin)),
              _note(std::move(note)), _expirationDate(expirationDate) {}

        /// Card number.
        [[nodiscard]] std::string_view cardNumber() const noexcept { return _cardNumber; }

        /// Name of the entry.
        [[nodiscard]] std::string_view custName() const noexcept { return _custName; }

        /// Card holder's name.
        [[nodiscard]] std::string_view holderName() const noexcept { return _holderName; }

        /// Card security code.
        [[nodiscard]] std::string_view cvv() const noexcept { return _cvv; }

        /// PIN.
        [[nodiscard]] std::string_view pin() const noexcept { return _pin; }

        /// Free text attached to the card; empty if there is none.
        [[nodiscard]] std::string_view note() const noexcept { return _note; }

        /// When the card expires.
        [[nodiscard]] const ExpirationDate& expirationDate() const noexcept {
            return _expirationDate;
        }

    private:
        std::string _cardNumber;
        std::string _custName;
        std::string _holderName;
        std::string _cvv;
        std::string _pin;
        std::string _note;
        ExpirationDate _expirationDate;
    };

    std::vector<Password> logins; ///< in the order of the file
    std::vector<Note> notes;      ///< in the order of the file
    std::vector<Card> cards;      ///< in the order of the file
};

/// The name of a member in the file; `key` is a case of its enumeration.
[[nodiscard]] constexpr std::string_view stringValue(TirelExportData::CodingKeys key) noexcept {
    constexpr std::array<std::string_view, 3> names = {"logins", "notes", "cards"};
    return names[std::to_underlying(key)];
}

/// The name of a member in the file; `key` is a case of its enumeration.
[[nodiscard]] constexpr std::string_view
stringValue(TirelExportData::Password::CodingKeys key) noexcept {
    constexpr std::array<std::string_view, 7> names = {"color", "custName",  "loginName", "note",
                                                       "pwd",   "pwdChange", "url"};
    return names[std::to_underlying(key)];
}

/// The name of a member in the file; `key` is a case of its enumeration.
[[nodiscard]] constexpr std::string_view
stringValue(TirelExportData::Note::CodingKeys key) noexcept {
    constexpr std::array<std::string_view, 3> names = {"color", "label", "text"};
    return names[std::to_underlying(key)];
}

/// The name of a member in the file; `key` is a case of its enumeration.
[[nodiscard]] constexpr std::string_view
stringValue(TirelExportData::Card::CodingKeys key) noexcept {
    constexpr std::array<std::string_view, 7> names = {
        "cardNumber", "custName", "holderName", "cvv", "pin", "note", "expirationDate"};
    return names[std::to_underlying(key)];
}

/// The name of a member in the file; `key` is a case of its enumeration.
[[nodiscard]] constexpr std::string_view
stringValue(TirelExportData::Card::ExpirationDate::CodingKeys key) noexcept {
    constexpr std::array<std::string_view, 3> names = {"day", "month", "year"};
    return names[std::to_underlying(key)];
}

} // namespace Rellinor
