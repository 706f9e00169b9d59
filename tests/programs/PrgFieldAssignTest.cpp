// A clicked program handed to the editor: number, bank, name and label of every kind of list; nothing is sent.
#include "programs/ProgramFixture.h"

class PrgFieldAssign_ : public ProgramTest
{
protected:
    PrgFieldAssign_() { setFieldTarget(&editor); }

    void expectAssigned(int number, int bank, const std::string& name, const std::string& label)
    {
        EXPECT_EQ(editor.assignments, 1);
        EXPECT_EQ(editor.number, number);
        EXPECT_EQ(editor.bank, bank);
        EXPECT_EQ(editor.name, name);
        EXPECT_EQ(editor.label, label);
        EXPECT_TRUE(wire.calls.empty());
        editor.assignments = 0;
    }

    RecordingEditor editor;
};

TEST_F(PrgFieldAssign_, factoryBanks)
{
    PrgFieldAssign(0, tag(4));
    expectAssigned(0, 0, "Piano 1", "A 11");
    PrgFieldAssign(63, tag(5));
    expectAssigned(127, 0, "Gun Shot", "B 88");
    PrgFieldAssign(9, tag(6));
    expectAssigned(9, 1, "Sistro", "C 22");
    PrgFieldAssign(27, tag(7));
    expectAssigned(91, 1, "Heaven", "D 44");
    PrgFieldAssign(63, tag(8));
    expectAssigned(63, 2, "Brass Fall", "E 88");
}

TEST_F(PrgFieldAssign_, drumKitsByTheirPlaceInTheList)
{
    PrgFieldAssign(7, tag(9));
    expectAssigned(7, 4, "Jazz Kit", "Dr 18");
    PrgFieldAssign(15, tag(10));
    expectAssigned(15, 4, "(User 2)", "Dr 28");
}

TEST_F(PrgFieldAssign_, aUserProgramByItsRecordsName)
{
    std::string bytes = tag(21);
    putRecord(bytes, 10, 0x42, 9, 9, "Sabato Lead");
    PrgFieldAssign(10, bytes);
    expectAssigned(10, 3, "Sabato Lead", "U 23");
}

TEST_F(PrgFieldAssign_, aFreeRecordIsTheUserProgramOfItsPlaceAndHasNoName)
{
    PrgFieldAssign(63, tag(21));
    expectAssigned(63, 3, "", "U 88");
}

TEST_F(PrgFieldAssign_, bytesThatAreNoCharactersAreBlanksInTheName)
{
    std::string bytes = tag(21);
    putRecord(bytes, 8, 0xFF, 9, 9, "A\x01 \x9F\xE0");
    PrgFieldAssign(8, bytes);
    expectAssigned(8, 3, "A   \xE0", "U 21");
}

TEST_F(PrgFieldAssign_, aProgramOfAnUntitledFileIsTheSame)
{
    std::string bytes = tag(22);
    putRecord(bytes, 0, 0x42, 9, 9, "  Sabato Lead");
    putRecord(bytes, 1, 1, 1, 100, "Referred");
    PrgFieldAssign(0, bytes);
    expectAssigned(0, 3, "  Sabato Lead", "U 11");
    PrgFieldAssign(1, bytes);
    expectAssigned(100, 1, "Referred", "D 12");
}

TEST_F(PrgFieldAssign_, aReferenceByItsOwnBytesWithTheLetterOfItsBank)
{
    const struct {
        int bank, number;
        const char* label;
    } rows[] = {{0, 63, "A 22"}, {0, 64, "B 22"},  {1, 5, "C 22"}, {1, 100, "D 22"},
                {2, 7, "E 22"},  {4, 14, "Dr 22"}, {3, 1, "U 22"}};
    for (const auto& row : rows) {
        std::string bytes = tag(21);
        putRecord(bytes, 9, 1, row.bank, row.number, "Referred");
        PrgFieldAssign(9, bytes);
        expectAssigned(row.number, row.bank, "Referred", row.label);
    }
}

TEST_F(PrgFieldAssign_, eachFactoryBankFromItsFirstRowToItsLast)
{
    const struct {
        int kind, first, last, bank;
        const char* firstName;
        const char* lastName;
        const char* letter;
    } rows[] = {{4, 0, 63, 0, "Piano 1", "Syn.Brass2", "A "},
                {5, 64, 127, 0, "SopranoSax", "Gun Shot", "B "},
                {6, 0, 63, 1, "90's Piano", "Stz<Brass", "C "},
                {7, 64, 127, 1, "AltoBreath", "Explosion", "D "},
                {8, 0, 63, 2, "Piano&Strgs", "Brass Fall", "E "}};
    for (const auto& row : rows) {
        PrgFieldAssign(0, tag(row.kind));
        expectAssigned(row.first, row.bank, row.firstName, std::string(row.letter) + "11");
        PrgFieldAssign(63, tag(row.kind));
        expectAssigned(row.last, row.bank, row.lastName, std::string(row.letter) + "88");
    }
}

TEST_F(PrgFieldAssign_, nothingWithoutAHighlightedProgramField)
{
    editor.programSelected = false;
    PrgFieldAssign(0, tag(4));
    EXPECT_EQ(editor.assignments, 0);
    setFieldTarget(nullptr);
    PrgFieldAssign(0, tag(4));
    EXPECT_TRUE(wire.calls.empty());
}

TEST_F(PrgFieldAssign_, nothingForARowOrWindowWithoutPrograms)
{
    PrgFieldAssign(-1, tag(4));
    PrgFieldAssign(64, tag(4));
    PrgFieldAssign(16, tag(9));
    PrgFieldAssign(0, tag(19));
    PrgFieldAssign(0, "");
    EXPECT_EQ(editor.assignments, 0);
}
