#include "Private/Importers/Tirel/FaithfulTirelImporter.hpp"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Support/JSONChanges.hpp"
#include "Tests/Support/Reading.hpp"

namespace Rellinor::Tests {

namespace {

Reading read(std::string_view text) {
    return readingOf(Layout::tirelJSON, text);
}

constexpr std::string_view whole =
    R"({"logins":[{"color":3,"custName":"t-service","loginName":"t-user","note":"t-note1",)"
    R"("pwd":"t-password","pwdChange":7,"url":"t-url"}],)"
    R"("notes":[{"color":1,"label":"t-label","text":"t-text"}],)"
    R"("cards":[{"cardNumber":"t-number","custName":"t-name","holderName":"t-holder",)"
    R"("cvv":"t-cvv","pin":"t-pin","note":"t-note2","expirationDate":)"
    R"({"day":31,"month":12,"year":2029}}]})";

TEST(FaithfulTirelImporterTest, readsFieldByField) {
    const Reading reading = read(whole);
    const Outcome expected = {.passwords = {{.username = "t-user",
                                             .password = "t-password",
                                             .url = "t-url",
                                             .service = "t-service",
                                             .color = 3,
                                             .note = "t-note1",
                                             .pwdChange = 7}},
                              .notes = {{.color = 1, .title = "t-label", .content = "t-text"}},
                              .cards = {{.cardNumber = "t-number",
                                         .custName = "t-name",
                                         .holderName = "t-holder",
                                         .cvv = "t-cvv",
                                         .pin = "t-pin",
                                         .note = "t-note2",
                                         .expirationDay = 31,
                                         .expirationMonth = 12,
                                         .expirationYear = 2029}}};
    EXPECT_EQ(reading.records, expected);
    EXPECT_TRUE(reading.report.findings().empty());
    EXPECT_TRUE(reading.report.unread().empty());
    EXPECT_EQ(reading.report.placeUnit(), PlaceUnit::record);
}

TEST(FaithfulTirelImporterTest, losesOneValueForOneThatIsMissingOrOfAnotherType) {
    forEachChange(whole, [&](const JSONChange& change) {
        const std::string where = change.path + " " + std::string(change.name);
        const Reading reading = read(change.text);
        ASSERT_FALSE(reading.records.error) << where;
        for (const std::string& text : change.kept) {
            if (text.starts_with("t-")) {
                EXPECT_TRUE(reading.texts().contains(text)) << text << " without " << where;
            }
        }
        const bool isElement = change.path.ends_with("/0");
        const bool isOptional =
            change.path.ends_with("Change") || change.path.starts_with("/logins/0/custName");
        const bool mayLack = isElement || isOptional;
        if (change.name == "1.5" || (!mayLack && change.name == "missing")) {
            const auto told = reading.found(FindingKind::valueOfOtherType) +
                              reading.leftOut(LeftOutReason::fieldOfOtherType);
            EXPECT_EQ(told, 1) << where;
        }
    });
}

TEST(FaithfulTirelImporterTest, leavesOutWhatIsEmptyOrNoObject) {
    const Reading reading =
        read(R"({"logins":[{"color":1},5,{"pwd":"x"}],"notes":[null,{}],"cards":[{"pin":""}]})");
    EXPECT_EQ(reading.records.passwords.size(), 1);
    EXPECT_EQ(reading.delivered(), 1);
    EXPECT_EQ(reading.leftOut(LeftOutReason::empty), 3);
    EXPECT_EQ(reading.leftOut(LeftOutReason::fieldOfOtherType), 2);
}

TEST(FaithfulTirelImporterTest, tellsOfMembersThatItDoesNotKnow) {
    EXPECT_EQ(read(R"({"logins":[{"pwd":"x","icon":"t"}],"notes":[],"cards":[]})")
                  .unread("other members"),
              1);
    EXPECT_EQ(read(R"({"logins":[{"pwd":"x","label":"t"}],"notes":[],"cards":[],"more":1})")
                  .unread("other members"),
              2);
    EXPECT_EQ(read(R"({"logins":[],"notes":[],"cards":[{"pin":"1","expirationDate":{"era":1}}]})")
                  .unread("other members"),
              1);
}

TEST(FaithfulTirelImporterTest, failsWithTheLineOfWhatIsNotJSON) {
    const Reading reading = read("{\"logins\":[\n{\"pwd\":\"x\"},\n");
    EXPECT_EQ(reading.report.failure().reason, FailureReason::cutShort);
    EXPECT_EQ(reading.report.failure().place, 3);
    EXPECT_EQ(read("{}").report.failure().reason, FailureReason::wrongShape);
    EXPECT_EQ(read("[]").report.failure().reason, FailureReason::wrongShape);
}

TEST(FaithfulTirelImporterTest, tellsOfMembersThatBelongElsewhere) {
    const auto unreadOf = [](std::string_view login, std::string_view note, std::string_view card,
                             std::string_view more = "") {
        return read(R"({"logins":[{"pwd":"x")" + std::string(login) + R"(}],"notes":[{"text":"x")" +
                    std::string(note) + R"(}],"cards":[{"pin":"1","expirationDate":{"day":1)" +
                    std::string(card) + "}}]" + std::string(more) + "}")
            .unread("other members");
    };
    EXPECT_EQ(unreadOf("", "", ""), 0);
    EXPECT_EQ(unreadOf(R"(,"cvv":"2")", R"(,"pwd":"2")", R"(,"pin":"2")", R"(,"pin":1)"), 4);
    EXPECT_EQ(
        read(R"({"logins":[],"notes":[],"cards":[{"pin":"1","color":1}]})").unread("other members"),
        1);
}

} // namespace

} // namespace Rellinor::Tests
