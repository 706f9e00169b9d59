// The menus: names, words, keys, check marks.
#include "MainWindowFixture.h"

// Menus.

TEST_F(MainWindow, captionsAreInTheLanguageOfTheRun)
{
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"mnuFile", "&File", "&File"},
        {"mnuNuovoArr", "&Nuovo Arr", "&New Arr"},
        {"mnuNuovoSty", "Nuovo Style", "New Style"},
        {"mnuNuovoPrg", "Nuovo Prg/Pgg", "New Prg/Pgg"},
        {"mnuApriArr", "&Apri Arr", "&Open Arr"},
        {"mnuApriSty", "Apri Sty", "Apri Sty"},
        {"mnuApriPrg", "Apri Prg/Pgg", "Open Prg/Pgg"},
        {"mnuApriGbl", "Apri Gbl", "Apri Gbl"},
        {"mnuChiudi", "&Chiudi", "&Close"},
        {"mnuSalva", "&Salva", "&Save"},
        {"mnuSalvaAs", "Salva file come", "Save file as"},
        {"mnuExit", "&Esci", "E&xit"},
        {"mnuModifica", "&Modifica", "&Edit"},
        {"mnuIngrandisci", "Ingrandisci", "Maximize"},
        {"mnuTaglia", "Taglia", "Cut"},
        {"mnuCopia", "Copia", "Copy"},
        {"mnuIncolla", "Incolla", "Paste"},
        {"mnuCancella", "&Cancella", "&Delete"},
        {"mnuDBArrApri", "&Apri", "&Open"},
        {"mnuTvlDBArr", "+TvlDBArr", "+TvlDBArr"},
        {"mnuArrPlay", "ARR PLAY", "ARR PLAY"},
        {"mnuWFindID", "Cerca Arra&ngement (ID)", "Find Arra&ngement (ID)"},
        {"mnuAggArr", "A&ggiornamento TvlDBArr", "&Update TvlDBArr"},
        {"mnuView", "&Visualizza", "&View"},
        {"mnuMsgEx", "Messaggi MIDI", "MIDI Messages"},
        {"mnuTastiera", "Tastiera", "Keyboard"},
        {"mnuPreferenze", "&Preferenze", "&Preferences"},
        {"mnuLingua", "&Lingua", "&Language"},
        {"mnuItaliano", "Italiano", "Italian"},
        {"mnuInglese", "Inglese", "English"},
        {"mnuMIDIThru", "MIDI Thru", "MIDI Thru"},
        {"mnuCaricaArr", "Carica Arrangement", "Load Arrangement"},
        {"mnuCaricaSty", "Carica Style", "Load Style"},
        {"mnuCaricaStyNuovoArr", "Carica Style (Nuovo Arr)", "Load Style (New Arr)"},
        {"mnuCaricaPrg", "Carica Program", "Load Program"},
        {"mnuRdOnly", "File di sola lettura", "Read only file"},
        {"mnuVisBarraStato", "Visualizza Barra di Stato", "Show Status Bar"},
        {"mnuAddTvlDBArr", "Aggiorna Automaticamente TvlDBArr", "Update Automatically TvlDBArr"},
        {"mnuWindow", "Fi&nestra", "&Window"},
        {"mnuWCascade", "&Sovrapponi", "&Cascade"},
        {"mnuHelp", "Guida Utente", "User's Guide"},
        {"mnuGuida", "Guida Utente", "User's Guide"},
        {"mnuInfo", "Informazioni su Tarvolyne", "About Tarvolyne"},
    };
    for (const int language : {1, 2}) {
        speak(language);
        start();
        for (const auto& [name, italian, english] : rows) {
            ASSERT_NE(item(name), nullptr) << name;
            EXPECT_EQ(item(name)->text().toStdString(), language == 1 ? italian : english) << name;
        }
        EXPECT_EQ(window->windowTitle(), "Tarvolyne - Tarvolyne Console ");
        window.reset();
    }
}

TEST_F(MainWindow, everyItemOfTheRulesExists)
{
    start();
    for (const char* name :
         {"mnuLoadAll",       "mnuLoadArr",      "mnuLoadSty",     "mnuShowSty",    "mnuLoadPrg", "mnuShowPrg",
          "mnuEditArr",       "mnuSongPlay",     "mnuAddAll",      "mnuArrA",       "mnuArrB",    "mnuStyA",
          "mnuStyB",          "mnuWProgA",       "mnuWProgB",      "mnuWProgC",     "mnuWProgD",  "mnuWProgE",
          "mnuDrum",          "mnuPerc",         "mnuGlobalParam", "mnuWEditDBArr", "mnuHelp",    "mnuSep16",
          "mnuRecentFile(0)", "mnuRecentFile(7)"})
        EXPECT_NE(item(name), nullptr) << name;
}

TEST_F(MainWindow, itsTimersAreThoseOfTheRulesAndStandIdleBeforeTheLoad)
{
    std::set<QString> wanted{"Timer", "TimerAuto(14)"};
    for (int index = 0; index <= 11; ++index)
        wanted.insert(QString("TimerAuto(%1)").arg(index));
    for (int index = 1; index <= 16; ++index)
        wanted.insert(QString("TimerArrU(%1)").arg(index));
    window = std::make_unique<frmMain>();
    std::set<QString> found;
    for (const auto* timer : window->findChildren<QTimer*>()) {
        const auto* stage = dynamic_cast<const StageTimer*>(timer);
        if (!stage)
            continue; // the toolkit's own
        found.insert(stage->objectName());
        EXPECT_EQ(stage->Interval(), 10) << stage->objectName().toStdString();
        EXPECT_FALSE(stage->enabled()) << stage->objectName().toStdString();
    }
    EXPECT_EQ(found, wanted);
}

TEST_F(MainWindow, onlyTheTimersOfTheOpenRowsAreStartedByTheLoad)
{
    for (std::size_t row = 1; row <= 18; ++row)
        App.WinPos[row].Open = 1;
    window = std::make_unique<frmMain>();
    window->Form_Load();
    std::set<QString> started;
    for (const auto* timer : window->findChildren<QTimer*>())
        if (const auto* stage = dynamic_cast<const StageTimer*>(timer); stage && stage->enabled())
            started.insert(stage->objectName());
    std::set<QString> wanted;
    for (int row = 2; row <= 11; ++row)
        wanted.insert(QString("TimerAuto(%1)").arg(row));
    EXPECT_EQ(started, wanted);

    window.reset();
    App.WinPos = {};
    window = std::make_unique<frmMain>();
    window->Form_Load();
    EXPECT_TRUE(dynamic_cast<StageTimer*>(window->findChild<QTimer*>("TimerArrU(1)"))->enabled());
}

TEST_F(MainWindow, noLetterOpensTwoItemsOfOneMenu)
{
    const auto letterOf = [](QString caption) {
        caption.remove("&&");
        const auto mark = caption.indexOf('&');
        return mark < 0 ? QString() : caption.mid(mark + 1, 1).toUpper();
    };
    for (int index = 0; index < 8; ++index) {
        App.Recent[static_cast<std::size_t>(index)].path = "/m/R&B";
        App.Recent[static_cast<std::size_t>(index)].kind = 1;
    }
    for (const int language : {1, 2}) {
        speak(language);
        start();
        QList<QList<QAction*>> menus{window->menuBar()->actions()};
        for (const char* name :
             {"mnuFile", "mnuModifica", "mnuView", "mnuPreferenze", "mnuLingua", "mnuWindow", "mnuHelp"})
            menus << item(name)->menu()->actions();
        for (const QList<QAction*>& menu : menus) {
            std::set<QString> letters;
            for (const QAction* action : menu)
                if (const QString letter = letterOf(action->text()); !letter.isEmpty()) {
                    EXPECT_TRUE(letters.insert(letter).second) << action->objectName().toStdString();
                }
        }
        window.reset();
    }
}

TEST_F(MainWindow, eachItemOfAWindowShowsTheWindowOfItsKind)
{
    std::string database(27221, '\0');
    database.replace(0, 8, "TvlDBArr");
    state.put("TvlDBArr", database);
    App.GlobalValid = true;
    startWithPlainChildren();
    const std::pair<const char*, int> rows[] = {
        {"mnuArrA", 2},   {"mnuArrB", 3},    {"mnuStyA", 17},        {"mnuStyB", 18},     {"mnuWProgA", 4},
        {"mnuWProgB", 5}, {"mnuWProgC", 6},  {"mnuWProgD", 7},       {"mnuWProgE", 8},    {"mnuDrum", 9},
        {"mnuPerc", 10},  {"mnuMsgEx", 16},  {"mnuGlobalParam", 14}, {"mnuTastiera", 15}, {"mnuWEditDBArr", 12},
        {"mnuInfo", 28},  {"mnuWFindID", 11}};
    for (const auto& [name, kind] : rows) {
        const std::size_t before = plain.size();
        item(name)->trigger();
        ASSERT_EQ(plain.size(), before + 1) << name;
        EXPECT_EQ(plain.back()->windowKind(), kind) << name;
    }
}

TEST_F(MainWindow, standardActsHaveTheDesktopsKeysAndNoKeyIsTakenTwice)
{
    start();
    EXPECT_EQ(item("mnuApriArr")->shortcut(), QKeySequence(QKeySequence::Open));
    EXPECT_EQ(item("mnuSalva")->shortcut(), QKeySequence(QKeySequence::Save));
    EXPECT_EQ(item("mnuCopia")->shortcut(), QKeySequence(QKeySequence::Copy));
    EXPECT_EQ(item("mnuTaglia")->shortcut(), QKeySequence(QKeySequence::Cut));
    EXPECT_EQ(item("mnuIncolla")->shortcut(), QKeySequence(QKeySequence::Paste));
    EXPECT_EQ(item("mnuExit")->shortcut(), QKeySequence("Ctrl+Q"));
    std::set<QString> keys;
    for (const QAction* action : window->findChildren<QAction*>())
        if (const QKeySequence key = action->shortcut(); !key.isEmpty()) {
            EXPECT_TRUE(keys.insert(key.toString()).second) << action->objectName().toStdString();
        }
}

TEST_F(MainWindow, everyActionAndEveryControlHasItsName)
{
    song("song");
    user.files.push_back({true, songs.file("song.arr"), 1, false});
    start();
    item("mnuApriArr")->trigger();
    std::set<QString> names;
    for (const MenuRow& row : menuTable()) {
        const bool first = row.type == MenuRow::Type::EndOfSubMenu || names.insert(row.name).second;
        EXPECT_TRUE(first) << row.name;
    }
    for (const QAction* action : window->menuBar()->actions())
        EXPECT_FALSE(action->objectName().isEmpty()) << action->text().toStdString();
    for (const QMenu* menu : window->menuBar()->findChildren<QMenu*>())
        for (const QAction* action : menu->actions())
            EXPECT_FALSE(action->objectName().isEmpty()) << action->text().toStdString();
    for (const char* name : {"Picture1", "LabelNomeAppl", "LabelMode", "Label1", "LabelArr", "LabelSty", "LabelPrg",
                             "SendBar", "MDIForm", "MenuBar", "frmArrU"})
        EXPECT_EQ(window->findChildren<QWidget*>(name).isEmpty(), false) << name;
    const auto expectName = [](const QWidget* control) {
        EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
    };
    for (const QWidget* control : window->findChildren<QAbstractButton*>())
        expectName(control);
    for (const QWidget* control : window->findChildren<QLabel*>())
        expectName(control);
    for (const QWidget* control : window->findChildren<QLineEdit*>())
        expectName(qobject_cast<QComboBox*>(control->parentWidget()) ? control->parentWidget() : control);
    for (const QWidget* control : window->findChildren<QListWidget*>())
        expectName(control);
    for (const QWidget* control : window->findChildren<QComboBox*>())
        expectName(control);
    for (const QTimer* timer : childAt(0)->findChildren<QTimer*>())
        EXPECT_FALSE(timer->objectName().isEmpty());
    for (const QAction* action : window->findChildren<QAction*>()) {
        // The menu bar's own menu for what finds no room in it is the toolkit's.
        if (action->parent()->parent() == window->menuBar() && action->parent()->objectName().isEmpty())
            continue;
        EXPECT_FALSE(action->objectName().isEmpty()) << action->text().toStdString();
    }
}

TEST_F(MainWindow, withoutAChildOnlyFourMenusWork)
{
    start();
    for (const char* name : {"mnuFile", "mnuView", "mnuPreferenze", "mnuHelp"})
        EXPECT_TRUE(item(name)->isEnabled()) << name;
    for (const char* name : {"mnuModifica", "mnuWindow", "mnuChiudi", "mnuSalva", "mnuSalvaAs", "mnuCopia", "mnuTaglia",
                             "mnuIncolla", "mnuGlobalParam", "mnuWEditDBArr", "mnuAggArr", "mnuWFindID"})
        EXPECT_FALSE(item(name)->isEnabled()) << name;
}

TEST_F(MainWindow, checkMarksFollowTheSettingsAndSetThem)
{
    const std::pair<const char*, bool Settings::*> rows[] = {{"mnuCaricaArr", &Settings::AutoArr},
                                                             {"mnuCaricaSty", &Settings::AutoSty},
                                                             {"mnuCaricaStyNuovoArr", &Settings::AutoStyNewArr},
                                                             {"mnuCaricaPrg", &Settings::AutoPrg},
                                                             {"mnuRdOnly", &Settings::ReadOnlyOpen},
                                                             {"mnuVisBarraStato", &Settings::StatusBar},
                                                             {"mnuAddTvlDBArr", &Settings::AutoDBArr},
                                                             {"mnuMIDIThru", &Settings::ThruOn}};
    App.AutoArr = true;
    App.ThruOn = true;
    start();
    for (const auto& [name, setting] : rows) {
        const bool before = App.*setting;
        EXPECT_EQ(item(name)->isChecked(), before) << name;
        item(name)->trigger();
        EXPECT_EQ(App.*setting, !before) << name;
        EXPECT_EQ(item(name)->isChecked(), !before) << name;
    }
}

TEST_F(MainWindow, theStatusPanelIsShownAndHiddenByItsMark)
{
    start();
    EXPECT_TRUE(window->statusPanel()->isVisible());
    item("mnuVisBarraStato")->trigger();
    EXPECT_FALSE(window->statusPanel()->isVisible());
    window.reset();
    start();
    EXPECT_FALSE(window->statusPanel()->isVisible());
}

TEST_F(MainWindow, thruIsJoinedAndPartedByItsMark)
{
    start();
    port.forget();
    item("mnuMIDIThru")->trigger();
    item("mnuMIDIThru")->trigger();
    EXPECT_EQ(port.operations(), (Lines{"midiConnect", "midiInStart", "midiDisconnect", "midiInStop"}));
}

TEST_F(MainWindow, anotherLanguageIsToldInThePresentOneAndChangesNoWord)
{
    start();
    item("mnuItaliano")->trigger();
    EXPECT_TRUE(item("mnuItaliano")->isChecked()) << "the language in use cannot be unchecked";
    EXPECT_TRUE(user.warnings.empty());
    item("mnuInglese")->trigger();
    EXPECT_EQ(warnings(), (Lines{"Cambio lingua|Il cambio avrà effetto alla prossima esecuzione del programma"}));
    EXPECT_EQ(App.Language, 2);
    EXPECT_EQ(App.LanguageBase, 0);
    EXPECT_TRUE(item("mnuInglese")->isChecked());
    EXPECT_FALSE(item("mnuItaliano")->isChecked());
    EXPECT_EQ(item("mnuApriArr")->text(), "&Apri Arr");
    item("mnuInglese")->trigger();
    EXPECT_EQ(warnings().size(), 1U) << "it is chosen already";
    item("mnuItaliano")->trigger();
    EXPECT_EQ(warnings().size(), 2U);
    EXPECT_EQ(warnings().back(), "Cambio lingua|Il cambio avrà effetto alla prossima esecuzione del programma");
    EXPECT_EQ(App.Language, 1);
}

TEST_F(MainWindow, aChangeOfLanguageKeepsAllMenusAsTheyAre)
{
    App.Language = 2;
    App.LanguageBase = 200;
    start();
    const auto words = [this] {
        QStringList texts;
        for (const QAction* action : window->findChildren<QAction*>())
            texts << action->objectName() + QLatin1Char('=') + action->text();
        return texts;
    };
    const QStringList before = words();
    item("mnuItaliano")->trigger();
    EXPECT_EQ(warnings(), (Lines{"Change language|The change will take place next time you will run the programme"}))
        << "told in the present language";
    EXPECT_EQ(words(), before);
    EXPECT_EQ(App.LanguageBase, 200);
}

TEST_F(MainWindow, theModeItemsSendTheirMessages)
{
    start();
    port.forget();
    item("mnuSongPlay")->trigger();
    item("mnuArrPlay")->trigger();
    EXPECT_EQ(hexOf(port.messages()), "F0 42 30 4D 4E 06 F7 | F0 42 30 4D 4E 0A F7");
    EXPECT_EQ(App.DeviceMode, 0);
}
