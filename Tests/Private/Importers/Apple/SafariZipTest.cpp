#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/JSONLosses.hpp"
#include "Tests/Support/Reading.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/Zip.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::string_view passwords =
    "Title,URL,Username,Password,Notes,OTPAuth\n"
    "mail.example.org (ann),https://mail.example.org/,ann,\"p,1\",,otpauth://totp/x\n"
    ",,,,,\n";
constexpr std::string_view cards =
    "{\"metadata\":{\"browser_name\":\"Safari\",\"data_type\":\"payment_cards\"},\n"
    "\"payment_cards\":[\n"
    "{\"card_number\":\"4111111111111111\",\"card_name\":\"Main\",\n"
    "\"cardholder_name\":\"Ann Example\",\"card_expiration_month\":3,"
    "\"card_expiration_year\":2027,\"card_last_used_time_usec\":1733900000000000},\n"
    "{\"card_number\":\"4\",\"card_expiration_month\":13},\n"
    "{},\n"
    "7]}";

const Outcome everything = {
    .passwords = {{.username = "ann",
                   .password = "p,1",
                   .url = "https://mail.example.org/",
                   .service = "mail.example.org (ann)"}},
    .cards = {{.cardNumber = "4111111111111111",
               .custName = "Main",
               .holderName = "Ann Example",
               .cvv = "",
               .pin = "",
               .note = "",
               .expirationDay = 0,
               .expirationMonth = 3,
               .expirationYear = 2027},
              {.cardNumber = "4",
               .custName = "",
               .holderName = "",
               .cvv = "",
               .pin = "",
               .note = "",
               .expirationDay = 0,
               .expirationMonth = 0,
               .expirationYear = 0}},
};

const std::vector<ZipFile> files = {
    {.name = "책갈피.html", .contents = "<!DOCTYPE html>"},
    {.name = "방문 기록.json", .contents = "{\"metadata\":{\"data_type\":\"history\"}}"},
    {.name = "결제 카드.json", .contents = cards, .isDeflated = true},
    {.name = "암호.csv", .contents = passwords, .isDeflated = true},
};

void expectEverything(const Reading& reading) {
    EXPECT_EQ(reading.records, everything);
    EXPECT_EQ(reading.extras,
              (std::vector<std::string>{"oneTimePassword OTPAuth=otpauth://totp/x\n",
                                        "lastUsedAt card_last_used_time_usec=1733900000000000\n",
                                        "customText card_expiration_month=13\n"}));
    EXPECT_EQ(reading.report.layout(), Layout::safariZip);
    EXPECT_EQ(reading.unread("other files"), 2);
    ASSERT_EQ(reading.report.leftOut().size(), 3U);
    EXPECT_EQ(reading.report.placeUnit(), PlaceUnit::line);
    EXPECT_EQ(reading.report.leftOut()[0].places.member, "Passwords.csv");
    EXPECT_EQ(reading.report.leftOut()[0].places.first, std::vector<std::uint64_t>{3});
    EXPECT_EQ(reading.report.leftOut()[2].reason, LeftOutReason::fieldOfOtherType);
    EXPECT_EQ(reading.report.leftOut()[2].places.member, "PaymentCards.json");
    ASSERT_EQ(reading.report.findings().size(), 1U);
    EXPECT_EQ(reading.report.findings()[0].places.member, "PaymentCards.json");
    EXPECT_EQ(reading.report.findings()[0].places.first, std::vector<std::uint64_t>{5});
}

TEST(SafariZipTest, readsPasswordsAndCardsWhateverTheirNames) {
    expectEverything(readingOf(zipOf(files)));
}

TEST(SafariZipTest, readsAFolderLikeTheArchive) {
    const TemporaryFolder folder;
    for (const ZipFile& file : files) {
        folder.file(file.name, file.contents);
    }
    expectEverything(readingOf(Layout::safariZip, ExportFile::atPath(folder.path().native())));
}

TEST(SafariZipTest, readsTheCardsAlone) {
    EXPECT_EQ(readingOf(cards).records, (Outcome{.cards = everything.cards}));
    EXPECT_EQ(readingOf(Layout::safariZip, zipOf({{.name = "a.json", .contents = cards}})).records,
              (Outcome{.cards = everything.cards}));
}

TEST(SafariZipTest, failsIfTheArchiveHasNeitherOrOneOfThemTwice) {
    const auto reasonOf = [](const std::vector<ZipFile>& broken) {
        return readingOf(Layout::safariZip, zipOf(broken)).report.failure().reason;
    };
    EXPECT_EQ(reasonOf({{.name = "a.html"}}), FailureReason::wrongShape);
    EXPECT_EQ(
        reasonOf({{.name = "a.json", .contents = cards}, {.name = "b.json", .contents = cards}}),
        FailureReason::damaged);
    const Failure broken =
        readingOf(Layout::safariZip,
                  zipOf({{.name = "a.json", .contents = cards.substr(0, cards.size() - 3)}}))
            .report.failure();
    EXPECT_EQ(broken.reason, FailureReason::cutShort);
    EXPECT_EQ(broken.field, "PaymentCards.json");
    EXPECT_EQ(broken.place, 7);
}

TEST(SafariZipTest, losesOneValueOfACardAtATime) {
    expectSingleLosses(Layout::safariZip,
                       R"({"metadata":{"data_type":"payment_cards"},"payment_cards":[)"
                       R"({"card_number":"t-1","card_name":"t-2","cardholder_name":"t-3",)"
                       R"("card_expiration_month":3,"card_expiration_year":2027},)"
                       R"({"card_number":"t-4","card_name":"t-5"}]})");
}

} // namespace

} // namespace Rellinor::Tests
