#pragma once

#include <functional>

#include <sys/types.h>

namespace Rellinor::Tests {

/// Another process that has done some work and now stands still, until it is killed at the end of
/// the scope. It gets no chance to tidy up.
class OtherProcess {
public:
    /// Returns when the work is done.
    explicit OtherProcess(const std::function<void()>& work);
    ~OtherProcess();
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

private:
    ::pid_t _process = 0;
};

/// Does some work in another process, which then dies without tidying up.
void dieAfter(const std::function<void()>& work);

} // namespace Rellinor::Tests
