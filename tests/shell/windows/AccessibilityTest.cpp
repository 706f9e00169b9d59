// What a screen reader is told of every window and dialog, in both languages.
#include "EveryDialog.h"

#include "support/SpokenWalk.h"

namespace
{

using Face = QAccessibleInterface;

class SpokenWindows : public EveryDialog
{
protected:
    static Face* faceOf(ChildWindow* in, const char* name)
    {
        return QAccessible::queryAccessibleInterface(control<QWidget>(in, name));
    }

    SpokenWalk spoken;
};

} // namespace

TEST_P(SpokenWindows, everyControlOfEveryWindowHasItsRoleNameAndValue)
{
    openEverything();
    spoken.walk(window.get());
    EXPECT_GE(spoken.roles[QAccessible::Slider], 19 + 2 + 13 + 2 * 52);
    EXPECT_EQ(spoken.roles[QAccessible::StatusBar], 1);
}

TEST_P(SpokenWindows, theDialogsAndTheSmallWindowsAreSpokenToo)
{
    int radios = 0;
    int dialogs = 0;
    everyDialog([&](QWidget* top) {
        spoken.walk(top);
        ++dialogs;
        radios = spoken.roles[QAccessible::RadioButton];
    });
    EXPECT_EQ(dialogs, 14);
    EXPECT_EQ(radios, 2) << "of the languages";
}

TEST_P(SpokenWindows, theDrawnKeyboardIsSixtyOneButtonsThatSoundWhenPressed)
{
    openEverything();
    ChildWindow* keyboard = child("frmTastiera");
    window->area()->setActiveSubWindow(keyboard);
    Face* frame = faceOf(keyboard, "Frame1");
    EXPECT_EQ(frame->role(), QAccessible::Grouping);
    EXPECT_EQ(frame->childCount(), 61);
    std::set<QString> names;
    for (int key = 0; key < 61; ++key) {
        Face* one = faceOf(keyboard, ("Key(" + std::to_string(key) + ")").c_str());
        EXPECT_EQ(one->role(), QAccessible::PushButton);
        EXPECT_EQ(one->actionInterface()->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
        names.insert(one->text(QAccessible::Name));
    }
    EXPECT_EQ(names.size(), 61U);
    Face* middle = faceOf(keyboard, "Key(24)");
    EXPECT_EQ(middle->text(QAccessible::Name), QStringLiteral("C/Do (60)"));
    EXPECT_EQ(faceOf(keyboard, "Key(25)")->text(QAccessible::Name), QStringLiteral("C#/Do# (61)"));

    port.forget();
    EXPECT_FALSE(middle->state().pressed);
    middle->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(middle->state().pressed);
    EXPECT_EQ(sent(), (Lines{"90 3C 40"}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !middle->state().pressed; }, 3000));
    EXPECT_EQ(sent(), (Lines{"80 3C 40"}));

    control<QSlider>(keyboard, "HScroll1")->setValue(0);
    EXPECT_EQ(middle->text(QAccessible::Name), QStringLiteral("C/Do (36)"));
}

TEST_P(SpokenWindows, aFaderIsSpokenAsTheInstrumentShowsIt)
{
    openEverything();
    ChildWindow* editor = child("frmEditArr");
    Face* pan = faceOf(editor, "VScroll1(2)");
    ASSERT_NE(pan->valueInterface(), nullptr);
    pan->valueInterface()->setCurrentValue(17);
    EXPECT_EQ(pan->text(QAccessible::Value), QStringLiteral("CNT"));
    EXPECT_EQ(pan->text(QAccessible::Description), QStringLiteral("CNT"));
    pan->valueInterface()->setCurrentValue(33);
    EXPECT_EQ(pan->text(QAccessible::Value), QStringLiteral("PRG"));
    Face* split = faceOf(child("frmTastiera"), "VScroll1");
    split->valueInterface()->setCurrentValue(37);
    EXPECT_EQ(split->text(QAccessible::Value), QStringLiteral("C2#"));

    Face* mute = faceOf(editor, "CommM(0)");
    EXPECT_FALSE(mute->state().checked);
    control<QPushButton>(editor, "CommM(0)")->click();
    EXPECT_TRUE(mute->state().checked);
}

INSTANTIATE_TEST_SUITE_P(InBothLanguages, SpokenWindows, testing::Values(1, 2),
                         [](const auto& run) { return run.param == 1 ? "Italian" : "English"; });
