// Opening an arrangement file: from the path to a window with its companions read, its 64 rows filled and painted,
// inside the running program. Beside it a bare child window of the same shape, with no file behind it.
#include "bench/BareChild.h"
#include "bench/WholeProgram.h"
#include "core/Dichiarazioni.h"
#include "core/Shell.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <benchmark/benchmark.h>
#include <cstdlib>

namespace
{

constexpr int ArrKind = 1;

QMdiArea* area()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = window->findChild<QMdiArea*>())
            return found;
    std::abort();
}

/// Closes the child and lets it go, outside of the measured time.
void closeChild(benchmark::State& state, const char* list)
{
    state.PauseTiming();
    auto* child = area()->activeSubWindow();
    const auto* rows = child ? child->findChild<QListWidget*>(QLatin1String(list)) : nullptr;
    if (!rows || rows->count() != 64)
        state.SkipWithError("no window with 64 rows");
    else
        child->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    paintAll();
    state.ResumeTiming();
}

void openArrangementFile(benchmark::State& state)
{
    const std::string path = samples() + "/song.arr";
    for ([[maybe_unused]] auto turn : state) {
        App.shell->openPath(path, ArrKind, false);
        paintAll();
        closeChild(state, "List1");
    }
}

void floorBareChild(benchmark::State& state)
{
    for ([[maybe_unused]] auto turn : state) {
        auto* content = bareChildContent();
        content->findChild<QListWidget*>()->setObjectName(QStringLiteral("bare"));
        QMdiSubWindow* child = area()->addSubWindow(content);
        child->setAttribute(Qt::WA_DeleteOnClose);
        child->show();
        paintAll();
        closeChild(state, "bare");
    }
}

} // namespace

BENCHMARK(openArrangementFile)->Unit(benchmark::kMillisecond);
BENCHMARK(floorBareChild)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    beginOffscreenHome();
    SilentService service;
    return runInside(service, [] {
        paintAll();
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    });
}
