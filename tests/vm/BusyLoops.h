// Programs that do nothing but compute, beside whoever sends.
#pragma once

#include <atomic>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

class BusyLoops
{
public:
    explicit BusyLoops(int count)
    {
        for (int i = 0; i < count; ++i) {
            const pid_t loop = fork();
            if (loop == 0)
                for (std::atomic<unsigned> turns = 0;;)
                    turns.fetch_add(1, std::memory_order_relaxed);
            loops_.push_back(loop);
        }
    }
    ~BusyLoops()
    {
        for (const pid_t loop : loops_) {
            kill(loop, SIGKILL);
            waitpid(loop, nullptr, 0);
        }
    }
    BusyLoops(const BusyLoops&) = delete;
    BusyLoops& operator=(const BusyLoops&) = delete;

private:
    std::vector<pid_t> loops_;
};
