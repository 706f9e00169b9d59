// The main window's construction, its load handler, and the return of the last session, one fresh event a window.
#include "shell/frmMain.h"

#include "clipboard/Clipboard.h"
#include "core/Dichiarazioni.h"
#include "core/StateFiles.h"
#include "core/UserInterface.h"
#include "database/TvlDBArr.h"
#include "files/FileReaders.h"
#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "shell/DatabaseLinks.h"
#include "shell/QtWindowFactory.h"
#include "shell/SessionRestore.h"
#include "shell/Silence.h"
#include "shell/StatusPanelWidget.h"
#include "toolkit/ControlArray.h"
#include "toolkit/StageTimer.h"
#include "toolkit/Twips.h"

#include <QAction>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QVBoxLayout>

namespace
{

/// States of the main window in row 1 of WinPos.
constexpr int Normal = 0;
constexpr int Minimised = 1;
constexpr int Maximised = 2;

constexpr QSize FirstSize(1120, 740); // pixels, until the user has chosen a size

WindowPosition& mainPosition() { return App.WinPos[WindowKind::Main]; }

} // namespace

frmMain::frmMain() : frmMain(makeChildWindow) {}

frmMain::frmMain(Factory factory) : factory_(std::move(factory))
{
    setObjectName(QStringLiteral("frmMain"));
    App.shell = this;
    joinDatabase([this] { finishSession(); });
    auto* content = new QWidget(this);
    content->setObjectName(QStringLiteral("content"));
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    area_ = new QMdiArea(content);
    area_->setObjectName(QStringLiteral("MDIForm"));
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    Picture1 = new StatusPanelWidget(content);
    column->addWidget(area_, 1);
    column->addWidget(Picture1);
    setCentralWidget(content);
    buildMenus();
    buildKeys();
    buildTimers();
    connect(area_, &QMdiArea::subWindowActivated, this, [this] { MenuSync(); });
}

frmMain::~frmMain()
{
    App.AppClosing = true; // the children that go with the window have no menus to bring up to date
    delete takeCentralWidget();
    if (App.shell == this)
        App.shell = nullptr;
}

void frmMain::buildTimers()
{
    // Required: twelve and thirteen do not exist, and of those that do only 2 to 11 and TimerArrU(1) are ever started.
    for (const int index : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 14}) {
        StageTimer*& timer = TimerAuto[static_cast<std::size_t>(index)];
        timer = new StageTimer(this, memberName("TimerAuto", index));
        timer->onTick([this, index] { TimerAuto_Timer(index); });
    }
    for (int index = 1; index <= 16; ++index)
        TimerArrU[static_cast<std::size_t>(index)] = new StageTimer(this, memberName("TimerArrU", index));
    TimerArrU[1]->onTick([this] { TimerArrU_Timer(); });
    Timer = new StageTimer(this, QStringLiteral("Timer"));
    Timer->onTick([this] { Timer_Timer(); });
}

void frmMain::Form_Load()
{
    App.ArrUCount = 0;
    App.StyUCount = 0;
    App.PrgUCount = 0;
    Picture1->setVisible(App.StatusBar);
    setWindowTitle(QString::fromUtf8(ApplicationTitle));
    showRecentFiles();
    apply(menuStates(nullptr, Clipboard.facts()));
    Midi.MsgLogActive = false;
    loadCheckMarks();
    enableMenuItem("mnuGlobalParam", App.GlobalValid);
    const bool databaseUsable = DBArrPresent(false);
    for (const char* name : {"mnuWEditDBArr", "mnuAggArr", "mnuWFindID"})
        enableMenuItem(name, databaseUsable);
    readStyleTemplate();
    sendSavedMode();
    loadStatusPanel();
    planSession();
    ProgramsRestore([this](int kind, int slot) { return makeWindow(kind, slot); });
    MenuSync();
}

void frmMain::readStyleTemplate()
{
    // When the file is missing or damaged, the copy inside the program stands in for it.
    static_cast<void>(StyFileRead(App.PathSty));
}

void frmMain::sendSavedMode()
{
    switch (App.DeviceMode) {
    case DeviceModes::ArrPlay:
        ModeArrPlay();
        break;
    case DeviceModes::SongPlay:
        ModeSongPlay();
        break;
    case DeviceModes::Global:
        ModeGlobal();
        break;
    default:
        break;
    }
}

void frmMain::loadStatusPanel()
{
    static_cast<void>(InfoRead()); // the name of the style; it and the two others are kept in App
    const auto show = [](StatusLabel label, const std::string& name, const char* extension) {
        theUser().showStatusLabel(label, name.empty() ? name : name + extension);
    };
    show(StatusLabel::Sty, App.InfoSty, ".sty");
    show(StatusLabel::Arr, App.InfoArr, ".arr");
    show(StatusLabel::Prg, App.InfoPrg, ".prg");
}

void frmMain::planSession()
{
    AutoTotal = 0;
    AutoDone = 0;
    for (const int row : rowsToRestore()) {
        TimerAuto[static_cast<std::size_t>(row)]->enable();
        ++AutoTotal;
    }
    if (AutoTotal == 0)
        TimerArrU[1]->enable();
}

void frmMain::TimerAuto_Timer(int index)
{
    if (index >= WindowKind::ArrBankA && index <= WindowKind::FindId) {
        const Silence silence; // what cannot come back leaves the session without a word
        showWindow(index, 0);
        if (!openChild(index, 0))
            App.WinPos[static_cast<std::size_t>(index)].Open = 0;
        ++AutoDone;
    }
    if (AutoDone == AutoTotal)
        TimerArrU[1]->enable();
}

void frmMain::TimerArrU_Timer()
{
    ArrangementsRestore([this](int kind, int slot) { return makeWindow(kind, slot); });
    MenuSync();
}

/// Brings back at once what still waits for its timer: a file opened, or an exit made, in the first moment of a run
/// must not take the place of a window of the last session.
void frmMain::finishSession()
{
    for (int index = WindowKind::ArrBankA; index <= WindowKind::FindId; ++index)
        if (StageTimer* timer = TimerAuto[static_cast<std::size_t>(index)]; timer->enabled()) {
            timer->disable();
            TimerAuto_Timer(index);
        }
    if (TimerArrU[1]->enabled()) {
        TimerArrU[1]->disable();
        TimerArrU_Timer();
    }
}

void frmMain::showAsSaved()
{
    const WindowPosition& saved = mainPosition();
    resize(FirstSize.boundedTo(screen()->availableSize()));
    if (saved.width > 0 && saved.height > 0) {
        resize(twipsToPixelsX(saved.width), twipsToPixelsY(saved.height));
        const QRect wanted(QPoint(twipsToPixelsX(saved.left), twipsToPixelsY(saved.top)), size());
        QRect screens;
        for (const QScreen* one : QGuiApplication::screens())
            screens |= one->availableGeometry();
        move(movedIntoView(wanted, screens).topLeft());
    }
    switch (saved.Open) {
    case Minimised:
        showMinimized();
        break;
    case Maximised:
        showMaximized();
        break;
    default:
        show();
    }
    placed_ = QRect(pos(), size());
}

void frmMain::keepPlace()
{
    WindowPosition& saved = mainPosition();
    saved.Open = isMinimized() ? Minimised : isMaximized() ? Maximised : Normal;
    if (saved.Open != Normal)
        return;
    // A window that was not moved keeps its stored twips: rounding to pixels would shift it a little at each start.
    if (pos() != placed_.topLeft() || saved.width <= 0) {
        saved.left = clampedPlace(pixelsToTwipsX(pos().x()));
        saved.top = clampedPlace(pixelsToTwipsY(pos().y()));
    }
    if (size() != placed_.size() || saved.width <= 0) {
        saved.width = clampedLength(pixelsToTwipsX(width()));
        saved.height = clampedLength(pixelsToTwipsY(height()));
    }
}
