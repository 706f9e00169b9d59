// Selecting a program on the instrument, and sending a whole program file.
#pragma once

#include "core/Bytes.h"

#include <string_view>

/// The words of the last program selection: they go out again where a window or row names none of its own.
struct ProgramSendState {
    int bank = 0;    ///< bank select LSB
    int program = 0; ///< program number, 0 to 127
};

extern ProgramSendState PrgSend;

/// The program number of each of the 16 drum kits, in list order; -1 outside.
int drumKitProgram(int listIndex);

/// Selects list row `index` of a program window (kinds 4 to 10, 21, 22) on the instrument; `tag` is its buffer. The
/// three messages are left in the SysEx output string for the caller to log.
// B0|c 00 00, B0|c 20 bb, C0|c pp
void ProgramSend(std::string_view tag, int index);

/// The body of a program dump before packing, 13112 bytes, from a program window's buffer (kind 21's layout). What a
/// short buffer lacks is zero.
ByteBuffer programDumpBody(std::string_view tag);

/// Sends a whole program file. `tag` is a program window's buffer, or 270 bytes of head followed by a program file;
/// its offset 18 tells the type: 1 has the reference records of a .pgg, which reach the instrument blank.
// F0 42 3g 4D 4C <packed> F7
void ProgramDumpSend(std::string_view tag);

/// Hands row `row` of a program window to the arrangement editor's highlighted field; nothing is sent.
void PrgFieldAssign(int row, std::string_view tag);
