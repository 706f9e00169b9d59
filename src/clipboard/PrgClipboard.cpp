// Records and rows of program windows; after each change the head of the file says again what its records hold.
#include "clipboard/PrgClipboard.h"

#include "core/Dichiarazioni.h"
#include "files/WindowBuffer.h"
#include "programs/ProgramSource.h"

namespace
{

using namespace PrgLayout;

constexpr int SignatureSize = 4; ///< the part that tells the two kinds apart
constexpr int Modified = 1;
constexpr int NoPrograms = 0; ///< of the program state

constexpr Field recordField(int index) { return {WindowLayout::PrgFile.offset + record(index).offset, RecordSize}; }

int stateOf(const WindowBuffer& tag, int row) { return tag.at(recordField(row).offset + RecordStateOffset); }

/// A reference record makes the file a .pgg.
void followRecords(WindowBuffer& tag)
{
    bool refers = false;
    for (int row = 0; row < RecordCount; ++row)
        refers = refers || stateOf(tag, row) == ReferenceRecord;
    putBytes(tag.bytes(), WindowLayout::PrgFile.offset,
             (refers ? PggSignature : PrgSignature).substr(0, SignatureSize));
    tag.set(WindowLayout::PrgTypeOffset, refers ? 1 : 0);
}

/// Writes the snapshot's record srcRow; answers what the row shows behind its code.
std::string pasteProgram(WindowBuffer& tag, int srcRow, int dstRow)
{
    const Field source = recordField(srcRow);
    putBytes(tag.bytes(), recordField(dstRow).offset, slice(Clipboard.BufferTagSorg, source));
    if (byteAt(Clipboard.BufferTagSorg, source.offset + RecordStateOffset) == 0)
        return {}; // a free row among those copied stays free
    return std::string(keptText(Clipboard.BufferTagSorg, srcRow).substr(RowCodeWidth));
}

std::string pasteReference(WindowBuffer& tag, const FactoryBank& bank, int srcRow, int dstRow)
{
    std::string shown(keptText(Clipboard.BufferTagSorg, srcRow).substr(RowCodeWidth));
    shown[RowMarkOffset - RowCodeWidth] = ReferenceMark;
    const int offset = recordField(dstRow).offset;
    putBytes(tag.bytes(), offset, filled(RecordSize, 0));
    tag.set(offset + RecordStateOffset, ReferenceRecord);
    tag.set(offset + ReferenceBankOffset, bank.bank);
    tag.set(offset + ReferenceNumberOffset, bank.firstNumber + srcRow);
    putText(tag.bytes(), {offset + RecordName.offset, RecordName.size},
            std::string_view(shown).substr(RowNameOffset - RowCodeWidth));
    return shown;
}

} // namespace

ClipOutcome PrgPaste(WindowBuffer& tag, ListRows& rows)
{
    const std::optional<FactoryBank> bank = factoryBankOf(Clipboard.sourceKind);
    if (!bank && rowPlaceOf(Clipboard.sourceKind).RowBase != WindowLayout::PrgRows.offset)
        return {};
    ClipOutcome outcome;
    const Destination destination = destinationOf(rows);
    int dstRow = destination.first;
    for (int srcRow = 0; srcRow < RecordCount; ++srcRow) {
        if (!isMarked(Clipboard.BufferTagSorg, srcRow))
            continue;
        if (!takesPaste(rows, destination, dstRow))
            break;
        std::string& text = rows[static_cast<std::size_t>(dstRow)].text;
        if (isUsedRow(text))
            break;
        text = padded(text, RowCodeWidth) +
               (bank ? pasteReference(tag, *bank, srcRow, dstRow) : pasteProgram(tag, srcRow, dstRow));
        tag.set(WindowLayout::PrgModifiedOffset, Modified);
        outcome.enable("CommLoad", true);
        ++dstRow;
    }
    followRecords(tag);
    outcome.stored = true;
    return outcome;
}

ClipOutcome PrgCut(WindowBuffer& tag, ListRows& rows)
{
    ClipOutcome outcome;
    bool anyUsed = false;
    for (int row = 0; row < RecordCount; ++row) {
        if (isMarked(tag.bytes(), row)) {
            putBytes(tag.bytes(), recordField(row).offset, filled(RecordSize, 0));
            const int kept = WindowLayout::PrgRows.offset + row * WindowLayout::RowSize;
            putText(tag.bytes(), {kept + 1, RowTextWidth}, {});
            tag.set(kept, 0);
            tag.set(WindowLayout::PrgModifiedOffset, Modified);
            std::string& text = rows[static_cast<std::size_t>(row)].text;
            text = padded(text, RowCodeWidth);
        }
        anyUsed = anyUsed || stateOf(tag, row) != 0;
    }
    if (!anyUsed) {
        tag.set(WindowLayout::PrgStateOffset, NoPrograms);
        tag.set(WindowLayout::PrgModifiedOffset, Modified);
    }
    outcome.enable("CommLoad", anyUsed);
    followRecords(tag);
    outcome.stored = true;
    return outcome;
}
