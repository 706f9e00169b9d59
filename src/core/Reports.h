// Failures by numeric code, the questions before losing work, and the progress line.
#pragma once

#include <string>
#include <string_view>

/// A message box with an OK button: the text of `code`, its first "_" replaced by `argument`, under `title`.
/// Codes outside the table show "file name not valid". Nothing is decided here: the caller goes on or gives up.
void ReportError(int code, const std::string& title, std::string_view argument);

/// A yes/no question: 1 "the file has changed", 2 "the arrangement has changed", 3 the database's folder.
/// Answers 6 (yes) or 7 (no).
int AskSave(int code, const std::string& title);

/// A yes/no/cancel question, codes 1 and 2. Answers 6, 7 or 2.
int AskSaveCancel(int code, const std::string& title);

/// A progress line in the status panel, with the hourglass pointer: 1 "processing file style", 2 "loading style",
/// 3 "loading arrangement", 4 "loading program", 6 "opening _", 7 "processing _", 8 "update _". Code 0 clears it; a
/// code without a text leaves it as it is.
void StatusNotice(int code, std::string_view argument);

/// The ReportError code of a file error (RandomFile.h): 31 device, 28 not ready, 17 read only, 30 path, else 18.
int reportCodeOf(int fileError);

/// What a file routine does after a file error.
enum class FileErrAnswer { Abort, Retry };

/// Reports a file error (RandomFile.h) under the application title and says whether the failing statement is to be
/// tried again. Only "disk not ready" (71) can be: the box's OK tries again, Escape or its close button gives up.
FileErrAnswer FileErrReport(int fileError);

/// The same for the writes of a Save As: "disk full" (61) and "disk not ready" (71) can be tried again, whatever else
/// is a "disk writing error".
FileErrAnswer SaveAsErrReport(int fileError);

/// Runs `statement` (a callable that returns 0 or a file error) until it succeeds or the user gives up. 0, or 1 when
/// the read or write is to be aborted. `report` tells the user and says whether to try again.
template <typename Statement>
[[nodiscard]] int RetryStatement(Statement&& statement, FileErrAnswer (*report)(int) = &FileErrReport)
{
    for (;;) {
        const int fileError = statement();
        if (fileError == 0)
            return 0;
        if (report(fileError) == FileErrAnswer::Abort)
            return 1;
    }
}
