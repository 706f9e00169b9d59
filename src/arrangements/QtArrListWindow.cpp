// The rows are read from the image at each filling; what changes one of them from outside is told by arrRowRenamed.
#include "arrangements/QtArrListWindow.h"

#include "arrangements/ArrRows.h"
#include "arrangements/ArrSends.h"
#include "arrangements/ArrStages.h"
#include "core/Reports.h"
#include "core/ScopedFlag.h"
#include "core/Shell.h"
#include "core/StateFiles.h"
#include "core/Strings.h"
#include "files/RowLabels.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "toolkit/Choices.h"
#include "toolkit/QtLooks.h"
#include "toolkit/RowColumns.h"
#include "toolkit/RowList.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace
{

constexpr int CloseRow = 8;
constexpr int StyleCharacters = 18; ///< a name and its place, "Name (U11)"

} // namespace

ArrListWindow::ArrListWindow(const char* name, int AppState::*counter) : ChildWindow(name, counter) {}

ArrListWindow::~ArrListWindow() { leaveRowOwners(); }

void ArrListWindow::leaveRowOwners() { std::erase(Arr.rowOwners, static_cast<ArrRowOwner*>(this)); }

void ArrListWindow::makeList(QWidget* content)
{
    List1 = new RowList(content, QStringLiteral("List1"));
    List1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List1->setFont(Looks::listFont(content));
    List1->setItemDelegate(new RowColumns(List1));
    List1->setMinimumWidth(Looks::ShownCharacters * List1->fontMetrics().averageCharWidth());
}

void ArrListWindow::makeStyleBox(QWidget* content)
{
    Combo1 = new QComboBox(content);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setEditable(true);
    Combo1->setInsertPolicy(QComboBox::NoInsert);
    Combo1->lineEdit()->setReadOnly(true);
    Combo1->setCompleter(nullptr);
    Combo1->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Combo1->setMinimumContentsLength(StyleCharacters);
    ignoreWheelWithoutFocus(Combo1);
    connect(Combo1, &QComboBox::activated, this, [this] { showStyleOf(selectedRow()); });
}

QPushButton* ArrListWindow::makeCloseButton(QWidget* content)
{
    return Looks::makeButton(content, "CommClose", QString::fromUtf8(ResText(CloseRow).c_str()));
}

QLineEdit* ArrListWindow::makeReadOnlyText(QWidget* content, const char* name)
{
    auto* text = new QLineEdit(content);
    text->setObjectName(QLatin1String(name));
    text->setReadOnly(true);
    return text;
}

void ArrListWindow::layOut(QWidget* content, QLayout* buttons, QLayout* details)
{
    using Looks::Margin;
    auto* upper = new QHBoxLayout;
    upper->setSpacing(Margin);
    upper->addWidget(List1, 1);
    upper->addLayout(buttons);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Margin);
    layout->addLayout(upper, 1);
    layout->addLayout(details);
    setContent(content);
}

void ArrListWindow::restorePlace(const SessionEntry& place)
{
    if (place.width > 0 && place.height > 0) {
        placeInTwips(place.left, place.top, place.width, place.height);
        return;
    }
    const TwipsSize size = defaultWindowSize(windowKind());
    resizeInTwips(size.width, size.height);
}

void ArrListWindow::fillRows()
{
    const ScopedFlag filling{Arr.WindowFilling};
    List1->setAccessibleName(windowTitle());
    QStringList rows;
    for (const std::string& text : arrRowTexts(image()))
        rows << fromInstrument(text);
    List1->setRows(rows);
    ArrStyleListFill();
    Arr.rowOwners.push_back(this);
}

void ArrListWindow::ArrStyleListFill()
{
    QStringList styles;
    for (const std::string& text : arrStyleEntries(image()))
        styles << fromInstrument(text);
    Combo1->clear();
    Combo1->addItems(styles);
    showStyle({});
}

int ArrListWindow::selectedRow() const
{
    const QListWidgetItem* item = List1->currentItem();
    return item && item->isSelected() ? List1->ListIndex() : -1;
}

bool ArrListWindow::rowIsEmpty(int row) const { return isEmptyRowText(List1->rowText(row)); }

void ArrListWindow::showStyleOf(int row)
{
    showStyle(row < 0 || rowIsEmpty(row) ? QString() : fromInstrument(arrStyleEntry(image(), row)));
}

void ArrListWindow::showStyle(const QString& text)
{
    const int index = text.isEmpty() ? -1 : Combo1->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    Combo1->setCurrentIndex(index);
    if (index < 0)
        Combo1->setEditText(text);
}

bool ArrListWindow::stylesAtHand() const
{
    return Tag.at(WindowLayout::StyStateOffset) == WindowLayout::StyState::Real;
}

bool ArrListWindow::arrLoadWanted() const { return App.AutoArr && differsFromSent(Tag.stem(), App.InfoArr); }

bool ArrListWindow::styLoadWanted(int row, bool preference) const
{
    return preference && arrUsesUserStyle(image(), row) && differsFromSent(Tag.stem(), App.InfoSty);
}

void ArrListWindow::sendArrangements()
{
    ArrBlockSend(image());
    MsgLogAdd(Midi.SysExOutput);
    Tag.set(WindowLayout::NotSentOffset, 0);
    InfoArrSet(image());
    StatusNotice(ArrNotice::None, {});
}

void ArrListWindow::selectOnInstrument(int row)
{
    MsgLogAdd("");
    MsgLogAdd(ArrSelect(row, windowKind()));
}

void ArrListWindow::selectAndEndNotice(int row)
{
    selectOnInstrument(row);
    StatusNotice(ArrNotice::None, {});
}

void ArrListWindow::arrRowRenamed(int row)
{
    constexpr std::size_t CodeAndMark = 4;
    QListWidgetItem* item = List1->item(row);
    if (!item)
        return;
    const std::string before = List1->rowText(row);
    const std::string name = rowName(slice(arrRecord(image(), row), ArrBlock::Name));
    // A row that was cut while the editor held it has no mark to keep.
    item->setText(
        fromInstrument(before.size() < CodeAndMark ? arrRowText(image(), row) : before.substr(0, CodeAndMark) + name));
}

void ArrListWindow::stepRow(int rows) { List1->step(rows); }

QString ArrListWindow::fromInstrument(const std::string& text)
{
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

void ArrListWindow::enableMenuItem(const char* name, bool enabled)
{
    if (App.shell)
        App.shell->enableMenuItem(name, enabled);
}
