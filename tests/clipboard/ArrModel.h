// A desk of arrangement and style windows on which a user copies, cuts and pastes: after each step what must always
// hold is checked by hand-written rules; where a rule of the program breaks one of them, the check names it and expects
// exactly that. The random tests throw dice for the user, the fuzzer takes each throw from its input.
#pragma once

#include "ModelDesk.h"

class ArrModel : public ModelDesk
{
protected:
    static constexpr int RowsBase = 10798;
    inline static const Style ShortEmpty{"- empty -", 24};

    ArrModel() { Files.StyEmptyBuffer = styFile(std::vector<Style>(4, ShortEmpty)); }

    DeskWindow* arrangements = nullptr; ///< its styles stand in `linked` too
    DeskWindow* linked = nullptr;

    Style anyStyle()
    {
        // Few names, so that windows have styles of the same name, and two styles for each of them.
        if (dice->oneIn(20))
            return {" ", 16 + dice->roll(9)};
        return {"Style " + std::to_string(dice->roll(30)), 16 + dice->roll(25), dice->roll(2)};
    }
    std::vector<Style> anyStyles(int count)
    {
        std::vector<Style> styles;
        for (int i = 0; i < count; ++i)
            styles.push_back(dice->oneIn(3) ? ShortEmpty : anyStyle());
        return styles;
    }
    /// Arrangements that play factory styles and those of a file's slots that hold one.
    Arrangements anyArrangements(const std::vector<Style>& styles, int used)
    {
        Arrangements rows;
        for (int row = 0; row < 64; ++row) {
            if (dice->roll(64) >= used)
                continue;
            const int slot = dice->roll(16);
            const bool holds =
                slot < static_cast<int>(styles.size()) && styles[static_cast<std::size_t>(slot)].name.front() == 'S';
            rows.push_back(
                {row, {"Arr " + std::to_string(dice->roll(1000)), holds ? slot : dice->roll(128), holds ? 1 : 0}});
        }
        return rows;
    }
    /// A source that is not sound: its references may name empty and absent slots, and slots that no file has.
    Arrangements strangeArrangements()
    {
        Arrangements rows;
        for (int row = 0; row < 64; row += 2)
            rows.push_back(
                {row, {"Odd " + std::to_string(row), dice->oneIn(8) ? 16 + dice->roll(240) : dice->roll(16), 1}});
        return rows;
    }
    void openArr(int kind, int number, const char* path, int slots, int used)
    {
        const std::vector<Style> styles = anyStyles(slots);
        open(arrTag(kind, number, path, anyArrangements(styles, used), styles));
    }
    void layDesk() override
    {
        windows.clear();
        book.clear();
        OpenWindows::clear();
        story.clear();
        const std::vector<Style> shared = anyStyles(4 * (1 + dice->roll(4)));
        open(arrTag(19, 1, "/m/one", anyArrangements(shared, 30), shared));
        arrangements = windows.back().get();
        open(styTag(23, 1, "/m/one", shared));
        linked = windows.back().get();
        App.Styles[0].linked = true;
        openArr(19, 2, "/m/two", dice->oneIn(3) ? 16 : dice->roll(17), 20);
        openArr(20, 1, " (Untitled 1)", 4, 0);
        open(arrBankTag(2, anyArrangements({}, 60)));
        const std::vector<Style> few = anyStyles(6);
        std::string readOnly = arrTag(19, 3, "/m/locked", strangeArrangements(), few);
        readOnly[1] = 1;
        open(readOnly);
        open(styTag(23, 2, "/m/styles", anyStyles(dice->roll(17))));
        open(styTag(24, 1, " (Untitled 1)", std::vector<Style>(4, ShortEmpty)));
    }
    static bool isStyleWindow(const DeskWindow& window) { return window.Tag.kind() >= 23; }
    DeskWindow* partner() const
    {
        return act.window == arrangements ? linked : act.window == linked ? arrangements : nullptr;
    }

    // What holds in every window at any time.
    void checkAlways() override
    {
        const DeskWindow& window = *act.window;
        if (window.Tag.kind() != 2)
            must(SlotsView(window.styles()).agrees, "table and blocks agree, lengths add up");
        must(arrangements->styles() == linked->styles(), "a style window and its arrangements hold the same styles");
        if (act.changes)
            checkList();
        checkLink();
        checkOthers(partner());
    }
    /// The style window comes again whenever the arrangement window has changed its styles.
    void checkLink()
    {
        if (act.window != arrangements || Clipboard.BufferTagSorg.empty())
            return;
        const bool changed = act.before.substr(42622) != arrangements->styles();
        must(!changed || act.window->outcome.openAgain == &linked->Tag, "changed styles open the style window again");
        if (changed)
            linked->list();
    }
    /// References of a window to its styles. `known` were there before the step.
    void checkReferences(const ArrView& before, const ArrView& after)
    {
        for (int row = 0; row < 64; ++row) {
            if (!after.used(row) || !after.user(row))
                continue;
            must(after.styles.has(after.slot(row)), "a reference names a present slot");
            if (!before.used(row) || before.record(row) != after.record(row))
                continue;
            // A slot that is empty is free also when an arrangement refers to it: whatever style comes there is
            // from then on the arrangement's. Such references come from a cut in the linked style window.
            if (before.styles.isFree(before.slot(row)))
                continue;
            must(before.styleName(row) == after.styleName(row), "a reference keeps its style");
        }
    }
    void checkStylesKept(const SlotsView& before, const SlotsView& after)
    {
        must(after.count() >= before.count(), "no slot disappears");
        for (int slot = 0; slot < before.count(); ++slot)
            if (!before.isFree(slot))
                must(before.block(slot) == after.block(slot), "a style in use is neither lost nor changed");
    }

    void checkArrPaste()
    {
        const ArrView before(act.before);
        const ArrView after(act.window->bytes());
        const ArrView source(act.snapshot);
        const auto pairs = pairsOf(markedIn(act.snapshot, RowsBase, 64), selectedIn(act.rows), 64,
                                   [&](int row) { return !before.used(row); });
        for (const auto& [from, to] : pairs)
            if (source.used(from) && source.user(from) && source.slot(from) >= 16) {
                must(act.window->bytes() == act.before, "a source that is not valid stores nothing");
                return;
            }
        std::vector<bool> taken(64, false);
        std::size_t refused = 0;
        bool stored = false;
        for (const auto& [from, to] : pairs) {
            taken[static_cast<std::size_t>(to)] = true;
            if (source.used(from) && source.user(from) && !after.used(to)) {
                ++refused;
                must(after.styles.full() || !source.styles.has(source.slot(from)),
                     "only for want of a slot or a style");
                must(after.record(to) == std::string(164, '\0'), "a refused row stays empty");
            } else if (source.used(from) && source.user(from)) {
                // Styles are shared by name alone. A reference to an empty slot is shared too, and that slot stays
                // free: the next style of the same paste may already have come there.
                must(after.user(to) && after.styles.has(after.slot(to)), "the reference names a present slot");
                must(source.styles.isFree(source.slot(from)) || after.styleName(to) == source.styleName(from),
                     "the style goes along");
                std::string expected(source.record(from));
                expected[17] = after.record(to)[17];
                must(after.record(to) == expected, "the record is the source's but for its slot");
                stored = true;
            } else {
                must(after.record(to) == source.record(from), "the record is the source's");
            }
        }
        for (int row = 0; row < 64; ++row)
            if (!taken[static_cast<std::size_t>(row)])
                must(before.record(row) == after.record(row), "a used row is never written over");
        must(act.told ==
                 std::vector<std::string>(refused, "Paste Arrangement/s|Not more than 4 styles per file are allowed"),
             "each refused row is told once");
        checkStylesKept(before.styles, after.styles);
        for (int slot = 0; slot < after.styles.count(); ++slot) {
            if (after.styles.block(slot) == before.styles.block(slot))
                continue;
            must(stored && act.window->at(8) == 2 && act.window->at(9) == 1, "a stored style is marked");
            must(after.styles.isFree(slot) || !before.styles.holds(after.styles.name(slot)),
                 "a style of that name is shared, not stored again");
            must(std::find(source.styles.blocks.begin(), source.styles.blocks.end(), after.styles.block(slot)) !=
                     source.styles.blocks.end(),
                 "a stored style is the source's");
        }
        checkReferences(before, after);
    }
    void checkArrCut()
    {
        const ArrView before(act.before);
        const ArrView after(act.window->bytes());
        const std::string cleared(164, '\0');
        for (int row = 0; row < 64; ++row) {
            const bool cut = act.rows[static_cast<std::size_t>(row)].selected;
            must(after.record(row) == (cut ? std::string_view(cleared) : before.record(row)),
                 "the selected rows go, the others stay");
        }
        must(before.styles.count() == after.styles.count(), "slots stay");
        for (int slot = 0; slot < before.styles.count(); ++slot) {
            const bool lastUserGone = before.users(slot) > 0 && after.users(slot) == 0;
            must(after.styles.block(slot) ==
                     (lastUserGone ? ShortEmpty.block() : std::string(before.styles.block(slot))),
                 "a style goes with its last arrangement and not before");
        }
        bool anyStyle = false;
        for (int slot = 0; slot < after.styles.count(); ++slot)
            anyStyle = anyStyle || after.styles.name(slot) != "- empty -";
        must(act.window->at(8) == (anyStyle ? 2 : 1), "the style state follows the slots");
        bool anyUsed = false;
        for (int row = 0; row < 64; ++row)
            anyUsed = anyUsed || after.used(row);
        must(act.window->button("CommLoadArr") == (anyUsed ? "on" : "off"), "the load button follows the records");
        checkReferences(before, after);
    }

    static std::vector<int> slotsOf(const std::vector<int>& rows)
    {
        std::vector<int> slots;
        for (const int row : rows)
            if (row != 4 && row != 9 && row != 14)
                slots.push_back(row - row / 5);
        return slots;
    }
    void checkStyPaste()
    {
        const SlotsView before(std::string_view(act.before).substr(669));
        const std::string now = act.window->styles();
        const SlotsView after(now);
        const SlotsView source(std::string_view(act.snapshot).substr(669));
        std::vector<std::string> expected(before.blocks.begin(), before.blocks.end());
        std::size_t refused = 0;
        for (const auto& [from, to] : pairsOf(slotsOf(markedIn(act.snapshot, 270, 19)), slotsOf(selectedIn(act.rows)),
                                              16, [&](int slot) { return before.isFree(slot); })) {
            const auto slot = static_cast<std::size_t>(to);
            if (!source.has(from) || slot > expected.size()) {
                ++refused;
                continue;
            }
            if (slot == expected.size())
                expected.emplace_back();
            expected[slot] = source.block(from);
        }
        must(std::equal(expected.begin(), expected.end(), after.blocks.begin(), after.blocks.end()),
             "the marked styles stand in the free slots from the selected one on");
        must(act.told ==
                 std::vector<std::string>(refused, "Paste Arrangement/s|Not more than 4 styles per file are allowed"),
             "each refused style is told once");
        checkStylesKept(before, after);
    }
    void checkStyCut()
    {
        const SlotsView before(std::string_view(act.before).substr(669));
        const std::string now = act.window->styles();
        const SlotsView after(now);
        std::vector<std::string> expected(before.blocks.begin(), before.blocks.end());
        for (const int to : slotsOf(selectedIn(act.rows))) {
            const auto slot = static_cast<std::size_t>(to);
            if (slot == expected.size()) // the first absent slot becomes an empty style, and so the next has a place
                expected.push_back(ShortEmpty.block());
            else if (slot < expected.size())
                expected[slot] = ShortEmpty.block();
        }
        must(std::equal(expected.begin(), expected.end(), after.blocks.begin(), after.blocks.end()),
             "the selected slots and no others become empty styles");
        must(act.told.empty(), "a cut of styles tells nothing");
    }
    /// The arrangement window behind the style window at work: its records stay as they are. A style that was cut there
    /// leaves references to an empty slot: that is how the two windows work together.
    void checkLinkedArrangements(std::string_view before)
    {
        const std::string& after = arrangements->bytes();
        std::string expected(before.substr(0, 42622));
        expected[9] = 1;
        expected[8] = after[8];
        must(std::string_view(after).substr(0, 42622) == expected, "the linked window keeps all but its styles");
        for (int row = 0; row < 64; ++row)
            if (const ArrView view(after); view.used(row) && view.user(row))
                must(view.styles.has(view.slot(row)), "a reference names a present slot");
    }

    void begin(DeskWindow& window, const char* what) override
    {
        linkedBefore_ = arrangements->bytes();
        ModelDesk::begin(window, what);
    }
    void checkCut() override
    {
        if (isStyleWindow(*act.window))
            checkStyCut();
        else
            checkArrCut();
        checkOwner();
    }
    void checkCopied() override
    {
        if (isStyleWindow(*act.window))
            checkCopy(270, 399);
        else
            checkCopy(RowsBase, 1344);
    }
    void checkPaste() override
    {
        if (isStyleWindow(*act.window))
            checkStyPaste();
        else
            checkArrPaste();
        checkOwner();
    }

private:
    /// A style window that shows an arrangement window's styles hands its change on.
    void checkOwner()
    {
        if (act.window == linked)
            checkLinkedArrangements(linkedBefore_);
    }

    std::string linkedBefore_;
};
