// The changes, one after the other: read, change a table in memory, write. Nothing shared changes before the file has
// been written.
#include "database/DBArrUpdate.h"

#include "core/Dichiarazioni.h"
#include "core/FileErrors.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "core/Shell.h"
#include "core/Strings.h"
#include "core/UserInterface.h"
#include "database/DBArrTable.h"
#include "database/FolderFiles.h"
#include "files/ArrLayout.h"
#include "files/SafetyCopies.h"

namespace
{

constexpr const char* DatabaseName = "TvlDBArr";
constexpr int ReadingRow = 105;

constexpr int CodeWrongFormat = 4;
constexpr int CodeAbsent = 27;
constexpr int QuestionNewDatabase = 3;

/// What stands in an arrangement file's head, as far as the database asks.
constexpr std::string_view ArrMark = "KORG";

// Required: an indexed file still passes when two places of ten bytes agree, the names of its first record and of
// another place. Many good files fail: a refresh takes them out, and the safety copy is the way back.
constexpr Field OnePlace{32, 10};
constexpr Field OtherPlace{672, 10};

void setErrorTitle() { App.ErrTitle = DatabaseName + ResText(ReadingRow); }

int reportFileError(int fileError)
{
    ReportError(reportCodeOf(fileError), App.ErrTitle, {});
    return DBArrResult::Failed;
}

/// What is wrong with the file for a change that needs one.
int reportUnfit(const DBArrContent& file)
{
    if (file.state == DBArrFile::Unreadable)
        return reportFileError(file.fileError);
    ReportError(file.state == DBArrFile::Absent ? CodeAbsent : CodeWrongFormat, App.ErrTitle, DatabaseName);
    return DBArrResult::Failed;
}

void showIdsOfOpenFiles()
{
    for (SessionEntry& entry : App.Arrangements)
        if (entry.used)
            entry.databaseId = DBArrLookupIn(DBArr.DBArrBuffer, entry.path + extensionOf(FileKind::Arr));
}

/// What is open shows the table.
void follow(const DBArrTable& table)
{
    DBArr.DBArrBuffer = table.bytes();
    showIdsOfOpenFiles();
    if (DBArr.listChanged)
        DBArr.listChanged();
}

/// Writes the table's image by one of the replacing routines, and lets the shared state follow.
int write(const DBArrTable& table, int (*replace)(const std::string& path, const ByteBuffer& content))
{
    if (RetryStatement([&] { return replace(databasePath(), table.bytes()); }, &SaveAsErrReport) != 0)
        return DBArrResult::Failed;
    follow(table);
    return DBArrResult::Done;
}

/// The files gone through so far, in the status panel. The last one takes the bar away.
class Progress
{
public:
    explicit Progress(std::size_t total) : total_(static_cast<int>(total)) {}
    ~Progress()
    {
        if (total_ > 0)
            theUser().showSendProgress(total_, total_);
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    void next() { theUser().showSendProgress(gone_++, total_); }

private:
    int total_;
    int gone_ = 0;
};

/// A folder whose path comes back whole from its field.
bool canBeWorkingFolder(std::string_view folder)
{
    return folder.size() <= static_cast<std::size_t>(DBArrLayout::WorkingFolder.size) &&
           (folder.empty() || folder.back() != ' ');
}

void enableMenuItems()
{
    if (App.shell)
        for (const char* name : {"mnuWEditDBArr", "mnuAggArr", "mnuWFindID"})
            App.shell->enableMenuItem(name, true);
}

/// Adds the file being handled to a table and writes it when that changed anything.
int addTo(DBArrTable table)
{
    bool added = false;
    const int id = table.add(DBArr.ArrFileName, added);
    if (added && write(table, replaceStateFile) != DBArrResult::Done)
        return DBArrResult::Failed;
    if (DBArr.DBArrBuffer != table.bytes())
        follow(table); // another program has changed the file meanwhile
    DBArr.DBArrID = id;
    return DBArrResult::Done;
}

int createWithFile()
{
    if (!canBeWorkingFolder(DBArr.ArrFileFolder))
        return DBArrResult::Done;
    if (AskSave(QuestionNewDatabase, DatabaseName) != Answer::Yes)
        return DBArrResult::Declined;
    const int result = addTo(DBArrTable(DBArrTable::emptyImage(DBArr.ArrFileFolder)));
    if (result == DBArrResult::Done)
        enableMenuItems();
    return result;
}

enum class Judged { Stays, Goes, Unreadable };

/// Whether an indexed file still is one.
Judged judge(const FolderFiles& files, const std::string& name)
{
    const std::string path = files.pathOf(name);
    FileHead head;
    if (path.empty())
        return Judged::Goes;
    if (const int error = readHead(path, end(OtherPlace), head); error != 0) {
        App.ErrTitle = ResText(ReadingRow) + name;
        reportFileError(error);
        return Judged::Unreadable;
    }
    const bool passes = lengthOf(head.bytes) == end(OtherPlace) && head.bytes.starts_with(ArrMark) &&
                        slice(head.bytes, OnePlace) == slice(head.bytes, OtherPlace);
    return passes ? Judged::Stays : Judged::Goes;
}

/// False when the folder or one of its files cannot be read, which was reported.
bool takeOutWhatIsGone(DBArrTable& table)
{
    FolderFiles files;
    if (table.used() == 0)
        return true;
    if (const int error = files.read(dbArrFolder(table.bytes())); error != 0) {
        reportFileError(error);
        return false;
    }
    Progress progress(static_cast<std::size_t>(table.used()));
    for (int slot = DBArrLayout::FirstSlot; slot < DBArrLayout::FirstSlot + table.used();) {
        progress.next();
        switch (judge(files, table.nameAt(slot) + extensionOf(FileKind::Arr))) {
        case Judged::Stays:
            ++slot;
            break;
        case Judged::Goes:
            table.remove(slot);
            break;
        case Judged::Unreadable:
            return false;
        }
    }
    return true;
}

/// Only a file of the right length with the right mark counts; whatever cannot be read does not, without a word.
bool isArrangementFile(const std::string& path, FileHead& head)
{
    return readHead(path, ArrLayout::FileSize + 1, head) == 0 && lengthOf(head.bytes) == ArrLayout::FileSize &&
           head.bytes.starts_with(ArrMark);
}

} // namespace

int DBArrAdd(int kind)
{
    DBArr.DBArrID = 0;
    setErrorTitle();
    DBArrContent file = DBArrRead();
    if (file.state == DBArrFile::Absent)
        return createWithFile();
    if (kind == WindowKind::ArrBankA || kind == WindowKind::ArrBankB)
        return DBArrResult::Done;
    if (!file.whole())
        return reportUnfit(file);
    if (DBArr.ArrFileFolder != dbArrFolder(file.bytes))
        return DBArrResult::Done;
    return addTo(DBArrTable(std::move(file.bytes)));
}

int DBArrAddFile(const std::string& path)
{
    DBArr.DBArrID = 0;
    if (!pathFitsField(path))
        return DBArrResult::Done;
    DBArr.ArrFileName = FileStemOf(path);
    DBArr.ArrFileFolder = FolderOf(path);
    return DBArrAdd(WindowKind::ArrFile);
}

int DBArrRefresh()
{
    setErrorTitle();
    DBArrContent file = DBArrRead();
    if (!file.whole())
        return reportUnfit(file);
    DBArrTable table(std::move(file.bytes));
    return takeOutWhatIsGone(table) ? write(table, replaceStateKeeping) : DBArrResult::Failed;
}

int DBArrAddAll()
{
    setErrorTitle();
    DBArrContent file = DBArrRead();
    if (!file.whole())
        return reportUnfit(file);
    DBArrTable table(std::move(file.bytes));
    FolderFiles files;
    if (const int error = files.read(dbArrFolder(table.bytes())); error != 0)
        return reportFileError(error);
    const std::vector<std::string> names = files.arrangements();
    if (DBArr.folderListed)
        DBArr.folderListed(dbArrFolder(table.bytes()), names);
    {
        Progress progress(names.size());
        FileHead head;
        for (const std::string& name : names) {
            progress.next();
            if (!isArrangementFile(files.fullPath(name), head))
                continue;
            bool added = false;
            if (table.add(FileNameOf(name), added) == 0 && table.full())
                break;
        }
    }
    return write(table, replaceStateKeeping);
}

int DBArrDelete(int id)
{
    setErrorTitle();
    DBArrContent file = DBArrRead();
    if (!file.whole())
        return reportUnfit(file);
    DBArrTable table(std::move(file.bytes));
    table.remove(table.slotOfId(id));
    return write(table, replaceStateKeeping);
}
