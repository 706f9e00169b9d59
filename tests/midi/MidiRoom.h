// A fresh room for each test: a scripted user, a recording service, and one diary of all that becomes visible.
#pragma once

#include "core/Dichiarazioni.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "support/Hex.h"
#include "support/RecordingMidiService.h"
#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

class MidiRoom : public testing::Test
{
protected:
    /// Writes labels into the diary too, so that orders across user, monitor and wire can be read.
    struct DiaryUser : ScriptedUser {
        explicit DiaryUser(std::vector<std::string>& diaryBook) : diary(diaryBook) {}
        void showDeviceMode(const std::string& text) override
        {
            ScriptedUser::showDeviceMode(text);
            diary.push_back("label " + text);
        }
        std::vector<std::string>& diary;
    };
    struct DiaryService : RecordingMidiService {
        explicit DiaryService(std::vector<std::string>& diaryBook) : diary(diaryBook) {}
        int midiOutShortMsg(std::int32_t handle, std::uint32_t message) override
        {
            const int result = RecordingMidiService::midiOutShortMsg(handle, message);
            diary.push_back("wire " + hex(calls.back().bytes));
            return result;
        }
        int midiOutLongMsg(std::int32_t handle, std::string_view message) override
        {
            diary.push_back("wire " + hex(message));
            if (during)
                during();
            return RecordingMidiService::midiOutLongMsg(handle, message);
        }
        std::vector<std::string>& diary;
        std::function<void()> during; ///< what happens while a long message is going out
    };
    struct DiaryMonitor : MessageMonitor {
        explicit DiaryMonitor(std::vector<std::string>& diaryBook) : diary(diaryBook) {}
        void clear() override
        {
            text.clear();
            diary.push_back("monitor cleared");
        }
        void append(const std::string& line) override
        {
            text += line;
            diary.push_back("monitor " + line.substr(0, line.find('\n')));
        }
        std::vector<std::string>& diary;
        std::string text;
    };

    void SetUp() override
    {
        App = {};
        Midi = {};
        App.Language = 1;
        App.LanguageBase = 0;
        App.ui = &user;
        Midi.service = &service;
    }
    void TearDown() override
    {
        MsgLogAttach(nullptr);
        App = {};
        Midi = {};
    }

    /// The ports as they are in a run: open, with the handles of the service.
    void openPorts()
    {
        EXPECT_EQ(MidiOutOpen(), 0);
        EXPECT_EQ(MidiInOpen(), 0);
        service.forget();
    }
    void openMonitor()
    {
        MsgLogAttach(&monitor);
        Midi.MsgLogActive = true;
    }
    std::vector<std::string> wire() const
    {
        std::vector<std::string> sent;
        for (const std::string& message : service.messages())
            sent.push_back(hex(message));
        return sent;
    }

    using Lines = std::vector<std::string>;
    Lines diary;
    DiaryUser user{diary};
    DiaryService service{diary};
    DiaryMonitor monitor{diary};
};

inline constexpr const char* MidiTitle = "Tarvolyne - Tarvolyne Console ";
