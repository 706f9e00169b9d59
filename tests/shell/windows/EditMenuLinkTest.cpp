// Cut and paste where two windows hang together: a style window beside its arrangements, and the editor of a row.
#include "EditMenuDesk.h"

TEST_F(EditMenu, aCutWithTheLinkedStyleWindowOpenShowsItAgainWithTheNewStyles)
{
    start();
    songs.put("song.sty", styFile(Styles));
    songs.put("beats.sty", styFile(Styles));
    ChildWindow* first = open("first.sty", styFile(Styles), 2); // takes the first slot of the family
    song = open("song.arr", arrFile(Songs), 1);
    QPointer<ChildWindow> styles = showStyles();
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

TEST_F(EditMenu, theLinkedStyleWindowComesAgainWithoutAnyStyleToo)
{
    start();
    songs.put("song.sty", styFile({Styles[0], Empty, Empty, Empty}));
    song = open("song.arr", arrFile({{0, {"My Samba", 0, 1}}}), 1);
    QTest::mouseClick(song->findChild<QPushButton*>("CommShowSty"), Qt::LeftButton);
    settle();
    activate(song);
    click(song, 0);
    key(song, Qt::Key_X);
    EXPECT_FALSE(enabled(song, "CommLoadSty"));
    EXPECT_EQ(song->Tag.at(8), 1);
    ChildWindow* again = active();
    ASSERT_EQ(again->windowKind(), 23);
    EXPECT_TRUE(App.Styles[0].linked);
    for (const int row : {0, 1, 2, 3})
        EXPECT_TRUE(text(again, row).endsWith("- empty -")) << row;
    activate(song);
    click(song, 0);
    key(song, Qt::Key_V);
    EXPECT_EQ(text(active(), 0), "11  Samba");
    EXPECT_EQ(song->Tag.at(8), 2);
    EXPECT_TRUE(enabled(song, "CommLoadSty"));
}

TEST_F(EditMenu, aPasteOfARowWithAFactoryStyleLeavesTheLinkedStyleWindowAsItIs)
{
    openSongs();
    const QPointer<ChildWindow> styles = showStyles();
    activate(song);
    click(song, 0);
    key(song, Qt::Key_C);
    click(song, 9);
    key(song, Qt::Key_V);
    EXPECT_EQ(text(song, 9), "22  Ballad          ");
    EXPECT_FALSE(styles.isNull());
    EXPECT_EQ(active(), song);
}

TEST_F(EditMenu, aCutAndPasteInTheLinkedStyleWindowReachesTheArrangementWindow)
{
    openSongs();
    ChildWindow* styles = showStyles();
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
    ChildWindow* styles = showStyles();
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
