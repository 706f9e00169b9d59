// The least that a child window of ours can be: a list of 64 rows and 20 buttons of the bare toolkit.
#pragma once

#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>

inline QWidget* bareChildContent()
{
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    auto* list = new QListWidget;
    for (int row = 0; row < 64; ++row)
        list->addItem(QStringLiteral("%1 arrangement").arg(row));
    grid->addWidget(list, 0, 0, 20, 1);
    for (int button = 0; button < 20; ++button)
        grid->addWidget(new QPushButton(QStringLiteral("Button %1").arg(button)), button, 1);
    return content;
}
