// What a control's text wants to be seen whole.
#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>

#include <algorithm>
#include <set>

/// Without mnemonics and the blanks around it.
inline QString bare(QString text)
{
    text.replace(QLatin1String("&&"), QLatin1String("\1"));
    text.remove(QRegularExpression(QStringLiteral("&(?=\\S)(?!\\d$)")));
    return text.replace(QLatin1Char('\1'), QLatin1Char('&')).remove(QChar(0x200B)).remove(QChar(0)).trimmed();
}

inline int textWidth(const QWidget* one, const QString& text)
{
    int widest = 0;
    for (const QString& line : bare(text).split(QLatin1Char('\n')))
        widest = std::max(widest, one->fontMetrics().horizontalAdvance(line));
    return widest;
}

/// Texts that give way by design: the whole stands in a tool tip, or the window is drawn wider by its user.
inline bool givesWay(const QWidget* one)
{
    static const std::set<QString> names = {QStringLiteral("Label4")};
    return names.contains(one->objectName());
}

/// No size for a control without a text.
inline QSize wantedByText(const QWidget* one)
{
    if (const auto* label = dynamic_cast<const QLabel*>(one)) {
        if (label->text().isEmpty() || givesWay(one))
            return {};
        return label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
    }
    if (const auto* combo = dynamic_cast<const QComboBox*>(one)) {
        constexpr int Arrow = 22; // pixels of its button and frame
        int widest = 0;
        for (int row = 0; row < combo->count(); ++row)
            widest = std::max(widest, one->fontMetrics().horizontalAdvance(combo->itemText(row)));
        return {widest + Arrow, one->fontMetrics().height()};
    }
    if (const auto* box = dynamic_cast<const QCheckBox*>(one))
        return box->text().isEmpty() ? QSize() : box->sizeHint();
    if (const auto* option = dynamic_cast<const QRadioButton*>(one))
        return option->text().isEmpty() ? QSize() : option->sizeHint();
    if (const auto* button = dynamic_cast<const QPushButton*>(one))
        return button->text().isEmpty() ? QSize()
                                        : QSize(textWidth(one, button->text()) + 6, one->fontMetrics().height());
    if (const auto* group = dynamic_cast<const QGroupBox*>(one))
        return group->title().isEmpty() ? QSize() : QSize(textWidth(one, group->title()) + 12, 0);
    return {};
}
