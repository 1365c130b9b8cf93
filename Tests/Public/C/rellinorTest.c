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

// The second door

static void expectDone(const rellinor_result* result, rellinor_failure_reason reason, int line) {
    expect(rellinor_result_succeeded(result) == (reason == RELLINOR_FAILURE_NONE), "outcome", line);
    expect(rellinor_report_failure(result).reason == reason, "reason", line);
    expect(rellinor_report_is_complete(result), "complete", line);
}

#define EXPECT_DONE(result, reason) expectDone((result), (reason), __LINE__)

static rellinor_read_options asSource(rellinor_source source) {
    const rellinor_read_options options = {
        .size = sizeof options, .as = RELLINOR_READ_AS_SOURCE, .source = source};
    return options;
}

static void tellsTheVersion(void) {
    EXPECT(strcmp(rellinor_version(), RELLINOR_VERSION) == 0);
}

static void namesEveryNumber(void) {
    EXPECT_TEXT(rellinor_source_name(RELLINOR_SOURCE_KEE_PASS_XC), "keePassXC");
    EXPECT_TEXT(rellinor_failure_reason_identifier(RELLINOR_FAILURE_OTHER), "other");
    EXPECT_TEXT(rellinor_failure_reason_description(RELLINOR_FAILURE_MISSING),
                "There is no such file.");
    EXPECT_TEXT(rellinor_left_out_reason_identifier(RELLINOR_LEFT_OUT_BROWSER_ACCOUNT),
                "browserAccount");
    EXPECT_TEXT(rellinor_left_out_reason_description(RELLINOR_LEFT_OUT_TRASHED),
                "It is in the trash.");
    EXPECT_TEXT(rellinor_finding_kind_identifier(RELLINOR_FINDING_HEADER_TAKEN_FOR_RECORD),
                "headerTakenForRecord");
    EXPECT_TEXT(rellinor_finding_kind_description(RELLINOR_FINDING_NARROWED_NUMBER),
                "A number lost digits.");
    EXPECT_TEXT(rellinor_extra_kind_identifier(RELLINOR_EXTRA_OTHER), "other");
    EXPECT_TEXT(rellinor_place_unit_identifier(RELLINOR_PLACE_RECORD), "record");

    // A number that C++ gets and this header lacks is found here.
    EXPECT_ABSENT(rellinor_source_name(RELLINOR_SOURCE_FIREFOX + 1));
    EXPECT_ABSENT(rellinor_failure_reason_identifier(RELLINOR_FAILURE_OTHER + 1));
    EXPECT_ABSENT(rellinor_left_out_reason_description(RELLINOR_LEFT_OUT_BROWSER_ACCOUNT + 1));
    EXPECT_ABSENT(rellinor_finding_kind_identifier(RELLINOR_FINDING_HEADER_TAKEN_FOR_RECORD + 1));
    EXPECT_ABSENT(rellinor_extra_kind_identifier(RELLINOR_EXTRA_OTHER + 1));
    EXPECT_ABSENT(rellinor_place_unit_identifier(RELLINOR_PLACE_RECORD + 1));
    EXPECT_ABSENT(rellinor_layout_identifier(RELLINOR_LAYOUT_BUTTERCUP_CSV + 1));
    EXPECT_ABSENT(rellinor_layout_description(RELLINOR_LAYOUT_NONE));
    EXPECT_ABSENT(rellinor_layout_description(65536 + RELLINOR_LAYOUT_TIREL_JSON));
    EXPECT_ABSENT(rellinor_failure_reason_identifier(INT32_MIN));
}

static void listsTheLayouts(void) {
    EXPECT(rellinor_layout_count() == RELLINOR_LAYOUT_BUTTERCUP_CSV);
    for (size_t i = 0; i < rellinor_layout_count(); ++i) {
        const rellinor_layout layout = rellinor_layout_at(i);
        const rellinor_text identifier = rellinor_layout_identifier(layout);
        char name[64] = "";
        EXPECT(identifier.length > 0 && identifier.length < sizeof name);
        memcpy(name, identifier.data, identifier.length);
        EXPECT(rellinor_layout_with_identifier(name) == layout);
        EXPECT(rellinor_layout_description(layout).length > 0);
    }
    EXPECT(rellinor_layout_at(rellinor_layout_count()) == RELLINOR_LAYOUT_NONE);
    EXPECT(rellinor_layout_with_identifier("lastpass") == RELLINOR_LAYOUT_NONE);
    EXPECT_TEXT(rellinor_layout_description(RELLINOR_LAYOUT_LAST_PASS_CSV), "LastPass CSV export");
    EXPECT(rellinor_layout_is_read(RELLINOR_LAYOUT_TIREL_JSON));
    EXPECT(!rellinor_layout_is_read(RELLINOR_LAYOUT_NONE));
}

static void detectsNothingInNothing(void) {
    rellinor_source source = RELLINOR_SOURCE_TIREL;
    rellinor_detection* const nothing = rellinor_detect_memory("", 0, "");
    EXPECT(rellinor_detection_layout(nothing) == RELLINOR_LAYOUT_NONE);
    EXPECT(rellinor_detection_confidence(nothing) == RELLINOR_CONFIDENCE_NONE);
    EXPECT(!rellinor_detection_source(nothing, &source) && source == RELLINOR_SOURCE_TIREL);
    EXPECT(!rellinor_detection_source(nothing, NULL));
    EXPECT_TEXT(rellinor_detection_product(nothing), "");
    EXPECT(rellinor_detection_evidence(nothing).data != NULL);
    EXPECT(rellinor_detection_advice(nothing).data != NULL);
    EXPECT_TEXT(rellinor_failure_reason_identifier(RELLINOR_FAILURE_NONE), "none");
    EXPECT(rellinor_failure_reason_identifier(rellinor_detection_obstacle(nothing)).length > 0);
    rellinor_detection_free(nothing);

    rellinor_detection* const missing = rellinor_detect("/missing/export.csv");
    EXPECT(rellinor_detection_layout(missing) == RELLINOR_LAYOUT_NONE);
    rellinor_detection_free(missing);
    rellinor_detection_free(NULL);
}

static void reportsWhatWasLeftOut(void) {
    static const char text[] = "url,username,password,extra,name,grouping,fav\n"
                               "https://a.example,ann,x,,Mail,Work,0\n"
                               ",,,,,,\n"
                               ",,,,,,\n";
    const rellinor_read_options options = asSource(RELLINOR_SOURCE_LAST_PASS);
    rellinor_result* const result =
        rellinor_export_read_memory(text, sizeof text - 1, "export.csv", &options);
    EXPECT_COUNTS(result, 1, 0, 0);
    EXPECT_DONE(result, RELLINOR_FAILURE_NONE);
    EXPECT_TEXT(rellinor_login_service(result, 0), "Mail");
    EXPECT(rellinor_login_extra_count(result, 0) == 0);
    EXPECT_ABSENT(rellinor_login_extra(result, 0, 0).value);
    EXPECT(rellinor_note_extra_count(result, 0) == 0);
    EXPECT(rellinor_note_extra(result, 0, 0).kind == RELLINOR_EXTRA_NONE);
    EXPECT(rellinor_card_extra_count(result, SIZE_MAX) == 0);
    EXPECT_ABSENT(rellinor_card_extra(result, 0, 0).label);

    EXPECT(rellinor_report_layout(result) == RELLINOR_LAYOUT_NONE);
    EXPECT(rellinor_report_place_unit(result) == RELLINOR_PLACE_LINE);
    EXPECT(rellinor_report_record_count(result) == 3);
    EXPECT(rellinor_report_left_out_count(result) == 1);
    const rellinor_left_out leftOut = rellinor_report_left_out(result, 0);
    EXPECT(leftOut.reason == RELLINOR_LEFT_OUT_EMPTY);
    EXPECT_TEXT(leftOut.field, "");
    EXPECT(leftOut.places.count == 2 && leftOut.places.first_count == 2);
    EXPECT(leftOut.places.first[0] == 3 && leftOut.places.first[1] == 4);
    EXPECT_ABSENT(rellinor_report_left_out(result, 1).field);
    EXPECT(rellinor_report_finding_count(result) == 0);
    EXPECT_ABSENT(rellinor_report_finding(result, 0).field);
    EXPECT(rellinor_report_unread_count(result) == 1);
    EXPECT_TEXT(rellinor_report_unread(result, 0).part, "grouping");
    EXPECT(rellinor_report_unread(result, 0).count == 1);
    EXPECT_ABSENT(rellinor_report_unread(result, 1).part);
    rellinor_result_free(result);
}

static void anImportHasAnEmptyReport(void) {
    rellinor_result* const result = imported(lastPassExport, RELLINOR_SOURCE_LAST_PASS);
    EXPECT_DONE(result, RELLINOR_FAILURE_NONE);
    EXPECT(rellinor_report_record_count(result) == 0);
    rellinor_result_free(result);
}

static void reportsWhereAFileFails(void) {
    static const char text[] = "{\"logins\":\n[],\nx}";
    const rellinor_read_options options = asSource(RELLINOR_SOURCE_TIREL);
    rellinor_result* const result =
        rellinor_export_read_memory(text, sizeof text - 1, "", &options);
    EXPECT_FAILURE(result, "Rellinor.TextError");
    EXPECT_DONE(result, RELLINOR_FAILURE_NOT_JSON);
    EXPECT(rellinor_report_failure(result).place == 3);
    EXPECT_TEXT(rellinor_report_failure(result).field, "");
    rellinor_result_free(result);
}

static void readsWithDefaultsWithoutOptions(void) {
    // What the options do not reach is 0, and so is what lies beyond their size.
    const rellinor_read_options small = {.size = sizeof(size_t), .as = 99, .most_records = 1};
    const rellinor_read_options large = {.size = SIZE_MAX};
    EXPECT(large.size > sizeof small); // of a later version
    rellinor_result* const withNull = rellinor_export_read_memory(NULL, 0, "", NULL);
    rellinor_result* const withSmall = rellinor_export_read_memory(NULL, 0, "", &small);
    rellinor_result* const withLarge = rellinor_export_read_memory(NULL, 0, "", &large);
    const rellinor_failure_reason reason = rellinor_report_failure(withNull).reason;
    EXPECT_DONE(withNull, reason);
    EXPECT_DONE(withSmall, reason);
    EXPECT_DONE(withLarge, reason);
    EXPECT(strcmp(rellinor_result_error_domain(withNull), "Rellinor.ReadError") == 0);
    EXPECT(rellinor_result_error_code(withNull) == reason);
    rellinor_result_free(withNull);
    rellinor_result_free(withSmall);
    rellinor_result_free(withLarge);
}

static void readsAsNothingThatHasNoNumber(void) {
    const int32_t numbers[] = {-1, 8, 256, 257, INT32_MIN, INT32_MAX};
    for (size_t i = 0; i < sizeof(numbers) / sizeof(numbers[0]); ++i) {
        rellinor_read_options options = asSource((rellinor_source)numbers[i]);
        rellinor_result* const asOther = rellinor_export_read(lastPassExport, &options);
        EXPECT_FAILURE(asOther, "Rellinor.UnavailableSourceError");
        EXPECT_DONE(asOther, RELLINOR_FAILURE_OTHER);
        rellinor_result_free(asOther);

        options.as = (rellinor_read_as)numbers[i];
        rellinor_result* const otherwise = rellinor_export_read(lastPassExport, &options);
        EXPECT_FAILURE(otherwise, "Rellinor.UnavailableSourceError");
        rellinor_result_free(otherwise);
    }
    const rellinor_read_options options = {.size = sizeof options,
                                           .as = RELLINOR_READ_AS_LAYOUT,
                                           .layout = 65536 + RELLINOR_LAYOUT_TIREL_JSON};
    rellinor_result* const result = rellinor_export_read(everyField, &options);
    EXPECT_DONE(result, RELLINOR_FAILURE_NOT_READ);
    EXPECT(rellinor_report_layout(result) == RELLINOR_LAYOUT_NONE);
    rellinor_result_free(result);
}

static void readsNoMoreThanTheLimits(void) {
    rellinor_read_options options = asSource(RELLINOR_SOURCE_LAST_PASS);
    options.most_records = 15;
    rellinor_result* const records = rellinor_export_read(lastPassExport, &options);
    EXPECT_DONE(records, RELLINOR_FAILURE_TOO_LARGE);
    rellinor_result_free(records);
    options.most_records = 0;
    options.largest_file = 100;
    rellinor_result* const bytes = rellinor_export_read(lastPassExport, &options);
    EXPECT_DONE(bytes, RELLINOR_FAILURE_TOO_LARGE);
    rellinor_result_free(bytes);
}

static bool countAndStop(uint64_t done, uint64_t total, void* context) {
    int* const calls = context;
    EXPECT(done <= total);
    return ++*calls < 3;
}

static void tellsProgressAndIsCancelled(void) {
    int calls = 0;
    rellinor_read_options options = asSource(RELLINOR_SOURCE_LAST_PASS);
    options.on_progress = countAndStop;
    options.progress_context = &calls;
    rellinor_result* const result = rellinor_export_read(lastPassExport, &options);
    EXPECT_DONE(result, RELLINOR_FAILURE_CANCELLED);
    EXPECT(calls == 3);
    rellinor_result_free(result);
}

static void tellsSourceFindingsAndExtras(void) {
    static const char text[] = "url,username,password,extra,name,grouping,fav\n"
                               "https://a.example,ann,a&amp;b,,Mail,Work,0\n";
    rellinor_source source = RELLINOR_SOURCE_TIREL;
    rellinor_detection* const detection =
        rellinor_detect_memory(text, sizeof text - 1, "export.csv");
    EXPECT(rellinor_detection_source(detection, NULL));
    EXPECT(rellinor_detection_source(detection, &source) && source == RELLINOR_SOURCE_LAST_PASS);
    rellinor_detection_free(detection);

    rellinor_result* const result =
        rellinor_export_read_memory(text, sizeof text - 1, "export.csv", NULL);
    EXPECT(rellinor_report_layout(result) == RELLINOR_LAYOUT_LAST_PASS_CSV);
    EXPECT(rellinor_login_extra_count(result, 0) == 1);
    const rellinor_extra extra = rellinor_login_extra(result, 0, 0);
    EXPECT(extra.kind == RELLINOR_EXTRA_FOLDER);
    EXPECT_TEXT(extra.label, "grouping");
    EXPECT_TEXT(extra.value, "Work");
    EXPECT(rellinor_report_finding_count(result) == 1);
    const rellinor_finding finding = rellinor_report_finding(result, 0);
    EXPECT(finding.kind == RELLINOR_FINDING_HTML_ENTITY && finding.places.count == 1);
    EXPECT_TEXT(finding.field, "password");
    rellinor_result_free(result);
}

// Writing a Tirel export

#define TEXT(literal) {(literal), sizeof(literal) - 1}

static void writesEveryMemberOfATirelExportInItsOrder(void) {
    const rellinor_tirel_login logins[] = {{.color = 4,
                                            .cust_name = TEXT("Mail"),
                                            .login_name = TEXT("ann"),
                                            .note = TEXT("one\0two"),
                                            .pwd = TEXT("x\"y"),
                                            .has_pwd_change = true,
                                            .pwd_change = 5,
                                            .url = TEXT("https://a.example")}};
    const rellinor_tirel_note notes[] = {{6, TEXT("b"), TEXT("text")}, {-7, TEXT("a"), TEXT("")}};
    const rellinor_tirel_card cards[] = {{.card_number = TEXT("0001"),
                                          .cust_name = TEXT("Travel"),
                                          .holder_name = TEXT("Ann"),
                                          .cvv = TEXT("002"),
                                          .pin = TEXT("0003"),
                                          .note = TEXT("blue"),
                                          .expiration_day = 31,
                                          .expiration_month = 12,
                                          .expiration_year = INT64_MIN}};
    const rellinor_tirel_data data = {logins, 1, notes, 2, cards, 1};
    rellinor_tirel_export* const written = rellinor_tirel_export_new(&data);
    const rellinor_text text = rellinor_tirel_export_text(written);
    EXPECT_TEXT(text, "{\"logins\":[{\"color\":4,\"custName\":\"Mail\",\"loginName\":\"ann\","
                      "\"note\":\"one\\u0000two\",\"pwd\":\"x\\\"y\",\"pwdChange\":5,"
                      "\"url\":\"https://a.example\"}],"
                      "\"notes\":[{\"color\":6,\"label\":\"b\",\"text\":\"text\"},"
                      "{\"color\":-7,\"label\":\"a\",\"text\":\"\"}],"
                      "\"cards\":[{\"cardNumber\":\"0001\",\"custName\":\"Travel\","
                      "\"holderName\":\"Ann\",\"cvv\":\"002\",\"pin\":\"0003\",\"note\":\"blue\","
                      "\"expirationDate\":{\"day\":31,\"month\":12,"
                      "\"year\":-9223372036854775808}}]}");

    const rellinor_read_options options = asSource(RELLINOR_SOURCE_TIREL);
    rellinor_result* const result =
        rellinor_export_read_memory(text.data, text.length, "export.json", &options);
    int64_t integer = 0;
    EXPECT_COUNTS(result, 1, 2, 1);
    EXPECT_TEXT(rellinor_login_service(result, 0), "Mail");
    EXPECT_TEXT(rellinor_login_note(result, 0), "one\0two");
    EXPECT_TEXT(rellinor_login_password(result, 0), "x\"y");
    EXPECT(rellinor_login_pwd_change(result, 0, &integer) && integer == 5);
    EXPECT(rellinor_note_color(result, 1, &integer) && integer == -7);
    EXPECT_TEXT(rellinor_card_note(result, 0), "blue");
    EXPECT(rellinor_card_expiration_year(result, 0) == INT64_MIN);
    rellinor_result_free(result);
    rellinor_tirel_export_free(written);
}

static void expectWritten(const rellinor_tirel_data* data, const char* expected, int line) {
    rellinor_tirel_export* const written = rellinor_tirel_export_new(data);
    const rellinor_text text = rellinor_tirel_export_text(written);
    expect(isText(text, expected, strlen(expected)), expected, line);
    rellinor_tirel_export_free(written);
}

#define EXPECT_WRITTEN(data, expected) expectWritten(&(data), (expected), __LINE__)

static void writesATirelExportWithoutEntries(void) {
    const rellinor_tirel_data nothing = {.login_count = 0};
    EXPECT_WRITTEN(nothing, "{\"logins\":[],\"notes\":[],\"cards\":[]}");
    rellinor_tirel_export_free(NULL);
}

static void writesAbsentTextsAsEmptyButForTheNameOfALogin(void) {
    const rellinor_tirel_login logins[] = {{.color = 0, .pwd_change = 5},
                                           {.cust_name = TEXT(""), .has_pwd_change = true}};
    const rellinor_tirel_note note = {.color = 0};
    const rellinor_tirel_card card = {.expiration_day = 0};
    const rellinor_tirel_data data = {logins, 2, &note, 1, &card, 1};
    EXPECT_WRITTEN(
        data,
        "{\"logins\":[{\"color\":0,\"loginName\":\"\",\"note\":\"\",\"pwd\":\"\",\"url\":\"\"},"
        "{\"color\":0,\"custName\":\"\",\"loginName\":\"\",\"note\":\"\",\"pwd\":\"\","
        "\"pwdChange\":0,\"url\":\"\"}],\"notes\":[{\"color\":0,\"label\":\"\",\"text\":\"\"}],"
        "\"cards\":[{\"cardNumber\":\"\",\"custName\":\"\",\"holderName\":\"\",\"cvv\":\"\","
        "\"pin\":\"\",\"note\":\"\",\"expirationDate\":{\"day\":0,\"month\":0,\"year\":0}}]}");
}

static void writesWhatIsNotUTF8Repaired(void) {
    const rellinor_tirel_note note = {0, TEXT("\xFF\xE2\x82z"), TEXT("\xE2\x80\xAE")};
    const rellinor_tirel_data data = {.notes = &note, .note_count = 1};
    EXPECT_WRITTEN(data, "{\"logins\":[],\"notes\":[{\"color\":0,"
                         "\"label\":\"\xEF\xBF\xBD\xEF\xBF\xBDz\",\"text\":\"\\u202e\"}],"
                         "\"cards\":[]}");
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
    tellsTheVersion();
    namesEveryNumber();
    listsTheLayouts();
    detectsNothingInNothing();
    reportsWhatWasLeftOut();
    anImportHasAnEmptyReport();
    reportsWhereAFileFails();
    readsWithDefaultsWithoutOptions();
    tellsSourceFindingsAndExtras();
    readsAsNothingThatHasNoNumber();
    readsNoMoreThanTheLimits();
    tellsProgressAndIsCancelled();
    writesEveryMemberOfATirelExportInItsOrder();
    writesATirelExportWithoutEntries();
    writesAbsentTextsAsEmptyButForTheNameOfALogin();
    writesWhatIsNotUTF8Repaired();
    return failures == 0 ? 0 : 1;
}
