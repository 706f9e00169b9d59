// The list of receivers, kept in step with the patch bay.
#include "midi/Receivers.h"

#include "midi/SequencerPorts.h"

#include <algorithm>
#include <cerrno>

class Receivers::Outlet final : public CableOutlet
{
public:
    Outlet(Sequencer& sequencer, SeqPort described) : port(std::move(described)), sequencer_(sequencer)
    {
        // Only where a device is behind the port does an emptied buffer mean that the bytes are on a cable.
        watched = port.card >= 0 && port.hardware && account().has_value();
    }

    int give(PieceKind kind, std::string_view bytes) override
    {
        return kind == PieceKind::Short ? sequencer_.sendShort(port.address, bytes)
                                        : sequencer_.sendPiece(port.address, bytes);
    }
    std::optional<PortAccount> account() override { return sequencer_.account(port); }

    const SeqPort port;

private:
    Sequencer& sequencer_;
};

namespace
{

bool has(const std::vector<SeqWire>& wires, SeqAddress address)
{
    return std::any_of(wires.begin(), wires.end(), [&](const SeqWire& wire) { return wire.receiver == address; });
}

} // namespace

Receivers::Receivers(Sequencer& sequencer) : sequencer_(sequencer) {}

Receivers::~Receivers() = default;

int Receivers::wire(const SeqPort& port)
{
    int result = sequencer_.wire(sequencer_.output(), port.address, WireMark::None);
    // A patch bay that remembers its wires may have been quicker.
    if (result == -EBUSY && has(sequencer_.wiresFrom(sequencer_.output()), port.address))
        result = 0;
    if (result == 0) {
        add(port);
        weigh();
    }
    return result;
}

void Receivers::refresh()
{
    const std::vector<SeqWire> wires = sequencer_.wiresFrom(sequencer_.output());
    const bool asKnown = wires.size() == wired_.size() &&
                         std::all_of(wired_.begin(), wired_.end(),
                                     [&wires](const auto& outlet) { return has(wires, outlet->port.address); });
    if (!asKnown || missing())
        follow(wires);
}

void Receivers::follow(const std::vector<SeqWire>& wires)
{
    const std::vector<SeqPort> ports = sequencer_.ports();
    for (auto outlet = wired_.begin(); outlet != wired_.end();) {
        const SeqPort& known = (*outlet)->port;
        if (has(wires, known.address)) {
            ++outlet;
            continue;
        }
        const SeqPort* now = SequencerPorts::at(ports, known.address);
        const bool pulledByHand = now != nullptr && now->birth == known.birth && now->portName == known.portName;
        if (!pulledByHand)
            gone_.push_back(known);
        outlet = wired_.erase(outlet);
    }
    for (const SeqWire& wire : wires) {
        const bool known = std::any_of(wired_.begin(), wired_.end(),
                                       [&](const auto& outlet) { return outlet->port.address == wire.receiver; });
        const SeqPort* port = SequencerPorts::at(ports, wire.receiver);
        if (known || port == nullptr)
            continue;
        add(*port);
        // Whoever wires another interface has given up waiting for the old one. A program may be a mere listener.
        if (port->card >= 0)
            gone_.clear();
    }
    layAgain(ports);
    weigh();
}

void Receivers::layAgain(const std::vector<SeqPort>& ports)
{
    for (auto lost = gone_.begin(); lost != gone_.end();) {
        const SeqPort* back = SequencerPorts::sameName(ports, *lost);
        if (back != nullptr && back->writable &&
            sequencer_.wire(sequencer_.output(), back->address, WireMark::None) == 0) {
            add(*back);
            lost = gone_.erase(lost);
        } else {
            ++lost;
        }
    }
}

void Receivers::add(const SeqPort& port) { wired_.push_back(std::make_unique<Outlet>(sequencer_, port)); }

/// Beside an interface, programs are listeners; alone, they are the instrument.
void Receivers::weigh()
{
    const bool anyCard =
        std::any_of(wired_.begin(), wired_.end(), [](const auto& outlet) { return outlet->port.card >= 0; });
    for (const auto& outlet : wired_)
        outlet->counts = !anyCard || outlet->port.card >= 0;
}

void Receivers::clear()
{
    for (const auto& outlet : wired_)
        sequencer_.unwire(sequencer_.output(), outlet->port.address);
    wired_.clear();
    gone_.clear();
}

CableFeed::Outlets Receivers::outlets() const
{
    CableFeed::Outlets list;
    for (const auto& outlet : wired_)
        list.push_back(outlet.get());
    return list;
}

std::vector<SeqAddress> Receivers::addresses() const
{
    std::vector<SeqAddress> list;
    for (const auto& outlet : wired_)
        list.push_back(outlet->port.address);
    return list;
}

std::string Receivers::displayNames() const
{
    std::string names;
    for (const auto& outlet : wired_)
        if (outlet->counts)
            names += (names.empty() ? "" : ", ") + SequencerPorts::displayName(outlet->port);
    return names;
}
