// A host in C. Runs every test, prints what does not hold, and fails if anything does not.

#include <Rellinor/rellinor.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

static const char lastPassExport[] = RELLINOR_EXAMPLES "/LastPass/export.csv";
static const char chromeDatabase[] = RELLINOR_EXAMPLES "/Chrome/Login Data";
static const char currentProfile[] = RELLINOR_EXAMPLES "/Firefox/current.profile";
static const char oldProfile[] = RELLINOR_EXAMPLES "/Firefox/old.profile";
static const char everyField[] = RELLINOR_FIXTURES "/Tirel/every-field.json";

// What both Firefox profiles' encrypted texts begin with.
#define ENCRYPTED "MDIEEPgAAAAAAAAAAAAAAAAAAAEwFAYIKoZIhvcNAwcECGludmVudGVkBAh"

static int failures = 0;

static void expect(bool holds, const char* what, int line) {
    if (!holds) {
        printf("rellinorTest.c:%d: %s\n", line, what);
        ++failures;
    }
}

static bool isAbsent(rellinor_text text) {
    return text.data == NULL && text.length == 0;
}

static bool isText(rellinor_text text, const char* bytes, size_t length) {
    return text.data != NULL && text.length == length && memcmp(text.data, bytes, length) == 0;
}

#define EXPECT(condition) expect((condition), #condition, __LINE__)
#define EXPECT_ABSENT(text) expect(isAbsent(text), #text, __LINE__)
#define EXPECT_TEXT(text, literal)                                                                 \
    expect(isText((text), (literal), sizeof(literal) - 1), #text " is " #literal, __LINE__)

static rellinor_result* imported(const char* path, rellinor_source source) {
    rellinor_importer* const importer = rellinor_importer_new();
    rellinor_result* const result = rellinor_importer_import(importer, path, source);
    rellinor_importer_free(importer);
    return result;
}

static void expectCounts(const rellinor_result* result, size_t logins, size_t notes, size_t cards,
                         int line) {
    expect(rellinor_result_succeeded(result), "succeeded", line);
    expect(rellinor_result_error_domain(result) == NULL, "no domain", line);
    expect(rellinor_result_error_code(result) == 0, "no code", line);
    expect(rellinor_result_error_description(result) == NULL, "no description", line);
    expect(rellinor_result_login_count(result) == logins, "number of logins", line);
    expect(rellinor_result_note_count(result) == notes, "number of notes", line);
    expect(rellinor_result_card_count(result) == cards, "number of cards", line);
}

#define EXPECT_COUNTS(result, logins, notes, cards)                                                \
    expectCounts((result), (logins), (notes), (cards), __LINE__)

static void expectFailure(const rellinor_result* result, const char* domain,
                          const char* description, int line) {
    expect(!rellinor_result_succeeded(result), "failed", line);
    expect(strcmp(rellinor_result_error_domain(result), domain) == 0, domain, line);
    expect(rellinor_result_error_code(result) == 1, "code 1", line);
    expect(strcmp(rellinor_result_error_description(result), description) == 0, description, line);
    expect(rellinor_result_login_count(result) == 0, "no login", line);
    expect(rellinor_result_note_count(result) == 0, "no note", line);
    expect(rellinor_result_card_count(result) == 0, "no card", line);
}

#define EXPECT_FAILURE(result, domain)                                                             \
    expectFailure((result), (domain),                                                              \
                  "The operation couldn\xE2\x80\x99t be completed. (" domain " error 1.)",         \
                  __LINE__)

// Whether a record has this number; of an integer that is absent the memory is left alone.
static void expectNoLogin(const rellinor_result* result, size_t index) {
    int64_t untouched = 42;
    EXPECT_ABSENT(rellinor_login_username(result, index));
    EXPECT_ABSENT(rellinor_login_password(result, index));
    EXPECT_ABSENT(rellinor_login_url(result, index));
    EXPECT_ABSENT(rellinor_login_service(result, index));
    EXPECT_ABSENT(rellinor_login_note(result, index));
    EXPECT(!rellinor_login_color(result, index, &untouched) && untouched == 42);
    EXPECT(!rellinor_login_pwd_change(result, index, &untouched) && untouched == 42);
}

static void expectNoNote(const rellinor_result* result, size_t index) {
    int64_t untouched = 42;
    EXPECT(!rellinor_note_color(result, index, &untouched) && untouched == 42);
    EXPECT_ABSENT(rellinor_note_title(result, index));
    EXPECT_ABSENT(rellinor_note_content(result, index));
}

static void expectNoCard(const rellinor_result* result, size_t index) {
    EXPECT_ABSENT(rellinor_card_number(result, index));
    EXPECT_ABSENT(rellinor_card_cust_name(result, index));
    EXPECT_ABSENT(rellinor_card_holder_name(result, index));
    EXPECT_ABSENT(rellinor_card_cvv(result, index));
    EXPECT_ABSENT(rellinor_card_pin(result, index));
    EXPECT_ABSENT(rellinor_card_note(result, index));
    EXPECT(rellinor_card_expiration_day(result, index) == 0);
    EXPECT(rellinor_card_expiration_month(result, index) == 0);
    EXPECT(rellinor_card_expiration_year(result, index) == 0);
}

// The sources

static void sourcesAreNumberedInTheirOrder(void) {
    EXPECT(sizeof(rellinor_source) == 4);
    EXPECT(RELLINOR_SOURCE_CHROME == 0);
    EXPECT(RELLINOR_SOURCE_LAST_PASS == 1);
    EXPECT(RELLINOR_SOURCE_DASHLANE == 2);
    EXPECT(RELLINOR_SOURCE_ONE_PASSWORD == 3);
    EXPECT(RELLINOR_SOURCE_TIREL == 4);
    EXPECT(RELLINOR_SOURCE_KEE_PASS == 5);
    EXPECT(RELLINOR_SOURCE_KEE_PASS_XC == 6);
    EXPECT(RELLINOR_SOURCE_FIREFOX == 7);
}

static void aSourceWithoutANameFails(void) {
    const int32_t numbers[] = {-1, 8, 256, 257, INT32_MIN, INT32_MAX};
    for (size_t i = 0; i < sizeof(numbers) / sizeof(numbers[0]); ++i) {
        rellinor_result* const result = imported(lastPassExport, (rellinor_source)numbers[i]);
        EXPECT_FAILURE(result, "Rellinor.UnavailableSourceError");
        rellinor_result_free(result);
    }
}

// The sample exports

static void importsLastPass(void) {
    rellinor_result* const result = imported(lastPassExport, RELLINOR_SOURCE_LAST_PASS);
    EXPECT_COUNTS(result, 12, 4, 0);

    EXPECT_TEXT(rellinor_login_username(result, 0), "ann.berg@example.org");
    EXPECT_TEXT(rellinor_login_password(result, 0), "Violet-Harbor-82");
    EXPECT_TEXT(rellinor_login_url(result, 0), "https://mail.example.org/login");
    EXPECT_TEXT(rellinor_login_service(result, 0), "Mail");
    EXPECT_ABSENT(rellinor_login_note(result, 0));
    EXPECT(!rellinor_login_color(result, 0, NULL));
    EXPECT(!rellinor_login_pwd_change(result, 0, NULL));

    EXPECT_TEXT(rellinor_login_password(result, 1), "m9$Qw,7\"\"zP");
    EXPECT_TEXT(rellinor_login_username(result, 3), "\xC3\xBCmlaut");
    EXPECT_TEXT(rellinor_login_username(result, 8), "");
    EXPECT_TEXT(rellinor_login_service(result, 8), "");
    EXPECT_TEXT(rellinor_login_service(result, 11), "Railway card");

    EXPECT(!rellinor_note_color(result, 0, NULL));
    EXPECT_TEXT(rellinor_note_title(result, 0), "Wi-Fi at home");
    EXPECT_TEXT(rellinor_note_content(result, 0),
                "Network: Kranich\nPassword: blue, green & \"\"grey\"\"\nRouter in the hall");
    EXPECT_TEXT(rellinor_note_title(result, 3), "A title alone");
    EXPECT_TEXT(rellinor_note_content(result, 3), "");
    rellinor_result_free(result);
}

static void importsChrome(void) {
    rellinor_result* const result = imported(chromeDatabase, RELLINOR_SOURCE_CHROME);
    EXPECT_COUNTS(result, 6, 0, 0);
    EXPECT_TEXT(rellinor_login_username(result, 0), "ann.berg@example.org");
    EXPECT_TEXT(rellinor_login_password(result, 0), "djEwwP/uAAECAwQFBgcICQoLDA0ODw==");
    EXPECT_TEXT(rellinor_login_url(result, 0), "https://mail.example.org/");
    EXPECT_ABSENT(rellinor_login_service(result, 0));
    EXPECT_ABSENT(rellinor_login_note(result, 0));
    EXPECT_TEXT(rellinor_login_username(result, 1), "ann");
    EXPECT_TEXT(rellinor_login_password(result, 1), "djExwP/uEBESExQVFhcYGRobHB0eHw==");
    EXPECT_TEXT(rellinor_login_url(result, 5), "https://forum.example/");
    rellinor_result_free(result);
}

static void importsFirefox(void) {
    rellinor_result* result = imported(currentProfile, RELLINOR_SOURCE_FIREFOX);
    EXPECT_COUNTS(result, 3, 0, 0);
    EXPECT_TEXT(rellinor_login_username(result, 0), ENCRYPTED "Vc2VyMDAwMQ==");
    EXPECT_TEXT(rellinor_login_password(result, 0), ENCRYPTED "QYXNzMDAwMQ==");
    EXPECT_TEXT(rellinor_login_url(result, 1), "https://intranet.example:8443");
    EXPECT_ABSENT(rellinor_login_service(result, 1));
    rellinor_result_free(result);

    result = imported(oldProfile, RELLINOR_SOURCE_FIREFOX);
    EXPECT_COUNTS(result, 3, 0, 0);
    EXPECT_TEXT(rellinor_login_username(result, 2), ENCRYPTED "Vc2VyMTAwMw==");
    EXPECT_TEXT(rellinor_login_url(result, 2), "ftp://files.example");
    rellinor_result_free(result);
}

// Every field

static void readsEveryFieldOfALogin(void) {
    rellinor_result* const result = imported(everyField, RELLINOR_SOURCE_TIREL);
    int64_t color = -1;
    int64_t pwdChange = -1;
    EXPECT_COUNTS(result, 2, 2, 2);

    EXPECT_TEXT(rellinor_login_username(result, 0), "ann");
    EXPECT_TEXT(rellinor_login_password(result, 0), "one\0two");
    EXPECT_TEXT(rellinor_login_url(result, 0), "https://a.example");
    EXPECT_TEXT(rellinor_login_service(result, 0), "Mail");
    EXPECT_TEXT(rellinor_login_note(result, 0), "first\0second");
    EXPECT(rellinor_login_color(result, 0, &color) && color == 3);
    EXPECT(rellinor_login_pwd_change(result, 0, &pwdChange) && pwdChange == INT64_MAX);

    EXPECT_TEXT(rellinor_login_username(result, 1), "");
    EXPECT_TEXT(rellinor_login_password(result, 1), "");
    EXPECT_TEXT(rellinor_login_url(result, 1), "");
    EXPECT_ABSENT(rellinor_login_service(result, 1));
    EXPECT_TEXT(rellinor_login_note(result, 1), "");
    EXPECT(rellinor_login_color(result, 1, &color) && color == 0);
    pwdChange = 42;
    EXPECT(!rellinor_login_pwd_change(result, 1, &pwdChange) && pwdChange == 42);
    rellinor_result_free(result);
}

static void readsEveryFieldOfANote(void) {
    rellinor_result* const result = imported(everyField, RELLINOR_SOURCE_TIREL);
    int64_t color = -1;
    EXPECT(rellinor_note_color(result, 0, &color) && color == -5);
    EXPECT_TEXT(rellinor_note_title(result, 0), "Wi-Fi at home");
    EXPECT_TEXT(rellinor_note_content(result, 0), "Kranich\nin the hall");
    EXPECT(rellinor_note_color(result, 1, &color) && color == 0);
    EXPECT_TEXT(rellinor_note_title(result, 1), "");
    EXPECT_TEXT(rellinor_note_content(result, 1), "");
    rellinor_result_free(result);
}

static void readsEveryFieldOfACard(void) {
    rellinor_result* const result = imported(everyField, RELLINOR_SOURCE_TIREL);
    EXPECT_TEXT(rellinor_card_number(result, 0), "4000 0000 0000 0000");
    EXPECT_TEXT(rellinor_card_cust_name(result, 0), "Blue card");
    EXPECT_TEXT(rellinor_card_holder_name(result, 0), "Ann Berg");
    EXPECT_TEXT(rellinor_card_cvv(result, 0), "000");
    EXPECT_TEXT(rellinor_card_pin(result, 0), "1111");
    EXPECT_TEXT(rellinor_card_note(result, 0), "for travel");
    EXPECT(rellinor_card_expiration_day(result, 0) == 31);
    EXPECT(rellinor_card_expiration_month(result, 0) == 12);
    EXPECT(rellinor_card_expiration_year(result, 0) == 2030);

    EXPECT_TEXT(rellinor_card_number(result, 1), "");
    EXPECT_TEXT(rellinor_card_note(result, 1), "");
    EXPECT(rellinor_card_expiration_day(result, 1) == -1);
    EXPECT(rellinor_card_expiration_month(result, 1) == 0);
    EXPECT(rellinor_card_expiration_year(result, 1) == INT64_MIN);
    rellinor_result_free(result);
}

static void tellsOfAnIntegerWithoutWritingIt(void) {
    rellinor_result* const result = imported(everyField, RELLINOR_SOURCE_TIREL);
    EXPECT(rellinor_login_color(result, 0, NULL));
    EXPECT(rellinor_login_pwd_change(result, 0, NULL));
    EXPECT(!rellinor_login_pwd_change(result, 1, NULL));
    EXPECT(rellinor_note_color(result, 0, NULL));
    rellinor_result_free(result);
}

static void aRecordBeyondTheLastIsAbsent(void) {
    rellinor_result* const result = imported(everyField, RELLINOR_SOURCE_TIREL);
    const size_t indexes[] = {2, 3, SIZE_MAX / 16, SIZE_MAX};
    for (size_t i = 0; i < sizeof(indexes) / sizeof(indexes[0]); ++i) {
        expectNoLogin(result, indexes[i]);
        expectNoNote(result, indexes[i]);
        expectNoCard(result, indexes[i]);
    }
    rellinor_result_free(result);
}

// Errors

static void aFailureHasAnErrorAndNoRecord(void) {
    rellinor_result* const result = imported("/missing/export.csv", RELLINOR_SOURCE_LAST_PASS);
    EXPECT_FAILURE(result, "Rellinor.TextError");
    expectNoLogin(result, 0);
    expectNoNote(result, 0);
    expectNoCard(result, 0);
    rellinor_result_free(result);
}

static void anEmptyPathIsTheCurrentFolder(void) {
    rellinor_result* const result = imported("", RELLINOR_SOURCE_LAST_PASS);
    EXPECT_FAILURE(result, "Rellinor.TextError");
    rellinor_result_free(result);
}

static void aPathNeedNotBeUTF8(void) {
    rellinor_result* const result = imported("/missing/\xFF\xFE.csv", RELLINOR_SOURCE_LAST_PASS);
    EXPECT_FAILURE(result, "Rellinor.TextError");
    rellinor_result_free(result);
}

// Ownership

static void nullIsFreed(void) {
    rellinor_importer_free(NULL);
    rellinor_result_free(NULL);
}

static void oneImporterServesManyImports(void) {
    rellinor_importer* const importer = rellinor_importer_new();
    rellinor_result* const missing =
        rellinor_importer_import(importer, "/missing", RELLINOR_SOURCE_LAST_PASS);
    rellinor_result* const first =
        rellinor_importer_import(importer, lastPassExport, RELLINOR_SOURCE_LAST_PASS);
    rellinor_result* const second =
        rellinor_importer_import(importer, lastPassExport, RELLINOR_SOURCE_LAST_PASS);
    rellinor_result* const other =
        rellinor_importer_import(importer, currentProfile, RELLINOR_SOURCE_FIREFOX);
    EXPECT_FAILURE(missing, "Rellinor.TextError");
    EXPECT_COUNTS(first, 12, 4, 0);
    EXPECT_COUNTS(second, 12, 4, 0);
    EXPECT_COUNTS(other, 3, 0, 0);

    rellinor_result_free(first);
    EXPECT_TEXT(rellinor_login_password(second, 0), "Violet-Harbor-82");
    rellinor_result_free(second);
    rellinor_result_free(other);
    rellinor_result_free(missing);
    rellinor_importer_free(importer);
}

static void aResultOutlivesItsImporter(void) {
    rellinor_importer* const importer = rellinor_importer_new();
    rellinor_result* const result =
        rellinor_importer_import(importer, everyField, RELLINOR_SOURCE_TIREL);
    rellinor_result* const failure =
        rellinor_importer_import(importer, "/missing", RELLINOR_SOURCE_TIREL);
    rellinor_importer_free(importer);
    EXPECT_TEXT(rellinor_login_password(result, 0), "one\0two");
    EXPECT_TEXT(rellinor_note_title(result, 0), "Wi-Fi at home");
    EXPECT_TEXT(rellinor_card_pin(result, 0), "1111");
    EXPECT_FAILURE(failure, "Rellinor.TextError");
    rellinor_result_free(failure);
    rellinor_result_free(result);
}

int main(void) {
    sourcesAreNumberedInTheirOrder();
    aSourceWithoutANameFails();
    importsLastPass();
    importsChrome();
    importsFirefox();
    readsEveryFieldOfALogin();
    readsEveryFieldOfANote();
    readsEveryFieldOfACard();
    tellsOfAnIntegerWithoutWritingIt();
    aRecordBeyondTheLastIsAbsent();
    aFailureHasAnErrorAndNoRecord();
    anEmptyPathIsTheCurrentFolder();
    aPathNeedNotBeUTF8();
    nullIsFreed();
    oneImporterServesManyImports();
    aResultOutlivesItsImporter();
    return failures == 0 ? 0 : 1;
}
