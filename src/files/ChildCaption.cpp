// The caption of each kind of child window, made from its Tag alone.
#include "files/WindowBuffer.h"

#include "core/Dichiarazioni.h"
#include "core/Strings.h"

namespace
{

constexpr int NewArrangementRow = 80;
constexpr int UntitledRow = 81;
constexpr int NewProgramRow = 88;
constexpr int NewStyleRow = 121;
constexpr int ReadOnlyRow = 122;

constexpr Field BankName{WindowLayout::PathArea.offset, 5};
constexpr Field KitName{WindowLayout::PathArea.offset, 24};
constexpr int FileChannelOffset = WindowLayout::PrgFile.offset + PrgLayout::ChannelOffset;

std::string mark(const WindowBuffer& window) { return window.readOnly() ? ResText(ReadOnlyRow) : std::string(); }

std::string number(const WindowBuffer& window) { return " (" + std::to_string(window.number()) + ")"; }

// Required: the channel follows the word without a blank, as the captions always did.
std::string channel(const WindowBuffer& window, int offset)
{
    return " - MIDI Channel" + std::to_string(window.at(offset) + 1);
}

std::string programExtension(const WindowBuffer& window)
{
    return window.at(WindowLayout::PrgTypeOffset) == 1 ? ".pgg" : ".prg";
}

std::string fileCaption(const WindowBuffer& window, const char* family, const std::string& extension)
{
    return family + window.stem() + extension + number(window);
}

std::string untitledCaption(const WindowBuffer& window, int familyRow, const std::string& extension)
{
    return ResText(familyRow) + " - " + ResText(UntitledRow) + extension + number(window);
}

} // namespace

std::string ChildCaption(const WindowBuffer& window)
{
    switch (window.kind()) {
    case WindowKind::ArrBankA:
    case WindowKind::ArrBankB:
    case WindowKind::StyBankA:
    case WindowKind::StyBankB:
        return window.path() + mark(window);
    case WindowKind::PrgBankA:
    case WindowKind::PrgBankA + 1:
    case WindowKind::PrgBankA + 2:
    case WindowKind::PrgBankA + 3:
    case WindowKind::PrgBankE:
        return std::string(slice(window.bytes(), BankName)) + channel(window, WindowLayout::ChannelOffset);
    case WindowKind::DrumKits:
    case WindowKind::Percussion:
        return std::string(trimRight(slice(window.bytes(), KitName))) + channel(window, WindowLayout::ChannelOffset);
    case WindowKind::ArrFile:
        return fileCaption(window, "File Arr - ", ".arr") + mark(window);
    case WindowKind::ArrNew:
        return untitledCaption(window, NewArrangementRow, ".arr");
    case WindowKind::PrgFile:
        return fileCaption(window, "File Prg - ", programExtension(window)) + channel(window, FileChannelOffset) +
               mark(window);
    case WindowKind::PrgNew:
        // Required: the window of a new file keeps this caption when the file has been saved under a name.
        return untitledCaption(window, NewProgramRow, programExtension(window)) + channel(window, FileChannelOffset);
    case WindowKind::StyFile:
        return fileCaption(window, "File Sty - ", ".sty") + mark(window);
    case WindowKind::StyNew:
        return untitledCaption(window, NewStyleRow, ".sty");
    case WindowKind::GlobalFile:
        return fileCaption(window, "File Gbl - ", ".gbl") + mark(window);
    default:
        return {};
    }
}
