// Runs one change of the database by the program's own routines: updater CASE STATE-FOLDER SONGS-FOLDER. The change
// stands between two signals to itself, which do nothing but show a tracer where it begins and ends. Ends with 0 when
// the change was made, 1 when it was not, 2 for an unknown case.
#include "core/Dichiarazioni.h"
#include "database/DBArrUpdate.h"
#include "database/TvlDBArr.h"
#include "support/ScriptedUser.h"

#include <csignal>
#include <cstring>

namespace
{

/// Leaves every box without trying again.
struct GivingUp : ScriptedUser {
    BoxEnd warn(const std::string&, const std::string&) override { return BoxEnd::Dismissed; }
};

int change(const char* name, const std::string& songs)
{
    if (std::strcmp(name, "create") == 0 || std::strcmp(name, "add") == 0)
        return DBArrAddFile(songs + "/new song");
    if (std::strcmp(name, "delete") == 0)
        return DBArrDelete(4);
    if (std::strcmp(name, "refresh") == 0)
        return DBArrRefresh();
    return std::strcmp(name, "add-all") == 0 ? DBArrAddAll() : -1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    signal(SIGUSR1, SIG_IGN);
    GivingUp user;
    App.ui = &user;
    App.StateDir = argv[2];
    raise(SIGUSR1);
    const int result = change(argv[1], argv[3]);
    raise(SIGUSR1);
    return result < 0 ? 2 : result == DBArrResult::Done ? 0 : 1;
}
