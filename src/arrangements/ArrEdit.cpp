// Taking an arrangement out of a window's image and putting it back.
#include "arrangements/ArrEdit.h"

#include "arrangements/ArrTexts.h"
#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/Reports.h"
#include "files/WindowBuffer.h"

ArrState Arr;

namespace
{

/// Report codes of this file.
constexpr int ArrangementGone = 8;
constexpr int ReadOnlyFile = 17;
constexpr int ArrangementChanged = 2;

Field recordInImage(int row) { return {WindowLayout::ArrFile.offset + ArrLayout::row(row).offset, ArrLayout::RowSize}; }

/// Record `number` of the program file that an image holds.
Field programInImage(int number)
{
    return {WindowLayout::PrgCompanion.offset + PrgLayout::record(number).offset, PrgLayout::RecordSize};
}

std::string userProgramName(std::string_view image, int number, const std::string& before)
{
    std::string unnamed = "UserPrg" + std::to_string(number);
    if (byteAt(image, WindowLayout::PrgStateOffset) != 1)
        return unnamed;
    const Field record = programInImage(number);
    // Required: a free record and a reference have no name of their own; the track keeps the name before it.
    if (byteAt(image, record.offset + PrgLayout::RecordStateOffset) <= PrgLayout::ReferenceRecord)
        return before;
    const Field nameField{record.offset + PrgLayout::RecordName.offset, PrgLayout::RecordName.size};
    const std::string name(trimRight(slice(image, nameField)));
    return name.empty() ? unnamed : name;
}

/// The file that ArrEditBuf came from, as the titles of its messages show it. A bank's window has no extension.
std::string sourceTitle(int kind)
{
    const std::string stem(trimRight(slice(Arr.ArrEditBuf, ArrEditLayout::SourceStem)));
    return kind == WindowKind::ArrFile ? stem + ".arr" : stem;
}

bool isSourceKind(int kind)
{
    return kind == WindowKind::ArrBankA || kind == WindowKind::ArrBankB || kind == WindowKind::ArrFile;
}

void tellRowOwner(const WindowBuffer& window, int row)
{
    for (ArrRowOwner* owner : Arr.rowOwners)
        if (&owner->arrImage() == &window)
            owner->arrRowRenamed(row);
}

} // namespace

void stepEditedRow(int rows)
{
    const auto source = std::find_if(Arr.rowOwners.begin(), Arr.rowOwners.end(), [](const ArrRowOwner* owner) {
        return editHoldsImage(owner->arrImage().bytes());
    });
    if (source != Arr.rowOwners.end())
        (*source)->stepRow(rows);
}

std::string arrFileTitle(const WindowBuffer& window) { return window.stem() + ".arr"; }

void ArrEditLoad(std::string_view image, int& index)
{
    using namespace ArrEditLayout;
    ByteBuffer& buffer = Arr.ArrEditBuf;
    buffer.resize(Size);
    putText(buffer, Block, {});
    putBytes(buffer, Block.offset, slice(image, recordInImage(index)));

    putByte(buffer, SourceKindOffset, byteAt(image, WindowLayout::KindOffset));
    putByte(buffer, SourceIndexOffset, index);
    putByte(buffer, SourceSlotOffset, byteAt(image, WindowLayout::WindowNumberOffset));
    putText(buffer, SourceStem, trimRight(FileStemOf(trimRight(slice(image, WindowLayout::Path)))));

    std::string name =
        arrStyleName(image, byteAt(buffer, ArrBlock::StyleNumber.offset), byteAt(buffer, ArrBlock::StyleBank.offset));
    putText(buffer, StyleName, name);

    // Required: a track of another bank gets the name found last. It is never read for that bank.
    for (int k = 0; k < ArrLayout::TrackCount; ++k) {
        const int track = ArrBlock::track(k).offset;
        index = byteAt(buffer, track + ArrBlock::Track::ProgramNumber);
        if (byteAt(buffer, track + ArrBlock::Track::ProgramBank) == ArrBlock::TrackBank::F)
            name = userProgramName(image, index, name);
        putText(buffer, trackName(k), name);
    }
}

int ArrEditStore()
{
    using namespace ArrEditLayout;
    const int kind = byteAt(Arr.ArrEditBuf, SourceKindOffset);
    const int row = byteAt(Arr.ArrEditBuf, SourceIndexOffset);
    if (isSourceKind(kind)) {
        const int number = kind == WindowKind::ArrFile ? byteAt(Arr.ArrEditBuf, SourceSlotOffset) : -1;
        WindowBuffer* window = OpenWindows::find(kind, number);
        if (!window) {
            ReportError(ArrangementGone, sourceTitle(kind), {});
            return 1;
        }
        if (kind == WindowKind::ArrFile && window->readOnly()) {
            ReportError(ReadOnlyFile, arrFileTitle(*window), {});
            return 1;
        }
        putBytes(window->bytes(), recordInImage(row).offset, slice(Arr.ArrEditBuf, Block));
        window->set(WindowLayout::ModifiedOffset, 1);
        window->set(WindowLayout::NotSentOffset, 2);
        if (Arr.ArrNameChanged)
            tellRowOwner(*window, row);
    }
    Arr.ArrEditDirty = false;
    Arr.ArrNameChanged = false;
    return 0;
}

bool askToStoreEdit(const std::string& title)
{
    if (!Arr.ArrEditOpen || !Arr.ArrEditDirty)
        return true;
    return AskSave(ArrangementChanged, title) != Answer::Yes || ArrEditStore() == 0;
}

bool editHoldsImage(std::string_view image)
{
    using namespace ArrEditLayout;
    const int kind = byteAt(Arr.ArrEditBuf, SourceKindOffset);
    return Arr.ArrEditOpen && kind == byteAt(image, WindowLayout::KindOffset) &&
           (kind != WindowKind::ArrFile ||
            byteAt(Arr.ArrEditBuf, SourceSlotOffset) == byteAt(image, WindowLayout::WindowNumberOffset));
}

bool editHoldsRow(std::string_view image, int row)
{
    return editHoldsImage(image) && byteAt(Arr.ArrEditBuf, ArrEditLayout::SourceIndexOffset) == row;
}
