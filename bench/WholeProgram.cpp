// Runs measurements inside the program as its users start it.
#include "bench/WholeProgram.h"

#include "core/Dichiarazioni.h"
#include "core/Settings.h"
#include "core/StateFiles.h"
#include "shell/QtProgram.h"

#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

void beginHome(const std::string& dataFolder, bool loadsBySelf)
{
    Settings settings;
    SettingsFile::setDefaults(settings);
    ByteBuffer image = SettingsFile::firstImage(settings);
    settings.Language = 2;
    settings.AutoArr = loadsBySelf;
    settings.AutoSty = loadsBySelf;
    image = SettingsFile::encode(settings, image);
    std::filesystem::create_directories(dataFolder + "/tarvolyne");
    std::ofstream(dataFolder + "/tarvolyne/Tarvolyne.ini", std::ios::binary) << image;
    App.StateDir = dataFolder + "/tarvolyne";
    InfoFileCheck();
    DeviceRecordCreate();
    setenv("XDG_DATA_HOME", dataFolder.c_str(), 1);
    std::filesystem::current_path(TARVOLYNE_BIN_DIR);
}

void beginOffscreenHome(bool loadsBySelf)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    std::string folder = "/tmp/tarvolyne-bench-XXXXXX";
    if (!mkdtemp(folder.data())) {
        std::perror("/tmp");
        std::exit(1);
    }
    beginHome(folder, loadsBySelf);
}

void paintAll()
{
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

int runInside(SilentService& service, const std::function<int()>& measure)
{
    // The program reads no arguments; the toolkit wants a name.
    char name[] = "tarvolyne";
    char* arguments[] = {name, nullptr};
    return runProgram(1, arguments, service, [&measure](const QWidget&) {
        QTimer::singleShot(0, [&measure] {
            const int result = measure();
            std::fflush(nullptr);
            std::filesystem::remove_all(std::getenv("XDG_DATA_HOME"));
            std::_Exit(result);
        });
        return std::unique_ptr<QWidget>();
    });
}

std::string samples() { return std::string(TARVOLYNE_BIN_DIR) + "/samples"; }
