#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Host/StoreInspection.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Host {

namespace {

using Tests::TemporaryFolder;

Inspected file(std::string_view contents) {
    const TemporaryFolder folder;
    return inspected(folder.file("export.json", contents), ImportSource::tirel);
}

Texts wrong(std::string_view contents) {
    return texts(file(contents).inspection.wrong);
}

std::string document(std::string_view logins, std::string_view notes = "",
                     std::string_view cards = "") {
    return "{\"logins\":[" + std::string(logins) + "],\"notes\":[" + std::string(notes) +
           "],\"cards\":[" + std::string(cards) + "]}";
}

constexpr std::string_view login = R"({"color":1,"loginName":"","note":"","pwd":"","url":""})";
constexpr std::string_view note = R"({"color":1,"label":"","text":""})";

std::string card(std::string_view date) {
    return R"({"cardNumber":"","custName":"","holderName":"","cvv":"","pin":"","note":"",)"
           R"("expirationDate":)" +
           std::string(date) + "}";
}

TEST(TirelInspectionTest, countsTheRecordsOfAllLists) {
    const Inspected all = file(document(login, std::string(note) + ',' + std::string(note),
                                        card(R"({"day":1,"month":2,"year":3})")));
    EXPECT_EQ(all.inspection.unit, "record");
    EXPECT_EQ(all.inspection.count, 4U);
    EXPECT_TRUE(all.inspection.wrong.empty());
    EXPECT_TRUE(all.inspection.leftOut.empty());
    EXPECT_TRUE(all.inspection.notImported.empty());
}

TEST(TirelInspectionTest, tellsTheListThatIsMissing) {
    EXPECT_EQ(wrong("{\"logins\":[],\"notes\":[]}"), Texts{"the member cards is missing"});
    EXPECT_EQ(wrong("{\"logins\":{},\"notes\":[],\"cards\":[]}"),
              Texts{"the member logins is not a list"});
    EXPECT_EQ(wrong("[]"),
              Texts{"the file is not an object with the members logins, notes and cards"});
    EXPECT_EQ(wrong("5"),
              Texts{"the file is not an object with the members logins, notes and cards"});
}

TEST(TirelInspectionTest, tellsTheFirstEntryThatIsNotAnObject) {
    EXPECT_EQ(wrong(document(std::string(login) + ",5,6")), Texts{"logins[1] is not an object"});
    // However wrong the entries before it are.
    EXPECT_EQ(wrong(document("", "{},[]")), Texts{"notes[1] is not an object"});
}

TEST(TirelInspectionTest, tellsTheFirstMemberThatIsWrong) {
    EXPECT_EQ(wrong(document(std::string(login) + ",{\"color\":1}")),
              Texts{"logins[1].loginName is missing"});
    EXPECT_EQ(wrong(document(R"({"color":null})")), Texts{"logins[0].color is null"});
    EXPECT_EQ(wrong(document(R"({"color":1.5})")), Texts{"logins[0].color is not an integer"});
    EXPECT_EQ(wrong(document(R"({"color":1.0,"custName":7})")),
              Texts{"logins[0].custName is not a text"});
    EXPECT_EQ(wrong(document("", R"({"color":1,"label":"","text":5})")),
              Texts{"notes[0].text is not a text"});
}

TEST(TirelInspectionTest, letsOptionalMembersBeNull) {
    EXPECT_EQ(wrong(document(R"({"color":1,"custName":null,"loginName":"","note":"","pwd":"",)"
                             R"("pwdChange":null,"url":""})")),
              Texts());
}

TEST(TirelInspectionTest, takesTheFirstOfTwoMembersOfOneName) {
    EXPECT_EQ(wrong(document("", R"({"color":"","color":1,"label":"","text":""})")),
              Texts{"notes[0].color is not an integer"});
}

TEST(TirelInspectionTest, looksIntoTheDateOfACard) {
    EXPECT_EQ(wrong(document("", "", card("5"))),
              Texts{"cards[0].expirationDate is not an object"});
    EXPECT_EQ(wrong(document("", "", card(R"({"day":1,"month":2,"year":"x"})"))),
              Texts{"cards[0].expirationDate.year is not an integer"});
}

TEST(TirelInspectionTest, tellsTheLineOnWhichTheJSONIsBroken) {
    const Inspection inspection = file("{\n\"logins\":[\n}").inspection;
    EXPECT_EQ(inspection.place, "line");
    EXPECT_EQ(texts(inspection.wrong), Texts{"3: the JSON is broken here"});
    EXPECT_EQ(wrong("{\n\"logins\":["), Texts{"2: the file ends too early: it was cut short"});
    EXPECT_EQ(wrong(document("") + "\nx"),
              Texts{"2: something stands behind the end of the JSON text"});
    EXPECT_EQ(wrong("\n{\"x\":" + std::string(512, '[')), Texts{"2: nested too deep to be read"});
}

TEST(TirelInspectionTest, isSilentAboutALongExponent) {
    const Inspected all = file(R"({"x":1e-99999999999,)" + document(login).substr(1));
    EXPECT_EQ(all.delivered, 1U);
    EXPECT_EQ(all.inspection.count, std::nullopt);
    EXPECT_EQ(texts(all.inspection.wrong), Texts());
}

TEST(TirelInspectionTest, tellsBytesThatAreNotUTF8) {
    EXPECT_EQ(wrong("{\n\"\xFF\":1}"), Texts{"2: the text is not UTF-8: save the file as UTF-8"});
    EXPECT_EQ(wrong(std::string_view("\xFE\xFF\0{\0}", 6)),
              Texts{"the text is in UTF-16: save the file as UTF-8"});
}

TEST(TirelInspectionTest, tellsAnEmptyFile) {
    EXPECT_EQ(wrong(""), Texts{"the file is empty"});
}

TEST(TirelInspectionTest, countsMembersThatAreNotKnown) {
    const Inspection inspection = file("{\"x\":{\"color\":1},\"logins\":[],\"cards\":[" +
                                       card(R"({"day":1,"month":2,"year":3,"hour":4})") +
                                       R"(],"notes":[{"color":1,"label":"","text":"","pwd":""}]})")
                                      .inspection;
    // "x", "hour" and the "pwd" of a note.
    EXPECT_EQ(texts(inspection.notImported), Texts{"3 members of other names than Tirel's"});
    EXPECT_TRUE(inspection.wrong.empty());
    EXPECT_EQ(inspection.count, 2U);
}

TEST(TirelInspectionTest, countsMembersThatAreThereTwice) {
    const std::string logins = R"("logins":[)" + std::string(login) + "],";
    const Inspection inspection =
        file("{" + logins + logins + R"("notes":[{"color":1,"label":"","text":"","text":5}],)" +
             R"("cards":[)" + card(R"({"day":1,"month":2,"year":3,"day":4,"day":5})") + "]}")
            .inspection;
    EXPECT_EQ(texts(inspection.wrong),
              Texts{"4 members of a name that stands there before: only the first is read"});
    EXPECT_TRUE(inspection.notImported.empty());
    EXPECT_EQ(inspection.count, 3U);
}

TEST(TirelInspectionTest, readsWhatTheImportReads) {
    EXPECT_EQ(file("\uFEFF " + document("") + " \r\n").inspection.count, 0U);
    EXPECT_EQ(inspected(RELLINOR_FIXTURES "/Tirel/every-field.json", ImportSource::tirel)
                  .inspection.count,
              6U);
}

} // namespace

} // namespace Rellinor::Host
