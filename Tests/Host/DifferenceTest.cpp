#include "Host/Difference.hpp"

#include <initializer_list>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

using Host::Difference;
using Host::differenceOf;

class Note final : public ImportedNoteInfoProviding {
public:
    explicit Note(std::string title) : _title(std::move(title)) {}

    [[nodiscard]] std::optional<std::int64_t> color() const noexcept override { return {}; }

    [[nodiscard]] std::string_view title() const noexcept override { return _title; }

    [[nodiscard]] std::string_view content() const noexcept override { return "text"; }

private:
    std::string _title;
};

ImportedRecords notes(std::initializer_list<const char*> titles) {
    ImportedRecords records;
    for (const char* const title : titles) {
        records.notes.push_back(std::make_shared<Note>(title));
    }
    return records;
}

TEST(DifferenceTest, countsWhatOnlyOneSideHas) {
    struct Sample {
        ImportedRecords records;
        ImportedRecords faithful;
        Difference difference;
    };

    const Sample samples[] = {
        {notes({}), notes({}), {}},
        {notes({"a", "b"}), notes({"b", "a"}), {}},
        {notes({"a", "a"}), notes({"a"}), {.more = 1, .fewer = 0, .other = 0}},
        {notes({"a"}), notes({"a", "b", "c"}), {.more = 0, .fewer = 2, .other = 0}},
        {notes({"\"\"a", "b"}), notes({"\"a", "b", "c"}), {.more = 0, .fewer = 1, .other = 1}},
    };
    for (const Sample& sample : samples) {
        EXPECT_EQ(differenceOf(sample.records, sample.faithful), sample.difference);
    }
}

} // namespace

} // namespace Rellinor::Tests
