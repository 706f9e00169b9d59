// Tarvolyne.ini between its bytes and the settings in memory.
#include "core/Settings.h"

#include "core/Dichiarazioni.h"
#include "core/RandomFile.h"
#include "core/SettingsLayout.h"

#include <algorithm>
#include <array>

using namespace SettingsLayout;

namespace
{

struct Flag {
    int offset;
    bool Settings::*member;
};

constexpr std::array Flags = {
    Flag{ReadOnlyOpenOffset, &Settings::ReadOnlyOpen},
    Flag{SettingSpare1Offset, &Settings::SettingSpare1},
    Flag{SettingSpare2Offset, &Settings::SettingSpare2},
    Flag{AutoStyNewArrOffset, &Settings::AutoStyNewArr},
    Flag{AutoStyOffset, &Settings::AutoSty},
    Flag{StyleOptionOffset, &Settings::StyleOption},
    Flag{AutoPrgOffset, &Settings::AutoPrg},
    Flag{AutoDBArrOffset, &Settings::AutoDBArr},
    Flag{StatusBarOffset, &Settings::StatusBar},
    Flag{AutoArrOffset, &Settings::AutoArr},
    Flag{ThruOnOffset, &Settings::ThruOn},
    Flag{GlobalValidOffset, &Settings::GlobalValid},
};

int placeAt(std::string_view bytes, int offset)
{
    return std::min(word16HighFirst(bytes, offset) - PlaceBias, PlaceBias);
}

int lengthAt(std::string_view bytes, int offset) { return std::min(word16HighFirst(bytes, offset), MostTwips); }

void putPlace(ByteBuffer& bytes, int offset, int twips)
{
    putWord16HighFirst(bytes, offset, std::clamp(twips, -PlaceBias, PlaceBias) + PlaceBias);
}

void putLength(ByteBuffer& bytes, int offset, int twips)
{
    putWord16HighFirst(bytes, offset, std::clamp(twips, 0, MostTwips));
}

// --- The places of the windows

constexpr int rowOffset(int row) { return WinPos.offset + (row - 1) * WinPosRowSize; }

/// Factory program and drum windows keep a second value beside Open, their MIDI channel: a nibble each.
constexpr bool keepsExtra(int row) { return row >= WindowKind::PrgBankA && row <= WindowKind::Percussion; }

// Required: the editor, the global window and the factory style banks come back to their place when the user opens
// them, never by themselves.
constexpr bool staysClosed(int row)
{
    return row == WindowKind::EditArr || row == WindowKind::GlobalInstrument || row == WindowKind::StyBankA ||
           row == WindowKind::StyBankB;
}

WindowPosition rowFrom(std::string_view record, int row)
{
    const int offset = rowOffset(row);
    WindowPosition position;
    position.left = placeAt(record, offset + RowLeftOffset);
    position.top = placeAt(record, offset + RowTopOffset);
    position.width = lengthAt(record, offset + RowWidthOffset);
    position.height = lengthAt(record, offset + RowHeightOffset);
    const int flags = byteAt(record, offset + RowFlagsOffset);
    if (!staysClosed(row)) {
        position.Open = keepsExtra(row) ? flags & 0x0F : flags;
        position.Extra = keepsExtra(row) ? flags >> 4 : 0;
    }
    return position;
}

void putRow(ByteBuffer& record, int row, const WindowPosition& position)
{
    const int offset = rowOffset(row);
    putPlace(record, offset + RowLeftOffset, position.left);
    putPlace(record, offset + RowTopOffset, position.top);
    putLength(record, offset + RowWidthOffset, position.width);
    putLength(record, offset + RowHeightOffset, position.height);
    putByte(record, offset + RowFlagsOffset,
            keepsExtra(row) ? (position.Extra & 0x0F) << 4 | (position.Open & 0x0F) : position.Open);
}

// --- The session entries

SessionEntry entryFrom(std::string_view record)
{
    SessionEntry entry;
    entry.path = textIn(record, EntryPath);
    entry.width = lengthAt(record, EntryWidthOffset);
    entry.height = lengthAt(record, EntryHeightOffset);
    entry.left = placeAt(record, EntryLeftOffset);
    entry.top = placeAt(record, EntryTopOffset);
    entry.Open = byteAt(record, EntryOpenOffset);
    entry.readOnly = byteAt(record, EntryReadOnlyOffset) != 0;
    return entry;
}

/// An entry whose window was closed leaves nothing of its file behind.
ByteBuffer recordOfEntry(const SessionEntry& entry)
{
    ByteBuffer record = filled(SettingsFile::RecordLength, 0);
    if (entry.Open == 0)
        return record;
    putText(record, EntryPath, entry.path);
    putLength(record, EntryWidthOffset, entry.width);
    putLength(record, EntryHeightOffset, entry.height);
    putPlace(record, EntryLeftOffset, entry.left);
    putPlace(record, EntryTopOffset, entry.top);
    putByte(record, EntryOpenOffset, entry.Open);
    putByte(record, EntryReadOnlyOffset, entry.readOnly ? 1 : 0);
    return record;
}

SessionEntry programFrom(std::string_view record)
{
    SessionEntry entry = entryFrom(record);
    entry.kind = byteAt(record, EntryKindOffset);
    entry.programType = byteAt(record, EntryTypeOffset) != 0 ? 1 : 0;
    return entry;
}

ByteBuffer recordOfProgram(const SessionEntry& entry)
{
    ByteBuffer record = recordOfEntry(entry);
    if (entry.Open != 0) {
        putByte(record, EntryKindOffset, entry.kind);
        putByte(record, EntryTypeOffset, entry.programType);
    }
    return record;
}

RecentEntry recentFrom(const ByteBuffer& record)
{
    RecentEntry entry;
    entry.kept = record;
    const int kind = byteAt(record, EntryKindOffset);
    if (kind < FileKind::Arr || kind > FileKind::Gbl)
        return entry;
    entry.path = textIn(record, EntryPath);
    if (!entry.path.empty()) {
        entry.kind = kind;
        entry.readOnly = byteAt(record, EntryReadOnlyOffset) != 0;
    }
    return entry;
}

ByteBuffer recordOfRecent(const RecentEntry& entry)
{
    ByteBuffer record = entry.kept;
    record.resize(static_cast<std::size_t>(SettingsFile::RecordLength), '\0');
    if (entry.path.empty())
        return record;
    putText(record, EntryPath, entry.path);
    putByte(record, EntryKindOffset, entry.kind);
    putByte(record, EntryReadOnlyOffset, entry.readOnly ? 1 : 0);
    return record;
}

// --- Record 1

/// Channel 0 to 15; 0 where the byte is none. It goes into the status byte of messages, which it must not turn into
/// another status.
int channelAt(std::string_view record, int offset)
{
    constexpr int LastChannel = 15;
    const int channel = byteAt(record, offset);
    return channel <= LastChannel ? channel : 0;
}

void decodeRecord1(std::string_view record, Settings& settings)
{
    for (const Flag& flag : Flags)
        settings.*flag.member = byteAt(record, flag.offset) != 0;
    // Required: this one flag is true for the value 1 alone, the others for any value but 0.
    settings.ReadOnlyOpen = byteAt(record, ReadOnlyOpenOffset) == 1;
    settings.Language = byteAt(record, LanguageOffset);
    settings.DeviceMode = byteAt(record, DeviceModeOffset);
    settings.GlobalChannel = channelAt(record, GlobalChannelOffset);
    for (int i = 0; i < KeyboardState.size; ++i)
        settings.KeyboardState[static_cast<std::size_t>(i)] = byteAt(record, KeyboardState.offset + i);
    for (int i = 0; i < TrackChannels.size; ++i)
        settings.TrackChannels[static_cast<std::size_t>(i)] = byteAt(record, TrackChannels.offset + i);
    for (int row = 1; row <= WinPosRows; ++row)
        settings.WinPos[static_cast<std::size_t>(row)] = rowFrom(record, row);
}

void encodeRecord1(const Settings& settings, ByteBuffer& image)
{
    putText(image, SignatureField, Signature);
    for (const Flag& flag : Flags)
        putByte(image, flag.offset, settings.*flag.member ? 1 : 0);
    putByte(image, LanguageOffset, settings.Language);
    putByte(image, DeviceModeOffset, settings.DeviceMode);
    putByte(image, GlobalChannelOffset, settings.GlobalChannel);
    for (int i = 0; i < KeyboardState.size; ++i)
        putByte(image, KeyboardState.offset + i, settings.KeyboardState[static_cast<std::size_t>(i)]);
    for (int i = 0; i < TrackChannels.size; ++i)
        putByte(image, TrackChannels.offset + i, settings.TrackChannels[static_cast<std::size_t>(i)]);
    for (int row = 1; row <= WinPosRows; ++row)
        putRow(image, row, settings.WinPos[static_cast<std::size_t>(row)]);
}

void putRecord(ByteBuffer& image, int number, std::string_view record)
{
    putBytes(image, recordOffset(number), record);
}

} // namespace

bool SettingsFile::decode(const ByteBuffer& image, Settings& settings)
{
    const auto record = [&image](int number) { return recordOf(image, RecordLength, number); };
    const int language = byteAt(image, LanguageOffset);
    if (slice(image, SignatureField) != Signature || (language != 1 && language != 2))
        return false;

    Settings read;
    setDefaults(read);
    decodeRecord1(record(1), read);
    read.LastDirFiles = textIn(record(LastDirFilesRecord), EntryPath);
    read.LastDirPrg = textIn(record(LastDirPrgRecord), EntryPath);
    // Required: sixteen program entries are written and eight are read; more than eight program windows cannot be open.
    constexpr int ProgramsRead = 8;
    for (int i = 0; i < ProgramsRead; ++i)
        read.Programs[static_cast<std::size_t>(i)] = programFrom(record(FirstProgramRecord + i));
    for (std::size_t i = 0; i < read.Arrangements.size(); ++i)
        read.Arrangements[i] = entryFrom(record(FirstArrangementRecord + static_cast<int>(i)));
    for (std::size_t i = 0; i < read.Recent.size(); ++i)
        read.Recent[i] = recentFrom(record(FirstRecentRecord + static_cast<int>(i)));
    if (read.GlobalValid) {
        read.GblCurrent = slice(image, {recordOffset(GlobalRecord), GlobalSize});
        read.GblCurrent.resize(static_cast<std::size_t>(GlobalSize), '\0');
    }
    settings = std::move(read);
    return true;
}

ByteBuffer SettingsFile::firstImage(const Settings& settings)
{
    ByteBuffer image = filled(FileLength, 0);
    encodeRecord1(settings, image);
    const int blankFrom = recordOffset(FirstBlankRecord);
    putBytes(image, blankFrom, filled(FileLength - blankFrom, ' '));
    return image;
}

ByteBuffer SettingsFile::encode(const Settings& settings, ByteBuffer image)
{
    image.resize(static_cast<std::size_t>(FileLength), '\0');
    encodeRecord1(settings, image);
    putText(image, {recordOffset(LastDirFilesRecord), PathFieldWidth}, settings.LastDirFiles);
    putText(image, {recordOffset(LastDirPrgRecord), PathFieldWidth}, settings.LastDirPrg);
    for (std::size_t i = 0; i < settings.Programs.size(); ++i)
        putRecord(image, FirstProgramRecord + static_cast<int>(i), recordOfProgram(settings.Programs[i]));
    for (std::size_t i = 0; i < settings.Arrangements.size(); ++i)
        putRecord(image, FirstArrangementRecord + static_cast<int>(i), recordOfEntry(settings.Arrangements[i]));
    for (std::size_t i = 0; i < settings.Recent.size(); ++i)
        putRecord(image, FirstRecentRecord + static_cast<int>(i), recordOfRecent(settings.Recent[i]));
    if (settings.GlobalValid) {
        ByteBuffer block = settings.GblCurrent;
        block.resize(static_cast<std::size_t>(GlobalSize), '\0');
        putBytes(image, recordOffset(GlobalRecord), block);
    }
    return image;
}

std::string SettingsFile::path() { return App.StateDir + "/Tarvolyne.ini"; }
