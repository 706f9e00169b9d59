// What a row of a program window stands for: a bank, a number in it, and the words that a track shows for it.
#pragma once

#include "core/Bytes.h"

#include <optional>
#include <string_view>

/// The bank values of a program, on the wire and in a track's record alike.
namespace ProgramBank
{
inline constexpr int AB = 0;
inline constexpr int CD = 1;
inline constexpr int E = 2;
inline constexpr int User = 3;
inline constexpr int Drum = 4;
} // namespace ProgramBank

inline constexpr int ProgramRows = 64;

/// One of the five factory program windows.
struct FactoryBank {
    int kind = 0;
    int block = 0;       ///< of the name tables, 0 to 4
    int bank = 0;        ///< bank value
    int firstNumber = 0; ///< program number of its first row
};

/// The factory bank of a window kind 4 to 8.
std::optional<FactoryBank> factoryBankOf(int windowKind);

/// Record `row` (0 to 63) of a program window's file; shorter or empty where the buffer ends.
std::string_view programRecord(std::string_view tag, int row);

/// True when a record only refers to a factory program.
bool isReference(std::string_view record);

/// The MIDI channel, 0 to 15, that a program window plays on: a user file keeps it in itself, a bank in its head.
int programChannel(std::string_view tag);
/// Stores it there; nothing is sent, and a file does not count as modified by it.
void setProgramChannel(ByteBuffer& tag, int channel);

constexpr bool isProgramRow(int row) { return row >= 0 && row < ProgramRows; }
