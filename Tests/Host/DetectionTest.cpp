#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Host/Source.hpp"
#include "Tests/Host/Detected.hpp"
#include "Tests/Support/RandomText.hpp"

namespace Rellinor::Host {

namespace {

using namespace std::string_view_literals;

/// A path, and the source that is found for it.
struct Known {
    std::string path;
    ImportSource source;
};

const std::vector<Known>& samples() {
    static const std::vector<Known> all = [] {
        std::vector<Known> known;
        for (const std::string folder : {RELLINOR_EXAMPLES, RELLINOR_VAULT}) {
            known.insert(known.end(),
                         {{folder + "/Chrome/Login Data", ImportSource::chrome},
                          {folder + "/Dashlane/export.csv", ImportSource::dashlane},
                          {folder + "/Firefox/current.profile", ImportSource::firefox},
                          {folder + "/Firefox/old.profile", ImportSource::firefox},
                          {folder + "/KeePass/export.csv", ImportSource::keePass},
                          {folder + "/KeePassXC/export.csv", ImportSource::keePassXC},
                          {folder + "/LastPass/export.csv", ImportSource::lastPass},
                          {folder + "/OnePassword/export.1pif", ImportSource::onePassword},
                          {folder + "/Tirel/export.json", ImportSource::tirel}});
        }
        return known;
    }();
    return all;
}

TEST(DetectionTest, knowsEverySample) {
    for (const auto& [path, source] : samples()) {
        const Detection detection = detect(path);
        EXPECT_EQ(detection.source, source) << path;
        EXPECT_EQ(detection.confidence,
                  source == ImportSource::dashlane ? Confidence::likely : Confidence::certain)
            << path;
        EXPECT_EQ(detection.advice, "") << path;
    }
}

TEST(DetectionTest, knowsEveryFixtureThatAnImportReads) {
    const std::vector<Known> fixtures = {{"Dashlane/byte-order-mark.csv", ImportSource::dashlane},
                                         {"Dashlane/carriage-returns.csv", ImportSource::dashlane},
                                         {"Dashlane/identifiers.csv", ImportSource::dashlane},
                                         {"Dashlane/search-window.csv", ImportSource::dashlane},
                                         {"Dashlane/typical.csv", ImportSource::dashlane},
                                         {"Firefox", ImportSource::firefox},
                                         {"KeePass/backslashes.csv", ImportSource::keePass},
                                         {"KeePass/byte-order-mark.csv", ImportSource::keePassXC},
                                         {"KeePass/carriage-returns.csv", ImportSource::keePass},
                                         {"KeePass/classic.csv", ImportSource::keePass},
                                         {"KeePass/keepassxc.csv", ImportSource::keePassXC},
                                         {"KeePass/no-header.csv", ImportSource::keePass},
                                         {"KeePass/other-order.csv", ImportSource::keePass},
                                         {"LastPass/backslashes.csv", ImportSource::lastPass},
                                         {"LastPass/byte-order-mark.csv", ImportSource::lastPass},
                                         {"LastPass/carriage-returns.csv", ImportSource::lastPass},
                                         {"LastPass/no-header.csv", ImportSource::lastPass},
                                         {"LastPass/open-quote.csv", ImportSource::lastPass},
                                         {"LastPass/other-order.csv", ImportSource::lastPass},
                                         {"LastPass/typical.csv", ImportSource::lastPass},
                                         {"OnePassword/typical.1pif", ImportSource::onePassword},
                                         {"Tirel/every-field.json", ImportSource::tirel},
                                         {"Tirel/typical.json", ImportSource::tirel}};
    for (const auto& [path, source] : fixtures) {
        EXPECT_EQ(detect(RELLINOR_FIXTURES "/" + path).source, source) << path;
    }
}

// JSON

TEST(DetectionTest, knowsTirelByItsThreeLists) {
    EXPECT_EQ(detected(R"( {"logins":[],"notes":[],"cards":[]} )"),
              "tirel (certain): Tirel export; the lists logins, notes and cards");
    EXPECT_TRUE(detected(R"({"cards":[],"x":{"y":[[1]]},"notes":[{}],"logins":[null]})")
                    .starts_with("tirel (certain)"));
}

TEST(DetectionTest, findsTheListsOfTirelAtTheEndOfALongFile) {
    const std::string filling(300'000, 'x');
    EXPECT_TRUE(detected("{\"" + filling + "\":\"" + filling +
                         R"(","log\u0069ns":[],"notes":[],"cards":[]})")
                    .starts_with("tirel (certain)"));
}

TEST(DetectionTest, needsTheListsOfTirelAtTheTop) {
    for (const std::string_view text :
         {R"({"logins":[],"notes":[]})", R"({"logins":[],"notes":[],"cards":{}})",
          R"([{"logins":[],"notes":[],"cards":[]}])",
          R"({"a":{"logins":[],"notes":[],"cards":[]}})",
          R"([{"logins":1},[],{"notes":1},[],{"cards":1},[]])",
          R"({"Logins":[],"notes":[],"cards":[]})",
          R"({"loginsloginsloginsloginsloginslogins":[],"notes":[],"cards":[]})"}) {
        EXPECT_EQ(detected(text), "unknown; nothing in it tells the source") << text;
    }
}

TEST(DetectionTest, saysSoIfAnExportOfTirelIsDamaged) {
    for (const std::string_view text :
         {R"({"logins":[],"notes":[],"cards":[)", R"({"logins":[],"notes":[],"cards":[]} more)"}) {
        EXPECT_EQ(detected(text), "tirel (likely): Tirel export; the lists logins, notes and "
                                  "cards, but the JSON is damaged");
    }
}

TEST(DetectionTest, doesNotTakeALongExponentForDamage) {
    EXPECT_TRUE(detected(R"({"logins":[],"notes":[],"cards":[],"x":1e-99999999999})")
                    .starts_with("tirel (certain)"));
}

TEST(DetectionTest, tellsToGiveTheFolderOfAStoreOfFirefox) {
    const Tests::TemporaryFolder folder;
    const std::string expected = "not read (certain): Firefox login store (logins.json); the list "
                                 "logins as Firefox writes it; ";
    constexpr std::string_view store = R"({"nextId":1,"logins":[]})";
    EXPECT_EQ(detectedAt(folder.file("logins.json", store)),
              expected + "give the folder that it is in, with --source firefox");
    EXPECT_EQ(detectedAt(folder.file("copy.json", store)),
              expected + "name it logins.json, and give the folder that it is in, with --source "
                         "firefox");
    EXPECT_TRUE(detected(R"({"logins":[{"encryptedPassword":""}]})")
                    .starts_with("not read (certain): Firefox login store"));
}

TEST(DetectionTest, doesNotNestWithTheFile) {
    const std::string nested(1'000'000, '[');
    EXPECT_TRUE(detected(nested).starts_with("unknown"));
    EXPECT_TRUE(detected("{\"logins\":" + nested).starts_with("unknown"));
}

TEST(DetectionTest, knowsNoOtherJSON) {
    for (const std::string_view text : {"{}", "[]", "[1,2]", R"({"encrypted":true,"data":"x"})",
                                        R"({"items":[],"folders":[]})", "{", R"({"logins":[]})"}) {
        EXPECT_EQ(detected(text), "unknown; nothing in it tells the source") << text;
    }
}

TEST(DetectionTest, takesNoJSONForATable) {
    const std::string rows = R"("a","https://a.example","{01234567-89AB-CDEF-0123-456789ABCDEF}",)"
                             R"("b","c","d"]})";
    for (const std::string_view begin : {"{\"x\":[", "[", "[[", " {\n\"x\":[", "\uFEFF[\r\n"}) {
        EXPECT_EQ(detected(std::string(begin) + rows), "unknown; nothing in it tells the source")
            << begin;
    }
    EXPECT_TRUE(detected("[a,https://a.example,ann,one,\n").starts_with("dashlane (likely)"));
}

// Carriage returns alone

constexpr std::string_view carriageReturns = " whose lines end with carriage returns alone; ";

TEST(DetectionTest, tellsToSaveTheLinesOtherwise) {
    EXPECT_EQ(detected("\uFEFFurl,username,password,extra,name,grouping,fav\r"
                       "https://a.example,ann,one,,A,,0\r"),
              "not read (certain): LastPass export" + std::string(carriageReturns) +
                  "the columns url, username, password, extra, name, grouping and fav; save it "
                  "with line feeds");
    EXPECT_EQ(detected("A,https://a.example,ann,one,\rB,https://b.example,bob,two,"),
              "not read (likely): Dashlane export" + std::string(carriageReturns) +
                  "rows of five cells or more, mostly with an address in the second; save it "
                  "with line feeds");
    EXPECT_EQ(detected("***\r{\"uuid\":\"1\",\"typeName\":\"x\"}\r***separator***\r"),
              "not read (certain): 1Password export (1PIF)" + std::string(carriageReturns) +
                  "records with a typeName, parted by lines of stars; save it with line feeds");
    EXPECT_EQ(detected("some\rtext\r"),
              "unknown; its lines end with carriage returns alone; save it with line feeds");
}

TEST(DetectionTest, doesNotMindCarriageReturnsInJSON) {
    EXPECT_TRUE(detected("{\r\"logins\":[],\r\"notes\":[],\r\"cards\":[]\r}\r")
                    .starts_with("tirel (certain)"));
}

// Byte-order marks

TEST(DetectionTest, doesNotMindAByteOrderMark) {
    EXPECT_TRUE(
        detected("\uFEFF{\"logins\":[],\"notes\":[],\"cards\":[]}").starts_with("tirel (certain)"));
    EXPECT_TRUE(detected("\uFEFF{\"nextId\":1,\"logins\":[]}")
                    .starts_with("not read (certain): Firefox login store"));
    EXPECT_TRUE(detected("\uFEFF{\"uuid\":\"1\",\"typeName\":\"x\"}\n***separator***\n")
                    .starts_with("onePassword (certain)"));
    EXPECT_TRUE(detected("\uFEFF<!DOCTYPE html>").starts_with("unknown; a web page"));
    EXPECT_TRUE(detected("\uFEFFAccount,Login Name,Password,Web Site,Comments\n")
                    .starts_with("keePass (certain)"));
}

// 1PIF

TEST(DetectionTest, knowsTheLinesOf1Password) {
    EXPECT_EQ(detected("{\"uuid\":\"1\",\"typeName\":\"x\"}\n***separator***\n"),
              "onePassword (certain): 1Password export (1PIF); records with a typeName, parted by "
              "lines of stars");
    EXPECT_EQ(detected(R"({"typeName":"webforms.WebForm","secureContents":{}})"),
              "onePassword (likely): 1Password export (1PIF); records with a typeName");
    EXPECT_TRUE(detected("strange\n{\"uuid\" : \"1\", \"typeName\" : \"x\"}\r\n***separator***\r\n")
                    .starts_with("onePassword (certain)"));
}

TEST(DetectionTest, findsTheTypeAtTheEndOfALongRecord) {
    EXPECT_TRUE(detected("{\"uuid\":\"" + std::string(200'000, 'x') +
                         "\",\"typeName\":\"x\"}\n***separator***\n")
                    .starts_with("onePassword (certain)"));
}

TEST(DetectionTest, isNotMisledByATextThatLooksLikeARecord) {
    EXPECT_TRUE(detected(R"({"a":"{\"uuid\":1,\"typeName\":2}"})").starts_with("unknown"));
    EXPECT_TRUE(detected(R"( {"uuid":"1","typeName":"x"})").starts_with("unknown"));
    EXPECT_TRUE(detected(R"({"uuid":"typeName"})").starts_with("unknown"));
}

// What is no text

TEST(DetectionTest, knowsADatabaseOfKeePass) {
    EXPECT_EQ(detected("\x03\xD9\xA2\x9A\x67\xFB\x4B\xB5\x01\x00"sv),
              "not read (certain): KeePass database; the first four bytes of one; open it in "
              "KeePass or KeePassXC, and export it as CSV from there");
}

/// A file of this name as it begins in an archive.
std::string archived(std::string_view name, std::string_view signature = "PK\3\4",
                     std::size_t sizeAt = 26, std::size_t nameAt = 30) {
    std::string header(nameAt, '\0');
    header.replace(0, signature.size(), signature);
    header[sizeAt] = static_cast<char>(name.size());
    return header + std::string(name);
}

TEST(DetectionTest, knowsTheArchiveOf1Password) {
    const std::string expected =
        "not read (certain): 1Password export (1PUX); an archive with the file export.data; export "
        "as CSV from 1Password instead, and have rellinor detect look at that";
    EXPECT_EQ(detected(archived("export.attributes") + "x" + archived("export.data")), expected);
    EXPECT_EQ(detected(archived("files/photo") + std::string(200'000, 'x') +
                       archived("export.data", "PK\1\2", 28, 46)),
              expected);
}

TEST(DetectionTest, knowsTheArchiveOfDashlane) {
    EXPECT_TRUE(detected(archived("credentials.csv"))
                    .starts_with("not read (certain): Dashlane export archive; "));
}

TEST(DetectionTest, knowsNoOtherArchive) {
    EXPECT_EQ(detected(archived("[Content_Types].xml") + archived("xl/workbook.xml")),
              "unknown; a spreadsheet; save it as CSV in UTF-8, with commas");
    EXPECT_EQ(detected(archived("export.data.bak")),
              "unknown; a ZIP archive; unpack it, and look at what is in it");
    EXPECT_TRUE(detected("PK\3\4").starts_with("unknown; a ZIP archive"));
}

TEST(DetectionTest, knowsWhatIsNoExport) {
    EXPECT_EQ(detected("\x89PNG\r\n\x1A\n\0\0\0\rIHDR"sv), "unknown; a picture");
    EXPECT_EQ(detected("\xFF\xD8\xFF\xE0\0\x10JFIF"sv), "unknown; a picture");
    EXPECT_EQ(detected("%PDF-1.7\n"), "unknown; a PDF document");
    EXPECT_EQ(detected("\x1F\x8B\b\0"sv),
              "unknown; a compressed file; unpack it, and look at what comes out");
    EXPECT_EQ(detected("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"),
              "unknown; a file of an office program; if it is a spreadsheet, save it as CSV in "
              "UTF-8, with commas");
    EXPECT_EQ(detected("\x80\x01\x02\x03\xFF"), "unknown; it is not text");
    EXPECT_EQ(detected("# A title\n\nSome text, and more.\n"),
              "unknown; nothing in it tells the source");
}

TEST(DetectionTest, knowsTextThatIsNotInUTF8) {
    EXPECT_EQ(detected("\xFF\xFEu\0r\0l\0"sv),
              "unknown; the text is in UTF-16; save the file as UTF-8");
    EXPECT_EQ(detected("\xFE\xFF\0u\0r\0l"sv),
              "unknown; the text is in UTF-16; save the file as UTF-8");
    EXPECT_EQ(detected("u\0r\0l\0,\0"sv), "unknown; the text is in UTF-16; save the file as UTF-8");
    EXPECT_EQ(detected("url,username,password,extra,name,grouping,fav\n,caf\xE9,,,,,\n"),
              "unknown; the text is not UTF-8; save the file as UTF-8");
}

TEST(DetectionTest, doesNotMindACharacterThatIsCutWhereItStopsLooking) {
    for (const std::size_t before : {65'533U, 65'534U, 65'535U}) {
        EXPECT_EQ(detected(std::string(before, 'x') + "🐟🐟"),
                  "unknown; nothing in it tells the source");
    }
    EXPECT_EQ(detected("xx🐟"sv.substr(0, 5)),
              "unknown; the text is not UTF-8; save the file as UTF-8");
}

TEST(DetectionTest, knowsMarkup) {
    EXPECT_EQ(detected("<?xml version=\"1.0\"?>\n<KeePassFile>\n"),
              "not read (certain): KeePass export in XML; an element as KeePass writes it; export "
              "as KeePass CSV (1.x) instead");
    EXPECT_EQ(detected("<html><pre>url,username,password,totp,extra,name,grouping,fav\n"),
              "not read (certain): LastPass export in a web page; the names of the columns in its "
              "text; copy the text of the page into a file, as text in UTF-8");
    EXPECT_EQ(detected("<!DOCTYPE html><p>x"), "unknown; a web page");
    EXPECT_EQ(detected("<x>"), "unknown; nothing in it tells the source");
}

TEST(DetectionTest, saysSoOfAFileWithoutContents) {
    EXPECT_EQ(detected(""), "unknown; the file is empty");
    EXPECT_EQ(detected(" \n\t\n"), "unknown; there is nothing but blanks in it");
}

// What is no file

TEST(DetectionTest, saysSoOfWhatIsNotThere) {
    const Tests::TemporaryFolder folder;
    const std::string expected = "unknown; there is no such file or folder";
    EXPECT_EQ(detectedAt(""), expected);
    EXPECT_EQ(detectedAt(folder / "missing"), expected);
    EXPECT_EQ(detectedAt(folder.file("file", "x") + "/in"), expected);
    EXPECT_EQ(detectedAt((folder / "file") + '\0'), expected);
    EXPECT_FALSE(std::filesystem::exists(folder / "missing"));
}

TEST(DetectionTest, saysSoOfALinkThatLeadsNowhere) {
    const Tests::TemporaryFolder folder;
    std::filesystem::create_symlink("nowhere", folder / "link");
    EXPECT_EQ(detectedAt(folder / "link"), "unknown; it is a link that leads nowhere");
}

TEST(DetectionTest, followsALink) {
    const Tests::TemporaryFolder folder;
    std::filesystem::create_symlink(RELLINOR_EXAMPLES "/LastPass/export.csv", folder / "link");
    EXPECT_TRUE(detectedAt(folder / "link").starts_with("lastPass (certain)"));
}

TEST(DetectionTest, doesNotOpenAPipe) {
    const Tests::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(detectedAt(folder / "pipe"),
              "unknown; it is a pipe: save what comes out of it as a file first");
}

TEST(DetectionTest, doesNotReadADevice) {
    EXPECT_EQ(detectedAt("/dev/null"), "unknown; it is neither a file nor a folder");
    EXPECT_EQ(detectedAt("/dev/zero"), "unknown; it is neither a file nor a folder");
}

// Any bytes

/// What is found out about these bytes makes sense in itself.
void expectSense(const Tests::TemporaryFolder& folder, std::string_view bytes) {
    const std::string path = folder.file("file", bytes);
    const Detection detection = detect(path);
    std::filesystem::remove(path); // to write it anew is faster than to write over it
    EXPECT_FALSE(detection.reason.empty());
    if (detection.layout.empty()) {
        EXPECT_FALSE(detection.source);
    } else if (!detection.source) {
        EXPECT_FALSE(detection.advice.empty()) << detection.layout;
    }
}

TEST(DetectionTest, survivesRandomBytes) {
    const Tests::TemporaryFolder folder;
    Tests::RandomText random(1);
    for (int round = 0; round < 1000; ++round) {
        std::string bytes(random.below(300), '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random.below(256));
        }
        expectSense(folder, bytes);
    }
}

TEST(DetectionTest, survivesRandomPiecesOfFormats) {
    constexpr std::array<std::string_view, 20> pieces = {
        ",",      "\"", "\n",          "{",          "[",
        "}",      "]",  "\"logins\":", "\"uuid\":1", "\"typeName\":",
        "***x**", "\\", "http://a",    "PK\3\4",     "SQLite format 3\0"sv,
        "url",    "é",  "\0"sv,        "Password",   "{01234567-89AB-CDEF-0123-456789ABCDEF}"};
    const Tests::TemporaryFolder folder;
    Tests::RandomText random(2);
    for (int round = 0; round < 2000; ++round) {
        expectSense(folder, random.of(pieces, 40));
    }
}

TEST(DetectionTest, survivesDamagedSamples) {
    const Tests::TemporaryFolder folder;
    Tests::RandomText random(3);
    for (const auto& [path, source] : samples()) {
        if (std::filesystem::is_directory(path)) {
            continue;
        }
        const std::string sample = Tests::contentsOf(path);
        for (int round = 0; round < 100; ++round) {
            std::string bytes = sample.substr(
                0, random.below(2) == 0 ? sample.size() : random.below(sample.size()));
            for (std::size_t changes = random.below(8); changes > 0 && !bytes.empty(); --changes) {
                // Most of what is looked at stands at the beginning.
                const std::size_t window = random.below(2) == 0 ? 200 : bytes.size();
                bytes[random.below(std::min(window, bytes.size()))] =
                    static_cast<char>(random.below(256));
            }
            expectSense(folder, bytes);
        }
    }
}

TEST(DetectionTest, tellsNothingOfTheContents) {
    constexpr std::array<std::string_view, 9> shapes = {
        "url,username,password,extra,name,grouping,SECRET\n",
        "url,username,password,extra,name,grouping,fav,SECRET\n",
        "SECRET;b;c\n",
        "a,https://SECRET,c,d,e\n",
        R"({"SECRET":[],"logins":[],"notes":[],"cards":[]})",
        R"({"uuid":"SECRET","typeName":"SECRET"})",
        "<html>SECRET",
        "SECRET,b\n",
        "Group,Title,Username,Password,URL,Notes,SECRET\n"};
    for (const std::string_view shape : shapes) {
        EXPECT_FALSE(detected(shape).contains("SECRET")) << shape;
    }
}

} // namespace

} // namespace Rellinor::Host
