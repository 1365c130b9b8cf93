// What an import tells of a file on standard error.

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Host/Tool.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

class AdviceTest : public testing::Test {
protected:
    /// A LastPass export; returns its path.
    [[nodiscard]] std::string exported(std::string_view rows,
                                       std::string_view name = "export.csv") const {
        return _folder.file(name, lastPassRows(rows));
    }

    /// What is written about a file behind its path.
    [[nodiscard]] static std::string advice(const std::string& path) {
        const Ended ended = rellinor({"import", "--source", "lastPass", path});
        EXPECT_EQ(ended.status, 0);
        const std::string begin = "rellinor: " + path + ": ";
        EXPECT_TRUE(ended.errors.empty() || ended.errors.starts_with(begin)) << ended.errors;
        return ended.errors.empty() ? "" : ended.errors.substr(begin.size());
    }

private:
    TemporaryFolder _folder;
};

TEST_F(AdviceTest, isSilentAboutAnHonestFile) {
    EXPECT_EQ(advice(exported("https://a.example,ann,one,text,A,Private,1\n")), "");
}

TEST_F(AdviceTest, countsTheRecordsThatAreLeftOut) {
    const std::string path = exported("https://a.example,ann,one,,A,,0\n,,,,,,0\n");
    EXPECT_EQ(advice(path), "1 of 2 records left out (rellinor check --source lastPass " + path +
                                " tells more)\n");
}

TEST_F(AdviceTest, quotesAPathWithABlank) {
    const std::string path = exported(",,,,,,0\n", "my export.csv");
    EXPECT_EQ(advice(path), "1 of 1 record left out (rellinor check --source lastPass '" + path +
                                "' tells more)\n");
}

TEST_F(AdviceTest, doesNotRepeatAPathThatAShellWouldMisread) {
    EXPECT_EQ(advice(exported(",,,,,,0\n", "it's.csv")),
              "1 of 1 record left out (rellinor check tells more)\n");
}

} // namespace

} // namespace Rellinor::Tests
