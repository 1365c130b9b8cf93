// What an import from a database leaves behind on purpose, 100 KiB each time, would fill the memory
// of a process that imports a thousand times a second: this stands before SQLite's own function and
// finalizes the statements of the connection first.

#include <sqlite3.h>

#include "Fuzzers/Driver/Fuzzer.hpp"

int sqlite3_close_v2(::sqlite3* connection) {
    while (::sqlite3_stmt* const statement = ::sqlite3_next_stmt(connection, nullptr)) {
        // The result is that of its last step.
        static_cast<void>(::sqlite3_finalize(statement));
    }
    const int result = ::sqlite3_close(connection);
    Rellinor::Fuzzers::expect(result == SQLITE_OK);
    return result;
}
