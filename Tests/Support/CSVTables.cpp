#include "Tests/Support/CSVTables.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <stdexcept>
#include <utility>

namespace Rellinor::Tests {

namespace {

Row copyOf(std::span<const std::string_view> cells) {
    return {cells.begin(), cells.end()};
}

void require(bool holds, const char* what) {
    if (!holds) {
        throw std::logic_error(what);
    }
}

} // namespace

Table tableOf(std::string_view text, const CSVDialect& dialect) {
    const auto buffer = std::make_unique_for_overwrite<char[]>(text.size());
    std::ranges::copy(text, buffer.get());
    const std::string_view now(buffer.get(), text.size());
    ImportMemory memory;

    Table result;
    std::vector<CSVDamage> damage;
    std::size_t damaged = 0;
    CSVTable table({buffer.get(), text.size()}, dialect, memory,
                   [&](CSVDamage kind, std::size_t position) {
                       damage.push_back(kind);
                       damaged = position;
                   });
    result.header = copyOf(table.header());
    for (const std::span<const std::string_view> row : table) {
        const std::size_t position = table.position();
        require(damage.empty() || damaged == position, "damage has another position");
        require(std::ranges::count(now.substr(0, position), table.lineEnd()) ==
                    std::ranges::count(text.substr(0, position), table.lineEnd()),
                "lines are no longer those of the text");
        std::ranges::sort(damage);
        result.rows.push_back({copyOf(row), position, std::exchange(damage, {})});
    }
    return result;
}

std::string described(const Table& table) {
    constexpr std::array<std::string_view, 4> names = {"strayQuote", "joinedLines", "shortRow",
                                                       "longRow"};
    std::string words;
    const auto add = [&](const Row& cells) {
        for (const std::string& cell : cells) {
            words += "[" + cell + "]";
        }
    };
    add(table.header);
    for (const TableRow& row : table.rows) {
        words += "\n" + std::to_string(row.position) + ": ";
        add(row.cells);
        for (const CSVDamage damage : row.damage) {
            words += " " + std::string(names.at(static_cast<std::size_t>(damage)));
        }
    }
    return words;
}

} // namespace Rellinor::Tests
