// Each row is one call of StyCopyInto; the figures beside the list follow it.
#include "clipboard/StyClipboard.h"

#include "clipboard/LinkedStyles.h"
#include "clipboard/StyCopyInto.h"
#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "core/Strings.h"
#include "files/StyImage.h"
#include "files/WindowBuffer.h"

namespace
{

using namespace WindowLayout;

constexpr int NoFreeSlot = 3; // report codes
constexpr int GroupTooLong = 36;
constexpr int PasteArrangementRow = 83;
constexpr int PasteStyleRow = 120;

/// One cut or paste at work.
struct StyWork {
    WindowBuffer& tag;
    ListRows& rows;
    ByteBuffer file;
    ClipOutcome outcome;
};

std::string memberOf(const char* name, int index) { return std::string(name) + '(' + std::to_string(index) + ')'; }

/// A figure ends in a blank: it stands right aligned.
std::string figure(int value) { return std::to_string(value) + ' '; }

/// The slot holds another style: its row keeps code and marks, its figures are counted anew. A group's figure is now
/// the group's own sum.
void showSlot(StyWork& work, int slot, std::string_view name)
{
    std::string& text = work.rows[static_cast<std::size_t>(StyRowOf(slot))].text;
    text = padded(text, RowNameOffset) + std::string(name);
    const int group = slot / StyLayout::SlotsPerGroup;
    work.outcome.texts.push_back({memberOf("Text1", slot), figure(StySlotLen(slot, work.file))});
    work.outcome.texts.push_back({memberOf("Text2", group), figure(StyGroupLen(slot, work.file))});
    work.tag.set(StyModifiedOffset, 1);
}

/// Stores the file, and passes it on to the arrangement window that this one belongs to.
ClipOutcome finish(StyWork& work)
{
    work.tag.setStyleArea(work.file);
    work.outcome.texts.push_back({"Text3", std::to_string(work.file.size())});
    work.outcome.stored = true;
    work.outcome.alsoChanged = linkedArrangementWindow(work.tag);
    return work.outcome;
}

void pasteSlot(StyWork& work, int srcSlot, int slot)
{
    int mode = StyCopyMode::Paste;
    switch (StyCopyInto(mode, srcSlot, sliceFrom(Clipboard.BufferTagSorg, StyFileOffset), slot, work.file)) {
    case StyCopyResult::Stored:
        showSlot(work, slot, styleNameIn(keptText(Clipboard.BufferTagSorg, StyRowOf(srcSlot))));
        if (StyGroupLen(slot, work.file) > 0)
            work.outcome.enable(memberOf("CommLoadStyGrp", slot / StyLayout::SlotsPerGroup), true);
        break;
    case StyCopyResult::NoSlot:
        // Required: told under the title of the arrangements' paste, and in words that speak of 4 styles.
        ReportError(NoFreeSlot, ResText(PasteArrangementRow), {});
        break;
    default:
        // Required: the window counts as modified though nothing changed.
        ReportError(GroupTooLong, ResText(PasteStyleRow), {});
        work.tag.set(StyModifiedOffset, 1);
        break;
    }
}

int firstSelectedSlot(const ListRows& rows, int& selected)
{
    int first = StyLayout::SlotCount;
    selected = 0;
    for (int slot = StyLayout::SlotCount - 1; slot >= 0; --slot)
        if (rows[static_cast<std::size_t>(StyRowOf(slot))].selected) {
            first = slot;
            ++selected;
        }
    return first;
}

} // namespace

ClipOutcome StyPaste(WindowBuffer& tag, ListRows& rows)
{
    if (rowPlaceOf(Clipboard.sourceKind).RowBase != StyRows.offset || rows.size() < StyListRows)
        return {};
    StyWork work{tag, rows, ByteBuffer(tag.styleArea()), {}};
    int selected = 0;
    int slot = firstSelectedSlot(rows, selected);
    for (int srcSlot = 0; srcSlot < StyLayout::SlotCount && slot < StyLayout::SlotCount; ++srcSlot) {
        if (!isMarked(Clipboard.BufferTagSorg, StyRowOf(srcSlot)))
            continue;
        const ListRow& row = rows[static_cast<std::size_t>(StyRowOf(slot))];
        if (!isFreeStyleRow(row.text) || (selected > 1 && !row.selected))
            break; // a style in use is never written over
        pasteSlot(work, srcSlot, slot++);
    }
    return finish(work);
}

ClipOutcome StyCut(WindowBuffer& tag, ListRows& rows)
{
    if (rows.size() < StyListRows)
        return {};
    StyWork work{tag, rows, ByteBuffer(tag.styleArea()), {}};
    for (int slot = 0; slot < StyLayout::SlotCount; ++slot) {
        if (!rows[static_cast<std::size_t>(StyRowOf(slot))].selected)
            continue;
        int mode = StyCopyMode::Cut;
        if (StyCopyInto(mode, 0, {}, slot, work.file) == StyCopyResult::Stored)
            showSlot(work, slot, StyLayout::EmptyName);
    }
    return finish(work);
}
