// What the window does with its list, its details and its closing.
#include "arrangements/ArrRows.h"
#include "arrangements/ArrSession.h"
#include "arrangements/ArrStages.h"
#include "arrangements/frmArrU.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "core/Shell.h"
#include "core/Strings.h"
#include "database/TvlDBArr.h"
#include "files/FileReaders.h"
#include "files/Saving.h"
#include "midi/DeviceModes.h"
#include "toolkit/RowList.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace
{

constexpr int InternalRow = 98;

} // namespace

void frmArrU::List1_Click()
{
    if (filling_)
        return;
    const std::optional<RowClick> click = beginClick();
    if (!click)
        return;
    const int row = click->row;
    if (!Arr.ArrEditOpen)
        enableEdit(true);
    if (click->stage == ArrStage::List1::AfterStyLoad) {
        // Also a click on another row while the styles go out ends here: the details and the editor must be that row's.
        if (Arr.ArrEditOpen && !editHoldsRow(image(), row))
            (void)letEditFollow(row);
        showDetails(row);
        selectAndEndNotice(row);
        return;
    }
    (void)letEditFollow(row); // the list, its details and the instrument go on without an editor that cannot
    if (App.DeviceMode != DeviceModes::ArrPlay)
        ModeArrPlay();
    showDetails(row);
    if (!loadStyleFirst(row, App.AutoSty))
        selectAndEndNotice(row);
}

bool frmArrU::letEditFollow(int row)
{
    if (!Arr.ArrEditOpen)
        return true;
    // Required: No at the question discards the edit; the editor goes on with the row just chosen. What could not be
    // stored after a Yes stays under edit instead: the editor is the only place where it stands.
    if (!askToStoreEdit(caption()))
        return false;
    int index = row;
    ArrEditLoad(image(), index);
    if (Arr.editor)
        Arr.editor->ArrEditFill();
    return true;
}

void frmArrU::showEmptyRow()
{
    enableEdit(false);
    showStyleOf(-1);
    Text1->clear();
    Text2->clear();
    StatusNotice(ArrNotice::None, {});
}

void frmArrU::showDetails(int row)
{
    showId(row);
    Text2->setText(arrUsesBankD(image(), row) ? QString::fromUtf8(ResText(InternalRow).c_str()) : QString());
    showStyleOf(row);
}

void frmArrU::showId(int row) { Text1->setText(fromInstrument(arrIdText(entry().databaseId, row))); }

void frmArrU::enableEdit(bool enabled)
{
    CommEdit->setEnabled(enabled);
    enableMenuItem("mnuEditArr", enabled);
}

void frmArrU::List1_DblClick()
{
    if (!rowIsEmpty(List1->ListIndex()))
        CommEdit_Click();
}

void frmArrU::List1_Delete() { deleteKey(extensionOf(FileKind::Arr)); }

void frmArrU::CommEdit_Click()
{
    const int row = selectedRow();
    if (row < 0 || rowIsEmpty(row))
        return;
    bool taken = true;
    if (Arr.ArrEditOpen) {
        taken = letEditFollow(row); // the editor may hold changes of another window's arrangement
    } else {
        int index = row;
        ArrEditLoad(image(), index);
    }
    if (taken)
        enableEdit(false);
    if (App.shell)
        App.shell->showWindow(WindowKind::EditArr, 0);
    Arr.ArrEditOpen = Arr.editor != nullptr;
}

void frmArrU::CommShowSty_Click()
{
    const std::string path = Tag.path();
    if (!App.shell || App.shell->bringForward(WindowKind::StyFile, path))
        return;
    if (Tag.at(WindowLayout::StyStateOffset) == WindowLayout::StyState::None) {
        if (App.shell->bringForward(WindowKind::StyNew, path)) // a new file that was saved under this name
            return;
        App.shell->openPath(path + extensionOf(FileKind::Sty), FileKind::Sty, Tag.readOnly());
        return;
    }
    const int slot = styleSlot();
    if (slot == 0)
        return;
    Files.StyBuffer = Tag.styleArea();
    Files.StyFolder = FolderOf(path);
    Files.StyName = FileStemOf(path);
    SessionEntry& style = App.Styles[static_cast<std::size_t>(slot - 1)];
    style.path = path;
    style.readOnly = Tag.readOnly();
    style.linked = true;
    App.shell->showWindow(WindowKind::StyFile, slot);
}

int frmArrU::styleSlot() const
{
    // A style window that was closed only to come again with other styles has kept its entry in use.
    for (std::size_t index = 0; index < App.Styles.size(); ++index) {
        const SessionEntry& style = App.Styles[index];
        if (style.used && style.linked && sameFileName(style.path, Tag.path()))
            return static_cast<int>(index) + 1;
    }
    return StySlotFree();
}

void frmArrU::leaveStyleWindow()
{
    // The link ends with this window: its file, opened again, may hold other styles than a style window left open.
    const bool shown = OpenWindows::findByPath(WindowKind::StyFile, WindowKind::StyFile, Tag.path()) != nullptr;
    for (SessionEntry& style : App.Styles) {
        if (!style.linked || !sameFileName(style.path, Tag.path()))
            continue;
        style.linked = false;
        style.used = style.used && shown; // one that was to come again with new styles now will not
    }
}

void frmArrU::CommShowPrg_Click()
{
    const std::string path = Tag.path();
    if (!App.shell || App.shell->bringForward(WindowKind::PrgFile, path) ||
        App.shell->bringForward(WindowKind::PrgNew, path)) // a new file that was saved under this name
        return;
    const int kind = Tag.at(WindowLayout::PrgTypeOffset) == 1 ? FileKind::Pgg : FileKind::Prg;
    FileContent file;
    if (readFile(path + extensionOf(kind), 0, file) == FileError::None && file.length > 0)
        App.shell->openPath(path + extensionOf(kind), kind, Tag.readOnly());
}

void frmArrU::CommAdd_Click()
{
    if (Timer[4]->Interval() == StageTimer::Rest) {
        StatusNotice(ArrNotice::Updating, "TvlDBArr");
        Timer[4]->enable();
        return;
    }
    Timer[4]->setStage(StageTimer::Rest);
    const QPointer<frmArrU> self(this);
    if (Arr.databaseAdd)
        Arr.databaseAdd(Tag);
    if (!self) // closed while a box stood
        return;
    entry().databaseId = DBArrLookup(Tag.path() + extensionOf(FileKind::Arr));
    if (const int row = selectedRow(); row >= 0 && !rowIsEmpty(row))
        showId(row);
    StatusNotice(ArrNotice::None, {});
}

void frmArrU::contentChanged()
{
    ArrStyleListFill();
    enableByStyles();
    const int row = selectedRow();
    if (row < 0 || rowIsEmpty(row)) {
        Text1->clear();
        Text2->clear();
        return;
    }
    showDetails(row);
    if (!Arr.ArrEditOpen)
        enableEdit(true);
}

bool frmArrU::queryUnload()
{
    if (editHoldsImage(image()) && App.shell && !App.shell->closeEditorOf(WindowKind::ArrFile, Tag.number()))
        return false;
    return AgreeToClose(Tag, caption());
}

void frmArrU::unload()
{
    abandonStages();
    leaveStyleWindow();
    leaveRowOwners();
    ArrSessionLeave(entry(), Tag, positionInTwips());
    if (!App.AppClosing)
        enableMenuItem("mnuApriArr", true);
}
