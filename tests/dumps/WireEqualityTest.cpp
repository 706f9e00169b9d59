// Every kind of dump, byte for byte: random images go out through the real routines to a recording service, and what
// the wire carried is unpacked by hand and held against the image that it came from.
#include "arrangements/ArrSends.h"
#include "core/Dichiarazioni.h"
#include "global/GblEdit.h"
#include "midi/MIDI.h"
#include "programs/ProgramLoad.h"
#include "programs/ProgramSends.h"
#include "styles/StyleSends.h"
#include "support/CoreRun.h"
#include "support/Figures.h"
#include "support/RecordingMidiService.h"
#include "support/Unpacked.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

namespace
{

/// Images of all kinds together; tests/soak sends more.
int wantedImages()
{
    const char* chosen = std::getenv("TARVOLYNE_DUMPS");
    constexpr int InEachRun = 1000;
    return chosen != nullptr ? std::atoi(chosen) : InEachRun;
}

class WireEquality : public testing::Test
{
protected:
    WireEquality()
    {
        Midi = {};
        Midi.service = &service;
        Midi.MidiOutHandle = service.outHandle;
        Midi.MidiPortsOpen = 1;
    }
    ~WireEquality() override { Midi = {}; }

    std::string anyBytes(std::size_t count)
    {
        std::string bytes(count, '\0');
        // Every other image is of few different bytes, as the instrument's own are.
        const unsigned mask = random() % 2 == 0 ? 0xFFU : 0x83U;
        for (std::size_t i = 0; i < count; i += 4)
            for (std::size_t k = i, word = random(); k < std::min(i + 4, count); ++k, word >>= 8U)
                bytes[k] = static_cast<char>(word & mask);
        return bytes;
    }
    /// Head of a window's buffer of a kind: 20 bytes and 250 of path.
    static std::string head(int kind, int programType = 0)
    {
        std::string bytes(20, '\0');
        bytes[0] = static_cast<char>(kind);
        bytes[18] = static_cast<char>(programType);
        return bytes + std::string(250, ' ');
    }
    /// The packed bodies of the frames of one function that went out, unpacked: seven bytes behind each byte of top
    /// bits.
    std::string sent(int function)
    {
        std::string all;
        for (const std::string& frame : service.messages()) {
            if (frame.size() < 6 || static_cast<unsigned char>(frame[4]) != function)
                continue;
            const std::string begin = {'\xF0', '\x42', static_cast<char>(0x30 + App.GlobalChannel), '\x4D'};
            EXPECT_EQ(frame.substr(0, 4), begin);
            EXPECT_EQ(frame.back(), '\xF7');
            for (std::size_t place = 5; place + 1 < frame.size(); ++place)
                EXPECT_LT(static_cast<unsigned char>(frame[place]), 128);
            all += unpackedBody(frame);
        }
        service.forget();
        return all;
    }

    void arrangements()
    {
        const std::string file = anyBytes(10528);
        ArrBlockSend(head(19) + file);
        ASSERT_EQ(sent(0x64), file.substr(32));
    }
    void programs()
    {
        const bool references = random() % 2 == 0;
        std::string file = anyBytes(30480);
        for (std::size_t row = 0; row < 64; row += 3)
            file[48 + 172 * row] = 1;
        std::string expected = file.substr(48, 11008);
        for (std::size_t row = 0; row < 64; ++row)
            if (references && expected[172 * row] == 1)
                expected.replace(172 * row, 20, std::string(20, '\0'));
        App.DeviceMode = static_cast<int>(random() % 3);
        const std::string tag = head(21, references ? 1 : 0) + file;
        if (random() % 8 == 0)
            ProgramFileLoad(tag);
        else
            ProgramDumpSend(tag);
        ASSERT_EQ(sent(0x4C), expected + file.substr(23096, 2104));
    }
    void global()
    {
        const std::string file = anyBytes(448);
        GblSend(WindowBuffer(head(25) + file));
        ASSERT_EQ(sent(0x51), file.substr(32, 415));
    }
    /// A style file of 16 blocks, its groups one after the other; each goes out behind its own four descriptors.
    void styles()
    {
        std::string file = anyBytes(224), blocks[4], tables[4];
        for (std::size_t slot = 0; slot < 16; ++slot) {
            const std::size_t length = 1 + random() % 900, group = slot / 4, offset = 24 + blocks[group].size();
            file[24 + 4 * slot] = static_cast<char>(length % 256);
            file[25 + 4 * slot] = static_cast<char>(length / 256);
            for (const std::size_t value :
                 {offset % 256, std::size_t{0}, offset / 256, 0x80 + group, length % 256, length / 256})
                tables[group] += static_cast<char>(value);
            blocks[group] += anyBytes(length);
        }
        for (const std::string& group : blocks)
            file += group;
        const bool ownWindow = random() % 2 == 0;
        std::string tag = head(ownWindow ? 23 : 19);
        tag.resize(ownWindow ? 669 : 42622, ' ');
        tag += file;
        for (int group = 0; group < 4; ++group) {
            ASSERT_EQ(StyGroupSend(group, tag), 0);
            ASSERT_EQ(sent(0x65), tables[group] + blocks[group]);
        }
    }

    CoreRun run;
    RecordingMidiService service;
    std::mt19937 random{20261121U};
};

} // namespace

TEST_F(WireEquality, whatIsOnTheWireIsExactlyTheData)
{
    const int wanted = wantedImages();
    int done = 0;
    for (; done < wanted && !HasFatalFailure(); ++done) {
        App.GlobalChannel = static_cast<int>(random() % 16);
        switch (done % 4) {
        case 0:
            arrangements();
            break;
        case 1:
            programs();
            break;
        case 2:
            global();
            break;
        default:
            styles();
        }
    }
    EXPECT_EQ(done, wanted);
    noteFigure("R13", "images sent and held against the wire", done);
}
