// Save, and the save at closing: what is written for each kind of window, and which marks it leaves.
#include "files/Saving.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "core/Strings.h"
#include "core/UserInterface.h"
#include "files/SafetyCopies.h"
#include "files/SavePlan.h"
#include "files/StyFileWriter.h"

#include <array>

namespace
{

using namespace WindowLayout;

constexpr int SavingRow = 115;
constexpr int FileChanged = 1; // question code

/// How the steps of a save ended. Only after Done is the buffer stored back.
enum class SaveEnd { Done, LeftEarly, Failed };

/// Writes the area of a kind to the window's own name. False when the user gave up.
bool writeOwn(const WindowBuffer& work, int fileKind)
{
    const std::string path = work.path() + extensionOf(fileKind);
    const ByteBuffer bytes = fileArea(work, fileKind);
    return RetryStatement([&] { return replaceKeeping(path, bytes); }) == 0;
}

/// A style file that could not be read when the window opened belongs to the user as it is, until a pasted style makes
/// the window's own styles worth more.
bool mayTouchStyleFile(const WindowBuffer& work)
{
    return work.at(StyRefusedOffset) == 0 || work.at(StyStateOffset) == StyState::Real;
}

bool writeStyles(WindowBuffer& work)
{
    if (mayTouchStyleFile(work)) {
        if (StyFileWrite(work) != 0)
            return false;
        work.set(StyRefusedOffset, 0); // what stands there now can be read
    }
    work.set(StyModifiedOffset, 0);
    return true;
}

bool dropStyles(const WindowBuffer& work) { return !mayTouchStyleFile(work) || StyFileDrop(work) == 0; }

SaveEnd saveArrangements(WindowBuffer& work)
{
    if (!writeOwn(work, FileKind::Arr))
        return SaveEnd::Failed;
    work.set(ModifiedOffset, 0);
    // Required: a window without a style area is left here, its marks as they were: it counts as modified and asks
    // again at its closing.
    if (work.at(StyStateOffset) == StyState::None)
        return SaveEnd::LeftEarly;
    return writeStyles(work) ? SaveEnd::Done : SaveEnd::Failed;
}

SaveEnd saveNewArrangements(WindowBuffer& work)
{
    if (!writeOwn(work, FileKind::Arr))
        return SaveEnd::Failed;
    work.set(ModifiedOffset, 0);
    // Required: a new set of arrangements owns its name, so a style file that stands there is removed, by the replacing
    // itself where new styles take its place. Without styles the marks stay as they were.
    if (work.at(StyStateOffset) != StyState::Real)
        return dropStyles(work) ? SaveEnd::LeftEarly : SaveEnd::Failed;
    return writeStyles(work) ? SaveEnd::Done : SaveEnd::Failed;
}

SaveEnd savePrograms(WindowBuffer& work)
{
    const int fileKind = programKind(work);
    if (!writeOwn(work, fileKind))
        return SaveEnd::Failed;
    work.set(PrgModifiedOffset, 0);
    // Required: a stem has one program file, .prg or .pgg.
    const std::string twin = work.path() + extensionOf(fileKind == FileKind::Prg ? FileKind::Pgg : FileKind::Prg);
    return RetryStatement([&] { return deleteKeeping(twin); }) == 0 ? SaveEnd::Done : SaveEnd::Failed;
}

SaveEnd saveStyles(WindowBuffer& work)
{
    if (StyFileWrite(work) != 0)
        return SaveEnd::Failed;
    work.set(StyModifiedOffset, 0);
    return SaveEnd::Done;
}

SaveEnd saveGlobals(WindowBuffer& work)
{
    if (!writeOwn(work, FileKind::Gbl))
        return SaveEnd::Failed;
    work.set(ModifiedOffset, 0);
    return SaveEnd::Done;
}

SaveEnd saveByKind(WindowBuffer& work)
{
    switch (work.kind()) {
    case WindowKind::ArrFile:
        return saveArrangements(work);
    case WindowKind::ArrNew:
        return saveNewArrangements(work);
    case WindowKind::PrgFile:
    case WindowKind::PrgNew: // named by now
        return savePrograms(work);
    case WindowKind::StyFile:
        return saveStyles(work);
    case WindowKind::GlobalFile:
        return saveGlobals(work);
    default:
        return SaveEnd::Done;
    }
}

void setSavingTitle(const WindowBuffer& tag) { App.ErrTitle = ResText(SavingRow) + tag.stem(); }

/// The mark that makes a window's closing ask, and how Yes saves it.
struct ClosingRow {
    int kind;
    int modifiedOffset;
    int (*save)(WindowBuffer&);
};

constexpr std::array ClosingRows = {
    // A bank beside the program is not the user's to change; what was changed in it goes to a file of the user's.
    ClosingRow{WindowKind::ArrBankA, ModifiedOffset, FileSaveAs},
    ClosingRow{WindowKind::ArrBankB, ModifiedOffset, FileSaveAs},
    ClosingRow{WindowKind::ArrFile, ModifiedOffset, ArrClosingSave},
    ClosingRow{WindowKind::ArrNew, ModifiedOffset, SaveWindow},
    ClosingRow{WindowKind::PrgFile, PrgModifiedOffset, SaveWindow},
    ClosingRow{WindowKind::PrgNew, PrgModifiedOffset, SaveWindow},
    ClosingRow{WindowKind::StyFile, StyModifiedOffset, SaveWindow},
    ClosingRow{WindowKind::StyNew, StyModifiedOffset, SaveWindow},
    ClosingRow{WindowKind::GlobalFile, ModifiedOffset, SaveWindow},
};

/// A file opened read only is not written, though the disk would let it: the answer is the one of a file that the disk
/// protects. The window stays, so that Save As can keep the changes.
bool refuseReadOnly()
{
    static_cast<void>(FileErrReport(FileError::AccessDenied));
    return false;
}

} // namespace

int FileSave(WindowBuffer& tag)
{
    if (tag.untitled())
        return SaveResult::NotSaved;
    setSavingTitle(tag);
    WindowBuffer work = tag;
    const SaveEnd end = saveByKind(work);
    if (end == SaveEnd::Done)
        tag = std::move(work);
    return end == SaveEnd::Failed ? SaveResult::NotSaved : SaveResult::Done;
}

int SaveWindow(WindowBuffer& tag)
{
    // A new style window has no file that Save could write, whatever its mark says.
    return tag.untitled() || tag.kind() == WindowKind::StyNew ? FileSaveAs(tag) : FileSave(tag);
}

int ArrClosingSave(WindowBuffer& tag)
{
    setSavingTitle(tag);
    WindowBuffer work = tag;
    if (!writeOwn(work, FileKind::Arr))
        return SaveResult::NotSaved;
    work.set(ModifiedOffset, 0);
    const int state = work.at(StyStateOffset);
    // Required: where Save writes the file of empty styles, the closing removes it: none of its styles is used.
    if (state == StyState::Empty) {
        if (!dropStyles(work))
            return SaveResult::NotSaved;
        work.set(StyModifiedOffset, 0);
    }
    if (state == StyState::Real && work.at(StyModifiedOffset) == 1 && !writeStyles(work))
        return SaveResult::NotSaved;
    tag = std::move(work);
    return SaveResult::Done;
}

bool AgreeToClose(WindowBuffer& tag, const std::string& title)
{
    for (const ClosingRow& row : ClosingRows) {
        if (row.kind != tag.kind() || tag.at(row.modifiedOffset) == 0)
            continue;
        const int answer = AskSaveCancel(FileChanged, title);
        if (answer == Answer::Yes && tag.readOnly())
            return refuseReadOnly();
        return answer == Answer::No || (answer == Answer::Yes && row.save(tag) == SaveResult::Done);
    }
    return true;
}
