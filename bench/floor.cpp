// The floor of a start: a bare Qt program of our shape, with nothing in it. A main window with a multiple-document
// area, ten menus of eight items, a status bar, and one child with a list of 64 rows and 20 buttons.
#include "bench/BareChild.h"
#include "bench/ShownMark.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.setObjectName(QStringLiteral("floor"));
    auto* area = new QMdiArea;
    window.setCentralWidget(area);
    for (int menuNumber = 0; menuNumber < 10; ++menuNumber) {
        QMenu* menu = window.menuBar()->addMenu(QStringLiteral("Menu %1").arg(menuNumber));
        for (int item = 0; item < 8; ++item)
            menu->addAction(QStringLiteral("Item %1").arg(item));
    }
    window.statusBar()->showMessage(QStringLiteral("ready"));
    area->addSubWindow(bareChildContent())->show();
    // As large as ours at its first start: the picture of a window is part of what a program takes.
    const ShownMark mark(QStringLiteral("floor"));
    window.showMaximized();
    return QApplication::exec();
}
