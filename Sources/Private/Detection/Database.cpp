#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "Private/Detection/Recognisers.hpp"

namespace Rellinor {

namespace {

using namespace std::string_view_literals;

// SQLite itself would lock the file, and make side files for some. Its page 1 is where the schema
// begins: a page of rows, or one that names the pages of rows.

constexpr std::size_t sizeOfHeader = 100;
constexpr std::size_t mostPages = 64;
constexpr std::size_t mostBytes = std::size_t{256} * 1024;

/// The beginning of a table's statement in a schema. A table that was renamed has quotes around its
/// name.
struct KnownTable {
    std::array<std::string_view, 2> statements;
    std::array<std::string_view, 2> columns;
};

constexpr KnownTable chromium = {{"CREATE TABLE logins", "CREATE TABLE \"logins\""},
                                 {"origin_url", "username_value"}};
constexpr KnownTable firefox = {{"CREATE TABLE moz_logins", "CREATE TABLE \"moz_logins\""},
                                {"hostname", "encryptedUsername"}};
constexpr KnownTable firefoxKeys = {{"CREATE TABLE metaData", "CREATE TABLE \"metaData\""},
                                    {"item1", "item2"}};

bool holds(std::string_view page, const KnownTable& table) noexcept {
    return std::ranges::any_of(table.statements, [&](std::string_view statement) {
        for (std::size_t at = page.find(statement); at != std::string_view::npos;
             at = page.find(statement, at + 1)) {
            const std::string_view behind = page.substr(at + statement.size());
            if (behind.find_first_not_of(" \t\r\n") < behind.size() &&
                behind[behind.find_first_not_of(" \t\r\n")] == '(') {
                return std::ranges::all_of(
                    table.columns, [&](std::string_view name) { return behind.contains(name); });
            }
        }
        return false;
    });
}

std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t size) noexcept {
    std::uint32_t value = 0;
    for (const char byte : bytes.substr(std::min(at, bytes.size()), size)) {
        value = (value << 8U) | static_cast<unsigned char>(byte);
    }
    return value;
}

/// The pages that a page of the schema names; none of a page of rows.
std::vector<std::uint32_t> pagesNamedBy(std::string_view page, std::size_t begin) {
    constexpr std::uint32_t inner = 5; // the kind of such a page
    constexpr std::size_t sizeOfBeginning = 12;

    std::vector<std::uint32_t> pages;
    if (number(page, begin, 1) != inner) {
        return pages;
    }
    const std::size_t count = std::min<std::size_t>(number(page, begin + 3, 2), mostPages);
    for (std::size_t i = 0; i < count; ++i) {
        pages.push_back(number(page, number(page, begin + sizeOfBeginning + 2 * i, 2), 4));
    }
    pages.push_back(number(page, begin + 8, 4));
    return pages;
}

Detection partOfProfile(std::string_view evidence) noexcept {
    return obstructed(recognised(Layout::firefoxProfile, Confidence::certain, "Firefox", evidence),
                      FailureReason::other, "give the profile folder that the file is in");
}

/// What a page of the schema tells.
std::optional<Detection> detectPage(std::string_view page) noexcept {
    if (holds(page, chromium)) {
        Detection found =
            recognised(Layout::chromiumLogins, Confidence::certain,
                       "Chrome, Edge or another Chromium browser", "the table logins");
        found.source = ImportSource::chrome;
        return found;
    }
    if (holds(page, firefox)) {
        return partOfProfile("the table moz_logins");
    }
    if (holds(page, firefoxKeys)) {
        return partOfProfile("the table metaData");
    }
    return std::nullopt;
}

} // namespace

std::optional<Detection> detectDatabase(const FileParts& file, std::string_view beginning) {
    constexpr std::uint32_t largestPage = 65536; // written as 1

    if (!beginning.starts_with("SQLite format 3\0"sv)) {
        return std::nullopt;
    }
    const std::uint32_t written = number(beginning, 16, 2);
    const std::uint32_t sizeOfPage = written == 1 ? largestPage : written;
    const std::string_view first = beginning.substr(0, sizeOfPage);
    if (auto found = detectPage(first)) {
        return found;
    }
    std::vector<std::uint32_t> pages = pagesNamedBy(first, sizeOfHeader);
    const std::size_t most =
        std::min<std::size_t>(mostPages, mostBytes / std::max<std::size_t>(sizeOfPage, 1));
    for (std::size_t i = 0; i < pages.size() && i < most; ++i) {
        if (pages[i] == 0) {
            continue;
        }
        const auto page =
            file.part((static_cast<std::uint64_t>(pages[i]) - 1) * sizeOfPage, sizeOfPage);
        if (!page) {
            break;
        }
        if (auto found = detectPage(page->bytes())) {
            return found;
        }
        const std::vector<std::uint32_t> more = pagesNamedBy(page->bytes(), 0);
        pages.insert(pages.end(), more.begin(), more.end());
    }
    return unknown("a SQLite database of another kind");
}

} // namespace Rellinor
