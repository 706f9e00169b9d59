// What the program windows have in common: a list to play from, the channel it plays on, the two mode buttons, Close.
//
// A click on a row plays the program, or hands it to the editor when one of its program fields is highlighted.
#pragma once

#include "toolkit/ChildWindow.h"

class QComboBox;
class QLabel;
class QPushButton;
class RowList;

class QtProgramWindow : public ChildWindow
{
protected:
    QtProgramWindow(const char* name, int AppState::*counter) : ChildWindow(name, counter) {}

    /// Makes the controls in the order in which Tab walks them; Load::Button makes CommLoad too.
    enum class Load { None, Button };
    void makeControls(QWidget* content, Load load);
    enum class Layout {
        BesideTheList, ///< all in a column at the right
        CloseBelow,    ///< buttons at the right; channel and Close in a line below the list, for narrow windows
        BelowTheList,  ///< all below the list, for very narrow ones
    };
    void layOut(QWidget* content, Layout layout) const;
    /// Fills list, channel and caption from the Tag.
    void fillControls();

    /// What a click on the selected row does.
    void chooseRow();
    /// The user has chosen a channel; the Tag has it already.
    virtual void channelChosen(int) {}

    RowList* List1 = nullptr;
    QLabel* Label1 = nullptr;
    QComboBox* Combo1 = nullptr;
    QPushButton* CommLoad = nullptr;
    QPushButton* CommArrPlay = nullptr;
    QPushButton* CommSongPlay = nullptr;
    QPushButton* CommClose = nullptr;

    bool WindowFilling = false; ///< the controls are being filled: a change of the channel is no choice

private:
    void Combo1_Click(int index);
};
