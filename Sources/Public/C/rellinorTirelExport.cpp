// Writing a Tirel export.

#include <memory>
#include <optional>
#include <ranges>
#include <span>
#include <string_view>

#include "Platform/WipedStack.hpp"
#include "Private/Importers/Tirel/TirelExportWriter.hpp"
#include "Public/C/rellinorResult.hpp"

struct rellinor_tirel_export {
    Rellinor::TirelExportWriter writer;
    std::string_view text; ///< of the writer
};

namespace Rellinor {

namespace {

std::optional<std::string_view> optionalText(rellinor_text text) noexcept {
    return text.data != nullptr ? std::optional(std::string_view(text.data, text.length))
                                : std::nullopt;
}

std::string_view requiredText(rellinor_text text) noexcept {
    return optionalText(text).value_or("");
}

TirelLoginView viewOfLogin(const rellinor_tirel_login& login) noexcept {
    return {
        .color = login.color,
        .custName = optionalText(login.cust_name),
        .loginName = requiredText(login.login_name),
        .note = requiredText(login.note),
        .pwd = requiredText(login.pwd),
        .pwdChange = login.has_pwd_change ? std::optional(login.pwd_change) : std::nullopt,
        .url = requiredText(login.url),
    };
}

TirelNoteView viewOfNote(const rellinor_tirel_note& note) noexcept {
    return {
        .color = note.color,
        .label = requiredText(note.label),
        .text = requiredText(note.text),
    };
}

TirelCardView viewOfCard(const rellinor_tirel_card& card) noexcept {
    return {
        .cardNumber = requiredText(card.card_number),
        .custName = requiredText(card.cust_name),
        .holderName = requiredText(card.holder_name),
        .cvv = requiredText(card.cvv),
        .pin = requiredText(card.pin),
        .note = requiredText(card.note),
        .expirationDay = card.expiration_day,
        .expirationMonth = card.expiration_month,
        .expirationYear = card.expiration_year,
    };
}

// Kept out of line: what it had on the stack lies beyond the caller's end, where it is wiped.
[[gnu::noinline]] rellinor_tirel_export* written(const rellinor_tirel_data& data) noexcept {
    using std::views::transform;

    try {
        auto made = std::make_unique<rellinor_tirel_export>();
        made->writer.write(std::span(data.logins, data.login_count) | transform(viewOfLogin),
                           std::span(data.notes, data.note_count) | transform(viewOfNote),
                           std::span(data.cards, data.card_count) | transform(viewOfCard));
        made->text = made->writer.written();
        return made.release();
    } catch (...) {
        return nullptr;
    }
}

} // namespace

} // namespace Rellinor

rellinor_tirel_export* rellinor_tirel_export_new(const rellinor_tirel_data* data) {
    rellinor_tirel_export* const made = Rellinor::written(*data);
    Rellinor::wipeStack();
    return made;
}

rellinor_text rellinor_tirel_export_text(const rellinor_tirel_export* tirel_export) {
    return Rellinor::asC(tirel_export->text);
}

void rellinor_tirel_export_free(rellinor_tirel_export* tirel_export) {
    delete tirel_export;
}
