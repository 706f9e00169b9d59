// The version and the port in use are what a musician is asked for when something does not work.
#include "shell/frmAbout.h"

#include "core/Dichiarazioni.h"
#include "core/Strings.h"
#include "core/Words.h"
#include "shell/AboutTexts.h"
#include "shell/QtProgramIcon.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <map>

namespace
{

constexpr int TitleRow = 30;
constexpr TwipsSize DefaultSize{6300, 4500};
constexpr int IconSide = 64; ///< pixels

/// A label in lines as wide as it is. Layouts ask for the height of the same widths over and over, and each answer
/// breaks the text anew: it is kept.
class WrappedLabel final : public QLabel
{
public:
    using QLabel::QLabel;

    int heightForWidth(int width) const override
    {
        const auto known = heights_.find(width);
        return known != heights_.end() ? known->second
                                       : heights_.emplace(width, QLabel::heightForWidth(width)).first->second;
    }

protected:
    void changeEvent(QEvent* event) override
    {
        heights_.clear(); // another font, style or language
        QLabel::changeEvent(event);
    }

private:
    mutable std::map<int, int> heights_; ///< by width; pixels
};

} // namespace

frmAbout::frmAbout() : ChildWindow("frmAbout", &AppState::OtherCount)
{
    Tag = WindowBuffer::fresh(WindowKind::About, 0);
    const std::string title = ResText(TitleRow) + ApplicationName;
    setWindowTitle(QString::fromUtf8(title.c_str()));

    auto* content = new QWidget(this);
    auto* picture = new QLabel(content);
    picture->setObjectName(QStringLiteral("Picture1"));
    picture->setPixmap(programPixmap(IconSide, *this));
    picture->setAccessibleName(QString::fromLatin1(ApplicationName));
    lblTitle = addLabel("lblTitle", ApplicationName);
    QFont large = lblTitle->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    lblTitle->setFont(large);
    lblDescription = addLabel("lblDescription", ResText(Words::AboutDescription));
    lblVersion = addLabel("lblVersion", versionText() + "\n" + outputPortText());
    lblVersion->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    lblDisclaimer = addLabel("lblDisclaimer", ResText(Words::AboutDisclaimer));
    cmdOK = new QPushButton(QString::fromUtf8(ResText(Words::Ok).c_str()), content);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setAutoDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, [this] { unloadChild(); });

    auto* texts = new QVBoxLayout;
    texts->setSpacing(10);
    for (QLabel* label : {lblTitle, lblDescription, lblVersion, lblDisclaimer})
        texts->addWidget(label);
    texts->addStretch(1);
    texts->addWidget(cmdOK, 0, Qt::AlignRight);
    auto* row = new QHBoxLayout(content);
    row->setContentsMargins(20, 18, 20, 16);
    row->setSpacing(18);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    setContent(content);
    openAtRow(WindowKind::About, DefaultSize);
    cmdOK->setFocus();
}

QLabel* frmAbout::addLabel(const char* name, const std::string& text)
{
    auto* label = new WrappedLabel(QString::fromUtf8(text.c_str()), this);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

void frmAbout::unload()
{
    keepInRow(WindowKind::About);
    App.WinPos[WindowKind::About].Open = 0;
}
