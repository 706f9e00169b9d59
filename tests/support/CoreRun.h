// One run of the logic for one test: fresh shared state, a state folder of its own, a scripted user.
#pragma once

#include "core/Dichiarazioni.h"
#include "core/StateFiles.h"
#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

/// The words from here on, 1 Italian or 2 English.
inline void speakLanguage(int language)
{
    App.Language = language;
    App.LanguageBase = (language - 1) * 200;
}

struct CoreRun {
    TemporaryFolder folder; ///< App.StateDir
    ScriptedUser user;

    CoreRun()
    {
        App = {};
        Device = {};
        App.StateDir = folder.path();
        App.ui = &user;
    }
    ~CoreRun()
    {
        App = {};
        Device = {};
    }
    CoreRun(const CoreRun&) = delete;
    CoreRun& operator=(const CoreRun&) = delete;

    static void speak(int language) { speakLanguage(language); }
};
