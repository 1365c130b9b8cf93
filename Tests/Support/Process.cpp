#include "Tests/Support/Process.hpp"

#include <stdexcept>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Tests/Support/TemporaryFolder.hpp"

extern char** environ; // NOLINT(*-redundant-declaration): not every system declares it

namespace Rellinor::Tests {

Ended run(const std::string& program, std::vector<std::string> arguments,
          const std::string& output) {
    const TemporaryFolder folder;
    const std::string out = output.empty() ? folder.file("out", "") : output;
    const std::string errors = folder.file("errors", "");

    arguments.insert(arguments.begin(), program);
    std::vector<char*> pointers;
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t actions{};
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, 2, errors.c_str(), O_WRONLY, 0);
    pid_t child = 0;
    const int failure =
        ::posix_spawn(&child, program.c_str(), &actions, nullptr, pointers.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        throw std::runtime_error("cannot run " + program);
    }

    int status = 0;
    ::waitpid(child, &status, 0);
    return {.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            .out = output.empty() ? contentsOf(out) : "",
            .errors = contentsOf(errors)};
}

} // namespace Rellinor::Tests
