// The look of every window in both languages: large type cuts nothing off, text stands out from its ground in a light
// and a dark theme, what is off looks so, equal buttons are equal, nothing touches a frame.
#include "EveryWindow.h"
#include "TextFit.h"

#include "support/Seen.h"
#include "toolkit/QtLooks.h"
#include "tools/pictures/Palettes.h"

#include <QAbstractScrollArea>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QSlider>
#include <QTabWidget>

namespace
{

constexpr QSize SmallScreen(1366, 768);
constexpr int Least = 3; ///< pixels between a control and its frame

class Looking : public EveryWindow
{
protected:
    ~Looking() override
    {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::setFont(font);
        QApplication::setPalette(palette);
    }
    void setType(int percent)
    {
        QFont larger = font;
        larger.setPointSizeF(font.pointSizeF() * percent / 100);
        QApplication::setFont(larger);
    }
    std::vector<ChildWindow*> children() const
    {
        std::vector<ChildWindow*> all;
        for (QMdiSubWindow* one : window->area()->subWindowList())
            all.push_back(dynamic_cast<ChildWindow*>(one));
        return all;
    }
    /// Runs `look` on each page of each window.
    void onEveryPage(const std::function<void(QWidget*)>& look)
    {
        for (ChildWindow* child : children()) {
            QApplication::processEvents();
            look(child);
            for (auto* pages : child->findChildren<QTabWidget*>())
                for (int page = 1; page < pages->count(); ++page) {
                    pages->setCurrentIndex(page);
                    QApplication::processEvents();
                    look(pages->currentWidget());
                }
        }
    }
    static std::string nameOf(const QWidget* one)
    {
        QString name = one->property("text").toString() + one->property("title").toString();
        for (const QWidget* part = one; part; part = part->parentWidget())
            if (!part->objectName().isEmpty() && !part->objectName().startsWith(QLatin1String("qt_")))
                name.prepend(part->objectName() + QLatin1Char('/'));
        return name.toStdString();
    }

    const QFont font = QApplication::font();
    const QPalette palette = QApplication::palette();
    int looked = 0;
};

// Large type.

class LargeType : public Looking
{
protected:
    void nothingIsCutOff(int percent)
    {
        setType(percent);
        openEverything();
        onEveryPage([this](QWidget* top) {
            for (const QWidget* one : top->findChildren<QWidget*>()) {
                const QSize needs = one->isVisible() ? wantedByText(one) : QSize();
                if (needs.width() <= 0 && needs.height() <= 0)
                    continue;
                ++looked;
                EXPECT_GE(one->width(), needs.width()) << nameOf(one);
                EXPECT_GE(one->height(), needs.height()) << nameOf(one);
            }
        });
        EXPECT_GT(looked, 300);
    }
};

/// What is larger than its window is scrolled to.
bool canBeReached(const ChildWindow* child)
{
    if (dynamic_cast<const QAbstractScrollArea*>(child->widget()))
        return true;
    const QSize least = child->widget()->minimumSizeHint().expandedTo(child->widget()->minimumSize());
    return child->widget()->width() >= least.width() && child->widget()->height() >= least.height();
}

// Contrast.

/// The ground that a control's text stands on, and the text's colour, by the palette.
struct Pair {
    QColor text;
    QColor ground;
};

QColor groundBelow(const QWidget* one)
{
    for (const QWidget* part = one; part; part = part->parentWidget())
        if (part->autoFillBackground() || part->isWindow())
            return part->palette().color(QPalette::Active, part->backgroundRole());
    return QApplication::palette().color(QPalette::Active, QPalette::Window);
}

std::vector<Pair> pairsOf(const QWidget* one)
{
    const auto colour = [one](QPalette::ColorRole role) { return one->palette().color(QPalette::Active, role); };
    const Pair field{colour(QPalette::Text), colour(QPalette::Base)};
    const Pair chosen{colour(QPalette::HighlightedText), colour(QPalette::Highlight)};
    if (dynamic_cast<const QLineEdit*>(one) || dynamic_cast<const QListWidget*>(one) ||
        dynamic_cast<const QPlainTextEdit*>(one))
        return {field, chosen};
    if (dynamic_cast<const QPushButton*>(one) || dynamic_cast<const QComboBox*>(one))
        return {{colour(QPalette::ButtonText), colour(QPalette::Button)}, chosen};
    if (const auto* label = dynamic_cast<const QLabel*>(one))
        return {{colour(label->foregroundRole()), groundBelow(label)}};
    if (dynamic_cast<const QAbstractButton*>(one) || dynamic_cast<const QGroupBox*>(one))
        return {{colour(QPalette::WindowText), groundBelow(one)}};
    return {};
}

class Contrast : public Looking
{
protected:
    void isEnoughIn(const QPalette& theme)
    {
        QApplication::setPalette(Looks::readable(theme));
        openEverything();
        onEveryPage([this](QWidget* top) {
            for (const QWidget* one : top->findChildren<QWidget*>())
                for (const Pair& pair : pairsOf(one)) {
                    ++looked;
                    EXPECT_GE(Looks::contrast(pair.text, pair.ground), 4.5)
                        << nameOf(one) << " " << pair.text.name().toStdString() << " on "
                        << pair.ground.name().toStdString();
                }
        });
        EXPECT_GT(looked, 1000);
    }
};

} // namespace

class TypeOf : public LargeType
{
};

TEST_P(TypeOf, hundredPercentIsCutOffNowhere) { nothingIsCutOff(100); }
TEST_P(TypeOf, hundredAndFiftyPercentIsCutOffNowhere) { nothingIsCutOff(150); }
TEST_P(TypeOf, twoHundredPercentIsCutOffNowhere) { nothingIsCutOff(200); }

TEST_P(TypeOf, twelvePointsFitsASmallScreenOrIsScrolled)
{
    QFont twelve = font;
    twelve.setPointSizeF(12);
    QApplication::setFont(twelve);
    openEverything();
    for (const ChildWindow* child : children()) {
        EXPECT_LE(child->width(), SmallScreen.width()) << nameOf(child);
        EXPECT_LE(child->height(), SmallScreen.height() - window->menuBar()->height()) << nameOf(child);
        EXPECT_TRUE(canBeReached(child)) << nameOf(child);
    }
    EXPECT_LE(window->minimumSizeHint().width(), SmallScreen.width());
    EXPECT_LE(window->minimumSizeHint().height(), SmallScreen.height());
    EXPECT_LE(window->menuBar()->sizeHint().width(), SmallScreen.width());
}

class TextIn : public Contrast
{
};

TEST_P(TextIn, aLightThemeStandsOutFromItsGround) { isEnoughIn(lightPalette()); }
TEST_P(TextIn, aDarkThemeStandsOutFromItsGround) { isEnoughIn(darkPalette()); }

class Off : public Looking
{
protected:
    Off() { Looks::useReadableStyle(); }
    ~Off() override
    {
        window.reset();
        QApplication::setStyle(QStringLiteral("fusion"));
    }
    static bool hasWords(const QWidget* one)
    {
        const auto* field = dynamic_cast<const QLineEdit*>(one);
        const auto* list = dynamic_cast<const QListWidget*>(one);
        return dynamic_cast<const QSlider*>(one) || (list && list->count() > 0) ||
               (field && !field->text().isEmpty()) || wantedByText(one).width() > 0;
    }
    /// Turns each control off, or on, and looks whether its words change by a contrast that is seen.
    void isSeenIn(const QPalette& theme)
    {
        QApplication::setPalette(Looks::readable(theme));
        openEverything();
        onEveryPage([this](QWidget* top) {
            for (QWidget* one : top->findChildren<QWidget*>()) {
                if (!one->isVisible() || !one->parentWidget()->isEnabled() || !hasWords(one))
                    continue;
                ++looked;
                const bool was = one->isEnabled();
                const QImage before = one->grab().toImage();
                one->setEnabled(!was);
                EXPECT_GE(pixelsApart(before, one->grab().toImage(), 1.5), 3) << nameOf(one);
                one->setEnabled(was);
            }
        });
        EXPECT_GT(looked, 500);
    }
};

TEST_P(Off, isSeenOnEachControlOfALightTheme) { isSeenIn(lightPalette()); }
TEST_P(Off, isSeenOnEachControlOfADarkTheme) { isSeenIn(darkPalette()); }

class Window : public Looking
{
};

TEST_P(Window, hasEqualButtonsInAColumnAndNothingAtItsFrame)
{
    openEverything();
    onEveryPage([this](QWidget* top) {
        std::map<std::pair<QWidget*, int>, QSize> columns;
        for (QWidget* one : top->findChildren<QWidget*>()) {
            if (!one->isVisible())
                continue;
            if (dynamic_cast<QPushButton*>(one)) {
                const auto [first, isFirst] = columns.insert({{one->parentWidget(), one->x()}, one->size()});
                if (!isFirst) {
                    // Places in twips may round to a pixel more.
                    EXPECT_EQ(one->width(), first->second.width()) << nameOf(one);
                    EXPECT_NEAR(one->height(), first->second.height(), 1) << nameOf(one);
                }
            }
            if (!dynamic_cast<QPushButton*>(one) && !dynamic_cast<QComboBox*>(one) && !dynamic_cast<QSlider*>(one))
                continue;
            ++looked;
            const QWidget* frame = one->parentWidget();
            if (frame->objectName() == QLatin1String("Panel"))
                continue; // the keyboard's own places, which end with the last key
            EXPECT_GE(one->x(), Least) << nameOf(one);
            EXPECT_GE(frame->width() - one->geometry().right() - 1, Least) << nameOf(one);
        }
    });
    EXPECT_GT(looked, 200);
}

TEST_P(Window, hasItsFiguresRightAligned)
{
    openEverything();
    const auto aligned = [this](const char* child, const QString& name) {
        for (const ChildWindow* one : children()) {
            if (one->objectName() != QLatin1String(child))
                continue;
            for (const QWidget* control : one->findChildren<QWidget*>(name)) {
                ++looked;
                EXPECT_TRUE(Qt::Alignment(control->property("alignment").toInt()).testFlag(Qt::AlignRight))
                    << nameOf(control);
            }
        }
    };
    for (int slot = 0; slot < 16; ++slot)
        aligned("frmStyUN", memberName("Text1", slot));
    for (int group = 0; group < 4; ++group)
        aligned("frmStyUN", memberName("Text2", group));
    aligned("frmStyUN", QStringLiteral("Text3"));
    aligned("frmEditDBArr", QStringLiteral("Label2"));
    EXPECT_EQ(looked, 2 * 21 + 1); // two style windows
    ChildWindow* editor = child("frmEditArr");
    const auto edge = [editor](const char* name) {
        const auto* label = control<QLabel>(editor, name);
        EXPECT_TRUE(label->alignment().testFlag(Qt::AlignRight)) << name;
        return label->mapTo(editor, label->rect().topRight()).x();
    };
    EXPECT_EQ(edge("Label1(3)"), edge("Label1(4)"));
}

INSTANTIATE_TEST_SUITE_P(InBothLanguages, TypeOf, testing::Values(1, 2),
                         [](const auto& run) { return run.param == 1 ? "Italian" : "English"; });
INSTANTIATE_TEST_SUITE_P(InBothLanguages, TextIn, testing::Values(1, 2),
                         [](const auto& run) { return run.param == 1 ? "Italian" : "English"; });
INSTANTIATE_TEST_SUITE_P(InBothLanguages, Off, testing::Values(1, 2),
                         [](const auto& run) { return run.param == 1 ? "Italian" : "English"; });
INSTANTIATE_TEST_SUITE_P(InBothLanguages, Window, testing::Values(1, 2),
                         [](const auto& run) { return run.param == 1 ? "Italian" : "English"; });
