// The panel's labels in their order, from left to right; each begins where the one before ends.
#include "shell/StatusPanelWidget.h"

#include "shell/AboutTexts.h"

#include "core/Strings.h"
#include "core/Words.h"
#include "midi/MIDI.h"
#include "toolkit/QtPlainTip.h"
#include "toolkit/QtSpoken.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QStyle>
#include <QToolTip>

namespace
{

constexpr int NoHint = 0;

QString words(int id) { return QString::fromUtf8(ResText(id).c_str()); }

/// Gives way in a narrow window: its text ends in an ellipsis then, and the whole of it stands in the tool tip.
class YieldingLabel final : public QLabel
{
public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override
    {
        constexpr int FewCharacters = 4;
        const int least = fontMetrics().horizontalAdvance(QLatin1Char('n')) * FewCharacters;
        return QSize(least, QLabel::minimumSizeHint().height()).boundedTo(sizeHint());
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        if (!isCut()) {
            QLabel::paintEvent(event);
            return;
        }
        QPainter painter(this);
        drawFrame(&painter);
        style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                              fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()),
                              foregroundRole());
    }

    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip || !isCut())
            return QLabel::event(event);
        const QString whole = toolTip().isEmpty() ? text() : toolTip() + QLatin1String(": ") + text();
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainTip(whole), this);
        return true;
    }

private:
    bool isCut() const { return fontMetrics().horizontalAdvance(text()) > contentsRect().width(); }
};

QString outputHint() { return QString::fromUtf8(outputPortText().c_str()); }

} // namespace

StatusPanelWidget::StatusPanelWidget(QWidget* parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("Picture1"));
    setAccessibleName(words(Words::StatusPanel));
    speakAs(this, {QAccessible::StatusBar, {}, {}, {}, {}});
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 3, 8, 3);
    row->setSpacing(8);

    LabelNomeAppl = addLabel("LabelNomeAppl", NoHint);
    LabelNomeAppl->setText(QStringLiteral("Tarvolyne Console"));
    LabelNomeAppl->setFont(QFont(QStringLiteral("Arial"), LabelNomeAppl->font().pointSize(), QFont::Bold));
    LabelMode = addLabel("LabelMode", Words::ModeHint);
    Label1 = addLabel("Label1", NoHint);
    row->setStretchFactor(Label1, 1);

    SendBar = new QProgressBar(this);
    SendBar->setObjectName(QStringLiteral("SendBar"));
    SendBar->setAccessibleName(words(Words::TransferInProgress));
    SendBar->setToolTip(words(Words::TransferInProgress));
    SendBar->setTextVisible(false);
    SendBar->setFixedWidth(SendBar->fontMetrics().horizontalAdvance(QLatin1Char('n')) * 18);
    SendBar->setMaximumHeight(SendBar->fontMetrics().height());
    SendBar->hide();
    row->addWidget(SendBar);

    LabelArr = addLabel("LabelArr", Words::LastArrHint);
    LabelSty = addLabel("LabelSty", Words::LastStyHint);
    LabelPrg = addLabel("LabelPrg", Words::LastPrgHint);
}

QLabel* StatusPanelWidget::addLabel(const char* name, int hint)
{
    auto* label = new YieldingLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    if (hint != NoHint) {
        label->setToolTip(words(hint));
        label->setAccessibleDescription(words(hint));
        label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        label->setContentsMargins(4, 0, 4, 0);
        label->setVisible(false); // an empty box would only look like a fault
    }
    layout()->addWidget(label);
    return label;
}

void StatusPanelWidget::showLine(const QString& text)
{
    Label1->setText(text);
    // The send that follows blocks: the line must be on the screen before it.
    if (isVisible())
        repaint();
}

void StatusPanelWidget::showMode(const QString& text)
{
    LabelMode->setText(text);
    LabelMode->setVisible(!text.isEmpty());
}

void StatusPanelWidget::showLabel(StatusLabel label, const QString& text)
{
    QLabel* target = label == StatusLabel::Arr ? LabelArr : label == StatusLabel::Sty ? LabelSty : LabelPrg;
    target->setText(text);
    target->setVisible(!text.isEmpty());
}

void StatusPanelWidget::showSendBar(int gone, int total, int secondsLeft)
{
    SendBar->setVisible(total > 0);
    if (total <= 0)
        return;
    SendBar->setMaximum(total);
    SendBar->setValue(gone);
    SendBar->setTextVisible(secondsLeft > 0);
    SendBar->setFormat(
        QString::fromUtf8(withArgument(ResText(Words::SecondsLeft), std::to_string(secondsLeft)).c_str()));
}

bool StatusPanelWidget::event(QEvent* event)
{
    // Asked for anew each time: a patch bay may have wired the port elsewhere.
    if (event->type() == QEvent::ToolTip)
        setToolTip(outputHint());
    return QFrame::event(event);
}
