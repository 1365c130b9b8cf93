#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Private/Detection/Detected.hpp"
#include "Tests/Support/Zip.hpp"

namespace Rellinor::Tests {

namespace {

using enum Confidence;

/// An archive of empty files with these names.
std::string archive(const std::vector<std::string_view>& names, bool isEncrypted = false,
                    std::string_view comment = {}) {
    std::vector<ZipFile> files;
    for (const std::string_view name : names) {
        files.push_back({.name = name, .isEncrypted = isEncrypted});
    }
    return zipOf(files, comment);
}

TEST(ArchiveTest, knowsWhatProductsWrite) {
    const std::vector<std::pair<std::vector<std::string_view>, Found>> archives = {
        {{"files/", "export.attributes", "export.data"}, layoutFound("1password-1pux")},
        {{"credentials.csv", "personalInfo.csv", "securenotes.csv", "payments.csv", "ids.csv"},
         layoutFound("dashlane-zip")},
        {{"Dashlane CSV/secureNotes.csv"}, layoutFound("dashlane-zip")},
        {{"Proton Pass/data.json"}, layoutFound("protonpass-zip")},
        {{"Proton Pass/data.pgp"},
         obstructedBy(FailureReason::encrypted, "protonpass-zip", certain)},
        {{"data.json", "attachments/1/a.txt"}, layoutFound("bitwarden-zip", likely)},
        {{"Passwords.csv", "PaymentCards.json", "Bookmarks.html"}, layoutFound("safari-zip")},
        {{"암호.csv", "결제 카드.json", "책갈피.html"}, layoutFound("safari-zip", likely)},
        {{"cxf.json"}, layoutFound("credential-exchange-json", likely)},
        {{"anything.json"}, layoutFound("credential-exchange-json", possible)},
        {{"CXP-Export/index.jwe", "CXP-Export/documents/a.jwe"},
         obstructedBy(FailureReason::encrypted, "credential-exchange-json", certain)},
        {{"a.csv", "b.json", "c.html", "d.bin"}, {}},
        {{"a.csv", "b.json"}, {}},
        {{"a.csv", "c.html"}, {}},
        {{"[Content_Types].xml", "xl/workbook.xml"}, {}},
        {{"export.data.bak", "my-export.data"}, {}},
        {{"Login Data"}, {}},
        {{}, {}},
    };
    for (const auto& [names, found] : archives) {
        EXPECT_EQ(detected(archive(names)), found) << testing::PrintToString(names);
        EXPECT_EQ(detected(archive(names, false, "a comment")), found);
    }
}

TEST(ArchiveTest, saysSoOfEncryptedFiles) {
    EXPECT_EQ(detected(archive({"credentials.csv"}, true)),
              obstructedBy(FailureReason::encrypted, "dashlane-zip", certain));
    EXPECT_EQ(detected(archive({"holiday.jpg"}, true)), obstructedBy(FailureReason::encrypted));
    EXPECT_EQ(detected(archive({"credentials.csv", "payments.csv"}, true)),
              obstructedBy(FailureReason::encrypted, "dashlane-zip", certain));
}

TEST(ArchiveTest, looksAtTheListOfALongArchive) {
    const std::string long_ = archive({"export.data"});
    const std::size_t list = long_.find("PK\1\2");
    std::string text = "PK\3\4" + std::string(300'000, 'x') + long_.substr(list);
    const std::size_t end = text.find("PK\5\6");
    text.replace(end + 16, 4, zipNumber(4 + 300'000, 4));
    EXPECT_EQ(detected(text), layoutFound("1password-1pux"));
}

TEST(ArchiveTest, endsWhereverTheArchiveIsCut) {
    const std::string whole = archive({"files/", "export.data", "a.json"}, false, "a comment");
    for (std::size_t size = 4; size < whole.size(); ++size) {
        const Found found = detected(std::string_view(whole).substr(0, size));
        EXPECT_TRUE(found == obstructedBy(FailureReason::damaged) ||
                    found == layoutFound("1password-1pux"))
            << size << ": " << found;
    }
}

TEST(ArchiveTest, trustsNoSizeOrPlace) {
    const std::string whole = archive({"a.txt", "credentials.csv"});
    for (std::size_t place = whole.find("PK\1\2") + 4; place < whole.size(); ++place) {
        for (const char byte : {'\0', '\x7F', '\xFF'}) {
            std::string text = whole;
            text[place] = byte;
            const Found found = detected(text);
            EXPECT_TRUE(found.obstacle != FailureReason::none || found.layout == "dashlane-zip");
        }
    }
}

} // namespace

} // namespace Rellinor::Tests
