#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <Rellinor/Rellinor.hpp>

namespace Rellinor::Tests {

/// A delivered login, copied out so that it can be compared and printed.
struct Password {
    std::string username;
    std::string password;
    std::string url;
    std::optional<std::string> service = std::nullopt;
    std::optional<std::int64_t> color = std::nullopt;
    std::optional<std::string> note = std::nullopt;
    std::optional<std::int64_t> pwdChange = std::nullopt;

    bool operator==(const Password&) const = default;
};

/// A delivered secure note, copied out.
struct Note {
    std::optional<std::int64_t> color;
    std::string title;
    std::string content;

    bool operator==(const Note&) const = default;
};

/// A delivered card, copied out.
struct Card {
    std::string cardNumber;
    std::string custName;
    std::string holderName;
    std::string cvv;
    std::string pin;
    std::string note;
    std::int64_t expirationDay = 0;
    std::int64_t expirationMonth = 0;
    std::int64_t expirationYear = 0;

    bool operator==(const Card&) const = default;
};

/// The outcome of one import, copied out: either the error, or the records.
struct Outcome {
    std::optional<NSError> error = std::nullopt;
    std::vector<Password> passwords = {};
    std::vector<Note> notes = {};
    std::vector<Card> cards = {};

    bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Password& password);
std::ostream& operator<<(std::ostream& out, const Note& note);
std::ostream& operator<<(std::ostream& out, const Card& card);
std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

[[nodiscard]] Password copyOf(const ImportedPasswordInfoProviding& password);
[[nodiscard]] Note copyOf(const ImportedNoteInfoProviding& note);
[[nodiscard]] Card copyOf(const ImportedCardInfoProviding& card);
[[nodiscard]] Outcome copyOf(const RecordsResult& result);

/// What a fresh importer makes of the file or folder at `path`.
[[nodiscard]] Outcome outcomeOf(ImportSource source, std::string_view path);

/// The outcome of an import that failed with a plain text.
[[nodiscard]] Outcome failedWithText();

} // namespace Rellinor::Tests
