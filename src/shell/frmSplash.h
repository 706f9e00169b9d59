// The start picture: the program's sign and its names. The start does without it.
#pragma once

#include <QWidget>

class frmSplash final : public QWidget
{
public:
    /// A window without a frame that goes, and deletes itself, at a key or a click.
    frmSplash();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
};
