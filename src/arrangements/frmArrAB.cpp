// One form for both banks; the kind byte of the image tells them apart.
#include "arrangements/frmArrAB.h"

#include "arrangements/ArrRows.h"
#include "arrangements/ArrStages.h"
#include "arrangements/ArrWindowBuilder.h"
#include "core/Reports.h"
#include "core/Shell.h"
#include "files/FileReaders.h"
#include "files/RowLabels.h"
#include "files/Saving.h"
#include "midi/DeviceModes.h"
#include "toolkit/QtLooks.h"
#include "toolkit/RowList.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace
{

// Captions are the same in both languages.
constexpr const char* LabelCaptions[] = {"ID", "Style"};

constexpr int CodeBankAMissing = 14;
constexpr int CodeBankBMissing = 15;

/// A search by ID counts the banks from 1, the window's kind from 2.
constexpr int FirstBankOfIds = 1;

constexpr std::size_t CodeAndMark = 4; ///< of a row's text, before the name

} // namespace

frmArrAB* frmArrAB::open(int windowKind)
{
    const bool bankA = windowKind == WindowKind::ArrBankA;
    if (ArrFileRead(bankA ? App.PathArrA : App.PathArrB) != ReadResult::Read) {
        ReportError(bankA ? CodeBankAMissing : CodeBankBMissing, "", "");
        return nullptr;
    }
    return new frmArrAB(windowKind);
}

frmArrAB::frmArrAB(int windowKind) : ArrListWindow("frmArrAB", &AppState::OtherCount)
{
    Tag = ArrBankTagBuild(windowKind);
    buildControls();
    Timer.create([this](int) { return new StageTimer(this, {}); });
    wireHandlers();
    showCaption();
    fillRows();
    openAtRow(windowKind, defaultWindowSize(windowKind));
    if (Arr.FindIdActive)
        List1_Click();
}

void frmArrAB::buildControls()
{
    auto* content = new QWidget;
    makeList(content);
    CommArrPlay = Looks::makeButton(content, "CommArrPlay", QStringLiteral("ARR PLAY"));
    CommSongPlay = Looks::makeButton(content, "CommSongPlay", QStringLiteral("SONG PLAY"));
    CommClose = makeCloseButton(content);
    Label1.create([&](int index) { return new QLabel(QLatin1String(LabelCaptions[index]), content); });
    makeStyleBox(content);
    Text1 = makeReadOnlyText(content, "Text1");
    Label1[0]->setBuddy(Text1);
    Label1[1]->setBuddy(Combo1);

    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(Looks::ButtonGap);
    buttons->addWidget(CommArrPlay);
    buttons->addWidget(CommSongPlay);
    buttons->addStretch(1);
    buttons->addWidget(CommClose);
    auto* details = new QGridLayout;
    details->setHorizontalSpacing(Looks::Margin);
    details->addWidget(Label1[1], 0, 0);
    details->addWidget(Combo1, 0, 1);
    details->addWidget(Label1[0], 1, 0);
    details->addWidget(Text1, 1, 1);
    details->setColumnStretch(1, 1);
    layOut(content, buttons, details);
}

void frmArrAB::wireHandlers()
{
    List1->onClick([this] { List1_Click(); });
    Timer[0]->onTick([this] {
        Timer[0]->setStage(ArrStage::SecondPass);
        List1_Click();
    });
    connect(CommArrPlay, &QPushButton::clicked, this, [] { ModeArrPlay(); });
    connect(CommSongPlay, &QPushButton::clicked, this, [] { ModeSongPlay(); });
    connect(CommClose, &QPushButton::clicked, this, [this] { unloadChild(); });
}

void frmArrAB::takeRowLookedFor()
{
    Arr.FindIdActive = false;
    Arr.FindIdOwner = nullptr;
    List1->select(Arr.FindIdRow);
    if (App.DeviceMode != DeviceModes::ArrPlay)
        ModeArrPlay();
}

void frmArrAB::List1_Click()
{
    if (App.shell)
        App.shell->MenuSync();
    if (Arr.FindIdActive)
        takeRowLookedFor();
    const int row = selectedRow();
    const bool second = Timer[0]->Interval() != StageTimer::Rest;
    Timer[0]->setStage(StageTimer::Rest);
    if (row < 0)
        return;
    if (second) {
        showId(row);
        showStyleOf(row);
        selectOnInstrument(row);
        return;
    }
    const std::string text(trimRight(List1->rowText(row)));
    theUser().showStatusLabel(StatusLabel::Arr, text.size() > CodeAndMark ? text.substr(CodeAndMark) : std::string());
    Timer[0]->enable();
}

void frmArrAB::showId(int row)
{
    const QString code = fromInstrument(rowCode(row));
    Text1->setText(QString::number(windowKind()) + code);
    // What Find by ID takes.
    const QString id = QString::number(windowKind() - WindowKind::ArrBankA + FirstBankOfIds) + code;
    Text1->setToolTip(QLatin1String(LabelCaptions[0]) + QLatin1String(" = ") + id);
}

bool frmArrAB::queryUnload()
{
    if (editHoldsImage(image()) && App.shell && !App.shell->closeEditorOf(windowKind(), 0))
        return false;
    return AgreeToClose(Tag, ChildCaption(Tag));
}

void frmArrAB::unload()
{
    leaveRowOwners();
    keepInRow(windowKind());
}
