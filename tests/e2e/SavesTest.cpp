// Saves of the real program: what its user changed is there at the next opening, and at each call by which a save
// changes a file, each file is wholly the old or the new one.
#include "e2e/DeskTest.h"
#include "e2e/SaveWatch.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>

namespace
{

namespace fs = std::filesystem;

const std::string OldFile(20000, 'o');

struct SavedFile {
    std::string name;
    std::optional<std::string> before; ///< nothing: the file is absent
    std::optional<std::string> after;
};

class Saves : public DeskTest
{
protected:
    std::string folder() const { return fs::path(samplePath("x")).parent_path(); }
    std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder()))
            found.push_back(entry.path().filename());
        std::sort(found.begin(), found.end());
        return found;
    }
    void put(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(samplePath(name), std::ios::binary) << bytes;
    }

    /// A sample as a save writes it: a style file comes in whole units of four bytes.
    std::string savedSample(const std::string& name) const
    {
        std::string bytes = sample(name);
        if (name.ends_with(".sty"))
            bytes.resize((bytes.size() + 3) / 4 * 4, '\0');
        return bytes;
    }

    void prepareDisk(const std::vector<SavedFile>& files) const
    {
        for (const SavedFile& file : files)
            if (file.before)
                put(file.name, *file.before);
            else
                fs::remove(samplePath(file.name));
    }
    bool isSaved(const std::vector<SavedFile>& files) const
    {
        return std::all_of(files.begin(), files.end(), [this](const SavedFile& file) {
            return fs::exists(samplePath(file.name)) == file.after.has_value() &&
                   (!file.after || sample(file.name) == *file.after);
        });
    }
    /// Empty when every file is the old or the new one, and nothing else would show in a dialog.
    std::string whatIsBroken(const std::vector<SavedFile>& files, const std::vector<std::string>& namesBefore) const
    {
        for (const SavedFile& file : files) {
            const bool there = fs::exists(samplePath(file.name));
            const std::string now = there ? sample(file.name) : std::string();
            if (there ? now != file.before && now != file.after : file.before && file.after)
                return file.name + " is neither old nor new";
        }
        for (const std::string& name : names())
            if (name[0] != '.' && !std::count(namesBefore.begin(), namesBefore.end(), name) &&
                std::none_of(files.begin(), files.end(), [&](const SavedFile& file) { return file.name == name; }))
                return name + " came into the folder";
        const std::string safety = desk_().stateFolder() + "/Safety";
        if (!fs::exists(safety))
            return {};
        for (const auto& entry : fs::recursive_directory_iterator(safety))
            if (entry.is_regular_file() && entry.path().string().back() != '~' &&
                std::none_of(files.begin(), files.end(),
                             [&](const SavedFile& file) { return Wire::fileBytes(entry.path()) == file.before; }))
                return entry.path().string() + " is no old file";
        return {};
    }
    Desk& desk_() const { return const_cast<Saves*>(this)->desk(); }

    /// Runs `save`, looks at the disk at each of its calls, and expects it done. How many calls there were.
    int expectWholeThroughout(const std::vector<SavedFile>& files, const std::function<void()>& save)
    {
        const std::vector<std::string> namesBefore = names();
        std::vector<std::string> broken;
        SaveWatch watch(desk().processId(), {folder(), desk().stateFolder() + "/Safety"}, [&](const std::string& call) {
            if (const std::string what = whatIsBroken(files, namesBefore); !what.empty())
                broken.push_back("before " + call + ": " + what);
        });
        EXPECT_TRUE(watch.possible());
        save();
        EXPECT_TRUE(waitUntil([&] { return isSaved(files); }, 10000));
        desk().settle();
        watch.stop();
        EXPECT_EQ(broken, std::vector<std::string>{});
        EXPECT_EQ(whatIsBroken(files, namesBefore), "");
        EXPECT_GE(watch.callCount(), 4);
        return watch.callCount();
    }

    void waitForSave(const std::string& window)
    {
        desk().waitFor(window);
        desk().bringForward("frmMain");
        ASSERT_TRUE(waitUntil([&] { return desk().action("mnuSalva").enabled(); }, 10000));
    }
};

// Killed in the midst of a save.

struct KilledSave {
    const char* name;
    const char* menu;
    const char* window;
    const char* opened;
    const char* second;   ///< the companion, or the program file of the other kind
    bool secondIsRemoved; ///< it goes with the save
    bool comesBack;       ///< the window is part of the session
};

class KilledSaves : public Saves, public testing::WithParamInterface<KilledSave>
{
};

TEST_P(KilledSaves, leaveTheOldOrTheNewFiles)
{
    const KilledSave& kind = GetParam();
    std::vector<SavedFile> files{{kind.opened, OldFile, savedSample(kind.opened)}};
    if (kind.second && kind.secondIsRemoved)
        files.push_back({kind.second, OldFile, {}});
    else if (kind.second)
        files.push_back({kind.second, OldFile, savedSample(kind.second)});
    startFirst();
    desk().openFile(kind.menu, samplePath(kind.opened));
    waitForSave(kind.window);
    quit();
    const auto start = [&] {
        for (const SavedFile& file : files) // what the window reads
            if (file.after)
                put(file.name, *file.after);
            else
                fs::remove(samplePath(file.name));
        desk().start("tarvolyne-virtual");
        if (!kind.comesBack)
            desk().openFile(kind.menu, samplePath(kind.opened));
        waitForSave(kind.window);
        prepareDisk(files); // what stands there when it saves
        fs::remove_all(desk().stateFolder() + "/Safety");
    };

    start();
    const int calls = expectWholeThroughout(files, [&] { desk().key("Ctrl+S"); });
    const std::vector<std::string> namesBefore = names();
    for (int killAt = 1; killAt <= calls; ++killAt) {
        start();
        SaveWatch watch(
            desk().processId(), {folder(), desk().stateFolder() + "/Safety"}, [](const std::string&) {}, killAt);
        desk().key("Ctrl+S");
        ASSERT_TRUE(waitUntil([&] { return watch.killed(); }, 10000)) << killAt;
        watch.stop();
        ASSERT_TRUE(desk().waitForEnd());
        EXPECT_EQ(whatIsBroken(files, namesBefore), "") << "killed at call " << killAt;
    }
}

INSTANTIATE_TEST_SUITE_P(
    OfEachKind, KilledSaves,
    testing::Values(KilledSave{"arrangements", "mnuApriArr", "frmArrU", "song.arr", "song.sty", false, true},
                    KilledSave{"programs", "mnuApriPrg", "frmPrgUN", "song.prg", "song.pgg", true, true},
                    KilledSave{"styles", "mnuApriSty", "frmStyUN", "song.sty", nullptr, false, false},
                    KilledSave{"globals", "mnuApriGbl", "frmGbl", "studio.gbl", nullptr, false, false}),
    [](const testing::TestParamInfo<KilledSave>& each) { return std::string(each.param.name); });

// The other ways to save: looked at at each call, which is all that a kill there could leave.

TEST_F(Saves, newFilesUnderTheNamesOfOldOnesAreWholeThroughout)
{
    startFirst();
    const std::string styles = Wire::fileBytes(desk().workFolder() + "/TvlSty");
    desk().menu("mnuNuovoSty");
    waitForSave("frmStyUN");
    std::vector<SavedFile> files{{"new.sty", OldFile, std::nullopt}};
    prepareDisk(files);
    // What a new style window holds is written out in the file that comes first.
    desk().key("Ctrl+S");
    saveUnder(samplePath("first.sty"), false);
    ASSERT_TRUE(waitUntil([&] { return fs::exists(samplePath("first.sty")); }, 10000));
    EXPECT_EQ(sample("first.sty").size(), styles.size());
    files[0].after = sample("first.sty");
    expectWholeThroughout(files, [&] {
        desk().key("Ctrl+S"); // a new style window asks for a name again
        saveUnder(samplePath("new.sty"), true);
    });

    desk().menu("mnuNuovoPrg");
    waitForSave("frmPrgUN");
    files = {{"new.prg", OldFile, Wire::fileBytes(desk().workFolder() + "/TvlPrg")}, {"new.pgg", OldFile, {}}};
    prepareDisk(files);
    expectWholeThroughout(files, [&] {
        desk().key("Ctrl+S");
        saveUnder(samplePath("new.prg"), true);
    });
    prepareDisk(files);
    expectWholeThroughout(files, [&] { desk().key("Ctrl+S"); }); // by the name it has now

    desk().menu("mnuNuovoArr");
    waitForSave("frmArrNew");
    std::string arr = Wire::fileBytes(desk().workFolder() + "/TvlArrA");
    std::fill(arr.begin() + 32, arr.end(), '\0');
    files = {{"new.arr", OldFile, arr}};
    prepareDisk(files);
    expectWholeThroughout(files, [&] {
        desk().key("Ctrl+S");
        saveUnder(samplePath("new.arr"), true);
    });
    // A new set without styles of its own owns the name: the style file goes.
    files.push_back({"new.sty", OldFile, {}});
    prepareDisk(files);
    fs::remove_all(desk().stateFolder() + "/Safety");
    expectWholeThroughout(files, [&] { desk().key("Ctrl+S"); });
}

TEST_F(Saves, theSaveAtClosingIsWholeThroughout)
{
    startFirst();
    openSample("encore.arr"); // without a style file
    std::string arr = sample("encore.arr");
    const int row = Wire::rowWithFactoryStyle(arr);
    desk().clickRow("frmArrU", "List1", row);
    desk().key("Delete");
    ASSERT_TRUE(waitUntil([&] { return desk().rows("frmArrU", "List1") != Wire::rowTexts(arr); }, 5000));
    arr.replace(32 + 164 * static_cast<std::size_t>(row), 164, std::string(164, '\0'));
    const std::vector<SavedFile> files{{"encore.arr", sample("encore.arr"), arr}, {"encore.sty", OldFile, {}}};
    prepareDisk(files);
    expectWholeThroughout(files, [&] {
        desk().click("frmArrU", "CommClose");
        expectBox("File Arr - encore.arr (1)", "The file has changed\u2028Save changes ?", "CommYes");
        desk().waitUntilGone("frmArrU");
    });
    quit();
}

// Changed, saved, opened again.

TEST_F(Saves, anArrangementChangedInTheEditorComesBackWithItsCompanions)
{
    startFirst();
    openSample("song.arr");
    std::string arr = sample("song.arr");
    const std::string sty = savedSample("song.sty"), prg = sample("song.prg");
    const int row = Wire::rowWithUserStyle(arr);
    desk().clickRow("frmArrU", "List1", row);
    const std::string style = desk().control("frmArrU", "Combo1").text();
    ASSERT_NE(style, "");
    desk().click("frmArrU", "CommEdit");
    desk().waitFor("frmEditArr");
    desk().click("frmEditArr", "Text1(0)"); // the name
    desk().key("Ctrl+A");
    desk().type("Desk Song");
    desk().key("Ctrl+W");
    expectBox("Edit Arrangement  song.arr / Desk Song", "The Arrangement has changed.\u2028Save changes ?", "CommYes");
    desk().waitUntilGone("frmEditArr");
    EXPECT_EQ(sample("song.arr"), arr) << "nothing is written before Save";

    // Ten letters, as the instrument's panel shows; the tail of the sixteen stays.
    arr.replace(32 + 164 * static_cast<std::size_t>(row), 10, "Desk Song ");
    desk().bringForward("frmMain");
    desk().key("Ctrl+S");
    ASSERT_TRUE(waitUntil([&] { return sample("song.arr") == arr; }, 5000));
    EXPECT_EQ(sample("song.sty"), sty);
    EXPECT_EQ(sample("song.prg"), prg);
    desk().click("frmArrU", "CommClose");
    desk().waitUntilGone("frmArrU"); // saved: nothing is asked
    openSample("song.arr");
    EXPECT_EQ(desk().rows("frmArrU", "List1"), Wire::rowTexts(arr));
    desk().clickRow("frmArrU", "List1", row);
    EXPECT_EQ(desk().control("frmArrU", "Combo1").text(), style);
    EXPECT_TRUE(desk().control("frmArrU", "CommShowPrg").enabled());
    quit();
}

TEST_F(Saves, rowsCutFromStylesAndProgramsStayCut)
{
    startFirst();
    const struct {
        const char* menu;
        const char* window;
        const char* file;
    } kinds[] = {{"mnuApriPrg", "frmPrgUN", "song.prg"}, {"mnuApriSty", "frmStyUN", "song.sty"}};
    for (const auto& kind : kinds) {
        SCOPED_TRACE(kind.file);
        const std::string before = sample(kind.file);
        desk().openFile(kind.menu, samplePath(kind.file));
        waitForSave(kind.window);
        const std::vector<std::string> rows = desk().rows(kind.window, "List1");
        desk().clickRow(kind.window, "List1", 2);
        desk().key("Delete");
        ASSERT_TRUE(waitUntil([&] { return desk().rows(kind.window, "List1") != rows; }, 5000));
        const std::vector<std::string> cut = desk().rows(kind.window, "List1");
        EXPECT_EQ(sample(kind.file), before) << "nothing is written before Save";
        desk().key("Ctrl+S");
        ASSERT_TRUE(waitUntil([&] { return sample(kind.file) != before; }, 5000));
        desk().key("Ctrl+W");
        desk().waitUntilGone(kind.window);
        desk().openFile(kind.menu, samplePath(kind.file));
        desk().waitFor(kind.window);
        EXPECT_EQ(desk().rows(kind.window, "List1"), cut);
    }
    quit();
}

TEST_F(Saves, aGlobalSettingChangedComesBack)
{
    startFirst();
    const std::string before = sample("studio.gbl");
    desk().openFile("mnuApriGbl", samplePath("studio.gbl"));
    waitForSave("frmGbl");
    const bool checked = desk().control("frmGbl", "GblCheck1(0)").checked();
    desk().click("frmGbl", "GblCheck1(0)");
    desk().key("Ctrl+S");
    ASSERT_TRUE(waitUntil([&] { return sample("studio.gbl") != before; }, 5000));
    const std::string saved = sample("studio.gbl");
    ASSERT_EQ(saved.size(), 448u);
    int changed = 0;
    for (std::size_t i = 0; i < 448; ++i)
        changed += saved[i] != before[i];
    EXPECT_EQ(changed, 1);
    desk().key("Ctrl+W");
    desk().waitUntilGone("frmGbl"); // saved: nothing is asked
    desk().openFile("mnuApriGbl", samplePath("studio.gbl"));
    desk().waitFor("frmGbl");
    EXPECT_EQ(desk().control("frmGbl", "GblCheck1(0)").checked(), !checked);
    quit();
}

} // namespace
