// Looks over the running program's shoulder at the calls by which it changes files: what stands on the disk at each of
// them is what a kill at that instant would leave. At a chosen one the program is killed.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <sys/types.h>
#include <thread>
#include <vector>

/// Begins when made and ends with stop(). Until then nobody else may wait for the program's process.
class SaveWatch
{
public:
    /// Calls are counted from 1, of those that make, write, flush, name or remove a file below one of `folders`.
    /// `look` sees each just before it is made, in a thread of the watch's own. `killAt` 0 kills never.
    SaveWatch(pid_t program, std::vector<std::string> folders, std::function<void(const std::string& call)> look,
              int killAt = 0);
    ~SaveWatch() { stop(); }
    SaveWatch(const SaveWatch&) = delete;
    SaveWatch& operator=(const SaveWatch&) = delete;

    /// False where the system lets no process be watched.
    bool possible() const { return possible_; }
    bool killed() const { return killed_; }
    int callCount() const { return count_; }
    /// Lets the program go on alone. What it does until then is still seen.
    void stop();

private:
    void watch(pid_t program, int killAt);
    std::string changingCall(pid_t program) const;
    bool isBelow(const std::string& path) const;

    std::vector<std::string> folders_;
    std::function<void(const std::string&)> look_;
    std::atomic<bool> begun_{false}, possible_{true}, killed_{false}, stopping_{false};
    std::atomic<int> count_{0};
    std::thread thread_;
};
