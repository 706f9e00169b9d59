// The program's voice on the screen: message boxes, questions, the open dialog, and what goes to the status panel.
//
// Nothing else in the program opens a message box or a file dialog. While one is open, and while a long message goes
// out, no stage timer fires.
#pragma once

#include "core/UserInterface.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <functional>

/// The status panel as this class writes to it; the shell's panel implements it.
class StatusView
{
public:
    virtual ~StatusView() = default;
    virtual void showLine(const QString& text) = 0;
    virtual void showMode(const QString& text) = 0;
    virtual void showLabel(StatusLabel label, const QString& text) = 0;
    /// Bytes gone of all bytes of a send that takes long, and the seconds that it still takes at the speed so far;
    /// total 0 takes the bar away.
    virtual void showSendBar(int gone, int total, int secondsLeft) = 0;
};

class QtUserInterface final : public UserInterface
{
public:
    QtUserInterface();

    /// The two small windows of the program that ask or tell something; their answer is theirs.
    struct Windows {
        std::function<int()> chooseLanguage;
        std::function<void(const QString& caption, const QString& text)> showNotice;
    };
    void setWindows(Windows windows) { windows_ = std::move(windows); }
    /// The window that boxes stand over, and its status panel; null while there is none.
    void setMainWindow(QWidget* window, StatusView* status);

    BoxEnd warn(const std::string& title, const std::string& text) override;
    int askYesNo(const std::string& title, const std::string& text) override;
    int askYesNoCancel(const std::string& title, const std::string& text) override;
    void showNotice(const std::string& caption, const std::string& text) override;
    int chooseLanguage() override;
    OpenDialogAnswer openFile(const OpenDialogRequest& request) override;
    SaveDialogAnswer saveFile(const SaveDialogRequest& request) override;
    bool confirmOverwrite(const std::string& path) override;
    void showProgressLine(const std::string& text) override;
    void showDeviceMode(const std::string& text) override;
    void showStatusLabel(StatusLabel label, const std::string& text) override;
    void showSendProgress(int gone, int total) override;
    void screenTwips(int& x, int& y) override;

private:
    QWidget* standsOver() const; ///< what a box is shown above: the open dialog, else the main window
    void beginSend();
    void endSend();

    Windows windows_;
    QPointer<QWidget> window_;
    StatusView* status_ = nullptr;

    bool sending_ = false;
    int gone_ = 0;
    qint64 paintedAt_ = 0; ///< milliseconds since the send began
    QElapsedTimer sendClock_;
    QTimer sendOver_; ///< takes the bar away when a send broke off without a last word
};
