// One field and one button; the find itself is FindRun.
#include "database/frmFindID.h"

#include "core/Bytes.h"
#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "core/Shell.h"
#include "core/Strings.h"
#include "core/Words.h"
#include "database/FindID.h"
#include "database/TvlDBArr.h"
#include "toolkit/QtLooks.h"
#include "toolkit/StageTimer.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace
{

constexpr const char* MenuItem = "mnuWFindID"; ///< off while the window is open
constexpr int CaptionRow = 92;
constexpr int NoNotice = 0;
constexpr int OpeningNotice = 6;
using Looks::Margin;

} // namespace

frmFindID::frmFindID() : ChildWindow("frmFindID", &AppState::OtherCount)
{
    Tag = WindowBuffer::fresh(WindowKind::FindId, 0);
    setWindowTitle(QString::fromUtf8(ResText(CaptionRow).c_str()));
    buildControls();
    Timer = new StageTimer(this, QStringLiteral("Timer"));
    Timer->onTick([this] { Timer_Tick(); });
    connect(CommOK, &QPushButton::clicked, this, [this] { CommOK_Click(); });
    connect(Text1, &QLineEdit::returnPressed, this, [this] { CommOK_Click(); });
    // Required: the window begins in the size of the drum windows.
    openAtRow(WindowKind::FindId, defaultWindowSize(WindowKind::Percussion));
    if (App.shell)
        App.shell->enableMenuItem(MenuItem, false);
    Text1->setFocus();
}

frmFindID::~frmFindID() { DBArr.FindRequest = false; }

void frmFindID::buildControls()
{
    auto* content = new QWidget;
    Label1 = new QLabel(QStringLiteral("ID"), content);
    Label1->setObjectName(QStringLiteral("Label1"));
    Text1 = new QLineEdit(content);
    Text1->setObjectName(QStringLiteral("Text1"));
    const QString hint = QString::fromUtf8(ResText(Words::FindIdHint).c_str());
    Text1->setToolTip(hint);
    Text1->setAccessibleDescription(hint);
    Label1->setBuddy(Text1);
    CommOK = new QPushButton(QStringLiteral("&OK"), content);
    CommOK->setObjectName(QStringLiteral("CommOK"));

    // One above the other: the window's own size is narrow and high.
    auto* layout = new QGridLayout(content);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setHorizontalSpacing(Margin / 2);
    layout->setVerticalSpacing(Margin);
    layout->addWidget(Label1, 0, 0);
    layout->addWidget(Text1, 0, 1);
    layout->addWidget(CommOK, 1, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(2, 1);
    setContent(content);
}

void frmFindID::CommOK_Click()
{
    const QByteArray typed = Text1->text().toUtf8();
    StatusNotice(OpeningNotice, "ID =" + std::string(trim(typed.toStdString())));
    DBArr.FindRequest = true;
    Timer->enable();
}

void frmFindID::Timer_Tick()
{
    const std::string typed = Text1->text().toStdString();
    const std::string_view trimmed = trim(typed);
    Text1->setText(QString::fromUtf8(trimmed.data(), static_cast<int>(trimmed.size())));
    Text1->selectAll(); // the next number takes its place
    FindRun(trimmed);
    DBArr.FindRequest = false;
    StatusNotice(NoNotice, {});
}

void frmFindID::unload()
{
    DBArr.FindRequest = false;
    keepInRow(WindowKind::FindId);
    if (App.shell)
        App.shell->enableMenuItem(MenuItem, true);
}
