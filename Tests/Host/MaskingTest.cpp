#include "Host/Masking.hpp"

#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Host/ImportCommand.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Host {

namespace {

constexpr std::string_view warning = "this looks like ";

/// What an import shows, messages included, in the order in which it comes.
std::string shownOf(const std::string& path, ImportSource source, Format format,
                    bool reveal = false) {
    std::ostringstream out;
    (void)import({.as = source, .format = format, .reveal = reveal, .paths = {path}}, Terminal(),
                 out, out);
    return out.str();
}

/// The passwords and numbers of an export, short ones left out, which any text may hold.
std::set<std::string> secretsIn(const std::string& path) {
    std::set<std::string> secrets;
    const ImportedExport imported = readExport(ExportFile::atPath(path));
    const auto add = [&](std::string_view text) {
        if (text.size() > 5) {
            secrets.insert(std::string(text));
        }
    };
    for (const auto& login : imported.records->passwords) {
        add(login->password());
    }
    for (const auto& card : imported.records->cards) {
        add(card->cardNumber());
    }
    return secrets;
}

TEST(MaskingTest, secretsStayMaskedWhateverAFileIsReadAs) {
    const std::string vault = RELLINOR_VAULT "/";
    std::size_t revealed = 0;
    for (const std::string& path :
         {vault + "KeePass/export.csv", vault + "KeePassXC/export.csv",
          vault + "LastPass/export.csv", vault + "OnePassword/export.1pif",
          vault + "Tirel/export.json"}) {
        const std::set<std::string> secrets = secretsIn(path);
        EXPECT_FALSE(secrets.empty()) << path;
        for (const ImportSource source : allSources()) {
            for (const Format format : {Format::table, Format::json}) {
                const std::string shown = shownOf(path, source, format);
                if (!shown.contains(warning)) {
                    continue; // its own, whose fields are where they belong
                }
                const std::string all = shownOf(path, source, format, true);
                for (const std::string& secret : secrets) {
                    EXPECT_FALSE(shown.contains(secret)) << path << ' ' << identifier(source);
                    revealed += all.contains(secret) ? 1U : 0U;
                }
            }
        }
    }
    EXPECT_GT(revealed, 20); // or nothing was there to be masked
}

TEST(MaskingTest, anotherProductsFileIsToldBeforeItsTable) {
    const std::string shown =
        shownOf(RELLINOR_VAULT "/KeePass/export.csv", ImportSource::dashlane, Format::table);
    EXPECT_LT(shown.find(warning), shown.find("Passwords ("));
}

TEST(MaskingTest, whatBelongsToASourceStaysAsItIs) {
    const std::string shown =
        shownOf(RELLINOR_VAULT "/LastPass/export.csv", ImportSource::lastPass, Format::table);
    EXPECT_FALSE(shown.contains(warning));
    EXPECT_TRUE(shown.contains("ann.berg@mail.example"));
}

TEST(MaskingTest, everythingIsMaskedOfAFileThatNobodyReads) {
    const Tests::TemporaryFolder folder;
    const std::string path = folder.file("export.csv", "https://a.example,ann,s3cret,,Mail,,0\n");
    ImportedExport imported = readExport(ExportFile::atPath(path), {.as = ImportSource::lastPass});
    Masking masking(Secrets::masked, Door::first);
    masking.addMisplaced(*imported.records,
                         ExportFile::inMemory(std::string_view("nothing"), "none"));
    EXPECT_TRUE(masking.masks(Field::loginURL));
    EXPECT_EQ(masking.shown(Field::noteContent, std::string_view()), "");
}

/// Each text may be any of many secrets that begin alike: what cannot be told in time is masked.
TEST(MaskingTest, secretsThatBeginAlikeTakeNoTime) {
    std::string rows = "url,username,password,extra,name,grouping,fav\n";
    for (int row = 0; row < 20000; ++row) {
        rows += "https://a.example," + std::string(64, 'a') + ",aaaa" + std::to_string(row) +
                ",,Mail,,0\n";
    }
    const ExportFile file = ExportFile::inMemory(rows, "export.csv");
    const ImportedExport imported = readExport(file, {.as = ImportSource::lastPass});
    Masking masking(Secrets::masked, Door::first);
    masking.addMisplaced(*imported.records, file);
    EXPECT_TRUE(masking.masks(Field::loginUsername));
    EXPECT_FALSE(masking.masks(Field::loginURL));
}

} // namespace

} // namespace Rellinor::Host
