// The message monitor's window by itself: messages, sizes and hands in any order, against the text that must stand.
#include "midi/frmMsgEx.h"

#include "midi/MIDI.h"
#include "support/CoreRun.h"

#include <QApplication>
#include <QMdiArea>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

#include <random>

namespace
{

class MonitorWindow : public testing::Test
{
protected:
    MonitorWindow()
    {
        Midi = {};
        run.speak(2);
        App.ScreenTwipsX = App.ScreenTwipsY = 15;
        area.resize(1000, 800);
        area.show();
    }
    ~MonitorWindow() override
    {
        if (window)
            window->unloadWithoutAsking();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Midi = {};
    }
    QPlainTextEdit* open()
    {
        window = new frmMsgEx;
        area.addSubWindow(window);
        window->show();
        return window->findChild<QPlainTextEdit*>("Text1");
    }

    CoreRun run;
    QMdiArea area;
    QPointer<frmMsgEx> window;
};

/// Two digits and a blank for each byte, and two line breaks.
QString shown(const std::string& message)
{
    const QByteArray bytes(message.data(), static_cast<int>(message.size()));
    return QString::fromLatin1(bytes.toHex(' ').toUpper()) + QStringLiteral(" \n\n");
}

std::string anyMessage(std::mt19937& random)
{
    std::string message(random() % 500 == 0 ? 1 + random() % 21666 : 1 + random() % 12, '\0');
    for (char& byte : message)
        byte = static_cast<char>(random());
    return message;
}

} // namespace

TEST_F(MonitorWindow, aHandOnTheTextChangesNothingInIt)
{
    QPlainTextEdit* text = open();
    MsgLogAdd("\x90\x3C\x40");
    text->setFocus();
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Return})
        QTest::keyClick(text, key);
    text->selectAll();
    QTest::keyClick(text, Qt::Key_Delete);
    QTest::keyClick(text, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(text->toPlainText(), "90 3C 40 \n\n");
    // What is selected stays where it is when the next message comes, and gives no place to it.
    text->selectAll();
    MsgLogAdd("\x80\x3C\x40");
    EXPECT_EQ(text->toPlainText(), "90 3C 40 \n\n80 3C 40 \n\n");
}

TEST_F(MonitorWindow, theNewestMessageIsInView)
{
    QPlainTextEdit* text = open();
    for (int message = 0; message < 200; ++message)
        MsgLogAdd("\xF8");
    QApplication::processEvents();
    EXPECT_GT(text->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(text->verticalScrollBar()->value(), text->verticalScrollBar()->maximum());
}

TEST_F(MonitorWindow, aStormLeavesTheTextAndTheSizeThatTheRulesState)
{
    constexpr int Events = 100000;
    constexpr int Checks = 1000;
    std::mt19937 random(16);
    QPlainTextEdit* text = open();
    QString expected;
    for (int event = 0; event < Events; ++event) {
        const auto kind = static_cast<int>(random() % 100);
        if (kind < 40) {
            MsgLogAdd("");
            expected.clear();
        } else if (kind < 98) {
            const std::string message = anyMessage(random);
            MsgLogAdd(message);
            expected += shown(message);
        } else if (kind == 98) {
            text->selectAll();
            QTest::keyClick(text, Qt::Key_Delete);
        } else if (random() % 10 == 0) {
            window->resize(150 + static_cast<int>(random() % 400), 100 + static_cast<int>(random() % 600));
            ASSERT_LE(window->width(), 384);
            ASSERT_LE(window->height(), 533);
        }
        if (event % Checks == 0) {
            ASSERT_TRUE(text->toPlainText() == expected) << event;
            QApplication::processEvents();
        }
    }
    EXPECT_EQ(text->toPlainText(), expected);
    EXPECT_LE(App.WinPos[16].width, 5760);
    EXPECT_LE(App.WinPos[16].height, 8000);
    EXPECT_TRUE(window->unloadChild());
    EXPECT_FALSE(Midi.MsgLogActive);
}
