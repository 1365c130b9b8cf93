// An import and a read through the functions for C, against the same import in C++. The first byte
// of an input chooses the source; the rest is the file.

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

/// Every record of a result is accounted for, and every entry has a name.
void expectReport(const rellinor_result* result) {
    const auto isNamed = [](rellinor_text name) { return name.data != nullptr; };
    std::uint64_t accounted = rellinor_result_login_count(result) +
                              rellinor_result_note_count(result) +
                              rellinor_result_card_count(result);
    for (std::size_t index = 0; index < rellinor_report_left_out_count(result); ++index) {
        const rellinor_left_out entry = rellinor_report_left_out(result, index);
        expect(isNamed(rellinor_left_out_reason_identifier(entry.reason)));
        expect(entry.places.first_count <= entry.places.count);
        accounted += entry.places.count;
    }
    for (std::size_t index = 0; index < rellinor_report_finding_count(result); ++index) {
        expect(
            isNamed(rellinor_finding_kind_identifier(rellinor_report_finding(result, index).kind)));
    }
    for (std::size_t index = 0; index < rellinor_report_unread_count(result); ++index) {
        expect(rellinor_report_unread(result, index).count > 0);
    }
    const rellinor_failure_reason reason = rellinor_report_failure(result).reason;
    expect(isNamed(rellinor_failure_reason_identifier(reason)));
    expect(rellinor_result_succeeded(result) || reason != RELLINOR_FAILURE_NONE);
    expect(rellinor_report_record_count(result) == accounted);
    expect(rellinor_report_is_complete(result));
}

void expectOutcome(const rellinor_result* result, const Tests::Outcome& expected) {
    expect(rellinor_result_succeeded(result) == !expected.error);
    if (expected.error) {
        expectFailure(result, *expected.error);
    } else {
        expectSuccess(result, expected);
    }
}

/// What a file is, and what it holds as whatever it is.
void detectAndRead(const std::string& path, std::string_view contents) {
    rellinor_detection* const detection = rellinor_detect(path.c_str());
    expect(rellinor_failure_reason_identifier(rellinor_detection_obstacle(detection)).length > 0);
    rellinor_detection_free(detection);
    rellinor_detection_free(rellinor_detect_memory(contents.data(), contents.size(), "export"));

    const Result result(
        rellinor_export_read_memory(contents.data(), contents.size(), "export", nullptr),
        &rellinor_result_free);
    expectReport(result.get());
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

    rellinor_read_options options{};
    options.size = sizeof options;
    options.as = RELLINOR_READ_AS_SOURCE;
    options.source = static_cast<rellinor_source>(source);
    const Result read(rellinor_export_read(path.c_str(), &options), &rellinor_result_free);
    expectReport(read.get());
    detectAndRead(path, input.substr(1));
    if (!isRepeatable) {
        return;
    }
    const Tests::Outcome expected = Tests::outcomeOf(source, path);
    expectOutcome(result.get(), expected);
    expectOutcome(read.get(), expected);
}

} // namespace Rellinor::Fuzzers
