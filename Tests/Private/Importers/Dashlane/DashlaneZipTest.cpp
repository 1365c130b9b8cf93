#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Reading.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/Zip.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::string_view credentials =
    "username,username2,username3,title,password,note,url,category,otpUrl\r\n"
    "ann,,,Mail,\"p,1\",,https://mail.example.org,Work,\r\n"
    ",,,,,,,Work,";
constexpr std::string_view notes = "title,note,category\r\nT,\"one\ntwo\",";
constexpr std::string_view payments =
    "type,account_name,account_holder,cc_number,code,expiration_month,expiration_year,"
    "routing_number,account_number,country,issuing_bank,note,name\r\n"
    "payment_card,Ann Example,,4111111111111111,123,03,2027,,,,,blue,Main card\r\n"
    "payment_card,Ann Example,,4,,soon,2027,,,,,,Other card\r\n"
    "payment_card,,,,,,,,,,,,";
constexpr std::string_view documents =
    "type,number,name,issue_date,expiration_date,place_of_issue,state\r\npassport,C01,Ann,,,,";
constexpr std::string_view networks = "ssid,passphrase,name,note,hidden,encription_type\nAt home,pw"
                                      ",W,,,WPA";

const Outcome everything = {
    .passwords = {{.username = "ann",
                   .password = "p,1",
                   .url = "https://mail.example.org",
                   .service = "Mail"}},
    .notes = {{.color = {}, .title = "T", .content = "one\ntwo"},
              {.color = {}, .title = "Ann", .content = "number: C01"},
              {.color = {},
               .title = "W",
               .content = "ssid: At home\npassphrase: pw\nencription_type: WPA"}},
    .cards = {{.cardNumber = "4111111111111111",
               .custName = "Main card",
               .holderName = "Ann Example",
               .cvv = "123",
               .pin = "",
               .note = "blue",
               .expirationDay = 0,
               .expirationMonth = 3,
               .expirationYear = 2027},
              {.cardNumber = "4",
               .custName = "Other card",
               .holderName = "Ann Example",
               .cvv = "",
               .pin = "",
               .note = "",
               .expirationDay = 0,
               .expirationMonth = 0,
               .expirationYear = 2027}},
};

/// In the order of the archive, which is not that of the import.
const std::vector<ZipFile> files = {
    {.name = "Dashlane CSV/wifi.csv", .contents = networks},
    {.name = "Dashlane CSV/ids.csv", .contents = documents},
    {.name = "Dashlane CSV/Payments.csv", .contents = payments, .isDeflated = true},
    {.name = "Dashlane CSV/secureNotes.csv", .contents = notes, .isDeflated = true},
    {.name = "Dashlane CSV/credentials.csv", .contents = credentials, .hasSizesInFront = false},
    {.name = "Dashlane CSV/personalInfo.csv"},
    {.name = "Dashlane CSV/read me.txt", .contents = "x"},
};

void expectEverything(const Reading& reading) {
    EXPECT_EQ(reading.records, everything);
    EXPECT_EQ(reading.report.layout(), Layout::dashlaneZip);
    EXPECT_EQ(reading.unread("other files"), 1);
    ASSERT_EQ(reading.report.leftOut().size(), 2U);
    EXPECT_EQ(reading.report.leftOut()[0].places.member, "credentials.csv");
    EXPECT_EQ(reading.report.leftOut()[0].places.first, std::vector<std::uint64_t>{3});
    EXPECT_EQ(reading.report.leftOut()[1].places.member, "payments.csv");
    EXPECT_EQ(reading.report.leftOut()[1].places.first, std::vector<std::uint64_t>{4});
    EXPECT_EQ(reading.found(FindingKind::unreadableDate, "expiration_month"), 1);
}

TEST(DashlaneZipTest, readsAllFilesOfAnArchiveInOneOrder) {
    const Reading reading = readingOf(zipOf(files));
    expectEverything(reading);
    EXPECT_EQ(reading.extras.front(), "folder category=Work\n");
}

TEST(DashlaneZipTest, readsAFolderLikeTheArchive) {
    const TemporaryFolder folder;
    for (const ZipFile& file : files) {
        folder.file(file.name.substr(file.name.find('/') + 1), file.contents);
    }
    expectEverything(readingOf(Layout::dashlaneZip, ExportFile::atPath(folder.path().native())));
}

TEST(DashlaneZipTest, readsFilesInUTF16) {
    std::string wide("\xFF\xFE", 2);
    for (const char letter : std::string_view("title,note\nT,N")) {
        wide += letter;
        wide += '\0';
    }
    const Reading reading = readingOf(zipOf({{.name = "securenotes.csv", .contents = wide}}));
    EXPECT_EQ(reading.records, (Outcome{.notes = {{.color = {}, .title = "T", .content = "N"}}}));
}

TEST(DashlaneZipTest, failsAsAWholeAndNamesTheFile) {
    const auto failureOf = [](const std::vector<ZipFile>& broken) {
        return readingOf(Layout::dashlaneZip, zipOf(broken)).report.failure();
    };
    const ZipFile good{.name = "credentials.csv", .contents = credentials};
    for (const auto& [bad, reason] : std::vector<std::pair<ZipFile, FailureReason>>{
             {{.name = "ids.csv", .contents = "a,b\n1,2"}, FailureReason::wrongColumns},
             {{.name = "ids.csv", .contents = "\xFFtype"}, FailureReason::notUTF8},
             {{.name = "ids.csv", .contents = documents, .isEncrypted = true},
              FailureReason::encrypted},
             {{.name = "ids.csv", .contents = documents, .checksum = 1}, FailureReason::damaged}}) {
        const Failure failure = failureOf({good, bad});
        EXPECT_EQ(failure.reason, reason);
        EXPECT_EQ(failure.field, "ids.csv");
    }
    const Failure twice = failureOf({good, good});
    EXPECT_EQ(twice.reason, FailureReason::damaged);
    EXPECT_EQ(twice.field, "credentials.csv");
    EXPECT_EQ(failureOf({{.name = "export.data"}}).reason, FailureReason::wrongShape);
}

} // namespace

} // namespace Rellinor::Tests
