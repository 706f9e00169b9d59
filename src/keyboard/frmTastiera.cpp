// Construction of the keyboard window: faders, channel and split above, the keys, and below them what the playing
// modes need. Everything stands at places in twips, as the keys do.
#include "keyboard/frmTastiera.h"

#include "core/Strings.h"
#include "core/Words.h"
#include "keyboard/KeyBedWidget.h"
#include "keyboard/KeyWidget.h"
#include "keyboard/TwipsPanelWidget.h"
#include "toolkit/Choices.h"
#include "toolkit/QtLooks.h"
#include "toolkit/QtPanelParts.h"
#include "toolkit/QtSpoken.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSlider>

namespace
{

constexpr int CaptionRow = 106;
constexpr int CloseRow = 8;
constexpr int PanelWidth = 9160;
constexpr int PanelHeight = 5000;
constexpr qreal PanelPointSize = 8;
constexpr int Channels = 16;
constexpr int SplitLargeStep = 10;
constexpr int OctaveLabel = 6; ///< behind the labels of the octaves
constexpr int NoteLabel = 7;

// Places of the channel strip, twips. The faders stand side by side; left of the Pan fader its three letters.
constexpr int FaderTop = 648;
constexpr int FaderHeight = 1704;
constexpr int FaderWidth = 228;
constexpr int StripPitch = 692;
constexpr int StripLeft = 70;
constexpr int FaderInStrip = 165;
constexpr int MarkInStrip = FaderInStrip + FaderWidth + 10;
constexpr int LineHeight = 200;
constexpr int CaptionTop = 20;
constexpr int CaptionHeight = 2 * LineHeight;
constexpr int CaptionWidth = 645; ///< "Att Time" and "Rel Time" stand in two lines
constexpr qreal MarkWords = 0.86; ///< the marks are in smaller print
constexpr int ValueTop = CaptionTop + CaptionHeight;

// Channel and split point, right of the faders.
constexpr int SideLeft = StripLeft + Faders::Count * StripPitch + 50;
constexpr int SideWidth = KeyGeometry::Frame.left + KeyGeometry::Frame.width - SideLeft;

// Below the keys: the octave labels and two rows of controls.
constexpr int LabelTop = 4090;
constexpr int LabelWidth = 480;
constexpr int UpperRow = 4310;
constexpr int LowerRow = 4660;
constexpr int RowHeight = 320;

/// The rim around the keys.
constexpr TwipsRect Case{30, 2450, KeyGeometry::Frame.width + 80, 200 + KeyGeometry::Frame.height + 30};
constexpr QRgb CaseColour = 0xFF26282C;

QString word(int id) { return QString::fromUtf8(ResText(id).c_str()); }
QString latin(std::string_view text) { return fromPanel(text); }

/// The split marker: a pointer down to the keys.
class SplitMarker final : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Looks::accentOn(palette(), QColor::fromRgb(CaseColour)));
        const QRectF whole(rect());
        painter.drawPolygon(
            QPolygonF{{whole.topLeft(), whole.topRight(), QPointF(whole.center().x(), whole.bottom())}});
    }
};

} // namespace

frmTastiera::frmTastiera() : ChildWindow("frmTastiera", &AppState::OtherCount)
{
    Tag = WindowBuffer::fresh(WindowKind::Keyboard, 0);
    setWindowTitle(word(CaptionRow));
    buildControls();
    wireHandlers();
    load();
}

// In the order in which Tab walks the controls.
void frmTastiera::buildControls()
{
    panel_ = new TwipsPanelWidget(PanelWidth, PanelHeight, PanelPointSize, this);
    panel_->setObjectName(QStringLiteral("Panel"));
    for (int index = 0; index < Faders::Count; ++index)
        buildFader(index);
    buildChannelAndSplit();
    buildKeys();
    buildPlaying();
    setContent(panel_);
    Frame1->setFocus();
}

QLabel* frmTastiera::makeLabel(const char* name, const QString& text, const TwipsRect& place, Qt::Alignment alignment,
                               qreal words)
{
    auto* label = new QLabel(text, panel_);
    label->setObjectName(QLatin1String(name));
    label->setAlignment(alignment);
    label->setAttribute(Qt::WA_TransparentForMouseEvents); // over a label the pointer is over the window
    return panel_->place(label, place, words);
}

QPushButton* frmTastiera::makeButton(const char* name, const QString& caption, const TwipsRect& place)
{
    auto* button = new QPushButton(caption, panel_);
    button->setObjectName(QLatin1String(name));
    return panel_->place(button, place);
}

QCheckBox* frmTastiera::makeBox(const char* name, const QString& caption, const TwipsRect& place)
{
    auto* box = new QCheckBox(caption, panel_);
    box->setObjectName(QLatin1String(name));
    return panel_->place(box, place);
}

QLineEdit* frmTastiera::makeShownNote(const char* name, const QString& accessibleName, const TwipsRect& place)
{
    QLineEdit* field = makeShownText(panel_, "");
    field->setObjectName(QLatin1String(name));
    field->setAccessibleName(accessibleName);
    field->setFocusPolicy(Qt::NoFocus);
    field->setTextMargins(0, 0, 0, 0);
    field->setAlignment(Qt::AlignCenter);
    return panel_->place(field, place);
}

void frmTastiera::buildFader(int index)
{
    const Fader& fader = Faders::Table[static_cast<std::size_t>(index)];
    const int left = StripLeft + index * StripPitch;
    const int captionLeft = left + FaderInStrip + FaderWidth / 2 - CaptionWidth / 2;
    const int bottom = FaderTop + FaderHeight;
    const auto strip = [&](const char* name, std::string_view text, int top, int height, Qt::Alignment alignment) {
        return makeLabel(name, latin(text), {captionLeft, top, CaptionWidth, height}, alignment);
    };
    const auto mark = [&](std::string_view text, int top, Qt::Alignment alignment) {
        const TwipsRect place{left + MarkInStrip, top, StripPitch - MarkInStrip, LineHeight};
        return makeLabel("", latin(text), place, alignment, MarkWords);
    };

    QSlider* slider = makeFader(panel_, Qt::Vertical, 0, Faders::Highest, Faders::LargeStep);
    slider->setAccessibleName(latin(fader.caption));
    VScroll.put(index, panel_->place(slider, {left + FaderInStrip, FaderTop, FaderWidth, FaderHeight}));

    Label2.put(index, strip("", fader.caption, CaptionTop, CaptionHeight, Qt::AlignHCenter | Qt::AlignBottom));
    Label2[index]->setWordWrap(true);
    Label2[index]->setBuddy(slider);
    Label3.put(index, strip("", faderText(index, 0), ValueTop, LineHeight, Qt::AlignCenter));
    speakFader(slider, Label3[index]);
    Label4.put(index, mark(fader.topMark, FaderTop, Qt::AlignLeft | Qt::AlignTop));
    Label5.put(index, mark(fader.bottomMark, bottom - LineHeight, Qt::AlignLeft | Qt::AlignBottom));
    if (index != Faders::Pan)
        return;
    // Beside the marks, in line with them.
    const auto side = [&](const char* name, const char* letter, int top, Qt::Alignment alignment) {
        const TwipsRect place{left, top, FaderInStrip - 20, LineHeight};
        makeLabel(name, QLatin1String(letter), place, Qt::AlignRight | alignment, MarkWords);
    };
    side("LabelPanR", "R", FaderTop, Qt::AlignTop);
    side("LabelPanC", "C", FaderTop + (FaderHeight - LineHeight) / 2, Qt::AlignVCenter);
    side("LabelPanL", "L", bottom - LineHeight, Qt::AlignBottom);
}

void frmTastiera::buildChannelAndSplit()
{
    constexpr int BoxTop = 660;
    constexpr int BoxHeight = FaderTop + FaderHeight - BoxTop;
    constexpr int Inside = 90;
    const auto left = Qt::AlignLeft | Qt::AlignVCenter;

    QLabel* channel =
        makeLabel("", QStringLiteral("MIDI Channel"), {SideLeft, CaptionTop, SideWidth, LineHeight}, left);
    channel->setObjectName(QStringLiteral("LabelChannel"));
    Combo1 = new QComboBox(panel_);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    for (int number = 1; number <= Channels; ++number)
        Combo1->addItem(QStringLiteral("%1").arg(number, 3));
    Combo1->setMaxVisibleItems(Channels);
    Combo1->setAccessibleName(channel->text());
    channel->setBuddy(Combo1);
    panel_->place(Combo1, {SideLeft, CaptionTop + LineHeight + 20, SideWidth, RowHeight});

    Picture2 = new QFrame(panel_);
    Picture2->setObjectName(QStringLiteral("Picture2"));
    Picture2->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Picture2->setAttribute(Qt::WA_TransparentForMouseEvents);
    panel_->place(Picture2, {SideLeft, BoxTop, SideWidth, BoxHeight});
    VScroll1 = makeFader(panel_, Qt::Vertical, SplitRange::Lowest, SplitRange::Highest, SplitLargeStep);
    VScroll1->setObjectName(QStringLiteral("VScroll1"));
    panel_->place(VScroll1, {SideLeft + Inside + 100, BoxTop + 270, FaderWidth, BoxHeight - 330});
    Label1.put(SplitLabel, makeLabel("", QStringLiteral("Split Point"),
                                     {SideLeft + Inside, BoxTop + 40, SideWidth - 2 * Inside, LineHeight}, left));
    Label1[SplitLabel]->setBuddy(VScroll1);
    VScroll1->setAccessibleName(Label1[SplitLabel]->text());
    constexpr int TextLeft = SideLeft + Inside + 100 + FaderWidth + 160;
    Text3 = makeShownNote("Text3", word(Words::SplitNote),
                          {TextLeft, BoxTop + 780, SideLeft + SideWidth - Inside - TextLeft, RowHeight});
    speakFader(VScroll1, Text3);
}

void frmTastiera::buildKeys()
{
    auto* rim = new QWidget(panel_);
    rim->setObjectName(QStringLiteral("Case"));
    rim->setAutoFillBackground(true);
    rim->setPalette(QPalette(QColor::fromRgb(CaseColour)));
    rim->setAttribute(Qt::WA_TransparentForMouseEvents);
    panel_->place(rim, Case);

    Frame1 = new KeyBedWidget(panel_);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Frame1->setAccessibleName(windowTitle());
    panel_->place(Frame1, KeyGeometry::Frame);

    Picture1 = new SplitMarker(panel_);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setAccessibleName(word(Words::SplitMarker));
    speakAs(Picture1, {QAccessible::Graphic, [this] { return Text3->text().trimmed(); }, {}, {}, {}});
    Picture1->setAttribute(Qt::WA_TransparentForMouseEvents);
    panel_->place(Picture1, {KeyGeometry::MarkerOrigin, KeyGeometry::MarkerTop, KeyGeometry::MarkerWidth,
                             KeyGeometry::MarkerHeight});

    for (int octave = 0; octave < KeyGeometry::Labels; ++octave) {
        const int middle = KeyGeometry::Frame.left + KeyGeometry::WhiteWidth / 2 + octave * KeyGeometry::LabelPitch;
        Label1.put(octave,
                   makeLabel("", {}, {middle - LabelWidth / 2, LabelTop, LabelWidth, LineHeight}, Qt::AlignCenter));
    }
}

void frmTastiera::buildPlaying()
{
    const auto left = Qt::AlignLeft | Qt::AlignVCenter;
    const auto right = Qt::AlignRight | Qt::AlignVCenter;
    Label1.put(OctaveLabel, makeLabel("", word(Words::OctaveShift), {70, UpperRow, 620, RowHeight}, left));
    HScroll1 = makeFader(panel_, Qt::Horizontal, 0, KeyRange::MostShift, 1);
    HScroll1->setObjectName(QStringLiteral("HScroll1"));
    HScroll1->setAccessibleName(Label1[OctaveLabel]->text());
    HScroll1->setTickPosition(QSlider::TicksBelow);
    HScroll1->setTickInterval(1);
    Label1[OctaveLabel]->setBuddy(HScroll1);
    panel_->place(HScroll1, {700, UpperRow, 1500, RowHeight});

    CheckClickKey = makeBox("CheckClickKey", QStringLiteral("Click Key"), {2480, UpperRow, 1200, RowHeight});
    CheckHoldNote = makeBox("CheckHoldNote", QStringLiteral("Hold Note"), {3720, UpperRow, 1250, RowHeight});
    CommHoldChord = makeButton("CommHoldChord", QStringLiteral("Hold Chord"), {5000, UpperRow, 1360, RowHeight});
    CheckClickKey->setToolTip(word(Words::ClickKeyHint));
    CheckHoldNote->setToolTip(word(Words::HoldNoteHint));
    CommHoldChord->setToolTip(word(Words::HoldChordHint));
    CommAllNoteOff = makeButton("CommAllNoteOff", QStringLiteral("All Notes Off"), {5000, LowerRow, 1360, RowHeight});
    CommArrPlay = makeButton("CommArrPlay", QStringLiteral("&ARR PLAY"), {70, LowerRow, 1460, RowHeight});
    CommSongPlay = makeButton("CommSongPlay", QStringLiteral("&SONG PLAY"), {1590, LowerRow, 1460, RowHeight});

    Label1.put(NoteLabel, makeLabel("", QStringLiteral("Note (Number)"), {6420, UpperRow, 1330, RowHeight}, right));
    Text1 = makeShownNote("Text1", Label1[NoteLabel]->text(), {7830, UpperRow, 1312, RowHeight});
    Label1[NoteLabel]->setBuddy(Text1);
    CommChiudi = makeButton("CommChiudi", word(CloseRow), {7830, LowerRow, 1312, RowHeight});
}

void frmTastiera::wireHandlers()
{
    VScroll.onEach(&QSlider::valueChanged, this, [this](int index, int value) { VScroll_Change(index, value); });
    connect(VScroll1, &QSlider::valueChanged, this, [this](int note) { VScroll1_Change(note); });
    connect(HScroll1, &QSlider::valueChanged, this, [this](int octaveShift) { HScroll1_Change(octaveShift); });
    onComboClick(Combo1, [](int channel) { mixerChannelChoose(channel); });

    Frame1->mouseDown = [this](int key) { notes_.keyMouseDown(key); };
    Frame1->mouseUp = [this](int key) { notes_.keyMouseUp(key); };
    Frame1->mouseMove = [this](int key, int y) { notes_.keyMouseMove(key, y); };
    Frame1->mouseOutside = [this] { notes_.outsideMouseMove(); };
    panel_->mouseMove = [this] { notes_.outsideMouseMove(); };

    connect(CheckClickKey, &QCheckBox::toggled, this, [this](bool ticked) { notes_.CheckClickKey_Click(ticked); });
    connect(CheckHoldNote, &QCheckBox::toggled, this, [this](bool ticked) { notes_.CheckHoldNote_Click(ticked); });
    connect(CommHoldChord, &QPushButton::clicked, this, [this] { notes_.CommHoldChord_Click(); });
    connect(CommAllNoteOff, &QPushButton::clicked, this, [this] { notes_.CommAllNoteOff_Click(); });
    connect(CommArrPlay, &QPushButton::clicked, this, [this] { CommArrPlay_Click(); });
    connect(CommSongPlay, &QPushButton::clicked, this, [this] { CommSongPlay_Click(); });
    connect(CommChiudi, &QPushButton::clicked, this, [this] { close(); });
}
