// The words are put together before anything happens: signals and the sanitizers' own callback find them ready.
#include "monkey/Account.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/time.h>
#include <unistd.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/common_interface_defs.h>
#define WATCHED_BY_SANITIZER 1
#endif
#endif

namespace
{

char command[200];
volatile long long current = 0;
unsigned patience = 60; // seconds of the processor

/// Without any allocation: the heap may be what broke.
void lastWords()
{
    char text[300];
    const int length = std::snprintf(text, sizeof text, "\nFAILED at event %lld; to see it again: %s\n",
                                     static_cast<long long>(current), command);
    if (length > 0 && write(STDERR_FILENO, text, static_cast<std::size_t>(length)) < 0)
        return;
}

/// By the processor's clock: a disk that is slow to flush is no hang, and one that never answers is the test's timeout.
void startWatch()
{
    itimerval watch{};
    watch.it_value.tv_sec = patience;
    setitimer(ITIMER_PROF, &watch, nullptr);
}

void died(int number)
{
    lastWords();
    if (number == SIGPROF) {
        const char hung[] = "no event came to its end in time\n";
        static_cast<void>(!write(STDERR_FILENO, hung, sizeof hung - 1));
    }
    signal(number, SIG_DFL);
    raise(number == SIGPROF ? SIGABRT : number);
}

} // namespace

void Account::begin(const std::string& how, unsigned hangSeconds)
{
    patience = hangSeconds;
    std::snprintf(command, sizeof command, "%s", how.c_str());
#ifdef WATCHED_BY_SANITIZER
    __sanitizer_set_death_callback(lastWords);
    signal(SIGPROF, died);
#else
    for (const int number : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL, SIGPROF})
        signal(number, died);
#endif
}

void Account::at(long long event)
{
    current = event;
    if (event % 64 == 0)
        startWatch();
}

void Account::fail(const std::string& text)
{
    std::fprintf(stderr, "%s\n", text.c_str());
    lastWords();
    std::_Exit(1);
}
