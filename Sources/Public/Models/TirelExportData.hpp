#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Rellinor/Export.hpp>

namespace Rellinor {

struct TirelDictionary;

/// The content of a Tirel export file: one JSON object with a list of logins, one of secure notes
/// and one of payment cards. The members of each object bear the names of its fields, which
/// `CodingKeys` lists.
///
/// A host that writes such a file fills the lists and calls `encode`; `decode` reads one. For a
/// host whose JSON is Boost's there is <Rellinor/Models/TirelExportDataJSON.hpp>.
///
/// All texts are UTF-8, in ordinary strings, which nobody wipes: let the value go soon.
struct TirelExportData {
    /// Three empty lists, to be filled.
    TirelExportData() = default;

    /// What a file with this text holds. Absent if an import would fail: if the text is not JSON in
    /// strict UTF-8, is nested more than 512 deep, or lacks a member, or has one of another type.
    ///
    /// One byte-order mark at the beginning is dropped, members of other names are passed over, and
    /// of those of one name the first counts. In an optional member null means absent. An integer
    /// may be spelt 1.0 or 1e3; its digits count, all of them.
    ///
    /// What is read on the way is wiped. The text and the value remain for the host to let go.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] RELLINOR_PUBLIC static std::optional<TirelExportData>
    decode(std::string_view text);

    /// The text of the file: JSON on one line, with all members in the order of their
    /// `CodingKeys`, but those that are absent. `decode` gives the same value again.
    ///
    /// What is not UTF-8 in a text becomes U+FFFD: one for each longest beginning of a code point,
    /// and one for each byte that begins none. Control characters, line separators and the controls
    /// of bidirectional writing are escaped, so that the file may be looked at.
    ///
    /// The string is an ordinary one, for the host to wipe. No other copy is left.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] RELLINOR_PUBLIC std::string encode() const;

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

        /// @cond
        // Not for hosts: what the importers make records of. Its texts are views of the login.
        [[nodiscard]] TirelDictionary tirelRecord() const;
        /// @endcond

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

        /// @cond
        // Not for hosts: what the importers make records of. Its texts are views of the card.
        [[nodiscard]] TirelDictionary tirelRecord() const;
        /// @endcond

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
