// A library that keeps something between calls, in every way that ours must not.

#include <cstdlib>

namespace Rellinor::Tests {

// NOLINTBEGIN(*-avoid-non-const-global-variables,cert-msc30-c,cert-msc50-cpp)
int calls = 1;
thread_local int callsOfThread = 0;
const int madeAtStart = std::rand();

int state() {
    static const int madeAtFirstCall = std::rand();
    return madeAtStart + madeAtFirstCall + ++calls + ++callsOfThread;
}

// NOLINTEND(*-avoid-non-const-global-variables,cert-msc30-c,cert-msc50-cpp)

} // namespace Rellinor::Tests
