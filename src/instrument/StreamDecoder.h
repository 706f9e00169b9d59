// From the bytes of a cable to whole messages, as an instrument at its far end hears them.
//
// Running status, frames of SysEx and real-time bytes in between are understood; what is not a message is told with its
// reason, never dropped in silence. However the bytes are cut into pieces, the messages are the same.
#pragma once

#include "core/Bytes.h"

#include <functional>
#include <string_view>

enum class MessageKind {
    Channel,  ///< status and data of a channel message; the status is there though running status left it out
    SysEx,    ///< a whole frame, F0 to F7
    System,   ///< system common, F1 to F6
    RealTime, ///< one byte, F8 to FF
    Malformed ///< see Fault
};

/// Why bytes are no message, or a frame is none for this instrument.
enum class Fault {
    None,
    CutByStatus,       ///< a status byte came before the message or frame was complete
    HighByteInside,    ///< the end of a frame that was cut: a byte of 0x80 or above, told here, stood in its middle
    StrayEnd,          ///< the end of a frame without its start, behind the message that it cut
    NoStatus,          ///< data bytes without a status
    TooLong,           ///< a frame that no memory of an instrument would take
    WrongManufacturer, ///< byte 1 is not 42
    WrongFormat,       ///< byte 2 is not 3g
    WrongModel,        ///< byte 3 is not 4D
    UnknownFunction,   ///< byte 4 is no function code
    WrongLength,       ///< the body has another length than its function asks for
    WrongContent,      ///< the body contradicts itself: an unknown mode, a style table that does not fit its blocks
    Count
};

class StreamDecoder
{
public:
    /// Frames above this many bytes are malformed; four style groups would fit into one.
    static constexpr std::size_t LongestFrame = std::size_t{1} << 20;

    /// What was heard. The bytes live as long as the call.
    struct Message {
        MessageKind kind;
        Fault fault;
        std::string_view bytes;
    };
    using Sink = std::function<void(const Message&)>;

    explicit StreamDecoder(Sink sink) : sink_(std::move(sink)) {}

    /// The sender begins a message of its own: a data byte that comes next belongs to nothing, whatever went before.
    void beginMessage() { runningStatus_ = 0; }

    /// Bytes arrive. Data without a status is told at the end of the call at the latest.
    void feed(std::string_view bytes);

private:
    void takeStatus(int status);
    void takeFrameStart();
    void takeFrameEnd();
    void takeData(char byte);
    void tell(MessageKind kind, Fault fault, std::string_view bytes) { sink_({kind, fault, bytes}); }
    void tellStrayData();
    void cutPending();

    Sink sink_;
    ByteBuffer pending_;       ///< status and data of the message that is coming in, or the frame from F0
    ByteBuffer stray_;         ///< data bytes that belong to nothing
    int runningStatus_ = 0;    ///< 0 = none
    bool inFrame_ = false;     ///< pending_ is a frame
    bool skipping_ = false;    ///< the frame is too long and was told
    bool frameWasCut_ = false; ///< the last frame ended in a status byte other than its end
};
