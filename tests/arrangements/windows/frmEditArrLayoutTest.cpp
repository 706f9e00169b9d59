// What the eye and the keyboard find: nothing cut off at the stated size and at larger ones, in both languages; Tab and
// the page keys walk everything.
#include "EditorWindow.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionComboBox>

class EditorLayout : public Editor
{
protected:
    QTabWidget* pages() const { return part<QTabWidget>("SSTab1"); }
    QScrollArea* page(int index) const { return part<QScrollArea>(member("page", index)); }

    /// Pixels that a control's own text needs inside its frame.
    static int textWidth(const QWidget* control, const QString& text)
    {
        return control->fontMetrics().horizontalAdvance(text);
    }
    static int room(const QComboBox* box)
    {
        QStyleOptionComboBox option;
        option.initFrom(box);
        option.editable = box->isEditable();
        return box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box).width();
    }
    static void expectRows(const QComboBox* box)
    {
        EXPECT_GE(box->height(), box->fontMetrics().height() + 4);
        for (int row = 0; row < box->count(); ++row)
            EXPECT_GE(room(box), textWidth(box, box->itemText(row))) << box->itemText(row).toStdString();
    }
    static void expectText(const QWidget* control, const QString& text)
    {
        EXPECT_GE(control->width(), textWidth(control, text)) << text.toStdString();
        EXPECT_GE(control->height(), control->fontMetrics().height()) << text.toStdString();
    }
    static void expectWhole(const QWidget* control)
    {
        SCOPED_TRACE(control->objectName().toStdString());
        EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry())) << "outside its frame";
        if (const auto* box = qobject_cast<const QComboBox*>(control))
            expectRows(box);
        else if (const auto* text = qobject_cast<const QLabel*>(control))
            expectText(control, text->text());
        else if (const auto* button = qobject_cast<const QPushButton*>(control))
            expectText(control, button->text() + QStringLiteral("  "));
        else if (qobject_cast<const QCheckBox*>(control) || qobject_cast<const QSlider*>(control))
            EXPECT_TRUE(control->width() >= control->minimumSizeHint().width() &&
                        control->height() >= control->minimumSizeHint().height());
        else if (const auto* field = qobject_cast<const QLineEdit*>(control))
            expectText(control, field->text() + QStringLiteral("  "));
    }
    /// The controls of the frames; those inside a list are Qt's own.
    static std::vector<const QWidget*> controlsOf(const QWidget* page)
    {
        std::vector<const QWidget*> controls;
        for (const QWidget* control : page->findChildren<QWidget*>())
            if (!qobject_cast<const QComboBox*>(control->parentWidget()) && control->objectName().contains('(') &&
                control->isVisible())
                controls.push_back(control);
        return controls;
    }
    void expectPagesWhole()
    {
        std::size_t seen = 0;
        for (int index = 0; index < 2; ++index) {
            pages()->setCurrentIndex(index);
            QApplication::processEvents();
            EXPECT_EQ(page(index)->horizontalScrollBar()->maximum(), 0) << "nothing stands beside the page";
            const auto controls = controlsOf(page(index)->widget());
            for (const QWidget* control : controls)
                expectWhole(control);
            seen += controls.size();
        }
        // 20 fields, 21 bars, 66 lists, 10 marks, 20 buttons, 18 + 5 + 2 + 3 values, and the captions.
        EXPECT_GE(seen, 165u);
    }
    /// The longest of everything: sixteen wide letters, three-digit values, the widest labels.
    static Block wide()
    {
        Block block = usual();
        block.name("Waltz of Wismar").style(127, 0).set(21, 210).set(23, 94).set(135, 17).set(136, 47);
        for (std::size_t k = 0; k < 9; ++k)
            block.track(k, 63, 0).set(39 + 8 * k + 2, 127).set(39 + 8 * k + 3, k % 2 == 0 ? 0 : 15);
        return block;
    }
    /// Tab from a control until the first comes again.
    static QStringList walk(QWidget* first)
    {
        QStringList order;
        first->setFocus();
        for (int step = 0; step < 90; ++step) {
            QWidget* now = QApplication::focusWidget();
            if (!now || order.contains(now->objectName()))
                break;
            order << now->objectName();
            QTest::keyClick(now, Qt::Key_Tab);
        }
        return order;
    }
    static QStringList strip(int track)
    {
        const auto name = [](const char* array, int index) { return QString::fromStdString(member(array, index)); };
        return {name("Text1", 2 * track + 2),    name("Text1", 2 * track + 3),  name("VScroll1", 2 * track + 1),
                name("VScroll1", 2 * track + 2), name("CommM", track),          name("CommS", track),
                name("Combo2", 6 * track),       name("Combo2", 6 * track + 1), name("Combo2", 6 * track + 2),
                name("Combo2", 6 * track + 3),   name("Combo2", 6 * track + 5), name("Combo2", 6 * track + 4)};
    }
};

TEST_F(EditorLayout, cutsNothingOffAtTheStatedSizeAndAtLargerOnesInBothLanguages)
{
    area->resize(1900, 1300);
    for (const int language : {1, 2}) {
        run.speak(language);
        App.WinPos[13] = {};
        edit(wide());
        const QSize stated = editor->size();
        EXPECT_EQ(stated, QSize(615, 394));
        for (const QSize size : {stated, QSize(900, 620), QSize(1800, 1200)}) {
            SCOPED_TRACE(size.width());
            editor->resize(size);
            expectPagesWhole();
        }
        ASSERT_TRUE(closeEditor());
        ASSERT_TRUE(source->unloadChild());
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(EditorLayout, showsTheSecondPageWithoutScrollingAtTheStatedSize)
{
    edit(wide());
    pages()->setCurrentIndex(1);
    QApplication::processEvents();
    EXPECT_EQ(page(1)->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(page(1)->horizontalScrollBar()->maximum(), 0);
    editor->resize(800, 560);
    for (const int index : {0, 1}) {
        pages()->setCurrentIndex(index);
        QApplication::processEvents();
        EXPECT_EQ(page(index)->verticalScrollBar()->maximum(), 0) << "a little larger, the first one too";
    }
}

TEST_F(EditorLayout, theNineStripsLookAlike)
{
    area->resize(1900, 1300);
    edit(wide());
    editor->resize(1000, 700);
    const char* strips[] = {"Drum", "Percussion", "FrBass", "FrAcc1", "FrACC2", "FrACC3", "UPPER1", "UPPER2", "LOWER"};
    const auto placeIn = [this](const char* frame, const QString& control) {
        auto* found = part<QWidget>(control.toStdString());
        return found->mapTo(part<QGroupBox>(frame), QPoint(0, 0));
    };
    for (int track = 0; track < 9; ++track) {
        pages()->setCurrentIndex(track < 3 ? 0 : 1);
        QApplication::processEvents();
        const QStringList first = strip(track < 3 ? 0 : 3);
        const QStringList own = strip(track);
        for (qsizetype i = 0; i < own.size(); ++i) {
            const QPoint place = placeIn(strips[track], own[i]);
            const QPoint firsts = placeIn(strips[track < 3 ? 0 : 3], first[i]);
            EXPECT_LE((place - firsts).manhattanLength(), 2) << own[i].toStdString();
        }
    }
}

TEST_F(EditorLayout, scrollsWhatDoesNotFit)
{
    edit(wide());
    editor->resize(300, 200);
    for (int index = 0; index < 2; ++index) {
        pages()->setCurrentIndex(index);
        QApplication::processEvents();
        EXPECT_GT(page(index)->verticalScrollBar()->maximum(), 0);
        EXPECT_GT(page(index)->horizontalScrollBar()->maximum(), 0);
        for (const QWidget* control : controlsOf(page(index)->widget()))
            expectWhole(control);
    }
}

TEST_F(EditorLayout, tabWalksTheFirstPageFromTopToBottom)
{
    edit(usual());
    pages()->setCurrentIndex(0);
    const QStringList order = walk(field(0));
    const QStringList general = {"Text1(0)",    "Text1(1)",  "Combo1(0)",   "Combo1(1)",  "Combo1(4)",
                                 "Combo1(2)",   "Combo1(9)", "Combo1(6)",   "Combo1(3)",  "Combo1(7)",
                                 "HScroll1(0)", "Combo1(5)", "HScroll1(1)", "VScroll1(0)"};
    EXPECT_EQ(order.mid(0, general.size()), general);
    const QStringList right = {"Check1(0)",  "Check1(1)",   "Check1(4)",  "Check1(5)", "Check1(6)",
                               "Check1(2)",  "Check1(3)",   "Check1(7)",  "Check1(8)", "EffCombo(0)",
                               "EffComm(0)", "EffCombo(1)", "EffComm(1)", "Check1(9)", "Combo1(8)"};
    EXPECT_EQ(order.mid(general.size(), right.size()), right);
    EXPECT_EQ(order.mid(general.size() + right.size(), 36), strip(0) + strip(1) + strip(2));
    EXPECT_FALSE(order.contains("Text1(8)")) << "the other page is not walked";
}

TEST_F(EditorLayout, tabWalksTheSecondPageStripByStrip)
{
    edit(usual());
    pages()->setCurrentIndex(1);
    const QStringList order = walk(field(8));
    QStringList strips;
    for (int track = 3; track < 9; ++track)
        strips += strip(track);
    EXPECT_EQ(order.mid(0, strips.size()), strips);
    EXPECT_FALSE(order.contains("Text1(0)"));
}

TEST_F(EditorLayout, aControlThatTabReachesIsScrolledIntoView)
{
    edit(usual());
    auto* last = combo("Combo2", 16);
    const auto inView = [&] {
        const QWidget* view = page(0)->viewport();
        return view->rect().contains(QRect(last->mapTo(view, QPoint(0, 0)), last->size()));
    };
    ASSERT_FALSE(inView());
    combo("Combo2", 17)->setFocus();
    QTest::keyClick(combo("Combo2", 17), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), last);
    EXPECT_TRUE(inView());
}

TEST_F(EditorLayout, turnsItsPagesByKeys)
{
    edit(usual());
    area->setActiveSubWindow(editor);
    field(0)->setFocus();
    QTest::keyClick(field(0), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(pages()->currentIndex(), 1);
    QTest::keyClick(editor, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(pages()->currentIndex(), 0);
}
