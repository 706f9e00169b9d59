// The instrument's state at a glance, as its window draws it: how full its memory is, what each channel does. What is
// computed here needs no window.
#pragma once

#include "instrument/VirtualInstrument.h"

#include <array>
#include <string>

namespace InstrumentGlance
{

/// One kind of user data: how many of its places hold something. Empty places count as free.
struct Held {
    int captionId = 0; ///< row of the string table
    int used = 0;
    int places = 0;
    bool operator==(const Held&) const = default;
};
inline constexpr int HeldKinds = 4;

/// One MIDI channel.
struct Channel {
    bool used = false;
    bool global = false;   ///< the one on which arrangements are selected
    int level = -1;        ///< controller 7, 0 to 127; -1 = never sent
    int pan = -1;          ///< controller 10, 64 in the middle; -1 = never sent
    int velocity = 0;      ///< of its loudest sounding note; 0 = silent
    std::string selection; ///< UTF-8, as InstrumentTexts::selection
    bool operator==(const Channel&) const = default;
};
using Channels = std::array<Channel, VirtualInstrument::ChannelCount>;

/// Arrangements, styles, programs, the global block.
std::array<Held, HeldKinds> held(const VirtualInstrument& instrument);

Channels channels(const VirtualInstrument& instrument);

/// "12 345": thousands apart by a narrow blank, UTF-8, the same in both languages.
std::string figure(std::int64_t count);

} // namespace InstrumentGlance
