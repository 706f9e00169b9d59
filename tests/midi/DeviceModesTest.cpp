// The modes of the instrument and the message of one changed parameter: bytes, label, log, and their order.
#include "MidiRoom.h"

#include "midi/DeviceModes.h"

class DeviceModeRule : public MidiRoom
{
};
class ParamChangeRule : public MidiRoom
{
protected:
    std::string sent(int track, int parameter, int value, int mode)
    {
        service.forget();
        ParamChangeSend(track, parameter, value, mode);
        return hex(service.messages().at(0));
    }
};

TEST_F(DeviceModeRule, arrPlayClearsTheLogSendsLogsAndShowsItsLabelLast)
{
    openPorts();
    openMonitor();
    App.DeviceMode = 2;
    ModeArrPlay();
    EXPECT_EQ(diary, (Lines{"monitor cleared", "wire F0 42 30 4D 4E 0A F7", "monitor F0 42 30 4D 4E 0A F7 ",
                            "label ARR PLAY"}));
    EXPECT_EQ(App.DeviceMode, 0);
    EXPECT_FALSE(Midi.SongPlaySeen);
    EXPECT_EQ(monitor.text, "F0 42 30 4D 4E 0A F7 \n\n");
}

TEST_F(DeviceModeRule, songPlayKeepsTheSameOrderAndRemembersThatItWasSeen)
{
    openPorts();
    openMonitor();
    App.GlobalChannel = 15;
    ModeSongPlay();
    EXPECT_EQ(diary, (Lines{"monitor cleared", "wire F0 42 3F 4D 4E 06 F7", "monitor F0 42 3F 4D 4E 06 F7 ",
                            "label SONG PLAY"}));
    EXPECT_EQ(App.DeviceMode, 1);
    EXPECT_TRUE(Midi.SongPlaySeen);
}

TEST_F(DeviceModeRule, globalShowsItsLabelBeforeAnythingElse)
{
    openPorts();
    openMonitor();
    ModeGlobal();
    EXPECT_EQ(diary,
              (Lines{"label GLOBAL", "monitor cleared", "wire F0 42 30 4D 4E 04 F7", "monitor F0 42 30 4D 4E 04 F7 "}));
    EXPECT_EQ(App.DeviceMode, 2);
    EXPECT_FALSE(Midi.SongPlaySeen);
}

TEST_F(DeviceModeRule, changesModeLabelAndLogThoughMidiIsDisabled)
{
    openMonitor();
    Midi.MidiEnabled = 0;
    ModeSongPlay();
    EXPECT_EQ(diary, (Lines{"monitor cleared", "monitor F0 42 30 4D 4E 06 F7 ", "label SONG PLAY"}));
    EXPECT_EQ(App.DeviceMode, 1);
    EXPECT_TRUE(service.calls.empty());
}

TEST_F(DeviceModeRule, onlyTheLastModeChangeStandsInTheMonitor)
{
    openPorts();
    openMonitor();
    ModeSongPlay();
    ModeArrPlay();
    EXPECT_EQ(monitor.text, "F0 42 30 4D 4E 0A F7 \n\n");
}

TEST_F(DeviceModeRule, aFailedSendStillChangesTheMode)
{
    openPorts();
    service.results["midiOutLongMsg"] = 1;
    ModeSongPlay();
    EXPECT_EQ(App.DeviceMode, 1);
    EXPECT_EQ(user.warnings.size(), 1U);
}

TEST_F(DeviceModeRule, anyOtherModeLeavesTheLabelAsItIs)
{
    for (const int mode : {-1, 3, 255, 32767}) {
        App.DeviceMode = mode;
        ModeLabelShow();
    }
    EXPECT_TRUE(user.modes.empty());
    for (const int mode : {0, 1, 2}) {
        App.DeviceMode = mode;
        ModeLabelShow();
    }
    EXPECT_EQ(user.modes, (Lines{"ARR PLAY", "SONG PLAY", "GLOBAL"}));
}

TEST_F(ParamChangeRule, sendsParameterLowSevenBitsAndHighPart)
{
    openPorts();
    EXPECT_EQ(sent(0, 2, 60, 0), "F0 42 30 4D 41 02 3C 00 F7");
    EXPECT_EQ(sent(0, 2, 96, 0), "F0 42 30 4D 41 02 60 00 F7");
    EXPECT_EQ(sent(0, 127, 16383, 0), "F0 42 30 4D 41 7F 7F 7F F7");
    App.GlobalChannel = 9;
    EXPECT_EQ(sent(0, 1, 128, 0), "F0 42 39 4D 41 01 00 01 F7");
}

TEST_F(ParamChangeRule, movesParameterSeventyByTheTrackCodeAlone)
{
    openPorts();
    EXPECT_EQ(sent(4, 70, 3, 0), "F0 42 30 4D 41 46 03 00 F7");
    EXPECT_EQ(sent(5, 70, 3, 0), "F0 42 30 4D 41 46 43 00 F7");
    EXPECT_EQ(sent(6, 70, 3, 0), "F0 42 30 4D 41 46 03 01 F7");
    EXPECT_EQ(sent(7, 70, 3, 0), "F0 42 30 4D 41 46 43 01 F7");
    EXPECT_EQ(sent(8, 70, 3, 0), "F0 42 30 4D 41 46 03 02 F7");
    EXPECT_EQ(sent(21, 70, 3, 0), "F0 42 30 4D 41 46 43 02 F7");
    EXPECT_EQ(sent(9, 70, 3, 0), "F0 42 30 4D 41 46 03 03 F7");
    EXPECT_EQ(sent(9, 70, 70, 0), "F0 42 30 4D 41 46 46 03 F7");
    for (const int other : {0, 3, 10, 20, 22, -1})
        EXPECT_EQ(sent(other, 70, 3, 0), "F0 42 30 4D 41 46 03 00 F7");
    EXPECT_EQ(sent(9, 71, 70, 0), "F0 42 30 4D 41 47 46 00 F7");
    EXPECT_EQ(sent(9, 69, 70, 0), "F0 42 30 4D 41 45 46 00 F7");
}

TEST_F(ParamChangeRule, modeOneSetsTheHighByteToAllOnesWhateverTheValue)
{
    openPorts();
    EXPECT_EQ(sent(0, 12, -1, 1), "F0 42 30 4D 41 0C 7F 7F F7");
    EXPECT_EQ(sent(0, 12, -24, 1), "F0 42 30 4D 41 0C 68 7F F7");
    EXPECT_EQ(sent(0, 12, 300, 1), "F0 42 30 4D 41 0C 2C 7F F7");
    EXPECT_EQ(sent(0, 12, 0, 1), "F0 42 30 4D 41 0C 00 7F F7");
}

TEST_F(ParamChangeRule, dividesTowardZeroSoThatMinusOneHasTheHighByteZero)
{
    openPorts();
    EXPECT_EQ(sent(0, 12, -1, 0), "F0 42 30 4D 41 0C 7F 00 F7");
    EXPECT_EQ(sent(0, 12, -127, 0), "F0 42 30 4D 41 0C 01 00 F7");
    EXPECT_EQ(sent(0, 12, 5, 2), "F0 42 30 4D 41 0C 05 00 F7");
}

TEST_F(ParamChangeRule, sendsParameterAndHighByteUnmasked)
{
    openPorts();
    EXPECT_EQ(sent(0, 200, 1, 0), "F0 42 30 4D 41 C8 01 00 F7");
    EXPECT_EQ(sent(0, 1, -128, 0), "F0 42 30 4D 41 01 00 FF F7");
}

TEST_F(ParamChangeRule, buildsTheMessageInTheOutputStringAndLogsNothing)
{
    openPorts();
    openMonitor();
    ParamChangeSend(0, 2, 60, 0);
    EXPECT_EQ(hex(Midi.SysExOutput), "F0 42 30 4D 41 02 3C 00 F7");
    EXPECT_EQ(diary, (Lines{"wire F0 42 30 4D 41 02 3C 00 F7"}));
}
