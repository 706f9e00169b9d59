// The editor on blocks that no instrument wrote: it shows what can be shown and leaves every byte as it is.
//
// An opening here is the user's: a click on the row, a press of Edit, a new editor that fills and stands on the screen,
// its close box. Nothing is painted, which makes most of an opening's time and has no part in what is proved.
#include "EditorWindow.h"

#ifndef __has_feature
#define __has_feature(name) 0
#endif

class EditorOnAnything : public EditorWindow
{
protected:
    /// Openings of one test. The sanitizers make each ten times as long: there a sample is taken.
    static constexpr int Openings = __has_feature(address_sanitizer) ? 60 : 2500;

    EditorOnAnything()
    {
        source = open(1, "song", arrFile({{0, Block().name("Anything")}}));
        area->setUpdatesEnabled(false);
    }

    /// Opens the editor on the block and closes it again: the file's image is as it was, and nobody was asked.
    void openAndClose(const std::string& block)
    {
        source->Tag.bytes().replace(302, 164, block);
        const std::string image = source->Tag.bytes();
        clickRow(source, 0);
        forget();
        press(source, "CommEdit");
        ASSERT_NE(editor, nullptr);
        ASSERT_TRUE(editor->isVisible());
        ASSERT_TRUE(Arr.ArrEditOpen);
        expectUntouched(block);
        ASSERT_TRUE(closeEditor());
        ASSERT_TRUE(source->Tag.bytes() == image);
        ASSERT_TRUE(diaryUser.questions.empty());
        ASSERT_FALSE(Arr.ArrEditOpen);
    }
    void openOnRandomBlocks(unsigned seed)
    {
        std::mt19937 random(seed);
        for (int turn = 0; turn < Openings && !HasFatalFailure(); ++turn) {
            SCOPED_TRACE(turn);
            openAndClose(randomBytes(random, 164));
        }
    }
    /// The only messages of a fill are those of the three check marks that are sent: 79, 89 and 1.
    void expectUntouched(const std::string& block)
    {
        ASSERT_EQ(hex(EditorWindow::block()), hex(block));
        ASSERT_FALSE(Arr.ArrEditDirty);
        for (const std::string& message : sent()) {
            const std::string number = message.substr(15, 2);
            ASSERT_TRUE(number == "4F" || number == "59" || number == "01") << message;
        }
    }
};

TEST_F(EditorOnAnything, opensOnEachValueOfEachByte)
{
    // 256 openings: byte n runs through all values, from a start of its own, so that neighbours differ.
    for (int turn = 0; turn < 256 && !HasFatalFailure(); ++turn) {
        SCOPED_TRACE(turn);
        std::string block(164, '\0');
        for (std::size_t offset = 0; offset < block.size(); ++offset)
            block[offset] = static_cast<char>(static_cast<std::size_t>(turn) + offset * 37);
        openAndClose(block);
    }
}

// Ten thousand openings, in four tests that can run side by side.
TEST_F(EditorOnAnything, opensOnTheFirstRandomBlocks) { openOnRandomBlocks(1); }
TEST_F(EditorOnAnything, opensOnTheSecondRandomBlocks) { openOnRandomBlocks(2); }
TEST_F(EditorOnAnything, opensOnTheThirdRandomBlocks) { openOnRandomBlocks(3); }
TEST_F(EditorOnAnything, opensOnTheFourthRandomBlocks) { openOnRandomBlocks(4); }

TEST_F(EditorOnAnything, followsTheSelectionOverRandomBlocks)
{
    std::mt19937 random(5);
    editBlock(std::string(164, '\0'));
    std::string image = arrImage("/music/song", arrFile({}));
    for (int turn = 0; turn < Openings && !HasFatalFailure(); ++turn) {
        SCOPED_TRACE(turn);
        const std::string block = randomBytes(random, 164);
        int row = 0;
        ArrEditLoad(image.replace(302, 164, block), row);
        editor->ArrEditFill();
        expectUntouched(block);
    }
    EXPECT_TRUE(closeEditor());
    EXPECT_TRUE(diaryUser.questions.empty()) << "nothing was edited, nothing is asked";
}

TEST_F(EditorOnAnything, showsABufferOfTheWrongLength)
{
    editBlock(std::string(164, '\0'));
    Arr.ArrEditBuf = "short";
    editor->ArrEditFill();
    EXPECT_EQ(shown(0), "short");
    Arr.ArrEditBuf.clear();
    editor->ArrEditFill();
    EXPECT_EQ(shown(0), "");
    key(fader("VScroll1", 5), Qt::Key_Up);
    EXPECT_EQ(Arr.ArrEditBuf, "") << "what has no place is not written";
}
