// What seldom happens to the service: no room for a port, devices of equal names, wires that come and go under it.
#include "midi/AlsaStage.h"

#include "midi/AlsaSequencer.h"
#include "midi/ImpatientCall.h"
#include "midi/SequencerPorts.h"

#include <csignal>
#include <poll.h>
#include <sys/time.h>

TEST_F(AlsaService, withoutAnyPortAnOpeningFailsAndLeavesNoClient)
{
    EXPECT_EQ(service.midiOutOpen(out, -1), 1);
    EXPECT_EQ(out, 0);
    EXPECT_FALSE(bay->entered);
}

TEST_F(AlsaServiceOnStage, anOpeningThatTheSequencerRefusesIsAFailureAndLeavesNoClient)
{
    bay->device(Din).wireError = EPERM;
    EXPECT_EQ(service.midiOutOpen(out, -1), 1);
    EXPECT_FALSE(bay->entered);
    bay->device(Din).wireError = 0;
    bay->outputError = ENOMEM;
    EXPECT_EQ(service.midiOutOpen(out, -1), 1);
    EXPECT_FALSE(bay->entered);
    bay->outputError = 0;
    EXPECT_EQ(service.midiOutOpen(out, -1), 0);
}

TEST_F(AlsaServiceOnStage, onlyInputsThatAreThereCanBeAskedForAndOpened)
{
    EXPECT_EQ(service.midiInGetDevCaps(-1), 1);
    EXPECT_EQ(service.midiInGetDevCaps(0), 0);
    EXPECT_EQ(service.midiInGetDevCaps(1), 0);
    EXPECT_EQ(service.midiInGetDevCaps(2), 1);
    EXPECT_EQ(service.midiInOpen(in, -1), 1);
    EXPECT_EQ(service.midiInOpen(in, 2), 1);
    EXPECT_EQ(in, 0);
    EXPECT_FALSE(bay->entered);
    EXPECT_EQ(service.midiInClose(0), 5) << "nothing is open";
    EXPECT_EQ(service.midiInOpen(in, 1), 0);
    EXPECT_EQ(service.midiInClose(in), 0);
    EXPECT_FALSE(bay->entered);
}

TEST_F(AlsaServiceOnStage, joiningAndPartingAskForBothHandles)
{
    openBoth();
    EXPECT_EQ(service.midiConnect(in + 1, out), 5);
    EXPECT_EQ(service.midiDisconnect(in + 1, out), 5);
    EXPECT_EQ(service.midiDisconnect(in, out + 1), 5);
    EXPECT_EQ(service.midiDisconnect(in, out), 67);
}

TEST_F(AlsaServiceOnStage, aForeignHandleServesToTheEndUntilItIsClosed)
{
    bay->plug({140, 0}, -1, "Family", "out");
    EXPECT_EQ(service.midiOutShortMsg(-1, 0x403C90), 5);
    EXPECT_EQ(service.midiOutShortMsg(Din.client, 0x403C90), 5) << "a driver is no program of the family";
    EXPECT_FALSE(bay->entered);
    EXPECT_EQ(service.midiOutClose(140), 5) << "never used, so nothing of ours is open";
    EXPECT_EQ(service.midiOutShortMsg(140, 0x403C90), 0);
    EXPECT_EQ(service.midiOutLongMsg(140, "\xF0\xF7"), 0);
    EXPECT_EQ(heardAt(Din), "\x90\x3C\x40\xF0\xF7");
    EXPECT_EQ(service.midiOutShortMsg(139, 0x403C90), 5);
    EXPECT_EQ(service.midiOutClose(140), 0);
    EXPECT_EQ(service.midiOutClose(140), 5);
    EXPECT_FALSE(bay->entered);
}

TEST_F(AlsaServiceOnStage, aForeignHandleOnAHeldPortAnswersFourAndWithoutASequencerFive)
{
    bay->plug({140, 0}, -1, "Family", "out");
    bay->device(Din).exclusive = true;
    EXPECT_EQ(service.midiOutShortMsg(140, 0x403C90), 4);
    EXPECT_FALSE(bay->entered);
    bay->device(Din).exclusive = false;
    bay->openError = ENOENT;
    EXPECT_EQ(service.midiOutShortMsg(140, 0x403C90), 5);
}

TEST_F(AlsaServiceOnStage, whatOneOfTwoInterfacesHasTakenIsStillAFailureOfTheOther)
{
    bay->plug(Other, 3, "Second Cable", "Second Cable MIDI 1");
    openBoth();
    bay->wires.push_back({Own, Other, WireMark::None});
    EXPECT_EQ(sendNote(), 0);
    bay->unplug(Other);
    EXPECT_EQ(sendNote(), 1);
    EXPECT_EQ(service.midiOutLongMsg(out, dump(200)), 1);
    EXPECT_EQ(heardAt(Din).size(), 3u + 3u + 200u) << "the other one heard all of it";
}

TEST_F(AlsaServiceOnStage, theNameStaysThatOfTheReceiversOfTheMessageThatIsGoingOut)
{
    openBoth();
    EXPECT_EQ(service.outputPortName(), "DIN Cable MIDI 1");
    std::string meanwhile;
    service.progress = [&](int gone, int) {
        if (gone != 64)
            return;
        bay->plug(Other, 3, "Second Cable", "Second Cable MIDI 1");
        bay->wires.push_back({Own, Other, WireMark::None});
        meanwhile = service.outputPortName();
    };
    EXPECT_EQ(service.midiOutLongMsg(out, dump(200)), 0);
    EXPECT_EQ(meanwhile, "DIN Cable MIDI 1");
    EXPECT_EQ(heardAt(Other), "");
    EXPECT_EQ(service.outputPortName(), "DIN Cable MIDI 1, Second Cable MIDI 1");
}

TEST_F(AlsaServiceOnStage, aListenerBesideTheInterfaceIsNotNamed)
{
    bay->plug(Synth, -1, "Monitor", "input");
    openBoth();
    bay->wires.push_back({Own, Synth, WireMark::None});
    EXPECT_EQ(service.outputPortName(), "DIN Cable MIDI 1");
    EXPECT_EQ(service.midiOutClose(out), 0);
    EXPECT_EQ(service.outputPortName(), "");
}

TEST_F(AlsaServiceOnStage, anInterfaceWithoutAnAccountIsSentToAgainstTheClockAlone)
{
    bay->device(Din).accountReadable = false;
    bay->device(Din).stallTo = FakeDevice::Never; // which nobody can see
    openBoth();
    EXPECT_EQ(service.midiOutLongMsg(out, dump(3094)), 0);
    EXPECT_NEAR(clock.seconds(), 1.0, 0.01);
}

TEST_F(AlsaServiceOnStage, anUnpluggedInterfaceIsNotTakenBackWhileItCannotBeWired)
{
    openBoth();
    bay->unplug(Din);
    EXPECT_EQ(sendNote(), 1);
    bay->plug({40, 0}, 5, "DIN Cable", "DIN Cable MIDI 1").writable = false;
    EXPECT_EQ(sendNote(), 1);
    bay->machine.back().writable = true;
    bay->device({40, 0}).exclusive = true;
    EXPECT_EQ(sendNote(), 1);
    bay->device({40, 0}).exclusive = false;
    EXPECT_EQ(sendNote(), 0);
    EXPECT_EQ(heardAt({40, 0}), "\x90\x3C\x40");
}

TEST_F(AlsaServiceOnStage, aPortThatIsRenamedUnderItsWireHasGone)
{
    openBoth();
    bay->unwire(Own, Din);
    bay->machine.front().portName = "DIN Cable MIDI 2";
    EXPECT_EQ(sendNote(), 1);
    bay->machine.front().portName = "DIN Cable MIDI 1";
    EXPECT_EQ(sendNote(), 0) << "the same again: the wire is laid anew";
}

TEST_F(AlsaServiceOnStage, aWireToAPortThatNobodyKnowsIsLeftOut)
{
    openBoth();
    bay->wires.push_back({Own, {99, 0}, WireMark::None});
    EXPECT_EQ(sendNote(), 0);
    EXPECT_EQ(heardAt(Din), "\x90\x3C\x40");
    EXPECT_EQ(service.outputPortName(), "DIN Cable MIDI 1");
}

TEST(AlsaPortNames, ofTwoOfTheSameNameTheOneOnTheSameCardIsMeant)
{
    SeqPort first, second, wanted;
    first.clientName = second.clientName = wanted.clientName = "Cable";
    first.portName = second.portName = wanted.portName = "MIDI 1";
    first.card = 1;
    second.card = wanted.card = 2;
    const std::vector<SeqPort> ports{first, second};
    EXPECT_EQ(SequencerPorts::sameName(ports, wanted), &ports[1]);
    wanted.card = 1;
    EXPECT_EQ(SequencerPorts::sameName(ports, wanted), &ports[0]);
    wanted.card = 7;
    EXPECT_EQ(SequencerPorts::sameName(ports, wanted), &ports[0]) << "else the first";
    wanted.portName = "MIDI 2";
    EXPECT_EQ(SequencerPorts::sameName(ports, wanted), nullptr);
}

namespace
{

struct ThruWiresAlone : testing::Test {
    FakeClock clock;
    FakeSequencer bay{clock};
    ThruWires thru{bay};

    ThruWiresAlone()
    {
        bay.plug(Din, 1, "DIN Cable", "DIN Cable MIDI 1");
        bay.plug(Other, 3, "Second Cable", "Second Cable MIDI 1");
        bay.plug(Keys, 2, "Stage Keys", "Stage Keys MIDI 1");
    }
};

} // namespace

TEST_F(ThruWiresAlone, tellTheFirstErrorAndStayOnForTheReceiversThatCouldBeWired)
{
    bay.device(Din).exclusive = true;
    bay.device(Other).wireError = EPERM;
    EXPECT_EQ(thru.connect(bay.machine.back(), {Din, Other}), -EBUSY);
    EXPECT_FALSE(thru.on());
    bay.device(Other).wireError = 0;
    EXPECT_EQ(thru.connect(bay.machine.back(), {Din, Other}), -EBUSY);
    EXPECT_TRUE(thru.on());
    EXPECT_TRUE(bay.isWired(Keys, Other));
    thru.disconnect();
    EXPECT_TRUE(bay.wires.empty());
    EXPECT_FALSE(thru.on());
}

TEST_F(ThruWiresAlone, leaveTheMusiciansOwnWireWhereItIsWhenTheReceiversChange)
{
    bay.wires.push_back({Keys, Synth, WireMark::None});
    bay.wires.push_back({Keys, Din, WireMark::None});
    EXPECT_EQ(thru.connect(bay.machine.back(), {Din, Other}), 0);
    EXPECT_EQ(bay.wires.size(), 3u) << "two of the musician's, one of ours";
    thru.follow({Din, Other});
    EXPECT_EQ(bay.wires.size(), 3u);
    thru.follow({Din});
    EXPECT_TRUE(bay.isWired(Keys, Din));
    EXPECT_TRUE(bay.isWired(Keys, Synth));
    EXPECT_FALSE(bay.isWired(Keys, Other));
    thru.disconnect();
    EXPECT_TRUE(bay.isWired(Keys, Din));
}

TEST_F(ThruWiresAlone, doNothingWhileTheyAreOff)
{
    thru.follow({Din});
    thru.suspend();
    thru.resume({Din});
    EXPECT_TRUE(bay.wires.empty());
}

TEST_F(ThruWiresAlone, findTheKeyboardAgainThoughAnotherHasTakenItsNumber)
{
    EXPECT_EQ(thru.connect(bay.machine.back(), {Din}), 0);
    bay.unplug(Keys);
    bay.plug(Keys, 2, "Stage Keys", "Stage Keys MIDI 2"); // another port of the same name of client
    bay.plug({44, 0}, 6, "Stage Keys", "Stage Keys MIDI 1");
    thru.resume({Din});
    EXPECT_TRUE(bay.isWired({44, 0}, Din));
    EXPECT_FALSE(bay.isWired(Keys, Din));
    bay.unplug({44, 0});
    bay.unplug(Keys);
    bay.plug(Keys, 2, "Drum Pads", "Stage Keys MIDI 1");
    thru.resume({Din});
    EXPECT_FALSE(bay.isWired(Keys, Din)) << "no keyboard of that name is there";
}

TEST_F(ThruWiresAlone, forgetTheirWiresWhenTheyAreTakenDown)
{
    const SeqPort keyboard = bay.machine.back();
    EXPECT_EQ(thru.connect(keyboard, {Din}), 0);
    thru.disconnect();
    bay.wires.push_back({Keys, Din, WireMark::None}); // the musician's own
    EXPECT_EQ(thru.connect(keyboard, {Other}), 0);
    thru.disconnect();
    EXPECT_TRUE(bay.isWired(Keys, Din));
    EXPECT_FALSE(bay.isWired(Keys, Other));
}

TEST_F(ThruWiresAlone, areNotLaidAnewAtEveryNoteBehindALongMessage)
{
    EXPECT_EQ(thru.connect(bay.machine.back(), {Din}), 0);
    thru.suspend();
    EXPECT_FALSE(bay.isWired(Keys, Din));
    thru.resume({Din});
    bay.device(Din).exclusive = true; // whoever pulled the wire now could not lay it again
    thru.follow({Din});
    EXPECT_TRUE(bay.isWired(Keys, Din));
}

TEST_F(AlsaServiceOnStage, openedAgainTheInterfaceHearsEachMessageOnce)
{
    openBoth();
    EXPECT_EQ(service.midiOutClose(out), 0);
    EXPECT_EQ(service.midiOutOpen(out, -1), 0);
    EXPECT_EQ(sendNote(), 0);
    EXPECT_EQ(heardAt(Din), "\x90\x3C\x40");
    EXPECT_EQ(service.outputPortName(), "DIN Cable MIDI 1");
}

TEST_F(AlsaServiceOnStage, aForeignHandleIsForgottenWithTheClose)
{
    bay->plug({140, 0}, -1, "Family", "out");
    EXPECT_EQ(service.midiOutShortMsg(140, 0x403C90), 0);
    EXPECT_EQ(service.midiOutClose(140), 0);
    openBoth();
    EXPECT_EQ(service.midiOutShortMsg(140, 0x403C90), 5);
    EXPECT_EQ(sendNote(), 0);
}

TEST(AlsaPortNames, aCardWithoutACableStillComesBeforeAnyProgram)
{
    SeqPort program, card;
    program.address = {130, 0};
    program.writable = card.writable = card.kernel = true;
    card.address = {24, 0};
    card.card = 1;
    const std::vector<SeqPort> outputs = SequencerPorts::outputs({program, card});
    ASSERT_EQ(outputs.size(), 1u) << "with a card no program is chosen";
    EXPECT_EQ(outputs[0].address, (SeqAddress{24, 0}));
}

TEST(ImpatientCallRule, aCallThatHangsComesBackAfterTwoSecondsAndTheAlarmIsAsBefore)
{
    const std::int64_t begun = WireClock::monotonicTime().now();
    {
        const ImpatientCall impatient;
        EXPECT_EQ(poll(nullptr, 0, 20'000), -1);
        EXPECT_EQ(errno, EINTR);
    }
    const double seconds = static_cast<double>(WireClock::monotonicTime().now() - begun) / 1e9;
    EXPECT_GT(seconds, 1.9);
    EXPECT_LT(seconds, 10);
    struct sigaction now {
    };
    sigaction(SIGALRM, nullptr, &now);
    EXPECT_EQ(now.sa_handler, SIG_DFL);
    itimerval timer{};
    getitimer(ITIMER_REAL, &timer);
    EXPECT_EQ(timer.it_value.tv_sec + timer.it_value.tv_usec, 0);
}

TEST(AlsaSequencerClosed, answersThatNothingIsThere)
{
    AlsaSequencer closed;
    EXPECT_FALSE(closed.isOpen());
    EXPECT_EQ(closed.client(), 0);
    EXPECT_EQ(closed.output(), SeqAddress{});
    EXPECT_EQ(closed.makeOutput(), -ENODEV);
    EXPECT_TRUE(closed.ports().empty());
    EXPECT_TRUE(closed.wiresFrom(Din).empty());
    EXPECT_EQ(closed.wire(Keys, Din, WireMark::Ours), -ENODEV);
    EXPECT_EQ(closed.unwire(Keys, Din), -ENODEV);
    EXPECT_EQ(closed.sendPiece(Din, "\xF0\xF7"), -ENODEV);
    EXPECT_EQ(closed.sendShort(Din, "\x90\x3C\x40"), -ENODEV);
    EXPECT_EQ(closed.account(SeqPort{}), std::nullopt);
    closed.close();
    EXPECT_FALSE(closed.isOpen());
}
