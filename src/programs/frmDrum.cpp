// A narrow window: everything stands below the list.
#include "programs/frmDrum.h"

#include "toolkit/RowColumns.h"
#include "toolkit/RowList.h"

namespace
{

constexpr int SmallPointSize = 9;

} // namespace

frmDrum::frmDrum(int windowKind) : QtProgramBank("frmDrum", windowKind)
{
    buildControls();
    load();
}

void frmDrum::buildControls()
{
    auto* content = new QWidget;
    makeControls(content, Load::None);
    List1->setItemDelegate(new RowColumns(List1, RowColumns::Marks::None));
    QFont small = List1->font(); // the longest of the names fits the narrow list
    small.setPointSize(SmallPointSize);
    List1->setFont(small);
    List1->onClick([this] { chooseRow(); });
    layOut(content, Layout::BelowTheList);
    setContent(content);
}
