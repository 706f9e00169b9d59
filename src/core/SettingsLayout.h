// Tarvolyne.ini: 46 records of 250 bytes. Offsets are 0-based within a record; record numbers count from 1.
#pragma once

#include "core/Bytes.h"
#include "core/PathNames.h"
#include "core/Settings.h"

#include <string_view>

namespace SettingsLayout
{

using namespace std::string_view_literals;
inline constexpr std::string_view Signature = "Tarvolyne\0"sv;

// Record 1: the settings.
inline constexpr Field SignatureField{0, 10};
inline constexpr int ReadOnlyOpenOffset = 16;
inline constexpr int SettingSpare1Offset = 17;
inline constexpr int SettingSpare2Offset = 18;
inline constexpr int AutoStyNewArrOffset = 19;
inline constexpr int AutoStyOffset = 20;
inline constexpr int StyleOptionOffset = 21;
inline constexpr int AutoPrgOffset = 22;
inline constexpr int LanguageOffset = 24;
inline constexpr int AutoDBArrOffset = 25;
inline constexpr int StatusBarOffset = 26;
inline constexpr int AutoArrOffset = 27;
inline constexpr Field KeyboardState{29, 16};
inline constexpr int ThruOnOffset = end(KeyboardState);
inline constexpr int DeviceModeOffset = 46;
inline constexpr int GlobalValidOffset = 48;
inline constexpr int WinPosRows = 18; ///< rows of WinPos that are kept
inline constexpr int WinPosRowSize = 9;
inline constexpr Field WinPos{50, WinPosRows* WinPosRowSize};
inline constexpr int GlobalChannelOffset = 213;
inline constexpr Field TrackChannels{214, 10};

// A row of WinPos, from its own start.
inline constexpr int RowLeftOffset = 0;
inline constexpr int RowTopOffset = 2;
inline constexpr int RowWidthOffset = 4;
inline constexpr int RowHeightOffset = 6;
inline constexpr int RowFlagsOffset = 8;

// A session entry: a program, arrangement or recent file.
inline constexpr Field EntryPath{0, PathFieldWidth};
inline constexpr int EntryWidthOffset = end(EntryPath);
inline constexpr int EntryOpenOffset = 240;
inline constexpr int EntryKindOffset = 241;
inline constexpr int EntryLeftOffset = 242;
inline constexpr int EntryTopOffset = 244;
inline constexpr int EntryReadOnlyOffset = 246;
inline constexpr int EntryTypeOffset = 247;
inline constexpr int EntryHeightOffset = 248;

// The records.
inline constexpr int LastDirFilesRecord = 2;
inline constexpr int LastDirPrgRecord = 3;
inline constexpr int FirstProgramRecord = 5;
inline constexpr int FirstArrangementRecord = 21;
inline constexpr int GlobalRecord = 37; ///< and the record behind it
inline constexpr int FirstBlankRecord = 38;
inline constexpr int FirstRecentRecord = 39;
inline constexpr int GlobalSize = 448;

/// Places are kept with this bias, so that no byte pair is negative; it is also their limit on both sides.
inline constexpr int PlaceBias = 16000;
inline constexpr int MostTwips = 32767;

/// 0-based offset in the file of a record, by its number from 1.
constexpr int recordOffset(int number) { return (number - 1) * SettingsFile::RecordLength; }

static_assert(Signature.size() == 10);
static_assert(ThruOnOffset == 45);
static_assert(end(WinPos) == 212 && end(TrackChannels) == 224);
static_assert(EntryHeightOffset + 2 == SettingsFile::RecordLength);
static_assert(FirstRecentRecord + 8 - 1 == SettingsFile::RecordCount);

} // namespace SettingsLayout
