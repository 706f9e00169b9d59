// Songs of every kind, odd and damaged ones among them; what the program leaves behind is judged against its formats.
#include "monkey/World.h"

#include "arrangements/ArrEdit.h"
#include "clipboard/Clipboard.h"
#include "core/Dichiarazioni.h"
#include "core/NameTables.h"
#include "core/Settings.h"
#include "core/StateFiles.h"
#include "database/TvlDBArr.h"
#include "files/FileReaders.h"
#include "files/WindowBuffer.h"
#include "global/GblState.h"
#include "keyboard/Keys.h"
#include "midi/MIDI.h"
#include "monkey/Damage.h"
#include "programs/ProgramSends.h"
#include "styles/StyleSends.h"

#include <array>
#include <filesystem>
#include <fstream>

namespace
{

namespace fs = std::filesystem;

constexpr std::array SampleNames = {"song.arr", "song.sty", "song.prg", "encore.arr", "encore.pgg", "studio.gbl"};
constexpr std::array StateNames = {"Tarvolyne.ini", "TvlDBArr", "TvlCMInfo", "Dornflex"};
constexpr std::array TemplateNames = {"TvlArrA", "TvlArrB", "TvlSty", "TvlPrg"};

/// Length and first bytes of a file that the program wrote, by the tables of the formats.
struct Format {
    const char* ending;
    long long length; ///< 0: any from `least`
    long long least;
    const char* head;
    std::size_t headSize;
};
constexpr std::array Formats = {
    Format{".arr", 10528, 0, "KORG\x4D\x00\x03", 7},   Format{".sty", 0, 224, "KORG\x4D\x00\x04", 7},
    Format{".prg", 30480, 0, "KORG\x4D\x00\x00", 7},   Format{".pgg", 30480, 0, "KPGG\x4D\x00\x00", 7},
    Format{".gbl", 448, 0, "KORG\x4D\x00\x06\x01", 8}, Format{"Tarvolyne.ini", 11500, 0, "Tarvolyne\0", 10},
    Format{"TvlDBArr", 27221, 0, "TvlDBArr", 8},       Format{"TvlCMInfo", 1000, 0, "", 0},
    Format{"Dornflex", 145, 0, "Dornflex", 8}};

long long timeOf(const std::string& path)
{
    std::error_code ignored;
    return fs::last_write_time(path, ignored).time_since_epoch().count();
}

} // namespace

std::string bytesOfFile(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

World::World(Chance& chance, int damaged)
{
    for (const char* folder : {"home/tarvolyne", "work", "songs/folder.arr"})
        fs::create_directories(root_.file(folder));
    for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "HOME"})
        setenv(variable, root_.file("home").c_str(), 1);
    for (const char* name : {"TvlArrA", "TvlArrB", "TvlSty", "TvlPrg"})
        fs::copy(std::string(TARVOLYNE_BIN_DIR) + "/" + name, workFolder());
    for (const char* name : {"Tarvolyne_GuidaUtente.txt", "Tarvolyne_UserGuide.txt"})
        fs::copy(std::string(TARVOLYNE_SOURCE_DIR) + "/data/" + name, workFolder());
    putSamples();
    putOddFiles(chance);
    putDamaged(chance, damaged);
    fs::current_path(workFolder());
}

void World::put(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    own_[path] = {bytes};
    looked_.erase(path);
}

void World::putSamples()
{
    for (const char* name : SampleNames)
        put(songs() + "/" + name, bytesOfFile(std::string(TARVOLYNE_BIN_DIR) + "/samples/" + name));
}

/// Names and kinds of files that no one thinks of.
void World::putOddFiles(Chance& chance)
{
    const std::string arrangements = bytesOfFile(songs() + "/song.arr");
    const std::string styles = bytesOfFile(songs() + "/song.sty");
    put(songs() + "/BIG LETTERS.ARR", arrangements);
    put(songs() + "/a & b [*] %1 _.arr", arrangements);
    put(songs() + "/a & b [*] %1 _.sty", styles);
    put(songs() + "/perch\xE9.arr", arrangements); // no UTF-8
    put(songs() + "/\xE6\xBC\xA2\xE5\xAD\x97.sty", styles);
    put(songs() + "/" + std::string(200, 'n') + ".arr", arrangements);
    put(songs() + "/.hidden.gbl", bytesOfFile(songs() + "/studio.gbl"));
    put(songs() + "/empty.prg", "");
    put(songs() + "/noise.sty", Damage::noise(60000, chance));
    put(songs() + "/read only.arr", arrangements);
    fs::permissions(songs() + "/read only.arr", fs::perms::owner_read);
    std::error_code ignored;
    fs::create_symlink("nowhere", songs() + "/broken link.arr", ignored);
    fs::create_symlink("song.arr", songs() + "/link.arr", ignored);
}

void World::putDamaged(Chance& chance, int count)
{
    for (int index = 0; index < count; ++index) {
        const std::string source = chance.of(SampleNames);
        const std::string bytes = bytesOfFile(songs() + "/" + source);
        // One name with several endings: the companions of a damaged file are damaged too.
        const std::string stem = songs() + "/bad" + std::to_string(index % ((count + 1) / 2));
        put(stem + source.substr(source.size() - 4), Damage::any(bytes, chance));
    }
}

std::string World::pathToOpen(Chance& chance) const
{
    if (chance.oneIn(20))
        return songs() + (chance.oneIn(2) ? "/nothing.arr" : "/folder.arr");
    if (chance.oneIn(20))
        return workFolder() + "/" + chance.of(TemplateNames);
    std::vector<std::string> paths;
    for (const auto& entry : fs::directory_iterator(songs()))
        paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end()); // the folder's own order is the disk's
    return chance.of(paths);
}

std::string World::pathToSave(Chance& chance)
{
    constexpr std::array Endings = {"", ".arr", ".sty", ".prg", ".pgg", ".gbl", ".txt", "."};
    switch (chance.below(12)) {
    case 0:
        return songs() + "/no folder/name.arr";
    case 1:
        return songs() + "/" + std::string(static_cast<std::size_t>(chance.between(180, 260)), 'x');
    case 2:
    case 3:
        return pathToOpen(chance);
    default:
        return songs() + "/out" + std::to_string(++saves_ % 12) + chance.of(Endings);
    }
}

void World::damageSomething(Chance& chance)
{
    const bool state = chance.oneIn(2);
    const std::string path =
        state ? stateFolder() + "/" + chance.of(StateNames) : workFolder() + "/" + chance.of(TemplateNames);
    const std::string bytes = bytesOfFile(path);
    switch (chance.below(4)) {
    case 0:
        fs::remove(path);
        break;
    case 1:
        put(path, "");
        break;
    default:
        put(path, Damage::any(bytes, chance));
    }
}

void World::chooseLanguage(int language) const
{
    Settings settings;
    SettingsFile::setDefaults(settings);
    ByteBuffer image = SettingsFile::firstImage(settings);
    settings.Language = language;
    settings.LastDirFiles = songs();
    settings.LastDirPrg = songs();
    image = SettingsFile::encode(settings, image);
    std::ofstream(stateFolder() + "/Tarvolyne.ini", std::ios::binary) << image;
    App.StateDir = stateFolder();
    InfoFileCheck();
    DeviceRecordCreate();
    forgetProcess();
}

bool World::isOwnDamage(const std::string& path, const std::string& bytes) const
{
    const auto found = own_.find(path);
    return found != own_.end() && found->second.bytes == bytes;
}

std::string World::faultOfFile(const std::string& path) const
{
    for (const Format& format : Formats) {
        if (!path.ends_with(format.ending))
            continue;
        const std::string bytes = bytesOfFile(path);
        if (isOwnDamage(path, bytes))
            return {};
        const auto size = static_cast<long long>(bytes.size());
        if (format.length != 0 ? size != format.length : size < format.least)
            return path + " has " + std::to_string(size) + " bytes";
        if (bytes.compare(0, format.headSize, std::string(format.head, format.headSize)) != 0)
            return path + " has lost its head";
    }
    return {};
}

std::vector<std::string> World::faultsOfFiles()
{
    std::vector<std::string> faults;
    for (const std::string& folder : {songs(), stateFolder()})
        for (const auto& entry : fs::directory_iterator(folder)) {
            const std::string path = entry.path().string();
            const std::string name = entry.path().filename().string();
            if (name.starts_with(".tvl"))
                faults.push_back(path + " was left by a save");
            if (!entry.is_regular_file())
                continue;
            const long long time = timeOf(path);
            if (const auto known = looked_.find(path); known != looked_.end() && known->second == time)
                continue;
            const std::string fault = faultOfFile(path);
            if (fault.empty())
                looked_[path] = time;
            else
                faults.push_back(fault);
        }
    Settings settings;
    const std::string image = bytesOfFile(stateFolder() + "/Tarvolyne.ini");
    if (!image.empty() && !isOwnDamage(stateFolder() + "/Tarvolyne.ini", image) &&
        !SettingsFile::decode(image, settings))
        faults.push_back("the settings cannot be read again");
    return faults;
}

void World::forgetProcess()
{
    App = {};
    Midi = {};
    Device = {};
    Files = {};
    Clipboard = {};
    PrgSend = {};
    Gbl = {};
    DBArr = {};
    Arr = {};
    StyLoad = {};
    Keys = {};
    Names = {};
    OpenWindows::clear();
}
