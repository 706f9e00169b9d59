// What a monkey and its kin run in: the toolkit without a screen and in virtual time.
#pragma once

#include "monkey/VirtualLoop.h"

#include <QApplication>

/// Calls `run` with the application on the loop. A screen is used where the environment names one.
template <typename Run>
int runTimeless(VirtualLoop& loop, int argc, char** argv, const Run& run)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setEventDispatcher(&loop); // the application's from its making on
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tarvolyne"));
    run();
    return 0;
}
