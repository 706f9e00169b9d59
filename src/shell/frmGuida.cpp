// The guide is read whole before the window is made: a window without its text is never shown.
#include "shell/frmGuida.h"

#include "core/Dichiarazioni.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "core/Shell.h"
#include "core/Strings.h"
#include "toolkit/QtLooks.h"

#include <QPlainTextEdit>

namespace
{

constexpr int CaptionRow = 47;
constexpr int OpeningRow = 111;
constexpr int CodeFileNotFound = 27;
constexpr int Italian = 1;
constexpr std::int64_t LongestGuide = 4 * 1024 * 1024; ///< bytes
constexpr const char* MenuItem = "mnuGuida";

/// Eighty columns of the guide on a large-font screen; a screen with smaller pixels needs more twips for them.
constexpr TwipsSize LargeFontSize{8400, 7200};
constexpr int LargeFontTwips = 12;

TwipsSize defaultSize()
{
    TwipsSize size = LargeFontSize;
    if (App.ScreenTwipsX != LargeFontTwips)
        size.width = size.width * App.ScreenTwipsX / LargeFontTwips;
    return size;
}

} // namespace

frmGuida* frmGuida::open()
{
    const bool italian = App.Language == Italian;
    App.ErrTitle = ResText(OpeningRow) + (italian ? "GuidaUtente.txt" : "UserGuide.txt");
    FileContent guide;
    if (const int fileError = readFile(italian ? App.PathGuideIt : App.PathGuideEn, LongestGuide, guide)) {
        ReportError(reportCodeOf(fileError), App.ErrTitle, "");
        return nullptr;
    }
    if (guide.bytes.empty()) {
        ReportError(CodeFileNotFound, App.ErrTitle, "");
        return nullptr;
    }
    return new frmGuida(QString::fromUtf8(guide.bytes.data(), static_cast<int>(guide.bytes.size())));
}

frmGuida::frmGuida(const QString& text) : ChildWindow("frmGuida", &AppState::OtherCount)
{
    Tag = WindowBuffer::fresh(WindowKind::Guide, 0);
    setWindowTitle(QString::fromUtf8(ResText(CaptionRow).c_str()));
    Text1 = new QPlainTextEdit(text, this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(windowTitle());
    Text1->setReadOnly(true);
    Text1->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    Text1->setFont(Looks::fixedFont(this));
    Text1->setFrameShape(QFrame::NoFrame);
    Text1->setContextMenuPolicy(Qt::NoContextMenu);
    setWidget(Text1);
    openAtRow(WindowKind::Guide, defaultSize());
    if (App.shell)
        App.shell->enableMenuItem(MenuItem, false);
}

void frmGuida::unload()
{
    keepInRow(WindowKind::Guide);
    App.WinPos[WindowKind::Guide].Open = 0;
    if (App.shell)
        App.shell->enableMenuItem(MenuItem, true);
}
