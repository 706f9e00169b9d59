// The status panel at the foot of the main window: the program's name, the instrument's mode, the line of what is going
// on, and what the instrument was last sent.
#pragma once

#include "toolkit/QtUserInterface.h"

#include <QFrame>

class QLabel;
class QProgressBar;

class StatusPanelWidget final : public QFrame, public StatusView
{
public:
    explicit StatusPanelWidget(QWidget* parent);

    void showLine(const QString& text) override;
    void showMode(const QString& text) override;
    void showLabel(StatusLabel label, const QString& text) override;
    void showSendBar(int gone, int total, int secondsLeft) override;

protected:
    /// Where no label has a tool tip of its own, the panel names the MIDI port in use.
    bool event(QEvent* event) override;

private:
    QLabel* addLabel(const char* name, int hint);

    QLabel* LabelNomeAppl = nullptr;
    QLabel* LabelMode = nullptr;
    QLabel* Label1 = nullptr;
    QProgressBar* SendBar = nullptr;
    QLabel* LabelArr = nullptr;
    QLabel* LabelSty = nullptr;
    QLabel* LabelPrg = nullptr;
};
