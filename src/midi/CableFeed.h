// Feeds a MIDI cable no faster than it carries, and knows when the last byte is out.
//
// The kernel takes a message of any length and answers success, but behind it stands a buffer of 4096 bytes, and what
// overruns that is dropped without a word. So a message goes out in pieces of 64 bytes against the deadlines of the
// cable, the driver's own account of its buffer is watched where it can be read, and at the end the account must show
// every byte.
#pragma once

#include "midi/Sequencer.h"
#include "midi/WireClock.h"

#include <functional>

enum class PieceKind { Short, Long };

/// One receiver of what is sent.
class CableOutlet
{
public:
    CableOutlet() = default;
    virtual ~CableOutlet() = default;
    CableOutlet(const CableOutlet&) = delete;
    CableOutlet& operator=(const CableOutlet&) = delete;

    /// 0, or a negative errno when the receiver is gone.
    [[nodiscard]] virtual int give(PieceKind kind, std::string_view bytes) = 0;
    /// The driver's account; nothing where there is none.
    [[nodiscard]] virtual std::optional<PortAccount> account() = 0;

    /// False for one that only listens beside the instrument: its failure is not the message's.
    bool counts = true;
    /// True when the account can be read, so that it is a failure when it no longer can.
    bool watched = false;

private:
    friend class CableFeed;
    int result_ = 0;                      ///< of the message that is going out
    std::int64_t unseen_ = 0;             ///< bytes given since the last look at the account
    std::int64_t acceptedBefore_ = 0;     ///< by the account, when the message began
    std::int64_t acceptedAfter_ = 0;      ///< and when its last piece was given
    std::optional<std::int64_t> stuckAt_; ///< bytes passed on when the device was found stuck
};

class CableFeed
{
public:
    /// One in a hundred under the cable's own speed: an interface's clock may be that slow, and one without flow
    /// control would lose what comes faster.
    static constexpr int BytesPerSecond = 3094;
    /// Most bytes handed over and not yet on the cable, so that the smallest usual interface memory, 128 bytes, takes
    /// them; a piece and a half, so that a window may paint between two pieces.
    static constexpr int MostAhead = WireClock::PieceSize + WireClock::PieceSize / 2;
    /// A device that takes nothing for so long is stuck.
    static constexpr std::int64_t StuckNs = 4'000'000'000;
    /// One that trickles is given up as well: a full buffer takes 1.3 s.
    static constexpr std::int64_t LongestWaitNs = 10'000'000'000;

    using Outlets = std::vector<CableOutlet*>;
    using Progress = std::function<void(int gone, int total)>;

    explicit CableFeed(const WireClock::TimeSource& time = WireClock::monotonicTime());

    /// A message of one piece. Returns as soon as it is handed over, which is at once unless bytes are still queueing.
    [[nodiscard]] int handOver(const Outlets& outlets, PieceKind kind, std::string_view bytes);

    /// A longer message: returns when its last byte has left the interface, or with the error of the first receiver
    /// that counts. EIO: bytes were lost, or somebody else wrote into the message; ETIMEDOUT: the device is stuck.
    [[nodiscard]] int sendWhole(const Outlets& outlets, std::string_view message, const Progress& progress);

private:
    void givePiece(const Outlets& outlets, PieceKind kind, std::string_view bytes);
    [[nodiscard]] int waitForRoom(CableOutlet& outlet, std::int64_t bytes);
    [[nodiscard]] static int readAccepted(CableOutlet& outlet, std::int64_t& accepted);
    static void noteTheEnd(const Outlets& outlets);
    [[nodiscard]] int waitUntilOut(CableOutlet& outlet, std::int64_t messageSize);
    using Wanted = std::function<bool(const PortAccount&)>;
    [[nodiscard]] int waitOnAccount(CableOutlet& outlet, std::int64_t stepNs, const Wanted& wanted);
    void pause(std::int64_t nanoseconds) const;

    WireClock::TimeSource time_;
    WireClock clock_;
};
