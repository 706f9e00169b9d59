// What an arrangement window sends: the dump of its 64 arrangements, and the selection of one of them. And what decides
// whether a load can be skipped: the names of what the instrument was last sent.
#pragma once

#include "core/Bytes.h"

#include <string_view>

class WindowBuffer;

/// Sends the 64 records of a window's image.
// F0 42 3g 4D 64 <packed> F7
void ArrBlockSend(std::string_view image);

/// Selects arrangement `number` (0 to 63) of a window kind on the instrument: the banks A and B (2, 3), or the user
/// arrangements it holds (19, 20). Returns the eight bytes for the log line.
// B0|g 00 00, B0|g 20 bb, C0|g nn
ByteBuffer ArrSelect(int number, int kind);

/// True when the instrument was last sent another file than this stem. Both names are compared as TvlCMInfo keeps them.
bool differsFromSent(std::string_view stem, std::string_view info);

/// A program file as a program window's image: blanks stand in for the head, but for the type byte of a .pgg, whose
/// references must reach the instrument blank.
ByteBuffer programFileImage(std::string_view file, std::string_view extension);
