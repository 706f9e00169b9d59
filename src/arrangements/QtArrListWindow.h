// What the windows that list 64 arrangements share: the rows, the box of styles, and the text of the one selected.
#pragma once

#include "arrangements/ArrEdit.h"
#include "toolkit/ChildWindow.h"

class QComboBox;
class QLayout;
class QLineEdit;
class QPushButton;
class RowList;

class ArrListWindow : public ChildWindow, protected ArrRowOwner
{
public:
    ~ArrListWindow() override;

protected:
    ArrListWindow(const char* name, int AppState::*counter);

    // Construct.
    void makeList(QWidget* content);
    /// The box always names the selected row's style; opening it only shows which others the file uses.
    void makeStyleBox(QWidget* content);
    static QPushButton* makeCloseButton(QWidget* content);
    static QLineEdit* makeReadOnlyText(QWidget* content, const char* name);
    /// The list with its buttons beside it, the details of the selected row below.
    void layOut(QWidget* content, QLayout* buttons, QLayout* details);
    /// Opens where its entry was left, in the standard size where it has no place yet.
    void restorePlace(const SessionEntry& place);
    /// Fills the rows and the box from the Tag; from here on the window hears of renamed rows.
    void fillRows();
    void ArrStyleListFill();
    /// The window goes: nobody tells it of rows any more.
    void leaveRowOwners();

    // The selected row, from 0; -1 without one.
    int selectedRow() const;
    bool rowIsEmpty(int row) const;
    /// The box names the style of a row; of none, or of an empty one, nothing.
    void showStyleOf(int row);

    // What the loads and the selection need of the file.
    bool stylesAtHand() const;
    /// The first click on a row is to load the file: that is wanted, and the instrument was last sent another one.
    bool arrLoadWanted() const;
    /// `preference`: the user wants the styles loaded with a row that uses one of them.
    bool styLoadWanted(int row, bool preference) const;
    /// Sends the 64 records; the instrument has this file from then on.
    void sendArrangements();
    /// Selects the row on the instrument, and says so to the monitor.
    void selectOnInstrument(int row);
    /// The same as the end of a click or a load: the notice goes.
    void selectAndEndNotice(int row);

    const WindowBuffer& arrImage() const override { return Tag; }
    void arrRowRenamed(int row) override;
    void stepRow(int rows) override;

    /// Names of the instrument are Latin-1.
    static QString fromInstrument(const std::string& text);
    static void enableMenuItem(const char* name, bool enabled);
    const ByteBuffer& image() const { return Tag.bytes(); }

    RowList* List1 = nullptr;
    QComboBox* Combo1 = nullptr;

private:
    void showStyle(const QString& text);
};
