#include "Tests/Support/KnottedDatabase.hpp"

namespace Rellinor::Tests {

namespace {

constexpr std::size_t pageSize = 512;

/// Writes a number into two bytes, the high one first.
void put(std::size_t number, std::string& page, std::size_t place) {
    page[place] = static_cast<char>(number / 256);
    page[place + 1] = static_cast<char>(number % 256);
}

/// An inner page of a table whose cells all lead to that page.
std::string innerPage(std::size_t below) {
    constexpr std::size_t cells = 10;
    constexpr std::size_t sizeOfCell = 5;
    constexpr std::size_t content = pageSize - cells * sizeOfCell;

    std::string page(pageSize, '\0');
    page[0] = 5;
    page[4] = cells;
    put(content, page, 5);
    put(below, page, 10);
    for (std::size_t cell = 0; cell < cells; ++cell) {
        const std::size_t place = content + cell * sizeOfCell;
        put(place, page, 12 + 2 * cell);
        put(below, page, place + 2);
        page[place + 4] = 1;
    }
    return page;
}

} // namespace

std::string knottedDatabase(const TemporaryFolder& folder, const Statements& statements,
                            std::size_t levels) {
    const std::string path = folder / "database";
    const Connection connection(path);
    connection.execute({"PRAGMA page_size = 512"});
    connection.execute(statements);
    connection.execute({"CREATE TABLE filler (v)", "INSERT INTO filler VALUES (zeroblob(" +
                                                       std::to_string(600 * levels) + "))"});

    std::string bytes = contentsOf(path);
    // The root of the table is the second page. It moves to the last, and the others lead there.
    const std::size_t leaf = bytes.size() / pageSize;
    bytes.replace((leaf - 1) * pageSize, pageSize, bytes, pageSize, pageSize);
    std::size_t below = leaf;
    for (std::size_t level = 1; level <= levels; ++level) {
        const std::size_t page = level == levels ? 2 : leaf - level;
        bytes.replace((page - 1) * pageSize, pageSize, innerPage(below));
        below = page;
    }
    return folder.file("database", bytes);
}

} // namespace Rellinor::Tests
