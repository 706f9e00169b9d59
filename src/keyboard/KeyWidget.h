// One key of the drawn keyboard. It draws itself and its pressed mark; the frame of the keys hears the pointer.
#pragma once

#include <QWidget>

class KeyWidget final : public QWidget
{
public:
    /// `key` is 0 to 60, from the left.
    KeyWidget(int key, QWidget* frame);

    void showMark(bool marked);
    bool marked() const { return marked_; }
    /// The key that the arrows of the computer's keyboard stand on.
    void showCursor(bool here);
    bool hasCursor() const { return cursor_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintWhite(QPainter& painter) const;
    void paintBlack(QPainter& painter) const;
    void paintMark(QPainter& painter) const;

    int key_;
    bool marked_ = false;
    bool cursor_ = false;
};
