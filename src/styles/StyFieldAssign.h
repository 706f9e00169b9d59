// A style clicked in a list becomes the style of the arrangement in the editor.
#pragma once

#include <string_view>

/// Hands the style of list row `row` of a style window (kinds 17, 18, 23, 24, by its buffer) to the editor when the
/// style field is highlighted there; else, and for a row without a style, nothing happens. Nothing is sent.
void StyFieldAssign(int row, std::string_view tag);
