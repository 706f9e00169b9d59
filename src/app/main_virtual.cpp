// Tarvolyne with the built-in virtual instrument, for whoever has no instrument at hand.
#include "core/Dichiarazioni.h"
#include "instrument/VirtualInstrument.h"
#include "instrument/VirtualMidiService.h"
#include "instrument/frmInstrument.h"
#include "shell/QtProgram.h"

#include <QScreen>

namespace
{

/// The instrument's window at the right edge of the screen, where it covers the least of the main window.
std::unique_ptr<QWidget> showInstrument(VirtualInstrument& instrument, VirtualMidiService& service,
                                        const QWidget& mainWindow)
{
    auto window = std::make_unique<frmInstrument>(instrument, service);
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    window->adjustSize();
    const QRect screen = mainWindow.screen()->availableGeometry();
    window->move(screen.right() + 1 - window->width(), screen.top() + 2 * mainWindow.fontMetrics().height());
    window->show();
    return window;
}

} // namespace

int main(int argc, char** argv)
{
    VirtualInstrument instrument;
    VirtualMidiService service(instrument, [] { return App.StateDir; });
    return runProgram(argc, argv, service,
                      [&](const QWidget& mainWindow) { return showInstrument(instrument, service, mainWindow); },
                      {"Tarvolyne-virtual", "io.github.tarvolyne.virtual"});
}
