// Loading a whole program file into the instrument, and how its window closes.
#include "ProgramWindows.h"

#include "files/Saving.h"
#include "instrument/VirtualInstrument.h"
#include "instrument/VirtualMidiService.h"

namespace
{

const std::string Notice = "status Loading Program";
const std::string SongPlay = "F0 42 32 4D 4E 06 F7";
const std::string ArrPlay = "F0 42 32 4D 4E 0A F7";
/// 13112 bytes packed seven to eight (1873 whole runs and one byte more), five of head and one of end.
const std::string Dump = "F0 42 32 4D 4C (14992)";
const Lines Load = {Notice, SongPlay, ArrPlay, Dump, "status"};

class PrgLoad : public ProgramWindows
{
protected:
    static Programs songs() { return Programs().record(0, Full, 0, 0, "First").record(63, 0x80, 0, 0, "Last"); }
    static Programs references()
    {
        return Programs("KPGG").record(0, Full, 0, 0, "First").record(5, 1, 1, 77, "Referred");
    }
    /// The records and the second area, as they lie in the file.
    static std::string sentAreas(const std::string& file) { return file.substr(48, 11008) + file.substr(23096, 2104); }
    std::string lastDump() const
    {
        std::string body;
        for (const std::string& message : port.messages())
            if (message.size() > 100)
                body = unpackedBody(message);
        return body;
    }
    std::string infoOnDisk() const { return run.folder.get("TvlCMInfo").substr(150, 50); }
    frmPrgUN* openChanged(bool untitled = false)
    {
        frmPrgUN* window = untitled ? openNew(2) : open(songs().bytes);
        window->Tag.set(6, 1);
        return window;
    }
};

} // namespace

TEST_F(PrgLoad, isAnnouncedThenWalksThroughTheModes)
{
    frmPrgUN* window = open(songs().bytes);
    press(window, "CommLoad");
    EXPECT_EQ(diary, Lines{Notice}) << "the status line paints before the send";
    EXPECT_EQ(timer(window, "TimerLoadPrg")->Interval(), 9);
    settled(window);
    EXPECT_EQ(diary, Load);
    EXPECT_EQ(lastDump(), sentAreas(songs().bytes));
    EXPECT_EQ(timer(window, "TimerLoadPrg")->Interval(), 10);
    EXPECT_EQ(App.DeviceMode, 0);
    EXPECT_EQ(App.InfoPrg, "song");
    EXPECT_EQ(user.prgLabel, "song.prg");
    EXPECT_EQ(infoOnDisk(), fifty("song"));
}

TEST_F(PrgLoad, outOfSongPlayItGoesThereAndBack)
{
    frmPrgUN* window = open(songs().bytes);
    App.DeviceMode = 1;
    press(window, "CommLoad");
    settled(window);
    EXPECT_EQ(diary, (Lines{Notice, ArrPlay, SongPlay, ArrPlay, Dump, SongPlay, "status"}));
    EXPECT_EQ(App.DeviceMode, 1);
}

TEST_F(PrgLoad, outOfGlobalItStaysInArrangementPlay)
{
    frmPrgUN* window = open(songs().bytes);
    App.DeviceMode = 2;
    press(window, "CommLoad");
    settled(window);
    EXPECT_EQ(diary, Load);
    EXPECT_EQ(App.DeviceMode, 0);
}

TEST_F(PrgLoad, ofAPggBlanksItsReferencesAndOfAPrgNothing)
{
    std::string blanked = sentAreas(references().bytes);
    blanked.replace(5 * 172, 20, std::string(20, '\0'));
    frmPrgUN* window = open(references().bytes, 1, 1);
    press(window, "CommLoad");
    settled(window);
    EXPECT_EQ(lastDump(), blanked);
    EXPECT_EQ(user.prgLabel, "song.pgg");

    forget();
    window = open(references().bytes, 2, 0);
    press(window, "CommLoad");
    settled(window);
    EXPECT_EQ(lastDump(), sentAreas(references().bytes));
    EXPECT_EQ(user.prgLabel, "song.prg");
}

TEST_F(PrgLoad, theMonitorShowsTheDumpAfterTheModes)
{
    frmPrgUN* window = open(songs().bytes);
    openMonitor();
    press(window, "CommLoad");
    settled(window);
    EXPECT_EQ(diary, (Lines{Notice, "log cleared", SongPlay, "log " + SongPlay, "log cleared", ArrPlay,
                            "log " + ArrPlay, "log cleared", Dump, "log (14992)", "status"}));
}

TEST_F(PrgLoad, fromTheMenuGoesTheSameWay)
{
    frmPrgUN* window = open(songs().bytes);
    timer(window, "TimerLoadPrg")->enable();
    settled(window);
    EXPECT_EQ(diary, Load);
}

TEST_F(PrgLoad, pressedTwiceBeforeItSendsSendsOnce)
{
    frmPrgUN* window = open(songs().bytes);
    press(window, "CommLoad");
    press(window, "CommLoad");
    settled(window);
    EXPECT_EQ(diary, Load);
}

TEST_F(PrgLoad, pressedDuringTheTransmissionBeginsWithItsFirstStageAndTheTimerFiresOnce)
{
    struct PressingService : DiaryService {
        using DiaryService::DiaryService;
        std::function<void()> during;
        int midiOutLongMsg(std::int32_t handle, std::string_view message) override
        {
            const int result = DiaryService::midiOutLongMsg(handle, message);
            if (message.size() > 100 && during)
                std::exchange(during, {})();
            return result;
        }
    };
    frmPrgUN* window = open(songs().bytes);
    PressingService pressing{diary};
    Midi.service = &pressing;
    pressing.during = [&] { press(window, "CommLoad"); };
    press(window, "CommLoad");
    settled(window);
    EXPECT_EQ(diary, (Lines{Notice, SongPlay, ArrPlay, Dump, Notice, "status", SongPlay, ArrPlay, Dump, "status"}));
    Midi.service = &port;
}

TEST_F(PrgLoad, whatCannotBeNotedIsReportedAndChangesNothingElse)
{
    frmPrgUN* window = open(songs().bytes);
    App.InfoPrg = "before";
    App.StateDir = run.folder.path() + "/gone";
    press(window, "CommLoad");
    settled(window);
    EXPECT_EQ(diary, Load);
    EXPECT_EQ(user.warnings.size(), 1U);
    EXPECT_EQ(App.InfoPrg, "before");
    EXPECT_EQ(user.prgLabel, "");
}

TEST_F(PrgLoad, isOffWhileTheFileHoldsNoProgram)
{
    EXPECT_FALSE(control<QPushButton>(openNew(), "CommLoad")->isEnabled());
    EXPECT_TRUE(control<QPushButton>(open(songs().bytes, 2), "CommLoad")->isEnabled());
    EXPECT_TRUE(control<QPushButton>(open(references().bytes, 3, 1), "CommLoad")->isEnabled());
}

TEST_F(PrgLoad, theInstrumentHoldsTheFilesPrograms)
{
    VirtualInstrument instrument;
    VirtualMidiService service(instrument, [] { return std::string(); });
    Midi.service = &service;
    ASSERT_EQ(service.midiOutOpen(Midi.MidiOutHandle, 0), 0);
    frmPrgUN* window = open(songs().bytes);
    press(window, "CommLoad");
    settled(window);
    EXPECT_EQ(instrument.programs(), songs().bytes.substr(48, 11008));
    EXPECT_EQ(instrument.programSecondArea(), songs().bytes.substr(23096, 2104));
    clickRow(window, 63);
    settled(window);
    EXPECT_EQ(instrument.selectedProgramName(0), "Last");
    EXPECT_EQ(instrument.malformedCount(), 0);
    Midi.service = &port;
}

TEST_F(PrgLoad, closedBeforeItSendsItSendsNothingAndClearsTheStatusLine)
{
    frmPrgUN* window = open(songs().bytes);
    press(window, "CommLoad");
    clickRow(window, 0);
    press(window, "CommClose");
    QTest::qWait(30);
    EXPECT_EQ(diary, (Lines{Notice, "status"}));
}

// Closing.

TEST_F(PrgLoad, anUnchangedWindowClosesWithoutAQuestionAndFreesItsSlot)
{
    frmPrgUN* window = open(songs().bytes, 3);
    const int syncs = shell.syncs;
    press(window, "CommClose");
    EXPECT_TRUE(user.questions.empty());
    EXPECT_FALSE(App.Programs[2].used);
    EXPECT_EQ(App.Programs[2].Open, 0);
    EXPECT_EQ(App.PrgUCount, 0);
    EXPECT_GT(shell.syncs, syncs);
}

TEST_F(PrgLoad, aChangedFileIsAskedForUnderItsNameTypeAndSlot)
{
    for (const int language : {1, 2}) {
        run.speak(language);
        for (const int type : {0, 1}) {
            frmPrgUN* window = open(songs().bytes, 2, type);
            window->Tag.set(6, 1);
            user.questions.clear();
            user.answers = {Answer::Cancel, Answer::No};
            EXPECT_FALSE(window->unloadChild()) << "Cancel stays in the window";
            EXPECT_TRUE(App.Programs[1].used);
            EXPECT_TRUE(window->unloadChild());
            const std::string text = language == 1 ? "Il file è stato modificato\nSalvare le modifiche ?"
                                                   : "The file has changed\nSave changes ?";
            const ScriptedUser::Said asked{type == 0 ? "File Program - song.prg (2)" : "File Program - song.pgg (2)",
                                           text};
            EXPECT_EQ(user.questions, (std::vector<ScriptedUser::Said>{asked, asked}));
            EXPECT_FALSE(run.folder.has("song.prg"));
        }
    }
}

TEST_F(PrgLoad, yesSavesTheFileAndCloses)
{
    frmPrgUN* window = openChanged();
    run.folder.put("song.pgg", "the twin");
    chooseChannel(window, 6);
    user.answers = {Answer::Yes};
    EXPECT_TRUE(window->unloadChild());
    std::string file = songs().bytes;
    file[15] = 6;
    EXPECT_EQ(run.folder.get("song.prg"), file);
    EXPECT_FALSE(run.folder.has("song.pgg"));
}

TEST_F(PrgLoad, anUntitledFileAsksForANameAndACancelledDialogKeepsTheWindow)
{
    frmPrgUN* window = openChanged(true);
    user.answers = {Answer::Yes, Answer::Yes};
    EXPECT_FALSE(window->unloadChild());
    EXPECT_EQ(user.questions[0].title, "File Program - Untitled.prg (2)");
    ASSERT_EQ(user.saveDialogs.size(), 1U);
    EXPECT_TRUE(App.Programs[1].used);

    user.saveFiles = {{true, run.folder.file("mine.prg"), 3}};
    EXPECT_TRUE(window->unloadChild());
    EXPECT_EQ(run.folder.get("mine.prg"), Programs().bytes);
    EXPECT_FALSE(App.Programs[1].used);
}

TEST_F(PrgLoad, aSaveThatFailsKeepsTheWindow)
{
    Files.PrgBuffer = songs().bytes;
    App.Programs[0].path = run.folder.file("gone/song");
    frmPrgUN* window = show(new frmPrgUN(21, 1));
    window->Tag.set(6, 1);
    user.answers = {Answer::Yes, Answer::No};
    EXPECT_FALSE(window->unloadChild());
    EXPECT_EQ(user.warnings.size(), 1U);
    EXPECT_EQ(window->Tag.at(6), 1) << "still to be saved";
    EXPECT_TRUE(window->unloadChild());
}

TEST_F(PrgLoad, aNewFileThatHasItsNameIsSavedThereAtClosingAndKeepsItsCaption)
{
    frmPrgUN* window = openChanged(true);
    user.saveFiles = {{true, run.folder.file("mine.prg"), 3}};
    ASSERT_EQ(FileSaveAs(window->Tag), 0);
    window->showCaption();
    EXPECT_EQ(window->Tag.at(0), 22);
    EXPECT_EQ(title(window), "New File Program - Untitled.prg (2) - MIDI Channel1");
    chooseChannel(window, 12);
    window->Tag.set(6, 1);
    user.answers = {Answer::Yes};
    EXPECT_TRUE(window->unloadChild());
    EXPECT_EQ(user.questions.back().title, "File Program - mine.prg (2)");
    EXPECT_EQ(user.saveDialogs.size(), 1U) << "no second dialog";
    EXPECT_EQ(run.folder.get("mine.prg"), Programs("KORG", 12).bytes);
}

TEST_F(PrgLoad, theSlotKeepsThePlaceForItsNextWindow)
{
    App.ScreenTwipsY = 12;
    openNew(6);
    EXPECT_EQ(App.Programs[5].width, 0) << "an untitled window leaves the slot's place alone";
    open(songs().bytes, 5);
    EXPECT_EQ(App.Programs[4].width, 4600) << "the first window of a slot gives it the standard size";
    EXPECT_EQ(App.Programs[4].height, 7780);
    App.ScreenTwipsY = 15;
    frmPrgUN* window = open(songs().bytes);
    EXPECT_EQ(window->positionInTwips().width, 4810);
    EXPECT_EQ(window->positionInTwips().height, 7780);
    window->resize(400, 480);
    window->move(40, 50);
    press(window, "CommClose");
    EXPECT_EQ(App.Programs[0].width, 6000);
    EXPECT_EQ(App.Programs[0].height, 7200);
    EXPECT_EQ(App.Programs[0].left, 600);
    EXPECT_EQ(App.Programs[0].top, 750);
    window = open(songs().bytes);
    EXPECT_TRUE(window->hasSizeInTwips(6000, 7200));
    EXPECT_EQ(window->pos(), QPoint(40, 50));
    press(window, "CommClose");
    EXPECT_EQ(openNew()->positionInTwips().width, 4810) << "an untitled window comes in the standard size";
}

TEST_F(PrgLoad, atTheExitTheEntryDescribesTheWindowThatIsOpen)
{
    App.Programs[1].readOnly = true;
    frmPrgUN* window = open(references().bytes, 2, 1);
    App.AppClosing = true;
    window->unloadWithoutAsking();
    EXPECT_EQ(App.Programs[1].Open, 1);
    EXPECT_EQ(App.Programs[1].kind, 21);
    EXPECT_EQ(App.Programs[1].programType, 1);
    EXPECT_EQ(App.Programs[1].path, run.folder.file("song"));
    EXPECT_TRUE(App.Programs[1].readOnly);

    openNew(4)->unloadWithoutAsking();
    EXPECT_EQ(App.Programs[3].Open, 0) << "a window without a file has nothing to come back to";
    App.AppClosing = false;
}

TEST_F(PrgLoad, aNewFileThatWasSavedComesBackAsTheFileItIs)
{
    frmPrgUN* window = openChanged(true);
    user.answers = {Answer::Yes};
    user.saveFiles = {{true, run.folder.file("mine.prg"), 3}};
    App.AppClosing = true;
    EXPECT_TRUE(window->queryUnload());
    window->unloadWithoutAsking();
    App.AppClosing = false;
    EXPECT_EQ(App.Programs[1].Open, 1);
    EXPECT_EQ(App.Programs[1].kind, 21);
    EXPECT_EQ(App.Programs[1].path, run.folder.file("mine"));
}
