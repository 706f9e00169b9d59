// Opening each child window, from the menu's call to the painted window, in the running program; beside it, by turns, a
// bare window of the toolkit with as many controls of each sort, the same texts and the same rows. Processor time.
//
//   bench_windows ROUNDS
//
// Prints a line a window: ours and the bare one in milliseconds, and the ratio.
#include "bench/EachWindow.h"
#include "bench/Figures.h"
#include "bench/WholeProgram.h"

#include <QApplication>
#include <QSize>
#include <QWidget>
#include <cstdio>
#include <cstdlib>

namespace
{

/// Microseconds of processor time until what `open` shows has been painted.
template <typename Open>
double timeOf(Open open)
{
    const double start = processorTime();
    open();
    paintAll();
    return processorTime() - start;
}

bool measure(const OneWindow& window, int rounds)
{
    std::vector<double> ours, bare;
    for (int round = 0; round <= rounds; ++round) {
        if (window.ready)
            window.ready();
        const double time = timeOf(window.open);
        settleStages();
        QWidget* shown = window.find();
        if (!shown) {
            std::fprintf(stderr, "%s does not open\n", window.name.c_str());
            return false;
        }
        QWidget* twin = nullptr;
        const double bareTime = timeOf([&] { twin = openBare(*shown); });
        closeWindow(twin);
        closeWindow(shown);
        if (round == 0) // it warms what is kept between openings
            continue;
        ours.push_back(time);
        bare.push_back(bareTime);
    }
    std::printf("%-22s %7.2f ms, bare %7.2f ms, %5.2f times\n", window.name.c_str(), median(ours) / 1000,
                median(bare) / 1000, median(ours) / median(bare));
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 0;
    if (rounds < 1) {
        std::fprintf(stderr, "usage: bench_windows ROUNDS\n");
        return 2;
    }
    beginOffscreenHome();
    writeDatabase();
    SilentService service;
    return runInside(service, [rounds] {
        settleStages();
        bool all = true;
        for (const OneWindow& window : childWindows())
            all = measure(window, rounds) && all;
        return all ? 0 : 1;
    });
}
