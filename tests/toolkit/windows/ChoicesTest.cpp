// One call for one act at a combo, and the wheel that passes over.
#include "toolkit/Choices.h"

#include <QComboBox>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace
{

struct Combo : testing::Test {
    QComboBox combo;
    QList<int> told;

    void SetUp() override
    {
        combo.addItems({"one", "two", "three"});
        onComboClick(&combo, [this](int index) { told << index; });
        combo.show();
        combo.setFocus();
    }
    void wheel()
    {
        const QPointF place(5, 5);
        QWheelEvent event(place, combo.mapToGlobal(place), {}, QPoint(0, -120), {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&combo, &event);
    }
};

} // namespace

TEST_F(Combo, theUsersChoiceOfAnotherRowIsToldOnce)
{
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(told, (QList<int>{1}));
}

TEST_F(Combo, theReChoiceOfTheRowShownIsToldOnce)
{
    combo.setCurrentIndex(2);
    QTest::qWait(1);
    told.clear();
    emit combo.activated(2);
    emit combo.activated(2);
    EXPECT_EQ(told, (QList<int>{2, 2}));
}

TEST_F(Combo, theProgramsOwnWriteIsToldToo)
{
    combo.setCurrentIndex(1);
    EXPECT_EQ(told, (QList<int>{1}));
}

TEST_F(Combo, theWheelChangesNothingWithoutTheFocus)
{
    QWidget other;
    other.setFocusPolicy(Qt::StrongFocus);
    combo.clearFocus();
    wheel();
    EXPECT_EQ(combo.currentIndex(), 0);
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Combo, theWheelChoosesWithTheFocus)
{
    combo.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&combo));
    combo.setFocus();
    ASSERT_TRUE(combo.hasFocus());
    wheel();
    EXPECT_EQ(combo.currentIndex(), 1);
}
