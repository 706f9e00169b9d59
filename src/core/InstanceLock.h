// One lock file in the state folder tells a second start of the program.
//
// It is never renamed or deleted; the system frees it when its holder dies, so a crash leaves nothing to clean up.
#pragma once

#include <string>

class InstanceLock
{
public:
    InstanceLock() = default;
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    /// Takes the lock in the folder if it is free. True when another process holds it. A folder in which no lock file
    /// can be made counts as free.
    bool acquire(const std::string& folder);
    void release();
    bool heldElsewhere() const { return heldElsewhere_; }

private:
    int descriptor_ = -1;
    bool heldElsewhere_ = false;
};
