// A list, two mode buttons and Close. The names come from the table of names; the window holds no data.
#include "styles/frmStyAB.h"

#include "core/Shell.h"
#include "core/Strings.h"
#include "midi/DeviceModes.h"
#include "styles/StyFieldAssign.h"
#include "styles/StyWindowBuilder.h"
#include "styles/StyleRows.h"
#include "toolkit/QtLooks.h"
#include "toolkit/RowColumns.h"
#include "toolkit/RowList.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace
{

constexpr int CloseRow = 8;
using Looks::Margin;

} // namespace

frmStyAB::frmStyAB(int windowKind) : ChildWindow("frmStyAB", &AppState::OtherCount)
{
    Tag = StyBankTagBuild(windowKind);
    buildControls();
    wireHandlers();
    fillRows();
    openAtRow(windowKind, defaultWindowSize(windowKind));
}

void frmStyAB::buildControls()
{
    auto* content = new QWidget;
    List1 = new RowList(content, QStringLiteral("List1"));
    List1->setFont(Looks::listFont(content));
    List1->setMinimumWidth(Looks::ShownCharacters * List1->fontMetrics().averageCharWidth());
    List1->setItemDelegate(new RowColumns(List1));
    CommArrPlay = Looks::makeButton(content, "CommArrPlay", QStringLiteral("&ARR PLAY"));
    CommSongPlay = Looks::makeButton(content, "CommSongPlay", QStringLiteral("SO&NG PLAY"));
    CommClose = Looks::makeButton(content, "CommClose", QString::fromUtf8(ResText(CloseRow).c_str()));

    auto* column = new QVBoxLayout;
    column->setSpacing(Looks::ButtonGap);
    column->addWidget(CommArrPlay);
    column->addWidget(CommSongPlay);
    column->addStretch(1);
    column->addWidget(CommClose);
    auto* layout = new QHBoxLayout(content);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Margin);
    layout->addWidget(List1, 1);
    layout->addLayout(column);
    setContent(content);
}

void frmStyAB::wireHandlers()
{
    List1->onClick([this] { List1_Click(); });
    connect(CommArrPlay, &QPushButton::clicked, this, [] { ModeArrPlay(); });
    connect(CommSongPlay, &QPushButton::clicked, this, [] { ModeSongPlay(); });
    connect(CommClose, &QPushButton::clicked, this, [this] { unloadChild(); });
}

void frmStyAB::fillRows()
{
    QStringList rows;
    for (const std::string& text : styleBankRows(windowKind()))
        rows << QString::fromLatin1(text.data(), static_cast<int>(text.size()));
    List1->setRows(rows);
    showCaption();
    List1->setAccessibleName(windowTitle());
}

void frmStyAB::List1_Click()
{
    if (App.shell)
        App.shell->MenuSync();
    const QListWidgetItem* item = List1->currentItem();
    if (item && item->isSelected())
        StyFieldAssign(List1->ListIndex(), Tag.bytes());
}

void frmStyAB::unload() { keepInRow(windowKind()); }
