// An alarm interrupts the waiting; its handler has nothing to do.
#include "midi/ImpatientCall.h"

namespace
{

constexpr time_t PatienceSeconds = 2; ///< a full buffer of 4096 bytes takes 1.3 s

void wake(int) {}

} // namespace

ImpatientCall::ImpatientCall()
{
    struct sigaction action {
    };
    action.sa_handler = wake; // and no SA_RESTART: the interrupted call must not begin anew
    sigaction(SIGALRM, &action, &actionBefore_);
    itimerval timer{};
    timer.it_value.tv_sec = PatienceSeconds;
    timer.it_interval.tv_sec = PatienceSeconds;
    setitimer(ITIMER_REAL, &timer, &timerBefore_);
}

ImpatientCall::~ImpatientCall()
{
    setitimer(ITIMER_REAL, &timerBefore_, nullptr);
    sigaction(SIGALRM, &actionBefore_, nullptr);
}
