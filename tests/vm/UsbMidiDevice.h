// A USB-MIDI interface made of software, for a kernel that is to believe in it: the kernel's own USB and MIDI drivers
// are under test, down to the transfers.
//
// It hangs on the kernel's USB/IP port. Behind it is a DIN cable of a given speed with a small memory before it. Full,
// it either refuses transfers until there is room, as a proper interface does, or loses bytes like a cheap one. It can
// stall, be stuck, be pulled out, and be played like a keyboard.
#pragma once

#include <cstdint>
#include <string>
#include <sys/types.h>

struct UsbMidiOptions {
    std::string name = "DIN Cable"; ///< the product's name, ASCII
    int socket = 0;                 ///< which of the kernel's USB/IP ports, 0 to 7
    bool hasOutput = true;          ///< a cable to an instrument
    bool hasInput = true;           ///< a cable from a keyboard
    int rate = 3125;                ///< bytes a second on the cable
    int memory = 64;                ///< bytes before the cable
    bool refuses = true;            ///< false: what does not fit is lost
};

class UsbMidiDevice
{
public:
    /// Plugs it in, and waits until the sequencer has its client.
    explicit UsbMidiDevice(const UsbMidiOptions& options = {});
    /// Pulls it out if it is still in, and waits until the sequencer has dropped its client.
    ~UsbMidiDevice();
    UsbMidiDevice(const UsbMidiDevice&) = delete;
    UsbMidiDevice& operator=(const UsbMidiDevice&) = delete;

    /// "client:port" in the sequencer, and the client's number.
    [[nodiscard]] std::string address() const { return std::to_string(client_) + ":0"; }
    [[nodiscard]] int client() const { return client_; }
    /// The card's number.
    [[nodiscard]] int card() const;
    [[nodiscard]] const std::string& name() const { return options_.name; }

    void unplug();
    /// Takes nothing for a while, beginning when so many bytes have come; seconds 0 is for ever.
    void stallAt(int bytes, double seconds);
    void unplugAt(int bytes);
    /// Plays bytes on the keyboard: they come in by USB at once.
    void play(const std::string& bytes);

    /// The bytes that have come, in order.
    [[nodiscard]] std::string received() const;
    /// The same once nothing more has come for half a second and the cable is free.
    [[nodiscard]] std::string receivedInTheEnd() const;
    void forget();
    [[nodiscard]] int lost() const;
    /// Seconds from the first byte on the cable to the last one off it.
    [[nodiscard]] double wireSeconds() const;
    /// Seconds of the monotonic clock.
    [[nodiscard]] double lastByteOffAt() const;
    [[nodiscard]] double unpluggedAt() const;

public:
    struct Shared;

private:
    UsbMidiOptions options_;
    Shared* shared_ = nullptr; ///< memory of both processes
    pid_t process_ = -1;
    int client_ = -1;
};

/// Seconds of the monotonic clock.
double nowSeconds();
void sleepSeconds(double seconds);

/// Waits for a condition, at most so long, and tells whether it came true. It computes instead of sleeping: an idle
/// machine would skip ahead, and its patience would be over before the real disk has given out a program's file.
template <typename Condition>
bool waitUntil(Condition condition, double seconds = 30)
{
    for (const double end = nowSeconds() + seconds; !condition();)
        if (nowSeconds() > end)
            return false;
    return true;
}
/// The number of the sequencer client of this name by /proc/asound/seq/clients; -1 when there is none.
int clientNamed(const std::string& name);
/// Runs a shell command and gives its output; the status, too, where asked for.
std::string outputOf(const std::string& command, int* status = nullptr);
