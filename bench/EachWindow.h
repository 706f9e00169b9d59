// Every window of the program, opened and closed by name: what the measurements of windows go through.
#pragma once

#include <functional>
#include <string>
#include <vector>

class QWidget;

struct OneWindow {
    std::string name; ///< the class's name, and what it stands on
    /// Called before each opening: what must be there for it.
    std::function<void()> ready;
    /// Opens it; it is painted by the next paintAll().
    std::function<void()> open;
    /// The open window, or nullptr.
    std::function<QWidget*()> find;
    bool ofToolkit = false; ///< the toolkit makes it: what it keeps is told, and judged in long runs only
};

/// All child windows, in the order of their kinds; and the windows that wait for an answer, which close by themselves
/// once they have been painted.
std::vector<OneWindow> childWindows();
std::vector<OneWindow> modalWindows();

/// The same until no stage of any window is due any more.
void settleStages();
/// Closes a window and lets its memory go. Nothing is asked.
void closeWindow(QWidget* window);

/// The bare window of the toolkit with as many controls of each sort as `model` has, and their texts and rows; shown
/// among the child windows.
QWidget* openBare(const QWidget& model);

/// Writes what the windows read besides the templates: the database of the sample folder.
void writeDatabase();
