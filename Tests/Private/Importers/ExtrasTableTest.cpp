#include "Private/Importers/ExtrasTable.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

TEST(ExtrasTableTest, keepsTheExtrasOfARecordBehindEachOther) {
    // So many that records end anywhere in chunks of every size, and go over the end of many.
    const std::vector<std::size_t> counts = {0, 0, 1, 0, 100, 3, 7'000, 0, 2, 50, 1, 0};
    std::vector<std::string> texts;
    for (std::size_t number = 0; number < 7'000; ++number) {
        texts.push_back(std::to_string(number));
    }
    ExtrasTable table;
    for (std::size_t record = 0; record < 40 * counts.size(); ++record) {
        for (std::size_t extra = 0; extra < counts[record % counts.size()]; ++extra) {
            table.add(ExtraKind::tag, texts[record], texts[extra]);
            table.add(ExtraKind::tag, "empty", "");
        }
        table.endRecord();
    }
    for (std::size_t record = 0; record < 40 * counts.size(); ++record) {
        const std::span<const Extra> extras = table[record];
        ASSERT_EQ(extras.size(), counts[record % counts.size()]) << record;
        for (std::size_t extra = 0; extra < extras.size(); ++extra) {
            ASSERT_EQ(extras[extra].label, texts[record]);
            ASSERT_EQ(extras[extra].value, texts[extra]) << record;
        }
    }
    EXPECT_TRUE(table[40 * counts.size()].empty());
    EXPECT_TRUE(ExtrasTable()[0].empty());
}

} // namespace

} // namespace Rellinor::Tests
