// Laying and pulling the wires of thru.
#include "midi/ThruWires.h"

#include "midi/SequencerPorts.h"

#include <algorithm>

namespace
{

const SeqWire* wireTo(const std::vector<SeqWire>& wires, SeqAddress receiver)
{
    for (const SeqWire& wire : wires)
        if (wire.receiver == receiver)
            return &wire;
    return nullptr;
}

} // namespace

int ThruWires::connect(const SeqPort& keyboard, const std::vector<SeqAddress>& receivers)
{
    disconnect();
    keyboard_ = keyboard;
    on_ = true;
    int first = 0;
    for (const SeqAddress receiver : receivers) {
        const int result = lay(receiver, true);
        if (first == 0)
            first = result;
    }
    on_ = first == 0 || !laid_.empty();
    return first;
}

int ThruWires::lay(SeqAddress receiver, bool ours)
{
    const std::vector<SeqWire> wires = sequencer_.wiresFrom(keyboard_.address);
    const SeqWire* there = wireTo(wires, receiver);
    if (there != nullptr) {
        laid_.push_back({receiver, there->mark == WireMark::Ours});
        return 0;
    }
    const int result = sequencer_.wire(keyboard_.address, receiver, ours ? WireMark::Ours : WireMark::None);
    if (result == 0)
        laid_.push_back({receiver, ours});
    return result;
}

void ThruWires::disconnect()
{
    for (const Laid& wire : laid_)
        if (wire.ours)
            sequencer_.unwire(keyboard_.address, wire.receiver);
    laid_.clear();
    on_ = false;
}

void ThruWires::suspend()
{
    if (!on_)
        return;
    for (const Laid& wire : laid_)
        sequencer_.unwire(keyboard_.address, wire.receiver);
}

void ThruWires::resume(const std::vector<SeqAddress>& receivers)
{
    if (!on_)
        return;
    const std::vector<Laid> before = laid_;
    laid_.clear();
    findKeyboard();
    for (const SeqAddress receiver : receivers) {
        const auto old =
            std::find_if(before.begin(), before.end(), [&](const Laid& wire) { return wire.receiver == receiver; });
        // What cannot be laid now, with the keyboard unplugged for one, is tried again at the next message.
        static_cast<void>(lay(receiver, old == before.end() || old->ours));
    }
}

void ThruWires::follow(const std::vector<SeqAddress>& receivers)
{
    if (!on_)
        return;
    // A wire goes with either of its ends, and what is plugged in again often gets the number that it had before.
    const std::vector<SeqWire> wires = sequencer_.wiresFrom(keyboard_.address);
    laid_.erase(std::remove_if(laid_.begin(), laid_.end(),
                               [&wires](const Laid& wire) { return wireTo(wires, wire.receiver) == nullptr; }),
                laid_.end());
    const bool same =
        laid_.size() == receivers.size() &&
        std::all_of(receivers.begin(), receivers.end(), [this](SeqAddress receiver) {
            return std::any_of(laid_.begin(), laid_.end(), [&](const Laid& wire) { return wire.receiver == receiver; });
        });
    if (same)
        return;
    for (const Laid& wire : laid_)
        if (wire.ours)
            sequencer_.unwire(keyboard_.address, wire.receiver);
    resume(receivers);
}

void ThruWires::findKeyboard()
{
    const std::vector<SeqPort> ports = sequencer_.ports();
    const SeqPort* now = SequencerPorts::at(ports, keyboard_.address);
    if (now != nullptr && now->clientName == keyboard_.clientName && now->portName == keyboard_.portName)
        return;
    const SeqPort* again = SequencerPorts::sameName(ports, keyboard_);
    if (again != nullptr)
        keyboard_ = *again;
}

void ThruWires::pullLeftovers(Sequencer& sequencer)
{
    for (const SeqPort& port : sequencer.ports())
        for (const SeqWire& wire : sequencer.wiresFrom(port.address))
            if (wire.mark == WireMark::Ours)
                sequencer.unwire(port.address, wire.receiver);
}
