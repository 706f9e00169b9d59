// One routine for every field: its row of the table says where it stands and what goes out.
#include "arrangements/EditFields.h"

#include "arrangements/ArrEdit.h"
#include "midi/DeviceModes.h"

#include <bit>

namespace
{

/// Replaces the field's own bits of its byte and leaves all others as they are.
void write(const ArrParameter& field, int base, int stored)
{
    const int shift = std::countr_zero(static_cast<unsigned>(field.mask));
    const int before = byteAt(Arr.ArrEditBuf, base + field.offset);
    putByte(Arr.ArrEditBuf, base + field.offset, (before & ~field.mask) | ((stored << shift) & field.mask));
}

/// An edit of one field: where its byte stands, what it is called on the wire, where it is silent.
struct Edit {
    const ArrParameter& field;
    int base;    ///< offset of the block's part that the field's own offset counts from
    int message; ///< NeverSent for none
    int control; ///< index of the control that changed
};

// F0 42 3g 4D 41 pp ll hh F7
void send(const Edit& edit, int position, int value)
{
    if (edit.message != ArrParameter::NeverSent && position < edit.field.silentFrom)
        ParamChangeSend(edit.control, edit.message, value, ArrRules::negativeFlag(value));
}

void take(const Edit& edit, int position)
{
    const ArrParameter& field = edit.field;
    if (field.kept || position < field.low || position > field.high)
        return;
    if (field.onlySent) {
        send(edit, position, position);
        return;
    }
    Arr.ArrEditDirty = true;
    const int stored = field.stored(position);
    if (field.sentAsShown)
        send(edit, position, position);
    write(field, edit.base, stored);
    if (!field.sentAsShown)
        send(edit, position, stored);
}

} // namespace

void arrEdit(ArrGeneral which, int position, int control)
{
    const ArrParameter& field = arrParameter(which);
    take({field, 0, field.message, control}, position);
}

void arrEdit(int track, ArrTrack which, int position, int control)
{
    const ArrParameter& field = arrParameter(which);
    const bool silent = (field.silentTracks >> track & 1U) != 0;
    const int message = silent ? ArrParameter::NeverSent : arrMessage(which, track);
    take({field, ArrBlock::track(track).offset, message, control}, position);
}

void arrEditName(std::string_view name)
{
    Arr.ArrNameChanged = true;
    Arr.ArrEditDirty = true;
    // Required: ten characters are written, as many as the instrument's panel shows; the tail of a longer text is not
    // kept, and what stood behind the ten stays.
    putText(Arr.ArrEditBuf, EditFields::WrittenName, name);
}

void arrEditProgram(int track, int number, int bank, std::string_view name)
{
    const int record = ArrBlock::track(track).offset;
    putByte(Arr.ArrEditBuf, record + ArrBlock::Track::ProgramNumber, number);
    putByte(Arr.ArrEditBuf, record + ArrBlock::Track::ProgramBank, bank);
    putText(Arr.ArrEditBuf, ArrEditLayout::trackName(track), name);
    Arr.ArrEditDirty = true;
}

void arrEditStyle(int number, int bank, std::string_view name)
{
    putByte(Arr.ArrEditBuf, ArrBlock::StyleNumber.offset, number);
    putByte(Arr.ArrEditBuf, ArrBlock::StyleBank.offset, bank);
    putText(Arr.ArrEditBuf, ArrEditLayout::StyleName, name);
    Arr.ArrEditDirty = true;
}
