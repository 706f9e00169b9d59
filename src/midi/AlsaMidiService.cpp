// The fifteen operations on a sequencer.
#include "midi/AlsaMidiService.h"

#include "core/ScopedFlag.h"
#include "midi/AlsaSequencer.h"
#include "midi/SequencerPorts.h"
#include "midi/ShortMessage.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace
{

constexpr const char* ClientName = "Tarvolyne";

/// The sequencer's error as a result of the service.
int resultOf(int error)
{
    switch (-error) {
    case 0:
        return MidiResult::Done;
    case EBUSY:  // held exclusively by another program
    case EAGAIN: // held as a raw device by another program
        return MidiResult::Allocated;
    default:
        return MidiResult::Failed;
    }
}

/// The same while sending, where a receiver that takes nothing is a fault and no question of who holds it.
int sendResultOf(int error) { return error == 0 ? MidiResult::Done : MidiResult::Failed; }

} // namespace

AlsaMidiService::AlsaMidiService() : AlsaMidiService(std::make_unique<AlsaSequencer>()) {}

AlsaMidiService::AlsaMidiService(std::unique_ptr<Sequencer> sequencer, const WireClock::TimeSource& time)
    : sequencer_(std::move(sequencer)), receivers_(*sequencer_), thru_(*sequencer_), feed_(time)
{
}

AlsaMidiService::~AlsaMidiService()
{
    // A program that was left without MIDI never closes what it opened, and thru outlives its maker.
    thru_.disconnect();
    receivers_.clear();
    sequencer_->close();
}

bool AlsaMidiService::enter() { return sequencer_->isOpen() || sequencer_->open() == 0; }

/// A program that holds no port is no client either.
void AlsaMidiService::leaveWhenIdle()
{
    if (!outOpen_ && !inOpen_)
        sequencer_->close();
}

int AlsaMidiService::midiOutGetNumDevs()
{
    const int count = enter() ? static_cast<int>(SequencerPorts::outputs(sequencer_->ports()).size()) : 0;
    if (count == 0)
        leaveWhenIdle();
    return count;
}

int AlsaMidiService::midiOutOpen(std::int32_t& handle, int)
{
    if (outOpen_)
        return MidiResult::Allocated;
    const int result = openOutput();
    if (result == MidiResult::Done)
        handle = sequencer_->client();
    return result;
}

int AlsaMidiService::openOutput()
{
    if (!enter())
        return MidiResult::Failed;
    if (sequencer_->makeOutput() != 0) {
        leaveWhenIdle();
        return MidiResult::Failed;
    }
    const std::vector<SeqPort> ports = sequencer_->ports();
    const bool twin = std::any_of(ports.begin(), ports.end(),
                                  [](const SeqPort& port) { return !port.kernel && port.clientName == ClientName; });
    if (!twin)
        ThruWires::pullLeftovers(*sequencer_);
    const std::vector<SeqPort> outputs = SequencerPorts::outputs(ports);
    const int result = outputs.empty() ? MidiResult::Failed : resultOf(receivers_.wire(outputs.front()));
    outOpen_ = result == MidiResult::Done;
    leaveWhenIdle();
    return result;
}

bool AlsaMidiService::isOut(std::int32_t handle) const
{
    return outOpen_ && handle > 0 && (handle == sequencer_->client() || handle == sharedHandle_);
}

/// A handle may come from the device record and be that of another program of the family, which holds the port as well:
/// then this one wires its own port beside it.
int AlsaMidiService::useOutput(std::int32_t handle)
{
    if (outOpen_)
        return isOut(handle) ? MidiResult::Done : MidiResult::InvalidHandle;
    if (handle <= 0 || !enter())
        return MidiResult::InvalidHandle;
    const std::vector<SeqPort> ports = sequencer_->ports();
    const bool livingOwner = std::any_of(ports.begin(), ports.end(), [handle](const SeqPort& port) {
        return !port.kernel && port.address.client == handle;
    });
    const int result = livingOwner ? openOutput() : MidiResult::InvalidHandle;
    leaveWhenIdle();
    if (result == MidiResult::Done)
        sharedHandle_ = handle;
    return result;
}

int AlsaMidiService::midiOutClose(std::int32_t handle)
{
    if (!isOut(handle))
        return MidiResult::InvalidHandle;
    thru_.disconnect();
    receivers_.clear();
    outOpen_ = false;
    sharedHandle_ = 0;
    leaveWhenIdle();
    return MidiResult::Done;
}

/// Who gets the next message.
int AlsaMidiService::findReceivers()
{
    receivers_.refresh();
    thru_.follow(receivers_.addresses());
    return receivers_.empty() ? MidiResult::Failed : MidiResult::Done;
}

int AlsaMidiService::midiOutShortMsg(std::int32_t handle, std::uint32_t message)
{
    int result = useOutput(handle);
    if (result == MidiResult::Done)
        result = findReceivers();
    if (result != MidiResult::Done)
        return result;
    result = sendResultOf(feed_.handOver(receivers_.outlets(), PieceKind::Short, shortMessageBytes(message)));
    return receivers_.missing() ? MidiResult::Failed : result;
}

int AlsaMidiService::midiOutPrepareHeader(std::int32_t handle, std::string_view) { return useOutput(handle); }

int AlsaMidiService::midiOutLongMsg(std::int32_t handle, std::string_view message)
{
    int result = useOutput(handle);
    if (result == MidiResult::Done)
        result = findReceivers();
    if (result != MidiResult::Done)
        return result;
    const ScopedFlag sending(sending_);
    const CableFeed::Outlets outlets = receivers_.outlets();
    if (message.size() <= WireClock::PieceSize) {
        result = sendResultOf(feed_.handOver(outlets, PieceKind::Long, message));
    } else {
        thru_.suspend();
        result = sendResultOf(feed_.sendWhole(outlets, message, progress));
        thru_.resume(receivers_.addresses());
    }
    return receivers_.missing() ? MidiResult::Failed : result;
}

int AlsaMidiService::midiOutUnprepareHeader(std::int32_t handle, std::string_view) { return useOutput(handle); }

int AlsaMidiService::midiInGetNumDevs()
{
    const int count = enter() ? static_cast<int>(SequencerPorts::inputs(sequencer_->ports()).size()) : 0;
    leaveWhenIdle();
    return count;
}

int AlsaMidiService::midiInGetDevCaps(int device)
{
    return device >= 0 && device < midiInGetNumDevs() ? MidiResult::Done : MidiResult::Failed;
}

int AlsaMidiService::midiInOpen(std::int32_t& handle, int device)
{
    if (inOpen_)
        return MidiResult::Allocated;
    if (!enter())
        return MidiResult::Failed;
    const std::vector<SeqPort> inputs = SequencerPorts::inputs(sequencer_->ports());
    inOpen_ = device >= 0 && device < static_cast<int>(inputs.size());
    if (inOpen_) {
        keyboard_ = inputs[static_cast<std::size_t>(device)];
        handle = sequencer_->client();
    }
    leaveWhenIdle();
    return inOpen_ ? MidiResult::Done : MidiResult::Failed;
}

int AlsaMidiService::useInput(std::int32_t handle) const
{
    return inOpen_ && handle == sequencer_->client() ? MidiResult::Done : MidiResult::InvalidHandle;
}

int AlsaMidiService::midiInClose(std::int32_t handle)
{
    const int result = useInput(handle);
    if (result != MidiResult::Done)
        return result;
    thru_.disconnect();
    inOpen_ = false;
    leaveWhenIdle();
    return MidiResult::Done;
}

// The program never reads the input, so there is nothing to start: what thru carries flows while it is connected.
int AlsaMidiService::midiInStart(std::int32_t handle) { return useInput(handle); }

int AlsaMidiService::midiInStop(std::int32_t handle) { return useInput(handle); }

int AlsaMidiService::midiConnect(std::int32_t inHandle, std::int32_t outHandle)
{
    int result = useInput(inHandle);
    if (result == MidiResult::Done)
        result = useOutput(outHandle);
    if (result != MidiResult::Done)
        return result;
    receivers_.refresh();
    return resultOf(thru_.connect(keyboard_, receivers_.addresses()));
}

int AlsaMidiService::midiDisconnect(std::int32_t inHandle, std::int32_t outHandle)
{
    int result = useInput(inHandle);
    if (result == MidiResult::Done)
        result = useOutput(outHandle);
    if (result != MidiResult::Done)
        return result;
    if (!thru_.on())
        return MidiResult::NotReady;
    thru_.disconnect();
    return MidiResult::Done;
}

std::string AlsaMidiService::outputPortName()
{
    if (!outOpen_)
        return {};
    if (!sending_) // the message that is going out keeps its receivers to the end
        receivers_.refresh();
    return receivers_.displayNames();
}
