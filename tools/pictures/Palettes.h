// The two palettes that every window is looked at in: the desktop's own light one and a dark one.
#pragma once

#include <QApplication>
#include <QPalette>
#include <QStyle>

inline QPalette lightPalette() { return QApplication::style()->standardPalette(); }

/// As the dark themes of the desktops have it; the accent is the same blue.
inline QPalette darkPalette()
{
    const QColor window(0x2A, 0x2E, 0x32);
    const QColor text(0xFC, 0xFC, 0xFC);
    const QColor faint(0x86, 0x8C, 0x92);
    QPalette palette(text, QColor(0x31, 0x36, 0x3B), QColor(0x5A, 0x60, 0x66), QColor(0x1A, 0x1D, 0x20),
                     QColor(0x3A, 0x40, 0x46), text, QColor(Qt::white), QColor(0x1B, 0x1E, 0x20), window);
    palette.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x29));
    palette.setColor(QPalette::ToolTipBase, QColor(0x31, 0x36, 0x3B));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, QColor(0xA1, 0xA9, 0xB1));
    palette.setColor(QPalette::Highlight, QColor(0x2D, 0x6F, 0xA3));
    palette.setColor(QPalette::HighlightedText, text);
    palette.setColor(QPalette::Link, QColor(0x6C, 0xB5, 0xF0));
    palette.setColor(QPalette::LinkVisited, QColor(0xC3, 0x9B, 0xE8));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x3A, 0x40, 0x46));
    return palette;
}
