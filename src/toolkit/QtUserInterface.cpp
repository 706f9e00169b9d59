// Message boxes and questions, and the progress of a send. The dialogs are in QtOpenDialog.cpp and QtSaveDialog.cpp.
#include "toolkit/QtUserInterface.h"

#include "core/Strings.h"
#include "core/Words.h"
#include "toolkit/QtOpenDialog.h"
#include "toolkit/QtSaveDialog.h"
#include "toolkit/StageTimer.h"
#include "toolkit/Twips.h"

#include <QApplication>
#include <QFile>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>

namespace
{

constexpr int BarAfter = 300;      // milliseconds: a shorter send shows no bar
constexpr int PaintInterval = 100; // milliseconds between two looks at the event loop during a send

QString words(const std::string& text) { return QString::fromUtf8(text.c_str()); }

/// Rounded up: the last second counts as one until it is over. Not known, 0, while nothing has gone.
int secondsLeft(qint64 elapsed, int gone, int total)
{
    constexpr qint64 Second = 1000;
    if (gone <= 0)
        return 0;
    return int((elapsed * (total - gone) / gone + Second - 1) / Second);
}

/// A box that remembers being left by Escape or its close button, and can refuse to be.
class Box final : public QMessageBox
{
public:
    enum class Escape { Leaves, DoesNothing };

    Box(const std::string& title, const std::string& text, QWidget* parent, Escape escape)
        : QMessageBox(QMessageBox::Warning, words(title), words(text), QMessageBox::NoButton, parent), escape_(escape)
    {
        setObjectName(QStringLiteral("MessageBox"));
        setTextFormat(Qt::PlainText);
        makeRoomForTitle();
    }

    QPushButton* add(const char* name, int textId, ButtonRole role)
    {
        QPushButton* button = addButton(words(ResText(textId)), role);
        button->setObjectName(QLatin1String(name));
        return button;
    }

    bool dismissed() const { return dismissed_; }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->matches(QKeySequence::Cancel)) {
            if (escape_ == Escape::DoesNothing)
                return;
            dismissed_ = true;
        }
        QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override
    {
        if (escape_ == Escape::DoesNothing && !clickedButton()) {
            event->ignore();
            return;
        }
        if (!clickedButton())
            dismissed_ = true;
        QMessageBox::closeEvent(event);
    }

private:
    /// The titles tell as much as the texts; a box as narrow as its text would cut them.
    void makeRoomForTitle()
    {
        constexpr int Decoration = 130; // pixels of a window manager's buttons and margins
        if (auto* grid = qobject_cast<QGridLayout*>(layout())) {
            const int width = fontMetrics().horizontalAdvance(windowTitle()) * 5 / 4 + Decoration; // titles are bold
            grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
        }
    }

    Escape escape_;
    bool dismissed_ = false;
};

} // namespace

QtUserInterface::QtUserInterface()
{
    sendOver_.setObjectName(QStringLiteral("TimerSendOver"));
    sendOver_.setInterval(PaintInterval);
    QObject::connect(&sendOver_, &QTimer::timeout, &sendOver_, [this] {
        if (!EventHold::active())
            endSend();
    });
}

void QtUserInterface::setMainWindow(QWidget* window, StatusView* status)
{
    window_ = window;
    status_ = status;
}

QWidget* QtUserInterface::standsOver() const
{
    QWidget* dialog = QApplication::activeModalWidget();
    return dialog ? dialog : window_.data();
}

BoxEnd QtUserInterface::warn(const std::string& title, const std::string& text)
{
    const EventHold hold;
    Box box(title, text, standsOver(), Box::Escape::Leaves);
    box.add("CommOK", Words::Ok, QMessageBox::AcceptRole);
    box.exec();
    return box.dismissed() ? BoxEnd::Dismissed : BoxEnd::Ok;
}

int QtUserInterface::askYesNo(const std::string& title, const std::string& text)
{
    const EventHold hold;
    // A question of two answers has no third: Escape would throw work away unasked.
    Box box(title, text, standsOver(), Box::Escape::DoesNothing);
    const QPushButton* yes = box.add("CommYes", Words::Yes, QMessageBox::YesRole);
    box.add("CommNo", Words::No, QMessageBox::NoRole);
    box.exec();
    return box.clickedButton() == yes ? Answer::Yes : Answer::No;
}

int QtUserInterface::askYesNoCancel(const std::string& title, const std::string& text)
{
    const EventHold hold;
    Box box(title, text, standsOver(), Box::Escape::Leaves);
    const QPushButton* yes = box.add("CommYes", Words::Yes, QMessageBox::YesRole);
    const QPushButton* no = box.add("CommNo", Words::No, QMessageBox::NoRole);
    box.add("CommCancel", Words::Cancel, QMessageBox::RejectRole);
    box.exec();
    if (box.dismissed())
        return Answer::Cancel;
    return box.clickedButton() == yes ? Answer::Yes : box.clickedButton() == no ? Answer::No : Answer::Cancel;
}

void QtUserInterface::showNotice(const std::string& caption, const std::string& text)
{
    const EventHold hold;
    if (windows_.showNotice)
        windows_.showNotice(words(caption), words(text));
}

int QtUserInterface::chooseLanguage() { return windows_.chooseLanguage ? windows_.chooseLanguage() : 0; }

OpenDialogAnswer QtUserInterface::openFile(const OpenDialogRequest& request)
{
    const EventHold hold;
    return runOpenDialog(request, window_);
}

SaveDialogAnswer QtUserInterface::saveFile(const SaveDialogRequest& request)
{
    const EventHold hold;
    return runSaveDialog(request, window_, *this);
}

bool QtUserInterface::confirmOverwrite(const std::string& path)
{
    constexpr int SaveFileAsRow = 75;
    const QByteArray name(path.c_str() + path.rfind('/') + 1);
    const std::string shown = QFile::decodeName(name).toStdString();
    return askYesNo(ResText(SaveFileAsRow), withArgument(ResText(Words::ReplaceFile), shown)) == Answer::Yes;
}

void QtUserInterface::showProgressLine(const std::string& text)
{
    if (status_)
        status_->showLine(words(text));
    if (!window_)
        return;
    if (text.empty())
        window_->unsetCursor();
    else
        window_->setCursor(Qt::WaitCursor);
}

void QtUserInterface::showDeviceMode(const std::string& text)
{
    if (status_)
        status_->showMode(words(text));
}

void QtUserInterface::showStatusLabel(StatusLabel label, const std::string& text)
{
    if (status_)
        status_->showLabel(label, QFile::decodeName(text.c_str()));
}

void QtUserInterface::showSendProgress(int gone, int total)
{
    if (gone >= total) {
        endSend();
        return;
    }
    if (!sending_ || gone < gone_)
        beginSend();
    gone_ = gone;
    const qint64 elapsed = sendClock_.elapsed();
    if (elapsed - paintedAt_ < PaintInterval)
        return;
    paintedAt_ = elapsed;
    if (elapsed > BarAfter && status_)
        status_->showSendBar(gone, total, secondsLeft(elapsed, gone, total));
    const EventHold hold(EventHold::Input::Discarded);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::X11ExcludeTimers);
}

void QtUserInterface::beginSend()
{
    sending_ = true;
    paintedAt_ = 0;
    sendClock_.start();
    sendOver_.start();
}

void QtUserInterface::endSend()
{
    sendOver_.stop();
    gone_ = 0;
    if (!sending_)
        return;
    sending_ = false;
    if (status_)
        status_->showSendBar(0, 0, 0);
}

void QtUserInterface::screenTwips(int& x, int& y)
{
    x = twipsPerPixelX();
    y = twipsPerPixelY();
}
