#include "Public/C/rellinor.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <Rellinor/Rellinor.hpp>
#include <gtest/gtest.h>

#include "Tests/Support/Affordable.hpp"
#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/TirelExport.hpp"
#include "Tests/Support/TirelExportInC.hpp"

namespace Rellinor::Tests {

namespace {

using Importer = std::unique_ptr<rellinor_importer, decltype(&rellinor_importer_free)>;
using Result = std::unique_ptr<rellinor_result, decltype(&rellinor_result_free)>;

Importer newImporter() {
    return {rellinor_importer_new(), rellinor_importer_free};
}

Result imported(const Importer& importer, const std::string& path, rellinor_source source) {
    return {rellinor_importer_import(importer.get(), path.c_str(), source), rellinor_result_free};
}

Result imported(const std::string& path, rellinor_source source) {
    return imported(newImporter(), path, source);
}

std::optional<std::string> optional(rellinor_text text) {
    return text.data == nullptr ? std::nullopt : std::optional(std::string(text.data, text.length));
}

/// A text that is never absent.
std::string present(rellinor_text text) {
    return optional(text).value();
}

template <typename Function>
std::optional<std::int64_t> integer(Function function, const Result& result, std::size_t index) {
    std::int64_t value = 0;
    return function(result.get(), index, &value) ? std::optional(value) : std::nullopt;
}

/// What the result holds, copied out but for the domain of its error.
Outcome outcomeIn(const Result& result) {
    const rellinor_result* const r = result.get();
    Outcome outcome;
    for (std::size_t i = 0; i < rellinor_result_login_count(r); ++i) {
        outcome.passwords.push_back({
            .username = present(rellinor_login_username(r, i)),
            .password = present(rellinor_login_password(r, i)),
            .url = present(rellinor_login_url(r, i)),
            .service = optional(rellinor_login_service(r, i)),
            .color = integer(rellinor_login_color, result, i),
            .note = optional(rellinor_login_note(r, i)),
            .pwdChange = integer(rellinor_login_pwd_change, result, i),
        });
    }
    for (std::size_t i = 0; i < rellinor_result_note_count(r); ++i) {
        outcome.notes.push_back({
            .color = integer(rellinor_note_color, result, i),
            .title = present(rellinor_note_title(r, i)),
            .content = present(rellinor_note_content(r, i)),
        });
    }
    for (std::size_t i = 0; i < rellinor_result_card_count(r); ++i) {
        outcome.cards.push_back({
            .cardNumber = present(rellinor_card_number(r, i)),
            .custName = present(rellinor_card_cust_name(r, i)),
            .holderName = present(rellinor_card_holder_name(r, i)),
            .cvv = present(rellinor_card_cvv(r, i)),
            .pin = present(rellinor_card_pin(r, i)),
            .note = present(rellinor_card_note(r, i)),
            .expirationDay = rellinor_card_expiration_day(r, i),
            .expirationMonth = rellinor_card_expiration_month(r, i),
            .expirationYear = rellinor_card_expiration_year(r, i),
        });
    }
    if (!rellinor_result_succeeded(r)) {
        outcome.error = NSError(rellinor_result_error_domain(r), rellinor_result_error_code(r));
    }
    return outcome;
}

rellinor_read_options asSource(ImportSource source) {
    return {.size = sizeof(rellinor_read_options),
            .as = RELLINOR_READ_AS_SOURCE,
            .layout = RELLINOR_LAYOUT_NONE,
            .source = rellinor_source{std::to_underlying(source)},
            .on_progress = nullptr,
            .progress_context = nullptr,
            .largest_file = 0,
            .largest_expansion = 0,
            .most_records = 0};
}

/// What the second door gives, read as a source.
Result readAs(const std::string& path, ImportSource source) {
    const rellinor_read_options options = asSource(source);
    return {rellinor_export_read(path.c_str(), &options), rellinor_result_free};
}

/// Imports `path` through both surfaces, and returns how many records that gave.
std::size_t compared(const std::string& path, ImportSource source) {
    const Result result = imported(path, rellinor_source{std::to_underlying(source)});
    const Outcome outcome = outcomeIn(result);
    const Outcome expected = outcomeOf(source, path);
    EXPECT_EQ(outcome, expected) << path << " as source " << static_cast<int>(source);
    EXPECT_EQ(outcomeIn(readAs(path, source)), expected) << path;
    if (expected.error) {
        EXPECT_EQ(rellinor_result_error_description(result.get()),
                  expected.error->localizedDescription());
    }
    return outcome.passwords.size() + outcome.notes.size() + outcome.cards.size();
}

TEST(RellinorInCTest, givesWhatTheOtherSurfaceGivesForEverySampleAndSource) {
    using enum ImportSource;
    for (const auto& folder : {RELLINOR_EXAMPLES, RELLINOR_FIXTURES}) {
        std::size_t records = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            for (const ImportSource source :
                 {chrome, lastPass, dashlane, onePassword, tirel, keePass, keePassXC, firefox}) {
                records += compared(entry.path().native(), source);
            }
        }
        EXPECT_GT(records, 0) << folder;
    }
}

TEST(RellinorInCTest, keepsTheStateOfItsImporters) {
    const Importer importer = newImporter();
    RecordsImporter reference;
    for (const std::string path : {RELLINOR_EXAMPLES "/Firefox/current.profile", "/missing",
                                   RELLINOR_EXAMPLES "/Firefox/old.profile"}) {
        std::optional<Outcome> expected;
        reference.records(URL::fileURLWithPath(path), ImportSource::firefox,
                          [&](const RecordsResult& result) { expected = copyOf(result); });
        EXPECT_EQ(outcomeIn(imported(importer, path, RELLINOR_SOURCE_FIREFOX)), expected);
    }
}

TEST(RellinorInCTest, takesARelativePathFromTheCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(RELLINOR_EXAMPLES "/LastPass");
    const Result result = imported("export.csv", RELLINOR_SOURCE_LAST_PASS);
    std::filesystem::current_path(before);
    EXPECT_EQ(rellinor_result_login_count(result.get()), 12);
}

TEST(RellinorInCTest, failsIfThereIsNoCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    {
        const TemporaryFolder folder;
        std::filesystem::current_path(folder.path());
    }
    const Result result = imported("export.csv", RELLINOR_SOURCE_LAST_PASS);
    std::filesystem::current_path(before);
    EXPECT_EQ(outcomeIn(result), (Outcome{.error = NSError("Rellinor.UnexpectedError", 1)}));
}

// Memory

TEST(RellinorInCTest, tellsOfLackOfMemory) {
    const std::string path = RELLINOR_EXAMPLES "/LastPass/export.csv";
    const Outcome expected = outcomeOf(ImportSource::lastPass, path);
    const std::size_t before = piecesInUse();
    std::size_t withoutImporter = 0;
    std::size_t withoutResult = 0;
    std::size_t withError = 0;
    for (std::size_t nth = 1;; ++nth) {
        ASSERT_LT(nth, 1000) << "every allocation failed";
        Importer importer(nullptr, rellinor_importer_free);
        Result result(nullptr, rellinor_result_free);
        failAllocation(nth, [&] {
            importer = newImporter();
            if (importer) {
                result = imported(importer, path, RELLINOR_SOURCE_LAST_PASS);
            }
        });
        if (!importer) {
            ++withoutImporter;
        } else if (!result) {
            ++withoutResult;
        } else if (!rellinor_result_succeeded(result.get())) {
            ++withError;
            EXPECT_EQ(outcomeIn(result),
                      (Outcome{.error = NSError("Rellinor.UnexpectedError", 0)}));
            EXPECT_STREQ(rellinor_result_error_description(result.get()),
                         "The operation couldn\u2019t be completed. "
                         "(Rellinor.UnexpectedError error 0.)");
        } else {
            EXPECT_EQ(outcomeIn(result), expected);
            break;
        }
        importer.reset();
        result.reset();
        EXPECT_EQ(piecesInUse(), before);
    }
    EXPECT_GT(withoutImporter, 0);
    EXPECT_GT(withoutResult, 0);
    EXPECT_GT(withError, 0);
}

TEST(RellinorInCTest, readsAllOrNothingForLackOfMemory) {
    const std::string path = RELLINOR_EXAMPLES "/LastPass/export.csv";
    const Outcome expected = outcomeOf(ImportSource::lastPass, path);
    const std::size_t before = piecesInUse();
    std::size_t withoutResult = 0;
    std::size_t withError = 0;
    for (std::size_t nth = 1;; ++nth) {
        ASSERT_LT(nth, 1000) << "every allocation failed";
        Result result(nullptr, rellinor_result_free);
        failAllocation(nth, [&] { result = readAs(path, ImportSource::lastPass); });
        if (!result) {
            ++withoutResult;
        } else if (!rellinor_result_succeeded(result.get())) {
            ++withError;
            EXPECT_EQ(outcomeIn(result),
                      (Outcome{.error = NSError("Rellinor.UnexpectedError", 0)}));
            EXPECT_EQ(rellinor_report_failure(result.get()).reason, RELLINOR_FAILURE_OUT_OF_MEMORY);
        } else {
            EXPECT_EQ(outcomeIn(result), expected);
            if (rellinor_report_is_complete(result.get())) {
                break;
            }
        }
        result.reset();
        EXPECT_EQ(piecesInUse(), before);
    }
    EXPECT_GT(withoutResult, 0);
    EXPECT_GT(withError, 0);
}

TEST(RellinorInCTest, tellsOfLackOfMemoryInPlaceOfAnErrorThatItHasNoMemoryFor) {
    // A source without a number takes no memory of its own.
    const Importer importer = newImporter();
    std::size_t withoutResult = 0;
    std::size_t outOfMemory = 0;
    for (std::size_t nth = 1;; ++nth) {
        ASSERT_LT(nth, 100) << "every allocation failed";
        Result result(nullptr, rellinor_result_free);
        const std::string path = "/missing";
        failAllocation(nth, [&] { result = imported(importer, path, rellinor_source{99}); });
        if (!result) {
            ++withoutResult;
        } else if (rellinor_result_error_code(result.get()) == 0) {
            ++outOfMemory;
            EXPECT_EQ(outcomeIn(result),
                      (Outcome{.error = NSError("Rellinor.UnexpectedError", 0)}));
        } else {
            EXPECT_EQ(outcomeIn(result),
                      (Outcome{.error = NSError("Rellinor.UnavailableSourceError", 1)}));
            break;
        }
    }
    EXPECT_GT(withoutResult, 0);
    EXPECT_GT(outOfMemory, 0);
}

TEST(RellinorInCTest, wipesTheTextsWhenTheResultIsFreed) {
    const std::string path = RELLINOR_EXAMPLES "/LastPass/export.csv";
    Result result = imported(path, RELLINOR_SOURCE_LAST_PASS);
    EXPECT_EQ(present(rellinor_login_password(result.get(), 0)), "Violet-Harbor-82");
    // The buffer has a byte more than the file, to see the file's end.
    EXPECT_TRUE(givesBackZeros(std::filesystem::file_size(path) + 1, [&] { result.reset(); }));
}

// Writing a Tirel export

rellinor_text textIn(std::string_view text) {
    return {.data = text.data(), .length = text.size()};
}

/// A Tirel export with one note.
TirelExportInC exportOfNote(std::string_view text) {
    const rellinor_tirel_note note{.color = 0, .label = {}, .text = textIn(text)};
    rellinor_tirel_data data{};
    data.notes = &note;
    data.note_count = 1;
    return {rellinor_tirel_export_new(&data), rellinor_tirel_export_free};
}

TEST(RellinorInCTest, writesWhatTheOtherSurfaceWrites) {
    const rellinor_read_options options = asSource(ImportSource::tirel);
    for (std::uint64_t seed = 0; seed < affordable(300U); ++seed) {
        const std::string text = randomTirelExportData(seed).encode();
        const Result result(rellinor_export_read_memory(text.data(), text.size(), "", &options),
                            rellinor_result_free);
        ASSERT_EQ(present(rellinor_tirel_export_text(tirelExportOf(*result).get())), text) << seed;
    }
}

TEST(RellinorInCTest, writesAllOrNothingForLackOfMemory) {
    const std::string text = std::string(10000, 'x') + '\xFF'; // in three pieces of memory
    const std::string expected = present(rellinor_tirel_export_text(exportOfNote(text).get()));
    const std::size_t before = piecesInUse();
    std::size_t failed = 0;
    for (std::size_t nth = 1;; ++nth) {
        ASSERT_LT(nth, 100) << "every allocation failed";
        TirelExportInC written(nullptr, rellinor_tirel_export_free);
        failAllocation(nth, [&] { written = exportOfNote(text); });
        if (written) {
            EXPECT_EQ(present(rellinor_tirel_export_text(written.get())), expected);
            break;
        }
        ++failed;
        EXPECT_EQ(piecesInUse(), before);
    }
    EXPECT_GE(failed, 3);
}

TEST(RellinorInCTest, wipesTheTextWhenTheTirelExportIsFreed) {
    TirelExportInC written = exportOfNote("x");
    EXPECT_TRUE(givesBackZeros(4096, [&] { written.reset(); }));
}

} // namespace

} // namespace Rellinor::Tests
