// Counting what the instrument holds and what sounds on it.
#include "instrument/InstrumentGlance.h"

#include "core/Words.h"
#include "files/ArrLayout.h"
#include "files/PrgLayout.h"
#include "files/StyLayout.h"
#include "instrument/InstrumentTexts.h"

#include <algorithm>

namespace
{

constexpr std::size_t VolumeController = 7;
constexpr std::size_t PanController = 10;

template <typename NameOf>
InstrumentGlance::Held counted(int captionId, int places, NameOf nameOf)
{
    InstrumentGlance::Held row{captionId, 0, places};
    for (int place = 0; place < places; ++place)
        row.used += nameOf(place).empty() ? 0 : 1;
    return row;
}

} // namespace

namespace InstrumentGlance
{

std::array<Held, HeldKinds> held(const VirtualInstrument& instrument)
{
    return {
        counted(Words::InstArrangements, ArrLayout::RowCount,
                [&](int index) { return instrument.arrangementName(index); }),
        counted(Words::InstStyles, StyLayout::SlotCount, [&](int slot) { return instrument.styleName(slot); }),
        counted(Words::InstPrograms, PrgLayout::RecordCount, [&](int index) { return instrument.programName(index); }),
        Held{Words::InstGlobal, instrument.globalBlock().empty() ? 0 : 1, 1}};
}

Channels channels(const VirtualInstrument& instrument)
{
    Channels all;
    for (int number = 0; number < VirtualInstrument::ChannelCount; ++number) {
        const ChannelState& state = instrument.channel(number);
        Channel& one = all[static_cast<std::size_t>(number)];
        one.used = state.used;
        one.global = state.used && number == instrument.globalChannel();
        one.level = state.controllers[VolumeController];
        one.pan = state.controllers[PanController];
        one.velocity = *std::max_element(state.velocities.begin(), state.velocities.end());
        one.selection = InstrumentTexts::selection(instrument, number);
    }
    return all;
}

std::string figure(std::int64_t count)
{
    constexpr const char* NarrowBlank = "\xE2\x80\xAF"; // U+202F, kept on its line
    constexpr std::size_t Group = 3;
    const std::string digits = std::to_string(count);
    std::string text;
    for (std::size_t place = 0; place < digits.size(); ++place) {
        if (place > 0 && (digits.size() - place) % Group == 0)
            text += NarrowBlank;
        text += digits[place];
    }
    return text;
}

} // namespace InstrumentGlance
