// Runs a program under the eye of the test and stops it, or lets the disk fail, at a chosen system call.
//
// The program shows where the part under test begins and ends by raising SIGUSR1, which it ignores. Calls are counted
// from 1 within that part.
#pragma once

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

struct SyscallPlan {
    int killAt = 0;      ///< the program dies instead of this call; 0 never
    int failAt = 0;      ///< this call is not made and answers `error`; 0 none
    bool failOn = false; ///< so do all calls on files behind it
    int error = 0;
};

struct SyscallRun {
    int result = -1; ///< exit code; -1 when the program was killed or crashed
    int signal = 0;  ///< that ended it
    std::vector<long> calls;
};

/// Calls on files and folders, which a failing disk can refuse.
inline bool isFileCall(long number)
{
    static const std::vector<long> calls = {
#ifdef SYS_open
        SYS_open,       SYS_stat,    SYS_lstat,     SYS_access,    SYS_rename,     SYS_mkdir,      SYS_rmdir,
        SYS_link,       SYS_unlink,  SYS_readlink,
#endif
        SYS_openat,     SYS_read,    SYS_write,     SYS_close,     SYS_fstat,      SYS_newfstatat, SYS_faccessat,
        SYS_faccessat2, SYS_fsync,   SYS_fdatasync, SYS_ftruncate, SYS_fchmod,     SYS_fchown,     SYS_renameat,
        SYS_renameat2,  SYS_mkdirat, SYS_linkat,    SYS_unlinkat,  SYS_readlinkat, SYS_getdents64, SYS_lseek};
    for (const long call : calls)
        if (call == number)
            return true;
    return false;
}

/// True where the answer of a call can be replaced.
inline bool canFailCalls()
{
#ifdef __x86_64__
    return true;
#else
    return false;
#endif
}

class SyscallSweep
{
public:
    explicit SyscallSweep(std::vector<std::string> command) : command_(std::move(command)) {}

    SyscallRun run(const SyscallPlan& plan) const
    {
        SyscallRun ended;
        const pid_t child = start();
        int status = 0;
        bool inside = false, entered = false, refused = false;
        waitpid(child, &status, 0);
        ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
        long deliver = 0;
        for (;;) {
            ptrace(inside ? PTRACE_SYSCALL : PTRACE_CONT, child, nullptr, deliver);
            deliver = 0;
            if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status))
                break;
            const int stop = WSTOPSIG(status);
            if (stop == SIGUSR1) {
                inside = !inside;
            } else if (stop != (SIGTRAP | 0x80)) {
                deliver = stop;
            } else if (entered) {
                entered = false;
                if (std::exchange(refused, false))
                    answer(child, plan.error);
            } else {
                entered = true;
                ended.calls.push_back(numberOf(child));
                const int call = static_cast<int>(ended.calls.size());
                if (call == plan.killAt)
                    kill(child, SIGKILL);
                refused = plan.failAt != 0 && isFileCall(ended.calls.back()) &&
                          (call == plan.failAt || (plan.failOn && call > plan.failAt));
                if (refused)
                    skip(child);
            }
        }
        if (WIFEXITED(status))
            ended.result = WEXITSTATUS(status);
        else if (WIFSIGNALED(status))
            ended.signal = WTERMSIG(status);
        return ended;
    }

private:
    pid_t start() const
    {
        std::vector<char*> arguments;
        for (const std::string& word : command_)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            setenv("ASAN_OPTIONS", "detect_leaks=0", 1); // its leak check is a tracer of its own
            ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            execv(arguments[0], arguments.data());
            _exit(126);
        }
        return child;
    }

    static long numberOf(pid_t child)
    {
        __ptrace_syscall_info info{};
        ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
        return static_cast<long>(info.entry.nr);
    }

#ifdef __x86_64__
    static void skip(pid_t child)
    {
        user_regs_struct registers{};
        ptrace(PTRACE_GETREGS, child, nullptr, &registers);
        registers.orig_rax = static_cast<unsigned long long>(-1);
        ptrace(PTRACE_SETREGS, child, nullptr, &registers);
    }
    static void answer(pid_t child, int error)
    {
        user_regs_struct registers{};
        ptrace(PTRACE_GETREGS, child, nullptr, &registers);
        registers.rax = static_cast<unsigned long long>(-static_cast<long long>(error));
        ptrace(PTRACE_SETREGS, child, nullptr, &registers);
    }
#else
    static void skip(pid_t) {}
    static void answer(pid_t, int) {}
#endif

    std::vector<std::string> command_;
};
