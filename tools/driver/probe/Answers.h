// What the probe answers: where the controls of the running program stand on the screen and what they show.
//
// The probe only looks. Every press of a key or a button comes from outside, through the window system.
#pragma once

#include <QByteArray>
#include <QStringList>

/// Answers one request: its words, the first one the question. Each line of the answer is a text without line breaks;
/// a first line that begins with "? " tells what is wrong with the request.
///
///   windows                      one line for each visible window: name, class, title, x, y, width, height
///   find WINDOW CONTROL          the control as "key=value" lines; the window itself when CONTROL is empty
///   rows WINDOW CONTROL          the rows of a list or combo box, one a line
///   row WINDOW CONTROL N         where row N (from 0) of a list stands: x y width height; nothing when scrolled away
///   action NAME                  a menu item as "key=value" lines
///   menustep NAME                what to click next on the way to a menu item: "item x y" or "open x y"
///   shot FILE [x y w h]          a picture of the screen, or of a part of it, into a PNG file
///
/// WINDOW is an object name or a class, with "#2" behind it for the second one of the name, or "*" for any.
/// CONTROL is an object name, or "text:Caption" for a button by its caption, or "class:QLineEdit" for the first visible
/// one of a class.
QStringList answer(const QStringList& words);
