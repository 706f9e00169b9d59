// The quiet look that all windows share: margins and gaps, the type of the lists, and colours that are drawn from the
// desktop's palette, so that a dark theme stays dark.
//
// Lengths are pixels at scale 1; the toolkit enlarges them with the screen.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

class QPushButton;
class QString;
class QStyleOptionViewItem;
class QTabWidget;
class QWidget;

namespace Looks
{

inline constexpr int Margin = 8;               ///< between a window's edge and its controls, and between its parts
inline constexpr int GroupGap = 10;            ///< between groups of buttons
inline constexpr int ButtonGap = GroupGap / 2; ///< between the buttons of a group
inline constexpr int ShownCharacters = 20;     ///< of a row of the instrument at the least: code, mark, name
inline constexpr qreal TextContrast = 4.5;     ///< of text to its ground, at the least
inline constexpr qreal DrawingContrast = 3.0;  ///< of a mark that is no text

/// The type of every list of the instrument's rows: Arial of 10 points, more where the desktop's own type is larger.
QFont listFont(const QWidget* window);
/// The type of texts whose letters stand in columns: the desktop's own for it, as large as the rest of the window at
/// least.
QFont fixedFont(const QWidget* window);

/// Contrast of two colours as the accessibility guidelines count it, 1 to 21.
qreal contrast(const QColor& one, const QColor& other);

/// The first colour on the way from one to another that has a contrast to a ground; the other where none has.
QColor onTheWay(const QColor& from, const QColor& to, const QColor& ground, qreal wanted);

/// The accent of the palette, lightened until it stands out from a dark ground.
QColor accentOn(const QPalette& palette, const QColor& ground);

/// The palette with an accent on which a selected row can be read; equal to `palette` where it can be already.
QPalette readable(QPalette palette);

/// Gives the program the desktop's own style, made readable: the palette that the desktop asks for, now and whenever it
/// asks for another, gets a readable accent; a dark theme gets outlines that can be seen, and the focus a ring. All
/// widgets go on sharing one palette: one set on the application by hand would be copied for each of them, and the
/// toolkit would keep the drawings of every copy.
void useReadableStyle();

/// The pages of a window with very many controls, SSTab1, in type a little smaller than the desktop's; `content`, their
/// parent, gets that type too.
QTabWidget* makePages(QWidget* content);

/// The colour of a list row's words: chosen or not, on or off, in the window that has the keys or behind it.
QColor wordsOf(const QStyleOptionViewItem& row);

/// A button with its object name.
QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption);

} // namespace Looks
