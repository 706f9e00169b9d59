// Pictures of every window of Tarvolyne, from the running program on the virtual instrument, at its first start.
//
//   tarvolyne-pictures BIN_FOLDER PICTURE_FOLDER it|en light|dark [PERCENT_OF_FONT]
//
// The toolkit's own variables hold: QT_SCALE_FACTOR for the scale, QT_QPA_PLATFORM=offscreen for a machine without a
// display. The exit code is 0 when every window could be taken.
#include "core/Dichiarazioni.h"
#include "instrument/VirtualInstrument.h"
#include "instrument/VirtualMidiService.h"
#include "instrument/frmInstrument.h"
#include "shell/QtProgram.h"
#include "shell/frmMain.h"
#include "toolkit/QtLooks.h"
#include "toolkit/StageTimer.h"
#include "tools/pictures/Palettes.h"
#include "tools/pictures/Walk.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

namespace fs = std::filesystem;

namespace
{

constexpr int LongestRun = 120000; ///< milliseconds

struct Order {
    std::string bin;
    QString pictures;
    int language = 2;
    bool dark = false;
    int fontPercent = 100;
    fs::path home;
    Album* album = nullptr;
};

Order order;

/// The home of this run: the same path each time, since it is seen in the pictures.
void beginHome()
{
    order.home = fs::temp_directory_path() / "tarvolyne-pictures";
    fs::remove_all(order.home);
    fs::create_directories(order.home / "Music");
    for (const auto& one : fs::directory_iterator(order.bin + "/samples"))
        fs::copy(one.path(), order.home / "Music");
    setenv("XDG_DATA_HOME", (order.home / "data").c_str(), 1);
    fs::current_path(order.bin);
}

void end(int result)
{
    (void)std::fflush(nullptr);
    std::error_code ignored;
    fs::remove_all(order.home, ignored);
    std::_Exit(result);
}

void applyLook()
{
    QApplication::setPalette(Looks::readable(order.dark ? darkPalette() : lightPalette()));
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * order.fontPercent / 100);
    QApplication::setFont(font);
}

void answerFirstQuestion()
{
    if (!QApplication::activeModalWidget()) {
        QTimer::singleShot(1, qApp, &answerFirstQuestion);
        return;
    }
    applyLook();
    chooseLanguage(*order.album, order.language);
}

/// Inside the event loop's first turn: the language window waits for its answer.
void onStart() { QMetaObject::invokeMethod(qApp, &answerFirstQuestion, Qt::QueuedConnection); }

int report(const Album& album)
{
    for (const QString& fault : album.faults())
        std::cerr << fault.toStdString() << "\n";
    std::cout << album.count() << " pictures in " << order.pictures.toStdString() << "\n";
    return album.faults().isEmpty() ? 0 : 1;
}

std::unique_ptr<QWidget> startWalk(VirtualInstrument& instrument, VirtualMidiService& service)
{
    auto window = std::make_unique<frmInstrument>(instrument, service);
    // A box that nobody expected waits for ever.
    QTimer::singleShot(LongestRun, qApp, [] {
        order.album->miss(QStringLiteral("the walk stands still"));
        end(report(*order.album));
    });
    QTimer::singleShot(0, qApp, [&instrument, shown = window.get()] {
        Walk walk{*dynamic_cast<frmMain*>(App.shell), *shown, instrument, *order.album,
                  (order.home / "Music").string()};
        walk.run();
        end(report(*order.album));
    });
    return window;
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(onStart)

int main(int argc, char** argv)
{
    if (argc < 5) {
        std::cerr << "usage: tarvolyne-pictures BIN_FOLDER PICTURE_FOLDER it|en light|dark [PERCENT_OF_FONT]\n";
        return 2;
    }
    order.bin = fs::absolute(argv[1]).string();
    order.pictures = QString::fromLocal8Bit(fs::absolute(argv[2]).c_str());
    order.language = std::string(argv[3]) == "it" ? 1 : 2;
    order.dark = std::string(argv[4]) == "dark";
    order.fontPercent = argc > 5 ? QByteArray(argv[5]).toInt() : 100; // 0 where it is no number
    if (order.fontPercent <= 0)
        return 2;
    Album album(order.pictures);
    order.album = &album;
    beginHome();
    StageTimer::setTimeScale(0.05);
    VirtualInstrument instrument;
    VirtualMidiService service(instrument, [] { return App.StateDir; });
    // The program reads no arguments; the toolkit wants a name.
    int count = 1;
    return runProgram(count, argv, service, [&](const QWidget&) { return startWalk(instrument, service); });
}
