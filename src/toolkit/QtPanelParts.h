// The controls that the windows on the instrument's parameters are made of: lists, faders with their maximum at the
// top, pages, buttons and fields in the stated colours.
#pragma once

#include <QCompleter>
#include <QHash>
#include <QStringList>
#include <functional>
#include <span>
#include <string_view>

class QColor;
class QComboBox;
class QEvent;
class QFontMetrics;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class QTabWidget;
class QWidget;

/// The rows of a list from position 0: words of the instrument, Latin-1.
using ChoiceList = std::span<const std::string_view>;

QString fromPanel(std::string_view text); ///< words and names of the instrument: Latin-1

/// The rows of the lists as the combos want them, converted and measured once for all that show them.
class ChoiceRows
{
public:
    struct Rows {
        QStringList texts;
        QString widest;
    };
    const Rows& of(ChoiceList list, const QFontMetrics& metrics);
    QCompleter completer; ///< a stand-in that no combo keeps

private:
    QHash<const void*, Rows> rows_;
};

/// A list to choose from. Typed text that equals a row, upper and lower case alike, becomes the row; what is left of
/// other text when the typing ends gives way to the row that counts.
QComboBox* makeTypedChoice(QWidget* parent, ChoiceRows& rows, ChoiceList list);
/// A list without typing.
QComboBox* makeChoice(QWidget* parent, ChoiceRows& rows, ChoiceList list);
/// A new page of a tab control, to be filled; what does not fit into the window is scrolled. A page stands in its place
/// before its controls are made: a list that changes its font afterwards is costly.
QWidget* addPanelPage(QTabWidget* pages, const QString& caption);
/// Ctrl with Page Down and Page Up turns the pages, round and round.
void turnPagesByKeys(QWidget* window, QTabWidget* pages);

/// Lets the lists, fields and buttons of a finished page shrink to the height of their text, so that much fits into a
/// small window.
void letShrink(QWidget* content);
/// Shows a position; one outside the list shows none.
void showPosition(QComboBox* combo, int position);

/// A vertical fader, its maximum at the top, or a horizontal one. `largeStep` is that of the page keys.
QSlider* makeFader(QWidget* parent, Qt::Orientation orientation, int low, int high, int largeStep);

/// A label for the value of an upright fader, as wide as its widest text and centred over or under it.
QLabel* makeValueText(QWidget* parent, const char* widest);
/// The same at the end of a lying fader: right-aligned, so that the figures stand in a column.
QLabel* makeValueBeside(QWidget* parent, const char* widest);

QLineEdit* makeShownText(QWidget* parent, const char* accessibleName, const QString& hint = {});

/// Runs the handler for a click with the left button, and for Return; on a field without typing also for the blank.
void onFieldClick(QLineEdit* field, std::function<void()> handler);
/// Runs the handler for each press of a mouse button on the widget itself.
void onMousePress(QWidget* widget, std::function<void()> handler);

/// Colours stand as blue-green-red numbers: 255 is red.
QColor colourOf(int blueGreenRed);

/// A button whose face is a colour; `letter` stands on it.
QPushButton* makeColourButton(QWidget* parent, const char* letter);
/// Gives such a button its colour, with black words on it whatever the theme.
void showButtonColour(QPushButton* button, int blueGreenRed);
