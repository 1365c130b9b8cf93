#include "Private/Importers/Importer.hpp"

#include <filesystem>
#include <functional>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Extensions/String.hpp"
#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

namespace {

/// What a record of the importer under test claims to be and whether it can be built.
struct RawKind {
    std::string name = {};
    bool password = false;
    bool note = false;
    bool card = false;
    bool broken = false;
};

class TestImporter final {
public:
    using RawRecord = RawKind;

    static constexpr RecordKinds kinds{.passwords = true, .notes = true, .cards = true};

    std::function<std::vector<RawKind>()> readRecords;

    std::vector<RawKind> read(const ExportFile& /*file*/, ImportMemory& /*memory*/,
                              Reporter* /*reporter*/) const {
        return readRecords();
    }

    static bool isPassword(const RawKind& record) { return record.password; }

    static bool isNote(const RawKind& record) { return record.note; }

    static bool isCard(const RawKind& record) { return record.card; }

    Built<ImportedPassword> buildPassword(const RawKind& record) {
        if (record.broken) {
            return std::unexpected(
                Dropped{.reason = LeftOutReason::missingField, .field = "broken"});
        }
        return ImportedPassword(kept(record), "", "", std::nullopt, std::nullopt, std::nullopt,
                                std::nullopt);
    }

    Built<ImportedNote> buildNote(const RawKind& record) {
        if (record.broken) {
            return std::unexpected(
                Dropped{.reason = LeftOutReason::missingField, .field = "broken"});
        }
        return ImportedNote(std::nullopt, kept(record), "");
    }

    Built<ImportedCard> buildCard(const RawKind& record) {
        if (record.broken) {
            return std::unexpected(
                Dropped{.reason = LeftOutReason::missingField, .field = "broken"});
        }
        return ImportedCard("", kept(record), "", "", "", "", 0, 0, 0);
    }

private:
    std::string_view kept(const RawKind& record) {
        return *_names.emplace_back(std::make_unique<std::string>(record.name));
    }

    std::vector<std::unique_ptr<std::string>> _names;
};

Outcome import(std::function<std::vector<RawKind>()> readRecords) {
    TestImporter importer;
    importer.readRecords = std::move(readRecords);
    return copyOf(readWith(importer, URL::fileURLWithPath("/"), nullptr).records);
}

Outcome import(const std::vector<RawKind>& records) {
    return import([&] { return records; });
}

template <typename Thrown>
Outcome importThrowing(const Thrown& thrown) {
    return import([&]() -> std::vector<RawKind> { throw thrown; });
}

std::vector<std::string> titles(const std::vector<Note>& notes) {
    std::vector<std::string> titles;
    for (const Note& note : notes) {
        titles.push_back(note.title);
    }
    return titles;
}

TEST(ImporterTest, buildsEachKindInFileOrder) {
    const Outcome outcome = import({
        {.name = "n1", .note = true},
        {.name = "p1", .password = true},
        {.name = "c1", .card = true},
        {.name = "n2", .note = true},
        {.name = "p2", .password = true},
        {.name = "c2", .card = true},
        {.name = "n3", .note = true},
    });
    EXPECT_EQ(outcome.error, std::nullopt);
    ASSERT_EQ(outcome.passwords.size(), 2);
    EXPECT_EQ(outcome.passwords[0].username, "p1");
    EXPECT_EQ(outcome.passwords[1].username, "p2");
    EXPECT_EQ(titles(outcome.notes), (std::vector<std::string>{"n1", "n2", "n3"}));
    ASSERT_EQ(outcome.cards.size(), 2);
    EXPECT_EQ(outcome.cards[0].custName, "c1");
    EXPECT_EQ(outcome.cards[1].custName, "c2");
}

TEST(ImporterTest, asksThePredicatesInTheOrderPasswordNoteCard) {
    const Outcome outcome = import({
        {.name = "all", .password = true, .note = true, .card = true},
        {.name = "two", .note = true, .card = true},
    });
    EXPECT_EQ(outcome.passwords.size(), 1);
    EXPECT_EQ(titles(outcome.notes), (std::vector<std::string>{"two"}));
    EXPECT_TRUE(outcome.cards.empty());
}

TEST(ImporterTest, dropsARecordThatSatisfiesNoPredicate) {
    EXPECT_EQ(import({{.name = "nothing"}}), Outcome{});
}

TEST(ImporterTest, dropsARecordThatCannotBeBuiltAndNeverTriesAnotherKind) {
    const Outcome outcome = import({
        {.name = "broken", .password = true, .note = true, .card = true, .broken = true},
        {.name = "good", .note = true},
    });
    EXPECT_TRUE(outcome.passwords.empty());
    EXPECT_EQ(titles(outcome.notes), (std::vector<std::string>{"good"}));
    EXPECT_TRUE(outcome.cards.empty());
}

TEST(ImporterTest, succeedsWithEmptyListsIfEveryRecordFailsToBuild) {
    EXPECT_EQ(import({{.password = true, .broken = true},
                      {.note = true, .broken = true},
                      {.card = true, .broken = true}}),
              Outcome{});
}

TEST(ImporterTest, succeedsWithEmptyListsIfThereIsNoRecord) {
    EXPECT_EQ(import(std::vector<RawKind>{}), Outcome{});
}

class LoginImporter final {
public:
    using RawRecord = int;

    static constexpr RecordKinds kinds{.passwords = true};

    static bool isPassword(int /*record*/) { return true; }

    static std::vector<int> read(const ExportFile& /*file*/, ImportMemory& /*memory*/,
                                 Reporter* /*reporter*/) {
        return {1};
    }

    static Built<ImportedPassword> buildPassword(int /*record*/) {
        return ImportedPassword("", "", "", std::nullopt, std::nullopt, std::nullopt, std::nullopt);
    }
};

// Errors

enum class Mood : std::uint8_t { calm, cross };

class MoodError final : public LibraryError {
public:
    explicit MoodError(Mood mood) : _mood(mood) {}

    [[nodiscard]] std::string_view domain() const noexcept override { return "Rellinor.MoodError"; }

    [[nodiscard]] std::int64_t code() const noexcept override {
        return static_cast<std::int64_t>(_mood);
    }

    [[nodiscard]] ReadFailure failure() const noexcept override { return {}; }

private:
    Mood _mood;
};

TEST(ImporterTest, passesAnNSErrorAsItIs) {
    EXPECT_EQ(importThrowing(NSError("Elsewhere", 42)),
              (Outcome{.error = NSError("Elsewhere", 42)}));
}

TEST(ImporterTest, givesALibraryErrorItsDomainAndCode) {
    EXPECT_EQ(importThrowing(MoodError(Mood::calm)).error, NSError("Rellinor.MoodError", 0));
    EXPECT_EQ(importThrowing(MoodError(Mood::cross)).error, NSError("Rellinor.MoodError", 1));
}

TEST(ImporterTest, theMessageTextIsLost) {
    EXPECT_EQ(importThrowing(TextError("a text")), failedWithText());
    EXPECT_EQ(importThrowing(TextError("another")), failedWithText());
    EXPECT_EQ(importThrowing(TextError("a text")).error->localizedDescription(),
              "The operation couldn\u2019t be completed. (Rellinor.TextError error 1.)");
}

TEST(ImporterTest, reportsLackOfMemory) {
    EXPECT_EQ(importThrowing(std::bad_alloc()).error, NSError("Rellinor.UnexpectedError", 0));
}

TEST(ImporterTest, reportsAnyOtherException) {
    EXPECT_EQ(importThrowing(std::runtime_error("x")).error,
              NSError("Rellinor.UnexpectedError", 1));
    EXPECT_EQ(importThrowing(5).error, NSError("Rellinor.UnexpectedError", 1));
}

// The records

TEST(ImporterTest, leavesASingleRecordValidWhenAllElseIsGone) {
    std::shared_ptr<const ImportedPasswordInfoProviding> survivor;
    {
        LoginImporter importer;
        survivor =
            readWith(importer, URL::fileURLWithPath("/"), nullptr).records->passwords.front();
    }
    EXPECT_EQ(copyOf(*survivor), Password{});
}

} // namespace

} // namespace Rellinor::Tests
