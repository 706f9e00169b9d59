// From the start of a process to its first window on a display of its own, and what the process takes once it has come
// to rest: programs of any maker, each in turn, round after round, so that a slow moment of the machine meets all of
// them. Each has a home of its own, used to it since the round that is thrown away.
//
//   bench_shown ROUNDS NAME=COMMAND...
//
// Prints a line a program: name, milliseconds to the window, milliseconds of processor time until then and until rest,
// RSS and PSS in KiB, all medians, and the size of the window in pixels; or the name and "none" where no window comes.
#include "bench/Figures.h"
#include "driver/Process.h"
#include "driver/StepFailed.h"
#include "driver/VirtualScreen.h"

#include <X11/Xlib.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <string>
#include <time.h>

namespace
{

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

// The least size of a main window; pixels.
constexpr int LeastWidth = 200;
constexpr int LeastHeight = 120;

constexpr int WindowWithin = 20000; ///< milliseconds
constexpr int AtRestAfter = 200;    ///< milliseconds without work
constexpr int RestWithin = 4000;

struct Program {
    std::string name;
    std::string command;
    std::vector<double> shown, processorToShown, processor, rss, pss;
    std::string size; ///< of the window, "1280x1024"
    bool failed = false;
};

int ignoreError(Display*, XErrorEvent*) { return 0; }

/// Sees the windows that appear on a display, also those that a window manager has put into a frame.
class Watch
{
public:
    explicit Watch(const std::string& name) : display_(XOpenDisplay(name.c_str()))
    {
        if (!display_)
            throw StepFailed("no display " + name);
        XSetErrorHandler(ignoreError); // a window may be gone before it is asked
        XSelectInput(display_, DefaultRootWindow(display_), SubstructureNotifyMask);
        forget();
    }
    ~Watch() { XCloseDisplay(display_); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    void forget() { XSync(display_, True); }
    const std::string& sizeOfMainWindow() const { return size_; }

    /// Waits for the first window of a main window's size. False when none comes, or the process ends before.
    bool mainWindowComes(Process& process)
    {
        const Clock::time_point end = Clock::now() + std::chrono::milliseconds(WindowWithin);
        while (Clock::now() < end) {
            while (XPending(display_) > 0)
                if (isMainWindow())
                    return true;
            pollfd ready{ConnectionNumber(display_), POLLIN, 0};
            if (poll(&ready, 1, 100) == 0 && !process.running())
                return false;
        }
        return false;
    }

private:
    bool isMainWindow()
    {
        XEvent event;
        XNextEvent(display_, &event);
        XWindowAttributes window;
        const bool found = event.type == MapNotify && XGetWindowAttributes(display_, event.xmap.window, &window) != 0 &&
                           window.width >= LeastWidth && window.height >= LeastHeight;
        if (found)
            size_ = std::to_string(window.width) + "x" + std::to_string(window.height);
        return found;
    }

    Display* display_;
    std::string size_;
};

/// Processor time that a process has had with all its threads; milliseconds.
double processorTimeOf(pid_t process)
{
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0)
        return 0;
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Until the process does nothing for a while, or RestWithin at most. Its processor time.
double timeUntilRest(pid_t process)
{
    const Clock::time_point end = Clock::now() + std::chrono::milliseconds(RestWithin);
    Clock::time_point moved = Clock::now();
    double time = processorTimeOf(process);
    while (Clock::now() < end && Clock::now() - moved < std::chrono::milliseconds(AtRestAfter)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        const double now = processorTimeOf(process);
        if (now > time)
            moved = Clock::now();
        time = now;
    }
    return time;
}

/// A figure of the kernel's account of a process's memory; KiB.
double memoryOf(pid_t process, const std::string& figure)
{
    std::ifstream account("/proc/" + std::to_string(process) + "/smaps_rollup");
    std::string line;
    while (std::getline(account, line))
        if (line.rfind(figure, 0) == 0)
            return std::atof(line.c_str() + figure.size());
    return 0;
}

void measure(Program& program, const std::string& home, const std::string& display, Watch& watch, bool counts)
{
    Process process;
    Process::Setup setup;
    setup.command = {program.command};
    setup.environment = {{"DISPLAY", display},
                         {"QT_QPA_PLATFORM", "xcb"},
                         {"WAYLAND_DISPLAY", ""},
                         {"TARVOLYNE_BENCH_STAYS", "1"},
                         {"HOME", home},
                         {"XDG_CONFIG_HOME", home + "/c"},
                         {"XDG_CACHE_HOME", home + "/k"}};
    watch.forget();
    const Clock::time_point start = Clock::now();
    process.start(setup);
    const bool came = watch.mainWindowComes(process);
    const Milliseconds shown = Clock::now() - start;
    const double processorToShown = processorTimeOf(process.id());
    if (!came) {
        program.failed = true;
        return;
    }
    const double processor = timeUntilRest(process.id());
    if (!counts)
        return;
    program.shown.push_back(shown.count());
    program.processorToShown.push_back(processorToShown);
    program.size = watch.sizeOfMainWindow();
    program.processor.push_back(processor);
    program.rss.push_back(memoryOf(process.id(), "Rss:"));
    program.pss.push_back(memoryOf(process.id(), "Pss:"));
}

void print(const Program& program)
{
    if (program.failed)
        std::printf("%s none\n", program.name.c_str());
    else
        std::printf("%s %.1f %.1f %.1f %.0f %.0f %s\n", program.name.c_str(), median(program.shown),
                    median(program.processorToShown), median(program.processor), median(program.rss),
                    median(program.pss), program.size.c_str());
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<Program> programs;
    for (int argument = 2; argument < argc; ++argument) {
        const std::string text = argv[argument];
        const std::size_t sign = text.find('=');
        if (sign != std::string::npos)
            programs.push_back({text.substr(0, sign), text.substr(sign + 1), {}, {}, {}, {}, {}, {}});
    }
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 0;
    if (rounds < 1 || programs.empty()) {
        std::fprintf(stderr, "usage: bench_shown ROUNDS NAME=COMMAND...\n");
        return 2;
    }
    std::string homes = "/tmp/tarvolyne-bench-XXXXXX";
    if (!mkdtemp(homes.data()))
        return 1;
    int result = 0;
    try {
        const VirtualScreen screen(1280, 1024, homes);
        Watch watch(screen.name());
        for (int round = 0; round <= rounds; ++round)
            for (Program& program : programs) {
                const std::string home = homes + "/" + program.name;
                std::filesystem::create_directories(home);
                if (!program.failed)
                    measure(program, home, screen.name(), watch, round > 0);
            }
        for (const Program& program : programs)
            print(program);
    } catch (const StepFailed& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        result = 1;
    }
    std::filesystem::remove_all(homes);
    return result;
}
