// Opening, joining and closing the ports: which calls reach the service, what is answered and what is told.
#include "MidiRoom.h"

#include "midi/MidiService.h"
#include "midi/NoMidiService.h"

using Said = ScriptedUser::Said;

namespace
{
constexpr const char* InUse = "Dispositivo MIDI di Uscita già in uso";
constexpr const char* OpeningError = "Errore apertura Dispositivo MIDI di Uscita";
constexpr const char* NoDevice = "Dispositivo MIDI di Uscita assente";
constexpr const char* ClosingError = "Errore chiusura Dispositivo MIDI di Uscita";
} // namespace

class MidiOutOpenRule : public MidiRoom
{
};
class MidiInOpenRule : public MidiRoom
{
};
class MidiCloseRule : public MidiRoom
{
};
class MidiThruRule : public MidiRoom
{
};
class MidiSendRule : public MidiRoom
{
};
class MidiNoteRule : public MidiRoom
{
};

TEST_F(MidiOutOpenRule, asksForTheCountTwiceThenOpensTheMapperAndKeepsItsHandle)
{
    Midi.MidiOpenFailed = true;
    Midi.MidiOutDevice = 3;
    service.outputs = 2;
    EXPECT_EQ(MidiOutOpen(), 0);
    EXPECT_EQ(service.operations(), (Lines{"midiOutGetNumDevs", "midiOutGetNumDevs", "midiOutOpen"}));
    EXPECT_EQ(Midi.MidiOutHandle, 77);
    EXPECT_EQ(Midi.MidiOutDevice, -1);
    EXPECT_EQ(Midi.MidiOutDevCount, 2);
    EXPECT_EQ(Midi.MidiPortsOpen, 1);
    EXPECT_EQ(Midi.MidiLastResult, 0);
    EXPECT_FALSE(Midi.MidiOpenFailed);
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(MidiOutOpenRule, withoutADeviceReportsDisablesMidiAndStillAnswersZero)
{
    service.outputs = 0;
    EXPECT_EQ(MidiOutOpen(), 0);
    EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, NoDevice}}));
    EXPECT_EQ(Midi.MidiEnabled, 0);
    EXPECT_EQ(Midi.MidiPortsOpen, 0);
    EXPECT_TRUE(Midi.MidiOpenFailed);
    EXPECT_EQ(service.operations(), (Lines{"midiOutGetNumDevs", "midiOutGetNumDevs"}));
}

TEST_F(MidiOutOpenRule, saysThatThereIsNoDeviceEvenWhenQuiet)
{
    service.outputs = 0;
    Midi.MidiQuiet = true;
    EXPECT_EQ(MidiOutOpen(), 0);
    EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, NoDevice}}));
}

TEST_F(MidiOutOpenRule, reportsADeviceThatIsInUseAndAnswersFour)
{
    service.results["midiOutOpen"] = 4;
    EXPECT_EQ(MidiOutOpen(), 4);
    EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, InUse}}));
    EXPECT_EQ(Midi.MidiLastResult, 4);
    EXPECT_EQ(Midi.MidiPortsOpen, 1);
    EXPECT_EQ(Midi.MidiEnabled, 1);
    EXPECT_FALSE(Midi.MidiOpenFailed);
}

TEST_F(MidiOutOpenRule, reportsAnyOtherResultAsAnOpeningError)
{
    for (const int result : {1, 5, 67, 100, -3}) {
        user.warnings.clear();
        service.results["midiOutOpen"] = result;
        EXPECT_EQ(MidiOutOpen(), result);
        EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, OpeningError}}));
    }
}

TEST_F(MidiOutOpenRule, saysNothingWhenQuiet)
{
    Midi.MidiQuiet = true;
    for (const int result : {4, 9}) {
        service.results["midiOutOpen"] = result;
        EXPECT_EQ(MidiOutOpen(), result);
        EXPECT_EQ(Midi.MidiLastResult, result);
    }
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(MidiOutOpenRule, speaksEnglishToo)
{
    App.Language = 2;
    App.LanguageBase = 200;
    service.results["midiOutOpen"] = 4;
    EXPECT_EQ(MidiOutOpen(), 4);
    service.results["midiOutOpen"] = 1;
    EXPECT_EQ(MidiOutOpen(), 1);
    service.outputs = 0;
    EXPECT_EQ(MidiOutOpen(), 0);
    EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, "Output MIDI Device already in use"},
                                                {MidiTitle, "Error opening Output MIDI Device"},
                                                {MidiTitle, "Output MIDI Device not found"}}));
}

TEST_F(MidiOutOpenRule, answersFourBeforeAskingForDevicesWhileAnotherProcessHoldsTheInstrument)
{
    Midi.heldElsewhere = true;
    service.outputs = 0;
    EXPECT_EQ(MidiOutOpen(), 4);
    EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, InUse}}));
    EXPECT_TRUE(service.calls.empty());
    EXPECT_EQ(Midi.MidiEnabled, 1);
    EXPECT_EQ(Midi.MidiPortsOpen, 0);
    EXPECT_EQ(Midi.MidiLastResult, 4);

    user.warnings.clear();
    Midi.MidiQuiet = true;
    EXPECT_EQ(MidiOutOpen(), 4);
    EXPECT_EQ(MidiInOpen(), 4);
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_TRUE(service.calls.empty());
}

TEST_F(MidiOutOpenRule, findsNoDeviceWhereNoServiceIsJoined)
{
    Midi.service = nullptr;
    EXPECT_EQ(MidiOutOpen(), 0);
    EXPECT_EQ(Midi.MidiEnabled, 0);
    EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, NoDevice}}));

    NoMidiService none;
    Midi = {};
    Midi.service = &none;
    EXPECT_EQ(MidiOutOpen(), 0);
    EXPECT_EQ(Midi.MidiEnabled, 0);
    EXPECT_EQ(user.warnings.size(), 2U);
}

TEST_F(MidiInOpenRule, probesTheFirstInputAndOpensIt)
{
    Midi.MidiInDevice = 9;
    service.inputs = 3;
    EXPECT_EQ(MidiInOpen(), 0);
    EXPECT_EQ(service.operations(), (Lines{"midiInGetNumDevs", "midiInGetDevCaps", "midiInOpen"}));
    EXPECT_EQ(Midi.MidiInHandle, 88);
    EXPECT_EQ(Midi.MidiInDevCount, 3);
    EXPECT_EQ(Midi.MidiInDevice, 0);
    EXPECT_EQ(Midi.MidiPortsOpen, 1);
}

TEST_F(MidiInOpenRule, answersAHundredWithoutADialogWhenTheInputCannotBeProbed)
{
    service.results["midiInGetDevCaps"] = 2;
    EXPECT_EQ(MidiInOpen(), 100);
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_EQ(Midi.MidiEnabled, 0);
    EXPECT_EQ(Midi.MidiPortsOpen, 0);
    EXPECT_TRUE(Midi.MidiOpenFailed);
    EXPECT_EQ(Midi.MidiLastResult, 2);
    EXPECT_EQ(service.operations(), (Lines{"midiInGetNumDevs", "midiInGetDevCaps"}));
}

TEST_F(MidiInOpenRule, opensWhenTheProbeAnswersBelowZero)
{
    service.results["midiInGetDevCaps"] = -1;
    EXPECT_EQ(MidiInOpen(), 0);
    EXPECT_EQ(service.operations().back(), "midiInOpen");
    EXPECT_EQ(Midi.MidiEnabled, 1);
}

TEST_F(MidiInOpenRule, opensThoughTheCountIsZeroWhenTheProbeIsGood)
{
    service.inputs = 0;
    EXPECT_EQ(MidiInOpen(), 0);
    EXPECT_EQ(Midi.MidiInDevCount, 0);
    EXPECT_EQ(Midi.MidiInHandle, 88);
}

TEST_F(MidiInOpenRule, reportsAFailedOpeningInTheWordsOfTheOutputUnlessQuiet)
{
    service.results["midiInOpen"] = 4;
    EXPECT_EQ(MidiInOpen(), 4);
    service.results["midiInOpen"] = 6;
    EXPECT_EQ(MidiInOpen(), 6);
    EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, InUse}, {MidiTitle, OpeningError}}));
    EXPECT_EQ(Midi.MidiEnabled, 1);
    EXPECT_FALSE(Midi.MidiOpenFailed);

    Midi.MidiQuiet = true;
    EXPECT_EQ(MidiInOpen(), 6);
    EXPECT_EQ(user.warnings.size(), 2U);
}

TEST_F(MidiCloseRule, closesEachPortAndCountsThemAsClosed)
{
    openPorts();
    MidiOutClose();
    EXPECT_EQ(Midi.MidiPortsOpen, 0);
    Midi.MidiPortsOpen = 1;
    MidiInClose();
    EXPECT_EQ(Midi.MidiPortsOpen, 0);
    EXPECT_EQ(service.operations(), (Lines{"midiOutClose", "midiInClose"}));
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(MidiCloseRule, reportsAFailedCloseAndLeavesThePortsCountedAsOpen)
{
    openPorts();
    service.results["midiOutClose"] = 5;
    service.results["midiInClose"] = 4;
    MidiOutClose();
    EXPECT_EQ(Midi.MidiPortsOpen, 1);
    MidiInClose();
    EXPECT_EQ(Midi.MidiPortsOpen, 1);
    EXPECT_EQ(Midi.MidiLastResult, 4);
    EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, ClosingError}, {MidiTitle, ClosingError}}));
}

TEST_F(MidiThruRule, keepsTheResultsAndActsOnNone)
{
    openPorts();
    const std::vector<std::pair<std::string, void (*)()>> routines{{"midiConnect", MidiThruConnect},
                                                                   {"midiDisconnect", MidiThruDisconnect},
                                                                   {"midiInStart", MidiInRun},
                                                                   {"midiInStop", MidiInHalt}};
    for (const auto& [operation, routine] : routines) {
        for (const int result : {0, 67, 5, 4, 1}) {
            service.forget();
            service.results[operation] = result;
            routine();
            EXPECT_EQ(service.operations(), (Lines{operation}));
            EXPECT_EQ(Midi.MidiLastResult, result) << operation;
            EXPECT_EQ(Midi.MidiEnabled, 1);
            EXPECT_EQ(Midi.MidiPortsOpen, 1);
        }
    }
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(MidiThruRule, joinsTheInputToTheOutputInThatOrder)
{
    struct Handles : RecordingMidiService {
        std::vector<std::pair<std::int32_t, std::int32_t>> pairs;
        int midiConnect(std::int32_t in, std::int32_t out) override
        {
            pairs.emplace_back(in, out);
            return 0;
        }
        int midiDisconnect(std::int32_t in, std::int32_t out) override
        {
            pairs.emplace_back(in, out);
            return 0;
        }
    } handles;
    openPorts();
    Midi.service = &handles;
    MidiThruConnect();
    MidiThruDisconnect();
    EXPECT_EQ(handles.pairs, (std::vector<std::pair<std::int32_t, std::int32_t>>{{88, 77}, {88, 77}}));
}

TEST_F(MidiSendRule, doesNothingAtAllWithMidiDisabled)
{
    openMonitor();
    Midi.MidiEnabled = 0;
    Midi.MidiLastResult = 4;
    Midi.KeyLogActive = true;
    Midi.SysExOutput = "kept";
    Midi.MidiPortsOpen = 1;
    EXPECT_EQ(MidiOutOpen(), 0);
    EXPECT_EQ(MidiInOpen(), 0);
    MidiOutClose();
    MidiInClose();
    MidiShortSend();
    MidiLongSend();
    MidiThruConnect();
    MidiThruDisconnect();
    MidiInRun();
    MidiInHalt();
    MidiResultCheck();
    MidiNoteOn(0, 60, 64);
    MidiNoteOff(0, 60, 64);
    MidiAllNotesOff(0);
    EXPECT_TRUE(service.calls.empty());
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_TRUE(diary.empty());
    EXPECT_EQ(Midi.SysExOutput, "kept");
    EXPECT_EQ(Midi.MidiShortValue, 0U);
    EXPECT_EQ(Midi.MidiPortsOpen, 1);
    EXPECT_EQ(Midi.MidiLastResult, 4);
}

TEST_F(MidiSendRule, sendsTheShortValueAndReportsAFailureAsAnOpeningError)
{
    openPorts();
    Midi.MidiShortValue = 0x640790;
    MidiShortSend();
    EXPECT_EQ(wire(), (Lines{"90 07 64"}));
    EXPECT_TRUE(user.warnings.empty());

    service.results["midiOutShortMsg"] = 11;
    MidiShortSend();
    service.results["midiOutShortMsg"] = 4;
    MidiShortSend();
    EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, OpeningError}, {MidiTitle, InUse}}));
    EXPECT_EQ(Midi.MidiLastResult, 4);
}

TEST_F(MidiSendRule, bracketsALongMessageAndSendsItWhole)
{
    openPorts();
    Midi.SysExOutput = bytesOf("F0 42 30 4D 4E 0A F7");
    MidiLongSend();
    EXPECT_EQ(service.operations(), (Lines{"midiOutPrepareHeader", "midiOutLongMsg", "midiOutUnprepareHeader"}));
    EXPECT_EQ(wire(), (Lines{"F0 42 30 4D 4E 0A F7"}));
    EXPECT_EQ(hex(Midi.SysExOutput), "F0 42 30 4D 4E 0A F7");
    EXPECT_EQ(Midi.MidiLastResult, 0);
}

TEST_F(MidiSendRule, passesEveryByteValueUnchanged)
{
    openPorts();
    std::string all;
    for (int value = 0; value < 256; ++value)
        all += static_cast<char>(value);
    Midi.SysExOutput = all;
    MidiLongSend();
    ASSERT_EQ(service.messages().size(), 1U);
    EXPECT_EQ(service.messages()[0], all);
}

TEST_F(MidiSendRule, runsAllThreeStepsThoughOneFailsAndReportsEachFailure)
{
    openPorts();
    Midi.SysExOutput = bytesOf("F0 F7");
    service.results["midiOutPrepareHeader"] = 7;
    MidiLongSend();
    EXPECT_EQ(service.operations(), (Lines{"midiOutPrepareHeader", "midiOutLongMsg", "midiOutUnprepareHeader"}));
    EXPECT_EQ(user.warnings, (std::vector<Said>{{MidiTitle, OpeningError}}));
    EXPECT_EQ(Midi.MidiLastResult, 0);

    user.warnings.clear();
    service.forget();
    service.results["midiOutLongMsg"] = 4;
    service.results["midiOutUnprepareHeader"] = 65;
    MidiLongSend();
    EXPECT_EQ(service.operations(), (Lines{"midiOutPrepareHeader", "midiOutLongMsg", "midiOutUnprepareHeader"}));
    EXPECT_EQ(user.warnings,
              (std::vector<Said>{{MidiTitle, OpeningError}, {MidiTitle, InUse}, {MidiTitle, OpeningError}}));
    EXPECT_EQ(Midi.MidiLastResult, 65);
    EXPECT_EQ(Midi.MidiEnabled, 1);
}

TEST_F(MidiSendRule, letsNothingIntoTheMiddleOfALongMessage)
{
    openPorts();
    Midi.SysExOutput = bytesOf("F0 42 F7");
    service.during = [] {
        EXPECT_TRUE(Midi.Sending);
        MidiNoteOn(0, 60, 64);
        Midi.SysExOutput = "another";
        MidiLongSend();
    };
    MidiLongSend();
    EXPECT_EQ(wire(), (Lines{"F0 42 F7"}));
    EXPECT_FALSE(Midi.Sending);

    service.during = nullptr;
    MidiNoteOn(0, 60, 64);
    EXPECT_EQ(wire().back(), "90 3C 40");
}

TEST_F(MidiSendRule, packsStatusAndDataIntoOneWord)
{
    openPorts();
    MidiShortBytesSend(0xB3, 0x20, 1);
    EXPECT_EQ(Midi.MidiShortValue, 0x0120B3U);
    MidiShortBytesSend(0xC3, 0x45, 0);
    EXPECT_EQ(Midi.MidiShortValue, 0x45C3U);
    EXPECT_EQ(wire(), (Lines{"B3 20 01", "C3 45"}));
}

TEST_F(MidiSendRule, selectsABankThenAProgramAndAnswersTheirEightBytes)
{
    openPorts();
    EXPECT_EQ(hex(MidiProgramSelect(9, 3, 69)), "B9 00 00 B9 20 03 C9 45");
    EXPECT_EQ(wire(), (Lines{"B9 00 00", "B9 20 03", "C9 45"}));
    service.forget();
    Midi.MidiEnabled = 0; // the log still tells what would have gone out
    EXPECT_EQ(hex(MidiProgramSelect(0, 0, 127)), "B0 00 00 B0 20 00 C0 7F");
    EXPECT_TRUE(service.calls.empty());
}

TEST_F(MidiNoteRule, sendsNotesWithStatusChannelNoteAndVelocity)
{
    openPorts();
    MidiNoteOn(0, 60, 64);
    EXPECT_EQ(Midi.MidiShortValue, 0x403C90U);
    MidiNoteOn(15, 127, 127);
    MidiNoteOff(9, 36, 1);
    EXPECT_EQ(Midi.MidiShortValue, 0x012489U);
    EXPECT_EQ(wire(), (Lines{"90 3C 40", "9F 7F 7F", "89 24 01"}));
}

TEST_F(MidiNoteRule, logsNotesOnlyWhileTheKeyLogIsOnClearingTheMonitorBeforeTheSend)
{
    openPorts();
    openMonitor();
    MidiNoteOn(0, 60, 64);
    EXPECT_EQ(diary, (Lines{"wire 90 3C 40"}));

    diary.clear();
    Midi.KeyLogActive = true;
    MidiNoteOn(1, 60, 64);
    MidiNoteOff(1, 60, 0);
    EXPECT_EQ(diary, (Lines{"monitor cleared", "wire 91 3C 40", "monitor 91 3C 40 ", "monitor cleared", "wire 81 3C 00",
                            "monitor 81 3C 00 "}));
}

TEST_F(MidiNoteRule, allNotesOffLeavesTwoBytesForTheCallerToLog)
{
    openPorts();
    openMonitor();
    Midi.KeyLogActive = true;
    Midi.SysExOutput = "before";
    MidiAllNotesOff(5);
    EXPECT_EQ(Midi.MidiShortValue, 0x7BB5U);
    EXPECT_EQ(hex(Midi.SysExOutput), "B5 7B");
    EXPECT_EQ(diary, (Lines{"wire B5 7B 00"}));
}

TEST_F(MidiNoteRule, sendsAWordWithoutAStatusAsItIs)
{
    openPorts();
    Midi.MidiShortValue = 0 | 5U;
    MidiShortSend();
    EXPECT_EQ(wire(), (Lines{"05 00 00"}));
}

TEST_F(MidiOutOpenRule, theOutputsNameIsTheServicesAndNoneWithoutMidi)
{
    struct Named : RecordingMidiService {
        std::string outputPortName() override { return "DIN Cable MIDI 1"; }
    } named;
    Midi.service = &named;
    EXPECT_EQ(MidiOutputName(), "DIN Cable MIDI 1");
    Midi.MidiEnabled = 0;
    EXPECT_EQ(MidiOutputName(), "");
}

TEST_F(MidiNoteRule, everyChannelHasItsOwnStatus)
{
    openPorts();
    for (int channel = 0; channel < 16; ++channel) {
        service.forget();
        MidiNoteOn(channel, 1, 2);
        MidiNoteOff(channel, 3, 4);
        MidiAllNotesOff(channel);
        const std::string digit(1, "0123456789ABCDEF"[channel]);
        EXPECT_EQ(wire(), (Lines{"9" + digit + " 01 02", "8" + digit + " 03 04", "B" + digit + " 7B 00"}));
    }
}

TEST_F(MidiSendRule, theLastWordOfASelectionIsTheProgramChangeAlone)
{
    openPorts();
    EXPECT_EQ(hex(MidiProgramSelect(9, 3, 69)), "B9 00 00 B9 20 03 C9 45");
    EXPECT_EQ(Midi.MidiShortValue, 0x45C9U);
}
