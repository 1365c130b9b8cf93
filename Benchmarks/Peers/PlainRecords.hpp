#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Benchmarks/Run.hpp"

namespace Rellinor::Benchmarks {

// What a program would keep that has no use for more: the members that an import delivers.

struct PlainLogin {
    std::string username;
    std::string password;
    std::string url;
};

/// Its password is not made Base64, as an import makes it, but counts as if.
struct PlainChromeLogin : PlainLogin {};

struct PlainNamedLogin : PlainLogin {
    std::string service;
};

struct PlainTirelLogin : PlainNamedLogin {
    std::string note;
    std::int64_t color = 0;
    std::int64_t pwdChange = 0;
};

struct PlainNote {
    std::string title;
    std::string content;
};

struct PlainTirelNote : PlainNote {
    std::int64_t color = 0;
};

struct PlainCard {
    std::string cardNumber;
    std::string custName;
    std::string holderName;
    std::string cvv;
    std::string pin;
    std::string note;
    std::int64_t expirationDay = 0;
    std::int64_t expirationMonth = 0;
    std::int64_t expirationYear = 0;
};

template <typename Login, typename Note = PlainNote>
struct PlainRecords {
    std::vector<Login> logins;
    std::vector<Note> notes;
    std::vector<PlainCard> cards;
};

using TirelRecords = PlainRecords<PlainTirelLogin, PlainTirelNote>;
using NamedRecords = PlainRecords<PlainNamedLogin>;
using FirefoxRecords = PlainRecords<PlainLogin>;
using ChromeRecords = PlainRecords<PlainChromeLogin>;

constexpr std::size_t sizeAsBase64(std::size_t bytes) {
    return (bytes + 2) / 3 * 4;
}

inline std::size_t bytesOf(const PlainLogin& login) {
    return login.username.size() + login.password.size() + login.url.size();
}

inline std::size_t bytesOf(const PlainChromeLogin& login) {
    return login.username.size() + sizeAsBase64(login.password.size()) + login.url.size();
}

inline std::size_t bytesOf(const PlainNamedLogin& login) {
    return bytesOf(static_cast<const PlainLogin&>(login)) + login.service.size();
}

inline std::size_t bytesOf(const PlainTirelLogin& login) {
    return bytesOf(static_cast<const PlainNamedLogin&>(login)) + login.note.size();
}

inline std::size_t bytesOf(const PlainNote& note) {
    return note.title.size() + note.content.size();
}

inline std::size_t bytesOf(const PlainCard& card) {
    return card.cardNumber.size() + card.custName.size() + card.holderName.size() +
           card.cvv.size() + card.pin.size() + card.note.size();
}

template <typename Login, typename Note>
Delivered deliveredBy(const PlainRecords<Login, Note>& records) {
    Delivered delivered{.logins = records.logins.size(),
                        .notes = records.notes.size(),
                        .cards = records.cards.size()};
    for (const auto& login : records.logins) {
        delivered.bytes += bytesOf(login);
    }
    for (const auto& note : records.notes) {
        delivered.bytes += bytesOf(note);
    }
    for (const auto& card : records.cards) {
        delivered.bytes += bytesOf(card);
    }
    return delivered;
}

} // namespace Rellinor::Benchmarks
