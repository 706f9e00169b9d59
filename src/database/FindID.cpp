// From the digits to the file: what is refused, the mapping of the code, and the walk through the records.
#include "database/FindID.h"

#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "database/TvlDBArr.h"

#include <algorithm>

namespace
{

constexpr const char* Title = "ID";
constexpr int CodeMalformed = 1; // not in the table of reports: "file name not valid"
constexpr int CodeDatabaseAbsent = 6;
constexpr int CodeDatabaseWrong = 7;
constexpr int CodeNotListed = 8;

constexpr std::size_t FewestDigits = 3;
constexpr int CodeDigits = 2;
constexpr int ArrangementsOfABank = 8;

int digit(char character) { return character - '0'; }

/// The row of a code 11 to 18, 21 to 28, on to 81 to 88.
int rowOf(int tens, int units)
{
    // Required: the check of the bank digit knows only 0. A 9 passes and is left as it stands, so that the file is
    // brought and no row of it is chosen.
    constexpr int PastTheLastBank = 9;
    if (tens == PastTheLastBank)
        return tens * 10 + units;
    return (tens - 1) * ArrangementsOfABank + (units - 1);
}

int fileNumberOf(std::string_view digits)
{
    constexpr int Enough = 1'000'000; // no record holds a number as large
    int number = 0;
    for (const char character : digits)
        number = std::min(number * 10 + digit(character), Enough);
    return number;
}

/// The record of a file's number; its name without extension, or false. A name that leads out of the folder is no
/// file of the index.
bool recordOf(std::string_view image, int fileNumber, std::string& name)
{
    using namespace DBArrLayout;
    for (int slot = FirstSlot; slot <= LastSlot; ++slot) {
        const std::string_view entry = slice(image, record(slot));
        const int id = word16LowFirst(entry, RecordIdOffset);
        if (id == 0)
            return false; // also for a file number of 0: an empty record matches nothing
        if (id == fileNumber) {
            name = trimRight(slice(entry, RecordName));
            return staysInFolder(name);
        }
    }
    return false;
}

void findInFile(const FindNumber& number, std::string_view text)
{
    const DBArrContent database = DBArrRead();
    if (database.state != DBArrFile::Valid) {
        const int code = database.state == DBArrFile::Absent  ? CodeDatabaseAbsent
                         : database.state == DBArrFile::Wrong ? CodeDatabaseWrong
                                                              : reportCodeOf(database.fileError);
        ReportError(code, Title, {});
        return;
    }
    if (!recordOf(database.bytes, number.FindFileNumber, DBArr.ArrFileName)) {
        ReportError(CodeNotListed, "ID = " + std::string(text), {});
        return;
    }
    DBArr.ArrFileFolder = dbArrFolder(database.bytes);
    if (DBArr.findInFile)
        DBArr.findInFile(DBArr.ArrFileFolder + "/" + DBArr.ArrFileName, number.FindIdRow);
}

} // namespace

bool findNumberOf(std::string_view text, FindNumber& number)
{
    const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
    if (text.size() < FewestDigits || !std::all_of(text.begin(), text.end(), isDigit))
        return false;
    const int units = digit(text.back());
    const int tens = digit(text[text.size() - CodeDigits]);
    if (units == 0 || units == 9 || tens == 0)
        return false;
    number.FindFileNumber = fileNumberOf(text.substr(0, text.size() - CodeDigits));
    number.FindIdRow = rowOf(tens, units);
    return true;
}

void FindRun(std::string_view text)
{
    const std::string_view typed = trim(text);
    FindNumber number;
    if (!findNumberOf(typed, number)) {
        ReportError(CodeMalformed, Title, {});
        return;
    }
    if (number.FindFileNumber != DBArrLayout::BankAId && number.FindFileNumber != DBArrLayout::BankBId) {
        findInFile(number, typed);
        return;
    }
    if (DBArr.findInBank)
        DBArr.findInBank(number.FindFileNumber == DBArrLayout::BankAId ? WindowKind::ArrBankA : WindowKind::ArrBankB,
                         number.FindIdRow);
}
