// The user's hands: mouse and keyboard of a display. What they do arrives at the program as real events.
#pragma once

#include <string>

struct Point {
    int x = 0;
    int y = 0;
};

class Hands
{
public:
    explicit Hands(const std::string& display);
    ~Hands();
    Hands(const Hands&) = delete;
    Hands& operator=(const Hands&) = delete;

    void moveTo(Point place);
    void click(Point place, int button = 1);
    void doubleClick(Point place);
    void drag(Point from, Point to);
    /// Turns the wheel over a place: steps above 0 scroll down.
    void wheel(Point place, int steps);
    /// A key with its modifiers: "Ctrl+O", "Return", "Alt+F4".
    void key(const std::string& keys);
    /// Asks the window manager for a window, as a task bar does.
    void bringForward(unsigned long windowId);
    /// A modifier that stays down while the mouse works: "Shift", "Ctrl".
    void hold(const std::string& modifier);
    void letGo(const std::string& modifier);
    /// Types a text of ASCII characters.
    void type(const std::string& text);

private:
    void button(int number, bool down);
    void keysym(unsigned long symbol, bool down);

    void* display_;
};
