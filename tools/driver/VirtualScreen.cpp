// Xvfb picks a free display itself and tells its number; openbox is there when the root window names a manager.
#include "driver/VirtualScreen.h"

#include "driver/StepFailed.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <poll.h>
#include <unistd.h>

namespace
{

/// The number that the server writes when it is ready to be used.
std::string numberFrom(int descriptor)
{
    std::string digits;
    pollfd ready{descriptor, POLLIN, 0};
    char digit = 0;
    while (poll(&ready, 1, 20000) == 1 && read(descriptor, &digit, 1) == 1 && digit != '\n')
        digits += digit;
    return digits;
}

bool isManaged(const std::string& name)
{
    Display* display = XOpenDisplay(name.c_str());
    if (!display)
        return false;
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* value = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display), XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", False), 0,
                       1, False, XA_WINDOW, &type, &format, &count, &rest, &value);
    if (value)
        XFree(value);
    XCloseDisplay(display);
    return count == 1;
}

} // namespace

VirtualScreen::VirtualScreen(int width, int height, const std::string& home, bool managed)
{
    int ends[2];
    if (pipe(ends) != 0)
        throw StepFailed("no pipe for the display's number");
    const std::string screen = std::to_string(width) + "x" + std::to_string(height) + "x24";
    Process::Setup setup;
    setup.command = {"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", screen, "-nolisten", "tcp", "-dpi",
                     "96",   "-noreset"};
    setup.keptDescriptor = ends[1];
    server_.start(setup);
    close(ends[1]);
    const std::string number = numberFrom(ends[0]);
    close(ends[0]);
    if (number.empty())
        throw StepFailed("Xvfb did not start; is the package xvfb there?");
    name_ = ":" + number;
    if (!managed)
        return;

    Process::Setup manager;
    manager.command = {"openbox", "--sm-disable"};
    manager.environment = {{"DISPLAY", name_}, {"HOME", home}, {"XDG_CONFIG_HOME", ""}, {"XDG_CACHE_HOME", ""}};
    manager_.start(manager);
    if (!waitUntil([this] { return isManaged(name_); }, 20000))
        throw StepFailed("openbox did not start; is the package openbox there?");
}

VirtualScreen::~VirtualScreen() = default;
