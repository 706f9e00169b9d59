// The ways to save, each with what stands on disk before and after, and what a save that fails must leave.
#pragma once

#include "files/RefusingDisk.h"
#include "files/SavingFixture.h"
#include "support/OtherUser.h"

namespace SavingWays
{

using namespace SavingWindows;
using Names = std::vector<std::string>;

inline constexpr const char* Title = "Tarvolyne - Tarvolyne Console ";
inline constexpr int Always = 1000;
inline const std::string OldSty = styleFile({{"Old Style", 300}});
inline const std::string NewSty = styleFile({{"One", 300}, {"Two", 500}, {"Three", 400}, {"Four", 324}});

/// One way to save, with what stands on disk before and after.
struct Way {
    const char* name;
    int filter; ///< of Save As; 0 for Save
    WindowBuffer tag;
    std::string file;
    std::string content;
};

} // namespace SavingWays

using namespace SavingWays;

class SavingErrors : public SavingTest
{
protected:
    ~SavingErrors() override { disk = {}; }

    /// Save of each kind to "song", which exists with old bytes.
    std::vector<Way> saves()
    {
        return {{"arr", 0, arrangements(19, song(), 0, ""), "song.arr", handMade(arrHead(), 10528)},
                {"new arr", 0, arrangements(20, song(), 1, ""), "song.arr", handMade(arrHead(), 10528)},
                {"prg", 0, programs(21, song(), 0), "song.prg", handMade(prgHead(), 30480)},
                {"pgg", 0, programs(21, song(), 1), "song.pgg", handMade(pggHead(), 30480)},
                {"sty", 0, styles(23, song(), NewSty), "song.sty", NewSty},
                {"gbl", 0, globals(25, song()), "song.gbl", handMade(gblHead(), 448)}};
    }
    /// Save As of each kind to "song". A style file is written by the routine that Save uses, and reports as it does.
    std::vector<Way> saveAses()
    {
        return {{"bank", 1, bank(2), "song.arr", handMade(arrHead(), 10528)},
                {"arr as", 1, arrangements(19, "/music/x", 1, ""), "song.arr", handMade(arrHead(), 10528)},
                {"prg as", 3, programs(21, "/music/x", 0), "song.prg", handMade(prgHead(), 30480)},
                {"gbl as", 5, globals(25, "/music/x"), "song.gbl", handMade(gblHead(), 448)}};
    }
    std::vector<Way> allWays()
    {
        std::vector<Way> ways = saves();
        for (Way& way : saveAses())
            ways.push_back(way);
        ways.push_back({"sty as", 2, styles(23, "/music/x", NewSty), "song.sty", NewSty});
        return ways;
    }

    int run(Way& way)
    {
        if (way.filter != 0)
            choose(folder.file(way.file), way.filter);
        return way.filter == 0 ? FileSave(way.tag) : FileSaveAs(way.tag);
    }

    /// Runs a save that must fail: the words, once for each try, nothing changed.
    void expectFails(Way way, const std::string& words, std::size_t tries = 1)
    {
        SCOPED_TRACE(way.name);
        const ByteBuffer before = way.tag.bytes();
        user.warnings.clear();
        EXPECT_EQ(run(way), 1);
        EXPECT_EQ(user.warnings, std::vector<ScriptedUser::Said>(tries, {Title, words}));
        EXPECT_EQ(way.tag.bytes(), before) << "the window stays modified";
    }

    /// The same in a process of an ordinary user. 0 when all held.
    int failsWith(Way way, const std::string& words)
    {
        const ByteBuffer before = way.tag.bytes();
        user.warnings.clear();
        if (run(way) != 1)
            return 1;
        if (user.warnings != std::vector<ScriptedUser::Said>{{Title, words}})
            return 2;
        return way.tag.bytes() == before ? 0 : 3;
    }

    void putOld(const Way& way) { folder.put(way.file, "old"); }
    std::size_t copyCount() const
    {
        std::size_t count = 0;
        std::error_code none;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(state.path(), none))
            count += entry.is_regular_file() ? 1 : 0;
        return count;
    }
};
