// An edit that could not be stored is nowhere but in the editor: whatever asked for the store, the editor keeps it.
#include "EditorWindow.h"

class EditorRefused : public Editor
{
protected:
    /// An edit of row 0 of a file that must not change, and a Yes to come.
    void editReadOnly()
    {
        edit(usual());
        source->Tag.set(1, 1);
        slide(fader("VScroll1", 5), 70);
        image = source->Tag.bytes();
        edited = Arr.ArrEditBuf;
        diaryUser.answers = {Answer::Yes};
        forget();
    }
    void expectKept() const
    {
        EXPECT_TRUE(Arr.ArrEditBuf == edited);
        EXPECT_TRUE(Arr.ArrEditDirty);
        EXPECT_TRUE(Arr.ArrEditOpen);
        EXPECT_EQ(shown(0), "Evergreen");
        EXPECT_EQ(fader("VScroll1", 5)->value(), 70);
        EXPECT_TRUE(source->Tag.bytes() == image);
    }
    std::string image;
    std::string edited;
};

TEST_F(EditorRefused, aClickOnAnotherRowLeavesItInTheEditor)
{
    editReadOnly();
    clickRow(source, 1);
    ASSERT_EQ(diaryUser.questions.size(), 1u);
    EXPECT_EQ(diaryUser.questions[0].text, "The Arrangement has changed.\nSave changes ?");
    ASSERT_EQ(diaryUser.warnings.size(), 1u);
    EXPECT_EQ(diaryUser.warnings[0].title, "song.arr");
    EXPECT_EQ(diaryUser.warnings[0].text, "Read only file");
    expectKept();
    EXPECT_EQ(sent(), (std::vector<std::string>{"B2 00 00", "B2 20 01", "C2 01"}))
        << "the row is selected all the same, and none of its check marks went out";

    diaryUser.answers = {Answer::No};
    clickRow(source, 0);
    EXPECT_EQ(fader("VScroll1", 5)->value(), 64) << "given up by the user, the editor follows again";
    EXPECT_FALSE(Arr.ArrEditDirty);
}

TEST_F(EditorRefused, EditInAnotherWindowLeavesItInTheEditor)
{
    editReadOnly();
    frmArrU* other = open(2, "other", arrFile({{0, Block().name("Elsewhere").style(3, 0)}}));
    diaryUser.answers = {Answer::Yes, Answer::Yes};
    clickRow(other, 0);
    expectKept();
    control<QPushButton>(other, "CommEdit")->setEnabled(true);
    editShell.shown.clear();
    press(other, "CommEdit");
    EXPECT_EQ(diaryUser.warnings.size(), 2u);
    expectKept();
    EXPECT_EQ(caption(), "Edit Arrangement  song.arr / Evergreen ");
    EXPECT_EQ(editShell.shown, (std::vector<std::pair<int, int>>{{13, 0}})) << "the user sees what is held";
    EXPECT_TRUE(enabled(other, "CommEdit"));
    diaryUser.answers = {Answer::No};
    press(other, "CommEdit");
    EXPECT_EQ(shown(0), "Elsewhere");
}

TEST_F(EditorRefused, aLoadGoesOutAsTheFileIsAndAsksAgain)
{
    editReadOnly();
    diaryUser.answers = {Answer::Yes, Answer::Yes};
    press(source, "CommLoadArr");
    ASSERT_TRUE(settled(source));
    EXPECT_EQ(diaryUser.questions.size(), 2u) << "on both passes";
    EXPECT_EQ(diaryUser.warnings.size(), 2u);
    expectKept();
    const std::string dump = editPort.messages().back();
    EXPECT_EQ(unpackedBody(dump).substr(0, 164), image.substr(302, 164));
}

TEST_F(EditorRefused, aSourceThatIsGoneIsTold)
{
    editReadOnly();
    OpenWindows::remove(&source->Tag);
    EXPECT_FALSE(closeEditor());
    ASSERT_EQ(diaryUser.warnings.size(), 1u);
    EXPECT_EQ(diaryUser.warnings[0].title, "song.arr");
    EXPECT_EQ(diaryUser.warnings[0].text, "File Arrangement not found");
    expectKept();
    OpenWindows::add(&source->Tag);
}
