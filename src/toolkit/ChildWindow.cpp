// A child window's life: it enters the registry of open windows when it is made, raises its counter when it is first
// shown, and gives both back when it goes. Its stored place stays as it is in twips until the user's own hand moves or
// resizes the window.
#include "toolkit/ChildWindow.h"

#include "core/Reports.h"
#include "core/ScopedFlag.h"
#include "core/Shell.h"
#include "toolkit/ControlArray.h"
#include "toolkit/QtKeyActions.h"
#include "toolkit/QtPlainTip.h"
#include "toolkit/RowList.h"
#include "toolkit/StageTimer.h"
#include "toolkit/Twips.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QScrollArea>
#include <QStyleOptionTitleBar>
#include <QToolTip>

#include <algorithm>

namespace
{

/// A list is named by its caption, and the field that it is typed into as the list: the caption is no label of that.
void nameCombos(const QWidget* content)
{
    for (const QLabel* caption : content->findChildren<QLabel*>())
        if (auto* combo = qobject_cast<QComboBox*>(caption->buddy()); combo && combo->accessibleName().isEmpty())
            combo->setAccessibleName(caption->text());
    for (const QComboBox* combo : content->findChildren<QComboBox*>())
        if (combo->lineEdit())
            combo->lineEdit()->setAccessibleName(combo->accessibleName());
}

} // namespace

ChildWindow::ChildWindow(const char* name, int AppState::*counter) : counter_(counter)
{
    setObjectName(QLatin1String(name));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(QApplication::windowIcon()); // not inherited: a child would show the toolkit's own
    nameSystemMenu();
    OpenWindows::add(&Tag);
}

void ChildWindow::nameSystemMenu()
{
    QMenu* menu = systemMenu();
    if (!menu)
        return;
    menu->setObjectName(QStringLiteral("SystemMenu"));
    menu->menuAction()->setObjectName(menu->objectName());
    int index = 0;
    for (QAction* action : menu->actions()) {
        action->setObjectName(memberName("SystemMenuItem", index++));
        action->setShortcuts({}); // they would make those of the main menus ambiguous
    }
}

ChildWindow::~ChildWindow() { leave(); }

void ChildWindow::leave()
{
    if (left_)
        return;
    left_ = true;
    OpenWindows::remove(&Tag);
    if (counted_ && counter_)
        --(App.*counter_);
    for (QTimer* timer : findChildren<QTimer*>()) {
        if (auto* stage = dynamic_cast<StageTimer*>(timer))
            stage->disable();
        else
            timer->stop();
    }
}

void ChildWindow::showCaption()
{
    QString caption = QString::fromUtf8(ChildCaption(Tag).c_str());
    setWindowTitle(caption.replace(QLatin1String("[*]"), QLatin1String("[*][*]"))); // "[*]" alone would be taken away
}

bool ChildWindow::titleIsCut()
{
    QStyleOptionTitleBar bar;
    bar.initFrom(this);
    bar.rect = QRect(0, 0, width(), widget()->geometry().top());
    bar.subControls = QStyle::SC_All;
    bar.titleBarFlags = windowFlags();
    bar.titleBarState = static_cast<int>(windowState());
    const QRect label = style()->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, this);
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    return metrics.horizontalAdvance(windowTitle()) > label.width();
}

bool ChildWindow::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !widget())
        return QMdiSubWindow::event(event);
    auto* const help = static_cast<QHelpEvent*>(event);
    if (help->pos().y() < widget()->geometry().top() && titleIsCut())
        QToolTip::showText(help->globalPos(), plainTip(windowTitle()), this);
    else
        QToolTip::hideText();
    return true;
}

bool ChildWindow::isFree() const { return !isMaximized() && !isMinimized() && !isShaded(); }

void ChildWindow::showFree()
{
    if (!isFree())
        showNormal();
}

void ChildWindow::placeInTwips(int left, int top, int width, int height)
{
    stored_.left = left;
    stored_.top = top;
    stored_.width = width;
    stored_.height = height;
    hasPlace_ = true;
    hasSize_ = true;
    showFree();
    applyPlace();
}

void ChildWindow::applyPlace()
{
    if (!isFree())
        return;
    const ScopedFlag placing(placing_);
    if (hasSize_)
        resize(twipsToPixelsX(stored_.width), twipsToPixelsY(stored_.height));
    if (hasPlace_) {
        QRect shown(QPoint(twipsToPixelsX(stored_.left), twipsToPixelsY(stored_.top)), size());
        if (QMdiArea* area = mdiArea(); area && area->isVisible())
            shown = movedIntoView(shown, area->viewport()->rect());
        move(shown.topLeft());
    }
    pixels_ = geometry();
}

void ChildWindow::resizeInTwips(int width, int height)
{
    stored_.width = width;
    stored_.height = height;
    hasSize_ = true;
    {
        const ScopedFlag placing(placing_);
        showFree();
        resize(twipsToPixelsX(width), twipsToPixelsY(height));
        pixels_.setSize(size());
    }
    if (isVisible() && App.shell)
        App.shell->MenuSync();
}

bool ChildWindow::hasSizeInTwips(int width, int height) const
{
    return size() == QSize(twipsToPixelsX(width), twipsToPixelsY(height));
}

WindowPosition ChildWindow::positionInTwips() const
{
    const QRect own = isFree() ? geometry() : pixels_;
    WindowPosition position;
    position.left = hasPlace_ ? stored_.left : pixelsToTwipsX(own.x());
    position.top = hasPlace_ ? stored_.top : pixelsToTwipsY(own.y());
    position.width = hasSize_ ? stored_.width : pixelsToTwipsX(own.width());
    position.height = hasSize_ ? stored_.height : pixelsToTwipsY(own.height());
    return position;
}

void ChildWindow::openAtRow(int row, TwipsSize standard)
{
    WindowPosition& place = App.WinPos[static_cast<std::size_t>(row)];
    if (place.width <= 0 || place.height <= 0) {
        place.width = standard.width;
        place.height = standard.height;
    }
    placeInTwips(place.left, place.top, place.width, place.height);
    place.Open = 1;
}

void ChildWindow::openWithin(int row, TwipsSize largest)
{
    WindowPosition& place = App.WinPos[static_cast<std::size_t>(row)];
    place.width = std::min(place.width, largest.width);
    place.height = std::min(place.height, largest.height);
    openAtRow(row, largest);
    limitedRow_ = row;
    largest_ = largest;
    // A window that is minimised hears of no resize, one that comes back of it before its state has changed.
    connect(this, &QMdiSubWindow::windowStateChanged, this, [&place](Qt::WindowStates before, Qt::WindowStates now) {
        constexpr Qt::WindowStates NotFree = Qt::WindowMinimized | Qt::WindowMaximized;
        if (now.testFlag(Qt::WindowMinimized))
            place.Open = 1;
        else if ((before & NotFree) && !(now & NotFree))
            place.Open = 0;
    });
}

void ChildWindow::keepWithinLargest()
{
    if (limitedRow_ == NoRow || !isVisible() || opening_ || !isFree())
        return;
    WindowPosition& place = App.WinPos[static_cast<std::size_t>(limitedRow_)];
    place.Open = 0;
    const WindowPosition now = positionInTwips();
    place.width = std::min(now.width, largest_.width);
    place.height = std::min(now.height, largest_.height);
    if (place.width != now.width || place.height != now.height)
        resizeInTwips(place.width, place.height);
}

void ChildWindow::keepInRow(int row) const
{
    WindowPosition& place = App.WinPos[static_cast<std::size_t>(row)];
    const WindowPosition kept = place;
    place = positionInTwips();
    place.Open = App.AppClosing ? kept.Open : 0;
    place.Extra = kept.Extra;
}

void ChildWindow::rememberUsersHand()
{
    if (placing_ || !isVisible() || !isFree())
        return;
    if (hasPlace_ && geometry().topLeft() != pixels_.topLeft()) {
        stored_.left = pixelsToTwipsX(x());
        stored_.top = pixelsToTwipsY(y());
    }
    if (hasSize_ && size() != pixels_.size()) {
        stored_.width = pixelsToTwipsX(width());
        stored_.height = pixelsToTwipsY(height());
    }
    pixels_ = geometry();
}

bool ChildWindow::unloadChild() { return close(); }

void ChildWindow::unloadWithoutAsking()
{
    agreed_ = true;
    close();
}

void ChildWindow::deleteKey(const char* extension) const
{
    constexpr int ReadOnlyFile = 17; // report code
    if (Tag.readOnly())
        ReportError(ReadOnlyFile, Tag.stem() + extension, {});
    else if (App.shell)
        App.shell->cut();
}

void ChildWindow::setContent(QWidget* content)
{
    auto* area = new QScrollArea(this);
    area->setObjectName(QStringLiteral("content"));
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // the keys belong to what stands in it
    area->setWidgetResizable(true);
    area->setWidget(content);
    stepRowsByKeys(content);
    nameCombos(content);
    // The fields' own edit menus would hide mnuModifica.
    for (QWidget* control : content->findChildren<QWidget*>())
        control->setContextMenuPolicy(Qt::NoContextMenu);
    setWidget(area);
}

/// Ctrl with Down and Up chooses the next and the previous row wherever the focus is; in the list itself the bare
/// arrows do, and with Ctrl they go over rows without choosing them.
void ChildWindow::stepRowsByKeys(const QWidget* content)
{
    auto* list = dynamic_cast<RowList*>(content->findChild<QListWidget*>(QStringLiteral("List1")));
    if (!list)
        return;
    addKeyAction(this, "actNextRow", Qt::CTRL | Qt::Key_Down, [list] { list->step(1); });
    addKeyAction(this, "actPreviousRow", Qt::CTRL | Qt::Key_Up, [list] { list->step(-1); });
}

void ChildWindow::contextMenuEvent(QContextMenuEvent* event)
{
    const bool onContent = widget() && widget()->geometry().contains(event->pos());
    if (!onContent || !App.shell) {
        QMdiSubWindow::contextMenuEvent(event);
        return;
    }
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard)
        App.shell->popupEditMenuAtFocus();
    else
        App.shell->popupEditMenu();
}

void ChildWindow::closeEvent(QCloseEvent* event)
{
    // A press by key lets go of its button a moment later; a box that came up meanwhile may speak for this window.
    const bool boxStands = QApplication::activeModalWidget() != nullptr;
    if (!agreed_ && (boxStands || !queryUnload())) {
        event->ignore();
        return;
    }
    agreed_ = true;
    if (!left_) {
        unload();
        leave();
    }
    event->accept();
    hide(); // the area hands the focus to the next window before the menus are brought up to date
    if (App.shell)
        App.shell->MenuSync();
}

void ChildWindow::showEvent(QShowEvent* event)
{
    if (!counted_) {
        counted_ = true;
        if (counter_)
            ++(App.*counter_);
        const ScopedFlag opening(opening_);
        applyPlace();
    }
    QMdiSubWindow::showEvent(event);
}

void ChildWindow::resizeEvent(QResizeEvent* event)
{
    QMdiSubWindow::resizeEvent(event);
    rememberUsersHand();
    keepWithinLargest();
    if (isVisible() && !placing_ && App.shell)
        App.shell->MenuSync();
}

void ChildWindow::moveEvent(QMoveEvent* event)
{
    QMdiSubWindow::moveEvent(event);
    rememberUsersHand();
}
