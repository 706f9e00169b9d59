// From a press of the mouse, made by the X server's test extension, to the bytes at the MIDI port: through the server,
// the toolkit and the whole program to a FIFO that stands for the port, without a window manager, which would take each
// press first. A bare Qt window beside it, by turns. Then fast presses, of which every other one arrives as a double
// click, and none may be lost:
//
// - as fast as the server takes them, without a window manager;
// - under openbox, each as soon as the one before was heard, as a hand that plays by ear. A window manager stops the
//   pointer at each press until it has raised the window, and hundreds of presses a second that wait for nothing are
//   lost there before they reach any window: a bare Qt window misses them too.
//
//   bench_press_to_wire PRESSES FAST_PRESSES [judge]
//
// Fails where a press is lost, and with "judge" where the median or the 99th of a hundred misses its target.
#include "bench/Figures.h"
#include "bench/WireRecord.h"
#include "driver/Process.h"
#include "driver/StepFailed.h"
#include "driver/VirtualScreen.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <poll.h>
#include <random>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace
{

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

constexpr double MedianTarget = 150; // microseconds
constexpr double MostTarget = 1000;  // of 99 in a hundred
constexpr int AnswerWithin = 2000;   ///< milliseconds
constexpr int Turn = 50;             ///< presses before the other program's turn
constexpr int Batch = 50;            ///< fast presses between two looks at the FIFO

/// One program on a display of its own, its FIFO and a hand on its key.
class Player
{
public:
    Player(const std::string& folder, const std::string& command, bool managed);
    ~Player() { XCloseDisplay(display_); }
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    /// Microseconds from the press to its message; throws where none comes. The release is waited for.
    double pressed();
    struct Counts {
        int presses = 0;
        int releases = 0;
        int doubleClicks = 0;
    };
    /// What arrives of so many presses that nobody waits for.
    Counts pressedFast(int presses);
    /// What arrives of so many presses, each made when the one before was heard and let go.
    Counts pressedByEar(int presses);

private:
    bool next(WireRecord& record, int milliseconds);
    void button(bool down);
    bool count(Counts& counts, int milliseconds);

    VirtualScreen screen_;
    Process process_;
    Display* display_;
    int wire_ = -1;
};

Player::Player(const std::string& folder, const std::string& command, bool managed)
    : screen_(1280, 1024, folder, managed), display_(XOpenDisplay(screen_.name().c_str()))
{
    const std::string wire = folder + "/wire";
    if (!display_ || mkfifo(wire.c_str(), 0600) != 0)
        throw StepFailed("no display or no FIFO");
    wire_ = open(wire.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    Process::Setup setup;
    setup.command = {command};
    setup.environment = {{"DISPLAY", screen_.name()},    {"QT_QPA_PLATFORM", "xcb"},          {"WAYLAND_DISPLAY", ""},
                         {"TARVOLYNE_BENCH_WIRE", wire}, {"XDG_DATA_HOME", folder + "/data"}, {"HOME", folder}};
    process_.start(setup);
    WireRecord record;
    const bool there =
        waitUntil([&] { return next(record, 100) && record.kind == WireRecord::Place; }, 10 * AnswerWithin);
    if (!there)
        throw StepFailed(command + " does not tell where its key is");
    XTestFakeMotionEvent(display_, -1, record.x, record.y, CurrentTime);
    XSync(display_, False);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    pressedByEar(1); // the first press activates the window
}

bool Player::next(WireRecord& record, int milliseconds)
{
    pollfd ready{wire_, POLLIN, 0};
    return poll(&ready, 1, milliseconds) == 1 && read(wire_, &record, sizeof record) == sizeof record;
}

void Player::button(bool down)
{
    XTestFakeButtonEvent(display_, 1, down ? True : False, CurrentTime);
    XFlush(display_);
}

double Player::pressed()
{
    WireRecord record;
    const Clock::time_point start = Clock::now();
    button(true);
    if (!next(record, AnswerWithin) || record.status != NoteOnStatus)
        throw StepFailed("a press sends no note");
    const Microseconds time = Clock::now() - start;
    button(false);
    if (!next(record, AnswerWithin) || record.status != NoteOffStatus)
        throw StepFailed("a release ends no note");
    return time.count();
}

/// Counts one message. False where none comes in time.
bool Player::count(Counts& counts, int milliseconds)
{
    WireRecord record;
    if (!next(record, milliseconds))
        return false;
    counts.presses += record.status == NoteOnStatus;
    counts.releases += record.status == NoteOffStatus;
    counts.doubleClicks += record.status == NoteOnStatus && record.doubleClick;
    return true;
}

Player::Counts Player::pressedFast(int presses)
{
    Counts counts;
    for (int press = 1; press <= presses; ++press) {
        XTestFakeButtonEvent(display_, 1, True, CurrentTime);
        XTestFakeButtonEvent(display_, 1, False, CurrentTime);
        if (press % Batch == 0) {
            XFlush(display_);
            while (count(counts, 0)) {
            }
        }
    }
    XSync(display_, False);
    // What is missing has this long to come; nothing more than that may.
    const Clock::time_point end = Clock::now() + std::chrono::milliseconds(10 * AnswerWithin);
    while (Clock::now() < end && (counts.presses < presses || counts.releases < presses))
        count(counts, 100);
    while (count(counts, 100)) {
    }
    return counts;
}

Player::Counts Player::pressedByEar(int presses)
{
    constexpr int TooMany = 10; ///< losses after which nothing more is tried, as each is waited for
    Counts counts;
    for (int press = 1; press <= presses && press - counts.presses <= TooMany; ++press) {
        const Clock::time_point end = Clock::now() + std::chrono::milliseconds(AnswerWithin);
        const auto heard = [&](const int& messages, int wanted) {
            while (messages < wanted && Clock::now() < end)
                count(counts, 100);
        };
        const int before = counts.presses, lifted = counts.releases;
        button(true);
        heard(counts.presses, before + 1);
        button(false);
        heard(counts.releases, lifted + 1);
    }
    return counts;
}

struct Measured {
    const char* name;
    std::unique_ptr<Player> player;
    std::vector<double> times;
};

/// By turns, with pauses that no rhythm of the machine can fall in with.
void playByTurns(std::vector<Measured>& programs, int presses)
{
    std::mt19937 random(7); // the same pauses in each run
    for (int begun = 0; begun < presses; begun += Turn)
        for (Measured& program : programs)
            for (int press = begun; press < std::min(presses, begun + Turn); ++press) {
                std::this_thread::sleep_for(std::chrono::microseconds(2000 + random() % 4000));
                program.times.push_back(program.player->pressed());
            }
}

bool report(const std::vector<Measured>& programs)
{
    for (const Measured& program : programs)
        std::printf("press to wire, %s: median %.0f us, 99 %% %.0f us, worst %.0f us of %zu presses\n", program.name,
                    median(program.times), percentile(program.times, 99), percentile(program.times, 100),
                    program.times.size());
    const std::vector<double>& ours = programs.front().times;
    return median(ours) <= MedianTarget && percentile(ours, 99) <= MostTarget;
}

/// Prints what arrived of so many presses. True if all did.
bool tell(const char* what, int made, const Player::Counts& counts)
{
    std::printf("%s: %d made, %d notes on, %d notes off, %d of them as double clicks, %d lost\n", what, made,
                counts.presses, counts.releases, counts.doubleClicks, made - counts.presses);
    return counts.presses == made && counts.releases == made;
}

int measure(const std::string& folder, const std::string& programs, int presses, int fast, bool judge)
{
    std::vector<Measured> measured;
    for (const char* name : {"press_program", "press_floor"}) {
        const std::string home = folder + "/" + name;
        std::filesystem::create_directories(home);
        measured.push_back({name, std::make_unique<Player>(home, programs + "/bench_" + name, false), {}});
    }
    playByTurns(measured, presses);
    const bool quick = report(measured);
    bool allHeard = tell("fast presses", fast, measured.front().player->pressedFast(fast));
    measured.clear();
    const std::string home = folder + "/managed";
    std::filesystem::create_directories(home);
    Player managed(home, programs + "/bench_press_program", true);
    allHeard = tell("presses by ear under a window manager", fast, managed.pressedByEar(fast)) && allHeard;
    if (!allHeard)
        return 1;
    return judge && !quick ? 1 : 0;
}

} // namespace

int main(int argc, char** argv)
{
    const int presses = argc > 2 ? std::atoi(argv[1]) : 0;
    const int fast = argc > 2 ? std::atoi(argv[2]) : 0;
    if (presses < 1 || fast < 1) {
        std::fprintf(stderr, "usage: bench_press_to_wire PRESSES FAST_PRESSES [judge]\n");
        return 2;
    }
    std::string folder = "/tmp/tarvolyne-bench-XXXXXX";
    if (!mkdtemp(folder.data()))
        return 1;
    int result = 1;
    try {
        const std::string programs = std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
        result = measure(folder, programs, presses, fast, argc > 3 && std::string(argv[3]) == "judge");
    } catch (const StepFailed& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
    }
    std::filesystem::remove_all(folder);
    return result;
}
