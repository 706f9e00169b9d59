// windows ROUNDS [SAVES DUMPS]: opens and closes every window ROUNDS times, saves each kind SAVES times, and sends
// DUMPS full dumps at the pace of the cable. What the process holds at the end is what it held after its first tenth:
// memory within one in a hundred, descriptors and objects exactly. One round without saves is the tour under a memory
// checker.
#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "instrument/VirtualInstrument.h"
#include "instrument/VirtualMidiService.h"
#include "midi/WireClock.h"
#include "monkey/Account.h"
#include "monkey/Invariants.h"
#include "monkey/TimelessRun.h"
#include "monkey/Usage.h"
#include "monkey/Visitor.h"
#include "monkey/World.h"
#include "support/Figures.h"

#include <QApplication>
#include <QMdiArea>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace
{

constexpr int LeastToJudge = 300;

struct FileToOpen {
    const char* name;
    int kind;
    const char* ending;
};
constexpr FileToOpen FilesToOpen[] = {{"/song.arr", FileKind::Arr, ".arr"},
                                      {"/song.sty", FileKind::Sty, ".sty"},
                                      {"/song.prg", FileKind::Prg, ".prg"},
                                      {"/encore.pgg", FileKind::Pgg, ".pgg"},
                                      {"/studio.gbl", FileKind::Gbl, ".gbl"}};

class Windows
{
public:
    Windows(int rounds, int saves, int dumps)
        : chance_(1), world_(chance_, 0), rounds_(rounds), saves_(saves), dumps_(dumps)
    {
    }
    void run(VirtualLoop& loop);

private:
    void openAll(Visitor& visitor);
    void openFiles(Visitor& visitor);
    void showKinds(Visitor& visitor);
    void editFirst(Visitor& visitor);
    void addToDatabase(Visitor& visitor, ChildWindow& child);
    void saveAll(Visitor& visitor);
    void sendAll(Visitor& visitor);
    WireClock::TimeSource cableTime(VirtualLoop& loop);
    /// `work` so many times, and what the process holds after the first tenth against the end.
    void level(const char* what, int times, Visitor& visitor, const std::function<void()>& work);

    Chance chance_;
    World world_;
    int rounds_, saves_, dumps_;
    long long opened_ = 0;
    long long step_ = 0;
    qint64 cableMs_ = 0; ///< for which the program waited for the cable
};

void Windows::run(VirtualLoop& loop)
{
    world_.chooseLanguage(2);
    Visitor visitor(loop);
    VirtualInstrument instrument;
    VirtualMidiService service(
        instrument, [] { return App.StateDir; }, WireClock(WireClock::CableBytesPerSecond, cableTime(loop)));
    visitor.run(service, [&] {
        level("rounds of all windows", rounds_, visitor, [&] { openAll(visitor); });
        noteFigure("R17", "windows opened and closed", opened_);
        level("saves of each kind", saves_, visitor, [&] { saveAll(visitor); });
        service.setPaced(true);
        level("dumps of each kind on a paced cable", dumps_, visitor, [&] { sendAll(visitor); });
        noteFigure("R17", "seconds of the dumps on the cable", cableMs_ / 1000);
    });
    for (const std::string& fault : world_.faultsOfFiles())
        Account::fail(fault);
}

/// The cable takes its time by the loop's clock: who waits for it moves that clock, and nobody sleeps.
WireClock::TimeSource Windows::cableTime(VirtualLoop& loop)
{
    constexpr std::int64_t MillisecondNs = 1'000'000;
    const auto now = [&loop] { return loop.now() * MillisecondNs; };
    return {now, [this, &loop, now](std::int64_t instant) {
                const auto wait = static_cast<int>((instant - now() + MillisecondNs - 1) / MillisecondNs);
                loop.pass(wait);
                cableMs_ += wait;
            }};
}

void Windows::level(const char* what, int times, Visitor& visitor, const std::function<void()>& work)
{
    if (times == 0)
        return;
    Usage early{};
    for (int each = 0; each < times; ++each) {
        Account::at(++step_ * 64); // each step is a sign of life
        work();
        visitor.forgetWhatWasSaid();
        if (each == times / 10)
            early = Usage::now();
    }
    const Usage end = Usage::now();
    std::printf("%d %s: memory %lld then %lld KiB, descriptors %lld then %lld, objects %lld then %lld\n", times, what,
                early.residentKiB, end.residentKiB, early.descriptors, end.descriptors, early.objects, end.objects);
    std::fflush(stdout);
    noteFigure("R17", what, times);
    if (times < LeastToJudge)
        return; // in the first tenth of so few what is used for the first time is still built up
    noteFigure("R17", std::string("memory in KiB after a tenth of the ") + what, early.residentKiB);
    noteFigure("R17", std::string("memory in KiB at the end of the ") + what, end.residentKiB);
    if (end.residentKiB > early.residentKiB + early.residentKiB / 100)
        Account::fail(std::string("memory grew over ") + what);
    if (end.descriptors > early.descriptors)
        Account::fail(std::string("descriptors stayed open over ") + what);
    if (end.objects > early.objects)
        Account::fail(std::string("objects were left behind by ") + what);
}

void Windows::openFiles(Visitor& visitor)
{
    for (const FileToOpen& file : FilesToOpen) {
        const std::string path = world_.songs() + file.name;
        if (!visitor.opened([&] { visitor.window().openPath(path, file.kind, false); }))
            Account::fail("no window came for " + path);
    }
}

void Windows::showKinds(Visitor& visitor)
{
    for (const int kind : {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 15, 16, 17, 18, 27, 28}) {
        visitor.window().showWindow(kind, 0);
        visitor.settle();
        if (!visitor.childOfKind(kind))
            Account::fail("no window came of kind " + std::to_string(kind));
    }
    for (const char* item : {"mnuNuovoArr", "mnuNuovoSty", "mnuNuovoPrg"})
        visitor.menu(item);
}

void Windows::editFirst(Visitor& visitor)
{
    ChildWindow* song = visitor.childOfKind(WindowKind::ArrFile);
    if (!song)
        Account::fail("the arrangement window is gone");
    visitor.window().area()->setActiveSubWindow(song);
    visitor.pressFirstRow(*song);
    visitor.press(*song, "CommEdit");
    if (!visitor.childOfKind(WindowKind::EditArr))
        Account::fail("no editor came");
}

void Windows::addToDatabase(Visitor& visitor, ChildWindow& child)
{
    visitor.window().area()->setActiveSubWindow(&child);
    visitor.settle();
    visitor.menu("mnuTvlDBArr");
}

void Windows::openAll(Visitor& visitor)
{
    openFiles(visitor);
    if (ChildWindow* song = visitor.childOfKind(WindowKind::ArrFile); song && opened_ == 0)
        addToDatabase(visitor, *song);
    showKinds(visitor);
    editFirst(visitor);
    for (const std::string& fault : Invariants::broken(visitor.window()))
        Account::fail(fault);
    opened_ += static_cast<long long>(visitor.children().size());
    if (saves_ == 0)
        for (ChildWindow* child : visitor.children())
            visitor.saveAs(*child, world_.songs() + "/tour");
    visitor.closeAll();
    if (!visitor.children().empty())
        Account::fail("a window did not close");
}

void Windows::saveAll(Visitor& visitor)
{
    for (const FileToOpen& file : FilesToOpen) {
        const std::string path = world_.songs() + "/saved" + file.ending;
        std::filesystem::remove(path);
        const std::string source = world_.songs() + file.name;
        ChildWindow* child = visitor.opened([&] { visitor.window().openPath(source, file.kind, false); });
        if (!child || !visitor.saveAs(*child, path))
            Account::fail("not saved: " + path);
        visitor.closeAll();
    }
}

void Windows::sendAll(Visitor& visitor)
{
    struct Dump {
        int file;
        const char* button;
    };
    for (const Dump& dump : {Dump{0, "CommLoadArr"}, Dump{2, "CommLoad"}, Dump{4, "CommLoadGbl"}}) {
        const FileToOpen& file = FilesToOpen[dump.file];
        const std::string source = world_.songs() + file.name;
        ChildWindow* child = visitor.opened([&] { visitor.window().openPath(source, file.kind, false); });
        if (!child || !visitor.press(*child, dump.button))
            Account::fail("not sent: " + source);
        visitor.closeAll();
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 && argc != 4) {
        std::fprintf(stderr, "windows ROUNDS [SAVES DUMPS]\n");
        return 2;
    }
    constexpr unsigned UnderValgrind = 900; // a whole round without a sign of life
    Account::begin(std::string("windows ") + argv[1] + (argc == 4 ? std::string(" ") + argv[2] + " " + argv[3] : ""),
                   UnderValgrind);
    ObjectCensus::begin();
    auto* loop = new VirtualLoop;
    return runTimeless(*loop, argc, argv, [&] {
        Windows(std::atoi(argv[1]), argc == 4 ? std::atoi(argv[2]) : 0, argc == 4 ? std::atoi(argv[3]) : 0).run(*loop);
    });
}
