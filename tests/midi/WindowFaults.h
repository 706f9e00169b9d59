// A load from a real window over a cable that goes wrong.
#pragma once

#include "midi/FaultyCable.h"
#include "support/Figures.h"
#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

struct WindowUnderFaults {
    std::string name;
    std::function<void()> act;         ///< what the user does, to its end; each time the same bytes go out
    std::function<std::string()> look; ///< what must be as after a load that went well
    std::size_t dump;                  ///< bytes of the message that fails
};

/// Lets the cable fail in every way at places of the dump: one box, the window as it should be, and the next press
/// loads. The words are English.
inline void worksThroughFaults(const WindowUnderFaults& window, ScriptedUser& user)
{
    using Warnings = std::vector<ScriptedUser::Said>;
    const Warnings once{{"Tarvolyne - Tarvolyne Console ", "Error opening Output MIDI Device"}};
    const auto warnings = [&user] { return std::exchange(user.warnings, {}); };
    std::string whole, well;
    {
        FaultyCable cable;
        cable.open();
        cable.breakAfter(CableFault::Dies, 1'000'000);
        window.act();
        ASSERT_EQ(warnings(), Warnings{});
        whole = cable.arrived();
        well = window.look();
        ASSERT_GE(whole.size(), window.dump);
        ASSERT_EQ(whole.substr(whole.size() - window.dump, 2), "\xF0\x42") << "the dump is what goes out last";
    }
    const std::size_t lead = whole.size() - window.dump;
    long long cases = 0;
    for (const std::size_t place : {std::size_t{0}, std::size_t{65}, window.dump / 2, window.dump - 100})
        for (const CableFault fault : CableFaults) {
            SCOPED_TRACE(std::to_string(static_cast<int>(fault)) + " at " + std::to_string(place));
            FaultyCable cable;
            cable.open();
            cable.breakAfter(fault, static_cast<std::int64_t>(lead + place));
            window.act();
            EXPECT_EQ(warnings(), once);
            EXPECT_TRUE(window.look() == well) << "the window";
            cable.mend();
            window.act();
            EXPECT_EQ(warnings(), Warnings{});
            EXPECT_TRUE(cable.arrived() == whole) << cable.arrived().size();
            EXPECT_TRUE(window.look() == well);
            ++cases;
        }
    FaultyCable cable;
    cable.bay->unplug(FaultyCable::Interface);
    cable.open();
    EXPECT_EQ(warnings(), (Warnings{{once[0].title, "Output MIDI Device not found"}}));
    window.act();
    EXPECT_EQ(warnings(), Warnings{}) << "without a device it is an editor of files";
    EXPECT_TRUE(window.look() == well);
    noteFigure("R12", "faults of the cable under a load from " + window.name, cases + 1);
}
