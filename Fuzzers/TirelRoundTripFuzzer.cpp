// A Tirel export that is read, written and read again is the same, and imports as what it holds.

#include <string>

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value_from.hpp>

#include <Rellinor/Models/TirelExportDataJSON.hpp>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/Imports.hpp"
#include "Fuzzers/Driver/InputFile.hpp"

namespace Rellinor::Fuzzers {

namespace {

std::optional<std::string> owned(std::optional<std::string_view> text) {
    return text.transform([](std::string_view view) { return std::string(view); });
}

/// What importing it should give.
Tests::Outcome outcomeOf(const TirelExportData& data) {
    Tests::Outcome outcome;
    for (const TirelExportData::Password& login : data.logins) {
        outcome.passwords.push_back({
            .username = std::string(login.loginName()),
            .password = std::string(login.pwd()),
            .url = std::string(login.url()),
            .service = owned(login.custName()),
            .color = login.color(),
            .note = std::string(login.note()),
            .pwdChange = login.pwdChange(),
        });
    }
    for (const TirelExportData::Note& note : data.notes) {
        outcome.notes.push_back({
            .color = note.color(),
            .title = std::string(note.label()),
            .content = std::string(note.text()),
        });
    }
    for (const TirelExportData::Card& card : data.cards) {
        outcome.cards.push_back({
            .cardNumber = std::string(card.cardNumber()),
            .custName = std::string(card.custName()),
            .holderName = std::string(card.holderName()),
            .cvv = std::string(card.cvv()),
            .pin = std::string(card.pin()),
            .note = std::string(card.note()),
            .expirationDay = card.expirationDate().day(),
            .expirationMonth = card.expirationDate().month(),
            .expirationYear = card.expirationDate().year(),
        });
    }
    return outcome;
}

} // namespace

void fuzz(std::string_view input) {
    static const InputFile file("export.json");
    boost::json::error_code error;
    const boost::json::value json = boost::json::parse({input.data(), input.size()}, error);
    if (error) {
        return;
    }
    const auto data = boost::json::try_value_to<TirelExportData>(json);
    if (!data) {
        return;
    }

    const std::string text = boost::json::serialize(boost::json::value_from(*data));
    const auto again = boost::json::value_to<TirelExportData>(boost::json::parse(text));
    expect(outcomeOf(again) == outcomeOf(*data));
    expect(boost::json::serialize(boost::json::value_from(again)) == text);

    file.write(text);
    expect(outcomeOf(ImportSource::tirel, file.path()) == outcomeOf(*data));
}

} // namespace Rellinor::Fuzzers
