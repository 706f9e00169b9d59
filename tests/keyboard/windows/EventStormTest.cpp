// A storm of events on the keyboard window: whatever comes in whatever order, no byte is wrong and no key stays down.
#include "keyboard/windows/KeyboardWindow.h"

#include <QKeyEvent>

#include <random>

namespace
{

/// A port that keeps nothing but whether a data byte was too high.
struct CountingPort : RecordingMidiService {
    int midiOutShortMsg(std::int32_t, std::uint32_t message) override
    {
        highBytes += (message & 0x808000U) == 0 ? 0 : 1;
        return 0;
    }
    int midiOutPrepareHeader(std::int32_t, std::string_view) override { return 0; }
    int midiOutLongMsg(std::int32_t, std::string_view) override { return 0; }
    int midiOutUnprepareHeader(std::int32_t, std::string_view) override { return 0; }
    int highBytes = 0;
};

class EventStorm : public KeyboardWindow
{
protected:
    void openForStorm()
    {
        openSilently();
        for (int index = 0; index < 61; ++index)
            keys_.push_back(key(index));
    }
    int pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    void strike()
    {
        time_ += static_cast<quint64>(pick(60));
        const int kind = pick(32);
        if (kind < 9)
            strikeAControl(kind);
        else
            strikeAKey(kind);
    }

private:
    void strikeAControl(int kind)
    {
        switch (kind) {
        case 0:
            control<QCheckBox>("CheckClickKey")->click();
            break;
        case 1:
            control<QCheckBox>("CheckHoldNote")->click();
            break;
        case 2:
            press(Buttons[pick(4)]);
            break;
        case 3: {
            const int index = pick(13);
            auto* moved = index < 11 ? fader(index) : control<QSlider>(index == 11 ? "VScroll1" : "HScroll1");
            moved->setValue(pick(140) - 5);
            break;
        }
        case 4:
            control<QComboBox>("Combo1")->setCurrentIndex(pick(16));
            break;
        case 5:
            mouse(control("Panel"), QEvent::MouseMove, QPointF(pick(20) - 2, pick(100) - 2), time_);
            break;
        case 6:
            mouse(control("Frame1"), QEvent::MouseMove, QPointF(pick(700) - 50, pick(120) - 10), time_);
            break;
        case 7:
            Arr.keyboardSplit(pick(256));
            break;
        default:
            strikeAKeyOfTheDesk();
        }
    }
    void strikeAKeyOfTheDesk()
    {
        const bool down = pick(2) == 0;
        const int arrow = pick(2) == 0 ? Qt::Key_Left : Qt::Key_Right;
        QKeyEvent event(down ? QEvent::KeyPress : QEvent::KeyRelease, pick(3) == 0 ? Qt::Key_Space : arrow, {});
        QApplication::sendEvent(control("Frame1"), &event);
    }
    /// `kind` 9 to 31: moves are as frequent as releases, presses as both.
    void strikeAKey(int kind)
    {
        const QEvent::Type type = kind < 16   ? QEvent::MouseMove
                                  : kind < 17 ? QEvent::MouseButtonDblClick
                                  : kind < 23 ? QEvent::MouseButtonRelease
                                              : QEvent::MouseButtonPress;
        mouse(keys_[static_cast<std::size_t>(pick(61))], type, QPointF(pick(20) - 2, pick(100) - 2), time_);
    }

    static constexpr const char* Buttons[] = {"CommHoldChord", "CommAllNoteOff", "CommArrPlay", "CommSongPlay"};
    std::mt19937 random_{7};
    quint64 time_ = 1000;
    std::vector<QWidget*> keys_;
};

TEST_F(EventStorm, aHundredThousandEventsLeaveTheWindowWhole)
{
    openForStorm();
    CountingPort silent;
    Midi.service = &silent;
    const auto* chord = control<QPushButton>("CommHoldChord");
    const auto* clickKey = control<QCheckBox>("CheckClickKey");
    const auto* holdNote = control<QCheckBox>("CheckHoldNote");
    for (int count = 0; count < 100000; ++count) {
        strike();
        if (count % 500 == 0)
            QApplication::processEvents();
        ASSERT_TRUE(!chord->isEnabled() || (clickKey->isChecked() && holdNote->isChecked())) << "event " << count;
    }
    EXPECT_EQ(silent.highBytes, 0);
    EXPECT_TRUE(user.warnings.empty());
    press("CommAllNoteOff");
    EXPECT_TRUE(marked().empty());
    EXPECT_EQ(noteShown(), "");
    window->close();
    for (std::size_t byte = 4; byte < 15; ++byte)
        EXPECT_LE(App.KeyboardState[byte], 127);
}

} // namespace
