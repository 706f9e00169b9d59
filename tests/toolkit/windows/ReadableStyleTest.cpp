// What the program's style makes of each kind of control: seen pixel by pixel, in a light and in a dark theme.
#include "support/Seen.h"
#include "toolkit/QtLooks.h"
#include "tools/pictures/Palettes.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace
{

QImage grabbed(QWidget* one)
{
    QApplication::processEvents();
    return one->grab().toImage();
}

/// The parameter: dark or light.
class ReadableStyle : public testing::TestWithParam<bool>
{
protected:
    ReadableStyle()
    {
        QApplication::setCursorFlashTime(0);
        Looks::useReadableStyle();
        QApplication::setPalette(Looks::readable(GetParam() ? darkPalette() : lightPalette()));
    }
    ~ReadableStyle() override
    {
        QApplication::setStyle(QStringLiteral("fusion"));
        QApplication::setPalette(QApplication::style()->standardPalette());
    }
    template <class Control>
    Control* add(Control* one)
    {
        one->setObjectName(QLatin1String(one->metaObject()->className()) + QString::number(controls.size()));
        column->addWidget(one);
        controls.push_back(one);
        return one;
    }
    /// One of each kind, more where it can look different.
    void addEachKind()
    {
        add(new QPushButton(QStringLiteral("Button")));
        add(new QPushButton(QStringLiteral("Default")))->setDefault(true);
        for (const bool on : {false, true}) {
            add(new QCheckBox(QStringLiteral("Check")))->setChecked(on);
            auto* radio = add(new QRadioButton(QStringLiteral("Radio")));
            radio->setAutoExclusive(false);
            radio->setChecked(on);
            auto* combo = add(new QComboBox);
            combo->addItem(QStringLiteral("Combo"));
            combo->setEditable(on);
            add(new QLineEdit(QStringLiteral("Line")))->setReadOnly(on);
            add(new QSlider(on ? Qt::Vertical : Qt::Horizontal));
        }
        auto* tabs = add(new QTabBar);
        tabs->addTab(QStringLiteral("Tab"));
        tabs->addTab(QStringLiteral("Other"));
    }
    void show()
    {
        window.show();
        QApplication::setActiveWindow(&window);
        window.setAttribute(Qt::WA_KeyboardFocusChange); // as after the first press of Tab
        QApplication::processEvents();
    }

    QWidget window;
    QVBoxLayout* column = new QVBoxLayout(&window);
    std::vector<QWidget*> controls;
};

} // namespace

TEST_P(ReadableStyle, showsTheFocusOfEachKindOfControl)
{
    addEachKind();
    auto* list = add(new QListWidget);
    list->addItems({QStringLiteral("one"), QStringLiteral("two")});
    list->setCurrentRow(1, QItemSelectionModel::NoUpdate); // the keys stand on a row that is not chosen
    show();
    for (QWidget* one : controls) {
        one->setFocus(Qt::TabFocusReason);
        const QImage with = grabbed(one);
        (one == controls.front() ? controls.back() : controls.front())->setFocus(Qt::TabFocusReason);
        EXPECT_GE(pixelsApart(with, grabbed(one), 2.5), 20) << one->objectName().toStdString();
    }
}

TEST_P(ReadableStyle, showsEachKindOfControlThatIsOff)
{
    addEachKind();
    add(new QLabel(QStringLiteral("Label")));
    add(new QListWidget)->addItem(QStringLiteral("one"));
    add(new QPlainTextEdit(QStringLiteral("words")));
    show();
    window.setFocus();
    for (QWidget* one : controls) {
        const QImage on = grabbed(one);
        one->setEnabled(false);
        EXPECT_GE(pixelsApart(on, grabbed(one), 1.5), 10) << one->objectName().toStdString();
    }
}

TEST_P(ReadableStyle, drawsTheWordsOfAnEntryThatIsOffOnce)
{
    QMenu menu;
    QAction* entry = menu.addAction(QStringLiteral("Entry"));
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    const auto marks = [&menu](bool on) {
        menu.actions().first()->setEnabled(on);
        const QImage image = grabbed(&menu);
        int count = 0;
        for (int y = 4; y < image.height() - 4; ++y)
            for (int x = 4; x < image.width() - 4; ++x)
                count += image.pixel(x, y) != image.pixel(4, 4) ? 1 : 0;
        return count;
    };
    EXPECT_NE(entry, nullptr);
    const int on = marks(true);
    EXPECT_GT(on, 50);
    EXPECT_LE(marks(false), on);
}

// In a light theme the plain style's outlines are seen.
TEST_P(ReadableStyle, hasOutlinesThatStandOutInADarkTheme)
{
    add(new QLineEdit);
    add(new QCheckBox);
    auto* list = add(new QListWidget);
    show();
    if (!GetParam()) {
        std::vector<QImage> ours;
        for (QWidget* one : controls)
            ours.push_back(grabbed(one));
        QApplication::setStyle(QStringLiteral("fusion"));
        for (std::size_t i = 0; i < controls.size(); ++i)
            EXPECT_EQ(grabbed(controls[i]), ours[i]);
        return;
    }
    list->setFocus();
    const QColor ground = QApplication::palette().color(QPalette::Base);
    for (QWidget* one : controls) {
        const QImage image = grabbed(one);
        const int y = image.height() / 2;
        qreal most = 0;
        for (int x = 0; x < 5; ++x)
            most = std::max(most, Looks::contrast(image.pixelColor(x, y), ground));
        EXPECT_GE(most, 3.0) << one->objectName().toStdString();
    }
}

TEST_P(ReadableStyle, framesAListOnAllSidesBetweenTheScales)
{
    QListWidget list;
    const QColor ground = QApplication::palette().color(QPalette::Base);
    for (int width = 100; width < 106; ++width) {
        list.resize(width, width);
        QPixmap picture((QSizeF(list.size()) * 1.5).toSize());
        picture.setDevicePixelRatio(1.5);
        list.render(&picture);
        const QImage image = picture.toImage();
        const auto isLine = [&](int x, int y) { return image.pixelColor(x, y) != ground; };
        const int middle = image.width() / 2;
        const int last = image.width() - 1;
        EXPECT_TRUE(isLine(0, middle) && isLine(middle, 0)) << width;
        EXPECT_TRUE(isLine(last, middle) || isLine(last - 1, middle)) << width;
        EXPECT_TRUE(isLine(middle, last) || isLine(middle, last - 1)) << width;
    }
}

TEST_P(ReadableStyle, partsAMenuByALineThatIsSeen)
{
    QMenu menu;
    menu.addAction(QStringLiteral("One"));
    QAction* line = menu.addSeparator();
    menu.addAction(QStringLiteral("Two"))->setCheckable(true);
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    const QImage image = grabbed(&menu);
    const QRect place = menu.actionGeometry(line);
    const QColor ground = image.pixelColor(place.center().x(), place.top() - 2);
    qreal most = 0;
    for (int y = place.top(); y <= place.bottom(); ++y)
        most = std::max(most, Looks::contrast(image.pixelColor(place.center().x(), y), ground));
    EXPECT_GE(most, 1.4);
}

// The shadow of light words on a title bar is dark, whatever the colour of the desktop's words.
TEST_P(ReadableStyle, writesATitleOnce)
{
    const auto whitePixels = [] {
        QMdiArea area;
        area.resize(400, 200);
        QMdiSubWindow* child = area.addSubWindow(new QWidget);
        child->setWindowTitle(QStringLiteral("Title"));
        child->setGeometry(0, 0, 300, 120);
        area.show();
        area.setActiveSubWindow(child);
        const QImage bar = grabbed(child).copy(100, 2, 100, 20);
        int white = 0;
        for (int y = 0; y < bar.height(); ++y)
            for (int x = 0; x < bar.width(); ++x)
                white += bar.pixelColor(x, y).lightness() > 235 ? 1 : 0;
        return white;
    };
    const int ours = whitePixels();
    EXPECT_GT(ours, 20);
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setPalette(lightPalette());
    EXPECT_NEAR(ours, whitePixels(), 2);
}

INSTANTIATE_TEST_SUITE_P(InBothThemes, ReadableStyle, testing::Bool(),
                         [](const auto& run) { return run.param ? "Dark" : "Light"; });
