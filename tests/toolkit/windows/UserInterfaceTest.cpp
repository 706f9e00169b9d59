// The boxes and the open dialog as a user meets them: keys, buttons, and what the hold keeps waiting meanwhile.
#include "core/Dichiarazioni.h"
#include "support/TemporaryFolder.h"
#include "toolkit/QtOpenDialog.h"
#include "toolkit/QtUserInterface.h"
#include "toolkit/StageTimer.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{

struct PanelSpy : StatusView {
    QString line, mode;
    QStringList labels;
    QList<QPair<int, int>> bars;
    QList<int> seconds;
    void showLine(const QString& text) override { line = text; }
    void showMode(const QString& text) override { mode = text; }
    void showLabel(StatusLabel, const QString& text) override { labels << text; }
    void showSendBar(int gone, int total, int secondsLeft) override
    {
        bars << qMakePair(gone, total);
        seconds << secondsLeft;
    }
};

struct Screen : testing::Test {
    QtUserInterface user;

    void SetUp() override { App = {}; }
    void TearDown() override { App = {}; }

    /// Runs `act` on the modal window as soon as one is up.
    template <typename Act>
    void whenModal(Act act)
    {
        QTimer::singleShot(0, QApplication::instance(), [this, act] {
            if (QWidget* modal = QApplication::activeModalWidget(); modal && modal->isVisible())
                act(modal);
            else
                whenModal(act);
        });
    }
    static QAbstractButton* button(QWidget* window, const char* name)
    {
        return window->findChild<QAbstractButton*>(name);
    }
};

using MessageBoxes = Screen;
using OpenDialog = Screen;
using SendProgress = Screen;

const char* const Filters = "Arrangements (*.arr)|*.arr|Style (*.sty)|*.sty|Programs (*.prg/pgg)|*.prg;*.pgg|"
                            "Global (*.gbl)|*.gbl| All files (*.*)|*.*|";

OpenDialogRequest requestIn(const std::string& folder)
{
    OpenDialogRequest request;
    request.title = "Tarvolyne - Tarvolyne Console - Apri File";
    request.folder = folder;
    request.filters = Filters;
    return request;
}

QStringList shownFiles(QWidget* dialog)
{
    QStringList names;
    const auto* view = dialog->findChild<QListView*>("listView");
    for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
        names << view->model()->index(row, 0, view->rootIndex()).data().toString();
    names.sort();
    return names;
}

} // namespace

TEST_F(MessageBoxes, okAndEscapeAreToldApart)
{
    whenModal([](QWidget* box) { QTest::mouseClick(button(box, "CommOK"), Qt::LeftButton); });
    EXPECT_EQ(user.warn("Tarvolyne", "text"), BoxEnd::Ok);
    whenModal([](QWidget* box) { QTest::keyClick(box, Qt::Key_Return); });
    EXPECT_EQ(user.warn("Tarvolyne", "text"), BoxEnd::Ok);
    whenModal([](QWidget* box) { QTest::keyClick(box, Qt::Key_Escape); });
    EXPECT_EQ(user.warn("Tarvolyne", "text"), BoxEnd::Dismissed);
    whenModal([](QWidget* box) { box->close(); });
    EXPECT_EQ(user.warn("Tarvolyne", "text"), BoxEnd::Dismissed);
}

TEST_F(MessageBoxes, showTheTextAsItIsWithTheWarningSign)
{
    whenModal([](QWidget* window) {
        auto* box = dynamic_cast<QMessageBox*>(window);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->windowTitle(), "Apertura di <b>x</b>");
        EXPECT_EQ(box->text(), QString::fromUtf8("Non è <i>ammessa</i>"));
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_EQ(box->buttons().size(), 1);
        QTest::keyClick(box, Qt::Key_Return);
    });
    EXPECT_EQ(user.warn("Apertura di <b>x</b>", "Non è <i>ammessa</i>"), BoxEnd::Ok);
}

TEST_F(MessageBoxes, aYesNoQuestionCannotBeLeftByEscape)
{
    whenModal([](QWidget* box) {
        QTest::keyClick(box, Qt::Key_Escape);
        EXPECT_TRUE(box->isVisible());
        box->close();
        EXPECT_TRUE(box->isVisible());
        QTest::mouseClick(button(box, "CommNo"), Qt::LeftButton);
    });
    EXPECT_EQ(user.askYesNo("t", "q"), 7);
    whenModal([](QWidget* box) { QTest::mouseClick(button(box, "CommYes"), Qt::LeftButton); });
    EXPECT_EQ(user.askYesNo("t", "q"), 6);
}

TEST_F(MessageBoxes, yesNoCancelAnswersSixSevenTwoAndEscapeCancels)
{
    whenModal([](QWidget* box) { QTest::mouseClick(button(box, "CommYes"), Qt::LeftButton); });
    EXPECT_EQ(user.askYesNoCancel("t", "q"), 6);
    whenModal([](QWidget* box) { QTest::mouseClick(button(box, "CommNo"), Qt::LeftButton); });
    EXPECT_EQ(user.askYesNoCancel("t", "q"), 7);
    whenModal([](QWidget* box) { QTest::mouseClick(button(box, "CommCancel"), Qt::LeftButton); });
    EXPECT_EQ(user.askYesNoCancel("t", "q"), 2);
    whenModal([](QWidget* box) { QTest::keyClick(box, Qt::Key_Escape); });
    EXPECT_EQ(user.askYesNoCancel("t", "q"), 2);
}

TEST_F(MessageBoxes, speakTheLanguageOfTheRun)
{
    App.LanguageBase = 0;
    whenModal([](QWidget* box) {
        EXPECT_EQ(button(box, "CommYes")->text(), QString::fromUtf8("&Sì"));
        EXPECT_EQ(button(box, "CommCancel")->text(), "Annulla");
        QTest::keyClick(box, Qt::Key_Escape);
    });
    EXPECT_EQ(user.askYesNoCancel("t", "q"), 2);
    App.LanguageBase = 200;
    whenModal([](QWidget* box) {
        EXPECT_EQ(button(box, "CommYes")->text(), "&Yes");
        EXPECT_EQ(button(box, "CommCancel")->text(), "Cancel");
        QTest::keyClick(box, Qt::Key_Escape);
    });
    EXPECT_EQ(user.askYesNoCancel("t", "q"), 2);
}

TEST_F(MessageBoxes, stageTimersWaitUntilTheBoxIsGone)
{
    QObject owner;
    StageTimer timer(&owner, "TimerLoadArr");
    bool boxOpen = false;
    int ticks = 0;
    timer.onTick([&] {
        ++ticks;
        EXPECT_FALSE(boxOpen);
    });
    timer.enable();
    boxOpen = true;
    whenModal([&](QWidget* box) {
        QTest::qWait(60);
        EXPECT_EQ(ticks, 0);
        QTest::keyClick(box, Qt::Key_Return);
    });
    EXPECT_EQ(user.warn("t", "x"), BoxEnd::Ok);
    boxOpen = false;
    EXPECT_EQ(ticks, 0);
    QTest::qWait(20);
    EXPECT_EQ(ticks, 1);
}

TEST(OpenDialogFilters, showTheirTextsAndMatchTheirPatterns)
{
    EXPECT_EQ(nameFilters(Filters),
              (QStringList{"Arrangements (*.arr) (*.arr)", "Style (*.sty) (*.sty)",
                           "Programs (*.prg/pgg) (*.prg *.pgg)", "Global (*.gbl) (*.gbl)", "All files (*.*) (*)"}));
}

TEST_F(OpenDialog, listsAnyLetterCaseOfTheFiltersExtensionAndNothingElse)
{
    TemporaryFolder folder;
    for (const char* name : {"song.arr", "LIVE.ARR", "Mixed.Arr", "song.sty", "song.arrx", "README"})
        folder.put(name, "x");
    whenModal([](QWidget* dialog) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return shownFiles(dialog).size() >= 3; }));
        EXPECT_EQ(shownFiles(dialog), (QStringList{"LIVE.ARR", "Mixed.Arr", "song.arr"}));
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(user.openFile(requestIn(folder.path())).accepted);
}

TEST_F(OpenDialog, allFilesListsFilesWithoutExtensionToo)
{
    TemporaryFolder folder;
    for (const char* name : {"song.arr", "song.sty", "README"})
        folder.put(name, "x");
    OpenDialogRequest request = requestIn(folder.path());
    request.filterIndex = 5;
    whenModal([](QWidget* dialog) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return shownFiles(dialog).size() >= 3; }));
        EXPECT_EQ(shownFiles(dialog), (QStringList{"README", "song.arr", "song.sty"}));
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(user.openFile(request).accepted);
}

TEST_F(OpenDialog, answersThePathTheFilterAndTheReadOnlyBox)
{
    TemporaryFolder folder;
    const std::string path = folder.put("song.sty", "x");
    OpenDialogRequest request = requestIn(folder.path());
    whenModal([](QWidget* dialog) {
        auto* combo = dialog->findChild<QComboBox*>("fileTypeCombo");
        EXPECT_EQ(combo->currentText(), "Arrangements (*.arr)");
        EXPECT_EQ(combo->itemText(2), "Programs (*.prg/pgg)");
        combo->setCurrentIndex(1);
        emit combo->activated(1);
        auto* readOnly = dialog->findChild<QCheckBox*>("ReadOnly");
        EXPECT_EQ(readOnly->text(), "Sola Lettura");
        EXPECT_TRUE(readOnly->isVisible());
        EXPECT_FALSE(readOnly->isChecked());
        QTest::mouseClick(readOnly, Qt::LeftButton, {}, QPoint(8, readOnly->height() / 2));
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        name->setFocus();
        QTest::keyClicks(name, "song.sty");
        QTest::keyClick(name, Qt::Key_Return);
    });
    const OpenDialogAnswer answer = user.openFile(request);
    EXPECT_TRUE(answer.accepted);
    EXPECT_EQ(answer.path, path);
    EXPECT_EQ(answer.filterIndex, 2);
    EXPECT_TRUE(answer.readOnly);
}

TEST_F(OpenDialog, aTypedNameWithoutExtensionGetsThatOfTheFilterInUse)
{
    TemporaryFolder folder;
    OpenDialogRequest request = requestIn(folder.path());
    request.filterIndex = 3;
    whenModal([](QWidget* dialog) {
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        QTest::keyClicks(name, "band");
        QTest::keyClick(name, Qt::Key_Return);
    });
    const OpenDialogAnswer answer = user.openFile(request);
    EXPECT_EQ(answer.path, folder.file("band.prg"));
    EXPECT_EQ(answer.filterIndex, 3);
}

TEST_F(OpenDialog, theReadOnlyBoxStartsAsAskedFor)
{
    TemporaryFolder folder;
    OpenDialogRequest request = requestIn(folder.path());
    request.readOnly = true;
    whenModal([](QWidget* dialog) {
        EXPECT_TRUE(dialog->findChild<QCheckBox*>("ReadOnly")->isChecked());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    EXPECT_TRUE(user.openFile(request).readOnly);
}

TEST_F(OpenDialog, aTypedNameThatDoesNotExistIsAnAnswerToo)
{
    TemporaryFolder folder;
    whenModal([](QWidget* dialog) {
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        QTest::keyClicks(name, "nowhere.arr");
        QTest::keyClick(name, Qt::Key_Return);
    });
    const OpenDialogAnswer answer = user.openFile(requestIn(folder.path()));
    EXPECT_TRUE(answer.accepted);
    EXPECT_EQ(answer.path, folder.file("nowhere.arr"));
}

TEST_F(SendProgress, showsABarOnlyWhenTheSendTakesLongAndTakesItAway)
{
    QWidget window;
    PanelSpy panel;
    user.setMainWindow(&window, &panel);
    user.showSendProgress(64, 12002);
    user.showSendProgress(128, 12002);
    EXPECT_TRUE(panel.bars.isEmpty());
    QTest::qSleep(320);
    user.showSendProgress(1024, 12002);
    EXPECT_EQ(panel.bars, (QList<QPair<int, int>>{{1024, 12002}}));
    user.showSendProgress(12002, 12002);
    EXPECT_EQ(panel.bars.last(), qMakePair(0, 0));
    EXPECT_FALSE(EventHold::active());
}

TEST_F(SendProgress, tellsTheSecondsThatTheSendStillTakesAtItsSpeedSoFar)
{
    QWidget window;
    PanelSpy panel;
    user.setMainWindow(&window, &panel);
    user.showSendProgress(64, 12000);
    QTest::qSleep(400);
    user.showSendProgress(1200, 12000); // a tenth in some 0.4 s: nine times as much is left
    QTest::qSleep(400);
    user.showSendProgress(11400, 12000); // a twentieth is left of some 0.8 s
    user.showSendProgress(12000, 12000);
    ASSERT_EQ(panel.seconds.size(), 3);
    EXPECT_GE(panel.seconds[0], 4) << "3.6 s and more on a slow machine, rounded up";
    EXPECT_LE(panel.seconds[0], 12);
    EXPECT_EQ(panel.seconds[1], 1) << "the last second until it is over";
    EXPECT_EQ(panel.seconds[2], 0);
}

TEST_F(SendProgress, aSendThatBrokeOffLeavesNoBarStanding)
{
    QWidget window;
    PanelSpy panel;
    user.setMainWindow(&window, &panel);
    user.showSendProgress(64, 12002);
    QTest::qSleep(320);
    user.showSendProgress(640, 12002);
    ASSERT_EQ(panel.bars.size(), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel.bars.last() == qMakePair(0, 0); }, 1000));
    EXPECT_FALSE(EventHold::active());
}

TEST_F(SendProgress, paintsButDeliversNeitherKeysNorStageTimers)
{
    struct Painted : QLineEdit {
        int paints = 0;
        void paintEvent(QPaintEvent* event) override
        {
            ++paints;
            QLineEdit::paintEvent(event);
        }
    } field;
    field.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&field));
    PanelSpy panel;
    user.setMainWindow(&field, &panel);
    QObject owner;
    StageTimer timer(&owner, "TimerList1");
    int ticks = 0;
    timer.onTick([&] { ++ticks; });
    timer.enable();
    user.showSendProgress(64, 12002);
    QTest::qSleep(120);
    field.paints = 0;
    field.update();
    QApplication::postEvent(&field, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
    user.showSendProgress(128, 12002);
    EXPECT_GT(field.paints, 0);
    EXPECT_EQ(field.text(), "");
    EXPECT_EQ(ticks, 0);
    user.showSendProgress(12002, 12002);
    QTest::qWait(30);
    EXPECT_EQ(ticks, 1);
}

TEST_F(SendProgress, theHourglassStandsAsLongAsTheLineDoes)
{
    QWidget window;
    PanelSpy panel;
    user.setMainWindow(&window, &panel);
    user.showProgressLine("Trasm. Arrangement");
    EXPECT_EQ(panel.line, "Trasm. Arrangement");
    EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
    user.showProgressLine("Trasmissione Style");
    user.showProgressLine("");
    EXPECT_EQ(panel.line, "");
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}
