// Ends the patience of the kernel: a call that waits in it comes back after two seconds.
//
// Pulling the last wire from an interface lets its buffer run empty first, which a stuck interface never does; the
// kernel then waits up to ten seconds, and the window would stand still so long.
#pragma once

#include <csignal>
#include <sys/time.h>

class ImpatientCall
{
public:
    ImpatientCall();
    ~ImpatientCall();
    ImpatientCall(const ImpatientCall&) = delete;
    ImpatientCall& operator=(const ImpatientCall&) = delete;

private:
    struct sigaction actionBefore_ {
    };
    itimerval timerBefore_{};
};
