// Work in another process, without root's rights: permission bits do not bind root, and locks bind processes.
#pragma once

#include <cstdlib>
#include <fstream>
#include <functional>
#include <linux/capability.h>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

/// Of all rights keeps that to mount disks: for use now, or only to be taken up later. False where it is not there.
inline bool keepMounting(bool now)
{
    constexpr std::uint32_t Mounting = 1U << CAP_SYS_ADMIN;
    __user_cap_header_struct head{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct rights[2] = {{now ? Mounting : 0, Mounting, 0}, {}};
    return syscall(SYS_capset, &head, rights) == 0;
}

inline void keepNoRight()
{
    __user_cap_header_struct head{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct rights[2] = {};
    syscall(SYS_capset, &head, rights);
}

/// Root becomes "nobody", who may at most mount a disk of the own.
inline bool becomeNobody()
{
    constexpr unsigned Nobody = 65534;
    prctl(PR_SET_KEEPCAPS, 1);
    if (setgid(Nobody) != 0 || setuid(Nobody) != 0)
        return false;
    if (!keepMounting(false))
        keepNoRight();
    return true;
}

/// Runs `work` in a child process, as "nobody" where the tests run as root. Its result, 0 to 255; -1 when it crashed.
inline int asOrdinaryUser(const std::function<int()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && !becomeNobody())
            _exit(255);
        _exit(work());
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Mounts a disk in a view of the own, with the right that root has left: also in a chroot, where the kernel gives
/// nobody a view of users of the own. False where that is not allowed.
inline bool mountWithRight(const std::string& path, const std::string& size)
{
    if (!keepMounting(true))
        return false;
    bool mounted = unshare(CLONE_NEWNS) == 0;
    if (mounted) {
        // What is mounted here must be seen nowhere else.
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
        std::ifstream mounts("/proc/self/mountinfo");
        const std::string all{std::istreambuf_iterator<char>(mounts), {}};
        const std::string owner = ",mode=755,uid=" + std::to_string(geteuid()) + ",gid=" + std::to_string(getegid());
        mounted = !all.empty() && all.find(" shared:") == std::string::npos &&
                  mount("disk", path.c_str(), "tmpfs", 0, (size + owner).c_str()) == 0;
    }
    keepNoRight();
    return mounted;
}

/// Inside asOrdinaryUser: mounts a small disk of this process's own on a folder. False where that is not allowed.
inline bool mountSmallDisk(const std::string& path, const char* size)
{
    if (mountWithRight(path, size))
        return true;
    const std::string user = "0 " + std::to_string(geteuid()) + " 1";
    const std::string group = "0 " + std::to_string(getegid()) + " 1";
    const auto tell = [](const char* file, const std::string& text) {
        return static_cast<bool>(std::ofstream(file) << text << std::flush);
    };
    return prctl(PR_SET_DUMPABLE, 1) == 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 &&
           tell("/proc/self/setgroups", "deny") && tell("/proc/self/uid_map", user) &&
           tell("/proc/self/gid_map", group) && mount("disk", path.c_str(), "tmpfs", 0, size) == 0;
}

/// For a test in whose place no disk may be mounted: it has proved nothing, which a build server must not pass over.
#define SKIP_WITHOUT_A_DISK                                                                                            \
    do {                                                                                                               \
        if (getenv("CI") != nullptr)                                                                                   \
            FAIL() << "no disk may be mounted here";                                                                   \
        GTEST_SKIP() << "no disk may be mounted here";                                                                 \
    } while (false)

/// Lets every user work in a folder.
inline void openToAll(const std::string& path) { chmod(path.c_str(), 0777); }
