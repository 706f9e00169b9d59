// The start of the program inside a test, the hands of its user, and the faults.
#include "faults/windows/GuiDesk.h"

#include "core/Dichiarazioni.h"
#include "instrument/VirtualMidiService.h"
#include "midi/MIDI.h"
#include "shell/SubMain.h"
#include "shell/frmMain.h"
#include "support/SettingsImage.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/QtUserInterface.h"
#include "toolkit/StageTimer.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <filesystem>
#include <memory>
#include <unistd.h>

namespace
{

/// The program as it runs: its parts, as the program's own main puts them together.
struct Running {
    VirtualInstrument instrument;
    VirtualMidiService service{instrument, [] { return std::string(); }};
    QtUserInterface user;
    std::unique_ptr<frmMain> window;

    explicit Running(const Site& site)
    {
        App = {};
        Midi = {};
        App.ui = &user;
        App.StateDir = site.state();
        Midi.service = &service;
        StageTimer::setTimeScale(0.05);
        if (chdir(TARVOLYNE_BIN_DIR) != 0) // the templates of new files
            std::abort();
        SubMainSteps steps;
        steps.showMain = [this] {
            window = std::make_unique<frmMain>();
            // The toolkit paints with threads, which a copy of the process would wait for in vain.
            window->setUpdatesEnabled(false);
            user.setMainWindow(window.get(), nullptr);
            window->Form_Load();
            window->showAsSaved();
        };
        if (!SubMain(steps))
            std::abort();
        QTest::qWait(30);
    }
};

Running* program = nullptr;

/// Answers whatever dialog or box stands: Yes, or OK as often as it is told to, then Escape.
class Hands
{
public:
    Hands(FaultUser& user, std::string typed) : user_(user), typed_(std::move(typed))
    {
        QObject::connect(&look_, &QTimer::timeout, &look_, [this] { answer(); });
        look_.start(1);
    }

private:
    /// Each once. The press comes from the event loop, so that what it brings up is answered too.
    void answer()
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || modal->property("answered").toBool())
            return;
        modal->setProperty("answered", true);
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            if (auto* yes = box->findChild<QPushButton*>(QStringLiteral("CommYes")))
                press(yes);
            else if (user_.warn(box->windowTitle().toStdString(), box->text().toStdString()) == BoxEnd::Ok)
                press(box->findChild<QPushButton*>(QStringLiteral("CommOK")));
            else
                QTimer::singleShot(0, box, [box] { QTest::keyClick(box, Qt::Key_Escape); });
        } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
            // Until the folder has been read the dialog may still put the name back that it offers.
            constexpr int FolderIsRead = 60; // milliseconds
            QTimer::singleShot(FolderIsRead, dialog, [this, dialog] {
                auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                name->setText(QFile::decodeName(typed_.c_str()));
                dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
            });
        }
    }
    static void press(QPushButton* button) { QTimer::singleShot(0, button, &QPushButton::click); }

    FaultUser& user_;
    std::string typed_;
    QTimer look_;
};

std::vector<std::string> tags()
{
    std::vector<std::string> all;
    for (const ChildWindow* child : program->window->findChildren<ChildWindow*>())
        all.push_back(child->Tag.bytes());
    return all;
}

std::vector<std::string> tagsBefore;

} // namespace

void runInProgram(const Site& site, const std::function<void(frmMain&)>& act)
{
    std::ofstream(site.state() + "/Tarvolyne.ini", std::ios::binary) << SettingsImage::fresh(2);
    Running running(site);
    FaultUser user;
    running.window->setUpdatesEnabled(true);
    const Hands hands(user, {});
    act(*running.window);
}

/// One fault on a fresh disk. What it broke, or "".
std::string GuiDesk::tryOne(const WritePath& path, const Failure& failure, bool again, bool& reached)
{
    const bool pair = failure.secondCall != 0;
    const bool dies = failure.error == Failure::Death || failure.secondError == Failure::Death;
    desk_.putDisk(path);
    const FailedRun run = desk_.goOn(path, failure, pair ? 1 : 0);
    reached = run.reached;
    if (!reached)
        return {};
    const bool killed = run.result == -1;
    if (killed && !dies)
        return "the program crashed";
    const Fate fate = failure.error == Failure::Death ? Fate::Killed
                      : pair || failure.fromThereOn   ? Fate::Hindered
                                                      : Fate::Failed;
    if (std::string broken = desk_.disk(path, fate); !broken.empty())
        return broken;
    if (!killed)
        if (std::string broken =
                pair ? desk_.told(path, {failure.error, failure.secondError}) : desk_.told(path, failure.error);
            !broken.empty())
            return broken;
    if (!again)
        return {};
    return desk_.goOn(path, {.call = 0}).result == 0 ? desk_.notSaved(path) : "the next act fails";
}

int GuiDesk::sweepInside(const GuiWay& way, const std::vector<Failure>& faults, int step, bool again, GuiReport& report)
{
    const auto say = [&](const std::string& text) {
        std::snprintf(report.broken.data(), report.broken.size(), "%s", text.c_str());
        return 1;
    };
    desk_.putDisk(way.path);
    std::ofstream(desk_.site().state() + "/Tarvolyne.ini", std::ios::binary) << SettingsImage::fresh(2);
    for (const WrittenFile& file : way.path.files) // what the window reads
        if (file.place == Place::User && file.after)
            std::ofstream(file.path(desk_.site()), std::ios::binary) << *file.after;
    Running running(desk_.site());
    program = &running;
    way.open(*running.window, desk_.site());
    QTest::qWait(30);
    tagsBefore = tags();
    desk_.putDisk(way.path);
    const FailedRun whole = desk_.goOn(way.path, {.call = 0});
    report.calls = whole.calls;
    if (whole.result != 0)
        return say("the undisturbed act fails: " + std::string(desk_.outcome().words[0].data()));
    if (const std::string broken = desk_.disk(way.path, Fate::Undisturbed) + desk_.notSaved(way.path); !broken.empty())
        return say("undisturbed: " + broken);
    for (const Failure& fault : faults) {
        bool reached = true;
        for (int call = 1; reached; call += step) {
            Failure failure = fault;
            failure.call = call;
            if (fault.secondCall != 0)
                failure.secondCall = call + fault.secondCall;
            const std::string broken = tryOne(way.path, failure, again, reached);
            if (!broken.empty())
                return say(broken + ", error " + std::to_string(fault.error) + " at call " + std::to_string(call));
            report.faults += reached;
        }
    }
    return 0;
}

GuiReport GuiDesk::sweep(const GuiWay& way, const std::vector<Failure>& faults, int step, bool again)
{
    void* shared = mmap(nullptr, sizeof(GuiReport), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto* report = new (shared) GuiReport;
    GuiWay acting = way;
    acting.path.ready = [](const Site&, FaultUser&) {};
    acting.path.act = [&](const Site& site, FaultUser& user) {
        alarm(60); // where no answer goes on
        Hands hands(user, site.user() + "/" + way.typed);
        if (QAction* item = program->window->menuItem(way.item.c_str()))
            item->trigger();
        QTest::qWait(1);
        return user.warnings.empty() ? 0 : 1;
    };
    // At an exit what was saved before the failure is saved.
    acting.path.untouched = [exits = way.group == "exit"] { return exits || tags() == tagsBefore; };
    desk_.watchChangesOnly();
    const int result = asOrdinaryUser([&] { return sweepInside(acting, faults, step, again, *report); });
    if (result != 0 && report->broken[0] == '\0')
        std::snprintf(report->broken.data(), report->broken.size(), "the program crashed before the act");
    const GuiReport copy = *report;
    munmap(shared, sizeof(GuiReport));
    return copy;
}
