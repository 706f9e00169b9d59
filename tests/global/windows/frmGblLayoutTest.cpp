// What stands where in the global window, and beside which words.
#include "GblWindow.h"

#include <QGroupBox>

namespace
{

void expectNamed(const QWidget* control, std::set<std::string>& names)
{
    const std::string name = control->objectName().toStdString();
    EXPECT_FALSE(name.empty()) << control->metaObject()->className();
    EXPECT_TRUE(names.insert(name).second) << name << " stands twice";
}

bool isControl(const QWidget* widget)
{
    return qobject_cast<const QComboBox*>(widget) || qobject_cast<const QSlider*>(widget) ||
           qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLabel*>(widget) ||
           qobject_cast<const QGroupBox*>(widget) || qobject_cast<const QTabWidget*>(widget);
}

/// A control, the frame around it, and its words.
struct Row {
    const char* control;
    const char* frame;
    const char* words;
};

constexpr Row Rows[] = {
    {"GblHScroll1(0)", "General", "Master Tune"},
    {"GblCombo1(0)", "General", "Octave Upper"},
    {"GblCombo1(1)", "General", "Octave Lower"},
    {"GblCombo1(2)", "General", "Velocity Curve"},
    {"GblCombo1(3)", "General", "After Touch Curve"},
    {"GblHScroll1(1)", "General", "Velocity"},
    {"GblCheck1(0)", "General", "Auto Chord Scan"},
    {"GblCheck1(1)", "General", "Transpose Lock"},
    {"GblCheck1(2)", "General", "Voc/Gtr Lock"},
    {"GblCombo1(16)", "Midi In", "JS x LOW"},
    {"GblCombo1(17)", "Midi In", "JS x UP1"},
    {"GblCombo1(18)", "Midi In", "JS x UP2"},
    {"GblCombo1(19)", "Midi In", "Echo Back"},
    {"GblCombo1(5)", "Midi In", "Chord Recognition"},
    {"GblCombo1(6)", "Scales", "Main Scale Type"},
    {"GblCombo1(7)", "Scales", "Sub Scale Type"},
    {"GblCombo1(8)", "Scales", "Main Scale Key"},
    {"GblCombo1(9)", "Scales", "Sub Scale Key"},
    {"GblOption1(0)", "Pedals", "+"},
    {"GblOption1(1)", "Pedals", "-"},
    {"GblCombo1(10)", "Pedals", "Assignable Pedal"},
    {"GblCombo1(11)", "Pedals", "Ext. Controller A"},
    {"GblCombo1(12)", "Pedals", "Ext. Controller B"},
    {"GblCombo1(13)", "Pedals", "Ext. Controller C"},
    {"GblCombo1(14)", "Pedals", "Ext. Controller D"},
    {"GblCombo1(15)", "Pedals", "Ext. Controller E"},
    {"CommResetUS(0)", "User Scale 1", "Reset US1"},
    {"CommResetUS(1)", "User Scale 2", "Reset US2"},
    {"CommResetUS(2)", "User Scale 3", "Reset US3"},
    {"CommResetUS(3)", "User Scale 4", "Reset US4"},
    {"Combo3(0)", "Harmony", "Octave"},
    {"Combo3(1)", "Harmony", "Channel (Arr)"},
    {"Combo3(2)", "Harmony", "Track"},
    {"Combo3(3)", "Harmony", "Channel (Song Play)"},
    {"Check3", "Harmony", "TG (Song Play)"},
    {"HScroll3(0)", "Harmony", "Range L(Arr)"},
    {"HScroll3(1)", "Harmony", "Range H(Arr)"},
    {"Combo3(4)", "MIDI Channels", "GLB (Global)"},
    {"Combo3(5)", "MIDI Channels", "ARRANG (Arrangement)"},
    {"Combo3(6)", "MIDI Channels", "LOW (Lower)"},
    {"Combo3(7)", "MIDI Channels", "UP2 (Upper 2)"},
    {"Combo3(8)", "MIDI Channels", "UP1 (Upper 1)"},
    {"Combo3(9)", "MIDI Channels", "DRM (Drum)"},
    {"Combo3(10)", "MIDI Channels", "PER (Percussion)"},
    {"Combo3(11)", "MIDI Channels", "BAS (Bass)"},
    {"Combo3(12)", "MIDI Channels", "AC1 (Accomp. 1)"},
    {"Combo3(13)", "MIDI Channels", "AC2 (Accomp. 2)"},
    {"Combo3(14)", "MIDI Channels", "AC3 (Accomp. 3)"},
};

} // namespace

TEST_F(GblWindow, allControlsHaveNamesAndWords)
{
    open();
    std::set<std::string> names;
    for (const QWidget* widget : window->widget()->findChildren<QWidget*>()) {
        if (!isControl(widget) || widget->objectName().startsWith("qt_") || widget->inherits("QToolButton"))
            continue;
        expectNamed(widget, names);
        if (!qobject_cast<const QComboBox*>(widget) && !qobject_cast<const QSlider*>(widget))
            continue;
        bool spoken = !widget->accessibleName().isEmpty();
        for (const QLabel* text : window->findChildren<QLabel*>())
            spoken = spoken || (text->buddy() == widget && !text->text().isEmpty());
        EXPECT_TRUE(spoken) << widget->objectName().toStdString();
    }
    EXPECT_EQ(slider("VScroll2(13)")->accessibleName(), "User Scale 2, C#");
    const auto* pages = part<QTabWidget>("SSTab1");
    ASSERT_EQ(pages->count(), 4);
    EXPECT_EQ(pages->tabText(0), "General");
    EXPECT_EQ(pages->tabText(1), "User Scale 1, 2");
    EXPECT_EQ(pages->tabText(2), "User Scale 3, 4");
    EXPECT_EQ(pages->tabText(3), "Harmony, MIDI");
    for (const char* frame : {"Frame1", "Frame2", "Frame3", "Frame4", "Frame5(0)", "Frame5(3)", "Frame6", "Frame7"})
        EXPECT_NE(window->findChild<QGroupBox*>(frame), nullptr) << frame;
}

TEST_F(GblWindow, eachControlStandsInItsFrameBesideItsWords)
{
    open();
    for (const Row& row : Rows) {
        const auto* control = part<QWidget>(row.control);
        const auto* frame = qobject_cast<QGroupBox*>(control->parentWidget());
        ASSERT_NE(frame, nullptr) << row.control;
        EXPECT_EQ(frame->title(), row.frame) << row.control;
        QString words;
        if (const auto* button = qobject_cast<const QAbstractButton*>(control))
            words = button->text();
        for (const QLabel* text : frame->findChildren<QLabel*>())
            if (words.isEmpty() && text->buddy() == control)
                words = text->text();
        EXPECT_EQ(words, row.words) << row.control;
    }
    for (const int place : {4, 5, 14}) {
        const QComboBox* channel = combo("Combo3(" + std::to_string(place) + ")");
        ASSERT_EQ(channel->count(), 16);
        EXPECT_EQ(channel->itemText(0), " 1");
        EXPECT_EQ(channel->itemText(15), " 16");
    }
    EXPECT_EQ(part<QPushButton>("CommLoadGbl")->text(), "Load");
    EXPECT_EQ(part<QPushButton>("CommGlobal")->text(), "GLOBAL");
}

TEST_F(GblWindow, theFadersOfAScaleRiseFromItsNotes)
{
    constexpr const char* Notes[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    constexpr const char* Marks[] = {"50", "0", "-50"};
    open(std::string(415, '\x01'));
    for (const int page : {1, 2}) {
        part<QTabWidget>("SSTab1")->setCurrentIndex(page);
        QApplication::processEvents();
        for (int index = 24 * (page - 1); index < 24 * page; ++index) {
            const std::string number = "(" + std::to_string(index) + ")";
            const QSlider* fader = slider("VScroll2" + number);
            const auto* note = part<QLabel>("note" + number);
            EXPECT_EQ(note->text(), Notes[index % 12]);
            EXPECT_EQ(note->parentWidget(), fader->parentWidget());
            EXPECT_LT(std::abs(note->geometry().center().x() - fader->geometry().center().x()), 3) << index;
            EXPECT_GT(note->y(), fader->geometry().bottom());
            EXPECT_FALSE(fader->invertedAppearance()) << "50 stands at the top";
            EXPECT_EQ(label("Lab2" + number), "1");
        }
        for (int mark = 6 * (page - 1); mark < 6 * page; ++mark)
            EXPECT_EQ(label("mark(" + std::to_string(mark) + ")"), Marks[mark % 3]);
    }
}

TEST_F(GblWindow, allOfEachPageStandsInTheStandardSize)
{
    open();
    auto* pages = part<QTabWidget>("SSTab1");
    for (const char* frame : {"Frame1", "Frame5(0)", "Frame5(2)", "Frame6"}) {
        const auto* content = part<QGroupBox>(frame)->parentWidget();
        focus(part<QGroupBox>(frame));
        const QWidget* page = pages->currentWidget();
        EXPECT_LE(content->minimumSizeHint().width(), page->width()) << frame;
        EXPECT_LE(content->minimumSizeHint().height(), page->height()) << frame;
    }
}
