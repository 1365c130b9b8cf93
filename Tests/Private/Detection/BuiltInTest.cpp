#include "Private/Detection/BuiltIn.hpp"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "Tests/Private/Detection/Detected.hpp"
#include "Tests/Support/Reading.hpp"
#include "Tests/Support/Zip.hpp"

namespace Rellinor::Tests {

namespace {

/// Whatever is left out of the library is known all the same, and nothing else is missing.
TEST(BuiltInTest, tellsWhatIsLeftOut) {
    struct Known {
        std::string file;
        Layout layout;
        bool isBuiltIn;
    };

    const std::string item = R"({"items":[],"folders":[],"encrypted":false})";
    for (const auto& [file, layout, isBuiltIn] :
         {Known{zipOf({{.name = "data.json", .contents = item}}), Layout::bitwardenZip,
                hasArchives},
          Known{zipOf({{.name = "securenotes.csv", .contents = "title,note\n"}}),
                Layout::dashlaneZip, hasArchives},
          Known{"<KeePassFile><Root/></KeePassFile>", Layout::keePassXML, hasXML},
          Known{item, Layout::bitwardenJSON, true}}) {
        const FailureReason expected = isBuiltIn ? FailureReason::none : FailureReason::notBuiltIn;
        const Detection found = detect(ExportFile::inMemory(file, ""));
        EXPECT_EQ(found.layout, layout);
        EXPECT_EQ(found.obstacle, expected) << identifier(layout);
        EXPECT_EQ(isRead(layout), isBuiltIn) << identifier(layout);
        EXPECT_EQ(readingOf(file).report.failure().reason, expected) << identifier(layout);
        EXPECT_EQ(readingOf(layout, file).report.failure().reason, expected) << identifier(layout);
    }
}

} // namespace

} // namespace Rellinor::Tests
