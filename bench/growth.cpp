// Every window opened and closed many times in one run of the program: what the process holds after the first tenth of
// them against the end. Resident memory is what the machine gives; memory in use is what the program has not given
// back, to the byte, and judges: a leak shows in it at once. In a run of few openings caches still fill, and the limit
// is wider.
//
//   bench_growth TIMES [NAME]      NAME: only the windows whose name has it
//
// Prints a line a window. Fails where the memory in use has grown by more than BytesAnOpening for each opening, or the
// resident memory by more than a hundredth.
#include "bench/EachWindow.h"
#include "bench/WholeProgram.h"

#include <QApplication>
#include <QSize>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <malloc.h>
#include <unistd.h>

namespace
{

constexpr double BytesAnOpening = 32;
constexpr double BytesOfFew = 512; ///< of a short run, in which caches still fill; the smallest box has more than that
constexpr int LeastWarm = 10;      ///< openings
constexpr int FirstOpenings = 60;  ///< of no account: what the program builds up once belongs to no window
constexpr double MostResident = 1.01;
constexpr int LeastForResident = 500; ///< openings; in fewer the resident memory tells nothing

struct Memory {
    double resident = 0; ///< KiB
    double inUse = 0;    ///< bytes
};

Memory memory()
{
    long size = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    const struct mallinfo2 heap = mallinfo2();
    return {static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1024,
            static_cast<double>(heap.uordblks + heap.hblkhd)};
}

bool openAndClose(const OneWindow& window, bool modal)
{
    if (window.ready)
        window.ready();
    window.open();
    paintAll();
    if (!modal) {
        settleStages();
        QWidget* shown = window.find();
        if (!shown)
            return false;
        closeWindow(shown);
    }
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    paintAll();
    return true;
}

bool measure(const OneWindow& window, int times, bool modal)
{
    const int warm = std::max(times / 10, LeastWarm);
    Memory first;
    for (int time = 0; time < times; ++time) {
        if (time == warm)
            first = memory();
        if (!openAndClose(window, modal)) {
            std::fprintf(stderr, "%s does not open\n", window.name.c_str());
            return false;
        }
    }
    const Memory last = memory();
    const double each = (last.inUse - first.inUse) / (times - warm);
    const double ratio = last.resident / first.resident;
    const bool isLong = times >= LeastForResident;
    const bool good = isLong ? each <= BytesAnOpening && ratio <= MostResident : each <= BytesOfFew || window.ofToolkit;
    std::printf("%-22s resident %6.0f KiB, at the end %6.0f KiB, %.3f times; in use %+.1f bytes an opening%s\n",
                window.name.c_str(), first.resident, last.resident, ratio, each, good ? "" : "  GROWS");
    std::fflush(stdout);
    return good;
}

} // namespace

int main(int argc, char** argv)
{
    const int times = argc > 1 ? std::atoi(argv[1]) : 0;
    if (times <= LeastWarm) {
        std::fprintf(stderr, "usage: bench_growth TIMES\n");
        return 2;
    }
    beginOffscreenHome();
    writeDatabase();
    SilentService service;
    const std::string wanted = argc > 2 ? argv[2] : "";
    return runInside(service, [&] {
        settleStages();
        for (int time = 0; time < FirstOpenings; ++time)
            openAndClose(modalWindows().front(), true);
        bool all = true;
        const auto measured = [&](const OneWindow& window, bool modal) {
            return window.name.find(wanted) == std::string::npos || measure(window, times, modal);
        };
        for (const OneWindow& window : modalWindows())
            all = measured(window, true) && all;
        for (const OneWindow& window : childWindows())
            all = measured(window, false) && all;
        return all ? 0 : 1;
    });
}
