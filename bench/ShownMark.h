// Ends the process at the moment its main window is on the screen: the first time the window has painted itself. What
// is measured is the start alone, without the way out. With TARVOLYNE_BENCH_STAYS in the environment the process stays,
// for who measures from outside what it takes.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <unistd.h>

/// Watches the application for the first painting of the window of this object name.
class ShownMark final : public QObject
{
public:
    explicit ShownMark(QString window) : window_(std::move(window))
    {
        if (!qEnvironmentVariableIsSet("TARVOLYNE_BENCH_STAYS"))
            qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // The window's children paint in the same pass; the tick comes behind it.
        if (event->type() == QEvent::Paint && watched->objectName() == window_)
            QTimer::singleShot(0, [] { _exit(0); });
        return false;
    }

private:
    QString window_;
};
