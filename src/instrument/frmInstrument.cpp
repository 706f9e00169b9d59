// Builds the panel, the lists and the messages, and refreshes them a moment after bytes came in.
#include "instrument/frmInstrument.h"

#include "core/Strings.h"
#include "core/Words.h"
#include "files/ArrLayout.h"
#include "files/PrgLayout.h"
#include "files/StyLayout.h"
#include "instrument/ChannelsView.h"
#include "instrument/GaugesView.h"
#include "instrument/GlassWidget.h"
#include "instrument/InstrumentTexts.h"
#include "instrument/InstrumentWords.h"
#include "instrument/KeysView.h"
#include "instrument/QtInstrumentColours.h"
#include "instrument/VirtualMidiService.h"
#include "toolkit/QtPlainTip.h"
#include "toolkit/QtSpoken.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

namespace
{

constexpr int RefreshDelay = 30; ///< milliseconds; a storm of messages is painted once
constexpr int Margin = 8;        ///< pixels, as in the program's windows
constexpr int Gap = 8;
constexpr int PanelMargin = 12;
constexpr int TabMargin = 40;          ///< pixels around both columns
constexpr QSize DefaultSize{820, 660}; // wider where the fonts need it
constexpr qreal LargeSign = 1.6;       ///< of the window's own type size

QString words(int id) { return QString::fromUtf8(ResText(id).c_str()); }

QString text(const std::string& utf8) { return QString::fromUtf8(utf8.c_str()); }

QLabel* makeSign(QWidget* panel, const char* name)
{
    auto* label = new QLabel(panel);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* makeLargeSign(QWidget* panel, const char* name)
{
    QLabel* label = makeSign(panel, name);
    QFont large = label->font();
    large.setPointSizeF(large.pointSizeF() * LargeSign);
    large.setBold(true);
    label->setFont(large);
    return label;
}

void showIn(QLabel* label, const QColor& colour)
{
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, colour);
    label->setPalette(colours);
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
        item->setToolTip(plainTip(wanted));
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
    columns->setSpacing(Gap);
    columns->addWidget(buildHeld(), 1);
    columns->addWidget(buildMessages(), 1);
    CheckPaced = new QCheckBox(words(Words::CableSpeed), this);
    CheckPaced->setObjectName(QStringLiteral("CheckPaced"));
    CheckPaced->setChecked(service_.paced());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Gap);
    layout->addWidget(buildPanel());
    layout->addLayout(columns, 1);
    layout->addWidget(CheckPaced);
}

/// What a player has before him: the display, the memory, the channels, the keys.
QWidget* frmInstrument::buildPanel()
{
    auto* panel = new GlassWidget(this);
    panel->setObjectName(QStringLiteral("FramePanel"));
    Gauges = new GaugesView(panel);
    Gauges->setObjectName(QStringLiteral("Gauges"));
    Gauges->setAccessibleName(words(Words::InstMemory));
    Channels = new ChannelsView(panel);
    Channels->setObjectName(QStringLiteral("Channels"));
    Channels->setAccessibleName(words(Words::InstSelections));
    Keys = new KeysView(panel);
    Keys->setObjectName(QStringLiteral("Keys"));
    Keys->setAccessibleName(words(Words::InstKeys));
    speakDrawings();
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(PanelMargin, PanelMargin, PanelMargin, PanelMargin);
    layout->setSpacing(PanelMargin);
    layout->addLayout(buildDisplay(panel));
    layout->addWidget(Gauges);
    layout->addWidget(Channels);
    layout->addWidget(Keys);
    layout->addLayout(buildTraffic(panel));
    return panel;
}

/// What the drawings show, in the words that stand elsewhere in the window.
void frmInstrument::speakDrawings()
{
    speakAs(Gauges, {QAccessible::Graphic, [this] { return Gauges->accessibleDescription(); }, {}, {}, {}});
    const auto channels = [this] {
        QStringList rows;
        for (const std::string& row : InstrumentTexts::channelRows(instrument_))
            rows << text(row);
        return rows.join(QStringLiteral("; "));
    };
    speakAs(Channels, {QAccessible::Graphic, channels, {}, {}, {}});
    speakAs(Keys, {QAccessible::Graphic, [this] { return LabelKeys->text(); }, {}, {}, {}});
}

QLayout* frmInstrument::buildDisplay(QWidget* panel)
{
    LabelDeviceMode = makeLargeSign(panel, "LabelDeviceMode");
    LabelArrangement = makeLargeSign(panel, "LabelArrangement");
    auto* line = new QHBoxLayout;
    line->setSpacing(Gap);
    line->addWidget(LabelDeviceMode);
    line->addStretch(1);
    line->addWidget(LabelArrangement);
    return line;
}

/// The foot of the panel: what sounds, and what came over the cable.
QLayout* frmInstrument::buildTraffic(QWidget* panel)
{
    QLabel* caption = makeSign(panel, "LabelKeysCaption");
    caption->setText(words(Words::InstKeys));
    showIn(caption, InstrumentColours::Faint);
    LabelKeys = makeSign(panel, "LabelKeys");
    LabelKeys->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // many keys must not widen the window
    LabelCounts = makeSign(panel, "LabelCounts");
    LabelBytes = makeSign(panel, "LabelBytes");
    Lamp = new LampWidget(panel);
    Lamp->setObjectName(QStringLiteral("Lamp"));
    auto* line = new QHBoxLayout;
    line->setSpacing(Gap);
    line->addWidget(caption);
    line->addWidget(LabelKeys, 1);
    line->addWidget(LabelCounts);
    line->addSpacing(Gap);
    line->addWidget(LabelBytes);
    line->addWidget(Lamp);
    return line;
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
    TabHeld->setDocumentMode(true); // the lists have frames of their own, as that of the messages
    ListArrangements = addTab("ListArrangements", Words::InstArrangements);
    ListStyles = addTab("ListStyles", Words::InstStyles);
    ListPrograms = addTab("ListPrograms", Words::InstPrograms);
    ListParameters = addTab("ListParameters", Words::InstParameters);
    ListChannels = addTab("ListChannels", Words::InstSelections);
    return TabHeld;
}

QWidget* frmInstrument::buildMessages()
{
    auto* column = new QWidget(this);
    auto* caption = new QLabel(words(Words::InstMessages), column);
    caption->setObjectName(QStringLiteral("LabelMessages"));
    ListMessages = new QListWidget(column);
    ListMessages->setObjectName(QStringLiteral("ListMessages"));
    ListMessages->setAccessibleName(caption->text());
    caption->setBuddy(ListMessages);
    // A long row ends in dots, and its tool tip tells the rest.
    for (QListWidget* list : {ListChannels, ListMessages})
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    // The list begins and ends beside that of the tabs.
    caption->setFixedHeight(TabHeld->tabBar()->sizeHint().height() - Gap / 2);
    layout->setSpacing(Gap / 2);
    layout->addWidget(caption);
    layout->addWidget(ListMessages, 1);
    return column;
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
    showTraffic();
    showHeld();
    showKeys();
    showMessages();
}

void frmInstrument::showPanel()
{
    const QString mode = text(instrument_.modeLabel());
    LabelDeviceMode->setText(mode.isEmpty() ? words(Words::InstNothingYet) : mode);
    LabelArrangement->setText(text(InstrumentTexts::selection(instrument_, instrument_.globalChannel())));
    Gauges->show(InstrumentGlance::held(instrument_));
    Channels->show(InstrumentGlance::channels(instrument_));
}

void frmInstrument::showTraffic()
{
    const std::int64_t bytes = instrument_.byteCount();
    LabelBytes->setText(text(InstrumentWords::filledIn(Words::InstBytes, {InstrumentGlance::figure(bytes)})));
    if (bytes != shownBytes_)
        Lamp->flash();
    shownBytes_ = bytes;
    LabelCounts->setText(text(InstrumentTexts::counts(instrument_)));
    showIn(LabelCounts, instrument_.malformedCount() > 0 ? InstrumentColours::Warning : InstrumentColours::Sign);
}

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
    setRows(ListChannels, InstrumentTexts::channelRows(instrument_));
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
    const auto& log = instrument_.lastMessages();
    const std::int64_t fresh =
        std::min<std::int64_t>(instrument_.loggedCount() - shownMessages_, static_cast<std::int64_t>(log.size()));
    if (fresh == 0)
        return;
    const QScrollBar* bar = ListMessages->verticalScrollBar();
    const bool following = bar->value() == bar->maximum();
    for (auto message = log.end() - fresh; message != log.end(); ++message) {
        auto* item = new QListWidgetItem(text(message->words), ListMessages);
        item->setToolTip(plainTip(text(message->words + "\n" + message->head)));
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
