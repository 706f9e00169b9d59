// The notice is modal: the reading that it speaks of goes on when it is closed.
#include "shell/frmAvviso2.h"

#include "core/Strings.h"

#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace
{
constexpr int CloseRow = 8;
}

frmAvviso2::frmAvviso2(QWidget* owner, const QString& caption, const QString& text) : QDialog(owner)
{
    setObjectName(QStringLiteral("frmAvviso2"));
    setWindowTitle(caption);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 16);
    column->setSpacing(16);
    Label1 = new QLabel(text, this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setTextFormat(Qt::PlainText);
    Label1->setMinimumWidth(Label1->fontMetrics().horizontalAdvance(QLatin1Char('n')) * 36);
    column->addWidget(Label1);
    CommClose = new QPushButton(QString::fromUtf8(ResText(CloseRow).c_str()), this);
    CommClose->setObjectName(QStringLiteral("CommClose"));
    CommClose->setDefault(true);
    column->addWidget(CommClose, 0, Qt::AlignRight);
    connect(CommClose, &QPushButton::clicked, this, [this] { accept(); });
}

void frmAvviso2::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (const QWidget* owner = parentWidget())
        setGeometry(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, size(), owner->window()->geometry()));
}
