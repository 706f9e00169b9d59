// The pace of pieces, and the watch on the driver's account.
#include "midi/CableFeed.h"

#include <algorithm>
#include <cerrno>

namespace
{

constexpr std::int64_t MillisecondNs = 1'000'000;
/// Bytes between two looks at the account, which costs as much as sixty pieces: far fewer than a driver's buffer holds.
constexpr std::int64_t LookEvery = 256;
constexpr int MostLooks = 8; ///< at an account that another program's bytes keep changing
constexpr std::int64_t RoomStepNs = 5 * MillisecondNs;
constexpr std::int64_t DrainStepNs = 2 * MillisecondNs;
/// Beyond its buffer a USB driver has seven transfers of 48 bytes on the way, which no account shows.
constexpr std::int64_t InFlightNs = 7LL * 48 * 1'000'000'000 / WireClock::CableBytesPerSecond;

} // namespace

CableFeed::CableFeed(const WireClock::TimeSource& time) : time_(time), clock_(BytesPerSecond, time) {}

int CableFeed::handOver(const Outlets& outlets, PieceKind kind, std::string_view bytes)
{
    for (CableOutlet* outlet : outlets)
        outlet->result_ = 0;
    givePiece(outlets, kind, bytes);
    for (const CableOutlet* outlet : outlets)
        if (outlet->counts && outlet->result_ != 0)
            return outlet->result_;
    return 0;
}

/// The account's lines are written one after the other, and the device may take bytes between them; so it is read
/// until it says the same twice.
int CableFeed::readAccepted(CableOutlet& outlet, std::int64_t& accepted)
{
    std::int64_t before = -1;
    for (int look = 0; look < MostLooks; ++look) {
        const std::optional<PortAccount> account = outlet.account();
        if (!account)
            return -ENODEV;
        accepted = account->accepted();
        if (accepted == before)
            return 0;
        before = accepted;
    }
    return 0;
}

int CableFeed::sendWhole(const Outlets& outlets, std::string_view message, const Progress& progress)
{
    const int total = static_cast<int>(message.size());
    for (CableOutlet* outlet : outlets) {
        outlet->result_ = 0;
        if (!outlet->watched)
            continue;
        outlet->result_ = readAccepted(*outlet, outlet->acceptedBefore_);
    }
    const auto anyoneLeft = [&outlets] {
        return std::any_of(outlets.begin(), outlets.end(),
                           [](const CableOutlet* outlet) { return outlet->counts && outlet->result_ == 0; });
    };

    for (int gone = 0; gone < total && anyoneLeft();) {
        const std::string_view piece = message.substr(static_cast<std::size_t>(gone), WireClock::PieceSize);
        givePiece(outlets, PieceKind::Long, piece);
        gone += static_cast<int>(piece.size());
        if (gone < total && progress)
            progress(gone, total);
    }
    noteTheEnd(outlets);
    if (anyoneLeft())
        clock_.waitUntilLeft(0);
    int result = 0;
    for (CableOutlet* outlet : outlets) {
        if (outlet->result_ == 0 && outlet->watched)
            outlet->result_ = waitUntilOut(*outlet, total);
        if (outlet->counts && result == 0)
            result = outlet->result_;
    }
    if (progress)
        progress(total, total);
    return result;
}

void CableFeed::givePiece(const Outlets& outlets, PieceKind kind, std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    clock_.waitUntilLeft(std::max(0, MostAhead - size));
    for (CableOutlet* outlet : outlets) {
        if (outlet->result_ != 0)
            continue;
        outlet->result_ = waitForRoom(*outlet, size);
        if (outlet->result_ != 0) {
            outlet->unseen_ = LookEvery; // the next message looks before it gives anything
            continue;
        }
        outlet->result_ = outlet->give(kind, bytes);
        outlet->unseen_ += size;
    }
    clock_.handOver(size);
}

int CableFeed::waitForRoom(CableOutlet& outlet, std::int64_t bytes)
{
    if (!outlet.watched || outlet.unseen_ + bytes <= LookEvery)
        return 0;
    return waitOnAccount(outlet, RoomStepNs,
                         [](const PortAccount& now) { return now.room >= std::min(LookEvery, now.size); });
}

/// What another program adds after the last byte is no part of the message, so the account is read before the waiting.
void CableFeed::noteTheEnd(const Outlets& outlets)
{
    for (CableOutlet* outlet : outlets) {
        if (outlet->result_ != 0 || !outlet->watched)
            continue;
        outlet->result_ = readAccepted(*outlet, outlet->acceptedAfter_);
    }
}

int CableFeed::waitUntilOut(CableOutlet& outlet, std::int64_t messageSize)
{
    // Not until the buffer is empty: whoever shares the interface may keep it filled for ever.
    const std::int64_t end = outlet.acceptedAfter_;
    bool waited = false;
    const int result = waitOnAccount(outlet, DrainStepNs, [&waited, end](const PortAccount& now) {
        const bool out = now.passedOn >= end;
        waited = waited || !out;
        return out;
    });
    if (result != 0)
        return result;
    if (waited)
        pause(InFlightNs);
    // Fewer than ours: the kernel dropped some. More: somebody else's bytes stand in the middle of the message.
    return end - outlet.acceptedBefore_ == messageSize ? 0 : -EIO;
}

/// Waits until the account is as wanted. A device that passes nothing on for StuckNs is stuck; while it has not moved
/// since it was found so, the next message is refused at once.
int CableFeed::waitOnAccount(CableOutlet& outlet, std::int64_t stepNs, const Wanted& wanted)
{
    const std::int64_t begun = time_.now();
    std::int64_t passedOn = -1;
    std::int64_t movedAt = 0;
    for (;;) {
        const std::optional<PortAccount> account = outlet.account();
        if (!account)
            return -ENODEV;
        outlet.unseen_ = 0;
        if (wanted(*account)) {
            outlet.stuckAt_.reset();
            return 0;
        }
        if (time_.now() - begun >= LongestWaitNs)
            return -ETIMEDOUT;
        if (account->passedOn != passedOn) {
            passedOn = account->passedOn;
            movedAt = time_.now();
            if (outlet.stuckAt_ == passedOn)
                return -ETIMEDOUT;
            outlet.stuckAt_.reset();
        } else if (time_.now() - movedAt >= StuckNs) {
            outlet.stuckAt_ = passedOn;
            return -ETIMEDOUT;
        }
        pause(stepNs);
    }
}

void CableFeed::pause(std::int64_t nanoseconds) const { time_.sleepUntil(time_.now() + nanoseconds); }
