// Thru: the master keyboard wired to the instrument inside the sequencer, so that a key sounds without this program
// having to run.
//
// Such a wire belongs to nobody and outlives the program, even its crash; so it carries a mark, and the next start
// pulls what a crash has left. It is taken down while a long message goes out: the status byte of a key played in its
// middle would end the message, and the rest of it would sound as notes.
#pragma once

#include "midi/Sequencer.h"

class ThruWires
{
public:
    explicit ThruWires(Sequencer& sequencer) : sequencer_(sequencer) {}

    /// Wires a keyboard to the receivers. A wire that somebody has laid already serves as well and is left at the end.
    /// 0, or the error of the first receiver that could not be wired.
    [[nodiscard]] int connect(const SeqPort& keyboard, const std::vector<SeqAddress>& receivers);
    void disconnect();
    [[nodiscard]] bool on() const { return on_; }

    /// Takes the wires down for the length of a message.
    void suspend();
    /// Lays them again, to the receivers as they are now and from the keyboard wherever it is plugged now.
    void resume(const std::vector<SeqAddress>& receivers);
    /// Changes the wires where the receivers have changed, and lays those again that went with a device.
    void follow(const std::vector<SeqAddress>& receivers);

    /// Pulls every marked wire of the machine.
    static void pullLeftovers(Sequencer& sequencer);

private:
    struct Laid {
        SeqAddress receiver;
        bool ours = true; ///< false: somebody's own, to be left as it was found
    };

    [[nodiscard]] int lay(SeqAddress receiver, bool ours);
    void findKeyboard();

    Sequencer& sequencer_;
    bool on_ = false;
    SeqPort keyboard_;
    std::vector<Laid> laid_;
};
