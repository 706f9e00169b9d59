// Readers of the four kinds of user files.
//
// Each fills its shared hand-over buffer, which the window that asked for it copies at once; nothing stays open. An
// absent file leaves nothing behind. A file error is reported and can end the read with result 1 (aborted).
#pragma once

#include "core/Bytes.h"
#include "files/StyImage.h"

#include <string>

struct FilesState {
    ByteBuffer ArrBuffer; ///< 10528 bytes: the arrangement file last read
    ByteBuffer PrgBuffer; ///< 30480 bytes: the program file last read
    ByteBuffer StyBuffer; ///< the style file last read, of its own length
    /// 4928 bytes of TvlSty with the four names overwritten; the built-in template until TvlSty has been read.
    ByteBuffer StyEmptyBuffer = builtInStyTemplate();
    ByteBuffer GblBuffer; ///< 448 bytes: the global file last read

    // Folder and name (without extension) of the file in each buffer: what the opened window's path is made of.
    std::string ArrFolder, ArrName;
    std::string StyFolder, StyName;
    std::string PrgFolder, PrgName, PrgExtension; ///< extension "prg" or "pgg"
    std::string GblFolder, GblName;

    bool OpenReadOnly = false; ///< the read-only choice of the file last opened
};

extern FilesState Files;

namespace ReadResult
{
inline constexpr int Read = 0;
inline constexpr int Aborted = 1; ///< a file error was reported (styles: also the refused header)
inline constexpr int Refused = 2; ///< wrong length or header, reported (styles: empty or absent)
inline constexpr int Absent = 3;  ///< absent or empty; nothing reported
} // namespace ReadResult

/// path with extension (the banks have none). 0 in ArrBuffer; 1 aborted; 2 refused (code 4 reported); 3 absent.
[[nodiscard]] int ArrFileRead(const std::string& path);
/// 0 read; 1 refused (frmAvviso2 shown) or aborted; 2 absent or empty. A path ending in "TvlSty" is the template.
[[nodiscard]] int StyFileRead(const std::string& path);
/// 0 read; 1 aborted; 2 refused (code 32 reported); 3 absent.
[[nodiscard]] int PrgFileRead(const std::string& path);
/// path with or without extension. 0 read as "KORG"; 4 read as "KPGG"; 2 refused; 3 absent; 1 aborted.
[[nodiscard]] int PrgFileFind(const std::string& path);
/// 0 read; 1 aborted; 2 refused (code 4 reported); 3 absent.
[[nodiscard]] int GblFileRead(const std::string& path);
