// Who gets what the program sends: the ports that are wired to "MIDI out", by us at the start or by the musician's
// patch bay at any time.
//
// A wire that somebody pulled stays pulled. A wire that went with its device is laid again when a port of the same name
// is back, whatever number it has then.
#pragma once

#include "midi/CableFeed.h"

#include <memory>

class Receivers
{
public:
    explicit Receivers(Sequencer& sequencer);
    ~Receivers();
    Receivers(const Receivers&) = delete;
    Receivers& operator=(const Receivers&) = delete;

    /// Wires the own output to a port. 0, or the sequencer's error.
    [[nodiscard]] int wire(const SeqPort& port);
    /// Looks at the wires as they are now, and lays those again whose device is back. Quick when nothing has changed.
    void refresh();
    /// Pulls all wires of the own output and forgets everything.
    void clear();

    [[nodiscard]] CableFeed::Outlets outlets() const;
    [[nodiscard]] std::vector<SeqAddress> addresses() const;
    [[nodiscard]] bool empty() const { return wired_.empty(); }
    /// True while a device is unplugged that nobody has replaced.
    [[nodiscard]] bool missing() const { return !gone_.empty(); }
    /// The names of the wired ports, for the user; empty when there is none.
    [[nodiscard]] std::string displayNames() const;

private:
    class Outlet;

    void follow(const std::vector<SeqWire>& wires);
    void layAgain(const std::vector<SeqPort>& ports);
    void add(const SeqPort& port);
    void weigh();

    Sequencer& sequencer_;
    std::vector<std::unique_ptr<Outlet>> wired_;
    std::vector<SeqPort> gone_; ///< unplugged with their wire
};
