// The user's guide in a window: a text file beside the program, in the language in use.
#pragma once

#include "toolkit/ChildWindow.h"

class QPlainTextEdit;

class frmGuida final : public ChildWindow
{
public:
    /// Reads the guide of App.Language and opens the window. Null when it cannot be read, which the user was told.
    static frmGuida* open();

    void unload() override;

private:
    explicit frmGuida(const QString& text);

    QPlainTextEdit* Text1 = nullptr;
};
