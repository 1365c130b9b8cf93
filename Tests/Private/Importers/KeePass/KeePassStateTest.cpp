// The fork that is kept from one import to the next, through sequences of imports.

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Private/Extensions/String.hpp"
#include "Private/Importers/ImporterSlots.hpp"
#include "Private/Importers/KeePass/KeePassImporter.hpp"
#include "Tests/Support/Records.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

using enum ImportSource;

/// One import of a sequence, and what it means for the fork.
struct Step {
    std::string_view name;
    ImportSource source = keePass;
    std::string_view text;                            ///< of the file; empty: there is no file
    std::optional<KeePassFork> leaves = std::nullopt; ///< absent: the fork stays as it was
};

constexpr std::array<Step, 10> steps = {{
    {.name = "classic",
     .source = keePass,
     .text = "Account,Login Name,Password,Web Site,Comments\nMail,ann,one,https://a.example,\n",
     .leaves = KeePassFork::keepass},
    {.name = "classic, named as KeePassXC",
     .source = keePassXC,
     .text = "Mail,ann,one,https://a.example,\nBank,bob\n",
     .leaves = KeePassFork::keepass},
    {.name = "KeePassXC",
     .source = keePassXC,
     .text = "Group,Title,Username,Password,URL,Notes\nRoot,Mail,ann,one,https://a.example,\n",
     .leaves = KeePassFork::keepassXC},
    {.name = "KeePassXC, named as classic",
     .source = keePass,
     .text = "Root,Mail,ann,one,https://a.example,\nRoot,Bank,bob,two\n",
     .leaves = KeePassFork::keepassXC},
    {.name = "five columns of KeePassXC",
     .source = keePassXC,
     .text = "Group,Title,Username,Password,URL\nRoot,Mail,ann,one,https://a.example\n",
     .leaves = KeePassFork::keepass},
    {.name = "an export of LastPass",
     .source = keePass,
     .text = "url,username,password,extra,name,grouping,fav\nhttps://a.example,ann,one,,Mail,,0\n"},
    {.name = "a blank file", .source = keePassXC, .text = " \n\n"},
    {.name = "a missing file", .source = keePass, .text = ""},
    {.name = "LastPass",
     .source = lastPass,
     .text = "url,username,password,extra,name,grouping,fav\nhttps://a.example,ann,one,,Mail,,0\n"},
    {.name = "Dashlane",
     .source = dashlane,
     .text = "Mail,https://a.example,ann,,one,\nMail,https://a.example,ann,one,\n"},
}};

/// The steps with their files and with what a fresh importer makes of each.
class KeePassStateTest : public testing::Test {
protected:
    KeePassStateTest() {
        for (const Step& step : steps) {
            _urls.push_back(URL::fileURLWithPath(
                step.text.empty() ? _folder / "missing" : _folder.file(step.name, step.text)));
            _expected.push_back(outcomeOf(step.source, _urls.back().path()));
        }
    }

    /// Takes one step and compares the outcome with that of a fresh importer.
    void take(std::size_t step, ImporterSlots& slots) const {
        const Assembled result = slots.read(_urls[step], steps.at(step).source, nullptr);
        EXPECT_EQ(copyOf(result.records), _expected[step]) << steps.at(step).name;
    }

    [[nodiscard]] const std::vector<Outcome>& expected() const { return _expected; }

private:
    TemporaryFolder _folder;
    std::vector<URL> _urls;
    std::vector<Outcome> _expected;
};

/// The fork that an importer is left with, as the steps say.
std::optional<KeePassFork> after(std::optional<KeePassFork> fork, const Step& step) {
    return step.leaves ? step.leaves : fork;
}

// Worked out by hand, since everything below compares with them.
TEST_F(KeePassStateTest, aFreshImporterMakesThisOfEachFile) {
    const Outcome mail = {.passwords = {{"ann", "one", "https://a.example", "Mail"}}};
    const Outcome positional = {
        .passwords = {{"Title", "Username", "Password", "Group"}, {"Mail", "ann", "one", "Root"}}};
    const Outcome twice = {.passwords = {{"ann", "one", "https://a.example", "Mail"},
                                         {"ann", "one", "https://a.example", "Mail"}}};
    EXPECT_EQ(expected(), (std::vector{mail, mail, mail, mail, positional, failedWithText(),
                                       failedWithText(), failedWithText(), mail, twice}));
}

TEST_F(KeePassStateTest, everySequenceOfFourGivesWhatFreshImportersGive) {
    std::size_t sequences = 0;
    for (std::size_t code = 0; code < steps.size() * steps.size() * steps.size() * steps.size();
         ++code) {
        ImporterSlots slots;
        std::optional<KeePassFork> fork;
        bool hasImporter = false;
        std::string taken;
        std::size_t rest = code;
        for (int count = 0; count < 4; ++count) {
            const std::size_t index = rest % steps.size();
            rest /= steps.size();
            const Step& step = steps.at(index);
            taken += std::string(step.name) + "; ";
            take(index, slots);
            fork = after(fork, step);
            hasImporter = hasImporter || step.source == keePass || step.source == keePassXC;
            ASSERT_EQ(slots.keePassImporter.has_value(), hasImporter) << taken;
            if (hasImporter) {
                ASSERT_EQ(slots.keePassImporter->fork(), fork) << taken;
            }
        }
        ASSERT_FALSE(HasFailure()) << taken;
        ++sequences;
    }
    EXPECT_EQ(sequences, 10'000);
}

TEST(KeePassImporterStateTest, hasNoForkAtFirst) {
    EXPECT_EQ(KeePassImporter().fork(), std::nullopt);
}

TEST(KeePassImporterStateTest, bothSourcesShareOneImporter) {
    ImporterSlots slots;
    const URL missing = URL::fileURLWithPath("/missing");
    EXPECT_FALSE(slots.read(missing, keePass, nullptr).records);
    ASSERT_TRUE(slots.keePassImporter);
    const KeePassImporter* const importer = &*slots.keePassImporter;
    EXPECT_FALSE(slots.read(missing, keePassXC, nullptr).records);
    EXPECT_EQ(&*slots.keePassImporter, importer);
}

/// A reader that never finds any headers.
class HeaderlessProxy final : public CSVFileProxyType {
public:
    explicit HeaderlessProxy(std::optional<std::size_t> numberOfFields)
        : _numberOfFields(numberOfFields) {}

    std::optional<CSVCursor> records() override { return std::nullopt; }

    std::optional<std::size_t> numberOfFields() override { return _numberOfFields; }

    CSVKeyedRecords keyedRecords(std::span<const CSVHeader> /*expectedHeaders*/) override {
        throw TextError("File does not contain expected headers");
    }

private:
    std::optional<std::size_t> _numberOfFields;
};

void failToRead(KeePassImporter& importer, std::optional<std::size_t> numberOfFields) {
    HeaderlessProxy proxy(numberOfFields);
    EXPECT_THROW((void)importer.read(proxy), TextError);
}

TEST(KeePassImporterStateTest, theForkIsRememberedEvenIfItsHeadersAreNotFound) {
    KeePassImporter importer;
    failToRead(importer, 6);
    EXPECT_EQ(importer.fork(), KeePassFork::keepassXC);
    failToRead(importer, 5);
    EXPECT_EQ(importer.fork(), KeePassFork::keepass);
}

TEST(KeePassImporterStateTest, theForkStaysIfNoOtherIsRecognised) {
    KeePassImporter importer;
    failToRead(importer, 7);
    failToRead(importer, std::nullopt);
    EXPECT_EQ(importer.fork(), std::nullopt);
    failToRead(importer, 6);
    failToRead(importer, 7);
    EXPECT_EQ(importer.fork(), KeePassFork::keepassXC);
    failToRead(importer, std::nullopt);
    EXPECT_EQ(importer.fork(), KeePassFork::keepassXC);
}

} // namespace

} // namespace Rellinor::Tests
