// A walk through the whole running program: every window, dialog and menu is opened as its user would find it, with the
// sample files, and taken into the album.
#pragma once

#include "tools/pictures/Album.h"

#include <string>

class VirtualInstrument;
class frmInstrument;
class frmMain;

struct Walk {
    frmMain& main;
    frmInstrument& instrumentWindow;
    VirtualInstrument& instrument;
    Album& album;
    std::string samples; ///< folder of the sample files

    void run();

private:
    void openSong();
    void playSong();
    void takeDesk();
    void takeChildren();
    void takeFiles();
    void takeEditor();
    void takeDialogs();
    void takeMenus();
};

/// Takes the language window of the first start and answers it; 1 Italian, 2 English.
void chooseLanguage(Album& album, int language);
