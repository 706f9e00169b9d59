// Icons that are made once, so that dialogs opened over and over leave nothing behind.
#include "toolkit/KeptIconsStyle.h"

#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QStyleOptionHeader>
#include <gtest/gtest.h>

namespace
{

constexpr QSize EmptyRoom(16, 1);
constexpr QSize Drawn(16, 16);

/// An icon that counts how often it was asked for its picture.
class CountingEngine final : public QIconEngine
{
public:
    CountingEngine(QSize size, int& asked) : size_(size), asked_(asked) {}
    void paint(QPainter*, const QRect&, QIcon::Mode, QIcon::State) override { ++asked_; }
    QPixmap pixmap(const QSize&, QIcon::Mode, QIcon::State) override
    {
        ++asked_;
        QPixmap picture(size_);
        picture.fill(Qt::black);
        return picture;
    }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override { return {size_}; }
    QIconEngine* clone() const override { return new CountingEngine(size_, asked_); }

private:
    QSize size_;
    int& asked_;
};

/// How often a header asks an icon of this size for its picture when it is painted.
int askedWhenPainted(QSize size)
{
    int asked = 0;
    const KeptIconsStyle style;
    QImage ground(100, 30, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&ground);
    QStyleOptionHeader header;
    header.rect = ground.rect();
    header.text = QStringLiteral("Name");
    header.icon = QIcon(new CountingEngine(size, asked));
    style.drawControl(QStyle::CE_HeaderLabel, &header, &painter, nullptr);
    return asked;
}

} // namespace

TEST(KeptIcons, areTheSameOnesEachTime)
{
    const KeptIconsStyle style;
    for (const auto which : {QStyle::SP_DirIcon, QStyle::SP_FileIcon, QStyle::SP_FileDialogBack}) {
        const QIcon first = style.standardIcon(which, nullptr, nullptr);
        ASSERT_FALSE(first.isNull());
        EXPECT_EQ(style.standardIcon(which, nullptr, nullptr).cacheKey(), first.cacheKey());
    }
    EXPECT_NE(style.standardIcon(QStyle::SP_DirIcon, nullptr, nullptr).cacheKey(),
              style.standardIcon(QStyle::SP_FileIcon, nullptr, nullptr).cacheKey());
}

TEST(KeptIcons, drawTheEmptyPictureOfAHeaderAsTheirOwn)
{
    EXPECT_EQ(askedWhenPainted(EmptyRoom), 0);
    EXPECT_GT(askedWhenPainted(Drawn), 0);
}
