// Edits on the block alone: what is taken, what is refused, what the track switches send.
#include "ArrRoom.h"

#include "arrangements/EditFields.h"
#include "arrangements/TrackSwitches.h"

class EditArrFields : public ArrRoom
{
protected:
    EditArrFields()
    {
        for (std::size_t offset = 0; offset < 164; ++offset)
            Arr.ArrEditBuf[offset] = static_cast<char>(offset * 29 + 7);
        before = Arr.ArrEditBuf;
    }
    std::string message(const std::string& bytes) const { return "F0 42 32 4D 41 " + bytes + " F7"; }
    std::vector<std::string> sent()
    {
        const std::vector<std::string> messages = wire();
        service.forget();
        return messages;
    }
    std::string before;
};

TEST_F(EditArrFields, aPositionThatAFieldDoesNotHaveChangesNothing)
{
    arrEdit(ArrGeneral::Tempo, 39, 0);
    arrEdit(ArrGeneral::Tempo, 241, 0);
    arrEdit(ArrGeneral::Transpose, -1, 4);
    arrEdit(ArrGeneral::Transpose, 23, 4);
    arrEdit(ArrGeneral::Fill1, 13, 1);
    arrEdit(4, ArrTrack::Pan, 0, 10);
    arrEdit(4, ArrTrack::Pan, 34, 10);
    arrEdit(4, ArrTrack::Volume, 128, 9);
    arrEdit(4, ArrTrack::OutStatus2, 3, 28);
    EXPECT_EQ(hex(Arr.ArrEditBuf), hex(before));
    EXPECT_EQ(wire(), std::vector<std::string>{});
    EXPECT_FALSE(Arr.ArrEditDirty);
}

TEST_F(EditArrFields, theDesignationsOfKickAndSnareAreNeverWritten)
{
    for (int row = 0; row < 4; ++row) {
        arrEdit(ArrGeneral::Kick, row, 6);
        arrEdit(ArrGeneral::Snare, row, 7);
    }
    EXPECT_EQ(hex(Arr.ArrEditBuf), hex(before));
    EXPECT_EQ(wire(), std::vector<std::string>{});
    EXPECT_FALSE(Arr.ArrEditDirty);
}

TEST_F(EditArrFields, onlyStoredValuesFrom245AreSentAsNegative)
{
    arrEdit(ArrGeneral::Tempo, 240, 0);
    arrEdit(ArrGeneral::Transpose, 22, 4);
    arrEdit(ArrGeneral::Transpose, 11, 4);
    arrEdit(2, ArrTrack::Pan, 1, 6);
    arrEdit(2, ArrTrack::WAround, 12, 17);
    EXPECT_EQ(wire(), (std::vector<std::string>{message("00 70 01"), message("03 75 7F"), message("03 00 00"),
                                                message("20 7F 7F"), message("26 7F 7F")}));
}

TEST_F(EditArrFields, theEffectSwitchesAreParametersThatTheBlockDoesNotHold)
{
    for (const int position : {1, 0, 2, -1}) {
        arrEdit(ArrGeneral::EffectSwitch1, position, 0);
        arrEdit(ArrGeneral::EffectSwitch2, position, 1);
    }
    EXPECT_EQ(wire(), (std::vector<std::string>{message("07 01 00"), message("09 01 00"), message("07 00 00"),
                                                message("09 00 00")}));
    EXPECT_EQ(hex(Arr.ArrEditBuf), hex(before));
    EXPECT_FALSE(Arr.ArrEditDirty);
    EXPECT_EQ(arrPosition(Arr.ArrEditBuf, ArrGeneral::EffectSwitch1), 1) << "on at each opening";
}

TEST_F(EditArrFields, aNameOfTenBlanksIsStillAName)
{
    arrEditName("");
    EXPECT_EQ(Arr.ArrEditBuf.substr(0, 10), "          ");
    EXPECT_EQ(hex(Arr.ArrEditBuf.substr(10)), hex(before.substr(10)));
    EXPECT_TRUE(Arr.ArrNameChanged);
    EXPECT_TRUE(Arr.ArrEditDirty);
}

TEST_F(EditArrFields, withoutMidiAnEditIsAnEdit)
{
    Midi.MidiEnabled = 0;
    arrEdit(0, ArrTrack::Volume, 5, 1);
    EXPECT_EQ(Arr.ArrEditBuf[41], 5);
    EXPECT_EQ(wire(), std::vector<std::string>{});
}

TEST_F(EditArrFields, muteClearsTheTracksOwnSoloAlone)
{
    TrackSwitches switches;
    switches.pressSolo(8);
    service.forget();
    switches.pressMute(0);
    EXPECT_EQ(sent(), std::vector<std::string>{message("0F 00 00")}) << "a muted track is released";
    EXPECT_TRUE(switches.TrackSolo[8]);
    switches.pressMute(8);
    EXPECT_EQ(sent(), std::vector<std::string>{message("5F 01 00")});
    EXPECT_FALSE(switches.TrackSolo[8]);
    EXPECT_TRUE(switches.TrackMute[7]);
}

TEST_F(EditArrFields, nothingOfTheSwitchesIsStored)
{
    TrackSwitches switches;
    switches.pressSolo(3);
    switches.pressMute(3);
    arrEdit(ArrGeneral::EffectSwitch1, 0, 0);
    EXPECT_EQ(hex(Arr.ArrEditBuf), hex(before));
    EXPECT_FALSE(Arr.ArrEditDirty);
}
