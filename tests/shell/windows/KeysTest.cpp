// The keys of the program: the letters of menus and windows that stand twice, and what works in every window without a
// mouse.
#include "EveryWindow.h"

#include <QPointer>
#include <map>

namespace
{

QChar letterOf(const QString& text)
{
    for (qsizetype at = text.indexOf(QLatin1Char('&')); at >= 0 && at + 1 < text.size();
         at = text.indexOf(QLatin1Char('&'), at + 2))
        if (text[at + 1] != QLatin1Char('&'))
            return text[at + 1].toUpper();
    return {};
}

/// "P: mnuA, mnuB" for each letter that stands more than once.
QStringList twice(const std::multimap<QChar, QString>& letters)
{
    QStringList found;
    for (auto at = letters.begin(); at != letters.end(); at = letters.upper_bound(at->first)) {
        QStringList names;
        for (auto one = at; one != letters.end() && one->first == at->first; ++one)
            names << one->second;
        if (names.size() > 1)
            found << QString(at->first) + QLatin1String(": ") + names.join(QLatin1String(", "));
    }
    return found;
}

class KeysEverywhere : public EveryWindow
{
protected:
    QStringList inMenu(const char* name)
    {
        std::multimap<QChar, QString> letters;
        for (const QAction* one : item(name)->menu()->actions())
            if (const QChar letter = letterOf(one->text()); !letter.isNull() && one->isVisible())
                letters.emplace(letter, one->objectName());
        return twice(letters);
    }
    QStringList inWindow(const QWidget* child)
    {
        std::multimap<QChar, QString> letters;
        for (const QAbstractButton* one : child->findChildren<QAbstractButton*>())
            if (const QChar letter = letterOf(one->text()); !letter.isNull())
                letters.emplace(letter, one->objectName());
        return twice(letters);
    }
    ChildWindow* active() { return dynamic_cast<ChildWindow*>(window->area()->activeSubWindow()); }
    static void key(int key, Qt::KeyboardModifiers with = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), with);
        QApplication::processEvents();
    }
    ChildWindow* activate(ChildWindow* child)
    {
        App.GlobalChannel = 0;
        window->area()->setActiveSubWindow(child);
        QApplication::processEvents();
        return child;
    }
};

} // namespace

TEST_P(KeysEverywhere, noLetterStandsTwiceInAMenuButTheTablesOwn)
{
    openEverything();
    const bool italian = GetParam() == 1;
    EXPECT_EQ(inMenu("mnuFile"), QStringList());
    // Of the words of the system, which stay: find by ID in the view menu has its N alone, update its G or U.
    for (const char* name : {"mnuView", "mnuPreferenze", "mnuWindow", "mnuHelp", "mnuModifica"})
        EXPECT_EQ(inMenu(name), QStringList()) << name;
    std::multimap<QChar, QString> letters;
    for (const QAction* one : window->menuBar()->actions())
        if (const QChar letter = letterOf(one->text()); !letter.isNull())
            letters.emplace(letter, one->objectName());
    EXPECT_EQ(twice(letters), QStringList());
    EXPECT_EQ(letters.size(), 5U) << "the guide's menu has no letter in the table";
    EXPECT_EQ(letters.count(italian ? QLatin1Char('N') : QLatin1Char('W')), 1U);
}

TEST_P(KeysEverywhere, noLetterStandsTwiceInAWindow)
{
    openEverything();
    for (QMdiSubWindow* one : window->area()->subWindowList())
        EXPECT_EQ(inWindow(one), QStringList()) << one->objectName().toStdString();
}

/// A letter that a menu and a button both have in the table stays with both.
TEST_P(KeysEverywhere, theLettersOfButtonsThatAMenuHasToo)
{
    openEverything();
    std::set<QChar> menus;
    for (const QAction* one : window->menuBar()->actions())
        menus.insert(letterOf(one->text()));
    QStringList met;
    for (const QAbstractButton* one : arrangementWindow("song")->findChildren<QAbstractButton*>())
        if (const QChar letter = letterOf(one->text()); !letter.isNull() && menus.count(letter))
            met << QString(letter) + QLatin1String(": ") + one->objectName();
    met.sort();
    EXPECT_EQ(met.join(QLatin1String(", ")).toStdString(), "P: CommLoadPrg");
}

TEST_P(KeysEverywhere, theNextRowIsChosenFromAnywhereInTheWindow)
{
    openEverything();
    ChildWindow* song = activate(arrangementWindow("song"));
    port.forget();
    control<QPushButton>(song, "CommClose")->setFocus();
    auto* list = control<QListWidget>(song, "List1");
    list->item(1)->setText("12  Second");
    ASSERT_EQ(list->currentRow(), 0);
    key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(list->currentRow(), 1);
    EXPECT_TRUE(list->item(1)->isSelected());
    EXPECT_EQ(sent(), selection("01"));
    key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(sent(), selection("00"));
    key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(sent(), Lines{}) << "the first row";

    activate(child("frmEditArr"));
    list->item(1)->setText("12  Second");
    key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(list->currentRow(), 1) << "the window that the editor came from";
    EXPECT_EQ(active(), child("frmEditArr"));
}

TEST_P(KeysEverywhere, figuresMuteAndSoloTheTracksOfTheEditor)
{
    openEverything();
    ChildWindow* editor = activate(child("frmEditArr"));
    port.forget();
    key(Qt::Key_9, Qt::ControlModifier);
    EXPECT_EQ(sent(), (Lines{"F0 42 30 4D 41 (9)"}));
    EXPECT_TRUE(control<QPushButton>(editor, "CommM(8)")->isChecked());
    key(Qt::Key_9, Qt::ControlModifier);
    EXPECT_FALSE(control<QPushButton>(editor, "CommM(8)")->isChecked());
    port.forget();
    key(Qt::Key_1, Qt::AltModifier);
    EXPECT_EQ(sent().size(), 9U) << "a solo is nine mutes";
    EXPECT_TRUE(control<QPushButton>(editor, "CommS(0)")->isChecked());
    EXPECT_FALSE(control<QPushButton>(editor, "CommM(0)")->isChecked());
    EXPECT_TRUE(control<QPushButton>(editor, "CommM(1)")->isChecked());
}

TEST_P(KeysEverywhere, windowsAreChangedAndClosedAndTheGuideOpened)
{
    openEverything();
    const QPointer<ChildWindow> drum = activate(child("frmDrum")); // closed, it may be gone at once
    key(Qt::Key_F4, Qt::ControlModifier);
    EXPECT_TRUE(!drum || drum->isHidden());
    const QPointer<ChildWindow> now = active();
    ASSERT_TRUE(now);
    ASSERT_NE(now, drum);
    key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(!now || now->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    child("frmGuida")->unloadChild();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    activate(child("frmAbout"));
    key(Qt::Key_F1);
    ASSERT_NE(child("frmGuida"), nullptr);
    EXPECT_EQ(active(), child("frmGuida"));
}

TEST_P(KeysEverywhere, theMenuKeyOpensTheEditMenuAtTheFocus)
{
    openEverything();
    ChildWindow* song = activate(arrangementWindow("song"));
    auto* list = control<QListWidget>(song, "List1");
    list->setFocus();
    key(Qt::Key_F10, Qt::ShiftModifier);
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup, item("mnuModifica")->menu());
    popup->close();
    key(Qt::Key_F10);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget(), item("mnuFile")->menu());
    QApplication::activePopupWidget()->close();
}

INSTANTIATE_TEST_SUITE_P(InBothLanguages, KeysEverywhere, testing::Values(1, 2),
                         [](const auto& run) { return run.param == 1 ? "Italian" : "English"; });
