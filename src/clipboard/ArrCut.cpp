// Cut of arrangements: a user style goes with the last arrangement that plays it.
#include "clipboard/ArrClipboard.h"
#include "clipboard/ArrRecords.h"
#include "clipboard/LinkedStyles.h"
#include "clipboard/StyCopyInto.h"
#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "files/StyImage.h"
#include "files/WindowBuffer.h"

namespace
{

using namespace WindowLayout;

constexpr int GenericError = 0; // report code

/// One cut at work.
struct Cutting {
    WindowBuffer work;
    ListRows& rows;
    ClipOutcome outcome;
    bool styleEmptied = false;
};

bool isFile(const Cutting& cut) { return cut.work.kind() == WindowKind::ArrFile; }

void clearRecord(Cutting& cut, int row)
{
    ArrRecClear(row, cut.work.bytes(), cut.rows);
    cut.work.set(ModifiedOffset, 1);
}

void emptyStyle(Cutting& cut, int slot)
{
    if (cut.work.at(StyStateOffset) == StyState::None) {
        // Required: the text is that of any error; the title tells what is missing.
        ReportError(GenericError, NoStyleFileTitle, {});
        return;
    }
    ByteBuffer styles(cut.work.styleArea());
    int mode = StyCopyMode::Cut;
    // In a group that is all but full the longer empty style has no room: the style then stays, used by nobody.
    if (StyCopyInto(mode, 0, {}, slot, styles) == StyCopyResult::Stored)
        cut.styleEmptied = true;
    cut.work.setStyleArea(styles);
    cut.work.set(StyModifiedOffset, 1);
}

/// False when the cut stops: the record names a style slot that no file has.
bool cutRow(Cutting& cut, int row)
{
    if (keptText(Clipboard.BufferTagSorg, row)[RowMarkOffset] != UserStyleMark) {
        clearRecord(cut, row);
        // The styles box is filled anew afterwards, which drops a factory style that no row uses any more.
        cut.outcome.enable("CommLoadArr", true);
        return true;
    }
    const int slot = styleNumberAt(cut.work.bytes(), row);
    if (slot >= StyLayout::SlotCount)
        return false;
    const bool lastUser = usersOfStyle(cut.work.bytes(), slot) == 1;
    clearRecord(cut, row);
    if (lastUser)
        emptyStyle(cut, slot);
    return true;
}

void enableByRecords(Cutting& cut)
{
    const bool anyUsed = anyUsedRecord(cut.work.bytes());
    cut.outcome.enable("CommLoadArr", anyUsed);
    if (isFile(cut)) {
        cut.outcome.enable("CommLoadAll", anyUsed);
        // Required: also while the row that was cut is the current one; pressed on an empty row it does nothing.
        cut.outcome.enable("CommEdit", anyUsed);
    } else if (!anyUsed) {
        cut.work.set(NotSentOffset, 0);
    }
}

void enableByStyles(Cutting& cut)
{
    if (cut.work.at(StyStateOffset) == StyState::None)
        return;
    const bool styles = ArrHasUserStyle(cut.work.bytes()) == 1;
    cut.work.set(StyStateOffset, styles ? StyState::Real : StyState::Empty);
    cut.outcome.enable("CommLoadSty", styles);
    if (isFile(cut))
        cut.outcome.enable("CommShowSty", styles);
}

} // namespace

ClipOutcome ArrCut(WindowBuffer& tag, ListRows& rows)
{
    Cutting cut{tag, rows, {}};
    for (int row = 0; row < ArrRowCount; ++row)
        if (isMarked(Clipboard.BufferTagSorg, row) && !cutRow(cut, row))
            break; // what was cut stands
    enableByRecords(cut);
    enableByStyles(cut);
    tag = std::move(cut.work);
    cut.outcome.stored = true;
    if (cut.styleEmptied)
        cut.outcome.openAgain = linkedStyleWindow(tag);
    return cut.outcome;
}
