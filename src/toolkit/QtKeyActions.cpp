// An action of its own for each key, so that its name tells what it is for.
#include "toolkit/QtKeyActions.h"

#include <QAction>
#include <QWidget>

QAction* addKeyAction(QWidget* window, const char* name, const QKeySequence& key, std::function<void()> handler)
{
    auto* action = new QAction(window);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(action, &QAction::triggered, window, [handler = std::move(handler)] { handler(); });
    window->addAction(action);
    return action;
}
