#include "Host/DatabaseNumber.hpp"

#include <new>

#include <sqlite3.h>

namespace Rellinor::Host {

std::optional<int> firstNumber(::sqlite3& connection, std::string_view query,
                               std::span<const std::string_view> arguments) {
    ::sqlite3_stmt* statement = nullptr;
    int code = ::sqlite3_prepare_v2(&connection, query.data(), static_cast<int>(query.size()),
                                    &statement, nullptr);
    std::optional<int> number;
    if (code == SQLITE_OK) {
        int place = 0;
        for (const std::string_view argument : arguments) {
            (void)::sqlite3_bind_text(statement, ++place, argument.data(),
                                      static_cast<int>(argument.size()), SQLITE_STATIC);
        }
        if (::sqlite3_step(statement) == SQLITE_ROW) {
            number = ::sqlite3_column_int(statement, 0);
        }
        code = ::sqlite3_finalize(statement); // what the step gave
    }
    if (code == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    return number;
}

} // namespace Rellinor::Host
