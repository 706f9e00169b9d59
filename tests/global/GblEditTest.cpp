// The block's buffer, its dump byte by byte, and the state that a transmission leaves.
#include "GblRoom.h"

namespace
{

struct Book : MessageMonitor {
    std::vector<std::string> lines;
    void clear() override { lines.clear(); }
    void append(const std::string& text) override { lines.push_back(text); }
};

std::string repeated(const std::string& bytes, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += bytes;
    return all;
}

} // namespace

class GblEdit : public GblRoom
{
protected:
    WindowBuffer window(const std::string& parameters, int slot = 1)
    {
        App.Globals[static_cast<std::size_t>(slot)].path = run.folder.file("stage");
        Files.GblBuffer = gblFile(parameters);
        return GblTagBuild(slot);
    }
};

TEST_F(GblEdit, sendsFiftyNineGroupsOfSevenAndOneOfTwo)
{
    GblSend(window(std::string(415, '\x81')));
    const std::string expected = bytesOf("F0 42 32 4D 51") + repeated(bytesOf("7F 01 01 01 01 01 01 01"), 59) +
                                 bytesOf("03 01 01") + bytesOf("F7");
    EXPECT_EQ(expected.size(), 481U);
    EXPECT_EQ(sent(), std::vector<std::string>{hex(expected)});
}

TEST_F(GblEdit, sendsTheParametersAndNeitherHeadNorTail)
{
    std::string parameters(415, '\0');
    parameters[0] = '\xCE';
    parameters[6] = '\x0B';
    parameters[413] = '\x55';
    parameters[414] = '\xFF';
    GblSend(window(parameters));
    const std::string body = bytesOf("01 4E 00 00 00 00 00 0B") + std::string(464, '\0') + bytesOf("02 55 7F");
    EXPECT_EQ(sent(), std::vector<std::string>{hex(bytesOf("F0 42 32 4D 51") + body + '\xF7')});
}

TEST_F(GblEdit, aTransmissionMakesTheBlockTheInstruments)
{
    Book book;
    book.lines = {"old"};
    MsgLogAttach(&book);
    Midi.MsgLogActive = true;
    const WindowBuffer tag = window(std::string(415, '\x05'));
    GblSend(tag);
    EXPECT_TRUE(App.GblCurrentChanged);
    EXPECT_EQ(hex(App.GblCurrent), hex(gblFile(std::string(415, '\x05')))) << "all 448 bytes";
    EXPECT_TRUE(shell.items["mnuGlobalParam"]);
    ASSERT_EQ(book.lines.size(), 1U) << "the monitor is emptied, then told";
    EXPECT_EQ(book.lines[0].substr(0, 21), "F0 42 32 4D 51 00 05 ");
    EXPECT_EQ(book.lines[0].size(), 481U * 3 + 2);
}

TEST_F(GblEdit, aFailedSendLeavesTheImageAsItWasWritten)
{
    port.results["midiOutLongMsg"] = 67;
    WindowBuffer tag = window(std::string(415, '\0'));
    EXPECT_TRUE(gblEdit(tag, GblField::MasterTune, 5));
    EXPECT_EQ(parametersOf(tag)[0], 5);
    EXPECT_EQ(App.GblCurrent.size(), 448U);
}

TEST_F(GblEdit, withoutAMidiDeviceTheBlockIsEditedAllTheSame)
{
    Midi.MidiEnabled = 0;
    WindowBuffer tag = window(std::string(415, '\0'));
    EXPECT_TRUE(gblEdit(tag, GblField::MasterTune, 5));
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(App.GblCurrent[32], 5);
}

TEST_F(GblEdit, nothingIsSentWhileAWindowFills)
{
    Gbl.GblLoading = true;
    GblSend(window(std::string(415, '\0')));
    EXPECT_TRUE(sent().empty());
    EXPECT_FALSE(App.GblCurrentChanged);
    EXPECT_EQ(App.GblCurrent, "");
    EXPECT_TRUE(shell.items.empty());
}

TEST_F(GblEdit, anEditChangesItsByteMarksAndSendsEachTimeAnew)
{
    WindowBuffer tag = window(std::string(415, '\0'));
    EXPECT_TRUE(gblEdit(tag, GblField::MasterTune, -1));
    EXPECT_TRUE(gblEdit(tag, GblField::MasterTune, 2));
    EXPECT_EQ(tag.at(3), 1);
    EXPECT_EQ(sent(), (std::vector<std::string>{zeroDumpWith(0, "01 7F"), zeroDumpWith(0, "00 02")}));
}

TEST_F(GblEdit, whatCannotBeStoredChangesMarksAndSendsNothing)
{
    WindowBuffer tag = window(std::string(415, '\x13'));
    const std::string before = tag.bytes();
    EXPECT_FALSE(gblEdit(tag, GblField::OctaveLower, 3));
    EXPECT_FALSE(gblEdit(tag, GblField::OctaveLower, 4));
    EXPECT_FALSE(gblEdit(tag, GblField::AssignablePedal, 52));
    EXPECT_EQ(hex(tag.bytes()), hex(before));
    EXPECT_TRUE(sent().empty());
}

TEST_F(GblEdit, aCurveIsMarkedAndSentButNotWritten)
{
    WindowBuffer tag = window(std::string(415, '\0'));
    EXPECT_TRUE(gblEdit(tag, GblField::VelocityCurve, 6));
    EXPECT_EQ(tag.at(3), 1);
    EXPECT_EQ(sent(), std::vector<std::string>{zeroDumpWith(0, "")});
}

TEST_F(GblEdit, aResetZeroesTwelveBytesOfItsScale)
{
    WindowBuffer tag = window(std::string(415, '\x11'));
    gblResetScale(tag, 2);
    std::string expected(415, '\x11');
    expected.replace(56, 12, std::string(12, '\0'));
    EXPECT_EQ(hex(parametersOf(tag)), hex(expected));
    EXPECT_EQ(tag.at(3), 0);
}

TEST_F(GblEdit, theBufferOfAFileHoldsHeadPathAndFile)
{
    App.Globals[3].readOnly = true;
    const WindowBuffer tag = window(std::string(415, '\x42'), 3);
    std::string head(20, '\0');
    head[0] = 25;
    head[1] = 1;
    head[14] = 3;
    std::string path = run.folder.file("stage");
    path.resize(250, ' ');
    EXPECT_EQ(hex(tag.bytes()), hex(head + path + gblFile(std::string(415, '\x42'))));
    EXPECT_TRUE(App.Globals[3].used);
    EXPECT_EQ(GblCaption(tag), "File Gbl - stage.gbl (3)Read Only");
    GblSlotLeave(tag);
    EXPECT_FALSE(App.Globals[3].used);
    EXPECT_EQ(App.Globals[3].path, "");
}

TEST_F(GblEdit, theInstrumentsBufferHoldsTheCurrentBlock)
{
    App.GblCurrent = gblFile(std::string(415, '\x17'));
    const WindowBuffer tag = GblTagBuild(0);
    std::string expected(20, '\0');
    expected[0] = 14;
    std::string title = "Global Parameters";
    title.resize(250, ' ');
    EXPECT_EQ(hex(tag.bytes()), hex(expected + title + App.GblCurrent));
    EXPECT_EQ(GblCaption(tag), "Global Parameters");
}

TEST_F(GblEdit, aMissingOrDamagedBlockBecomesOneOfFullLengthThatCanBeSaved)
{
    const std::string head("KORG\x4D\x00\x06\x01", 8);
    EXPECT_EQ(GblTagBuild(0).bytes().substr(270), head + std::string(440, '\0'));
    App.GblCurrent = "short";
    EXPECT_EQ(GblTagBuild(0).bytes().substr(270), head + std::string(440, '\0'));
    App.GblCurrent = "KQRG" + std::string(444, '\x17'); // as a damaged settings file gives it
    EXPECT_EQ(GblTagBuild(0).bytes().substr(270), head + std::string(440, '\x17'));
    Files.GblBuffer = std::string(1000, 'x');
    EXPECT_EQ(GblTagBuild(1).bytes().size(), 718U);
}

TEST_F(GblEdit, namesNotesByOctave)
{
    EXPECT_EQ(NoteName(0), "C-1");
    EXPECT_EQ(NoteName(11), "B-1");
    EXPECT_EQ(NoteName(12), "C0");
    EXPECT_EQ(NoteName(60), "C4");
    EXPECT_EQ(NoteName(70), "A#4");
    EXPECT_EQ(NoteName(116), "G#8");
    EXPECT_EQ(NoteName(127), "G9");
    EXPECT_EQ(gblVelocityText(0), "Normal");
    EXPECT_EQ(gblVelocityText(1), "1");
    EXPECT_EQ(gblVelocityText(127), "127");
}
