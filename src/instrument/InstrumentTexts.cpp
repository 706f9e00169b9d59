// Codes, names and values of the virtual instrument put into rows.
#include "instrument/InstrumentTexts.h"

#include "core/Strings.h"
#include "core/Words.h"
#include "files/RowLabels.h"
#include "instrument/InstrumentWords.h"

#include <array>

using InstrumentWords::filledIn;
using InstrumentWords::toUtf8;

namespace InstrumentTexts
{

namespace
{

constexpr int RowsPerBank = 64;
constexpr int UserArrangementBank = 1;
constexpr int UserProgramBank = 3;
constexpr int DrumBank = 4;
constexpr int BankMsbController = 0;
constexpr int BankLsbController = 32;

/// "A" for the first half of bank 0, "B" for the second, "C" and "D" in bank 1, "E" in bank 2.
std::string bankLetter(int bank, int number)
{
    return std::string(1, static_cast<char>('A' + 2 * bank + number / RowsPerBank));
}

std::string withName(const std::string& code, const std::string& latin1Name)
{
    return latin1Name.empty() ? code : code + " " + toUtf8(latin1Name);
}

std::string arrangementSelection(const VirtualInstrument& instrument, const ChannelState& state)
{
    if (state.programLsb == UserArrangementBank && state.program < RowsPerBank)
        return withName(rowCode(state.program), instrument.selectedArrangementName());
    if (state.programLsb > 0)
        return std::to_string(state.program);
    return bankLetter(0, state.program) + " " + rowCode(state.program % RowsPerBank);
}

std::string soundSelection(const VirtualInstrument& instrument, int channel, const ChannelState& state)
{
    const std::string name = instrument.selectedProgramName(channel);
    if (state.programLsb == DrumBank)
        return "Dr " + std::to_string(state.program);
    if (state.programLsb == UserProgramBank && state.program < RowsPerBank)
        return withName("U " + rowCode(state.program), name);
    if (name.empty())
        return std::to_string(state.program);
    return withName(bankLetter(state.programLsb, state.program) + " " + rowCode(state.program % RowsPerBank), name);
}

/// "CC7 100, CC10 64, Bend 8319": what was sent besides banks and notes.
std::string controllersOf(const ChannelState& state)
{
    std::string list;
    const auto add = [&list](const std::string& entry) { list += (list.empty() ? "" : ", ") + entry; };
    for (std::size_t number = 0; number < state.controllers.size(); ++number) {
        if (state.controllers[number] < 0 || number == BankMsbController || number == BankLsbController)
            continue;
        add("CC" + std::to_string(number) + " " + std::to_string(state.controllers[number]));
    }
    if (state.pitchBend >= 0)
        add("Bend " + std::to_string(state.pitchBend));
    if (state.pressure >= 0)
        add("AT " + std::to_string(state.pressure));
    return list;
}

} // namespace

std::string selection(const VirtualInstrument& instrument, int channel)
{
    const ChannelState& state = instrument.channel(channel);
    if (state.program < 0)
        return {};
    return channel == instrument.globalChannel() ? arrangementSelection(instrument, state)
                                                 : soundSelection(instrument, channel, state);
}

std::vector<std::string> channelRows(const VirtualInstrument& instrument)
{
    std::vector<std::string> rows;
    for (int channel = 0; channel < VirtualInstrument::ChannelCount; ++channel) {
        const ChannelState& state = instrument.channel(channel);
        if (!state.used)
            continue;
        const int caption = channel == instrument.globalChannel() ? Words::InstGlobalChannel : Words::InstChannel;
        std::string row = filledIn(caption, {std::to_string(channel + 1)});
        for (const std::string& part : {selection(instrument, channel), controllersOf(state)})
            if (!part.empty())
                row += "   " + part;
        rows.push_back(row);
    }
    return rows;
}

std::vector<std::string> namedRows(int count, const std::function<std::string(int)>& nameOf)
{
    std::vector<std::string> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index)
        rows.push_back(withName(rowCode(index), nameOf(index)));
    return rows;
}

std::vector<std::string> parameterRows(const VirtualInstrument& instrument)
{
    std::vector<std::string> rows;
    if (!instrument.globalBlock().empty())
        rows.push_back(ResText(Words::InstGlobal) + ": " +
                       filledIn(Words::InstBytes, {std::to_string(instrument.globalBlock().size())}));
    for (int number = 0; number < 128; ++number)
        if (const std::optional<int> value = instrument.parameter(number))
            rows.push_back(std::to_string(number) + " = " + std::to_string(*value));
    return rows;
}

std::string counts(const VirtualInstrument& instrument)
{
    return filledIn(Words::InstCounts,
                    {std::to_string(instrument.messageCount()), std::to_string(instrument.malformedCount())});
}

} // namespace InstrumentTexts
