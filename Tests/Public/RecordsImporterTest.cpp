#include <optional>
#include <string>
#include <thread>
#include <type_traits>
#include <unordered_set>

#include <Rellinor/Rellinor.hpp>
#include <gtest/gtest.h>

#include "Private/Importers/ImporterSlots.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::string_view lastPassExport = "url,username,password,extra,name,grouping,fav\n"
                                            "https://a.example,ann,one,,Mail,,0\n";

TEST(ImportSourceTest, hasItsCasesInOrder) {
    using enum ImportSource;
    int ordinal = 0;
    for (const ImportSource source :
         {chrome, lastPass, dashlane, onePassword, tirel, keePass, keePassXC, firefox}) {
        EXPECT_EQ(static_cast<int>(source), ordinal++);
    }
}

TEST(ImportSourceTest, livesInASet) {
    const std::unordered_set<ImportSource> sources = {
        ImportSource::keePass, ImportSource::keePassXC, ImportSource::keePass};
    EXPECT_EQ(sources.size(), 2);
}

TEST(RecordsImporterTest, isHeldThroughItsInterface) {
    const TemporaryFolder folder;
    const std::string path = folder.file("export.csv", lastPassExport);
    const std::unique_ptr<RecordsImporting> importer = std::make_unique<RecordsImporter>();
    int calls = 0;
    importer->records(
        URL::fileURLWithPath(path), ImportSource::lastPass, [&](const RecordsResult& result) {
            ++calls;
            EXPECT_EQ(copyOf(result),
                      (Outcome{.passwords = {{"ann", "one", "https://a.example", "Mail"}}}));
        });
    EXPECT_EQ(calls, 1);
}

TEST(RecordsImporterTest, cannotBeCopied) {
    static_assert(!std::is_copy_constructible_v<RecordsImporter>);
    static_assert(!std::is_copy_assignable_v<RecordsImporter>);
    static_assert(std::is_default_constructible_v<RecordsImporter>);
}

TEST(RecordsImporterTest, hasRunTheCompletionOnTheSameThreadWhenItReturns) {
    RecordsImporter importer;
    std::optional<std::thread::id> thread;
    importer.records(URL::fileURLWithPath("/missing"), ImportSource::lastPass,
                     [&](const RecordsResult&) { thread = std::this_thread::get_id(); });
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST(RecordsImporterTest, importsTheSameFileAgainAfterAFailure) {
    const TemporaryFolder folder;
    RecordsImporter importer;
    std::vector<bool> succeeded;
    for (const std::string& path : {folder / "missing", folder.file("export.csv", lastPassExport),
                                    folder / "missing", folder / "export.csv"}) {
        importer.records(
            URL::fileURLWithPath(path), ImportSource::lastPass,
            [&](const RecordsResult& result) { succeeded.push_back(result.has_value()); });
    }
    EXPECT_EQ(succeeded, (std::vector{false, true, false, true}));
}

TEST(RecordsImporterTest, letsTheHostKeepTheResult) {
    const TemporaryFolder folder;
    const std::string path = folder.file("export.csv", lastPassExport);
    std::optional<RecordsResult> kept;
    RecordsImporter().records(URL::fileURLWithPath(path), ImportSource::lastPass,
                              [&](RecordsResult result) { kept = std::move(result); });
    EXPECT_EQ((*kept)->passwords.front()->password(), "one");
}

TEST(RecordsImporterTest, letsThroughWhatTheCompletionThrows) {
    RecordsImporter importer;
    int calls = 0;
    EXPECT_THROW(importer.records(URL::fileURLWithPath("/missing"), ImportSource::lastPass,
                                  [&](const RecordsResult&) {
                                      ++calls;
                                      throw std::string("the host's own");
                                  }),
                 std::string);
    EXPECT_EQ(calls, 1);
}

TEST(ImporterSlotsTest, areEmptyAtFirst) {
    EXPECT_FALSE(ImporterSlots().chromeImporter);
    EXPECT_FALSE(ImporterSlots().lastPassImporter);
    EXPECT_FALSE(ImporterSlots().dashlaneImporter);
    EXPECT_FALSE(ImporterSlots().keePassImporter);
    EXPECT_FALSE(ImporterSlots().firefoxImporter);
}

TEST(ImporterSlotsTest, keepTheImporterEvenIfItFailsToRead) {
    ImporterSlots slots;
    const URL missing = URL::fileURLWithPath("/missing");
    EXPECT_FALSE(slots.read(missing, ImportSource::lastPass, nullptr).records);
    ASSERT_TRUE(slots.lastPassImporter);
    const LastPassImporter* const importer = &*slots.lastPassImporter;
    EXPECT_FALSE(slots.read(missing, ImportSource::lastPass, nullptr).records);
    EXPECT_EQ(&*slots.lastPassImporter, importer);
}

TEST(ImporterSlotsTest, keepTheImporterOfFirefoxWithItsState) {
    const TemporaryFolder folder;
    const URL profile = URL::fileURLWithPath(folder.path().native());
    ImporterSlots slots;
    EXPECT_FALSE(slots.read(profile, ImportSource::firefox, nullptr).records);
    (void)folder.file("logins.json", "{}");
    EXPECT_TRUE(slots.read(profile, ImportSource::firefox, nullptr).records);
    ASSERT_TRUE(slots.firefoxImporter);
    EXPECT_EQ(slots.firefoxImporter->failureReason(), FirefoxImportFailureReason::invalidProfile);
    EXPECT_TRUE(slots.firefoxImporter->meta()->logins);
}

} // namespace

} // namespace Rellinor::Tests
