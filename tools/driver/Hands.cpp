// Mouse and keyboard by the X server's own test extension: nothing tells such an event from a hand's.
#include "driver/Hands.h"

#include "driver/StepFailed.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace
{

Display* on(void* display) { return static_cast<Display*>(display); }

void pause(int milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

/// A printable ASCII character is its own key symbol.
KeySym symbolOf(const std::string& name)
{
    if (name.size() == 1)
        return static_cast<KeySym>(static_cast<unsigned char>(name[0]));
    if (name == "Ctrl")
        return XK_Control_L;
    if (name == "Shift")
        return XK_Shift_L;
    if (name == "Alt")
        return XK_Alt_L;
    const KeySym symbol = XStringToKeysym(name.c_str());
    if (symbol == NoSymbol)
        throw StepFailed("no key is called " + name);
    return symbol;
}

} // namespace

Hands::Hands(const std::string& display) : display_(XOpenDisplay(display.c_str()))
{
    if (!display_)
        throw StepFailed("no display " + display);
}

Hands::~Hands() { XCloseDisplay(on(display_)); }

void Hands::moveTo(Point place)
{
    XTestFakeMotionEvent(on(display_), -1, place.x, place.y, CurrentTime);
    XSync(on(display_), False);
}

void Hands::button(int number, bool down)
{
    XTestFakeButtonEvent(on(display_), static_cast<unsigned>(number), down ? True : False, CurrentTime);
    XSync(on(display_), False);
}

void Hands::click(Point place, int number)
{
    moveTo(place);
    pause(20);
    button(number, true);
    pause(20);
    button(number, false);
}

void Hands::doubleClick(Point place)
{
    click(place);
    pause(30);
    click(place);
}

void Hands::drag(Point from, Point to)
{
    moveTo(from);
    pause(50);
    button(1, true);
    for (int step = 1; step <= 10; ++step) {
        pause(15);
        moveTo({from.x + (to.x - from.x) * step / 10, from.y + (to.y - from.y) * step / 10});
    }
    pause(50);
    button(1, false);
}

void Hands::wheel(Point place, int steps)
{
    moveTo(place);
    const int number = steps > 0 ? 5 : 4;
    for (int step = 0; step < (steps > 0 ? steps : -steps); ++step) {
        button(number, true);
        button(number, false);
        pause(10);
    }
}

void Hands::keysym(unsigned long symbol, bool down)
{
    XTestFakeKeyEvent(on(display_), XKeysymToKeycode(on(display_), symbol), down ? True : False, CurrentTime);
    XSync(on(display_), False);
    pause(5);
}

void Hands::key(const std::string& keys)
{
    const std::size_t plus = keys.find('+');
    if (plus != std::string::npos && plus + 1 < keys.size()) {
        const KeySym modifier = symbolOf(keys.substr(0, plus));
        keysym(modifier, true);
        key(keys.substr(plus + 1));
        keysym(modifier, false);
        return;
    }
    KeySym symbol = symbolOf(keys);
    if (keys.size() == 1 && keys[0] >= 'A' && keys[0] <= 'Z')
        symbol += 'a' - 'A';
    keysym(symbol, true);
    keysym(symbol, false);
}

void Hands::hold(const std::string& modifier) { keysym(symbolOf(modifier), true); }

void Hands::letGo(const std::string& modifier) { keysym(symbolOf(modifier), false); }

void Hands::bringForward(unsigned long windowId)
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = windowId;
    event.xclient.message_type = XInternAtom(on(display_), "_NET_ACTIVE_WINDOW", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = 2; // a pager asks
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(on(display_), DefaultRootWindow(on(display_)), False, SubstructureRedirectMask | SubstructureNotifyMask,
               &event);
    XSync(on(display_), False);
}

void Hands::type(const std::string& text)
{
    for (const char character : text) {
        const KeySym symbol = static_cast<KeySym>(static_cast<unsigned char>(character));
        const KeyCode code = XKeysymToKeycode(on(display_), symbol);
        const bool shifted = XkbKeycodeToKeysym(on(display_), code, 0, 0) != symbol;
        if (shifted)
            keysym(XK_Shift_L, true);
        keysym(symbol, true);
        keysym(symbol, false);
        if (shifted)
            keysym(XK_Shift_L, false);
    }
}
