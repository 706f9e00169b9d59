// Lets the windows paint once for several events: most of the time goes into pixels that nobody looks at.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <vector>

class PaintTogether final : public QObject
{
public:
    PaintTogether() { qApp->installEventFilter(this); }

    /// Paints what has waited.
    void paintNow()
    {
        const std::vector<QPointer<QWidget>> waiting = std::move(waiting_);
        waiting_.clear();
        open_ = true;
        for (const QPointer<QWidget>& window : waiting)
            if (window) {
                QEvent request(QEvent::UpdateRequest);
                QCoreApplication::sendEvent(window, &request);
            }
        open_ = false;
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* window = open_ || event->type() != QEvent::UpdateRequest ? nullptr : qobject_cast<QWidget*>(object);
        if (!window)
            return false;
        waiting_.emplace_back(window);
        return true;
    }

private:
    bool open_ = false;
    std::vector<QPointer<QWidget>> waiting_;
};
