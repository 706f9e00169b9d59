// The real main window with a window of every kind in it, in one language.
#pragma once

#include "DatabaseDesk.h"

#include "core/NameTables.h"
#include "core/PathNames.h"
#include "programs/ProgramSends.h"
#include "toolkit/QtToolkitWords.h"

#include <set>

/// The parameter is the language: 1 Italian, 2 English.
class EveryWindow : public DatabaseDesk, public testing::WithParamInterface<int>
{
protected:
    EveryWindow()
    {
        PrgSend = {};
        NameTablesBuild();
        InfoFileCheck();
        speak(GetParam());
        if (GetParam() == 1)
            QCoreApplication::installTranslator(&toolkit);
        App.GlobalValid = true;
        App.GlobalChannel = 2;
        App.PathArrA = songs.put("TvlArrA", loadedFile());
        App.PathArrB = songs.put("TvlArrB", loadedFile());
        App.PathPrg = songs.put("TvlPrg", programFile());
        App.PathSty = songs.put("TvlSty", styleFile());
        App.PathGuideIt = TARVOLYNE_SOURCE_DIR "/data/Tarvolyne_GuidaUtente.txt";
        App.PathGuideEn = TARVOLYNE_SOURCE_DIR "/data/Tarvolyne_UserGuide.txt";
        putDatabase({{"song", 3}});
    }
    ~EveryWindow() override
    {
        window.reset();
        PrgSend = {};
    }

    void openFile(const std::string& name, const std::string& bytes, int kind, bool readOnly = false)
    {
        window->openPath(songs.put(name, bytes), kind, readOnly);
        settle();
    }
    /// A window of every kind, read-only and new files among them, and the editor.
    void openEverything()
    {
        start();
        window->resize(1600, 1000);
        for (const int kind : {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 14, 15, 16, 17, 18, 27, 28}) {
            window->showWindow(kind, 0);
            settle();
        }
        openFile("song.arr", loadedFile(), FileKind::Arr);
        openFile("tune.arr", loadedFile(), FileKind::Arr, true);
        openFile("song.sty", styles(), FileKind::Sty);
        openFile("song.prg", programFile(), FileKind::Prg);
        openFile("song.gbl", globalFile(), FileKind::Gbl);
        for (const int kind : {20, 22, 24})
            window->mnuNew_Click(kind);
        ChildWindow* song = arrangementWindow("song");
        ASSERT_NE(song, nullptr);
        window->area()->setActiveSubWindow(song);
        clickRow(song, 0);
        press(song, "CommEdit");
        settle();
        std::set<int> kinds;
        for (const QMdiSubWindow* one : window->area()->subWindowList())
            kinds.insert(dynamic_cast<const ChildWindow*>(one)->windowKind());
        EXPECT_EQ(kinds, (std::set{2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14,
                                   15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 27, 28}));
    }

    ToolkitWords toolkit;
};
