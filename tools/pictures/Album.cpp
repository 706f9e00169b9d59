// Grabbing windows into files.
#include "tools/pictures/Album.h"

#include "toolkit/StageTimer.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMdiSubWindow>
#include <QPixmap>
#include <QTabWidget>
#include <QTimer>
#include <QWidget>

namespace
{

constexpr int LongestWait = 10000; ///< milliseconds
constexpr double Larger = 1.35;

bool isOfOneColour(const QImage& image)
{
    const QRgb first = image.pixel(0, 0);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != first)
                return false;
    return true;
}

bool stageIsDue()
{
    for (const QWidget* top : QApplication::topLevelWidgets())
        for (QTimer* timer : top->findChildren<QTimer*>())
            if (const auto* stage = dynamic_cast<StageTimer*>(timer); stage && stage->enabled())
                return true;
    return false;
}

} // namespace

void settle()
{
    QElapsedTimer clock;
    clock.start();
    do
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    while (stageIsDue() && clock.elapsed() < LongestWait);
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

Album::Album(const QString& folder) : folder_(folder) { QDir().mkpath(folder); }

void Album::take(QWidget* window, const QString& name)
{
    if (!window) {
        miss(name + QStringLiteral(": no such window"));
        return;
    }
    if (names_.contains(name)) {
        miss(name + QStringLiteral(": taken twice"));
        return;
    }
    names_ << name;
    settle();
    const QPixmap picture = window->grab();
    // Without an alpha channel the files are smaller.
    const QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
    if (image.isNull() || isOfOneColour(image))
        miss(name + QStringLiteral(": nothing to be seen"));
    else if (!image.save(folder_ + QLatin1Char('/') + name + QStringLiteral(".png"), "PNG", 0))
        miss(name + QStringLiteral(": cannot be written"));
    else
        ++count_;
}

void Album::takePages(QWidget* window, const QString& name)
{
    take(window, name);
    auto* pages = window ? window->findChild<QTabWidget*>() : nullptr;
    for (int page = 1; pages && page < pages->count(); ++page) {
        pages->setCurrentIndex(page);
        take(window, name + QStringLiteral("-page%1").arg(page + 1));
    }
    if (pages)
        pages->setCurrentIndex(0);
}

void Album::takeAll(QWidget* window, const QString& name)
{
    takePages(window, name);
    if (!window)
        return;
    const QSize own = window->size();
    window->resize(own * Larger);
    if (window->size() != own)
        take(window, name + QStringLiteral("-large"));
    window->resize(own);
}
