#include "Tests/Support/Records.hpp"

#include <iomanip>
#include <stdexcept>

namespace Rellinor::Tests {

namespace {

std::optional<std::string> owned(std::optional<std::string_view> text) {
    return text.transform([](std::string_view view) { return std::string(view); });
}

struct Shown {
    const std::optional<std::string>& text;

    friend std::ostream& operator<<(std::ostream& out, const Shown& shown) {
        return shown.text ? out << std::quoted(*shown.text) : out << "absent";
    }
};

} // namespace

std::ostream& operator<<(std::ostream& out, const Password& password) {
    return out << "login " << std::quoted(password.username) << ' '
               << std::quoted(password.password) << ' ' << std::quoted(password.url) << ' '
               << Shown{password.service} << " color " << password.color.value_or(-1) << " note "
               << Shown{password.note} << " pwdChange " << password.pwdChange.value_or(-1);
}

std::ostream& operator<<(std::ostream& out, const Note& note) {
    return out << "note " << std::quoted(note.title) << ' ' << std::quoted(note.content)
               << " color " << note.color.value_or(-1);
}

std::ostream& operator<<(std::ostream& out, const Card& card) {
    return out << "card " << std::quoted(card.cardNumber) << ' ' << std::quoted(card.custName)
               << ' ' << std::quoted(card.holderName) << ' ' << std::quoted(card.cvv) << ' '
               << std::quoted(card.pin) << ' ' << std::quoted(card.note) << ' '
               << card.expirationDay << '.' << card.expirationMonth << '.' << card.expirationYear;
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
    if (outcome.error) {
        return out << outcome.error->localizedDescription();
    }
    for (const Password& password : outcome.passwords) {
        out << "\n  " << password;
    }
    for (const Note& note : outcome.notes) {
        out << "\n  " << note;
    }
    for (const Card& card : outcome.cards) {
        out << "\n  " << card;
    }
    return out;
}

Password copyOf(const ImportedPasswordInfoProviding& password) {
    return {
        .username = std::string(password.username()),
        .password = std::string(password.password()),
        .url = std::string(password.url()),
        .service = owned(password.service()),
        .color = password.color(),
        .note = owned(password.note()),
        .pwdChange = password.pwdChange(),
    };
}

Note copyOf(const ImportedNoteInfoProviding& note) {
    return {
        .color = note.color(),
        .title = std::string(note.title()),
        .content = std::string(note.content()),
    };
}

Card copyOf(const ImportedCardInfoProviding& card) {
    return {
        .cardNumber = std::string(card.cardNumber()),
        .custName = std::string(card.custName()),
        .holderName = std::string(card.holderName()),
        .cvv = std::string(card.cvv()),
        .pin = std::string(card.pin()),
        .note = std::string(card.note()),
        .expirationDay = card.expirationDay(),
        .expirationMonth = card.expirationMonth(),
        .expirationYear = card.expirationYear(),
    };
}

Outcome copyOf(const RecordsResult& result) {
    if (!result) {
        return {.error = result.error()};
    }
    Outcome outcome;
    for (const auto& password : result->passwords) {
        outcome.passwords.push_back(copyOf(*password));
    }
    for (const auto& note : result->notes) {
        outcome.notes.push_back(copyOf(*note));
    }
    for (const auto& card : result->cards) {
        outcome.cards.push_back(copyOf(*card));
    }
    return outcome;
}

Outcome outcomeOf(ImportSource source, std::string_view path) {
    std::optional<Outcome> outcome;
    RecordsImporter().records(URL::fileURLWithPath(path), source, [&](const RecordsResult& result) {
        if (outcome) {
            throw std::logic_error("the completion was called twice");
        }
        outcome = copyOf(result);
    });
    if (!outcome) {
        throw std::logic_error("the completion was not called");
    }
    return *std::move(outcome);
}

Outcome failedWithText() {
    return {.error = NSError("Rellinor.TextError", 1)};
}

} // namespace Rellinor::Tests
