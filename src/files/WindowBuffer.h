// The Tag of a child window: the one lasting copy of its files and its state.
//
// Controls show it; they do not store it. Every window owns one WindowBuffer, and the registry below hands it out by
// kind and number, so that a routine that needs "that window's Tag" never meets the window.
#pragma once

#include "files/WindowLayout.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class WindowBuffer
{
public:
    WindowBuffer() = default;
    explicit WindowBuffer(ByteBuffer bytes) : bytes_(std::move(bytes)) {}

    const ByteBuffer& bytes() const { return bytes_; }
    ByteBuffer& bytes() { return bytes_; }

    int kind() const { return byteAt(bytes_, WindowLayout::KindOffset); }
    int number() const { return byteAt(bytes_, WindowLayout::WindowNumberOffset); }
    bool readOnly() const { return byteAt(bytes_, WindowLayout::ReadOnlyOffset) == 1; }
    bool untitled() const { return byteAt(bytes_, WindowLayout::UntitledOffset) == 1; }
    int at(int offset) const { return byteAt(bytes_, offset); }
    void set(int offset, int value) { putByte(bytes_, offset, value); }

    /// The path field, right-trimmed: full path without extension, or the caption text of an untitled window.
    std::string path() const { return std::string(trimRight(slice(bytes_, WindowLayout::Path))); }
    /// Blanks the whole path area and writes a path into its first 238 bytes.
    void setPath(std::string_view path);
    /// The file's stem: the path behind its last "/".
    std::string stem() const;

    /// The style area: everything behind the head and list rows that its kind has; empty without one.
    std::string_view styleArea() const;
    void setStyleArea(std::string_view image);

    /// A fresh buffer: a head of 20 zero bytes with kind and number in it, and a blank path area.
    static WindowBuffer fresh(int kind, int number);

private:
    ByteBuffer bytes_;
};

/// The buffers of the windows that are open now. Owned by nobody's window; a test empties it with clear().
namespace OpenWindows
{

void add(WindowBuffer* window);
void remove(WindowBuffer* window);
void clear();
const std::vector<WindowBuffer*>& all();

/// The window of a kind and number (for the kinds with a single window, number -1 matches any), or null.
WindowBuffer* find(int kind, int number);
/// The first window of one of two kinds whose path field equals `path` (without extension), or null.
WindowBuffer* findByPath(int kind, int otherKind, std::string_view path);

} // namespace OpenWindows

/// 1 if a window of the family is open on this path (without extension), by the first 8 session entries in use.
/// PrgWinFind too stops after 8 of the 16 program entries.
int ArrWinFind(std::string_view path);
int StyWinFind(std::string_view path);
int PrgWinFind(std::string_view path);
/// The same for global files, entries 1 to 8. A path with a three-letter extension is cut by four characters first,
/// and that change reaches the caller.
int GblWinFind(std::string& path);

/// The lowest free slot, from 1, of the 8 of a family; 0 when all are used.
int ArrSlotFree();
int StySlotFree();
int PrgSlotFree();
int GblSlotFree();
int ArrNewSlotFree();

/// The caption of a child window, from its Tag. UTF-8.
std::string ChildCaption(const WindowBuffer& window);
