// The windows on the factory banks of styles.
#include "StyleWindows.h"

namespace
{

class StyleBanks : public StyleWindows
{
protected:
    StyleBanks()
    {
        Names.StyNames[0] = "Alpha Beat      ";
        Names.StyNames[63] = "Sixteen Letters!";
        Names.StyNames[64] = "Bossa           ";
        Names.StyNames[127] = "Omega           ";
    }
    ~StyleBanks() override { NameTablesBuild(); }
};

} // namespace

TEST_F(StyleBanks, listTheirNamesUnderThePanelsNumbers)
{
    const frmStyAB* a = show(new frmStyAB(17));
    const frmStyAB* b = show(new frmStyAB(18));
    EXPECT_EQ(a->windowTitle(), "Style A");
    EXPECT_EQ(b->windowTitle(), "Style B");
    ASSERT_EQ(list(a)->count(), 64);
    ASSERT_EQ(list(b)->count(), 64);
    EXPECT_EQ(list(a)->rowText(0), "11  Alpha Beat      ");
    EXPECT_EQ(list(a)->rowText(8).substr(0, 4), "21  ");
    EXPECT_EQ(list(a)->rowText(63), "88  Sixteen Letters!");
    EXPECT_EQ(list(b)->rowText(0), "11  Bossa           ");
    EXPECT_EQ(list(b)->rowText(63), "88  Omega           ");
    EXPECT_EQ(App.OtherCount, 2);
    EXPECT_EQ(list(a)->accessibleName(), "Style A");
}

TEST_F(StyleBanks, theirButtonsChangeTheModeAndClose)
{
    run.speak(1);
    frmStyAB* window = show(new frmStyAB(17));
    EXPECT_EQ(control<QPushButton>(window, "CommClose")->text(), "&Chiudi");
    press(window, "CommSongPlay");
    press(window, "CommArrPlay");
    EXPECT_EQ(diary, (Lines{"F0 42 32 4D 4E 06 F7", "F0 42 32 4D 4E 0A F7"}));
    press(window, "CommClose");
    EXPECT_EQ(App.OtherCount, 0);
    EXPECT_TRUE(OpenWindows::all().empty());
}

TEST_F(StyleBanks, aClickGivesTheStyleToTheHighlightedFieldAndSendsNothing)
{
    StyleField field;
    setFieldTarget(&field);
    const frmStyAB* a = show(new frmStyAB(17));
    const frmStyAB* b = show(new frmStyAB(18));
    clickRow(a, 0);
    QTest::keyClick(list(a), Qt::Key_End);
    clickRow(b, 0);
    clickRow(b, 63);
    EXPECT_EQ(field.taken, (Lines{"0/0 Alpha Beat Style (A11)", "63/0 Sixteen Letters! Style (A88)",
                                  "64/0 Bossa Style (B11)", "127/0 Omega Style (B88)"}));
    field.taken.clear();
    field.highlighted = false;
    clickRow(a, 3);
    EXPECT_TRUE(field.taken.empty());
    EXPECT_TRUE(diary.empty());
}

TEST_F(StyleBanks, withTheEditorClosedAClickChangesNothing)
{
    const frmStyAB* window = show(new frmStyAB(18));
    const int syncs = shell.syncs;
    clickRow(window, 5);
    EXPECT_EQ(shell.syncs, syncs + 1);
    EXPECT_TRUE(diary.empty());
    EXPECT_EQ(fieldTarget(), nullptr);
}

TEST_F(StyleBanks, theRightButtonOpensTheEditMenuOnTheListAndTheForm)
{
    const frmStyAB* window = show(new frmStyAB(17));
    rightPress(list(window)->viewport());
    EXPECT_EQ(shell.popups, 1);
    rightPress(list(window)->parentWidget());
    EXPECT_EQ(shell.popups, 2);
    EXPECT_TRUE(diary.empty());
}

TEST_F(StyleBanks, keepTheirPlaceInTheirOwnRowAndDoNotComeBack)
{
    frmStyAB* window = show(new frmStyAB(18));
    EXPECT_TRUE(window->hasSizeInTwips(4810, 7780));
    EXPECT_EQ(App.WinPos[18].Open, 1);
    window->placeInTwips(600, 750, 5250, 6000);
    window->close();
    EXPECT_EQ(App.WinPos[18].left, 600);
    EXPECT_EQ(App.WinPos[18].top, 750);
    EXPECT_EQ(App.WinPos[18].width, 5250);
    EXPECT_EQ(App.WinPos[18].height, 6000);
    EXPECT_EQ(App.WinPos[18].Open, 0);
    EXPECT_EQ(App.WinPos[17].left, 0);
    EXPECT_TRUE(show(new frmStyAB(18))->hasSizeInTwips(5250, 6000));
}
