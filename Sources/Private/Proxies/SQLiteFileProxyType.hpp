#pragma once

#include <string_view>

#include "Private/Proxies/SQLiteRows.hpp"

namespace Rellinor {

/// A reader of SQLite databases.
class SQLiteFileProxyType {
public:
    SQLiteFileProxyType(const SQLiteFileProxyType&) = delete;
    SQLiteFileProxyType& operator=(const SQLiteFileProxyType&) = delete;

    /// The rows that a query gives, in the database's order; none if the database cannot be opened
    /// or the query cannot be prepared, and those before an error if one occurs among them.
    ///
    /// @param query  one statement; a text without any is a fault of the program
    /// @throws std::bad_alloc  there is no memory, for SQLite or for the rows
    [[nodiscard]] virtual SQLiteRows select(std::string_view query) = 0;

protected:
    SQLiteFileProxyType() = default;
    ~SQLiteFileProxyType() = default;
};

} // namespace Rellinor
