// The virtual instrument as a MIDI device: handles, the raw file, and the pace of the cable.
#include "instrument/VirtualMidiService.h"

#include "core/Strings.h"
#include "core/Words.h"
#include "midi/ShortMessage.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

VirtualMidiService::VirtualMidiService(VirtualInstrument& instrument, std::function<std::string()> folder,
                                       WireClock clock)
    : instrument_(instrument), folder_(std::move(folder)), clock_(std::move(clock))
{
}

VirtualMidiService::~VirtualMidiService()
{
    if (file_ >= 0)
        close(file_);
}

bool VirtualMidiService::isOut(std::int32_t handle) const { return outHandle_ != 0 && handle == outHandle_; }

bool VirtualMidiService::isIn(std::int32_t handle) const { return inHandle_ != 0 && handle == inHandle_; }

int VirtualMidiService::midiOutOpen(std::int32_t& handle, int)
{
    if (outHandle_ != 0)
        return MidiResult::Allocated;
    beginFile();
    outHandle_ = ++lastHandle_;
    handle = outHandle_;
    return MidiResult::Done;
}

int VirtualMidiService::midiOutClose(std::int32_t handle)
{
    if (!isOut(handle))
        return MidiResult::InvalidHandle;
    thruConnected_ = false;
    outHandle_ = 0;
    return MidiResult::Done;
}

int VirtualMidiService::midiOutShortMsg(std::int32_t handle, std::uint32_t message)
{
    if (!isOut(handle))
        return MidiResult::InvalidHandle;
    // Required: a word whose low byte is no status goes out as the three bytes it is; the instrument shows them as
    // malformed, since no message begins so.
    instrument_.beginMessage();
    carry(shortMessageBytes(message));
    return MidiResult::Done;
}

int VirtualMidiService::midiOutPrepareHeader(std::int32_t handle, std::string_view)
{
    return isOut(handle) ? MidiResult::Done : MidiResult::InvalidHandle;
}

int VirtualMidiService::midiOutLongMsg(std::int32_t handle, std::string_view message)
{
    if (!isOut(handle))
        return MidiResult::InvalidHandle;
    instrument_.beginMessage();
    if (paced_ && message.size() > WireClock::PieceSize)
        carryPaced(message);
    else
        carry(message);
    return MidiResult::Done;
}

int VirtualMidiService::midiOutUnprepareHeader(std::int32_t handle, std::string_view)
{
    return isOut(handle) ? MidiResult::Done : MidiResult::InvalidHandle;
}

int VirtualMidiService::midiInGetDevCaps(int device) { return device == 0 ? MidiResult::Done : MidiResult::Failed; }

int VirtualMidiService::midiInOpen(std::int32_t& handle, int device)
{
    if (device != 0)
        return MidiResult::Failed;
    if (inHandle_ != 0)
        return MidiResult::Allocated;
    inHandle_ = ++lastHandle_;
    handle = inHandle_;
    return MidiResult::Done;
}

int VirtualMidiService::midiInClose(std::int32_t handle)
{
    if (!isIn(handle))
        return MidiResult::InvalidHandle;
    started_ = false;
    thruConnected_ = false;
    inHandle_ = 0;
    return MidiResult::Done;
}

int VirtualMidiService::midiInStart(std::int32_t handle)
{
    if (!isIn(handle))
        return MidiResult::InvalidHandle;
    started_ = true;
    return MidiResult::Done;
}

int VirtualMidiService::midiInStop(std::int32_t handle)
{
    if (!isIn(handle))
        return MidiResult::InvalidHandle;
    started_ = false;
    return MidiResult::Done;
}

int VirtualMidiService::midiConnect(std::int32_t inHandle, std::int32_t outHandle)
{
    if (!isIn(inHandle) || !isOut(outHandle))
        return MidiResult::InvalidHandle;
    if (thruConnected_)
        return MidiResult::Allocated;
    thruConnected_ = true;
    return MidiResult::Done;
}

int VirtualMidiService::midiDisconnect(std::int32_t inHandle, std::int32_t outHandle)
{
    if (!isIn(inHandle) || !isOut(outHandle))
        return MidiResult::InvalidHandle;
    if (!thruConnected_)
        return MidiResult::NotReady;
    thruConnected_ = false;
    return MidiResult::Done;
}

std::string VirtualMidiService::outputPortName() { return ResText(Words::VirtualInstrument); }

void VirtualMidiService::beginFile()
{
    if (fileBegun_)
        return;
    fileBegun_ = true;
    const std::string folder = folder_ ? folder_() : std::string();
    if (folder.empty())
        return;
    const std::string path = folder + "/" + FileName;
    constexpr mode_t OwnerOnly = 0600, OtherBits = 0177;
    struct stat status {
    };
    // A link of this name would have what it leads to overwritten.
    if (lstat(path.c_str(), &status) == 0 && (S_ISLNK(status.st_mode) || status.st_nlink > 1))
        unlink(path.c_str());
    // Without blocking, and emptied only once it is known to be a file: a pipe of this name must not stop the program.
    file_ = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_APPEND | O_NOFOLLOW, OwnerOnly);
    if (file_ < 0)
        return;
    if (fstat(file_, &status) != 0 || !S_ISREG(status.st_mode) || status.st_nlink > 1 || ftruncate(file_, 0) != 0) {
        close(file_);
        file_ = -1;
    } else if ((status.st_mode & OtherBits) != 0 && fchmod(file_, OwnerOnly) != 0) {
        // A disk without permission bits has none to set.
    }
}

void VirtualMidiService::keep(std::string_view bytes)
{
    while (file_ >= 0 && !bytes.empty()) {
        const ssize_t written = write(file_, bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0 || errno != EINTR) {
            // A full disk ends the file: a gap in its middle would tell of messages that were never sent.
            close(file_);
            file_ = -1;
        }
    }
}

void VirtualMidiService::carry(std::string_view bytes)
{
    if (paced_)
        clock_.handOver(static_cast<int>(bytes.size()));
    instrument_.take(bytes);
    keep(bytes);
}

void VirtualMidiService::carryPaced(std::string_view message)
{
    const int total = static_cast<int>(message.size());
    int gone = 0;
    while (gone < total) {
        clock_.waitUntilLeft(0);
        const std::string_view piece = message.substr(static_cast<std::size_t>(gone), WireClock::PieceSize);
        carry(piece);
        gone += static_cast<int>(piece.size());
        if (gone < total && progress)
            progress(gone, total);
    }
    clock_.waitUntilLeft(0);
    if (progress)
        progress(total, total);
}
