#include "Private/Proxies/SQLiteMeter.hpp"

#include <algorithm>

#include <sqlite3.h>

#include "Platform/ThreadTime.hpp"

namespace Rellinor {

namespace {

using namespace std::chrono_literals;

// Plain rows. The smallest ones take 1.4 steps for each of their bytes. An index that leads to rows
// of a table looks into four or five pages for each row, of some twenty bytes at least, which takes
// as many steps.
constexpr std::int64_t stepsOnCredit = 1 << 20;
constexpr std::int64_t stepsForByte = 16;
constexpr std::int64_t pagesOnCredit = 1 << 18;
constexpr std::int64_t bytesForPage = 4;
constexpr std::int64_t pagesForStep = 2;

// A value of many pages takes few steps. Each of its pages, of 512 bytes at least, is looked into
// by a few instructions.
constexpr std::int64_t longPagesOnCredit = 1 << 14;
constexpr std::int64_t bytesForLongPage = 32;
constexpr int stepsBetweenCounts = 1 << 9;

// What a database makes of them. That is about ten times what a plain row takes.
constexpr auto timeOnCredit = 1s;
constexpr auto timeForByte = 150ns;
constexpr std::int64_t memoryOnCredit = 1 << 28;
constexpr std::int64_t memoryForByte = 4;

/// The time of the thread takes longer to ask for than the time of day.
constexpr auto timeBetweenLooks = 1ms;

/// How many pages were looked into since this was last asked.
std::int64_t pagesReadOf(::sqlite3& connection) noexcept {
    std::int64_t count = 0;
    for (const int status : {SQLITE_DBSTATUS_CACHE_HIT, SQLITE_DBSTATUS_CACHE_MISS}) {
        int pages = 0;
        int ignored = 0;
        (void)::sqlite3_db_status(&connection, status, &pages, &ignored, 1);
        count += pages;
    }
    return count;
}

} // namespace

SQLiteMeter::SQLiteMeter(::sqlite3& connection, std::int64_t size) noexcept
    : _connection(connection), _size(size) {}

SQLiteMeter::~SQLiteMeter() {
    ::sqlite3_progress_handler(&_connection, 0, nullptr, nullptr);
}

void SQLiteMeter::measureTime(int stepsBetweenChecks) noexcept {
    _countsSteps = false;
    _stepsBetweenChecks = stepsBetweenChecks;
    _end = threadTime() + timeOnCredit + _size * timeForByte;
    _lastLook = std::chrono::steady_clock::now();
    _mostMemory = ::sqlite3_memory_used() + memoryOnCredit + _size * memoryForByte;
    ::sqlite3_progress_handler(&_connection, stepsBetweenChecks, &takesSteps, this);
}

void SQLiteMeter::countSteps() noexcept {
    _countsSteps = true;
    _stepsBetweenChecks = stepsBetweenCounts;
    _stepsLeft = stepsOnCredit + _size * stepsForByte;
    _pagesLeft = pagesOnCredit + _size / bytesForPage;
    _longPagesLeft = longPagesOnCredit + _size / bytesForLongPage;
    (void)pagesReadOf(_connection);
    ::sqlite3_progress_handler(&_connection, stepsBetweenCounts, &takesSteps, this);
}

void SQLiteMeter::restart() noexcept {
    if (_countsSteps) {
        countSteps();
    } else {
        measureTime(_stepsBetweenChecks);
    }
}

bool SQLiteMeter::hasTimeLeft() noexcept {
    if (::sqlite3_memory_used() > _mostMemory) {
        return false;
    }
    const auto now = std::chrono::steady_clock::now();
    if (now - _lastLook < timeBetweenLooks) {
        return true;
    }
    _lastLook = now;
    return threadTime() < _end;
}

bool SQLiteMeter::hasStepsLeft() noexcept {
    _stepsLeft -= stepsBetweenCounts;
    const std::int64_t pages = pagesReadOf(_connection);
    _pagesLeft -= pages;
    _longPagesLeft -= std::max<std::int64_t>(pages - stepsBetweenCounts * pagesForStep, 0);
    return _stepsLeft >= 0 && _pagesLeft >= 0 && _longPagesLeft >= 0;
}

int SQLiteMeter::takesSteps(void* meter) noexcept {
    auto& self = *static_cast<SQLiteMeter*>(meter);
    const bool isEnough = self._countsSteps ? self.hasStepsLeft() : self.hasTimeLeft();
    self._isUsedUp = self._isUsedUp || !isEnough;
    return self._isUsedUp ? 1 : 0;
}

} // namespace Rellinor
