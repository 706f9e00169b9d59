// The editor's label names the style's place on the panel: "Style (A11)", "Style (B88)", "Style (U28)".
#include "styles/StyFieldAssign.h"

#include "core/FieldTarget.h"
#include "core/NameTables.h"
#include "files/RowLabels.h"
#include "files/StyImage.h"
#include "files/WindowLayout.h"
#include "styles/StyleBanks.h"
#include "styles/StyleRows.h"

namespace
{

/// Bank flags as an arrangement's block stores them.
constexpr int FactoryBank = 0;
constexpr int UserBank = 1;

std::string label(const char* bank, int index) { return std::string("Style (") + bank + rowCode(index) + ")"; }

void assignFactoryStyle(FieldTarget& target, int kind, int row)
{
    if (row < 0 || row >= StyleBankRows)
        return;
    const int number = firstStyleOf(kind) + row;
    target.assignStyle(number, FactoryBank, factoryStyleName(number),
                       label(kind == WindowKind::StyBankB ? "B" : "A", row));
}

void assignUserStyle(FieldTarget& target, std::string_view tag, int row)
{
    // Required: an empty or absent slot is a choice like any other; the arrangement then plays what comes to stand
    // there.
    const int slot = styleSlotInRow(row);
    if (slot >= 0)
        target.assignStyle(slot, UserBank, StySlotName(slot, tag), label("U", slot));
}

} // namespace

void StyFieldAssign(int row, std::string_view tag)
{
    FieldTarget* target = fieldTarget();
    if (target == nullptr || !target->StyFieldSelected())
        return;
    const int kind = byteAt(tag, WindowLayout::KindOffset);
    if (isStyleBank(kind))
        assignFactoryStyle(*target, kind, row);
    else if (kind == WindowKind::StyFile || kind == WindowKind::StyNew)
        assignUserStyle(*target, tag, row);
}
