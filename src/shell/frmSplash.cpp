// Nothing waits for it: whoever shows it goes on at once.
#include "shell/frmSplash.h"

#include "core/Dichiarazioni.h"
#include "shell/AboutTexts.h"
#include "shell/QtProgramIcon.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace
{

constexpr int PictureSide = 64; ///< pixels

struct SplashLabel {
    const char* name;
    std::string text;
    double scale; ///< of the normal font
};

} // namespace

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen)
{
    setObjectName(QStringLiteral("frmSplash"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFocusPolicy(Qt::StrongFocus);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(48, 36, 48, 32);
    column->setSpacing(10);
    auto* picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("imgLogo"));
    picture->setPixmap(programPixmap(PictureSide, *this));
    column->addWidget(picture, 0, Qt::AlignHCenter);
    const SplashLabel labels[] = {{"lblProductName", ApplicationName, 2.0},
                                  {"lblPlatform", "Tarvolyne Console", 1.2},
                                  {"lblVersion", versionText(), 1.0}};
    for (const SplashLabel& row : labels) {
        auto* label = new QLabel(QString::fromUtf8(row.text.c_str()), this);
        label->setObjectName(QLatin1String(row.name));
        QFont font = label->font();
        font.setPointSizeF(font.pointSizeF() * row.scale);
        label->setFont(font);
        column->addWidget(label, 0, Qt::AlignHCenter);
    }
}

void frmSplash::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    close();
}

void frmSplash::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    close();
}
