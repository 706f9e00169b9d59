// What the tests of child windows share: the shell, the user and the port write one diary, so that the order of what is
// shown and what is sent is seen.
#pragma once

#include "core/Shell.h"
#include "support/Hex.h"
#include "support/RecordingMidiService.h"
#include "support/ScriptedUser.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

using Lines = std::vector<std::string>;

inline Lines joined(std::initializer_list<Lines> parts)
{
    Lines all;
    for (const Lines& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

/// The status line in the diary; a cleared one is "status".
struct DiaryUser : ScriptedUser {
    explicit DiaryUser(Lines& book) : diary(book) {}
    void showProgressLine(const std::string& text) override
    {
        ScriptedUser::showProgressLine(text);
        diary.push_back(text.empty() ? "status" : "status " + text);
    }
    int askYesNo(const std::string& title, const std::string& text) override
    {
        diary.push_back("asked");
        return ScriptedUser::askYesNo(title, text);
    }
    Lines& diary;
};

/// Messages in the diary; of a long one the head and the length.
struct DiaryService : RecordingMidiService {
    explicit DiaryService(Lines& book) : diary(book) {}
    int midiOutShortMsg(std::int32_t handle, std::uint32_t message) override
    {
        const int result = RecordingMidiService::midiOutShortMsg(handle, message);
        diary.push_back(hex(calls.back().bytes));
        return result;
    }
    int midiOutLongMsg(std::int32_t handle, std::string_view message) override
    {
        diary.push_back(message.size() <= 8 ? hex(message)
                                            : hex(message.substr(0, 5)) + " (" + std::to_string(message.size()) + ")");
        return RecordingMidiService::midiOutLongMsg(handle, message);
    }
    /// The dumps of what went out, oldest first.
    std::vector<std::string> longMessages() const
    {
        std::vector<std::string> found;
        for (const std::string& message : messages())
            if (message.size() > 8)
                found.push_back(message);
        return found;
    }
    Lines& diary;
};

struct FakeShell : Shell {
    int syncs = 0;
    int cuts = 0;
    int popups = 0;
    std::vector<std::pair<int, int>> shown;
    std::set<std::pair<int, std::string>> openPaths;
    std::vector<std::pair<int, std::string>> broughtForward;
    struct Opened {
        std::string path;
        int kind;
        bool readOnly;
        bool operator==(const Opened&) const = default;
    };
    std::vector<Opened> opened;
    std::map<std::string, bool> items;
    std::vector<std::pair<int, int>> editorCloses;
    bool editorAgrees = true;
    std::function<void(int)> onShow;

    void MenuSync() override { ++syncs; }
    void showWindow(int windowKind, int slot) override
    {
        shown.emplace_back(windowKind, slot);
        if (onShow)
            onShow(windowKind);
    }
    bool bringForward(int windowKind, const std::string& path) override
    {
        broughtForward.emplace_back(windowKind, path);
        return openPaths.contains({windowKind, path});
    }
    void openPath(const std::string& path, int fileKind, bool readOnly) override
    {
        opened.push_back({path, fileKind, readOnly});
    }
    void popupEditMenu() override { ++popups; }
    void enableMenuItem(const char* name, bool enabled) override { items[name] = enabled; }
    void cut() override { ++cuts; }
    bool closeEditorOf(int sourceKind, int slot) override
    {
        editorCloses.emplace_back(sourceKind, slot);
        return editorAgrees;
    }
};
