// The block's way to the instrument, and the windows' buffers.
#include "global/GblEdit.h"

#include "core/Dichiarazioni.h"
#include "core/Shell.h"
#include "files/FileReaders.h"
#include "global/GblState.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "midi/SysEx.h"

#include <array>

GblState Gbl;

namespace
{

/// The same in both languages.
constexpr const char* InstrumentTitle = "Global Parameters";

constexpr int SemitonesOfAnOctave = 12;
constexpr std::array NoteNames = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};

std::string_view blockOf(const WindowBuffer& tag) { return slice(tag.bytes(), GblBlock::InWindow); }

void storeBlock(WindowBuffer& tag, const ByteBuffer& block) { putBytes(tag.bytes(), GblBlock::InWindow.offset, block); }

SessionEntry& entryOf(int slot) { return App.Globals[static_cast<std::size_t>(slot)]; }

/// An image of the file's length that begins as a global file does, so that it can be saved as one: of the block in a
/// damaged settings file the parameters count.
ByteBuffer imageFrom(const ByteBuffer& source)
{
    ByteBuffer image = source;
    image.resize(static_cast<std::size_t>(GblLayout::FileSize), '\0');
    putBytes(image, 0, GblLayout::Signature);
    return image;
}

} // namespace

void GblSend(const WindowBuffer& tag)
{
    if (Gbl.GblLoading)
        return;
    SevenBitPack(blockOf(tag));
    Midi.SysExOutput = sysExFrame(Function::GlobalDump, Midi.SysExOutput);
    MidiLongSend();
    MsgLogAdd("");
    MsgLogAdd(Midi.SysExOutput);
    App.GblCurrentChanged = true;
    App.GblCurrent = slice(tag.bytes(), WindowLayout::GblFile);
    if (App.shell)
        App.shell->enableMenuItem("mnuGlobalParam", true);
}

bool gblEdit(WindowBuffer& tag, GblField which, int position, int index)
{
    ByteBuffer block(blockOf(tag));
    if (!gblWrite(block, which, position, index))
        return false;
    storeBlock(tag, block);
    tag.set(WindowLayout::ModifiedOffset, 1);
    GblSend(tag);
    return true;
}

int gblShown(const WindowBuffer& tag, GblField which, int index) { return gblPosition(blockOf(tag), which, index); }

void gblResetScale(WindowBuffer& tag, int scale)
{
    putBytes(tag.bytes(), GblBlock::InWindow.offset + GblBlock::UserScales.offset + scale * GblBlock::NotesOfAScale,
             filled(GblBlock::NotesOfAScale, 0));
}

WindowBuffer GblTagBuild(int slot)
{
    const bool instrument = slot == 0;
    SessionEntry& entry = entryOf(slot);
    WindowBuffer tag = WindowBuffer::fresh(instrument ? WindowKind::GlobalInstrument : WindowKind::GlobalFile, slot);
    tag.setPath(instrument ? InstrumentTitle : entry.path);
    tag.set(WindowLayout::ReadOnlyOffset, !instrument && entry.readOnly ? 1 : 0);
    tag.bytes() += imageFrom(instrument ? App.GblCurrent : Files.GblBuffer);
    entry.used = true;
    return tag;
}

void GblSlotLeave(const WindowBuffer& tag) { entryOf(tag.number()) = {}; }

std::string GblCaption(const WindowBuffer& tag)
{
    return tag.kind() == WindowKind::GlobalInstrument ? tag.path() : ChildCaption(tag);
}

std::string NoteName(int note)
{
    return NoteNames[static_cast<std::size_t>(note % SemitonesOfAnOctave)] +
           std::to_string(note / SemitonesOfAnOctave - 1);
}

std::string gblVelocityText(int velocity) { return velocity == 0 ? "Normal" : std::to_string(velocity); }

int gblChannel(int place)
{
    return place == 0 ? App.GlobalChannel : App.TrackChannels[static_cast<std::size_t>(place - 1)];
}

void gblSetChannel(int place, int channel)
{
    (place == 0 ? App.GlobalChannel : App.TrackChannels[static_cast<std::size_t>(place - 1)]) = channel;
}
