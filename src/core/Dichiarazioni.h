// The shared declarations: what every room of the program knows about windows, settings and the run.
//
// A door, not a room: the values are declared here by subject, and small files define what is done with them.
#pragma once

#include "core/Bytes.h"
#include "core/Settings.h"

#include <string>

class UserInterface;
class Shell;

/// The number of a kind of child window: the first byte of its Tag and its row in WinPos.
namespace WindowKind
{
inline constexpr int Main = 1;
inline constexpr int ArrBankA = 2;
inline constexpr int ArrBankB = 3;
inline constexpr int PrgBankA = 4; // PrgBankA to PrgBankE: 4 to 8
inline constexpr int PrgBankE = 8;
inline constexpr int DrumKits = 9;
inline constexpr int Percussion = 10;
inline constexpr int FindId = 11;
inline constexpr int EditDatabase = 12;
inline constexpr int EditArr = 13;
inline constexpr int GlobalInstrument = 14;
inline constexpr int Keyboard = 15;
inline constexpr int MessageMonitor = 16;
inline constexpr int StyBankA = 17;
inline constexpr int StyBankB = 18;
inline constexpr int ArrFile = 19;
inline constexpr int ArrNew = 20;
inline constexpr int PrgFile = 21;
inline constexpr int PrgNew = 22;
inline constexpr int StyFile = 23;
inline constexpr int StyNew = 24;
inline constexpr int GlobalFile = 25;
inline constexpr int Guide = 27;
inline constexpr int About = 28;
} // namespace WindowKind

/// The fixed titles; they are the same in both languages.
inline constexpr const char* ApplicationTitle = "Tarvolyne - Tarvolyne Console ";
inline constexpr const char* ApplicationName = "Tarvolyne";

/// Width and height of a window in twips (1440 to an inch), its outer size.
struct TwipsSize {
    int width = 0;
    int height = 0;
};

/// Process-wide state of the application core. It lives for the whole run; the persisted values come from Settings.
struct AppState : Settings {
    bool InSubMain = false;     ///< true from the first step of SubMain until frmMain has been shown
    bool QuitRequested = false; ///< the language window was closed without a choice
    bool AnotherRuns = false;   ///< another process of this program holds the InstanceLock; set before SettingsLoad
    bool AppClosing = false;    ///< true from the main window's query-unload; MenuSync does nothing then
    int ExitAttempt = 0;        ///< counts the main window's query-unloads: an answer given to one holds for it alone

    std::string WorkDir;  ///< the current directory at start, never updated
    std::string PathArrA; ///< the bank file TvlArrA beside the program
    std::string PathArrB; ///< the bank file TvlArrB
    std::string PathPrg;  ///< the program template TvlPrg
    std::string PathSty;  ///< the style template TvlSty
    std::string PathGuideIt;
    std::string PathGuideEn;
    std::string StateDir; ///< the per-user folder of the state files, without a closing separator

    int LanguageBase = 0;  ///< (Language - 1) * 200, added to every string id; fixed for the run
    std::string ErrTitle;  ///< title that the next ReportError of this phase uses
    int ScreenTwipsX = 15; ///< twips per pixel of the screen; 12 is the large-font screen
    int ScreenTwipsY = 15;

    std::string InfoArr; ///< stems of what the instrument was last sent, as TvlCMInfo holds them
    std::string InfoSty;
    std::string InfoPrg;

    int ArrUCount = 0; ///< open child windows, kept by the children as they come and go
    int StyUCount = 0;
    int PrgUCount = 0;
    int OtherCount = 0;
    int GblCount = 0;

    bool GblCurrentChanged = false; ///< a global block was sent in this run: the settings keep it from now on

    UserInterface* ui = nullptr; ///< where messages, questions and notices go; set before SubMain
    Shell* shell = nullptr;      ///< the main window as the children see it; set by frmMain
};

/// The one instance. A test starts afresh with App = {}.
extern AppState App;

/// Default sizes of the child windows, chosen by ScreenTwipsY (12 or not). Kinds without a row answer 0 by 0.
/// These are the sizes that mnuIngrandisci restores and that WinPos starts from.
TwipsSize defaultWindowSize(int windowKind);
