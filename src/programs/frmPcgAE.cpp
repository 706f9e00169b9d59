// Construction, and the click that also brings the edit menu up to date: factory programs can be copied.
#include "programs/frmPcgAE.h"

#include "core/Shell.h"
#include "toolkit/RowList.h"

frmPcgAE::frmPcgAE(int windowKind) : QtProgramBank("frmPcgAE", windowKind)
{
    buildControls();
    load();
}

void frmPcgAE::buildControls()
{
    auto* content = new QWidget;
    makeControls(content, Load::None);
    List1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List1->onClick([this] { List1_Click(); });
    layOut(content, Layout::BesideTheList);
    setContent(content);
}

void frmPcgAE::List1_Click()
{
    chooseRow();
    if (App.shell)
        App.shell->MenuSync();
}
