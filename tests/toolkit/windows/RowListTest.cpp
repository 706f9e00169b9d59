// The clicks of a list of rows, by real mouse and key events.
#include "toolkit/RowList.h"

#include <QTest>
#include <gtest/gtest.h>

namespace
{

struct Rows : testing::Test {
    RowList list{nullptr, "List1"};
    QStringList told;

    void SetUp() override
    {
        list.setRows({"11  Ballad", "12 +Bossa", "13"});
        list.onClick([this] { told << QString("click %1").arg(list.ListIndex()); });
        list.onDoubleClick([this] { told << QString("double %1").arg(list.ListIndex()); });
        list.onDelete([this] { told << QString("delete %1").arg(list.ListIndex()); });
        QApplication::setDoubleClickInterval(40);
        list.resize(200, 200);
        list.show();
        list.setFocus();
    }
    QPoint at(int row) { return list.visualItemRect(list.item(row)).center(); }
    void press(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(list.viewport(), button, keys, at(row));
        QTest::qWait(QApplication::doubleClickInterval() + 20);
    }
};

} // namespace

TEST_F(Rows, aLeftPressIsToldAfterTheSelectionHasChanged)
{
    press(1);
    EXPECT_EQ(told, (QStringList{"click 1"}));
    EXPECT_TRUE(list.item(1)->isSelected());
}

TEST_F(Rows, thePressItselfIsTheClickNotTheRelease)
{
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, at(2));
    EXPECT_EQ(told, (QStringList{"click 2"}));
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, at(2));
    EXPECT_EQ(told.size(), 1);
}

TEST_F(Rows, aPressOnTheCurrentRowIsAClickAgain)
{
    press(1);
    press(1);
    EXPECT_EQ(told, (QStringList{"click 1", "click 1"}));
}

TEST_F(Rows, aRightPressIsNoClickAndLeavesTheSelection)
{
    press(0);
    told.clear();
    press(2, Qt::RightButton);
    EXPECT_TRUE(told.isEmpty());
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_TRUE(list.item(0)->isSelected());
    EXPECT_FALSE(list.item(2)->isSelected());
}

TEST_F(Rows, aPressBelowTheLastRowIsNoClick)
{
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(20, 190));
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Rows, twoFastPressesAreClickClickDoubleClick)
{
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at(1));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at(1));
    EXPECT_GE(told.size(), 3);
    EXPECT_EQ(told.first(), "click 1");
    EXPECT_EQ(told.last(), "double 1");
    EXPECT_EQ(told.count("double 1"), 1);
}

TEST_F(Rows, aSecondFastPressOnAnotherRowIsAClickOnThatRow)
{
    press(0);
    told.clear();
    QMouseEvent second(QEvent::MouseButtonDblClick, at(1), list.viewport()->mapToGlobal(at(1)), Qt::LeftButton,
                       Qt::LeftButton, {});
    QApplication::sendEvent(list.viewport(), &second);
    EXPECT_EQ(told, (QStringList{"click 1"}));
}

TEST_F(Rows, arrowKeysClickAlsoAtTheEndOfTheList)
{
    list.select(1);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(told, (QStringList{"click 2", "click 2"}));
}

TEST_F(Rows, aLetterThatFindsNoRowIsNoClick)
{
    list.select(1);
    QTest::keyClick(&list, Qt::Key_X);
    QTest::keyClick(&list, Qt::Key_Shift);
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Rows, deleteIsToldAloneAndChangesNothing)
{
    list.select(1);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(told, (QStringList{"delete 1"}));
    EXPECT_EQ(list.count(), 3);
}

TEST_F(Rows, theProgramsOwnSelectionIsNoClick)
{
    list.select(2);
    EXPECT_TRUE(told.isEmpty());
    EXPECT_EQ(list.ListIndex(), 2);
}

TEST_F(Rows, withSeveralRowsSelectableEachPressIsAClickOnItsRow)
{
    list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    press(0);
    press(1, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(told, (QStringList{"click 0", "click 1"}));
    EXPECT_EQ(list.selectedItems().size(), 2);
}

TEST_F(Rows, aPressDrawnOnToAnotherRowChoosesThatRow)
{
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, at(0));
    QTest::mouseMove(list.viewport(), at(1));
    QMouseEvent move(QEvent::MouseMove, at(2), list.viewport()->mapToGlobal(at(2)), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(list.viewport(), &move);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, at(2));
    EXPECT_EQ(told, (QStringList{"click 0", "click 2"}));
}

TEST_F(Rows, rowTextsAreTheInstrumentsBytes)
{
    list.setRows({QString::fromLatin1("11  Tikytikit\xE0")});
    EXPECT_EQ(list.rowText(0), "11  Tikytikit\xE0");
    EXPECT_EQ(list.rowText(1), "");
}

TEST_F(Rows, aStepTakesTheFirstRowAndThenItsNeighbours)
{
    list.step(1);
    list.step(1);
    list.step(-1);
    EXPECT_EQ(told, (QStringList{"click 0", "click 1", "click 0"}));
    list.step(-1);
    EXPECT_EQ(told.size(), 3) << "there is none before";
    list.setEnabled(false);
    list.step(1);
    EXPECT_EQ(told.size(), 3);
}

TEST_F(Rows, downWithoutAChosenRowTakesTheFirst)
{
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(told, (QStringList{"click 0", "click 1"}));
}

TEST_F(Rows, controlWithTheArrowsGoesOverManyRowsAndWithTheBlankAddsOne)
{
    list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    press(0);
    told.clear();
    QTest::keyClick(&list, Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(&list, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(told, QStringList());
    EXPECT_TRUE(list.item(0)->isSelected());
    QTest::keyClick(&list, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(told, (QStringList{"click 2"}));
    EXPECT_EQ(list.selectedItems().size(), 2);
}
