// The list of the last eight files: how it grows, and how its entries read in the menu.
#pragma once

#include <string>

inline constexpr int RecentCount = 8;

/// Takes a file (full path with extension) into App.Recent. A file already on the list keeps its place; until the list
/// is full a new one goes last, from then on first, and the last drops out.
void RecentAdd(const std::string& path, bool readOnly);

/// The menu caption of entry 0 to 7: its mnemonic number and its path, shortened beyond 35 characters. UTF-8.
std::string RecentCaption(int index);

/// The full path of entry 0 to 7 with its extension; empty for a free entry.
std::string recentPath(int index);
