// The virtual instrument takes whole messages: what it keeps of each, what it answers, what it counts as malformed.
#include "InstrumentRoom.h"

#include <random>

namespace
{

/// Packs by arithmetic, independently of the program's packing.
std::string packed(const std::string& source)
{
    std::string result;
    for (std::size_t first = 0; first < source.size(); first += 7) {
        const std::string group = source.substr(first, 7);
        int head = 0;
        int weight = 1;
        for (const char byte : group) {
            head += byte < 0 ? weight : 0;
            weight *= 2;
        }
        result += static_cast<char>(head);
        for (const char byte : group)
            result += static_cast<char>(byte < 0 ? byte + 128 : byte);
    }
    return result;
}

std::string dump(int function, const std::string& source)
{
    return bytesOf("F0 42 30 4D") + static_cast<char>(function) + packed(source) + "\xF7";
}

std::string randomBytes(std::size_t length, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> byte(0, 255);
    std::string bytes;
    while (bytes.size() < length)
        bytes += static_cast<char>(byte(random));
    return bytes;
}

/// Records that are random but for their names, each at `nameOffset` of its record.
std::string namedRecords(int recordSize, std::size_t nameOffset, unsigned seed)
{
    std::string bytes;
    for (int index = 0; index < 64; ++index) {
        std::string record = randomBytes(static_cast<std::size_t>(recordSize), seed + static_cast<unsigned>(index));
        record[0] = 2;
        std::string name = "Name " + std::to_string(index);
        name.resize(16, ' ');
        record.replace(nameOffset, 16, name);
        bytes += record;
    }
    return bytes;
}

std::string styleBlock(const std::string& name, std::size_t length, unsigned seed)
{
    std::string block = name;
    block.resize(16, ' ');
    return block + randomBytes(length - 16, seed);
}

/// The body of one group with blocks of 300, 256, 700 and 20 bytes: 24 = 18, 324 = 0144, 580 = 0244, 1280 = 0500.
std::string styleBody(int group)
{
    const std::string mark = group == 0 ? "80" : group == 1 ? "81" : group == 2 ? "82" : "83";
    return bytesOf("18 00 00" + mark + "2C 01  44 00 01" + mark + "00 01  44 00 02" + mark + "BC 02  00 00 05" + mark +
                   "14 00") +
           styleBlock("Swing", 300, 1) + styleBlock("Bossa", 256, 2) + styleBlock("Polka", 700, 3) +
           styleBlock("- empty -", 20, 4);
}

} // namespace

class Instrument : public InstrumentRoom
{
protected:
    std::string lastWords() const { return instrument.lastMessages().back().words; }
    /// One more malformed message of that reason, and of no other.
    void expectFault(Fault fault, const std::string& bytes)
    {
        const int all = instrument.malformedCount();
        const int one = instrument.malformedCount(fault);
        instrument.take(bytes);
        EXPECT_EQ(instrument.malformedCount(), all + 1) << hex(bytes.substr(0, 20));
        EXPECT_EQ(instrument.malformedCount(fault), one + 1) << hex(bytes.substr(0, 20));
        EXPECT_EQ(instrument.lastMessages().back().fault, fault);
    }
};

TEST_F(Instrument, beginsWithNothing)
{
    EXPECT_EQ(instrument.mode(), VirtualInstrument::NoMode);
    EXPECT_STREQ(instrument.modeLabel(), "");
    EXPECT_TRUE(instrument.arrangements().empty());
    EXPECT_TRUE(instrument.programs().empty());
    EXPECT_TRUE(instrument.globalBlock().empty());
    EXPECT_FALSE(instrument.styleGroup(3).received);
    EXPECT_EQ(instrument.arrangementName(0), "");
    EXPECT_EQ(instrument.styleName(15), "");
    EXPECT_EQ(instrument.programName(63), "");
    EXPECT_EQ(instrument.channel(0).program, -1);
    EXPECT_FALSE(instrument.channel(0).used);
    EXPECT_FALSE(instrument.parameter(0).has_value());
    EXPECT_FALSE(instrument.selectedUserArrangement().has_value());
    EXPECT_TRUE(instrument.soundingNotes().empty());
    EXPECT_EQ(instrument.malformedCount(), 0);
}

TEST_F(Instrument, followsTheThreeModes)
{
    take("F0 42 30 4D 4E 06 F7");
    EXPECT_STREQ(instrument.modeLabel(), "SONG PLAY");
    EXPECT_EQ(instrument.mode(), 1);
    take("F0 42 3F 4D 4E 04 F7");
    EXPECT_STREQ(instrument.modeLabel(), "GLOBAL");
    EXPECT_EQ(instrument.mode(), 2);
    EXPECT_EQ(instrument.globalChannel(), 15);
    EXPECT_EQ(lastWords(), "Mode GLOBAL, global channel 16");
    take("F0 42 30 4D 4E 0A F7");
    EXPECT_STREQ(instrument.modeLabel(), "ARR PLAY");
    EXPECT_EQ(instrument.mode(), 0);
    EXPECT_EQ(instrument.globalChannel(), 0);
    EXPECT_EQ(instrument.messageCount(), 3);
}

TEST_F(Instrument, aProgramChangeTakesTheBankThatIsInForceThen)
{
    take("B2 00 01 B2 20 03 C2 05");
    EXPECT_EQ(instrument.channel(2).bankMsb, 1);
    EXPECT_EQ(instrument.channel(2).bankLsb, 3);
    EXPECT_EQ(instrument.channel(2).program, 5);
    take("B2 20 00");
    EXPECT_EQ(instrument.channel(2).programLsb, 3);
    EXPECT_EQ(instrument.channel(2).programMsb, 1);
    EXPECT_EQ(instrument.channel(2).bankLsb, 0);
    take("C2 06");
    EXPECT_EQ(instrument.channel(2).programLsb, 0);
    EXPECT_TRUE(instrument.channel(2).used);
    EXPECT_FALSE(instrument.channel(3).used);
}

TEST_F(Instrument, tellsTheSelectedArrangementByNameInBankOneOfTheGlobalChannel)
{
    instrument.take(dump(0x64, namedRecords(164, 0, 7)));
    take("B0 00 00 B0 20 01 C0 3F");
    EXPECT_EQ(instrument.selectedUserArrangement(), 63);
    EXPECT_EQ(instrument.selectedArrangementName(), "Name 63");
    EXPECT_EQ(lastWords(), "Channel 1: selects 63, bank 0/1, Name 63");
    take("B0 20 00 C0 3F");
    EXPECT_FALSE(instrument.selectedUserArrangement().has_value());
    EXPECT_EQ(instrument.selectedArrangementName(), "");
    take("B0 20 01 C0 40");
    EXPECT_FALSE(instrument.selectedUserArrangement().has_value());
    // Another global channel looks at that channel's selection.
    take("B4 20 01 C4 02 F0 42 34 4D 4E 0A F7");
    EXPECT_EQ(instrument.selectedArrangementName(), "Name 2");
}

TEST_F(Instrument, namesTheSoundOfAChannelFromFactoryBanksAndFromItsOwnPrograms)
{
    take("B1 20 00 C1 00");
    EXPECT_EQ(instrument.selectedProgramName(1), programName(0, 0));
    EXPECT_FALSE(instrument.selectedProgramName(1).empty());
    take("B1 20 00 C1 40");
    EXPECT_EQ(instrument.selectedProgramName(1), programName(1, 0));
    take("B1 20 01 C1 7F");
    EXPECT_EQ(instrument.selectedProgramName(1), programName(3, 63));
    take("B1 20 02 C1 3F");
    EXPECT_EQ(instrument.selectedProgramName(1), programName(4, 63));
    take("B1 20 02 C1 40");
    EXPECT_EQ(instrument.selectedProgramName(1), "");
    take("B1 20 04 C1 00");
    EXPECT_EQ(instrument.selectedProgramName(1), "");
    instrument.take(dump(0x4C, namedRecords(172, 3, 9) + randomBytes(2104, 5)));
    take("B1 20 03 C1 07");
    EXPECT_EQ(instrument.selectedProgramName(1), "Name 7");
    EXPECT_EQ(lastWords(), "Channel 2: selects 7, bank -/3, Name 7");
}

TEST_F(Instrument, holdsTheArrangementsByteForByte)
{
    const std::string records = namedRecords(164, 0, 100);
    instrument.take(dump(0x64, records));
    EXPECT_EQ(instrument.arrangements(), records);
    EXPECT_EQ(instrument.arrangementName(0), "Name 0");
    EXPECT_EQ(instrument.arrangementName(63), "Name 63");
    EXPECT_EQ(instrument.malformedCount(), 0);
    EXPECT_EQ(lastWords(), "Arrangements received: 64 (Name 0, Name 1, Name 2, ...)");
}

TEST_F(Instrument, showsNoNameForAnUnusedArrangement)
{
    std::string records = namedRecords(164, 0, 100);
    records[164] = '\0';
    instrument.take(dump(0x64, records));
    EXPECT_EQ(instrument.arrangementName(1), "");
    EXPECT_EQ(instrument.arrangementName(2), "Name 2");
}

TEST_F(Instrument, holdsTheProgramsAndTheSecondAreaByteForByte)
{
    const std::string records = namedRecords(172, 3, 200);
    const std::string second = randomBytes(2104, 300);
    instrument.take(dump(0x4C, records + second));
    EXPECT_EQ(instrument.programs(), records);
    EXPECT_EQ(instrument.programSecondArea(), second);
    EXPECT_EQ(instrument.programName(12), "Name 12");
}

TEST_F(Instrument, showsNoNameForABlankedProgram)
{
    std::string records = namedRecords(172, 3, 200);
    records.replace(172, 20, std::string(20, '\0'));
    instrument.take(dump(0x4C, records + randomBytes(2104, 300)));
    EXPECT_EQ(instrument.programName(1), "");
    EXPECT_EQ(instrument.programName(2), "Name 2");
}

TEST_F(Instrument, holdsTheGlobalBlock)
{
    const std::string block = randomBytes(415, 8);
    instrument.take(dump(0x51, block));
    EXPECT_EQ(instrument.globalBlock(), block);
    EXPECT_EQ(lastWords(), "Global block received, 415 bytes");
}

TEST_F(Instrument, holdsEachStyleGroupAsItsMessageBroughtIt)
{
    for (const int group : {2, 0, 3, 1}) {
        const std::string body = styleBody(group);
        ASSERT_EQ(body.size(), 1300U);
        instrument.take(dump(0x65, body));
        EXPECT_TRUE(instrument.styleGroup(group).received);
        EXPECT_EQ(instrument.styleGroup(group).body, body);
        EXPECT_EQ(instrument.styleName(4 * group), "Swing");
        EXPECT_EQ(instrument.styleName(4 * group + 2), "Polka");
        EXPECT_EQ(instrument.styleName(4 * group + 3), "- empty -");
        EXPECT_EQ(instrument.styleBlock(4 * group + 1), body.substr(324, 256));
        EXPECT_EQ(instrument.styleBlock(4 * group + 2), body.substr(580, 700));
    }
    EXPECT_EQ(hex(instrument.styleGroup(2).styles[3].descriptor), "00 00 05 82 14 00");
    EXPECT_EQ(instrument.malformedCount(), 0);
}

TEST_F(Instrument, rejectsAStyleGroupWhoseTableContradictsItself)
{
    struct Change {
        std::size_t offset;
        char value;
    };
    for (const Change change : {Change{0, '\x19'}, Change{1, '\x01'}, Change{2, '\x01'}, Change{3, '\x84'},
                                Change{3, '\x00'}, Change{9, '\x81'}, Change{6, '\x45'}, Change{4, '\x2D'}}) {
        std::string body = styleBody(0);
        body[change.offset] = change.value;
        expectFault(Fault::WrongContent, dump(0x65, body));
    }
    std::string absent = styleBody(0);
    absent[22] = '\0'; // the last block's length becomes 0
    expectFault(Fault::WrongContent, dump(0x65, absent));
    expectFault(Fault::WrongLength, dump(0x65, styleBody(0) + "x"));
    std::string shorter = styleBody(0);
    shorter.pop_back();
    expectFault(Fault::WrongLength, dump(0x65, shorter));
    expectFault(Fault::WrongLength, dump(0x65, styleBody(0).substr(0, 23)));
    expectFault(Fault::WrongLength, dump(0x65, ""));
    EXPECT_FALSE(instrument.styleGroup(0).received);
}

TEST_F(Instrument, keepsTheLastValueOfEachParameterWithItsSign)
{
    take("F0 42 30 4D 41 02 3C 00 F7");
    EXPECT_EQ(instrument.parameter(2), 60);
    EXPECT_EQ(lastWords(), "Parameter 2 at 60, global channel 1");
    take("F0 42 30 4D 41 46 46 03 F7");
    EXPECT_EQ(instrument.parameter(70), 454);
    take("F0 42 30 4D 41 0C 7F 7F F7");
    EXPECT_EQ(instrument.parameter(12), -1);
    take("F0 42 30 4D 41 0C 68 7F F7");
    EXPECT_EQ(instrument.parameter(12), -24);
    take("F0 42 30 4D 41 0C 7F 00 F7");
    EXPECT_EQ(instrument.parameter(12), 127);
    EXPECT_FALSE(instrument.parameter(3).has_value());
}

TEST_F(Instrument, knowsTheSoundingNotes)
{
    take("90 3C 40 91 3C 41 90 24 7F");
    EXPECT_EQ(instrument.soundingNotes(), (std::vector<SoundingNote>{{0, 36, 127}, {0, 60, 64}, {1, 60, 65}}));
    EXPECT_EQ(instrument.lastMessages().front().words, "Channel 1: note C4 on, velocity 64");
    take("80 3C 00 91 3C 00");
    EXPECT_EQ(instrument.soundingNotes(), (std::vector<SoundingNote>{{0, 36, 127}}));
    EXPECT_EQ(lastWords(), "Channel 2: note C4 off");
    take("90 3C 40 B0 7B 00");
    EXPECT_TRUE(instrument.soundingNotes().empty());
    EXPECT_EQ(lastWords(), "Channel 1: all notes off");
    take("91 3C 40 B0 7B 00");
    EXPECT_EQ(instrument.soundingNotes().size(), 1U);
    take("B1 78 00");
    EXPECT_TRUE(instrument.soundingNotes().empty());
}

TEST_F(Instrument, keepsControllersPitchBendAndPressureByChannel)
{
    take("B3 07 64 E3 7F 40 D3 11");
    EXPECT_EQ(instrument.channel(3).controllers[7], 100);
    EXPECT_EQ(instrument.channel(3).controllers[10], -1);
    EXPECT_EQ(instrument.channel(3).pitchBend, 8319);
    EXPECT_EQ(instrument.channel(3).pressure, 17);
    EXPECT_EQ(instrument.channel(4).pitchBend, -1);
    take("B3 79 00");
    EXPECT_EQ(instrument.channel(3).controllers[7], -1);
    EXPECT_EQ(instrument.channel(3).pitchBend, -1);
}

TEST_F(Instrument, rejectsFramesOfOthersWithTheReason)
{
    expectFault(Fault::WrongManufacturer, bytesOf("F0 41 30 4D 4E 0A F7"));
    expectFault(Fault::WrongManufacturer, bytesOf("F0 F7"));
    expectFault(Fault::WrongFormat, bytesOf("F0 42 40 4D 4E 0A F7"));
    expectFault(Fault::WrongModel, bytesOf("F0 42 30 4C 4E 0A F7"));
    expectFault(Fault::WrongLength, bytesOf("F0 42 30 4D F7"));
    expectFault(Fault::UnknownFunction, bytesOf("F0 42 30 4D 42 0A F7"));
    expectFault(Fault::WrongContent, bytesOf("F0 42 30 4D 4E 0B F7"));
    EXPECT_EQ(instrument.mode(), VirtualInstrument::NoMode);
    EXPECT_EQ(instrument.messageCount(), 0);
}

TEST_F(Instrument, rejectsBodiesOfAnotherLengthAndKeepsWhatItHolds)
{
    const std::string records = namedRecords(164, 0, 1);
    instrument.take(dump(0x64, records));
    expectFault(Fault::WrongLength, dump(0x64, records + "x"));
    expectFault(Fault::WrongLength, dump(0x64, records.substr(1)));
    expectFault(Fault::WrongLength, dump(0x51, std::string(414, 'a')));
    expectFault(Fault::WrongLength, dump(0x4C, std::string(13111, 'a')));
    expectFault(Fault::WrongLength, dump(0x4C, std::string(13113, 'a')));
    expectFault(Fault::WrongLength, bytesOf("F0 42 30 4D 4E F7"));
    expectFault(Fault::WrongLength, bytesOf("F0 42 30 4D 4E 0A 0A F7"));
    expectFault(Fault::WrongLength, bytesOf("F0 42 30 4D 41 02 3C F7"));
    expectFault(Fault::WrongLength, bytesOf("F0 42 35 4D 41 02 3C 00 00 F7"));
    expectFault(Fault::WrongLength, bytesOf("F0 42 30 4D 51 00 F7")); // top bits without data
    EXPECT_EQ(instrument.arrangements(), records);
    EXPECT_TRUE(instrument.programs().empty());
    EXPECT_TRUE(instrument.globalBlock().empty());
    EXPECT_EQ(instrument.globalChannel(), 0);
}

TEST_F(Instrument, countsWhatIsNoMessageAtAll)
{
    expectFault(Fault::NoStatus, bytesOf("05 00 00"));
    expectFault(Fault::StrayEnd, bytesOf("F7"));
    expectFault(Fault::CutByStatus, bytesOf("F0 42 30 4D C0"));
    expectFault(Fault::HighByteInside, bytesOf("F7"));
    EXPECT_EQ(lastWords(), "Malformed message: byte above 127 inside");
    speakLanguage(1);
    take("05 00 00");
    EXPECT_EQ(lastWords(), "Messaggio errato: dati senza byte di stato");
    EXPECT_EQ(instrument.lastMessages().back().head, "05 00 00");
}

TEST_F(Instrument, aHighByteInADumpIsSeen)
{
    std::string message = dump(0x64, namedRecords(164, 0, 1));
    message[6000] = '\x85';
    instrument.take(message);
    EXPECT_GE(instrument.malformedCount(), 2);
    EXPECT_EQ(instrument.malformedCount(Fault::HighByteInside), 1);
    EXPECT_TRUE(instrument.arrangements().empty());
}

TEST_F(Instrument, keepsTheLastMessagesWithTheirFirstBytesAndLength)
{
    instrument.take(dump(0x51, std::string(415, '\x01')));
    EXPECT_EQ(instrument.lastMessages().back().length, 481);
    EXPECT_EQ(instrument.lastMessages().back().head, "F0 42 30 4D 51 00 01 01 01 01 01 01 ...");
    for (int i = 0; i < 250; ++i)
        take("B0 07 64");
    EXPECT_EQ(instrument.lastMessages().size(), 200U);
    EXPECT_EQ(instrument.messageCount(), 251);
    EXPECT_EQ(instrument.byteCount(), 481 + 750);
}

TEST_F(Instrument, tellsEachTimeThatSomethingCameAndNotOfHalfMessages)
{
    int changes = 0;
    instrument.onChange = [&] { ++changes; };
    take("90 3C");
    EXPECT_EQ(changes, 0);
    take("40");
    EXPECT_EQ(changes, 1);
    take("B0 00 00 B0 20 00 C0 05");
    EXPECT_EQ(changes, 2);
    take("F8");
    EXPECT_EQ(changes, 2);
    take("05 F7");
    EXPECT_EQ(changes, 3);
}

TEST_F(Instrument, staysWholeOnAMillionRandomBytes)
{
    const std::string noise = randomBytes(1'000'000, 42);
    for (std::size_t place = 0; place < noise.size(); place += 61)
        instrument.take(noise.substr(place, 61));
    EXPECT_EQ(instrument.byteCount(), 1'000'000);
    EXPECT_GT(instrument.malformedCount(), 1000);
    const std::string records = namedRecords(164, 0, 5);
    instrument.take(dump(0x64, records));
    EXPECT_EQ(instrument.arrangements(), records);
    EXPECT_FALSE(accountOf(instrument).empty());
}

TEST_F(Instrument, staysWholeOnRandomFramesOfItsOwnFunctions)
{
    std::mt19937 random(6);
    std::uniform_int_distribution<int> data(0, 127);
    std::uniform_int_distribution<int> length(0, 400);
    for (int round = 0; round < 5000; ++round) {
        static constexpr int Functions[] = {0x41, 0x4C, 0x4E, 0x51, 0x64, 0x65};
        std::string frame = bytesOf("F0 42 30 4D") + static_cast<char>(Functions[round % 6]);
        for (int i = length(random); i > 0; --i)
            frame += static_cast<char>(data(random));
        instrument.take(frame + "\xF7");
    }
    EXPECT_EQ(instrument.messageCount() + instrument.malformedCount(), 5000);
    for (int slot = 0; slot < 16; ++slot)
        EXPECT_LE(instrument.styleBlock(slot).size(), 400U);
}

TEST_F(Instrument, givesAShortAccountInBothLanguages)
{
    EXPECT_EQ(accountOf(instrument), "Virtual instrument\n"
                                     "Mode: nothing yet\n"
                                     "Arrangement selected: nothing yet\n"
                                     "Arrangements: nothing yet\n"
                                     "Styles: nothing yet\n"
                                     "Programs: nothing yet\n"
                                     "Global block: nothing yet\n"
                                     "Parameters: nothing yet\n"
                                     "Sounding keys: nothing yet\n"
                                     "Messages: 0, malformed: 0\n");
    speakLanguage(1);
    std::string records(64 * 164, '\0');
    records.replace(0, 16, "Tikytikit\xE0      ");
    records.replace(2 * 164, 16, "Valzer          ");
    instrument.take(dump(0x64, records));
    instrument.take(dump(0x65, styleBody(1)));
    instrument.take(dump(0x51, std::string(415, 'a')));
    take("F0 42 30 4D 4E 0A F7 B0 00 00 B0 20 01 C0 00 F0 42 30 4D 41 02 3C 00 F7 90 3C 40 90 40 40 05 F7");
    EXPECT_EQ(accountOf(instrument), "Strumento virtuale\n"
                                     "Modo: ARR PLAY\n"
                                     "Arrangement scelto: 11 Tikytikità\n"
                                     "Arrangement: 2 (Tikytikità, Valzer)\n"
                                     "Style: 4 (Swing, Bossa, Polka, - empty -)\n"
                                     "Program: niente ancora\n"
                                     "Blocco globale: 415 byte\n"
                                     "Parametri: 2 = 60\n"
                                     "Tasti che suonano: C4, E4\n"
                                     "Messaggi: 10, errati: 1\n");
}
