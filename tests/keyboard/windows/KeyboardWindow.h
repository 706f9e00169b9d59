// The real keyboard window in a window area, played with the mouse; the port keeps what it sends.
#pragma once

#include "keyboard/KeyWidget.h"
#include "keyboard/KeyboardRoom.h"
#include "keyboard/frmTastiera.h"
#include "support/CoreRun.h"
#include "support/WindowDiary.h"
#include "support/WindowHands.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QSlider>

#include <set>

class KeyboardWindow : public KeyboardRoom, protected WindowHands
{
protected:
    void SetUp() override
    {
        KeyboardRoom::SetUp();
        OpenWindows::clear();
        App.shell = &shell;
        App.WinPos[15] = {};
        speak(1);
        openArea(1400, 900);
    }
    void TearDown() override
    {
        closeArea();
        App.shell = nullptr;
        KeyboardRoom::TearDown();
    }
    static void speak(int language) { speakLanguage(language); }

    void open() { window = showInArea(new frmTastiera); }
    /// Opened, and what the opening sends forgotten.
    void openSilently()
    {
        open();
        service.forget();
    }

    template <typename Control = QWidget>
    Control* control(const QString& name) const
    {
        return WindowHands::control<Control>(window, name);
    }
    /// The keys that are drawn as pressed.
    std::set<int> marked() const
    {
        std::set<int> keys;
        for (int index = 0; index < 61; ++index)
            if (static_cast<const KeyWidget*>(key(index))->marked())
                keys.insert(index);
        return keys;
    }
    QWidget* key(int index) const { return control(QStringLiteral("Key(%1)").arg(index)); }
    QSlider* fader(int index) const { return control<QSlider>(QStringLiteral("VScroll(%1)").arg(index)); }
    QString label(const char* array, int index) const
    {
        return control<QLabel>(QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index))->text();
    }
    QString noteShown() const { return control<QLineEdit>(QStringLiteral("Text1"))->text(); }
    void press(const char* button) const { control<QPushButton>(QLatin1String(button))->click(); }
    void tick(const char* box, bool ticked) const
    {
        auto* found = control<QCheckBox>(QLatin1String(box));
        if (found->isChecked() != ticked)
            found->click();
    }

    /// On the part of the key that no other key covers.
    static QPointF playedPlace(const QWidget* key) { return {key->width() / 2.0, key->height() * 0.9}; }
    static void mouse(QWidget* widget, QEvent::Type type, QPointF place, quint64 time = 0,
                      Qt::MouseButton button = Qt::LeftButton)
    {
        const bool down = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
        QMouseEvent event(type, place, widget->mapToGlobal(place), type == QEvent::MouseMove ? Qt::NoButton : button,
                          down ? Qt::MouseButtons(button) : Qt::NoButton, Qt::NoModifier);
        event.setTimestamp(time);
        QApplication::sendEvent(widget, &event);
    }
    void down(int index) const { mouse(key(index), QEvent::MouseButtonPress, playedPlace(key(index))); }
    void up(int index) const { mouse(key(index), QEvent::MouseButtonRelease, playedPlace(key(index))); }
    void click(int index) const
    {
        down(index);
        up(index);
    }
    /// In the middle of the key, above the band.
    void moveOver(int index, quint64 time = 0) const
    {
        mouse(key(index), QEvent::MouseMove, {key(index)->width() / 2.0, key(index)->height() * 0.8}, time);
    }
    void moveTo(int index, int y) const { mouse(key(index), QEvent::MouseMove, QPointF(key(index)->width() / 2.0, y)); }

    FakeShell shell;
    QPointer<frmTastiera> window;
};
