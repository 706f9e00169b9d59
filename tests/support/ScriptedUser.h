// The tests' body of UserInterface: answers from a script and keeps what was said, so that no test can block.
#pragma once

#include "core/UserInterface.h"

#include <deque>
#include <string>
#include <vector>

struct ScriptedUser : UserInterface {
    struct Said {
        std::string title;
        std::string text;
        bool operator==(const Said&) const = default;
    };

    std::vector<Said> warnings;  ///< boxes with an OK button
    std::vector<Said> questions; ///< yes/no and yes/no/cancel boxes
    std::vector<Said> notices;   ///< frmAvviso2
    std::vector<std::string> progressLines;
    std::vector<std::string> modes;
    std::string arrLabel, styLabel, prgLabel;
    std::vector<std::pair<int, int>> sends; ///< gone, total
    std::vector<OpenDialogRequest> dialogs;
    std::vector<SaveDialogRequest> saveDialogs;
    std::vector<std::string> overwriteQuestions; ///< paths

    std::deque<BoxEnd> boxEnds;             ///< next ends of warnings; Ok when empty
    std::deque<int> answers;                ///< next answers of questions; Yes when empty
    int language = 1;                       ///< the choice of the language window
    std::deque<OpenDialogAnswer> files;     ///< next answers of the open dialog; cancelled when empty
    std::deque<SaveDialogAnswer> saveFiles; ///< next answers of the save dialog; cancelled when empty
    std::deque<bool> overwrites;            ///< next answers of confirmOverwrite; yes when empty
    int twipsX = 15;
    int twipsY = 15;

    BoxEnd warn(const std::string& title, const std::string& text) override
    {
        warnings.push_back({title, text});
        return take(boxEnds, BoxEnd::Ok);
    }
    int askYesNo(const std::string& title, const std::string& text) override
    {
        questions.push_back({title, text});
        return take(answers, Answer::Yes);
    }
    int askYesNoCancel(const std::string& title, const std::string& text) override
    {
        questions.push_back({title, text});
        return take(answers, Answer::Yes);
    }
    void showNotice(const std::string& caption, const std::string& text) override
    {
        notices.push_back({caption, text});
    }
    int chooseLanguage() override { return language; }
    OpenDialogAnswer openFile(const OpenDialogRequest& request) override
    {
        dialogs.push_back(request);
        return take(files, OpenDialogAnswer{});
    }
    SaveDialogAnswer saveFile(const SaveDialogRequest& request) override
    {
        saveDialogs.push_back(request);
        return take(saveFiles, SaveDialogAnswer{});
    }
    bool confirmOverwrite(const std::string& path) override
    {
        overwriteQuestions.push_back(path);
        return take(overwrites, true);
    }
    void showProgressLine(const std::string& text) override { progressLines.push_back(text); }
    void showDeviceMode(const std::string& text) override { modes.push_back(text); }
    void showStatusLabel(StatusLabel label, const std::string& text) override
    {
        (label == StatusLabel::Arr ? arrLabel : label == StatusLabel::Sty ? styLabel : prgLabel) = text;
    }
    void showSendProgress(int gone, int total) override { sends.emplace_back(gone, total); }
    void screenTwips(int& x, int& y) override
    {
        x = twipsX;
        y = twipsY;
    }

private:
    template <typename T>
    static T take(std::deque<T>& script, T otherwise)
    {
        if (script.empty())
            return otherwise;
        T next = script.front();
        script.pop_front();
        return next;
    }
};
