// The tables of Save As.
#include "files/SavePlan.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/Strings.h"

#include <algorithm>
#include <array>

namespace
{

constexpr int SaveFileAsRow = 75;
constexpr int UntitledRow = 81;

// The blanks within are the dialog's own and stay.
constexpr const char* Filters = "Arrangements (*.arr)|*.arr| Styles (*.sty)|*.sty| Programs (*.prg)|*.prg| "
                                "Programs(*.pgg)| *.pgg| Global(*.gbl)| *.gbl| All files (*.*)|*.*|";
constexpr int AllFilesFilter = 6; // the five before it are numbered as FileKind

enum class Start { WorkingFolder, ProgramFolder, GlobalFolder, FolderOfFile };
enum class Offer { BankA, BankB, WholePath, StemUnlessUntitled, Stem, Untitled };

/// One kind of window: the kind of its own file, and how its dialog begins.
struct DialogRow {
    int kind;
    int fileKind; ///< Prg stands for .prg and .pgg, by the type of the area
    Start start;
    Offer offer;
};

constexpr std::array DialogRows = {
    DialogRow{WindowKind::ArrBankA, FileKind::Arr, Start::WorkingFolder, Offer::BankA},
    DialogRow{WindowKind::ArrBankB, FileKind::Arr, Start::WorkingFolder, Offer::BankB},
    DialogRow{WindowKind::ArrFile, FileKind::Arr, Start::WorkingFolder, Offer::WholePath},
    DialogRow{WindowKind::ArrNew, FileKind::Arr, Start::WorkingFolder, Offer::StemUnlessUntitled},
    DialogRow{WindowKind::PrgFile, FileKind::Prg, Start::FolderOfFile, Offer::Stem},
    DialogRow{WindowKind::PrgNew, FileKind::Prg, Start::ProgramFolder, Offer::Untitled},
    // Required: a style window offers "Untitled" also where it has a name, so that no quick press replaces the file
    // that an arrangement file of that name lives by.
    DialogRow{WindowKind::StyFile, FileKind::Sty, Start::WorkingFolder, Offer::Untitled},
    DialogRow{WindowKind::StyNew, FileKind::Sty, Start::WorkingFolder, Offer::Untitled},
    DialogRow{WindowKind::GlobalInstrument, FileKind::Gbl, Start::GlobalFolder, Offer::Stem},
    DialogRow{WindowKind::GlobalFile, FileKind::Gbl, Start::GlobalFolder, Offer::Stem},
};

const DialogRow* rowOf(const WindowBuffer& tag)
{
    const auto* const row = std::find_if(DialogRows.begin(), DialogRows.end(),
                                         [&](const DialogRow& entry) { return entry.kind == tag.kind(); });
    return row == DialogRows.end() ? nullptr : row;
}

int ownFileKind(const WindowBuffer& tag, const DialogRow& row)
{
    return row.fileKind == FileKind::Prg ? programKind(tag) : row.fileKind;
}

/// The folders of the settings stand in for each other while one is still empty, as in the open dialog.
std::string startFolder(const WindowBuffer& tag, Start start)
{
    const auto either = [](const std::string& one, const std::string& other) { return one.empty() ? other : one; };
    switch (start) {
    case Start::WorkingFolder:
        return either(App.LastDirFiles, App.LastDirPrg);
    case Start::ProgramFolder:
        return either(App.LastDirPrg, App.LastDirFiles);
    case Start::GlobalFolder:
        return either(App.LastDirGbl, App.LastDirFiles);
    case Start::FolderOfFile:
        break;
    }
    return FolderOf(tag.path());
}

std::string offeredStem(const WindowBuffer& tag, Offer offer)
{
    switch (offer) {
    case Offer::BankA:
        return "TvlArrA";
    case Offer::BankB:
        return "TvlArrB";
    case Offer::WholePath:
        return tag.path();
    case Offer::StemUnlessUntitled:
        return tag.untitled() ? ResText(UntitledRow) : tag.stem();
    case Offer::Stem:
        return tag.stem();
    case Offer::Untitled:
        break;
    }
    return ResText(UntitledRow);
}

bool endsInKind(const std::string& name, int fileKind) { return FileKindOf(name) == fileKind; }

bool isProgram(int fileKind) { return fileKind == FileKind::Prg || fileKind == FileKind::Pgg; }

/// True for an arrangement window with styles beside its arrangements.
bool hasStyles(const WindowBuffer& tag)
{
    const bool arrangements = tag.kind() == WindowKind::ArrFile || tag.kind() == WindowKind::ArrNew;
    return arrangements && tag.at(WindowLayout::StyStateOffset) != WindowLayout::StyState::None;
}

} // namespace

int programKind(const WindowBuffer& tag)
{
    return tag.at(WindowLayout::PrgTypeOffset) == 0 ? FileKind::Prg : FileKind::Pgg;
}

std::optional<SaveDialogRequest> saveDialogFor(const WindowBuffer& tag)
{
    const DialogRow* const row = rowOf(tag);
    if (row == nullptr)
        return std::nullopt;
    const int fileKind = ownFileKind(tag, *row);
    const std::string extension = extensionOf(fileKind);
    SaveDialogRequest request;
    request.title = ResText(SaveFileAsRow);
    request.folder = startFolder(tag, row->start);
    request.fileName = offeredStem(tag, row->offer) + extension;
    request.defaultExtension = extension.substr(1);
    request.filterIndex = fileKind;
    request.filters = Filters;
    request.nameOf = [tag](const std::string& typed, int filterIndex) {
        const int kind = fileKindChosen(tag, filterIndex);
        return kind == FileKind::None ? std::string() : nameToSave(typed, kind);
    };
    return request;
}

int fileKindChosen(const WindowBuffer& tag, int filterIndex)
{
    const DialogRow* const row = rowOf(tag);
    if (row == nullptr)
        return FileKind::None;
    const int own = ownFileKind(tag, *row);
    const int chosen = filterIndex == AllFilesFilter ? own : filterIndex;
    // Required: of a program window either filter writes the type that its area has.
    if (chosen == own || (isProgram(own) && isProgram(chosen)))
        return own;
    return chosen == FileKind::Sty && hasStyles(tag) ? chosen : FileKind::None;
}

std::string nameToSave(const std::string& typed, int fileKind)
{
    if (endsInKind(typed, fileKind))
        return typed;
    // Required: whichever of the two was typed, a program file's name tells what it holds.
    if (isProgram(fileKind) && isProgram(FileKindOf(typed)))
        return withoutExtension(typed) + extensionOf(fileKind);
    return typed + extensionOf(fileKind);
}

bool mayBeNamed(const std::string& path)
{
    const std::string name = withoutExtension(path);
    return pathFitsField(name) && !FileStemOf(name).empty();
}

ByteBuffer fileArea(const WindowBuffer& tag, int fileKind)
{
    constexpr std::array Areas = {
        Field{}, WindowLayout::ArrFile, Field{}, WindowLayout::PrgFile, WindowLayout::PrgFile, WindowLayout::GblFile};
    const Field area = Areas[static_cast<std::size_t>(fileKind)];
    ByteBuffer bytes(slice(tag.bytes(), area));
    bytes.resize(static_cast<std::size_t>(area.size), '\0');
    return bytes;
}
