// The sequencer's own calls on a real kernel: who may be wired, what a call answers, what is sent as what, and that
// nothing stays open or in memory.
#include "Stage.h"
#include "midi/AlsaSequencer.h"

#include <alsa/asoundlib.h>
#include <cerrno>
#include <filesystem>
#include <malloc.h>

namespace
{

constexpr unsigned Read = SND_SEQ_PORT_CAP_READ, SubsRead = SND_SEQ_PORT_CAP_SUBS_READ;
constexpr unsigned Write = SND_SEQ_PORT_CAP_WRITE, SubsWrite = SND_SEQ_PORT_CAP_SUBS_WRITE;

/// Another program at the sequencer.
class Neighbour
{
public:
    Neighbour() { EXPECT_EQ(snd_seq_open(&handle_, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK), 0); }
    ~Neighbour() { snd_seq_close(handle_); }
    Neighbour(const Neighbour&) = delete;
    Neighbour& operator=(const Neighbour&) = delete;

    /// A new port of its own.
    SeqAddress port(unsigned capabilities)
    {
        const int port = snd_seq_create_simple_port(handle_, "port", capabilities, SND_SEQ_PORT_TYPE_APPLICATION);
        EXPECT_GE(port, 0);
        return {snd_seq_client_id(handle_), port};
    }

    /// The next event that has come: a note in words, the bytes of a piece of SysEx as they are.
    std::string heard()
    {
        snd_seq_event_t* event = nullptr;
        if (snd_seq_event_input(handle_, &event) < 0)
            return "nothing";
        if (event->type == SND_SEQ_EVENT_NOTEON)
            return "note " + std::to_string(event->data.note.note) + " on channel " +
                   std::to_string(event->data.note.channel) + ", velocity " + std::to_string(event->data.note.velocity);
        if (event->type == SND_SEQ_EVENT_SYSEX)
            return {static_cast<const char*>(event->data.ext.ptr), event->data.ext.len};
        return "event " + std::to_string(event->type);
    }

    /// How many ports a client has.
    int portsOf(int client)
    {
        snd_seq_client_info_t* info = nullptr;
        snd_seq_client_info_alloca(&info);
        const int result = snd_seq_get_any_client_info(handle_, client, info);
        return result < 0 ? result : snd_seq_client_info_get_num_ports(info);
    }

private:
    snd_seq_t* handle_ = nullptr;
};

struct RealSequencer : OnRealKernel {
    AlsaSequencer sequencer;

    void SetUp() override
    {
        OnRealKernel::SetUp();
        ASSERT_EQ(sequencer.open(), 0);
    }
    SeqPort described(SeqAddress address)
    {
        for (const SeqPort& port : sequencer.ports())
            if (port.address == address)
                return port;
        ADD_FAILURE() << address.client << ":" << address.port << " is not listed";
        return {};
    }
};

std::ptrdiff_t openFiles()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
}

} // namespace

TEST_F(RealSequencer, onlyAPortThatMayBeUsedAndSubscribedIsAnEndOfAWire)
{
    struct Row {
        unsigned capabilities;
        bool readable, writable;
    };
    Neighbour neighbour;
    for (const Row& row : {Row{Read, false, false}, Row{SubsRead, false, false}, Row{Read | SubsRead, true, false},
                           Row{Write, false, false}, Row{SubsWrite, false, false}, Row{Write | SubsWrite, false, true},
                           Row{Read | SubsWrite, false, false}, Row{Read | SubsRead | Write, true, false},
                           Row{Read | SubsRead | Write | SubsWrite, true, true},
                           Row{Read | SubsRead | Write | SubsWrite | SND_SEQ_PORT_CAP_NO_EXPORT, false, false}}) {
        const SeqPort port = described(neighbour.port(row.capabilities));
        EXPECT_EQ(port.readable, row.readable) << row.capabilities;
        EXPECT_EQ(port.writable, row.writable) << row.capabilities;
    }
}

TEST_F(RealSequencer, whatGivesNothingIsNoKeyboardForThru)
{
    AlsaMidiService service;
    Neighbour neighbour;
    neighbour.port(Read);
    EXPECT_EQ(service.midiInGetNumDevs(), 0) << "it may be read, but nobody may subscribe to it";
    neighbour.port(Read | SubsRead);
    EXPECT_EQ(service.midiInGetNumDevs(), 1);
    const UsbMidiDevice cable({.hasInput = false});
    EXPECT_EQ(service.midiInGetNumDevs(), 1) << "an interface without an input";
}

TEST_F(RealSequencer, theOutputIsMadeOnce)
{
    Neighbour neighbour;
    ASSERT_EQ(sequencer.makeOutput(), 0);
    const SeqAddress first = sequencer.output();
    EXPECT_EQ(sequencer.makeOutput(), 0);
    EXPECT_EQ(sequencer.output(), first);
    EXPECT_EQ(neighbour.portsOf(sequencer.client()), 1);
}

TEST_F(RealSequencer, layingAndPullingTellWhetherItWasDone)
{
    Neighbour neighbour;
    const SeqAddress from = neighbour.port(Read | SubsRead);
    const SeqAddress to = neighbour.port(Write | SubsWrite);
    EXPECT_EQ(sequencer.unwire(from, to), -ENOENT) << "no wire stands there";
    EXPECT_EQ(sequencer.wire(from, to, WireMark::Ours), 0);
    EXPECT_EQ(sequencer.wire(from, to, WireMark::Ours), -EBUSY);
    ASSERT_EQ(sequencer.wiresFrom(from).size(), 1U);
    EXPECT_EQ(sequencer.unwire(from, to), 0);
    EXPECT_EQ(sequencer.wiresFrom(from).size(), 0U);
    EXPECT_EQ(sequencer.unwire(from, to), -ENOENT);
}

TEST_F(RealSequencer, oneWholeMessageGoesOutAsItsEventAndAnythingElseByteForByte)
{
    Neighbour neighbour;
    const SeqAddress to = neighbour.port(Write | SubsWrite);
    ASSERT_EQ(sequencer.makeOutput(), 0);
    EXPECT_EQ(neighbour.heard(), "nothing");
    EXPECT_EQ(sequencer.sendShort(to, "\x92\x3C\x40"), 0);
    EXPECT_EQ(neighbour.heard(), "note 60 on channel 2, velocity 64");
    EXPECT_EQ(sequencer.sendShort(to, "\x92\x3C\x40\x3E\x41"), 0);
    EXPECT_EQ(neighbour.heard(), "\x92\x3C\x40\x3E\x41") << "more than one message";
    EXPECT_EQ(sequencer.sendShort(to, "\x92\x3C"), 0);
    EXPECT_EQ(neighbour.heard(), "\x92\x3C") << "less than one";
    EXPECT_EQ(sequencer.sendShort(to, "\x92\x3D\x40"), 0);
    EXPECT_EQ(neighbour.heard(), "note 61 on channel 2, velocity 64") << "what was cut short is forgotten";
    EXPECT_EQ(neighbour.heard(), "nothing");
}

TEST_F(RealSequencer, readingTheAccountOfAnInterfaceLeavesNoFileOpen)
{
    const UsbMidiDevice cable;
    const SeqPort port = described({cable.client(), 0});
    ASSERT_EQ(sequencer.makeOutput(), 0);
    ASSERT_EQ(sequencer.wire(sequencer.output(), port.address, WireMark::None), 0);
    const std::ptrdiff_t before = openFiles();
    for (int look = 0; look < 20; ++look)
        ASSERT_TRUE(sequencer.account(port).has_value());
    EXPECT_EQ(openFiles(), before);
}

TEST_F(RealSequencer, openingAndClosingLeavesNothingInMemory)
{
    constexpr int Rounds = 50;
    const auto openAndClose = [this] {
        ASSERT_EQ(sequencer.open(), 0);
        sequencer.close();
    };
    openAndClose(); // what alsa-lib keeps for later calls is there now
    const std::size_t before = mallinfo2().uordblks;
    const std::ptrdiff_t filesBefore = openFiles();
    for (int round = 0; round < Rounds; ++round)
        openAndClose();
    EXPECT_LT(mallinfo2().uordblks, before + Rounds) << "less than a byte a round";
    EXPECT_EQ(openFiles(), filesBefore);
}
