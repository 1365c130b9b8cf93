/// @file
/// Rellinor for hosts in C, Objective-C and Swift: the same imports, errors and records as in the
/// C++ headers, behind plain functions. Needs nothing but the standard library of C11 or C++11.
///
/// What `rellinor_importer_new` and `rellinor_importer_import` return belongs to the caller, who
/// frees it. What any other function returns belongs to the result that it was asked of and stays
/// valid until that is freed. Only pointers marked RELLINOR_NULLABLE may be null.
///
/// Nothing is thrown out of a function, and none starts a thread, takes a lock or prints.
#pragma once

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

/// Marks what the library lets be seen from outside.
#define RELLINOR_VISIBLE __attribute__((visibility("default")))

/// Marks a function whose result the caller has to free.
#define RELLINOR_OWNED __attribute__((warn_unused_result))

/// Marks a pointer that may be null. Swift sees an optional there, and none elsewhere.
#ifdef __clang__
#define RELLINOR_NULLABLE _Nullable
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wnullability-extension"
#pragma clang diagnostic ignored "-Wfixed-enum-extension"
#pragma clang assume_nonnull begin
#else
#define RELLINOR_NULLABLE
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// The products whose exports or stores can be imported. 32 bits wide, of any value.
#if defined(__cplusplus) || defined(__clang__)
enum rellinor_source : int32_t;
typedef enum rellinor_source rellinor_source;

// NOLINTNEXTLINE(performance-enum-size): as the C compilers have it
enum rellinor_source : int32_t
#else
typedef int32_t rellinor_source;

enum
#endif
{
    RELLINOR_SOURCE_CHROME = 0,
    RELLINOR_SOURCE_LAST_PASS = 1,
    RELLINOR_SOURCE_DASHLANE = 2,
    RELLINOR_SOURCE_ONE_PASSWORD = 3,
    RELLINOR_SOURCE_TIREL = 4,
    RELLINOR_SOURCE_KEE_PASS = 5,
    RELLINOR_SOURCE_KEE_PASS_XC = 6,
    RELLINOR_SOURCE_FIREFOX = 7,
};

/// Imports records. Making one reads nothing. It creates what a source needs at the first import
/// from that source and keeps it, so a host that imports several files keeps one importer.
///
/// Not safe for use from two threads at once; one for each thread is safe.
typedef struct rellinor_importer rellinor_importer;

/// The outcome of one import: its records, or one error and no record. It needs neither the
/// importer nor the file any more, and never changes: any number of threads may read it at once.
typedef struct rellinor_result rellinor_result;

/// A text: UTF-8, exactly as the source holds it. It may contain NUL, and none follows it.
typedef struct rellinor_text {
    /// The first byte; null if the text is absent, and only then.
    const char* RELLINOR_NULLABLE data;
    /// Number of bytes; 0 if the text is empty or absent.
    size_t length;
} rellinor_text;

/// Makes an importer, to be freed with `rellinor_importer_free`; null if there is no memory for it.
RELLINOR_VISIBLE RELLINOR_OWNED rellinor_importer* RELLINOR_NULLABLE rellinor_importer_new(void);

/// Frees an importer; its results stay. Null is allowed.
RELLINOR_VISIBLE void rellinor_importer_free(rellinor_importer* RELLINOR_NULLABLE importer);

/// Imports everything that the file or folder at `path` holds.
///
/// Whatever goes wrong arrives as the error of the result. A single record that cannot be built is
/// left out, and the import succeeds without it.
///
/// The work is done on the calling thread before this returns. Time and memory grow linearly with
/// the size of the input.
///
/// @param importer  keeps what the source needs for the next import from it
/// @param path      the export file; the profile folder for `RELLINOR_SOURCE_FIREFOX`. Bytes as the
///                  system takes them, ended by a zero; a relative path is taken from the current
///                  folder. Not needed after the call.
/// @param source    the product that wrote it. A number that is not named above fails with
///                  "Rellinor.UnavailableSourceError", code 1.
/// @return          the outcome, to be freed with `rellinor_result_free`; null if there is no
///                  memory even to tell of that. If there is none for the import itself, the error
///                  is "Rellinor.UnexpectedError", code 0.
RELLINOR_VISIBLE RELLINOR_OWNED rellinor_result* RELLINOR_NULLABLE
rellinor_importer_import(rellinor_importer* importer, const char* path, rellinor_source source);

/// Wipes the texts of a result and frees it. Null is allowed.
RELLINOR_VISIBLE void rellinor_result_free(rellinor_result* RELLINOR_NULLABLE result);

/// Whether the import succeeded. One that failed has no record, one that succeeded has no error.
RELLINOR_VISIBLE bool rellinor_result_succeeded(const rellinor_result* result);

/// The kind of error, for example "Rellinor.JSONError", ended by a zero; null if the import
/// succeeded. No part of an error holds any of a record's contents.
RELLINOR_VISIBLE const char* RELLINOR_NULLABLE
rellinor_result_error_domain(const rellinor_result* result);

/// The error within its domain: the ordinal of an enumeration's case, 1 for any other kind. 0 if
/// the import succeeded.
RELLINOR_VISIBLE int64_t rellinor_result_error_code(const rellinor_result* result);

/// A sentence for people, made of the domain and the code alone, in UTF-8, ended by a zero; null if
/// the import succeeded.
RELLINOR_VISIBLE const char* RELLINOR_NULLABLE
rellinor_result_error_description(const rellinor_result* result);

/// How many logins were found. Like notes and cards, they are numbered from 0 in the order of the
/// file; a record whose number is not below their count is made of absent texts and integers, and
/// of zeros where an integer cannot be absent.
RELLINOR_VISIBLE size_t rellinor_result_login_count(const rellinor_result* result);

/// How many secure notes were found.
RELLINOR_VISIBLE size_t rellinor_result_note_count(const rellinor_result* result);

/// How many payment cards were found.
RELLINOR_VISIBLE size_t rellinor_result_card_count(const rellinor_result* result);

// The fields of a login. A function that returns bool tells whether the integer is there, and
// writes it to where the last argument points; that stays as it is if the integer is absent, and
// may be null.

/// Login name; empty where the source has none.
RELLINOR_VISIBLE rellinor_text rellinor_login_username(const rellinor_result* result, size_t index);

/// Password; empty where the source has none.
RELLINOR_VISIBLE rellinor_text rellinor_login_password(const rellinor_result* result, size_t index);

/// Address of the site or service; empty where the source has none.
RELLINOR_VISIBLE rellinor_text rellinor_login_url(const rellinor_result* result, size_t index);

/// Name or title of the entry; may be absent.
RELLINOR_VISIBLE rellinor_text rellinor_login_service(const rellinor_result* result, size_t index);

/// Colour code of the entry, in the source's own palette; may be absent.
RELLINOR_VISIBLE bool rellinor_login_color(const rellinor_result* result, size_t index,
                                           int64_t* RELLINOR_NULLABLE color);

/// Free text attached to the login; may be absent.
RELLINOR_VISIBLE rellinor_text rellinor_login_note(const rellinor_result* result, size_t index);

/// Time of the last password change, in the source's own unit; may be absent.
RELLINOR_VISIBLE bool rellinor_login_pwd_change(const rellinor_result* result, size_t index,
                                                int64_t* RELLINOR_NULLABLE pwd_change);

// The fields of a secure note.

/// Colour code of the entry, in the source's own palette; may be absent.
RELLINOR_VISIBLE bool rellinor_note_color(const rellinor_result* result, size_t index,
                                          int64_t* RELLINOR_NULLABLE color);

/// Title of the note; empty where the source has none.
RELLINOR_VISIBLE rellinor_text rellinor_note_title(const rellinor_result* result, size_t index);

/// Body of the note; empty where the source has none.
RELLINOR_VISIBLE rellinor_text rellinor_note_content(const rellinor_result* result, size_t index);

// The fields of a payment card.

/// Card number, unchecked.
RELLINOR_VISIBLE rellinor_text rellinor_card_number(const rellinor_result* result, size_t index);

/// Name given to the card entry.
RELLINOR_VISIBLE rellinor_text rellinor_card_cust_name(const rellinor_result* result, size_t index);

/// Card holder's name.
RELLINOR_VISIBLE rellinor_text rellinor_card_holder_name(const rellinor_result* result,
                                                         size_t index);

/// Card security code.
RELLINOR_VISIBLE rellinor_text rellinor_card_cvv(const rellinor_result* result, size_t index);

/// PIN.
RELLINOR_VISIBLE rellinor_text rellinor_card_pin(const rellinor_result* result, size_t index);

/// Free text attached to the card.
RELLINOR_VISIBLE rellinor_text rellinor_card_note(const rellinor_result* result, size_t index);

/// Day of expiry, as the source holds it, unchecked.
RELLINOR_VISIBLE int64_t rellinor_card_expiration_day(const rellinor_result* result, size_t index);

/// Month of expiry, as the source holds it, unchecked.
RELLINOR_VISIBLE int64_t rellinor_card_expiration_month(const rellinor_result* result,
                                                        size_t index);

/// Year of expiry, as the source holds it, unchecked.
RELLINOR_VISIBLE int64_t rellinor_card_expiration_year(const rellinor_result* result, size_t index);

#ifdef __cplusplus
}
#endif

#ifdef __clang__
#pragma clang assume_nonnull end
#pragma clang diagnostic pop
#endif
