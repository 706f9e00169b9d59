// Runs one save of SaveCases.h by the program's own routines: saver CASE FOLDER STATE-FOLDER. The save stands between
// two signals to itself, which do nothing but show a tracer where it begins and ends. Ends with the save's result, 2
// for an unknown case.
#include "files/SaveCases.h"

#include <csignal>
#include <cstdio>

namespace
{

/// Leaves every box without trying again.
struct GivingUp : ScriptedUser {
    BoxEnd warn(const std::string& title, const std::string& text) override
    {
        ScriptedUser::warn(title, text);
        return BoxEnd::Dismissed;
    }
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    signal(SIGUSR1, SIG_IGN);
    GivingUp user;
    App.ui = &user;
    // A sanitizer looks at each class once, at its first call, by system calls of its own: they are none of the save's.
    static_cast<void>(theUser().warn({}, {}));
    static_cast<void>(theUser().saveFile({}));
    static_cast<void>(theUser().confirmOverwrite({}));
    App.StateDir = argv[3];
    App.LanguageBase = 200;
    for (const SaveCase& each : saveCases()) {
        if (std::string(each.name) != argv[1])
            continue;
        raise(SIGUSR1);
        const int result = each.save(argv[2], user);
        raise(SIGUSR1);
        return result;
    }
    std::fprintf(stderr, "no such case: %s\n", argv[1]);
    return 2;
}
