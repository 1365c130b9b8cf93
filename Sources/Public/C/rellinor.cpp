#include "Public/C/rellinor.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <Rellinor/Rellinor.hpp>

#include "Private/Errors/ThrownError.hpp"

namespace Rellinor {

namespace {

static_assert(RELLINOR_SOURCE_CHROME == std::to_underlying(ImportSource::chrome));
static_assert(RELLINOR_SOURCE_LAST_PASS == std::to_underlying(ImportSource::lastPass));
static_assert(RELLINOR_SOURCE_DASHLANE == std::to_underlying(ImportSource::dashlane));
static_assert(RELLINOR_SOURCE_ONE_PASSWORD == std::to_underlying(ImportSource::onePassword));
static_assert(RELLINOR_SOURCE_TIREL == std::to_underlying(ImportSource::tirel));
static_assert(RELLINOR_SOURCE_KEE_PASS == std::to_underlying(ImportSource::keePass));
static_assert(RELLINOR_SOURCE_KEE_PASS_XC == std::to_underlying(ImportSource::keePassXC));
static_assert(RELLINOR_SOURCE_FIREFOX == std::to_underlying(ImportSource::firefox));

constexpr NSError outOfMemory = {"Rellinor.UnexpectedError",
                                 std::to_underlying(UnexpectedError::outOfMemory)};
constexpr NSError unavailableSource = {"Rellinor.UnavailableSourceError", 1};

/// An error with its texts ended by a zero.
struct ErrorTexts {
    explicit ErrorTexts(const NSError& error)
        : domain(error.domain()), code(error.code()), description(error.localizedDescription()) {}

    std::string domain;
    std::int64_t code;
    std::string description;
};

ErrorTexts failureOf(const NSError& error, ErrorTexts& ifMemoryRunsOut) noexcept {
    try {
        return ErrorTexts(error);
    } catch (...) {
        return std::move(ifMemoryRunsOut);
    }
}

RecordsResult resultOf(RecordsImporter& importer, std::string_view path,
                       rellinor_source source) noexcept {
    if (source < RELLINOR_SOURCE_CHROME || source > RELLINOR_SOURCE_FIREFOX) {
        return std::unexpected(unavailableSource);
    }
    try {
        RecordsResult result;
        importer.records(URL::fileURLWithPath(path), static_cast<ImportSource>(source),
                         [&](RecordsResult outcome) { result = std::move(outcome); });
        return result;
    } catch (...) {
        return std::unexpected(thrownError());
    }
}

rellinor_text asC(std::string_view text) noexcept {
    return {.data = text.data() == nullptr ? "" : text.data(), .length = text.size()};
}

rellinor_text asC(std::optional<std::string_view> text) noexcept {
    return text ? asC(*text) : rellinor_text{};
}

rellinor_text textAt(std::size_t index, const auto& records, auto field) noexcept {
    return index < records.size() ? asC(std::invoke(field, *records[index])) : rellinor_text{};
}

bool integerAt(std::size_t index, const auto& records, auto field, std::int64_t* value) noexcept {
    const std::optional<std::int64_t> found =
        index < records.size() ? std::invoke(field, *records[index]) : std::nullopt;
    if (found && value != nullptr) {
        *value = *found;
    }
    return found.has_value();
}

std::int64_t integerAt(std::size_t index, const auto& records, auto field) noexcept {
    return index < records.size() ? std::invoke(field, *records[index]) : 0;
}

} // namespace

} // namespace Rellinor

using Login = Rellinor::ImportedPasswordInfoProviding;
using Note = Rellinor::ImportedNoteInfoProviding;
using Card = Rellinor::ImportedCardInfoProviding;

struct rellinor_importer {
    Rellinor::RecordsImporter importer;
};

struct rellinor_result {
    Rellinor::ImportedRecords records;
    std::optional<Rellinor::ErrorTexts> failure;
};

rellinor_importer* rellinor_importer_new() {
    try {
        return std::make_unique<rellinor_importer>().release();
    } catch (...) {
        return nullptr;
    }
}

void rellinor_importer_free(rellinor_importer* importer) {
    delete importer;
}

rellinor_result* rellinor_importer_import(rellinor_importer* importer, const char* path,
                                          rellinor_source source) {
    try {
        // Made first, so that lack of memory can be told of when there is none left.
        Rellinor::ErrorTexts outOfMemory(Rellinor::outOfMemory);
        auto result = std::make_unique<rellinor_result>();

        auto outcome = Rellinor::resultOf(importer->importer, path, source);
        if (outcome) {
            result->records = *std::move(outcome);
        } else {
            result->failure = Rellinor::failureOf(outcome.error(), outOfMemory);
        }
        return result.release();
    } catch (...) {
        return nullptr;
    }
}

void rellinor_result_free(rellinor_result* result) {
    delete result;
}

bool rellinor_result_succeeded(const rellinor_result* result) {
    return !result->failure;
}

const char* rellinor_result_error_domain(const rellinor_result* result) {
    return result->failure ? result->failure->domain.c_str() : nullptr;
}

int64_t rellinor_result_error_code(const rellinor_result* result) {
    return result->failure ? result->failure->code : 0;
}

const char* rellinor_result_error_description(const rellinor_result* result) {
    return result->failure ? result->failure->description.c_str() : nullptr;
}

size_t rellinor_result_login_count(const rellinor_result* result) {
    return result->records.passwords.size();
}

size_t rellinor_result_note_count(const rellinor_result* result) {
    return result->records.notes.size();
}

size_t rellinor_result_card_count(const rellinor_result* result) {
    return result->records.cards.size();
}

rellinor_text rellinor_login_username(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.passwords, &Login::username);
}

rellinor_text rellinor_login_password(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.passwords, &Login::password);
}

rellinor_text rellinor_login_url(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.passwords, &Login::url);
}

rellinor_text rellinor_login_service(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.passwords, &Login::service);
}

bool rellinor_login_color(const rellinor_result* result, size_t index, int64_t* color) {
    return Rellinor::integerAt(index, result->records.passwords, &Login::color, color);
}

rellinor_text rellinor_login_note(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.passwords, &Login::note);
}

bool rellinor_login_pwd_change(const rellinor_result* result, size_t index, int64_t* pwd_change) {
    return Rellinor::integerAt(index, result->records.passwords, &Login::pwdChange, pwd_change);
}

bool rellinor_note_color(const rellinor_result* result, size_t index, int64_t* color) {
    return Rellinor::integerAt(index, result->records.notes, &Note::color, color);
}

rellinor_text rellinor_note_title(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.notes, &Note::title);
}

rellinor_text rellinor_note_content(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.notes, &Note::content);
}

rellinor_text rellinor_card_number(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.cards, &Card::cardNumber);
}

rellinor_text rellinor_card_cust_name(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.cards, &Card::custName);
}

rellinor_text rellinor_card_holder_name(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.cards, &Card::holderName);
}

rellinor_text rellinor_card_cvv(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.cards, &Card::cvv);
}

rellinor_text rellinor_card_pin(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.cards, &Card::pin);
}

rellinor_text rellinor_card_note(const rellinor_result* result, size_t index) {
    return Rellinor::textAt(index, result->records.cards, &Card::note);
}

int64_t rellinor_card_expiration_day(const rellinor_result* result, size_t index) {
    return Rellinor::integerAt(index, result->records.cards, &Card::expirationDay);
}

int64_t rellinor_card_expiration_month(const rellinor_result* result, size_t index) {
    return Rellinor::integerAt(index, result->records.cards, &Card::expirationMonth);
}

int64_t rellinor_card_expiration_year(const rellinor_result* result, size_t index) {
    return Rellinor::integerAt(index, result->records.cards, &Card::expirationYear);
}
