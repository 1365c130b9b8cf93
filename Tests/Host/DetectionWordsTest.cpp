#include "Host/DetectionWords.hpp"

#include <string_view>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

using namespace Host; // NOLINT(google-build-using-namespace)

// Layouts that are read, and one that is not even a layout.
const Detection tirel{.layout = Layout::tirelJSON,
                      .confidence = Confidence::certain,
                      .source = ImportSource::tirel,
                      .obstacle = FailureReason::none,
                      .product = "Tirel",
                      .evidence = "the members logins, notes and cards",
                      .advice = ""};
const Detection unread{.layout = static_cast<Layout>(0xFFFF),
                       .confidence = Confidence::likely,
                       .source = ImportSource::keePass,
                       .obstacle = FailureReason::none,
                       .product = "KeePass",
                       .evidence = "",
                       .advice = ""};
const Detection encrypted{.layout = {},
                          .confidence = Confidence::certain,
                          .source = {},
                          .obstacle = FailureReason::encrypted,
                          .product = "KeePass",
                          .evidence = "the signature of a database",
                          .advice = "export it in KeePass"};
const Detection missing{.layout = {},
                        .confidence = Confidence::none,
                        .source = {},
                        .obstacle = FailureReason::missing,
                        .product = "",
                        .evidence = "",
                        .advice = ""};

TEST(DetectionWordsTest, describesWhatIsFoundOnOneLine) {
    EXPECT_EQ(described(tirel), "tirel-json (certain): Tirel; the members logins, notes and cards; "
                                "meant for --source tirel");
    EXPECT_EQ(described(encrypted), "KeePass (certain): the signature of a database; The file is "
                                    "encrypted: export it in KeePass");
    EXPECT_EQ(described(missing), "unknown: There is no such file.");
    EXPECT_EQ(described(Detection()), "unknown: It is no export or store that is known.");
}

TEST(DetectionWordsTest, refusesWithWhatTheFileIsAndWhatToDo) {
    constexpr PlaceUnit line = PlaceUnit::line;
    const Failure cut{.reason = FailureReason::cutShort, .place = 7, .field = ""};
    const Failure column{.reason = FailureReason::wrongColumns, .place = 0, .field = "fav"};
    const Failure encryption{.reason = FailureReason::encrypted, .place = 0, .field = ""};
    const Failure notRead{.reason = FailureReason::notRead, .place = 0, .field = ""};
    EXPECT_EQ(refusal(tirel, {}, cut, line), "line 7: The file ends before it is complete.");
    EXPECT_EQ(refusal(tirel, ImportSource::tirel, column, line),
              "fav: The columns are not those of such a file: try without --source");
    EXPECT_EQ(refusal(encrypted, {}, encryption, line),
              "KeePass: The file is encrypted: export it in KeePass");
    EXPECT_TRUE(refusal(unread, {}, notRead, line)
                    .ends_with("It is a known file that this version does not read: --source "
                               "keePass reads it"));
    EXPECT_EQ(refusal(missing, ImportSource::chrome, {}, line), "There is no such file.");
}

TEST(DetectionWordsTest, sayHowALayoutIsNamedThatIsNoMoreThanPossible) {
    const Detection keeper{.layout = Layout::keeperCSV,
                           .confidence = Confidence::possible,
                           .source = {},
                           .obstacle = FailureReason::none,
                           .product = "Keeper",
                           .evidence = "an address in the fifth cell",
                           .advice = ""};
    EXPECT_EQ(described(keeper), "keeper-csv (possible): Keeper; an address in the fifth cell; if "
                                 "it is one, read it with --layout keeper-csv");
    const Failure unknown{.reason = FailureReason::unknown, .place = 0, .field = ""};
    EXPECT_TRUE(refusal(keeper, {}, unknown, PlaceUnit::record)
                    .ends_with("if it is one, read it with --layout keeper-csv"));
    EXPECT_EQ(refusal(Detection(), {}, unknown, PlaceUnit::record),
              "It is no export or store that is known.");
}

TEST(DetectionWordsTest, objectsToTheSourceOfAnotherFile) {
    EXPECT_EQ(objection(tirel, ImportSource::lastPass),
              "this looks like tirel-json (Tirel export): try without --source");
    EXPECT_TRUE(objection(unread, ImportSource::lastPass).ends_with(": try --source keePass"));
    EXPECT_EQ(objection(encrypted, ImportSource::lastPass),
              "this looks like KeePass: The file is encrypted: export it in KeePass");
    EXPECT_EQ(objection(tirel, ImportSource::tirel), "");
    EXPECT_EQ(objection(unread, ImportSource::keePassXC),
              ""); // of which keePass is the importer too
    EXPECT_EQ(objection(missing, ImportSource::lastPass), "");
    Detection unsure = tirel;
    unsure.confidence = Confidence::possible;
    EXPECT_EQ(objection(unsure, ImportSource::lastPass), "");
}

} // namespace

} // namespace Rellinor::Tests
