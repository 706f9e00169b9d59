// What the logic may ask of the user, and show.
//
// The logic holds no window. Whatever it must say goes through this one interface: the program's body of it shows
// message boxes and the status panel, the tests' body answers from a script and keeps what was said.
#pragma once

#include <functional>
#include <string>

/// Answers of the question boxes, by the numbers that the calling rules use.
namespace Answer
{
inline constexpr int Cancel = 2;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
} // namespace Answer

/// How a box with a single OK button was left.
enum class BoxEnd { Ok, Dismissed };

/// What the open dialog is asked for. Paths are bytes of the file system.
struct OpenDialogRequest {
    std::string title;     ///< UTF-8
    std::string folder;    ///< where the dialog starts; empty for its own choice
    int filterIndex = 1;   ///< 1-based, into `filters`
    std::string filters;   ///< "text|pattern|text|pattern|", UTF-8
    bool readOnly = false; ///< the read-only box's first state
};

struct OpenDialogAnswer {
    bool accepted = false;
    std::string path;    ///< full path with extension; may be empty though accepted
    int filterIndex = 1; ///< the filter that the user ended on
    bool readOnly = false;
};

/// What the save dialog is asked for. It warns before overwriting, has no read-only box, and takes no path whose folder
/// is missing. Paths are bytes of the file system.
struct SaveDialogRequest {
    std::string title;            ///< UTF-8
    std::string folder;           ///< where the dialog starts; empty for its own choice
    std::string fileName;         ///< the name offered, with its extension; a full path begins in its folder
    std::string defaultExtension; ///< without point: what a name typed without an extension gets
    int filterIndex = 1;          ///< 1-based, into `filters`
    std::string filters;          ///< "text|pattern|text|pattern|", UTF-8
    /// The file that a chosen path stands for under a filter, 1-based: what overwriting is asked about. Empty for
    /// none. Without this the path itself.
    std::function<std::string(const std::string& path, int filterIndex)> nameOf = {};
};

struct SaveDialogAnswer {
    bool accepted = false;
    std::string path;    ///< full path as it was confirmed, by nameOf; may be empty though accepted
    int filterIndex = 1; ///< the filter that the user ended on
};

/// The three labels of the status panel that tell what the instrument was last sent.
enum class StatusLabel { Arr, Sty, Prg };

class UserInterface
{
public:
    virtual ~UserInterface() = default;

    /// A message box with the warning icon and an OK button. Texts are UTF-8.
    virtual BoxEnd warn(const std::string& title, const std::string& text) = 0;
    /// A yes/no box with the warning icon: Answer::Yes or Answer::No.
    virtual int askYesNo(const std::string& title, const std::string& text) = 0;
    /// A yes/no/cancel box with the warning icon.
    virtual int askYesNoCancel(const std::string& title, const std::string& text) = 0;
    /// The notice window frmAvviso2, modal: a line of text, and the name of the refused file in its caption.
    virtual void showNotice(const std::string& caption, const std::string& text) = 0;
    /// The language window of the first run. Returns 1 or 2, or 0 when it was closed without a choice.
    virtual int chooseLanguage() = 0;
    virtual OpenDialogAnswer openFile(const OpenDialogRequest& request) = 0;
    virtual SaveDialogAnswer saveFile(const SaveDialogRequest& request) = 0;
    /// Asks whether the file of this full path, which exists, is to be replaced.
    virtual bool confirmOverwrite(const std::string& path) = 0;

    /// The progress line of the status panel, with the hourglass pointer; an empty text clears both.
    virtual void showProgressLine(const std::string& text) = 0;
    /// LabelMode of the status panel.
    virtual void showDeviceMode(const std::string& text) = 0;
    /// LabelArr, LabelSty, LabelPrg. The text is bytes of the file system.
    virtual void showStatusLabel(StatusLabel label, const std::string& text) = 0;
    /// A long message is going out: bytes gone of all bytes. The body paints, and draws a bar when it takes long.
    /// gone == total ends it.
    virtual void showSendProgress(int gone, int total) = 0;
    /// Twips per pixel of the screen, horizontal and vertical.
    virtual void screenTwips(int& x, int& y) = 0;
};

/// The body in use: App.ui, or while none is set one that shows nothing, answers No and cancels.
UserInterface& theUser();
