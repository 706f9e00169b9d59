// The colours and the type that windows share.
#include "toolkit/QtLooks.h"
#include "toolkit/QtPanelParts.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QWidget>
#include <gtest/gtest.h>

namespace
{

QPalette withAccent(const QColor& accent, const QColor& words)
{
    QPalette palette;
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, words);
    return palette;
}

} // namespace

// The figures are those that the guidelines for accessible pages print for these pairs.
TEST(Contrast, isCountedAsTheGuidelinesDo)
{
    EXPECT_NEAR(Looks::contrast(Qt::black, Qt::white), 21.0, 0.01);
    EXPECT_NEAR(Looks::contrast(Qt::white, Qt::white), 1.0, 0.001);
    EXPECT_NEAR(Looks::contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
    EXPECT_NEAR(Looks::contrast(Qt::white, QColor(0x76, 0x76, 0x76)), 4.54, 0.01);
    EXPECT_NEAR(Looks::contrast(QColor(255, 0, 0), Qt::white), 4.00, 0.01);
}

TEST(Accent, thatCanBeReadIsLeftAlone)
{
    const QPalette palette = withAccent(QColor(0x1F, 0x4E, 0x79), Qt::white);
    EXPECT_EQ(Looks::readable(palette), palette);
}

TEST(Accent, tooLightForWhiteWordsGetsDarkerAndForBlackOnesLighter)
{
    const QPalette dark = Looks::readable(withAccent(QColor(0x30, 0x8C, 0xC6), Qt::white)); // 3.7 to 1
    EXPECT_GE(Looks::contrast(dark.color(QPalette::Active, QPalette::Highlight), Qt::white), 4.5);
    EXPECT_GE(Looks::contrast(dark.color(QPalette::Inactive, QPalette::Highlight), Qt::white), 4.5);
    EXPECT_LT(dark.color(QPalette::Highlight).lightness(), QColor(0x30, 0x8C, 0xC6).lightness());
    const QPalette light = Looks::readable(withAccent(QColor(0x30, 0x30, 0xC0), Qt::black));
    EXPECT_GE(Looks::contrast(light.color(QPalette::Active, QPalette::Highlight), Qt::black), 4.5);
}

TEST(Accent, standsOutFromADarkGround)
{
    const QColor ground(0x26, 0x28, 0x2C);
    for (const QColor& accent : {QColor(0x10, 0x20, 0x30), QColor(0x30, 0x8C, 0xC6), QColor(0xFF, 0xC0, 0x00)})
        EXPECT_GE(Looks::contrast(Looks::accentOn(withAccent(accent, Qt::white), ground), ground), 3.0);
}

/// The desktop's style for one test, the toolkit's plain one before and after.
class StyledAccent : public testing::Test
{
protected:
    StyledAccent() { Looks::useReadableStyle(); }
    ~StyledAccent() override { QApplication::setStyle(QStringLiteral("fusion")); }
};

TEST_F(StyledAccent, isReadableAndOnePaletteIsSharedByAll)
{
    const QPalette all = QApplication::palette();
    EXPECT_GE(Looks::contrast(all.color(QPalette::Active, QPalette::Highlight),
                              all.color(QPalette::Active, QPalette::HighlightedText)),
              4.5);
    QWidget window;
    const QWidget* inside = new QWidget(new QWidget(&window));
    EXPECT_EQ(window.palette().cacheKey(), all.cacheKey());
    EXPECT_EQ(inside->palette().cacheKey(), all.cacheKey());
}

TEST(ListType, isArialOfTenPointsAndFollowsLargerType)
{
    QWidget window;
    QFont font = window.font();
    font.setPointSizeF(9);
    window.setFont(font);
    EXPECT_EQ(Looks::listFont(&window).family(), "Arial");
    EXPECT_EQ(Looks::listFont(&window).pointSizeF(), 10);
    font.setPointSizeF(18);
    window.setFont(font);
    EXPECT_EQ(Looks::listFont(&window).pointSizeF(), 18);
}

TEST(TypeOfColumns, isOfOneWidthAndFollowsLargerType)
{
    QWidget window;
    QFont font = window.font();
    font.setPointSizeF(22);
    window.setFont(font);
    EXPECT_EQ(Looks::fixedFont(&window).pointSizeF(), 22);
    const QFontMetrics letters(Looks::fixedFont(&window));
    EXPECT_EQ(letters.horizontalAdvance(QStringLiteral("iiii")), letters.horizontalAdvance(QStringLiteral("WWWW")));
}

// The list is as low as its text allows; its own frame goes on below the field.
TEST(FieldOfAList, leavesTheFrameInSightWhereThePageIsTight)
{
    QWidget page;
    ChoiceRows rows;
    static constexpr std::string_view Choices[] = {"OFF", "ON"};
    QComboBox* list = makeTypedChoice(&page, rows, Choices);
    letShrink(&page);
    list->setGeometry(0, 0, 60, list->minimumHeight());
    page.show();
    const QRect field = list->lineEdit()->geometry();
    EXPECT_GE(field.top(), 1);
    EXPECT_LT(field.bottom(), list->height() - 1);
}
