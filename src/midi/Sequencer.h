// What the program needs of the system's MIDI sequencer: ports, the wires between them, and sending to one of them.
//
// The sequencer is the patch bay of the machine: programs and interfaces have ports, and a subscription is a wire from
// one to another, which any program may plug or pull. AlsaSequencer.h is the real one; the tests have another. Errors
// are negative errno values, 0 is success.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The place of a port: the number of its program or interface, and its own number there.
struct SeqAddress {
    int client = 0;
    int port = 0;
    bool operator==(const SeqAddress&) const = default;
};

struct SeqPort {
    SeqAddress address;
    int card = -1;         ///< the sound card behind it, from 0; -1 for a program
    bool kernel = false;   ///< a driver's port, not a program's
    bool hardware = false; ///< the driver says that a device with a cable is behind it
    bool readable = false; ///< may be the start of a wire
    bool writable = false; ///< may be the end of a wire
    std::string clientName;
    std::string portName;
    std::int64_t birth = 0; ///< another number after each plugging in of a card or start of a program; 0 unknown
};

/// Who laid a wire between two foreign ports: such a wire outlives whoever laid it.
enum class WireMark { None, Ours };

struct SeqWire {
    SeqAddress receiver;
    WireMark mark = WireMark::None;
};

/// The driver's account of one hardware output. All in bytes.
struct PortAccount {
    std::int64_t passedOn = 0; ///< out of its buffer to the device; never falls
    std::int64_t size = 0;     ///< of the buffer
    std::int64_t room = 0;     ///< free in the buffer
    /// Taken into its buffer since then.
    [[nodiscard]] std::int64_t accepted() const { return passedOn + (size - room); }
    bool operator==(const PortAccount&) const = default;
};

class Sequencer
{
public:
    virtual ~Sequencer() = default;

    /// Enters as client "Tarvolyne". An error means that there is no sequencer here, or no right to it.
    [[nodiscard]] virtual int open() = 0;
    /// Leaves; the own port and its wires go with it. Nothing happens when not open.
    virtual void close() = 0;
    [[nodiscard]] virtual bool isOpen() const = 0;
    /// The own client's number while open.
    [[nodiscard]] virtual int client() const = 0;
    /// Makes the own output port "MIDI out", once; later calls find it there.
    [[nodiscard]] virtual int makeOutput() = 0;
    [[nodiscard]] virtual SeqAddress output() const = 0;

    /// All ports of all clients but our own, in the order of their numbers.
    [[nodiscard]] virtual std::vector<SeqPort> ports() = 0;
    /// Where the wires from a port lead.
    [[nodiscard]] virtual std::vector<SeqWire> wiresFrom(SeqAddress sender) = 0;
    /// Lays a wire that others may share. EBUSY: held exclusively by somebody, or laid already; EAGAIN: held as a raw
    /// device by somebody.
    [[nodiscard]] virtual int wire(SeqAddress sender, SeqAddress receiver, WireMark mark) = 0;
    virtual int unwire(SeqAddress sender, SeqAddress receiver) = 0;

    /// Sends bytes to one port as they are, as a piece of a long message. ENOENT: the port is gone; ENODEV: nobody
    /// holds it open.
    [[nodiscard]] virtual int sendPiece(SeqAddress receiver, std::string_view bytes) = 0;
    /// Sends a short message, which programs see as the note or controller that it is.
    [[nodiscard]] virtual int sendShort(SeqAddress receiver, std::string_view bytes) = 0;
    /// The account of a hardware output that is open; nothing where the system gives none.
    [[nodiscard]] virtual std::optional<PortAccount> account(const SeqPort& port) = 0;
};
