// An import through the functions for C, against the same import in C++. The first byte of an input
// chooses the source; the rest is the file.

#include <memory>
#include <optional>
#include <string>

#include <Rellinor/rellinor.h>

#include "Fuzzers/Driver/Fuzzer.hpp"
#include "Fuzzers/Driver/InputFile.hpp"
#include "Tests/Reference/DatabaseReference.hpp"
#include "Tests/Support/Records.hpp"

namespace Rellinor::Fuzzers {

namespace {

using Importer = std::unique_ptr<rellinor_importer, decltype(&rellinor_importer_free)>;
using Result = std::unique_ptr<rellinor_result, decltype(&rellinor_result_free)>;

std::optional<std::string> optional(rellinor_text text) {
    expect(text.data != nullptr || text.length == 0);
    return text.data == nullptr ? std::nullopt : std::optional(std::string(text.data, text.length));
}

std::string present(rellinor_text text) {
    expect(text.data != nullptr);
    return {text.data, text.length};
}

std::optional<std::int64_t> integer(auto function, const rellinor_result* result,
                                    std::size_t index) {
    std::int64_t value = 0;
    return function(result, index, &value) ? std::optional(value) : std::nullopt;
}

Tests::Password login(const rellinor_result* result, std::size_t index) {
    return {
        .username = present(rellinor_login_username(result, index)),
        .password = present(rellinor_login_password(result, index)),
        .url = present(rellinor_login_url(result, index)),
        .service = optional(rellinor_login_service(result, index)),
        .color = integer(rellinor_login_color, result, index),
        .note = optional(rellinor_login_note(result, index)),
        .pwdChange = integer(rellinor_login_pwd_change, result, index),
    };
}

Tests::Note note(const rellinor_result* result, std::size_t index) {
    return {
        .color = integer(rellinor_note_color, result, index),
        .title = present(rellinor_note_title(result, index)),
        .content = present(rellinor_note_content(result, index)),
    };
}

Tests::Card card(const rellinor_result* result, std::size_t index) {
    return {
        .cardNumber = present(rellinor_card_number(result, index)),
        .custName = present(rellinor_card_cust_name(result, index)),
        .holderName = present(rellinor_card_holder_name(result, index)),
        .cvv = present(rellinor_card_cvv(result, index)),
        .pin = present(rellinor_card_pin(result, index)),
        .note = present(rellinor_card_note(result, index)),
        .expirationDay = rellinor_card_expiration_day(result, index),
        .expirationMonth = rellinor_card_expiration_month(result, index),
        .expirationYear = rellinor_card_expiration_year(result, index),
    };
}

void expectSuccess(const rellinor_result* result, const Tests::Outcome& expected) {
    Tests::Outcome outcome;
    for (std::size_t index = 0; index < rellinor_result_login_count(result); ++index) {
        outcome.passwords.push_back(login(result, index));
    }
    for (std::size_t index = 0; index < rellinor_result_note_count(result); ++index) {
        outcome.notes.push_back(note(result, index));
    }
    for (std::size_t index = 0; index < rellinor_result_card_count(result); ++index) {
        outcome.cards.push_back(card(result, index));
    }
    expect(outcome == expected);
    expect(rellinor_result_error_domain(result) == nullptr);
    expect(rellinor_result_error_code(result) == 0);
    expect(!optional(rellinor_login_url(result, expected.passwords.size())));
}

void expectFailure(const rellinor_result* result, const NSError& error) {
    expect(rellinor_result_error_domain(result) == error.domain());
    expect(rellinor_result_error_code(result) == error.code());
    expect(rellinor_result_error_description(result) == error.localizedDescription());
    expect(rellinor_result_login_count(result) == 0);
    expect(rellinor_result_note_count(result) == 0);
    expect(rellinor_result_card_count(result) == 0);
}

/// What is given to the import.
struct Input {
    std::string path;
    bool isRepeatable; ///< as a damaged database is not
};

Input written(ImportSource source, std::string_view contents) {
    static const InputFile loginsFile("logins.json");
    static const InputDatabase database("signons.sqlite");
    if (source == ImportSource::chrome ||
        (source == ImportSource::firefox && contents.starts_with("SQLite format 3"))) {
        database.write(contents);
        return {.path = source == ImportSource::chrome ? database.path() : database.folder(),
                .isRepeatable = Tests::isSoundDatabase(database.path())};
    }
    loginsFile.write(contents);
    return {.path = source == ImportSource::firefox ? loginsFile.folder() : loginsFile.path(),
            .isRepeatable = true};
}

} // namespace

void fuzz(std::string_view input) {
    if (input.empty()) {
        return;
    }
    const auto source = static_cast<ImportSource>(static_cast<unsigned char>(input.front()) % 8);
    const auto [path, isRepeatable] = written(source, input.substr(1));

    Importer importer(rellinor_importer_new(), &rellinor_importer_free);
    const Result result(rellinor_importer_import(importer.get(), path.c_str(),
                                                 static_cast<rellinor_source>(source)),
                        &rellinor_result_free);
    importer.reset();
    if (!isRepeatable) {
        return;
    }
    const Tests::Outcome expected = Tests::outcomeOf(source, path);
    expect(rellinor_result_succeeded(result.get()) == !expected.error);
    if (expected.error) {
        expectFailure(result.get(), *expected.error);
    } else {
        expectSuccess(result.get(), expected);
    }
}

} // namespace Rellinor::Fuzzers
