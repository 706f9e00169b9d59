// The parts put together and started.
#include "shell/QtProgram.h"

#include "core/Dichiarazioni.h"
#include "core/InstanceLock.h"
#include "core/StateFolder.h"
#include "midi/MIDI.h"
#include "midi/MidiService.h"
#include "shell/QtProgramIcon.h"
#include "shell/StatusPanelWidget.h"
#include "shell/SubMain.h"
#include "shell/frmAvviso2.h"
#include "shell/frmLingua.h"
#include "shell/frmMain.h"
#include "toolkit/QtLooks.h"
#include "toolkit/QtToolkitWords.h"
#include "toolkit/QtUserInterface.h"

#include <QApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QTranslator>
#include <cstdlib>
#include <new>
#include <unistd.h>

namespace
{

/// The per-user folder of the state files, made if it is missing, for this user alone.
std::string stateFolder()
{
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/tarvolyne");
    std::string path = QFile::encodeName(folder).toStdString();
    makeStateFolder(path);
    return path;
}

/// The toolkit's own words in the language of the run: the program's, and for rare ones those of the toolkit where they
/// are installed.
void translateToolkit(QTranslator& installed, ToolkitWords& own)
{
    const bool italian = App.Language == 1;
    QLocale::setDefault(QLocale(italian ? QLocale::Italian : QLocale::English));
    if (!italian)
        return;
    if (installed.load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&installed);
    QApplication::installTranslator(&own); // the last one is asked first
}

void useWindows(QtUserInterface& user, const std::unique_ptr<frmMain>& mainWindow)
{
    user.setWindows({&frmLingua::choose, [&mainWindow](const QString& caption, const QString& text) {
                         frmAvviso2 notice(mainWindow.get(), caption, text);
                         notice.exec();
                     }});
}

} // namespace

void endAtOnceWithoutMemory()
{
    std::set_new_handler([] {
        constexpr char Words[] = "Tarvolyne: no memory left\n";
        if (write(STDERR_FILENO, Words, sizeof Words - 1) < 0) {
            // Nobody reads it.
        }
        std::abort();
    });
}

int runProgram(int argc, char** argv, MidiService& service, const CompanionMaker& makeCompanion,
               const DesktopIdentity& identity)
{
    endAtOnceWithoutMemory();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QString::fromLatin1(identity.windowClass));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(identity.entry));
    return runInApplication(service, makeCompanion);
}

int runInApplication(MidiService& service, const CompanionMaker& makeCompanion)
{
    QApplication::setWindowIcon(programIcon());
    Looks::useReadableStyle();
    // The end of the main window ends the program, whatever other window stands.
    QApplication::setQuitOnLastWindowClosed(false);

    QTranslator installed;
    ToolkitWords toolkitWords;
    QtUserInterface user;
    std::unique_ptr<frmMain> mainWindow;
    useWindows(user, mainWindow);
    App.ui = &user;
    App.StateDir = stateFolder();
    InstanceLock lock;
    App.AnotherRuns = lock.acquire(App.StateDir);
    Midi.service = &service;
    service.progress = [&user](int gone, int total) { user.showSendProgress(gone, total); };

    SubMainSteps steps;
    steps.languageKnown = [&] { translateToolkit(installed, toolkitWords); };
    steps.showMain = [&] {
        mainWindow = std::make_unique<frmMain>();
        user.setMainWindow(mainWindow.get(), mainWindow->statusPanel());
        mainWindow->onGone = [] { QApplication::quit(); };
        mainWindow->Form_Load();
        mainWindow->showAsSaved();
    };
    int result = 0;
    if (SubMain(steps)) {
        std::unique_ptr<QWidget> companion;
        if (makeCompanion)
            companion = makeCompanion(*mainWindow);
        result = QApplication::exec();
    }
    user.setMainWindow(nullptr, nullptr);
    mainWindow.reset();
    App.ui = nullptr;
    Midi.service = nullptr;
    return result;
}
