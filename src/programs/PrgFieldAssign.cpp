// A program clicked in a list becomes the program of the track whose field is highlighted in the editor.
#include "programs/ProgramSends.h"

#include "core/Dichiarazioni.h"
#include "core/FieldTarget.h"
#include "core/NameTables.h"
#include "files/RowLabels.h"
#include "files/WindowLayout.h"
#include "programs/ProgramSource.h"

#include <array>
#include <optional>

namespace
{

struct Choice {
    int number = 0;
    int bank = 0;
    std::string name;
    std::string letter; ///< of the bank, with the blank behind it
};

constexpr std::array<const char*, 5> BlockLetters{"A ", "B ", "C ", "D ", "E "};

/// The letter of a reference, from its bank; a bank that no window has gives none.
std::string letterOfReference(int bank, int number)
{
    const bool second = number >= ProgramRows;
    switch (bank) {
    case ProgramBank::AB:
        return second ? "B " : "A ";
    case ProgramBank::CD:
        return second ? "D " : "C ";
    case ProgramBank::E:
        return "E ";
    case ProgramBank::User:
        return "U ";
    case ProgramBank::Drum:
        return "Dr ";
    default:
        return {};
    }
}

Choice userChoice(std::string_view tag, int row)
{
    const std::string_view record = programRecord(tag, row);
    const std::string shown = rowName(slice(record, PrgLayout::RecordName)); // a free record has none
    const std::string name(trimRight(shown));
    if (!isReference(record))
        return {row, ProgramBank::User, name, "U "};
    const int bank = byteAt(record, PrgLayout::ReferenceBankOffset);
    const int number = byteAt(record, PrgLayout::ReferenceNumberOffset);
    return {number, bank, name, letterOfReference(bank, number)};
}

std::optional<Choice> choiceOf(std::string_view tag, int row)
{
    const int kind = byteAt(tag, WindowLayout::KindOffset);
    if (kind == WindowKind::DrumKits || kind == WindowKind::Percussion) {
        if (row < 0 || row >= DrumKitCount)
            return std::nullopt;
        // A track names a kit by its place in the list; its program number is for the wire alone.
        return Choice{row, ProgramBank::Drum, drumKitName(row), "Dr "};
    }
    if (!isProgramRow(row))
        return std::nullopt;
    if (const auto factory = factoryBankOf(kind))
        return Choice{factory->firstNumber + row, factory->bank, programName(factory->block, row),
                      BlockLetters[static_cast<std::size_t>(factory->block)]};
    if (kind == WindowKind::PrgFile || kind == WindowKind::PrgNew)
        return userChoice(tag, row);
    return std::nullopt;
}

} // namespace

void PrgFieldAssign(int row, std::string_view tag)
{
    FieldTarget* target = fieldTarget();
    if (target == nullptr || !target->PrgFieldSelected())
        return;
    if (const auto choice = choiceOf(tag, row))
        target->assignProgram(choice->number, choice->bank, choice->name, choice->letter + rowCode(row));
}
