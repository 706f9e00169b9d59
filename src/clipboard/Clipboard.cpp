// The snapshot, and the dispatch of cut and paste by the kind of the window.
#include "clipboard/Clipboard.h"

#include "clipboard/ArrClipboard.h"
#include "clipboard/ArrRecords.h"
#include "clipboard/PrgClipboard.h"
#include "clipboard/StyClipboard.h"
#include "core/Dichiarazioni.h"
#include "files/WindowBuffer.h"

#include <array>

ClipboardState Clipboard;

namespace
{

struct KindRow {
    int firstKind;
    int lastKind;
    ClipOutcome (*cut)(WindowBuffer&, ListRows&);
    ClipOutcome (*paste)(WindowBuffer&, ListRows&);
};

constexpr std::array KindRows = {
    KindRow{WindowKind::ArrFile, WindowKind::ArrNew, &ArrCut, &ArrPaste},
    KindRow{WindowKind::PrgFile, WindowKind::PrgNew, &PrgCut, &PrgPaste},
    KindRow{WindowKind::StyFile, WindowKind::StyNew, &StyCut, &StyPaste},
};

const KindRow* rowsOf(int windowKind)
{
    for (const KindRow& row : KindRows)
        if (windowKind >= row.firstKind && windowKind <= row.lastKind)
            return &row;
    return nullptr;
}

} // namespace

void ClipCopy(WindowBuffer& tag, const ListRows& rows)
{
    if (rowPlaceOf(tag.kind()).count == 0)
        return;
    keepRows(tag.bytes(), rows);
    if (rowPlaceOf(tag.kind()).RowBase == WindowLayout::ArrRows.offset)
        markUserStyles(tag.bytes());
    Clipboard.BufferTagSorg = tag.bytes();
    Clipboard.sourceKind = tag.kind();
}

ClipOutcome ClipCut(WindowBuffer& tag, ListRows& rows)
{
    const KindRow* kind = rowsOf(tag.kind());
    if (!kind)
        return {};
    ClipCopy(tag, rows);
    return kind->cut(tag, rows);
}

ClipOutcome ClipPaste(WindowBuffer& tag, ListRows& rows)
{
    const KindRow* kind = rowsOf(tag.kind());
    return kind && !Clipboard.BufferTagSorg.empty() ? kind->paste(tag, rows) : ClipOutcome();
}
