// The tracing: one stop before and one behind each call of the program's only working thread.
#include "e2e/SaveWatch.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// A call that can change a file: which of its arguments names it, and as what.
struct CallRow {
    long number;
    const char* name;
    int argument;
    bool isDescriptor;
    int flagsArgument = -1; ///< counted only with O_CREAT in it
};

constexpr std::array Calls = {
    CallRow{SYS_openat, "open", 1, false, 2},  CallRow{SYS_write, "write", 0, true},
    CallRow{SYS_fsync, "flush", 0, true},      CallRow{SYS_ftruncate, "cut", 0, true},
    CallRow{SYS_renameat, "rename", 3, false}, CallRow{SYS_renameat2, "rename", 3, false},
    CallRow{SYS_linkat, "link", 3, false},     CallRow{SYS_unlinkat, "remove", 1, false},
#ifdef SYS_open // the older calls, which newer processors never had
    CallRow{SYS_open, "open", 0, false, 1},    CallRow{SYS_rename, "rename", 1, false},
    CallRow{SYS_link, "link", 1, false},       CallRow{SYS_unlink, "remove", 0, false},
#endif
};

std::string textAt(pid_t program, unsigned long long address)
{
    char text[PATH_MAX];
    // A path may end near the end of what the program has: the part that is there is read.
    const iovec here{text, sizeof text - 1};
    const std::size_t page = 4096, inPage = page - address % page;
    const std::array<iovec, 2> there{iovec{reinterpret_cast<void*>(address), inPage},
                                     iovec{reinterpret_cast<void*>(address + inPage), sizeof text - 1 - inPage}};
    const ssize_t count = process_vm_readv(program, &here, 1, there.data(), there.size(), 0);
    if (count <= 0)
        return {};
    text[count] = '\0';
    return text;
}

std::string pathOfDescriptor(pid_t program, unsigned long long descriptor)
{
    const std::string link = "/proc/" + std::to_string(program) + "/fd/" + std::to_string(descriptor);
    char path[PATH_MAX];
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    return length < 0 ? std::string() : std::string(path, static_cast<std::size_t>(length));
}

} // namespace

SaveWatch::SaveWatch(pid_t program, std::vector<std::string> folders, std::function<void(const std::string&)> look,
                     int killAt)
    : folders_(std::move(folders)), look_(std::move(look))
{
    thread_ = std::thread([this, program, killAt] { watch(program, killAt); });
    while (!begun_)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void SaveWatch::stop()
{
    stopping_ = true;
    if (thread_.joinable())
        thread_.join();
}

bool SaveWatch::isBelow(const std::string& path) const
{
    for (const std::string& folder : folders_)
        if (path.rfind(folder, 0) == 0)
            return true;
    return false;
}

/// The call that the program is about to make and its file; empty for one that changes no file of the folders.
std::string SaveWatch::changingCall(pid_t program) const
{
    __ptrace_syscall_info info{};
    if (ptrace(PTRACE_GET_SYSCALL_INFO, program, sizeof info, &info) <= 0 || info.op != PTRACE_SYSCALL_INFO_ENTRY)
        return {};
    for (const CallRow& row : Calls) {
        if (info.entry.nr != static_cast<unsigned long long>(row.number))
            continue;
        if (row.flagsArgument >= 0 && (info.entry.args[row.flagsArgument] & O_CREAT) == 0)
            return {};
        const unsigned long long argument = info.entry.args[row.argument];
        const std::string path = row.isDescriptor ? pathOfDescriptor(program, argument) : textAt(program, argument);
        return isBelow(path) ? std::string(row.name) + " " + path : std::string();
    }
    return {};
}

void SaveWatch::watch(pid_t program, int killAt)
{
    possible_ = ptrace(PTRACE_SEIZE, program, nullptr, PTRACE_O_TRACESYSGOOD) == 0 &&
                ptrace(PTRACE_INTERRUPT, program, nullptr, nullptr) == 0;
    begun_ = true;
    bool stopAsked = false;
    while (possible_) {
        int status = 0;
        const pid_t stopped = waitpid(program, &status, __WALL | __WNOTHREAD | WNOHANG);
        if (stopped < 0 || (stopped == program && !WIFSTOPPED(status)))
            return;
        if (stopped == 0) {
            // Without a call to stop at, as in an idle program, the end is asked for.
            if (stopping_ && !stopAsked)
                stopAsked = ptrace(PTRACE_INTERRUPT, program, nullptr, nullptr) == 0;
            std::this_thread::sleep_for(std::chrono::microseconds(50));
            continue;
        }
        const int signal = WSTOPSIG(status);
        if (signal == (SIGTRAP | 0x80)) {
            if (const std::string call = changingCall(program); !call.empty()) {
                look_(call);
                if (++count_ == killAt) {
                    kill(program, SIGKILL);
                    killed_ = true;
                    return; // the end is for the program's parent to see
                }
            }
        }
        const bool ofTheWatch = signal == (SIGTRAP | 0x80) || status >> 16 != 0;
        const long deliver = ofTheWatch ? 0 : signal;
        if (stopping_) {
            ptrace(PTRACE_DETACH, program, nullptr, deliver);
            return;
        }
        ptrace(PTRACE_SYSCALL, program, nullptr, deliver);
    }
}
