// The window of the virtual instrument: what it shows of the instrument's state, in both languages, by sight and
// speech.
#include "instrument/frmInstrument.h"

#include "../InstrumentRoom.h"
#include "instrument/ChannelsView.h"
#include "instrument/GaugesView.h"
#include "instrument/GlassWidget.h"
#include "instrument/KeysView.h"
#include "instrument/QtInstrumentColours.h"
#include "instrument/VirtualMidiService.h"
#include "support/SpokenWalk.h"
#include "toolkit/QtLooks.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>
#include <gtest/gtest.h>

namespace
{

/// 64 records of 164 bytes, all packed by hand: the names are ASCII, so every byte of top bits is 0.
std::string arrangementDump(const char* firstName = "Valzer Lento")
{
    std::string records(64 * 164, '\0');
    const char* names[] = {firstName, "Bossa di Sera", "Polka Rossa"};
    for (std::size_t index = 0; index < 3; ++index)
        records.replace(index * 164, 16, (names[index] + std::string(16, ' ')).substr(0, 16));
    std::string packed;
    for (std::size_t first = 0; first < records.size(); first += 7)
        packed += '\0' + records.substr(first, 7);
    return bytesOf("F0 42 30 4D 64") + packed + "\xF7";
}

QStringList rowsOf(const QListWidget* list)
{
    QStringList rows;
    for (int row = 0; row < list->count(); ++row)
        rows.append(list->item(row)->text());
    return rows;
}

} // namespace

class InstrumentWindow : public InstrumentRoom
{
protected:
    void open()
    {
        window.reset();
        window = std::make_unique<frmInstrument>(instrument, service);
        window->show();
    }
    template <typename Widget>
    Widget* find(const char* name)
    {
        Widget* widget = window->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    QString label(const char* name) { return find<QLabel>(name)->text(); }
    QStringList rows(const char* name) { return rowsOf(find<QListWidget>(name)); }

    VirtualMidiService service{instrument, [] { return std::string(); }};
    std::unique_ptr<frmInstrument> window;
};

TEST_F(InstrumentWindow, hasItsNameAndTitleInBothLanguages)
{
    open();
    EXPECT_EQ(window->objectName(), "frmInstrument");
    EXPECT_TRUE(window->isWindow());
    EXPECT_EQ(window->windowTitle(), "Virtual instrument");
    EXPECT_EQ(find<QTabWidget>("TabHeld")->tabText(0), "Arrangements");
    EXPECT_EQ(label("LabelDeviceMode"), "nothing yet");
    EXPECT_EQ(label("LabelCounts"), "Messages: 0, malformed: 0");
    speakLanguage(1);
    open();
    EXPECT_EQ(window->windowTitle(), "Strumento virtuale");
    EXPECT_EQ(label("LabelDeviceMode"), "niente ancora");
    EXPECT_EQ(label("LabelCounts"), "Messaggi: 0, errati: 0");
}

TEST_F(InstrumentWindow, showsTheModeAndTheSelectedArrangementByName)
{
    open();
    instrument.take(arrangementDump());
    take("F0 42 30 4D 4E 0A F7 B0 00 00 B0 20 01 C0 01");
    window->refresh();
    EXPECT_EQ(label("LabelDeviceMode"), "ARR PLAY");
    EXPECT_EQ(label("LabelArrangement"), "12 Bossa di Sera");
    take("B0 20 00 C0 41 F0 42 30 4D 4E 06 F7");
    window->refresh();
    EXPECT_EQ(label("LabelDeviceMode"), "SONG PLAY");
    EXPECT_EQ(label("LabelArrangement"), "B 12");
}

TEST_F(InstrumentWindow, listsTheNamesItHolds)
{
    open();
    const QStringList before = rows("ListArrangements");
    ASSERT_EQ(before.size(), 64);
    EXPECT_EQ(before[0], "11");
    EXPECT_EQ(before[63], "88");
    instrument.take(arrangementDump());
    window->refresh();
    const QStringList after = rows("ListArrangements");
    EXPECT_EQ(after[0], "11 Valzer Lento");
    EXPECT_EQ(after[2], "13 Polka Rossa");
    EXPECT_EQ(after[3], "14");
    EXPECT_EQ(rows("ListStyles").size(), 16);
    EXPECT_EQ(rows("ListPrograms").size(), 64);
}

// A tool tip takes what looks like markup for markup; what it shows is the plain text of it.
TEST_F(InstrumentWindow, tellsNamesLetterByLetterInItsToolTips)
{
    open();
    instrument.take(arrangementDump("<b>Bold</b>"));
    take("B0 20 01 C0 00");
    window->refresh();
    const auto shown = [](const QString& tip) {
        QTextDocument words;
        if (Qt::mightBeRichText(tip))
            words.setHtml(tip);
        else
            words.setPlainText(tip);
        return words.toPlainText();
    };
    EXPECT_EQ(shown(find<QListWidget>("ListArrangements")->item(0)->toolTip()), "11 <b>Bold</b>");
    const auto* messages = find<QListWidget>("ListMessages");
    const QString last = messages->item(messages->count() - 1)->toolTip();
    EXPECT_TRUE(shown(last).contains("<b>Bold</b>")) << last.toStdString();
    auto* channels = find<ChannelsView>("Channels");
    const QPoint first(5, channels->height() - 5);
    QHelpEvent help(QEvent::ToolTip, first, channels->mapToGlobal(first));
    QApplication::sendEvent(channels, &help);
    EXPECT_EQ(shown(QToolTip::text()), "11 <b>Bold</b>");
    QToolTip::hideText();
}

TEST_F(InstrumentWindow, listsTheChannelsThatWereUsedWithSelectionAndControllers)
{
    open();
    EXPECT_TRUE(rows("ListChannels").isEmpty());
    take("B0 20 01 C0 00 B3 20 02 C3 02 B3 07 64 B3 0A 40 E3 7F 40 C9 05");
    window->refresh();
    const QString factory = QString::fromStdString(programName(4, 2));
    ASSERT_FALSE(factory.isEmpty());
    EXPECT_EQ(rows("ListChannels"),
              (QStringList{"Channel 1 (global)   11", "Channel 4   E 13 " + factory + "   CC7 100, CC10 64, Bend 8319",
                           "Channel 10   5"}));
}

TEST_F(InstrumentWindow, lightsTheSoundingKeys)
{
    open();
    auto* keys = find<KeysView>("Keys");
    const QImage silent = keys->grab().toImage();
    take("90 3C 40 90 40 40 90 43 40");
    window->refresh();
    EXPECT_EQ(label("LabelKeys"), "C4, E4, G4");
    EXPECT_NE(keys->grab().toImage(), silent);
    take("B0 7B 00");
    window->refresh();
    EXPECT_EQ(label("LabelKeys"), "");
    EXPECT_EQ(keys->grab().toImage(), silent);
}

TEST_F(InstrumentWindow, tellsTheLastMessagesInWordsAndCountsTheMalformed)
{
    open();
    take("90 3C 40 F0 42 30 4D 41 02 3C 00 F7 05 00 00");
    window->refresh();
    EXPECT_EQ(rows("ListMessages"),
              (QStringList{"Channel 1: note C4 on, velocity 64", "Parameter 2 at 60, global channel 1",
                           "Malformed message: data without a status byte"}));
    EXPECT_EQ(label("LabelCounts"), "Messages: 2, malformed: 1");
    EXPECT_TRUE(find<QListWidget>("ListMessages")->item(2)->font().bold());
    EXPECT_EQ(rows("ListParameters"), QStringList{"2 = 60"});
}

TEST_F(InstrumentWindow, keepsTheLast200MessagesInOrderWhateverTheRefreshes)
{
    open();
    for (int value = 0; value < 128; ++value) {
        instrument.take(std::string{'\xB0', '\x07', static_cast<char>(value)});
        if (value % 50 == 0)
            window->refresh();
    }
    for (int value = 0; value < 128; ++value)
        instrument.take(std::string{'\xB0', '\x0A', static_cast<char>(value)});
    window->refresh();
    window->refresh();
    const QStringList messages = rows("ListMessages");
    ASSERT_EQ(messages.size(), 200);
    EXPECT_EQ(messages.first(), "Channel 1: controller 7 at 56");
    EXPECT_EQ(messages.last(), "Channel 1: controller 10 at 127");
}

TEST_F(InstrumentWindow, refreshesByItselfSoonAfterAMessageButNotDuringIt)
{
    open();
    take("F0 42 30 4D 4E 04 F7");
    EXPECT_EQ(label("LabelDeviceMode"), "nothing yet");
    EXPECT_TRUE(QTest::qWaitFor([this] { return label("LabelDeviceMode") == "GLOBAL"; }, 2000));
}

TEST_F(InstrumentWindow, showsWhatCameWhileItWasHidden)
{
    open();
    window->hide();
    take("F0 42 30 4D 4E 04 F7");
    QTest::qWait(60);
    EXPECT_EQ(label("LabelDeviceMode"), "nothing yet");
    window->show();
    EXPECT_EQ(label("LabelDeviceMode"), "GLOBAL");
}

TEST_F(InstrumentWindow, theCheckBoxChoosesTheCablesSpeed)
{
    open();
    auto* box = find<QCheckBox>("CheckPaced");
    EXPECT_FALSE(box->isChecked());
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    EXPECT_TRUE(service.paced());
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_FALSE(service.paced());
    service.setPaced(true);
    open();
    EXPECT_TRUE(find<QCheckBox>("CheckPaced")->isChecked());
}

TEST_F(InstrumentWindow, everyControlHasItsNameAndEveryListAnAccessibleOne)
{
    open();
    for (const char* name :
         {"ListArrangements", "ListStyles", "ListPrograms", "ListParameters", "ListChannels", "ListMessages"})
        EXPECT_FALSE(find<QListWidget>(name)->accessibleName().isEmpty()) << name;
    for (const QListWidget* list : window->findChildren<QListWidget*>())
        EXPECT_FALSE(list->objectName().isEmpty());
    EXPECT_NE(window->findChild<QTabWidget*>("TabHeld"), nullptr);
}

TEST_F(InstrumentWindow, isSpokenWholeInBothLanguages)
{
    for (const int language : {1, 2}) {
        speakLanguage(language);
        open();
        SpokenWalk spoken;
        spoken.walk(window.get());
        EXPECT_EQ(spoken.roles[QAccessible::Graphic], 3);
        EXPECT_EQ(spoken.roles[QAccessible::PageTab], 5);
    }
}

TEST_F(InstrumentWindow, tellsWhatItsDrawingsShow)
{
    open();
    const auto value = [this](const char* name) {
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(find<QWidget>(name));
        EXPECT_EQ(face->role(), QAccessible::Graphic) << name;
        EXPECT_FALSE(face->text(QAccessible::Name).isEmpty()) << name;
        return face->text(QAccessible::Value);
    };
    EXPECT_EQ(value("Keys"), "");
    EXPECT_EQ(value("Gauges"), "Arrangements 0 / 64, Styles 0 / 16, Programs 0 / 64, Global block 0 / 1");
    take("90 3C 40 90 43 40 B0 20 01 C0 00 C9 05");
    window->refresh();
    EXPECT_EQ(value("Keys"), "C4, G4");
    EXPECT_EQ(value("Channels"), "Channel 1 (global)   11; Channel 10   5");
}

TEST_F(InstrumentWindow, nothingIsCutOffAtTheDefaultSizeInEitherLanguage)
{
    for (const int language : {1, 2}) {
        speakLanguage(language);
        open();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        for (const QLabel* shown : window->findChildren<QLabel*>()) {
            if (shown->objectName() != "LabelKeys") {
                EXPECT_GE(shown->width(), shown->sizeHint().width()) << shown->text().toStdString();
            }
        }
        const QTabBar* tabs = find<QTabWidget>("TabHeld")->tabBar();
        EXPECT_LE(tabs->tabRect(3).right(), find<QTabWidget>("TabHeld")->width());
        EXPECT_GE(find<QCheckBox>("CheckPaced")->width(), find<QCheckBox>("CheckPaced")->sizeHint().width());
        EXPECT_GE(window->width(), window->minimumSizeHint().width());
        EXPECT_GE(window->height(), window->minimumSizeHint().height());
    }
}

TEST_F(InstrumentWindow, doesNotKeepTheProgramAliveAfterTheMainWindow)
{
    open();
    QWidget main;
    main.show();
    QTimer::singleShot(50, &main, [this, &main] {
        EXPECT_TRUE(window->isVisible());
        main.close();
    });
    QTimer::singleShot(5000, &main, [] { QApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(InstrumentWindow, leavesTheInstrumentWholeWhenItGoes)
{
    open();
    window.reset();
    take("F0 42 30 4D 4E 04 F7");
    EXPECT_EQ(instrument.mode(), 2);
    EXPECT_FALSE(static_cast<bool>(instrument.onChange));
}

TEST_F(InstrumentWindow, showsAtAGlanceWhatItHoldsAndHowMuchCame)
{
    open();
    EXPECT_EQ(label("LabelBytes"), "0 bytes");
    EXPECT_FALSE(find<LampWidget>("Lamp")->lit());
    EXPECT_EQ(find<GaugesView>("Gauges")->accessibleDescription(),
              "Arrangements 0 / 64, Styles 0 / 16, Programs 0 / 64, Global block 0 / 1");
    const QImage empty = find<GaugesView>("Gauges")->grab().toImage();
    instrument.take(arrangementDump());
    window->refresh();
    EXPECT_EQ(label("LabelBytes"), "12\u202F002 bytes"); // 10496 bytes in groups of 7 and 8, head 5, end 1
    EXPECT_TRUE(find<LampWidget>("Lamp")->lit());
    EXPECT_EQ(find<GaugesView>("Gauges")->accessibleDescription(),
              "Arrangements 3 / 64, Styles 0 / 16, Programs 0 / 64, Global block 0 / 1");
    EXPECT_NE(find<GaugesView>("Gauges")->grab().toImage(), empty);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !find<LampWidget>("Lamp")->lit(); }, 2000));
}

TEST_F(InstrumentWindow, drawsLevelsPansAndSoundingChannels)
{
    open();
    auto* view = find<ChannelsView>("Channels");
    QImage before = view->grab().toImage();
    for (const char* message : {"B2 07 64", "B2 0A 20", "92 3C 40", "C2 05"}) {
        take(message);
        window->refresh();
        const QImage now = view->grab().toImage();
        EXPECT_NE(now, before) << message;
        before = now;
    }
}

TEST_F(InstrumentWindow, warnsOfMalformedMessages)
{
    open();
    const auto colour = [this] { return find<QLabel>("LabelCounts")->palette().color(QPalette::WindowText); };
    EXPECT_EQ(colour(), InstrumentColours::Sign);
    take("05");
    window->refresh();
    EXPECT_EQ(colour(), InstrumentColours::Warning);
}

TEST(InstrumentPanel, canBeReadOnItsGlass)
{
    for (const QColor& sign : {InstrumentColours::Sign, InstrumentColours::Faint, InstrumentColours::Warning}) {
        EXPECT_GE(Looks::contrast(sign, InstrumentColours::Glass), 4.5) << sign.name().toStdString();
        EXPECT_GE(Looks::contrast(sign, InstrumentColours::Well), 4.5) << sign.name().toStdString();
    }
}
