// Save As: the dialog, the name that comes of it, and the writing under that name.
#include "files/Saving.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "core/UserInterface.h"
#include "files/SafetyCopies.h"
#include "files/SavePlan.h"
#include "files/StyFileWriter.h"

#include <sys/stat.h>

namespace
{

using namespace WindowLayout;

constexpr int PathNotFound = 30; // report code

bool isBank(const WindowBuffer& work)
{
    return work.kind() == WindowKind::ArrBankA || work.kind() == WindowKind::ArrBankB;
}

bool existsOnDisk(const std::string& path)
{
    struct stat status {
    };
    return stat(path.c_str(), &status) == 0;
}

/// The name that a typed name stands for on this disk. Where it is not the one that the dialog has asked about, the
/// question is asked again. False when the user keeps the file that stands there.
bool mayWriteTo(const std::string& path, const std::string& confirmed)
{
    const std::string onDisk = resolveFileName(path);
    return onDisk == confirmed || !existsOnDisk(onDisk) || theUser().confirmOverwrite(onDisk);
}

bool writeTo(const std::string& path, const WindowBuffer& work, int fileKind)
{
    const ByteBuffer bytes = fileArea(work, fileKind);
    return RetryStatement([&] { return replaceKeeping(path, bytes); }, SaveAsErrReport) == 0;
}

/// The window's new name. A style file beside the old name that could not be read stays behind with it; so does a style
/// window that was opened from here: it still is the window of the old name's style file, and asks for itself.
void takeName(WindowBuffer& work, const std::string& path)
{
    const std::string name = withoutExtension(path);
    if (!sameFileName(work.path(), name))
        work.set(StyRefusedOffset, 0);
    work.setPath(name);
}

bool writeStyles(WindowBuffer& work)
{
    if (StyFileWrite(work) != 0)
        return false;
    work.set(StyRefusedOffset, 0);
    work.set(StyModifiedOffset, 0);
    return true;
}

bool saveArrangementsAs(WindowBuffer& work, const std::string& path)
{
    if (!writeTo(path, work, FileKind::Arr))
        return false;
    // Required: a bank's window stays on its bank, and its marks as they are: the file is a copy.
    if (isBank(work))
        return true;
    work.set(ModifiedOffset, 0);
    takeName(work, path);
    if (work.at(StyStateOffset) == StyState::Real && !writeStyles(work))
        return false;
    if (work.kind() == WindowKind::ArrNew)
        work.set(UntitledOffset, 0);
    return true;
}

// Required: a new style window stays untitled, and its Save asks for a name again.
bool saveStylesAs(WindowBuffer& work, const std::string& path)
{
    takeName(work, path);
    return writeStyles(work);
}

bool saveProgramsAs(WindowBuffer& work, const std::string& path, int fileKind)
{
    if (!writeTo(path, work, fileKind))
        return false;
    const std::string twin =
        withoutExtension(path) + extensionOf(fileKind == FileKind::Prg ? FileKind::Pgg : FileKind::Prg);
    if (RetryStatement([&] { return deleteKeeping(twin); }, SaveAsErrReport) != 0)
        return false;
    work.set(PrgModifiedOffset, 0);
    takeName(work, path);
    work.set(UntitledOffset, 0);
    return true;
}

bool saveGlobalsAs(WindowBuffer& work, const std::string& path)
{
    if (!writeTo(path, work, FileKind::Gbl))
        return false;
    work.set(ModifiedOffset, 0);
    if (work.kind() == WindowKind::GlobalFile) // the instrument's own block has a title in the place of a name
        takeName(work, path);
    return true;
}

bool saveAs(WindowBuffer& work, const std::string& path, int fileKind)
{
    switch (fileKind) {
    case FileKind::Arr:
        return saveArrangementsAs(work, path);
    case FileKind::Sty:
        return saveStylesAs(work, path);
    case FileKind::Gbl:
        return saveGlobalsAs(work, path);
    default:
        return saveProgramsAs(work, path, fileKind);
    }
}

void keepFolder(const std::string& path, int fileKind)
{
    const bool program = fileKind == FileKind::Prg || fileKind == FileKind::Pgg;
    (program ? App.LastDirPrg : fileKind == FileKind::Gbl ? App.LastDirGbl : App.LastDirFiles) = FolderOf(path);
}

/// Entry `number` of a family, from 1, takes the window's new name: the window is found by it, and its old file can be
/// opened again.
template <std::size_t Count>
void renameEntry(std::array<SessionEntry, Count>& entries, std::size_t index, const std::string& path)
{
    if (index < Count && entries[index].used)
        entries[index].path = path;
}

void keepInSession(const WindowBuffer& tag)
{
    const auto number = static_cast<std::size_t>(tag.number());
    const std::string path = tag.path();
    switch (tag.kind()) {
    case WindowKind::ArrFile:
        return renameEntry(App.Arrangements, number - 1, path);
    case WindowKind::PrgFile:
    case WindowKind::PrgNew: // its slot is one of the same eight
        return renameEntry(App.Programs, number - 1, path);
    case WindowKind::StyFile:
        return renameEntry(App.Styles, number - 1, path);
    case WindowKind::GlobalFile:
        return renameEntry(App.Globals, number, path); // entry 0 is the instrument's block
    default:
        return;
    }
}

} // namespace

int FileSaveAs(WindowBuffer& tag)
{
    const auto request = saveDialogFor(tag);
    if (!request)
        return SaveResult::NotSaved;
    const SaveDialogAnswer answer = theUser().saveFile(*request);
    if (!answer.accepted || answer.path.empty())
        return SaveResult::NotSaved;
    const int fileKind = fileKindChosen(tag, answer.filterIndex);
    if (fileKind == FileKind::None)
        return SaveResult::NotSaved;
    const std::string path = nameToSave(answer.path, fileKind);
    if (!mayBeNamed(path)) {
        ReportError(PathNotFound, ApplicationTitle, {});
        return SaveResult::NotSaved;
    }
    if (!mayWriteTo(path, answer.path))
        return SaveResult::NotSaved;
    WindowBuffer work = tag;
    if (!saveAs(work, path, fileKind))
        return SaveResult::NotSaved;
    tag = std::move(work);
    keepFolder(path, fileKind);
    keepInSession(tag);
    return SaveResult::Done;
}
