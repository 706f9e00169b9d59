// The save dialog and its question before overwriting, worked by keys as a user does.
#include "toolkit/QtUserInterface.h"

#include "core/Dichiarazioni.h"
#include "support/TemporaryFolder.h"
#include "toolkit/QtOpenDialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{

const char* const Filters = "Arrangements (*.arr)|*.arr| Styles (*.sty)|*.sty| Programs (*.prg)|*.prg| "
                            "Programs(*.pgg)| *.pgg| Global(*.gbl)| *.gbl| All files (*.*)|*.*|";

class SaveDialogTest : public ::testing::Test
{
protected:
    SaveDialogTest()
    {
        App = {};
        App.LanguageBase = 200;
    }
    ~SaveDialogTest() override { App = {}; }

    SaveDialogRequest request(const std::string& fileName, int filter = 1) const
    {
        SaveDialogRequest asked;
        asked.title = "Save file as";
        asked.folder = folder.path();
        asked.fileName = fileName;
        asked.defaultExtension = "arr";
        asked.filterIndex = filter;
        asked.filters = Filters;
        return asked;
    }

    /// What the user does, one step for each dialog or box that comes up, in order.
    template <typename Step>
    void then(Step step)
    {
        steps.push_back(step);
    }
    SaveDialogAnswer ask(const SaveDialogRequest& asked)
    {
        lookFor(nullptr);
        const SaveDialogAnswer answer = user.saveFile(asked);
        EXPECT_TRUE(steps.empty()) << "every dialog and box came up";
        return answer;
    }

    static QLineEdit* nameOf(QWidget* dialog) { return dialog->findChild<QLineEdit*>("fileNameEdit"); }
    static void typeName(QWidget* dialog, const QString& name)
    {
        QLineEdit* edit = nameOf(dialog);
        dialog->activateWindow();
        edit->setFocus();
        EXPECT_TRUE(QTest::qWaitFor([edit] { return edit->hasFocus(); }));
        edit->selectAll();
        QTest::keyClicks(edit, name);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    static void chooseFilter(QWidget* dialog, const QString& filter)
    {
        auto* combo = dialog->findChild<QComboBox*>("fileTypeCombo");
        for (int row = 1; row < combo->count() && combo->currentText() != filter; ++row)
            QTest::keyClick(combo, Qt::Key_Down);
        EXPECT_EQ(combo->currentText(), filter);
    }
    static void press(QWidget* box, const char* button)
    {
        QTest::mouseClick(box->findChild<QPushButton*>(button), Qt::LeftButton);
    }

    TemporaryFolder folder;
    QtUserInterface user;

private:
    /// Runs the next step on the next window that comes up. Looks again meanwhile: a step may bring up another window.
    void lookFor(QWidget* last)
    {
        QTimer::singleShot(5, &looking, [this, last] {
            if (steps.empty())
                return;
            QWidget* modal = QApplication::activeModalWidget();
            if (modal == nullptr || modal == last || !modal->isVisible())
                return lookFor(last);
            const auto step = steps.front();
            steps.erase(steps.begin());
            lookFor(modal);
            step(modal);
        });
    }

    QObject looking;
    std::vector<std::function<void(QWidget*)>> steps;
};

} // namespace

TEST(SaveDialogFilters, matchTheirPatternsWhateverBlanksStandBeforeThem)
{
    EXPECT_EQ(nameFilters(Filters),
              (QStringList{"Arrangements (*.arr) (*.arr)", "Styles (*.sty) (*.sty)", "Programs (*.prg) (*.prg)",
                           "Programs(*.pgg) (*.pgg)", "Global(*.gbl) (*.gbl)", "All files (*.*) (*)"}));
}

TEST_F(SaveDialogTest, offersTheNameAndAnswersThePath)
{
    then([](QWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle(), "Save file as");
        EXPECT_EQ(nameOf(dialog)->text(), "Untitled.arr");
        EXPECT_EQ(dialog->findChild<QCheckBox*>("ReadOnly"), nullptr);
        QTest::keyClick(nameOf(dialog), Qt::Key_Return);
    });
    const SaveDialogAnswer answer = ask(request("Untitled.arr"));
    EXPECT_TRUE(answer.accepted);
    EXPECT_EQ(answer.path, folder.file("Untitled.arr"));
    EXPECT_EQ(answer.filterIndex, 1);
}

TEST_F(SaveDialogTest, beginsInTheFolderOfAFullPath)
{
    const TemporaryFolder other;
    then([](QWidget* dialog) { QTest::keyClick(nameOf(dialog), Qt::Key_Return); });
    EXPECT_EQ(ask(request(other.file("song.arr"))).path, other.file("song.arr"));
}

TEST_F(SaveDialogTest, escapeIsACancel)
{
    then([](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    const SaveDialogAnswer answer = ask(request("song.arr"));
    EXPECT_FALSE(answer.accepted);
    EXPECT_EQ(answer.path, "");
}

TEST_F(SaveDialogTest, aNameWithoutExtensionGetsThatOfTheFilter)
{
    then([](QWidget* dialog) { typeName(dialog, "mine"); });
    EXPECT_EQ(ask(request("song.arr")).path, folder.file("mine.arr"));
    then([](QWidget* dialog) {
        chooseFilter(dialog, "Programs(*.pgg)");
        typeName(dialog, "mine");
    });
    const SaveDialogAnswer answer = ask(request("song.arr"));
    EXPECT_EQ(answer.path, folder.file("mine.pgg"));
    EXPECT_EQ(answer.filterIndex, 4);
}

TEST_F(SaveDialogTest, underAllFilesANameGetsTheWindowsOwnExtension)
{
    then([](QWidget* dialog) {
        chooseFilter(dialog, "All files (*.*)");
        typeName(dialog, "mine");
    });
    const SaveDialogAnswer answer = ask(request("song.arr"));
    EXPECT_EQ(answer.path, folder.file("mine.arr"));
    EXPECT_EQ(answer.filterIndex, 6);
}

TEST_F(SaveDialogTest, asksBeforeOverwritingAndStaysOpenOnNo)
{
    folder.put("song.arr", "old");
    then([](QWidget* dialog) { typeName(dialog, "song.arr"); });
    then([](QWidget* box) {
        auto* question = dynamic_cast<QMessageBox*>(box);
        ASSERT_NE(question, nullptr);
        EXPECT_EQ(question->text(), "song.arr already exists.\nReplace it?");
        EXPECT_NE(dynamic_cast<QFileDialog*>(question->parentWidget()), nullptr) << "it stands over the dialog";
        press(box, "CommNo");
    });
    then([](QWidget* dialog) { typeName(dialog, "other.arr"); });
    const SaveDialogAnswer answer = ask(request("x.arr"));
    EXPECT_TRUE(answer.accepted);
    EXPECT_EQ(answer.path, folder.file("other.arr"));
}

TEST_F(SaveDialogTest, asksAboutTheFileThatTheNameStandsForUnderTheFilterChosen)
{
    folder.put("song.arr", "old");
    folder.put("song.arr.sty", "old");
    SaveDialogRequest asked = request("x.arr");
    asked.nameOf = [](const std::string& path, int filter) { return filter == 2 ? path + ".sty" : path; };
    const QString arr = "song.arr";
    then([arr](QWidget* dialog) {
        chooseFilter(dialog, "Styles (*.sty)");
        typeName(dialog, arr);
    });
    then([](QWidget* box) {
        EXPECT_EQ(dynamic_cast<QMessageBox*>(box)->text(), "song.arr.sty already exists.\nReplace it?");
        press(box, "CommNo");
    });
    then([arr](QWidget* dialog) {
        chooseFilter(dialog, "Global(*.gbl)");
        typeName(dialog, arr);
    });
    then([](QWidget* box) {
        EXPECT_EQ(dynamic_cast<QMessageBox*>(box)->text(), "song.arr already exists.\nReplace it?");
        press(box, "CommNo");
    });
    then([](QWidget* dialog) {
        chooseFilter(dialog, "Global(*.gbl)");
        typeName(dialog, "fresh.sty");
    });
    const SaveDialogAnswer answer = ask(asked);
    EXPECT_TRUE(answer.accepted);
    EXPECT_EQ(answer.filterIndex, 5);
    EXPECT_EQ(answer.path, folder.file("fresh.sty"));
}

TEST_F(SaveDialogTest, answersTheFileItHasAskedAbout)
{
    folder.put("song.pgg", "old");
    SaveDialogRequest asked = request("x.prg", 3);
    asked.nameOf = [this](const std::string&, int) { return folder.file("song.pgg"); };
    then([](QWidget* dialog) { typeName(dialog, "song.prg"); });
    then([](QWidget* box) {
        EXPECT_EQ(dynamic_cast<QMessageBox*>(box)->text(), "song.pgg already exists.\nReplace it?");
        press(box, "CommYes");
    });
    EXPECT_EQ(ask(asked).path, folder.file("song.pgg"));
}

TEST_F(SaveDialogTest, underAFilterThatStandsForNoFileNothingIsAsked)
{
    folder.put("song.arr", "old");
    SaveDialogRequest asked = request("x.arr");
    asked.nameOf = [](const std::string&, int) { return std::string(); };
    then([](QWidget* dialog) { typeName(dialog, "song.arr"); });
    const SaveDialogAnswer answer = ask(asked);
    EXPECT_TRUE(answer.accepted);
    EXPECT_EQ(answer.path, folder.file("song.arr"));
}

TEST_F(SaveDialogTest, yesTakesTheNameOfAFileThatExists)
{
    App.LanguageBase = 0;
    folder.put("song.arr", "old");
    then([](QWidget* dialog) { typeName(dialog, "song"); });
    then([](QWidget* box) {
        EXPECT_EQ(dynamic_cast<QMessageBox*>(box)->text(), QString::fromUtf8("song.arr esiste già.\nSostituirlo?"));
        press(box, "CommYes");
    });
    EXPECT_EQ(ask(request("x.arr")).path, folder.file("song.arr"));
}

TEST_F(SaveDialogTest, aPathWhoseFolderIsMissingIsToldAndNotTaken)
{
    const QString missing = QString::fromStdString(folder.file("nowhere/song.arr"));
    then([missing](QWidget* dialog) { typeName(dialog, missing); });
    then([](QWidget* box) {
        EXPECT_EQ(dynamic_cast<QMessageBox*>(box)->text(), "Path not found");
        press(box, "CommOK");
    });
    then([](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    EXPECT_FALSE(ask(request("x.arr")).accepted);
}

TEST_F(SaveDialogTest, namesAreBytesOfTheFileSystem)
{
    then([](QWidget* dialog) {
        nameOf(dialog)->setText(QString::fromUtf8("città & più"));
        QTest::keyClick(nameOf(dialog), Qt::Key_Return);
    });
    EXPECT_EQ(ask(request("x.arr")).path, folder.file("citt\xC3\xA0 & pi\xC3\xB9.arr"));
}
