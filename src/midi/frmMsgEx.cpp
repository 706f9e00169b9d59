// A dump of 21666 bytes is one block of the text. It is laid out when it is appended, and nothing is kept to undo it.
#include "midi/frmMsgEx.h"

#include "core/Dichiarazioni.h"
#include "core/Shell.h"
#include "core/Strings.h"
#include "midi/MIDI.h"
#include "toolkit/QtLooks.h"

#include <QPlainTextEdit>
#include <QScrollBar>

namespace
{

constexpr int CaptionRow = 91;
constexpr TwipsSize LargestSize{5760, 8000};
constexpr const char* MenuItem = "mnuMsgEx";

/// Blocks that are kept, the newest: notes that are logged one by one would otherwise pile up without end.
constexpr int KeptBlocks = 4000;

} // namespace

frmMsgEx::frmMsgEx() : ChildWindow("frmMsgEx", &AppState::OtherCount)
{
    Tag = WindowBuffer::fresh(WindowKind::MessageMonitor, 0);
    setWindowTitle(QString::fromUtf8(ResText(CaptionRow).c_str()));
    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(windowTitle());
    Text1->setReadOnly(true);
    Text1->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    Text1->setUndoRedoEnabled(false);
    Text1->setMaximumBlockCount(KeptBlocks);
    Text1->setFont(Looks::fixedFont(this));
    Text1->setFrameShape(QFrame::NoFrame);
    Text1->setContextMenuPolicy(Qt::NoContextMenu);
    setWidget(Text1);
    openWithin(WindowKind::MessageMonitor, LargestSize);
    if (App.shell)
        App.shell->enableMenuItem(MenuItem, false);
    MsgLogAttach(this);
    Midi.MsgLogActive = true;
}

frmMsgEx::~frmMsgEx() { MsgLogAttach(nullptr); }

void frmMsgEx::unload()
{
    MsgLogAttach(nullptr);
    Midi.MsgLogActive = false;
    keepInRow(WindowKind::MessageMonitor);
    // Unlike the banks the monitor does not come back at the next start.
    App.WinPos[WindowKind::MessageMonitor].Open = 0;
    if (App.shell)
        App.shell->enableMenuItem(MenuItem, true);
}

void frmMsgEx::clear() { Text1->clear(); }

void frmMsgEx::append(const std::string& text)
{
    QTextCursor end(Text1->document());
    end.movePosition(QTextCursor::End);
    end.insertText(QString::fromLatin1(text.data(), static_cast<int>(text.size())));
    Text1->verticalScrollBar()->setValue(Text1->verticalScrollBar()->maximum());
}
