// The window on a style file: what it shows, what a click does, where it stands, how it closes.
#include "StyleWindows.h"

TEST_F(StyleWindows, listsTheStylesTheirLengthsAndTheFigures)
{
    const frmStyUN* window = open(sixteen());
    Lines rows;
    for (int row = 0; row < list(window)->count(); ++row)
        rows.push_back(list(window)->rowText(row));
    EXPECT_EQ(rows,
              (Lines{"11  Style 0", "12  Style 1", "13  Style 2", "14  Style 3", " ", "15  Style 4", "16  Style 5",
                     "17  Style 6", "18  Style 7", " ", "21  Style 8", "22  Style 9", "23  Style 10", "24  Style 11",
                     " ", "25  Style 12", "26  Style 13", "27  Style 14", "28  Style 15"}));
    EXPECT_EQ(texts(window, "Text1", 16), (Lines{"40 ", "41 ", "42 ", "43 ", "44 ", "45 ", "46 ", "47 ", "48 ", "49 ",
                                                 "50 ", "51 ", "52 ", "53 ", "54 ", "55 "}));
    EXPECT_EQ(texts(window, "Text2", 4), (Lines{"166 ", "348 ", "546 ", "760 "}));
    EXPECT_EQ(text(window, "Text3"), "984");
    EXPECT_EQ(window->windowTitle(), "File Sty - song.sty (1)");
    EXPECT_TRUE(list(window)->selectedItems().isEmpty());
    EXPECT_EQ(App.StyUCount, 1);
}

TEST_F(StyleWindows, filesOfEveryShapeShowTheirRowsFiguresAndButtons)
{
    struct Case {
        const char* name;
        std::string file;
        std::string lastRow; ///< of the list
        Lines figures;
        std::vector<bool> buttons;
        std::string total;
    };
    std::string cut = styFile({{"Whole", 40}, {"Cut here", 60000}});
    cut.resize(224 + 40 + 5);
    Slots fifteen(15, {"One of many", 100});
    Slots beyond(15, {"Long", 19319});
    beyond.emplace_back("Unread", 9991);
    const std::string longest = styFile(beyond);
    const std::vector<bool> all(4, true);
    const Case cases[] = {
        {"head only", styFile({}), "28  ", Lines(4, "0 "), std::vector<bool>(4, false), "224"},
        {"one of length 1", styFile({{"S", 1}}), "28  ", Lines(4, "1 "), all, "225"},
        {"one of length 16", styFile({{"S", 16}}), "28  ", Lines(4, "16 "), all, "240"},
        {"one of length 65535", styFile({{"S", 65535}}), "28  ", Lines(4, "65535 "), all, "65759"},
        {"four", emptyStyles(), "28  ", Lines(4, "4704 "), all, "4928"},
        {"fifteen", styFile(fifteen), "28  ", {"400 ", "800 ", "1200 ", "1500 "}, all, "1724"},
        {"promised", cut, "28  ", Lines(4, "60040 "), all, "269"},
        {"seven bytes", std::string("KORG\x4D\x00\x04", 7), "28  ", Lines(4, "0 "), std::vector<bool>(4, false), "7"},
        {"289800", longest.substr(0, 289800), "28  ", {"77276 ", "154552 ", "231828 ", "299776 "}, all, "289800"},
        {"300000", longest, "28  " + std::string(16, ' '), {"77276 ", "154552 ", "231828 ", "299776 "}, all, "300000"},
    };
    for (const Case& one : cases) {
        frmStyUN* window = open(one.file);
        EXPECT_EQ(list(window)->rowText(18), one.lastRow) << one.name;
        EXPECT_EQ(texts(window, "Text2", 4), one.figures) << one.name;
        EXPECT_EQ(text(window, "Text3"), one.total) << one.name;
        for (int group = 0; group < 4; ++group)
            EXPECT_EQ(enabled(window, QStringLiteral("CommLoadStyGrp(%1)").arg(group)),
                      one.buttons[static_cast<std::size_t>(group)])
                << one.name;
        window->close();
    }
}

TEST_F(StyleWindows, hasItsControlsByNameInBothLanguages)
{
    for (const int language : {1, 2}) {
        run.speak(language);
        const frmStyUN* window = open(sixteen(), language, language == 1 ? "uno" : "two");
        EXPECT_EQ(control<QPushButton>(window, "CommLoadSty")->text(), "Load &Styles");
        EXPECT_EQ(control<QPushButton>(window, "CommClose")->text(), language == 1 ? "&Chiudi" : "&Close");
        EXPECT_EQ(control<QLabel>(window, "Label3")->text(), "bytes");
        for (int group = 0; group < 4; ++group) {
            EXPECT_EQ(control<QPushButton>(window, QStringLiteral("CommLoadStyGrp(%1)").arg(group))->text(),
                      "Load Styles");
            EXPECT_NE(control<QFrame>(window, QStringLiteral("Picture2(%1)").arg(group)), nullptr);
        }
        EXPECT_NE(control<QFrame>(window, "Picture1"), nullptr);
        EXPECT_EQ(control<QLineEdit>(window, "Text1(9)")->accessibleName(),
                  language == 1 ? "Lunghezza dello style 22 in byte" : "Length of style 22 in bytes");
        EXPECT_EQ(control<QPushButton>(window, "CommLoadStyGrp(2)")->accessibleName(), "Load Styles 21-24");
        for (const QLineEdit* field : window->findChildren<QLineEdit*>()) {
            EXPECT_TRUE(field->isReadOnly());
            EXPECT_TRUE(field->alignment() & Qt::AlignRight);
            EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
        }
        const QFont font = list(window)->font();
        EXPECT_EQ(font.family(), "Arial");
        EXPECT_EQ(font.pointSize(), 10);
        EXPECT_EQ(font.weight(), QFont::Normal);
    }
}

TEST_F(StyleWindows, buildsEveryTimerDisabledAtRest)
{
    const frmStyUN* window = open(sixteen());
    for (const char* name : {"TimerTxSty(0)", "TimerTxSty(1)", "TimerLoadStyGrp(0)", "TimerLoadStyGrp(1)",
                             "TimerLoadStyGrp(2)", "TimerLoadStyGrp(3)", "TimerLoadSty"}) {
        EXPECT_EQ(timer(window, name)->Interval(), 10) << name;
        EXPECT_FALSE(timer(window, name)->enabled()) << name;
    }
}

TEST_F(StyleWindows, theFiguresStandBesideTheirRowsAndScrollWithThem)
{
    const frmStyUN* window = open(sixteen());
    RowList* rows = list(window);
    const auto expectAligned = [&] {
        for (const auto& [row, slot] : {std::pair{0, 0}, {5, 4}, {18, 15}}) {
            const QRect line = rows->visualItemRect(rows->item(row));
            const auto* field = control<QLineEdit>(window, QStringLiteral("Text1(%1)").arg(slot));
            EXPECT_EQ(field->mapToGlobal(QPoint(0, 0)).y(), rows->viewport()->mapToGlobal(line.topLeft()).y()) << row;
            EXPECT_EQ(field->height(), line.height());
        }
    };
    expectAligned();
    rows->scrollToBottom();
    QApplication::processEvents();
    EXPECT_LT(control<QLineEdit>(window, "Text1(0)")->mapTo(window, QPoint(0, 0)).y(), 25) << "scrolled away";
    expectAligned();
    rows->scrollToTop();
    clickRow(window, 0);
    QTest::keyClick(rows, Qt::Key_End);
    EXPECT_EQ(rows->currentRow(), 18);
    expectAligned();
}

TEST_F(StyleWindows, tabWalksFirstWhatWorksThenWhatShows)
{
    const frmStyUN* window = open(sixteen());
    area->activateWindow();
    list(window)->setFocus();
    QStringList walked;
    for (int step = 0; step < 8; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        walked << QApplication::focusWidget()->objectName();
    }
    EXPECT_EQ(walked, (QStringList{"CommLoadStyGrp(0)", "CommLoadStyGrp(1)", "CommLoadStyGrp(2)", "CommLoadStyGrp(3)",
                                   "CommLoadSty", "CommClose", "Text1(0)", "Text1(1)"}));
}

// A click.

TEST_F(StyleWindows, aClickSendsNothingAndBringsTheMenusUpToDate)
{
    const frmStyUN* window = open(sixteen());
    const int syncs = shell.syncs;
    clickRow(window, 0);
    QTest::keyClick(list(window), Qt::Key_Down);
    EXPECT_EQ(shell.syncs, syncs + 2);
    EXPECT_TRUE(diary.empty());
}

TEST_F(StyleWindows, aClickGivesTheStyleToTheHighlightedFieldAndSendsNothing)
{
    StyleField field;
    setFieldTarget(&field);
    const frmStyUN* window = open(sixteen());
    clickRow(window, 0);
    clickRow(window, 8);
    QTest::keyClick(list(window), Qt::Key_End);
    EXPECT_EQ(field.taken, (Lines{"0/1 Style 0 Style (U11)", "7/1 Style 7 Style (U18)", "15/1 Style 15 Style (U28)"}));
    field.taken.clear();
    clickRow(window, 4);
    clickRow(window, 3, {}, Qt::RightButton);
    clickRow(window, 4, Qt::ControlModifier);
    EXPECT_TRUE(field.taken.empty()) << "a blank row, a right press, a row deselected";
    field.highlighted = false;
    clickRow(window, 0);
    EXPECT_TRUE(field.taken.empty());
    EXPECT_TRUE(diary.empty());
}

TEST_F(StyleWindows, theRightButtonOpensTheEditMenuOnTheListTheFiguresAndTheForm)
{
    const frmStyUN* window = open(sixteen());
    for (QWidget* place : {list(window)->viewport(), static_cast<QWidget*>(control<QLineEdit>(window, "Text1(0)")),
                           static_cast<QWidget*>(control<QFrame>(window, "Picture1"))}) {
        shell.popups = 0;
        rightPress(place);
        EXPECT_EQ(shell.popups, 1) << place->objectName().toStdString();
    }
    EXPECT_TRUE(diary.empty());
}

TEST_F(StyleWindows, severalRowsCanBeSelected)
{
    const frmStyUN* window = open(sixteen());
    clickRow(window, 0);
    clickRow(window, 6, Qt::ShiftModifier);
    EXPECT_EQ(list(window)->selectedItems().size(), 7);
}

// Place, record, caption.

TEST_F(StyleWindows, aFileOpensAtTheCornerInTheDefaultSizeWhereverTheSlotsLastWindowStood)
{
    frmStyUN* first = open(sixteen());
    EXPECT_EQ(first->positionInTwips().left, 0);
    EXPECT_EQ(first->positionInTwips().top, 0);
    EXPECT_TRUE(first->hasSizeInTwips(5560, 4200));
    EXPECT_EQ(record(1).width, 5560);
    EXPECT_EQ(record(1).height, 4200);
    first->placeInTwips(300, 450, 6000, 7500);
    first->close();
    EXPECT_FALSE(record(1).used);
    EXPECT_EQ(App.StyUCount, 0);
    EXPECT_EQ(record(1).left, 300);
    EXPECT_EQ(record(1).top, 450);
    EXPECT_EQ(record(1).width, 6000);
    EXPECT_EQ(record(1).height, 7500);

    const frmStyUN* second = open(sixteen(), 1, "other");
    EXPECT_TRUE(record(1).used);
    EXPECT_EQ(second->positionInTwips().left, 0);
    EXPECT_EQ(second->positionInTwips().top, 0);
    EXPECT_TRUE(second->hasSizeInTwips(5560, 4200));
    EXPECT_EQ(record(1).left, 0);
}

TEST_F(StyleWindows, anArrangementsStylesOpenAtThePlaceThatTheirRecordKeeps)
{
    record(1).left = 300;
    record(1).top = 450;
    record(1).width = 6000;
    record(1).height = 7500;
    record(1).linked = true;
    const frmStyUN* window = open(sixteen());
    EXPECT_EQ(window->positionInTwips().left, 300);
    EXPECT_EQ(window->positionInTwips().top, 450);
    EXPECT_TRUE(window->hasSizeInTwips(6000, 7500));
}

TEST_F(StyleWindows, aWindowThatAnArrangementOpenedIsMarkedInItsRecordForAsLongAsItIsOpen)
{
    Files.StyBuffer = sixteen();
    record(2).path = "/music/song";
    record(2).linked = true;
    frmStyUN* window = show(new frmStyUN(23, 2));
    EXPECT_TRUE(record(2).used);
    EXPECT_TRUE(record(2).linked);
    EXPECT_EQ(window->windowTitle(), "File Sty - song.sty (2)");
    EXPECT_EQ(window->Tag.at(9), 0);
    EXPECT_TRUE(window->hasSizeInTwips(5560, 4200));
    window->close();
    EXPECT_FALSE(record(2).linked);
    EXPECT_FALSE(record(2).used);
}

TEST_F(StyleWindows, aWindowThatAnArrangementOpensFindsAPlaceBesideTheOthers)
{
    const frmStyUN* other = open(sixteen());
    Files.StyBuffer = sixteen();
    record(2).path = "/music/song";
    record(2).linked = true;
    const frmStyUN* window = show(new frmStyUN(23, 2));
    EXPECT_FALSE(window->geometry().intersects(other->geometry()));
}

TEST_F(StyleWindows, anUntitledWindowShowsItsNumberAndTakesTheDefaultSize)
{
    run.speak(1);
    record(3).width = 9000;
    record(3).height = 9000;
    const frmStyUN* window = openUntitled(3);
    EXPECT_EQ(window->windowTitle(), "Nuovo Style - SenzaNome.sty (3)");
    EXPECT_TRUE(window->hasSizeInTwips(5560, 4200));
    EXPECT_TRUE(record(3).used);
    EXPECT_EQ(list(window)->rowText(0), "11  - empty -");
    EXPECT_TRUE(enabled(window, "CommLoadStyGrp(0)")) << "empty slots have lengths";
}

TEST_F(StyleWindows, aReadOnlyFileIsMarkedInTheCaption)
{
    record(1).readOnly = true;
    const frmStyUN* window = open(sixteen());
    EXPECT_TRUE(window->Tag.readOnly());
    EXPECT_EQ(window->windowTitle().toStdString(), "File Sty - song.sty (1)Read Only");
}

// The way out.

TEST_F(StyleWindows, closesUnaskedWhenNothingHasChanged)
{
    const frmStyUN* window = open(sixteen());
    press(window, "CommClose");
    EXPECT_TRUE(OpenWindows::all().empty());
    EXPECT_TRUE(user.questions.empty());
}

TEST_F(StyleWindows, aChangedFileIsAskedAboutAndStaysSavesOrGoesByTheAnswer)
{
    frmStyUN* window = open(sixteen());
    window->Tag.set(9, 1);
    window->Tag.bytes()[669 + 224] = 'Z';
    user.answers = {Answer::Cancel};
    EXPECT_FALSE(window->unloadChild());
    EXPECT_TRUE(asked("File Sty - song.sty (1)"));
    EXPECT_TRUE(record(1).used);

    user.answers = {Answer::Yes};
    EXPECT_TRUE(window->unloadChild());
    EXPECT_EQ(run.folder.get("song.sty").substr(224, 7), "Ztyle 0");

    frmStyUN* again = open(sixteen(), 1, "second");
    again->Tag.set(9, 1);
    again->Tag.bytes()[669 + 224] = 'Z';
    user.answers = {Answer::No};
    EXPECT_TRUE(again->unloadChild());
    EXPECT_EQ(run.folder.get("second.sty"), sixteen());
}

TEST_F(StyleWindows, anUntitledFileIsSavedUnderANameAndACancelledDialogKeepsTheWindow)
{
    frmStyUN* window = openUntitled(1);
    window->Tag.set(9, 1);
    window->Tag.bytes()[669 + 224] = 'Z';
    user.answers = {Answer::Yes, Answer::Yes};
    EXPECT_FALSE(window->unloadChild()) << "the dialog was cancelled";
    user.saveFiles = {{true, run.folder.file("new.sty"), 2}};
    EXPECT_TRUE(window->unloadChild());
    EXPECT_EQ(user.saveDialogs.back().filterIndex, 2);
    EXPECT_EQ(run.folder.get("new.sty").substr(224, 9), "Z empty -");
}
