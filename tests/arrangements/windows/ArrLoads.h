// What the tests of the staged loads share: the lines that each load leaves in the diary.
#pragma once

#include "ArrWindow.h"

inline const Lines ArrLoad = {"status Loading Arrangement", "F0 42 32 4D 4E 06 F7", "F0 42 32 4D 4E 0A F7",
                              "F0 42 32 4D 64 (12002)", "status"};

inline Lines selection(int row)
{
    return {"B2 00 00", "B2 20 01", "C2 " + hex(std::string(1, static_cast<char>(row))), "status"};
}

class ArrLoads : public ArrWindow
{
protected:
    /// The groups of styles() on the wire: 24 + 40 + 41 + 42 + 43 = 190 bytes pack to 218, 24 + 44 + 45 + 46 + 47 = 206
    /// to 236, each with six bytes of frame.
    static Lines styleGroups()
    {
        return {"status Loading Style", "status Loading Style", "F0 42 32 4D 65 (224)",
                "status Loading Style", "F0 42 32 4D 65 (242)", "status"};
    }
    std::vector<std::string> longMessages() const { return port.longMessages(); }
};
