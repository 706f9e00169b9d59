// The persisted bytes of the keyboard window, checked once before they are used.
#include "keyboard/Keys.h"

#include "core/Dichiarazioni.h"

#include <algorithm>
#include <cstddef>

KeysState Keys;

namespace
{

constexpr int HighestChannel = 15;
constexpr int HighestFaderValue = 127;

void clampByte(int place, int low, int high) { setKeyboardByte(place, std::clamp(keyboardByte(place), low, high)); }

} // namespace

int keyboardByte(int place) { return App.KeyboardState[static_cast<std::size_t>(place)]; }

void setKeyboardByte(int place, int value) { App.KeyboardState[static_cast<std::size_t>(place)] = value; }

void keyboardBytesIntoRange()
{
    clampByte(KeyboardByte::Channel, 0, HighestChannel);
    for (const int box : {KeyboardByte::ClickKey, KeyboardByte::HoldNote})
        setKeyboardByte(box, keyboardByte(box) == 1 ? 1 : 0);
    clampByte(KeyboardByte::OctaveShift, 0, KeyRange::MostShift);
    for (int fader = KeyboardByte::Faders; fader < KeyboardByte::SplitPoint; ++fader)
        clampByte(fader, 0, HighestFaderValue);
    clampByte(KeyboardByte::SplitPoint, SplitRange::Lowest, SplitRange::Highest);
}
