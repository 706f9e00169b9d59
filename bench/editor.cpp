// The live editor: from the press of Edit to the painted window, and a whole sweep of a volume fader, 128 values by key
// events to 128 messages handed to the service. Beside the opening a bare window with as many controls of each sort.
#include "bench/WholeProgram.h"
#include "core/Dichiarazioni.h"
#include "core/Shell.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <benchmark/benchmark.h>
#include <cstdlib>

namespace
{

constexpr int ArrKind = 1;
constexpr int FaderValues = 128;

SilentService service;

QMdiArea* area()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = window->findChild<QMdiArea*>())
            return found;
    std::abort();
}

QWidget* control(const char* name)
{
    auto* found = area()->findChild<QWidget*>(QLatin1String(name));
    if (!found)
        std::abort();
    return found;
}

void pressEdit()
{
    static_cast<QPushButton*>(control("CommEdit"))->click();
    paintAll();
}

void clickFirstRow()
{
    auto* list = static_cast<QListWidget*>(control("List1"));
    const QPointF place = list->visualItemRect(list->item(0)).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, list->viewport()->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(list->viewport(), &event);
    }
    paintAll();
}

void closeWindow(const char* name)
{
    static_cast<QMdiSubWindow*>(control(name))->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    paintAll();
}

void openEditor(benchmark::State& state)
{
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        clickFirstRow();
        state.ResumeTiming();
        pressEdit();
        state.PauseTiming();
        closeWindow("frmEditArr");
        state.ResumeTiming();
    }
}

/// The editor's stock of controls, each of its sort, with the rows of its lists.
QWidget* bareControls()
{
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    int place = 0;
    const auto add = [&](QWidget* made) {
        grid->addWidget(made, place / 12, place % 12);
        ++place;
    };
    const QStringList rows = {"PRG", " 9", " 8", " 7", " 6", " 5", " 4", " 3", " 2", " 1", " 0"};
    for (int i = 0; i < 66; ++i) {
        auto* list = new QComboBox;
        list->setEditable(true);
        list->addItems(rows);
        add(list);
    }
    for (int i = 0; i < 20; ++i)
        add(new QLineEdit(QStringLiteral("A program")));
    for (int i = 0; i < 21; ++i)
        add(new QSlider(Qt::Vertical));
    for (int i = 0; i < 20; ++i)
        add(new QPushButton(QStringLiteral("M")));
    for (int i = 0; i < 10; ++i)
        add(new QCheckBox(QStringLiteral("Tempo Lock")));
    for (int i = 0; i < 110; ++i)
        add(new QLabel(QStringLiteral("Octave")));
    return content;
}

void floorBareControls(benchmark::State& state)
{
    for ([[maybe_unused]] auto turn : state) {
        QMdiSubWindow* window = area()->addSubWindow(bareControls());
        window->setObjectName(QStringLiteral("bare"));
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->show();
        paintAll();
        state.PauseTiming();
        closeWindow("bare");
        state.ResumeTiming();
    }
}

void sendKey(QWidget* receiver, int key)
{
    QKeyEvent press(QEvent::KeyPress, key, {});
    QApplication::sendEvent(receiver, &press);
}

void sweepFader(benchmark::State& state)
{
    // The body runs several times; an editor with changes would ask at another click.
    if (!area()->findChild<QWidget*>(QStringLiteral("frmEditArr"))) {
        clickFirstRow();
        pressEdit();
    }
    auto* volume = static_cast<QSlider*>(control("VScroll1(1)"));
    sendKey(volume, Qt::Key_End);
    for ([[maybe_unused]] auto turn : state) {
        const int before = service.longMessages;
        sendKey(volume, Qt::Key_Home);
        for (int value = 1; value < FaderValues; ++value)
            sendKey(volume, Qt::Key_Up);
        if (service.longMessages - before != FaderValues)
            state.SkipWithError("not one message a value");
    }
    state.SetItemsProcessed(state.iterations() * FaderValues);
}

} // namespace

BENCHMARK(openEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(floorBareControls)->Unit(benchmark::kMillisecond);
BENCHMARK(sweepFader)->Unit(benchmark::kMicrosecond); // the last: it leaves the editor open and changed

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    beginOffscreenHome();
    return runInside(service, [] {
        App.shell->openPath(samples() + "/song.arr", ArrKind, false);
        paintAll();
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    });
}
