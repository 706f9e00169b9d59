// A machine that has no more memory to give: the largest files are opened in the program's windows. A window, a message
// or the toolkit's own end of the program; no other end, and the files are as they were.
//
// The toolkit ends the program by a signal where it asks for memory in vain; but where a list of its own gets none it
// writes to address 0 (QGuiApplication::screenAt copies the list of screens; Qt 6.4). That is told from a fault of the
// program by what stands on top of the stack.
#include "faults/windows/GuiDesk.h"
#include "support/Figures.h"

#include "core/PathNames.h"
#include "shell/QtProgram.h"
#include "shell/frmMain.h"

#include <QTest>

#include <csignal>
#include <cstring>
#include <dlfcn.h>
#include <execinfo.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <ucontext.h>

#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define TARVOLYNE_OWN_MEMORY 1 // the sanitizer takes the whole address space
#endif
#endif

#ifndef TARVOLYNE_OWN_MEMORY

namespace
{

/// The largest style file that is read: 16 blocks of 18000 bytes, and a rest.
std::string largestStyles()
{
    std::string file(289800, '\x22');
    file.replace(0, 7, std::string("KORG\x4D\x00\x04", 7));
    for (std::size_t slot = 0; slot < 16; ++slot) {
        file[24 + 4 * slot] = static_cast<char>(18000 % 256);
        file[25 + 4 * slot] = static_cast<char>(18000 / 256);
        file.replace(224 + 18000 * slot, 16, "A large style   ");
    }
    return file;
}

void limitMemory(rlim_t more)
{
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t limit = static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + more;
    const rlimit both{limit, limit};
    setrlimit(RLIMIT_AS, &both);
}

struct Load {
    const char* name;
    std::vector<std::pair<const char*, int>> kinds; ///< extension and kind of each file of a round
};

bool isLongRun() { return getenv("TARVOLYNE_LONG_RUN") != nullptr; }
/// Rounds of a load: as many files of each kind come to stand open.
int rounds() { return isLongRun() ? 8 : 3; }

const Load Loads[] = {
    {"arrangements with their companions", {{".arr", FileKind::Arr}}},
    {"styles", {{".sty", FileKind::Sty}}},
    {"programs", {{".prg", FileKind::Prg}}},
    {"globals", {{".gbl", FileKind::Gbl}}},
    {"all", {{".arr", FileKind::Arr}, {".sty", FileKind::Sty}, {".prg", FileKind::Prg}, {".gbl", FileKind::Gbl}}},
};

constexpr rlim_t MiB = 1024 * 1024;
constexpr rlim_t Spare = 16 * MiB;

void openAll(frmMain& window, const Site& site, const Load& load, rlim_t spare)
{
    for (int round = 0; round < rounds(); ++round) {
        for (const auto& [extension, kind] : load.kinds)
            window.openPath(site.user() + "/song" + std::to_string(round) + extension, kind, false);
        QTest::qWait(round == 0 ? 200 : 5);
        if (round == 0) // the toolkit's painting threads are there: it would wait for ever for one that cannot start
            limitMemory(spare);
    }
}

constexpr int ToolkitsOwnEnd = 66;

bool isIn(const Dl_info& place, const char* library)
{
    const char* slash = std::strrchr(place.dli_fname, '/');
    return std::strncmp(slash == nullptr ? place.dli_fname : slash + 1, library, std::strlen(library)) == 0;
}

/// Ends the process by ToolkitsOwnEnd where an address near 0 was the toolkit's, by the signal where not.
void judgeAddress(int number, siginfo_t* info, void*)
{
    constexpr std::uintptr_t FirstPage = 4096;
    void* frames[16];
    const int count = backtrace(frames, 16);
    for (int frame = 1; frame < count; ++frame) { // behind this function
        Dl_info place{};
        if (dladdr(frames[frame], &place) == 0 || isIn(place, "libc.so"))
            continue; // the signal's own frame; memcpy
        if ((isIn(place, "libQt6") || isIn(place, "libqoffscreen")) &&
            reinterpret_cast<std::uintptr_t>(info->si_addr) < FirstPage)
            _exit(ToolkitsOwnEnd);
        break;
    }
    signal(number, SIG_DFL);
    raise(number);
}

/// Ready for the end of all memory: the stack may not grow any more, and nothing can be loaded.
void watchAddresses()
{
    static char stack[65536];
    void* frame = nullptr;
    backtrace(&frame, 1);
    const stack_t other{stack, 0, sizeof stack};
    struct sigaction action {
    };
    action.sa_sigaction = judgeAddress;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigaltstack(&other, nullptr);
    sigaction(SIGSEGV, &action, nullptr);
}

/// Runs on a stack of its own, as the program does under main: an exception of the toolkit's finds nobody above it, so
/// that nothing is unwound.
void runAsUnderMain(void (*run)())
{
    constexpr std::size_t StackSize = 8 * 1024 * 1024;
    void* stack = mmap(nullptr, StackSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ucontext_t here, there;
    getcontext(&there);
    there.uc_stack.ss_sp = stack;
    there.uc_stack.ss_size = StackSize;
    there.uc_link = &here;
    makecontext(&there, run, 0);
    swapcontext(&here, &there);
}

/// How the program ended: 0 by itself, ToolkitsOwnEnd at an address of the toolkit's, else the signal; -1 for any other
/// end.
int endWith(FaultDesk& desk, const WritePath& files, const Load& load, rlim_t spare)
{
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        alarm(120); // a hang is no end either
        watchAddresses();
        endAtOnceWithoutMemory();
        desk.putDisk(files);
        static std::function<void()> work;
        work = [&] { runInProgram(desk.site(), [&](frmMain& window) { openAll(window, desk.site(), load, spare); }); };
        runAsUnderMain([] { work(); });
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status))
        return WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == ToolkitsOwnEnd ? WEXITSTATUS(status) : -1;
    return WIFSIGNALED(status) ? WTERMSIG(status) : -1;
}

} // namespace

TEST(WithoutMemory, theLargestFilesOpenOrAreRefusedAndStayAsTheyWere)
{
    FaultDesk desk;
    WritePath files;
    std::string arrangements(10528, '\0'), programs(30480, '\x11'), globals(448, '\0');
    arrangements.replace(0, 7, std::string("KORG\x4D\x00\x03", 7));
    programs.replace(0, 7, std::string("KORG\x4D\x00\x00", 7));
    globals.replace(0, 8, std::string("KORG\x4D\x00\x06\x01", 8));
    for (int round = 0; round < 8; ++round) {
        const std::string stem = "song" + std::to_string(round);
        files.files.push_back({Place::User, stem + ".arr", arrangements, arrangements});
        files.files.push_back({Place::User, stem + ".sty", largestStyles(), largestStyles()});
        files.files.push_back({Place::User, stem + ".prg", programs, programs});
        files.files.push_back({Place::User, stem + ".gbl", globals, globals});
    }
    long long cases = 0, toolkits = 0;
    const auto expectCleanEnd = [&](const Load& load, rlim_t spare) {
        const int end = endWith(desk, files, load, spare);
        EXPECT_TRUE(end == 0 || end == SIGABRT || end == ToolkitsOwnEnd)
            << load.name << ", " << spare / 1024 << " KiB: ended by signal " << end;
        EXPECT_EQ(desk.notSaved(files), "") << load.name;
        ++cases;
        toolkits += end == ToolkitsOwnEnd;
    };
    for (const Load& load : Loads)
        expectCleanEnd(load, Spare);
    noteFigure("R18", "loads with 16 MiB of memory to spare", cases);
    if (!isLongRun())
        return;
    // It runs out at another place each time.
    cases = 0;
    for (rlim_t spare = MiB / 4; spare < Spare; spare += MiB / 4)
        expectCleanEnd(Loads[std::size(Loads) - 1], spare);
    noteFigure("R18", "loads with less", cases);
    noteFigure("R18", "of all loads ended by the toolkit at an address of 0", toolkits);
}

#endif
