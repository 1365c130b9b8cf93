// What is found out about files, in the commands that need it, run as processes.

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Host/Tool.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::string_view tirelPath = RELLINOR_EXAMPLES "/Tirel/export.json";
constexpr std::string_view tirelCounts = ": 6 passwords, 3 notes, 2 cards\n";

class DetectCommandTest : public testing::Test {
protected:
    [[nodiscard]] const TemporaryFolder& folder() const { return _folder; }

private:
    TemporaryFolder _folder;
};

TEST_F(DetectCommandTest, showsOneLineForEachPathInOrder) {
    const std::string missing = folder() / "a\nb";
    const std::string tirel(tirelPath);
    const Ended ended = rellinor({"detect", missing, tirel, ""});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(linesIn(ended.out), 3);
    EXPECT_TRUE(ended.out.contains("a␊b: unknown: There is no such file.")) << ended.out;
    EXPECT_TRUE(ended.out.contains('\n' + tirel + ": tirel-json (certain): ")) << ended.out;
    EXPECT_TRUE(ended.out.contains("\n\"\": unknown: ")) << ended.out;
}

TEST_F(DetectCommandTest, succeedsOnlyIfEveryPathCanBeRead) {
    EXPECT_EQ(rellinor({"detect", std::string(tirelPath)}).status, 0);
    EXPECT_EQ(rellinor({"detect", std::string(tirelPath), folder().file("text", "text\n")}).status,
              1);
}

TEST_F(DetectCommandTest, needsAPath) {
    EXPECT_EQ(rellinor({"detect"}).status, 2);
}

// import without a source

TEST_F(DetectCommandTest, importsTheSameAsWithTheLayoutNamed) {
    const std::vector<std::vector<std::string>> samples = {
        {"chromium-logins", "/Chrome/Login Data"},
        {"firefox-profile", "/Firefox/current.profile"},
        {"firefox-profile", "/Firefox/old.profile"},
        {"1password-1pif", "/OnePassword/export.1pif"},
        {"tirel-json", "/Tirel/export.json"}};
    for (const auto& sample : samples) {
        const std::string path = RELLINOR_VAULT + sample[1];
        const auto imported = [&](const std::vector<std::string>& kind) {
            std::vector<std::string> arguments = {"import", "--format", "json", "--reveal", path};
            arguments.insert(arguments.end(), kind.begin(), kind.end());
            return rellinor(std::move(arguments));
        };
        const Ended found = imported({});
        EXPECT_EQ(found.status, 0) << path;
        EXPECT_TRUE(found.out.starts_with("{\"layout\":\"" + sample[0] + "\",\"passwords\":[{"));
        EXPECT_EQ(found.out, imported({"--layout", sample[0]}).out) << path;
        EXPECT_EQ(found.out, imported({"--source", "auto"}).out) << path;
        EXPECT_TRUE(found.errors.starts_with("rellinor: " + path + ": read as " + sample[0]))
            << found.errors;
    }
}

TEST_F(DetectCommandTest, goesOnAfterAFileThatIsNotKnown) {
    const std::string path = folder().file("text", "s3cret text\n");
    const std::string tirel(tirelPath);
    const Ended ended = rellinor({"import", path, tirel});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, tirel + std::string(tirelCounts));
    EXPECT_EQ(ended.errors, "rellinor: " + path +
                                ": not imported: It is no export or store that is known.\n"
                                "rellinor: " +
                                tirel + ": read as tirel-json\n");
    EXPECT_EQ(rellinor({"import", "--format", "json", path}).out,
              R"({"error":{"domain":"Rellinor.ReadError","code":19},"reason":"unknown"})"
              "\n");
}

TEST_F(DetectCommandTest, readsAFileAsTheLayoutThatIsNamedOrNotAtAll) {
    const Ended ended = rellinor(
        {"import", "--layout", "tirel-json", "--format", "json", folder().file("cut", "{")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(ended.out.ends_with(",\"reason\":\"cutShort\"}\n")) << ended.out;
    EXPECT_TRUE(ended.errors.contains(": line 1: The file ends before it is complete."))
        << ended.errors;
}

// What a record holds besides its fields

TEST_F(DetectCommandTest, showsExtrasAndMasksTheSecretOnes) {
    const std::string path = folder().file(
        "export.1pif",
        R"({"typeName":"webforms.WebForm","title":"Mail","location":"https://a.example",)"
        R"("secureContents":{"fields":[{"designation":"username","value":"ann"},)"
        R"({"designation":"password","value":"one"}],"sections":[{"fields":[)"
        R"({"k":"concealed","n":"x","t":"PUK","v":"s3cret"},)"
        R"({"k":"string","n":"y","t":"branch","v":"north"}]}]}})"
        "\n***5642bee8-a5ff-11dc-8314-0800200c9a66***\n");
    const std::string masked =
        rellinor({"import", "--layout", "1password-1pif", "--format", "json", path}).out;
    EXPECT_TRUE(
        masked.contains(R"("extras":[{"kind":"customSecret","label":"PUK","value":"********"},)"
                        R"({"kind":"customText","label":"branch","value":"north"}]}])"))
        << masked;
    EXPECT_FALSE(masked.contains("s3cret"));
    EXPECT_TRUE(masked.contains(R"("report":{"placeUnit":"line","recordCount":1,"leftOut":[],)"))
        << masked;
    EXPECT_TRUE(
        rellinor({"import", "--layout", "1password-1pif", "--reveal", "--format", "json", path})
            .out.contains("s3cret"));
    const std::string tirel =
        rellinor({"import", "--layout", "1password-1pif", "--format", "tirel", path}).out;
    EXPECT_TRUE(tirel.contains(R"("note":"PUK: s3cret\nbranch: north")")) << tirel;
}

// What a source is not meant for

TEST_F(DetectCommandTest, objectsToASourceThatIsNotMeantForTheFile) {
    const std::string path(tirelPath);
    const std::string objection =
        "this looks like tirel-json (Tirel export): try without --source\n";
    const Ended failed = rellinor({"import", "--source", "lastPass", path});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.errors, "rellinor: " + path + ": not imported as lastPass: " + objection);
    EXPECT_TRUE(rellinor({"check", "--source", "lastPass", path}).out.ends_with("  " + objection));
}

} // namespace

} // namespace Rellinor::Tests
