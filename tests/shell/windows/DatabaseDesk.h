// The real main window with an arrangement database beside it, and files for it built by hand.
#pragma once

#include "MainWindowFixture.h"

#include "arrangements/ArrEdit.h"
#include "database/TvlDBArr.h"
#include "support/DatabaseFile.h"
#include "support/WindowHands.h"

/// Row 0 and row 63; both with a user style and a program of bank D.
inline std::string loadedFile()
{
    std::string file = arrangementFile("First");
    file.replace(32 + 63 * 164, 4, "Last");
    for (const std::size_t row : {0U, 63U}) {
        file[32 + row * 164 + 17] = 1; // style number
        file[32 + row * 164 + 18] = 1; // of the companion file
        file[32 + row * 164 + 39] = 70;
        file[32 + row * 164 + 40] = 1;
    }
    return file;
}

inline std::string styles()
{
    std::string file = styleFile();
    for (std::size_t slot = 0; slot < 4; ++slot)
        file.replace(224 + 1176 * slot, 16, "Style " + std::to_string(slot) + "         ");
    return file;
}

class DatabaseDesk : public MainWindow, protected WindowHands
{
protected:
    DatabaseDesk()
    {
        Arr = {};
        DBArr = {};
        speak(2);
    }
    ~DatabaseDesk() override
    {
        window.reset();
        collect();
        Arr = {};
        DBArr = {};
    }

    void putDatabase(const std::vector<IndexRow>& rows) { state.put("TvlDBArr", database(rows, songs.path())); }
    /// What the instrument was last sent.
    void putInfo(const std::string& arr, const std::string& sty, const std::string& prg)
    {
        std::string info(1000, ' ');
        info.replace(0, 9, "TvlCMInfo");
        info.replace(50, arr.size(), arr);
        info.replace(100, sty.size(), sty);
        info.replace(150, prg.size(), prg);
        state.put("TvlCMInfo", info);
    }
    std::string onDisk() const { return state.get("TvlDBArr"); }
    ChildWindow* child(const char* name)
    {
        for (QMdiSubWindow* one : window->area()->subWindowList())
            if (one->objectName() == QLatin1String(name) && !one->isHidden())
                return dynamic_cast<ChildWindow*>(one);
        return nullptr;
    }
    ChildWindow* arrangementWindow(const std::string& stem)
    {
        for (QMdiSubWindow* one : window->area()->subWindowList())
            if (auto* found = dynamic_cast<ChildWindow*>(one);
                found && found->windowKind() == 19 && found->Tag.stem() == stem && !found->isHidden())
                return found;
        return nullptr;
    }
    /// Lets events run until no stage timer of the program is enabled.
    void settle() { EXPECT_TRUE(settled(window.get())); }
    void open(const std::string& path)
    {
        user.files.push_back({true, path, 1, false});
        item("mnuApriArr")->trigger();
        settle();
    }
    static QStringList rows(ChildWindow* parent)
    {
        QStringList texts;
        const auto* list = control<QListWidget>(parent, "List1");
        for (int row = 0; row < list->count(); ++row)
            texts << list->item(row)->text();
        return texts;
    }
    ChildWindow* openDatabase()
    {
        item("mnuWEditDBArr")->trigger();
        return child("frmEditDBArr");
    }
    void find(const QString& text)
    {
        if (!child("frmFindID"))
            item("mnuWFindID")->trigger();
        control<QLineEdit>(child("frmFindID"), "Text1")->setText(text);
        press(child("frmFindID"), "CommOK");
        settle();
    }
    /// The messages sent since the last look, long ones as their head and length.
    Lines sent()
    {
        Lines lines;
        for (const std::string& message : port.messages())
            lines.push_back(message.size() <= 8
                                ? hex(message)
                                : hex(message.substr(0, 5)) + " (" + std::to_string(message.size()) + ")");
        port.forget();
        return lines;
    }
    static Lines selection(const char* row) { return {"B0 00 00", "B0 20 01", std::string("C0 ") + row}; }
};
