#include "Private/Importers/OnePassword/OnePasswordImporter.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Private/Importers/OnePassword/OnePasswordRecord.hpp"
#include "Private/Proxies/JSONError.hpp"
#include "Private/Proxies/PIFParsingError.hpp"
#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/ImportAllocations.hpp"
#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/RecordKeys.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;

/// What becomes of an export with this text.
Outcome import(std::string_view text) {
    const TemporaryFolder folder;
    return outcomeOf(ImportSource::onePassword, folder.file("export.1pif", text));
}

/// What becomes of a file that is not in the format.
const Outcome notInTheFormat = {.error = NSError("Rellinor.PIFParsingError", 1)};

/// What becomes of a file in whose "records" stands something else than a list of records.
const Outcome noListOfRecords = {.error = NSError("Rellinor.JSONError", 1)};

/// A record line: this type and these further members.
std::string record(std::string_view type, std::string_view members) {
    return R"({"typeName":")" + std::string(type) + "\"," + std::string(members) + "}\n***\n";
}

/// A web form with this in its secure contents.
std::string form(std::string_view secureContents) {
    return record("webforms.WebForm",
                  R"("title":"Mail","secureContents":)" + std::string(secureContents));
}

/// A web form with these fields, and an address.
std::string formOfFields(std::string_view fields) {
    return form(R"({"URLs":[{"url":"https://a.example"}],"fields":)" + std::string(fields) + "}");
}

/// A web form with these addresses, and the fields of Ann's login.
std::string formOfURLs(std::string_view urls) {
    return form(R"({"URLs":)" + std::string(urls) +
                R"(,"fields":[{"designation":"username","value":"ann"},)"
                R"({"designation":"password","value":"one"}]})");
}

const std::string annsForm = formOfURLs(R"([{"url":"https://a.example"}])");
const Outcome annsLogin = {.passwords = {{"ann", "one", "https://a.example", "Mail"}}};
const Outcome annsLoginWithoutAnAddress = {.passwords = {{"ann", "one", "", "Mail"}}};

std::string note(std::string_view members) {
    return record("securenotes.SecureNote", members);
}

const std::string aNote = note(R"("title":"Wi-Fi","secureContents":{"notesPlain":"text"})");
const Note wifi = {std::nullopt, "Wi-Fi", "text"};

// The file

TEST(OnePasswordImporterTest, importsATypicalExport) {
    EXPECT_EQ(import(contentsOf(RELLINOR_FIXTURES "/OnePassword/typical.1pif")),
              (Outcome{.passwords = {{"ann@mail.example", R"(Invented "1" \ pass/word)",
                                      "https://mail.example/login", "Mail"},
                                     {"ann.example", "inv\u00F6nted 2",
                                      "https://bank.example:8443/", "Bank"}},
                       .notes = {{std::nullopt, "Caf\u00E9 Wi-Fi \U0001F511",
                                  "Gr\u00FC\u00DFe:\nsecond line\n\ttabbed"}}}));
}

TEST(OnePasswordImporterTest, importsLoginsAndNotesInFileOrder) {
    const auto title = [](std::string_view text, std::string_view newTitle) {
        std::string changed(text);
        const std::size_t place = changed.find(R"("title":")") + 9;
        return changed.replace(place, changed.find('"', place) - place, newTitle);
    };
    EXPECT_EQ(import(title(annsForm, "c") + title(aNote, "z") + title(annsForm, "a") +
                     title(aNote, "y") + title(annsForm, "b")),
              (Outcome{.passwords = {{"ann", "one", "https://a.example", "c"},
                                     {"ann", "one", "https://a.example", "a"},
                                     {"ann", "one", "https://a.example", "b"}},
                       .notes = {{std::nullopt, "z", "text"}, {std::nullopt, "y", "text"}}}));
}

TEST(OnePasswordImporterTest, importsNothingFromAFileWithoutRecords) {
    EXPECT_EQ(import(""), Outcome{});
    EXPECT_EQ(import("***\n***\n"), Outcome{});
    EXPECT_EQ(import("no records"), Outcome{});
}

TEST(OnePasswordImporterTest, importsNothingFromAFileOfSkippedTypes) {
    EXPECT_EQ(import(record("identities.Identity", R"("title":"Ann")") +
                     record("system.folder.Regular", R"("title":"Work")") +
                     record("wallet.financial.CreditCard", R"("title":"Card")")),
              Outcome{});
}

TEST(OnePasswordImporterTest, failsForAFileThatCannotBeRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(outcomeOf(ImportSource::onePassword, folder / "missing"), notInTheFormat);
    EXPECT_EQ(outcomeOf(ImportSource::onePassword, folder.path().native()), notInTheFormat);
}

TEST(OnePasswordImporterTest, failsForAFileInAnotherEncoding) {
    EXPECT_EQ(import(annsForm + "***caf\xE9***\n"), notInTheFormat);
}

TEST(OnePasswordImporterTest, failsForARecordThatIsNotJSON) {
    EXPECT_EQ(import(annsForm + "{\n" + annsForm), notInTheFormat);
    EXPECT_EQ(import("{\"typeName\":\"webforms.WebForm\",}\n" + annsForm), notInTheFormat);
    EXPECT_EQ(import("{}{}\n" + annsForm), notInTheFormat);
}

TEST(OnePasswordImporterTest, failsForAFileThatIsCutWithinARecord) {
    const std::string lastRecord = annsForm.substr(0, annsForm.find('\n'));
    for (std::size_t length = 1; length < lastRecord.size(); ++length) {
        EXPECT_EQ(import(annsForm + lastRecord.substr(0, length)), notInTheFormat) << length;
    }
    EXPECT_EQ(import(lastRecord), annsLogin);
}

TEST(OnePasswordImporterTest, failsIfStrangeLinesMakeSomethingElseOfTheRecords) {
    EXPECT_EQ(import(annsForm + "{},5\n"), noListOfRecords);
    EXPECT_EQ(import("{},null\n" + annsForm), noListOfRecords);
    EXPECT_EQ(import("{},[{}\n{}]\n"), noListOfRecords);
}

TEST(OnePasswordImporterTest, readsASecondListOfRecordsAndPassesItOver) {
    EXPECT_EQ(import("{}],\"records\":[{}\n" + annsForm), Outcome{});
    EXPECT_EQ(import(annsForm + "{}],\"records\":[5,{}\n"), annsLogin);
    EXPECT_EQ(import(annsForm + "{}],\"records\":5,\"x\":[{}\n"), annsLogin);
}

TEST(OnePasswordImporterTest, saysWhatFailed) {
    const TemporaryFolder folder;
    ImportMemory memory;
    const auto read = [&](std::string_view text) {
        (void)OnePasswordImporter::read(URL::fileURLWithPath(folder.file("export.1pif", text)),
                                        memory);
    };
    EXPECT_THROW(read("{"), PIFParsingError);
    EXPECT_THROW(read("{},5"), JSONError);
    EXPECT_NO_THROW(read("{}"));
}

TEST(OnePasswordImporterTest, importsAgainAfterAFailure) {
    const TemporaryFolder folder;
    RecordsImporter importer;
    std::vector<std::size_t> counts;
    for (const std::string& path :
         {folder.file("good", annsForm), folder.file("bad", "{"), folder / "good"}) {
        importer.records(URL::fileURLWithPath(path), ImportSource::onePassword,
                         [&](const RecordsResult& result) {
                             counts.push_back(result ? result->passwords.size() : 0);
                         });
    }
    EXPECT_EQ(counts, (std::vector<std::size_t>{1, 0, 1}));
}

TEST(OnePasswordImporterTest, readsCarriageReturnsAndAByteOrderMark) {
    std::string text = "\uFEFF" + annsForm + aNote;
    for (std::size_t place = 0; (place = text.find('\n', place)) != std::string::npos; place += 2) {
        text.insert(place, 1, '\r');
    }
    EXPECT_EQ(import(text), (Outcome{.passwords = annsLogin.passwords, .notes = {wifi}}));
}

// Which records

TEST(OnePasswordImporterTest, importsWebFormsAndSecureNotesOnly) {
    const std::string members =
        R"("title":"Title","secureContents":{"notesPlain":"text","fields":)"
        R"([{"designation":"username","value":"ann"},{"designation":"password","value":"one"}]})";
    for (const std::string_view type :
         {"identities.Identity", "system.folder.Regular", "wallet.computer.License",
          "wallet.financial.CreditCard", "wallet.government.DriversLicense",
          "wallet.membership.RewardProgram", "passwords.Password", "", "unknown",
          "webforms.webform", "webforms.WebForm ", "WebForm", "securenotes.securenote"}) {
        EXPECT_EQ(import(record(type, members)), Outcome{}) << type;
    }
    EXPECT_EQ(import(record("webforms.WebForm", members)),
              (Outcome{.passwords = {{"ann", "one", "", "Title"}}}));
    EXPECT_EQ(import(record("securenotes.SecureNote", members)),
              (Outcome{.notes = {{std::nullopt, "Title", "text"}}}));
}

TEST(OnePasswordImporterTest, aRecordOfAPasswordAloneIsLeftOut) {
    EXPECT_EQ(
        import(record("passwords.Password", R"("title":"Mail","secureContents":{"password":"one",)"
                                            R"("URLs":[{"url":"https://a.example"}]})") +
               annsForm),
        annsLogin);
}

TEST(OnePasswordImporterTest, dropsARecordWithoutAType) {
    EXPECT_EQ(import("{}\n{\"title\":\"Mail\"}\n" + annsForm), annsLogin);
}

TEST(OnePasswordImporterTest, dropsARecordWhoseTypeIsNotAText) {
    for (const std::string_view type :
         {"null", "5", "true", R"(["webforms.WebForm"])", R"({"webforms.WebForm":1})"}) {
        std::string text = annsForm;
        text.replace(text.find(R"("webforms.WebForm")"), 18, type);
        EXPECT_EQ(import(text + aNote), (Outcome{.notes = {wifi}})) << type;
    }
}

TEST(OnePasswordImporterTest, readsATypeWithEscapes) {
    EXPECT_EQ(import(record(R"(securenotes.Secure\u004eote)",
                            R"("title":"Wi-Fi","secureContents":{"notesPlain":"text"})")),
              (Outcome{.notes = {wifi}}));
}

// Web forms

TEST(OnePasswordImporterTest, importsAWebForm) {
    EXPECT_EQ(import(annsForm), annsLogin);
}

TEST(OnePasswordImporterTest, carriesOverNoOtherField) {
    EXPECT_EQ(import(form(R"({"notesPlain":"a note","password":"x","username":"x","url":"x",)"
                          R"("URLs":[{"label":"website","url":"https://a.example"}],"fields":)"
                          R"([{"designation":"","name":"more","value":"x"},)"
                          R"({"designation":"username","name":"user","type":"T","value":"ann"},)"
                          R"({"name":"remember","value":"x"},{},)"
                          R"({"designation":"password","id":"pass","value":"one"},)"
                          R"({"designation":"email","value":"x"}]})")),
              annsLogin);
}

TEST(OnePasswordImporterTest, leavesTheURLEmptyIfThereIsNone) {
    EXPECT_EQ(import(formOfURLs("[]")), annsLoginWithoutAnAddress);
    EXPECT_EQ(import(form(R"({"fields":[{"designation":"username","value":"ann"},)"
                          R"({"designation":"password","value":"one"}]})")),
              annsLoginWithoutAnAddress);
}

TEST(OnePasswordImporterTest, onlyTheFirstUrlCounts) {
    EXPECT_EQ(import(formOfURLs(R"([{"url":"https://a.example"},{"url":"https://b.example"}])")),
              annsLogin);
    for (const std::string_view first : {"{}", R"({"label":"x"})", R"({"url":null})",
                                         R"({"url":5})", R"({"url":["x"]})", R"({"URL":"x"})"}) {
        EXPECT_EQ(import(formOfURLs(arrayOf({first, R"({"url":"https://b.example"})"}))),
                  annsLoginWithoutAnAddress)
            << first;
    }
    EXPECT_EQ(import(formOfURLs(R"([{"url":""},{"url":"https://b.example"}])")),
              annsLoginWithoutAnAddress);
}

TEST(OnePasswordImporterTest, leavesTheURLEmptyIfTheURLsAreNotAListOfObjects) {
    for (const std::string_view urls :
         {"null", "5", R"("https://a.example")", R"({"url":"https://a.example"})",
          R"(["https://a.example"])", R"([{"url":"https://a.example"},5])",
          R"([{"url":"https://a.example"},null])", R"([[{"url":"https://a.example"}]])"}) {
        EXPECT_EQ(import(formOfURLs(urls)), annsLoginWithoutAnAddress) << urls;
    }
}

TEST(OnePasswordImporterTest, comparesNamesExactly) {
    std::string lowerCase = annsForm;
    lowerCase.replace(lowerCase.find("\"URLs\""), 6, "\"urls\"");
    EXPECT_EQ(import(lowerCase), annsLoginWithoutAnAddress);
    EXPECT_EQ(import(formOfFields(R"([{"designation":"Username","value":"ann"},)"
                                  R"({"designation":"password","value":"one"}])")),
              Outcome{});
    EXPECT_EQ(import(formOfFields(R"([{"designation":"username","Value":"ann"},)"
                                  R"({"designation":"password","value":"one"}])")),
              Outcome{});
}

TEST(OnePasswordImporterTest, takesTheFirstFieldOfADesignation) {
    EXPECT_EQ(import(formOfFields(R"([{"designation":"password","value":"one"},)"
                                  R"({"designation":"username","value":"ann"},)"
                                  R"({"designation":"username","value":"bob"},)"
                                  R"({"designation":"password","value":"two"}])")),
              annsLogin);
}

TEST(OnePasswordImporterTest, dropsAWebFormWhoseFirstFieldOfADesignationHasNoText) {
    for (const std::string_view first :
         {R"({"designation":"username"})", R"({"designation":"username","value":null})",
          R"({"designation":"username","value":5})", R"({"designation":"username","value":{}})"}) {
        EXPECT_EQ(import(formOfFields(arrayOf({first, R"({"designation":"username","value":"ann"})",
                                               R"({"designation":"password","value":"one"})"}))),
                  Outcome{})
            << first;
    }
}

TEST(OnePasswordImporterTest, passesOverAFieldWhoseDesignationIsNotAText) {
    EXPECT_EQ(import(formOfFields(R"([{"designation":5,"value":"x"},)"
                                  R"({"designation":null,"value":"x"},{"value":"x"},)"
                                  R"({"designation":["username"],"value":"x"},)"
                                  R"({"designation":"username","value":"ann"},)"
                                  R"({"designation":"password","value":"one"}])")),
              annsLogin);
}

TEST(OnePasswordImporterTest, dropsAWebFormWithoutAUsername) {
    EXPECT_EQ(import(formOfFields(R"([{"designation":"password","value":"one"}])") + aNote),
              (Outcome{.notes = {wifi}}));
}

TEST(OnePasswordImporterTest, dropsAWebFormWithoutAPassword) {
    EXPECT_EQ(import(formOfFields(R"([{"designation":"username","value":"ann"}])") + aNote),
              (Outcome{.notes = {wifi}}));
}

TEST(OnePasswordImporterTest, dropsAWebFormWithoutAListOfFields) {
    EXPECT_EQ(import(form(R"({"URLs":[{"url":"https://a.example"}]})")), Outcome{});
    for (const std::string_view fields : {"[]", "null", "5", R"("username")", "{}", "[[]]"}) {
        EXPECT_EQ(import(formOfFields(fields)), Outcome{}) << fields;
    }
}

TEST(OnePasswordImporterTest, dropsAWebFormIfOneFieldIsNotAnObject) {
    for (const std::string_view other : {"null", "5", R"("x")", "[]", "true"}) {
        EXPECT_EQ(
            import(formOfFields(arrayOf({R"({"designation":"username","value":"ann"})",
                                         R"({"designation":"password","value":"one"})", other})) +
                   annsForm),
            annsLogin)
            << other;
    }
}

TEST(OnePasswordImporterTest, dropsAWebFormWithoutSecureContents) {
    EXPECT_EQ(import(record("webforms.WebForm", R"("title":"Mail")")), Outcome{});
    constexpr std::string_view list = R"([{"fields":[{"designation":"username","value":"ann"},)"
                                      R"({"designation":"password","value":"one"}]}])";
    for (const std::string_view contents : {"null"sv, "5"sv, R"("x")"sv, "[]"sv, list}) {
        EXPECT_EQ(import(form(contents)), Outcome{}) << contents;
    }
}

TEST(OnePasswordImporterTest, keepsEmptyTexts) {
    EXPECT_EQ(import(record("webforms.WebForm",
                            R"("title":"","secureContents":{"URLs":[{"url":""}],"fields":)"
                            R"([{"designation":"username","value":""},)"
                            R"({"designation":"password","value":""}]})") +
                     note(R"("title":"","secureContents":{"notesPlain":""})")),
              (Outcome{.passwords = {{"", "", "", ""}}, .notes = {{std::nullopt, "", ""}}}));
}

TEST(OnePasswordImporterTest, importsAWebFormWithoutATitle) {
    const std::string contents =
        R"("secureContents":{"URLs":[{"url":"https://a.example"}],"fields":)"
        R"([{"designation":"username","value":"ann"},{"designation":"password","value":"one"}]})";
    const Outcome untitled = {.passwords = {{"ann", "one", "https://a.example", std::nullopt}}};
    EXPECT_EQ(import(record("webforms.WebForm", contents)), untitled);
    for (const std::string_view title : {"null", "5", R"(["Mail"])", "{}"}) {
        EXPECT_EQ(
            import(record("webforms.WebForm", R"("title":)" + std::string(title) + "," + contents)),
            untitled)
            << title;
    }
}

TEST(OnePasswordImporterTest, takesTextsAsTheyStand) {
    const std::string text = R"( \"\\\/\b\f\n\r\t\u0000\uD83D\uDD11 é\u00e9 )";
    const std::string decoded(" \"\\/\b\f\n\r\t\0\U0001F511 é\u00E9 ", 20);
    EXPECT_EQ(import(note(R"("title":")" + text + R"(","secureContents":{"notesPlain":")" + text +
                          "\"}")),
              (Outcome{.notes = {{std::nullopt, decoded, decoded}}}));
}

TEST(OnePasswordImporterTest, takesTheFirstOfTwoMembersOfOneName) {
    EXPECT_EQ(import(note(R"("title":"Wi-Fi","title":"x","typeName":"webforms.WebForm",)"
                          R"("secureContents":{"notesPlain":"text","notesPlain":5},)"
                          R"("secureContents":null)")),
              (Outcome{.notes = {wifi}}));
    EXPECT_EQ(import(note(R"("title":5,"title":"Wi-Fi","secureContents":{"notesPlain":"text"})")),
              Outcome{});
}

TEST(OnePasswordImporterTest, looksForMembersAtTheirPlaceOnly) {
    EXPECT_EQ(import(note(R"("notesPlain":"x","openContents":{"title":"x","notesPlain":"x",)"
                          R"("secureContents":{"notesPlain":"x"}},"sections":[{"title":"x"}],)"
                          R"("title":"Wi-Fi","secureContents":{"sections":{"notesPlain":"x"},)"
                          R"("fields":[{"notesPlain":"x"}],"notesPlain":"text"})")),
              (Outcome{.notes = {wifi}}));
}

// Secure notes

TEST(OnePasswordImporterTest, importsASecureNote) {
    EXPECT_EQ(import(aNote), (Outcome{.notes = {wifi}}));
}

TEST(OnePasswordImporterTest, dropsANoteWithoutATitle) {
    EXPECT_EQ(import(note(R"("secureContents":{"notesPlain":"text"})") + annsForm), annsLogin);
    for (const std::string_view title : {"null", "5", R"(["Wi-Fi"])", "{}"}) {
        EXPECT_EQ(import(note(R"("title":)" + std::string(title) +
                              R"(,"secureContents":{"notesPlain":"text"})")),
                  Outcome{})
            << title;
    }
}

TEST(OnePasswordImporterTest, dropsANoteWithoutAContent) {
    for (const std::string_view contents :
         {"{}", R"({"notesPlain":null})", R"({"notesPlain":5})", R"({"notesPlain":["text"]})",
          R"({"notes":"text"})", "null", R"("text")", R"([{"notesPlain":"text"}])"}) {
        EXPECT_EQ(
            import(note(R"("title":"Wi-Fi","secureContents":)" + std::string(contents)) + annsForm),
            annsLogin)
            << contents;
    }
    EXPECT_EQ(import(note(R"("title":"Wi-Fi","notesPlain":"text")")), Outcome{});
}

// Single records

/// JSON objects as raw records.
class OnePasswordImporterRecordTest : public testing::Test {
protected:
    /// @param text  outlives the test
    JSONObject record(std::string_view text) {
        _document = JSONDocument::parsed(text, namesOfOnePasswordRecordKeys, _memory).value();
        return _document.value().root().object().value();
    }

private:
    ImportMemory _memory;
    std::optional<JSONDocument> _document;
};

TEST_F(OnePasswordImporterRecordTest, tellsAKindByItsType) {
    const JSONObject form = record(R"({"typeName":"webforms.WebForm"})");
    EXPECT_TRUE(OnePasswordImporter::isPassword(form));
    EXPECT_FALSE(OnePasswordImporter::isNote(form));
    const JSONObject note = record(R"({"typeName":"securenotes.SecureNote"})");
    EXPECT_FALSE(OnePasswordImporter::isPassword(note));
    EXPECT_TRUE(OnePasswordImporter::isNote(note));
    for (const std::string_view text : {"{}", R"({"typeName":5})", R"({"typeName":"x"})"}) {
        const JSONObject other = record(text);
        EXPECT_FALSE(OnePasswordImporter::isPassword(other)) << text;
        EXPECT_FALSE(OnePasswordImporter::isNote(other)) << text;
    }
}

TEST_F(OnePasswordImporterRecordTest, saysWhyARecordIsDropped) {
    const auto missing = [](std::string_view field) {
        return Dropped{.reason = LeftOutReason::missingField, .field = field};
    };
    EXPECT_EQ(OnePasswordImporter::buildPassword(record("{}")).error(), missing("username"));
    EXPECT_EQ(OnePasswordImporter::buildNote(record("{}")).error(), missing("title"));
    EXPECT_EQ(OnePasswordImporter::buildNote(record(R"({"title":"Wi-Fi"})")).error(),
              missing("notesPlain"));
}

// The names

TEST(OnePasswordRecordTest, namesTheTypesInOrder) {
    using enum OnePasswordRecordType;
    EXPECT_EQ(namesInOrder({identity, regular, license, creditCard, driversLicense, rewardProgram,
                            password, webForm, secureNote}),
              "identities.Identity|system.folder.Regular|wallet.computer.License|"
              "wallet.financial.CreditCard|wallet.government.DriversLicense|"
              "wallet.membership.RewardProgram|passwords.Password|webforms.WebForm|"
              "securenotes.SecureNote|");
}

TEST(OnePasswordRecordTest, namesTheKeysInOrder) {
    using enum OnePasswordRecordKey;
    EXPECT_EQ(namesInOrder({title, url, password, username, note, type, fields, secureContents,
                            designation, urls, value}),
              "title|url|password|username|notesPlain|typeName|fields|secureContents|designation|"
              "URLs|value|");
}

// Memory

TEST(OnePasswordImporterTest, keepsTheTextsOfARecordWhenAllElseIsGone) {
    std::shared_ptr<const ImportedPasswordInfoProviding> password;
    {
        const TemporaryFolder folder;
        const std::string path =
            folder.file("export.1pif",
                        "***\n" + formOfFields(R"([{"designation":"username","value":"ann"},)"
                                               R"({"designation":"password","value":"\u00e9"}])"));
        RecordsImporter().records(
            URL::fileURLWithPath(path), ImportSource::onePassword,
            [&](RecordsResult result) { password = result.value().passwords.at(0); });
    }
    EXPECT_EQ(copyOf(*password), (Password{"ann", "é", "https://a.example", "Mail"}));
}

/// The buffer has a byte more than the file, to see the file's end, and room for what is put around
/// the records.
std::size_t sizeOfBuffer(std::string_view text) {
    constexpr std::string_view before = "{ \"records\": [";
    constexpr std::string_view behind = "] }";
    return before.size() + text.size() + 1 + behind.size();
}

TEST(OnePasswordImporterTest, wipesTheTextOfTheFileWhenTheLastRecordIsLetGo) {
    const TemporaryFolder folder;
    const std::string text = std::string(5000, '*') + "\n" + aNote + annsForm;
    const std::string path = folder.file("export.1pif", text);
    std::shared_ptr<const ImportedNoteInfoProviding> last;
    RecordsImporter().records(URL::fileURLWithPath(path), ImportSource::onePassword,
                              [&](RecordsResult result) { last = result.value().notes.at(0); });
    EXPECT_EQ(last->content(), "text");
    EXPECT_TRUE(givesBackZeros(sizeOfBuffer(text), [&] { last.reset(); }));
}

TEST(OnePasswordImporterTest, wipesTheTextOfAFileThatFails) {
    const TemporaryFolder folder;
    const std::string text = std::string(5000, '*') + "\n" + aNote + annsForm + "{";
    const std::string path = folder.file("export.1pif", text);
    EXPECT_TRUE(givesBackZeros(sizeOfBuffer(text), [&] {
        EXPECT_EQ(outcomeOf(ImportSource::onePassword, path), notInTheFormat);
    }));
}

TEST(OnePasswordImporterTest, takesNoMemoryOfItsOwnForARecord) {
    const auto exportOf = [](std::size_t count) {
        std::string text;
        for (; count > 0; --count) {
            text += annsForm;
        }
        return text;
    };
    EXPECT_LT(allocationsOfImport(ImportSource::onePassword, exportOf(9000)),
              allocationsOfImport(ImportSource::onePassword, exportOf(1000)) + 20);
}

} // namespace

} // namespace Rellinor::Tests
