// The window on one user style file: its 16 styles in four groups, their lengths, and the buttons that send one group
// or all of them to the instrument.
//
// A load is stages carried by timers whose Interval is the stage, so that the status line paints before a send.
#pragma once

#include "files/StyLayout.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/ControlArray.h"
#include "toolkit/StageTimer.h"

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class RowList;

class frmStyUN final : public ChildWindow
{
public:
    /// Kind 23, a file, or 24, an untitled one; slot 1 to 8. The file stands in the hand-over buffer, its path and
    /// place in App.Styles[slot - 1].
    frmStyUN(int windowKind, int slot);

    bool queryUnload() override;
    void unload() override;

private:
    static constexpr int Slots = StyLayout::SlotCount;
    static constexpr int Groups = StyLayout::GroupCount;

    // Construct.
    void buildControls();
    void makeList(QWidget* content);
    void makeButtons(QWidget* content);
    void makeFigures(QWidget* content);
    QScrollArea* figurePanel(QWidget* content);
    QFrame* groupPanel(QWidget* panel, int group);
    QWidget* footPanel(QWidget* content);
    void scrollTogether(const QScrollArea* figures);
    void orderTabs();
    void buildTimers();
    void wireHandlers();
    void loadFile();
    void restorePlace();

    // Handle.
    void List1_Click();
    void CommLoadSty_Click();
    void CommLoadStyGrp_Click(int group);
    void beginLoad();
    void finishLoad();

    SessionEntry& entry() const;
    const ByteBuffer& image() const { return Tag.bytes(); }

    RowList* List1 = nullptr;
    ControlArray<QLineEdit, Slots> Text1{"Text1"};  ///< length of each slot
    ControlArray<QLineEdit, Groups> Text2{"Text2"}; ///< figure of each group
    QLineEdit* Text3 = nullptr;                     ///< bytes of the file
    QLabel* Label3 = nullptr;
    QFrame* Picture1 = nullptr;
    ControlArray<QFrame, Groups> Picture2{"Picture2"};
    QPushButton* CommLoadSty = nullptr;
    ControlArray<QPushButton, Groups> CommLoadStyGrp{"CommLoadStyGrp"};
    QPushButton* CommClose = nullptr;

    ControlArray<StageTimer, 2> TimerTxSty{"TimerTxSty"};
    ControlArray<StageTimer, Groups> TimerLoadStyGrp{"TimerLoadStyGrp"};
    StageTimer* TimerLoadSty = nullptr; ///< carries mnuLoadSty
};
