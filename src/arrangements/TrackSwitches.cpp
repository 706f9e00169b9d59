// The two buttons' rules. A mute is the parameter of Out Status2, 1 or 0.
#include "arrangements/TrackSwitches.h"

#include "arrangements/ArrParameters.h"
#include "midi/DeviceModes.h"

namespace
{

bool& at(std::array<bool, ArrLayout::TrackCount>& switches, int track)
{
    return switches[static_cast<std::size_t>(track)];
}

} // namespace

void TrackSwitches::sendMute(int track) const
{
    const int value = TrackMute[static_cast<std::size_t>(track)] ? 1 : 0;
    ParamChangeSend(track, arrMessage(ArrTrack::OutStatus2, track), value, ArrRules::negativeFlag(value));
}

void TrackSwitches::sendAllMutes() const
{
    for (int track = 0; track < ArrLayout::TrackCount; ++track)
        sendMute(track);
}

void TrackSwitches::pressMute(int track)
{
    const bool mute = !at(TrackMute, track);
    at(TrackMute, track) = mute;
    // Required: a track that loses its solo so does not release the others, which stay muted until they are pressed.
    if (mute)
        at(TrackSolo, track) = false;
    sendMute(track);
}

void TrackSwitches::pressSolo(int track)
{
    const bool solo = !at(TrackSolo, track);
    TrackSolo.fill(false);
    TrackMute.fill(solo);
    if (solo) {
        at(TrackSolo, track) = true;
        at(TrackMute, track) = false;
    }
    sendAllMutes();
}
