#include "Tests/Support/TirelExportInC.hpp"

#include <cstddef>
#include <vector>

namespace Rellinor::Tests {

TirelExportInC tirelExportOf(const rellinor_result& result) {
    std::vector<rellinor_tirel_login> logins;
    for (std::size_t i = 0; i < ::rellinor_result_login_count(&result); ++i) {
        rellinor_tirel_login& login = logins.emplace_back();
        ::rellinor_login_color(&result, i, &login.color);
        login.cust_name = ::rellinor_login_service(&result, i);
        login.login_name = ::rellinor_login_username(&result, i);
        login.note = ::rellinor_login_note(&result, i);
        login.pwd = ::rellinor_login_password(&result, i);
        login.has_pwd_change = ::rellinor_login_pwd_change(&result, i, &login.pwd_change);
        login.url = ::rellinor_login_url(&result, i);
    }
    std::vector<rellinor_tirel_note> notes;
    for (std::size_t i = 0; i < ::rellinor_result_note_count(&result); ++i) {
        rellinor_tirel_note& note = notes.emplace_back();
        ::rellinor_note_color(&result, i, &note.color);
        note.label = ::rellinor_note_title(&result, i);
        note.text = ::rellinor_note_content(&result, i);
    }
    std::vector<rellinor_tirel_card> cards;
    for (std::size_t i = 0; i < ::rellinor_result_card_count(&result); ++i) {
        cards.push_back({
            .card_number = ::rellinor_card_number(&result, i),
            .cust_name = ::rellinor_card_cust_name(&result, i),
            .holder_name = ::rellinor_card_holder_name(&result, i),
            .cvv = ::rellinor_card_cvv(&result, i),
            .pin = ::rellinor_card_pin(&result, i),
            .note = ::rellinor_card_note(&result, i),
            .expiration_day = ::rellinor_card_expiration_day(&result, i),
            .expiration_month = ::rellinor_card_expiration_month(&result, i),
            .expiration_year = ::rellinor_card_expiration_year(&result, i),
        });
    }
    const rellinor_tirel_data data{
        .logins = logins.data(),
        .login_count = logins.size(),
        .notes = notes.data(),
        .note_count = notes.size(),
        .cards = cards.data(),
        .card_count = cards.size(),
    };
    return {::rellinor_tirel_export_new(&data), ::rellinor_tirel_export_free};
}

} // namespace Rellinor::Tests
