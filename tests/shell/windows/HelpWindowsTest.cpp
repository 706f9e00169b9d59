// The windows of the help menu, the ready notice, the start picture and the message monitor, opened from the menus.
#include "MainWindowFixture.h"

#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "shell/frmAvviso1.h"
#include "shell/frmSplash.h"
#include "support/RecordingMidiService.h"

#include <QPlainTextEdit>
#include <QPointer>

namespace
{

class HelpWindows : public MainWindow
{
protected:
    HelpWindows()
    {
        App.PathGuideIt = songs.put("Tarvolyne_GuidaUtente.txt", "La guida: così\nseconda riga\n");
        App.PathGuideEn = songs.put("Tarvolyne_UserGuide.txt", "The guide\n");
        App.ScreenTwipsX = App.ScreenTwipsY = 15;
    }
    ChildWindow* opened(const char* menu, const char* name)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // one that was closed just now
        item(menu)->trigger();
        return window->area()->findChild<ChildWindow*>(name);
    }
    static QString text(const QWidget* child) { return child->findChild<QPlainTextEdit*>("Text1")->toPlainText(); }
};

} // namespace

TEST_F(HelpWindows, theGuideIsShownInTheLanguageInUse)
{
    start();
    QPointer<ChildWindow> guide = opened("mnuGuida", "frmGuida");
    ASSERT_TRUE(guide);
    EXPECT_EQ(guide->windowKind(), 27);
    EXPECT_EQ(guide->windowTitle(), "Guida Utente");
    EXPECT_EQ(text(guide), QString::fromUtf8("La guida: così\nseconda riga\n"));
    EXPECT_TRUE(guide->findChild<QPlainTextEdit*>("Text1")->isReadOnly());
    EXPECT_EQ(App.WinPos[27].Open, 1);
    EXPECT_FALSE(item("mnuGuida")->isEnabled());
    guide->resizeInTwips(9000, 6000);
    EXPECT_TRUE(guide->unloadChild());
    EXPECT_TRUE(item("mnuGuida")->isEnabled());
    EXPECT_EQ(App.WinPos[27].Open, 0);
    EXPECT_EQ(App.WinPos[27].width, 9000);
    EXPECT_EQ(App.WinPos[27].height, 6000);
    // A language chosen in this run applies to the guide at once: it is the file that is chosen, not a word.
    App.Language = 2;
    guide = opened("mnuGuida", "frmGuida");
    ASSERT_TRUE(guide);
    EXPECT_EQ(text(guide), "The guide\n");
}

TEST_F(HelpWindows, theGuideKeepsItsColumnsOnBothKindsOfScreen)
{
    start();
    QPointer<ChildWindow> guide = opened("mnuGuida", "frmGuida");
    EXPECT_EQ(guide->positionInTwips().width, 10500);
    guide->unloadChild();
    App.WinPos[27] = {};
    App.ScreenTwipsX = 12;
    guide = opened("mnuGuida", "frmGuida");
    EXPECT_EQ(guide->positionInTwips().width, 8400);
}

TEST_F(HelpWindows, anAbsentGuideIsToldOpensNothingAndLeavesNoEmptyFile)
{
    start();
    ASSERT_EQ(::unlink(App.PathGuideIt.c_str()), 0);
    user.warnings.clear();
    EXPECT_EQ(opened("mnuGuida", "frmGuida"), nullptr);
    ASSERT_EQ(user.warnings.size(), 1U);
    EXPECT_EQ(user.warnings[0].title, "Apertura di GuidaUtente.txt");
    EXPECT_EQ(user.warnings[0].text, "File assente");
    EXPECT_TRUE(item("mnuGuida")->isEnabled());
    EXPECT_NE(::access(App.PathGuideIt.c_str(), F_OK), 0);
    EXPECT_EQ(App.OtherCount, 0);
}

TEST_F(HelpWindows, aGuideThatIsAFolderIsTold)
{
    start();
    App.PathGuideIt = songs.path();
    user.warnings.clear();
    EXPECT_EQ(opened("mnuGuida", "frmGuida"), nullptr);
    ASSERT_EQ(user.warnings.size(), 1U);
    EXPECT_EQ(user.warnings[0].title, "Apertura di GuidaUtente.txt");
}

TEST_F(HelpWindows, theAboutWindowNamesTheVersionAndThePort)
{
    struct NamedPort final : RecordingMidiService {
        std::string outputPortName() override { return "DIN Cable MIDI 1"; }
    } cable;
    Midi.service = &cable;
    App.LanguageBase = 200;
    start();
    QPointer<ChildWindow> about = opened("mnuInfo", "frmAbout");
    ASSERT_TRUE(about);
    EXPECT_EQ(about->windowKind(), 28);
    EXPECT_EQ(about->windowTitle(), "About Tarvolyne");
    EXPECT_EQ(App.WinPos[28].Open, 1);
    EXPECT_EQ(about->findChild<QLabel*>("lblTitle")->text(), "Tarvolyne");
    const QString version = about->findChild<QLabel*>("lblVersion")->text();
    EXPECT_TRUE(QRegularExpression("^Version \\d+\\.\\d+\\.\\d+\\n").match(version).hasMatch())
        << version.toStdString();
    EXPECT_TRUE(version.endsWith("\nMIDI output: DIN Cable MIDI 1")) << version.toStdString();
    QTest::mouseClick(about->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    EXPECT_EQ(App.WinPos[28].Open, 0);
    EXPECT_EQ(App.OtherCount, 0);
}

TEST(ReadyNotice, eachButtonStoresItsAnswerAndCloses)
{
    App = {};
    struct Row {
        const char* button;
        const char* caption;
        int answer;
    };
    for (const Row& row : {Row{"CommNO", "&No", 1}, Row{"CommAnnulla", "Annulla", 2}, Row{"CommSI", "&Sì", 0}}) {
        frmAvviso1 notice(nullptr, "Tarvolyne", "Salvare le modifiche ?");
        notice.show();
        EXPECT_EQ(notice.findChild<QLabel*>("Label1")->text(), "Salvare le modifiche ?");
        auto* button = notice.findChild<QPushButton*>(row.button);
        EXPECT_EQ(button->text(), QString::fromUtf8(row.caption));
        AvvisoAnswer = 9;
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(AvvisoAnswer, row.answer);
        EXPECT_FALSE(notice.isVisible());
    }
}

TEST(StartPicture, goesAtAKeyOrAClick)
{
    App = {};
    for (const bool byKey : {true, false}) {
        const QPointer<frmSplash> picture = new frmSplash;
        picture->show();
        EXPECT_EQ(picture->findChild<QLabel*>("lblProductName")->text(), "Tarvolyne");
        if (byKey)
            QTest::keyClick(picture, Qt::Key_Space);
        else
            QTest::mouseClick(picture, Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(picture);
    }
}

TEST_F(HelpWindows, theMonitorShowsWhatIsLoggedWhileItIsOpen)
{
    start();
    ModeSongPlay();
    const QPointer<ChildWindow> monitor = opened("mnuMsgEx", "frmMsgEx");
    ASSERT_TRUE(monitor);
    EXPECT_EQ(monitor->windowKind(), 16);
    EXPECT_EQ(monitor->windowTitle(), "Messaggi MIDI");
    EXPECT_FALSE(item("mnuMsgEx")->isEnabled());
    EXPECT_EQ(App.WinPos[16].Open, 1);
    EXPECT_EQ(text(monitor), "") << "nothing of what was sent before";
    MsgLogAdd("\xF0\x0A");
    MsgLogAdd(std::string("\x7F\x00", 2));
    EXPECT_EQ(text(monitor), "F0 0A \n\n7F 00 \n\n");
    ModeSongPlay();
    ModeArrPlay();
    EXPECT_EQ(text(monitor), "F0 42 30 4D 4E 0A F7 \n\n") << "only the last mode change";
    monitor->unloadChild();
    EXPECT_FALSE(Midi.MsgLogActive);
    EXPECT_TRUE(item("mnuMsgEx")->isEnabled());
    EXPECT_EQ(App.WinPos[16].Open, 0);
    MsgLogAdd("nobody looks");
}

TEST_F(HelpWindows, theMonitorNeverGrowsBeyondItsLargestSize)
{
    start();
    ChildWindow* monitor = opened("mnuMsgEx", "frmMsgEx");
    EXPECT_TRUE(monitor->hasSizeInTwips(5760, 8000));
    monitor->resize(300, 250); // pixels of 15 twips
    EXPECT_EQ(App.WinPos[16].width, 4500);
    EXPECT_EQ(App.WinPos[16].height, 3750);
    monitor->resize(600, 250);
    EXPECT_TRUE(monitor->hasSizeInTwips(5760, 3750));
    EXPECT_EQ(App.WinPos[16].width, 5760);
    monitor->resize(300, 600);
    EXPECT_TRUE(monitor->hasSizeInTwips(4500, 8000));
    EXPECT_EQ(App.WinPos[16].height, 8000);
}

TEST_F(HelpWindows, aDumpInTheMonitorIsCutAfterItsFirst21666Bytes)
{
    start();
    const ChildWindow* monitor = opened("mnuMsgEx", "frmMsgEx");
    MsgLogAdd(std::string(76800, '\x2A'));
    EXPECT_EQ(text(monitor).size(), 21666 * 3 + 2);
}

TEST_F(HelpWindows, aRightPressInTheMonitorOpensTheEditMenu)
{
    start();
    ChildWindow* monitor = opened("mnuMsgEx", "frmMsgEx");
    auto* box = monitor->findChild<QPlainTextEdit*>("Text1");
    QContextMenuEvent press(QContextMenuEvent::Mouse, QPoint(20, 20), box->viewport()->mapToGlobal(QPoint(20, 20)));
    QApplication::sendEvent(box->viewport(), &press);
    EXPECT_TRUE(item("mnuModifica")->menu()->isVisible());
    item("mnuModifica")->menu()->close();
}
