// Thru: the master keyboard sounds on the instrument without this program in the path.
#include "Stage.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

struct Thru : OnRealKernel {
    UsbMidiDevice keys{{.name = "Stage Keys", .hasOutput = false}};
    UsbMidiDevice cable{{.socket = 1, .hasInput = false}};

    [[nodiscard]] bool wired() const
    {
        return has(outputOf("aconnect -l | awk \"/^client/ { keys = /'Stage Keys'/ } keys\""),
                   "Connecting To: " + cable.address());
    }

    /// The service with thru in a process of its own, which then stands still until it is told to end.
    static pid_t runElsewhere()
    {
        int ready[2];
        if (pipe(ready) != 0)
            return -1;
        const pid_t process = fork();
        if (process == 0) {
            OpenedService stage;
            const char result = static_cast<char>('0' + stage.openThru());
            static_cast<void>(write(ready[1], &result, 1) == 1);
            raise(SIGSTOP);
            _exit(stage.service.midiOutClose(stage.out));
        }
        char result = 0;
        EXPECT_EQ(read(ready[0], &result, 1), 1);
        EXPECT_EQ(result, '0');
        close(ready[0]);
        close(ready[1]);
        int status = 0;
        waitpid(process, &status, WUNTRACED);
        EXPECT_TRUE(WIFSTOPPED(status));
        return process;
    }
};

const std::string NoteOn = "\x90\x3C\x40";
const std::string NoteOff{'\x80', '\x3C', '\x00'};

} // namespace

TEST_F(Thru, aNoteGoesThroughThoughOurProcessStandsStill)
{
    const pid_t process = runElsewhere();
    keys.play(NoteOn + NoteOff);
    EXPECT_EQ(cable.receivedInTheEnd(), NoteOn + NoteOff);
    kill(process, SIGCONT);
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_FALSE(wired()) << "nothing of ours remains after the exit";
}

TEST_F(Thru, aKeyPlayedDuringADumpDoesNotDamageItAndThruIsThereAfterIt)
{
    OpenedService stage;
    ASSERT_EQ(stage.openThru(), 0);
    ASSERT_TRUE(wired());
    int keysPlayed = 0;
    stage.service.progress = [&](int gone, int) {
        if (gone % 2048 == 0) {
            keys.play(NoteOn);
            ++keysPlayed;
        }
    };
    const std::string message = dumpOf(12288);
    EXPECT_EQ(stage.dump(message), 0);
    EXPECT_GE(keysPlayed, 5);
    EXPECT_TRUE(cable.receivedInTheEnd() == message) << cable.received().size();
    EXPECT_TRUE(wired());
    keys.play(NoteOn);
    EXPECT_TRUE(cable.receivedInTheEnd() == message + NoteOn);
}

TEST_F(Thru, aKeyPlayedByAWireThatIsNotOursDamagesTheDumpAndThatIsTold)
{
    OpenedService stage;
    outputOf("aconnect 'Stage Keys':0 'DIN Cable':0");
    stage.service.progress = [&](int gone, int) {
        if (gone == 6400)
            keys.play(NoteOn);
    };
    EXPECT_NE(stage.dump(dumpOf(12288)), 0);
    outputOf("aconnect -d 'Stage Keys':0 'DIN Cable':0");
}

TEST_F(Thru, whatACrashLeavesWiredIsPulledAtTheNextStartAlsoWithThruOff)
{
    const pid_t process = runElsewhere();
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    ASSERT_TRUE(wired()) << "the case to be proved: the kernel keeps the wire of a dead program";
    const OpenedService next;
    EXPECT_EQ(next.outResult, 0);
    EXPECT_FALSE(wired());
}

TEST_F(Thru, aWireOfTheMusiciansOwnSurvivesOurStartAndExit)
{
    outputOf("aconnect 'Stage Keys':0 'DIN Cable':0");
    {
        OpenedService stage;
        EXPECT_EQ(stage.openThru(), 0);
        EXPECT_EQ(stage.dump(dumpOf(200)), 0);
    }
    EXPECT_TRUE(wired());
    outputOf("aconnect -d 'Stage Keys':0 'DIN Cable':0");
}

TEST_F(Thru, comesBackWithAnInterfaceThatIsPluggedInAgain)
{
    OpenedService stage;
    ASSERT_EQ(stage.openThru(), 0);
    cable.unplug();
    EXPECT_NE(stage.note(60), 0);
    UsbMidiDevice again({.socket = 1, .hasInput = false});
    EXPECT_EQ(stage.note(60), 0);
    keys.play(NoteOff);
    EXPECT_EQ(again.receivedInTheEnd(), NoteOn + NoteOff);
}

TEST_F(Thru, comesBackThoughNothingWasSentWhileTheInterfaceWasOut)
{
    OpenedService stage;
    ASSERT_EQ(stage.openThru(), 0);
    const int before = cable.client();
    cable.unplug();
    UsbMidiDevice again({.socket = 1, .hasInput = false});
    EXPECT_EQ(again.client(), before) << "the case to be proved: another device under the same number";
    EXPECT_EQ(stage.note(60), 0);
    keys.play(NoteOff);
    EXPECT_EQ(again.receivedInTheEnd(), NoteOn + NoteOff);
}
