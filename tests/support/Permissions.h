// Who may look into a file: its permission bits, and the umask that new ones meet.
#pragma once

#include <string>
#include <sys/stat.h>

/// The permission bits of what stands there, not of what a link leads to; 0 where nothing does.
inline mode_t modeOf(const std::string& path)
{
    struct stat status {
    };
    return lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

/// The umask of this process for the length of a test.
class Umask
{
public:
    explicit Umask(mode_t bits) : before_(umask(bits)) {}
    ~Umask() { umask(before_); }
    Umask(const Umask&) = delete;
    Umask& operator=(const Umask&) = delete;

private:
    mode_t before_;
};
