// The words of a block: labels of styles and programs, pan, split note, effects.
#include "arrangements/ArrTexts.h"
#include "ArrRoom.h"

#include "arrangements/ArrBlock.h"

TEST(StyleLabel, countsByEightFromElevenAndTakes64OffTheNumber)
{
    int number = 0;
    EXPECT_EQ(StyleLabel(number), "A11");
    EXPECT_EQ(number, 0);
    number = 63;
    EXPECT_EQ(StyleLabel(number), "A88");
    EXPECT_EQ(number, 63);
    number = 64;
    EXPECT_EQ(StyleLabel(number), "B11");
    EXPECT_EQ(number, 0);
    number = 127;
    EXPECT_EQ(StyleLabel(number), "B88");
    EXPECT_EQ(number, 63);
}

TEST(StyleLabel, besideTheNameSaysWhoseStyleItIs)
{
    EXPECT_EQ(styleLabelText(0, 0), "Style (A11)");
    EXPECT_EQ(styleLabelText(127, 0), "Style (B88)");
    EXPECT_EQ(styleLabelText(7, 1), "Style (U18)");
    EXPECT_EQ(styleLabelText(8, 1), "Style (U21)");
    EXPECT_EQ(styleLabelText(15, 1), "Style (U28)");
    EXPECT_EQ(styleLabelText(9, 7), "Style (A22)");
}

TEST(PanText, countsFromTheLeftToTheRight)
{
    EXPECT_EQ(panText(0), "L15");
    EXPECT_EQ(panText(14), "L1");
    EXPECT_EQ(panText(15), "CNT");
    EXPECT_EQ(panText(16), "R1");
    EXPECT_EQ(panText(30), "R15");
    EXPECT_EQ(panText(31), "PRG");
    EXPECT_EQ(panText(255), "OFF");
    EXPECT_EQ(panText(32), "CNT");
    EXPECT_EQ(panText(254), "CNT");
}

TEST(SplitNote, hasItsSharpBehindTheOctave)
{
    EXPECT_EQ(splitNoteText(36), "C2");
    EXPECT_EQ(splitNoteText(60), "C4");
    EXPECT_EQ(splitNoteText(61), "C4#");
    EXPECT_EQ(splitNoteText(63), "D4#");
    EXPECT_EQ(splitNoteText(64), "E4");
    EXPECT_EQ(splitNoteText(66), "F4#");
    EXPECT_EQ(splitNoteText(68), "G4#");
    EXPECT_EQ(splitNoteText(70), "A4#");
    EXPECT_EQ(splitNoteText(71), "B4");
    EXPECT_EQ(splitNoteText(96), "C7");
}

TEST(SplitNote, belowTheKeysChangesNothingShown) { EXPECT_EQ(splitNoteText(35), std::nullopt); }

TEST(EffectLabel, saysOffForNoEffectAndForWhatIsNone)
{
    EXPECT_EQ(effectLabel(1, 0), "Effect 1 (Off)");
    EXPECT_EQ(effectLabel(2, 0), "Effect 2 (Off)");
    EXPECT_EQ(effectLabel(1, 17), "Effect 1 (17)");
    EXPECT_EQ(effectLabel(2, 47), "Effect 2 (47)");
    EXPECT_EQ(effectLabel(2, 48), "Effect 2 (Off)");
}

class TrackProgram : public ArrRoom
{
protected:
    static ProgramText of(int program, int bank)
    {
        std::string buffer = Block().track(3, program, bank).bytes;
        buffer.resize(353, ' ');
        buffer.replace(180 + 16 * 3, 16, "My Strings      ");
        return trackProgram(buffer, 3);
    }
    static std::string sixteen(std::string text)
    {
        text.resize(16, ' ');
        return text;
    }
};

TEST_F(TrackProgram, takesTheHalfOfABankByItsNumber)
{
    struct Row {
        int program;
        int bank;
        const char* name;
        const char* label;
    };
    for (const Row& row :
         {Row{0, 0, "A-0", "A 11"}, Row{63, 0, "A-63", "A 88"}, Row{64, 0, "B-0", "B 11"}, Row{127, 0, "B-63", "B 88"},
          Row{9, 1, "C-9", "C 22"}, Row{73, 1, "D-9", "D 22"}, Row{8, 2, "E-8", "E 21"}}) {
        EXPECT_EQ(of(row.program, row.bank).name, sixteen(row.name));
        EXPECT_EQ(of(row.program, row.bank).label, row.label);
    }
}

TEST_F(TrackProgram, ofTheUserBankHasTheDerivedNameAndTheLetterF)
{
    EXPECT_EQ(of(16, 3).name, "My Strings      ");
    EXPECT_EQ(of(16, 3).label, "F 31");
}

TEST_F(TrackProgram, ofTheDrumBankIsAKit)
{
    Names.DrumKitNames.replace(10 * 16, 16, "Test Kit        ");
    EXPECT_EQ(of(10, 4).name, "Test Kit        ");
    EXPECT_EQ(of(10, 4).label, "Dr 23");
    EXPECT_EQ(of(20, 4).name, "") << "a kit behind the table";
    EXPECT_EQ(of(20, 4).label, "");
}

TEST_F(TrackProgram, ofAnyOtherBankHasNeitherNameNorLabel)
{
    EXPECT_EQ(of(5, 7).name, "");
    EXPECT_EQ(of(5, 7).label, "");
    EXPECT_EQ(of(200, 0).label, "");
}

TEST_F(TrackProgram, withABlankNameHasNoLabel)
{
    Names.PrgNames[0].replace(0, 16, std::string(16, ' '));
    EXPECT_EQ(of(0, 0).label, "");
}
