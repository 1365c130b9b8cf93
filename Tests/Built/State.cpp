// A library that does all that ours must not: it keeps something between calls in every way,
// prints, and more.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <mutex>
#include <thread>

#include <unistd.h>

namespace Rellinor::Tests {

// NOLINTBEGIN(*-avoid-non-const-global-variables,cert-msc30-c,cert-msc50-cpp)
int calls = 1;
thread_local int callsOfThread = 0;
const int madeAtStart = std::rand();

int state() {
    static const int madeAtFirstCall = std::rand();
    return madeAtStart + madeAtFirstCall + ++calls + ++callsOfThread;
}

std::array deduced = {1, 2};

void misbehave() {
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    std::cout << std::getenv("HOME");
    std::puts("");
    (void)::write(1, deduced.data(), 0);
    std::thread([] {}).join();
}

// NOLINTEND(*-avoid-non-const-global-variables,cert-msc30-c,cert-msc50-cpp)

} // namespace Rellinor::Tests
