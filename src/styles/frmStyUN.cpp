// Construction of the window. Its handlers stand in frmStyUNHandlers.cpp.
//
// The list and the figures beside it are one table: their rows have one pitch, and they scroll together.
#include "styles/frmStyUN.h"

#include "core/PathNames.h"
#include "core/Strings.h"
#include "core/Words.h"
#include "styles/StyWindowBuilder.h"
#include "styles/StyleRows.h"
#include "toolkit/QtLooks.h"
#include "toolkit/RowColumns.h"
#include "toolkit/RowList.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace
{

// Captions are the same in both languages.
constexpr const char* LoadCaption = "Load &Styles";
constexpr const char* LoadGroupCaption = "Load Styles";
constexpr const char* BytesCaption = "bytes";

constexpr int CloseRow = 8;

using Looks::Margin;
constexpr int Gap = 6;
constexpr int PanelGap = 3;
constexpr int ShownCharacters = 18; ///< of a row at the least
constexpr const char* WidestLength = "65535 ";
constexpr const char* WidestFigure = "1048560 ";

QString words(int id) { return QString::fromUtf8(ResText(id).c_str()); }

QString withWord(int id, const QString& word) { return words(id).replace(QLatin1Char('_'), word); }

/// "11" for slot 0; "11-14" for group 0.
QString slotCode(int slot) { return QStringLiteral("%1%2").arg(slot / 8 + 1).arg(slot % 8 + 1); }
QString groupCodes(int group)
{
    const int first = group * StyLayout::SlotsPerGroup;
    return slotCode(first) + QLatin1Char('-') + slotCode(first + StyLayout::SlotsPerGroup - 1);
}

/// A field that shows a figure, right-aligned.
QLineEdit* makeFigure(QWidget* parent, const char* widest, const QString& meaning)
{
    auto* text = new QLineEdit(parent);
    text->setReadOnly(true);
    text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const int cursorAndMargins = 10;
    text->setFixedWidth(text->fontMetrics().horizontalAdvance(QLatin1String(widest)) + cursorAndMargins);
    text->setAccessibleName(meaning);
    text->setToolTip(meaning);
    return text;
}

QPushButton* makeButton(QWidget* parent, const QString& caption)
{
    auto* button = new QPushButton(caption, parent);
    button->setAutoDefault(false);
    return button;
}

QString shown(const std::string& latin1) { return QString::fromLatin1(latin1.data(), static_cast<int>(latin1.size())); }

} // namespace

frmStyUN::frmStyUN(int windowKind, int slot) : ChildWindow("frmStyUN", &AppState::StyUCount)
{
    Tag = StyTagBuild(windowKind, slot, App.Styles[static_cast<std::size_t>(slot - 1)]);
    entry().used = true;
    buildControls();
    buildTimers();
    wireHandlers();
    loadFile();
    restorePlace();
}

SessionEntry& frmStyUN::entry() const { return App.Styles[static_cast<std::size_t>(Tag.number() - 1)]; }

void frmStyUN::buildControls()
{
    auto* content = new QWidget;
    makeList(content);
    makeButtons(content);
    makeFigures(content);

    QScrollArea* const figures = figurePanel(content);
    auto* table = new QHBoxLayout;
    table->setSpacing(0);
    table->addWidget(List1, 1);
    table->addWidget(figures);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(Gap);
    foot->addWidget(footPanel(content), 1);
    foot->addWidget(CommClose);

    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Gap);
    layout->addLayout(table, 1);
    layout->addLayout(foot);
    setContent(content);
    scrollTogether(figures);
    orderTabs();
}

void frmStyUN::makeList(QWidget* content)
{
    List1 = new RowList(content, QStringLiteral("List1"));
    List1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List1->setFont(Looks::listFont(content));
    List1->setItemDelegate(new RowColumns(List1));
    List1->setMinimumWidth(ShownCharacters * List1->fontMetrics().averageCharWidth());
    List1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    List1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    List1->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);

    QStringList rows;
    for (const std::string& text : styleListing(Tag.styleArea()).rows)
        rows << shown(text);
    List1->setRows(rows);
}

void frmStyUN::makeButtons(QWidget* content)
{
    CommLoadSty = makeButton(content, QLatin1String(LoadCaption));
    CommLoadSty->setObjectName(QStringLiteral("CommLoadSty"));
    CommLoadStyGrp.create([&](int group) {
        QPushButton* button = makeButton(content, QLatin1String(LoadGroupCaption));
        button->setAccessibleName(QLatin1String(LoadGroupCaption) + QLatin1Char(' ') + groupCodes(group));
        button->setToolTip(button->accessibleName());
        return button;
    });
    CommClose = makeButton(content, words(CloseRow));
    CommClose->setObjectName(QStringLiteral("CommClose"));
}

void frmStyUN::makeFigures(QWidget* content)
{
    Text1.create([&](int slot) {
        QLineEdit* text = makeFigure(content, WidestLength, withWord(Words::StyleLength, slotCode(slot)));
        text->setFrame(false);
        text->setFont(List1->font()); // one base line with the row
        return text;
    });
    Text2.create(
        [&](int group) { return makeFigure(content, WidestFigure, withWord(Words::StyleGroup, groupCodes(group))); });
    Text3 = makeFigure(content, WidestFigure, words(Words::StyleTotal));
    Text3->setObjectName(QStringLiteral("Text3"));
    Label3 = new QLabel(QLatin1String(BytesCaption), content);
    Label3->setObjectName(QStringLiteral("Label3"));
    Label3->setBuddy(Text3);
}

QScrollArea* frmStyUN::figurePanel(QWidget* content)
{
    const int pitch = List1->sizeHintForRow(0);
    auto* panel = new QWidget;
    panel->setObjectName(QStringLiteral("figures"));
    panel->setBackgroundRole(QPalette::Base); // as the list beside it
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, PanelGap, 0);
    grid->setHorizontalSpacing(PanelGap);
    grid->setVerticalSpacing(0);
    for (int row = 0; row < WindowLayout::StyRowCount; ++row) {
        grid->setRowMinimumHeight(row, pitch);
        if (const int slot = styleSlotInRow(row); slot >= 0) {
            Text1[slot]->setFixedHeight(pitch);
            grid->addWidget(Text1[slot], row, 0);
        }
    }
    for (int group = 0; group < Groups; ++group) {
        QFrame* frame = groupPanel(panel, group);
        frame->setFixedHeight(StyLayout::SlotsPerGroup * pitch);
        grid->addWidget(frame, group * (StyLayout::SlotsPerGroup + 1), 1, StyLayout::SlotsPerGroup, 1);
    }
    grid->setRowStretch(WindowLayout::StyRowCount, 1);

    auto* area = new QScrollArea(content);
    area->setObjectName(QStringLiteral("FigureArea"));
    area->setFrameStyle(List1->frameStyle());
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(panel);
    area->setFixedWidth(panel->sizeHint().width() + area->verticalScrollBar()->sizeHint().width() +
                        2 * area->frameWidth());
    return area;
}

QFrame* frmStyUN::groupPanel(QWidget* panel, int group)
{
    auto* frame = Picture2.put(group, new QFrame(panel));
    frame->setFrameStyle(QFrame::StyledPanel);
    frame->setAutoFillBackground(true);
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(PanelGap, PanelGap, PanelGap, PanelGap);
    column->setSpacing(PanelGap);
    column->addWidget(Text2[group], 0, Qt::AlignRight);
    column->addWidget(CommLoadStyGrp[group]);
    return frame;
}

QWidget* frmStyUN::footPanel(QWidget* content)
{
    Picture1 = new QFrame(content);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setFrameStyle(QFrame::StyledPanel);
    auto* line = new QHBoxLayout(Picture1);
    line->setContentsMargins(PanelGap, PanelGap, PanelGap, PanelGap);
    line->setSpacing(Gap);
    line->addWidget(CommLoadSty);
    line->addStretch(1);
    line->addWidget(Text3);
    line->addWidget(Label3);
    return Picture1;
}

void frmStyUN::scrollTogether(const QScrollArea* figures)
{
    QScrollBar* ofList = List1->verticalScrollBar();
    QScrollBar* ofFigures = figures->verticalScrollBar();
    connect(ofList, &QScrollBar::valueChanged, ofFigures, &QScrollBar::setValue);
    connect(ofFigures, &QScrollBar::valueChanged, ofList, &QScrollBar::setValue);
}

void frmStyUN::orderTabs()
{
    // What works comes before what only shows.
    QWidget* last = List1;
    const auto next = [&last](QWidget* control) {
        setTabOrder(last, control);
        last = control;
    };
    for (QPushButton* button : CommLoadStyGrp)
        next(button);
    next(CommLoadSty);
    next(CommClose);
    for (QLineEdit* text : Text1)
        next(text);
    for (QLineEdit* text : Text2)
        next(text);
    next(Text3);
}

void frmStyUN::buildTimers()
{
    const auto member = [this](int) { return new StageTimer(this, {}); };
    TimerTxSty.create(member);
    TimerLoadStyGrp.create(member);
    TimerLoadSty = new StageTimer(this, QStringLiteral("TimerLoadSty"));
}

void frmStyUN::wireHandlers()
{
    List1->onClick([this] { List1_Click(); });
    List1->onDelete([this] { deleteKey(extensionOf(FileKind::Sty)); });
    connect(CommLoadSty, &QPushButton::clicked, this, [this] { CommLoadSty_Click(); });
    CommLoadStyGrp.onEach(&QPushButton::clicked, this, [this](int group, bool) { CommLoadStyGrp_Click(group); });
    connect(CommClose, &QPushButton::clicked, this, [this] { unloadChild(); });

    TimerLoadSty->onTick([this] { CommLoadSty_Click(); });
    for (StageTimer* timer : TimerTxSty)
        timer->onTick([this] { CommLoadSty_Click(); });
    for (int group = 0; group < Groups; ++group)
        TimerLoadStyGrp[group]->onTick([this, group] { CommLoadStyGrp_Click(group); });
}

void frmStyUN::loadFile()
{
    const StyleListing listing = styleListing(Tag.styleArea());
    for (int slot = 0; slot < Slots; ++slot)
        Text1[slot]->setText(shown(listing.lengths[static_cast<std::size_t>(slot)]));
    for (int group = 0; group < Groups; ++group) {
        const auto index = static_cast<std::size_t>(group);
        Text2[group]->setText(shown(listing.groupFigures[index]));
        CommLoadStyGrp[group]->setEnabled(listing.groupButtons[index]);
    }
    Text3->setText(shown(listing.total));
    showCaption();
    List1->setAccessibleName(windowTitle());
}

void frmStyUN::restorePlace()
{
    const TwipsSize standard = defaultWindowSize(windowKind());
    SessionEntry& place = entry();
    const bool file = windowKind() == WindowKind::StyFile;
    // Required: a file opens at the corner in the standard size, wherever the window of its number last stood; only an
    // arrangement's styles come back to that place.
    const bool comesBack = file && place.linked && place.width > 0 && place.height > 0;
    if (file && !comesBack) {
        place.left = 0;
        place.top = 0;
        place.width = standard.width;
        place.height = standard.height;
    }
    if (comesBack || (file && !place.linked))
        placeInTwips(place.left, place.top, place.width, place.height);
    else // an untitled window, and the first beside an arrangement window, whose buttons it must not cover
        resizeInTwips(standard.width, standard.height);
}
