// What every child window does: counters, the registry, its place in twips, closing and the right press.
#include "toolkit/ChildWindow.h"

#include "core/Shell.h"
#include "toolkit/StageTimer.h"
#include "toolkit/Twips.h"

#include <QContextMenuEvent>
#include <QDialog>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace
{

struct ShellSpy : Shell {
    int syncs = 0;
    int popups = 0;
    void MenuSync() override { ++syncs; }
    void showWindow(int, int) override {}
    bool bringForward(int, const std::string&) override { return false; }
    void openPath(const std::string&, int, bool) override {}
    void popupEditMenu() override { ++popups; }
    void enableMenuItem(const char*, bool) override {}
    void cut() override {}
    bool closeEditorOf(int, int) override { return true; }
};

struct Child final : ChildWindow {
    explicit Child(int kind = WindowKind::ArrFile) : ChildWindow("frmArrU", &AppState::ArrUCount)
    {
        Tag = WindowBuffer::fresh(kind, 1);
        auto* content = new QWidget;
        auto* layout = new QVBoxLayout(content);
        field = new QLineEdit;
        layout->addWidget(field);
        setContent(content);
    }
    bool queryUnload() override
    {
        ++asked;
        return agrees;
    }
    void unload() override { ++unloads; }
    QLineEdit* field;
    int asked = 0;
    int unloads = 0;
    bool agrees = true;
};

struct Children : testing::Test {
    ShellSpy shell;
    QMdiArea area;

    void SetUp() override
    {
        App = {};
        OpenWindows::clear();
        App.shell = &shell;
        area.resize(800, 600);
        area.show();
    }
    void TearDown() override
    {
        area.closeAllSubWindows();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        App = {};
    }
    Child* shown(int kind = WindowKind::ArrFile)
    {
        auto* child = new Child(kind);
        area.addSubWindow(child);
        child->show();
        return child;
    }
    static void collect() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

} // namespace

TEST_F(Children, areCountedWhileShownAndRegisteredWhileOpen)
{
    Child* child = shown();
    EXPECT_EQ(App.ArrUCount, 1);
    EXPECT_EQ(OpenWindows::find(WindowKind::ArrFile, 1), &child->Tag);
    child->hide();
    child->show();
    EXPECT_EQ(App.ArrUCount, 1);
    EXPECT_TRUE(child->unloadChild());
    EXPECT_EQ(App.ArrUCount, 0);
    EXPECT_EQ(OpenWindows::find(WindowKind::ArrFile, 1), nullptr);
}

TEST_F(Children, areAskedOnceAndStayWhenTheyRefuse)
{
    Child* child = shown();
    child->agrees = false;
    EXPECT_FALSE(child->unloadChild());
    EXPECT_EQ(child->asked, 1);
    EXPECT_EQ(child->unloads, 0);
    EXPECT_TRUE(child->isVisible());
    EXPECT_EQ(App.ArrUCount, 1);
    EXPECT_EQ(area.activeSubWindow(), child);
    child->agrees = true;
    EXPECT_TRUE(child->unloadChild());
    EXPECT_EQ(child->asked, 2);
    EXPECT_EQ(child->unloads, 1);
}

TEST_F(Children, closeWithoutAskingWhenTheyHaveAgreedBefore)
{
    Child* child = shown();
    child->agrees = false;
    child->unloadWithoutAsking();
    EXPECT_EQ(child->asked, 0);
    EXPECT_EQ(child->unloads, 1);
    EXPECT_EQ(App.ArrUCount, 0);
}

TEST_F(Children, stayWhileABoxStands)
{
    auto* child = new Child;
    const QPointer<Child> watched(child);
    area.addSubWindow(child);
    child->show();
    QDialog box;
    box.setModal(true);
    box.show();
    // Of a button worked by its letter the release comes a tenth of a second later.
    EXPECT_FALSE(child->close());
    EXPECT_EQ(child->asked, 0);
    EXPECT_EQ(child->unloads, 0);
    box.hide();
    EXPECT_TRUE(child->close());
    EXPECT_EQ(watched ? watched->asked : 1, 1);
}

TEST_F(Children, bringTheMenusUpToDateWhenTheyGoAndWhenTheyAreResized)
{
    Child* child = shown();
    shell.syncs = 0;
    child->resize(child->width() + 40, child->height());
    EXPECT_EQ(shell.syncs, 1);
    child->unloadChild();
    EXPECT_GE(shell.syncs, 2);
}

TEST_F(Children, keepTheirStoredTwipsUntilTheUserResizesThem)
{
    auto* child = new Child;
    child->placeInTwips(307, 602, 4813, 9047); // no whole pixels
    area.addSubWindow(child);
    child->show();
    EXPECT_EQ(child->positionInTwips().width, 4813);
    EXPECT_EQ(child->positionInTwips().height, 9047);
    EXPECT_EQ(child->positionInTwips().left, 307);
    EXPECT_EQ(child->positionInTwips().top, 602);
    EXPECT_EQ(child->size(), QSize(321, 603));
    child->resize(child->width() + 10, child->height());
    EXPECT_EQ(child->positionInTwips().width, 331 * 15);
    EXPECT_EQ(child->positionInTwips().height, 603 * 15);
    EXPECT_EQ(child->positionInTwips().left, 307);
    child->move(30, 40);
    EXPECT_EQ(child->positionInTwips().left, 450);
    EXPECT_EQ(child->positionInTwips().top, 600);
}

TEST_F(Children, areMovedIntoViewWhileTheStoredPlaceStays)
{
    auto* child = new Child;
    child->placeInTwips(-16000, 15000, 4810, 4200);
    area.addSubWindow(child);
    child->show();
    EXPECT_TRUE(area.viewport()->rect().intersects(child->geometry()));
    EXPECT_GE(child->y(), 0);
    EXPECT_EQ(child->positionInTwips().left, -16000);
    EXPECT_EQ(child->positionInTwips().top, 15000);
}

TEST_F(Children, withoutAStoredPlaceTheAreaFindsOneForEach)
{
    Child* first = new Child;
    first->resizeInTwips(4500, 4500);
    area.addSubWindow(first);
    first->show();
    Child* second = new Child;
    second->resizeInTwips(4500, 4500);
    area.addSubWindow(second);
    second->show();
    EXPECT_EQ(second->size(), QSize(300, 300));
    EXPECT_FALSE(first->geometry().intersects(second->geometry()));
    second->move(100, 200);
    EXPECT_EQ(second->positionInTwips().left, 1500);
    EXPECT_EQ(second->positionInTwips().width, 4500);
}

TEST_F(Children, aMaximisedWindowKeepsItsOwnRectangle)
{
    auto* child = new Child;
    child->placeInTwips(300, 300, 4810, 4200);
    area.addSubWindow(child);
    child->show();
    child->showMaximized();
    EXPECT_EQ(child->positionInTwips().width, 4810);
    EXPECT_EQ(child->positionInTwips().left, 300);
}

TEST_F(Children, aMaximisedWindowThatTheAreaHadPlacedKeepsThatPlace)
{
    auto* first = shown();
    first->move(0, 0);
    auto* child = new Child;
    child->resizeInTwips(4500, 4500);
    area.addSubWindow(child);
    child->show();
    const WindowPosition before = child->positionInTwips();
    EXPECT_GT(before.left + before.top, 0);
    child->showMaximized();
    EXPECT_EQ(child->positionInTwips().left, before.left);
    EXPECT_EQ(child->positionInTwips().top, before.top);
    EXPECT_EQ(child->positionInTwips().width, 4500);
}

TEST_F(Children, withALargestSizeAreCutToItAndKeepSizeAndStateInTheirRow)
{
    WindowPosition& row = App.WinPos[WindowKind::Keyboard];
    row = {300, 150, 20000, 3000, 0, 0};
    auto* child = new Child(WindowKind::Keyboard);
    child->openWithin(WindowKind::Keyboard, {6000, 4500});
    area.addSubWindow(child);
    child->show();
    QApplication::processEvents();
    EXPECT_EQ(child->size(), QSize(400, 200));
    EXPECT_EQ(row.Open, 1);
    child->resize(500, 350);
    EXPECT_EQ(child->size(), QSize(400, 300));
    EXPECT_EQ(row.Open, 0);
    child->resize(320, 290);
    EXPECT_EQ((std::pair{row.width, row.height}), (std::pair{4800, 4350}));
    child->showMinimized();
    EXPECT_EQ(row.Open, 1);
    child->showMaximized();
    QApplication::processEvents();
    EXPECT_GT(child->width(), 400);
    EXPECT_EQ(row.width, 4800);
    child->showNormal();
    EXPECT_EQ(child->size(), QSize(320, 290));
    EXPECT_EQ(row.Open, 0);
    child->resizeInTwips(6000, 4500);
    EXPECT_EQ((std::pair{row.width, row.height}), (std::pair{6000, 4500}));
}

TEST_F(Children, openWithinTheLargestSizeWhereTheRowHasNone)
{
    auto* child = new Child(WindowKind::Keyboard);
    child->openWithin(WindowKind::Keyboard, {6000, 4500});
    EXPECT_TRUE(child->hasSizeInTwips(6000, 4500));
    delete child;
}

TEST_F(Children, showTheProgramsIconInTheirTitleBars)
{
    const QIcon before = QApplication::windowIcon();
    QPixmap picture(32, 32);
    picture.fill(QColor(255, 0, 255));
    QApplication::setWindowIcon(QIcon(picture));
    Child* child = shown();
    const QImage image = child->grab().toImage();
    int pixels = 0;
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x)
            pixels += image.pixelColor(x, y) == QColor(255, 0, 255);
    EXPECT_GT(pixels, 100);
    QApplication::setWindowIcon(before);
}

TEST_F(Children, theDefaultSizeIsComparedInWholePixels)
{
    Child* child = shown();
    child->resizeInTwips(4810, 9040);
    EXPECT_TRUE(child->hasSizeInTwips(4810, 9040));
    EXPECT_TRUE(child->hasSizeInTwips(4812, 9038));
    EXPECT_FALSE(child->hasSizeInTwips(4840, 9040));
}

TEST_F(Children, aRightPressAnywhereInTheContentOpensTheEditMenu)
{
    Child* child = shown();
    QContextMenuEvent press(QContextMenuEvent::Mouse, QPoint(3, 3), child->field->mapToGlobal(QPoint(3, 3)));
    QApplication::sendEvent(child->field, &press);
    EXPECT_EQ(shell.popups, 1);
}

TEST_F(Children, noStageFiresAfterTheWindowHasGone)
{
    Child* child = shown();
    auto* timer = new StageTimer(child, "TimerLoadArr");
    int ticks = 0;
    timer->onTick([&] { ++ticks; });
    timer->enable();
    child->unloadChild();
    QTest::qWait(40);
    EXPECT_EQ(ticks, 0);
}

TEST_F(Children, aWindowThatDiesWithItsParentGivesItsCounterBack)
{
    auto* lonely = new Child;
    lonely->show();
    EXPECT_EQ(App.ArrUCount, 1);
    delete lonely;
    EXPECT_EQ(App.ArrUCount, 0);
    EXPECT_TRUE(OpenWindows::all().empty());
}

TEST_F(Children, leaveTheStandardShortcutsToTheMainMenus)
{
    Child* child = shown();
    for (const QAction* action : child->systemMenu()->actions()) {
        EXPECT_TRUE(action->shortcuts().isEmpty()) << action->text().toStdString();
        EXPECT_FALSE(action->objectName().isEmpty()) << action->text().toStdString();
    }
}

TEST(Twips, fifteenToAPixelAtNinetySixDotsAnInch)
{
    EXPECT_EQ(twipsPerPixelX(), 15);
    EXPECT_EQ(twipsToPixelsX(4810), 321);
    EXPECT_EQ(pixelsToTwipsY(100), 1500);
    EXPECT_EQ(twipsToPixelsX(-16000), -1067);
}

TEST(Twips, whatIsStoredIsClamped)
{
    EXPECT_EQ(clampedLength(40000), 32767);
    EXPECT_EQ(clampedLength(-1), 0);
    EXPECT_EQ(clampedPlace(-20000), -16000);
    EXPECT_EQ(clampedPlace(16001), 16000);
    EXPECT_EQ(clampedPlace(123), 123);
}

TEST(Twips, aPlaceInViewIsKeptAndOneOutsideIsBroughtBack)
{
    const QRect view(0, 0, 800, 600);
    EXPECT_EQ(movedIntoView(QRect(10, 20, 300, 200), view), QRect(10, 20, 300, 200));
    EXPECT_EQ(movedIntoView(QRect(5000, 20, 300, 200), view).topLeft(), QPoint(752, 20));
    EXPECT_EQ(movedIntoView(QRect(-5000, -70, 300, 200), view).topLeft(), QPoint(-252, 0));
}
