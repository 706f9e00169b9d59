// The exit on the shared device record, and the settings' last word.
#include "shell/SubMain.h"

#include "shell/ShellFixture.h"

#include <sys/stat.h>

namespace
{

class ExitPorts : public ShellTest
{
protected:
    ExitPorts()
    {
        Midi.MidiOutHandle = 77;
        Midi.MidiInHandle = 88;
        Midi.MidiPortsOpen = 1;
        Midi.MidiOwner = true;
    }
    std::string record() const { return hex(state.get("Dornflex")); }
};

using Lines = std::vector<std::string>;

} // namespace

TEST_F(ExitPorts, theOwnerClosesOutputThenInputAndEmptiesItsFields)
{
    std::string before = deviceRecord(1, 1, 77, 88);
    before[16] = 7;
    state.put("Dornflex", before);
    App.ThruOn = true;
    EXPECT_FALSE(PortRelease::refused());
    PortRelease::release();
    EXPECT_EQ(port.operations(), (Lines{"midiOutClose", "midiInClose"})) << "thru is not disconnected on this path";
    std::string after = before;
    after[10] = 0;
    after[14] = 0;
    after[18] = 0;
    EXPECT_EQ(record(), hex(after)) << "the input's handle stays in the record";
    EXPECT_TRUE(warnings().empty());
}

TEST_F(ExitPorts, theOwnerCannotLeaveWhileAnotherProgramSharesThePorts)
{
    const std::string before = deviceRecord(2, 1, 77, 88);
    state.put("Dornflex", before);
    EXPECT_TRUE(PortRelease::refused());
    EXPECT_EQ(warnings(), (Lines{"Chiusura dispositivo MIDI di uscita|Chiudere prima tutte le altre applicazioni"}));
    EXPECT_EQ(record(), hex(before));
    EXPECT_TRUE(port.calls.empty());
}

TEST_F(ExitPorts, theOwnerCannotLeaveWhenTheRecordDoesNotHoldThisProgram)
{
    state.put("Dornflex", deviceRecord(1, 0, 77, 88));
    EXPECT_TRUE(PortRelease::refused());
}

TEST_F(ExitPorts, aUserOfSharedPortsOnlyCountsItselfOut)
{
    Midi.MidiOwner = false;
    state.put("Dornflex", deviceRecord(2, 1, 5, 6));
    EXPECT_FALSE(PortRelease::refused());
    PortRelease::release();
    EXPECT_TRUE(port.calls.empty());
    EXPECT_EQ(record(), hex(deviceRecord(1, 0, 5, 6)));
}

TEST_F(ExitPorts, aCountOfNobodyStaysNobody)
{
    Midi.MidiOwner = false;
    state.put("Dornflex", deviceRecord(0, 1));
    PortRelease::release();
    EXPECT_EQ(record(), hex(deviceRecord(0, 0)));
}

TEST_F(ExitPorts, aRecordWithAWrongSignatureIsDeletedAndThePortsAreClosed)
{
    state.put("Dornflex", std::string(145, 'x'));
    App.ThruOn = true;
    EXPECT_FALSE(PortRelease::refused());
    PortRelease::release();
    EXPECT_FALSE(state.has("Dornflex"));
    EXPECT_EQ(port.operations(), (Lines{"midiOutClose", "midiDisconnect", "midiInClose"}));
}

TEST_F(ExitPorts, aRecordThatHasGoneStopsNobody)
{
    EXPECT_FALSE(PortRelease::refused());
    PortRelease::release();
    EXPECT_FALSE(state.has("Dornflex"));
    EXPECT_EQ(port.operations(), (Lines{"midiOutClose", "midiInClose"}));
}

TEST_F(ExitPorts, withoutPortsNothingIsClosed)
{
    state.put("Dornflex", deviceRecord(1, 1));
    Midi.MidiPortsOpen = 0;
    PortRelease::release();
    EXPECT_TRUE(port.calls.empty());
    EXPECT_EQ(record(), hex(deviceRecord(0, 0)));
}

TEST_F(ExitPorts, settingsThatCannotBeWrittenAreReportedOnceUnderTheFilesName)
{
    App.StateDir = state.path() + "/gone";
    saveSettingsAtExit();
    ASSERT_EQ(user.warnings.size(), 1U);
    EXPECT_EQ(user.warnings[0].title, "Salva Tarvolyne.ini");
    EXPECT_EQ(user.warnings[0].text, "Impossibile trovare il percorso");
}

TEST_F(ExitPorts, aFolderInTheFilesPlaceIsReportedAndNotTouched)
{
    std::filesystem::create_directory(state.file("Tarvolyne.ini"));
    saveSettingsAtExit();
    EXPECT_EQ(warnings(), (Lines{"Salva Tarvolyne.ini|File di sola lettura"}));
    EXPECT_TRUE(std::filesystem::is_directory(state.file("Tarvolyne.ini")));
}

TEST_F(ExitPorts, settingsAreWrittenWithoutAWord)
{
    App.AutoArr = true;
    saveSettingsAtExit();
    EXPECT_TRUE(warnings().empty());
    const std::string file = state.get("Tarvolyne.ini");
    ASSERT_EQ(file.size(), 11500U);
    EXPECT_EQ(file[27], 1);
}
