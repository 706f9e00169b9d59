// The window buffer's head, path and style area, and the list of the buffers that are open.
#include "files/WindowBuffer.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "files/StyImage.h"

#include <algorithm>

namespace
{

bool holdsStyles(int kind)
{
    return kind == WindowKind::ArrFile || kind == WindowKind::ArrNew || kind == WindowKind::StyFile ||
           kind == WindowKind::StyNew;
}

std::vector<WindowBuffer*> openBuffers;

template <typename Matches>
WindowBuffer* findIf(Matches&& matches)
{
    const auto found = std::find_if(openBuffers.begin(), openBuffers.end(), matches);
    return found == openBuffers.end() ? nullptr : *found;
}

} // namespace

void WindowBuffer::setPath(std::string_view path)
{
    putText(bytes_, WindowLayout::PathArea, {});
    putText(bytes_, WindowLayout::Path, path);
}

std::string WindowBuffer::stem() const { return FileStemOf(path()); }

std::string_view WindowBuffer::styleArea() const
{
    return holdsStyles(kind()) ? sliceFrom(bytes_, styleFileOffset(bytes_)) : std::string_view{};
}

void WindowBuffer::setStyleArea(std::string_view image)
{
    if (!holdsStyles(kind()))
        return;
    const ByteBuffer area(image); // may be a view into this very buffer
    bytes_.resize(static_cast<std::size_t>(styleFileOffset(bytes_)), ' ');
    bytes_ += area;
}

WindowBuffer WindowBuffer::fresh(int kind, int number)
{
    WindowBuffer window{filled(WindowLayout::HeadSize, 0) + filled(WindowLayout::PathArea.size, ' ')};
    window.set(WindowLayout::KindOffset, kind);
    window.set(WindowLayout::WindowNumberOffset, number);
    return window;
}

namespace OpenWindows
{

void add(WindowBuffer* window)
{
    if (window != nullptr && std::find(openBuffers.begin(), openBuffers.end(), window) == openBuffers.end())
        openBuffers.push_back(window);
}

void remove(WindowBuffer* window) { std::erase(openBuffers, window); }

void clear() { openBuffers.clear(); }

const std::vector<WindowBuffer*>& all() { return openBuffers; }

WindowBuffer* find(int kind, int number)
{
    return findIf([&](const WindowBuffer* window) {
        return window->kind() == kind && (number == -1 || window->number() == number);
    });
}

WindowBuffer* findByPath(int kind, int otherKind, std::string_view path)
{
    const std::string_view wanted = trimRight(path);
    return findIf([&](const WindowBuffer* window) {
        return (window->kind() == kind || window->kind() == otherKind) && sameFileName(window->path(), wanted);
    });
}

} // namespace OpenWindows
