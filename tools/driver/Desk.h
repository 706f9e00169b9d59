// A user at a desk: a screen, two hands, a home folder, and Tarvolyne running on it.
//
// Everything goes the user's way: the mouse and the keyboard are the X server's, the program is the built executable.
// What a step needs to see (where a control stands, what it shows) the probe tells. A step that cannot be done throws
// StepFailed with what is on the screen.
#pragma once

#include "driver/Hands.h"
#include "driver/Probe.h"
#include "driver/Process.h"
#include "driver/VirtualScreen.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// A control or window as it stands on the screen.
struct Control {
    std::map<std::string, std::string> values;

    bool there() const { return !values.empty(); }
    std::string text() const { return value("text"); }
    std::string title() const { return value("title"); }
    bool visible() const { return value("visible") == "1"; }
    bool enabled() const { return value("enabled") == "1"; }
    bool checked() const { return value("checked") == "1"; }
    int number(const std::string& key) const { return std::atoi(value(key).c_str()); }
    std::string value(const std::string& key) const
    {
        const auto found = values.find(key);
        return found == values.end() ? std::string() : found->second;
    }
};

class Desk
{
public:
    /// A desk with an empty home below `folder` and the data files of `binFolder`, copied so that a user may change
    /// them: workFolder() holds the templates and samples/.
    Desk(const std::string& folder, const std::string& binFolder, int width = 1280, int height = 1024);
    ~Desk();

    /// A variable of the environment of later starts; an empty value unsets it.
    void setVariable(const std::string& name, const std::string& value) { variables_[name] = value; }
    /// Starts an executable of the bin folder and waits until a window shows.
    void start(const std::string& executable);
    /// A second start beside the first one, with hands and eyes of its own: the probe looks at this one until it ends.
    void startAnother(const std::string& executable);
    /// Back to the first program after the second has ended. False when it did not end in time.
    bool backToFirst();

    bool waitForEnd(int milliseconds = 20000) { return current().process.waitForEnd(milliseconds); }
    int exitCode() { return current().process.exitCode(); }
    void killProgram();
    pid_t processId() { return current().process.id(); }

    std::string workFolder() const { return folder_ + "/work"; }
    std::string stateFolder() const { return folder_ + "/data/tarvolyne"; }
    std::string logFile() const { return folder_ + "/program.log"; }

    /// What is on the screen. An absent control has there() false.
    Control control(const std::string& window, const std::string& name = {});
    Control action(const std::string& name);
    std::vector<std::string> rows(const std::string& window, const std::string& name);
    /// One line for each window: name, class, title, place.
    std::vector<std::string> windows();
    /// The same, each waited for up to 30 seconds.
    Control waitFor(const std::string& window, const std::string& name = {});
    void waitUntilGone(const std::string& window);
    /// Waits until a control shows a text.
    void waitForText(const std::string& window, const std::string& name, const std::string& text);
    /// Until all that was posted inside the program is done, or the program has ended.
    void settle();

    /// What the user does. A window that lies below another is brought forward first.
    void bringForward(const std::string& window);
    void click(const std::string& window, const std::string& name);
    void rightClick(const std::string& window, const std::string& name);
    /// Presses a row of a list, turning the wheel until it is in sight; with "Shift" or "Ctrl" held down.
    void clickRow(const std::string& window, const std::string& name, int row, const std::string& modifier = {});
    /// The same for what is in sight, without waiting for what comes of it.
    void press(const std::string& window, const std::string& name);
    void pressRow(const std::string& window, const std::string& name, int row);
    /// Opens menus until the item can be clicked, and clicks it.
    void menu(const std::string& name);
    void key(const std::string& keys);
    void type(const std::string& text);
    void drag(Point from, Point to) { hands_.drag(from, to); }
    /// Opens a file through the dialog that a menu item shows.
    void openFile(const std::string& menuItem, const std::string& path);
    /// The second half of it, with the dialog on the screen.
    void typeFileName(const std::string& path);
    /// Ends the program as a user does: by its Exit item.
    void quit();
    /// Closes a top-level window through the window manager, by Alt+F4.
    void closeWindow(const std::string& window);

    /// A picture of the screen, or of a window, into a PNG file.
    void picture(const std::string& file, const std::string& window = {});

private:
    struct Running {
        Process process;
        Probe probe;
    };
    Running& current() { return *programs_.back(); }
    void launch(const std::string& executable);
    Control parsed(const std::vector<std::string>& lines) const;
    [[noreturn]] void fail(const std::string& what);
    Point middle(const std::string& window, const std::string& name);

    std::string folder_;
    std::string binFolder_;
    std::map<std::string, std::string> variables_;
    VirtualScreen screen_;
    Hands hands_;
    std::vector<std::unique_ptr<Running>> programs_;
    int starts_ = 0;
};
