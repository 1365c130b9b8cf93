#include "Platform/ThreadTime.hpp"

#include <chrono>
#include <thread>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

using namespace std::chrono_literals;

TEST(ThreadTimeTest, growsAsTheThreadWorksAndNotAsItWaits) {
    const auto begin = threadTime();
    std::this_thread::sleep_for(100ms);
    const auto afterSleep = threadTime();
    EXPECT_LT(afterSleep - begin, 50ms);
    const auto end = std::chrono::steady_clock::now() + 10s;
    while (threadTime() - afterSleep < 10ms && std::chrono::steady_clock::now() < end) {
    }
    EXPECT_GE(threadTime() - afterSleep, 10ms);
}

} // namespace

} // namespace Rellinor::Tests
