// What the tests of the database share: fresh state, databases and arrangement files built by hand from the formats'
// figures.
#pragma once

#include "core/Dichiarazioni.h"
#include "database/TvlDBArr.h"
#include "support/DatabaseFile.h"
#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

using Row = IndexRow;

/// An arrangement file that a refresh lets stay: its ten bytes at 32 and at 672 are the same.
inline std::string arrangement(const std::string& head = "KORG")
{
    std::string file(10528, ' ');
    return file.replace(0, head.size(), head);
}
/// One that a refresh takes out, though it is a good one.
inline std::string changedArrangement() { return arrangement().replace(672, 1, "x"); }

/// Temporary folders in memory, for tests of very many writes: nothing of them asks what a real disk does.
struct MemoryDisk {
    MemoryDisk()
    {
        if (access("/dev/shm", W_OK) == 0)
            setenv("TMPDIR", "/dev/shm", 1);
    }
    ~MemoryDisk() { unsetenv("TMPDIR"); }
    MemoryDisk(const MemoryDisk&) = delete;
    MemoryDisk& operator=(const MemoryDisk&) = delete;
};

class DBArrRoom : public ::testing::Test
{
protected:
    DBArrRoom()
    {
        App = {};
        App.ui = &user;
        App.StateDir = state.path();
        DBArr = {};
    }
    ~DBArrRoom() override
    {
        App = {};
        DBArr = {};
    }
    /// Warnings as "title|text", and forgets them.
    std::vector<std::string> warnings()
    {
        std::vector<std::string> lines;
        for (const ScriptedUser::Said& said : user.warnings)
            lines.push_back(said.title + "|" + said.text);
        user.warnings.clear();
        return lines;
    }
    std::string onDisk() const { return state.get("TvlDBArr"); }

    ScriptedUser user;
    TemporaryFolder state;
    TemporaryFolder songs;
};
