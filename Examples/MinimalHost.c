#include <stdio.h>

#include <Rellinor/rellinor.h>

int main(int argc, char* argv[]) {
    const char* const path = argc > 1 ? argv[1] : "export.csv";

    rellinor_importer* const importer = rellinor_importer_new();
    if (importer == NULL) {
        return 1;
    }
    rellinor_result* const result =
        rellinor_importer_import(importer, path, RELLINOR_SOURCE_LAST_PASS);
    rellinor_importer_free(importer);
    if (result == NULL) {
        return 1;
    }
    if (!rellinor_result_succeeded(result)) {
        fputs(rellinor_result_error_description(result), stderr);
        fputc('\n', stderr);
    }
    for (size_t i = 0; i < rellinor_result_login_count(result); ++i) {
        const rellinor_text username = rellinor_login_username(result, i);
        fwrite(username.data, 1, username.length, stdout);
        putchar('\n');
    }
    rellinor_result_free(result);
}
