// Stage timers: one tick a start, the stage readable while idle, and the hold.
#include "toolkit/StageTimer.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace
{

struct StageTimers : testing::Test {
    void SetUp() override { StageTimer::setTimeScale(0.2); }
    void TearDown() override { StageTimer::setTimeScale(1.0); }
};

} // namespace

using StageTimerRule = StageTimers;
using EventHoldRule = StageTimers;

TEST_F(StageTimerRule, isBuiltDisabledAtRestWithItsName)
{
    QObject owner;
    const StageTimer timer(&owner, "TimerTxSty(1)");
    EXPECT_EQ(timer.objectName(), "TimerTxSty(1)");
    EXPECT_EQ(timer.Interval(), 10);
    EXPECT_FALSE(timer.enabled());
    QTest::qWait(30);
    EXPECT_FALSE(timer.enabled());
}

TEST_F(StageTimerRule, ticksOnceAndIsDisabledWhileTheHandlerRuns)
{
    QObject owner;
    StageTimer timer(&owner, "Timer5");
    int ticks = 0;
    bool enabledInTick = true;
    timer.onTick([&] {
        ++ticks;
        enabledInTick = timer.enabled();
    });
    timer.enable();
    EXPECT_TRUE(timer.enabled());
    EXPECT_EQ(ticks, 0) << "the tick is a fresh event";
    QTest::qWait(60);
    EXPECT_EQ(ticks, 1);
    EXPECT_FALSE(enabledInTick);
}

TEST_F(StageTimerRule, keepsTheStageAcrossItsTick)
{
    QObject owner;
    StageTimer timer(&owner, "TimerList1");
    timer.setStage(12);
    int seen = 0;
    timer.onTick([&] { seen = timer.Interval(); });
    timer.enable();
    QTest::qWait(40);
    EXPECT_EQ(seen, 12);
    EXPECT_EQ(timer.Interval(), 12);
}

TEST_F(StageTimerRule, canBeStartedAgainFromItsOwnTick)
{
    QObject owner;
    StageTimer timer(&owner, "TimerLoadArr");
    int ticks = 0;
    timer.onTick([&] {
        if (++ticks < 3)
            timer.enable();
    });
    timer.enable();
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 3; }, 500));
    QTest::qWait(30);
    EXPECT_EQ(ticks, 3);
}

TEST_F(StageTimerRule, disabledBeforeItsTimeNeverTicks)
{
    QObject owner;
    StageTimer timer(&owner, "TimerLoadAll");
    int ticks = 0;
    timer.onTick([&] { ++ticks; });
    timer.enable();
    timer.disable();
    QTest::qWait(40);
    EXPECT_EQ(ticks, 0);
}

TEST_F(EventHoldRule, letsNoTimerFireAndFiresThemAfterwardsInTheOrderOfTheirTimes)
{
    QObject owner;
    StageTimer late(&owner, "late");
    StageTimer soon(&owner, "soon");
    StageTimer middle(&owner, "middle");
    QStringList order;
    for (StageTimer* timer : {&late, &soon, &middle})
        timer->onTick([&order, timer] { order << timer->objectName(); });
    late.setStage(150);
    middle.setStage(80);
    {
        const EventHold hold;
        late.enable();
        soon.enable();
        middle.enable();
        QTest::qWait(120);
        EXPECT_TRUE(order.isEmpty());
        EXPECT_TRUE(soon.enabled()) << "fallen due, not yet fired";
    }
    EXPECT_TRUE(order.isEmpty()) << "not from within the end of the hold";
    QTest::qWait(60);
    EXPECT_EQ(order, (QStringList{"soon", "middle", "late"}));
}

TEST_F(EventHoldRule, aTimerDisabledDuringTheHoldIsForgotten)
{
    QObject owner;
    StageTimer timer(&owner, "Timer5");
    int ticks = 0;
    timer.onTick([&] { ++ticks; });
    {
        const EventHold hold;
        timer.enable();
        QTest::qWait(30);
        timer.disable();
    }
    QTest::qWait(30);
    EXPECT_EQ(ticks, 0);
}

TEST_F(EventHoldRule, aTimerDeletedDuringTheHoldIsForgotten)
{
    QObject owner;
    auto* gone = new StageTimer(&owner, "gone");
    StageTimer stays(&owner, "stays");
    int ticks = 0;
    gone->onTick([&] { ticks += 100; });
    stays.onTick([&] { ++ticks; });
    {
        const EventHold hold;
        gone->enable();
        stays.enable();
        QTest::qWait(30);
        delete gone;
    }
    QTest::qWait(30);
    EXPECT_EQ(ticks, 1);
}

TEST_F(EventHoldRule, aHoldBegunByTheFirstTickStopsTheSecond)
{
    QObject owner;
    StageTimer first(&owner, "first");
    StageTimer second(&owner, "second");
    bool secondInside = false;
    bool secondTicked = false;
    bool inside = false;
    first.onTick([&] {
        const EventHold hold;
        inside = true;
        QTest::qWait(40);
        inside = false;
    });
    second.onTick([&] {
        secondTicked = true;
        secondInside = inside;
    });
    {
        const EventHold hold;
        first.enable();
        second.enable();
        QTest::qWait(30);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return secondTicked; }, 1000));
    EXPECT_FALSE(secondInside);
}

TEST_F(EventHoldRule, discardsTheUsersInputOnlyWhereItIsAskedTo)
{
    QLineEdit field;
    field.show();
    {
        const EventHold hold(EventHold::Input::Discarded);
        QTest::keyClicks(&field, "lost");
    }
    {
        const EventHold hold;
        QTest::keyClicks(&field, "kept");
    }
    EXPECT_EQ(field.text(), "kept");
}
