// A display of our own: an X server without a screen, and a window manager on it as on a user's desk.
#pragma once

#include "driver/Process.h"

#include <string>

class VirtualScreen
{
public:
    /// Starts both and waits until windows are managed. `home` is where the window manager may write. Without one a
    /// press reaches its window without a detour.
    VirtualScreen(int width, int height, const std::string& home, bool managed = true);
    ~VirtualScreen();

    /// The display's name, ":7".
    const std::string& name() const { return name_; }

private:
    Process server_;
    Process manager_;
    std::string name_;
};
