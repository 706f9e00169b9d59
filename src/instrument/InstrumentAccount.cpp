// The short account of what the instrument holds: a few lines for a terminal.
#include "core/Strings.h"
#include "core/Words.h"
#include "files/ArrLayout.h"
#include "files/PrgLayout.h"
#include "files/RowLabels.h"
#include "files/StyLayout.h"
#include "instrument/InstrumentWords.h"
#include "instrument/VirtualInstrument.h"

using InstrumentWords::filledIn;

namespace
{

constexpr int NamesShown = 6;

std::string line(int id, const std::string& text)
{
    return ResText(id) + ": " + (text.empty() ? ResText(Words::InstNothingYet) : text) + "\n";
}

/// "64: Name, Name, ..." of the names that are not empty; empty without one.
template <typename NameOf>
std::string names(int count, NameOf nameOf)
{
    int found = 0;
    std::string list;
    for (int index = 0; index < count; ++index) {
        const std::string name = nameOf(index);
        if (name.empty())
            continue;
        if (++found <= NamesShown)
            list += (list.empty() ? "" : ", ") + InstrumentWords::toUtf8(name);
    }
    if (found == 0)
        return {};
    return std::to_string(found) + " (" + list + (found > NamesShown ? ", ...)" : ")");
}

std::string selectedArrangement(const VirtualInstrument& instrument)
{
    const std::optional<int> selected = instrument.selectedUserArrangement();
    if (!selected)
        return {};
    return rowCode(*selected) + " " + InstrumentWords::toUtf8(instrument.selectedArrangementName());
}

std::string parameters(const VirtualInstrument& instrument)
{
    std::string list;
    for (int number = 0; number < 128; ++number)
        if (const std::optional<int> value = instrument.parameter(number))
            list += (list.empty() ? "" : ", ") + std::to_string(number) + " = " + std::to_string(*value);
    return list;
}

} // namespace

std::string accountOf(const VirtualInstrument& instrument)
{
    std::string keys;
    for (const SoundingNote& sounding : instrument.soundingNotes())
        keys += (keys.empty() ? "" : ", ") + InstrumentWords::noteName(sounding.note);

    std::string account = ResText(Words::VirtualInstrument) + "\n";
    account += line(Words::InstMode, instrument.modeLabel());
    account += line(Words::InstArrangement, selectedArrangement(instrument));
    account += line(Words::InstArrangements,
                    names(ArrLayout::RowCount, [&](int index) { return instrument.arrangementName(index); }));
    account +=
        line(Words::InstStyles, names(StyLayout::SlotCount, [&](int slot) { return instrument.styleName(slot); }));
    account += line(Words::InstPrograms,
                    names(PrgLayout::RecordCount, [&](int index) { return instrument.programName(index); }));
    const ByteBuffer& global = instrument.globalBlock();
    account +=
        line(Words::InstGlobal, global.empty() ? "" : filledIn(Words::InstBytes, {std::to_string(global.size())}));
    account += line(Words::InstParameters, parameters(instrument));
    account += line(Words::InstKeys, keys);
    account += filledIn(Words::InstCounts,
                        {std::to_string(instrument.messageCount()), std::to_string(instrument.malformedCount())}) +
               "\n";
    return account;
}
