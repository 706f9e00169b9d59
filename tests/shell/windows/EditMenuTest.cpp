// Copy, cut and paste in the real windows: rows chosen by mouse and keys, commands by keys and menus, and what the
// windows show afterwards.
#include "EditMenuDesk.h"

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

TEST_F(EditMenu, aFactoryStyleLeavesTheBoxWithItsLastRow)
{
    start();
    song = open("song.arr", arrFile({{0, {"Ballad", 5, 0}}, {1, {"Slow", 5, 0}}, {2, {"Rock", 127, 0}}}), 1);
    const auto* box = song->findChild<QComboBox*>("Combo1");
    const QStringList both = styleBox(song);
    ASSERT_EQ(both.size(), 2);
    click(song, 0);
    EXPECT_EQ(box->currentText(), both[0]);
    key(song, Qt::Key_X);
    EXPECT_EQ(styleBox(song), both) << "another row plays it";
    EXPECT_EQ(box->currentText(), "");
    click(song, 1);
    key(song, Qt::Key_X);
    EXPECT_EQ(styleBox(song), QStringList{both[1]});
    EXPECT_EQ(box->currentText(), "");
    EXPECT_TRUE(enabled(song, "CommLoadArr"));
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
