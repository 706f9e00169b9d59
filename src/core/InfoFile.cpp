// TvlCMInfo: the names of what the instrument was last sent, so that the next start, and the next click, know it.
#include "core/StateFiles.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "core/Strings.h"
#include "core/UserInterface.h"

namespace
{

// The file: one blank-filled record. Offsets are 0-based.
constexpr int Length = 1000;
constexpr Field Heading{0, 9};
constexpr Field ArrName{50, 50};
constexpr Field StyName{end(ArrName), 50};
constexpr Field PrgName{end(StyName), 50};

/// The path field of a window buffer.
constexpr Field BlockPath{20, PathFieldWidth};

constexpr const char* InfoName = "TvlCMInfo";
constexpr int OpeningRow = 111;

/// A kind of data as the file and the status panel know it.
struct InfoKind {
    Field field;
    std::string AppState::*name;
    StatusLabel label;
    const char* titleName; ///< the file's name in the title of a message
};

constexpr InfoKind ArrInfo{ArrName, &AppState::InfoArr, StatusLabel::Arr, InfoName};
// Required: messages about the style's entry name the device record's file in their title.
constexpr InfoKind StyInfo{StyName, &AppState::InfoSty, StatusLabel::Sty, "Dornflex"};
constexpr InfoKind PrgInfo{PrgName, &AppState::InfoPrg, StatusLabel::Prg, InfoName};

std::string titleFor(const char* fileName)
{
    return std::string(ApplicationName) + " - " + ResText(OpeningRow) + fileName;
}

/// Reports a file error under App.ErrTitle. 1, the result of a routine that gives up.
int giveUp(int fileError)
{
    ReportError(reportCodeOf(fileError), App.ErrTitle, {});
    return 1;
}

/// Writes a name into the record and shows it. The result of the Info...Set routines.
int recordName(const InfoKind& kind, std::string_view stem, std::string_view extension)
{
    App.ErrTitle = titleFor(kind.titleName);
    FileContent file;
    if (const int error = readFile(infoFilePath(), Length, file); error != 0)
        return giveUp(error);
    // Required: an information file that is empty or has gone is not made anew before the next first run.
    if (file.length == 0) {
        const int error = deleteFile(infoFilePath());
        return error == 0 ? 1 : giveUp(error);
    }
    const std::string name = infoStem(stem);
    ByteBuffer record = recordOf(file.bytes, Length, 1);
    putText(record, kind.field, name);
    if (const int error = replaceStateFile(infoFilePath(), record); error != 0)
        return giveUp(error);
    App.*kind.name = name;
    theUser().showStatusLabel(kind.label, name + "." + std::string(extension));
    return 0;
}

/// The stem of a window's file. Its path field holds no extension, so that a name with a point in it stays whole.
std::string stemOfBlock(std::string_view block) { return FileStemOf(trimRight(slice(block, BlockPath))); }

} // namespace

std::string infoFilePath() { return App.StateDir + "/" + InfoName; }

void InfoFileCheck()
{
    App.ErrTitle = titleFor(InfoName);
    FileContent file;
    if (const int error = readFile(infoFilePath(), Length, file); error != 0) {
        giveUp(error);
        return;
    }
    if (file.length == Length)
        return;
    ByteBuffer record = filled(Length, ' ');
    putText(record, Heading, InfoName);
    if (const int error = replaceStateFile(infoFilePath(), record); error != 0) {
        giveUp(error);
        return;
    }
    App.InfoArr.clear();
    App.InfoPrg.clear();
}

std::string InfoRead()
{
    FileContent file;
    if (readFile(infoFilePath(), Length, file) != 0)
        return App.InfoSty;
    if (file.length == 0)
        static_cast<void>(deleteFile(infoFilePath()));
    App.InfoArr = textIn(file.bytes, ArrInfo.field);
    App.InfoSty = textIn(file.bytes, StyInfo.field);
    App.InfoPrg = textIn(file.bytes, PrgInfo.field);
    return App.InfoSty;
}

int InfoArrSet(std::string_view block) { return recordName(ArrInfo, stemOfBlock(block), "arr"); }

int InfoStySet(std::string_view block) { return recordName(StyInfo, stemOfBlock(block), "sty"); }

int InfoPrgSet(std::string_view block, std::string_view extension)
{
    return recordName(PrgInfo, stemOfBlock(block), extension);
}

int InfoPrgSetStem(std::string_view stem, std::string_view extension) { return recordName(PrgInfo, stem, extension); }
