// The kernel's MIDI sequencer by alsa-lib: the only file with its calls.
#pragma once

#include "midi/Sequencer.h"

#include <memory>

class AlsaSequencer final : public Sequencer
{
public:
    AlsaSequencer();
    ~AlsaSequencer() override;
    AlsaSequencer(const AlsaSequencer&) = delete;
    AlsaSequencer& operator=(const AlsaSequencer&) = delete;

    int open() override;
    void close() override;
    bool isOpen() const override;
    int client() const override;
    int makeOutput() override;
    SeqAddress output() const override;
    std::vector<SeqPort> ports() override;
    std::vector<SeqWire> wiresFrom(SeqAddress sender) override;
    int wire(SeqAddress sender, SeqAddress receiver, WireMark mark) override;
    int unwire(SeqAddress sender, SeqAddress receiver) override;
    int sendPiece(SeqAddress receiver, std::string_view bytes) override;
    int sendShort(SeqAddress receiver, std::string_view bytes) override;
    std::optional<PortAccount> account(const SeqPort& port) override;

private:
    struct Handle;

    std::unique_ptr<Handle> handle_; ///< null while closed
};
