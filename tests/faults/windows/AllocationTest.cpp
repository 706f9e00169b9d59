// A machine that has no more memory to give: the largest files are opened in the program's windows. A window, a message
// or the toolkit's own end of the program; no other end, and the files are as they were.
#include "faults/windows/GuiDesk.h"
#include "support/Figures.h"

#include "core/PathNames.h"
#include "shell/frmMain.h"

#include <QTest>

#include <fstream>
#include <gtest/gtest.h>
#include <sys/resource.h>

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

/// Rounds of a load: files of the same kinds, one after the other, until eight of each stand open in a long run.
int rounds() { return getenv("TARVOLYNE_LONG_RUN") != nullptr ? 8 : 3; }

const Load Loads[] = {
    {"arrangements with their companions", {{".arr", FileKind::Arr}}},
    {"styles", {{".sty", FileKind::Sty}}},
    {"programs", {{".prg", FileKind::Prg}}},
    {"globals", {{".gbl", FileKind::Gbl}}},
    {"all", {{".arr", FileKind::Arr}, {".sty", FileKind::Sty}, {".prg", FileKind::Prg}, {".gbl", FileKind::Gbl}}},
};

void openAll(frmMain& window, const Site& site, const Load& load)
{
    constexpr rlim_t Spare = 16 * 1024 * 1024;
    for (int round = 0; round < rounds(); ++round) {
        for (const auto& [extension, kind] : load.kinds)
            window.openPath(site.user() + "/song" + std::to_string(round) + extension, kind, false);
        QTest::qWait(round == 0 ? 200 : 5);
        if (round == 0) // the toolkit's painting threads are there: it would wait for ever for one that cannot start
            limitMemory(Spare);
    }
}

/// How the program ended: 0 by itself, else the signal; -1 for any other end.
int endWith(FaultDesk& desk, const WritePath& files, const Load& load)
{
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        alarm(30); // a hang is no end either
        // As in the program, what nobody catches ends it.
        const auto run = [&]() noexcept {
            desk.putDisk(files);
            runInProgram(desk.site(), [&](frmMain& window) { openAll(window, desk.site(), load); });
        };
        run();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? 0 : WIFSIGNALED(status) ? WTERMSIG(status) : -1;
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
    long long cases = 0;
    for (const Load& load : Loads) {
        const int end = endWith(desk, files, load);
        EXPECT_TRUE(end == 0 || end == SIGABRT) << load.name << ": ended by signal " << end;
        EXPECT_EQ(desk.notSaved(files), "") << load.name;
        ++cases;
    }
    noteFigure("R18", "loads with 16 MiB of memory to spare", cases);
}

#endif
