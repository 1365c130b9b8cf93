#include "Private/Proxies/SQLiteDearFunctions.hpp"

#include <algorithm>
#include <new>
#include <span>
#include <utility>

#include <sqlite3.h>

namespace Rellinor {

namespace {

struct Name {
    const char* name;
    const char* call;
};

constexpr std::array<Name, 6> names = {{
    {.name = "instr", .call = "SELECT instr(?1, ?2)"},
    {.name = "replace", .call = "SELECT replace(?1, ?2, ?3)"},
    {.name = "json_patch", .call = "SELECT json_patch(?1, ?2)"},
    {.name = "trim", .call = "SELECT trim(?1, ?2)"},
    {.name = "ltrim", .call = "SELECT ltrim(?1, ?2)"},
    {.name = "rtrim", .call = "SELECT rtrim(?1, ?2)"},
}};

constexpr int countOfArguments(const Name& name) noexcept {
    return name.name == names[1].name ? 3 : 2;
}

// As SQLite's own are. A schema that is not trusted may call what is innocuous.
constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

std::int64_t sizeOf(::sqlite3_value* value) noexcept {
    constexpr std::int64_t longestNumber = 32;
    switch (::sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return 0;
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
        return longestNumber;
    default:
        return ::sqlite3_value_bytes(value);
    }
}

bool isBlob(::sqlite3_value* value) noexcept {
    return ::sqlite3_value_type(value) == SQLITE_BLOB;
}

/// Binds a blob as a text. Gives SQLite's code.
int bindText(::sqlite3_stmt* statement, int place, ::sqlite3_value* blob) noexcept {
    ::sqlite3_value* const copy = ::sqlite3_value_dup(blob); // which becomes the text
    const auto* const text = reinterpret_cast<const char*>(::sqlite3_value_text(copy)); // NOLINT
    const int code = text == nullptr
                         ? SQLITE_NOMEM
                         : ::sqlite3_bind_text(statement, place, text, ::sqlite3_value_bytes(copy),
                                               SQLITE_TRANSIENT); // NOLINT(*-cast)
    ::sqlite3_value_free(copy);
    return code;
}

// count(*)

void countRow(::sqlite3_context* context, std::int64_t difference) noexcept {
    void* const count = ::sqlite3_aggregate_context(context, sizeof(std::int64_t));
    if (count == nullptr) {
        ::sqlite3_result_error_nomem(context);
        return;
    }
    *static_cast<std::int64_t*>(count) += difference;
}

void addRow(::sqlite3_context* context, int /*count*/, ::sqlite3_value** /*arguments*/) noexcept {
    countRow(context, 1);
}

void removeRow(::sqlite3_context* context, int /*count*/,
               ::sqlite3_value** /*arguments*/) noexcept {
    countRow(context, -1);
}

void giveCount(::sqlite3_context* context) noexcept {
    const void* const count = ::sqlite3_aggregate_context(context, 0); // null if there was no row
    ::sqlite3_result_int64(context,
                           count == nullptr ? 0 : *static_cast<const std::int64_t*>(count));
}

} // namespace

SQLiteDearFunctions::SQLiteDearFunctions(::sqlite3& connection, std::int64_t budget)
    : _connection(connection), _budget(budget) {
    static_assert(names.size() == countOfFunctions);
    for (std::size_t index = 0; index < _functions.size(); ++index) {
        _functions[index] = {.owner = this, .index = index};
    }
    if (put(true) != SQLITE_OK) {
        (void)put(false);
        throw std::bad_alloc();
    }
}

SQLiteDearFunctions::~SQLiteDearFunctions() {
    // A statement that is never finalized goes on pointing to SQLite's records of the functions,
    // which stay, and no longer lead here.
    (void)put(false);
    for (const Function& function : _functions) {
        ::sqlite3_finalize(function.statement);
    }
    ::sqlite3_close(_empty);
}

int SQLiteDearFunctions::put(bool isThere) noexcept {
    for (Function& function : _functions) {
        const Name& name = names[function.index];
        const int code = ::sqlite3_create_function(&_connection, name.name, countOfArguments(name),
                                                   flags, isThere ? &function : nullptr,
                                                   isThere ? &call : nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) {
            return code;
        }
    }
    return ::sqlite3_create_window_function(
        &_connection, "count", 0, flags, nullptr, isThere ? &addRow : nullptr,
        isThere ? &giveCount : nullptr, isThere ? &giveCount : nullptr,
        isThere ? &removeRow : nullptr, nullptr);
}

int SQLiteDearFunctions::prepare(Function& function) noexcept {
    if (_empty == nullptr) {
        const int code = ::sqlite3_open(":memory:", &_empty);
        if (code != SQLITE_OK) {
            ::sqlite3_close(std::exchange(_empty, nullptr));
            return code;
        }
    }
    if (function.statement != nullptr) {
        return SQLITE_OK;
    }
    return ::sqlite3_prepare_v2(_empty, names[function.index].call, -1, &function.statement,
                                nullptr);
}

int SQLiteDearFunctions::run(Function& function, ::sqlite3_value** arguments) noexcept {
    (void)::sqlite3_limit(_empty, SQLITE_LIMIT_LENGTH,
                          ::sqlite3_limit(&_connection, SQLITE_LIMIT_LENGTH, -1));
    const int count = ::sqlite3_bind_parameter_count(function.statement);
    const std::span<::sqlite3_value*> values(arguments, static_cast<std::size_t>(count));
    // Only two blobs are searched as bytes. Any other blob is taken for a text in the encoding of
    // the connection, which this one need not have.
    const bool areBytes = function.index == 0 && std::ranges::all_of(values, isBlob);
    for (int index = 0; index < count; ++index) {
        const int code =
            isBlob(arguments[index]) && !areBytes
                ? bindText(function.statement, index + 1, arguments[index])
                : ::sqlite3_bind_value(function.statement, index + 1, arguments[index]);
        if (code != SQLITE_OK) {
            return code;
        }
    }
    return ::sqlite3_step(function.statement);
}

void SQLiteDearFunctions::call(::sqlite3_context* context, int /*count*/,
                               ::sqlite3_value** arguments) noexcept {
    auto& function = *static_cast<Function*>(::sqlite3_user_data(context));
    auto& self = *function.owner;
    // One byte more than there is: a call costs something even for empty texts.
    const std::int64_t cost = (sizeOf(arguments[0]) + 1) * (sizeOf(arguments[1]) + 1);
    self._budget = cost > self._budget ? -1 : self._budget - cost;
    if (self.isUsedUp()) {
        ::sqlite3_result_error(context, "the function costs too much", -1);
        return;
    }
    int code = self.prepare(function);
    if (code == SQLITE_OK) {
        code = self.run(function, arguments);
    }
    if (code == SQLITE_ROW) {
        ::sqlite3_value* const result = ::sqlite3_column_value(function.statement, 0);
        ::sqlite3_result_value(context, result);
        ::sqlite3_result_subtype(context, ::sqlite3_value_subtype(result));
    } else if (code == SQLITE_ERROR) {
        ::sqlite3_result_error(context, ::sqlite3_errmsg(self._empty), -1); // of bad JSON
    } else {
        ::sqlite3_result_error_code(context, code);
    }
    if (function.statement != nullptr) {
        (void)::sqlite3_reset(function.statement);
        (void)::sqlite3_clear_bindings(function.statement);
    }
}

} // namespace Rellinor
