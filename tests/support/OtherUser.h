// Work in another process, without root's rights: permission bits do not bind root, and locks bind processes.
#pragma once

#include <cstdlib>
#include <fstream>
#include <functional>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

/// Runs `work` in a child process, as "nobody" where the tests run as root. Its result, 0 to 255; -1 when it crashed.
inline int asOrdinaryUser(const std::function<int()>& work)
{
    constexpr unsigned Nobody = 65534;
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && (setgid(Nobody) != 0 || setuid(Nobody) != 0))
            _exit(255);
        _exit(work());
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Inside asOrdinaryUser: mounts a small disk of this process's own on a folder. False where that is not allowed.
inline bool mountSmallDisk(const std::string& path, const char* size)
{
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
