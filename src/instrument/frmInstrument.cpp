// Builds the panel, the lists and the traffic, and refreshes them a moment after bytes came in.
#include "instrument/frmInstrument.h"

#include "core/Strings.h"
#include "core/Words.h"
#include "files/ArrLayout.h"
#include "files/PrgLayout.h"
#include "files/StyLayout.h"
#include "instrument/InstrumentTexts.h"
#include "instrument/InstrumentWords.h"
#include "instrument/KeysView.h"
#include "instrument/VirtualMidiService.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QFontDatabase>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

namespace
{

constexpr int RefreshDelay = 30;       ///< milliseconds; a storm of messages is painted once
constexpr int TabMargin = 40;          ///< pixels around both columns
constexpr QSize DefaultSize{800, 580}; // wider where the fonts need it

QString words(int id) { return QString::fromUtf8(ResText(id).c_str()); }

QString text(const std::string& utf8) { return QString::fromUtf8(utf8.c_str()); }

QLabel* heading(QWidget* parent, int id)
{
    auto* label = new QLabel(words(id), parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

/// Sets the rows that differ, so that the place of the scroll bar and the choice stay.
void setRows(QListWidget* list, const std::vector<std::string>& rows)
{
    const int count = static_cast<int>(rows.size());
    while (list->count() > count)
        delete list->takeItem(list->count() - 1);
    for (int row = 0; row < count; ++row) {
        const QString wanted = text(rows[static_cast<std::size_t>(row)]);
        if (row == list->count())
            list->addItem(QString());
        QListWidgetItem* item = list->item(row);
        if (item->text() == wanted)
            continue;
        item->setText(wanted);
        item->setToolTip(wanted);
    }
}

} // namespace

frmInstrument::frmInstrument(VirtualInstrument& instrument, VirtualMidiService& service)
    : instrument_(instrument), service_(service)
{
    setObjectName(QStringLiteral("frmInstrument"));
    setWindowTitle(words(Words::VirtualInstrument));
    // Required: closing the main window ends the program though this window still stands.
    setAttribute(Qt::WA_QuitOnClose, false);
    buildControls();
    wireHandlers();
    const int tabs = TabHeld->tabBar()->sizeHint().width();
    resize(DefaultSize.expandedTo(QSize(2 * tabs + TabMargin, 0))); // all tabs in sight, in half of the width
    refresh();
}

frmInstrument::~frmInstrument() { instrument_.onChange = nullptr; }

void frmInstrument::buildControls()
{
    auto* columns = new QHBoxLayout;
    columns->addWidget(buildHeld(), 1);
    columns->addWidget(buildTraffic(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(buildPanel());
    layout->addLayout(columns, 1);
}

// The panel looks like the display of an instrument: light signs on dark glass, whatever the desktop's colours are.
QWidget* frmInstrument::buildPanel()
{
    auto* panel = new QFrame(this);
    panel->setObjectName(QStringLiteral("FramePanel"));
    panel->setStyleSheet(QStringLiteral("#FramePanel { background: #10262b; border: 1px solid #2f4a50;"
                                        " border-radius: 6px; }"
                                        " #FramePanel QLabel { color: #a9f0d1; }"));
    LabelDeviceMode = new QLabel(panel);
    LabelDeviceMode->setObjectName(QStringLiteral("LabelDeviceMode"));
    LabelDeviceMode->setTextFormat(Qt::PlainText);
    LabelArrangement = new QLabel(panel);
    LabelArrangement->setObjectName(QStringLiteral("LabelArrangement"));
    LabelArrangement->setTextFormat(Qt::PlainText);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    LabelDeviceMode->setFont(large);
    LabelArrangement->setFont(large);
    auto* layout = new QHBoxLayout(panel);
    layout->setContentsMargins(16, 12, 16, 12);
    layout->addWidget(LabelDeviceMode);
    layout->addStretch(1);
    layout->addWidget(LabelArrangement);
    return panel;
}

QListWidget* frmInstrument::addTab(const char* name, int captionId)
{
    auto* list = new QListWidget(TabHeld);
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(words(captionId));
    list->setUniformItemSizes(true);
    TabHeld->addTab(list, words(captionId));
    return list;
}

QWidget* frmInstrument::buildHeld()
{
    TabHeld = new QTabWidget(this);
    TabHeld->setObjectName(QStringLiteral("TabHeld"));
    TabHeld->setUsesScrollButtons(true);
    ListArrangements = addTab("ListArrangements", Words::InstArrangements);
    ListStyles = addTab("ListStyles", Words::InstStyles);
    ListPrograms = addTab("ListPrograms", Words::InstPrograms);
    ListParameters = addTab("ListParameters", Words::InstParameters);
    for (QListWidget* list : {ListArrangements, ListStyles, ListPrograms})
        list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return TabHeld;
}

QWidget* frmInstrument::buildTraffic()
{
    auto* traffic = new QWidget(this);
    ListChannels = new QListWidget(traffic);
    ListChannels->setObjectName(QStringLiteral("ListChannels"));
    ListChannels->setAccessibleName(words(Words::InstSelections));
    Keys = new KeysView(traffic);
    Keys->setObjectName(QStringLiteral("Keys"));
    Keys->setAccessibleName(words(Words::InstKeys));
    LabelKeys = new QLabel(traffic);
    LabelKeys->setObjectName(QStringLiteral("LabelKeys"));
    LabelKeys->setTextFormat(Qt::PlainText);
    LabelKeys->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // many keys must not widen the window
    ListMessages = new QListWidget(traffic);
    ListMessages->setObjectName(QStringLiteral("ListMessages"));
    ListMessages->setAccessibleName(words(Words::InstMessages));
    // A long row ends in dots, and its tool tip tells the rest.
    for (QListWidget* list : {ListChannels, ListMessages})
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    LabelCounts = new QLabel(traffic);
    LabelCounts->setObjectName(QStringLiteral("LabelCounts"));
    CheckPaced = new QCheckBox(words(Words::CableSpeed), traffic);
    CheckPaced->setObjectName(QStringLiteral("CheckPaced"));
    CheckPaced->setChecked(service_.paced());

    auto* keysLine = new QHBoxLayout;
    keysLine->addWidget(heading(traffic, Words::InstKeys));
    keysLine->addWidget(LabelKeys, 1);
    auto* lastLine = new QHBoxLayout;
    lastLine->addWidget(CheckPaced, 1);
    lastLine->addWidget(LabelCounts);
    auto* layout = new QVBoxLayout(traffic);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(heading(traffic, Words::InstSelections));
    layout->addWidget(ListChannels, 2);
    layout->addLayout(keysLine);
    layout->addWidget(Keys);
    layout->addWidget(heading(traffic, Words::InstMessages));
    layout->addWidget(ListMessages, 3);
    layout->addLayout(lastLine);
    return traffic;
}

void frmInstrument::wireHandlers()
{
    TimerRefresh.setObjectName(QStringLiteral("TimerRefresh"));
    TimerRefresh.setSingleShot(true);
    TimerRefresh.setInterval(RefreshDelay);
    connect(&TimerRefresh, &QTimer::timeout, this, [this] { refresh(); });
    connect(CheckPaced, &QCheckBox::toggled, this, [this](bool paced) { service_.setPaced(paced); });
    instrument_.onChange = [this] {
        if (isVisible() && !TimerRefresh.isActive())
            TimerRefresh.start();
    };
}

void frmInstrument::showEvent(QShowEvent* event)
{
    refresh();
    QWidget::showEvent(event);
}

void frmInstrument::refresh()
{
    showPanel();
    showChannels();
    showHeld();
    showKeys();
    showMessages();
}

void frmInstrument::showPanel()
{
    const QString mode = text(instrument_.modeLabel());
    LabelDeviceMode->setText(mode.isEmpty() ? words(Words::InstNothingYet) : mode);
    LabelArrangement->setText(text(InstrumentTexts::selection(instrument_, instrument_.globalChannel())));
}

void frmInstrument::showChannels() { setRows(ListChannels, InstrumentTexts::channelRows(instrument_)); }

void frmInstrument::showHeld()
{
    setRows(ListArrangements, InstrumentTexts::namedRows(ArrLayout::RowCount, [this](int index) {
                return instrument_.arrangementName(index);
            }));
    setRows(ListStyles,
            InstrumentTexts::namedRows(StyLayout::SlotCount, [this](int slot) { return instrument_.styleName(slot); }));
    setRows(ListPrograms, InstrumentTexts::namedRows(PrgLayout::RecordCount,
                                                     [this](int index) { return instrument_.programName(index); }));
    setRows(ListParameters, InstrumentTexts::parameterRows(instrument_));
}

void frmInstrument::showKeys()
{
    std::array<bool, 128> sounding{};
    QString names;
    for (const SoundingNote& note : instrument_.soundingNotes()) {
        sounding[static_cast<std::size_t>(note.note)] = true;
        names += (names.isEmpty() ? QString() : QStringLiteral(", ")) + text(InstrumentWords::noteName(note.note));
    }
    Keys->show(sounding);
    LabelKeys->setText(names);
}

void frmInstrument::showMessages()
{
    LabelCounts->setText(text(InstrumentTexts::counts(instrument_)));
    const auto& log = instrument_.lastMessages();
    const std::int64_t fresh =
        std::min<std::int64_t>(instrument_.loggedCount() - shownMessages_, static_cast<std::int64_t>(log.size()));
    if (fresh == 0)
        return;
    const QScrollBar* bar = ListMessages->verticalScrollBar();
    const bool following = bar->value() == bar->maximum();
    for (auto message = log.end() - fresh; message != log.end(); ++message) {
        auto* item = new QListWidgetItem(text(message->words), ListMessages);
        item->setToolTip(text(message->words + "\n" + message->head));
        if (message->fault != Fault::None) {
            QFont bold = ListMessages->font();
            bold.setBold(true);
            item->setFont(bold);
        }
    }
    while (ListMessages->count() > static_cast<int>(VirtualInstrument::LogLength))
        delete ListMessages->takeItem(0);
    shownMessages_ = instrument_.loggedCount();
    if (following)
        ListMessages->scrollToBottom();
}
