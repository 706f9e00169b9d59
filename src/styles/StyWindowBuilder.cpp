// Head, path, blank list rows, then the style file to the end.
#include "styles/StyWindowBuilder.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/Strings.h"
#include "files/FileReaders.h"
#include "styles/StyleBanks.h"

namespace
{

constexpr int UntitledRow = 81;

/// What stands in the path field of a window without a file.
std::string untitledText(int number) { return " (" + ResText(UntitledRow) + " " + std::to_string(number) + ")"; }

} // namespace

WindowBuffer StyTagBuild(int windowKind, int number, const SessionEntry& entry)
{
    WindowBuffer tag = WindowBuffer::fresh(windowKind, number);
    if (windowKind == WindowKind::StyFile) {
        tag.setPath(entry.path);
        // A path that its field cannot hold would save over another file.
        tag.set(WindowLayout::ReadOnlyOffset, entry.readOnly || !pathFitsField(entry.path) ? 1 : 0);
        tag.set(WindowLayout::EntryUsedOffset, 1);
    } else {
        tag.setPath(untitledText(number));
        tag.set(WindowLayout::UntitledOffset, 1);
    }
    tag.bytes().resize(static_cast<std::size_t>(WindowLayout::StyFileOffset), '\0');
    tag.bytes() += Files.StyBuffer;
    return tag;
}

WindowBuffer StyBankTagBuild(int windowKind)
{
    WindowBuffer tag = WindowBuffer::fresh(windowKind, 0);
    tag.setPath(styleBankName(windowKind));
    // Required: the kind stands where other windows keep their read-only mark. It is not 1, so the bank bears none.
    tag.set(WindowLayout::ReadOnlyOffset, windowKind);
    tag.set(WindowLayout::EntryUsedOffset, 1);
    return tag;
}

void StySessionLeave(SessionEntry& entry, const WindowPosition& place)
{
    entry.left = place.left;
    entry.top = place.top;
    entry.width = place.width;
    entry.height = place.height;
    entry.used = false;
    entry.linked = false;
}
