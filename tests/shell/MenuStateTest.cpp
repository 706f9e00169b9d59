// Which items work, by the kind of the active window and the row of its list.
#include "shell/MenuState.h"

#include "shell/ShellFixture.h"

#include <set>

namespace
{

using MenuState = ShellTest;
using Names = std::set<std::string>;

ChildFacts child(int kind)
{
    ChildFacts facts;
    facts.kind = kind;
    facts.buttonEnabled = [](std::string_view) { return false; };
    return facts;
}

ChildFacts child(int kind, int row, const std::string& text)
{
    ChildFacts facts = child(kind);
    facts.row = row;
    facts.rowText = text;
    return facts;
}

ClipboardFacts snapshotOf(int kind) { return {false, kind}; }

Names enabledFor(const ChildFacts* facts, const ClipboardFacts& clipboard = {})
{
    Names names;
    for (const MenuItemState& state : menuStates(facts, clipboard))
        if (state.enabled)
            names.insert(state.name);
    return names;
}

/// The items beyond those that any open window switches on.
Names ownItems(const ChildFacts& facts)
{
    Names names = enabledFor(&facts);
    EXPECT_EQ(names.erase("mnuWindow") + names.erase("mnuChiudi") + names.erase("mnuModifica"), 3U);
    return names;
}

std::string edit(const ChildFacts& facts, const ClipboardFacts& clipboard = {})
{
    const EditItems items = editItems(facts, clipboard);
    return std::string(items.copy ? "copy " : "") + (items.cut ? "cut " : "") + (items.paste ? "paste " : "");
}

} // namespace

TEST_F(MenuState, withNoChildOpenEveryItemOfChildrenIsOff)
{
    EXPECT_EQ(enabledFor(nullptr), Names{});
    EXPECT_EQ(menuStates(nullptr, {}).size(), 20U);
}

TEST_F(MenuState, banksDrumsMonitorAndEditorHaveNoItemsOfTheirOwn)
{
    for (const int kind : {2, 3, 4, 8, 9, 10, 11, 13, 15, 16, 17, 18, 27, 28}) {
        ChildFacts facts = child(kind);
        facts.buttonEnabled = [](std::string_view) { return true; };
        EXPECT_EQ(ownItems(facts), Names{}) << kind;
    }
}

TEST_F(MenuState, theDatabaseWindowsItemsFollowItsButtons)
{
    ChildFacts facts = child(12);
    facts.buttonEnabled = [](std::string_view name) { return name == "CommDelete"; };
    EXPECT_EQ(ownItems(facts), Names{"mnuCancella"});
    facts.buttonEnabled = [](std::string_view name) { return name == "CommApri" || name == "CommAddAll"; };
    EXPECT_EQ(ownItems(facts), (Names{"mnuDBArrApri", "mnuAddAll"}));
}

TEST_F(MenuState, anArrangementWindowsItemsFollowItsButtons)
{
    const std::pair<const char*, const char*> rows[] = {{"CommLoadAll", "mnuLoadAll"}, {"CommLoadArr", "mnuLoadArr"},
                                                        {"CommLoadSty", "mnuLoadSty"}, {"CommShowSty", "mnuShowSty"},
                                                        {"CommLoadPrg", "mnuLoadPrg"}, {"CommShowPrg", "mnuShowPrg"},
                                                        {"CommEdit", "mnuEditArr"},    {"CommAdd", "mnuTvlDBArr"}};
    for (const auto& [button, item] : rows) {
        ChildFacts facts = child(19);
        facts.buttonEnabled = [name = button](std::string_view asked) { return asked == name; };
        EXPECT_EQ(ownItems(facts), (Names{"mnuSalva", "mnuSalvaAs", item})) << button;
    }
}

TEST_F(MenuState, aNewArrangementWindowHasTwoLoadsAndIsAlwaysSaved)
{
    ChildFacts facts = child(20);
    facts.readOnly = true;
    facts.buttonEnabled = [](std::string_view) { return true; };
    EXPECT_EQ(ownItems(facts), (Names{"mnuLoadArr", "mnuLoadSty", "mnuSalva", "mnuSalvaAs"}));
}

TEST_F(MenuState, programWindowsLoadByTheirOneButton)
{
    for (const int kind : {21, 22}) {
        ChildFacts facts = child(kind);
        facts.buttonEnabled = [](std::string_view name) { return name == "CommLoad"; };
        EXPECT_EQ(ownItems(facts), (Names{"mnuLoadPrg", "mnuSalva", "mnuSalvaAs"}));
    }
}

TEST_F(MenuState, styleWindowsLoadWhenAnyGroupButtonWorks)
{
    for (const int kind : {23, 24}) {
        ChildFacts facts = child(kind);
        facts.buttonEnabled = [](std::string_view name) { return name == "CommLoadStyGrp("; };
        EXPECT_EQ(ownItems(facts), (Names{"mnuLoadSty", "mnuSalva", "mnuSalvaAs"}));
    }
}

TEST_F(MenuState, globalWindowsAreOnlySaved)
{
    for (const int kind : {14, 25})
        EXPECT_EQ(ownItems(child(kind)), (Names{"mnuSalva", "mnuSalvaAs"})) << kind;
}

TEST_F(MenuState, aReadOnlyWindowIsSavedUnderAnotherNameAlone)
{
    for (const int kind : {14, 19, 21, 22, 23, 24, 25}) {
        ChildFacts facts = child(kind);
        facts.readOnly = true;
        EXPECT_EQ(ownItems(facts), Names{"mnuSalvaAs"}) << kind;
    }
}

TEST_F(MenuState, maximizeIsOfferedForASizeThatIsNotTheKindsOwn)
{
    for (const int kind : {2, 3, 4, 8, 9, 10, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25}) {
        ChildFacts facts = child(kind);
        facts.standardSize = false;
        EXPECT_TRUE(ownItems(facts).count("mnuIngrandisci")) << kind;
        facts.standardSize = true;
        EXPECT_FALSE(ownItems(facts).count("mnuIngrandisci")) << kind;
    }
    for (const int kind : {11, 27, 28}) {
        ChildFacts facts = child(kind);
        facts.standardSize = false;
        EXPECT_FALSE(ownItems(facts).count("mnuIngrandisci")) << kind;
    }
}

TEST_F(MenuState, theStandardSizesAreThoseOfTheTables)
{
    const auto size = [](int kind) { return std::pair(standardSize(kind).width, standardSize(kind).height); };
    App.ScreenTwipsY = 15;
    EXPECT_EQ(size(2), std::pair(4810, 7780));
    EXPECT_EQ(size(8), std::pair(4810, 7780));
    EXPECT_EQ(size(9), std::pair(1920, 7780));
    EXPECT_EQ(size(12), std::pair(4308, 6072));
    EXPECT_EQ(size(13), std::pair(9228, 5916));
    EXPECT_EQ(size(14), std::pair(9072, 5640));
    EXPECT_EQ(size(25), std::pair(9072, 5640));
    EXPECT_EQ(size(15), std::pair(9288, 5532));
    EXPECT_EQ(size(16), std::pair(5760, 8000));
    EXPECT_EQ(size(17), std::pair(4810, 7780));
    EXPECT_EQ(size(19), std::pair(4810, 9040));
    EXPECT_EQ(size(20), std::pair(4810, 7780));
    EXPECT_EQ(size(21), std::pair(4810, 7780));
    EXPECT_EQ(size(23), std::pair(5560, 4200));
    EXPECT_EQ(size(11), std::pair(0, 0));
    App.ScreenTwipsY = 12;
    EXPECT_EQ(size(19), std::pair(4600, 9040));
    EXPECT_EQ(size(23), std::pair(5280, 4200));
}

TEST_F(MenuState, bankRowsAreOnlyCopied)
{
    for (const int kind : {2, 3, 4, 5, 6, 7, 8}) {
        EXPECT_EQ(edit(child(kind, 0, "11  8 Beat 1"), snapshotOf(kind)), "copy ") << kind;
        EXPECT_EQ(edit(child(kind, 0, "11"), snapshotOf(kind)), "") << kind;
        EXPECT_EQ(edit(child(kind, -1, ""), snapshotOf(kind)), "") << kind;
    }
}

TEST_F(MenuState, arrangementAndProgramRowsAreCopiedAndCutWhenUsed)
{
    for (const int kind : {19, 20, 21, 22}) {
        EXPECT_EQ(edit(child(kind, 5, "16 +Ballad")), "copy cut ") << kind;
        EXPECT_EQ(edit(child(kind, 5, "16")), "") << kind;
        EXPECT_EQ(edit(child(kind, -1, "")), "") << kind;
        ChildFacts readOnly = child(kind, 5, "16 +Ballad");
        readOnly.readOnly = true;
        EXPECT_EQ(edit(readOnly), "copy ") << kind;
    }
}

TEST_F(MenuState, aRowInUseWhoseNameIsBlankIsCopiedAndNeverPastedUpon)
{
    const std::string row = "16  " + std::string(16, ' ');
    for (const int kind : {19, 20, 21, 22})
        EXPECT_EQ(edit(child(kind, 5, row), snapshotOf(kind)), "copy cut ") << kind;
    for (const int kind : {2, 3, 4, 8})
        EXPECT_EQ(edit(child(kind, 5, row), snapshotOf(kind)), "copy ") << kind;
}

TEST_F(MenuState, arrangementsArePastedOnFreeRowsOfArrangementWindows)
{
    for (int source = 0; source <= 28; ++source) {
        const bool fits = source == 2 || source == 3 || source == 19 || source == 20;
        for (const int kind : {19, 20})
            EXPECT_EQ(edit(child(kind, 5, "16"), snapshotOf(source)), fits ? "paste " : "") << source;
    }
    EXPECT_EQ(edit(child(19, 5, "16  Ballad"), snapshotOf(19)), "copy cut ");
    EXPECT_EQ(edit(child(19, 5, "16"), ClipboardFacts{true, 19}), "");
    ChildFacts readOnly = child(19, 5, "16");
    readOnly.readOnly = true;
    EXPECT_EQ(edit(readOnly, snapshotOf(19)), "");
}

TEST_F(MenuState, programsArePastedOnFreeRowsOfProgramWindows)
{
    for (int source = 0; source <= 28; ++source) {
        const bool fits = (source >= 4 && source <= 8) || source == 21 || source == 22;
        for (const int kind : {21, 22})
            EXPECT_EQ(edit(child(kind, 5, "16"), snapshotOf(source)), fits ? "paste " : "") << source;
    }
}

TEST_F(MenuState, stylesArePastedOnEmptyOrAbsentSlots)
{
    for (int source = 0; source <= 28; ++source) {
        const bool fits = source == 23 || source == 24;
        EXPECT_EQ(edit(child(23, 0, "11  - empty -"), snapshotOf(source)), fits ? "paste " : "") << source;
    }
    EXPECT_EQ(edit(child(24, 1, "12  - empty -       "), snapshotOf(23)), "paste ");
    EXPECT_EQ(edit(child(24, 1, "12  Samba Mia"), snapshotOf(23)), "copy cut ");
    ChildFacts readOnly = child(23, 0, "11  Samba Mia");
    readOnly.readOnly = true;
    EXPECT_EQ(edit(readOnly, snapshotOf(23)), "copy ");
}

TEST_F(MenuState, separatorRowsOfStyleWindowsAllowNothing)
{
    for (const int row : {4, 9, 14})
        EXPECT_EQ(edit(child(23, row, ""), snapshotOf(23)), "") << row;
    EXPECT_EQ(edit(child(23, 5, "21  - empty -"), snapshotOf(23)), "paste ");
    EXPECT_EQ(edit(child(19, 4, "15"), snapshotOf(19)), "paste ") << "only style windows have separators";
}

TEST_F(MenuState, otherWindowsHaveNoEditItems)
{
    for (const int kind : {9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 25, 27, 28})
        EXPECT_EQ(edit(child(kind, 0, "11  Name"), snapshotOf(19)), "") << kind;
}

TEST_F(MenuState, openersAreOffWhenTheirSlotsAreFull)
{
    const auto off = [] {
        Names names;
        for (const MenuItemState& item : slotStates())
            if (!item.enabled)
                names.insert(item.name);
        return names;
    };
    EXPECT_EQ(off(), Names{});
    for (SessionEntry& entry : App.Arrangements)
        entry.used = true;
    EXPECT_EQ(off(), Names{"mnuApriArr"});
    for (SessionEntry& entry : App.Styles)
        entry.used = true;
    for (SessionEntry& entry : App.NewArrangements)
        entry.used = true;
    for (std::size_t slot = 0; slot < 8; ++slot)
        App.Programs[slot].used = true;
    for (std::size_t slot = 1; slot <= 8; ++slot)
        App.Globals[slot].used = true;
    EXPECT_EQ(off(), (Names{"mnuApriArr", "mnuApriSty", "mnuApriPrg", "mnuApriGbl", "mnuNuovoArr", "mnuNuovoPrg",
                            "mnuNuovoSty"}));
}

TEST_F(MenuState, theItemOfAProgramBankIsOffWhileItsWindowIsOpen)
{
    WindowBuffer bankC = WindowBuffer::fresh(6, 0);
    OpenWindows::add(&bankC);
    for (const MenuItemState& one : slotStates())
        EXPECT_EQ(one.enabled, std::string_view(one.name) != "mnuWProgC") << one.name;
    OpenWindows::remove(&bankC);
}
