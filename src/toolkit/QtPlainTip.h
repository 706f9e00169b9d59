// Words for tool tips. A tool tip takes what looks like markup for markup; a file's name may look like anything.
#pragma once

#include <QString>
#include <QTextDocument>

/// A text that a tool tip shows letter by letter.
inline QString plainTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}
