#include "Private/Importers/Tirel/TirelImporter.hpp"

#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Extensions/String.hpp"
#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/ImportAllocations.hpp"
#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/TirelExport.hpp"

namespace Rellinor::Tests {

namespace {

using enum TirelRecordType;

/// What becomes of an export with this text.
Outcome import(std::string_view text) {
    const TemporaryFolder folder;
    return outcomeOf(ImportSource::tirel, folder.file("export.json", text));
}

const Password ann = {"ann", "one", "https://a.example", "Mail", 3, "a note", 1700000000};
const Note wifi = {5, "Wi-Fi", "text"};
const Card travel = {"0001", "Travel", "Ann", "002", "0003", "a note", 31, 12, 2030};

// The file

TEST(TirelImporterTest, importsATypicalExport) {
    EXPECT_EQ(import(contentsOf(RELLINOR_FIXTURES "/Tirel/typical.json")),
              (Outcome{.passwords = {{"ann@mail.example", R"(Invented "1" \ pass/word)",
                                      "https://mail.example/login", "Mail", 4,
                                      "First line\nsecond line", 1700000000},
                                     {"", "inv\u00F6nted 2 \U0001F511", "", std::nullopt, 0, "",
                                      std::nullopt},
                                     {"ann.example", "invented 3", "https://bank.example:8443/",
                                      std::nullopt, -1, "", std::nullopt}},
                       .notes = {{7, "Caf\u00E9 Wi-Fi", "Gr\u00FC\u00DFe:\n\ttabbed"}, {2, "", ""}},
                       .cards = {{"0000 0000 0000 0001", "Travel", "Ann Example", "001", "0002", "",
                                  31, 12, 2030},
                                 {"", "", "", "", "", "", 0, 0, 0}}}));
}

TEST(TirelImporterTest, importsThreeEmptyLists) {
    EXPECT_EQ(import(R"({"logins":[],"notes":[],"cards":[]})"), Outcome{});
}

TEST(TirelImporterTest, importsEachKindInFileOrder) {
    const Members whole = {
        {"cards", listOf({aCard().with("pin", R"("2")"), aCard().with("pin", R"("1")")})},
        {"notes", listOf({aNote().with("label", R"("b")"), aNote().with("label", R"("a")")})},
        {"logins", listOf({aLogin().with("pwd", R"("y")"), aLogin().with("pwd", R"("x")"),
                           aLogin().with("pwd", R"("z")")})},
    };
    const Outcome outcome = import(whole.text());
    ASSERT_EQ(outcome.passwords.size(), 3);
    EXPECT_EQ(outcome.passwords[0].password, "y");
    EXPECT_EQ(outcome.passwords[1].password, "x");
    EXPECT_EQ(outcome.passwords[2].password, "z");
    ASSERT_EQ(outcome.notes.size(), 2);
    EXPECT_EQ(outcome.notes[0].title, "b");
    EXPECT_EQ(outcome.notes[1].title, "a");
    ASSERT_EQ(outcome.cards.size(), 2);
    EXPECT_EQ(outcome.cards[0].pin, "2");
    EXPECT_EQ(outcome.cards[1].pin, "1");
}

TEST(TirelImporterTest, failsForAFileThatCannotBeRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(outcomeOf(ImportSource::tirel, folder / "missing"), failedWithText());
    EXPECT_EQ(outcomeOf(ImportSource::tirel, folder.path().native()), failedWithText());
}

TEST(TirelImporterTest, failsForAFileThatIsNotJSON) {
    EXPECT_EQ(import(""), failedWithText());
    EXPECT_EQ(import("no JSON"), failedWithText());
    EXPECT_EQ(import(exportOfLogin(aLogin()) + "x"), failedWithText());
}

TEST(TirelImporterTest, failsForAFileWithoutCards) {
    EXPECT_EQ(import(R"({"logins":[],"notes":[]})"), failedWithText());
}

TEST(TirelImporterTest, importsNothingOfAFileWithOneBrokenEntry) {
    const Members whole = {
        {"logins", listOf({aLogin(), aLogin()})},
        {"notes", listOf({aNote()})},
        {"cards", listOf({aCard(), aCard().without("pin")})},
    };
    EXPECT_EQ(import(whole.text()), failedWithText());
}

TEST(TirelImporterTest, failsWithItsMessage) {
    const TemporaryFolder folder;
    for (const std::string& path :
         {folder / "missing", folder.path().native(), folder.file("array", "[]"),
          folder.file("empty", ""), folder.file("object", "{}")}) {
        ImportMemory memory;
        try {
            (void)TirelImporter::read(URL::fileURLWithPath(path), memory);
            ADD_FAILURE() << path;
        } catch (const TextError& error) {
            EXPECT_EQ(std::string_view(error.what()),
                      "The provided JSON file has an unexpected format");
        }
    }
}

TEST(TirelImporterTest, importsAgainAfterAFailure) {
    const TemporaryFolder folder;
    RecordsImporter importer;
    std::vector<std::size_t> counts;
    for (const std::string& path :
         {folder.file("good", exportOfNote(aNote())), folder.file("bad", "{}"), folder / "good"}) {
        importer.records(URL::fileURLWithPath(path), ImportSource::tirel,
                         [&](const RecordsResult& result) {
                             counts.push_back(result ? result->notes.size() : 0);
                         });
    }
    EXPECT_EQ(counts, (std::vector<std::size_t>{1, 0, 1}));
}

TEST(TirelImporterTest, passesOverWhatItDoesNotKnow) {
    EXPECT_EQ(import(exportOfLogin(aLogin().with("username", R"("x")").with("password", "5"))),
              (Outcome{.passwords = {ann}}));
    EXPECT_EQ(import(exportOfCard(aCard().with("expirationDay", "1").with("day", "2"))),
              (Outcome{.cards = {travel}}));
}

// Logins

TEST(TirelImporterTest, importsALogin) {
    EXPECT_EQ(import(exportOfLogin(aLogin())), (Outcome{.passwords = {ann}}));
}

TEST(TirelImporterTest, namesTheFieldsOfALoginAsItsOwn) {
    const Outcome outcome = import(exportOfLogin(aLogin()
                                                     .with("loginName", R"("from loginName")")
                                                     .with("pwd", R"("from pwd")")
                                                     .with("custName", R"("from custName")")));
    ASSERT_EQ(outcome.passwords.size(), 1);
    EXPECT_EQ(outcome.passwords[0].username, "from loginName");
    EXPECT_EQ(outcome.passwords[0].password, "from pwd");
    EXPECT_EQ(outcome.passwords[0].service, "from custName");
}

TEST(TirelImporterTest, leavesTheServiceAndTheTimeAbsentIfTheLoginHasNone) {
    const Password withoutBoth = {"ann", "one",    "https://a.example", std::nullopt,
                                  3,     "a note", std::nullopt};
    EXPECT_EQ(import(exportOfLogin(aLogin().without("custName").without("pwdChange"))),
              (Outcome{.passwords = {withoutBoth}}));
    EXPECT_EQ(import(exportOfLogin(aLogin().with("custName", "null").with("pwdChange", "null"))),
              (Outcome{.passwords = {withoutBoth}}));
}

TEST(TirelImporterTest, keepsEmptyTextsAndZeros) {
    const Members login = {{"color", "0"},    {"custName", R"("")"}, {"loginName", R"("")"},
                           {"note", R"("")"}, {"pwd", R"("")"},      {"pwdChange", "0"},
                           {"url", R"("")"}};
    EXPECT_EQ(import(exportOfLogin(login)), (Outcome{.passwords = {{"", "", "", "", 0, "", 0}}}));
}

TEST(TirelImporterTest, takesTextsAsTheyStand) {
    const std::string text = R"(" \"\\\/\b\f\n\r\t\u0000\uD83D\uDD11 é\u00e9 ")";
    const std::string decoded(" \"\\/\b\f\n\r\t\0\U0001F511 é\u00E9 ", 20);
    EXPECT_EQ(import(exportOfNote(aNote().with("text", text))),
              (Outcome{.notes = {{5, "Wi-Fi", decoded}}}));
}

// Notes

TEST(TirelImporterTest, importsALabelAsTheTitleAndATextAsTheContent) {
    EXPECT_EQ(import(exportOfNote(aNote())), (Outcome{.notes = {wifi}}));
}

// Cards

TEST(TirelImporterTest, importsACardWithItsDateAsThreeIntegers) {
    EXPECT_EQ(import(exportOfCard(aCard())), (Outcome{.cards = {travel}}));
}

TEST(TirelImporterTest, checksNoRangeOfADate) {
    const Members date = {{"day", "-1"}, {"month", "99"}, {"year", "9223372036854775807"}};
    const Outcome outcome = import(exportOfDate(date));
    ASSERT_EQ(outcome.cards.size(), 1);
    EXPECT_EQ(outcome.cards[0].expirationDay, -1);
    EXPECT_EQ(outcome.cards[0].expirationMonth, 99);
    EXPECT_EQ(outcome.cards[0].expirationYear, 9223372036854775807);
}

TEST(TirelImporterTest, failsForACardWithoutAName) {
    EXPECT_EQ(import(exportOfCard(aCard().without("custName"))), failedWithText());
}

TEST(TirelImporterTest, failsForACardWithANumberInPlaceOfAText) {
    EXPECT_EQ(import(exportOfCard(aCard().with("cvv", "2"))), failedWithText());
    EXPECT_EQ(import(exportOfCard(aCard().with("pin", "3"))), failedWithText());
    EXPECT_EQ(import(exportOfCard(aCard().with("cardNumber", "1"))), failedWithText());
}

// Single records

/// Entries that need not be valid, as raw records.
class TirelImporterRecordTest : public testing::Test {
protected:
    TirelRecord record(TirelRecordType type, const Members& entry) {
        _text = entry.text();
        _document = JSONDocument::parsed(_text, namesOfTirelExportMembers, _memory).value();
        return {type, _document.value().root().object().value()};
    }

    std::expected<Password, Dropped> password(const Members& entry) {
        return copied<Password>(TirelImporter::buildPassword(record(webPassword, entry)));
    }

    std::expected<Note, Dropped> note(const Members& entry) {
        return copied<Note>(TirelImporter::buildNote(record(secureNote, entry)));
    }

    std::expected<Card, Dropped> card(const Members& entry) {
        return copied<Card>(TirelImporter::buildCard(record(creditCard, entry)));
    }

private:
    template <typename Copy>
    static std::expected<Copy, Dropped> copied(const auto& built) {
        if (!built) {
            return std::unexpected(built.error());
        }
        return copyOf(*built);
    }

    std::string _text;
    ImportMemory _memory;
    std::optional<JSONDocument> _document;
};

constexpr Dropped fieldsMissing{.reason = LeftOutReason::missingField, .field = ""};

TEST_F(TirelImporterRecordTest, tellsAPasswordByItsPassword) {
    EXPECT_TRUE(TirelImporter::isPassword(record(webPassword, aLogin())));
    EXPECT_TRUE(TirelImporter::isPassword(record(webPassword, Members{{"pwd", "5"}})));
    EXPECT_FALSE(TirelImporter::isPassword(record(webPassword, aLogin().without("pwd"))));
    EXPECT_FALSE(TirelImporter::isPassword(record(secureNote, aNote())));
    EXPECT_FALSE(TirelImporter::isPassword(record(creditCard, aCard())));
}

TEST_F(TirelImporterRecordTest, tellsANoteByItsText) {
    EXPECT_TRUE(TirelImporter::isNote(record(secureNote, aNote())));
    EXPECT_TRUE(TirelImporter::isNote(record(secureNote, Members{{"text", "[]"}})));
    EXPECT_FALSE(TirelImporter::isNote(record(secureNote, aNote().without("text"))));
    EXPECT_FALSE(TirelImporter::isNote(record(webPassword, aLogin())));
    EXPECT_FALSE(TirelImporter::isNote(record(creditCard, aCard())));
}

TEST_F(TirelImporterRecordTest, tellsACardByItsNumber) {
    EXPECT_TRUE(TirelImporter::isCard(record(creditCard, aCard())));
    EXPECT_TRUE(TirelImporter::isCard(record(creditCard, Members{{"cardNumber", "1"}})));
    EXPECT_FALSE(TirelImporter::isCard(record(creditCard, aCard().without("cardNumber"))));
    EXPECT_FALSE(TirelImporter::isCard(record(webPassword, aLogin())));
    EXPECT_FALSE(TirelImporter::isCard(record(secureNote, aNote())));
}

TEST_F(TirelImporterRecordTest, takesARecordWithoutATellingKeyForNothing) {
    for (const TirelRecordType type : {webPassword, secureNote, creditCard}) {
        const TirelRecord nothing = record(type, Members{{"color", "1"}, {"note", R"("x")"}});
        EXPECT_FALSE(TirelImporter::isPassword(nothing));
        EXPECT_FALSE(TirelImporter::isNote(nothing));
        EXPECT_FALSE(TirelImporter::isCard(nothing));
    }
}

TEST_F(TirelImporterRecordTest, buildsAPasswordFromARecord) {
    EXPECT_EQ(password(aLogin()).value(), ann);
}

TEST_F(TirelImporterRecordTest, buildsNoPasswordWithoutARequiredText) {
    for (const std::string_view member : {"url", "pwd", "loginName"}) {
        EXPECT_EQ(password(aLogin().without(member)).error(), fieldsMissing) << member;
        EXPECT_EQ(password(aLogin().with(member, "null")).error(), fieldsMissing) << member;
        for (const std::string_view value : rejectedStrings()) {
            EXPECT_EQ(password(aLogin().with(member, value)).error(), fieldsMissing)
                << member << ' ' << value;
        }
    }
}

TEST_F(TirelImporterRecordTest, buildsAPasswordWithoutOptionalFields) {
    EXPECT_EQ(
        password(Members{{"url", R"("u")"}, {"pwd", R"("p")"}, {"loginName", R"("l")"}}).value(),
        (Password{"l", "p", "u"}));
}

TEST_F(TirelImporterRecordTest, leavesOptionalFieldsOfAPasswordAbsentIfTheyAreOfAnotherType) {
    for (const std::string_view value : rejectedStrings()) {
        const Password built =
            password(aLogin().with("custName", value).with("note", value)).value();
        EXPECT_EQ(built.service, std::nullopt) << value;
        EXPECT_EQ(built.note, std::nullopt) << value;
        EXPECT_EQ(built.color, 3) << value;
    }
    for (const std::string_view value : rejectedIntegers()) {
        const Password built =
            password(aLogin().with("color", value).with("pwdChange", value)).value();
        EXPECT_EQ(built.color, std::nullopt) << value;
        EXPECT_EQ(built.pwdChange, std::nullopt) << value;
        EXPECT_EQ(built.service, "Mail") << value;
    }
}

TEST_F(TirelImporterRecordTest, buildsANoteFromARecord) {
    EXPECT_EQ(note(aNote()).value(), wifi);
}

TEST_F(TirelImporterRecordTest, buildsNoNoteWithoutARequiredText) {
    for (const std::string_view member : {"label", "text"}) {
        EXPECT_EQ(note(aNote().without(member)).error(), fieldsMissing) << member;
        EXPECT_EQ(note(aNote().with(member, "null")).error(), fieldsMissing) << member;
        for (const std::string_view value : rejectedStrings()) {
            EXPECT_EQ(note(aNote().with(member, value)).error(), fieldsMissing)
                << member << ' ' << value;
        }
    }
}

TEST_F(TirelImporterRecordTest, leavesTheColourOfANoteAbsentIfItIsMissingOrOfAnotherType) {
    const Note colourless = {std::nullopt, "Wi-Fi", "text"};
    EXPECT_EQ(note(aNote().without("color")).value(), colourless);
    EXPECT_EQ(note(aNote().with("color", "null")).value(), colourless);
    for (const std::string_view value : rejectedIntegers()) {
        EXPECT_EQ(note(aNote().with("color", value)).value(), colourless) << value;
    }
}

TEST_F(TirelImporterRecordTest, buildsACardFromARecord) {
    EXPECT_EQ(card(aCard()).value(), travel);
}

TEST_F(TirelImporterRecordTest, buildsNoCardWithoutARequiredText) {
    for (const std::string_view member :
         {"cardNumber", "holderName", "custName", "cvv", "pin", "note"}) {
        EXPECT_EQ(card(aCard().without(member)).error(), fieldsMissing) << member;
        EXPECT_EQ(card(aCard().with(member, "null")).error(), fieldsMissing) << member;
        for (const std::string_view value : rejectedStrings()) {
            EXPECT_EQ(card(aCard().with(member, value)).error(), fieldsMissing)
                << member << ' ' << value;
        }
    }
}

TEST_F(TirelImporterRecordTest, buildsNoCardWithoutAPartOfTheDate) {
    const Members date = {{"day", "31"}, {"month", "12"}, {"year", "2030"}};
    ASSERT_TRUE(card(aCard().with("expirationDate", date.text())));
    EXPECT_EQ(card(aCard().without("expirationDate")).error(), fieldsMissing);
    for (const std::string_view part : {"day", "month", "year"}) {
        EXPECT_EQ(card(aCard().with("expirationDate", date.without(part).text())).error(),
                  fieldsMissing)
            << part;
        for (const std::string_view value : rejectedIntegers()) {
            EXPECT_EQ(card(aCard().with("expirationDate", date.with(part, value).text())).error(),
                      fieldsMissing)
                << part << ' ' << value;
        }
    }
}

// Memory

TEST(TirelImporterTest, keepsTheTextsOfARecordWhenAllElseIsGone) {
    std::shared_ptr<const ImportedNoteInfoProviding> note;
    {
        const TemporaryFolder folder;
        const std::string path = folder.file(
            "export.json", exportOfNote(aNote().with("text", R"("with an escape: \u00e9")")));
        RecordsImporter().records(URL::fileURLWithPath(path), ImportSource::tirel,
                                  [&](RecordsResult result) { note = result.value().notes.at(0); });
    }
    EXPECT_EQ(copyOf(*note), (Note{5, "Wi-Fi", "with an escape: é"}));
}

TEST(TirelImporterTest, wipesTheTextOfTheFileWhenTheLastRecordIsLetGo) {
    const TemporaryFolder folder;
    const std::string text = exportOfCard(aCard()) + std::string(5000, ' ');
    const std::string path = folder.file("export.json", text);
    std::shared_ptr<const ImportedCardInfoProviding> last;
    RecordsImporter().records(URL::fileURLWithPath(path), ImportSource::tirel,
                              [&](RecordsResult result) { last = result.value().cards.at(0); });
    EXPECT_EQ(last->cardNumber(), "0001");
    // The buffer has a byte more than the file, to see the file's end.
    EXPECT_TRUE(givesBackZeros(text.size() + 1, [&] { last.reset(); }));
}

TEST(TirelImporterTest, wipesTheTextOfAFileThatFails) {
    const TemporaryFolder folder;
    const std::string text = exportOfCard(aCard().without("pin")) + std::string(5000, ' ');
    const std::string path = folder.file("export.json", text);
    EXPECT_TRUE(givesBackZeros(text.size() + 1, [&] {
        EXPECT_EQ(outcomeOf(ImportSource::tirel, path), failedWithText());
    }));
}

TEST(TirelImporterTest, takesNoMemoryOfItsOwnForAnEntry) {
    const auto exportOf = [](std::size_t count) {
        return emptyExport().with("logins", listOf(std::vector(count, aLogin()))).text();
    };
    EXPECT_LT(allocationsOfImport(ImportSource::tirel, exportOf(9000)),
              allocationsOfImport(ImportSource::tirel, exportOf(1000)) + 20);
}

} // namespace

} // namespace Rellinor::Tests
