#pragma once

#include <chrono>
#include <cstdint>

struct sqlite3; // NOLINT(readability-identifier-naming): the C library's own

namespace Rellinor {

/// Measures what a connection to a database costs, and breaks off what costs more than the size of
/// the database explains. SQLite asks every few steps.
///
/// - Where a database decides what is done, time and memory are measured. One step may take long.
/// - Where plain rows are read, steps and pages are counted. That gives the same result each time,
///   on every machine.
class SQLiteMeter {
public:
    /// Begins to measure time.
    ///
    /// @param connection  lives longer
    /// @param size        how many bytes the database has
    SQLiteMeter(::sqlite3& connection, std::int64_t size) noexcept;
    ~SQLiteMeter();
    SQLiteMeter(const SQLiteMeter&) = delete;
    SQLiteMeter& operator=(const SQLiteMeter&) = delete;

    /// Measures time and memory from now on.
    ///
    /// @param stepsBetweenChecks  the time of so many steps may come on top
    void measureTime(int stepsBetweenChecks) noexcept;

    /// Counts steps and pages from now on.
    void countSteps() noexcept;

    /// Measures the same once more, from the beginning.
    void restart() noexcept;

    /// Whether something was broken off.
    [[nodiscard]] bool isUsedUp() const noexcept { return _isUsedUp; }

private:
    static int takesSteps(void* meter) noexcept; // SQLite calls this

    [[nodiscard]] bool hasTimeLeft() noexcept;
    [[nodiscard]] bool hasStepsLeft() noexcept;

    ::sqlite3& _connection;
    std::int64_t _size;
    bool _isUsedUp = false;
    bool _countsSteps = false;
    int _stepsBetweenChecks = 0;

    // The time of the thread at the end, and when the thread was last asked for its time.
    std::chrono::nanoseconds _end{};
    std::chrono::steady_clock::time_point _lastLook;
    std::int64_t _mostMemory = 0; // of SQLite in the whole process

    std::int64_t _stepsLeft = 0;
    std::int64_t _pagesLeft = 0;
    std::int64_t _longPagesLeft = 0; // of values of many pages
};

} // namespace Rellinor
