#include "Tests/Support/OtherProcess.hpp"

#include <array>
#include <csignal>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

namespace Rellinor::Tests {

OtherProcess::OtherProcess(const std::function<void()>& work) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) {
        throw std::runtime_error("no pipe");
    }
    _process = ::fork();
    if (_process == 0) {
        work(); // what it throws ends the process, and the pipe is closed without a word
        char done = 1;
        if (::write(pipe[1], &done, 1) == 1) {
            for (;;) {
                ::pause();
            }
        }
        ::_exit(1);
    }
    ::close(pipe[1]);
    char done = 0;
    const bool isDone = ::read(pipe[0], &done, 1) == 1;
    ::close(pipe[0]);
    if (!isDone) {
        throw std::runtime_error("the other process failed");
    }
}

OtherProcess::~OtherProcess() {
    ::kill(_process, SIGKILL);
    ::waitpid(_process, nullptr, 0);
}

void dieAfter(const std::function<void()>& work) {
    const OtherProcess process(work);
}

} // namespace Rellinor::Tests
