// Uses the package from C, and prints how many records a LastPass export holds.

#include <stdint.h>
#include <stdio.h>

#include <Rellinor/rellinor.h>

static size_t lengthOfLogin(const rellinor_result* result, size_t index) {
    int64_t color = 0;
    int64_t pwdChange = 0;
    size_t length = rellinor_login_username(result, index).length;
    length += rellinor_login_password(result, index).length;
    length += rellinor_login_url(result, index).length;
    length += rellinor_login_service(result, index).length;
    length += rellinor_login_note(result, index).length;
    length += rellinor_login_color(result, index, &color) ? (size_t)color : 0;
    length += rellinor_login_pwd_change(result, index, &pwdChange) ? (size_t)pwdChange : 0;
    return length;
}

static size_t lengthOfNote(const rellinor_result* result, size_t index) {
    int64_t color = 0;
    size_t length = rellinor_note_title(result, index).length;
    length += rellinor_note_content(result, index).length;
    length += rellinor_note_color(result, index, &color) ? (size_t)color : 0;
    return length;
}

static size_t lengthOfCard(const rellinor_result* result, size_t index) {
    size_t length = rellinor_card_number(result, index).length;
    length += rellinor_card_cust_name(result, index).length;
    length += rellinor_card_holder_name(result, index).length;
    length += rellinor_card_cvv(result, index).length;
    length += rellinor_card_pin(result, index).length;
    length += rellinor_card_note(result, index).length;
    length += (size_t)rellinor_card_expiration_day(result, index);
    length += (size_t)rellinor_card_expiration_month(result, index);
    length += (size_t)rellinor_card_expiration_year(result, index);
    return length;
}

int main(int argc, char* argv[]) {
    rellinor_importer* const importer = rellinor_importer_new();
    if (importer == NULL) {
        return 1;
    }
    rellinor_result* const result =
        rellinor_importer_import(importer, argc > 1 ? argv[1] : "", RELLINOR_SOURCE_LAST_PASS);
    rellinor_importer_free(importer);
    if (result == NULL) {
        return 1;
    }
    const bool succeeded = rellinor_result_succeeded(result);
    const size_t logins = rellinor_result_login_count(result);
    const size_t notes = rellinor_result_note_count(result);
    const size_t cards = rellinor_result_card_count(result);
    if (succeeded) {
        size_t length = 0;
        for (size_t i = 0; i < logins; ++i) {
            length += lengthOfLogin(result, i);
        }
        for (size_t i = 0; i < notes; ++i) {
            length += lengthOfNote(result, i);
        }
        for (size_t i = 0; i < cards; ++i) {
            length += lengthOfCard(result, i);
        }
        printf("%zu passwords, %zu notes, %zu cards, %zu bytes\n", logins, notes, cards, length);
    } else {
        printf("%s %jd %s\n", rellinor_result_error_domain(result),
               (intmax_t)rellinor_result_error_code(result),
               rellinor_result_error_description(result));
    }
    rellinor_result_free(result);
    return succeeded ? 0 : 1;
}
