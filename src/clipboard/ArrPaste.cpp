// Paste of arrangements: each record goes to the next destination row, its user style into the destination's styles.
#include "clipboard/ArrClipboard.h"
#include "clipboard/ArrRecords.h"
#include "clipboard/LinkedStyles.h"
#include "clipboard/StyCopyInto.h"
#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "core/Strings.h"
#include "files/WindowBuffer.h"

namespace
{

using namespace WindowLayout;

constexpr int GenericError = 0; // report codes
constexpr int NoFreeSlot = 3;
constexpr int GroupTooLong = 36;
constexpr int PasteArrangementRow = 83;

/// One paste at work: the destination as it will be stored, if it is.
struct Pasting {
    WindowBuffer BufferTagDest;
    ListRows rows;
    ByteBuffer styles;        ///< the destination's style area
    std::string_view sources; ///< the snapshot's; none in a bank
    ClipOutcome outcome;
    bool styleStored = false;
};

enum class Step { Next, RowStaysEmpty, Stop, Abandon };

bool isBank(int windowKind) { return windowKind == WindowKind::ArrBankA || windowKind == WindowKind::ArrBankB; }

void copyRecord(Pasting& paste, int srcRow, int dstRow)
{
    ArrRecCopy(srcRow, dstRow, paste.BufferTagDest.bytes(), paste.rows);
    paste.BufferTagDest.set(ModifiedOffset, 1);
    paste.outcome.enable("CommLoadArr", true);
    if (paste.BufferTagDest.kind() == WindowKind::ArrFile)
        paste.outcome.enable("CommLoadAll", true); // it sends the arrangements first, so it goes with their button
}

/// The style has gone into the area: the window has styles of its own from now on.
void keepStyles(Pasting& paste)
{
    paste.BufferTagDest.setStyleArea(paste.styles);
    paste.BufferTagDest.set(StyModifiedOffset, 1);
    paste.BufferTagDest.set(StyStateOffset, StyState::Real);
    paste.outcome.enable("CommLoadSty", true);
    if (paste.BufferTagDest.kind() == WindowKind::ArrFile)
        paste.outcome.enable("CommShowSty", true);
    paste.styleStored = true;
}

Step refuse(int code)
{
    ReportError(code, ResText(PasteArrangementRow), {});
    return Step::RowStaysEmpty;
}

Step pasteWithStyle(Pasting& paste, int srcRow, int dstRow)
{
    const int srcSlot = styleNumberAt(Clipboard.BufferTagSorg, srcRow);
    if (srcSlot >= StyLayout::SlotCount)
        return Step::Abandon; // no file has such a slot: the source is not valid
    if (paste.BufferTagDest.at(StyStateOffset) == StyState::None) {
        // Required: the text is that of any error; the title tells what is missing.
        ReportError(GenericError, NoStyleFileTitle, {});
        return Step::Stop;
    }
    int slot = StyCopyMode::Paste; // comes back as the slot
    switch (StyCopyInto(slot, srcSlot, paste.sources, StySearchSlot, paste.styles)) {
    case StyCopyResult::NoSlot:
        // Required: the words speak of 4 styles though a file has 16 slots.
        return refuse(NoFreeSlot);
    case StyCopyResult::GroupTooLong:
        return refuse(GroupTooLong);
    case StyCopyResult::Stored:
        keepStyles(paste);
        break;
    default: // a style of that name is here already, and is shared
        break;
    }
    copyRecord(paste, srcRow, dstRow);
    referToUserStyle(paste.BufferTagDest.bytes(), dstRow, slot);
    return Step::Next;
}

Step pasteRow(Pasting& paste, int srcRow, int dstRow)
{
    if (keptText(Clipboard.BufferTagSorg, srcRow)[RowMarkOffset] == UserStyleMark)
        return pasteWithStyle(paste, srcRow, dstRow);
    copyRecord(paste, srcRow, dstRow);
    return Step::Next;
}

/// False when nothing at all is to be stored.
bool pasteRows(Pasting& paste)
{
    const Destination destination = destinationOf(paste.rows);
    int dstRow = destination.first;
    for (int srcRow = 0; srcRow < ArrRowCount; ++srcRow) {
        if (!isMarked(Clipboard.BufferTagSorg, srcRow))
            continue;
        if (!takesPaste(paste.rows, destination, dstRow) ||
            isUsedRow(paste.rows[static_cast<std::size_t>(dstRow)].text))
            return true;
        const Step step = pasteRow(paste, srcRow, dstRow);
        if (step == Step::Stop)
            return true;
        if (step == Step::Abandon)
            return false;
        ++dstRow; // also over a row that stays empty
    }
    return true;
}

} // namespace

ClipOutcome ArrPaste(WindowBuffer& tag, ListRows& rows)
{
    if (rowPlaceOf(Clipboard.sourceKind).RowBase != ArrRows.offset)
        return {};
    Pasting paste{tag, rows, ByteBuffer(tag.styleArea()), {}, {}};
    if (!isBank(Clipboard.sourceKind))
        paste.sources = sliceFrom(Clipboard.BufferTagSorg, StyCompanionOffset);
    if (!pasteRows(paste))
        return {};
    tag = std::move(paste.BufferTagDest);
    rows = std::move(paste.rows);
    paste.outcome.stored = true;
    // A style window on the same file must not go on with the styles as they were: its next change would undo this one.
    if (paste.styleStored)
        paste.outcome.openAgain = linkedStyleWindow(tag);
    return paste.outcome;
}
