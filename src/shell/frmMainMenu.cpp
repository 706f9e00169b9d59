// The menu table. A caption without a row in the string table is the same in both languages; all of those stand here.
#include "shell/frmMainMenu.h"

#include "core/Dichiarazioni.h"

namespace
{

using Type = MenuRow::Type;
using namespace WindowKind;

constexpr MenuRow menu(const char* name, int captionRow, const char* fixed = nullptr)
{
    return {Type::Menu, name, captionRow, fixed};
}
constexpr MenuRow separator(const char* name) { return {Type::Separator, name}; }
constexpr MenuRow item(const char* name, int captionRow, void (frmMain::*handler)(int), int argument = 0,
                       const char* shortcut = nullptr)
{
    return {Type::Item, name, captionRow, nullptr, shortcut, handler, argument};
}
constexpr MenuRow fixedItem(const char* name, const char* caption, void (frmMain::*handler)(int), int argument = 0,
                            const char* shortcut = nullptr)
{
    return {Type::Item, name, 0, caption, shortcut, handler, argument};
}
constexpr MenuRow childItem(const char* name, int captionRow, const char* fixed, const char* timer)
{
    return {Type::Item, name, captionRow, fixed, nullptr, nullptr, 0, timer};
}
constexpr MenuRow check(const char* name, int captionRow, bool Settings::*setting)
{
    return {Type::Check, name, captionRow, nullptr, nullptr, nullptr, 0, nullptr, setting};
}
constexpr MenuRow languageItem(const char* name, int captionRow, int language)
{
    return {Type::Check, name, captionRow, nullptr, nullptr, &frmMain::mnuLanguage_Click, language};
}

// clang-format off
const std::vector<MenuRow> Rows = {
    menu("mnuFile", 2),
    item("mnuNuovoArr", 86, &frmMain::mnuNew_Click, ArrNew, "Ctrl+N"),
    item("mnuNuovoSty", 121, &frmMain::mnuNew_Click, StyNew),
    item("mnuNuovoPrg", 87, &frmMain::mnuNew_Click, PrgNew),
    separator("mnuSep1"),
    item("mnuApriArr", 6, &frmMain::mnuOpen_Click, ArrFile, "Ctrl+O"),
    fixedItem("mnuApriSty", "Apri Sty", &frmMain::mnuOpen_Click, StyFile),
    item("mnuApriPrg", 85, &frmMain::mnuOpen_Click, PrgFile),
    fixedItem("mnuApriGbl", "Apri Gbl", &frmMain::mnuOpen_Click, GlobalFile),
    separator("mnuSep2"),
    item("mnuChiudi", 8, &frmMain::mnuChiudi_Click, 0, "Ctrl+W"),
    item("mnuSalva", 54, &frmMain::mnuSalva_Click, 0, "Ctrl+S"),
    item("mnuSalvaAs", 75, &frmMain::mnuSalvaAs_Click, 0, "Ctrl+Shift+S"),
    separator("mnuSep16"),
    fixedItem("mnuRecentFile(0)", "", &frmMain::mnuRecentFile_Click, 0),
    fixedItem("mnuRecentFile(1)", "", &frmMain::mnuRecentFile_Click, 1),
    fixedItem("mnuRecentFile(2)", "", &frmMain::mnuRecentFile_Click, 2),
    fixedItem("mnuRecentFile(3)", "", &frmMain::mnuRecentFile_Click, 3),
    fixedItem("mnuRecentFile(4)", "", &frmMain::mnuRecentFile_Click, 4),
    fixedItem("mnuRecentFile(5)", "", &frmMain::mnuRecentFile_Click, 5),
    fixedItem("mnuRecentFile(6)", "", &frmMain::mnuRecentFile_Click, 6),
    fixedItem("mnuRecentFile(7)", "", &frmMain::mnuRecentFile_Click, 7),
    separator("mnuSep3"),
    item("mnuExit", 7, &frmMain::mnuExit_Click, 0, "Ctrl+Q"),

    menu("mnuModifica", 71),
    item("mnuIngrandisci", 123, &frmMain::mnuIngrandisci_Click),
    separator("mnuSep4"),
    item("mnuTaglia", 73, &frmMain::mnuTaglia_Click, 0, "Ctrl+X"),
    item("mnuCopia", 72, &frmMain::mnuCopia_Click, 0, "Ctrl+C"),
    item("mnuIncolla", 74, &frmMain::mnuIncolla_Click, 0, "Ctrl+V"),
    separator("mnuSep5"),
    childItem("mnuLoadAll", 0, "Load All", "TimerLoadAll"),
    childItem("mnuLoadArr", 0, "Load Arr", "TimerLoadArr"),
    childItem("mnuLoadSty", 0, "Load Styles", "TimerLoadSty"),
    childItem("mnuShowSty", 0, "Show Styles", "TimerShowSty"),
    childItem("mnuLoadPrg", 0, "Load Prog", "TimerLoadPrg"),
    childItem("mnuShowPrg", 0, "Show Prog", "TimerShowPrg"),
    childItem("mnuEditArr", 0, "Edit Arr", "TimerEditArr"),
    fixedItem("mnuTvlDBArr", "+TvlDBArr", &frmMain::mnuTvlDBArr_Click),
    separator("mnuSep6"),
    fixedItem("mnuArrPlay", "ARR PLAY", &frmMain::mnuArrPlay_Click),
    fixedItem("mnuSongPlay", "SONG PLAY", &frmMain::mnuSongPlay_Click),
    separator("mnuSep7"),
    childItem("mnuCancella", 44, nullptr, "TimerCancella"),
    childItem("mnuDBArrApri", 51, nullptr, "TimerApri"),
    childItem("mnuAddAll", 0, "Add All", "TimerAddAll"),

    menu("mnuView", 3),
    fixedItem("mnuArrA", "Arr A", &frmMain::mnuWindowKind_Click, ArrBankA),
    fixedItem("mnuArrB", "Arr B", &frmMain::mnuWindowKind_Click, ArrBankB),
    fixedItem("mnuStyA", "Style A", &frmMain::mnuWindowKind_Click, StyBankA),
    fixedItem("mnuStyB", "Style B", &frmMain::mnuWindowKind_Click, StyBankB),
    fixedItem("mnuWProgA", "Prg A", &frmMain::mnuWindowKind_Click, PrgBankA),
    fixedItem("mnuWProgB", "Prg B", &frmMain::mnuWindowKind_Click, PrgBankA + 1),
    fixedItem("mnuWProgC", "Prg C", &frmMain::mnuWindowKind_Click, PrgBankA + 2),
    fixedItem("mnuWProgD", "Prg D", &frmMain::mnuWindowKind_Click, PrgBankA + 3),
    fixedItem("mnuWProgE", "Prg E", &frmMain::mnuWindowKind_Click, PrgBankE),
    fixedItem("mnuDrum", "Drum", &frmMain::mnuWindowKind_Click, DrumKits),
    fixedItem("mnuPerc", "Percussion", &frmMain::mnuWindowKind_Click, Percussion),
    separator("mnuSep8"),
    fixedItem("mnuGlobalParam", "Global Parameters", &frmMain::mnuWindowKind_Click, GlobalInstrument),
    item("mnuMsgEx", 108, &frmMain::mnuWindowKind_Click, MessageMonitor),
    item("mnuTastiera", 106, &frmMain::mnuWindowKind_Click, Keyboard, "Ctrl+K"),
    separator("mnuSep9"),
    item("mnuWFindID", 38, &frmMain::mnuWindowKind_Click, FindId, "Ctrl+F"),
    fixedItem("mnuWEditDBArr", "Edit TvlDBArr", &frmMain::mnuWindowKind_Click, EditDatabase),
    item("mnuAggArr", 39, &frmMain::mnuAggArr_Click),

    menu("mnuPreferenze", 62),
    {Type::SubMenu, "mnuLingua", 63},
    languageItem("mnuItaliano", 64, 1),
    languageItem("mnuInglese", 65, 2),
    {Type::EndOfSubMenu, "mnuLingua"},
    {Type::Check, "mnuMIDIThru", 0, "MIDI Thru", nullptr, &frmMain::mnuMIDIThru_Click, 0, nullptr, &Settings::ThruOn},
    separator("mnuSep10"),
    check("mnuCaricaArr", 102, &Settings::AutoArr),
    check("mnuCaricaSty", 68, &Settings::AutoSty),
    check("mnuCaricaStyNuovoArr", 107, &Settings::AutoStyNewArr),
    check("mnuCaricaPrg", 70, &Settings::AutoPrg),
    separator("mnuSep11"),
    check("mnuRdOnly", 90, &Settings::ReadOnlyOpen),
    check("mnuVisBarraStato", 103, &Settings::StatusBar),
    check("mnuAddTvlDBArr", 95, &Settings::AutoDBArr),

    menu("mnuWindow", 4),
    item("mnuWCascade", 9, &frmMain::mnuWCascade_Click),
    separator("mnuSep12"),

    menu("mnuHelp", 47),
    item("mnuGuida", 47, &frmMain::mnuWindowKind_Click, Guide, "F1"),
    item("mnuInfo", 30, &frmMain::mnuWindowKind_Click, About),
};
// clang-format on

} // namespace

const std::vector<MenuRow>& menuTable() { return Rows; }
