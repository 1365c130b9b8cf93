#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3; // NOLINT(readability-identifier-naming): the C library's own

namespace Rellinor::Host {

/// Makes a connection careful of what somebody may have put into a database: nothing that its
/// schema says is trusted, views, triggers, virtual tables and functions are off, and a query ends
/// with an error if it takes more steps, or looks into more pages, than the size of the file
/// explains. Tables may be knotted so that their rows never end.
class DatabaseCaution {
public:
    /// @param connection  to the database at `path`; closed before this ends
    /// @throws std::bad_alloc
    DatabaseCaution(::sqlite3& connection, const std::string& path);
    DatabaseCaution(const DatabaseCaution&) = delete;
    DatabaseCaution& operator=(const DatabaseCaution&) = delete;
    ~DatabaseCaution() = default;

    /// What of a schema that may well be sound keeps the database from being read, such as "its
    /// schema calls functions"; empty if nothing does.
    [[nodiscard]] std::string_view refusal() const noexcept { return _refusal; }

private:
    static int takesSteps(void* caution) noexcept;

    ::sqlite3& _connection;
    std::int64_t _stepsLeft;
    std::int64_t _pagesLeft;
    std::string_view _refusal;
};

} // namespace Rellinor::Host
