#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Host/StoreInspection.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Host {

namespace {

using Tests::TemporaryFolder;

/// What is said of a file of these contents.
Inspected file(std::string_view contents) {
    const TemporaryFolder folder;
    return inspected(folder.file("data.1pif", contents), ImportSource::onePassword);
}

Texts leftOut(std::string_view contents) {
    return texts(file(contents).inspection.leftOut);
}

Texts wrong(std::string_view contents) {
    return texts(file(contents).inspection.wrong);
}

Texts notImported(std::string_view contents) {
    return texts(file(contents).inspection.notImported);
}

constexpr std::string_view username = R"({"designation":"username","value":"u"})";
constexpr std::string_view password = R"({"designation":"password","value":"p"})";

/// A record line of a web form with these fields.
std::string webForm(std::string_view fields, std::string_view furtherContents = "",
                    std::string_view furtherMembers = "") {
    return R"({"typeName":"webforms.WebForm","secureContents":{"fields":[)" + std::string(fields) +
           "]" + std::string(furtherContents) + "}" + std::string(furtherMembers) + "}\n";
}

std::string login(std::string_view furtherContents = "", std::string_view furtherMembers = "") {
    return webForm(std::string(username) + ',' + std::string(password), furtherContents,
                   furtherMembers);
}

TEST(OnePasswordInspectionTest, countsRecordsByLines) {
    const Inspected all = file("***\n" + login() + "***\n" + login());
    EXPECT_EQ(all.inspection.unit, "record");
    EXPECT_EQ(all.inspection.place, "line");
    EXPECT_EQ(all.inspection.count, 2U);
    EXPECT_EQ(all.delivered, 2U);
    EXPECT_TRUE(all.inspection.leftOut.empty());
    EXPECT_TRUE(all.inspection.wrong.empty());
    EXPECT_TRUE(all.inspection.notImported.empty());
}

TEST(OnePasswordInspectionTest, namesTheTypesThatAreLeftOut) {
    const auto ofType = [](std::string_view type) {
        return leftOut(R"({"title":"t","typeName":")" + std::string(type) + "\"}\n");
    };
    EXPECT_EQ(ofType("identities.Identity"), Texts{"1: an identity"});
    EXPECT_EQ(ofType("system.folder.Regular"), Texts{"1: a folder"});
    EXPECT_EQ(ofType("wallet.computer.License"), Texts{"1: a software licence"});
    EXPECT_EQ(ofType("wallet.financial.CreditCard"), Texts{"1: a credit card"});
    EXPECT_EQ(ofType("wallet.government.DriversLicense"), Texts{"1: a driving licence"});
    EXPECT_EQ(ofType("wallet.membership.RewardProgram"), Texts{"1: a reward programme"});
    EXPECT_EQ(ofType("passwords.Password"), Texts{"1: a password without a website"});
    EXPECT_EQ(ofType("webforms.webform"), Texts{"1: a record of an unknown type"});
    EXPECT_EQ(ofType(""), Texts{"1: a record of an unknown type"});
}

TEST(OnePasswordInspectionTest, tellsRecordsWithoutAType) {
    EXPECT_EQ(leftOut("{}\n{\"typeName\":5}\n"), Texts{"1, 2: a record without a type"});
}

TEST(OnePasswordInspectionTest, tellsWhatALoginLacks) {
    EXPECT_EQ(leftOut(webForm(password)), Texts{"1: a login without a user name"});
    EXPECT_EQ(leftOut(webForm(username)), Texts{"1: a login without a password"});
    EXPECT_EQ(leftOut(webForm("")), Texts{"1: a login without user name and password"});
    EXPECT_EQ(leftOut("{\"typeName\":\"webforms.WebForm\"}"),
              Texts{"1: a login without user name and password"});
    EXPECT_EQ(leftOut(webForm("{},5")), Texts{"1: a login whose fields are not a list of objects"});
}

TEST(OnePasswordInspectionTest, looksAtTheFirstFieldOfADesignationAlone) {
    const std::string empty = R"({"designation":"username"},)";
    EXPECT_EQ(leftOut(webForm(empty + std::string(username) + ',' + std::string(password))),
              Texts{"1: a login without a user name"});
}

TEST(OnePasswordInspectionTest, takesTheFirstOfTwoMembersOfOneName) {
    EXPECT_EQ(leftOut("{\"typeName\":\"identities.Identity\",\"typeName\":\"webforms.WebForm\"}"),
              Texts{"1: an identity"});
    EXPECT_EQ(leftOut(R"({"typeName":"securenotes.SecureNote","title":5,"title":"t",)"
                      R"("secureContents":{"notesPlain":""}})"),
              Texts{"1: a secure note without a title"});
}

TEST(OnePasswordInspectionTest, tellsWhatANoteLacks) {
    const auto note = [](std::string_view members) {
        return leftOut(R"({"typeName":"securenotes.SecureNote")" + std::string(members) + "}\n");
    };
    EXPECT_EQ(note(R"(,"secureContents":{"notesPlain":""})"),
              Texts{"1: a secure note without a title"});
    EXPECT_EQ(note(R"(,"title":"")"), Texts{"1: a secure note without a text"});
    EXPECT_EQ(note(""), Texts{"1: a secure note without title and text"});
    EXPECT_EQ(note(R"(,"title":"","secureContents":{"notesPlain":""})"), Texts());
}

TEST(OnePasswordInspectionTest, tellsRecordsThatComeOutOfTheTrash) {
    EXPECT_EQ(wrong(login() + login("", R"(,"trashed":true)") + login("", R"(,"trashed":false)")),
              Texts{"2: in the trash of 1Password, but imported all the same"});
}

TEST(OnePasswordInspectionTest, saysNothingOfTheTrashForWhatIsLeftOut) {
    EXPECT_EQ(wrong("{\"trashed\":true}\n"), Texts());
}

TEST(OnePasswordInspectionTest, countsTwoRecordsOnALineAndCallsItOdd) {
    const Inspected all = file("{},{}\n" + login());
    EXPECT_EQ(all.inspection.count, 3U);
    EXPECT_EQ(texts(all.inspection.leftOut), Texts{"1, 1: a record without a type"});
    EXPECT_EQ(texts(all.inspection.wrong),
              Texts{"1: not exactly one record: the file is damaged there"});
}

TEST(OnePasswordInspectionTest, countsARecordOverTwoLinesWhereItBegins) {
    const Inspected all = file(login() + "{\"a\":[{}\n***\n{}]}\n{}\n");
    EXPECT_EQ(all.inspection.count, 3U);
    EXPECT_EQ(texts(all.inspection.leftOut), Texts{"2, 5: a record without a type"});
    EXPECT_EQ(texts(all.inspection.wrong),
              Texts{"2, 4: not exactly one record: the file is damaged there"});
}

TEST(OnePasswordInspectionTest, countsNoRecordsBehindTheEndOfTheList) {
    const Inspected all = file("{}\n{}],\"x\":[{}\n" + login());
    EXPECT_EQ(all.inspection.count, 2U);
    EXPECT_EQ(all.delivered, 0U);
    EXPECT_EQ(texts(all.inspection.wrong),
              Texts{"2, 3: not exactly one record: the file is damaged there"});
}

TEST(OnePasswordInspectionTest, findsTheLinesThatFailTheFile) {
    EXPECT_EQ(wrong("{}\n{a}\n***\n{'a':1}\n"),
              Texts{"2, 4: a record that is not valid JSON, which fails the whole file"});
    EXPECT_EQ(wrong("{}\n{\"a\":\"b\n"),
              Texts{"2: a record that is cut short, which fails the whole file"});
    EXPECT_EQ(wrong("{},5\n"),
              Texts{"1: something behind the end of a record, which fails the whole file"});
}

TEST(OnePasswordInspectionTest, findsRecordsThatAreNestedTooDeep) {
    const auto nested = [](std::size_t depth) {
        return "{\"a\":" + std::string(depth - 1, '[') + std::string(depth - 1, ']') + "}\n";
    };
    EXPECT_EQ(wrong(nested(510)), Texts());
    EXPECT_EQ(wrong(nested(511)),
              Texts{"1: a record nested too deep to be read, which fails the whole file"});
}

TEST(OnePasswordInspectionTest, stopsAfterAThousandBrokenLines) {
    std::string broken;
    for (int i = 0; i < 2000; ++i) {
        broken += "{\n";
    }
    const Inspection inspection = file(broken).inspection;
    ASSERT_EQ(inspection.wrong.size(), 2U);
    EXPECT_EQ(inspection.wrong[0].places.size(), 1000U);
    EXPECT_EQ(texts(inspection.wrong)[1], "1001: the first of more lines that are no records");
}

TEST(OnePasswordInspectionTest, findsIndentedRecords) {
    EXPECT_EQ(wrong(login() + " {}\n\t{\"a\n\u00A0{\n\uFEFF{}\nx {}\n[{}]\n"),
              Texts{"2, 3, 4, 5: passed over, since a blank stands before its {"});
}

TEST(OnePasswordInspectionTest, isSilentAboutALongExponent) {
    EXPECT_EQ(wrong("{\"x\":1e99999999999}\n{\n"),
              Texts{"2: a record that is cut short, which fails the whole file"});
}

TEST(OnePasswordInspectionTest, findsTheFirstLineThatIsNotUTF8) {
    EXPECT_EQ(wrong("{}\n***\xFF\n\xFF\n"),
              Texts{"2: the text is not UTF-8: save the file as UTF-8"});
    EXPECT_EQ(wrong(std::string_view("\xFF\xFE{\0}\0", 6)),
              Texts{"the text is in UTF-16: save the file as UTF-8"});
    EXPECT_EQ(wrong(std::string_view("{\0}\0\n\0*\0", 8)),
              Texts{"the text is in UTF-16: save the file as UTF-8"});
}

TEST(OnePasswordInspectionTest, dropsAByteOrderMark) {
    EXPECT_EQ(file("\uFEFF" + login()).inspection.count, 1U);
}

TEST(OnePasswordInspectionTest, tellsAFileWithoutRecords) {
    EXPECT_EQ(wrong("***\n"), Texts{"no line begins with {, so there is no record in the file"});
    EXPECT_EQ(wrong(""), Texts{"the file is empty"});
}

TEST(OnePasswordInspectionTest, tellsLinesThatEndWithCarriageReturnsAlone) {
    const Texts expected = {
        "all is one line: save the file with line feeds instead of carriage returns"};
    EXPECT_EQ(wrong("***\r{}\r"), expected);
    EXPECT_EQ(wrong("{}\r***\r{}\r"), expected);
}

TEST(OnePasswordInspectionTest, acceptsCarriageReturnsBeforeLineFeeds) {
    EXPECT_EQ(wrong("{}\r\n***\r\n{}\r\n"), Texts());
}

TEST(OnePasswordInspectionTest, countsWhatLoginsLose) {
    EXPECT_EQ(notImported(login(R"(,"notesPlain":"n")") + login(R"(,"notesPlain":"")")),
              Texts{"the notes of 1 record"});
    EXPECT_EQ(notImported(login(R"(,"URLs":[{"url":"a"},{"url":"b"}])") +
                          login(R"(,"URLs":[{"url":"a"}])")),
              Texts{"all web addresses but the first of 1 record"});
    EXPECT_EQ(notImported(webForm(std::string(username) + ",{}," + std::string(password))),
              Texts{"further fields of 1 record"});
    EXPECT_EQ(notImported(login(R"(,"passwordHistory":[{"value":"x"}])")),
              Texts{"earlier passwords of 1 record"});
}

TEST(OnePasswordInspectionTest, countsSectionsAndOneTimePasswords) {
    const auto section = [](std::string_view field) {
        return login(R"(,"sections":[{"fields":[)" + std::string(field) + "]}]");
    };
    EXPECT_EQ(notImported(section(R"({"n":"TOTP_5","v":"x"})")),
              Texts{"one-time passwords of 1 record"});
    EXPECT_EQ(notImported(section(R"({"n":"x","v":"otpauth://totp/x"})")),
              Texts{"one-time passwords of 1 record"});
    EXPECT_EQ(notImported(section(R"({"n":"x","v":"y"})") + section("")),
              Texts{"sections of 1 record"});
}

TEST(OnePasswordInspectionTest, countsTagsAndFolders) {
    EXPECT_EQ(notImported(login("", R"(,"openContents":{"tags":["a"]})") +
                          login("", R"(,"openContents":{"tags":[]})")),
              Texts{"tags of 1 record"});
    EXPECT_EQ(notImported(login("", R"(,"folderUuid":"F")")), Texts{"the folder of 1 record"});
}

TEST(OnePasswordInspectionTest, countsNothingOfWhatIsLeftOut) {
    EXPECT_EQ(notImported(webForm(username, R"(,"notesPlain":"n")", R"(,"folderUuid":"F")")),
              Texts());
}

TEST(OnePasswordInspectionTest, tellsOfAttachmentsBesideTheFile) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "attachments");
    const Inspected all = inspected(folder.file("data.1pif", login()), ImportSource::onePassword);
    EXPECT_EQ(texts(all.inspection.notImported),
              Texts{"the attachments in the folder beside the file"});
}

TEST(OnePasswordInspectionTest, agreesWithTheImportOfATypicalExport) {
    const Inspected all =
        inspected(RELLINOR_FIXTURES "/OnePassword/typical.1pif", ImportSource::onePassword);
    EXPECT_EQ(all.inspection.count, 10U);
    EXPECT_EQ(all.delivered, 3U);
    EXPECT_EQ(texts(all.inspection.leftOut).front(), "1: a folder");
}

} // namespace

} // namespace Rellinor::Host
