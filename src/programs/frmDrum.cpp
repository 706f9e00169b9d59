// A narrow window: its name stands above the list, since the title bar has no room for it, and all else below.
#include "programs/frmDrum.h"

#include "toolkit/QtLooks.h"
#include "toolkit/RowColumns.h"
#include "toolkit/RowList.h"

#include <QBoxLayout>
#include <QLabel>

namespace
{

constexpr qreal Smaller = 0.9; ///< of the other lists' type

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
    small.setPointSizeF(small.pointSizeF() * Smaller);
    List1->setFont(small);
    List1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // with large type the names end in an ellipsis
    List1->onClick([this] { chooseRow(); });
    layOut(content, Layout::BelowTheList);
    addHeading(content);
    setContent(content);
}

void frmDrum::addHeading(QWidget* content) const
{
    auto* heading = new QLabel(QString::fromStdString(Tag.path()), content);
    heading->setObjectName(QStringLiteral("LabelName"));
    heading->setAlignment(Qt::AlignCenter);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    static_cast<QBoxLayout*>(content->layout())->insertWidget(0, heading);
}
