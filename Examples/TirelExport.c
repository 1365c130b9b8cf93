// Reads an export of any product, and writes its records as a Tirel export.

#include <stdio.h>
#include <stdlib.h>

#include <Rellinor/rellinor.h>
#include <sys/stat.h>

static rellinor_tirel_login login_at(const rellinor_result* from, size_t i) {
    rellinor_tirel_login login = {.cust_name = rellinor_login_service(from, i),
                                  .login_name = rellinor_login_username(from, i),
                                  .note = rellinor_login_note(from, i),
                                  .pwd = rellinor_login_password(from, i),
                                  .url = rellinor_login_url(from, i)};
    rellinor_login_color(from, i, &login.color); // stays 0 if it is absent
    login.has_pwd_change = rellinor_login_pwd_change(from, i, &login.pwd_change);
    return login;
}

static rellinor_tirel_note note_at(const rellinor_result* from, size_t i) {
    rellinor_tirel_note note = {.label = rellinor_note_title(from, i),
                                .text = rellinor_note_content(from, i)};
    rellinor_note_color(from, i, &note.color);
    return note;
}

static rellinor_tirel_card card_at(const rellinor_result* from, size_t i) {
    return (rellinor_tirel_card){.card_number = rellinor_card_number(from, i),
                                 .cust_name = rellinor_card_cust_name(from, i),
                                 .holder_name = rellinor_card_holder_name(from, i),
                                 .cvv = rellinor_card_cvv(from, i),
                                 .pin = rellinor_card_pin(from, i),
                                 .note = rellinor_card_note(from, i),
                                 .expiration_day = rellinor_card_expiration_day(from, i),
                                 .expiration_month = rellinor_card_expiration_month(from, i),
                                 .expiration_year = rellinor_card_expiration_year(from, i)};
}

/// All records of a result; null if there is no memory. The lists point to texts, and hold none.
static rellinor_tirel_export* tirel_export(const rellinor_result* from) {
    const size_t login_count = rellinor_result_login_count(from);
    const size_t note_count = rellinor_result_note_count(from);
    const size_t card_count = rellinor_result_card_count(from);
    rellinor_tirel_login* const logins = calloc(login_count + 1, sizeof *logins);
    rellinor_tirel_note* const notes = calloc(note_count + 1, sizeof *notes);
    rellinor_tirel_card* const cards = calloc(card_count + 1, sizeof *cards);
    rellinor_tirel_export* written = NULL;
    if (logins != NULL && notes != NULL && cards != NULL) {
        for (size_t i = 0; i < login_count; ++i) {
            logins[i] = login_at(from, i);
        }
        for (size_t i = 0; i < note_count; ++i) {
            notes[i] = note_at(from, i);
        }
        for (size_t i = 0; i < card_count; ++i) {
            cards[i] = card_at(from, i);
        }
        const rellinor_tirel_data data = {logins,     login_count, notes,
                                          note_count, cards,       card_count};
        written = rellinor_tirel_export_new(&data);
    }
    free(logins);
    free(notes);
    free(cards);
    return written;
}

/// Writes to a new file, which only its owner may read.
static bool write_file(rellinor_text text, const char* path) {
    umask(077);
    FILE* const file = fopen(path, "wx");
    if (file == NULL) {
        return false;
    }
    setvbuf(file, NULL, _IONBF, 0); // a buffer would keep secrets
    const bool is_whole = fwrite(text.data, 1, text.length, file) == text.length;
    return fclose(file) == 0 && is_whole;
}

int main(int argc, char* argv[]) {
    if (argc != 3) {
        fputs("usage: rellinor-c-TirelExport EXPORT TIREL-EXPORT\n", stderr);
        return 2;
    }
    rellinor_result* const imported = rellinor_export_read(argv[1], NULL);
    if (imported == NULL) {
        return 1;
    }
    bool is_written = false;
    if (rellinor_result_succeeded(imported)) {
        rellinor_tirel_export* const written = tirel_export(imported);
        is_written = written != NULL && write_file(rellinor_tirel_export_text(written), argv[2]);
        rellinor_tirel_export_free(written);
    }
    rellinor_result_free(imported);
    return is_written ? 0 : 1;
}
