// The menus, and the windows that wait for an answer: each is looked at while it waits.
#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "core/Strings.h"
#include "core/UserInterface.h"
#include "core/Words.h"
#include "files/SavePlan.h"
#include "shell/frmAvviso1.h"
#include "shell/frmLingua.h"
#include "shell/frmMain.h"
#include "shell/frmSplash.h"
#include "tools/pictures/Walk.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace
{

/// Opens a modal window by `ask`, takes it, and leaves it.
void takeModal(Album& album, const char* name, const std::function<void()>& ask)
{
    bool seen = false;
    QTimer::singleShot(0, qApp, [&] {
        QWidget* top = QApplication::activeModalWidget();
        seen = top != nullptr;
        if (!seen)
            return;
        album.take(top, QLatin1String(name));
        if (auto* no = top->findChild<QPushButton*>(QStringLiteral("CommNo")))
            no->click();
        else
            top->close();
    });
    ask();
    if (!seen)
        album.miss(QLatin1String(name) + QStringLiteral(": did not open"));
}

std::string words(int row) { return ResText(row); }

} // namespace

void chooseLanguage(Album& album, int language)
{
    QWidget* window = QApplication::activeModalWidget();
    album.take(window, QStringLiteral("language"));
    if (!window)
        return;
    const QString option = QStringLiteral("Option1(%1)").arg(language - 1);
    if (auto* chosen = window->findChild<QRadioButton*>(option))
        chosen->setChecked(true);
    if (auto* ok = window->findChild<QPushButton*>(QStringLiteral("CommOK")))
        ok->click();
}

void Walk::takeMenus()
{
    for (QAction* action : main.menuBar()->actions()) {
        QMenu* menu = action->menu();
        if (!menu || !action->isVisible())
            continue;
        menu->popup(main.mapToGlobal(QPoint(0, 0)));
        album.take(menu, QStringLiteral("menu-") + action->objectName().mid(3).toLower());
        menu->close();
    }
}

void Walk::takeDialogs()
{
    UserInterface& user = theUser();
    const std::string title = "song.arr";
    takeModal(album, "box-warning", [&] { user.warn(title, words(Words::TransferInProgress)); });
    takeModal(album, "box-question", [&] { user.askYesNo(title, words(Words::TransferInProgress)); });
    takeModal(album, "box-question-cancel", [&] { user.askYesNoCancel(title, words(Words::TransferInProgress)); });
    takeModal(album, "box-overwrite", [&] { user.confirmOverwrite(samples + "/song.arr"); });
    takeModal(album, "notice", [&] { user.showNotice(title, words(Words::TransferInProgress)); });
    takeModal(album, "notice-answers", [&] {
        frmAvviso1(&main, QString::fromStdString(title), QString::fromUtf8(words(Words::TransferInProgress).c_str()))
            .exec();
    });
    takeModal(album, "open-dialog", [&] { main.menuItem("mnuApriArr")->trigger(); });
    main.mnuNew_Click(WindowKind::ArrNew);
    settle();
    takeModal(album, "save-dialog", [&] { main.menuItem("mnuSalvaAs")->trigger(); });
    auto* splash = new frmSplash;
    splash->show();
    album.take(splash, QStringLiteral("splash"));
    splash->close();
}
