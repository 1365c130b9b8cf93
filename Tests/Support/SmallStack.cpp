#include "Tests/Support/SmallStack.hpp"

#include <stdexcept>

#include <pthread.h>

namespace Rellinor::Tests {

namespace {

void* doWork(void* work) {
    (*static_cast<const std::function<void()>*>(work))();
    return nullptr;
}

} // namespace

void onSmallStack(std::size_t size, const std::function<void()>& work) {
    std::function<void()> copy = work;
    ::pthread_attr_t attributes{};
    ::pthread_t thread{};
    ::pthread_attr_init(&attributes);
    const bool isStarted = ::pthread_attr_setstacksize(&attributes, size) == 0 &&
                           ::pthread_create(&thread, &attributes, &doWork, &copy) == 0;
    ::pthread_attr_destroy(&attributes);
    if (!isStarted || ::pthread_join(thread, nullptr) != 0) {
        throw std::runtime_error("no thread with so small a stack");
    }
}

} // namespace Rellinor::Tests
