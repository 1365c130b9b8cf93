#include "Benchmarks/Process.hpp"

#include <algorithm>

#include <array>
#include <cstddef>
#include <exception>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

#include "Platform/LargeMemory.hpp"

namespace Rellinor::Benchmarks {

namespace {

void write(int descriptor, const std::string& text) {
    if (::write(descriptor, text.data(), text.size()) != std::ssize(text)) {
        throw std::runtime_error("a process cannot tell what it measured");
    }
}

std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 256> piece{};
    for (ssize_t count = 0; (count = ::read(descriptor, piece.data(), piece.size())) > 0;) {
        text.append(piece.data(), static_cast<std::size_t>(count));
    }
    return text;
}

/// What a copy of this process wrote into the descriptor that it was given.
std::string writtenByChild(const std::function<void(int)>& work) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) {
        throw std::runtime_error("no pipe");
    }
    std::cout.flush(); // or both would write it
    const pid_t child = ::fork();
    if (child < 0) {
        throw std::runtime_error("no process");
    }
    if (child == 0) {
        ::close(pipe[0]);
        try {
            work(pipe[1]);
            ::_exit(0);
        } catch (const std::exception& error) {
            std::cerr << error.what() << '\n';
        }
        ::_exit(1);
    }
    ::close(pipe[1]);
    std::string text = readAll(pipe[0]);
    ::close(pipe[0]);
    int status = 0;
    if (::waitpid(child, &status, 0) != child || status != 0) {
        throw std::runtime_error("its process failed");
    }
    return text;
}

std::string textOf(const Run& run) {
    std::ostringstream out;
    out.precision(17);
    out << run.seconds << ' ' << run.peakMemory << ' ' << run.pageFaults << ' '
        << run.delivered.logins << ' ' << run.delivered.notes << ' ' << run.delivered.cards << ' '
        << run.delivered.bytes << '\n';
    return out.str();
}

Run runOf(const std::string& text) {
    std::istringstream in(text);
    Run run;
    in >> run.seconds >> run.peakMemory >> run.pageFaults >> run.delivered.logins >>
        run.delivered.notes >> run.delivered.cards >> run.delivered.bytes;
    if (!in) {
        throw std::runtime_error("its process told nothing");
    }
    return run;
}

} // namespace

Run inChild(const std::function<Run()>& measure) {
    return runOf(writtenByChild([&](int descriptor) { write(descriptor, textOf(measure())); }));
}

void haveMemoryAtHand(std::size_t bytes) {
    (void)writtenByChild([&](int /*descriptor*/) {
        LargeBuffer memory(bytes);
        std::ranges::fill(memory.bytes(), '\0');
    });
}

Run byProgram(const std::vector<std::string>& command) {
    return runOf(writtenByChild([&](int descriptor) {
        std::vector<std::string> words = command;
        std::vector<char*> arguments;
        arguments.reserve(words.size() + 1);
        for (std::string& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
        ::dup2(descriptor, STDOUT_FILENO);
        ::execvp(arguments.front(), arguments.data());
        throw std::runtime_error("cannot start " + command.front());
    }));
}

} // namespace Rellinor::Benchmarks
