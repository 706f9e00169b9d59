// The focus in every window: Tab reaches each control of use and comes round, and where it stands is seen, in a light
// and in a dark desktop.
#include "EveryDialog.h"

#include "support/Seen.h"
#include "toolkit/QtLooks.h"
#include "tools/pictures/Palettes.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QFileDialog>
#include <QScrollArea>
#include <QStyleFactory>
#include <QTabBar>
#include <QTabWidget>

namespace
{

std::string nameOf(const QWidget* one)
{
    QString name;
    for (; one; one = one->parentWidget())
        if (!one->objectName().isEmpty() && !one->objectName().startsWith(QLatin1String("qt_scroll")))
            name = one->objectName() + (name.isEmpty() ? QString() : QLatin1Char('/') + name);
    return name.mid(name.indexOf(QLatin1String("MDIForm")) + 8).toStdString();
}

class Focus : public EveryDialog
{
protected:
    Focus()
    {
        QApplication::setCursorFlashTime(0);
        before = QApplication::palette();
        Looks::useReadableStyle();
    }
    ~Focus() override
    {
        window.reset();
        QApplication::setStyle(QStringLiteral("fusion"));
        QApplication::setPalette(before);
    }

    /// What Tab is to reach: what is enabled, shown, and takes the focus by it.
    static std::set<QWidget*> wanted(const QWidget* child)
    {
        std::set<QWidget*> all;
        for (QWidget* one : child->findChildren<QWidget*>())
            if (one->isVisible() && one->isEnabled() && (one->focusPolicy() & Qt::TabFocus) && !one->focusProxy())
                all.insert(one);
        return all;
    }
    /// The controls in the order of the key, from the one that has the focus round to it.
    static std::vector<QWidget*> round(int key)
    {
        constexpr int Most = 200;
        std::vector<QWidget*> reached;
        QWidget* const first = QApplication::focusWidget();
        QWidget* now = first;
        do {
            reached.push_back(now);
            QTest::keyClick(now, static_cast<Qt::Key>(key));
            now = QApplication::focusWidget();
        } while (now && now != first && reached.size() < Most);
        EXPECT_EQ(now, first) << "not round: " << nameOf(first) << " from " << nameOf(reached.back());
        return reached;
    }
    void checkOrder(const QWidget* child)
    {
        ASSERT_NE(QApplication::focusWidget(), nullptr) << child->objectName().toStdString();
        ASSERT_TRUE(child->isAncestorOf(QApplication::focusWidget())) << child->objectName().toStdString();
        std::vector<QWidget*> forth = round(Qt::Key_Tab);
        const std::set<QWidget*> reached(forth.begin(), forth.end());
        for (QWidget* one : wanted(child))
            EXPECT_EQ(reached.count(one), 1U) << "not reached: " << nameOf(one);
        for (const QWidget* one : forth)
            EXPECT_EQ(dynamic_cast<const QScrollArea*>(one), nullptr) << "of no use: " << nameOf(one);
        const std::vector<QWidget*> back = round(Qt::Key_Backtab);
        std::reverse(forth.begin() + 1, forth.end());
        EXPECT_EQ(forth, back) << child->objectName().toStdString();
        controls += static_cast<int>(forth.size());
        for (QWidget* one : reached)
            if (!toolkitsOwn(one))
                checkSeen(one, reached);
    }
    /// The folders and files of the file dialogs are drawn by the toolkit, as in every program of the desktop.
    static bool toolkitsOwn(QWidget* one)
    {
        return dynamic_cast<QFileDialog*>(one->window()) && dynamic_cast<QAbstractItemView*>(one);
    }
    /// It differs from itself while another control has the focus. (Where there is no other it is never elsewhere.)
    static void checkSeen(QWidget* one, const std::set<QWidget*>& all)
    {
        if (all.size() < 2)
            return;
        one->setFocus(Qt::TabFocusReason);
        const QImage with = one->grab().toImage();
        QWidget* other = *all.begin() == one ? *std::next(all.begin()) : *all.begin();
        other->setFocus(Qt::TabFocusReason);
        ASSERT_FALSE(one->hasFocus());
        EXPECT_GE(pixelsApart(with, one->grab().toImage(), 1.5), 10) << "not seen: " << nameOf(one);
        one->setFocus(Qt::TabFocusReason);
    }
    void checkAll()
    {
        for (QMdiSubWindow* one : window->area()->subWindowList()) {
            auto* child = dynamic_cast<ChildWindow*>(one);
            window->area()->setActiveSubWindow(child);
            QApplication::processEvents();
            checkOrder(child);
            if (auto* pages = child->findChild<QTabWidget*>())
                for (int page = 1; page < pages->count(); ++page) {
                    pages->setCurrentIndex(page);
                    pages->tabBar()->setFocus(Qt::TabFocusReason);
                    QApplication::processEvents();
                    checkOrder(child);
                }
        }
    }
    void checkDialogs()
    {
        everyDialog([this](QWidget* top) {
            ASSERT_TRUE(QTest::qWaitForWindowActive(top));
            ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }, 2000))
                << top->objectName().toStdString();
            checkOrder(top);
        });
        EXPECT_GT(controls, 7 + 7 * 6);
    }

    QPalette before;
    int controls = 0;
};

} // namespace

TEST_P(Focus, comesRoundByTabAndIsSeenOnEachControl)
{
    openEverything();
    checkAll();
    EXPECT_GT(controls, 400);
}

TEST_P(Focus, isSeenOnEachControlOfADarkDesktop)
{
    QApplication::setPalette(Looks::readable(darkPalette()));
    openEverything();
    checkAll();
}

TEST_P(Focus, comesRoundByTabInTheDialogsAndSmallWindowsToo) { checkDialogs(); }

TEST_P(Focus, isSeenInTheDialogsOfADarkDesktop)
{
    QApplication::setPalette(Looks::readable(darkPalette()));
    checkDialogs();
}

INSTANTIATE_TEST_SUITE_P(InBothLanguages, Focus, testing::Values(1, 2),
                         [](const auto& run) { return run.param == 1 ? "Italian" : "English"; });
