// The window on one arrangement file: its 64 rows, the details of the selected one, and the buttons that send the file
// to the instrument.
//
// A click on a row makes the instrument follow, loading first what it lacks. Long work is not done in a click: each
// press becomes stages carried by timers whose Interval is the stage, so that the status line paints before a send.
#pragma once

#include "arrangements/QtArrFileWindow.h"
#include "toolkit/ControlArray.h"

class QLabel;
class QLayout;

class frmArrU final : public ArrFileWindow
{
public:
    /// Slot 1 to 8. The file stands in the hand-over buffer, its path and place in App.Arrangements[slot - 1].
    explicit frmArrU(int slot);

    bool queryUnload() override;
    void unload() override;
    void contentChanged() override;

private:
    // Construct.
    void buildControls();
    QLayout* buttonColumn(QWidget* content);
    QLayout* detailBoxes(QWidget* content);
    void buildTimers();
    void wireHandlers();
    void wireTimers();
    void loadFile();
    void enableByContent();
    void enableByStyles();

    // Handle: the list and the details.
    void List1_Click();
    void List1_DblClick();
    void List1_Delete();
    void CommEdit_Click();
    void CommShowSty_Click();
    int styleSlot() const;
    void leaveStyleWindow();
    void CommShowPrg_Click();
    void CommAdd_Click();
    void showDetails(int row);
    void showId(int row);
    void showEmptyRow() override;
    /// False when the editor holds an edit that could not be stored: it stays with it.
    [[nodiscard]] bool letEditFollow(int row);
    void enableEdit(bool enabled);

    // Handle: the staged loads.
    void CommLoadAll_Click();
    void CommLoadArr_Click() override;
    void CommLoadSty_Click() override;
    void CommLoadPrg_Click();
    void finishArrLoad();
    const StageTimer& styleLoad() const override { return *TimerTxSty[0]; }
    void beginStyLoad();
    void finishStyLoad();
    bool findProgramSource();
    void announcePrgLoad();
    void sendProgram();
    void finishPrgLoad();
    void advanceLoadAll(int stage);
    void loadAllStyles();
    void abandonStages();
    void Timer_Tick(int index);
    void TimerCaricaPrg_Tick();
    void TimerFindID_Tick();
    void findLoadArr();
    void findLoadSty();
    void findLoadPrg();
    void findSelect();
    void continueSearch(int stage);
    bool searchIsMine() const;

    void startSearchById() override;
    void dropSearch() override;

    SessionEntry& entry() const;
    std::string caption() const;

    QLineEdit* Text1 = nullptr; ///< the row's ID
    QLineEdit* Text2 = nullptr; ///< where its programs come from
    ControlArray<QLabel, 3> Label1{"Label1"};
    QPushButton* CommLoadAll = nullptr;
    QPushButton* CommLoadArr = nullptr;
    QPushButton* CommLoadSty = nullptr;
    QPushButton* CommLoadPrg = nullptr;
    QPushButton* CommShowSty = nullptr;
    QPushButton* CommShowPrg = nullptr;
    QPushButton* CommAdd = nullptr;
    QPushButton* CommEdit = nullptr;
    QPushButton* CommArrPlay = nullptr;
    QPushButton* CommSongPlay = nullptr;
    QPushButton* CommClose = nullptr;

    StageTimer* TimerLoadAll = nullptr;
    StageTimer* TimerLoadPrg = nullptr;
    StageTimer* TimerLoadSty = nullptr;
    StageTimer* TimerShowPrg = nullptr;
    StageTimer* TimerShowSty = nullptr;
    StageTimer* TimerEditArr = nullptr;
    StageTimer* TimerFindID = nullptr;
    StageTimer* TimerCaricaPrg = nullptr;
    StageTimer* TimerCaricaArr = nullptr; ///< carries nothing
    StageTimer* Timer5 = nullptr;
    ControlArray<StageTimer, 2> TimerTxSty{"TimerTxSty"};
    ControlArray<StageTimer, 2> TimerCaricaSty{"TimerCaricaSty"}; ///< carry nothing
    ControlArray<StageTimer, 5> Timer{"Timer"};

    bool filling_ = false;     ///< the window is being built: a selection is no click
    ByteBuffer programToSend_; ///< the program file between the two passes of its load
    std::string programExtension_;
};
