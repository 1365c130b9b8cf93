#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

struct sqlite3;         // NOLINT(readability-identifier-naming): the C library's own
struct sqlite3_context; // NOLINT(readability-identifier-naming)
struct sqlite3_stmt;    // NOLINT(readability-identifier-naming)
struct sqlite3_value;   // NOLINT(readability-identifier-naming)

namespace Rellinor {

/// Puts bounded functions in the place of those of SQLite's that nothing can interrupt for hours:
///
/// - The time of `instr`, `replace`, `json_patch` and the three trims with two arguments grows with
///   the product of the sizes of their arguments. These products come off a budget; a call beyond
///   it is an error. Before that each call gives what SQLite's own function gives.
/// - `count(*)` of a table is one step, however its pages are knotted. Here it takes steps for each
///   row.
class SQLiteDearFunctions {
public:
    /// @param connection  lives longer; no statement runs on it at either end of this
    /// @param budget      for all calls together
    /// @throws std::bad_alloc
    SQLiteDearFunctions(::sqlite3& connection, std::int64_t budget);
    ~SQLiteDearFunctions();
    SQLiteDearFunctions(const SQLiteDearFunctions&) = delete;
    SQLiteDearFunctions& operator=(const SQLiteDearFunctions&) = delete;

    /// Whether a call was refused.
    [[nodiscard]] bool isUsedUp() const noexcept { return _budget < 0; }

private:
    /// A function, and what calls SQLite's own of the same name.
    struct Function {
        SQLiteDearFunctions* owner = nullptr;
        std::size_t index = 0;
        ::sqlite3_stmt* statement = nullptr;
    };

    static constexpr std::size_t countOfFunctions = 6;

    // SQLite calls these.
    static void call(::sqlite3_context* context, int count, ::sqlite3_value** arguments) noexcept;

    /// SQLite's code.
    [[nodiscard]] int put(bool isThere) noexcept;
    [[nodiscard]] int prepare(Function& function) noexcept;
    [[nodiscard]] int run(Function& function, ::sqlite3_value** arguments) noexcept;

    ::sqlite3& _connection;
    ::sqlite3* _empty = nullptr; // a database without tables, whose functions are SQLite's own
    std::int64_t _budget;
    std::array<Function, countOfFunctions> _functions;
};

} // namespace Rellinor
