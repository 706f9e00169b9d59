// Opening a file, step by step. The order of the checks matters to the user: a file that is open already is told so
// before it is read again, and the folder of an attempt is remembered even when the reader refuses the file.
#include "shell/OpenDispatch.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/Reports.h"
#include "core/Shell.h"
#include "core/Strings.h"
#include "core/UserInterface.h"
#include "files/FileReaders.h"
#include "files/PrgLayout.h"
#include "files/WindowBuffer.h"
#include "shell/DatabaseLinks.h"
#include "shell/RecentFiles.h"

#include <array>

namespace
{

using namespace WindowKind;

constexpr int OpeningRow = 111;
constexpr int OpenFileRow = 67;
constexpr int CodeAlreadyOpen = 16;
constexpr int CodeAbsent = 27;
constexpr int CodeFileNotFound = 5;

/// The same in both languages.
constexpr const char* Filters = "Arrangements (*.arr)|*.arr|Style (*.sty)|*.sty|Programs (*.prg/pgg)|*.prg;*.pgg|"
                                "Global (*.gbl)|*.gbl| All files (*.*)|*.*|";

constexpr int ArrFilter = 1;
constexpr int StyFilter = 2;
constexpr int PrgFilter = 3;
constexpr int GblFilter = 4;
constexpr int AllFilesFilter = 5;

struct FilterRow {
    int filter;
    int branch;
};
constexpr std::array FilterRows = {FilterRow{ArrFilter, ArrFile}, FilterRow{StyFilter, StyFile},
                                   FilterRow{PrgFilter, PrgFile}, FilterRow{GblFilter, GlobalFile}};

int filterFor(int code)
{
    switch (code) {
    case StyFile:
        return StyFilter;
    case PrgFile:
        return PrgFilter;
    case GlobalFile:
        return GblFilter;
    default:
        return ArrFilter;
    }
}

std::string folderFor(int filter)
{
    if (filter == ArrFilter || filter == StyFilter)
        return App.LastDirFiles.empty() ? App.LastDirPrg : App.LastDirFiles;
    if (filter == GblFilter)
        return App.LastDirGbl.empty() ? App.LastDirFiles : App.LastDirGbl;
    return App.LastDirPrg.empty() ? App.LastDirFiles : App.LastDirPrg;
}

std::string upperExtension(const std::string& path)
{
    std::string extension = path.substr(withoutExtension(path).size());
    for (char& letter : extension)
        letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    return extension;
}

int branchOf(int filter, const std::string& path)
{
    if (filter == AllFilesFilter) {
        // Required: under "All files" only these three extensions are known; any other file is left unread.
        const std::string extension = upperExtension(path);
        if (extension == ".ARR")
            return ArrFile;
        return extension == ".PCC" || extension == ".PCG" ? PrgFile : 0;
    }
    for (const FilterRow& row : FilterRows)
        if (row.filter == filter)
            return row.branch;
    return 0;
}

/// The results of the arrangement, program and global readers.
int resultOf(int readResult)
{
    switch (readResult) {
    case ReadResult::Read:
        return OpenResult::Loaded;
    case ReadResult::Absent:
        return OpenResult::Absent;
    default:
        return OpenResult::Nothing;
    }
}

/// True when a new file's window was saved under this name. It has no entry in the session and holds the file all the
/// same: a second window on it would write over what this one has.
bool isSavedNew(int windowKind, const std::string& path)
{
    return OpenWindows::findByPath(windowKind, windowKind, withoutExtension(path)) != nullptr;
}

int openArr(const std::string& path)
{
    if (ArrWinFind(withoutExtension(path)) == 1 || isSavedNew(ArrNew, path))
        return OpenResult::AlreadyOpen;
    App.LastDirFiles = FolderOf(path);
    const int result = resultOf(ArrFileRead(path));
    if (result == OpenResult::Loaded) {
        Files.ArrFolder = FolderOf(path);
        Files.ArrName = FileNameOf(path);
    }
    return result;
}

int openSty(const std::string& path)
{
    constexpr int EmptyOrAbsent = 2; // of the style reader
    if (StyWinFind(withoutExtension(path)) == 1 || isSavedNew(StyNew, path))
        return OpenResult::AlreadyOpen;
    App.LastDirFiles = FolderOf(path);
    const int result = StyFileRead(path);
    if (result == EmptyOrAbsent)
        return OpenResult::Absent;
    return result == ReadResult::Read ? OpenResult::Loaded : OpenResult::Nothing;
}

int openPrg(const std::string& path)
{
    if (PrgWinFind(withoutExtension(path)) == 1)
        return OpenResult::AlreadyOpen;
    App.LastDirPrg = FolderOf(path);
    const int kind = FileKindOf(path);
    return kind == FileKind::Prg || kind == FileKind::Pgg ? resultOf(PrgFileRead(path)) : OpenResult::Nothing;
}

int openGbl(const std::string& path)
{
    std::string stem = path;
    if (GblWinFind(stem) == 1)
        return OpenResult::AlreadyOpen;
    if (FileKindOf(path) != FileKind::Gbl)
        return OpenResult::Nothing;
    App.LastDirGbl = FolderOf(path);
    return resultOf(GblFileRead(path));
}

/// A new program file: the template with no program in it.
OpenOutcome readProgramTemplate()
{
    OpenOutcome outcome{OpenResult::Nothing, PrgNew, App.PathPrg};
    outcome.result = resultOf(PrgFileRead(App.PathPrg));
    if (outcome.result == OpenResult::Loaded)
        putBytes(Files.PrgBuffer, PrgLayout::Records.offset, filled(PrgLayout::Records.size, 0));
    return outcome;
}

int slotFree(int branch)
{
    switch (branch) {
    case ArrFile:
        return ArrSlotFree();
    case StyFile:
        return StySlotFree();
    case PrgFile:
        return PrgSlotFree();
    case GlobalFile:
        return GblSlotFree();
    default:
        return 0;
    }
}

SessionEntry& entryOf(int branch, int slot)
{
    const auto index = static_cast<std::size_t>(slot);
    switch (branch) {
    case StyFile:
        return App.Styles[index - 1];
    case PrgFile:
        return App.Programs[index - 1];
    case GlobalFile:
        return App.Globals[index]; // entry 0 is the instrument's own block
    default:
        return App.Arrangements[index - 1];
    }
}

bool isKindOfBranch(int fileKind, int branch)
{
    switch (fileKind) {
    case FileKind::Arr:
        return branch == ArrFile;
    case FileKind::Sty:
        return branch == StyFile;
    case FileKind::Prg:
    case FileKind::Pgg:
        return branch == PrgFile;
    case FileKind::Gbl:
        return branch == GlobalFile;
    default:
        return false;
    }
}

/// The window of the branch taken, in its own slot, and the entry in the recent list.
bool showOpened(const OpenOutcome& outcome, const WindowMaker& makeWindow)
{
    const int slot = slotFree(outcome.branch);
    if (slot == 0)
        return false;
    const std::string stem = withoutExtension(outcome.path);
    const bool itsOwnName = isKindOfBranch(FileKindOf(outcome.path), outcome.branch);
    // A name that the window cannot give back is opened for reading: Save would write another file.
    const bool readOnly = Files.OpenReadOnly || !itsOwnName || !pathFitsField(stem);

    SessionEntry& entry = entryOf(outcome.branch, slot);
    const SessionEntry before = entry;
    entry.used = true;
    entry.path = stem;
    entry.readOnly = readOnly;
    entry.linked = false;
    if (outcome.branch == PrgFile) {
        entry.kind = PrgFile;
        entry.programType = FileKindOf(outcome.path) == FileKind::Pgg ? 1 : 0;
    }
    if (!makeWindow(outcome.branch, slot)) {
        entry = before;
        return false;
    }
    if (itsOwnName && outcome.branch == ArrFile)
        addOpenedToDatabase(stem);
    if (itsOwnName)
        RecentAdd(outcome.path, Files.OpenReadOnly);
    return true;
}

/// Brings the window that holds a file to the front: its own kind's, or a new file's that was saved under this name.
void showHolder(int branch, const std::string& path)
{
    const int newKind = branch == ArrFile ? ArrNew : branch == StyFile ? StyNew : PrgNew;
    const std::string stem = withoutExtension(path);
    if (App.shell && !App.shell->bringForward(branch, stem) && branch != GlobalFile)
        App.shell->bringForward(newKind, stem);
}

/// What every opener does with an outcome: the two reports that are the caller's, or the window.
bool finish(const OpenOutcome& outcome, const WindowMaker& makeWindow)
{
    if (outcome.result == OpenResult::AlreadyOpen || outcome.result == OpenResult::Absent) {
        App.ErrTitle = ResText(OpeningRow) + FileNameOf(outcome.path);
        ReportError(outcome.result == OpenResult::Absent ? CodeAbsent : CodeAlreadyOpen, App.ErrTitle, "");
        if (outcome.result == OpenResult::AlreadyOpen)
            showHolder(outcome.branch, outcome.path);
        return false;
    }
    return outcome.result == OpenResult::Loaded && outcome.branch != 0 && showOpened(outcome, makeWindow);
}

void forgetCancelled(int code, int filter)
{
    constexpr int ArrNameWanted = 1;
    if (filter == ArrFilter && code == ArrNameWanted)
        Files.ArrName.clear();
    if (filter != ArrFilter && code == PrgFile) {
        Files.PrgName.clear();
        Files.PrgFolder.clear();
    }
}

} // namespace

OpenOutcome openBranch(int branch, const std::string& path)
{
    OpenOutcome outcome{OpenResult::Nothing, branch, path};
    switch (branch) {
    case ArrFile:
        outcome.result = openArr(path);
        break;
    case StyFile:
        outcome.result = openSty(path);
        break;
    case PrgFile:
        outcome.result = openPrg(path);
        break;
    case GlobalFile:
        outcome.result = openGbl(path);
        break;
    default:
        outcome.result = OpenResult::Loaded; // nothing was read, and no window comes
    }
    return outcome;
}

OpenOutcome OpenFile(int code)
{
    if (code == PrgNew)
        return readProgramTemplate();

    OpenDialogRequest request;
    request.title = std::string(ApplicationTitle) + "- " + ResText(OpenFileRow);
    request.filterIndex = filterFor(code);
    request.folder = folderFor(request.filterIndex);
    request.filters = Filters;
    request.readOnly = App.ReadOnlyOpen;

    const OpenDialogAnswer answer = theUser().openFile(request);
    if (!answer.accepted) {
        forgetCancelled(code, answer.filterIndex);
        return {};
    }
    Files.OpenReadOnly = answer.readOnly;
    if (answer.path.empty())
        return {OpenResult::Loaded, 0, {}};
    return openBranch(branchOf(answer.filterIndex, answer.path), answer.path);
}

bool openByDialog(int code, const WindowMaker& makeWindow)
{
    return slotFree(code) != 0 && finish(OpenFile(code), makeWindow);
}

bool openByPath(const std::string& path, int fileKind, bool readOnly, const WindowMaker& makeWindow)
{
    for (const FilterRow& row : FilterRows) {
        if (!isKindOfBranch(fileKind, row.branch))
            continue;
        if (slotFree(row.branch) == 0)
            return false;
        Files.OpenReadOnly = readOnly;
        return finish(openBranch(row.branch, path), makeWindow);
    }
    return false;
}

bool openNewPrograms(const WindowMaker& makeWindow)
{
    const int slot = PrgSlotFree();
    if (slot == 0)
        return false;
    const OpenOutcome outcome = OpenFile(PrgNew);
    if (outcome.result == OpenResult::Absent)
        ReportError(CodeFileNotFound, ApplicationTitle, App.PathPrg);
    if (outcome.result != OpenResult::Loaded)
        return false;

    SessionEntry& entry = App.Programs[static_cast<std::size_t>(slot - 1)];
    const SessionEntry before = entry;
    entry.used = true;
    entry.path.clear();
    entry.readOnly = false;
    entry.kind = PrgNew;
    entry.programType = 0;
    if (makeWindow(PrgNew, slot))
        return true;
    entry = before;
    return false;
}

bool openNewStyles(const WindowMaker& makeWindow)
{
    const int slot = StySlotFree();
    if (slot == 0)
        return false;
    if (StyFileRead(App.PathSty) != ReadResult::Read) {
        ReportError(CodeFileNotFound, ApplicationTitle, App.PathSty);
        return false;
    }
    SessionEntry& entry = App.Styles[static_cast<std::size_t>(slot - 1)];
    const SessionEntry before = entry;
    entry.used = true;
    entry.path.clear();
    entry.readOnly = false;
    entry.linked = false;
    if (makeWindow(StyNew, slot))
        return true;
    entry = before;
    return false;
}

bool openNewArrangements(const WindowMaker& makeWindow)
{
    const int slot = ArrNewSlotFree();
    if (slot == 0)
        return false;
    if (ArrFileRead(App.PathArrA) != ReadResult::Read) {
        ReportError(CodeFileNotFound, ApplicationTitle, App.PathArrA);
        return false;
    }
    putBytes(Files.ArrBuffer, ArrLayout::Rows.offset, filled(ArrLayout::Rows.size, 0));
    return makeWindow(ArrNew, slot);
}
