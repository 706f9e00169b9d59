// The menus' rules as tables: by kind of window its standard size, the items that follow one of its buttons, and how
// it can be saved.
#include "shell/MenuState.h"

#include "files/WindowBuffer.h"

#include <algorithm>
#include <array>

namespace
{

using namespace WindowKind;

/// All items that are switched off before the active child's own are switched on.
constexpr std::array ChildItems = {
    "mnuIngrandisci", "mnuTaglia",   "mnuIncolla",  "mnuCopia",     "mnuSalva",   "mnuSalvaAs",
    "mnuLoadAll",     "mnuLoadArr",  "mnuLoadSty",  "mnuShowSty",   "mnuLoadPrg", "mnuShowPrg",
    "mnuEditArr",     "mnuTvlDBArr", "mnuCancella", "mnuDBArrApri", "mnuAddAll",
};

/// An item that works while a button of the active child does.
struct ButtonRow {
    int firstKind;
    int lastKind;
    const char* item;
    const char* button;
};

constexpr std::array ButtonRows = {
    ButtonRow{EditDatabase, EditDatabase, "mnuCancella", "CommDelete"},
    ButtonRow{EditDatabase, EditDatabase, "mnuDBArrApri", "CommApri"},
    ButtonRow{EditDatabase, EditDatabase, "mnuAddAll", "CommAddAll"},
    ButtonRow{ArrFile, ArrFile, "mnuLoadAll", "CommLoadAll"},
    ButtonRow{ArrFile, ArrNew, "mnuLoadArr", "CommLoadArr"},
    ButtonRow{ArrFile, ArrNew, "mnuLoadSty", "CommLoadSty"},
    ButtonRow{ArrFile, ArrFile, "mnuShowSty", "CommShowSty"},
    ButtonRow{ArrFile, ArrFile, "mnuLoadPrg", "CommLoadPrg"},
    ButtonRow{ArrFile, ArrFile, "mnuShowPrg", "CommShowPrg"},
    ButtonRow{ArrFile, ArrFile, "mnuEditArr", "CommEdit"},
    ButtonRow{ArrFile, ArrFile, "mnuTvlDBArr", "CommAdd"},
    ButtonRow{PrgFile, PrgNew, "mnuLoadPrg", "CommLoad"},
    ButtonRow{StyFile, StyNew, "mnuLoadSty", "CommLoadStyGrp("},
};

/// How the windows of a kind are saved.
struct SaveRow {
    int firstKind;
    int lastKind;
    bool alsoReadOnly; ///< mnuSalva works though the window counts as read only
};

constexpr std::array SaveRows = {
    SaveRow{GlobalInstrument, GlobalInstrument, false},
    SaveRow{GlobalFile, GlobalFile, false},
    SaveRow{ArrFile, ArrFile, false},
    // Required: an untitled window has no file that could be read only; Save asks for a name.
    SaveRow{ArrNew, ArrNew, true},
    SaveRow{PrgFile, StyNew, false},
};

/// Sizes that are not in the table of default sizes, twips.
struct SizeRow {
    int kind;
    TwipsSize size;
};

constexpr std::array SizeRows = {
    SizeRow{EditDatabase, {4308, 6072}}, SizeRow{EditArr, {9228, 5916}},        SizeRow{GlobalInstrument, {9072, 5640}},
    SizeRow{Keyboard, {9288, 5532}},     SizeRow{MessageMonitor, {5760, 8000}}, SizeRow{GlobalFile, {9072, 5640}},
};

void enable(std::vector<MenuItemState>& states, std::string_view name, bool enabled)
{
    for (MenuItemState& state : states)
        if (state.name == name)
            state.enabled = enabled;
}

void enableSaving(std::vector<MenuItemState>& states, const ChildFacts& child)
{
    for (const SaveRow& row : SaveRows)
        if (child.kind >= row.firstKind && child.kind <= row.lastKind) {
            enable(states, "mnuSalva", row.alsoReadOnly || !child.readOnly);
            enable(states, "mnuSalvaAs", true);
        }
}

} // namespace

TwipsSize standardSize(int windowKind)
{
    for (const SizeRow& row : SizeRows)
        if (row.kind == windowKind)
            return row.size;
    return defaultWindowSize(windowKind);
}

std::vector<MenuItemState> menuStates(const ChildFacts* child, const ClipboardFacts& clipboard)
{
    std::vector<MenuItemState> states;
    for (const char* name : ChildItems)
        states.push_back({name, false});
    for (const char* name : {"mnuWindow", "mnuChiudi", "mnuModifica"})
        states.push_back({name, child != nullptr});
    if (!child)
        return states;

    enable(states, "mnuIngrandisci", standardSize(child->kind).width > 0 && !child->standardSize);
    for (const ButtonRow& row : ButtonRows)
        if (child->kind >= row.firstKind && child->kind <= row.lastKind)
            enable(states, row.item, child->buttonEnabled && child->buttonEnabled(row.button));
    enableSaving(states, *child);
    const EditItems edit = editItems(*child, clipboard);
    enable(states, "mnuCopia", edit.copy);
    enable(states, "mnuTaglia", edit.cut);
    enable(states, "mnuIncolla", edit.paste);
    return states;
}

std::vector<MenuItemState> slotStates()
{
    std::vector<MenuItemState> states = {
        {"mnuApriArr", ArrSlotFree() != 0},     {"mnuApriSty", StySlotFree() != 0},
        {"mnuApriPrg", PrgSlotFree() != 0},     {"mnuApriGbl", GblSlotFree() != 0},
        {"mnuNuovoArr", ArrNewSlotFree() != 0}, {"mnuNuovoPrg", PrgSlotFree() != 0},
        {"mnuNuovoSty", StySlotFree() != 0},
    };
    // A bank of programs has a single window, and its item is off while that is open.
    constexpr std::array BankItems = {"mnuWProgA", "mnuWProgB", "mnuWProgC", "mnuWProgD", "mnuWProgE"};
    int kind = PrgBankA;
    for (const char* name : BankItems)
        states.push_back({name, OpenWindows::find(kind++, -1) == nullptr});
    return states;
}
