// The user interface of a run that has none yet: routines may speak at any time and need no check for it.
#include "core/Dichiarazioni.h"
#include "core/UserInterface.h"

namespace
{

struct MuteUser final : UserInterface {
    BoxEnd warn(const std::string&, const std::string&) override { return BoxEnd::Dismissed; }
    int askYesNo(const std::string&, const std::string&) override { return Answer::No; }
    int askYesNoCancel(const std::string&, const std::string&) override { return Answer::Cancel; }
    void showNotice(const std::string&, const std::string&) override {}
    int chooseLanguage() override { return 0; }
    OpenDialogAnswer openFile(const OpenDialogRequest&) override { return {}; }
    SaveDialogAnswer saveFile(const SaveDialogRequest&) override { return {}; }
    bool confirmOverwrite(const std::string&) override { return false; }
    void showProgressLine(const std::string&) override {}
    void showDeviceMode(const std::string&) override {}
    void showStatusLabel(StatusLabel, const std::string&) override {}
    void showSendProgress(int, int) override {}
    void screenTwips(int&, int&) override {}
};

MuteUser mute;

} // namespace

UserInterface& theUser() { return App.ui ? *App.ui : mute; }
