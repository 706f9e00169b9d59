// How each window comes up, as its menu item or button does it.
#include "bench/EachWindow.h"

#include "bench/WholeProgram.h"
#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/Shell.h"
#include "core/UserInterface.h"
#include "database/DBArrTable.h"
#include "shell/frmLingua.h"
#include "shell/frmMain.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/RowList.h"
#include "toolkit/StageTimer.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMdiArea>
#include <QPushButton>
#include <QTimer>
#include <fstream>

namespace
{

constexpr int LongestWait = 10000; ///< milliseconds

frmMain& mainWindow() { return static_cast<frmMain&>(*App.shell); }

ChildWindow* childOf(int kind)
{
    for (QMdiSubWindow* one : mainWindow().area()->subWindowList())
        if (auto* child = dynamic_cast<ChildWindow*>(one); child && child->windowKind() == kind)
            return child;
    return nullptr;
}

OneWindow byMenu(const char* name, int kind)
{
    return {name, {}, [kind] { mainWindow().showWindow(kind, 0); }, [kind] { return childOf(kind); }};
}

OneWindow byNew(const char* name, int kind)
{
    return {name, {}, [kind] { mainWindow().mnuNew_Click(kind); }, [kind] { return childOf(kind); }};
}

OneWindow byFile(const char* name, const char* file, int fileKind, int kind)
{
    const std::string path = samples() + "/" + file;
    return {
        name, {}, [path, fileKind] { mainWindow().openPath(path, fileKind, false); }, [kind] { return childOf(kind); }};
}

/// The live editor, on a row of the sample song, whose window stays open behind it.
OneWindow editor()
{
    const auto ready = [] {
        if (!childOf(WindowKind::ArrFile))
            mainWindow().openPath(samples() + "/song.arr", FileKind::Arr, false);
        settleStages();
        auto* rows = childOf(WindowKind::ArrFile)->findChild<RowList*>(QStringLiteral("List1"));
        rows->select(0);
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
        QApplication::sendEvent(rows, &key);
        settleStages();
    };
    const auto open = [] {
        childOf(WindowKind::ArrFile)->findChild<QPushButton*>(QStringLiteral("CommEdit"))->click();
    };
    return {"frmEditArr", ready, open, [] { return childOf(WindowKind::EditArr); }};
}

/// A window that stops the caller until it is answered: it is left as soon as it has been painted.
OneWindow modal(const char* name, const std::function<void()>& ask)
{
    const auto open = [ask] {
        QTimer::singleShot(0, qApp, [] {
            QWidget* top = QApplication::activeModalWidget();
            if (!top)
                return;
            paintAll();
            if (auto* no = top->findChild<QPushButton*>(QStringLiteral("CommNo")))
                no->click();
            else
                top->close();
        });
        ask();
    };
    OneWindow window{name, {}, open, [] { return static_cast<QWidget*>(nullptr); }};
    window.ofToolkit = name == std::string("open dialog");
    return window;
}

} // namespace

std::vector<OneWindow> childWindows()
{
    return {
        byMenu("frmArrAB", WindowKind::ArrBankA),
        byMenu("frmPcgAE", WindowKind::PrgBankA),
        byMenu("frmDrum, kits", WindowKind::DrumKits),
        byMenu("frmDrum, percussion", WindowKind::Percussion),
        byMenu("frmFindID", WindowKind::FindId),
        byMenu("frmEditDBArr", WindowKind::EditDatabase),
        byMenu("frmGbl, instrument", WindowKind::GlobalInstrument),
        byMenu("frmTastiera", WindowKind::Keyboard),
        byMenu("frmMsgEx", WindowKind::MessageMonitor),
        byMenu("frmStyAB", WindowKind::StyBankA),
        byFile("frmArrU, song.arr", "song.arr", FileKind::Arr, WindowKind::ArrFile),
        byNew("frmArrNew", WindowKind::ArrNew),
        byFile("frmPrgUN, song.prg", "song.prg", FileKind::Prg, WindowKind::PrgFile),
        byNew("frmPrgUN, new", WindowKind::PrgNew),
        byFile("frmStyUN, song.sty", "song.sty", FileKind::Sty, WindowKind::StyFile),
        byNew("frmStyUN, new", WindowKind::StyNew),
        byFile("frmGbl, studio.gbl", "studio.gbl", FileKind::Gbl, WindowKind::GlobalFile),
        byMenu("frmGuida", WindowKind::Guide),
        byMenu("frmAbout", WindowKind::About),
        editor(), // the last: it leaves the song's window open
    };
}

std::vector<OneWindow> modalWindows()
{
    return {
        modal("warning", [] { theUser().warn("song.arr", "A transfer is in progress"); }),
        modal("question", [] { theUser().askYesNo("song.arr", "A transfer is in progress"); }),
        modal("notice", [] { theUser().showNotice("song.arr", "A transfer is in progress"); }),
        modal("language", [] { frmLingua::choose(); }),
        modal("open dialog", [] { mainWindow().menuItem("mnuApriArr")->trigger(); }),
    };
}

void settleStages()
{
    QElapsedTimer clock;
    clock.start();
    const auto isDue = [] {
        const auto timers = mainWindow().findChildren<QTimer*>();
        return std::any_of(timers.begin(), timers.end(), [](QTimer* timer) {
            const auto* stage = dynamic_cast<StageTimer*>(timer);
            return stage && stage->enabled();
        });
    };
    do
        paintAll();
    while (isDue() && clock.elapsed() < LongestWait);
    paintAll();
}

void closeWindow(QWidget* window)
{
    if (auto* child = dynamic_cast<ChildWindow*>(window))
        child->unloadWithoutAsking();
    else
        window->close();
    paintAll();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    paintAll();
}

void writeDatabase()
{
    std::ofstream(App.StateDir + "/TvlDBArr", std::ios::binary) << DBArrTable::emptyImage(samples());
}
