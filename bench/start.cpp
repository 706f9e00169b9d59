// The program from the start of the process to its shown main window: the executables' recipe, in a home where the
// language is chosen and no window was open.
//
//   XDG_DATA_HOME=FOLDER bench_start begin     writes that home
//   XDG_DATA_HOME=FOLDER bench_start           starts, and ends when the main window has painted itself
#include "bench/ShownMark.h"
#include "bench/WholeProgram.h"
#include "shell/QtProgram.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    const char* folder = std::getenv("XDG_DATA_HOME");
    if (!folder) {
        std::fprintf(stderr, "usage: XDG_DATA_HOME=FOLDER bench_start [begin]\n");
        return 2;
    }
    if (argc > 1) {
        beginHome(folder);
        return 0;
    }
    SilentService service;
    std::unique_ptr<ShownMark> mark;
    return runProgram(argc, argv, service, [&mark](const QWidget&) {
        mark = std::make_unique<ShownMark>(QStringLiteral("frmMain"));
        return std::unique_ptr<QWidget>();
    });
}
