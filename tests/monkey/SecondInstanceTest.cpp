// Two starts of the real program almost at once: one runs, the other says that one runs already and goes. Whichever
// ends first, and however, the state files are whole, and the next start finds everything in order.
#include "core/Dichiarazioni.h"
#include "core/Settings.h"
#include "core/StateFiles.h"
#include "support/Figures.h"
#include "support/TemporaryFolder.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define UNDER_SANITIZER 1
#endif
#endif

namespace
{

#ifdef UNDER_SANITIZER
constexpr int Pairs = 8; // each start takes four times as long
#else
constexpr int Pairs = 20;
#endif

constexpr const char* OnlyOne = "Not more than one istance is allowed";

/// One process of the real program on Qt's offscreen platform, with a hand in it.
class Started
{
public:
    Started(const TemporaryFolder& home, const std::string& name)
        : log_(home.file(name + ".log")), go_(home.file(name + ".go"))
    {
        child_ = fork();
        if (child_ != 0)
            return;
        setenv("XDG_DATA_HOME", home.path().c_str(), 1);
        setenv("XDG_CONFIG_HOME", home.path().c_str(), 1);
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        setenv("QT_QPA_GENERIC_PLUGINS", "tvlhand", 1);
        setenv("QT_PLUGIN_PATH", TARVOLYNE_BIN_DIR "/../tests/plugins", 1);
        setenv("ASAN_OPTIONS", "detect_leaks=0", 1); // a killed process's neighbours are not asked for leaks
        setenv("TVLHAND_LOG", log_.c_str(), 1);
        setenv("TVLHAND_GO", go_.c_str(), 1);
        if (chdir(TARVOLYNE_BIN_DIR) == 0 && freopen("/dev/null", "w", stderr))
            execl(TARVOLYNE_BIN_DIR "/tarvolyne-virtual", "tarvolyne-virtual", nullptr);
        _exit(126);
    }
    ~Started()
    {
        if (child_ > 0) {
            kill(child_, SIGKILL);
            waitpid(child_, nullptr, 0);
        }
    }
    Started(const Started&) = delete;
    Started& operator=(const Started&) = delete;

    /// The first thing that it showed: "main", or "box" and a text; empty after two minutes without any.
    std::string shown() const
    {
        std::string line;
        eventually([&] { return static_cast<bool>(std::getline(std::ifstream(log_), line)); });
        return line;
    }
    /// Closes what stands there; its exit code, -1 when it did not end.
    int leave()
    {
        std::ofstream(go_) << "go";
        return ended();
    }
    void die()
    {
        kill(child_, SIGKILL);
        ended();
    }

private:
    static bool eventually(const std::function<bool()>& done)
    {
        constexpr int Tries = 24000;
        for (int each = 0; each < Tries; ++each) {
            if (done())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return false;
    }
    int ended()
    {
        int status = 0;
        if (!eventually([&] { return waitpid(child_, &status, WNOHANG) == child_; }))
            return -1;
        child_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string log_, go_;
    pid_t child_ = 0;
};

class SecondInstance : public testing::Test
{
protected:
    /// A home whose program has run once, in English.
    static void prepare(const TemporaryFolder& home)
    {
        std::filesystem::create_directory(home.file("tarvolyne"));
        Settings settings;
        SettingsFile::setDefaults(settings);
        ByteBuffer image = SettingsFile::firstImage(settings);
        settings.Language = 2;
        home.put("tarvolyne/Tarvolyne.ini", SettingsFile::encode(settings, image));
        App.StateDir = home.file("tarvolyne");
        InfoFileCheck();
        DeviceRecordCreate();
        App = {};
    }
    static void expectWhole(const TemporaryFolder& home, int userCount)
    {
        EXPECT_EQ(home.get("tarvolyne/Tarvolyne.ini").size(), 11500U);
        EXPECT_EQ(home.get("tarvolyne/TvlCMInfo").size(), 1000U);
        const std::string record = home.get("tarvolyne/Dornflex");
        ASSERT_EQ(record.size(), 145U);
        EXPECT_EQ(record.substr(0, 8), "Dornflex");
        EXPECT_EQ(static_cast<int>(record[14]), userCount) << "UserCount";
        EXPECT_EQ(static_cast<int>(record[18]), userCount) << "ThisProgramIn";
    }
};

enum class End { RunningFirst, ToldFirst, RunningKilled, ToldKilled };

TEST_F(SecondInstance, oneOfTwoStartsRunsAndTheOtherIsToldWhateverTheirOrder)
{
    for (int pair = 0; pair < Pairs; ++pair) {
        SCOPED_TRACE("pair " + std::to_string(pair));
        const TemporaryFolder home;
        prepare(home);
        Started one(home, "one");
        std::this_thread::sleep_for(std::chrono::milliseconds(100 * pair / (Pairs - 1)));
        Started other(home, "other");
        const std::string first = one.shown(), second = other.shown();
        ASSERT_TRUE((first == "main") != (second == "main")) << first << " | " << second;
        Started& running = first == "main" ? one : other;
        Started& told = first == "main" ? other : one;
        EXPECT_EQ(first == "main" ? second : first, std::string("box ") + OnlyOne);
        expectWhole(home, 1);

        const auto end = static_cast<End>(pair % 4);
        if (end == End::RunningFirst) {
            EXPECT_EQ(running.leave(), 0);
            expectWhole(home, 0);
        }
        if (end == End::RunningKilled)
            running.die();
        if (end == End::ToldKilled) {
            told.die();
        } else {
            EXPECT_EQ(told.leave(), 0);
        }
        // A refused start leaves the record of the running one alone, and a killed one could not bring it up to date.
        expectWhole(home, end == End::RunningFirst ? 0 : 1);
        if (end == End::ToldFirst || end == End::ToldKilled) {
            EXPECT_EQ(running.leave(), 0);
        }

        Started next(home, "next");
        EXPECT_EQ(next.shown(), "main");
        expectWhole(home, 1);
        EXPECT_EQ(next.leave(), 0);
        expectWhole(home, 0);
    }
    noteFigure("R11", "pairs of starts", Pairs);
}

} // namespace
