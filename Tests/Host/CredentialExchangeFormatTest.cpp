// The host tool's files of the Credential Exchange Format.

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Host/OneTimePassword.hpp"
#include "Tests/Host/Tool.hpp"
#include "Tests/Support/Reading.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using Host::OneTimePassword;

class CredentialExchangeFormatTest : public testing::Test {
protected:
    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

    /// A file with everything that a file of a layout holds.
    [[nodiscard]] std::string written(std::string_view layout, const std::string& path) const {
        const Ended ended = rellinor(
            {"import", "--layout", std::string(layout), "--format", "credential-exchange", path});
        EXPECT_EQ(ended.status, 0) << ended.errors;
        return ended.out;
    }

private:
    TemporaryFolder _folder;
};

/// The text without what differs from one run to the next.
std::string withoutTime(const std::string& text) {
    const std::size_t begin = text.find("\"timestamp\":");
    return text.substr(0, begin) + text.substr(text.find(',', begin) + 1);
}

TEST_F(CredentialExchangeFormatTest, writesWhatTheFormatHasAPlaceFor) {
    const std::string path = folder().file(
        "export.csv",
        "folder,favorite,type,name,notes,fields,reprompt,login_uri,login_username,"
        "login_password,login_totp\r\n"
        "Work/Mail,1,login,Mail,a note,hint: blue,0,\"https://a.example,https://b.example\",ann,"
        "p\"1,jbsw y3dp\r\n"
        ",,note,Wi-Fi,secret,,0,,,,");
    EXPECT_EQ(
        withoutTime(written("bitwarden-csv", path)),
        R"({"version":{"major":1,"minor":0},"exporterRpId":"rellinor",)"
        R"("exporterDisplayName":"Rellinor","accounts":[{"id":"00000000","username":"",)"
        R"("email":"","items":[{"id":"00000001","title":"Mail","favorite":true,)"
        R"("scope":{"urls":["https://a.example","https://b.example"],"androidApps":[]},)"
        R"("credentials":[{"type":"basic-auth",)"
        R"("username":{"fieldType":"string","value":"ann"},)"
        R"("password":{"fieldType":"concealed-string","value":"p\"1"}},)"
        R"({"type":"totp","secret":"JBSWY3DP","period":30,"digits":6,"algorithm":"sha1"},)"
        R"({"type":"note","content":{"fieldType":"string","value":"a note"}},)"
        R"({"type":"custom-fields","fields":[)"
        R"({"fieldType":"string","value":"blue","label":"hint"}]}]},)"
        R"({"id":"00000002","title":"Wi-Fi","credentials":[{"type":"note",)"
        R"("content":{"fieldType":"string","value":"secret"}}]}],)"
        R"("collections":[{"id":"00000001","title":"Work/Mail","items":[{"item":"00000001"}]}]}]})"
        "\n");
}

TEST_F(CredentialExchangeFormatTest, keepsADateThatIsNoMonthAsCustomFields) {
    const std::string path = folder().file(
        "export.json",
        R"({"logins":[],"notes":[],"cards":[{"cardNumber":"4","custName":"C","holderName":"",)"
        R"("cvv":"","pin":"","note":"","expirationDate":{"day":31,"month":0,"year":2031}}]})");
    const std::string text = written("tirel-json", path);
    EXPECT_FALSE(text.contains("expiryDate"));
    EXPECT_TRUE(text.contains(R"({"fieldType":"string","value":"2031","label":"expirationYear"})"));
    EXPECT_TRUE(text.contains(R"({"fieldType":"string","value":"31","label":"expirationDay"})"));
}

/// The values of extras, but those of one-time passwords, which are written in another way.
std::multiset<std::string> valuesIn(const Reading& reading) {
    constexpr std::string_view oneTimePassword = "oneTimePassword";
    std::multiset<std::string> values;
    for (const std::string& lines : reading.extras) {
        for (std::size_t place = 0; place < lines.size();) {
            const std::size_t end = lines.find('\n', place);
            const std::string line = lines.substr(place, end - place);
            place = end + 1;
            if (!line.starts_with(oneTimePassword)) {
                values.insert(line.substr(line.find('=') + 1));
            }
        }
    }
    return values;
}

/// Without what the format has no place for, which arrives as extras.
Outcome comparable(Outcome records) {
    for (Password& login : records.passwords) {
        login.color.reset();
        login.pwdChange.reset();
    }
    for (Note& note : records.notes) {
        note.color.reset();
    }
    for (Card& card : records.cards) {
        card.expirationDay = 0;
    }
    return records;
}

TEST_F(CredentialExchangeFormatTest, carriesEveryVaultThroughTheSecondDoor) {
    const std::string vault = RELLINOR_VAULT;
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(vault)) {
        const std::string path = entry.path().native();
        const Detection found = detect(ExportFile::atPath(path));
        const bool isStore =
            found.layout == Layout::firefoxProfile || found.layout == Layout::chromiumLogins;
        if (!found.layout || found.obstacle != FailureReason::none || isStore ||
            entry.is_directory()) {
            continue;
        }
        ++files;
        const Reading before = readingOf(*found.layout, ExportFile::atPath(path));
        const std::string text = written(identifier(*found.layout), path);
        const Reading after = readingOf(text);
        EXPECT_EQ(after.report.layout(), Layout::credentialExchangeJSON);
        EXPECT_EQ(comparable(after.records), comparable(before.records)) << path;
        const auto values = valuesIn(after);
        const auto wanted = valuesIn(before);
        EXPECT_TRUE(std::ranges::includes(values, wanted)) << path;
        EXPECT_EQ(after.report.findings().size(), 0U) << path;

        // Once more, nothing changes.
        const std::string again =
            written("credential-exchange-json", folder().file("again.json", text));
        EXPECT_EQ(withoutTime(again), withoutTime(text)) << path;
    }
    EXPECT_GT(files, 20U);
}

TEST_F(CredentialExchangeFormatTest, exportsNothingThatIsStillEncryptedUnlessAsked) {
    const std::string path = RELLINOR_EXAMPLES "/Firefox/current.profile";
    const Ended refused = rellinor({"import", "-f", "credential-exchange", path});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.out.contains("\"items\":[]")) << refused.out;
    EXPECT_TRUE(refused.errors.contains("still encrypted")) << refused.errors;
    EXPECT_TRUE(rellinor({"import", "-f", "credential-exchange", "--encrypted", path})
                    .out.contains("basic-auth"));
}

TEST(OneTimePasswordTest, readsURLsAndSecrets) {
    const auto full = OneTimePassword::of(
        "otpauth://totp/Mail%20box:ann@example.org?secret=jbswy3dp&algorithm=SHA256&digits=8&"
        "period=60&issuer=Mail%20box&lock=false");
    ASSERT_TRUE(full);
    EXPECT_EQ(full->secret, "JBSWY3DP");
    EXPECT_EQ(full->algorithm, "sha256");
    EXPECT_EQ(full->digits, 8);
    EXPECT_EQ(full->period, 60);
    EXPECT_EQ(full->username, "ann@example.org");
    EXPECT_EQ(full->issuer, "Mail box");
    EXPECT_EQ(OneTimePassword::of("jbsw y3dp")->secret, "JBSWY3DP");
    EXPECT_EQ(OneTimePassword::of("OTPAUTH://totp/?secret=A")->username, "");
}

TEST(OneTimePasswordTest, isNothingElse) {
    for (const std::string_view text :
         {"", " ", "steam://ABCD", "otpauth://hotp/a?secret=A&counter=1", "otpauth://totp/a",
          "otpauth://totp/a?secret=A&image=x", "otpauth://totp/a?secret=1",
          "otpauth://totp/a?secret=A&digits=0", "otpauth://totp/a?secret=A&period=x",
          "otpauth://totp/a?secret=A&algorithm=md5", "otpauth://totp/a%2?secret=A",
          "otpauth://totp/a%zz?secret=A", "key=A&step=30", "JBSW-Y3DP"}) {
        EXPECT_FALSE(OneTimePassword::of(text)) << text;
    }
}

} // namespace

} // namespace Rellinor::Tests
