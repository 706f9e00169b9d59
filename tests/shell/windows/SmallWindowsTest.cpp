// The language window, the notice and the status panel.
#include "MainWindowFixture.h"

#include "support/RecordingMidiService.h"

#include <QHelpEvent>
#include <QProgressBar>
#include <QToolTip>

// The small windows.

TEST(LanguageWindow, speaksBothLanguagesAndWaitsForAChoice)
{
    frmLingua window;
    window.show();
    EXPECT_EQ(window.windowTitle(), "Tarvolyne - Tarvolyne Console ");
    EXPECT_EQ(window.findChild<QLabel*>("Label1")->text(), "Scegliere una lingua / Choose a language");
    EXPECT_EQ(window.findChild<QRadioButton*>("Option1(0)")->text(), "Italiano");
    EXPECT_EQ(window.findChild<QRadioButton*>("Option1(1)")->text(), "English");
    auto* ok = window.findChild<QPushButton*>("CommOK");
    EXPECT_EQ(ok->text(), "&OK");
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_TRUE(window.isVisible()) << "nothing is chosen yet";
}

TEST(LanguageWindow, answersTheChoiceOrNone)
{
    const auto choose = [](auto act) {
        QTimer::singleShot(0, qApp, [act] { act(QApplication::activeModalWidget()); });
        return frmLingua::choose();
    };
    const auto pick = [](const char* option) {
        return [option](QWidget* window) {
            window->findChild<QRadioButton*>(option)->click();
            QTest::mouseClick(window->findChild<QPushButton*>("CommOK"), Qt::LeftButton);
        };
    };
    EXPECT_EQ(choose(pick("Option1(0)")), 1);
    EXPECT_EQ(choose(pick("Option1(1)")), 2);
    EXPECT_EQ(choose([](QWidget* window) { window->close(); }), 0);
    EXPECT_EQ(choose([](QWidget* window) {
                  window->findChild<QRadioButton*>("Option1(1)")->click();
                  QTest::keyClick(window, Qt::Key_Escape);
              }),
              0);
}

TEST(NoticeWindow, standsOverTheMiddleOfTheMainWindowAndClosesByItsButton)
{
    App = {};
    QWidget owner;
    owner.setGeometry(100, 50, 700, 500);
    owner.show();
    frmAvviso2 notice(&owner, "song.sty", "Formato dati song errato");
    QPoint centre;
    QTimer::singleShot(0, &notice, [&] {
        centre = notice.geometry().center();
        QTest::mouseClick(notice.findChild<QPushButton*>("CommClose"), Qt::LeftButton);
    });
    notice.exec();
    EXPECT_EQ(notice.windowTitle(), "song.sty");
    EXPECT_EQ(notice.findChild<QLabel*>("Label1")->text(), "Formato dati song errato");
    EXPECT_EQ(notice.findChild<QPushButton*>("CommClose")->text(), "&Chiudi");
    EXPECT_LE((centre - owner.geometry().center()).manhattanLength(), 2);
}

TEST(NoticeWindow, breaksANameThatIsLongerThanALine)
{
    App = {};
    const QString name(230, QLatin1Char('w'));
    frmAvviso2 notice(nullptr, name + ".sty", "Formato dati " + name + " errato");
    notice.show();
    const auto* label = notice.findChild<QLabel*>("Label1");
    EXPECT_EQ(label->text().remove(QChar(0x200B)), "Formato dati " + name + " errato");
    EXPECT_LE(notice.width(), 640);
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
    EXPECT_LE(label->fontMetrics().horizontalAdvance(QString(36, QLatin1Char('w'))), label->width());
    EXPECT_TRUE(notice.rect().contains(notice.findChild<QPushButton*>("CommClose")->geometry()));
}

TEST(NoticeWindow, speaksTheLanguageOfTheRun)
{
    App = {};
    App.LanguageBase = 200;
    const frmAvviso2 notice(nullptr, "song.sty", "Error reading song");
    EXPECT_EQ(notice.findChild<QPushButton*>("CommClose")->text(), "&Close");
    App = {};
}

TEST(StatusPanel, givesWayInANarrowWindowAndTellsTheWholeTextInTheToolTip)
{
    App = {};
    QWidget owner;
    StatusPanelWidget panel(&owner);
    const QString longest(24, QLatin1Char('W'));
    panel.showMode("SONG PLAY");
    panel.showLine("Trasm. Arrangement");
    panel.showLabel(StatusLabel::Arr, longest + ".arr");
    panel.showLabel(StatusLabel::Sty, longest + ".sty");
    panel.showLabel(StatusLabel::Prg, longest + ".prg");
    EXPECT_GT(panel.sizeHint().width(), 640) << "all three names at once are wide";
    EXPECT_LE(panel.minimumSizeHint().width(), 400) << "the panel never keeps the main window wide";
    panel.resize(480, panel.sizeHint().height());
    owner.show();
    QRect before;
    for (const char* name : {"LabelNomeAppl", "LabelMode", "Label1", "LabelArr", "LabelSty", "LabelPrg"}) {
        const auto* one = panel.findChild<QLabel*>(name);
        EXPECT_TRUE(panel.rect().contains(one->geometry())) << name;
        EXPECT_GE(one->x(), before.right()) << name;
        EXPECT_GE(one->width(), 20) << name;
        before = one->geometry();
    }
    auto* cut = panel.findChild<QLabel*>("LabelPrg");
    EXPECT_EQ(cut->text(), longest + ".prg");
    QHelpEvent asked(QEvent::ToolTip, cut->rect().center(), cut->mapToGlobal(cut->rect().center()));
    QApplication::sendEvent(cut, &asked);
    EXPECT_TRUE(QToolTip::text().endsWith(longest + ".prg")) << QToolTip::text().toStdString();
    QToolTip::hideText();
}

TEST(StatusPanel, standsInItsOrderAndHidesEmptyLabels)
{
    App = {};
    QWidget owner;
    StatusPanelWidget panel(&owner);
    panel.resize(900, 30);
    panel.showMode("SONG PLAY");
    panel.showLine("Trasm. Arrangement");
    panel.showLabel(StatusLabel::Arr, "song.arr");
    panel.showLabel(StatusLabel::Sty, "song.sty");
    panel.showLabel(StatusLabel::Prg, "song.prg");
    owner.show();
    int before = -1;
    for (const char* name : {"LabelNomeAppl", "LabelMode", "Label1", "LabelArr", "LabelSty", "LabelPrg"}) {
        const auto* one = panel.findChild<QLabel*>(name);
        EXPECT_TRUE(one->isVisible()) << name;
        EXPECT_GT(one->x(), before) << name;
        before = one->x();
    }
    panel.showLabel(StatusLabel::Sty, "");
    EXPECT_FALSE(panel.findChild<QLabel*>("LabelSty")->isVisible());
    EXPECT_FALSE(panel.findChild<QWidget*>("SendBar")->isVisible());
    App.LanguageBase = 0;
    panel.showSendBar(10, 100, 4);
    const auto* bar = panel.findChild<QProgressBar*>("SendBar");
    EXPECT_TRUE(bar->isVisible());
    EXPECT_TRUE(bar->isTextVisible());
    EXPECT_EQ(bar->text(), "ancora 4 s");
    App.LanguageBase = 200;
    panel.showSendBar(20, 100, 3);
    EXPECT_EQ(bar->text(), "3 s left");
    panel.showSendBar(20, 100, 0);
    EXPECT_FALSE(bar->isTextVisible()) << "not known yet";
    panel.showSendBar(0, 0, 0);
    EXPECT_FALSE(panel.findChild<QWidget*>("SendBar")->isVisible());
}

TEST(StatusPanel, namesThePortInUseInItsToolTip)
{
    App = {};
    struct NamedPort final : RecordingMidiService {
        std::string name;
        std::string outputPortName() override { return name; }
    } port;
    Midi = {};
    Midi.service = &port;
    QWidget owner;
    StatusPanelWidget panel(&owner);
    owner.show();
    const auto toolTip = [&panel] {
        // over a label without a hint of its own the panel speaks
        auto* label = panel.findChild<QLabel*>("LabelNomeAppl");
        const QPoint place = label->rect().center();
        QHelpEvent asked(QEvent::ToolTip, place, label->mapToGlobal(place));
        QApplication::sendEvent(label, &asked);
        return panel.toolTip();
    };
    EXPECT_EQ(toolTip(), "Nessuna uscita MIDI in uso");
    port.name = "DIN Cable MIDI 1";
    EXPECT_EQ(toolTip(), "Uscita MIDI: DIN Cable MIDI 1");
    App.Language = 2;
    App.LanguageBase = 200;
    EXPECT_EQ(toolTip(), "MIDI output: DIN Cable MIDI 1");
    Midi.MidiEnabled = 0;
    EXPECT_EQ(toolTip(), "No MIDI output in use");
    Midi = {};
    App = {};
}
