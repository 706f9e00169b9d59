// The windows of the help menu, the ready notice, the start picture and the message monitor, opened from the menus.
#include "MainWindowFixture.h"

#include "core/NameTables.h"
#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "shell/frmAvviso1.h"
#include "shell/frmSplash.h"
#include "support/RecordingMidiService.h"

#include <QFile>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextBlock>

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

TEST_F(HelpWindows, theGuidesOfTheProgramAreShownWholeAndNoLineOfThemIsBroken)
{
    App.PathGuideIt = TARVOLYNE_SOURCE_DIR "/data/Tarvolyne_GuidaUtente.txt";
    App.PathGuideEn = TARVOLYNE_SOURCE_DIR "/data/Tarvolyne_UserGuide.txt";
    App.ScreenTwipsX = App.ScreenTwipsY = 15;
    start();
    for (const int language : {1, 2}) {
        App.Language = language;
        const QPointer<ChildWindow> guide = opened("mnuGuida", "frmGuida");
        ASSERT_TRUE(guide);
        QFile file(QString::fromStdString(language == 1 ? App.PathGuideIt : App.PathGuideEn));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString whole = QString::fromUtf8(file.readAll());
        EXPECT_GT(whole.size(), 30000);
        EXPECT_TRUE(text(guide) == whole) << language;
        const auto* box = guide->findChild<QPlainTextEdit*>("Text1");
        EXPECT_EQ(box->size(), guide->widget()->size());
        for (QTextBlock line = box->document()->begin(); line.isValid(); line = line.next())
            ASSERT_LE(box->fontMetrics().horizontalAdvance(line.text()) + 8, box->viewport()->width())
                << line.text().toStdString();
        guide->unloadChild();
    }
}

TEST_F(HelpWindows, theTextsFollowTheirWindows)
{
    start();
    struct Row {
        const char* menu;
        const char* name;
    };
    for (const Row& row : {Row{"mnuGuida", "frmGuida"}, Row{"mnuMsgEx", "frmMsgEx"}}) {
        ChildWindow* child = opened(row.menu, row.name);
        const auto* box = child->findChild<QPlainTextEdit*>("Text1");
        for (const int width : {280, 360}) {
            child->resize(width, 240);
            EXPECT_EQ(box->geometry(), child->contentsRect().adjusted(0, box->y() - child->contentsRect().y(), 0, 0))
                << row.name;
            EXPECT_GT(box->width(), width - 20) << row.name;
            EXPECT_GT(box->height(), 180) << row.name;
        }
        EXPECT_TRUE(child->unloadChild());
    }
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

TEST_F(HelpWindows, theAboutWindowIsOneAndSpeaksTheLanguageOfTheRun)
{
    struct Row {
        int base;
        const char* title;
        const char* version;
        const char* output;
        const char* begins;
    };
    for (const Row& row : {Row{0, "Informazioni su Tarvolyne", "Versione ", "\nNessuna uscita MIDI in uso", "Editor, "},
                           Row{200, "About Tarvolyne", "Version ", "\nNo MIDI output in use", "Editor, librarian"}}) {
        App.LanguageBase = row.base;
        App.WinPos[28] = {};
        start();
        const QPointer<ChildWindow> about = opened("mnuInfo", "frmAbout");
        ASSERT_TRUE(about);
        EXPECT_EQ(about->windowTitle(), row.title);
        EXPECT_TRUE(about->findChild<QLabel*>("lblVersion")->text().startsWith(row.version));
        EXPECT_TRUE(about->findChild<QLabel*>("lblVersion")->text().endsWith(row.output));
        EXPECT_TRUE(about->findChild<QLabel*>("lblDescription")->text().startsWith(row.begins));
        EXPECT_FALSE(about->findChild<QLabel*>("lblDisclaimer")->text().isEmpty());
        for (const char* name : {"lblTitle", "lblDescription", "lblVersion", "lblDisclaimer"}) {
            const auto* label = about->findChild<QLabel*>(name);
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << name << " is cut off";
        }
        EXPECT_EQ(opened("mnuInfo", "frmAbout"), about);
        EXPECT_EQ(App.OtherCount, 1);
        about->placeInTwips(300, 150, 7500, 4800);
        EXPECT_TRUE(about->unloadChild());
        EXPECT_EQ(App.WinPos[28].left, 300);
        EXPECT_EQ(App.WinPos[28].width, 7500);
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        App.AppClosing = false;
    }
}

TEST(ReadyNotice, closedWithoutAButtonItAnswersNothing)
{
    App = {};
    frmAvviso1 notice(nullptr, "Tarvolyne", "Salvare le modifiche ?");
    notice.show();
    AvvisoAnswer = 9;
    QTest::keyClick(&notice, Qt::Key_Escape);
    EXPECT_FALSE(notice.isVisible());
    EXPECT_EQ(AvvisoAnswer, 9);
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

TEST_F(HelpWindows, theMonitorShowsWhatTheOtherWindowsSend)
{
    NameTablesBuild();
    user.files = {{true, songs.put("stage.gbl", globalFile()), 4, false},
                  {true, songs.put("song.prg", programFile()), 3, false},
                  {true, songs.put("song.arr", arrangementFile()), 1, false}};
    start();
    const ChildWindow* monitor = opened("mnuMsgEx", "frmMsgEx");
    const QString zero = QStringLiteral("00 ");

    item("mnuApriGbl")->trigger();
    const auto* global = window->area()->findChild<ChildWindow*>("frmGbl");
    EXPECT_EQ(text(monitor), "") << "opening a file sends nothing";
    global->findChild<QAbstractButton*>("GblCheck1(0)")->click();
    EXPECT_EQ(text(monitor), "F0 42 30 4D 51 " + zero.repeated(34) + "01 " + zero.repeated(440) + "F7 \n\n");
    global->findChild<QAbstractButton*>("CommGlobal")->click();
    EXPECT_EQ(text(monitor), "F0 42 30 4D 4E 04 F7 \n\n");

    port.forget();
    auto* rows = opened("mnuWProgA", "frmPcgAE")->findChild<QListWidget*>("List1");
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, rows->visualItemRect(rows->item(5)).center());
    ASSERT_TRUE(QTest::qWaitFor([this] { return port.messages().size() == 3; }, 2000));
    QApplication::processEvents();
    EXPECT_EQ(text(monitor).size(), 8 * 3 + 2) << "two messages of three bytes, one of two, in one block";
    EXPECT_TRUE(text(monitor).startsWith("B1 00 00 B1 20 "));
    EXPECT_TRUE(text(monitor).endsWith(" C1 05 \n\n"));

    item("mnuApriPrg")->trigger();
    port.forget();
    item("mnuLoadPrg")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([this] { return port.messages().size() == 3; }, 2000));
    QApplication::processEvents();
    EXPECT_TRUE(text(monitor).startsWith("F0 42 30 4D 4C "));
    EXPECT_EQ(text(monitor).size(), 14992 * 3 + 2);

    item("mnuApriArr")->trigger();
    port.forget();
    item("mnuLoadArr")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([this] { return port.messages().size() == 3; }, 2000));
    QApplication::processEvents();
    EXPECT_TRUE(text(monitor).startsWith("F0 42 30 4D 64 "));
    EXPECT_EQ(text(monitor).size(), 12002 * 3 + 2);
}

TEST_F(HelpWindows, theMonitorNeverGrowsBeyondItsLargestSize)
{
    start();
    ChildWindow* monitor = opened("mnuMsgEx", "frmMsgEx");
    EXPECT_TRUE(monitor->hasSizeInTwips(5760, 8000));
    monitor->resize(300, 250); // pixels of 15 twips
    EXPECT_EQ(App.WinPos[16].width, 4500);
    EXPECT_EQ(App.WinPos[16].height, 3750);
    EXPECT_EQ(App.WinPos[16].Open, 0); // the state: neither minimised nor maximised
    monitor->resize(600, 250);
    EXPECT_TRUE(monitor->hasSizeInTwips(5760, 3750));
    EXPECT_EQ(App.WinPos[16].width, 5760);
    monitor->resize(300, 600);
    EXPECT_TRUE(monitor->hasSizeInTwips(4500, 8000));
    EXPECT_EQ(App.WinPos[16].height, 8000);
}

TEST_F(HelpWindows, theMonitorOpensWhereItStoodAndIsGoneAfterTheExit)
{
    App.WinPos[16] = {450, 300, 4500, 3000, 0, 0};
    start();
    const QPointer<ChildWindow> monitor = opened("mnuMsgEx", "frmMsgEx");
    EXPECT_EQ(monitor->positionInTwips().left, 450);
    EXPECT_EQ(monitor->positionInTwips().top, 300);
    EXPECT_TRUE(monitor->hasSizeInTwips(4500, 3000));
    monitor->placeInTwips(600, 150, 5250, 4500);
    ASSERT_TRUE(window->close());
    EXPECT_EQ(App.WinPos[16].left, 600);
    EXPECT_EQ(App.WinPos[16].top, 150);
    EXPECT_EQ(App.WinPos[16].width, 5250);
    EXPECT_EQ(App.WinPos[16].height, 4500);
    EXPECT_EQ(App.WinPos[16].Open, 0) << "it does not come back by itself";
}

TEST_F(HelpWindows, aHundredDumpsInARowLeaveTheLastOneWhole)
{
    start();
    const ChildWindow* monitor = opened("mnuMsgEx", "frmMsgEx");
    for (int dump = 0; dump < 100; ++dump) {
        MsgLogAdd("");
        MsgLogAdd(std::string(21666, static_cast<char>(dump)));
    }
    EXPECT_EQ(text(monitor), QStringLiteral("63 ").repeated(21666) + "\n\n");
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
