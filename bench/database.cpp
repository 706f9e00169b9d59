// Add All and the refresh of a full arrangement database, beside the time that cat needs for the same 997 files, and
// beside the least that any program must do: list the folder, open, read whole, check and close. All warm, interleaved,
// medians.
//
//   bench_database [ROUNDS [judge]]
//
// With "judge" it fails where a run takes longer than cat; always where the database does not hold all files.
#include "core/Dichiarazioni.h"
#include "database/DBArrTable.h"
#include "database/DBArrUpdate.h"
#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace
{

constexpr int FileCount = 997;
constexpr std::size_t FileSize = 10528;

struct Task {
    const char* name;
    std::function<void()> prepare;
    std::function<void()> run;
    std::vector<double> milliseconds;
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

void makeFiles(const TemporaryFolder& songs)
{
    std::string file(FileSize, ' ');
    file.replace(0, 7, std::string("KORG\x4D\x00\x03", 7));
    for (int i = 0; i < FileCount; ++i)
        songs.put("song" + std::to_string((i * 613) % FileCount) + ".arr", file);
}

void cat(const TemporaryFolder& songs)
{
    std::string script = "cat '" + songs.path() + "'/*.arr > /dev/null";
    std::string shell = "sh", option = "-c";
    char* arguments[] = {shell.data(), option.data(), script.data(), nullptr};
    pid_t child = 0;
    int status = 1;
    if (posix_spawnp(&child, "sh", nullptr, nullptr, arguments, environ) != 0 || waitpid(child, &status, 0) != child ||
        status != 0)
        std::exit(1);
}

void readWhole(const TemporaryFolder& songs)
{
    std::string bytes(FileSize + 1, '\0');
    int good = 0;
    for (const auto& entry : std::filesystem::directory_iterator(songs.path())) {
        const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(entry.path().c_str(), "rb"), std::fclose);
        if (!file)
            continue;
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
        good += std::fread(bytes.data(), 1, bytes.size(), file.get()) == FileSize && bytes.starts_with("KORG");
    }
    if (good != FileCount)
        std::exit(1);
}

int entriesOnDisk()
{
    const DBArrContent read = DBArrRead();
    return read.whole() ? DBArrTable(read.bytes).used() : -1;
}

} // namespace

int main(int argc, char** argv)
{
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 21;
    const bool judge = argc > 2 && std::string(argv[2]) == "judge";
    const TemporaryFolder songs, state;
    ScriptedUser user;
    App.ui = &user;
    App.StateDir = state.path();
    makeFiles(songs);
    const std::string empty = DBArrTable::emptyImage(songs.path());
    const auto putEmpty = [&] { state.put("TvlDBArr", empty); };
    const auto nothing = [] {};
    Task tasks[] = {
        {"cat of all files", nothing, [&] { cat(songs); }, {}},
        {"list, open, read whole, check, close", nothing, [&] { readWhole(songs); }, {}},
        {"Add All into an empty database", putEmpty, [] { DBArrAddAll(); }, {}},
        {"Add All once more", nothing, [] { DBArrAddAll(); }, {}},
        {"refresh", nothing, [] { DBArrRefresh(); }, {}},
    };
    for (int round = 0; round < rounds; ++round)
        for (Task& task : tasks) {
            task.prepare();
            user.sends.clear();
            const auto begin = std::chrono::steady_clock::now();
            task.run();
            const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
            task.milliseconds.push_back(took.count());
        }
    if (entriesOnDisk() != FileCount || !user.warnings.empty()) {
        std::puts("the database does not hold all files");
        return 1;
    }
    const double ofCat = median(tasks[0].milliseconds);
    bool slow = false;
    for (const Task& task : tasks) {
        const double took = median(task.milliseconds);
        std::printf("%-38s %7.2f ms  %5.2f of cat\n", task.name, took, took / ofCat);
        slow = slow || took > ofCat;
    }
    return judge && slow ? 1 : 0;
}
