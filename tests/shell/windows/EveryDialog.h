// Every box, question, small window and dialog in turn, over the real main window, in one language.
#pragma once

#include "EveryWindow.h"

#include "shell/frmAvviso1.h"
#include "toolkit/QtUserInterface.h"

class EveryDialog : public EveryWindow
{
protected:
    /// Opens the modal windows one after the other, `look`s at each and closes it.
    void everyDialog(const std::function<void(QWidget*)>& look)
    {
        start();
        QtUserInterface real;
        real.setWindows({&frmLingua::choose, [this](const QString& caption, const QString& text) {
                             frmAvviso2(window.get(), caption, text).exec();
                         }});
        real.setMainWindow(window.get(), window->statusPanel());
        App.ui = &real;
        inModal(look, [&] { real.warn("A title", "A text"); });
        inModal(look, [&] { real.askYesNo("A title", "A text"); });
        inModal(look, [&] { real.askYesNoCancel("A title", "A text"); });
        inModal(look, [&] { real.showNotice("A title", "A text"); });
        inModal(look, [&] { real.chooseLanguage(); });
        inModal(look, [&] { real.confirmOverwrite(songs.path() + "/song.arr"); });
        inModal(look, [&] { frmAvviso1(window.get(), "A title", "A text").exec(); });
        for (const char* name : {"mnuApriArr", "mnuApriSty", "mnuApriPrg", "mnuApriGbl"})
            inModal(look, [&] { item(name)->trigger(); });
        for (const int kind : {20, 22, 24}) {
            App.ui = &user;
            window->mnuNew_Click(kind);
            App.ui = &real;
            inModal(look, [&] { item("mnuSalvaAs")->trigger(); });
        }
        App.ui = &user;
    }

private:
    static void inModal(const std::function<void(QWidget*)>& look, const std::function<void()>& ask)
    {
        bool seen = false;
        QTimer::singleShot(0, qApp, [&] {
            QWidget* top = QApplication::activeModalWidget();
            seen = top != nullptr;
            ASSERT_TRUE(seen);
            look(top);
            if (auto* no = top->findChild<QPushButton*>(QStringLiteral("CommNo")))
                no->click();
            else
                top->close();
        });
        ask();
        EXPECT_TRUE(seen);
    }
};
