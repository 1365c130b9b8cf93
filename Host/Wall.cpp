#include "Host/Wall.hpp"

#include <cerrno>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <new>
#include <utility>

#if defined(RELLINOR_WALL)
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>
#if __has_include(<linux/landlock.h>)
#include <linux/landlock.h>
#define RELLINOR_LANDLOCK // NOLINT(*-macro-usage)
#endif
#if defined(RELLINOR_SECCOMP)
#include <seccomp.h>
#endif
#endif

#include "Host/Descriptor.hpp"

namespace Rellinor::Host {

namespace {

#if defined(RELLINOR_LANDLOCK)

/// All that every system with Landlock tells apart, but to read.
constexpr std::uint64_t stopped = ((LANDLOCK_ACCESS_FS_MAKE_SYM << 1U) - 1) &
                                  ~(LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR);

/// Closes all folders but one to every change of files; all of them if its name is empty.
void closeFolders(const std::string& outputFolder) noexcept {
    landlock_ruleset_attr attributes{};
    attributes.handled_access_fs = stopped;
    const Descriptor rules(::syscall(SYS_landlock_create_ruleset, // NOLINT(*-vararg)
                                     &attributes, sizeof attributes, 0));
    if (rules.number() < 0) {
        return; // this system has none
    }
    if (!outputFolder.empty()) {
        const Descriptor folder(
            ::open(outputFolder.c_str(), O_PATH | O_CLOEXEC)); // NOLINT(*-vararg)
        landlock_path_beneath_attr rule{};
        rule.allowed_access = LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_REMOVE_FILE;
        rule.parent_fd = folder.number();
        ::syscall(SYS_landlock_add_rule, rules.number(), // NOLINT(*-vararg)
                  LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
    }
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);                 // NOLINT(*-vararg)
    ::syscall(SYS_landlock_restrict_self, rules.number(), 0); // NOLINT(*-vararg)
}

#endif

#if defined(RELLINOR_SECCOMP)

/// A filter of system calls, which then fail as if they were not permitted.
class Filter {
public:
    Filter() : _filter(::seccomp_init(SCMP_ACT_ALLOW), &::seccomp_release) {
        if (_filter == nullptr) {
            throw std::bad_alloc();
        }
    }

    void stop(std::initializer_list<int> calls) {
        for (const int call : calls) {
            check(::seccomp_rule_add_array(_filter.get(), SCMP_ACT_ERRNO(EPERM), call, 0, nullptr));
        }
    }

    /// Stops a call if some bits of an argument have that value.
    void stop(int call, unsigned argument, scmp_datum_t bits, scmp_datum_t value) {
        const scmp_arg_cmp compared{argument, SCMP_CMP_MASKED_EQ, bits, value};
        check(::seccomp_rule_add_array(_filter.get(), SCMP_ACT_ERRNO(EPERM), call, 1, &compared));
    }

    void load() {
        check(::seccomp_load(_filter.get())); // a system without filters goes without
    }

private:
    static void check(int result) {
        if (result == -ENOMEM) {
            throw std::bad_alloc();
        }
    }

    std::unique_ptr<void, decltype(&::seccomp_release)> _filter;
};

/// Stops the calls by which an open file or a path is changed.
void stopWriting(Filter& filter, bool hasOutput) {
    for (const auto& [call, flags] :
         {std::pair(SCMP_SYS(open), 1U), std::pair(SCMP_SYS(openat), 2U)}) {
        filter.stop(call, flags, O_ACCMODE, O_WRONLY);
        filter.stop(call, flags, O_ACCMODE, O_RDWR);
        filter.stop(call, flags, O_CREAT, O_CREAT);
        filter.stop(call, flags, O_TRUNC, O_TRUNC);
    }
    filter.stop({SCMP_SYS(openat2), SCMP_SYS(creat), SCMP_SYS(truncate), SCMP_SYS(chmod),
                 SCMP_SYS(fchmodat), SCMP_SYS(chown), SCMP_SYS(lchown), SCMP_SYS(fchownat),
                 SCMP_SYS(utime), SCMP_SYS(utimes), SCMP_SYS(futimesat), SCMP_SYS(utimensat)});
    if (!hasOutput) {
        filter.stop({SCMP_SYS(link), SCMP_SYS(linkat), SCMP_SYS(rename), SCMP_SYS(renameat),
                     SCMP_SYS(renameat2), SCMP_SYS(unlink), SCMP_SYS(unlinkat)});
    }
}

void stopCalls(const WallGates& gates) {
    Filter filter;
    // Connections, also by way of what does calls for a process.
    filter.stop({SCMP_SYS(socket), SCMP_SYS(socketpair), SCMP_SYS(connect), SCMP_SYS(bind),
                 SCMP_SYS(listen), SCMP_SYS(accept), SCMP_SYS(accept4), SCMP_SYS(io_uring_setup),
                 SCMP_SYS(io_uring_enter), SCMP_SYS(io_uring_register)});
    // Programs and processes.
    filter.stop({SCMP_SYS(execve), SCMP_SYS(execveat), SCMP_SYS(fork), SCMP_SYS(vfork),
                 SCMP_SYS(clone), SCMP_SYS(clone3), SCMP_SYS(ptrace), SCMP_SYS(process_vm_readv),
                 SCMP_SYS(process_vm_writev), SCMP_SYS(pidfd_getfd)});
    // The system itself.
    filter.stop({SCMP_SYS(mount), SCMP_SYS(umount2), SCMP_SYS(pivot_root), SCMP_SYS(chroot),
                 SCMP_SYS(unshare), SCMP_SYS(setns), SCMP_SYS(bpf), SCMP_SYS(perf_event_open),
                 SCMP_SYS(keyctl), SCMP_SYS(add_key), SCMP_SYS(request_key),
                 SCMP_SYS(open_by_handle_at)});
    // Files of other kinds.
    filter.stop({SCMP_SYS(mkdir), SCMP_SYS(mkdirat), SCMP_SYS(rmdir), SCMP_SYS(mknod),
                 SCMP_SYS(mknodat), SCMP_SYS(symlink), SCMP_SYS(symlinkat), SCMP_SYS(setxattr),
                 SCMP_SYS(lsetxattr), SCMP_SYS(removexattr), SCMP_SYS(lremovexattr)});
    if (!gates.isOpenToFiles) {
        stopWriting(filter, !gates.output.empty());
    }
    filter.load();
}

#endif

} // namespace

void wallIn([[maybe_unused]] const WallGates& gates) {
#if defined(RELLINOR_LANDLOCK)
    if (!gates.isOpenToFiles) {
        closeFolders(gates.output);
    }
#endif
#if defined(RELLINOR_SECCOMP)
    stopCalls(gates);
#endif
}

} // namespace Rellinor::Host
