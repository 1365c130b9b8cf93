#include "Private/Models/PasswordList.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/Records.hpp"

namespace Rellinor::Tests {

namespace {

/// A login whose texts stand behind each other, and in front of the last as many bytes as wanted.
class Row {
public:
    explicit Row(std::size_t gap) : _text("1234567ann" + std::string(gap, '-') + "s3cret") {}

    [[nodiscard]] ImportedPassword password() const {
        const std::string_view text = _text;
        return {text.substr(7, 3), text.substr(text.size() - 6), text.substr(0, 7),
                text.substr(10, 0)};
    }

private:
    std::string _text;
};

TEST(PasswordListTest, keepsAllOfALoginWhateverItsSize) {
    const Row near(0);
    const Row far(246); // one byte too far
    const std::string letter = "x";
    const std::vector<ImportedPassword> passwords = {
        near.password(),
        far.password(),
        {"", "", ""},
        {letter, "", "", std::nullopt, std::nullopt, std::nullopt, std::nullopt},
        {"", letter, "", "", std::nullopt, "", std::nullopt},
        {"", "", letter, letter, std::nullopt, letter, std::nullopt},
        {"", "", letter, std::nullopt, 0, std::nullopt, std::nullopt},
        {"", "", letter, std::nullopt, std::nullopt, std::nullopt, 0},
        {"", "", letter, "a title of more letters"},
        {"12345678", "", ""},
        {"", "", std::string_view()},
    };
    PasswordList list;
    std::vector<Password> expected;
    for (int time = 0; time < 2000; ++time) { // for several chunks
        for (const ImportedPassword& password : passwords) {
            list.append(password);
            expected.push_back(copyOf(password));
        }
    }
    std::vector<Password> found;
    list.forEach([&](const StoredPassword& password) { found.push_back(copyOf(password)); });
    EXPECT_EQ(list.size(), expected.size());
    EXPECT_EQ(found, expected);
}

TEST(PasswordListTest, holdsShortTextsNearEachOtherInLittle) {
    const auto isSmall = [](const ImportedPassword& password) {
        PasswordList list;
        list.append(password);
        bool small = false;
        list.forEach([&](const StoredPassword& stored) { small = stored.isSmall(); });
        return small;
    };
    const Row near(0);
    const Row nearest(245);
    const Row far(246);
    EXPECT_TRUE(isSmall(near.password()));
    EXPECT_TRUE(isSmall(nearest.password()));
    EXPECT_FALSE(isSmall(far.password()));
    EXPECT_TRUE(isSmall({"", "", "", "", std::nullopt, ""}));
    EXPECT_FALSE(isSmall({"12345678", "", ""}));
    EXPECT_FALSE(isSmall({"", "", "", std::nullopt, 0}));
}

} // namespace

} // namespace Rellinor::Tests
