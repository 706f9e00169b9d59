// Messages are made here and sent elsewhere: the one frame and the one way of packing of all SysEx.
#pragma once

#include "core/Bytes.h"

#include <string_view>

/// The instrument's function codes. The program receives none.
enum class Function {
    ParameterChange = 0x41,
    ProgramDump = 0x4C,
    ModeChange = 0x4E,
    GlobalDump = 0x51,
    ArrangementDump = 0x64,
    StyleDump = 0x65
};

/// F0 42 3g 4D, g being the global channel of this moment.
ByteBuffer SysExHeader();

/// Packs 8-bit bytes for the wire: each run of up to 7 bytes is led by one that holds their top bits, bit 0 the first.
/// n bytes give n + ceil(n / 7), every one below 0x80.
ByteBuffer packedSevenBit(std::string_view source);

/// The same, left in the SysEx output string.
void SevenBitPack(std::string_view source);

/// The inverse, for the virtual instrument and the tests. A byte of 0x80 or above gives false, and so does a last byte
/// of top bits with no data behind it; `unpacked` is then left as it was.
[[nodiscard]] bool unpackSevenBit(std::string_view packed, ByteBuffer& unpacked);

// F0 42 3g 4D <function> <body> F7
ByteBuffer sysExFrame(Function function, std::string_view body);
