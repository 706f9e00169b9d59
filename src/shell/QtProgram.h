// The program as a recipe: what both executables do, whatever MIDI service they join it to.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

class MidiService;

/// Makes a second window that stands beside the main window while the program runs.
using CompanionMaker = std::function<std::unique_ptr<QWidget>(const QWidget& mainWindow)>;

/// Runs the program to its end. `makeCompanion` is called once the main window stands; it may be empty.
int runProgram(int argc, char** argv, MidiService& service, const CompanionMaker& makeCompanion);
