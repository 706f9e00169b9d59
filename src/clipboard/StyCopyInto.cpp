// A style's block goes into its slot as one replacement of bytes, which moves all blocks behind it.
#include "clipboard/StyCopyInto.h"

#include "files/FileReaders.h"
#include "files/StyImage.h"

namespace
{

using namespace StyLayout;

constexpr int NotFound = -1;

/// The slot of a style in the file. A slot that the file does not hold has no name, whatever bytes lie there.
int slotNamed(std::string_view name, std::string_view image)
{
    for (int slot = 0; slot < SlotCount && StySlotLen(slot, image) != 0; ++slot)
        if (StySlotNameInFile(slot, image) == name)
            return slot;
    return NotFound;
}

/// The first slot that is absent, empty, or holds a style without a name.
int freeSlot(std::string_view image)
{
    for (int slot = 0; slot < SlotCount; ++slot) {
        if (StySlotLen(slot, image) == 0)
            return slot;
        const std::string name = StySlotNameInFile(slot, image);
        if (name.empty() || name == EmptyName)
            return slot;
    }
    return NotFound;
}

/// Offset of a slot's block; NotFound for a slot behind an absent one, which has no place in the file.
int blockOffset(int slot, std::string_view image)
{
    const int position = StySlotPos(slot, image);
    return position == 0 ? NotFound : offsetOf(position);
}

/// The block of a slot at its full length: what a damaged file lacks reads as zeros.
ByteBuffer blockOf(int slot, std::string_view image)
{
    const int length = StySlotLen(slot, image);
    ByteBuffer block(slice(image, {blockOffset(slot, image), length}));
    block.resize(static_cast<std::size_t>(length), '\0');
    return block;
}

} // namespace

int StyCopyInto(int& mode, int srcSlot, std::string_view srcImage, int dstSlot, ByteBuffer& dstImage)
{
    const bool pasting = mode == StyCopyMode::Paste;
    if (!pasting) {
        srcImage = Files.StyEmptyBuffer;
        srcSlot = 0;
    }
    const int length = StySlotLen(srcSlot, srcImage);
    if (length == 0 || blockOffset(srcSlot, srcImage) == NotFound)
        return StyCopyResult::NoSlot;

    int slot = dstSlot;
    if (pasting && dstSlot >= StySearchSlot) {
        const int present = slotNamed(StySlotNameInFile(srcSlot, srcImage), dstImage);
        if (present != NotFound) {
            mode = present;
            return StyCopyResult::SameName;
        }
        slot = freeSlot(dstImage);
    }
    const int offset = blockOffset(slot, dstImage);
    if (offset == NotFound)
        return StyCopyResult::NoSlot;

    const int oldLength = StySlotLen(slot, dstImage);
    // Required: the limit is 80000 bytes, though the message that tells of it names 65496; and only growth is held
    // back, so that a group that is too long already can be mended.
    const int growth = length - oldLength;
    if (growth > 0 && StyGroupLen(slot, dstImage) + growth > StyGroupLimit)
        return StyCopyResult::GroupTooLong;

    const ByteBuffer block = blockOf(srcSlot, srcImage);
    const int needed = offset + oldLength;
    if (lengthOf(dstImage) < needed) // a damaged file: what its table promises reads as zeros
        dstImage.resize(static_cast<std::size_t>(needed), '\0');
    dstImage.replace(static_cast<std::size_t>(offset), static_cast<std::size_t>(oldLength), block);
    putWord16LowFirst(dstImage, lengthOffset(slot), length);
    mode = slot;
    return StyCopyResult::Stored;
}
