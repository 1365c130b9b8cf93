#pragma once

#include <string>
#include <string_view>

#include <Rellinor/Rellinor.hpp>

/// The text of a Tirel export with all of these records.
inline std::string tirelExport(const Rellinor::ImportedRecords& records) {
    const auto owned = [](std::string_view text) { return std::string(text); };

    Rellinor::TirelExportData data;
    for (const auto& password : records.passwords) {
        data.logins.emplace_back(password->color().value_or(0),
                                 password->service().transform(owned), owned(password->username()),
                                 owned(password->note().value_or("")), owned(password->password()),
                                 password->pwdChange(), owned(password->url()));
    }
    for (const auto& note : records.notes) {
        data.notes.emplace_back(note->color().value_or(0), owned(note->title()),
                                owned(note->content()));
    }
    for (const auto& card : records.cards) {
        using ExpirationDate = Rellinor::TirelExportData::Card::ExpirationDate;
        data.cards.emplace_back(
            owned(card->cardNumber()), owned(card->custName()), owned(card->holderName()),
            owned(card->cvv()), owned(card->pin()), owned(card->note()),
            ExpirationDate(card->expirationDay(), card->expirationMonth(), card->expirationYear()));
    }
    return data.encode();
}
