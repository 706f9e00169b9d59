// The rules of the cable: which byte may follow which.
#include "instrument/StreamDecoder.h"

namespace
{

constexpr int FirstStatus = 0x80;
constexpr int FirstSystem = 0xF0;
constexpr int FrameStart = 0xF0;
constexpr int FrameEnd = 0xF7;
constexpr int FirstRealTime = 0xF8;

/// Data bytes that follow a status byte; frames are told apart before.
std::size_t dataLength(int status)
{
    if (status < FirstSystem) {
        const int kind = status & 0xF0;
        return kind == 0xC0 || kind == 0xD0 ? 1 : 2;
    }
    if (status == 0xF1 || status == 0xF3)
        return 1;
    return status == 0xF2 ? 2 : 0;
}

} // namespace

void StreamDecoder::feed(std::string_view bytes)
{
    for (const char byte : bytes) {
        const int value = static_cast<unsigned char>(byte);
        if (value >= FirstRealTime)
            tell(MessageKind::RealTime, Fault::None, {&byte, 1});
        else if (value < FirstStatus)
            takeData(byte);
        else if (value == FrameEnd)
            takeFrameEnd();
        else if (value == FrameStart)
            takeFrameStart();
        else
            takeStatus(value);
    }
    tellStrayData();
}

void StreamDecoder::takeStatus(int status)
{
    tellStrayData();
    cutPending();
    runningStatus_ = status < FirstSystem ? status : 0;
    pending_ = byteText(status);
    if (dataLength(status) == 0) {
        tell(MessageKind::System, Fault::None, pending_);
        pending_.clear();
    }
}

void StreamDecoder::takeFrameStart()
{
    tellStrayData();
    cutPending();
    frameWasCut_ = false;
    runningStatus_ = 0;
    inFrame_ = true;
    pending_ = byteText(FrameStart);
}

void StreamDecoder::takeFrameEnd()
{
    tellStrayData();
    pending_ += byteText(FrameEnd);
    if (!inFrame_) { // what it cuts is told with it
        tell(MessageKind::Malformed, frameWasCut_ ? Fault::HighByteInside : Fault::StrayEnd, pending_);
        runningStatus_ = 0;
        frameWasCut_ = false;
    } else if (!skipping_) {
        tell(MessageKind::SysEx, Fault::None, pending_);
    }
    inFrame_ = false;
    skipping_ = false;
    pending_.clear();
}

void StreamDecoder::takeData(char byte)
{
    if (inFrame_) {
        if (skipping_)
            return;
        pending_.push_back(byte);
        if (pending_.size() >= LongestFrame) {
            tell(MessageKind::Malformed, Fault::TooLong, pending_);
            pending_.clear();
            skipping_ = true;
        }
        return;
    }
    if (pending_.empty()) {
        if (runningStatus_ == 0) {
            stray_.push_back(byte);
            return;
        }
        pending_ = byteText(runningStatus_);
    }
    pending_.push_back(byte);
    const int status = byteAt(pending_, 0);
    if (pending_.size() == 1 + dataLength(status)) {
        tell(status < FirstSystem ? MessageKind::Channel : MessageKind::System, Fault::None, pending_);
        pending_.clear();
    }
}

void StreamDecoder::tellStrayData()
{
    if (stray_.empty())
        return;
    tell(MessageKind::Malformed, Fault::NoStatus, stray_);
    stray_.clear();
}

void StreamDecoder::cutPending()
{
    if (inFrame_)
        frameWasCut_ = true;
    if (!pending_.empty())
        tell(MessageKind::Malformed, Fault::CutByStatus, pending_);
    pending_.clear();
    inFrame_ = false;
    skipping_ = false;
}
