// The modes around a program dump.
#include "programs/ProgramLoad.h"

#include "core/Dichiarazioni.h"
#include "core/StateFiles.h"
#include "files/WindowLayout.h"
#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "programs/ProgramSends.h"

void ProgramFileLoad(std::string_view tag)
{
    const bool fromSongPlay = App.DeviceMode == DeviceModes::SongPlay;
    // Required: the walk through SONG PLAY comes before every dump, out of SONG PLAY with a change to ARR PLAY before
    // it: the real mode cannot be read, and a dump is taken in ARR PLAY alone.
    if (fromSongPlay)
        ModeArrPlay();
    ModeSongPlay();
    ModeArrPlay();
    MsgLogAdd("");
    ProgramDumpSend(tag);
    MsgLogAdd(Midi.SysExOutput);
    // What could not be noted was reported there, and changes nothing else.
    InfoPrgSet(tag, byteAt(tag, WindowLayout::PrgTypeOffset) == 1 ? "pgg" : "prg");
    if (fromSongPlay)
        ModeSongPlay();
}
