// A host that reads an export in a process without rights: whatever a stranger's file does to its
// reader, the reader can give back texts and do nothing else. For Linux, with libseccomp.

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include <Rellinor/ExportReader.hpp>
#include <seccomp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::size_t mostBytes = std::size_t{256} << 20U; // of the texts of an export

/// Takes every right but to compute, and to write to what is open. False if that fails.
bool giveUpRights() {
    const rlimit memory{.rlim_cur = rlim_t{2} << 30U, .rlim_max = rlim_t{2} << 30U};
    const rlimit seconds{.rlim_cur = 60, .rlim_max = 60};
    const rlimit none{};
    ::setrlimit(RLIMIT_AS, &memory);
    ::setrlimit(RLIMIT_CPU, &seconds);
    ::setrlimit(RLIMIT_CORE, &none);
    // No call of the system but those that a computation needs: none that opens anything.
    scmp_filter_ctx filter = ::seccomp_init(SCMP_ACT_ERRNO(EPERM));
    for (const int call :
         {SCMP_SYS(write), SCMP_SYS(brk), SCMP_SYS(mmap), SCMP_SYS(munmap), SCMP_SYS(mremap),
          SCMP_SYS(madvise), SCMP_SYS(futex), SCMP_SYS(clock_gettime), SCMP_SYS(getpid),
          SCMP_SYS(gettid), SCMP_SYS(tgkill), SCMP_SYS(rt_sigprocmask), SCMP_SYS(rt_sigreturn),
          SCMP_SYS(exit), SCMP_SYS(exit_group)}) {
        ::seccomp_rule_add_array(filter, SCMP_ACT_ALLOW, call, 0, nullptr);
    }
    const bool isLoaded = ::seccomp_load(filter) == 0;
    ::seccomp_release(filter);
    return isLoaded && ::chdir("/") != 0; // there is a wall
}

/// Writes the length of a text and the text.
bool write(int pipe, std::string_view text) {
    const std::uint64_t length = text.size();
    std::string message(sizeof length, '\0');
    std::memcpy(message.data(), &length, sizeof length);
    message += text;
    for (std::string_view rest = message; !rest.empty();) {
        const ssize_t count = ::write(pipe, rest.data(), rest.size());
        if (count < 0) {
            return false;
        }
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Reads an export behind the wall, and hands out its logins. Whether that went well.
bool readBehindWall(std::string_view bytes, const std::string& name, int pipe) {
    if (!giveUpRights()) {
        return false;
    }
    const auto imported = Rellinor::readExport(Rellinor::ExportFile::inMemory(bytes, name));
    if (!imported.records) {
        return false;
    }
    bool isWritten = true;
    for (const auto& login : imported.records->passwords) {
        isWritten = isWritten && write(pipe, login->username()) && write(pipe, login->password()) &&
                    write(pipe, login->url());
    }
    return isWritten;
}

/// Takes the first text off those that were handed out; absent if there is no whole one.
std::optional<std::string_view> take(std::string_view& texts) {
    std::uint64_t length = 0;
    if (texts.size() < sizeof length) {
        return std::nullopt;
    }
    std::memcpy(&length, texts.data(), sizeof length);
    texts.remove_prefix(sizeof length);
    if (length > texts.size()) {
        return std::nullopt;
    }
    const std::string_view text = texts.substr(0, length);
    texts.remove_prefix(length);
    return text;
}

/// What the other process hands out; absent if it failed or said too much.
std::optional<std::string> textsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    int pipe[2]{};
    if (::pipe(pipe) != 0) {
        return std::nullopt;
    }
    const pid_t reader = ::fork(); // before the host has any thread
    if (reader == 0) {
        ::close(pipe[0]);
        ::_exit(readBehindWall(bytes, path, pipe[1]) ? 0 : 1);
    }
    ::close(pipe[1]);
    std::string texts;
    char buffer[65536];
    for (ssize_t count = 1; count > 0 && texts.size() < mostBytes;) {
        count = ::read(pipe[0], buffer, sizeof buffer);
        texts.append(buffer, count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    ::close(pipe[0]);
    int status = 1;
    ::waitpid(reader, &status, 0);
    return status == 0 ? std::optional(texts) : std::nullopt;
}

} // namespace

int main(int argc, char* argv[]) {
    const std::optional<std::string> texts = textsOf(argc > 1 ? argv[1] : "export.csv");
    if (!texts) {
        std::cerr << "The file could not be read.\n";
        return 1;
    }
    std::string_view rest = *texts;
    while (!rest.empty()) {
        const auto username = take(rest);
        const auto password = take(rest);
        const auto url = take(rest);
        if (!username || !password || !url) {
            return 1; // it said something else than it should
        }
        std::cout << *username << " (" << *url << ")\n";
    }
}
