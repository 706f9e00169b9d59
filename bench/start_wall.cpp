// Wall time from the start of a process to its shown main window, on a virtual display: each command in turn, round
// after round, so that a slow moment of the machine meets all of them. Prints the medians; judges nothing, since wall
// time is the machine's as much as ours.
//
//   bench_start_wall ROUNDS COMMAND...
#include "driver/Process.h"
#include "driver/StepFailed.h"
#include "driver/VirtualScreen.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sys/wait.h>
#include <vector>

namespace
{

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Milliseconds until the process has ended, which it does when its window is shown.
double timeOf(const std::string& command, const std::string& display)
{
    Process process;
    Process::Setup setup;
    setup.command = {command};
    setup.environment = {{"DISPLAY", display}, {"QT_QPA_PLATFORM", "xcb"}, {"WAYLAND_DISPLAY", ""}};
    const auto start = std::chrono::steady_clock::now();
    process.start(setup);
    siginfo_t end{};
    waitid(P_PID, static_cast<id_t>(process.id()), &end, WEXITED | WNOWAIT);
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    if (process.running() || process.exitCode() != 0)
        throw StepFailed(command + " did not come to its window");
    return time.count();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: bench_start_wall ROUNDS COMMAND...\n");
        return 2;
    }
    const int rounds = std::atoi(argv[1]);
    const std::vector<std::string> commands(argv + 2, argv + argc);
    try {
        const VirtualScreen screen(1280, 1024, std::filesystem::temp_directory_path().string());
        std::vector<std::vector<double>> times(commands.size());
        for (int round = 0; round <= rounds; ++round)
            for (std::size_t i = 0; i < commands.size(); ++i) {
                const double time = timeOf(commands[i], screen.name());
                if (round > 0) // the first round warms the caches
                    times[i].push_back(time);
            }
        for (std::size_t i = 0; i < commands.size(); ++i)
            std::printf("%-24s %6.1f ms, %.2f x the first\n", std::filesystem::path(commands[i]).filename().c_str(),
                        median(times[i]), median(times[i]) / median(times[0]));
    } catch (const StepFailed& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
