// A desk of program windows and a factory bank on which a user copies, cuts and pastes, checked after each step.
#pragma once

#include "ModelDesk.h"

/// The records of a program window, read by hand.
struct PrgView {
    std::string_view tag;
    std::string_view record(int row) const { return tag.substr(static_cast<std::size_t>(318 + 172 * row), 172); }
    int state(int row) const { return static_cast<unsigned char>(record(row)[0]); }
    bool any(int wanted) const
    {
        for (int row = 0; row < 64; ++row)
            if (state(row) == wanted)
                return true;
        return false;
    }
    bool anyUsed() const
    {
        for (int row = 0; row < 64; ++row)
            if (state(row) != 0)
                return true;
        return false;
    }
};

class PrgModel : public ModelDesk
{
protected:
    static constexpr int FileRowsBase = 30750;
    static constexpr int BankRowsBase = 29;

    Programs anyPrograms(int used)
    {
        Programs rows;
        for (int row = 0; row < 64; ++row)
            if (dice->roll(64) < used)
                rows.push_back({row,
                                {dice->oneIn(6) ? 1 : 2 + dice->roll(250), dice->roll(5), dice->roll(128),
                                 dice->oneIn(20) ? " " : "Prg " + std::to_string(dice->roll(1000))}});
        return rows;
    }
    void layDesk() override
    {
        windows.clear();
        book.clear();
        OpenWindows::clear();
        story.clear();
        open(prgTag(21, 1, "/m/one", anyPrograms(30)));
        open(prgTag(21, 2, "/m/two", anyPrograms(2)));
        open(prgTag(22, 3, " (Untitled 3)", {}));
        open(prgBankTag(4 + dice->roll(5)));
        std::string readOnly = prgTag(21, 4, "/m/locked", anyPrograms(50));
        readOnly[1] = 1;
        open(readOnly);
    }
    void checkAlways() override
    {
        const DeskWindow& window = *act.window;
        if (window.Tag.kind() >= 21) {
            const bool refers = PrgView{window.bytes()}.any(1);
            must(window.part(270, 4) == (refers ? "KPGG" : "KORG"), "KPGG exactly when a reference record is there");
            must(window.at(18) == (refers ? 1 : 0), "the type byte says the same");
        }
        if (act.changes)
            checkList();
        checkOthers(nullptr);
    }
    void checkRest()
    {
        const std::string_view after = act.window->bytes();
        const std::string_view before = act.before;
        must(after.substr(274, 44) == before.substr(274, 44) &&
                 after.substr(11326, 19424) == before.substr(11326, 19424),
             "what is no record stays as it was read");
        must(act.told.empty(), "programs tell nothing");
    }
    static std::string reference(int kind, int row)
    {
        const int banks[] = {0, 0, 1, 1, 2};
        const int firsts[] = {0, 64, 0, 64, 0};
        return Program{1, banks[kind - 4], firsts[kind - 4] + row, DeskWindow::bankName(kind, row)}.record();
    }
    void checkPaste() override
    {
        const PrgView before{act.before};
        const PrgView after{act.window->bytes()};
        const PrgView source{act.snapshot};
        const int kind = act.snapshot[0];
        const auto pairs = pairsOf(markedIn(act.snapshot, kind < 21 ? BankRowsBase : FileRowsBase, 64),
                                   selectedIn(act.rows), 64, [&](int row) { return before.state(row) == 0; });
        std::vector<bool> taken(64, false);
        for (const auto& [from, to] : pairs) {
            taken[static_cast<std::size_t>(to)] = true;
            must(after.record(to) == (kind < 21 ? std::string_view(reference(kind, from)) : source.record(from)),
                 "the marked programs stand in the free rows from the selected one on");
        }
        for (int row = 0; row < 64; ++row)
            if (!taken[static_cast<std::size_t>(row)])
                must(after.record(row) == before.record(row), "nothing else changes");
        if (!pairs.empty())
            must(act.window->at(6) == 1 && act.window->button("CommLoad") == "on", "a paste is marked");
        checkRest();
    }
    void checkCut() override
    {
        const PrgView before{act.before};
        const PrgView after{act.window->bytes()};
        const std::string cleared(172, '\0');
        for (int row = 0; row < 64; ++row)
            must(after.record(row) == (act.rows[static_cast<std::size_t>(row)].selected ? std::string_view(cleared)
                                                                                        : before.record(row)),
                 "the selected programs go, the others stay");
        must(act.window->at(6) == 1, "a cut is marked");
        must(act.window->button("CommLoad") == (after.anyUsed() ? "on" : "off"), "the load button follows the records");
        checkRest();
    }
    void checkCopied() override { checkCopy(act.window->Tag.kind() < 21 ? BankRowsBase : FileRowsBase, 1344); }
};
