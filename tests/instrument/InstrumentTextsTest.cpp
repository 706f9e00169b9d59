// The rows of the virtual instrument's window: what each channel has selected, and what was sent besides.
#include "instrument/InstrumentTexts.h"

#include "core/Dichiarazioni.h"
#include "core/NameTables.h"
#include "support/Hex.h"

#include <gtest/gtest.h>

class InstrumentRows : public testing::Test
{
protected:
    InstrumentRows()
    {
        App = {};
        App.LanguageBase = 200;
        NameTablesBuild();
    }
    ~InstrumentRows() override { App = {}; }

    std::string selected(int channel, const std::string& pairs)
    {
        instrument.take(bytesOf(pairs));
        return InstrumentTexts::selection(instrument, channel);
    }
    /// A dump of records that are zero but for a name; zeros and ASCII have no top bits to carry.
    void dump(int function, std::string body)
    {
        std::string packed;
        for (std::size_t first = 0; first < body.size(); first += 7)
            packed += '\0' + body.substr(first, 7);
        instrument.take(bytesOf("F0 42 30 4D") + static_cast<char>(function) + packed + "\xF7");
        ASSERT_EQ(instrument.malformedCount(), 0);
    }

    VirtualInstrument instrument;
};

TEST_F(InstrumentRows, theGlobalChannelSelectsArrangementsOfThreeBanks)
{
    std::string records(64 * 164, '\0');
    records.replace(8 * 164, 16, "Valzer          ");
    dump(0x64, records);
    EXPECT_EQ(InstrumentTexts::selection(instrument, 0), "") << "nothing was selected";
    EXPECT_EQ(selected(0, "B0 00 00 B0 20 01 C0 08"), "21 Valzer");
    EXPECT_EQ(selected(0, "C0 09"), "22") << "an unused record has no name";
    EXPECT_EQ(selected(0, "B0 20 00 C0 3F"), "A 88");
    EXPECT_EQ(selected(0, "C0 40"), "B 11");
    EXPECT_EQ(selected(0, "B0 20 01 C0 40"), "64") << "the user bank ends at 64";
    EXPECT_EQ(selected(0, "B0 20 05 C0 02"), "2") << "no such bank";
}

TEST_F(InstrumentRows, anyOtherChannelSelectsSounds)
{
    EXPECT_EQ(selected(4, "B4 20 00 C4 00"), "A 11 Piano 1");
    EXPECT_EQ(selected(4, "C4 7F"), "B 88 Gun Shot");
    EXPECT_EQ(selected(4, "B4 20 01 C4 16"), "C 37 Akordeon");
    EXPECT_EQ(selected(4, "C4 40"), "D 11 AltoBreath");
    EXPECT_EQ(selected(4, "B4 20 02 C4 3F"), "E 88 Brass Fall");
    EXPECT_EQ(selected(4, "B4 20 04 C4 20"), "Dr 32");
    EXPECT_EQ(selected(4, "B4 20 03 C4 01"), "U 12");
    std::string body(64 * 172 + 2104, '\0');
    body[172] = 0x42;
    body.replace(172 + 3, 16, "Corteo Organ    ");
    dump(0x4C, body);
    EXPECT_EQ(selected(4, "C4 01"), "U 12 Corteo Organ");
    EXPECT_EQ(selected(5, "C5 07"), "7") << "no bank was told";
}

TEST_F(InstrumentRows, onlyUsedChannelsHaveARow)
{
    EXPECT_TRUE(InstrumentTexts::channelRows(instrument).empty());
    instrument.take(bytesOf("B2 07 64 B2 0A 40 E2 7F 40 D2 05 B0 20 01 C0 00 9F 3C 40"));
    EXPECT_EQ(InstrumentTexts::channelRows(instrument),
              (std::vector<std::string>{"Channel 1 (global)   11", "Channel 3   CC7 100, CC10 64, Bend 8319, AT 5",
                                        "Channel 16"}));
}

TEST_F(InstrumentRows, parametersFollowTheGlobalBlock)
{
    EXPECT_TRUE(InstrumentTexts::parameterRows(instrument).empty());
    instrument.take(bytesOf("F0 42 30 4D 41 0C 68 7F F7 F0 42 30 4D 41 02 3C 00 F7"));
    EXPECT_EQ(InstrumentTexts::parameterRows(instrument), (std::vector<std::string>{"2 = 60", "12 = -24"}));
    dump(0x51, std::string(415, 'a'));
    EXPECT_EQ(InstrumentTexts::parameterRows(instrument),
              (std::vector<std::string>{"Global block: 415 bytes", "2 = 60", "12 = -24"}));
    EXPECT_EQ(InstrumentTexts::counts(instrument), "Messages: 3, malformed: 0");
}

TEST_F(InstrumentRows, aNameIsShownInItsOwnLetters)
{
    const auto rows = InstrumentTexts::namedRows(
        10, [](int index) { return index == 8 ? std::string("Tikytikit\xE0") : std::string(); });
    ASSERT_EQ(rows.size(), 10u);
    EXPECT_EQ(rows[7], "18");
    EXPECT_EQ(rows[8], "21 Tikytikit\xC3\xA0");
}
