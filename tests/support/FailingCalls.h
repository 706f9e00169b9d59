// File calls that fail, or in which the process dies, at a chosen place: the way along every error path of a save.
//
// In a process of its own each file call is handed to a handler first (seccomp). The handler counts it, and makes it or
// answers with an error in the kernel's stead. No library is exchanged and no other process looks on.
#pragma once

#include "support/CallTrace.h"
#include "support/OtherUser.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <vector>

/// What goes wrong: the file call of this number, from 1, and with `fromThereOn` each one behind it.
struct Failure {
    int call = 1;
    int error = 0; ///< errno; Death = the process is killed before the call. EINTR: calls that wait count, no others
    bool fromThereOn = false;
    int secondCall = 0; ///< fails too, with an error of its own; 0 none
    int secondError = 0;
    long long room = -1; ///< bytes that can still be written: the write that meets the end is short, the next fail with
                         ///< `error`, and no call fails for its number. -1 without end
    const char* changesBelow = nullptr; ///< only calls count that change a file below this folder
    static constexpr int Death = -1;
};

/// How the work ended.
struct FailedRun {
    bool possible = true;  ///< false where the kernel lets no calls be watched
    bool reached = false;  ///< the work made as many file calls as that, so that something did go wrong
    int result = 0;        ///< of the work, as asOrdinaryUser gives it
    int calls = 0;         ///< file calls made
    long long written = 0; ///< bytes
    CallTrace trace{};     ///< what each call did, for a run without a failure
};

namespace FailingCalls
{

struct Watch {
    Failure failure;
    int count;
    long long written;
    bool hit;
    int traced;
    std::array<TracedCall, 400> trace;
};

inline Watch* watch = nullptr; // shared with the process that watches the outcome

constexpr unsigned long Allowed = 0x7A11C0DE; // the handler's own calls carry it as their sixth argument

inline std::vector<unsigned> watchedCalls()
{
    return {SYS_openat,     SYS_read,      SYS_write,    SYS_fsync,      SYS_ftruncate, SYS_lseek,
            SYS_newfstatat, SYS_fstat,     SYS_statx,    SYS_readlinkat, SYS_faccessat, SYS_faccessat2,
            SYS_renameat,   SYS_renameat2, SYS_unlinkat, SYS_fchmod,     SYS_fchown,    SYS_close,
            SYS_getdents64, SYS_mkdirat,   SYS_linkat,   SYS_flock,
#ifdef SYS_open // the older calls, which newer processors never had
            SYS_open,       SYS_stat,      SYS_lstat,    SYS_readlink,   SYS_access,    SYS_rename,
            SYS_unlink,     SYS_mkdir,     SYS_rmdir,    SYS_link
#endif
    };
}

/// Calls that a signal may interrupt while they wait.
inline bool waits(int call)
{
    constexpr std::array calls = {SYS_openat, SYS_read, SYS_write, SYS_fsync, SYS_ftruncate, SYS_close, SYS_flock};
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

/// Counts a call. The error that it is to fail with, or Death, or 0.
inline int errorFor(int call)
{
    constexpr int InARow = 5; // interruptions; without an end a call would be made again without an end
    const Failure& failure = watch->failure;
    if (failure.error == EINTR && !waits(call))
        return 0;
    const int number = ++watch->count;
    if (failure.secondCall != 0 && number == failure.secondCall)
        return failure.secondError;
    if (failure.room >= 0)
        return 0;
    const bool behind =
        failure.fromThereOn && number > failure.call && (failure.error != EINTR || number < failure.call + InARow);
    return number == failure.call || behind ? failure.error : 0;
}

/// As many bytes of a write as there is still room for; -1 where it fails.
inline long bytesThatFit(long count)
{
    const Failure& failure = watch->failure;
    if (failure.room < 0)
        return count;
    const long long left = std::max(failure.room - watch->written, 0LL);
    if (count <= left)
        return count;
    watch->hit = true;
    return left == 0 ? -1 : static_cast<long>(left);
}

/// The call itself. Its answer, or -errno.
inline long make(long number, const std::array<long, 5>& arguments)
{
    const int before = errno;
    const long made = syscall(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4], Allowed);
    const long answer = made < 0 ? -errno : made;
    errno = before;
    return answer;
}

/// The path behind a descriptor.
inline void pathOfDescriptor(long descriptor, char* path, std::size_t size)
{
    char link[40];
    std::snprintf(link, sizeof link, "/proc/self/fd/%ld", descriptor);
    const long length = make(SYS_readlinkat, {AT_FDCWD, reinterpret_cast<long>(link), reinterpret_cast<long>(path),
                                              static_cast<long>(size - 1), 0});
    path[std::max(length, 0L)] = '\0';
}

/// The sanitizers write into a pipe of their own to see whether memory can be read; the program has none.
inline bool writesIntoPipe(long number, const std::array<long, 5>& arguments)
{
    struct stat status {
    };
    return number == SYS_write && arguments[0] > STDERR_FILENO &&
           make(SYS_fstat, {arguments[0], reinterpret_cast<long>(&status), 0, 0, 0}) == 0 && S_ISFIFO(status.st_mode);
}

/// Whether a call counts.
inline bool counts(long number, const std::array<long, 5>& arguments)
{
    if (writesIntoPipe(number, arguments))
        return false;
    const char* folder = watch->failure.changesBelow;
    if (folder == nullptr)
        return true;
    TracedCall call;
    describeCall(call, number, arguments, 0, pathOfDescriptor);
    return call.deed != Deed::Other && call.deed != Deed::Open && std::strstr(call.path, folder) == call.path;
}

inline void note(long number, const std::array<long, 5>& arguments, long answer)
{
    if (watch->failure.error != 0 || watch->traced == static_cast<int>(watch->trace.size()))
        return;
    describeCall(watch->trace[static_cast<std::size_t>(watch->traced++)], number, arguments, answer, pathOfDescriptor);
}

/// The call as it is asked for, or its failure. What the program gets for it.
inline long answerTo(long number, std::array<long, 5> arguments)
{
    if (!counts(number, arguments))
        return make(number, arguments);
    if (const int error = errorFor(static_cast<int>(number)); error != 0) {
        watch->hit = true;
        if (error == Failure::Death)
            raise(SIGKILL);
        return -error;
    }
    if (number == SYS_write && arguments[0] > STDERR_FILENO) {
        const long fit = bytesThatFit(arguments[2]);
        if (fit < 0)
            return -watch->failure.error;
        arguments[2] = fit;
    }
    const long answer = make(number, arguments);
    if (number == SYS_write && arguments[0] > STDERR_FILENO && answer > 0)
        watch->written += answer;
    note(number, arguments, answer);
    return answer;
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
    answer = static_cast<std::remove_reference_t<decltype(answer)>>(answerTo(info->si_syscall, arguments));
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

/// Runs `work` in a process of its own, as an ordinary user, with one failure in it. `prepare` goes ahead of it in the
/// same process, undisturbed.
inline FailedRun runWithFailure(
    const Failure& failure, const std::function<int()>& work, const std::function<void()>& prepare = [] {})
{
    using namespace FailingCalls;
    constexpr int NotPossible = 250;
    void* shared = mmap(nullptr, sizeof(Watch), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED)
        return {.possible = false};
    watch = static_cast<Watch*>(shared); // all zeros; the trace costs nothing while it is not used
    watch->failure = failure;
    FailedRun run;
    run.result = asOrdinaryUser([&] {
        prepare();
        return watchCalls() ? work() : NotPossible;
    });
    run.possible = run.result != NotPossible;
    run.reached = failure.room >= 0 ? watch->hit : watch->count >= failure.call;
    run.calls = watch->count;
    run.written = watch->written;
    run.trace.assign(watch->trace.begin(), watch->trace.begin() + watch->traced);
    munmap(shared, sizeof(Watch));
    watch = nullptr;
    return run;
}
