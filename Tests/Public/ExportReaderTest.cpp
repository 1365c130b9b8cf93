#include "Public/ExportReader.hpp"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Tests/Support/Allocations.hpp"
#include "Tests/Support/Exports.hpp"
#include "Tests/Support/JSONTexts.hpp"
#include "Tests/Support/Nobody.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/Reports.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using enum ImportSource;
using enum FailureReason;

constexpr auto allSources =
    std::to_array({chrome, lastPass, dashlane, onePassword, tirel, keePass, keePassXC, firefox});

/// Those that read one file which is no database.
constexpr auto textSources =
    std::to_array({lastPass, dashlane, onePassword, tirel, keePass, keePassXC});

ImportedExport readPath(std::string_view path, const ReadOptions& options) {
    return readExport(ExportFile::atPath(path), options);
}

ImportedExport readText(std::string_view text, const ReadOptions& options) {
    return readExport(ExportFile::inMemory(text, "export"), options);
}

Failure failureOf(std::string_view text, ImportSource source, ReadLimits limits = {}) {
    const ImportedExport imported = readText(text, {.as = source, .limits = limits});
    EXPECT_FALSE(imported.records);
    EXPECT_TRUE(isConsistent(imported));
    return imported.report.failure();
}

FailureReason reasonFor(std::string_view text, ImportSource source, ReadLimits limits = {}) {
    return failureOf(text, source, limits).reason;
}

FailureReason reasonAt(std::string_view path, ImportSource source) {
    const ImportedExport imported = readPath(path, {.as = source});
    EXPECT_TRUE(isConsistent(imported));
    return imported.report.failure().reason;
}

std::string repeated(std::string_view text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

/// A file of so many raw records.
std::string fileOf(ImportSource source, std::size_t count) {
    switch (source) {
    case lastPass:
        return "url,username,password,extra,name,grouping,fav\n" +
               repeated("https://a.example,ann,x,,A,,0\n", count);
    case dashlane:
        return repeated("A,https://a.example,ann,x,\n", count);
    case onePassword:
        return repeated("{\"typeName\":\"securenotes.SecureNote\"}\n", count);
    case tirel:
        return "{\"logins\":[],\"cards\":[],\"notes\":[{\"color\":0,\"label\":\"\",\"text\":\"\"}" +
               repeated(",{\"color\":0,\"label\":\"\",\"text\":\"\"}", count - 1) + "]}";
    case keePass:
        return "Account,Login Name,Password,Web Site,Comments\n" + repeated("A,b,c,d,e\n", count);
    default:
        return "Group,Title,Username,Password,URL,Notes\n" + repeated("A,b,c,d,e,f\n", count);
    }
}

TEST(ExportReaderTest, givesWhatTheImporterGivesForEverySampleAndSource) {
    std::size_t seen = 0;
    for (const auto& folder : {RELLINOR_EXAMPLES, RELLINOR_VAULT, RELLINOR_FIXTURES}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            const std::string path = entry.path().native();
            for (const ImportSource source : allSources) {
                const ImportedExport imported = readPath(path, {.as = source});
                EXPECT_EQ(copyOf(imported.records), outcomeOf(source, path)) << path;
                EXPECT_TRUE(isConsistent(imported))
                    << path << " as " << static_cast<int>(source) << ":\n"
                    << textOf(imported.report);
                EXPECT_FALSE(imported.report.layout());
                seen += imported.report.recordCount();
            }
        }
    }
    EXPECT_GT(seen, 200);
}

TEST(ExportReaderTest, givesTheSameFromMemory) {
    for (const Export& item : allFiles()) {
        if (item.source == firefox) {
            continue;
        }
        const TemporaryFolder folder;
        for (const std::string& bytes : {item.bytes(), std::string("\"x"), std::string()}) {
            const ImportedExport fromFile =
                readPath(item.written(folder, bytes), {.as = item.source});
            const ImportedExport fromMemory = readText(bytes, {.as = item.source});
            EXPECT_EQ(copyOf(fromMemory.records), copyOf(fromFile.records)) << item;
            EXPECT_EQ(textOf(fromMemory.report), textOf(fromFile.report)) << item;
        }
    }
}

TEST(ExportReaderTest, opensNothingForANameInMemory) {
    const TemporaryFolder folder;
    const std::string name = folder / "Login Data";
    const ExportFile file = ExportFile::inMemory(std::string_view("SQLite format 3"), name);
    for (const ImportSource source : {chrome, firefox}) {
        const ImportedExport imported = readExport(file, {.as = source});
        EXPECT_NE(imported.report.failure().reason, FailureReason::none);
        EXPECT_TRUE(isConsistent(imported));
    }
    EXPECT_FALSE(std::filesystem::exists(name));
}

TEST(ExportReaderTest, tellsNothingOfTheContents) {
    struct Planted {
        ImportSource source;
        std::string text;
    };

    const std::string pif =
        R"({"typeName":"webforms.WebForm","title":"Tkn","secureContents":{"notesPlain":"Tkn",)"
        R"("URLs":[{"url":"Tkn"}],"fields":[{"designation":"Tkn","value":"Tkn"}],"Tkn":"Tkn"}})"
        "\n"
        R"({"typeName":"securenotes.SecureNote","title":"Tkn","secureContents":{"Tkn":1}})"
        "\n"
        R"({"typeName":"Tkn","title":"Tkn"})"
        "\n";
    const std::string tirelText =
        R"({"logins":[{"color":1,"custName":"Tkn","loginName":"Tkn","note":"Tkn","pwd":"Tkn",)"
        R"("url":"Tkn","Tkn":"Tkn"}],"notes":[{"color":1,"label":"Tkn","text":"Tkn"}],)"
        R"("cards":[],"Tkn":"Tkn"})";
    const std::vector<Planted> files = {
        {lastPass,
         "url,username,password,extra,name,grouping,fav\n"
         "Tkn,Tkn,Tkn,Tkn,Tkn,Tkn,Tkn\nhttp://sn,Tkn,Tkn,Tkn,Tkn,Tkn,Tkn\n,,,,,Tkn,Tkn\n"},
        {lastPass, "Tkn,Tkn,Tkn,Tkn,Tkn,Tkn,Tkn\nTkn,\"Tkn\n"},
        {lastPass, "Tkn,Tkn\n"},
        {dashlane, "Tkn,Tkn,Tkn,Tkn,Tkn\nTkn,Tkn,Tkn,Tkn,Tkn,Tkn\nTkn\n"
                   "{00000000-0000-0000-0000-000000000000},Tkn,Tkn,Tkn,Tkn\n"},
        {keePass, "Account,Login Name,Password,Web Site,Comments\nTkn,Tkn,Tkn,Tkn,Tkn\nTkn,Tkn\n"},
        {keePass, "Tkn,Tkn,Tkn,Tkn,Tkn\nTkn,Tkn,Tkn,Tkn,Tkn\n"},
        {keePassXC, "Group,Title,Username,Password,URL,Notes\nTkn,Tkn,Tkn,Tkn,Tkn,Tkn\nTkn\n"},
        {onePassword, pif},
        {onePassword, pif + "{\"Tkn\":Tkn}\n"},
        {tirel, tirelText},
        {tirel, R"({"logins":[{"Tkn":"Tkn"}],"notes":[],"cards":["Tkn"]})"},
        {tirel, "{\"Tkn\":\"Tkn\",Tkn"},
        {tirel, "[\"Tkn\xFF\"]"},
    };
    std::size_t told = 0;
    for (const auto& [source, text] : files) {
        const ImportedExport imported = readText(text, {.as = source});
        EXPECT_TRUE(isConsistent(imported)) << text;
        const std::string report = textOf(imported.report);
        EXPECT_FALSE(report.contains("Tkn")) << report;
        if (!imported.records) {
            EXPECT_FALSE(imported.records.error().domain().contains("Tkn"));
        }
        told += imported.report.leftOut().size() + imported.report.unread().size();
    }
    EXPECT_GT(told, 15);
}

// Failures

TEST(ExportReaderTest, tellsWhyAFileCannotBeOpened) {
    const TemporaryFolder folder;
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string forbidden = folder.file("forbidden", "x");
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(forbidden, std::filesystem::perms::none);
    for (const ImportSource source : textSources) {
        EXPECT_EQ(reasonAt(folder / "missing", source), missing);
        EXPECT_EQ(reasonAt(folder.path().native(), source), notAFile);
        EXPECT_EQ(reasonAt(pipe, source), notAFile);
        EXPECT_EXIT(exitAsNobody([&] { return reasonAt(forbidden, source) == noPermission; }),
                    testing::ExitedWithCode(0), "");
    }
    EXPECT_EQ(reasonAt(folder.path().native(), firefox), noStore);
}

TEST(ExportReaderTest, tellsOfTextsThatAreNotUTF8) {
    for (const ImportSource source : textSources) {
        EXPECT_EQ(reasonFor("[\"\xFF\"]", source), notUTF8) << static_cast<int>(source);
        EXPECT_EQ(reasonFor("\xFF\xFE[\0]\0", source), utf16) << static_cast<int>(source);
    }
}

TEST(ExportReaderTest, readsTextsInUTF16) {
    using namespace std::string_view_literals;
    const auto wide = [](std::string_view text) {
        std::string bytes;
        for (const char character : text) {
            bytes += {character, '\0'};
        }
        return bytes;
    };
    const std::string note = R"({"logins":[],"cards":[],"notes":[{"color":0,"label":"t","text":")";
    const std::string bytes =
        "\xFF\xFE" + wide(note) + std::string("\xE9\0\x3D\xD8"sv) + wide("\"}]}");
    const TemporaryFolder folder;

    for (const ImportedExport& imported :
         {readText(bytes, {}), readPath(folder.file("export.json", bytes), {})}) {
        ASSERT_TRUE(imported.records);
        ASSERT_EQ(imported.records->notes.size(), 1);
        EXPECT_EQ(imported.records->notes.front()->content(), "\u00E9\uFFFD");
        ASSERT_EQ(imported.report.findings().size(), 1);
        EXPECT_EQ(imported.report.findings().front().kind, FindingKind::repairedText);
        EXPECT_EQ(imported.report.findings().front().places.count, 1);
    }
    const ImportedExport whole = readText("\xFF\xFE" + wide(note + "\"}]}"), {});
    ASSERT_TRUE(whole.records);
    EXPECT_EQ(whole.records->notes.size(), 1);
    EXPECT_TRUE(whole.report.findings().empty());
    const ImportedExport large =
        readText(bytes, {.as = Layout::tirelJSON, .onProgress = {}, .limits = {.largestFile = 8}});
    EXPECT_EQ(large.report.failure().reason, tooLarge);
}

TEST(ExportReaderTest, tellsOfCSVThatIsNotAsTheSourceWritesIt) {
    for (const ImportSource source : {lastPass, keePass, keePassXC}) {
        EXPECT_EQ(reasonFor("", source), noRows);
        EXPECT_EQ(reasonFor("\n\n", source), noRows);
        EXPECT_EQ(reasonFor("a,b\n", source), wrongColumns);
    }
    EXPECT_EQ(reasonFor("a,b,c,d,e,f\n1,2,3,4,5,6\n", lastPass), wrongColumns);
}

TEST(ExportReaderTest, tellsOfJSONThatIsNotAsTheSourceWritesIt) {
    const std::string deep = "{\"a\":" + nestedArrays(2000) + "}";
    EXPECT_EQ(reasonFor("{\"logins\":\n[],\nx}", tirel), notJSON);
    EXPECT_EQ(failureOf("{\"logins\":\n[],\nx}", tirel).place, 3);
    EXPECT_EQ(reasonFor("{\"logins\":\n[", tirel), cutShort);
    EXPECT_EQ(reasonFor(deep, tirel), nestedTooDeep);
    EXPECT_EQ(reasonFor("{\"logins\":[]}", tirel), wrongShape);
    EXPECT_EQ(reasonFor("[]", tirel), wrongShape);

    EXPECT_EQ(reasonFor("{}\n***\n{x}\n", onePassword), notJSON);
    EXPECT_EQ(failureOf("{}\n***\n{x}\n", onePassword).place, 3);
    EXPECT_EQ(reasonFor(deep, onePassword), nestedTooDeep);
    EXPECT_EQ(reasonFor("{},1\n", onePassword), wrongShape);
}

TEST(ExportReaderTest, readsNoMoreThanTheLimits) {
    for (const ImportSource source : textSources) {
        const std::string text = fileOf(source, 3);
        EXPECT_EQ(reasonFor(text, source, {.largestFile = text.size() - 1}), tooLarge);
        const TemporaryFolder folder;
        const ReadOptions options{.as = source, .limits = {.largestFile = text.size() - 1}};
        EXPECT_EQ(readPath(folder.file("export", text), options).report.failure().reason, tooLarge);
        EXPECT_TRUE(readText(text, {.as = source, .limits = {.largestFile = text.size()}}).records);

        EXPECT_EQ(reasonFor(text, source, {.mostRecords = 2}), tooLarge);
        EXPECT_TRUE(readText(text, {.as = source, .limits = {.mostRecords = 3}}).records);
    }
}

TEST(ExportReaderTest, tellsOfLackOfMemory) {
    const std::string text = fileOf(lastPass, 3);
    std::size_t failed = 0;
    for (std::size_t nth = 1;; ++nth) {
        ASSERT_LT(nth, 1000) << "every allocation failed";
        const ExportFile file = ExportFile::inMemory(text, "");
        std::optional<ImportedExport> imported;
        failAllocation(nth, [&] { imported.emplace(readExport(file, {.as = lastPass})); });
        if (imported->records) {
            break;
        }
        EXPECT_EQ(imported->records.error(), NSError("Rellinor.UnexpectedError", 0));
        EXPECT_EQ(imported->report.failure().reason, outOfMemory);
        EXPECT_TRUE(isConsistent(*imported));
        ++failed;
    }
    EXPECT_GT(failed, 3);
}

// Progress

TEST(ExportReaderTest, tellsProgressSeldomAndForwards) {
    for (const ImportSource source : textSources) {
        std::vector<Progress> told;
        const auto tell = [&](const Progress& progress) {
            told.push_back(progress);
            return true;
        };
        EXPECT_TRUE(readText(fileOf(source, 30'000), {.as = source, .onProgress = tell}).records);
        ASSERT_FALSE(told.empty());
        EXPECT_LE(told.size(), 100);
        for (std::size_t i = 0; i < told.size(); ++i) {
            EXPECT_GE(told[i].done, i == 0 ? 0 : told[i - 1].done);
            EXPECT_TRUE(told[i].total == told[0].total &&
                        (told[i].total == 0 || told[i].done <= told[i].total));
        }
    }
}

TEST(ExportReaderTest, isCancelledByTheHost) {
    for (const ImportSource source : textSources) {
        const auto stop = [](const Progress&) { return false; };
        const ImportedExport imported =
            readText(fileOf(source, 3), {.as = source, .onProgress = stop});
        EXPECT_FALSE(imported.records);
        EXPECT_EQ(imported.report.failure().reason, cancelled);
        EXPECT_TRUE(isConsistent(imported));
    }
}

TEST(ExportReaderTest, letsThroughWhatTheHostThrows) {
    const std::size_t before = piecesInUse();
    for (const ImportSource source : textSources) {
        const auto fail = [](const Progress&) -> bool { throw std::out_of_range("host"); };
        EXPECT_THROW((void)readText(fileOf(source, 3), {.as = source, .onProgress = fail}),
                     std::out_of_range);
    }
    EXPECT_EQ(piecesInUse(), before);
}

} // namespace

} // namespace Rellinor::Tests
