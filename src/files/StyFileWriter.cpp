// Trimming, writing and dropping of a window's style file.
#include "files/StyFileWriter.h"

#include "core/PathNames.h"
#include "core/Reports.h"
#include "files/SafetyCopies.h"
#include "files/StyImage.h"
#include "files/StyLayout.h"

#include <algorithm>

namespace
{

using namespace StyLayout;

/// The unit that a style file is written in, bytes.
constexpr int UnitSize = 4;

/// Required: the figure takes the lengths of the unused groups, each with a head of its own.
int statedLength(const WindowBuffer& tag, int usedGroups)
{
    int length = HeadSize;
    for (int group = usedGroups; group < GroupCount; ++group)
        length += StyGroupLenFull(group * SlotsPerGroup, tag.bytes());
    return length;
}

/// Length of the file up to the last style that the table names, whatever stands between.
int promisedLength(const WindowBuffer& tag)
{
    int length = HeadSize;
    for (int slot = 0; slot < SlotCount; ++slot)
        length += StySlotLen(slot, tag.styleArea());
    return length;
}

/// Required: the walk begins in the place of a seventeenth entry, in the rest of the head, so the lowest of the entries
/// that it is meant for keeps its length: the instrument's file has one empty style behind the used groups.
void zeroLengths(WindowBuffer& tag, int usedGroups)
{
    const int file = styleFileOffset(tag.bytes());
    const int entries = SlotsPerGroup * (GroupCount - usedGroups);
    for (int entry = 0; entry < entries; ++entry)
        putWord16LowFirst(tag.bytes(), file + lengthOffset(SlotCount - entry), 0);
}

/// The file's bytes: as many as the table says, rounded up to whole units. What the buffer lacks is zeros.
ByteBuffer fileBytes(const WindowBuffer& tag)
{
    // A slot of length 0 makes those behind it absent. Where the image holds them all the same they stay in the file:
    // no style is lost by a save.
    const int held = std::min(promisedLength(tag), lengthOf(tag.styleArea()));
    const int total = std::max(StyFileLen(tag.bytes()), held);
    ByteBuffer bytes(tag.styleArea().substr(0, static_cast<std::size_t>(total)));
    // Required: the instrument's files are whole units; a file of 1001 bytes becomes one of 1004.
    const int wholeUnits = (total + UnitSize - 1) / UnitSize * UnitSize;
    bytes.resize(static_cast<std::size_t>(wholeUnits), '\0');
    return bytes;
}

std::string stylePath(const WindowBuffer& tag) { return tag.path() + extensionOf(FileKind::Sty); }

} // namespace

int StyTableTrim(WindowBuffer& tag)
{
    const int usedGroups = StyGroupCount(tag.bytes());
    if (usedGroups == 0)
        return 1;
    if (usedGroups == GroupCount)
        return 0;
    const int stated = statedLength(tag, usedGroups);
    zeroLengths(tag, usedGroups);
    // The stated figure knows nothing of the used groups. Where they are longer than it, it would cut them off.
    const int kept = styleFileOffset(tag.bytes()) + std::max(stated, promisedLength(tag));
    if (kept < lengthOf(tag.bytes()))
        tag.bytes().resize(static_cast<std::size_t>(kept));
    return 0;
}

int StyFileWrite(WindowBuffer& tag)
{
    static_cast<void>(StyTableTrim(tag)); // Required: a file of empty styles alone is written as it is
    const std::string path = stylePath(tag);
    const ByteBuffer bytes = fileBytes(tag);
    return RetryStatement([&] { return replaceKeeping(path, bytes); });
}

int StyFileDrop(const WindowBuffer& tag)
{
    const std::string path = stylePath(tag);
    return RetryStatement([&] { return deleteKeeping(path); });
}
