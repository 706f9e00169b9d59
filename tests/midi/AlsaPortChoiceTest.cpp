// Which port of a machine is device -1, and which one input 0.
#include "midi/SequencerPorts.h"

#include <gtest/gtest.h>

namespace
{

SeqPort system(int number, const char* name)
{
    SeqPort port;
    port.address = {0, number};
    port.kernel = true;
    port.readable = true;
    port.clientName = "System";
    port.portName = name;
    return port;
}

SeqPort midiThrough()
{
    SeqPort port;
    port.address = {14, 0};
    port.kernel = port.readable = port.writable = true;
    port.clientName = "Midi Through";
    port.portName = "Midi Through Port-0";
    return port;
}

SeqPort card(int number, int client, int portNumber, const char* name)
{
    SeqPort port;
    port.address = {client, portNumber};
    port.card = number;
    port.kernel = port.hardware = port.readable = port.writable = true;
    port.clientName = name;
    port.portName = std::string(name) + " MIDI " + std::to_string(portNumber + 1);
    return port;
}

SeqPort virtualCard(int number, int client)
{
    SeqPort port = card(number, client, 0, "Virtual Raw MIDI");
    port.hardware = false;
    return port;
}

SeqPort program(int client, const char* name)
{
    SeqPort port;
    port.address = {client, 0};
    port.readable = port.writable = true;
    port.clientName = name;
    port.portName = "input";
    return port;
}

SeqPort hidden(SeqPort port)
{
    port.readable = port.writable = false;
    return port;
}

SeqPort readOnly(SeqPort port)
{
    port.writable = false;
    return port;
}

SeqPort writeOnly(SeqPort port)
{
    port.readable = false;
    return port;
}

struct Machine {
    const char* what;
    std::vector<SeqPort> ports;
    int outputs;
    SeqAddress output; ///< of device -1; 0:0 where there is none
    int inputs;
    SeqAddress input; ///< of input 0
};

const std::vector<SeqPort> Bare = {system(0, "Timer"), system(1, "Announce"), midiThrough()};

std::vector<SeqPort> bareAnd(std::vector<SeqPort> more)
{
    more.insert(more.begin(), Bare.begin(), Bare.end());
    return more;
}

const std::vector<Machine> Machines = {
    {"nothing at all", {}, 0, {}, 0, {}},
    {"Midi Through alone", Bare, 0, {}, 0, {}},
    {"one interface", bareAnd({card(1, 20, 0, "DIN Cable")}), 1, {20, 0}, 1, {20, 0}},
    {"the keyboard's own port listed first",
     bareAnd({card(1, 20, 0, "Stage Keys"), card(2, 24, 0, "DIN Cable")}),
     2,
     {20, 0},
     2,
     {20, 0}},
    {"a keyboard that only sends, then the interface",
     bareAnd({readOnly(card(1, 20, 0, "Stage Keys")), card(2, 24, 0, "DIN Cable")}),
     1,
     {24, 0},
     2,
     {20, 0}},
    {"an interface that only sends out", bareAnd({writeOnly(card(1, 20, 0, "DIN Cable"))}), 1, {20, 0}, 0, {}},
    {"two interfaces, the second card with the lower client",
     bareAnd({card(3, 20, 0, "Second"), card(1, 28, 0, "First")}),
     2,
     {28, 0},
     2,
     {28, 0}},
    {"an interface of two ports, listed backwards",
     bareAnd({card(1, 20, 1, "Twin"), card(1, 20, 0, "Twin")}),
     2,
     {20, 0},
     2,
     {20, 0}},
    {"a card without a cable before the interface",
     bareAnd({virtualCard(0, 16), card(1, 20, 0, "DIN Cable")}),
     2,
     {20, 0},
     2,
     {20, 0}},
    {"a card without a cable alone", bareAnd({virtualCard(0, 16)}), 1, {16, 0}, 1, {16, 0}},
    {"a program beside the interface, which then does not count",
     bareAnd({program(128, "Synth"), card(1, 20, 0, "DIN Cable")}),
     1,
     {20, 0},
     1,
     {20, 0}},
    {"programs alone", bareAnd({program(130, "Other"), program(128, "Synth")}), 2, {128, 0}, 2, {128, 0}},
    {"a program that hides its port",
     bareAnd({hidden(program(128, "Bridge")), program(129, "Synth")}),
     1,
     {129, 0},
     1,
     {129, 0}},
    {"an interface whose ports are hidden", bareAnd({hidden(card(1, 20, 0, "DIN Cable"))}), 0, {}, 0, {}},
};

} // namespace

TEST(AlsaPortChoice, takesTheFirstPortWithACableElseAnotherOfACardElseThatOfAProgram)
{
    for (const Machine& machine : Machines) {
        SCOPED_TRACE(machine.what);
        const std::vector<SeqPort> outputs = SequencerPorts::outputs(machine.ports);
        ASSERT_EQ(static_cast<int>(outputs.size()), machine.outputs);
        if (machine.outputs > 0) {
            EXPECT_EQ(outputs.front().address, machine.output);
        }
        const std::vector<SeqPort> inputs = SequencerPorts::inputs(machine.ports);
        ASSERT_EQ(static_cast<int>(inputs.size()), machine.inputs);
        if (machine.inputs > 0) {
            EXPECT_EQ(inputs.front().address, machine.input);
        }
    }
}

TEST(AlsaPortChoice, ordersAllOutputsByCardThenClientThenPort)
{
    const std::vector<SeqPort> outputs =
        SequencerPorts::outputs({card(2, 24, 1, "B"), card(2, 24, 0, "B"), card(1, 28, 0, "A"), card(1, 20, 0, "A")});
    ASSERT_EQ(outputs.size(), 4U);
    EXPECT_EQ(outputs[0].address, (SeqAddress{20, 0}));
    EXPECT_EQ(outputs[1].address, (SeqAddress{28, 0}));
    EXPECT_EQ(outputs[2].address, (SeqAddress{24, 0}));
    EXPECT_EQ(outputs[3].address, (SeqAddress{24, 1}));
}

TEST(AlsaPortChoice, findsAPortAgainByBothNamesWhateverItsNumber)
{
    const std::vector<SeqPort> now = {card(1, 20, 0, "DIN Cable"), card(4, 32, 1, "Twin"), card(4, 32, 0, "Twin")};
    const SeqPort* found = SequencerPorts::sameName(now, card(2, 24, 0, "Twin"));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->address, (SeqAddress{32, 0}));
    EXPECT_EQ(SequencerPorts::sameName(now, card(1, 20, 1, "DIN Cable")), nullptr) << "another port of that interface";
    EXPECT_EQ(SequencerPorts::sameName(now, card(1, 20, 0, "USB Cable")), nullptr);
}

TEST(AlsaPortChoice, prefersTheOneOnItsOwnCardAmongInterfacesOfOneName)
{
    const std::vector<SeqPort> now = {card(1, 20, 0, "DIN Cable"), card(2, 24, 0, "DIN Cable")};
    EXPECT_EQ(SequencerPorts::sameName(now, card(2, 40, 0, "DIN Cable"))->address, (SeqAddress{24, 0}));
    EXPECT_EQ(SequencerPorts::sameName(now, card(5, 40, 0, "DIN Cable"))->address, (SeqAddress{20, 0}));
}

TEST(AlsaPortChoice, namesAPortOnceThoughTheDriverRepeatsTheInterface)
{
    EXPECT_EQ(SequencerPorts::displayName(card(1, 20, 0, "DIN Cable")), "DIN Cable MIDI 1");
    EXPECT_EQ(SequencerPorts::displayName(program(128, "Synth")), "Synth: input");
}
