// Mute and solo of the nine tracks, as the editor's buttons hold them. They start off whatever the instrument does, and
// nothing of them is stored. The instrument is never told of a solo: it hears nine mutes.
#pragma once

#include "files/ArrLayout.h"

#include <array>

struct TrackSwitches {
    std::array<bool, ArrLayout::TrackCount> TrackMute{};
    std::array<bool, ArrLayout::TrackCount> TrackSolo{};

    /// Presses the mute or solo button of track 0 to 8: changes the switches, then sends.
    void pressMute(int track);
    void pressSolo(int track);

private:
    void sendMute(int track) const;
    void sendAllMutes() const;
};
