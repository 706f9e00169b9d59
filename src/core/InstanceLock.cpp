// The lock of the running program, kept by the kernel and freed with its process.
#include "core/InstanceLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace
{

constexpr const char* LockName = "/TvlLock";
constexpr mode_t OwnerOnly = 0600;

int lockNow(int descriptor)
{
    int result = 0;
    do
        result = flock(descriptor, LOCK_EX | LOCK_NB);
    while (result != 0 && errno == EINTR);
    return result == 0 ? 0 : errno;
}

} // namespace

InstanceLock::~InstanceLock() { release(); }

bool InstanceLock::acquire(const std::string& folder)
{
    release();
    const int descriptor =
        open((folder + LockName).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW, OwnerOnly);
    if (descriptor < 0)
        return false;
    const int error = lockNow(descriptor);
    heldElsewhere_ = error == EWOULDBLOCK;
    if (error == 0)
        descriptor_ = descriptor;
    else
        close(descriptor);
    return heldElsewhere_;
}

void InstanceLock::release()
{
    if (descriptor_ >= 0)
        close(descriptor_);
    descriptor_ = -1;
    heldElsewhere_ = false;
}
