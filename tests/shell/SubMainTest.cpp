// The start on the shared device record: who takes the ports, who shares them, who is refused; and what stands in the
// record afterwards.
#include "shell/SubMain.h"

#include "shell/ShellFixture.h"

#include <algorithm>

namespace
{

class SubMainPorts : public ShellTest
{
protected:
    SubMainPorts()
    {
        // Not a first run.
        std::string settings(11500, '\0');
        settings.replace(0, 9, "Tarvolyne");
        settings[24] = 1;
        settings[45] = 0;
        state.put("Tarvolyne.ini", settings);
    }

    bool start()
    {
        SubMainSteps steps;
        steps.showMain = [this] {
            shown = true;
            inSubMainWhenShown = App.InSubMain;
            recordWhenShown = record();
            operationsWhenShown = port.operations();
        };
        steps.languageKnown = [this] { languageTold = App.Language; };
        return SubMain(steps);
    }
    void turnThruOn()
    {
        std::string settings = state.get("Tarvolyne.ini");
        settings[45] = 1;
        state.put("Tarvolyne.ini", settings);
    }
    int callsOf(const std::string& operation) const
    {
        const auto names = port.operations();
        return static_cast<int>(std::count(names.begin(), names.end(), operation));
    }
    std::string record() const { return hex(state.get("Dornflex")); }

    bool shown = false;
    bool inSubMainWhenShown = false;
    std::string recordWhenShown;
    std::vector<std::string> operationsWhenShown;
    int languageTold = 0;
};

constexpr const char* OpeningMidi = "Apertura dispositivo MIDI";
constexpr const char* Fixed = "Tarvolyne - Tarvolyne Console ";
constexpr const char* InUse = "Dispositivo MIDI di Uscita già in uso";
constexpr const char* OpenError = "Errore apertura Dispositivo MIDI di Uscita";
constexpr const char* InputError = "Errore Apertura Dispositivo MIDI di Ingresso";
constexpr const char* NotUsed = "Il Dispositivo MIDI non sarà utilizzato";
constexpr const char* Absent = "Dispositivo MIDI di Uscita assente";

std::string said(const std::string& title, const std::string& text) { return title + "|" + text; }

} // namespace

using Lines = std::vector<std::string>;

TEST_F(SubMainPorts, theFirstUserOpensOutputThenInputAndWritesTheRecord)
{
    EXPECT_TRUE(start());
    EXPECT_TRUE(shown);
    EXPECT_TRUE(inSubMainWhenShown);
    EXPECT_FALSE(App.InSubMain);
    EXPECT_EQ(languageTold, 1);
    EXPECT_EQ(port.operations(), (Lines{"midiOutGetNumDevs", "midiOutGetNumDevs", "midiOutOpen", "midiInGetNumDevs",
                                        "midiInGetDevCaps", "midiInOpen"}));
    EXPECT_TRUE(Midi.MidiBothOpen);
    EXPECT_TRUE(Midi.MidiOwner);
    EXPECT_EQ(Midi.MidiEnabled, 1);
    EXPECT_EQ(record(), hex(deviceRecord(1, 1, 77, 88)));
    EXPECT_TRUE(warnings().empty());
}

TEST_F(SubMainPorts, aRecordOfNoUserIsKeptButForTheFieldsOfThisProgram)
{
    std::string before = deviceRecord(0, 0);
    before[15] = 3;
    before.replace(50, 5, "other");
    before[99] = 9;
    state.put("Dornflex", before);
    EXPECT_TRUE(start());
    std::string after = before;
    after[10] = 77;
    after[14] = 1;
    after[18] = 1;
    after[46] = 88;
    EXPECT_EQ(record(), hex(after));
}

TEST_F(SubMainPorts, aRecordWithAWrongSignatureIsMadeAnew)
{
    state.put("Dornflex", std::string(145, 'x'));
    EXPECT_TRUE(start());
    EXPECT_EQ(record(), hex(deviceRecord(1, 1, 77, 88)));
}

TEST_F(SubMainPorts, whatAPowerCutLeavesOfTheRecordIsMadeAnewWithoutAWord)
{
    for (const std::string& left : {std::string(), std::string(145, '\0'), std::string(4096, '\0')}) {
        state.put("Dornflex", left);
        EXPECT_TRUE(start()) << left.size();
        EXPECT_EQ(record(), hex(deviceRecord(1, 1, 77, 88))) << left.size();
        EXPECT_EQ(warnings(), Lines{}) << left.size();
    }
}

TEST_F(SubMainPorts, noDeviceIsReportedOnceAndTheProgramRunsOn)
{
    port.outputs = 0;
    EXPECT_TRUE(start());
    EXPECT_TRUE(shown);
    EXPECT_EQ(warnings(), (Lines{said(Fixed, Absent)}));
    EXPECT_EQ(Midi.MidiEnabled, 0);
    EXPECT_EQ(callsOf("midiOutOpen"), 0);
    EXPECT_EQ(callsOf("midiInOpen"), 0);
    EXPECT_EQ(record(), hex(deviceRecord(1, 1)));
}

TEST_F(SubMainPorts, aBusyOutputShowsThreeMessagesAndDisablesMidi)
{
    port.results["midiOutOpen"] = 4;
    EXPECT_TRUE(start());
    EXPECT_TRUE(shown);
    EXPECT_EQ(warnings(), (Lines{said(Fixed, InUse), said(OpeningMidi, OpenError), said(OpeningMidi, NotUsed)}));
    EXPECT_EQ(Midi.MidiEnabled, 0);
    EXPECT_FALSE(Midi.MidiOwner);
    EXPECT_EQ(callsOf("midiInOpen"), 0);
    EXPECT_EQ(record(), hex(deviceRecord(1, 1)));
}

TEST_F(SubMainPorts, aFailingOutputIsToldByThePortAndByTheStart)
{
    port.results["midiOutOpen"] = 2;
    EXPECT_TRUE(start());
    EXPECT_EQ(warnings(), (Lines{said(Fixed, OpenError), said(OpeningMidi, OpenError), said(OpeningMidi, NotUsed)}));
    EXPECT_EQ(Midi.MidiEnabled, 0);
}

TEST_F(SubMainPorts, anUnusableInputMeansThatTheOutputIsNotUsedEither)
{
    port.results["midiInGetDevCaps"] = 2;
    EXPECT_TRUE(start());
    EXPECT_EQ(warnings(), (Lines{said(OpeningMidi, InputError), said(OpeningMidi, NotUsed)}));
    EXPECT_EQ(Midi.MidiEnabled, 0);
    EXPECT_FALSE(Midi.MidiBothOpen);
    EXPECT_TRUE(Midi.MidiOwner);
    EXPECT_EQ(callsOf("midiOutClose"), 0) << "the output stays open until the exit";
    EXPECT_EQ(record(), hex(deviceRecord(1, 1, 77, 0)));
}

TEST_F(SubMainPorts, aFailingInputIsToldByThePortAndByTheStart)
{
    port.results["midiInOpen"] = 3;
    EXPECT_TRUE(start());
    EXPECT_EQ(warnings(), (Lines{said(Fixed, OpenError), said(OpeningMidi, InputError), said(OpeningMidi, NotUsed)}));
    EXPECT_EQ(Midi.MidiEnabled, 0);
    EXPECT_EQ(callsOf("midiOutClose"), 0);
}

TEST_F(SubMainPorts, aStaleRecordIsResetWhenBothPortsOpen)
{
    std::string stale = deviceRecord(1, 1, 5, 6);
    stale[15] = 1;
    state.put("Dornflex", stale);
    EXPECT_TRUE(start());
    EXPECT_TRUE(shown);
    EXPECT_TRUE(warnings().empty());
    EXPECT_TRUE(Midi.MidiOwner);
    EXPECT_TRUE(Midi.MidiBothOpen);
    EXPECT_FALSE(Midi.MidiQuiet);
    EXPECT_EQ(record(), hex(deviceRecord(1, 1, 77, 88)));
}

TEST_F(SubMainPorts, aBusyPortOfAnotherProgramOfTheFamilyIsShared)
{
    state.put("Dornflex", deviceRecord(1, 0, 5, 6));
    port.results["midiOutOpen"] = 4;
    EXPECT_TRUE(start());
    EXPECT_TRUE(shown);
    EXPECT_TRUE(warnings().empty());
    EXPECT_EQ(Midi.MidiOutHandle, 5);
    EXPECT_EQ(Midi.MidiInHandle, 6);
    EXPECT_FALSE(Midi.MidiOwner);
    EXPECT_FALSE(Midi.MidiBothOpen);
    EXPECT_FALSE(Midi.MidiQuiet);
    EXPECT_EQ(Midi.MidiEnabled, 1);
    EXPECT_EQ(record(), hex(deviceRecord(2, 1, 5, 6)));
}

TEST_F(SubMainPorts, aBusyPortWithThisProgramInTheRecordIsASecondInstance)
{
    const std::string before = deviceRecord(1, 1, 5, 6);
    state.put("Dornflex", before);
    port.results["midiOutOpen"] = 4;
    EXPECT_FALSE(start());
    EXPECT_FALSE(shown);
    EXPECT_EQ(warnings(), (Lines{said("TarvolyneApertura di ", "Non è ammessa più di una istanza del programma")}));
    EXPECT_EQ(record(), hex(before));
}

TEST_F(SubMainPorts, anotherFailureAsSecondUserDisablesMidiAndTheProgramRunsOn)
{
    state.put("Dornflex", deviceRecord(1, 0, 5, 6));
    port.results["midiOutOpen"] = 2;
    EXPECT_TRUE(start());
    EXPECT_TRUE(shown);
    EXPECT_EQ(warnings(), (Lines{said(OpeningMidi, OpenError), said(OpeningMidi, NotUsed)}))
        << "the attempt itself is quiet";
    EXPECT_EQ(Midi.MidiEnabled, 0);
    EXPECT_FALSE(Midi.MidiQuiet);
    EXPECT_EQ(record(), hex(deviceRecord(1, 1, 5, 6)));
}

TEST_F(SubMainPorts, anUnusableInputAsSecondUserIsTheInputsMessage)
{
    state.put("Dornflex", deviceRecord(1, 0, 5, 6));
    port.results["midiInGetDevCaps"] = 2;
    EXPECT_TRUE(start());
    EXPECT_EQ(warnings(), (Lines{said(OpeningMidi, InputError), said(OpeningMidi, NotUsed)}));
}

TEST_F(SubMainPorts, anotherFailureWithThisProgramInTheRecordIsRefused)
{
    const std::string before = deviceRecord(1, 1, 5, 6);
    state.put("Dornflex", before);
    port.results["midiOutOpen"] = 2;
    EXPECT_FALSE(start());
    EXPECT_EQ(warnings().size(), 1U);
    EXPECT_EQ(record(), hex(before));
}

TEST_F(SubMainPorts, aSecondStartIsRefusedBeforeItTouchesTheRecord)
{
    for (const std::string& before : {deviceRecord(0, 0), deviceRecord(1, 0, 5, 6), std::string("damaged")}) {
        state.put("Dornflex", before);
        user.warnings.clear();
        App.AnotherRuns = true;
        EXPECT_FALSE(start());
        EXPECT_FALSE(shown);
        EXPECT_EQ(warnings(), (Lines{said("TarvolyneApertura di ", "Non è ammessa più di una istanza del programma")}));
        EXPECT_EQ(state.get("Dornflex"), before);
        EXPECT_TRUE(port.calls.empty());
    }
}

TEST_F(SubMainPorts, savedThruIsStartedWhenThisProgramOpenedBothPorts)
{
    turnThruOn();
    EXPECT_TRUE(start());
    const Lines names = port.operations();
    ASSERT_GE(names.size(), 2U);
    EXPECT_EQ(names[names.size() - 2], "midiConnect");
    EXPECT_EQ(names.back(), "midiInStart");
    EXPECT_EQ(operationsWhenShown, names) << "before the main window is shown";
    EXPECT_EQ(recordWhenShown, hex(deviceRecord(1, 1, 77, 88)));
}

TEST_F(SubMainPorts, thruIsNotStartedOnSharedPorts)
{
    turnThruOn();
    state.put("Dornflex", deviceRecord(1, 0, 5, 6));
    port.results["midiOutOpen"] = 4;
    EXPECT_TRUE(start());
    EXPECT_EQ(callsOf("midiConnect"), 0);
}

TEST_F(SubMainPorts, thruIsNotStartedWithoutADevice)
{
    turnThruOn();
    port.outputs = 0;
    EXPECT_TRUE(start());
    EXPECT_EQ(callsOf("midiConnect"), 0);
}

TEST_F(SubMainPorts, closingTheLanguageWindowEndsTheProgramBeforeAnyPortIsOpened)
{
    std::filesystem::remove(state.file("Tarvolyne.ini"));
    user.language = 0;
    EXPECT_FALSE(start());
    EXPECT_FALSE(shown);
    EXPECT_TRUE(port.calls.empty());
    EXPECT_FALSE(state.has("Tarvolyne.ini"));
    EXPECT_EQ(languageTold, 0);
}

TEST_F(SubMainPorts, theLanguageWindowComesBeforeAnyPortIsOpened)
{
    std::filesystem::remove(state.file("Tarvolyne.ini"));
    user.language = 2;
    EXPECT_TRUE(start());
    EXPECT_EQ(languageTold, 2);
    EXPECT_EQ(App.LanguageBase, 200);
    EXPECT_TRUE(shown);
    EXPECT_EQ(record(), hex(deviceRecord(1, 1, 77, 88)));
}

TEST_F(SubMainPorts, theFilesBesideTheProgramAreThoseOfTheFolderItWasStartedIn)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(songs.path());
    EXPECT_TRUE(start());
    std::filesystem::current_path(before);
    EXPECT_EQ(App.WorkDir, songs.path());
    EXPECT_EQ(App.PathArrA, songs.file("TvlArrA"));
    EXPECT_EQ(App.PathArrB, songs.file("TvlArrB"));
    EXPECT_EQ(App.PathPrg, songs.file("TvlPrg"));
    EXPECT_EQ(App.PathSty, songs.file("TvlSty"));
    EXPECT_EQ(App.PathGuideIt, songs.file("Tarvolyne_GuidaUtente.txt"));
    EXPECT_EQ(App.PathGuideEn, songs.file("Tarvolyne_UserGuide.txt"));
}
