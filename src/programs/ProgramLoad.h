// Loading a whole program file into the instrument.
#pragma once

#include <string_view>

/// Sends the file of a program window's buffer and notes its name as what the instrument now holds. The instrument is
/// walked through SONG PLAY into ARR PLAY first, in which it takes the dump, and led back to SONG PLAY if it was there.
// ... 4E 06 F7, ... 4E 0A F7, F0 42 3g 4D 4C <packed> F7
void ProgramFileLoad(std::string_view tag);
