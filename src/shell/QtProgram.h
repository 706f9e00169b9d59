// The program as a recipe: what both executables do, whatever MIDI service they join it to.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

class MidiService;

/// Makes a second window that stands beside the main window while the program runs.
using CompanionMaker = std::function<std::unique_ptr<QWidget>(const QWidget& mainWindow)>;

/// What the desktop knows an executable by.
struct DesktopIdentity {
    const char* windowClass = "Tarvolyne"; ///< class of its windows on X11: StartupWMClass of its desktop entry
    const char* entry = "io.github.tarvolyne.tarvolyne"; ///< name of its desktop entry: its app id on Wayland
};

/// From here on a process that is given no memory ends at once (SIGABRT), with a word on standard error: no handler
/// runs on windows that are half made. What was saved is whole at any time.
void endAtOnceWithoutMemory();

/// Runs the program to its end. `makeCompanion` is called once the main window stands; it may be empty.
int runProgram(int argc, char** argv, MidiService& service, const CompanionMaker& makeCompanion,
               const DesktopIdentity& identity = {});

/// The same where the application object stands already; it may be called again when it has returned.
int runInApplication(MidiService& service, const CompanionMaker& makeCompanion);
