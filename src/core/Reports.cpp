// Codes become rows of the string table, and rows become boxes and the progress line.
#include "core/Reports.h"

#include "core/Dichiarazioni.h"
#include "core/RandomFile.h"
#include "core/Strings.h"
#include "core/UserInterface.h"

#include <algorithm>
#include <array>

namespace
{

struct CodeRow {
    int code;
    int row;
};

constexpr int UnknownCodeRow = 48;

constexpr std::array ReportRows = {
    CodeRow{0, 76},   CodeRow{2, 100},  CodeRow{3, 82},   CodeRow{4, 14},   CodeRow{5, 79},   CodeRow{6, 40},
    CodeRow{7, 41},   CodeRow{8, 42},   CodeRow{9, 43},   CodeRow{10, 16},  CodeRow{12, 49},  CodeRow{13, 89},
    CodeRow{14, 77},  CodeRow{15, 78},  CodeRow{16, 93},  CodeRow{17, 90},  CodeRow{18, 27},  CodeRow{19, 28},
    CodeRow{20, 18},  CodeRow{21, 19},  CodeRow{22, 20},  CodeRow{23, 21},  CodeRow{24, 66},  CodeRow{25, 104},
    CodeRow{26, 105}, CodeRow{27, 15},  CodeRow{28, 26},  CodeRow{29, 109}, CodeRow{30, 110}, CodeRow{31, 112},
    CodeRow{32, 116}, CodeRow{34, 117}, CodeRow{35, 118}, CodeRow{36, 119},
};

constexpr std::array NoticeRows = {
    CodeRow{1, 10}, CodeRow{2, 11}, CodeRow{3, 12}, CodeRow{4, 13}, CodeRow{6, 96}, CodeRow{7, 99}, CodeRow{8, 101},
};

template <typename Rows>
int rowOf(const Rows& rows, int code, int otherwise)
{
    const auto found = std::find_if(rows.begin(), rows.end(), [code](CodeRow entry) { return entry.code == code; });
    return found == rows.end() ? otherwise : found->row;
}

BoxEnd showReport(int code, const std::string& title, std::string_view argument)
{
    return theUser().warn(title, withArgument(ResText(rowOf(ReportRows, code, UnknownCodeRow)), argument));
}

std::string saveQuestion(int code)
{
    constexpr int FileChanged = 52, SaveChanges = 53, ArrangementChanged = 94, DatabaseFolder = 97;
    if (code == 3)
        return ResText(DatabaseFolder);
    return ResText(code == 2 ? ArrangementChanged : FileChanged) + "\n" + ResText(SaveChanges);
}

} // namespace

void ReportError(int code, const std::string& title, std::string_view argument) { showReport(code, title, argument); }

int AskSave(int code, const std::string& title) { return theUser().askYesNo(title, saveQuestion(code)); }

int AskSaveCancel(int code, const std::string& title) { return theUser().askYesNoCancel(title, saveQuestion(code)); }

void StatusNotice(int code, std::string_view argument)
{
    if (code == 0) {
        theUser().showProgressLine({});
        return;
    }
    if (const int row = rowOf(NoticeRows, code, 0); row != 0)
        theUser().showProgressLine(withArgument(ResText(row), argument));
}

int reportCodeOf(int fileError)
{
    constexpr int ReadingError = 18;
    constexpr std::array codes = {
        CodeRow{FileError::DeviceIo, 31},
        CodeRow{FileError::NotReady, 28},
        CodeRow{FileError::AccessDenied, 17},
        CodeRow{FileError::PathNotFound, 30},
    };
    return rowOf(codes, fileError, ReadingError);
}

FileErrAnswer FileErrReport(int fileError)
{
    const BoxEnd end = showReport(reportCodeOf(fileError), ApplicationTitle, {});
    return fileError == FileError::NotReady && end == BoxEnd::Ok ? FileErrAnswer::Retry : FileErrAnswer::Abort;
}

FileErrAnswer SaveAsErrReport(int fileError)
{
    constexpr int WritingError = 29;
    constexpr std::array codes = {CodeRow{FileError::DiskFull, 19}, CodeRow{FileError::NotReady, 28}};
    const int code = rowOf(codes, fileError, WritingError);
    const BoxEnd end = showReport(code, ApplicationTitle, {});
    return code != WritingError && end == BoxEnd::Ok ? FileErrAnswer::Retry : FileErrAnswer::Abort;
}
