// A tour of Tarvolyne for a machine without a display: the real program on a virtual screen, worked by mouse and
// keyboard as a user would, joined to the virtual instrument. It opens the sample song, loads it, walks through some
// arrangements, starts a second time, prints what the instrument holds, and leaves pictures of the windows.
//
//   tarvolyne-tour BIN_FOLDER PICTURE_FOLDER
#include "core/Dichiarazioni.h"
#include "driver/Desk.h"
#include "driver/StepFailed.h"
#include "instrument/VirtualInstrument.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace fs = std::filesystem;

namespace
{

struct Tour {
    Desk& desk;
    std::string pictures;
    bool italian;

    void say(const std::string& text) const { std::cout << "   " << text << std::endl; }
    void picture(const std::string& name, const std::string& window = {}) const
    {
        desk.picture(pictures + "/" + name + ".png", window);
    }
    std::string takenBytes() const
    {
        std::ifstream stream(desk.stateFolder() + "/VirtualInstrument.syx", std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    /// Until the cable has been silent for longer than the pause between two dumps.
    void waitForSilence() const
    {
        std::size_t size = 0;
        int quietLooks = 0;
        waitUntil(
            [&] {
                const std::size_t now = takenBytes().size();
                quietLooks = now == size ? quietLooks + 1 : 0;
                size = now;
                return quietLooks > 150;
            },
            60000);
    }

    void begin() const;
    void openSong() const;
    void loadAndPlay() const;
    void showAccount() const;
    void comeBack() const;
};

void Tour::begin() const
{
    say("First start: the language is asked");
    desk.start("tarvolyne-virtual");
    desk.waitFor("frmLingua");
    picture("1-language", "frmLingua");
    desk.click("frmLingua", italian ? "Option1(0)" : "Option1(1)");
    desk.click("frmLingua", "CommOK");
    desk.bringForward("frmMain");
    picture("2-main-window");
}

void Tour::openSong() const
{
    say("Opening samples/song.arr through the dialog");
    desk.menu("mnuApriArr");
    desk.waitFor("QFileDialog", "fileNameEdit");
    picture("3-open-dialog");
    desk.typeFileName(desk.workFolder() + "/samples/song.arr");
    desk.waitFor("frmArrU");
    desk.settle();
    picture("4-arrangement-window", "frmArrU");
}

void Tour::loadAndPlay() const
{
    say("A click on a row loads what the instrument lacks, then selects the row");
    desk.menu("mnuCaricaArr");
    desk.menu("mnuCaricaSty");
    // " +" marks the rows that play a style of the song's own style file.
    const std::vector<std::string> rows = desk.rows("frmArrU", "List1");
    int played = 0;
    for (std::size_t row = 0; row < rows.size() && played < 4; ++row) {
        if (rows[row].size() < 4 || (played == 0 && rows[row][3] != '+'))
            continue;
        desk.clickRow("frmArrU", "List1", static_cast<int>(row));
        if (played++ == 0)
            waitForSilence();
        say("plays " + rows[row]);
    }
    say("Load Prg sends the song's programs");
    desk.click("frmArrU", "CommLoadPrg");
    waitForSilence();
    picture("5-song-loaded");
    desk.bringForward("frmInstrument");
    picture("6-virtual-instrument", "frmInstrument");
}

void Tour::showAccount() const
{
    VirtualInstrument instrument;
    instrument.take(takenBytes());
    std::cout << "\n" << accountOf(instrument) << "\n";
    if (instrument.malformedCount() != 0 || instrument.arrangements().empty() || instrument.programs().empty())
        throw StepFailed("the instrument does not hold the song");
}

void Tour::comeBack() const
{
    say("Leaving, and starting again: the windows come back");
    desk.quit();
    if (!desk.waitForEnd() || desk.exitCode() != 0)
        throw StepFailed("the program does not end well");
    desk.start("tarvolyne-virtual");
    desk.bringForward("frmMain");
    desk.waitFor("frmArrU");
    desk.settle();
    picture("7-next-start");
    desk.quit();
    if (!desk.waitForEnd() || desk.exitCode() != 0)
        throw StepFailed("the program does not end well");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: tarvolyne-tour BIN_FOLDER PICTURE_FOLDER\n";
        return 2;
    }
    const char* speech = std::getenv("LANG");
    const bool italian = speech && std::string(speech).rfind("it", 0) == 0;
    // The account is told in the language of the tour.
    App.Language = italian ? 1 : 2;
    App.LanguageBase = (App.Language - 1) * 200;

    std::string folder = (fs::temp_directory_path() / "tarvolyne-tour-XXXXXX").string();
    if (!mkdtemp(folder.data())) {
        std::cerr << "no folder for the tour's home\n";
        return 1;
    }
    int result = 0;
    try {
        fs::create_directories(argv[2]);
        Desk desk(folder, argv[1]);
        const Tour tour{desk, argv[2], italian};
        tour.begin();
        tour.openSong();
        tour.loadAndPlay();
        tour.showAccount();
        tour.comeBack();
        std::cout << "   Pictures of the windows are in " << argv[2] << "\n";
    } catch (const StepFailed& failure) {
        std::cerr << "The tour broke off: " << failure.what() << "\n";
        result = 1;
    }
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    return result;
}
