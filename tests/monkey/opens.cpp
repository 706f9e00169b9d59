// opens SEED COUNT: damaged files of every kind through the program's own opening. For each a window or a message
// comes; where a window came, every row is pressed, the editor is opened, and the file is saved elsewhere and opened
// again. Every 25 files the program starts anew with something of its own damaged. Ends with 0 when nothing was found.
#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "monkey/Account.h"
#include "monkey/Damage.h"
#include "monkey/Invariants.h"
#include "monkey/TimelessRun.h"
#include "monkey/Visitor.h"
#include "monkey/WatchedMidiService.h"
#include "monkey/World.h"
#include "support/Figures.h"

#include <QApplication>
#include <QMdiArea>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace
{

constexpr int OpensEachStart = 25;

struct Kind {
    const char* source;
    const char* ending;
    int fileKind;
};
constexpr std::array Kinds = {Kind{"song", ".arr", FileKind::Arr},   Kind{"song", ".sty", FileKind::Sty},
                              Kind{"song", ".prg", FileKind::Prg},   Kind{"encore", ".pgg", FileKind::Pgg},
                              Kind{"studio", ".gbl", FileKind::Gbl}, Kind{"encore", ".arr", FileKind::Arr}};

class Opens
{
public:
    Opens(std::uint64_t seed, int count) : chance_(seed), world_(chance_, 0), count_(count) {}
    void run(VirtualLoop& loop);

private:
    void script(Visitor& visitor);
    void openOne(Visitor& visitor);
    void visit(Visitor& visitor, ChildWindow& child);
    void saveElsewhere(Visitor& visitor, ChildWindow& child, const Kind& kind);
    void openBanks(Visitor& visitor);
    std::string damagedFile(const Kind& kind);
    void look(Visitor& visitor);

    Chance chance_;
    World world_;
    int count_;
    int opens_ = 0, windows_ = 0, messages_ = 0, rows_ = 0, saves_ = 0, starts_ = 0;
};

void Opens::run(VirtualLoop& loop)
{
    world_.chooseLanguage(chance_.between(1, 2));
    while (opens_ < count_) {
        Visitor visitor(loop);
        WatchedMidiService service(static_cast<std::uint64_t>(starts_));
        service.onBadMessage = [](const std::string& text) { Account::fail("on the wire: " + text); };
        if (starts_++ > 0)
            for (int damages = chance_.below(3); damages > 0; --damages)
                world_.damageSomething(chance_);
        visitor.run(service, [&] { script(visitor); });
        if (!OpenWindows::all().empty())
            Account::fail("a buffer is registered after the end");
        World::forgetProcess();
        if (starts_ > count_ + 10)
            Account::fail("the program does not start any more");
    }
    const std::string which = " (" + std::to_string(count_) + ")";
    noteFigure("R16", "hostile files opened" + which, opens_);
    noteFigure("R16", "of them shown in a window" + which, windows_);
    noteFigure("R16", "of them refused with a message" + which, messages_);
    noteFigure("R16", "rows of them pressed" + which, rows_);
    noteFigure("R16", "saves of them that were whole" + which, saves_);
    std::printf("%d opens, %d windows, %d messages, %d rows pressed, %d saves, %d starts\n", opens_, windows_,
                messages_, rows_, saves_, starts_);
}

void Opens::script(Visitor& visitor)
{
    openBanks(visitor);
    for (int each = 0; each < OpensEachStart && opens_ < count_; ++each)
        openOne(visitor);
    look(visitor);
}

/// The factory banks and the database, whose files may have been damaged before this start.
void Opens::openBanks(Visitor& visitor)
{
    for (const int kind : {2, 3, 4, 9, 12, 17, 14}) {
        if (!chance_.oneIn(3))
            continue;
        if (ChildWindow* child = visitor.opened([&] { visitor.window().showWindow(kind, 0); }))
            rows_ += visitor.pressRows(*child);
    }
    for (const char* item : {"mnuNuovoArr", "mnuNuovoSty", "mnuNuovoPrg"})
        if (chance_.oneIn(3))
            visitor.menu(item);
    visitor.closeAll();
}

std::string Opens::damagedFile(const Kind& kind)
{
    const std::string stem = world_.songs() + "/hostile" + std::to_string(opens_ % 40);
    for (const Kind& other : Kinds)
        std::filesystem::remove(stem + other.ending);
    const auto put = [&](const Kind& one) {
        const std::string source = world_.songs() + "/" + one.source + one.ending;
        std::ofstream(stem + one.ending, std::ios::binary) << Damage::any(bytesOfFile(source), chance_);
    };
    if (kind.fileKind == FileKind::Arr)
        for (const Kind& companion : {Kinds[1], chance_.oneIn(2) ? Kinds[2] : Kinds[3]})
            if (chance_.oneIn(2))
                put(companion);
    put(kind);
    return stem + kind.ending;
}

void Opens::openOne(Visitor& visitor)
{
    ++opens_;
    Account::at(opens_);
    const Kind& kind = chance_.of(Kinds);
    const std::string path = damagedFile(kind);
    const std::size_t before = visitor.boxes();
    const bool readOnly = chance_.oneIn(6);
    ChildWindow* child = visitor.opened([&] { visitor.window().openPath(path, kind.fileKind, readOnly); });
    if (!child) {
        if (visitor.boxes() == before)
            Account::fail(path + ": neither a window nor a message");
        ++messages_;
        return;
    }
    ++windows_;
    visit(visitor, *child);
    saveElsewhere(visitor, *child, kind);
    visitor.closeAll();
}

void Opens::visit(Visitor& visitor, ChildWindow& child)
{
    rows_ += visitor.pressRows(child);
    for (const char* name : {"CommEdit", "CommLoadArr", "CommLoadSty", "CommLoad", "CommLoadGbl", "CommShowSty",
                             "CommShowPrg", "CommLoadAll"})
        if (chance_.oneIn(2))
            visitor.press(child, name);
    for (const char* name : {"mnuEditArr", "mnuCopia", "mnuTaglia", "mnuIncolla"}) {
        visitor.window().area()->setActiveSubWindow(&child);
        if (chance_.oneIn(2))
            visitor.menu(name);
    }
    if (ChildWindow* editor = visitor.childOfKind(WindowKind::EditArr))
        visitor.close(*editor);
    if (chance_.oneIn(5))
        look(visitor);
}

void Opens::saveElsewhere(Visitor& visitor, ChildWindow& child, const Kind& kind)
{
    const std::string path = world_.songs() + "/saved" + std::to_string(opens_ % 10) + kind.ending;
    std::filesystem::remove(path);
    if (!visitor.saveAs(child, path))
        return; // read-only, or refused with a message
    ++saves_;
    visitor.closeAll();
    if (!visitor.opened([&] { visitor.window().openPath(path, kind.fileKind, false); }) &&
        std::filesystem::exists(path))
        Account::fail(path + " was saved and cannot be opened");
}

void Opens::look(Visitor& visitor)
{
    for (const std::string& fault : Invariants::broken(visitor.window()))
        Account::fail(fault);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "opens SEED COUNT\n");
        return 2;
    }
    Account::begin(std::string("opens ") + argv[1] + " " + argv[2], 300);
    auto* loop = new VirtualLoop;
    return runTimeless(*loop, argc, argv,
                       [&] { Opens(std::strtoull(argv[1], nullptr, 10), std::atoi(argv[2])).run(*loop); });
}
