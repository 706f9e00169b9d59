// The link is a mark in the style window's session entry; the two windows find each other by their path.
#include "clipboard/LinkedStyles.h"

#include "core/Dichiarazioni.h"
#include "files/StyImage.h"
#include "files/WindowBuffer.h"

namespace
{

bool isLinked(const WindowBuffer& styles)
{
    const auto index = static_cast<std::size_t>(styles.number() - 1);
    return styles.kind() == WindowKind::StyFile && styles.number() > 0 && index < App.Styles.size() &&
           App.Styles[index].linked;
}

} // namespace

WindowBuffer* StyWindowOfFile(std::string_view path)
{
    return OpenWindows::findByPath(WindowKind::StyFile, WindowKind::StyFile, path);
}

WindowBuffer* ArrWindowOfFile(std::string_view path)
{
    return OpenWindows::findByPath(WindowKind::ArrFile, WindowKind::ArrFile, path);
}

WindowBuffer* linkedStyleWindow(const WindowBuffer& arrangements)
{
    if (arrangements.kind() != WindowKind::ArrFile)
        return nullptr;
    WindowBuffer* styles = StyWindowOfFile(arrangements.path());
    if (!styles || !isLinked(*styles))
        return nullptr;
    styles->setStyleArea(arrangements.styleArea());
    return styles;
}

WindowBuffer* linkedArrangementWindow(const WindowBuffer& styles)
{
    if (!isLinked(styles))
        return nullptr;
    WindowBuffer* arrangements = ArrWindowOfFile(styles.path());
    if (!arrangements || arrangements->readOnly())
        return nullptr;
    arrangements->setStyleArea(styles.styleArea());
    arrangements->set(WindowLayout::StyModifiedOffset, 1);
    // An area that was all empty slots is no file to be kept; with a style in it, it is.
    if (ArrHasUserStyle(arrangements->bytes()) == 1)
        arrangements->set(WindowLayout::StyStateOffset, WindowLayout::StyState::Real);
    return arrangements;
}
