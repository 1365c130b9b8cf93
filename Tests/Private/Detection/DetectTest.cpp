#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <Rellinor/ExportReader.hpp>

#include "Tests/Private/Detection/Detected.hpp"
#include "Tests/Support/Connection.hpp"
#include "Tests/Support/Nobody.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using namespace std::string_view_literals;
using enum Confidence;

TEST(DetectTest, knowsEverySample) {
    const std::vector<std::pair<std::string, Found>> samples = {
        {"/Chrome/Login Data", layoutFound("chromium-logins", certain, ImportSource::chrome)},
        {"/Dashlane/export.csv",
         layoutFound("dashlane-positional-csv", possible, ImportSource::dashlane)},
        {"/Firefox/current.profile",
         layoutFound("firefox-profile", certain, ImportSource::firefox)},
        {"/Firefox/old.profile", layoutFound("firefox-profile", certain, ImportSource::firefox)},
        {"/KeePass/export.csv", layoutFound("keepass-csv", certain, ImportSource::keePass)},
        {"/KeePassXC/export.csv", layoutFound("keepassxc-csv", certain, ImportSource::keePassXC)},
        {"/LastPass/export.csv", layoutFound("lastpass-csv", certain, ImportSource::lastPass)},
        {"/OnePassword/export.1pif",
         layoutFound("1password-1pif", certain, ImportSource::onePassword)},
        {"/Tirel/export.json", layoutFound("tirel-json", certain, ImportSource::tirel)},
    };
    // The other sample of Dashlane has a header of its own.
    EXPECT_EQ(detectedAt(RELLINOR_VAULT "/Dashlane/export.csv"),
              layoutFound("generic-csv", likely));
    for (const auto& [name, found] : samples) {
        for (const std::string folder : {RELLINOR_EXAMPLES, RELLINOR_VAULT}) {
            if (folder + name != RELLINOR_VAULT "/Dashlane/export.csv") {
                EXPECT_EQ(detectedAt(folder + name), found) << folder << name;
            }
        }
    }
    for (const std::string_view name :
         {"byte-order-mark", "carriage-returns", "identifiers", "search-window", "typical"}) {
        EXPECT_EQ(detectedAt(std::string(RELLINOR_FIXTURES "/Dashlane/").append(name) + ".csv"),
                  samples[1].second)
            << name;
    }
}

TEST(DetectTest, readsNothingByItselfThatIsNoMoreThanPossible) {
    const ExportFile file = ExportFile::inMemory("Mail,https://a.example,ann,one,\n"sv, "");
    ASSERT_EQ(detect(file).confidence, possible);
    const ImportedExport result = readExport(file);
    EXPECT_FALSE(result.records);
    EXPECT_EQ(result.report.failure().reason, FailureReason::unknown);
}

// What is no text

TEST(DetectTest, knowsWhatIsEncrypted) {
    const Found encrypted = obstructedBy(FailureReason::encrypted, {}, certain);
    EXPECT_EQ(detected("\x03\xD9\xA2\x9A\x67\xFB\x4B\xB5\x01\x00"sv), encrypted);
    EXPECT_EQ(detected("\x03\xD9\xA2\x9A\x65\xFB\x4B\xB5"sv), encrypted);
    EXPECT_EQ(detected("-----BEGIN PGP MESSAGE-----\n\nx"), encrypted);
    const Found named = obstructedBy(FailureReason::encrypted, {}, likely);
    EXPECT_EQ(detected("\x85\x01\x0C\x03\xFF"sv, "export.pgp"), named);
    EXPECT_EQ(detected("eyJ.x", "my.DASH"), named);
    EXPECT_EQ(detected("eyJ.x", "a.jwe"),
              obstructedBy(FailureReason::encrypted, "credential-exchange-json", likely));
    for (const std::string_view advice :
         {detect(ExportFile::inMemory("\x03\xD9\xA2\x9A"sv, "")).advice,
          detect(ExportFile::inMemory(R"({"encrypted":true,"data":"x"})"sv, "")).advice}) {
        EXPECT_FALSE(advice.empty());
    }
}

TEST(DetectTest, knowsWhatIsNoExport) {
    for (const std::string_view bytes :
         {"\x89PNG\r\n\x1A\n\0\0\0\rIHDR"sv, "\xFF\xD8\xFF\xE0\0\x10JFIF"sv, "%PDF-1.7\n"sv,
          "\x1F\x8B\b\0"sv, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv, "\x80\x01\x02\x03\xFF"sv,
          "# A title\n\nSome text, and more.\n"sv, "<!DOCTYPE html><html>"sv,
          "<?xml version=\"1.0\"?><pwlist></pwlist>"sv, "<KeePassFiles>"sv,
          "<!DOCTYPE KeePassFile><KeePassFile>"sv, "<KeePassFile"sv,
          "<html>url,username,password,"sv, "<KeePass"sv, "<p>"sv}) {
        EXPECT_EQ(detected(bytes), Found{}) << bytes;
    }
    for (const std::string_view bytes : {""sv, " \r\n\t\n"sv, "\xEF\xBB\xBF"sv, "\xFF\xFE"sv}) {
        EXPECT_EQ(detected(bytes), obstructedBy(FailureReason::noRows));
    }
}

TEST(DetectTest, knowsTheRootOfAnXMLDocument) {
    for (const std::string_view text :
         {"<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>\r\n<KeePassFile>\r\n",
          "\uFEFF<!-- <a> -->\n<KeePassFile x=\"\">", "<KeePassFile/>"}) {
        EXPECT_EQ(detected(text), layoutFound("keepass-xml")) << text;
    }
}

TEST(DetectTest, knowsTheWebPageInWhichLastPassShowsItsExport) {
    EXPECT_EQ(detected("<html><body><pre>url,username,password,totp,extra,name,grouping,fav\n"),
              obstructedBy(FailureReason::wrongColumns, "lastpass-csv", certain));
}

// Encodings

std::string wide(std::string_view text, bool isBigEndian) {
    std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char letter : text) {
        bytes += isBigEndian ? '\0' : letter;
        bytes += isBigEndian ? letter : '\0';
    }
    return bytes;
}

TEST(DetectTest, knowsTextInUTF16) {
    for (const bool isBigEndian : {false, true}) {
        EXPECT_EQ(detected(wide(R"({"logins":[],"notes":[],"cards":[]})", isBigEndian)),
                  layoutFound("tirel-json", certain));
        EXPECT_EQ(detected(wide(R"({"encrypted":true,"data":""})", isBigEndian)),
                  obstructedBy(FailureReason::encrypted, "bitwarden-json", certain));
        EXPECT_EQ(detected(wide("some text", isBigEndian)), detected("some text"));
        EXPECT_EQ(detected(wide("some text", isBigEndian).substr(2)),
                  obstructedBy(FailureReason::utf16));
    }
}

TEST(DetectTest, knowsTextThatIsNotInUTF8) {
    EXPECT_EQ(detected("url,username,password,extra,name,grouping,fav\n,caf\xE9,,,,,\n"),
              obstructedBy(FailureReason::notUTF8, "lastpass-csv", certain));
    EXPECT_EQ(detected("caf\xE9\n"), obstructedBy(FailureReason::notUTF8));
    EXPECT_EQ(detected("{\"encrypted\":true,\"data\":\"caf\xE9\"}"),
              obstructedBy(FailureReason::encrypted, "bitwarden-json", certain));
}

TEST(DetectTest, doesNotMindACharacterThatIsCutAtTheEndOfWhatItLooksAt) {
    const Found lastPass = layoutFound("lastpass-csv", certain, ImportSource::lastPass);
    std::string text = "url,username,password,extra,name,grouping,fav\n";
    for (int shift = 0; shift < 4; ++shift) {
        std::string shifted = text + std::string(static_cast<std::size_t>(shift), 'x');
        while (shifted.size() < 70'000) {
            shifted += "😀";
        }
        EXPECT_EQ(detected(shifted), lastPass);
    }
}

// Databases

class DetectDatabaseTest : public testing::Test {
protected:
    [[nodiscard]] std::string made(std::string_view statements) const {
        const std::string path = _folder / "a b%20?c#d";
        Connection(path).execute({std::string(statements)});
        return path;
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
};

constexpr std::string_view chromeTable = "CREATE TABLE logins (origin_url, username_value);";

TEST_F(DetectDatabaseTest, knowsTheSchemasThatProductsWrite) {
    const Found logins = layoutFound("chromium-logins", certain, ImportSource::chrome);
    EXPECT_EQ(detectedAt(made(contentsOf(RELLINOR_FIXTURES "/Chrome/schema.sql"))), logins);
    const Found part = obstructedBy(FailureReason::other, "firefox-profile", certain);
    const TemporaryFolder other;
    Connection(other / "old").execute({contentsOf(RELLINOR_FIXTURES "/Firefox/signons.sql")});
    EXPECT_EQ(detectedAt(other / "old"), part);
    Connection(other / "keys").execute({"CREATE TABLE metaData (id PRIMARY KEY, item1, item2);"});
    EXPECT_EQ(detectedAt(other / "keys"), part);
}

TEST_F(DetectDatabaseTest, findsATableAmongManyThatWasRenamed) {
    std::string statements = "PRAGMA page_size = 512;";
    for (int i = 0; i < 60; ++i) {
        statements += "CREATE TABLE t" + std::to_string(i) + " (a, b, c);";
    }
    const std::string path = made(statements + "CREATE TABLE x (origin_url, username_value);"
                                               "ALTER TABLE x RENAME TO logins;");
    EXPECT_EQ(detectedAt(path), layoutFound("chromium-logins", certain, ImportSource::chrome));
}

TEST_F(DetectDatabaseTest, knowsNoOtherDatabase) {
    EXPECT_EQ(detectedAt(made("CREATE VIEW logins AS SELECT 1 AS origin_url, 2 AS username_value;"
                              "CREATE TABLE logins2 (origin_url, username_value);")),
              Found{});
    EXPECT_EQ(detected("SQLite format 3\0 and no more"sv), Found{});
}

TEST_F(DetectDatabaseTest, knowsADatabaseOfTheLargestPages) {
    EXPECT_EQ(detectedAt(made("PRAGMA page_size = 65536;" + std::string(chromeTable))),
              layoutFound("chromium-logins", certain, ImportSource::chrome));
}

TEST_F(DetectDatabaseTest, knowsTheBytesOfADatabase) {
    EXPECT_EQ(detected(contentsOf(made(chromeTable))),
              layoutFound("chromium-logins", certain, ImportSource::chrome));
}

TEST_F(DetectDatabaseTest, endsWhateverThePagesName) {
    const std::string sound = contentsOf(made(contentsOf(RELLINOR_FIXTURES "/Chrome/schema.sql")));
    for (std::size_t place = 16; place < 200; ++place) {
        for (const char byte : {'\0', '\5', '\x7F', '\xFF'}) {
            std::string bytes = sound;
            bytes[place] = byte;
            const Found found = detected(bytes);
            EXPECT_TRUE(found.layout.empty() || found.layout == "chromium-logins");
        }
    }
}

TEST_F(DetectDatabaseTest, neitherMindsALockNorLeavesAnything) {
    const std::string path = made("PRAGMA journal_mode = WAL;" + std::string(chromeTable));
    const std::string before = contentsOf(path);
    const Found logins = layoutFound("chromium-logins", certain, ImportSource::chrome);
    EXPECT_EQ(detectedAt(path), logins);
    EXPECT_EQ(contentsOf(path), before);
    const auto entries = std::filesystem::directory_iterator(folder().path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

// Folders

class DetectFolderTest : public testing::Test {
protected:
    /// Writes a file, and the folders it is in; returns what the folder is taken for.
    [[nodiscard]] Found with(const std::string& name, std::string_view contents = "x") const {
        std::filesystem::create_directories((_folder.path() / name).parent_path());
        (void)_folder.file(name, contents);
        return detectedAt(path());
    }

    [[nodiscard]] std::string path() const { return _folder.path(); }

private:
    TemporaryFolder _folder;
};

TEST_F(DetectFolderTest, knowsWhatProductsWrite) {
    const Found noStore = obstructedBy(FailureReason::noStore, {}, certain);
    const Found vault = obstructedBy(FailureReason::encrypted, {}, certain);
    const Found profile = layoutFound("firefox-profile", certain, ImportSource::firefox);
    const std::vector<std::pair<std::string, Found>> folders = {
        {"logins.json", profile},
        {"signons.sqlite", profile},
        {"Login Data", layoutFound("chromium-logins")},
        {"Login Data For Account", layoutFound("chromium-logins")},
        {"data.1pif", layoutFound("1password-1pif")},
        {"credentials.csv", layoutFound("dashlane-zip")},
        {"secureNotes.csv", layoutFound("dashlane-zip")},
        {"export.data", layoutFound("1password-1pux")},
        {"default/profile.js", vault},
        {"data/default/contents.js", vault},
        {"Default/Login Data", noStore},
        {"profiles.ini", noStore},
        {"key4.db", noStore},
        {"holiday.jpg", obstructedBy(FailureReason::noStore)},
    };
    for (const auto& [name, found] : folders) {
        const TemporaryFolder folder;
        std::filesystem::create_directories((folder.path() / name).parent_path());
        (void)folder.file(name, "x");
        EXPECT_EQ(detectedAt(folder.path().string()), found) << name;
        EXPECT_EQ(detectedAt(folder.path().string() + "/"), found) << name;
    }
    EXPECT_EQ(detectedAt(path()), obstructedBy(FailureReason::noStore));
}

TEST_F(DetectFolderTest, doesNotTakeAFolderForAFile) {
    EXPECT_EQ(with("Login Data/x"), obstructedBy(FailureReason::noStore));
}

// What is not there, or no file

TEST_F(DetectFolderTest, saysWhatKeepsAFileFromBeingRead) {
    EXPECT_EQ(detectedAt(path() + "/missing"), obstructedBy(FailureReason::missing));
    EXPECT_EQ(detectedAt(path() + '\0'), obstructedBy(FailureReason::missing));
    EXPECT_EQ(detectedAt("/dev/null"), obstructedBy(FailureReason::notAFile));
    const std::string pipe = path() + "/pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(detectedAt(pipe), obstructedBy(FailureReason::notAFile));
    const Found found = with("file");
    EXPECT_EQ(found, obstructedBy(FailureReason::noStore));
    EXPECT_EQ(detectedAt(path() + "/file/x"), obstructedBy(FailureReason::missing));
}

TEST_F(DetectFolderTest, saysWhatMayNotBeRead) {
    using std::filesystem::perms;
    (void)with("closed/file");
    (void)with("secret");
    std::filesystem::permissions(path(), perms::all);
    std::filesystem::permissions(path() + "/closed", perms::none);
    std::filesystem::permissions(path() + "/secret", perms::none);
    const auto isSaid = [&] {
        const Found denied = obstructedBy(FailureReason::noPermission);
        return detectedAt(path() + "/closed") == denied &&
               detectedAt(path() + "/closed/file") == denied &&
               detectedAt(path() + "/secret") == denied;
    };
    EXPECT_EXIT(exitAsNobody(isSaid), testing::ExitedWithCode(0), "");
    std::filesystem::permissions(path() + "/closed", perms::owner_all);
}

TEST_F(DetectFolderTest, looksAtABoundedPartOfALongFile) {
    const std::string long_ = path() + "/long.csv";
    EXPECT_EQ(with("long.csv", "name,url,username,password\n").layout, "");
    std::filesystem::resize_file(long_, std::uintmax_t{1} << 40U); // sparse
    EXPECT_EQ(detectedAt(long_).layout, "chromium-csv");
    EXPECT_EQ(with("long.zip", "PK\3\4").layout, "");
    std::filesystem::resize_file(path() + "/long.zip", std::uintmax_t{1} << 40U);
    EXPECT_EQ(detectedAt(path() + "/long.zip"), obstructedBy(FailureReason::damaged));
}

} // namespace

} // namespace Rellinor::Tests
