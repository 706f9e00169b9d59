// The port among others: who is chosen, who may hold it, and what a patch bay sees and does.
#include "Stage.h"

#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

struct Sharing : OnRealKernel {
    void TearDown() override
    {
        outputOf("rmmod snd-virmidi");
        OnRealKernel::TearDown();
    }

    /// What ./run would start on this machine, as root or by a command that takes its rights.
    static std::string startedByRun(const std::string& as = "")
    {
        return outputOf(as + " bash -euo pipefail -c '. \"" TARVOLYNE_SOURCE_DIR
                             "/scripts/choose.sh\"; choose_program; echo $program: $reason'");
    }
};

/// A file of the kernel's, read without starting a program.
std::string kernelText(const std::string& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Whether the sequencer tells so much of aseqdump: "Port" of its port, "Connected From" of its wire.
bool monitorHas(const std::string& mark)
{
    std::string clients = kernelText("/proc/asound/seq/clients");
    const std::size_t start = clients.find(": \"aseqdump\"");
    if (start == std::string::npos)
        return false;
    clients = clients.substr(start);
    return has(clients.substr(0, clients.find("\nClient ")), mark);
}

/// Whether a card's first raw device is open, by the kernel's account.
bool rawHeld(int card) { return has(kernelText("/proc/asound/card" + std::to_string(card) + "/midi0"), "Buffer size"); }

/// A program that runs until the end of the test; what it says is kept.
class Background
{
public:
    explicit Background(const std::string& command) : file_("/run/said." + std::to_string(++count))
    {
        process_ = fork();
        if (process_ == 0) {
            const int said = open(file_.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            dup2(said, 1);
            dup2(said, 2);
            execl("/bin/sh", "sh", "-c", ("exec " + command).c_str(), nullptr);
            _exit(127);
        }
    }
    ~Background() { stop(); }
    void stop(int signal = SIGINT)
    {
        if (process_ < 0)
            return;
        kill(process_, signal);
        waitpid(process_, nullptr, 0);
        process_ = -1;
    }
    std::string said() const { return outputOf("cat " + file_); }

private:
    static inline int count = 0;
    std::string file_;
    pid_t process_ = -1;
};

} // namespace

TEST_F(Sharing, withoutASequencerDeviceThereIsNoOutput)
{
    const UsbMidiDevice device;
    ASSERT_EQ(rename("/dev/snd/seq", "/dev/snd/away"), 0);
    AlsaMidiService service;
    EXPECT_EQ(service.midiOutGetNumDevs(), 0);
    EXPECT_GT(service.midiInGetDevCaps(0), 0);
    ASSERT_EQ(rename("/dev/snd/away", "/dev/snd/seq"), 0);
    EXPECT_EQ(service.midiOutGetNumDevs(), 1);
}

TEST_F(Sharing, withoutTheRightToTheSequencerThereIsNoOutput)
{
    const UsbMidiDevice device;
    const pid_t child = fork();
    if (child == 0) {
        if (setgid(65534) != 0 || setuid(65534) != 0)
            _exit(100);
        AlsaMidiService service;
        _exit(service.midiOutGetNumDevs());
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(Sharing, midiThroughAloneIsNoOutput)
{
    AlsaMidiService service;
    EXPECT_EQ(service.midiOutGetNumDevs(), 0);
    EXPECT_EQ(service.midiInGetNumDevs(), 0);
    EXPECT_EQ(clientNamed("Tarvolyne"), -1);
}

TEST_F(Sharing, theStartScriptChoosesTheProgramByWhatTheServiceFinds)
{
    EXPECT_EQ(startedByRun(), "tarvolyne-virtual: no MIDI output here, so the virtual instrument plays\n");
    {
        const UsbMidiDevice keys({.name = "Stage Keys", .hasOutput = false});
        EXPECT_EQ(startedByRun(), "tarvolyne-virtual: no MIDI output here, so the virtual instrument plays\n");
        EXPECT_EQ(AlsaMidiService().midiOutGetNumDevs(), 0);
    }
    const UsbMidiDevice cable;
    EXPECT_EQ(startedByRun(), "tarvolyne: this machine has a MIDI output (DIN Cable)\n");
    EXPECT_EQ(AlsaMidiService().midiOutGetNumDevs(), 1);
    EXPECT_EQ(startedByRun("setpriv --reuid 65534 --regid 65534 --clear-groups"),
              "tarvolyne-virtual: no right to this machine's MIDI output (/dev/snd/seq), so the virtual "
              "instrument plays\n");
    ASSERT_EQ(rename("/dev/snd/seq", "/dev/snd/away"), 0);
    EXPECT_EQ(startedByRun(),
              "tarvolyne-virtual: no sequencer for this machine's MIDI output (/dev/snd/seq), so the virtual "
              "instrument plays\n");
    ASSERT_EQ(rename("/dev/snd/away", "/dev/snd/seq"), 0);
}

TEST_F(Sharing, theKeyboardsOwnPortListedFirstIsTaken)
{
    const UsbMidiDevice keys({.name = "Stage Keys"});
    const UsbMidiDevice cable({.socket = 1});
    const OpenedService stage;
    EXPECT_EQ(wiredTo(), keys.address());
}

TEST_F(Sharing, aKeyboardThatTakesNothingIsPassedOver)
{
    const UsbMidiDevice keys({.name = "Stage Keys", .hasOutput = false});
    const UsbMidiDevice cable({.socket = 1});
    OpenedService stage;
    EXPECT_EQ(wiredTo(), cable.address());
    EXPECT_EQ(stage.service.outputPortName(), "DIN Cable MIDI 1");
}

TEST_F(Sharing, ofTwoInterfacesTheFirstCardIsTaken)
{
    const UsbMidiDevice first;
    const UsbMidiDevice second({.name = "Second Cable", .socket = 1});
    const OpenedService stage;
    EXPECT_LT(first.card(), second.card());
    EXPECT_EQ(wiredTo(), first.address());
}

TEST_F(Sharing, aCardWithoutACableComesAfterTheInterfaceThoughItIsTheFirstCard)
{
    outputOf("modprobe snd-virmidi midi_devs=1");
    const UsbMidiDevice cable;
    ASSERT_EQ(cable.card(), 1);
    const OpenedService stage;
    EXPECT_EQ(wiredTo(), cable.address());
}

TEST_F(Sharing, aCardWithoutACableAloneIsTakenAndGetsEveryByteInOrder)
{
    outputOf("modprobe snd-virmidi midi_devs=1");
    OpenedService stage;
    ASSERT_EQ(stage.outResult, 0);
    Background reader("amidi -p hw:0,0 -r /run/virmidi.syx");
    ASSERT_TRUE(waitUntil([] { return rawHeld(0); }));
    const std::string message = dumpOf(40960);
    EXPECT_EQ(stage.note(60), 0);
    EXPECT_EQ(stage.dump(message), 0);
    EXPECT_EQ(stage.note(61), 0);
    sleepSeconds(0.5);
    reader.stop();
    EXPECT_TRUE(outputOf("cat /run/virmidi.syx") == "\x90\x3C\x40" + message + "\x90\x3D\x40")
        << outputOf("wc -c /run/virmidi.syx");
}

TEST_F(Sharing, aProgramAloneIsTakenAndHearsNotesAsNotes)
{
    Background monitor("aseqdump");
    ASSERT_TRUE(waitUntil([] { return monitorHas("Port "); }));
    OpenedService stage;
    ASSERT_EQ(stage.outResult, 0);
    EXPECT_EQ(stage.note(60), 0);
    EXPECT_EQ(stage.dump("\xF0\x42\x30\x4D\x4E\x04\xF7"), 0);
    sleepSeconds(0.2);
    monitor.stop();
    EXPECT_TRUE(has(monitor.said(), "Note on                 0, note 60, velocity 64")) << monitor.said();
    EXPECT_TRUE(has(monitor.said(), "F0 42 30 4D 4E 04 F7")) << monitor.said();
}

TEST_F(Sharing, aPortThatAnotherHoldsExclusivelyAnswersFour)
{
    const UsbMidiDevice cable;
    outputOf("aconnect -e 14:0 " + cable.address());
    EXPECT_EQ(OpenedService().outResult, 4);
    EXPECT_EQ(clientNamed("Tarvolyne"), -1);
    outputOf("aconnect -d 14:0 " + cable.address());
    EXPECT_EQ(OpenedService().outResult, 0);
}

TEST_F(Sharing, aPortThatAnotherHoldsAsRawDeviceAnswersFour)
{
    const UsbMidiDevice cable;
    std::ofstream("/run/long.syx", std::ios::binary) << dumpOf(9000);
    Background raw("amidi -p hw:" + std::to_string(cable.card()) + ",0 -s /run/long.syx");
    ASSERT_TRUE(waitUntil([&] { return rawHeld(cable.card()); }));
    EXPECT_EQ(OpenedService().outResult, 4);
    raw.stop(SIGKILL);
    EXPECT_EQ(OpenedService().outResult, 0);
}

TEST_F(Sharing, aPortThatAnotherProgramUsesIsShared)
{
    UsbMidiDevice cable;
    outputOf("aconnect 14:0 " + cable.address());
    OpenedService stage;
    EXPECT_EQ(stage.outResult, 0);
    EXPECT_EQ(stage.note(60), 0);
    EXPECT_EQ(cable.receivedInTheEnd(), "\x90\x3C\x40");
    EXPECT_EQ(stage.service.midiOutClose(stage.out), 0);
    EXPECT_TRUE(has(outputOf("aconnect -l"), "Connecting To: " + cable.address())) << "the other's wire stays";
}

TEST_F(Sharing, patchBaysSeeOneOutputPortAndNoInput)
{
    const UsbMidiDevice cable;
    for (int start = 0; start < 2; ++start) { // the same names at each start: patch bays know a program by them
        const OpenedService stage;
        const std::string senders = outputOf("aconnect -i");
        const std::string receivers = outputOf("aconnect -o");
        EXPECT_TRUE(has(senders, "'Tarvolyne' [type=user")) << senders;
        EXPECT_TRUE(has(senders, "    0 'MIDI out        '")) << senders;
        EXPECT_FALSE(has(receivers, "Tarvolyne")) << receivers;
    }
}

TEST_F(Sharing, aPatchBayCanWireTheOutputElsewhereByItsNames)
{
    UsbMidiDevice first;
    UsbMidiDevice second({.name = "Second Cable", .socket = 1});
    OpenedService stage;
    int status = -1;
    outputOf("aconnect -x", &status);
    EXPECT_EQ(status, 0);
    EXPECT_NE(stage.dump(dumpOf(200)), 0) << "wired to nothing";
    outputOf("aconnect Tarvolyne:0 'Second Cable':0", &status);
    EXPECT_EQ(status, 0);
    const std::string message = dumpOf(12288);
    EXPECT_EQ(stage.dump(message), 0);
    EXPECT_TRUE(second.receivedInTheEnd() == message);
    EXPECT_EQ(first.received(), "");
    EXPECT_EQ(stage.service.outputPortName(), "Second Cable MIDI 1");
}

TEST_F(Sharing, aMonitorBesideTheInstrumentHearsTheDumpAndDisturbsNothing)
{
    UsbMidiDevice cable;
    OpenedService stage;
    Background monitor("aseqdump -p Tarvolyne:0");
    ASSERT_TRUE(waitUntil([] { return monitorHas("Connected From"); }));
    const std::string message = dumpOf(12288);
    EXPECT_EQ(stage.dump(message), 0);
    monitor.stop();
    EXPECT_TRUE(cable.receivedInTheEnd() == message);
    EXPECT_TRUE(has(monitor.said(), "System exclusive")) << monitor.said();
}
