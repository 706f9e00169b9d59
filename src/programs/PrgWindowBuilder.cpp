// A user window's buffer is copied from the hand-over buffer at once; a bank's holds no file.
#include "programs/PrgWindowBuilder.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/Strings.h"
#include "files/FileReaders.h"

#include <array>

namespace
{

constexpr int UntitledRow = 81;
constexpr int OpenProgramWindow = 2; ///< the program state of a program window
constexpr int ReferenceFile = 1;     ///< the type byte of a .pgg

/// Titles of the windows without a file, in the order of their kinds.
constexpr std::array BankTitles = {"Prg A", "Prg B", "Prg C", "Prg D", "Prg E", "Drum", "Percussion"};

constexpr Field BankTitle{WindowLayout::HeadSize, WindowLayout::PrgBankRows.offset - WindowLayout::HeadSize};
constexpr Field KitTitle{WindowLayout::HeadSize, 24};

std::string extensionName(const WindowBuffer& tag)
{
    return tag.at(WindowLayout::PrgTypeOffset) == ReferenceFile ? "pgg" : "prg";
}

} // namespace

WindowBuffer PrgTagBuild(int windowKind, int slot, const SessionEntry& entry)
{
    WindowBuffer tag = WindowBuffer::fresh(windowKind, slot);
    if (windowKind == WindowKind::PrgNew) {
        tag.setPath(" (" + ResText(UntitledRow) + " " + std::to_string(slot) + ")");
        tag.set(WindowLayout::UntitledOffset, 1);
    } else {
        tag.setPath(entry.path);
        tag.set(WindowLayout::ReadOnlyOffset, entry.readOnly || !pathFitsField(entry.path) ? 1 : 0);
        tag.set(WindowLayout::EntryUsedOffset, 1);
        tag.set(WindowLayout::PrgTypeOffset, entry.programType != 0 ? ReferenceFile : 0);
    }
    tag.set(WindowLayout::PrgStateOffset, OpenProgramWindow);

    ByteBuffer& bytes = tag.bytes();
    bytes.append(slice(Files.PrgBuffer, {0, PrgLayout::FileSize}));
    bytes.resize(static_cast<std::size_t>(end(WindowLayout::PrgFile)), '\0');
    bytes.resize(static_cast<std::size_t>(end(WindowLayout::PrgRows)), ' ');
    return tag;
}

WindowBuffer PrgBankTagBuild(int windowKind, int channel)
{
    const bool kits = windowKind == WindowKind::DrumKits || windowKind == WindowKind::Percussion;
    const Field title = kits ? KitTitle : BankTitle;
    const auto index = static_cast<std::size_t>(windowKind - WindowKind::PrgBankA);
    WindowBuffer tag{filled(WindowLayout::HeadSize, 0) + padded(BankTitles[index], title.size) +
                     filled(WindowLayout::PrgBankRows.size, ' ')};
    tag.set(WindowLayout::KindOffset, windowKind);
    tag.set(WindowLayout::ChannelOffset, channel);
    tag.set(WindowLayout::EntryUsedOffset, 1);
    return tag;
}

std::string prgClosingTitle(const WindowBuffer& tag)
{
    const std::string name = tag.untitled() ? ResText(UntitledRow) : tag.stem();
    return "File Program - " + name + "." + extensionName(tag) + " (" + std::to_string(tag.number()) + ")";
}

void PrgSessionLeave(SessionEntry& entry, const WindowBuffer& tag, const WindowPosition& place)
{
    const int type = tag.at(WindowLayout::PrgTypeOffset) == ReferenceFile ? 1 : 0;
    entry.used = false;
    entry.Open = 0;
    if (tag.untitled())
        return; // no file, nothing to come back to
    entry.left = place.left;
    entry.top = place.top;
    entry.width = place.width;
    entry.height = place.height;
    // A path that its field cannot hold would bring back another file.
    if (tag.kind() == WindowKind::PrgFile && !pathFitsField(entry.path))
        return;
    entry.path = tag.path();
    entry.kind = WindowKind::PrgFile; // a new file that was saved comes back as the file it is
    entry.programType = type;
    entry.readOnly = tag.readOnly();
    entry.Open = App.AppClosing ? 1 : 0;
    RecentPlaceKeep(entry.path, type == ReferenceFile ? FileKind::Pgg : FileKind::Prg, place);
}
