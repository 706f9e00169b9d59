// The instrument's state in figures.
#include "instrument/InstrumentGlance.h"

#include "core/Dichiarazioni.h"
#include "core/Words.h"
#include "support/Hex.h"

#include <gtest/gtest.h>

namespace
{

/// 64 records of 164 bytes with three names, packed by hand: the names are ASCII, so every byte of top bits is 0.
std::string threeArrangements()
{
    std::string records(64 * 164, '\0');
    for (const std::size_t index : {0U, 5U, 63U})
        records.replace(index * 164, 16, "Valzer Lento    ");
    std::string packed;
    for (std::size_t first = 0; first < records.size(); first += 7)
        packed += '\0' + records.substr(first, 7);
    return bytesOf("F0 42 30 4D 64") + packed + "\xF7";
}

class Glance : public testing::Test
{
protected:
    Glance() { App = {}; }
    ~Glance() override { App = {}; }
    VirtualInstrument instrument;
};

} // namespace

TEST_F(Glance, countsWhatIsHeldOfEachKind)
{
    using InstrumentGlance::Held;
    const std::array<Held, 4> empty{Held{Words::InstArrangements, 0, 64}, Held{Words::InstStyles, 0, 16},
                                    Held{Words::InstPrograms, 0, 64}, Held{Words::InstGlobal, 0, 1}};
    EXPECT_EQ(InstrumentGlance::held(instrument), empty);
    instrument.take(threeArrangements());
    EXPECT_EQ(InstrumentGlance::held(instrument)[0], (Held{Words::InstArrangements, 3, 64}));
}

TEST_F(Glance, tellsLevelPanAndTheLoudestNoteOfAChannel)
{
    instrument.take(bytesOf("F0 42 30 4D 4E 0A F7 B0 20 01 C0 05 B3 07 64 B3 0A 20 93 3C 40 93 40 70 93 43 30"));
    const InstrumentGlance::Channels all = InstrumentGlance::channels(instrument);
    EXPECT_TRUE(all[0].used);
    EXPECT_TRUE(all[0].global);
    EXPECT_EQ(all[0].selection, "16");
    EXPECT_EQ(all[0].level, -1);
    EXPECT_TRUE(all[3].used);
    EXPECT_FALSE(all[3].global);
    EXPECT_EQ(all[3].level, 0x64);
    EXPECT_EQ(all[3].pan, 0x20);
    EXPECT_EQ(all[3].velocity, 0x70);
    EXPECT_EQ(all[5], InstrumentGlance::Channel());
    instrument.take(bytesOf("B3 7B 00"));
    EXPECT_EQ(InstrumentGlance::channels(instrument)[3].velocity, 0);
}

TEST(GlanceFigure, hasItsThousandsApart)
{
    EXPECT_EQ(InstrumentGlance::figure(0), "0");
    EXPECT_EQ(InstrumentGlance::figure(999), "999");
    EXPECT_EQ(InstrumentGlance::figure(1000), "1\xE2\x80\xAF"
                                              "000");
    EXPECT_EQ(InstrumentGlance::figure(72436), "72\xE2\x80\xAF"
                                               "436");
    EXPECT_EQ(InstrumentGlance::figure(1234567), "1\xE2\x80\xAF"
                                                 "234\xE2\x80\xAF"
                                                 "567");
}
