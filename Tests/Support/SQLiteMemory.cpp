#include "Tests/Support/SQLiteMemory.hpp"

#include <cstdlib>

#include <sqlite3.h>

namespace Rellinor::Tests {

namespace {

// NOLINTBEGIN(*-avoid-non-const-global-variables)
std::size_t allocations = 0;
std::size_t failingAllocation = 0; // 0: none fails
bool failsFromThenOn = false;
::sqlite3_mem_methods original{};

// NOLINTEND(*-avoid-non-const-global-variables)

bool hasMemory() {
    ++allocations;
    return failingAllocation == 0 ||
           (failsFromThenOn ? allocations < failingAllocation : allocations != failingAllocation);
}

void* allocate(int size) {
    return hasMemory() ? original.xMalloc(size) : nullptr;
}

void* resize(void* memory, int size) {
    return hasMemory() ? original.xRealloc(memory, size) : nullptr;
}

bool install() {
    if (::sqlite3_config(SQLITE_CONFIG_GETMALLOC, &original) != SQLITE_OK) { // NOLINT(*-vararg)
        return false;
    }
    ::sqlite3_mem_methods methods = original;
    methods.xMalloc = &allocate;
    methods.xRealloc = &resize;
    return ::sqlite3_config(SQLITE_CONFIG_MALLOC, &methods) == SQLITE_OK; // NOLINT(*-vararg)
}

/// Only to be done before SQLite is used for the first time.
const bool isInstalled = install();

void failAllocations(std::size_t nth, bool fromThenOn, const std::function<void()>& work) {
    failsFromThenOn = fromThenOn;
    failingAllocation = allocations + nth;
    work();
    failingAllocation = 0;
}

} // namespace

std::size_t sqliteAllocationsOf(const std::function<void()>& work) {
    if (!isInstalled) {
        std::abort();
    }
    const std::size_t before = allocations;
    work();
    return allocations - before;
}

void failSQLiteAllocation(std::size_t nth, const std::function<void()>& work) {
    failAllocations(nth, false, work);
}

void failSQLiteAllocationsFrom(std::size_t nth, const std::function<void()>& work) {
    failAllocations(nth, true, work);
}

} // namespace Rellinor::Tests
