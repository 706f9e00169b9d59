// Copy, cut and paste in the real windows: rows chosen by mouse and keys, commands by keys and menus, and what the
// windows show afterwards.
#include "MainWindowFixture.h"

#include "arrangements/ArrEdit.h"
#include "clipboard/ClipRoom.h"
#include "core/NameTables.h"
#include "styles/StyleSends.h"

#include <QContextMenuEvent>

namespace
{

const std::vector<Style> Styles{{"Samba", 40, 1}, {"Tango", 50, 2}, {"- empty -", 30}, {"Valzer", 60, 3}};
const Arrangements Songs{
    {0, {"Ballad", 5, 0}}, {1, {"My Samba", 0, 1}}, {2, {"Rock", 127, 0}}, {3, {"My Tango", 1, 1}}};

class EditMenu : public MainWindow
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
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
    static QListWidget* list(ChildWindow* child) { return child->findChild<QListWidget*>("List1"); }
    static QString text(ChildWindow* child, int row) { return list(child)->item(row)->text(); }
    static QString figure(ChildWindow* child, const char* name) { return child->findChild<QLineEdit*>(name)->text(); }
    static bool enabled(ChildWindow* child, const char* name)
    {
        return child->findChild<QPushButton*>(name)->isEnabled();
    }
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
        QListWidget* rows = list(child);
        rows->scrollToItem(rows->item(row));
        QTest::mouseClick(rows->viewport(), Qt::LeftButton, modifiers, rows->visualItemRect(rows->item(row)).center());
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

} // namespace

TEST_F(EditMenu, rowsChosenByControlTravelByTheStandardKeys)
{
    for (const int language : {1, 2}) {
        speak(language);
        openSongs();
        EXPECT_EQ(item("mnuCopia")->text(), language == 1 ? "Copia" : "Copy");
        EXPECT_EQ(item("mnuCopia")->shortcut(), QKeySequence(QKeySequence::Copy));
        EXPECT_EQ(item("mnuTaglia")->shortcut(), QKeySequence(QKeySequence::Cut));
        EXPECT_EQ(item("mnuIncolla")->shortcut(), QKeySequence(QKeySequence::Paste));
        activate(song);
        click(song, 0);
        click(song, 3, Qt::ControlModifier);
        EXPECT_EQ(edits(), "copy cut ");
        key(song, Qt::Key_C);
        activate(other);
        click(other, 8);
        EXPECT_EQ(edits(), "paste ");
        EXPECT_FALSE(enabled(other, "CommLoadArr"));
        key(other, Qt::Key_V);
        EXPECT_EQ(text(other, 8), "21  Ballad          ");
        EXPECT_EQ(text(other, 9), "22 +My Tango        ");
        for (const char* name : {"CommLoadArr", "CommLoadAll", "CommLoadSty", "CommShowSty", "CommEdit"})
            EXPECT_TRUE(enabled(other, name)) << name;
        EXPECT_TRUE(item("mnuLoadAll")->isEnabled());
        EXPECT_TRUE(item("mnuShowSty")->isEnabled());
        EXPECT_EQ(edits(), "copy cut ") << "the row is in use now";
        EXPECT_EQ(styleBox(other).last(), "Tango (U11)");
        EXPECT_TRUE(other->Tag.styleArea() == styFile({Styles[1], Empty, Empty, Empty}));
        other->Tag.set(3, 0);
        other->Tag.set(9, 0);
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        App.AppClosing = false;
        App.Arrangements = {};
        state.put("Dornflex", deviceRecord(1, 1, 77, 88));
    }
}

TEST_F(EditMenu, aRangeChosenByShiftIsCutByTheDeleteKeyAndPastedBack)
{
    openSongs();
    activate(song);
    click(song, 1);
    click(song, 3, Qt::ShiftModifier);
    EXPECT_EQ(list(song)->selectedItems().size(), 3);
    key(song, Qt::Key_Delete, Qt::NoModifier);
    EXPECT_EQ(text(song, 0), "11  Ballad          ");
    EXPECT_EQ(text(song, 1), "12");
    EXPECT_EQ(text(song, 3), "14");
    EXPECT_TRUE(song->Tag.styleArea() == styFile({Empty, Empty, Styles[2], Styles[3]}));
    EXPECT_TRUE(enabled(song, "CommLoadArr"));
    EXPECT_TRUE(enabled(song, "CommEdit")) << "an arrangement is left";
    EXPECT_EQ(styleBox(song).last(), "Valzer (U14)");
    EXPECT_EQ(edits(), "paste ");
    click(song, 1);
    key(song, Qt::Key_V);
    EXPECT_EQ(text(song, 1), "12 +My Samba        ");
    EXPECT_EQ(text(song, 3), "14 +My Tango        ");
    EXPECT_TRUE(song->Tag.styleArea() == styFile(Styles));
}

TEST_F(EditMenu, allRowsByKeyAreCutByKey)
{
    openSongs();
    activate(song);
    click(song, 0);
    key(song, Qt::Key_A);
    EXPECT_EQ(list(song)->selectedItems().size(), 64);
    key(song, Qt::Key_X);
    for (int row = 0; row < 64; ++row)
        EXPECT_EQ(text(song, row).size(), 2);
    for (const char* name : {"CommLoadArr", "CommLoadAll", "CommEdit"})
        EXPECT_FALSE(enabled(song, name)) << name;
    EXPECT_TRUE(enabled(song, "CommLoadSty")) << "a style that no arrangement played is left";
}

TEST_F(EditMenu, theDeleteKeyInAReadOnlyFileIsRefusedWithAnError)
{
    start();
    song = open("song.arr", arrFile(Songs), 1, true);
    click(song, 0);
    EXPECT_EQ(edits(), "copy ");
    key(song, Qt::Key_Delete, Qt::NoModifier);
    EXPECT_EQ(warnings(), (Lines{"song.arr|Read only file"}));
    ChildWindow* styles = open("beats.sty", styFile(Styles), 2, true);
    click(styles, 0);
    key(styles, Qt::Key_Delete, Qt::NoModifier);
    EXPECT_EQ(warnings().back(), "beats.sty|Read only file");
    ChildWindow* programs = open("sounds.prg", prgFile({{0, {2, 0, 0, "Piano"}}}), 3, true);
    click(programs, 0);
    key(programs, Qt::Key_Delete, Qt::NoModifier);
    EXPECT_EQ(warnings().back(), "sounds.prg|Read only file");
    EXPECT_EQ(text(song, 0), "11  Ballad          ");
    EXPECT_EQ(text(styles, 0), "11  Samba");
    EXPECT_EQ(text(programs, 0), "11  Piano           ");
}

TEST_F(EditMenu, theDeleteKeyCutsOnlyWhatCanBeCut)
{
    openSongs();
    activate(song);
    click(song, 5);
    key(song, Qt::Key_Delete, Qt::NoModifier);
    EXPECT_TRUE(Clipboard.facts().clipboardEmpty) << "an empty row is not cut";
    click(song, 0);
    App.ReadOnlyOpen = true; // mnuRdOnly: every file counts as read only for the edit items
    window->MenuSync();
    key(song, Qt::Key_Delete, Qt::NoModifier);
    EXPECT_EQ(text(song, 0), "11  Ballad          ");
    EXPECT_TRUE(warnings().empty());
}

TEST_F(EditMenu, theRightButtonsMenuCopiesCutsAndPastes)
{
    openSongs();
    activate(song);
    click(song, 2);
    const auto pick = [&](ChildWindow* child, const char* name) {
        QWidget* place = list(child)->viewport();
        QContextMenuEvent press(QContextMenuEvent::Mouse, QPoint(5, 5), place->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(place, &press);
        QMenu* menu = item("mnuModifica")->menu();
        ASSERT_TRUE(menu->isVisible());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item(name)).center());
        settle();
        EXPECT_FALSE(menu->isVisible());
    };
    EXPECT_EQ(list(song)->currentRow(), 2);
    pick(song, "mnuCopia");
    EXPECT_EQ(list(song)->currentRow(), 2) << "a right press chooses no row";
    activate(other);
    click(other, 0);
    pick(other, "mnuIncolla");
    EXPECT_EQ(text(other, 0), "11  Rock            ");
    pick(other, "mnuTaglia");
    EXPECT_EQ(text(other, 0), "11");
}

TEST_F(EditMenu, aBankGivesItsRowsToANewFile)
{
    start();
    choose("mnuArrA");
    ChildWindow* bank = active();
    choose("mnuNuovoArr");
    ChildWindow* fresh = active();
    ASSERT_EQ(fresh->windowKind(), 20);
    activate(bank);
    click(bank, 0);
    click(bank, 2, Qt::ShiftModifier);
    EXPECT_EQ(edits(), "copy ");
    choose("mnuCopia");
    activate(fresh);
    click(fresh, 0);
    EXPECT_FALSE(enabled(fresh, "CommLoadArr"));
    choose("mnuIncolla");
    EXPECT_EQ(text(fresh, 0), "11  8 Beat          ");
    EXPECT_EQ(text(fresh, 2), "13  Slow            ");
    EXPECT_TRUE(enabled(fresh, "CommLoadArr"));
    EXPECT_FALSE(enabled(fresh, "CommLoadSty"));
    EXPECT_EQ(fresh->Tag.at(3), 1);
}

TEST_F(EditMenu, programsTravelAndTheFilesExtensionFollows)
{
    start();
    choose("mnuWProgB");
    ChildWindow* bank = active();
    ChildWindow* programs = open("sounds.prg", prgFile({{0, {2, 0, 0, "Piano"}}}), 3);
    EXPECT_TRUE(programs->windowTitle().startsWith("File Prg - sounds.prg (1)"));
    activate(bank);
    click(bank, 9);
    click(bank, 10, Qt::ControlModifier);
    key(bank, Qt::Key_C);
    activate(programs);
    click(programs, 1);
    key(programs, Qt::Key_V);
    const QString name = text(bank, 9).mid(4);
    EXPECT_EQ(text(programs, 1), "12 *" + name);
    EXPECT_EQ(programs->Tag.bytes().substr(318 + 172, 3), std::string("\1\0\x49", 3)) << "bank A, B: program 64 + 9";
    EXPECT_TRUE(programs->windowTitle().startsWith("File Prg - sounds.pgg (1)"));
    click(programs, 1);
    click(programs, 2, Qt::ShiftModifier);
    key(programs, Qt::Key_Delete, Qt::NoModifier);
    EXPECT_TRUE(programs->windowTitle().startsWith("File Prg - sounds.prg (1)"));
    EXPECT_TRUE(enabled(programs, "CommLoad"));
    EXPECT_TRUE(item("mnuLoadPrg")->isEnabled());
    click(programs, 0);
    key(programs, Qt::Key_X);
    EXPECT_FALSE(enabled(programs, "CommLoad"));
    EXPECT_FALSE(item("mnuLoadPrg")->isEnabled());
    EXPECT_EQ(text(programs, 0), "11");
}

TEST_F(EditMenu, stylesTravelAndTheFiguresFollow)
{
    start();
    ChildWindow* source = open("beats.sty", styFile(Styles), 2);
    ChildWindow* target = open("empty.sty", styFile(std::vector<Style>(4, Empty)), 2);
    EXPECT_EQ(figure(target, "Text2(1)"), "4704 ") << "on opening: all slots up to the group's end";
    EXPECT_TRUE(enabled(target, "CommLoadStyGrp(1)"));
    activate(source);
    click(source, 0);
    click(source, 3, Qt::ControlModifier);
    key(source, Qt::Key_C);
    activate(target);
    click(target, 3);
    EXPECT_EQ(edits(), "paste ");
    key(target, Qt::Key_V);
    EXPECT_EQ(text(target, 3), "14  Samba");
    EXPECT_EQ(text(target, 5), "15  Valzer");
    EXPECT_EQ(figure(target, "Text1(3)"), "40 ");
    EXPECT_EQ(figure(target, "Text1(4)"), "60 ");
    EXPECT_EQ(figure(target, "Text2(0)"), "3568 "); // 3 x 1176 + 40
    EXPECT_EQ(figure(target, "Text2(1)"), "60 ") << "after a paste: the group's own sum";
    EXPECT_EQ(figure(target, "Text2(2)"), "4704 ") << "and a group without a change keeps what it showed";
    EXPECT_EQ(figure(target, "Text3"), "3852"); // 224 + 3568 + 60
    EXPECT_EQ(target->Tag.at(9), 1);
    click(target, 4); // the blank row between the groups
    EXPECT_EQ(edits(), "");
    click(target, 3);
    key(target, Qt::Key_X);
    EXPECT_EQ(text(target, 3), "14  - empty -");
    EXPECT_EQ(figure(target, "Text1(3)"), "1176 ");
}

TEST_F(EditMenu, aCutWithTheLinkedStyleWindowOpenShowsItAgainWithTheNewStyles)
{
    start();
    songs.put("song.sty", styFile(Styles));
    songs.put("beats.sty", styFile(Styles));
    ChildWindow* first = open("first.sty", styFile(Styles), 2); // takes the first slot of the family
    song = open("song.arr", arrFile(Songs), 1);
    QTest::mouseClick(song->findChild<QPushButton*>("CommShowSty"), Qt::LeftButton);
    settle();
    QPointer<ChildWindow> styles = active();
    ASSERT_EQ(styles->windowKind(), 23);
    ASSERT_EQ(styles->Tag.number(), 2);
    styles->placeInTwips(450, 600, 6000, 5400);
    first->unloadWithoutAsking(); // the first slot is free again: the window is to come back in its own
    styles->Tag.set(9, 1);        // modified: its styles are safe with the arrangements, so nothing is asked
    activate(song);
    click(song, 1);
    key(song, Qt::Key_X);
    EXPECT_TRUE(styles.isNull()) << "the window has gone";
    ChildWindow* again = active();
    ASSERT_EQ(again->windowKind(), 23);
    EXPECT_EQ(again->Tag.number(), 2);
    EXPECT_EQ(again->positionInTwips().left, 450);
    EXPECT_EQ(again->positionInTwips().width, 6000);
    EXPECT_EQ(text(again, 0), "11  - empty -");
    EXPECT_EQ(text(again, 1), "12  Tango");
    EXPECT_TRUE(again->Tag.styleArea() == song->Tag.styleArea());
    EXPECT_TRUE(user.questions.empty());
    EXPECT_TRUE(App.Styles[1].used);
    EXPECT_TRUE(App.Styles[1].linked);
    EXPECT_EQ(App.StyUCount, 1);
    activate(song);
    click(song, 1);
    key(song, Qt::Key_V);
    EXPECT_EQ(text(active(), 0), "11  Samba") << "a style that comes back is shown there too";
}

TEST_F(EditMenu, aCutAndPasteInTheLinkedStyleWindowReachesTheArrangementWindow)
{
    openSongs();
    activate(song);
    QTest::mouseClick(song->findChild<QPushButton*>("CommShowSty"), Qt::LeftButton);
    settle();
    ChildWindow* styles = active();
    ASSERT_EQ(styles->windowKind(), 23);
    click(styles, 3);
    key(styles, Qt::Key_X);
    EXPECT_TRUE(song->Tag.styleArea() == styFile({Styles[0], Styles[1], Styles[2], Empty}));
    EXPECT_EQ(song->Tag.at(9), 1);
    EXPECT_EQ(styleBox(song).last(), "Tango (U12)");
    click(styles, 2);
    key(styles, Qt::Key_V);
    EXPECT_EQ(styleBox(song).last(), "Valzer (U13)");
}

TEST_F(EditMenu, anArrangementWindowThatClosesBeforeItsStylesCameAgainFreesTheirSlot)
{
    openSongs();
    activate(song);
    QTest::mouseClick(song->findChild<QPushButton*>("CommShowSty"), Qt::LeftButton);
    settle();
    activate(song);
    click(song, 1);
    StageTimer::setTimeScale(100); // the tick is far away
    item("mnuTaglia")->trigger();
    song->unloadWithoutAsking();
    StageTimer::setTimeScale(0.01);
    settle();
    EXPECT_FALSE(App.Styles[0].used);
    EXPECT_EQ(App.StyUCount, 0);
}

TEST_F(EditMenu, theEditorDoesNotOutliveTheRowThatItHolds)
{
    openSongs();
    activate(song);
    click(song, 1);
    QTest::mouseClick(song->findChild<QPushButton*>("CommEdit"), Qt::LeftButton);
    settle();
    QPointer<ChildWindow> editor = active();
    ASSERT_EQ(editor->windowKind(), 13);
    Arr.ArrEditBuf.replace(0, 10, "Your Samba");
    Arr.ArrEditDirty = true;
    activate(song);
    user.answers = {Answer::Cancel};
    key(song, Qt::Key_X);
    EXPECT_EQ(text(song, 1), "12 +My Samba        ") << "the user goes on editing";
    EXPECT_FALSE(editor.isNull());
    user.answers = {Answer::Yes};
    key(song, Qt::Key_X);
    EXPECT_TRUE(editor.isNull());
    EXPECT_EQ(text(song, 1), "12");
    EXPECT_EQ(Clipboard.BufferTagSorg.substr(302 + 164, 10), "Your Samba") << "what was edited is cut";
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(EditMenu, theEditorOfAnotherRowStays)
{
    openSongs();
    activate(song);
    click(song, 1);
    QTest::mouseClick(song->findChild<QPushButton*>("CommEdit"), Qt::LeftButton);
    settle();
    QPointer<ChildWindow> editor = active();
    activate(song);
    list(song)->clearSelection();
    list(song)->setCurrentRow(2);
    window->MenuSync();
    key(song, Qt::Key_X);
    EXPECT_EQ(text(song, 2), "13");
    EXPECT_FALSE(editor.isNull());
}

TEST_F(EditMenu, theLinkEndsWithTheArrangementWindow)
{
    openSongs();
    activate(song);
    QTest::mouseClick(song->findChild<QPushButton*>("CommShowSty"), Qt::LeftButton);
    settle();
    ChildWindow* styles = active();
    song->unloadWithoutAsking();
    settle();
    EXPECT_TRUE(App.Styles[0].used);
    activate(styles);
    click(styles, 0);
    key(styles, Qt::Key_X);
    song = open("song.arr", arrFile(Songs), 1); // its styles are those of the disk
    EXPECT_TRUE(song->Tag.styleArea() == styFile(Styles));
    click(song, 1);
    key(song, Qt::Key_X);
    EXPECT_EQ(text(song, 1), "12");
    activate(styles);
    click(styles, 1);
    key(styles, Qt::Key_X);
    EXPECT_TRUE(song->Tag.styleArea() == styFile({Empty, Styles[1], Styles[2], Styles[3]}));
    EXPECT_TRUE(styles->Tag.styleArea() == styFile({Empty, Empty, Styles[2], Styles[3]}));
}

TEST_F(EditMenu, theSnapshotOutlivesItsWindow)
{
    openSongs();
    activate(song);
    click(song, 3);
    key(song, Qt::Key_C);
    song->unloadWithoutAsking();
    settle();
    click(other, 0);
    key(other, Qt::Key_V);
    EXPECT_EQ(text(other, 0), "11 +My Tango        ");
}
