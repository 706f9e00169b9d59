// Each button says on the status line what comes and sets its timer; the work is done in the fresh event that follows.
#include "database/frmEditDBArr.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/Reports.h"
#include "core/Shell.h"
#include "core/Strings.h"
#include "database/DBArrUpdate.h"
#include "database/FolderText.h"
#include "database/QtDBArrRows.h"
#include "database/TvlDBArr.h"
#include "toolkit/QtLooks.h"
#include "toolkit/QtPlainTip.h"
#include "toolkit/RowList.h"
#include "toolkit/StageTimer.h"

#include <QEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr TwipsSize DefaultSize{4308, 6072};

constexpr const char* Caption = "Edit TvlDBArr";
constexpr const char* DatabaseName = "TvlDBArr";
constexpr const char* OutOf = "/999";
constexpr int FileNameRow = 46;
constexpr int OpenRow = 51;
constexpr int CloseRow = 8;
constexpr int OpeningRow = 111;
constexpr int CodeAbsent = 27;

constexpr int NoNotice = 0;
constexpr int OpeningNotice = 6;
constexpr int UpdatingNotice = 8;

constexpr int BankRows = 2; ///< the two bank files stand first and stay

using Looks::GroupGap;
using Looks::Margin;

QString words(int row) { return QString::fromUtf8(ResText(row).c_str()); }

QLabel* makeLabel(QWidget* parent, const char* name, const QString& text = {})
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QListWidget* makeHiddenList(QWidget* parent, const char* name, const QString& spoken)
{
    auto* list = new QListWidget(parent);
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(spoken);
    list->hide();
    return list;
}

} // namespace

frmEditDBArr::frmEditDBArr() : ChildWindow("frmEditDBArr", &AppState::OtherCount)
{
    Tag = WindowBuffer::fresh(WindowKind::EditDatabase, 0);
    setWindowTitle(QLatin1String(Caption));
    buildControls();
    TimerAddAll = new StageTimer(this, QStringLiteral("TimerAddAll"));
    TimerApri = new StageTimer(this, QStringLiteral("TimerApri"));
    TimerCancella = new StageTimer(this, QStringLiteral("TimerCancella"));
    wireHandlers();
    openAtRow(WindowKind::EditDatabase, DefaultSize);
    loadDatabase();
}

frmEditDBArr::~frmEditDBArr() { leaveDatabase(); }

void frmEditDBArr::buildControls()
{
    auto* content = new QWidget;
    Label4 = makeLabel(content, "Label4");
    Label4->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // a long path must not widen the window
    Label4->installEventFilter(this);
    auto* lower = new QHBoxLayout;
    lower->setSpacing(Margin);
    lower->addLayout(listColumn(content), 1);
    lower->addLayout(buttonColumn(content));
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Margin);
    layout->addWidget(Label4);
    layout->addLayout(lower, 1);
    Dir1 = makeHiddenList(content, "Dir1", QLatin1String(DatabaseName));
    File1 = makeHiddenList(content, "File1", words(FileNameRow));
    setContent(content);
}

QLayout* frmEditDBArr::listColumn(QWidget* content)
{
    List1 = new RowList(content, QStringLiteral("List1"));
    List1->setFont(Looks::listFont(content));
    List1->setItemDelegate(new QtDBArrRows(List1));
    List1->setAccessibleName(windowTitle());
    List1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // long names end in an ellipsis
    Label2 = makeLabel(content, "Label2", QStringLiteral("ID"));
    Label2->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label1 = makeLabel(content, "Label1", words(FileNameRow));
    Label3 = makeLabel(content, "Label3");

    const QFontMetrics metrics = List1->fontMetrics();
    const int frame = List1->frameWidth();
    Label2->setFixedWidth(frame + QtDBArrRows::numberEnd(metrics));
    auto* headings = new QHBoxLayout;
    headings->setSpacing(QtDBArrRows::nameBegin(metrics) - QtDBArrRows::numberEnd(metrics));
    headings->addWidget(Label2);
    headings->addWidget(Label1, 1);

    auto* column = new QVBoxLayout;
    column->setSpacing(Margin / 2);
    column->addLayout(headings);
    column->addWidget(List1, 1);
    column->addWidget(Label3);
    return column;
}

QLayout* frmEditDBArr::buttonColumn(QWidget* content)
{
    CommAddAll = Looks::makeButton(content, "CommAddAll", QStringLiteral("Add All"));
    CommDelete = Looks::makeButton(content, "CommDelete", QStringLiteral("Delete"));
    CommApri = Looks::makeButton(content, "CommApri", words(OpenRow));
    CommClose = Looks::makeButton(content, "CommClose", words(CloseRow));
    auto* column = new QVBoxLayout;
    column->setSpacing(Looks::ButtonGap);
    column->addSpacing(Label1->sizeHint().height() + Margin / 2); // the buttons begin beside the first row
    column->addWidget(CommApri);
    column->addSpacing(GroupGap);
    column->addWidget(CommAddAll);
    column->addWidget(CommDelete);
    column->addStretch(1);
    column->addWidget(CommClose);
    column->addSpacing(Label3->sizeHint().height() + Margin / 2);
    // In the order in which Tab walks them.
    QWidget* before = List1;
    for (QWidget* next : {CommApri, CommAddAll, CommDelete, CommClose}) {
        setTabOrder(before, next);
        before = next;
    }
    return column;
}

void frmEditDBArr::wireHandlers()
{
    connect(CommAddAll, &QPushButton::clicked, this, [this] { CommAddAll_Click(); });
    connect(CommDelete, &QPushButton::clicked, this, [this] { CommDelete_Click(); });
    connect(CommApri, &QPushButton::clicked, this, [this] { CommApri_Click(); });
    connect(CommClose, &QPushButton::clicked, this, [this] { unloadChild(); });
    List1->onClick([this] { List1_Click(); });
    List1->onDoubleClick([this] { CommApri_Click(); });
    List1->onDelete([this] { CommDelete_Click(); });
    TimerAddAll->onTick([this] { TimerAddAll_Tick(); });
    TimerApri->onTick([this] { TimerApri_Tick(); });
    TimerCancella->onTick([this] { TimerCancella_Tick(); });
}

void frmEditDBArr::loadDatabase()
{
    DBArrContent read = DBArrRead();
    DBArr.DBArrBuffer = std::move(read.bytes);
    DBArr.DBArrWindowOpen = true;
    DBArr.listChanged = [this] {
        fillRows();
        showFolder();
    };
    DBArr.folderListed = [this](const std::string& folder, const std::vector<std::string>& names) {
        listFolder(folder, names);
    };
    fillRows();
    showFolder();
    List1->setFocus();
}

void frmEditDBArr::leaveDatabase()
{
    DBArr.DBArrWindowOpen = false;
    DBArr.listChanged = nullptr;
    DBArr.folderListed = nullptr;
}

void frmEditDBArr::listFolder(const std::string& folder, const std::vector<std::string>& names)
{
    QStringList files;
    for (const std::string& name : names)
        files << QFile::decodeName(name.c_str());
    Dir1->clear();
    Dir1->addItem(QFile::decodeName(folder.c_str()));
    File1->clear();
    File1->addItems(files);
}

void frmEditDBArr::fillRows()
{
    QStringList rows;
    for (const DBArrRow& row : dbArrRows(DBArr.DBArrBuffer))
        rows << QString::number(row.id) + QLatin1Char('\t') + QFile::decodeName(row.name.c_str());
    List1->setRows(rows);
    for (int row = 0; row < rows.size(); ++row) // a long name is cut in the narrow column
        List1->item(row)->setToolTip(plainTip(rows[row].section(QLatin1Char('\t'), 1)));
    Label3->setText(QString::number(rows.size()) + QLatin1String(OutOf));
    enableButtons();
}

void frmEditDBArr::showFolder()
{
    const QString folder = QFile::decodeName(dbArrFolder(DBArr.DBArrBuffer).c_str());
    const std::string whole = folder.isEmpty() ? std::string("/") : folder.toStdString();
    QString shown = QString::fromStdString(whole);
    const int room = std::max(Label4->width(), 1);
    for (int characters = static_cast<int>(shown.size());
         characters > 0 && Label4->fontMetrics().horizontalAdvance(shown) > room; --characters)
        shown = QString::fromStdString(shortFolder(whole, characters));
    Label4->setText(shown);
    Label4->setToolTip(plainTip(QString::fromStdString(whole)));
}

bool frmEditDBArr::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Label4 && event->type() == QEvent::Resize)
        showFolder();
    return ChildWindow::eventFilter(watched, event);
}

int frmEditDBArr::selectedRow() const
{
    const QListWidgetItem* item = List1->currentItem();
    return item && item->isSelected() ? List1->ListIndex() : -1;
}

void frmEditDBArr::enableButtons()
{
    CommDelete->setEnabled(selectedRow() >= BankRows);
    CommApri->setEnabled(selectedRow() >= 0);
    if (isVisible() && App.shell)
        App.shell->MenuSync();
}

void frmEditDBArr::List1_Click() { enableButtons(); }

void frmEditDBArr::CommAddAll_Click()
{
    StatusNotice(UpdatingNotice, DatabaseName);
    TimerAddAll->enable();
}

void frmEditDBArr::TimerAddAll_Tick()
{
    DBArrAddAll();
    StatusNotice(NoNotice, {});
}

void frmEditDBArr::CommDelete_Click()
{
    if (selectedRow() < BankRows)
        return;
    StatusNotice(UpdatingNotice, DatabaseName);
    TimerCancella->enable();
}

void frmEditDBArr::TimerCancella_Tick()
{
    const int row = selectedRow();
    if (row >= BankRows) {
        if (DBArrDelete(List1->item(row)->text().section(QLatin1Char('\t'), 0, 0).toInt()) == DBArrResult::Done)
            List1->select(std::min(row, List1->count() - 1));
        enableButtons();
    }
    StatusNotice(NoNotice, {});
}

void frmEditDBArr::CommApri_Click()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    StatusNotice(OpeningNotice, List1->item(row)->text().section(QLatin1Char('\t'), 1).toStdString());
    TimerApri->enable();
}

void frmEditDBArr::TimerApri_Tick()
{
    const std::vector<DBArrRow> rows = dbArrRows(DBArr.DBArrBuffer);
    const int row = selectedRow();
    StatusNotice(NoNotice, {});
    if (row < 0 || static_cast<std::size_t>(row) >= rows.size() || !App.shell)
        return;
    const std::string& name = rows[static_cast<std::size_t>(row)].name;
    if (row < BankRows)
        App.shell->showWindow(row == 0 ? WindowKind::ArrBankA : WindowKind::ArrBankB, 0);
    else if (staysInFolder(name))
        App.shell->openPath(dbArrFolder(DBArr.DBArrBuffer) + "/" + name, FileKind::Arr, App.ReadOnlyOpen);
    else
        ReportError(CodeAbsent, ResText(OpeningRow) + name, {});
}

void frmEditDBArr::unload()
{
    leaveDatabase();
    keepInRow(WindowKind::EditDatabase);
}
