// Each read goes through the shared hand-over buffers and is copied at once.
#include "arrangements/ArrWindowBuilder.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/Reports.h"
#include "core/Strings.h"
#include "files/FileReaders.h"

#include <array>

namespace
{

constexpr int FormatError = 4; ///< report code

/// Results of StyFileRead.
constexpr int StyleRead = 0;
constexpr int StyleRefused = 1;

void setWholeStyleArea(WindowBuffer& tag, const ByteBuffer& image, int state)
{
    tag.setStyleArea(image);
    tag.set(WindowLayout::StyStateOffset, state);
}

/// The file in the hand-over buffer, then blanks up to `size` bytes: list rows, and the program area where there is
/// one.
void appendArrangements(WindowBuffer& tag, int size)
{
    ByteBuffer& bytes = tag.bytes();
    bytes.reserve(static_cast<std::size_t>(size) + Files.StyEmptyBuffer.size());
    bytes.append(slice(Files.ArrBuffer, {0, ArrLayout::FileSize}));
    bytes.resize(static_cast<std::size_t>(end(WindowLayout::ArrFile)), '\0');
    bytes.resize(static_cast<std::size_t>(size), ' ');
}

} // namespace

WindowBuffer ArrTagBuild(int slot, const SessionEntry& entry)
{
    WindowBuffer tag = WindowBuffer::fresh(WindowKind::ArrFile, slot);
    tag.setPath(entry.path);
    const bool pathIsWhole = pathFitsField(entry.path);
    tag.set(WindowLayout::ReadOnlyOffset, entry.readOnly || !pathIsWhole ? 1 : 0);
    tag.set(WindowLayout::EntryUsedOffset, 1);

    appendArrangements(tag, WindowLayout::StyCompanionOffset);
    if (pathIsWhole) {
        ArrStyCompanionRead(tag);
        ArrPrgCompanionRead(tag);
    } else {
        // The field holds another file's path than the one that was opened: its companions would be a stranger's.
        setWholeStyleArea(tag, Files.StyEmptyBuffer, WindowLayout::StyState::Empty);
    }
    return tag;
}

WindowBuffer ArrNewTagBuild(int number)
{
    constexpr int UntitledRow = 81;
    WindowBuffer tag = WindowBuffer::fresh(WindowKind::ArrNew, number);
    tag.setPath(" (" + ResText(UntitledRow) + " " + std::to_string(number) + ")");
    tag.set(WindowLayout::EntryUsedOffset, 1);
    tag.set(WindowLayout::UntitledOffset, 1);
    appendArrangements(tag, WindowLayout::StyCompanionOffset);
    setWholeStyleArea(tag, Files.StyEmptyBuffer, WindowLayout::StyState::Empty);
    return tag;
}

WindowBuffer ArrBankTagBuild(int windowKind)
{
    WindowBuffer tag = WindowBuffer::fresh(windowKind, 0);
    tag.setPath(windowKind == WindowKind::ArrBankA ? "Arr A" : "Arr B"); // its name, the same in both languages
    appendArrangements(tag, end(WindowLayout::ArrRows));
    return tag;
}

void ArrStyCompanionRead(WindowBuffer& tag)
{
    const std::string path = tag.path() + extensionOf(FileKind::Sty);
    const int result = StyFileRead(path);
    tag.set(WindowLayout::StyRefusedOffset, result == StyleRefused ? 1 : 0);
    if (result == StyleRead) {
        setWholeStyleArea(tag, Files.StyBuffer, WindowLayout::StyState::Real);
        return;
    }
    if (result == StyleRefused)
        ReportError(FormatError, App.ErrTitle, tag.stem()); // under the title that the reader has set
    setWholeStyleArea(tag, Files.StyEmptyBuffer, WindowLayout::StyState::Empty);
}

void ArrPrgCompanionRead(WindowBuffer& tag)
{
    struct Companion {
        int fileKind;
        int type; ///< what the type byte says of it
    };
    constexpr std::array Companions = {Companion{FileKind::Prg, 0}, Companion{FileKind::Pgg, 1}};

    tag.set(WindowLayout::PrgStateOffset, 0);
    tag.set(WindowLayout::PrgTypeOffset, 0);
    for (const Companion& companion : Companions) {
        if (PrgFileRead(tag.path() + extensionOf(companion.fileKind)) != ReadResult::Read)
            continue;
        putBytes(tag.bytes(), WindowLayout::PrgCompanion.offset, slice(Files.PrgBuffer, {0, PrgLayout::FileSize}));
        tag.set(WindowLayout::PrgStateOffset, 1);
        tag.set(WindowLayout::PrgTypeOffset, companion.type);
        return;
    }
}
