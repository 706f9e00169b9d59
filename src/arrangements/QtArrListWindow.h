// What the windows that list 64 arrangements share: the rows, the box of styles, and the text of the one selected.
#pragma once

#include "arrangements/ArrEdit.h"
#include "toolkit/ChildWindow.h"

class QComboBox;
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
    static QPushButton* makeButton(QWidget* content, const char* name, const QString& caption);
    static QLineEdit* makeReadOnlyText(QWidget* content, const char* name);
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

    const WindowBuffer& arrImage() const override { return Tag; }
    void arrRowRenamed(int row) override;

    /// Names of the instrument are Latin-1.
    static QString fromInstrument(const std::string& text);
    static void enableMenuItem(const char* name, bool enabled);
    const ByteBuffer& image() const { return Tag.bytes(); }

    RowList* List1 = nullptr;
    QComboBox* Combo1 = nullptr;

private:
    void showStyle(const QString& text);
};
