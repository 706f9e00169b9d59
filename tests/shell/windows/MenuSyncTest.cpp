// The shell at work: menus that follow the active child, and what children ask of the main window.
#include "MainWindowFixture.h"

#include "arrangements/ArrEdit.h"

// The shell's other doors.

TEST_F(MainWindow, bringsTheWindowOfAPathForward)
{
    user.files.push_back({true, song("one"), 1, false});
    user.files.push_back({true, song("two"), 1, false});
    start();
    item("mnuApriArr")->trigger();
    item("mnuApriArr")->trigger();
    childAt(0)->showMinimized();
    EXPECT_TRUE(window->bringForward(19, songs.file("one")));
    EXPECT_EQ(window->area()->currentSubWindow(), childAt(0));
    EXPECT_FALSE(childAt(0)->isMinimized());
    EXPECT_FALSE(window->bringForward(23, songs.file("one")));
    EXPECT_FALSE(window->bringForward(19, songs.file("three")));
}

TEST_F(MainWindow, theEditMenuPopsUpAtARightPressInAChild)
{
    startWithPlainChildren();
    window->showWindow(20, 1);
    QContextMenuEvent press(QContextMenuEvent::Mouse, QPoint(5, 5), plain[0]->list->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(plain[0]->list, &press);
    EXPECT_TRUE(item("mnuModifica")->menu()->isVisible());
    item("mnuModifica")->menu()->hide();
}

TEST_F(MainWindow, cutRunsOnlyWhenItIsOffered)
{
    startWithPlainChildren();
    window->showWindow(19, 1);
    int cuts = 0;
    QObject::connect(item("mnuTaglia"), &QAction::triggered, [&] { ++cuts; });
    window->cut();
    EXPECT_EQ(cuts, 0);
    plain[0]->list->addItems({"11 +Ballad"});
    plain[0]->list->setCurrentRow(0);
    window->MenuSync();
    window->cut();
    EXPECT_EQ(cuts, 1);
}

// MenuSync on real windows.

TEST_F(MainWindow, childItemsRunTheChildsTimerInAFreshEventOrPressItsButton)
{
    startWithPlainChildren();
    window->showWindow(19, 1);
    EXPECT_TRUE(item("mnuLoadArr")->isEnabled());
    EXPECT_FALSE(item("mnuLoadPrg")->isEnabled()) << "the child has no such button";
    item("mnuLoadArr")->trigger();
    EXPECT_TRUE(plain[0]->pressed.isEmpty());
    QTest::qWait(20);
    EXPECT_EQ(plain[0]->pressed, (QStringList{"TimerLoadArr"}));
    item("mnuTvlDBArr")->trigger();
    EXPECT_EQ(plain[0]->pressed, (QStringList{"TimerLoadArr", "CommAdd"}));
}

TEST_F(MainWindow, everyItemOfAChildsTimerOnlyStartsThatTimer)
{
    struct Row {
        int kind;
        const char* item;
        const char* button;
        const char* timer;
    };
    const Row rows[] = {
        {19, "mnuLoadAll", "CommLoadAll", "TimerLoadAll"},      {19, "mnuLoadArr", "CommLoadArr", "TimerLoadArr"},
        {19, "mnuLoadSty", "CommLoadSty", "TimerLoadSty"},      {19, "mnuShowSty", "CommShowSty", "TimerShowSty"},
        {19, "mnuLoadPrg", "CommLoadPrg", "TimerLoadPrg"},      {19, "mnuShowPrg", "CommShowPrg", "TimerShowPrg"},
        {19, "mnuEditArr", "CommEdit", "TimerEditArr"},         {12, "mnuCancella", "CommDelete", "TimerCancella"},
        {12, "mnuDBArrApri", "CommApri", "TimerApri"},          {12, "mnuAddAll", "CommAddAll", "TimerAddAll"},
        {20, "mnuLoadSty", "CommLoadSty", "TimerLoadSty"},      {22, "mnuLoadPrg", "CommLoad", "TimerLoadPrg"},
        {23, "mnuLoadSty", "CommLoadStyGrp(3)", "TimerLoadSty"}};
    startWithPlainChildren();
    for (const Row& row : rows) {
        window->showWindow(row.kind, 1);
        PlainChild* child = plain.back();
        QStringList acts;
        auto* button = child->findChild<QPushButton*>(row.button);
        if (!button) {
            button = new QPushButton(child->widget());
            button->setObjectName(row.button);
        }
        QObject::connect(button, &QPushButton::clicked, [&acts] { acts << "pressed"; });
        auto* timer = dynamic_cast<StageTimer*>(child->findChild<QTimer*>(row.timer));
        if (!timer)
            timer = new StageTimer(child, row.timer);
        timer->onTick([&acts] { acts << "ticked"; });
        window->MenuSync();
        ASSERT_TRUE(item(row.item)->isEnabled()) << row.item;
        item(row.item)->trigger();
        EXPECT_TRUE(timer->enabled()) << row.item;
        EXPECT_TRUE(acts.isEmpty()) << row.item;
        EXPECT_TRUE(QTest::qWaitFor([&] { return !timer->enabled(); }, 1000)) << row.item;
        EXPECT_EQ(acts, (QStringList{"ticked"})) << row.item;
        button->setEnabled(false);
        window->MenuSync();
        EXPECT_FALSE(item(row.item)->isEnabled()) << row.item;
        child->unloadChild();
    }
}

TEST_F(MainWindow, theMenusStandStillWhileTheProgramCloses)
{
    startWithPlainChildren();
    window->showWindow(19, 1);
    App.AppClosing = true;
    window->showWindow(16, 0);
    EXPECT_TRUE(item("mnuLoadArr")->isEnabled()) << "the items are still those of the first window";
    App.AppClosing = false;
    window->MenuSync();
    EXPECT_FALSE(item("mnuLoadArr")->isEnabled());
}

TEST_F(MainWindow, aWindowClosedInThisEventIsNoLongerBroughtForward)
{
    user.files.push_back({true, song("song"), 1, false});
    start();
    item("mnuApriArr")->trigger();
    childAt(0)->unloadChild();
    EXPECT_FALSE(window->bringForward(19, songs.file("song")));
}

TEST_F(MainWindow, theEditorIsClosedForTheWindowWhoseArrangementItHoldsAlone)
{
    startWithPlainChildren();
    window->showWindow(19, 1);
    window->showWindow(19, 2);
    EXPECT_TRUE(window->closeEditorOf(19, 1)) << "no editor is open";
    window->showWindow(13, 0);
    PlainChild* editor = plain.back();
    Arr.ArrEditOpen = true;
    putByte(Arr.ArrEditBuf, ArrEditLayout::SourceKindOffset, 19);
    putByte(Arr.ArrEditBuf, ArrEditLayout::SourceSlotOffset, 1);
    EXPECT_TRUE(window->closeEditorOf(19, 2));
    EXPECT_TRUE(window->closeEditorOf(2, 0));
    EXPECT_EQ(editor->asked, 0);

    editor->agrees = false;
    EXPECT_FALSE(window->closeEditorOf(19, 1));
    EXPECT_TRUE(editor->isVisible());
    editor->agrees = true;
    App.AppClosing = true;
    EXPECT_TRUE(window->closeEditorOf(19, 1));
    EXPECT_TRUE(editor->isVisible()) << "at exit it is only asked";
    App.AppClosing = false;
    EXPECT_TRUE(window->closeEditorOf(19, 1));
    EXPECT_EQ(editor->asked, 3);
    EXPECT_EQ(editor->unloads, 1);
    Arr = {};
}

TEST_F(MainWindow, theMenusFollowTheActiveChild)
{
    startWithPlainChildren();
    window->showWindow(19, 1);
    window->showWindow(16, 0);
    EXPECT_FALSE(item("mnuLoadArr")->isEnabled());
    window->area()->setActiveSubWindow(plain[0]);
    EXPECT_TRUE(item("mnuLoadArr")->isEnabled());
    EXPECT_TRUE(item("mnuSalva")->isEnabled());
}

TEST_F(MainWindow, aSecondShowOfAKindBringsItsWindowForward)
{
    startWithPlainChildren();
    window->showWindow(16, 0);
    window->showWindow(15, 0);
    window->showWindow(16, 0);
    EXPECT_EQ(plain.size(), 2U);
    EXPECT_EQ(window->area()->currentSubWindow(), plain[0]);
}

TEST_F(MainWindow, maximizeGivesTheDefaultSizeBackAndIsThenOff)
{
    startWithPlainChildren();
    window->showWindow(23, 1);
    plain[0]->resizeInTwips(5560, 4200);
    EXPECT_FALSE(item("mnuIngrandisci")->isEnabled());
    plain[0]->resize(plain[0]->width() + 50, plain[0]->height());
    EXPECT_TRUE(item("mnuIngrandisci")->isEnabled()) << "a resize brings the menus up to date";
    item("mnuIngrandisci")->trigger();
    EXPECT_EQ(plain[0]->size(), QSize(371, 280));
    EXPECT_FALSE(item("mnuIngrandisci")->isEnabled());
}

TEST_F(MainWindow, theReadOnlyMarkTakesSaveAndTheEditItemsAway)
{
    startWithPlainChildren();
    window->showWindow(19, 1);
    plain[0]->list->addItems({"11 +Ballad"});
    plain[0]->list->setCurrentRow(0);
    window->MenuSync();
    EXPECT_TRUE(item("mnuSalva")->isEnabled());
    EXPECT_TRUE(item("mnuTaglia")->isEnabled());
    item("mnuRdOnly")->trigger();
    EXPECT_FALSE(item("mnuSalva")->isEnabled());
    EXPECT_FALSE(item("mnuTaglia")->isEnabled());
    EXPECT_TRUE(item("mnuCopia")->isEnabled());
}

TEST_F(MainWindow, cascadePlacesTheWindowsByTheFixedOrder)
{
    startWithPlainChildren();
    window->showWindow(25, 1);
    window->showWindow(19, 2);
    window->showWindow(23, 1);
    item("mnuWCascade")->trigger();
    EXPECT_EQ(plain[1]->pos(), QPoint(0, 0));
    EXPECT_EQ(plain[2]->pos(), QPoint(20, 20));
    EXPECT_EQ(plain[0]->pos(), QPoint(40, 40));
    EXPECT_EQ(App.Styles[0].left, 300);
    EXPECT_EQ(plain[1]->positionInTwips().left, 0);
    EXPECT_EQ(plain[0]->positionInTwips().top, 600);
}

TEST_F(MainWindow, theWindowMenuListsTheChildrenAndBringsThemForward)
{
    startWithPlainChildren();
    window->showWindow(19, 1);
    window->showWindow(19, 2);
    plain[0]->setWindowTitle("R&B");
    QMenu* menu = item("mnuWindow")->menu();
    emit menu->aboutToShow();
    emit menu->aboutToShow();
    const auto* first = menu->findChild<QAction*>("mnuWindowList(0)");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->text(), "&1  R&&B");
    EXPECT_FALSE(first->isChecked());
    EXPECT_TRUE(menu->findChild<QAction*>("mnuWindowList(1)")->isChecked());
    EXPECT_EQ(menu->actions().size(), 4);
    menu->findChild<QAction*>("mnuWindowList(0)")->trigger();
    EXPECT_EQ(window->area()->currentSubWindow(), plain[0]);
}
