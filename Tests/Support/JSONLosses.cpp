#include "Tests/Support/JSONLosses.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/JSONChanges.hpp"
#include "Tests/Support/Reading.hpp"

namespace Rellinor::Tests {

namespace {

/// Whether a path ends at a record or above it, where more than one value goes with it.
bool isRecord(std::string_view path) {
    bool isInRecord = false;
    for (const std::string_view list :
         {"/items", "/records", "/accounts", "/vaults", "/payment_cards"}) {
        const std::size_t place = path.rfind(list);
        if (place == std::string_view::npos) {
            continue;
        }
        const std::string_view behind = path.substr(place + list.size());
        if (behind.find('/', 1) == std::string_view::npos) {
            return true;
        }
        isInRecord = true;
    }
    return !isInRecord;
}

/// How much a report tells of what does not arrive, but for values of other types.
std::uint64_t toldIn(const Reading& reading) {
    std::uint64_t told = 0;
    for (const Unread& unread : reading.report.unread()) {
        told += unread.count;
    }
    for (const LeftOut& left : reading.report.leftOut()) {
        told += left.places.count;
    }
    return told;
}

/// Whether what stands in place of a text is of another type and holds something.
bool isToBeTold(std::string_view replacement) {
    return replacement == "[7]" || replacement == "7" || replacement == "1.5" ||
           replacement == "false";
}

} // namespace

void expectSingleLosses(Layout layout, std::string_view json,
                        const std::function<std::string(std::string_view)>& fileOf) {
    const auto read = [&](std::string_view text) {
        return fileOf ? readingOf(layout, fileOf(text)) : readingOf(layout, text);
    };
    const Reading whole = read(json);
    ASSERT_GT(whole.delivered(), 0);
    EXPECT_FALSE(whole.texts().contains("u-"));
    bool isFirst = true;
    std::size_t changes = 0;
    forEachChange(json, [&](const JSONChange& change) {
        const std::string where = change.path + " " + std::string(change.name);
        const Reading reading = read(change.text);
        ++changes;
        ASSERT_FALSE(reading.records.error) << where;
        if (!isRecord(change.path)) {
            EXPECT_EQ(reading.report.recordCount(), whole.report.recordCount()) << where;
            EXPECT_EQ(reading.delivered() + reading.leftOut(LeftOutReason::empty),
                      whole.delivered())
                << where;
        }
        const std::string texts = reading.texts();
        for (const std::string& text : change.kept) {
            if (text.starts_with("t-")) {
                EXPECT_TRUE(texts.contains(text)) << text << " without " << where;
                EXPECT_TRUE(!isFirst || whole.texts().contains(text)) << text;
            }
        }
        if (change.lost.starts_with("t-") && isToBeTold(change.name)) {
            const std::string number(change.name == "[7]" ? "7" : change.name);
            const bool arrives = ("\n" + texts).contains("\n" + number + "\n") ||
                                 texts.contains("=" + number + "\n") ||
                                 texts.contains(": " + number + "\n");
            constexpr auto otherType = FindingKind::valueOfOtherType;
            EXPECT_TRUE(arrives || reading.found(otherType) > whole.found(otherType) ||
                        toldIn(reading) > toldIn(whole))
                << where;
        }
        isFirst = false;
    });
    EXPECT_GT(changes, 100);
}

} // namespace Rellinor::Tests
