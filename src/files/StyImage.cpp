// Walking the table of a style file. The instrument's data inside a block is never looked into: only lengths and
// names are read, and each read is cut to what the image holds.
#include "files/StyImage.h"

#include "files/WindowLayout.h"

#include "core/Dichiarazioni.h"

namespace
{

using namespace StyLayout;

constexpr bool isSlot(int slot) { return slot >= 0 && slot < SlotCount; }

/// Sum of the lengths of the slots before `slot`, whatever stands between them.
int lengthsBefore(int slot, std::string_view image)
{
    int sum = 0;
    for (int before = 0; before < slot; ++before)
        sum += StySlotLen(before, image);
    return sum;
}

std::string_view fileIn(std::string_view buffer) { return sliceFrom(buffer, styleFileOffset(buffer)); }

std::string_view companionIn(std::string_view buffer) { return sliceFrom(buffer, WindowLayout::StyCompanionOffset); }

} // namespace

int StySlotLen(int slot, std::string_view image)
{
    return isSlot(slot) ? word16LowFirst(image, lengthOffset(slot)) : 0;
}

int StySlotPos(int slot, std::string_view image)
{
    if (!isSlot(slot))
        return 0;
    for (int before = 0; before < slot; ++before)
        if (StySlotLen(before, image) == 0)
            return 0;
    return HeadSize + 1 + lengthsBefore(slot, image);
}

std::string StySlotNameInFile(int slot, std::string_view image)
{
    if (!isSlot(slot))
        return {};
    return std::string(trimRight(slice(image, {HeadSize + lengthsBefore(slot, image), NameSize})));
}

int StyGroupLen(int slot, std::string_view image)
{
    // Required: a slot above 15 counts as the first group, as the list's rows beyond the sixteenth do.
    const int group = isSlot(slot) ? slot / SlotsPerGroup : 0;
    int sum = 0;
    for (int index = 0; index < SlotsPerGroup; ++index)
        sum += StySlotLen(group * SlotsPerGroup + index, image);
    return sum;
}

int styleFileOffset(std::string_view buffer)
{
    const int kind = byteAt(buffer, WindowLayout::KindOffset);
    return kind == WindowKind::StyFile || kind == WindowKind::StyNew ? WindowLayout::StyFileOffset
                                                                     : WindowLayout::StyCompanionOffset;
}

std::string StySlotName(int slot, std::string_view buffer) { return StySlotNameInFile(slot, fileIn(buffer)); }

int StySlotLenArr(int slot, std::string_view buffer) { return StySlotLen(slot, companionIn(buffer)); }

int StySlotPosArr(int slot, std::string_view buffer)
{
    const int position = StySlotPos(slot, companionIn(buffer));
    return position == 0 ? 0 : WindowLayout::StyCompanionOffset + position;
}

int StyGroupCount(std::string_view buffer)
{
    // Required: the names of slots that the file does not hold read as empty, which is not "- empty -", so a file of
    // four slots counts four groups. Only a file with all 16 slots can count fewer.
    for (int slot = SlotCount - 1; slot >= 0; --slot)
        if (StySlotName(slot, buffer) != EmptyName)
            return slot / SlotsPerGroup + 1;
    return 0;
}

int StyGroupLenFull(int slot, std::string_view buffer) { return HeadSize + StyGroupLen(slot, fileIn(buffer)); }

int StyFileLen(std::string_view buffer)
{
    const std::string_view image = fileIn(buffer);
    int length = HeadSize;
    for (int slot = 0; slot < SlotCount; ++slot) {
        const int slotLength = StySlotLen(slot, image);
        if (slotLength == 0)
            break;
        length += slotLength;
    }
    return length;
}

int ArrHasUserStyle(std::string_view buffer)
{
    const std::string_view image = fileIn(buffer);
    for (int slot = 0; slot < SlotCount && StySlotLen(slot, image) != 0; ++slot)
        if (StySlotNameInFile(slot, image) != EmptyName)
            return 1;
    return 0;
}

ByteBuffer builtInStyTemplate()
{
    ByteBuffer image = filled(TemplateSize, 0);
    putBytes(image, 0, Signature);
    for (int slot = 0; slot < TemplateSlots; ++slot) {
        putWord16LowFirst(image, lengthOffset(slot), TemplateSlotSize);
        putText(image, {HeadSize + slot * TemplateSlotSize, NameSize}, EmptyName);
    }
    return image;
}
