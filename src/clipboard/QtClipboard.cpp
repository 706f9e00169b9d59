// From the list's items to rows and back, and the linked window that changes with the one worked on.
#include "clipboard/QtClipboard.h"

#include "clipboard/Clipboard.h"
#include "core/Shell.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/StageTimer.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>

namespace
{

QString fromInstrument(const std::string& text)
{
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

QListWidget* listOf(const ChildWindow& window) { return window.findChild<QListWidget*>(QStringLiteral("List1")); }

ListRows rowsOf(const QListWidget& list)
{
    ListRows rows;
    rows.reserve(static_cast<std::size_t>(list.count()));
    for (int index = 0; index < list.count(); ++index) {
        const QListWidgetItem* item = list.item(index);
        rows.push_back({item->text().toLatin1().toStdString(), item->isSelected()});
    }
    return rows;
}

void showRows(QListWidget& list, const ListRows& rows)
{
    for (int index = 0; index < list.count(); ++index) {
        QListWidgetItem* item = list.item(index);
        const QString text = fromInstrument(rows[static_cast<std::size_t>(index)].text);
        if (item->text() != text)
            item->setText(text);
    }
}

void showControls(const ChildWindow& window, const ClipOutcome& outcome)
{
    for (const ClipOutcome::Button& button : outcome.buttons)
        if (auto* control = window.findChild<QAbstractButton*>(QString::fromStdString(button.name)))
            control->setEnabled(button.enabled);
    for (const ClipOutcome::Text& text : outcome.texts)
        if (auto* control = window.findChild<QLineEdit*>(QString::fromStdString(text.name)))
            control->setText(QString::fromStdString(text.text));
}

ChildWindow* windowOf(const WindowBuffer* tag, const ChildWindow& among)
{
    if (!tag || !among.mdiArea())
        return nullptr;
    for (QMdiSubWindow* one : among.mdiArea()->subWindowList())
        if (auto* child = dynamic_cast<ChildWindow*>(one); child && &child->Tag == tag)
            return child;
    return nullptr;
}

/// The style window goes and comes again with its new styles, in its slot and at its place: its entry stays in use.
void openAgain(ChildWindow& styles, const ChildWindow& arrangements)
{
    SessionEntry& entry = App.Styles[static_cast<std::size_t>(styles.Tag.number() - 1)];
    SessionEntry kept = entry;
    const WindowPosition place = styles.positionInTwips();
    kept.left = place.left;
    kept.top = place.top;
    kept.width = place.width;
    kept.height = place.height;
    // Nothing to ask: its styles are those of the arrangement window, which saves them.
    styles.unloadWithoutAsking();
    entry = kept;
    auto* timer = dynamic_cast<StageTimer*>(arrangements.findChild<QTimer*>(QStringLiteral("TimerShowSty")));
    if (timer)
        timer->enable();
}

void show(ChildWindow& window, QListWidget& list, const ListRows& rows, const ClipOutcome& outcome)
{
    if (!outcome.stored)
        return;
    showRows(list, rows);
    showControls(window, outcome);
    window.showCaption();
    window.contentChanged();
    if (ChildWindow* arrangements = windowOf(outcome.alsoChanged, window))
        arrangements->contentChanged();
    if (ChildWindow* styles = windowOf(outcome.openAgain, window))
        openAgain(*styles, window);
}

void run(ChildWindow& window, ClipOutcome (*routine)(WindowBuffer&, ListRows&))
{
    QListWidget* list = listOf(window);
    if (!list)
        return;
    ListRows rows = rowsOf(*list);
    show(window, *list, rows, routine(window.Tag, rows));
    if (App.shell)
        App.shell->MenuSync();
}

} // namespace

void copyRows(ChildWindow& window)
{
    if (const QListWidget* list = listOf(window))
        ClipCopy(window.Tag, rowsOf(*list));
    if (App.shell)
        App.shell->MenuSync();
}

void cutRows(ChildWindow& window) { run(window, &ClipCut); }

void pasteRows(ChildWindow& window) { run(window, &ClipPaste); }
