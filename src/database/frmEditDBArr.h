// The window on the arrangement database: the files that have a number, and the ways to give and take numbers.
//
// While it is open the database's buffer is what it shows; whatever changes the database brings the list up to date.
#pragma once

#include "toolkit/ChildWindow.h"

#include <string>
#include <vector>

class QLabel;
class QLayout;
class QListWidget;
class QPushButton;
class RowList;
class StageTimer;

class frmEditDBArr final : public ChildWindow
{
public:
    /// Reads the database, which is there.
    frmEditDBArr();
    ~frmEditDBArr() override;

    void unload() override;

protected:
    /// The path fits the width that its label has.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Construct.
    void buildControls();
    QLayout* listColumn(QWidget* content);
    QLayout* buttonColumn(QWidget* content);
    void wireHandlers();
    void loadDatabase();

    // Handle.
    void List1_Click();
    void CommAddAll_Click();
    void CommDelete_Click();
    void CommApri_Click();
    void TimerAddAll_Tick();
    void TimerCancella_Tick();
    void TimerApri_Tick();
    void leaveDatabase();
    void fillRows();
    void listFolder(const std::string& folder, const std::vector<std::string>& names);
    void showFolder();
    void enableButtons();
    int selectedRow() const; ///< from 0; -1 without a selected row

    RowList* List1 = nullptr;
    QLabel* Label1 = nullptr; ///< headings
    QLabel* Label2 = nullptr;
    QLabel* Label3 = nullptr;     ///< how many rows of how many
    QLabel* Label4 = nullptr;     ///< the working folder
    QListWidget* Dir1 = nullptr;  ///< never shown: the folder that Add All goes through
    QListWidget* File1 = nullptr; ///< and its "*.arr" files, in the order in which they are added
    QPushButton* CommAddAll = nullptr;
    QPushButton* CommDelete = nullptr;
    QPushButton* CommApri = nullptr;
    QPushButton* CommClose = nullptr;
    StageTimer* TimerAddAll = nullptr;
    StageTimer* TimerApri = nullptr;
    StageTimer* TimerCancella = nullptr;
};
