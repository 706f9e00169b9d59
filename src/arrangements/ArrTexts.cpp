// The panel numbers: rows of eight, counted from 11.
#include "arrangements/ArrTexts.h"

#include "arrangements/ArrParameters.h"
#include "core/NameTables.h"
#include "files/StyImage.h"
#include "files/WindowLayout.h"

#include <array>

namespace
{

/// Row and column on the panel, both from 1: 0 is "11", 63 is "88".
std::string panelNumber(int index) { return std::to_string(index / 8 + 1) + std::to_string(index % 8 + 1); }

/// A program bank: the letters of its halves, its name blocks.
struct ProgramBank {
    const char* lowerLetter;
    const char* upperLetter;
    int lowerBlock; ///< in PrgNames
    int upperBlock;
};

constexpr std::array ProgramBanks = {
    ProgramBank{"A", "B", 0, 1},
    ProgramBank{"C", "D", 2, 3},
    ProgramBank{"E", "E", 4, 4},
};

std::string nameInBlock(std::string_view block, int index)
{
    return std::string(slice(block, {index * NameWidth, NameWidth}));
}

} // namespace

std::string StyleLabel(int& number)
{
    const char* bank = "A";
    if (number >= ArrBlock::HalfBank) {
        bank = "B";
        number -= ArrBlock::HalfBank;
    }
    return bank + panelNumber(number);
}

std::string userStyleCode(int number) { return std::to_string(number < 8 ? number + 11 : number + 13); }

std::string styleLabelText(int number, int bank)
{
    return "Style (" + (bank == ArrBlock::UserBank ? "U" + userStyleCode(number) : StyleLabel(number)) + ")";
}

std::string arrStyleName(std::string_view image, int number, int bank)
{
    if (bank == ArrBlock::UserBank) {
        if (byteAt(image, WindowLayout::StyStateOffset) == WindowLayout::StyState::Real)
            return StySlotName(number, image);
        return "UserStyle" + std::to_string(number);
    }
    return bank == ArrBlock::FactoryBank ? factoryStyleName(number) : std::string();
}

std::string styleEntry(std::string_view image, int number, int bank)
{
    const std::string name = arrStyleName(image, number, bank);
    const std::string label = bank == ArrBlock::UserBank ? "U" + userStyleCode(number) : StyleLabel(number);
    return name + " (" + label + ")";
}

ProgramText trackProgram(std::string_view editBuffer, int track)
{
    const int base = ArrBlock::track(track).offset;
    const int number = byteAt(editBuffer, base + ArrBlock::Track::ProgramNumber);
    const int bank = byteAt(editBuffer, base + ArrBlock::Track::ProgramBank);
    const bool upper = number >= ArrBlock::HalfBank;
    const int index = upper ? number - ArrBlock::HalfBank : number;

    ProgramText text;
    std::string letter;
    if (bank < static_cast<int>(ProgramBanks.size())) {
        const ProgramBank& row = ProgramBanks[static_cast<std::size_t>(bank)];
        letter = upper ? row.upperLetter : row.lowerLetter;
        const int block = upper ? row.upperBlock : row.lowerBlock;
        text.name = nameInBlock(Names.PrgNames[static_cast<std::size_t>(block)], index);
    } else if (bank == ArrBlock::TrackBank::F) {
        letter = "F";
        text.name = std::string(slice(editBuffer, ArrEditLayout::trackName(track)));
    } else if (bank == ArrBlock::TrackBank::Drum) {
        letter = "Dr";
        text.name = nameInBlock(Names.DrumKitNames, index);
    }
    if (!trimRight(text.name).empty())
        text.label = letter + " " + panelNumber(index);
    return text;
}

std::string panText(int stored)
{
    const int value = ArrRules::panTaken(stored);
    if (value == ArrRules::PanOff)
        return "OFF";
    if (value == 31)
        return "PRG";
    if (value == 15)
        return "CNT";
    return value < 15 ? "L" + std::to_string(15 - value) : "R" + std::to_string(value - 15);
}

std::optional<std::string> splitNoteText(int note)
{
    constexpr int LowestNote = 36;
    constexpr std::string_view Letters = "CCDDEFFGGAAB";
    constexpr std::string_view Sharps = " # #  # # # ";
    if (note < LowestNote)
        return std::nullopt;
    const int semitone = (note - LowestNote) % 12;
    // Required: the sharp stands behind the octave, as on the instrument's panel: "C4#".
    std::string text = Letters[static_cast<std::size_t>(semitone)] + std::to_string((note - LowestNote) / 12 + 2);
    if (Sharps[static_cast<std::size_t>(semitone)] == '#')
        text += '#';
    return text;
}

std::string effectLabel(int effect, int stored)
{
    const int value = ArrRules::effectTaken(stored);
    return "Effect " + std::to_string(effect) + " (" + (value == 0 ? std::string("Off") : std::to_string(value)) + ")";
}
