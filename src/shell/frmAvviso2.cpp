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
constexpr int LineCharacters = 36; ///< of the label, in the width of an "n"

/// The text with places to break in its long words: the names of files have no blanks as a rule.
QString breakable(const QString& text)
{
    constexpr QChar BreakHere(0x200B); // takes no room
    QString broken;
    int run = 0;
    for (const QChar character : text) {
        if (run == LineCharacters) {
            broken += BreakHere;
            run = 0;
        }
        broken += character;
        run = character.isSpace() ? 0 : run + 1;
    }
    return broken;
}

} // namespace

frmAvviso2::frmAvviso2(QWidget* owner, const QString& caption, const QString& text) : QDialog(owner)
{
    setObjectName(QStringLiteral("frmAvviso2"));
    setWindowTitle(caption);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 16);
    column->setSpacing(16);
    Label1 = new QLabel(breakable(text), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setTextFormat(Qt::PlainText);
    Label1->setWordWrap(true);
    Label1->setMinimumWidth(Label1->fontMetrics().horizontalAdvance(QLatin1Char('n')) * LineCharacters);
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
