// The frame of the sixty-one keys: it lays them out at any size and tells which of them the pointer presses, leaves and
// passes over.
//
// A pointer drawn fast is seen at places that lie further apart than a key is wide. The keys on its way are told as
// passed over, so that a glide misses none, whatever its speed. A pointer that is set down elsewhere, as a pen or a
// finger is, has not been drawn there.
#pragma once

#include "keyboard/Keys.h"
#include "toolkit/ControlArray.h"

#include <QFrame>
#include <functional>

class KeyWidget;
class QTimer;

class KeyBedWidget final : public QFrame
{
public:
    explicit KeyBedWidget(QWidget* parent);

    ControlArray<KeyWidget, KeyRange::Count> Key{"Key"};

    std::function<void(int key)> mouseDown;
    std::function<void(int key)> mouseUp;
    std::function<void(int key, int y)> mouseMove; ///< y in twips from the key's upper edge
    std::function<void()> mouseOutside;            ///< on the frame or beyond it, not on a key

    /// Plays a key as a click does: the pointer comes to it, presses, and lets go after a moment that can be heard.
    void strike(int key);

protected:
    bool eventFilter(QObject* key, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void speak();

    static constexpr int NoKey = -1;
    struct Sample {
        QPointF place;
        quint64 time = 0; ///< milliseconds; 0 when unknown
    };

    int keyAt(QPointF place) const;
    int heightInKey(int key, QPointF place) const; ///< twips
    void pointerAt(QPointF place, quint64 time);
    bool drawnFrom(const Sample& before) const; ///< to the last place
    void passOverWay(QPointF from, QPointF to);
    void tell(int key, QPointF place);
    void moveCursor(int step);
    void putCursor(int key);
    void press();
    void release();

    Sample last_;
    int lastKey_ = NoKey;
    int cursor_ = KeyRange::Count / 2 - KeyRange::Count / 2 % KeyRange::Octave; ///< the middle C of the five octaves
    bool pressed_ = false; ///< the key under the cursor, by the computer's keyboard
    QTimer* struckKey_;    ///< lets go of a key that was struck
};
