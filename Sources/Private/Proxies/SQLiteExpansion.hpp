#pragma once

#include <cstddef>
#include <set>
#include <span>
#include <string_view>
#include <vector>

#include "Private/Proxies/SQLiteTokens.hpp"

namespace Rellinor {

/// What SQLite makes of a query before its first step, at most.
///
/// SQLite puts a view, a table of a WITH clause and a column of a subquery into a query wherever
/// they are named. A text of one page may so become larger than all memory, and nothing interrupts
/// that. Here it is reckoned from the texts:
///
/// - A SELECT makes so many copies of what it reads as it names views and such tables, and of a
///   column as one of its own columns names columns.
/// - SELECTs within each other multiply their copies. Those of a UNION add theirs.
/// - `*`, NATURAL and USING name every column.
class SQLiteExpansion {
public:
    /// @param names  of views, and of the tables of WITH clauses; outlive this
    explicit SQLiteExpansion(const std::set<std::string_view>& names) noexcept : _names(names) {}

    /// Adds the query, or a view that the query reads.
    ///
    /// @throws std::bad_alloc
    void add(std::span<const SQLiteToken> tokens);

    /// Whether SQLite takes less than about a second and 200 MB, and half of 256 KiB of stack.
    ///
    /// @param columns        the most columns of a table
    /// @param computedTerms  of the columns of tables that are computed
    [[nodiscard]] bool isBounded(std::size_t columns, std::size_t computedTerms) const noexcept;

    /// How many terms SQLite may put together.
    static constexpr std::size_t mostTerms = 1 << 20;

    /// How deep an expression of a view may be.
    static constexpr std::size_t deepestExpression = 100;

private:
    /// A SELECT whose end was not reached.
    struct Select {
        std::size_t level = 0;    // among those within each other
        std::size_t brackets = 0; // around it
        std::size_t terms = 0;    // of its own
        std::size_t tables = 1;   // behind FROM
        std::size_t stars = 0;
        std::size_t namedTables = 0;
        std::size_t namedColumns = 0; // by the column that is being read
        std::size_t mostNamedColumns = 0;
        bool isAmongColumns = true;
    };

    /// A SELECT within others, or several that a UNION puts together.
    struct Level {
        double copies = 0;
        double columns = 0; // for each column of what is read
        std::size_t depth = 0;
    };

    void addSelect(bool isOfUnion);
    void addSign(std::span<const SQLiteToken> tokens, std::size_t place);
    void addWord(std::span<const SQLiteToken> tokens, std::size_t place);
    void addName(const SQLiteToken& name);
    void closeLast();

    const std::set<std::string_view>& _names;
    std::vector<Select> _open;
    std::vector<Level> _levels;
    std::size_t _brackets = 0;
    std::size_t _terms = 0;
    std::size_t _selects = 0;
    std::size_t _stars = 0;
    std::size_t _joinsByName = 0;
};

} // namespace Rellinor
