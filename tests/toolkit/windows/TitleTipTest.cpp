// A title that its bar cuts can be read whole: under the mouse, letter by letter.
#include "toolkit/ChildWindow.h"

#include <QHelpEvent>
#include <QMdiArea>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

namespace
{

class TitleTip : public testing::Test
{
protected:
    TitleTip()
    {
        App = {};
        area.resize(1600, 800);
        child = new ChildWindow("frmFindID", &AppState::OtherCount);
        child->setWidget(new QWidget);
        area.addSubWindow(child);
        area.show();
        child->show();
        child->resize(150, 120);
    }
    ~TitleTip() override { QToolTip::hideText(); }

    /// What stands under the mouse after it rested at a height above the window's lower end.
    QString tipAt(int y)
    {
        QToolTip::hideText();
        QTest::qWait(350); // a tool tip lingers before it goes
        const QPoint place(60, y);
        QHelpEvent help(QEvent::ToolTip, place, child->mapToGlobal(place));
        QApplication::sendEvent(child, &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }

    QMdiArea area;
    ChildWindow* child;
};

} // namespace

TEST_F(TitleTip, standsOverATitleThatIsCutAndNowhereElse)
{
    const QString title = QStringLiteral("Find Arrangement (ID) and whatever else stands in a title");
    child->setWindowTitle(title);
    EXPECT_EQ(tipAt(5), title);
    EXPECT_EQ(tipAt(100), QString()) << "over the content";
    child->resize(1500, 120);
    EXPECT_EQ(tipAt(5), QString()) << "the title stands whole";
}

TEST_F(TitleTip, showsAFileNameThatLooksLikeMarkupAsItIs)
{
    child->setWindowTitle(QStringLiteral("File Arr - <img src=x><b>song</b>.arr (1) and more that is too wide"));
    EXPECT_TRUE(tipAt(5).contains(QStringLiteral("&lt;img src=x&gt;&lt;b&gt;song&lt;/b&gt;.arr (1)")));
}
