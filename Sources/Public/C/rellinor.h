/// @file
/// Rellinor for hosts in C, Objective-C and Swift: the same imports, errors and records as in the
/// C++ headers, behind plain functions. Needs nothing but the standard library of C11 or C++11.
///
/// There are two doors. `rellinor_importer_import` imports what one of eight products wrote.
/// `rellinor_detect` says what a file is, and `rellinor_export_read` reads it faithfully and
/// reports what became of it.
///
/// What a function marked RELLINOR_OWNED returns belongs to the caller, who frees it. What any
/// other function returns belongs to the result that it was asked of and stays valid until that is
/// freed; names and sentences stay valid for ever. Only pointers marked RELLINOR_NULLABLE may be
/// null.
///
/// Nothing is thrown out of a function, and none starts a thread, takes a lock or prints.
#pragma once

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#include <Rellinor/rellinorLayouts.h>

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

// NOLINTBEGIN(cppcoreguidelines-macro-usage,bugprone-macro-parentheses): C has nothing else

/// Begins an enumeration. Each is 32 bits wide, of any value, and a number keeps its meaning for
/// ever.
#if defined(__cplusplus) || defined(__clang__)
#define RELLINOR_ENUM(name)                                                                        \
    enum name : int32_t;                                                                           \
    typedef enum name name;                                                                        \
    enum name : int32_t /* NOLINT(performance-enum-size): as the C compilers have it */
#else
#define RELLINOR_ENUM(name)                                                                        \
    typedef int32_t name;                                                                          \
    enum
#endif

/// One case of `rellinor_layout`.
#define RELLINOR_LAYOUT_CASE(number, name, nameInC, identifier, description)                       \
    RELLINOR_LAYOUT_##nameInC = (number),

/// The version of this header.
#define RELLINOR_VERSION "0.1.0"

// NOLINTEND(cppcoreguidelines-macro-usage,bugprone-macro-parentheses)

#ifdef __cplusplus
extern "C" {
#endif

/// The version of the library, such as "0.1.0", ended by a zero.
RELLINOR_VISIBLE const char* rellinor_version(void);

/// The products whose exports or stores can be imported.
RELLINOR_ENUM(rellinor_source) {
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

/// The short name of a source for machines, such as "lastPass"; absent for any other number.
RELLINOR_VISIBLE rellinor_text rellinor_source_name(rellinor_source source);

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

// The second door. What the C++ headers Layout.hpp, Detection.hpp, ExportReader.hpp, Extras.hpp and
// ImportReport.hpp say of these names holds here too.

/// The files and stores that products write today, as RELLINOR_LAYOUTS lists them; none is 0.
RELLINOR_ENUM(rellinor_layout) {
    RELLINOR_LAYOUT_NONE = 0, ///< no layout

    RELLINOR_LAYOUTS(RELLINOR_LAYOUT_CASE, RELLINOR_LAYOUT_CASE)
};

/// How many layouts there are.
RELLINOR_VISIBLE size_t rellinor_layout_count(void);

/// A layout by its place in the order of their numbers, from 0 on; none beyond the last.
RELLINOR_VISIBLE rellinor_layout rellinor_layout_at(size_t index);

/// The layout of a short name, which is ended by a zero; none if there is none.
RELLINOR_VISIBLE rellinor_layout rellinor_layout_with_identifier(const char* identifier);

/// The short name of a layout for machines, such as "lastpass-csv"; absent for any other number.
RELLINOR_VISIBLE rellinor_text rellinor_layout_identifier(rellinor_layout layout);

/// What a layout is in a few words for people; absent for any other number.
RELLINOR_VISIBLE rellinor_text rellinor_layout_description(rellinor_layout layout);

/// Whether `rellinor_export_read` reads the layout.
RELLINOR_VISIBLE bool rellinor_layout_is_read(rellinor_layout layout);

/// What keeps a file from being read.
RELLINOR_ENUM(rellinor_failure_reason) {
    RELLINOR_FAILURE_NONE = 0,
    RELLINOR_FAILURE_MISSING = 1,
    RELLINOR_FAILURE_NO_PERMISSION = 2,
    RELLINOR_FAILURE_NOT_A_FILE = 3, ///< a device, pipe or socket, or a folder in place of a file
    RELLINOR_FAILURE_UNREADABLE = 4, ///< the system reports an error while reading
    RELLINOR_FAILURE_NOT_UTF8 = 5,
    RELLINOR_FAILURE_UTF16 = 6,
    RELLINOR_FAILURE_NO_ROWS = 7, ///< nothing but blank lines, or no byte at all
    /// the header or the number of columns fits no layout that was asked for
    RELLINOR_FAILURE_WRONG_COLUMNS = 8,
    RELLINOR_FAILURE_NOT_JSON = 9,   ///< at the line that `rellinor_failure` tells
    RELLINOR_FAILURE_CUT_SHORT = 10, ///< JSON that ends before it is complete
    RELLINOR_FAILURE_NESTED_TOO_DEEP = 11,
    /// JSON of another structure, or a database without the table
    RELLINOR_FAILURE_WRONG_SHAPE = 12,
    RELLINOR_FAILURE_LOCKED = 13,    ///< another program keeps the database to itself
    RELLINOR_FAILURE_ENCRYPTED = 14, ///< an encrypted export, or the database of a password manager
    /// reading would take far more than an honest file of the size
    RELLINOR_FAILURE_REFUSED_FOR_ITS_COST = 15,
    RELLINOR_FAILURE_TOO_LARGE = 16, ///< beyond a limit of `rellinor_read_options`
    RELLINOR_FAILURE_CANCELLED = 17,
    RELLINOR_FAILURE_OUT_OF_MEMORY = 18,
    RELLINOR_FAILURE_UNKNOWN = 19,      ///< nothing that this library knows
    RELLINOR_FAILURE_NOT_READ = 20,     ///< known, and not read by this version
    RELLINOR_FAILURE_NOT_BUILT_IN = 21, ///< known, and left out when the library was built
    RELLINOR_FAILURE_DAMAGED = 22,      ///< a database or archive that contradicts itself
    RELLINOR_FAILURE_NO_STORE = 23,     ///< a folder without anything that can be read
    RELLINOR_FAILURE_OTHER = 24,
};

/// The short name of a reason for machines, such as "notUTF8"; absent for any other number.
RELLINOR_VISIBLE rellinor_text rellinor_failure_reason_identifier(rellinor_failure_reason reason);

/// One plain English sentence for a reason; absent for any other number.
RELLINOR_VISIBLE rellinor_text rellinor_failure_reason_description(rellinor_failure_reason reason);

// Detection.

/// How sure a detection is.
RELLINOR_ENUM(rellinor_confidence) {
    RELLINOR_CONFIDENCE_NONE = 0,     ///< nothing is recognised
    RELLINOR_CONFIDENCE_POSSIBLE = 1, ///< nothing speaks against it
    RELLINOR_CONFIDENCE_LIKELY = 2,   ///< a shape that nothing else is known to have
    RELLINOR_CONFIDENCE_CERTAIN = 3,  ///< names that nothing else is known to use
};

/// What a file is taken for. It needs the file no more, and never changes.
typedef struct rellinor_detection rellinor_detection;

/// Says what the file or folder at a path is, by a bounded part of it. Changes nothing.
///
/// @param path  as `rellinor_importer_import` takes it
/// @return      to be freed with `rellinor_detection_free`; null if there is no memory
RELLINOR_VISIBLE RELLINOR_OWNED rellinor_detection* RELLINOR_NULLABLE
rellinor_detect(const char* path);

/// Says what the contents of a single file are.
///
/// @param bytes   of the file, not needed after the call; may be null if there are none
/// @param length  how many bytes there are
/// @param name    of the file, ended by a zero; may be empty
RELLINOR_VISIBLE RELLINOR_OWNED rellinor_detection* RELLINOR_NULLABLE
rellinor_detect_memory(const void* RELLINOR_NULLABLE bytes, size_t length, const char* name);

/// Frees a detection. Null is allowed.
RELLINOR_VISIBLE void rellinor_detection_free(rellinor_detection* RELLINOR_NULLABLE detection);

/// The layout; none if nothing is recognised.
RELLINOR_VISIBLE rellinor_layout rellinor_detection_layout(const rellinor_detection* detection);

/// How sure that is.
RELLINOR_VISIBLE rellinor_confidence
rellinor_detection_confidence(const rellinor_detection* detection);

/// The source that `rellinor_importer_import` imports the file from. Returns whether there is one,
/// and writes it to where the last argument points; that stays as it is if there is none, and may
/// be null.
RELLINOR_VISIBLE bool rellinor_detection_source(const rellinor_detection* detection,
                                                rellinor_source* RELLINOR_NULLABLE source);

/// What keeps the file from being read.
RELLINOR_VISIBLE rellinor_failure_reason
rellinor_detection_obstacle(const rellinor_detection* detection);

// Texts of the program, empty if there is nothing to tell: who wrote the file, what tells, and what
// to do in the product if there is an obstacle.

/// Who wrote the file.
RELLINOR_VISIBLE rellinor_text rellinor_detection_product(const rellinor_detection* detection);
/// What tells: the names of columns, members or tables.
RELLINOR_VISIBLE rellinor_text rellinor_detection_evidence(const rellinor_detection* detection);
/// What to do in the product if there is an obstacle.
RELLINOR_VISIBLE rellinor_text rellinor_detection_advice(const rellinor_detection* detection);

// Reading.

/// How a file is read.
RELLINOR_ENUM(rellinor_read_as) {
    RELLINOR_READ_AS_DETECTED = 0, ///< what `rellinor_detect` takes it for
    RELLINOR_READ_AS_LAYOUT = 1,
    RELLINOR_READ_AS_SOURCE = 2, ///< gives what `rellinor_importer_import` gives
};

/// Told how far a read has come: so much of the total, in any unit; the total is 0 if it is not
/// known. Called on the calling thread: at most once for each hundredth of the file, or once in 50
/// ms if that is not known. False cancels.
typedef bool (*rellinor_progress_handler)(uint64_t done, uint64_t total,
                                          void* RELLINOR_NULLABLE context);

/// What is asked of a read. A later version may add members at the end; a member beyond `size`, or
/// 0, stands for its default.
typedef struct rellinor_read_options {
    size_t size;            ///< `sizeof(rellinor_read_options)`
    rellinor_read_as as;    ///< how the file is read
    rellinor_layout layout; ///< counts with RELLINOR_READ_AS_LAYOUT
    rellinor_source source; ///< counts with RELLINOR_READ_AS_SOURCE
    rellinor_progress_handler RELLINOR_NULLABLE on_progress; ///< may be null
    void* RELLINOR_NULLABLE progress_context;                ///< for `on_progress`
    uint64_t largest_file;      ///< how many bytes a file may have; 0 for any number
    uint64_t largest_expansion; ///< the same for the members of an archive; 0 for 1 GiB
    uint64_t most_records;      ///< how many raw records a file may have; 0 for any number
} rellinor_read_options;

/// Reads the file or folder at a path: every text that is not empty arrives in a field or an extra,
/// or its loss is told in the report. Nothing stays behind.
///
/// Whatever goes wrong arrives as the error of the result, and as the failure of its report. A
/// number that is no source fails with "Rellinor.UnavailableSourceError", code 1, and so does a
/// number that is no way of reading.
///
/// @param path     as `rellinor_importer_import` takes it
/// @param options  null for the defaults
/// @return         as `rellinor_importer_import` returns it
RELLINOR_VISIBLE RELLINOR_OWNED rellinor_result* RELLINOR_NULLABLE
rellinor_export_read(const char* path, const rellinor_read_options* RELLINOR_NULLABLE options);

/// Reads the contents of a single file. No database and no folder can be read so.
///
/// @param bytes   of the file, not needed after the call; may be null if there are none
/// @param length  how many bytes there are
/// @param name    of the file, ended by a zero; may be empty
/// @param options  null for the defaults
RELLINOR_VISIBLE RELLINOR_OWNED rellinor_result* RELLINOR_NULLABLE
rellinor_export_read_memory(const void* RELLINOR_NULLABLE bytes, size_t length, const char* name,
                            const rellinor_read_options* RELLINOR_NULLABLE options);

// What a record holds besides its fields. There is none for a source.

/// What an extra is; none is 0.
RELLINOR_ENUM(rellinor_extra_kind) {
    RELLINOR_EXTRA_NONE = 0,              ///< no extra
    RELLINOR_EXTRA_ONE_TIME_PASSWORD = 1, ///< an "otpauth:" URL or a bare secret, as it stands
    RELLINOR_EXTRA_FURTHER_URL = 2,
    RELLINOR_EXTRA_FURTHER_USER_NAME = 3,
    RELLINOR_EXTRA_EMAIL = 4,
    RELLINOR_EXTRA_PHONE = 5,
    RELLINOR_EXTRA_FOLDER = 6, ///< one path, as it stands
    RELLINOR_EXTRA_TAG = 7,
    RELLINOR_EXTRA_FAVOURITE = 8, ///< "true"
    RELLINOR_EXTRA_ARCHIVED = 9,  ///< "true"
    RELLINOR_EXTRA_CREATED_AT = 10,
    RELLINOR_EXTRA_MODIFIED_AT = 11,
    RELLINOR_EXTRA_LAST_USED_AT = 12,
    RELLINOR_EXTRA_CUSTOM_TEXT = 13,
    RELLINOR_EXTRA_CUSTOM_SECRET = 14,
    RELLINOR_EXTRA_OTHER = 15,
};

/// The short name of a kind for machines, such as "oneTimePassword"; absent for any other number.
RELLINOR_VISIBLE rellinor_text rellinor_extra_kind_identifier(rellinor_extra_kind kind);

/// An extra. Its texts may hold secrets, and are wiped when the result is freed.
typedef struct rellinor_extra {
    rellinor_extra_kind kind; ///< what the extra is
    rellinor_text label;      ///< as the product names it
    rellinor_text value;      ///< as it stands in the file
} rellinor_extra;

// How many extras a record has, and one of them by its place from 0 on: none, with absent texts,
// for a place or record that is not there.

/// How many extras a login has.
RELLINOR_VISIBLE size_t rellinor_login_extra_count(const rellinor_result* result, size_t index);
/// An extra of a login.
RELLINOR_VISIBLE rellinor_extra rellinor_login_extra(const rellinor_result* result, size_t index,
                                                     size_t extra);
/// How many extras a note has.
RELLINOR_VISIBLE size_t rellinor_note_extra_count(const rellinor_result* result, size_t index);
/// An extra of a note.
RELLINOR_VISIBLE rellinor_extra rellinor_note_extra(const rellinor_result* result, size_t index,
                                                    size_t extra);
/// How many extras a card has.
RELLINOR_VISIBLE size_t rellinor_card_extra_count(const rellinor_result* result, size_t index);
/// An extra of a card.
RELLINOR_VISIBLE rellinor_extra rellinor_card_extra(const rellinor_result* result, size_t index,
                                                    size_t extra);

// The report: numbers and names from the program, never a part of the contents. It is empty for a
// result of `rellinor_importer_import`.

/// What the places of a report count.
RELLINOR_ENUM(rellinor_place_unit) {
    RELLINOR_PLACE_LINE = 0,   ///< of the file; an empty line counts
    RELLINOR_PLACE_ROW = 1,    ///< of a database, as it gave them
    RELLINOR_PLACE_RECORD = 2, ///< of the file, in its order
};

/// The short name of a unit for machines, such as "line"; absent for any other number.
RELLINOR_VISIBLE rellinor_text rellinor_place_unit_identifier(rellinor_place_unit unit);

/// Where something is in a file.
typedef struct rellinor_places {
    uint64_t count;                          ///< how many places there are
    const uint64_t* RELLINOR_NULLABLE first; ///< the first of them, ascending, counted from 1
    size_t first_count;                      ///< how many these are, at most a thousand
    rellinor_text member; ///< in which file of an archive or folder that has several; may be empty
} rellinor_places;

/// What was read; none if that is not known, and for a source.
RELLINOR_VISIBLE rellinor_layout rellinor_report_layout(const rellinor_result* result);

/// What all places in the report count.
RELLINOR_VISIBLE rellinor_place_unit rellinor_report_place_unit(const rellinor_result* result);

/// How many raw records were seen: those that were delivered and those that were left out.
RELLINOR_VISIBLE uint64_t rellinor_report_record_count(const rellinor_result* result);

/// False if memory ran out while the report was written. The records are whole all the same.
RELLINOR_VISIBLE bool rellinor_report_is_complete(const rellinor_result* result);

/// Why a raw record is no record of the result.
RELLINOR_ENUM(rellinor_left_out_reason) {
    RELLINOR_LEFT_OUT_NONE = 0,          ///< no entry
    RELLINOR_LEFT_OUT_MISSING_FIELD = 1, ///< a field without which there is no record
    RELLINOR_LEFT_OUT_EMPTY = 2,         ///< no text in any field that counts
    RELLINOR_LEFT_OUT_OTHER_KIND = 3,    ///< a kind of record that the import does not read
    /// a field that is no text, or an entry that is no object
    RELLINOR_LEFT_OUT_FIELD_OF_OTHER_TYPE = 4,
    RELLINOR_LEFT_OUT_TOO_FEW_CELLS = 5,
    RELLINOR_LEFT_OUT_BRACED_IDENTIFIER = 6, ///< an identifier in braces stands in the row
    RELLINOR_LEFT_OUT_PLACEHOLDER = 7,       ///< the row stands for a folder
    RELLINOR_LEFT_OUT_TRASHED = 8,
    RELLINOR_LEFT_OUT_BROWSER_ACCOUNT = 9, ///< the account of the browser itself
};

/// The short name of a reason for machines, such as "missingField"; absent for any other number.
RELLINOR_VISIBLE rellinor_text rellinor_left_out_reason_identifier(rellinor_left_out_reason reason);

/// One plain English sentence for a reason; absent for any other number.
RELLINOR_VISIBLE rellinor_text
rellinor_left_out_reason_description(rellinor_left_out_reason reason);

/// Raw records that were left out for one reason.
typedef struct rellinor_left_out {
    rellinor_left_out_reason reason; ///< why
    rellinor_text field;             ///< which one, or which kind; may be empty
    rellinor_places places;          ///< where
} rellinor_left_out;

/// How many such entries the report has.
RELLINOR_VISIBLE size_t rellinor_report_left_out_count(const rellinor_result* result);

/// An entry by its place from 0 on; none, with an absent text, beyond the last.
RELLINOR_VISIBLE rellinor_left_out rellinor_report_left_out(const rellinor_result* result,
                                                            size_t index);

/// What arrives but looks wrong, or other than a person would expect.
RELLINOR_ENUM(rellinor_finding_kind) {
    RELLINOR_FINDING_NONE = 0, ///< no finding
    /// a kind that has no record of its own; `field` is the product's name
    RELLINOR_FINDING_ARRIVED_AS_NOTE = 1,
    RELLINOR_FINDING_STILL_ENCRYPTED = 2, ///< a text that the product stores encrypted
    RELLINOR_FINDING_DOUBLED_QUOTE = 3,   ///< two quotes that stand for one
    RELLINOR_FINDING_LOST_QUOTE = 4,      ///< a quote at an end of a cell was taken off alone
    RELLINOR_FINDING_RUN_ON_CELL = 5,     ///< a quote that is not closed joined rows
    RELLINOR_FINDING_STRAY_QUOTE = 6,     ///< a quote where none may stand was taken for a letter
    RELLINOR_FINDING_JOINED_LINES = 7, ///< a row that was written without quotes over several lines
    RELLINOR_FINDING_SHORT_ROW = 8,    ///< fewer cells than the header
    RELLINOR_FINDING_LONG_ROW = 9,     ///< more cells than the header
    RELLINOR_FINDING_UNREADABLE_DATE = 10,
    RELLINOR_FINDING_VALUE_OF_OTHER_TYPE = 11, ///< a value was left out, since it is no text
    RELLINOR_FINDING_HTML_ENTITY = 12,         ///< a text that may have been encoded
    RELLINOR_FINDING_TYPED_NOTE = 13,          ///< a note that holds fields; `field` is its type
    RELLINOR_FINDING_REPEATED_COLUMN = 14,
    RELLINOR_FINDING_REPEATED_MEMBER = 15,
    RELLINOR_FINDING_LAST_RESORT = 16, ///< the columns are known by usual names alone
    /// a journal or log beside a database that does not belong to it
    RELLINOR_FINDING_LEFT_OUT_SIDE_FILE = 17,
    RELLINOR_FINDING_REFUSED_FOR_ITS_COST = 18, ///< a database was not read to its end
    RELLINOR_FINDING_DAMAGED = 19,              ///< a database could not be read to its end
    RELLINOR_FINDING_LOCKED = 20,
    RELLINOR_FINDING_REPAIRED_TEXT = 21, ///< bytes that are no UTF-8 were replaced
    RELLINOR_FINDING_NARROWED_NUMBER = 22,
    RELLINOR_FINDING_HEADER_TAKEN_FOR_RECORD = 23,
};

/// The short name of a kind for machines, such as "shortRow"; absent for any other number.
RELLINOR_VISIBLE rellinor_text rellinor_finding_kind_identifier(rellinor_finding_kind kind);

/// One plain English sentence for a kind; absent for any other number.
RELLINOR_VISIBLE rellinor_text rellinor_finding_kind_description(rellinor_finding_kind kind);

/// Something that arrives but looks wrong.
typedef struct rellinor_finding {
    rellinor_finding_kind kind; ///< what looks wrong
    rellinor_text field;        ///< may be empty
    rellinor_places places;     ///< where
} rellinor_finding;

/// How many findings the report has.
RELLINOR_VISIBLE size_t rellinor_report_finding_count(const rellinor_result* result);

/// A finding by its place from 0 on; none, with an absent text, beyond the last.
RELLINOR_VISIBLE rellinor_finding rellinor_report_finding(const rellinor_result* result,
                                                          size_t index);

/// A part of the layout that never arrives, and how many records or files have it.
typedef struct rellinor_unread {
    rellinor_text part; ///< a name of the program's
    uint64_t count;     ///< how many records or files have it
} rellinor_unread;

/// How many such parts the report has.
RELLINOR_VISIBLE size_t rellinor_report_unread_count(const rellinor_result* result);

/// Such a part by its place from 0 on; absent, with the count 0, beyond the last.
RELLINOR_VISIBLE rellinor_unread rellinor_report_unread(const rellinor_result* result,
                                                        size_t index);

/// Why there is nothing.
typedef struct rellinor_failure {
    rellinor_failure_reason reason; ///< none if there are records
    uint64_t place;                 ///< where, in the unit of the report; 0 if that is not known
    rellinor_text field;            ///< which column or member; may be empty
} rellinor_failure;

/// The failure; its reason is RELLINOR_FAILURE_NONE if there is nothing to tell.
RELLINOR_VISIBLE rellinor_failure rellinor_report_failure(const rellinor_result* result);

// Writing a Tirel export.

/// A login as a Tirel export holds it. The texts of an entry are the caller's; one that is absent
/// counts as empty, but for `cust_name`. The fields of a result may stand here as they are.
typedef struct rellinor_tirel_login {
    int64_t color;            ///< in Tirel's palette
    rellinor_text cust_name;  ///< name of the entry; left out of the export if absent
    rellinor_text login_name; ///< login name
    rellinor_text note;       ///< free text
    rellinor_text pwd;        ///< password
    bool has_pwd_change;      ///< if not, `pwd_change` is left out of the export
    int64_t pwd_change;       ///< time of the last password change, in Tirel's unit
    rellinor_text url;        ///< address of the site or service
} rellinor_tirel_login;

/// A secure note as a Tirel export holds it.
typedef struct rellinor_tirel_note {
    int64_t color;       ///< in Tirel's palette
    rellinor_text label; ///< title
    rellinor_text text;  ///< body
} rellinor_tirel_note;

/// A payment card as a Tirel export holds it. No part of its date is checked to be in any range.
typedef struct rellinor_tirel_card {
    rellinor_text card_number; ///< card number
    rellinor_text cust_name;   ///< name of the entry
    rellinor_text holder_name; ///< card holder's name
    rellinor_text cvv;         ///< card security code
    rellinor_text pin;         ///< PIN
    rellinor_text note;        ///< free text
    int64_t expiration_day;    ///< day of expiry
    int64_t expiration_month;  ///< month of expiry
    int64_t expiration_year;   ///< year of expiry
} rellinor_tirel_card;

/// What a Tirel export holds, in its order. A list may be null if it has no entry.
typedef struct rellinor_tirel_data {
    const rellinor_tirel_login* RELLINOR_NULLABLE logins; ///< the first of them
    size_t login_count;                                   ///< how many there are
    const rellinor_tirel_note* RELLINOR_NULLABLE notes;   ///< the first of them
    size_t note_count;                                    ///< how many there are
    const rellinor_tirel_card* RELLINOR_NULLABLE cards;   ///< the first of them
    size_t card_count;                                    ///< how many there are
} rellinor_tirel_data;

/// The text of a Tirel export. It needs nothing of what it was made of, and never changes.
typedef struct rellinor_tirel_export rellinor_tirel_export;

/// Makes the text of a Tirel export: JSON on one line, which `RELLINOR_SOURCE_TIREL` imports.
///
/// What is not UTF-8 in a text becomes U+FFFD. Control characters, line separators and the controls
/// of bidirectional writing are escaped.
///
/// @param data  with all that it points to, not needed after the call
/// @return      to be freed with `rellinor_tirel_export_free`; null if there is no memory
RELLINOR_VISIBLE RELLINOR_OWNED rellinor_tirel_export* RELLINOR_NULLABLE
rellinor_tirel_export_new(const rellinor_tirel_data* data);

/// The text, to be written to a file; never absent. It holds every secret of the export.
RELLINOR_VISIBLE rellinor_text
rellinor_tirel_export_text(const rellinor_tirel_export* tirel_export);

/// Wipes the text of an export and frees it. Null is allowed.
RELLINOR_VISIBLE void
rellinor_tirel_export_free(rellinor_tirel_export* RELLINOR_NULLABLE tirel_export);

#ifdef __cplusplus
}
#endif

#ifdef __clang__
#pragma clang assume_nonnull end
#pragma clang diagnostic pop
#endif
