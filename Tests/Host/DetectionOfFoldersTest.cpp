#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Tests/Host/Detected.hpp"
#include "Tests/Support/Nobody.hpp"

namespace Rellinor::Host {

namespace {

class DetectionOfFoldersTest : public testing::Test {
protected:
    /// Writes a file, and the folders it is in.
    void write(const std::string& name, std::string_view contents = "x") const {
        std::filesystem::create_directories((_folder.path() / name).parent_path());
        (void)_folder.file(name, contents);
    }

    [[nodiscard]] std::string path() const { return _folder.path(); }

    /// What is said of the folder.
    [[nodiscard]] std::string said() const { return detectedAt(path()); }

private:
    Tests::TemporaryFolder _folder;
};

TEST_F(DetectionOfFoldersTest, knowsAProfileOfFirefox) {
    write("logins.json", R"({"nextId":1,"logins":[]})");
    EXPECT_EQ(said(), "firefox (certain): Firefox profile; the file logins.json");
    EXPECT_EQ(detectedAt(path() + "/"), "firefox (certain): Firefox profile; the file logins.json");
}

TEST_F(DetectionOfFoldersTest, knowsAStoreWithAByteOrderMark) {
    write("logins.json", "\uFEFF{\"nextId\":1,\"logins\":[]}");
    EXPECT_EQ(said(), "firefox (certain): Firefox profile; the file logins.json");
}

TEST_F(DetectionOfFoldersTest, isLessSureOfAStoreThatFirefoxDidNotWrite) {
    write("logins.json", "");
    EXPECT_EQ(said(), "firefox (possible): Firefox profile; the file logins.json, though it is not "
                      "as Firefox writes it");
}

TEST_F(DetectionOfFoldersTest, prefersTheNewerStoreAsAnImportDoes) {
    write("logins.json", "");
    write("signons.sqlite", "");
    EXPECT_TRUE(said().contains("the file logins.json"));
}

TEST_F(DetectionOfFoldersTest, knowsAnOldProfileByItsDatabase) {
    write("signons.sqlite", "");
    EXPECT_EQ(said(), "firefox (possible): Firefox profile; the file signons.sqlite, though it is "
                      "not as Firefox writes it");
}

TEST_F(DetectionOfFoldersTest, tellsToGoIntoAFolderOfProfiles) {
    const std::string expected = "not read (certain): Firefox folder of profiles; folders with "
                                 "stores of logins; give one of the profile folders in it";
    write("a1.default/logins.json");
    EXPECT_EQ(said(), expected);
}

TEST_F(DetectionOfFoldersTest, looksForProfilesInTheFolderThatIsNamedForThem) {
    write("profiles.ini");
    write("Profiles/a1.default/signons.sqlite");
    EXPECT_TRUE(said().starts_with("not read (certain): Firefox folder of profiles; "));
}

TEST_F(DetectionOfFoldersTest, knowsAProfileWithoutLogins) {
    write("key4.db");
    EXPECT_EQ(said(), "not read (likely): Firefox profile without logins; neither logins.json nor "
                      "signons.sqlite is there; give the profile folder that has one of them");
}

TEST_F(DetectionOfFoldersTest, tellsWhichFileOfChromeToGive) {
    write("Login Data");
    EXPECT_EQ(said(), "not read (certain): Chrome profile folder; the file Login Data; give the "
                      "file \"Login Data\" in it");
}

TEST_F(DetectionOfFoldersTest, tellsToGoIntoTheProfilesOfChrome) {
    write("Default/Login Data");
    EXPECT_EQ(said(), "not read (certain): Chrome folder of profiles; the file Default/Login Data; "
                      "give the file \"Login Data\" in the folder of a profile, such as Default");
}

TEST_F(DetectionOfFoldersTest, tellsWhichFileOf1PasswordToGive) {
    write("export.1pif/data.1pif");
    EXPECT_EQ(detectedAt(path() + "/export.1pif"),
              "not read (certain): 1Password export folder; the file data.1pif; give the file "
              "data.1pif in it");
}

TEST_F(DetectionOfFoldersTest, tellsWhichFileOfDashlaneToLookAt) {
    write("credentials.csv");
    EXPECT_EQ(said(), "not read (certain): Dashlane export folder; the file credentials.csv; have "
                      "rellinor detect look at credentials.csv in it");
}

TEST_F(DetectionOfFoldersTest, knowsNoOtherFolder) {
    EXPECT_EQ(said(), "unknown; an empty folder");
    write("holiday.jpg");
    EXPECT_EQ(said(), "unknown; a folder with nothing known in it");
}

TEST_F(DetectionOfFoldersTest, doesNotWaitForAPipeInAProfile) {
    ASSERT_EQ(::mkfifo((path() + "/logins.json").c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_TRUE(said().starts_with("firefox (possible)"));
}

TEST_F(DetectionOfFoldersTest, saysSoOfAFolderThatCannotBeRead) {
    std::filesystem::permissions(path(), std::filesystem::perms::all);
    std::filesystem::create_directory(path() + "/closed");
    std::filesystem::permissions(path() + "/closed", std::filesystem::perms::none);
    const auto isSaid = [&] {
        return detectedAt(path() + "/closed") == "unknown; a folder that cannot be read" &&
               detectedAt(path() + "/closed/in") == "unknown; it cannot be looked at";
    };
    EXPECT_EXIT(Tests::exitAsNobody(isSaid), testing::ExitedWithCode(0), "");
}

} // namespace

} // namespace Rellinor::Host
