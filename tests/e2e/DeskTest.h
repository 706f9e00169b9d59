// What every end-to-end test stands on: a desk with an empty home, and the steps that more than one test takes.
#pragma once

#include "driver/Desk.h"
#include "driver/StepFailed.h"
#include "e2e/Wire.h"

#include <chrono>
#include <gtest/gtest.h>
#include <memory>

enum class Speech { Italian, English };

class DeskTest : public testing::Test
{
protected:
    DeskTest();
    ~DeskTest() override;

    Desk& desk() { return *desk_; }

    /// The first start of a user: chooses the language and waits for the main window.
    void startFirst(Speech speech = Speech::English, const std::string& executable = "tarvolyne-virtual");
    /// Any later start.
    void startAgain(const std::string& executable = "tarvolyne-virtual");
    /// Leaves by the Exit item and expects a clean end.
    void quit();
    void chooseLanguage(Speech speech);

    bool stateFileIsThere(const std::string& name) const;
    std::string sample(const std::string& name) const { return Wire::fileBytes(samplePath(name)); }
    std::string samplePath(const std::string& name) const { return desk_->workFolder() + "/samples/" + name; }
    void openSample(const std::string& name);

    /// Answers the save dialog with a name, and the question about a file that stands there.
    void saveUnder(const std::string& path, bool replaces);

    /// All that the virtual instrument took since the program's start.
    std::string taken() const { return Wire::fileBytes(desk_->stateFolder() + "/VirtualInstrument.syx"); }
    /// Waits until the instrument has taken `expected` behind the first `before` bytes, and nothing else.
    void expectTaken(const std::vector<std::string>& expected, std::size_t before, int milliseconds = 15000);
    /// Waits until nothing more arrives for half a second, and tells how much there is.
    std::size_t takenSoFar() const;

    /// The box that stands on the screen, answered by its button.
    void expectBox(const std::string& title, const std::string& text, const std::string& button = "CommOK");

private:
    std::string folder_;
    std::unique_ptr<Desk> desk_;
};
