// Preparing the disk, acting, looking.
#include "faults/FaultRun.h"

#include "core/Dichiarazioni.h"
#include "files/FileReaders.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>

namespace
{

namespace fs = std::filesystem;

std::optional<std::string> contentOf(const std::string& path)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return std::nullopt;
    std::string bytes(fs::file_size(path, error), '\0');
    std::ifstream(path, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

bool isWhole(const WrittenFile& file, const std::optional<std::string>& now)
{
    const auto begins = [&](const std::optional<std::string>& whole) { return whole && whole->starts_with(*now); };
    if (file.ownLength != 0 && now && now->size() == file.ownLength)
        return true;
    return now == file.before || now == file.after || (!now && file.mayGo) ||
           (now && std::count(file.between.begin(), file.between.end(), *now) > 0) ||
           (file.grows && now && begins(file.after));
}

bool hasUserSuffix(const fs::path& path)
{
    const std::string extension = path.extension().string();
    for (const char* suffix : {".arr", ".sty", ".prg", ".pgg", ".gbl"})
        if (extension == suffix)
            return true;
    return false;
}

bool isTemporary(const std::string& name) { return name.starts_with(".tvl") && name.back() == '~'; }

bool isProgram(const WrittenFile& file) { return file.name.ends_with(".prg") || file.name.ends_with(".pgg"); }

} // namespace

std::vector<std::string> wordsFor(Telling telling, int error)
{
    struct Row {
        int error;
        const char* reading;
        const char* writing;
    };
    static constexpr Row Rows[] = {
        {EIO, "Error I/O device", "Disk writing error"},
        {ENOSPC, "Disk reading error", "Disk full"},
        {EDQUOT, "Disk reading error", "Disk full"},
        {EROFS, "Read only file", "Disk writing error"},
        {ENOMEDIUM, "Disk not ready or not formatted", "Disk not ready or not formatted"},
    };
    std::vector<std::string> words;
    for (const Row& row : Rows) {
        if (row.error != error)
            continue;
        if (telling == Telling::ByReading || telling == Telling::ByBoth)
            words.emplace_back(row.reading);
        if (telling == Telling::ByWriting || telling == Telling::ByBoth)
            words.emplace_back(row.writing);
        if (telling == Telling::ByBoth) // what the exit says of settings that no disk takes
            words.emplace_back(error == ENOSPC || error == EDQUOT ? "Disk full" : row.reading);
    }
    return words;
}

FaultDesk::FaultDesk(const std::string& below)
{
    // A killed process loses nothing that it had handed over, so a disk in memory tells as much, and sooner.
    if (const char* before = getenv("TMPDIR"))
        temporaryBefore_ = before;
    if (access("/dev/shm", W_OK | X_OK) == 0)
        setenv("TMPDIR", "/dev/shm", 1);
    folder_ = new TemporaryFolder;
    site_.root = folder_->path();
    openToAll(site_.root);
    if (!below.empty()) {
        site_.root += "/" + below;
        fs::create_directory(site_.root);
        openToAll(site_.root);
    }
    void* shared = mmap(nullptr, sizeof(FaultOutcome), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    outcome_ = new (shared) FaultOutcome;
}

FaultDesk::~FaultDesk()
{
    if (fs::exists(site_.user()))
        fs::permissions(site_.user(), fs::perms::owner_all, fs::perm_options::add);
    delete folder_;
    munmap(outcome_, sizeof(FaultOutcome));
    if (temporaryBefore_.empty())
        unsetenv("TMPDIR");
    else
        setenv("TMPDIR", temporaryBefore_.c_str(), 1);
}

void FaultDesk::putDisk(const WritePath& path) const
{
    std::error_code none;
    fs::permissions(site_.user(), fs::perms::owner_all, fs::perm_options::add, none);
    for (const std::string& folder : {site_.user(), site_.state()}) {
        fs::remove_all(folder);
        fs::create_directory(folder);
    }
    for (const WrittenFile& file : path.files)
        if (file.before && file.name != path.secondName)
            std::ofstream(file.path(site_), std::ios::binary) << *file.before;
    if (!path.secondName.empty())
        fs::create_hard_link(path.files[0].path(site_), site_.user() + "/" + path.secondName);
    if (path.inPlace)
        fs::permissions(site_.user(), fs::perms::owner_write, fs::perm_options::remove);
}

void FaultDesk::enter(const WritePath& path, int retries)
{
    App = {};
    Files = {};
    user_ = {};
    user_.retries = retries;
    App.ui = &user_;
    App.StateDir = site_.state();
    App.LanguageBase = 200;
    path.ready(site_, user_);
}

int FaultDesk::act(const WritePath& path)
{
    const int result = path.act(site_, user_);
    outcome_->result = result;
    outcome_->untouched = result == 0 || path.untouched();
    for (const ScriptedUser::Said& said : user_.warnings)
        if (const auto number = static_cast<std::size_t>(outcome_->boxes++); number < outcome_->words.size())
            std::snprintf(outcome_->words[number].data(), outcome_->words[number].size(), "%s", said.text.c_str());
    outcome_->ended = true;
    return result == 0 ? 0 : 1;
}

FailedRun FaultDesk::run(const WritePath& path, const Failure& failure, int retries)
{
    *outcome_ = {};
    return runWithFailure(
        failure, [&] { return act(path); },
        [&] {
            putDisk(path);
            enter(path, retries);
        });
}

void FaultDesk::prepare(const WritePath& path, const std::function<void()>& change)
{
    asOrdinaryUser([&] {
        putDisk(path);
        change();
        return 0;
    });
}

FailedRun FaultDesk::again(const WritePath& path)
{
    *outcome_ = {};
    FailedRun run;
    run.result = asOrdinaryUser([&] {
        enter(path, 0);
        return act(path);
    });
    return run;
}

FailedRun FaultDesk::goOn(const WritePath& path, const Failure& failure, int retries)
{
    *outcome_ = {};
    Failure watched = failure;
    watched.changesBelow = changesOnly_ ? site_.root.c_str() : nullptr;
    return runWithFailure(
        watched, [&] { return act(path); },
        [&] {
            user_ = {};
            user_.retries = retries;
        });
}

std::string FaultDesk::runOnSmallDisk(const WritePath& path, int freePages, bool& mounted, bool& saved)
{
    constexpr int NotMounted = 90, Broken = 91;
    *outcome_ = {};
    const int result = asOrdinaryUser([&] {
        if (!mountSmallDisk(site_.root, "size=512k"))
            return NotMounted;
        putDisk(path);
        const fs::space_info space = fs::space(site_.root);
        const auto left = static_cast<std::uintmax_t>(freePages) * 4096;
        if (space.available < left)
            return Broken;
        std::ofstream(site_.root + "/filler") << std::string(space.available - left, 'f');
        enter(path, 0);
        act(path);
        std::string broken = disk(path, Fate::Failed);
        if (broken.empty())
            broken = told(path, ENOSPC);
        std::strncpy(outcome_->words.back().data(), broken.c_str(), outcome_->words.back().size() - 1);
        return broken.empty() ? 0 : Broken;
    });
    mounted = result != NotMounted;
    saved = outcome_->result == 0;
    return result == 0 ? "" : result == Broken ? std::string("broken: ") + outcome_->words.back().data() : "it crashed";
}

/// Copies below Safety are old files, whole; and what a save has replaced or removed is there.
std::string FaultDesk::notKept(const WritePath& path) const
{
    std::vector<std::string> kept;
    if (fs::exists(site_.state() + "/Safety"))
        for (const auto& entry : fs::recursive_directory_iterator(site_.state() + "/Safety"))
            if (entry.is_regular_file() && entry.path().string().back() != '~')
                kept.push_back(*contentOf(entry.path()));
    for (const std::string& copy : kept)
        if (std::none_of(path.files.begin(), path.files.end(),
                         [&](const WrittenFile& file) { return file.before == copy; }))
            return "a safety copy is no old file";
    for (const WrittenFile& file : path.files)
        if (path.keepsCopies && file.before && file.before != file.after && contentOf(file.path(site_)) == file.after &&
            std::find(kept.begin(), kept.end(), *file.before) == kept.end())
            return "there is no safety copy of " + file.name;
    return {};
}

std::string FaultDesk::strangers(const WritePath& path, Fate fate) const
{
    const auto isOurs = [&](const fs::path& found) {
        return std::any_of(path.files.begin(), path.files.end(),
                           [&](const WrittenFile& file) { return file.path(site_) == found; });
    };
    for (const std::string& folder : {site_.user(), site_.state()})
        for (const auto& entry : fs::directory_iterator(folder)) {
            const std::string name = entry.path().filename();
            if (!entry.is_regular_file() || isOurs(entry.path()))
                continue;
            const bool hindered = fate == Fate::Killed || fate == Fate::Hindered;
            // One error can be that of the removing itself: then a copy stays, in the state folder.
            const bool mayStay =
                (hindered && isTemporary(name)) || (fate != Fate::Undisturbed && name.starts_with("SafetyCopy"));
            // The lock stays; so does the file that an opened output begins.
            if (!mayStay && name != "TvlLock" && name != "VirtualInstrument.syx")
                return name + " is left behind";
            if (folder == site_.user() && hasUserSuffix(entry.path()))
                return name + " would show in a dialog";
        }
    return {};
}

std::string FaultDesk::disk(const WritePath& path, Fate fate) const
{
    bool program = false, aProgramFile = false;
    for (const WrittenFile& file : path.files) {
        const auto now = contentOf(file.path(site_));
        program = program || (isProgram(file) && file.before);
        aProgramFile = aProgramFile || (isProgram(file) && now);
        if (isWhole(file, now))
            continue;
        bool kept = false;
        if ((path.inPlace || path.mayBeTorn) && fate != Fate::Failed)
            for (const auto& entry : fs::directory_iterator(site_.state()))
                kept = kept || contentOf(entry.path()) == file.before;
        if (!kept)
            return file.name + " is neither old nor new";
    }
    if (program && !aProgramFile)
        return "of two program files of one stem none is left";
    if (const std::string stranger = strangers(path, fate); !stranger.empty())
        return stranger;
    return fate == Fate::Failed || fate == Fate::Hindered ? std::string() : notKept(path);
}

std::string FaultDesk::notSaved(const WritePath& path) const
{
    for (const WrittenFile& file : path.files) {
        const auto now = contentOf(file.path(site_));
        const bool isNew = file.ownLength != 0 ? now && now->size() == file.ownLength : now == file.after;
        if (!file.silent && !isNew)
            return file.name + " is not the new one";
    }
    return {};
}

std::string FaultDesk::told(const WritePath& path, int error) const { return told(path, std::vector<int>{error}); }

std::string FaultDesk::told(const WritePath& path, const std::vector<int>& errors) const
{
    if (!outcome_->ended)
        return "the act did not end";
    std::vector<std::string> allowed;
    for (const int error : errors)
        for (const std::string& words : wordsFor(path.telling, error))
            allowed.push_back(words);
    for (std::size_t box = 0; box < std::min<std::size_t>(static_cast<std::size_t>(outcome_->boxes), 7); ++box)
        if (std::find(allowed.begin(), allowed.end(), outcome_->words[box].data()) == allowed.end())
            return std::string("the box says: ") + outcome_->words[box].data();
    if (outcome_->result != 0 && outcome_->boxes == 0 && path.telling != Telling::Nothing)
        return "a failure without a word";
    // After an error that trying again made good, the window is that of a saved file.
    const bool madeGood = errors.size() > 1 && notSaved(path).empty();
    if (!outcome_->untouched && !madeGood)
        return "a failure that changed the window";
    const std::string lacking = outcome_->result == 0 && !path.leavesOut ? notSaved(path) : std::string();
    return lacking.empty() ? std::string() : "a false success: " + lacking;
}

std::vector<WritePath> writePaths(const Site& site)
{
    std::vector<WritePath> paths = windowPaths();
    for (WritePath& path : recordPaths(site))
        paths.push_back(std::move(path));
    return paths;
}
