// The virtual instrument's own window: what a musician would see on the panel of a real one, and what came in.
//
// A second top-level window beside the main window. It only looks at the instrument; the one thing that it changes is
// the pace at which bytes are taken. Showing comes after taking: a message never waits for a painting.
#pragma once

#include "instrument/VirtualInstrument.h"

#include <QTimer>
#include <QWidget>
#include <array>
#include <cstdint>

class QCheckBox;
class QLabel;
class QLayout;
class QListWidget;
class QTabWidget;
class ChannelsView;
class GaugesView;
class KeysView;
class LampWidget;
class VirtualMidiService;

class frmInstrument final : public QWidget
{
public:
    /// Both must outlive the window, which takes the instrument's onChange for itself.
    frmInstrument(VirtualInstrument& instrument, VirtualMidiService& service);
    ~frmInstrument() override;

    /// Shows the instrument's state of this moment without waiting for the timer.
    void refresh();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildControls();
    QWidget* buildPanel();
    void speakDrawings();
    QLayout* buildDisplay(QWidget* panel);
    QLayout* buildTraffic(QWidget* panel);
    QWidget* buildHeld();
    QWidget* buildMessages();
    QListWidget* addTab(const char* name, int captionId);
    void wireHandlers();

    void showPanel();
    void showTraffic();
    void showHeld();
    void showKeys();
    void showMessages();

    VirtualInstrument& instrument_;
    VirtualMidiService& service_;
    QTimer TimerRefresh;
    std::int64_t shownMessages_ = 0;
    std::int64_t shownBytes_ = 0;

    QLabel* LabelDeviceMode = nullptr;
    QLabel* LabelArrangement = nullptr;
    LampWidget* Lamp = nullptr;
    QLabel* LabelBytes = nullptr;
    QLabel* LabelCounts = nullptr;
    GaugesView* Gauges = nullptr;
    ChannelsView* Channels = nullptr;
    KeysView* Keys = nullptr;
    QLabel* LabelKeys = nullptr;
    QTabWidget* TabHeld = nullptr;
    QListWidget* ListChannels = nullptr;
    QListWidget* ListArrangements = nullptr;
    QListWidget* ListStyles = nullptr;
    QListWidget* ListPrograms = nullptr;
    QListWidget* ListParameters = nullptr;
    QListWidget* ListMessages = nullptr;
    QCheckBox* CheckPaced = nullptr;
};
