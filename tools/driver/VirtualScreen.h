// A display of our own: an X server without a screen, and a window manager on it as on a user's desk.
#pragma once

#include "driver/Process.h"

#include <string>

class VirtualScreen
{
public:
    /// Starts both and waits until windows are managed. `home` is where the window manager may write.
    VirtualScreen(int width, int height, const std::string& home);
    ~VirtualScreen();

    /// The display's name, ":7".
    const std::string& name() const { return name_; }

private:
    Process server_;
    Process manager_;
    std::string name_;
};
