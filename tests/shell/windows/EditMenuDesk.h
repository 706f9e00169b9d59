// The real main window with a file of arrangements and styles, an empty file beside it, and the hand of a user on rows,
// keys and menus.
#pragma once

#include "MainWindowFixture.h"

#include "arrangements/ArrEdit.h"
#include "clipboard/ClipRoom.h"
#include "core/NameTables.h"
#include "styles/StyleSends.h"
#include "support/WindowHands.h"

#include <QContextMenuEvent>

inline const std::vector<Style> Styles{{"Samba", 40, 1}, {"Tango", 50, 2}, {"- empty -", 30}, {"Valzer", 60, 3}};
inline const Arrangements Songs{
    {0, {"Ballad", 5, 0}}, {1, {"My Samba", 0, 1}}, {2, {"Rock", 127, 0}}, {3, {"My Tango", 1, 1}}};

class EditMenu : public MainWindow, protected WindowHands
{
protected:
    EditMenu()
    {
        Arr = {};
        StyLoad = {};
        NameTablesBuild();
        App.PathArrA =
            songs.put("TvlArrA", arrFile({{0, {"8 Beat", 3, 0}}, {1, {"16 Beat", 4, 0}}, {2, {"Slow", 5, 0}}}));
        App.PathPrg = songs.put("TvlPrg", prgFile({}));
        songs.put("TvlSty", styFile(std::vector<Style>(4, Empty)));
        StageTimer::setTimeScale(0.01);
        speak(2);
    }
    ~EditMenu() override
    {
        window.reset();
        collect();
        Arr = {};
        StyLoad = {};
    }

    ChildWindow* open(const std::string& name, const std::string& file, int fileKind, bool readOnly = false)
    {
        window->openPath(songs.put(name, file), fileKind, readOnly);
        settle();
        return active();
    }
    /// song.arr with its styles, and an empty other.arr.
    void openSongs()
    {
        start();
        songs.put("song.sty", styFile(Styles));
        song = open("song.arr", arrFile(Songs), 1);
        other = open("other.arr", arrFile({}), 1);
    }
    ChildWindow* active() { return dynamic_cast<ChildWindow*>(window->area()->activeSubWindow()); }
    /// Lets the stages of loads and of a reopened window run out.
    static void settle()
    {
        QTest::qWait(30);
        collect();
    }
    void choose(const char* name)
    {
        ASSERT_TRUE(item(name)->isEnabled()) << name;
        item(name)->trigger();
        settle();
    }
    void activate(ChildWindow* child)
    {
        window->area()->setActiveSubWindow(child);
        QApplication::processEvents();
    }
    /// The style window that song.arr opens on its styles.
    ChildWindow* showStyles()
    {
        activate(song);
        press(song, "CommShowSty");
        settle();
        return active();
    }
    static QString text(ChildWindow* child, int row) { return list(child)->item(row)->text(); }
    static QString figure(ChildWindow* child, const char* name) { return child->findChild<QLineEdit*>(name)->text(); }
    static QStringList styleBox(ChildWindow* child)
    {
        QStringList entries;
        const auto* box = child->findChild<QComboBox*>("Combo1");
        for (int i = 0; i < box->count(); ++i)
            entries << box->itemText(i);
        return entries;
    }
    void click(ChildWindow* child, int row, Qt::KeyboardModifiers modifiers = {})
    {
        clickRow(child, row, modifiers);
        settle();
    }
    /// A key on the list, with the main window active as a player has it.
    void key(ChildWindow* child, Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        window->activateWindow();
        list(child)->setFocus();
        QApplication::processEvents();
        QTest::keyClick(list(child), code, modifiers);
        settle();
    }
    std::string edits()
    {
        return std::string(item("mnuCopia")->isEnabled() ? "copy " : "") +
               (item("mnuTaglia")->isEnabled() ? "cut " : "") + (item("mnuIncolla")->isEnabled() ? "paste " : "");
    }

    ChildWindow* song = nullptr;
    ChildWindow* other = nullptr;
};
