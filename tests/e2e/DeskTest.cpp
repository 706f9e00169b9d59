// Steps that tests share. After a failure the screen's picture and the program's output are kept.
#include "e2e/DeskTest.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace
{

std::string newFolder()
{
    std::string pattern = (fs::temp_directory_path() / "tarvolyne-desk-XXXXXX").string();
    return mkdtemp(pattern.data());
}

} // namespace

DeskTest::DeskTest() : folder_(newFolder()), desk_(std::make_unique<Desk>(folder_, TARVOLYNE_BIN_DIR)) {}

DeskTest::~DeskTest()
{
    if (HasFailure()) {
        const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
        const std::string kept = std::string(TARVOLYNE_FAILED_DIR) + "/" + test->test_suite_name() + "." + test->name();
        std::error_code ignored;
        try {
            desk_->picture(kept + ".png");
        } catch (const StepFailed&) {
            fs::copy_file(folder_ + "/failed.png", kept + ".png", fs::copy_options::overwrite_existing, ignored);
        }
        fs::copy_file(desk_->logFile(), kept + ".log", fs::copy_options::overwrite_existing, ignored);
    }
    desk_.reset();
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

void DeskTest::chooseLanguage(Speech speech)
{
    // It is the first window of a desk, and the window manager may still move it: a press that missed is done again.
    constexpr int Tries = 3;
    constexpr int Milliseconds = 5000;
    const char* option = speech == Speech::Italian ? "Option1(0)" : "Option1(1)";
    desk_->waitFor("frmLingua");
    for (int tries = 0; tries < Tries; ++tries) {
        desk_->click("frmLingua", option);
        if (waitUntil([&] { return desk_->control("frmLingua", option).checked(); }, Milliseconds))
            break;
    }
    for (int tries = 0; tries < Tries; ++tries) {
        desk_->click("frmLingua", "CommOK");
        if (waitUntil([&] { return !desk_->control("frmLingua").there(); }, Milliseconds))
            break;
    }
}

void DeskTest::startFirst(Speech speech, const std::string& executable)
{
    desk_->start(executable);
    chooseLanguage(speech);
    if (executable == "tarvolyne-virtual")
        desk_->bringForward("frmMain");
}

void DeskTest::startAgain(const std::string& executable)
{
    desk_->start(executable);
    desk_->bringForward("frmMain");
}

void DeskTest::quit()
{
    desk_->quit();
    ASSERT_TRUE(desk_->waitForEnd()) << "the program goes on after Exit";
    ASSERT_EQ(desk_->exitCode(), 0);
}

bool DeskTest::stateFileIsThere(const std::string& name) const { return fs::exists(desk_->stateFolder() + "/" + name); }

void DeskTest::openSample(const std::string& name)
{
    desk_->openFile("mnuApriArr", samplePath(name));
    desk_->waitFor("frmArrU");
}

void DeskTest::saveUnder(const std::string& path, bool replaces)
{
    desk_->waitFor("QFileDialog", "fileNameEdit");
    ASSERT_TRUE(waitUntil([&] { return desk_->control("QFileDialog", "fileNameEdit").value("focus") == "1"; }, 5000));
    desk_->key("Ctrl+A");
    desk_->type(path);
    desk_->waitForText("QFileDialog", "fileNameEdit", path);
    // The first Return may go to the list of proposals under the field.
    const auto taken = [&] { return desk_->control("MessageBox").there() || !desk_->control("QFileDialog").there(); };
    for (int tries = 0; tries < 3 && !taken(); ++tries) {
        desk_->key("Return");
        waitUntil(taken, 1000);
    }
    if (replaces)
        desk_->click("MessageBox", "CommYes");
    desk_->waitUntilGone("QFileDialog");
    desk_->settle();
}

void DeskTest::expectTaken(const std::vector<std::string>& expected, std::size_t before, int milliseconds)
{
    std::string whole;
    for (const std::string& message : expected)
        whole += message;
    waitUntil([&] { return taken().size() >= before + whole.size(); }, milliseconds);
    takenSoFar();
    const std::string found = taken().substr(before);
    if (found != whole)
        ADD_FAILURE() << "the instrument took\n"
                      << Wire::inShort(Wire::messages(found)) << "instead of\n"
                      << Wire::inShort(Wire::messages(whole));
}

std::size_t DeskTest::takenSoFar() const
{
    std::size_t size = taken().size();
    auto quietSince = std::chrono::steady_clock::now();
    waitUntil(
        [&] {
            if (taken().size() != size) {
                size = taken().size();
                quietSince = std::chrono::steady_clock::now();
            }
            return std::chrono::steady_clock::now() - quietSince > std::chrono::milliseconds(500);
        },
        10000);
    return size;
}

void DeskTest::expectBox(const std::string& title, const std::string& text, const std::string& button)
{
    const Control box = desk_->waitFor("MessageBox");
    EXPECT_EQ(box.title(), title);
    EXPECT_EQ(box.text(), text);
    desk_->click("MessageBox", button);
}
