// The arrangement dump and the selection, byte for byte.
#include "arrangements/ArrSends.h"
#include "ArrRoom.h"

class ArrSends : public ArrRoom
{
};

TEST_F(ArrSends, aDumpCarriesThe10496BytesBehindTheHead)
{
    std::string file(10528, '\0');
    file.replace(32, 8, bytesOf("80 01 82 03 84 05 86 87"));
    file.back() = '\x7F';
    ArrBlockSend(arrImage("/a", file));
    ASSERT_EQ(service.messages().size(), 1u);
    const std::string message = service.messages()[0];
    // 10496 bytes are 1499 runs of eight and one run of three bytes behind their leading one.
    ASSERT_EQ(message.size(), 5u + 1499 * 8 + 4 + 1);
    EXPECT_EQ(hex(message.substr(0, 5)), "F0 42 32 4D 64");
    EXPECT_EQ(hex(message.substr(5, 16)), "55 00 01 02 03 04 05 06 01 07 00 00 00 00 00 00");
    EXPECT_EQ(hex(message.substr(message.size() - 5)), "00 00 00 7F F7");
}

TEST_F(ArrSends, aDumpGoesOutWholeThroughThePortsThreeSteps)
{
    ArrBlockSend(arrImage("/a", arrFile({})));
    EXPECT_EQ(service.operations(),
              (std::vector<std::string>{"midiOutPrepareHeader", "midiOutLongMsg", "midiOutUnprepareHeader"}));
}

TEST_F(ArrSends, aSelectionIsBankAndProgramOnTheGlobalChannel)
{
    struct Row {
        int kind;
        int number;
        std::vector<std::string> wire;
    };
    for (const Row& row : {Row{2, 0, {"B2 00 00", "B2 20 00", "C2 00"}}, Row{3, 0, {"B2 00 00", "B2 20 00", "C2 40"}},
                           Row{3, 63, {"B2 00 00", "B2 20 00", "C2 7F"}}, Row{19, 5, {"B2 00 00", "B2 20 01", "C2 05"}},
                           Row{20, 63, {"B2 00 00", "B2 20 01", "C2 3F"}}}) {
        service.forget();
        ArrSelect(row.number, row.kind);
        EXPECT_EQ(wire(), row.wire);
    }
}

TEST_F(ArrSends, aSelectionGivesItsEightBytesToTheLog)
{
    EXPECT_EQ(hex(ArrSelect(7, 19)), "B2 00 00 B2 20 01 C2 07");
    EXPECT_EQ(hex(ArrSelect(7, 3)), "B2 00 00 B2 20 00 C2 47");
}

TEST_F(ArrSends, aSelectionWithoutAPortStillHasItsLogText)
{
    Midi.MidiEnabled = 0;
    EXPECT_EQ(hex(ArrSelect(1, 19)), "B2 00 00 B2 20 01 C2 01");
    EXPECT_TRUE(service.messages().empty());
}

TEST_F(ArrSends, namesAreComparedAsTheInformationFileKeepsThem)
{
    EXPECT_FALSE(differsFromSent("song", "song"));
    EXPECT_FALSE(differsFromSent("song", "song   "));
    EXPECT_TRUE(differsFromSent("song", "Song"));
    EXPECT_TRUE(differsFromSent("song", ""));
    EXPECT_FALSE(differsFromSent("A very long name of an arrangement file", "A very long name of an a"));
    EXPECT_FALSE(differsFromSent("Blank at the twenty-four further", "Blank at the twenty-four"));
    EXPECT_FALSE(differsFromSent("The twenty-fourth is not in", "The twenty-fourth is not"));
    EXPECT_FALSE(differsFromSent("Blank is the 24th letter x", "Blank is the 24th letter")) << "cut, then trimmed";
}

TEST_F(ArrSends, aProgramFileStandsBehind270BlanksAndTellsAPgg)
{
    const std::string prg = programFileImage("FILE", "prg");
    EXPECT_EQ(prg, std::string(270, ' ') + "FILE");
    std::string pgg(270, ' ');
    pgg[18] = 1;
    EXPECT_EQ(programFileImage("FILE", "pgg"), pgg + "FILE");
}
