// The families among whose windows rows are copied, and what a row must be.
#include "clipboard/EditItems.h"

#include "clipboard/ListRows.h"
#include "core/Dichiarazioni.h"

#include <array>

namespace
{

using namespace WindowKind;

enum class Family { None, Arr, Prg, Sty };

struct FamilyRow {
    int firstKind;
    int lastKind;
    Family family;
    bool takes; ///< rows can be cut from its windows and pasted into them
};

// The windows on the factory styles (StyBankA, StyBankB) are no source: they hold names alone.
constexpr std::array FamilyRows = {
    FamilyRow{ArrBankA, ArrBankB, Family::Arr, false}, FamilyRow{PrgBankA, PrgBankE, Family::Prg, false},
    FamilyRow{ArrFile, ArrNew, Family::Arr, true},     FamilyRow{PrgFile, PrgNew, Family::Prg, true},
    FamilyRow{StyFile, StyNew, Family::Sty, true},
};

FamilyRow familyOf(int kind)
{
    for (const FamilyRow& row : FamilyRows)
        if (kind >= row.firstKind && kind <= row.lastKind)
            return row;
    return {kind, kind, Family::None, false};
}

} // namespace

EditItems editItems(const ActiveRow& active, const ClipboardFacts& clipboard)
{
    const FamilyRow own = familyOf(active.kind);
    const bool styles = own.family == Family::Sty;
    if (own.family == Family::None || active.row < 0 || (styles && isSeparatorRow(active.row)))
        return {};
    EditItems items;
    items.copy = styles ? styleNameIn(active.rowText) != StyLayout::EmptyName : isUsedRow(active.rowText);
    if (!own.takes || active.readOnly)
        return items;
    items.cut = items.copy;
    const bool free = styles ? isFreeStyleRow(active.rowText) : !isUsedRow(active.rowText);
    items.paste = free && !clipboard.clipboardEmpty && familyOf(clipboard.sourceKind).family == own.family;
    return items;
}
