// The program's own records: the database, the settings, the device and information records, what the virtual
// instrument takes, the lock; and start and exit, which write several of them.
#include "faults/WritePath.h"

#include "core/InstanceLock.h"
#include "core/Settings.h"
#include "core/StateFiles.h"
#include "database/DBArrRoom.h"
#include "database/DBArrUpdate.h"
#include "instrument/VirtualMidiService.h"
#include "midi/MIDI.h"
#include "shell/SubMain.h"
#include "support/SettingsImage.h"

#include <memory>

namespace
{

WrittenFile record(const char* name, std::optional<std::string> before, std::optional<std::string> after)
{
    WrittenFile file{Place::State, name, std::move(before), std::move(after)};
    file.ofRun = file.name == "Dornflex";
    return file;
}

// The database, over a folder with three songs.

struct ChangeRow {
    const char* name;
    bool present; ///< there is a database before
    std::vector<Row> after;
    std::function<int(const std::string& songs)> change;
};

ByteBuffer listBefore;

WritePath pathOf(const ChangeRow& row, const Site& site)
{
    const std::vector<Row> rows = {{"gone", 3}, {"song 1", 4}, {"song 2", 5}};
    std::optional<std::string> before;
    if (row.present)
        before = database(rows, site.user());
    WritePath path{row.name,
                   {record("TvlDBArr", before, database(row.after, site.user())),
                    {Place::User, "song 1.arr", arrangement(), arrangement()},
                    {Place::User, "song 2.arr", arrangement(), arrangement()},
                    {Place::User, "other.arr", changedArrangement(), changedArrangement()}},
                   Telling::ByBoth,
                   {},
                   {}};
    path.ready = [](const Site&, FaultUser&) {
        DBArr = {};
        DBArr.DBArrBuffer = listBefore = "what was shown";
    };
    path.act = [row](const Site& here, FaultUser&) { return row.change(here.user()); };
    path.untouched = [] { return DBArr.DBArrBuffer == listBefore && DBArr.DBArrID == 0; };
    path.leavesOut = std::string(row.name) == "database: add all";
    path.keepsCopies = row.present && std::string(row.name) != "database: add";
    return path;
}

std::vector<WritePath> databasePaths(const Site& site)
{
    const auto done = [](int result) { return result == DBArrResult::Done ? 0 : 1; };
    const auto add = [=](const std::string& songs) { return done(DBArrAddFile(songs + "/new song")); };
    const ChangeRow rows[] = {
        {"database: create", false, {{"new song", 3}}, add},
        {"database: add", true, {{"gone", 3}, {"new song", 6}, {"song 1", 4}, {"song 2", 5}}, add},
        {"database: delete",
         true,
         {{"gone", 3}, {"song 2", 5}},
         [=](const std::string&) { return done(DBArrDelete(4)); }},
        {"database: refresh",
         true,
         {{"song 1", 4}, {"song 2", 5}},
         [=](const std::string&) { return done(DBArrRefresh()); }},
        {"database: add all",
         true,
         {{"gone", 3}, {"other", 6}, {"song 1", 4}, {"song 2", 5}},
         [=](const std::string&) { return done(DBArrAddAll()); }},
    };
    std::vector<WritePath> paths;
    for (const ChangeRow& row : rows)
        paths.push_back(pathOf(row, site));
    return paths;
}

// The records beside the settings, by hand from the tables of their fields.

/// 145 bytes: the name, three blank texts, the counts and the handles.
std::string deviceRecord(int users, int thisProgram, int outHandle, int inHandle)
{
    std::string bytes(145, '\0');
    bytes.replace(0, 8, "Dornflex");
    for (const std::size_t text : {50u, 75u, 100u})
        bytes.replace(text, 24, std::string(24, ' '));
    bytes[14] = static_cast<char>(users);
    bytes[18] = static_cast<char>(thisProgram);
    bytes[10] = static_cast<char>(outHandle);
    bytes[46] = static_cast<char>(inHandle);
    return bytes;
}

std::string information(const std::string& arr)
{
    std::string bytes = "TvlCMInfo" + std::string(991, ' ');
    return bytes.replace(50, arr.size(), arr);
}

std::string blankInformation() { return information(""); }

/// The settings after a run that changed one of them: the two folder texts are blanks then.
std::string settingsAfterExit()
{
    std::string image = SettingsImage::fresh(1);
    image[27] = 1;
    return image.replace(250, 238, std::string(238, ' ')).replace(500, 238, std::string(238, ' '));
}

void changeASetting()
{
    Settings& settings = App;
    if (!SettingsFile::decode(SettingsImage::fresh(1), settings))
        std::abort();
    App.AutoArr = true;
}

struct {
    VirtualInstrument instrument;
    std::unique_ptr<VirtualMidiService> service;
    InstanceLock lock;
} Machine;

void joinInstrument(const Site& site)
{
    Machine.service = std::make_unique<VirtualMidiService>(Machine.instrument, [site] { return site.state(); });
    Midi = {};
    Midi.service = Machine.service.get();
}

WrittenFile raw(std::optional<std::string> before, const std::string& after)
{
    WrittenFile file = record("VirtualInstrument.syx", std::move(before), after);
    file.grows = true;
    return file;
}

WritePath settingsPath()
{
    WritePath path{
        "settings", {record("Tarvolyne.ini", SettingsImage::fresh(1), settingsAfterExit())}, Telling::Nothing, {}, {}};
    path.ready = [](const Site&, FaultUser&) { changeASetting(); };
    path.act = [](const Site&, FaultUser&) { return SettingsSave(); };
    return path;
}

WritePath devicePath()
{
    WritePath path{"device record",
                   {record("Dornflex", deviceRecord(0, 0, 0, 0), deviceRecord(1, 1, 0, 0))},
                   Telling::Nothing,
                   {},
                   {}};
    path.ready = [](const Site&, FaultUser&) {
        DeviceRecordInit();
        Device.setUserCount(1);
        Device.setThisProgramIn(1);
    };
    path.act = [](const Site&, FaultUser&) { return DeviceRecordWrite(); };
    return path;
}

std::vector<WritePath> informationPaths()
{
    WritePath sent{
        "information record", {record("TvlCMInfo", information(""), information("song"))}, Telling::ByReading, {}, {}};
    sent.ready = [](const Site&, FaultUser&) { App.InfoArr = "before"; };
    sent.act = [](const Site&, FaultUser&) {
        std::string block(300, ' ');
        return InfoArrSet(block.replace(20, 7, "/a/song"));
    };
    sent.untouched = [] { return App.InfoArr == "before"; };
    WritePath wrong{"information record of a wrong length",
                    {record("TvlCMInfo", "short", information(""))},
                    Telling::ByReading,
                    {},
                    {}};
    wrong.ready = [](const Site&, FaultUser&) {};
    wrong.act = [](const Site&, FaultUser& user) {
        InfoFileCheck();
        return user.warnings.empty() ? 0 : 1;
    };
    return {sent, wrong};
}

std::vector<WritePath> machinePaths()
{
    WritePath played{"what the virtual instrument takes",
                     {raw("of the last run", "\x90\x3C\x40\xF0\x42\xF7")},
                     Telling::Nothing,
                     {},
                     {}};
    played.ready = [](const Site& site, FaultUser&) { joinInstrument(site); };
    played.act = [](const Site&, FaultUser&) {
        std::int32_t handle = 0;
        const bool sent = Midi.service->midiOutOpen(handle, 0) == MidiResult::Done &&
                          Midi.service->midiOutShortMsg(handle, 0x403C90) == MidiResult::Done &&
                          Midi.service->midiOutLongMsg(handle, "\xF0\x42\xF7") == MidiResult::Done;
        return sent ? 0 : 1;
    };
    played.files[0].silent = true;
    WritePath locked{"instance lock", {record("TvlLock", {}, "")}, Telling::Nothing, {}, {}};
    locked.ready = [](const Site&, FaultUser&) {};
    locked.act = [](const Site& site, FaultUser&) { return Machine.lock.acquire(site.state()) ? 1 : 0; };
    locked.files[0].silent = true;
    return {played, locked};
}

std::vector<WritePath> runPaths()
{
    const std::string ours = deviceRecord(1, 1, 1, 2), fresh = deviceRecord(0, 0, 0, 0);
    WrittenFile ini = record("Tarvolyne.ini", {}, SettingsImage::fresh(2));
    ini.between = {SettingsImage::fresh(0)};
    WrittenFile device = record("Dornflex", {}, ours);
    device.between = {fresh};
    WritePath first{"first start",
                    {device, record("TvlCMInfo", {}, information("")), ini, raw({}, "")},
                    Telling::ByReading,
                    {},
                    {}};
    first.ready = [](const Site& site, FaultUser& user) {
        user.language = 2;
        joinInstrument(site);
    };
    first.act = [](const Site&, FaultUser& user) { return SubMain({}) && user.warnings.empty() ? 0 : 1; };
    for (const std::size_t file : {0U, 2U, 3U})
        first.files[file].silent = true;
    WritePath start{"start",
                    {record("Dornflex", fresh, ours),
                     record("Tarvolyne.ini", SettingsImage::fresh(1), SettingsImage::fresh(1)),
                     raw("of the last run", "")},
                    Telling::ByReading,
                    {},
                    {}};
    start.ready = [](const Site& site, FaultUser&) { joinInstrument(site); };
    start.act = first.act;
    WrittenFile information = record("TvlCMInfo", {}, {}); // comes where the settings could not be read
    information.between = {blankInformation()};
    start.files.push_back(information);
    for (WrittenFile& file : start.files)
        file.silent = true;
    WritePath exit{"exit",
                   {record("Dornflex", deviceRecord(1, 1, 7, 8), deviceRecord(0, 0, 0, 8)),
                    record("Tarvolyne.ini", SettingsImage::fresh(1), settingsAfterExit())},
                   Telling::ByBoth,
                   {},
                   {}};
    exit.ready = [](const Site& site, FaultUser&) {
        changeASetting();
        joinInstrument(site);
        Midi.MidiOwner = MidiOutOpen() == MidiResult::Done && MidiInOpen() == MidiResult::Done;
    };
    exit.act = [](const Site&, FaultUser& user) {
        PortRelease::release();
        saveSettingsAtExit();
        return user.warnings.empty() ? 0 : 1;
    };
    exit.files[0].silent = true;
    exit.files[0].mayGo = true; // a record that cannot be read is no better than a foreign one
    // A shared record that is none of the family's goes at the exit.
    WritePath foreign = exit;
    foreign.name = "exit with a foreign device record";
    foreign.files[0] = record("Dornflex", std::string(145, 'x'), {});
    foreign.files[0].silent = true;
    return {first, start, exit, foreign};
}

} // namespace

std::vector<WritePath> recordPaths(const Site& site)
{
    std::vector<WritePath> records = informationPaths();
    records.push_back(settingsPath());
    records.push_back(devicePath());
    const std::pair<const char*, std::vector<WritePath>> groups[] = {{"database", databasePaths(site)},
                                                                     {"records", records},
                                                                     {"virtual instrument and lock", machinePaths()},
                                                                     {"start and exit", runPaths()}};
    std::vector<WritePath> paths;
    for (const auto& [group, part] : groups)
        for (WritePath path : part) {
            path.group = group;
            paths.push_back(std::move(path));
        }
    return paths;
}
