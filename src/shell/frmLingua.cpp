// Its words are not in the string table: they stand in both languages side by side.
#include "shell/frmLingua.h"

#include "core/Dichiarazioni.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

frmLingua::frmLingua()
{
    setObjectName(QStringLiteral("frmLingua"));
    setWindowTitle(QString::fromUtf8(ApplicationTitle));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(12);
    Label1 = new QLabel(QStringLiteral("Scegliere una lingua / Choose a language"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    column->addWidget(Label1);
    const QStringList captions{QStringLiteral("Italiano"), QStringLiteral("English")};
    Option1.create([&](int index) { return new QRadioButton(captions[index], this); });
    for (QRadioButton* option : Option1)
        column->addWidget(option);
    Option1.onEach(&QRadioButton::toggled, this, [this](int index, bool chosen) {
        if (chosen)
            Option1_Click(index);
    });
    CommOK = new QPushButton(QStringLiteral("&OK"), this);
    CommOK->setObjectName(QStringLiteral("CommOK"));
    CommOK->setDefault(true);
    column->addWidget(CommOK, 0, Qt::AlignRight);
    connect(CommOK, &QPushButton::clicked, this, [this] { CommOK_Click(); });
    Option1[0]->setFocus();
}

int frmLingua::choose()
{
    frmLingua window;
    return window.exec() == Accepted ? window.language_ : 0;
}

void frmLingua::Option1_Click(int index) { language_ = index + 1; }

void frmLingua::CommOK_Click()
{
    if (language_ != 0)
        accept();
}
