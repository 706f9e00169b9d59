// The order of the ports.
#include "midi/SequencerPorts.h"

#include <algorithm>
#include <tuple>

namespace
{

/// 0 a card with a cable, 1 another port of a card, 2 a program; -1 is never chosen.
int rankOf(const SeqPort& port)
{
    if (port.card >= 0)
        return port.hardware ? 0 : 1;
    // The kernel's own ports without a card are its clock and announcements (System) and a loop (Midi Through): bytes
    // sent there reach no instrument.
    return port.kernel ? -1 : 2;
}

std::vector<SeqPort> inOrder(const std::vector<SeqPort>& ports, bool SeqPort::*usable)
{
    std::vector<SeqPort> chosen;
    for (const SeqPort& port : ports)
        if (port.*usable && rankOf(port) >= 0)
            chosen.push_back(port);
    const auto key = [](const SeqPort& port) {
        return std::make_tuple(rankOf(port), port.card, port.address.client, port.address.port);
    };
    std::stable_sort(chosen.begin(), chosen.end(),
                     [&key](const SeqPort& one, const SeqPort& other) { return key(one) < key(other); });
    const bool anyCard = !chosen.empty() && chosen.front().card >= 0;
    if (anyCard)
        chosen.erase(std::remove_if(chosen.begin(), chosen.end(), [](const SeqPort& port) { return port.card < 0; }),
                     chosen.end());
    return chosen;
}

} // namespace

std::vector<SeqPort> SequencerPorts::outputs(const std::vector<SeqPort>& ports)
{
    return inOrder(ports, &SeqPort::writable);
}

std::vector<SeqPort> SequencerPorts::inputs(const std::vector<SeqPort>& ports)
{
    return inOrder(ports, &SeqPort::readable);
}

const SeqPort* SequencerPorts::at(const std::vector<SeqPort>& ports, SeqAddress address)
{
    for (const SeqPort& port : ports)
        if (port.address == address)
            return &port;
    return nullptr;
}

const SeqPort* SequencerPorts::sameName(const std::vector<SeqPort>& ports, const SeqPort& wanted)
{
    const SeqPort* found = nullptr;
    for (const SeqPort& port : ports) {
        if (port.clientName != wanted.clientName || port.portName != wanted.portName)
            continue;
        if (found == nullptr || (found->card != wanted.card && port.card == wanted.card))
            found = &port;
    }
    return found;
}

std::string SequencerPorts::displayName(const SeqPort& port)
{
    // Most drivers repeat the interface's name in that of the port.
    if (port.portName.compare(0, port.clientName.size(), port.clientName) == 0)
        return port.portName;
    return port.clientName + ": " + port.portName;
}
