// The steps of a user, each waiting for what it needs.
#include "driver/Desk.h"

#include "driver/StepFailed.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace
{

constexpr int Patience = 30000;      ///< milliseconds that a step waits for the program
constexpr int ActivationPause = 500; ///< milliseconds until a request to come forward is repeated

std::string prepared(const std::string& folder)
{
    for (const char* name : {"/home", "/data", "/work", "/run"})
        fs::create_directories(folder + name);
    fs::permissions(folder + "/run", fs::perms::owner_all);
    std::ofstream(folder + "/no-sound.conf") << "# no device is told of here\n";
    return folder;
}

/// Everything beside the executables, without them.
void copyData(const std::string& from, const std::string& to)
{
    for (const auto& entry : fs::directory_iterator(from)) {
        const bool program =
            entry.is_regular_file() && (entry.status().permissions() & fs::perms::owner_exec) != fs::perms::none;
        if (!program)
            fs::copy(entry.path(), to / entry.path().filename(), fs::copy_options::recursive);
    }
}

} // namespace

Desk::Desk(const std::string& folder, const std::string& binFolder, int width, int height)
    : folder_(prepared(folder)),
      binFolder_(fs::absolute(binFolder).string()),
      screen_(width, height, folder + "/home"),
      hands_(screen_.name())
{
    copyData(binFolder_, workFolder());
}

Desk::~Desk()
{
    while (!programs_.empty())
        programs_.pop_back();
}

void Desk::launch(const std::string& executable)
{
    const std::string socket = folder_ + "/probe" + std::to_string(++starts_);
    Process::Setup setup;
    setup.command = {binFolder_ + "/" + executable};
    setup.folder = workFolder();
    setup.output = logFile();
    setup.environment = {{"HOME", folder_ + "/home"},
                         {"XDG_DATA_HOME", folder_ + "/data"},
                         {"XDG_CONFIG_HOME", folder_ + "/home/.config"},
                         {"XDG_CACHE_HOME", folder_ + "/home/.cache"},
                         {"XDG_RUNTIME_DIR", folder_ + "/run"},
                         {"DISPLAY", screen_.name()},
                         {"WAYLAND_DISPLAY", ""},
                         {"QT_QPA_PLATFORM", ""},
                         {"QT_LOGGING_RULES", ""},
                         {"DBUS_SESSION_BUS_ADDRESS", "disabled:"},
                         // A desk without a MIDI device, whatever machine it stands on.
                         {"ALSA_CONFIG_PATH", folder_ + "/no-sound.conf"},
                         {"LANG", "C.UTF-8"},
                         {"LC_ALL", "C.UTF-8"},
                         {"QT_PLUGIN_PATH", TARVOLYNE_PROBE_PLUGINS},
                         {"QT_QPA_GENERIC_PLUGINS", "tvlprobe"},
                         {"TVLPROBE_SOCKET", socket}};
    for (const auto& [name, value] : variables_)
        setup.environment[name] = value;
    programs_.push_back(std::make_unique<Running>());
    Running& program = current();
    program.process.start(setup);
    const bool met = waitUntil([&] { return program.probe.join(socket) || !program.process.running(); }, Patience);
    if (!met || !program.probe.joined())
        fail(executable + " did not start");
    if (!waitUntil([&] { return !windows().empty(); }, Patience))
        fail(executable + " shows no window");
    settle();
}

void Desk::start(const std::string& executable)
{
    programs_.clear();
    launch(executable);
}

void Desk::startAnother(const std::string& executable) { launch(executable); }

bool Desk::backToFirst()
{
    if (!current().process.waitForEnd(Patience))
        return false;
    programs_.pop_back();
    return true;
}

void Desk::killProgram() { current().process.kill(); }

Control Desk::parsed(const std::vector<std::string>& lines) const
{
    Control found;
    if (!lines.empty() && lines[0].rfind("? ", 0) == 0)
        return found;
    for (const std::string& line : lines) {
        const std::size_t equals = line.find('=');
        found.values[line.substr(0, equals)] = line.substr(equals + 1);
    }
    return found;
}

Control Desk::control(const std::string& window, const std::string& name)
{
    return parsed(current().probe.ask({"find", window, name}));
}

Control Desk::action(const std::string& name) { return parsed(current().probe.ask({"action", name})); }

std::vector<std::string> Desk::rows(const std::string& window, const std::string& name)
{
    return current().probe.ask({"rows", window, name});
}

std::vector<std::string> Desk::windows() { return current().probe.ask({"windows"}); }

Control Desk::waitFor(const std::string& window, const std::string& name)
{
    Control found;
    const bool met = waitUntil(
        [&] {
            found = control(window, name);
            return found.there() && found.visible();
        },
        Patience);
    if (!met)
        fail("not on the screen: " + window + " " + name);
    return found;
}

void Desk::waitUntilGone(const std::string& window)
{
    if (!waitUntil([&] { return !control(window).there(); }, Patience))
        fail("still on the screen: " + window);
}

void Desk::waitForText(const std::string& window, const std::string& name, const std::string& text)
{
    if (!waitUntil([&] { return control(window, name).text() == text; }, Patience))
        fail(window + " " + name + " shows '" + control(window, name).text() + "' and not '" + text + "'");
}

void Desk::settle()
{
    try {
        current().probe.ask({"idle"});
    } catch (const StepFailed&) {
        if (!current().process.waitForEnd(2000))
            throw;
    }
}

void Desk::bringForward(const std::string& window)
{
    const Control found = waitFor(window);
    if (found.value("active") == "1")
        return;
    // A window that the window manager has not taken in yet misses the request: it is made again.
    bool active = false;
    for (int spent = 0; !active && spent < Patience; spent += ActivationPause) {
        hands_.bringForward(std::strtoul(found.value("id").c_str(), nullptr, 10));
        active = waitUntil([&] { return control(window).value("active") == "1"; }, ActivationPause);
    }
    if (!active)
        fail("does not come forward: " + window);
    settle();
}

Point Desk::middle(const std::string& window, const std::string& name)
{
    bringForward(window);
    Control found;
    const bool met = waitUntil(
        [&] {
            found = control(window, name);
            return found.there() && found.visible() && found.enabled() && found.value("pressX") != "-1";
        },
        Patience);
    if (!met)
        fail("cannot be pressed: " + window + " " + name);
    return {found.number("pressX"), found.number("pressY")};
}

void Desk::press(const std::string& window, const std::string& name) { hands_.click(middle(window, name)); }

void Desk::click(const std::string& window, const std::string& name)
{
    press(window, name);
    settle();
}

void Desk::rightClick(const std::string& window, const std::string& name)
{
    hands_.click(middle(window, name), 3);
    settle();
}

void Desk::pressRow(const std::string& window, const std::string& name, int row)
{
    const std::vector<std::string> place = current().probe.ask({"row", window, name, std::to_string(row)});
    std::istringstream numbers(place.empty() ? "" : place[0]);
    int x = 0, y = 0, width = 0, height = 0;
    if (!(numbers >> x >> y >> width >> height))
        fail("row " + std::to_string(row) + " of " + window + " " + name + " is not in sight");
    hands_.click({x + (width < 60 ? width / 2 : 30), y + height / 2});
}

void Desk::clickRow(const std::string& window, const std::string& name, int row, const std::string& modifier)
{
    const Point list = middle(window, name);
    for (int tries = 0; tries < 100; ++tries) {
        if (!current().probe.ask({"row", window, name, std::to_string(row)}).empty()) {
            if (!modifier.empty())
                hands_.hold(modifier);
            pressRow(window, name, row);
            if (!modifier.empty())
                hands_.letGo(modifier);
            settle();
            return;
        }
        // Which way: from the first row, whose place tells whether the list stands at its head.
        hands_.wheel(list, tries < 50 ? 1 : -1);
        settle();
    }
    fail("row " + std::to_string(row) + " of " + window + " " + name + " does not come into sight");
}

void Desk::menu(const std::string& name)
{
    const bool met = waitUntil([&] { return action(name).enabled(); }, Patience);
    if (!met)
        fail("menu item " + name + " is not there or cannot be chosen");
    bringForward("frmMain");
    for (int step = 0; step < 8; ++step) {
        const std::vector<std::string> answer = current().probe.ask({"menustep", name});
        std::istringstream words(answer.empty() ? "" : answer[0]);
        std::string what;
        Point place;
        if (!(words >> what >> place.x >> place.y))
            break;
        hands_.click(place);
        settle();
        if (what == "item")
            return;
        // The menu that was opened shows its items before the next step.
        waitUntil([&] { return current().probe.ask({"menustep", name}) != answer; }, 2000);
    }
    fail("no way to the menu item " + name);
}

void Desk::key(const std::string& keys)
{
    hands_.key(keys);
    settle();
}

void Desk::type(const std::string& text)
{
    hands_.type(text);
    settle();
}

void Desk::openFile(const std::string& menuItem, const std::string& path)
{
    menu(menuItem);
    typeFileName(path);
}

void Desk::typeFileName(const std::string& path)
{
    waitFor("QFileDialog", "fileNameEdit");
    // The window manager may hand the keys over later than the dialog thinks.
    waitUntil(
        [&] {
            return control("QFileDialog", "fileNameEdit").value("focus") == "1" &&
                   control("QFileDialog").value("active") == "1";
        },
        2000);
    type(path);
    waitForText("QFileDialog", "fileNameEdit", path);
    // The first Return may go to the list of proposals under the field.
    for (int tries = 0; tries < 3 && control("QFileDialog").there(); ++tries) {
        key("Return");
        waitUntil([&] { return !control("QFileDialog").there(); }, 1000);
    }
    waitUntilGone("QFileDialog");
    settle();
}

void Desk::quit() { menu("mnuExit"); }

void Desk::closeWindow(const std::string& window)
{
    bringForward(window);
    hands_.key("Alt+F4");
}

void Desk::picture(const std::string& file, const std::string& window)
{
    std::vector<std::string> request{"shot", fs::absolute(file).string()};
    if (!window.empty()) {
        const Control place = waitFor(window);
        for (const char* key : {"x", "y", "width", "height"})
            request.push_back(place.value(key));
    }
    settle();
    if (!current().probe.ask(request).empty())
        fail("no picture in " + file);
}

void Desk::fail(const std::string& what)
{
    std::string screen;
    try {
        for (const std::string& line : windows())
            screen += "\n  " + line;
        current().probe.ask({"shot", folder_ + "/failed.png"});
    } catch (const StepFailed&) {
        screen = " nothing: the program is gone, exit code " +
                 std::to_string((current().process.running(), current().process.exitCode()));
    }
    throw StepFailed(what + "\non the screen:" + screen);
}
