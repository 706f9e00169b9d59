// Each button stores its answer and closes the notice; Escape and the close box answer nothing.
#include "shell/frmAvviso1.h"

#include "core/Strings.h"
#include "core/Words.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

int AvvisoAnswer = 0;

frmAvviso1::frmAvviso1(QWidget* owner, const QString& caption, const QString& text) : QDialog(owner)
{
    setObjectName(QStringLiteral("frmAvviso1"));
    setWindowTitle(caption);
    Label1 = new QLabel(text, this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setTextFormat(Qt::PlainText);
    CommSI = addButton("CommSI", Words::Yes, 0);
    CommNO = addButton("CommNO", Words::No, 1);
    CommAnnulla = addButton("CommAnnulla", Words::Cancel, 2);
    CommSI->setDefault(true);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 16);
    column->setSpacing(16);
    column->addWidget(Label1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* button : {CommSI, CommNO, CommAnnulla})
        buttons->addWidget(button);
    column->addLayout(buttons);
}

QPushButton* frmAvviso1::addButton(const char* name, int captionId, int answer)
{
    auto* button = new QPushButton(QString::fromUtf8(ResText(captionId).c_str()), this);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, [this, answer] {
        AvvisoAnswer = answer;
        accept();
    });
    return button;
}
