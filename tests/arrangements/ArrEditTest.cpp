// Taking an arrangement under edit, and writing it back.
#include "ArrRoom.h"

#include "arrangements/ArrRows.h"

class ArrEdit : public ArrRoom
{
protected:
    static std::string derived(std::size_t offset, std::size_t width) { return Arr.ArrEditBuf.substr(offset, width); }
    static std::string sixteen(std::string text)
    {
        text.resize(16, ' ');
        return text;
    }
    static std::string nameOfTrack(std::size_t k) { return derived(180 + 16 * k, 16); }

    static int load(const std::string& image, int row)
    {
        int index = row;
        ArrEditLoad(image, index);
        return index;
    }
};

TEST_F(ArrEdit, copiesTheBlockAndWhereItCameFrom)
{
    Block block;
    for (std::size_t i = 0; i < 164; ++i)
        block.set(i, static_cast<int>((i * 7 + 3) % 256));
    block.set(18, 0);
    std::string image = arrImage("/music/my.song", arrFile({{63, block}}));
    image[14] = 5;
    load(image, 63);
    EXPECT_EQ(Arr.ArrEditBuf.size(), 353u);
    EXPECT_EQ(derived(0, 164), block.bytes);
    EXPECT_EQ(hex(derived(324, 3)), "13 3F 05");
    EXPECT_EQ(derived(329, 24), "my.song                 ");
}

TEST_F(ArrEdit, givesTheLastTracksProgramBackInTheIndex)
{
    EXPECT_EQ(load(arrImage("/a", arrFile({{2, Block().name("X").track(8, 77, 0)}})), 2), 77);
}

TEST_F(ArrEdit, namesAFactoryStyle)
{
    load(arrImage("/a", arrFile({{0, Block().name("X").style(5, 0)}})), 0);
    EXPECT_EQ(derived(164, 16), "Testa Rock      ");
    load(arrImage("/a", arrFile({{0, Block().name("X").style(200, 0)}})), 0);
    EXPECT_EQ(derived(164, 16), std::string(16, ' '));
}

TEST_F(ArrEdit, namesAUserStyleFromTheFileAtHand)
{
    const std::string styles = styFile({{"First", 40}, {"Second", 60}, {"Third", 30}, {"- empty -", 20}});
    load(arrImage("/a", arrFile({{1, Block().name("X").style(2, 1)}}), {}, styles), 1);
    EXPECT_EQ(derived(164, 16), sixteen("Third"));
}

TEST_F(ArrEdit, namesAUserStyleThatIsNotAtHandByItsNumber)
{
    load(arrImage("/a", arrFile({{1, Block().name("X").style(3, 1)}})), 1);
    EXPECT_EQ(derived(164, 16), sixteen("UserStyle3"));
}

TEST_F(ArrEdit, leavesTheStyleOfAnotherBankNameless)
{
    load(arrImage("/a", arrFile({{1, Block().name("X").style(5, 2)}})), 1);
    EXPECT_EQ(derived(164, 16), std::string(16, ' '));
}

TEST_F(ArrEdit, namesTheUserProgramsOfTheFileAtHand)
{
    const std::string programs = prgFile("KORG", {{4, 2, "Warm Pad"}, {5, 3, "   "}});
    const Block block = Block().name("X").style(0, 0).track(1, 4, 3).track(2, 5, 3);
    load(arrImage("/a", arrFile({{0, block}}), programs), 0);
    EXPECT_EQ(nameOfTrack(1), sixteen("Warm Pad"));
    EXPECT_EQ(nameOfTrack(2), sixteen("UserPrg5"));
}

TEST_F(ArrEdit, keepsTheNameBeforeForAFreeRecordAndAReference)
{
    const std::string programs = prgFile("KORG", {{4, 2, "Warm Pad"}, {6, 1, "Reference"}, {7, 0, "Free"}});
    const Block block = Block().name("X").style(5, 0).track(0, 6, 3).track(1, 4, 3).track(2, 7, 3).track(3, 9, 0);
    load(arrImage("/a", arrFile({{0, block}}), programs), 0);
    EXPECT_EQ(nameOfTrack(0), "Testa Rock      ") << "the style's name stood before";
    EXPECT_EQ(nameOfTrack(1), sixteen("Warm Pad"));
    EXPECT_EQ(nameOfTrack(2), sixteen("Warm Pad"));
    EXPECT_EQ(nameOfTrack(3), sixteen("Warm Pad")) << "a factory track holds what was found last";
    EXPECT_EQ(nameOfTrack(8), sixteen("Warm Pad"));
}

TEST_F(ArrEdit, namesUserProgramsByNumberWithoutAProgramFile)
{
    load(arrImage("/a", arrFile({{0, Block().name("X").track(4, 63, 3)}})), 0);
    EXPECT_EQ(nameOfTrack(4), sixteen("UserPrg63"));
}

TEST_F(ArrEdit, readsAnImageThatIsTooShortAsBlanks)
{
    load(std::string("\x13", 1), 40);
    EXPECT_EQ(derived(0, 164), std::string(164, ' '));
}

class ArrStore : public ArrEdit
{
protected:
    ArrStore()
        : window(arrImage("/music/song", arrFile({{2, Block().name("Before").set(100, 9)}, {3, Block().name("Next")}})))
    {
        OpenWindows::add(&window);
        load(window.bytes(), 2);
        Arr.ArrEditOpen = Arr.ArrEditDirty = true;
        Arr.ArrEditBuf[100] = 77;
    }
    WindowBuffer window;
};

TEST_F(ArrStore, writesTheBlockIntoItsRowAndMarksTheImage)
{
    const std::string before = window.bytes();
    EXPECT_EQ(ArrEditStore(), 0);
    std::string expected = before;
    expected[302 + 164 * 2 + 100] = 77;
    expected[3] = 1;
    expected[2] = 2;
    EXPECT_TRUE(window.bytes() == expected);
    EXPECT_FALSE(Arr.ArrEditDirty);
}

TEST_F(ArrStore, refusesAReadOnlyFileAndKeepsTheEdit)
{
    window.set(1, 1);
    const std::string before = window.bytes();
    run.speak(2);
    EXPECT_EQ(ArrEditStore(), 1);
    EXPECT_TRUE(window.bytes() == before);
    EXPECT_TRUE(Arr.ArrEditDirty);
    ASSERT_EQ(user().warnings.size(), 1u);
    EXPECT_EQ(user().warnings[0].title, "song.arr");
    EXPECT_EQ(user().warnings[0].text, "Read only file");
}

TEST_F(ArrStore, writesTheBankWindowThatItCameFromEvenWhenItsFileIsReadOnly)
{
    for (const int kind : {2, 3}) {
        WindowBuffer bankA(arrImage("Arr A", arrFile({})));
        WindowBuffer bankB(arrImage("Arr B", arrFile({})));
        for (WindowBuffer* bank : {&bankA, &bankB}) {
            bank->set(0, bank == &bankA ? 2 : 3);
            bank->set(1, 1);
            OpenWindows::add(bank);
        }
        WindowBuffer& own = kind == 2 ? bankA : bankB;
        const std::string others = (kind == 2 ? bankB : bankA).bytes();
        load(own.bytes(), 63);
        Arr.ArrEditBuf[163] = 99;
        Arr.ArrEditDirty = true;
        std::string expected = own.bytes();
        expected[302 + 164 * 63 + 163] = 99;
        expected[3] = 1;
        expected[2] = 2;
        EXPECT_EQ(ArrEditStore(), 0);
        EXPECT_TRUE(own.bytes() == expected) << kind;
        EXPECT_TRUE((kind == 2 ? bankB : bankA).bytes() == others) << kind;
        EXPECT_FALSE(Arr.ArrEditDirty);
        EXPECT_TRUE(user().warnings.empty());
        OpenWindows::remove(&bankA);
        OpenWindows::remove(&bankB);
    }
    EXPECT_EQ(window.at(3), 0);
}

TEST_F(ArrStore, writesNoImageOfAnotherKind)
{
    Arr.ArrEditBuf[324] = 23;
    EXPECT_EQ(ArrEditStore(), 0);
    EXPECT_EQ(window.at(3), 0);
    EXPECT_FALSE(Arr.ArrEditDirty);
}

TEST_F(ArrStore, tellsThatItsWindowIsGoneAndKeepsTheEdit)
{
    run.speak(2);
    Arr.ArrNameChanged = true;
    const std::string edit = Arr.ArrEditBuf;
    OpenWindows::remove(&window);
    EXPECT_EQ(ArrEditStore(), 1);
    EXPECT_TRUE(Arr.ArrEditDirty);
    EXPECT_TRUE(Arr.ArrNameChanged);
    EXPECT_TRUE(Arr.ArrEditBuf == edit);
    ASSERT_EQ(user().warnings.size(), 1u);
    EXPECT_EQ(user().warnings[0].title, "song.arr");
    EXPECT_EQ(user().warnings[0].text, "File Arrangement not found");

    run.speak(1);
    Arr.ArrEditBuf[324] = 2;
    Arr.ArrEditBuf.replace(329, 24, "Arr A                   ");
    EXPECT_EQ(ArrEditStore(), 1);
    ASSERT_EQ(user().warnings.size(), 2u);
    EXPECT_EQ(user().warnings[1].title, "Arr A");
    EXPECT_EQ(user().warnings[1].text, "File Arrangement assente");
}

struct RenamedRow : ArrRowOwner {
    explicit RenamedRow(const WindowBuffer& window) : image(window) { Arr.rowOwners.push_back(this); }
    const WindowBuffer& arrImage() const override { return image; }
    void arrRowRenamed(int row) override { rows.push_back(row); }
    const WindowBuffer& image;
    std::vector<int> rows;
};

TEST_F(ArrStore, tellsItsWindowOfANewNameOnlyWhenTheNameWasTyped)
{
    WindowBuffer other(arrImage("/music/other", arrFile({})));
    RenamedRow owner(window);
    RenamedRow stranger(other);
    EXPECT_EQ(ArrEditStore(), 0);
    EXPECT_TRUE(owner.rows.empty());
    Arr.ArrNameChanged = true;
    EXPECT_EQ(ArrEditStore(), 0);
    EXPECT_EQ(owner.rows, std::vector{2});
    EXPECT_TRUE(stranger.rows.empty());
    EXPECT_FALSE(Arr.ArrNameChanged);
}

TEST_F(ArrStore, tellsABankWindowOfANewName)
{
    WindowBuffer bank(arrImage("Arr B", arrFile({})));
    bank.set(0, 3);
    OpenWindows::add(&bank);
    RenamedRow user(window);
    RenamedRow owner(bank);
    load(bank.bytes(), 40);
    Arr.ArrNameChanged = true;
    EXPECT_EQ(ArrEditStore(), 0);
    EXPECT_EQ(owner.rows, std::vector{40});
    EXPECT_TRUE(user.rows.empty());
    EXPECT_FALSE(Arr.ArrNameChanged);
}

TEST_F(ArrStore, isAskedForOnlyWithChangesInAnOpenEditor)
{
    run.speak(2);
    user().answers = {Answer::No};
    EXPECT_TRUE(askToStoreEdit("File Arr - song.arr (1)"));
    ASSERT_EQ(user().questions.size(), 1u);
    EXPECT_EQ(user().questions[0].title, "File Arr - song.arr (1)");
    EXPECT_EQ(user().questions[0].text, "The Arrangement has changed.\nSave changes ?");
    EXPECT_TRUE(Arr.ArrEditDirty);
    EXPECT_EQ(window.at(3), 0);

    user().answers = {Answer::Yes};
    EXPECT_TRUE(askToStoreEdit("t"));
    EXPECT_FALSE(Arr.ArrEditDirty);
    EXPECT_EQ(window.at(3), 1);

    EXPECT_TRUE(askToStoreEdit("t"));
    Arr.ArrEditDirty = true;
    Arr.ArrEditOpen = false;
    EXPECT_TRUE(askToStoreEdit("t"));
    EXPECT_EQ(user().questions.size(), 2u);
}

TEST_F(ArrStore, anAnswerOfYesThatCouldNotBeStoredIsTold)
{
    window.set(1, 1);
    user().answers = {Answer::Yes};
    EXPECT_FALSE(askToStoreEdit("t"));
    EXPECT_TRUE(Arr.ArrEditDirty);
    EXPECT_EQ(user().warnings.size(), 1u);
    user().answers = {Answer::No};
    EXPECT_TRUE(askToStoreEdit("t")) << "given up by the user";
}

TEST_F(ArrStore, knowsWhoseArrangementTheEditorHolds)
{
    EXPECT_TRUE(editHoldsImage(window.bytes()));
    EXPECT_TRUE(editHoldsRow(window.bytes(), 2));
    EXPECT_FALSE(editHoldsRow(window.bytes(), 3));
    WindowBuffer other = window;
    other.set(14, 2);
    EXPECT_FALSE(editHoldsImage(other.bytes()));
    Arr.ArrEditOpen = false;
    EXPECT_FALSE(editHoldsImage(window.bytes()));
}
