#include "Public/C/rellinorResult.hpp"

#include <cstddef>
#include <functional>
#include <utility>

#include "Private/Errors/ThrownError.hpp"

namespace Rellinor {

namespace {

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

NewResult::NewResult()
    : _result(std::make_unique<rellinor_result>()),
      _outOfMemory(
          NSError("Rellinor.UnexpectedError", std::to_underlying(UnexpectedError::outOfMemory))) {}

rellinor_result* NewResult::with(ImportedExport outcome) noexcept {
    if (outcome.records) {
        _result->records = *std::move(outcome.records);
    } else {
        try {
            _result->failure.emplace(outcome.records.error());
        } catch (...) {
            _result->failure = std::move(_outOfMemory);
        }
    }
    _result->extras = std::move(outcome.extras);
    _result->report = std::move(outcome.report);
    return _result.release();
}

} // namespace Rellinor

using Login = Rellinor::ImportedPasswordInfoProviding;
using Note = Rellinor::ImportedNoteInfoProviding;
using Card = Rellinor::ImportedCardInfoProviding;

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
