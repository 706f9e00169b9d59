// A style window that an arrangement window opened shows that window's styles: what changes in the one is passed to the
// other.
#pragma once

#include <string_view>

class WindowBuffer;

/// The open window on a style file, or on an arrangement file, of this path without extension; null when there is none.
WindowBuffer* StyWindowOfFile(std::string_view path);
WindowBuffer* ArrWindowOfFile(std::string_view path);

/// The open style window that shows the styles of an arrangement window, with those styles put into its buffer; null
/// when there is none.
WindowBuffer* linkedStyleWindow(const WindowBuffer& arrangements);

/// The open arrangement window whose styles a style window shows, with the style window's styles put into its buffer;
/// null when there is none, or when its file is read only.
WindowBuffer* linkedArrangementWindow(const WindowBuffer& styles);
