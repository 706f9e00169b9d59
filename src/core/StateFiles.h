// The two small records beside the settings: Dornflex, by which the programs of the family share the MIDI ports, and
// TvlCMInfo, which remembers what the instrument was last sent.
#pragma once

#include "core/Bytes.h"

#include <string>
#include <string_view>

/// The shared device record, 145 bytes, one instance in memory.
namespace DeviceRecordLayout
{
inline constexpr int Length = 145;
inline constexpr Field Signature{0, 8};
inline constexpr int SharedOutHandleOffset = 10; ///< int32, low byte first
inline constexpr int UserCountOffset = 14;
inline constexpr Field OtherPrograms{15, 3};
inline constexpr int ThisProgramInOffset = 18;
inline constexpr int SharedInHandleOffset = 46; ///< int32, low byte first
} // namespace DeviceRecordLayout

struct DeviceRecord {
    ByteBuffer bytes; ///< Length bytes once initialised

    bool signatureGood() const;
    int UserCount() const;
    void setUserCount(int count);
    int ThisProgramIn() const;
    void setThisProgramIn(int value);
    int SharedOutHandle() const;
    void setSharedOutHandle(int handle);
    int SharedInHandle() const;
    void setSharedInHandle(int handle);
};

extern DeviceRecord Device;

std::string deviceRecordPath();
/// Sets the record in memory to its defaults, UserCount 0.
void DeviceRecordInit();
/// DeviceRecordInit, then writes the file. Errors are reported under row 111 + "Dornflex".
void DeviceRecordCreate();
/// Reads the record; a file that is absent or short reads as NUL bytes. 0, or a FileError.
[[nodiscard]] int DeviceRecordRead();
/// Writes the record as it is in memory, without waiting for the disk: it tells who runs now. 0, or a FileError.
[[nodiscard]] int DeviceRecordWrite();
[[nodiscard]] int DeviceRecordDelete();

std::string infoFilePath();
/// A file of 1000 bytes is fine; any other is deleted and a fresh one written, with InfoArr and InfoPrg emptied.
void InfoFileCheck();
/// Reads all three names into App, right-trimmed, and returns InfoSty. An empty file gives "" and is deleted.
std::string InfoRead();
/// Record what was just sent. `block` is the window buffer: its name is the 238-byte path field at offset 20, cut to 24
/// characters. The label of the status panel follows. 0, or 1 when the file is empty (it is deleted).
int InfoArrSet(std::string_view block);
int InfoStySet(std::string_view block);
/// `extension` is the current program extension, "prg" or "pgg".
int InfoPrgSet(std::string_view block, std::string_view extension);
/// The same for a program file read without a window: by its stem.
int InfoPrgSetStem(std::string_view stem, std::string_view extension);
