// The editor on blocks that no instrument wrote: it shows what can be shown and leaves every byte as it is.
#include "EditorWindow.h"

class EditorOnAnything : public EditorWindow
{
protected:
    /// Loads a block as the arrangement window does, in an open editor.
    void show(const std::string& block)
    {
        int row = 0;
        ArrEditLoad(image.replace(302, 164, block), row);
        editor->ArrEditFill();
    }
    /// The only messages of a fill are those of the three check marks that are sent: 79, 89 and 1.
    void expectOnlyCheckMarks()
    {
        for (const std::string& message : sent()) {
            const std::string number = message.substr(15, 2);
            EXPECT_TRUE(number == "4F" || number == "59" || number == "01") << message;
        }
    }

    std::string image = arrImage("/music/song", arrFile({}));
};

TEST_F(EditorOnAnything, keepsEachValueOfEachByte)
{
    editBlock(std::string(164, '\0'));
    for (int turn = 0; turn < 256; ++turn) {
        std::string block(164, '\0');
        for (std::size_t offset = 0; offset < block.size(); ++offset)
            block[offset] = static_cast<char>(static_cast<std::size_t>(turn) + offset * 37);
        show(block);
        ASSERT_EQ(hex(Arr.ArrEditBuf.substr(0, 164)), hex(block)) << turn;
        ASSERT_FALSE(Arr.ArrEditDirty);
    }
    expectOnlyCheckMarks();
}

TEST_F(EditorOnAnything, keepsTenThousandRandomBlocks)
{
    constexpr int Blocks = 10000;
    constexpr int ReopenedEach = 500;
    std::mt19937 random(10000);
    editBlock(std::string(164, '\0'));
    for (int turn = 0; turn < Blocks; ++turn) {
        const std::string block = randomBytes(random, 164);
        if (turn % ReopenedEach == 0) {
            ASSERT_TRUE(closeEditor());
            ASSERT_TRUE(diaryUser.questions.empty());
            editBlock(block);
        } else {
            show(block);
        }
        ASSERT_EQ(hex(Arr.ArrEditBuf.substr(0, 164)), hex(block)) << turn;
        ASSERT_FALSE(Arr.ArrEditDirty);
    }
    expectOnlyCheckMarks();
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
