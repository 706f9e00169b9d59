// The two commands that save the active child, and what the main window keeps true of it afterwards.
#include "shell/frmMain.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "database/TvlDBArr.h"
#include "files/Saving.h"
#include "toolkit/ChildWindow.h"

#include <QPointer>

namespace
{

/// The file's number in the database belongs to its name.
void lookUpDatabaseId(const WindowBuffer& tag)
{
    const int index = tag.number() - 1;
    if (tag.kind() == WindowKind::ArrFile && index >= 0 && index < static_cast<int>(App.Arrangements.size()))
        App.Arrangements[static_cast<std::size_t>(index)].databaseId =
            DBArrLookup(tag.path() + extensionOf(FileKind::Arr));
}

} // namespace

void frmMain::mnuSalva_Click(int) { saveActive(SaveWindow); }
void frmMain::mnuSalvaAs_Click(int) { saveActive(FileSaveAs); }

void frmMain::saveActive(int (*save)(WindowBuffer&))
{
    const QPointer<ChildWindow> child = activeChild();
    if (!child)
        return;
    const std::string nameBefore = child->Tag.path();
    if (save(child->Tag) != SaveResult::Done || !child)
        return;
    if (!ChildCaption(child->Tag).empty()) // the instrument's global block keeps the title of its window
        child->showCaption();
    if (child->Tag.path() != nameBefore)
        lookUpDatabaseId(child->Tag);
    MenuSync();
}
