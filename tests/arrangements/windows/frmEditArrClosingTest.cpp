// The editor closes: what is asked, what is stored, what it leaves behind.
#include "EditorWindow.h"

TEST_F(Editor, closesWithoutAQuestionWhenNothingChanged)
{
    edit(usual());
    const std::string image = source->Tag.bytes();
    App.WinPos[13].Open = 0;
    editor->placeInTwips(1500, 600, 9000, 6000);
    ASSERT_TRUE(closeEditor());
    EXPECT_TRUE(diaryUser.questions.empty());
    EXPECT_FALSE(Arr.ArrEditOpen);
    EXPECT_EQ(Arr.editor, nullptr);
    EXPECT_EQ(fieldTarget(), nullptr);
    EXPECT_EQ(App.OtherCount, 0);
    EXPECT_EQ(source->Tag.bytes(), image);
    EXPECT_EQ(App.WinPos[13].left, 1500);
    EXPECT_EQ(App.WinPos[13].top, 600);
    EXPECT_EQ(App.WinPos[13].width, 9000);
    EXPECT_EQ(App.WinPos[13].height, 6000);
    EXPECT_EQ(App.WinPos[13].Open, 0);
}

TEST_F(Editor, comesBackWhereItWasAndIsMarkedOpen)
{
    App.WinPos[13] = {750, 900, 9900, 6600, 0, 0};
    edit(usual());
    EXPECT_EQ(editor->x(), 50);
    EXPECT_EQ(editor->y(), 60);
    EXPECT_EQ(editor->size(), QSize(660, 440));
    EXPECT_EQ(App.WinPos[13].Open, 1);
}

TEST_F(Editor, isAsLargeAsStatedWithoutAPlaceOfItsOwn)
{
    edit(usual());
    const WindowPosition place = editor->positionInTwips();
    EXPECT_EQ(place.width, 9228);
    EXPECT_EQ(place.height, 5916);
}

TEST_F(Editor, YesStoresTheBlockAndRenamesTheRow)
{
    edit(usual());
    focus(field(0));
    field(0)->selectAll();
    QTest::keyClicks(field(0), "Sunrise");
    slide(fader("VScroll1", 5), 70);
    const std::string edited = block();
    diaryUser.answers = {Answer::Yes};
    ASSERT_TRUE(closeEditor());
    ASSERT_EQ(diaryUser.questions.size(), 1u);
    EXPECT_EQ(diaryUser.questions[0].title, "Edit Arrangement  song.arr / Sunrise");
    EXPECT_EQ(diaryUser.questions[0].text, "The Arrangement has changed.\nSave changes ?");
    EXPECT_EQ(source->Tag.bytes().substr(302, 164), edited);
    EXPECT_EQ(source->Tag.at(3), 1);
    EXPECT_EQ(list(source)->rowText(0), "11  Sunrise         ");
    EXPECT_FALSE(Arr.ArrEditDirty);
    EXPECT_FALSE(Arr.ArrNameChanged);
}

TEST_F(Editor, NoGivesTheEditUp)
{
    edit(usual());
    const std::string image = source->Tag.bytes();
    slide(fader("VScroll1", 5), 70);
    diaryUser.answers = {Answer::No};
    ASSERT_TRUE(closeEditor());
    EXPECT_EQ(source->Tag.bytes(), image);
    EXPECT_FALSE(Arr.ArrEditDirty);
    EXPECT_FALSE(Arr.ArrEditOpen);
}

TEST_F(Editor, CancelKeepsTheWindowAndTheEdit)
{
    edit(usual());
    slide(fader("VScroll1", 5), 70);
    const std::string edited = block();
    diaryUser.answers = {Answer::Cancel};
    EXPECT_FALSE(closeEditor());
    EXPECT_TRUE(Arr.ArrCloseCancelled);
    EXPECT_TRUE(Arr.ArrEditOpen);
    EXPECT_TRUE(Arr.ArrEditDirty);
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(block(), edited);
    key(fader("VScroll1", 5), Qt::Key_Up);
    EXPECT_EQ(sent().back(), parameter("1F 47 00")) << "it goes on working";
    diaryUser.answers = {Answer::No};
    EXPECT_TRUE(closeEditor());
    EXPECT_FALSE(Arr.ArrCloseCancelled);
}

TEST_F(Editor, aRefusedStoreKeepsTheEditorOpen)
{
    edit(usual());
    source->Tag.set(1, 1);
    slide(fader("VScroll1", 5), 70);
    diaryUser.answers = {Answer::Yes};
    EXPECT_FALSE(closeEditor());
    ASSERT_EQ(diaryUser.warnings.size(), 1u);
    EXPECT_EQ(diaryUser.warnings[0].title, "song.arr");
    EXPECT_EQ(diaryUser.warnings[0].text, "Read only file");
    EXPECT_TRUE(Arr.ArrEditDirty);
    EXPECT_EQ(Arr.editor, editor);
    EXPECT_NE(source->Tag.bytes().substr(302, 164), block());
}

TEST_F(Editor, atExitAnAnswerHoldsForThatExitAlone)
{
    edit(usual());
    App.WinPos[13].Open = 1;
    slide(fader("VScroll1", 5), 70);
    App.AppClosing = true;
    App.ExitAttempt = 1;
    diaryUser.answers = {Answer::No, Answer::No};
    EXPECT_TRUE(editor->queryUnload());
    EXPECT_TRUE(editor->queryUnload()) << "the arrangement's own window asks the editor as well";
    EXPECT_EQ(diaryUser.questions.size(), 1u);
    EXPECT_TRUE(Arr.ArrEditDirty) << "another window may still keep the program from leaving";
    App.AppClosing = false;
    App.AppClosing = true;
    App.ExitAttempt = 2;
    EXPECT_TRUE(editor->queryUnload());
    EXPECT_EQ(diaryUser.questions.size(), 2u);
    editor->unloadWithoutAsking();
    EXPECT_EQ(App.WinPos[13].Open, 1) << "the exit leaves the mark";
    App.AppClosing = false;
    editor = nullptr;
}

TEST_F(Editor, aNewEditorStartsFresh)
{
    edit(usual());
    click(button("CommM", 3 - 3));
    click(button("EffComm", 0));
    click(field(6));
    ASSERT_TRUE(closeEditor());
    clickRow(source, 0);
    press(source, "CommEdit");
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(colours("CommM"), "---------");
    EXPECT_EQ(button("EffComm", 0)->text(), "On");
    EXPECT_FALSE(editor->PrgFieldSelected());
}

TEST_F(Editor, anotherRowLeavesTheSwitchesThatTheInstrumentHasAlone)
{
    edit(usual());
    click(button("CommM", 0));
    click(button("CommS", 2));
    click(button("EffComm", 1));
    forget();
    clickRow(source, 1);
    EXPECT_EQ(caption(), "Edit Arrangement  song.arr / Second    ");
    EXPECT_EQ(colours("CommM"), "RR-RRRRRR");
    EXPECT_EQ(colours("CommS"), "--G------");
    EXPECT_EQ(button("EffComm", 1)->text(), "Off");
}

TEST_F(Editor, goesBeforeItsArrangementWindow)
{
    edit(usual());
    editShell.onCloseEditor = [this] { return editor == nullptr || closeEditor(); };
    slide(fader("VScroll1", 5), 70);
    diaryUser.answers = {Answer::Cancel};
    EXPECT_FALSE(source->unloadChild());
    EXPECT_TRUE(editor->isVisible());
    EXPECT_TRUE(source->isVisible());
    diaryUser.answers = {Answer::Yes, Answer::No};
    EXPECT_TRUE(source->unloadChild());
    ASSERT_EQ(diaryUser.questions.size(), 3u);
    EXPECT_EQ(diaryUser.questions[2].text, "The file has changed\nSave changes ?") << "the stored edit is asked about";
    EXPECT_EQ(editor, nullptr);
    EXPECT_EQ(Arr.editor, nullptr);
}

TEST_F(Editor, leavesNothingBehindWhenItIsTakenAway)
{
    edit(usual());
    delete editor;
    editor = nullptr;
    EXPECT_EQ(Arr.editor, nullptr);
    EXPECT_EQ(fieldTarget(), nullptr);
    EXPECT_FALSE(Arr.ArrEditOpen);
}
