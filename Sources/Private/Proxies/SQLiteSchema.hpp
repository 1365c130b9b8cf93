#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Private/Proxies/SQLiteTokens.hpp"

namespace Rellinor {

/// The texts of a schema, looked at before SQLite does anything that they say.
class SQLiteSchema {
public:
    /// Adds what makes a table, view, index or trigger.
    ///
    /// @param sql  as the database has it; may be no SQL
    ///
    /// @throws std::bad_alloc
    void add(std::string_view sql);

    /// Whether statistics are computed. SQLite makes none that are, and reads them with the schema.
    [[nodiscard]] bool computesStatistics() const noexcept { return _computesStatistics; }

    /// Whether SQLite can prepare a query in bounded time, memory and stack.
    ///
    /// @throws std::bad_alloc
    [[nodiscard]] bool isBounded(std::string_view query) const;

private:
    /// A table or view.
    struct Relation {
        std::string view;              // its text; empty for a table
        std::size_t columns = 0;       // at most
        std::size_t computedTerms = 0; // of the columns that are computed
    };

    using Relations = std::unordered_multimap<std::string, Relation>;

    /// Those that a query reads, perhaps through others.
    [[nodiscard]] std::vector<const Relations::value_type*>
    relationsOf(std::string_view query) const;

    Relations _relations; // by their names
    bool _computesStatistics = false;
};

} // namespace Rellinor
