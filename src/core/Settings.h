// The settings and the session that outlive a run: the 46 records of Tarvolyne.ini.
//
// Record 1 holds the check marks, the channels and the places of the windows; the others the last folders, the
// session's windows, the recent files and the global block taken to be in the instrument.
#pragma once

#include "core/Bytes.h"

#include <array>
#include <string>

/// Place and state of one kind of window. Lengths in twips; Open and Extra are small numbers 0 to 15.
struct WindowPosition {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int Open = 0;
    int Extra = 0;
};

/// One of the windows on user files: a program, arrangement or style window's place and file.
struct SessionEntry {
    std::string path; ///< full path without extension, bytes of the file system
    int width = 0;    ///< twips
    int height = 0;
    int left = 0;
    int top = 0;
    int Open = 0; ///< 1 = the window was open at exit
    int kind = 0; ///< the kind byte of a program entry
    bool readOnly = false;
    int programType = 0; ///< 0 = .prg, 1 = .pgg
    bool used = false;   ///< in memory only: a window of this run holds the slot
    int databaseId = 0;  ///< in memory only: the arrangement file's number in TvlDBArr, 0 for none
    bool linked = false; ///< in memory only: a style window that an arrangement window opened
};

/// One entry of the list of recent files.
struct RecentEntry {
    std::string path; ///< full path without extension; empty = the entry is free
    int kind = 0;     ///< 1 arr, 2 sty, 3 prg, 4 pgg, 5 gbl
    bool readOnly = false;
    ByteBuffer kept = ByteBuffer(250, '\0'); ///< the record as read: its unused bytes are written back unchanged
};

/// What Tarvolyne.ini keeps. Indexes of the tables are 0-based but for WinPos, whose rows are WindowKind codes.
struct Settings {
    bool ReadOnlyOpen = false;  ///< mnuRdOnly
    bool SettingSpare1 = false; ///< carried, never acted upon
    bool SettingSpare2 = false; ///< carried, never acted upon
    bool AutoStyNewArr = false; ///< mnuCaricaStyNuovoArr
    bool AutoSty = false;       ///< mnuCaricaSty
    bool StyleOption = false;   ///< carried
    bool AutoPrg = false;       ///< mnuCaricaPrg
    int Language = 0;           ///< 1 Italian, 2 English, 0 not yet chosen
    bool AutoDBArr = false;     ///< mnuAddTvlDBArr
    bool StatusBar = true;      ///< mnuVisBarraStato
    bool AutoArr = false;       ///< mnuCaricaArr
    std::array<int, 16> KeyboardState{};
    bool ThruOn = false;                     ///< mnuMIDIThru
    int DeviceMode = 0;                      ///< 0 ARR PLAY, 1 SONG PLAY, 2 GLOBAL
    bool GlobalValid = false;                ///< GblCurrent holds a block
    std::array<WindowPosition, 29> WinPos{}; ///< rows 1 to 28; rows 1 to 18 are kept
    int GlobalChannel = 0;                   ///< 0 to 15, the g of every SysEx header
    std::array<int, 10> TrackChannels{};     ///< the ten channels behind it: ARRANG, LOW, UP2, UP1, DRM ... AC3
    std::string LastDirFiles;                ///< folder of the last arrangement or style file
    std::string LastDirPrg;                  ///< folder of the last program file
    std::string LastDirGbl;                  ///< folder of the last global file; of this run only
    std::array<SessionEntry, 16> Programs{};
    std::array<SessionEntry, 8> Arrangements{};
    std::array<SessionEntry, 8> Styles{};          ///< of this run only: style windows do not come back
    std::array<SessionEntry, 9> Globals{};         ///< of this run only: slot 0 the instrument's, 1 to 8 files
    std::array<SessionEntry, 8> NewArrangements{}; ///< of this run only: untitled windows
    std::array<RecentEntry, 8> Recent{};
    ByteBuffer GblCurrent; ///< 448 bytes when GlobalValid
};

namespace SettingsFile
{

inline constexpr int RecordLength = 250;
inline constexpr int RecordCount = 46;
inline constexpr int FileLength = RecordLength * RecordCount;

/// Sets every setting to its first-run default. The sizes come from defaultWindowSize.
void setDefaults(Settings& settings);

/// Decodes a whole file image into `settings`; a short image reads as if NUL bytes followed. False, with nothing
/// changed, when record 1 does not begin with the signature or its Language is neither 1 nor 2: a first run.
[[nodiscard]] bool decode(const ByteBuffer& image, Settings& settings);

/// The image of a first run: record 1 from `settings` (Language still 0), records 2 to 37 NUL, 38 to 46 blank.
ByteBuffer firstImage(const Settings& settings);

/// The image to write at exit: changes in `image` every field that the program names and leaves the rest as it was.
/// The result is exactly FileLength bytes.
ByteBuffer encode(const Settings& settings, ByteBuffer image);

/// The path of the file in App.StateDir.
std::string path();

} // namespace SettingsFile

/// Keeps the place of a window that closes in the recent file of its path (without extension) and kind, if the list has
/// one.
void RecentPlaceKeep(const std::string& path, int kind, const WindowPosition& place);

/// Fills the process-wide state at start: the screen's twips, settings, language, tables of names. On a first run it
/// makes the three state files and shows the language window through App.ui; closed without a choice, that sets
/// App.QuitRequested and leaves no settings file. File errors never stop it. With App.AnotherRuns set and no valid
/// settings it takes the defaults, asks nothing, writes nothing and leaves Language 0: the caller then refuses the
/// start. The state of the MIDI ports (Midi.MidiEnabled 1, Midi.MidiPortsOpen 0) is reset by the caller, before.
void SettingsLoad();

/// Writes the settings file from App at exit: record 1 and all records that the program names. 0, or a file error; the
/// file on disk is then as it was.
[[nodiscard]] int SettingsSave();
