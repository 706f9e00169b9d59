// The service on a machine of fake ports: opening, sharing, rewiring, unplugging, thru.
#include "midi/AlsaStage.h"

#include <cstdlib>

TEST_F(AlsaService, countsNoDeviceWithoutASequencerOrWithoutTheRightToIt)
{
    for (const int error : {ENOENT, EACCES}) {
        bay->openError = error;
        EXPECT_EQ(service.midiOutGetNumDevs(), 0);
        EXPECT_EQ(service.midiInGetNumDevs(), 0);
        EXPECT_GT(service.midiInGetDevCaps(0), 0);
        EXPECT_NE(service.midiOutOpen(out, -1), 0);
    }
}

TEST_F(AlsaService, onAMachineWithoutPortsItIsNoClientEither)
{
    EXPECT_EQ(service.midiOutGetNumDevs(), 0);
    EXPECT_FALSE(bay->entered);
}

TEST_F(AlsaServiceOnStage, opensTheFirstInterfaceAndAnswersItsClientNumberAsBothHandles)
{
    EXPECT_EQ(service.midiOutGetNumDevs(), 1);
    EXPECT_EQ(service.midiInGetNumDevs(), 2);
    openBoth();
    EXPECT_EQ(out, FakeSequencer::OwnClient);
    EXPECT_EQ(in, FakeSequencer::OwnClient);
    EXPECT_TRUE(bay->isWired(Own, Din));
    EXPECT_EQ(service.outputPortName(), "DIN Cable MIDI 1");
}

TEST_F(AlsaServiceOnStage, aPortHeldExclusivelyOrAsRawDeviceAnswersFourAndLeavesNoClientBehind)
{
    bay->device(Din).exclusive = true;
    EXPECT_EQ(service.midiOutOpen(out, -1), 4);
    EXPECT_FALSE(bay->entered);
    bay->device(Din).exclusive = false;
    bay->device(Din).rawHeld = true;
    EXPECT_EQ(service.midiOutOpen(out, -1), 4);
    bay->device(Din).rawHeld = false;
    EXPECT_EQ(service.midiOutOpen(out, -1), 0) << "and is there as soon as it is free";
}

TEST_F(AlsaServiceOnStage, aPatchBayThatLaidTheWireBeforeUsHoldsNothingAgainstUs)
{
    bay->wires.push_back({Own, Din, WireMark::None});
    EXPECT_EQ(service.midiOutOpen(out, -1), 0);
    EXPECT_EQ(sendNote(), 0);
    EXPECT_EQ(heardAt(Din), "\x90\x3C\x40");
}

TEST_F(AlsaServiceOnStage, theBufferOfACardWithoutACableSaysNothingOfTheMessage)
{
    bay->machine.front().hardware = false;
    bay->device(Din).rate = 0; // nobody reads behind it
    openBoth();
    EXPECT_EQ(service.midiOutLongMsg(out, dump(1000)), 0);
}

TEST_F(AlsaServiceOnStage, thruToAPortHeldByAnotherAnswersFourAndIsOff)
{
    openBoth();
    bay->device(Din).exclusive = true;
    EXPECT_EQ(service.midiConnect(in, out), 4);
    EXPECT_EQ(service.midiDisconnect(in, out), 67);
}

TEST_F(AlsaServiceOnStage, sharesThePortWithAnotherProgram)
{
    bay->plug(Synth, -1, "Sequencer", "out");
    bay->wires.push_back({Synth, Din, WireMark::None});
    openBoth();
    EXPECT_EQ(sendNote(), 0);
    EXPECT_EQ(heardAt(Din), "\x90\x3C\x40");
    EXPECT_EQ(service.midiOutClose(out), 0);
    EXPECT_TRUE(bay->isWired(Synth, Din));
}

TEST_F(AlsaServiceOnStage, aSecondOpenOfTheSamePortAnswersFour)
{
    openBoth();
    std::int32_t again = 0;
    EXPECT_EQ(service.midiOutOpen(again, -1), 4);
    EXPECT_EQ(service.midiInOpen(again, 0), 4);
}

TEST_F(AlsaServiceOnStage, wrongHandlesAnswerFive)
{
    EXPECT_EQ(sendNote(), 5);
    openBoth();
    EXPECT_EQ(service.midiOutShortMsg(0, 0x403C90), 5);
    EXPECT_EQ(service.midiOutLongMsg(out + 1, "\xF0\xF7"), 5);
    EXPECT_EQ(service.midiOutClose(out + 1), 5);
    EXPECT_EQ(service.midiInClose(0), 5);
    EXPECT_EQ(service.midiInStart(0), 5);
    EXPECT_EQ(service.midiConnect(0, out), 5);
    EXPECT_EQ(service.midiConnect(in, 0), 5);
}

TEST_F(AlsaServiceOnStage, theHandleOfAnotherLivingProgramWiresThePortBesideIt)
{
    bay->plug({140, 0}, -1, "Family", "out");
    EXPECT_EQ(service.midiOutShortMsg(140, 0x403C90), 0);
    EXPECT_EQ(heardAt(Din), "\x90\x3C\x40");
    EXPECT_EQ(service.midiOutShortMsg(141, 0x403C90), 5) << "nobody has this number";
}

TEST_F(AlsaServiceOnStage, shortMessagesGoAsEventsAndLongOnesAsPiecesInTheOrderOfTheCalls)
{
    openBoth();
    const std::string message = dump(300);
    EXPECT_EQ(service.midiOutShortMsg(out, 0x403C90), 0);
    EXPECT_EQ(service.midiOutLongMsg(out, message), 0);
    EXPECT_EQ(service.midiOutShortMsg(out, 0x0005C3), 0);
    EXPECT_EQ(heardAt(Din), std::string("\x90\x3C\x40") + message + "\xC3\x05");
    EXPECT_EQ(bay->device(Din).shortEvents, (std::vector<bool>{true, false, false, false, false, false, true}));
}

TEST_F(AlsaServiceOnStage, aWordWithoutAStatusGoesOutAsItsThreeBytes)
{
    openBoth();
    EXPECT_EQ(service.midiOutShortMsg(out, 0x030201), 0);
    EXPECT_EQ(heardAt(Din), "\x01\x02\x03");
}

TEST_F(AlsaServiceOnStage, aMessageOfOnePieceReturnsAtOnceALongerOneWhenItsLastByteIsOut)
{
    openBoth();
    EXPECT_EQ(service.midiOutLongMsg(out, dump(64)), 0);
    EXPECT_EQ(clock.seconds(), 0);
    EXPECT_EQ(service.midiOutLongMsg(out, dump(3125)), 0);
    EXPECT_GE(clock.seconds(), (64 + 3125) / 3125.0);
}

TEST_F(AlsaServiceOnStage, callsTheProgressBetweenThePieces)
{
    openBoth();
    int last = 0;
    int calls = 0;
    service.progress = [&](int gone, int total) {
        EXPECT_EQ(total, 1000);
        EXPECT_GT(gone, last);
        last = gone;
        ++calls;
    };
    EXPECT_EQ(service.midiOutLongMsg(out, dump(1000)), 0);
    EXPECT_EQ(last, 1000);
    EXPECT_EQ(calls, 16);
}

TEST_F(AlsaServiceOnStage, sendsToWhateverAPatchBayHasWired)
{
    openBoth();
    bay->plug(Other, 3, "Second Cable", "Second Cable MIDI 1");
    bay->unwire(Own, Din);
    bay->wires.push_back({Own, Other, WireMark::None});
    const std::string message = dump(200);
    EXPECT_EQ(service.midiOutLongMsg(out, message), 0);
    EXPECT_EQ(heardAt(Other), message);
    EXPECT_EQ(heardAt(Din), "");
    EXPECT_EQ(service.outputPortName(), "Second Cable MIDI 1");
}

TEST_F(AlsaServiceOnStage, sendsToAllThatAreWired)
{
    openBoth();
    bay->plug(Other, 3, "Second Cable", "Second Cable MIDI 1");
    bay->wires.push_back({Own, Other, WireMark::None});
    const std::string message = dump(200);
    EXPECT_EQ(service.midiOutLongMsg(out, message), 0);
    EXPECT_EQ(heardAt(Other), message);
    EXPECT_EQ(heardAt(Din), message);
    EXPECT_EQ(service.outputPortName(), "DIN Cable MIDI 1, Second Cable MIDI 1");
}

TEST_F(AlsaServiceOnStage, aWireThatThePatchBayPulledStaysPulledAndTheSendIsAnError)
{
    openBoth();
    bay->unwire(Own, Din);
    EXPECT_NE(service.midiOutLongMsg(out, dump(200)), 0);
    EXPECT_NE(sendNote(), 0);
    EXPECT_FALSE(bay->isWired(Own, Din));
    EXPECT_EQ(service.outputPortName(), "");
}

TEST_F(AlsaServiceOnStage, anUnpluggedInterfaceIsAnErrorUntilOneOfItsNameIsBackUnderAnyNumber)
{
    openBoth();
    bay->unplug(Din);
    EXPECT_NE(service.midiOutLongMsg(out, dump(200)), 0);
    EXPECT_NE(sendNote(), 0);
    bay->plug({20, 0}, 1, "Unknown Cable", "Unknown Cable MIDI 1");
    EXPECT_NE(sendNote(), 0) << "another device has taken its number";

    bay->plug({40, 0}, 5, "DIN Cable", "DIN Cable MIDI 1");
    const std::string message = dump(200);
    EXPECT_EQ(service.midiOutLongMsg(out, message), 0);
    EXPECT_EQ(heardAt({40, 0}), message);
    EXPECT_EQ(heardAt({20, 0}), "");
}

TEST_F(AlsaServiceOnStage, anInterfaceThatWasOutAndInBetweenTwoSendsIsWiredAgain)
{
    openBoth();
    bay->unplug(Din);
    bay->plug(Din, 1, "DIN Cable", "DIN Cable MIDI 1");
    EXPECT_EQ(sendNote(), 0);
    EXPECT_EQ(heardAt(Din), "\x90\x3C\x40");
}

TEST_F(AlsaServiceOnStage, aListenerThatIsStillWiredDoesNotHideThatTheInstrumentIsUnplugged)
{
    openBoth();
    bay->plug(Synth, -1, "Monitor", "input");
    bay->wires.push_back({Own, Synth, WireMark::None});
    EXPECT_EQ(sendNote(), 0);
    bay->unplug(Din);
    EXPECT_NE(service.midiOutLongMsg(out, dump(200)), 0);
    EXPECT_EQ(bay->device(Synth).received.size(), 203U);
}

TEST_F(AlsaServiceOnStage, wiringAnotherInterfaceInsteadOfAnUnpluggedOneEndsTheError)
{
    openBoth();
    bay->unplug(Din);
    EXPECT_NE(sendNote(), 0);
    bay->plug(Other, 3, "Second Cable", "Second Cable MIDI 1");
    bay->wires.push_back({Own, Other, WireMark::None});
    EXPECT_EQ(sendNote(), 0);
    EXPECT_EQ(heardAt(Other), "\x90\x3C\x40");
}

TEST_F(AlsaServiceOnStage, aDeviceUnpluggedInTheMiddleOfAMessageIsAnErrorWithinASecond)
{
    openBoth();
    service.progress = [&](int gone, int) {
        if (gone == 20032)
            bay->unplug(Din);
    };
    EXPECT_NE(service.midiOutLongMsg(out, dump(40960)), 0);
    EXPECT_LT(clock.seconds(), 20032 / 3094.0 + 1);
}

TEST_F(AlsaServiceOnStage, aSendThatFindsThePortBusyOnTheWayIsAFailureAndNotInUse)
{
    openBoth();
    bay->device(Din).failNext = EAGAIN;
    EXPECT_EQ(sendNote(), 1);
}

TEST_F(AlsaServiceOnStage, aQuietPatchBayIsNotAskedForItsPortsAtEachSend)
{
    openBoth();
    EXPECT_EQ(sendNote(), 0);
    const int before = bay->portQuestions;
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(sendNote(), 0);
    EXPECT_EQ(bay->portQuestions, before);
}

TEST_F(AlsaServiceOnStage, thruIsAWireFromTheKeyboardToTheInstrument)
{
    bay->machine.back().card = 0; // the keyboard is card 0, so it is input 0
    openBoth();
    EXPECT_EQ(service.midiDisconnect(in, out), 67);
    EXPECT_EQ(service.midiConnect(in, out), 0);
    EXPECT_EQ(service.midiInStart(in), 0);
    EXPECT_TRUE(bay->isWired(Keys, Din));
    EXPECT_EQ(service.midiDisconnect(in, out), 0);
    EXPECT_EQ(service.midiInStop(in), 0);
    EXPECT_FALSE(bay->isWired(Keys, Din));
}

namespace
{

struct AlsaServiceWithThru : AlsaServiceOnStage {
    AlsaServiceWithThru()
    {
        bay->machine.back().card = 0;
        openBoth();
        EXPECT_EQ(service.midiConnect(in, out), 0);
    }
};

} // namespace

TEST_F(AlsaServiceWithThru, goesWithTheOutput)
{
    EXPECT_EQ(service.midiOutClose(out), 0);
    EXPECT_FALSE(bay->isWired(Keys, Din));
}

TEST_F(AlsaServiceWithThru, goesWithTheInput)
{
    EXPECT_EQ(service.midiInClose(in), 0);
    EXPECT_FALSE(bay->isWired(Keys, Din));
}

TEST_F(AlsaServiceWithThru, isDownWhileALongMessageGoesOutAndUpAgainAfterIt)
{
    int seenDown = 0;
    service.progress = [&](int gone, int total) {
        if (gone < total)
            seenDown += bay->isWired(Keys, Din) ? 0 : 1;
    };
    EXPECT_EQ(service.midiOutLongMsg(out, dump(1000)), 0);
    EXPECT_EQ(seenDown, 15) << "between each two of 16 pieces";
    EXPECT_TRUE(bay->isWired(Keys, Din));
}

TEST_F(AlsaServiceWithThru, staysUpForAMessageOfOnePiece)
{
    const int wiresBefore = static_cast<int>(bay->wires.size());
    bay->device(Din).exclusive = true; // whoever pulled the wire now could not lay it again
    EXPECT_EQ(service.midiOutLongMsg(out, dump(9)), 0);
    EXPECT_EQ(static_cast<int>(bay->wires.size()), wiresBefore);
}

TEST_F(AlsaServiceWithThru, followsTheOutputToAnotherInterface)
{
    bay->plug(Other, 3, "Second Cable", "Second Cable MIDI 1");
    bay->unwire(Own, Din);
    bay->wires.push_back({Own, Other, WireMark::None});
    EXPECT_EQ(sendNote(), 0);
    EXPECT_FALSE(bay->isWired(Keys, Din));
    EXPECT_TRUE(bay->isWired(Keys, Other));
}

TEST_F(AlsaServiceWithThru, comesBackWithAnInterfaceThatWasUnplugged)
{
    bay->unplug(Din);
    EXPECT_NE(sendNote(), 0);
    bay->plug({40, 0}, 5, "DIN Cable", "DIN Cable MIDI 1");
    EXPECT_EQ(sendNote(), 0);
    EXPECT_TRUE(bay->isWired(Keys, {40, 0}));
}

TEST_F(AlsaServiceWithThru, comesBackWithAnInterfaceThatWasOutAndInBetweenTwoSends)
{
    bay->unplug(Din);
    bay->plug(Din, 1, "DIN Cable", "DIN Cable MIDI 1");
    EXPECT_EQ(sendNote(), 0);
    EXPECT_TRUE(bay->isWired(Keys, Din));
}

TEST_F(AlsaServiceWithThru, findsAKeyboardThatWasPluggedInElsewhere)
{
    bay->unplug(Keys);
    bay->plug({44, 0}, 6, "Stage Keys", "Stage Keys MIDI 1");
    EXPECT_EQ(service.midiOutLongMsg(out, dump(200)), 0);
    EXPECT_TRUE(bay->isWired({44, 0}, Din));
}

TEST_F(AlsaServiceWithThru, comesBackAtTheNextNoteWithAKeyboardThatWasOutAndIn)
{
    bay->unplug(Keys);
    EXPECT_EQ(sendNote(), 0) << "the instrument hears us without the keyboard";
    bay->plug(Keys, 0, "Stage Keys", "Stage Keys MIDI 1");
    EXPECT_EQ(sendNote(), 0);
    EXPECT_TRUE(bay->isWired(Keys, Din));
    EXPECT_EQ(service.midiDisconnect(in, out), 0);
    EXPECT_FALSE(bay->isWired(Keys, Din)) << "and it is ours to be pulled";
}

TEST_F(AlsaServiceOnStage, aThruWireOfTheMusiciansOwnServesAndIsLeftAsItWas)
{
    bay->machine.back().card = 0;
    bay->wires.push_back({Keys, Din, WireMark::None});
    openBoth();
    EXPECT_EQ(service.midiConnect(in, out), 0);
    bool down = true;
    service.progress = [&](int gone, int total) { down = down && (gone == total || !bay->isWired(Keys, Din)); };
    EXPECT_EQ(service.midiOutLongMsg(out, dump(200)), 0);
    EXPECT_TRUE(down) << "a long message is not to be damaged by it";
    EXPECT_EQ(service.midiDisconnect(in, out), 0);
    EXPECT_TRUE(bay->isWired(Keys, Din));
}

TEST_F(AlsaServiceOnStage, theNextStartPullsTheThruWireThatACrashHasLeftAndNoOther)
{
    bay->plug(Synth, -1, "Sequencer", "port");
    bay->wires.push_back({Keys, Din, WireMark::Ours});
    bay->wires.push_back({Keys, Synth, WireMark::None});
    openBoth();
    EXPECT_FALSE(bay->isWired(Keys, Din));
    EXPECT_TRUE(bay->isWired(Keys, Synth));
}

TEST_F(AlsaServiceOnStage, aThruWireOfARunningTwinIsNotPulled)
{
    SeqPort& twin = bay->plug({129, 0}, -1, "Tarvolyne", "MIDI out");
    twin.writable = false;
    bay->wires.push_back({Keys, Din, WireMark::Ours});
    openBoth();
    EXPECT_TRUE(bay->isWired(Keys, Din));
}

TEST(AlsaServiceEnd, leavesNothingWiredThoughNobodyClosedThePorts)
{
    FakeClock clock;
    FakeSequencer bay(clock);
    bay.plug(Din, 1, "DIN Cable", "DIN Cable MIDI 1");
    struct Door final : Sequencer { // hands on to a bay that outlives the service
        FakeSequencer& bay;
        explicit Door(FakeSequencer& real) : bay(real) {}
        int open() override { return bay.open(); }
        void close() override { bay.close(); }
        bool isOpen() const override { return bay.isOpen(); }
        int client() const override { return bay.client(); }
        int makeOutput() override { return bay.makeOutput(); }
        SeqAddress output() const override { return bay.output(); }
        std::vector<SeqPort> ports() override { return bay.ports(); }
        std::vector<SeqWire> wiresFrom(SeqAddress sender) override { return bay.wiresFrom(sender); }
        int wire(SeqAddress from, SeqAddress to, WireMark mark) override { return bay.wire(from, to, mark); }
        int unwire(SeqAddress from, SeqAddress to) override { return bay.unwire(from, to); }
        int sendPiece(SeqAddress to, std::string_view bytes) override { return bay.sendPiece(to, bytes); }
        int sendShort(SeqAddress to, std::string_view bytes) override { return bay.sendShort(to, bytes); }
        std::optional<PortAccount> account(const SeqPort& port) override { return bay.account(port); }
    };
    {
        AlsaMidiService service(std::make_unique<Door>(bay), clock.source());
        std::int32_t out = 0;
        std::int32_t in = 0;
        ASSERT_EQ(service.midiOutOpen(out, -1), 0);
        ASSERT_EQ(service.midiInOpen(in, 0), 0);
        ASSERT_EQ(service.midiConnect(in, out), 0);
        ASSERT_EQ(bay.wires.size(), 2U) << "our port to the cable, and thru";
    }
    EXPECT_TRUE(bay.wires.empty());
    EXPECT_FALSE(bay.entered);
}

TEST(AlsaServiceReal, hasNoDeviceWhereTheSequencerCannotBeOpened)
{
    // Without its definitions alsa-lib opens nothing, which makes every machine one without a sequencer.
    setenv("ALSA_CONFIG_PATH", "/dev/null", 1);
    AlsaMidiService service;
    std::int32_t handle = 0;
    EXPECT_EQ(service.midiOutGetNumDevs(), 0);
    EXPECT_EQ(service.midiInGetNumDevs(), 0);
    EXPECT_NE(service.midiOutOpen(handle, -1), 0);
    EXPECT_NE(service.midiInOpen(handle, 0), 0);
    EXPECT_EQ(handle, 0);
    EXPECT_EQ(service.outputPortName(), "");
    unsetenv("ALSA_CONFIG_PATH");
}
