// What the settings are before the user has chosen anything.
#include "core/Settings.h"

#include "core/Dichiarazioni.h"

namespace
{

constexpr int Maximised = 2;

void place(Settings& settings, int row, TwipsSize size, int extra = 0)
{
    WindowPosition& position = settings.WinPos[static_cast<std::size_t>(row)];
    position.width = size.width;
    position.height = size.height;
    position.Extra = extra;
}

void placeWindows(Settings& settings)
{
    using namespace WindowKind;
    constexpr int FirstChannel = 1; // the MIDI channel that a factory program window starts on
    settings.WinPos[Main].Open = Maximised;
    for (int row = ArrBankA; row <= ArrBankB; ++row)
        place(settings, row, defaultWindowSize(row));
    for (int row = PrgBankA; row <= Percussion; ++row)
        place(settings, row, defaultWindowSize(row), FirstChannel);
    // Required: the find window starts with the size of the drum windows.
    place(settings, FindId, defaultWindowSize(Percussion));
    place(settings, EditDatabase, {4308, 6072});
    place(settings, EditArr, {9228, 5916});
    // Required: the global window has no size to start from and sets its own.
    place(settings, GlobalInstrument, {0, 0});
    place(settings, Keyboard, {9288, 5532});
    place(settings, MessageMonitor, {5760, 8000});
    for (int row = StyBankA; row <= StyBankB; ++row)
        place(settings, row, defaultWindowSize(row));
}

} // namespace

void SettingsFile::setDefaults(Settings& settings)
{
    settings = {};
    settings.KeyboardState = {0, 1, 0, 2, 100, 64, 64, 64, 0, 0, 64, 0, 0, 0, 0, 60};
    settings.TrackChannels = {0, 0, 0, 0, 9, 10, 11, 12, 13, 14};
    placeWindows(settings);
    // A first run leaves the records of the recent files blank.
    for (RecentEntry& entry : settings.Recent)
        entry.kept = filled(RecordLength, ' ');
}
