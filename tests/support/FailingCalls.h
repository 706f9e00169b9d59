// File calls that fail, or in which the process dies, at a chosen place: the way along every error path of a save.
//
// In a process of its own each file call is handed to a handler first (seccomp). The handler counts it, and makes it or
// answers with an error in the kernel's stead. No library is exchanged and no other process looks on.
#pragma once

#include "support/OtherUser.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <vector>

/// What goes wrong: the file call of this number, from 1, and with `fromThereOn` each one behind it.
struct Failure {
    int call = 1;
    int error = 0; ///< errno; Death = the process is killed before the call. EINTR: calls that wait count, no others
    bool fromThereOn = false;
    static constexpr int Death = -1;
};

/// How the work ended.
struct FailedRun {
    bool possible = true; ///< false where the kernel lets no calls be watched
    bool reached = false; ///< the work made as many file calls as that, so that something did go wrong
    int result = 0;       ///< of the work, as asOrdinaryUser gives it
};

namespace FailingCalls
{

struct Watch {
    Failure failure;
    int count;
};

inline Watch* watch = nullptr; // shared with the process that watches the outcome

constexpr unsigned long Allowed = 0x7A11C0DE; // the handler's own calls carry it as their sixth argument

inline std::vector<unsigned> watchedCalls()
{
    return {SYS_openat,   SYS_read,   SYS_write,      SYS_fsync,     SYS_ftruncate,  SYS_lseek,    SYS_newfstatat,
            SYS_fstat,    SYS_statx,  SYS_readlinkat, SYS_faccessat, SYS_faccessat2, SYS_renameat, SYS_renameat2,
            SYS_unlinkat, SYS_fchmod, SYS_fchown,     SYS_close,     SYS_getdents64, SYS_mkdirat,  SYS_linkat,
#ifdef SYS_open // the older calls, which newer processors never had
            SYS_open,     SYS_stat,   SYS_lstat,      SYS_readlink,  SYS_access,     SYS_rename,   SYS_unlink,
            SYS_mkdir,    SYS_link
#endif
    };
}

/// Calls that a signal may interrupt while they wait.
inline bool waits(int call)
{
    constexpr std::array calls = {SYS_openat, SYS_read, SYS_write, SYS_fsync, SYS_ftruncate, SYS_close};
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

/// Counts a call. True for one that is to fail.
inline bool isToFail(int call)
{
    const Failure& failure = watch->failure;
    if (failure.error == EINTR && !waits(call))
        return false;
    const int number = ++watch->count;
    return number == failure.call || (failure.fromThereOn && number > failure.call);
}

/// Answers one call in the kernel's stead; the answer goes into the register where the call's number stood.
inline void handle(int, siginfo_t* info, void* contextPointer)
{
    auto& machine = static_cast<ucontext_t*>(contextPointer)->uc_mcontext;
#if defined(__x86_64__)
    auto& r = machine.gregs;
    const std::array<long, 5> arguments{r[REG_RDI], r[REG_RSI], r[REG_RDX], r[REG_R10], r[REG_R8]};
    auto& answer = r[REG_RAX];
#elif defined(__aarch64__)
    auto& r = machine.regs;
    const std::array<long, 5> arguments{static_cast<long>(r[0]), static_cast<long>(r[1]), static_cast<long>(r[2]),
                                        static_cast<long>(r[3]), static_cast<long>(r[4])};
    auto& answer = r[0];
#else
#error "the registers of this processor are not known here"
#endif
    if (isToFail(info->si_syscall)) {
        if (watch->failure.error == Failure::Death)
            raise(SIGKILL);
        answer = static_cast<std::remove_reference_t<decltype(answer)>>(-watch->failure.error);
        return;
    }
    const int before = errno;
    const long made =
        syscall(info->si_syscall, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4], Allowed);
    answer = static_cast<std::remove_reference_t<decltype(answer)>>(made < 0 ? -errno : made);
    errno = before;
}

/// From here on every watched call of this process goes through `handle`. False where the kernel does not let it.
inline bool watchCalls()
{
    struct sigaction action {
    };
    action.sa_sigaction = handle;
    action.sa_flags = SA_SIGINFO;
    constexpr auto SixthArgument = static_cast<unsigned>(offsetof(seccomp_data, args) + 5 * sizeof(__u64));
    std::vector<sock_filter> filter = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, SixthArgument),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, Allowed, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
    };
    for (const unsigned call : watchedCalls()) {
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
        filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRAP));
    }
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    return sigaction(SIGSYS, &action, nullptr) == 0 && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

} // namespace FailingCalls

/// Runs `work` in a process of its own, as an ordinary user, with one failure in it.
inline FailedRun runWithFailure(const Failure& failure, const std::function<int()>& work)
{
    using namespace FailingCalls;
    constexpr int NotPossible = 250;
    void* shared = mmap(nullptr, sizeof(Watch), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED)
        return {.possible = false};
    watch = new (shared) Watch{failure, 0};
    FailedRun run;
    run.result = asOrdinaryUser([&] { return watchCalls() ? work() : NotPossible; });
    run.possible = run.result != NotPossible;
    run.reached = watch->count >= failure.call;
    munmap(shared, sizeof(Watch));
    watch = nullptr;
    return run;
}
