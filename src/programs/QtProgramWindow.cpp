// The shared controls and what they do.
#include "programs/QtProgramWindow.h"

#include "core/FieldTarget.h"
#include "core/ScopedFlag.h"
#include "core/Strings.h"
#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "programs/ProgramRows.h"
#include "programs/ProgramSends.h"
#include "programs/ProgramSource.h"
#include "toolkit/Choices.h"
#include "toolkit/QtLooks.h"
#include "toolkit/RowColumns.h"
#include "toolkit/RowList.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{

constexpr int CloseRow = 8;
constexpr int Channels = 16;
constexpr int ChannelWidth = 3; ///< characters of an entry, "  1" to " 16"

using Looks::Margin;
constexpr int NarrowMargin = 4;
using Looks::GroupGap;

bool programFieldHighlighted()
{
    const FieldTarget* target = fieldTarget();
    return target != nullptr && target->PrgFieldSelected();
}

} // namespace

void QtProgramWindow::makeControls(QWidget* content, Load load)
{
    List1 = new RowList(content, QStringLiteral("List1"));
    List1->setFont(Looks::listFont(content));
    List1->setItemDelegate(new RowColumns(List1));
    connect(this, &QWidget::windowTitleChanged, List1, &QWidget::setAccessibleName);

    if (load == Load::Button)
        CommLoad = Looks::makeButton(content, "CommLoad", QStringLiteral("&Load Prog"));
    CommArrPlay = Looks::makeButton(content, "CommArrPlay", QStringLiteral("&ARR PLAY"));
    CommSongPlay = Looks::makeButton(content, "CommSongPlay", QStringLiteral("SO&NG PLAY"));
    Label1 = new QLabel(QStringLiteral("MIDI Channel"), content);
    Label1->setObjectName(QStringLiteral("Label1"));
    Combo1 = new QComboBox(content);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setAccessibleName(Label1->text());
    Combo1->setMaxVisibleItems(Channels);
    for (int channel = 1; channel <= Channels; ++channel)
        Combo1->addItem(QString::number(channel).rightJustified(ChannelWidth));
    Label1->setBuddy(Combo1);
    CommClose = Looks::makeButton(content, "CommClose", QString::fromUtf8(ResText(CloseRow).c_str()));

    onComboClick(Combo1, [this](int index) { Combo1_Click(index); });
    connect(CommArrPlay, &QPushButton::clicked, this, [] { ModeArrPlay(); });
    connect(CommSongPlay, &QPushButton::clicked, this, [] { ModeSongPlay(); });
    connect(CommClose, &QPushButton::clicked, this, [this] { unloadChild(); });
}

void QtProgramWindow::layOut(QWidget* content, Layout layout) const
{
    const bool narrow = layout == Layout::BelowTheList;
    if (!narrow)
        List1->setMinimumWidth(Looks::ShownCharacters * List1->fontMetrics().averageCharWidth());
    auto* column = new QVBoxLayout;
    column->setSpacing(Looks::ButtonGap);
    for (QPushButton* button : {CommLoad, CommArrPlay, CommSongPlay}) {
        if (!button)
            continue;
        column->addWidget(button);
        if (button == CommLoad)
            column->addSpacing(GroupGap);
    }
    if (layout != Layout::CloseBelow) {
        column->addSpacing(narrow ? 0 : GroupGap);
        column->addWidget(Label1);
        column->addWidget(Combo1);
    }
    if (!narrow)
        column->addStretch(1);
    auto* below = new QHBoxLayout;
    if (layout == Layout::CloseBelow) {
        below->addWidget(Label1);
        below->addWidget(Combo1);
        below->addStretch(1);
        below->addWidget(CommClose);
    } else {
        column->addWidget(CommClose);
    }

    const int margin = narrow ? NarrowMargin : Margin;
    auto* upper = new QBoxLayout(narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    upper->setSpacing(margin);
    upper->addWidget(List1, 1);
    upper->addLayout(column);
    auto* whole = new QVBoxLayout(content);
    whole->setContentsMargins(margin, margin, margin, margin);
    whole->setSpacing(margin);
    whole->addLayout(upper, 1);
    if (layout == Layout::CloseBelow)
        whole->addLayout(below);
    else
        delete below;
}

void QtProgramWindow::fillControls()
{
    const ScopedFlag filling{WindowFilling};
    QStringList rows;
    for (const std::string& text : programRowTexts(Tag.bytes()))
        rows << QString::fromLatin1(text.data(), static_cast<int>(text.size()));
    List1->setRows(rows);
    Combo1->setCurrentIndex(programChannel(Tag.bytes()));
    showCaption();
}

void QtProgramWindow::chooseRow()
{
    const QListWidgetItem* item = List1->currentItem();
    const int row = item && item->isSelected() ? List1->ListIndex() : -1;
    if (row < 0)
        return;
    if (programFieldHighlighted()) {
        PrgFieldAssign(row, Tag.bytes());
        return;
    }
    MsgLogAdd("");
    ProgramSend(Tag.bytes(), row);
    MsgLogAdd(Midi.SysExOutput);
}

void QtProgramWindow::Combo1_Click(int index)
{
    if (WindowFilling || index < 0)
        return;
    // Required: the choice is stored and nothing is sent; the next program that is played goes to the channel.
    setProgramChannel(Tag.bytes(), index);
    channelChosen(index);
    showCaption(); // which names the channel
}
