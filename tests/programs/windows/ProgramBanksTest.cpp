// The windows on the factory banks and the drum kits: rows, channels, what a click sends and where the window is kept.
#include "ProgramWindows.h"

#include "instrument/VirtualInstrument.h"
#include "instrument/VirtualMidiService.h"

namespace
{

struct Bank {
    int kind;
    const char* title;
    int lsb;
    int first; ///< program number of its first row
    const char* firstRow;
    const char* tenthRow;
    const char* lastRow;
};

constexpr Bank Banks[] = {
    {4, "Prg A", 0, 0, "11  Piano 1         ", "22  Glockenspiel    ", "88  Syn.Brass2      "},
    {5, "Prg B", 0, 64, "11  SopranoSax      ", "22  Flute           ", "88  Gun Shot        "},
    {6, "Prg C", 1, 0, "11  90's Piano      ", "22  Sistro          ", "88  Stz<Brass       "},
    {7, "Prg D", 1, 64, "11  AltoBreath      ", "22  BreathFlute     ", "88  Explosion       "},
    {8, "Prg E", 2, 0, "11  Piano&Strgs     ", "22  70' Organ       ", "88  Brass Fall      "},
};

/// Program numbers of the kits, in the list's order.
constexpr int KitPrograms[] = {0, 1, 8, 16, 24, 25, 26, 32, 40, 48, 64, 65, 66, 56, 72, 73};

class ProgramBanks : public ProgramWindows
{
protected:
    ChildWindow* openBank(int kind)
    {
        if (kind >= 9)
            return show(static_cast<ChildWindow*>(new frmDrum(kind)));
        return show(static_cast<ChildWindow*>(new frmPcgAE(kind)));
    }
    WindowPosition& row(int kind) { return App.WinPos[static_cast<std::size_t>(kind)]; }
};

} // namespace

TEST_F(ProgramBanks, listTheNamesOfTheirBankUnderThePanelsCodes)
{
    for (const Bank& bank : Banks) {
        ChildWindow* window = openBank(bank.kind);
        ASSERT_EQ(list(window)->count(), 64);
        EXPECT_EQ(list(window)->rowText(0), bank.firstRow);
        EXPECT_EQ(list(window)->rowText(9), bank.tenthRow);
        EXPECT_EQ(list(window)->rowText(63), bank.lastRow);
        EXPECT_EQ(title(window), bank.title + std::string(" - MIDI Channel2")) << "the first run's channel";
    }
    EXPECT_EQ(App.OtherCount, 5);
}

TEST_F(ProgramBanks, listTheKitsUnderTheSameScheme)
{
    for (const auto& [kind, name] : {std::pair(9, "Drum"), std::pair(10, "Percussion")}) {
        ChildWindow* window = openBank(kind);
        ASSERT_EQ(list(window)->count(), 16);
        EXPECT_EQ(list(window)->rowText(0), "11  GM Kit 1        ");
        EXPECT_EQ(list(window)->rowText(7), "18  Jazz Kit        ");
        EXPECT_EQ(list(window)->rowText(8), "21  Brush Kit       ");
        EXPECT_EQ(list(window)->rowText(15), "28  (User 2)        ");
        EXPECT_EQ(title(window), name + std::string(" - MIDI Channel2"));
        EXPECT_EQ(control<QLabel>(window, "LabelName")->text(), name) << "the narrow title bar cuts the title off";
    }
}

TEST_F(ProgramBanks, haveTheirControlsByNameInBothLanguages)
{
    for (const int language : {1, 2})
        for (const int kind : {4, 9}) {
            run.speak(language);
            ChildWindow* window = openBank(kind);
            EXPECT_EQ(control<QLabel>(window, "Label1")->text(), "MIDI Channel");
            EXPECT_EQ(control<QPushButton>(window, "CommArrPlay")->text(), "&ARR PLAY");
            EXPECT_EQ(control<QPushButton>(window, "CommSongPlay")->text(), "SO&NG PLAY");
            EXPECT_EQ(control<QPushButton>(window, "CommClose")->text(), language == 1 ? "&Chiudi" : "&Close");
            EXPECT_EQ(list(window)->font().family(), "Arial");
            ASSERT_EQ(channelBox(window)->count(), 16);
            EXPECT_EQ(channelBox(window)->itemText(0), "  1");
            EXPECT_EQ(channelBox(window)->itemText(15), " 16");
            EXPECT_TRUE(window->unloadChild());
        }
}

TEST_F(ProgramBanks, keepKindChannelStateTitleAndRoomForTheRowsInTheTag)
{
    for (const Bank& bank : Banks) {
        const std::string tag = openBank(bank.kind)->Tag.bytes();
        std::string head(20, '\0');
        head[0] = static_cast<char>(bank.kind);
        head[15] = 1;
        head[16] = 1;
        // The rows begin at 29, behind the title.
        EXPECT_EQ(tag, head + bank.title + std::string(4, ' ') + std::string(1344, ' '));
    }
    const std::string kits = openBank(10)->Tag.bytes();
    EXPECT_EQ(kits[0], 10);
    EXPECT_EQ(kits.substr(20), "Percussion" + std::string(14 + 1344, ' '));
}

TEST_F(ProgramBanks, allFactoryProgramsOnAllChannels)
{
    for (const Bank& bank : Banks) {
        ChildWindow* window = openBank(bank.kind);
        for (int channel = 0; channel < 16; ++channel) {
            chooseChannel(window, channel);
            for (int program = 0; program < 64; ++program) {
                keyToRow(window, program);
                ASSERT_EQ(sent(), selection(channel, bank.lsb, bank.first + program)) << bank.title << program;
            }
        }
        EXPECT_TRUE(window->unloadChild());
    }
}

TEST_F(ProgramBanks, allKitsOnAllChannels)
{
    for (const int kind : {9, 10}) {
        ChildWindow* window = openBank(kind);
        for (int channel = 0; channel < 16; ++channel) {
            chooseChannel(window, channel);
            for (int kit = 0; kit < 16; ++kit) {
                keyToRow(window, kit);
                ASSERT_EQ(sent(), selection(channel, 4, KitPrograms[kit])) << kind << " " << kit;
            }
        }
    }
}

TEST_F(ProgramBanks, theInstrumentPlaysWhatTheMouseHasChosen)
{
    VirtualInstrument instrument;
    VirtualMidiService service(instrument, [] { return std::string(); });
    Midi.service = &service;
    ASSERT_EQ(service.midiOutOpen(Midi.MidiOutHandle, 0), 0);
    for (const Bank& bank : Banks) {
        ChildWindow* window = openBank(bank.kind);
        chooseChannel(window, 5);
        for (int program = 0; program < 64; ++program) {
            clickRow(window, program);
            const std::string name = list(window)->rowText(program).substr(4);
            ASSERT_EQ(instrument.selectedProgramName(5), name.substr(0, name.find_last_not_of(' ') + 1));
        }
        EXPECT_TRUE(window->unloadChild());
    }
    EXPECT_EQ(instrument.malformedCount(), 0);
    Midi.service = &port;
}

TEST_F(ProgramBanks, aClickPlaysAtOnceAndAgainOnTheRowAlreadyCurrent)
{
    for (const int kind : {6, 9}) {
        ChildWindow* window = openBank(kind);
        const std::string second = kind == 6 ? selection(1, 1, 1) : selection(1, 4, 1);
        clickRow(window, 1);
        EXPECT_EQ(sent(), second);
        clickRow(window, 1);
        EXPECT_EQ(sent(), second);
    }
}

TEST_F(ProgramBanks, aRightPressAndTheEmptyPartOfTheListDoNothing)
{
    for (const int kind : {4, 9}) {
        ChildWindow* window = openBank(kind);
        QTest::mouseClick(list(window)->viewport(), Qt::RightButton, {}, place(window, 3));
        clickBelowTheRows(window);
        EXPECT_EQ(sent(), "") << kind;
        clickRow(window, 3);
        forget();
        clickBelowTheRows(window);
        EXPECT_EQ(sent(), "") << kind << ": the row that was chosen before is not played again";
    }
}

TEST_F(ProgramBanks, theMonitorShowsWhatAClickSends)
{
    for (const int kind : {5, 10}) {
        ChildWindow* window = openBank(kind);
        openMonitor();
        clickRow(window, 2);
        const Lines words = kind == 5 ? Lines{"B1 00 00", "B1 20 00", "C1 42"} : Lines{"B1 00 00", "B1 20 04", "C1 08"};
        EXPECT_EQ(diary, (Lines{"log cleared", words[0], words[1], words[2],
                                "log " + words[0] + " " + words[1] + " " + words[2]}));
        forget();
    }
}

TEST_F(ProgramBanks, theMenusFollowTheRowOfABankOfPrograms)
{
    ChildWindow* window = openBank(4);
    const int syncs = shell.syncs;
    clickRow(window, 3);
    EXPECT_EQ(shell.syncs, syncs + 1);
    EXPECT_EQ(list(window)->selectionMode(), QAbstractItemView::ExtendedSelection) << "several rows can be copied";
    clickRow(window, 3, Qt::ControlModifier);
    EXPECT_EQ(sent(), selection(1, 0, 3)) << "a row deselected is no choice";
    EXPECT_EQ(list(openBank(9))->selectionMode(), QAbstractItemView::SingleSelection);
}

TEST_F(ProgramBanks, theChannelBoxStoresAndSendsNothing)
{
    for (const int kind : {7, 10}) {
        ChildWindow* window = openBank(kind);
        EXPECT_EQ(channelBox(window)->currentIndex(), 1);
        chooseChannel(window, 15);
        EXPECT_EQ(sent(), "");
        EXPECT_EQ(window->Tag.at(15), 15);
        EXPECT_EQ(row(kind).Extra, 15);
        EXPECT_TRUE(title(window).ends_with("MIDI Channel16"));
        EXPECT_EQ(list(window)->accessibleName(), window->windowTitle());
        channelBox(window)->setCurrentIndex(-1);
        EXPECT_EQ(window->Tag.at(15), 15) << "no row is no channel";
        EXPECT_EQ(row(kind).Extra, 15);
    }
    EXPECT_EQ(row(4).Extra, 1) << "each window has its own";
}

TEST_F(ProgramBanks, theWheelOverTheBoxChangesNoChannel)
{
    ChildWindow* window = openBank(4);
    list(window)->setFocus();
    QComboBox* box = channelBox(window);
    const QPointF middle(box->width() / 2.0, box->height() / 2.0);
    QWheelEvent wheel(middle, box->mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    EXPECT_EQ(window->Tag.at(15), 1);
}

TEST_F(ProgramBanks, theModeButtonsSendTheirModes)
{
    for (const int kind : {5, 10}) {
        ChildWindow* window = openBank(kind);
        press(window, "CommSongPlay");
        EXPECT_EQ(App.DeviceMode, 1);
        press(window, "CommArrPlay");
        EXPECT_EQ(App.DeviceMode, 0);
        EXPECT_EQ(sent(), "F0 42 32 4D 4E 06 F7 | F0 42 32 4D 4E 0A F7");
    }
}

TEST_F(ProgramBanks, aHighlightedProgramFieldTakesTheClickAndNothingIsSent)
{
    setFieldTarget(&editor);
    const std::pair<int, int> clicks[] = {{4, 0}, {5, 63}, {6, 9}, {7, 27}, {8, 63}, {9, 7}, {10, 15}};
    for (const auto& [kind, program] : clicks)
        clickRow(openBank(kind), program);
    EXPECT_EQ(editor.picked,
              (Lines{"0 0 Piano 1 (A 11)", "127 0 Gun Shot (B 88)", "9 1 Sistro (C 22)", "91 1 Heaven (D 44)",
                     "63 2 Brass Fall (E 88)", "7 4 Jazz Kit (Dr 18)", "15 4 (User 2) (Dr 28)"}));
    EXPECT_EQ(sent(), "");
}

TEST_F(ProgramBanks, aHighlightedStyleFieldLetsThemPlay)
{
    setFieldTarget(&editor);
    editor.program = false;
    clickRow(openBank(8), 5);
    EXPECT_TRUE(editor.picked.empty());
    EXPECT_EQ(sent(), selection(1, 2, 5));
}

TEST_F(ProgramBanks, openAtThePlaceAndChannelOfTheirRowAndKeepThem)
{
    for (const int kind : {8, 9}) {
        row(kind) = {300, 150, 6000, 7500, 0, 11};
        ChildWindow* window = openBank(kind);
        EXPECT_EQ(row(kind).Open, 1);
        EXPECT_TRUE(window->hasSizeInTwips(6000, 7500));
        EXPECT_EQ(window->positionInTwips().left, 300);
        EXPECT_EQ(channelBox(window)->currentIndex(), 11);
        EXPECT_TRUE(title(window).ends_with("MIDI Channel12"));
        window->resize(400, 480);
        window->move(40, 50);
        const int count = App.OtherCount;
        const int syncs = shell.syncs;
        press(window, "CommClose");
        EXPECT_EQ(App.OtherCount, count - 1);
        EXPECT_GT(shell.syncs, syncs);
        EXPECT_EQ(row(kind).width, 6000);
        EXPECT_EQ(row(kind).height, 7200);
        EXPECT_EQ(row(kind).left, 600);
        EXPECT_EQ(row(kind).top, 750);
        EXPECT_EQ(row(kind).Open, 0) << "closed by the user, it stays away";
        EXPECT_EQ(row(kind).Extra, 11);
    }
}

TEST_F(ProgramBanks, atTheExitTheRowSaysThatTheWindowIsOpen)
{
    for (const int kind : {4, 10}) {
        ChildWindow* window = openBank(kind);
        chooseChannel(window, 7);
        App.AppClosing = true;
        window->unloadWithoutAsking();
        App.AppClosing = false;
        EXPECT_EQ(row(kind).Open, 1);
        EXPECT_EQ(row(kind).Extra, 7);
    }
}

TEST_F(ProgramBanks, comeUpInTheirStandardSizes)
{
    const auto size = [](ChildWindow* window) {
        return std::pair(window->positionInTwips().width, window->positionInTwips().height);
    };
    EXPECT_EQ(size(openBank(4)), std::pair(4810, 7780));
    ChildWindow* drum = openBank(9);
    EXPECT_EQ(size(drum), std::pair(1920, 7780));
    EXPECT_TRUE(drum->hasSizeInTwips(1920, 7780));
}

TEST_F(ProgramBanks, nothingIsCutOffAtTheStandardSize)
{
    for (const int kind : {4, 9}) {
        ChildWindow* window = openBank(kind);
        auto* content = window->widget();
        std::vector<const char*> names{"List1", "Label1", "Combo1", "CommArrPlay", "CommSongPlay", "CommClose"};
        if (kind == 9)
            names.push_back("LabelName");
        for (const char* name : names) {
            auto* one = control<QWidget>(window, name);
            const QRect shown(one->mapTo(content, QPoint(0, 0)), one->size());
            EXPECT_TRUE(content->rect().contains(shown)) << kind << " " << name;
            if (std::string_view(name) != "List1") {
                EXPECT_GE(one->width(), one->sizeHint().width()) << kind << " " << name;
            }
        }
    }
    RowList* kits = list(openBank(10));
    EXPECT_TRUE(kits->viewport()->rect().contains(kits->visualItemRect(kits->item(15)))) << "all kits in sight";
}
