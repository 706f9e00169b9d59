// The child windows, one after the other, and the desk with the chief ones of them.
#include "tools/pictures/Walk.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/StateFiles.h"
#include "instrument/VirtualInstrument.h"
#include "instrument/frmInstrument.h"
#include "shell/frmMain.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/RowList.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QPushButton>
#include <QTimer>

namespace
{

struct Page {
    int kind;
    const char* name;
};

/// What the menus open without a file.
constexpr Page Pages[] = {
    {WindowKind::ArrBankA, "arrangement-bank"},
    {WindowKind::PrgBankA, "program-bank"},
    {WindowKind::DrumKits, "drum-kits"},
    {WindowKind::Percussion, "percussion"},
    {WindowKind::StyBankA, "style-bank"},
    {WindowKind::EditDatabase, "database"},
    {WindowKind::FindId, "find-by-number"},
    {WindowKind::GlobalInstrument, "global-instrument"},
    {WindowKind::Keyboard, "keyboard"},
    {WindowKind::MessageMonitor, "monitor"},
    {WindowKind::Guide, "guide"},
    {WindowKind::About, "about"},
};
constexpr int Edge = 8; ///< pixels between the windows of the desk

constexpr Page NewFiles[] = {
    {WindowKind::ArrNew, "arrangements-new"},
    {WindowKind::PrgNew, "programs-new"},
    {WindowKind::StyNew, "styles-new"},
};

ChildWindow* childOf(const frmMain& main, int kind)
{
    for (QMdiSubWindow* one : main.area()->subWindowList())
        if (auto* child = dynamic_cast<ChildWindow*>(one); child && child->windowKind() == kind && !child->isHidden())
            return child;
    return nullptr;
}

void press(QWidget* window, const char* name)
{
    if (auto* button = window ? window->findChild<QPushButton*>(QLatin1String(name)) : nullptr)
        button->click();
    settle();
}

/// A press that is asked back: the box is agreed to.
void pressAndAgree(QWidget* window, const char* name)
{
    QTimer agree;
    QObject::connect(&agree, &QTimer::timeout, [] {
        if (QWidget* box = QApplication::activeModalWidget())
            for (const char* button : {"CommYes", "CommOK"})
                if (auto* found = box->findChild<QPushButton*>(QLatin1String(button)))
                    found->click();
    });
    agree.start(10);
    press(window, name);
}

/// A key's way: the row is chosen and told as the user's own.
void chooseRow(QWidget* window, int row)
{
    auto* list = window ? window->findChild<RowList*>(QStringLiteral("List1")) : nullptr;
    if (!list)
        return;
    list->select(row);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QApplication::sendEvent(list, &key);
    settle();
}

void closeChild(ChildWindow* child)
{
    if (child)
        child->unloadWithoutAsking();
    settle();
}

} // namespace

void Walk::run()
{
    constexpr QSize SmallScreen(1366, 768);
    main.showNormal();
    main.setGeometry(QRect(QPoint(0, 0), SmallScreen));
    settle();
    album.take(&main, QStringLiteral("main-empty"));
    main.showWindow(WindowKind::MessageMonitor, 0); // it keeps only what is sent while it is open
    openSong();
    playSong();
    album.takeAll(&instrumentWindow, QStringLiteral("virtual-instrument"));
    takeChildren();
    takeEditor();
    closeChild(childOf(main, WindowKind::ArrFile));
    takeFiles();
    takeDesk();
    takeMenus();
    takeDialogs();
}

void Walk::openSong()
{
    main.openPath(samples + "/song.arr", FileKind::Arr, false);
    settle();
    album.takeAll(childOf(main, WindowKind::ArrFile), QStringLiteral("arrangements"));
}

void Walk::playSong()
{
    ChildWindow* song = childOf(main, WindowKind::ArrFile);
    pressAndAgree(song, "CommAdd"); // the first file of the database
    for (const char* load : {"CommLoadArr", "CommLoadSty", "CommLoadPrg"})
        press(song, load);
    chooseRow(song, 1);
    album.take(song, QStringLiteral("arrangements-loaded"));
    main.showWindow(WindowKind::GlobalInstrument, 0);
    settle();
    ChildWindow* global = childOf(main, WindowKind::GlobalInstrument);
    press(global, "CommLoadGbl");
    press(global, "CommLoad");
    closeChild(global);
    // A chord with a bass note, some levels, and a frame that broke off.
    instrument.take("\x90\x24\x60\x91\x3C\x64\x91\x40\x50\x91\x43\x70\x92\x4A\x28");
    instrument.take("\xB1\x07\x5A\xB1\x0A\x20\xB2\x07\x40\xB2\x5B\x30\xB2\x5D\x18\xE2\x10\x50");
    instrument.take(std::string_view("\xB1\x00\x02\xB1\x20\x00\xC1\x05\xB2\x00\x02\xB2\x20\x00\xC2\x12", 16));
    instrument.take("\xF0\x42\x30\x4D\x41\x01\xF7");
    instrumentWindow.refresh();
    instrumentWindow.show();
}

void Walk::takeChildren()
{
    for (const Page& page : Pages) {
        main.showWindow(page.kind, 0);
        settle();
        ChildWindow* child = childOf(main, page.kind);
        if (page.kind == WindowKind::EditDatabase) {
            pressAndAgree(child, "CommAddAll");
            chooseRow(child, 2);
        } else if (child && page.kind != WindowKind::GlobalInstrument) {
            chooseRow(child, 3);
        }
        album.takeAll(child, QLatin1String(page.name));
        closeChild(child);
    }
    for (const Page& page : NewFiles) {
        main.mnuNew_Click(page.kind);
        settle();
        ChildWindow* child = childOf(main, page.kind);
        album.takeAll(child, QLatin1String(page.name));
        closeChild(child);
    }
}

void Walk::takeEditor()
{
    ChildWindow* song = childOf(main, WindowKind::ArrFile);
    chooseRow(song, 1);
    press(song, "CommEdit");
    ChildWindow* editor = childOf(main, WindowKind::EditArr);
    album.takeAll(editor, QStringLiteral("editor"));
    closeChild(editor);
}

void Walk::takeFiles()
{
    const struct {
        const char* file;
        int fileKind;
        int windowKind;
        const char* name;
    } files[] = {
        {"/song.sty", FileKind::Sty, WindowKind::StyFile, "styles"},
        {"/song.prg", FileKind::Prg, WindowKind::PrgFile, "programs"},
        {"/studio.gbl", FileKind::Gbl, WindowKind::GlobalFile, "global"},
    };
    for (const auto& one : files) {
        main.openPath(samples + one.file, one.fileKind, false);
        settle();
        ChildWindow* child = childOf(main, one.windowKind);
        if (one.fileKind != FileKind::Gbl)
            chooseRow(child, 2);
        album.takeAll(child, QLatin1String(one.name));
        closeChild(child);
    }
}

/// As a player has it before him: the song, its styles, the keyboard.
void Walk::takeDesk()
{
    main.openPath(samples + "/song.arr", FileKind::Arr, false);
    settle();
    ChildWindow* song = childOf(main, WindowKind::ArrFile);
    main.showWindow(WindowKind::Keyboard, 0);
    settle();
    ChildWindow* keyboard = childOf(main, WindowKind::Keyboard);
    main.showWindow(WindowKind::PrgBankA, 0);
    settle();
    ChildWindow* bank = childOf(main, WindowKind::PrgBankA);
    press(song, "CommShowSty");
    ChildWindow* styles = childOf(main, WindowKind::StyFile);
    if (!song || !keyboard || !bank || !styles) {
        album.miss(QStringLiteral("the desk's windows"));
        return;
    }
    // The song at the left, what it plays with at its right.
    const int right = song->width() + 2 * Edge;
    song->move(Edge, Edge);
    styles->move(right, Edge);
    keyboard->move(right, main.area()->height() - keyboard->height() - Edge);
    bank->move(right + keyboard->width() + Edge, Edge);
    main.area()->setActiveSubWindow(song);
    chooseRow(song, 1);
    album.take(&main, QStringLiteral("main"));
}
