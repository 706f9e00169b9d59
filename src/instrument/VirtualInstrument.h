// The instrument that everybody has: it takes the bytes of a cable and holds what a real one would hold.
//
// It knows its mode, what is selected on each channel, the sounding notes and controllers, and the user data that was
// sent to it: arrangements, styles by group, programs, the global block, single parameters. What is malformed is
// counted with its reason and changes nothing else. It decides nothing for the program, which never hears from it.
#pragma once

#include "core/Bytes.h"
#include "instrument/StreamDecoder.h"

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// What one MIDI channel was told. -1 = never.
struct ChannelState {
    ChannelState();

    bool used = false; ///< any message came on this channel
    int bankMsb = -1;  ///< the bank that the next program change will take
    int bankLsb = -1;
    int program = -1;    ///< 0 to 127, the program selected
    int programMsb = -1; ///< the bank in force when it was selected
    int programLsb = -1;
    std::array<int, 128> controllers{};
    std::array<int, 128> velocities{}; ///< of the sounding notes; 0 = the note is silent
    int pitchBend = -1;                ///< 0 to 16383, 8192 in the middle
    int pressure = -1;
};

/// One of the 16 style slots, inside the body of its group.
struct StyleSlot {
    ByteBuffer descriptor; ///< 6 bytes as received
    Field block;           ///< in the group's body
};

/// Four styles as one message brought them.
struct StyleGroup {
    bool received = false;
    ByteBuffer body; ///< unpacked: four descriptors, then the blocks
    std::array<StyleSlot, 4> styles;
};

/// One message in words, in the language of the run.
struct LoggedMessage {
    std::string words; ///< UTF-8
    std::string head;  ///< its first bytes in hexadecimal
    int length = 0;    ///< bytes
    Fault fault = Fault::None;
};

struct SoundingNote {
    int channel = 0; ///< 0 to 15
    int note = 0;
    int velocity = 0;
    bool operator==(const SoundingNote&) const = default;
};

class VirtualInstrument
{
public:
    static constexpr int ChannelCount = 16;
    static constexpr int NoMode = -1;
    static constexpr std::size_t LogLength = 200;

    VirtualInstrument();
    VirtualInstrument(const VirtualInstrument&) = delete;
    VirtualInstrument& operator=(const VirtualInstrument&) = delete;

    /// The sender begins a message. The program leaves no status out, so its messages never run on from one to the
    /// next.
    void beginMessage() { decoder_.beginMessage(); }

    /// Bytes arrive from the cable, in pieces of any length.
    void take(std::string_view bytes);

    /// Called after each take() that completed at least one message. For a window; it must not send.
    std::function<void()> onChange;

    // Running state.
    [[nodiscard]] int mode() const { return mode_; }                   ///< DeviceModes number, or NoMode
    [[nodiscard]] const char* modeLabel() const;                       ///< "ARR PLAY" ...; empty for NoMode
    [[nodiscard]] int globalChannel() const { return globalChannel_; } ///< g of the last frame, 0 before the first
    [[nodiscard]] const ChannelState& channel(int number) const;       ///< 0 to 15
    [[nodiscard]] std::vector<SoundingNote> soundingNotes() const;     ///< by channel, then note
    [[nodiscard]] std::optional<int> parameter(int number) const;      ///< last value of a parameter change, 0 to 127

    // What the global channel has selected: an arrangement, in bank 1 one of those held here.
    [[nodiscard]] std::optional<int> selectedUserArrangement() const; ///< 0 to 63
    [[nodiscard]] std::string selectedArrangementName() const;        ///< Latin-1; empty outside bank 1

    // What it holds. Images are empty until received; names are Latin-1, trimmed, empty where nothing is held.
    [[nodiscard]] const ByteBuffer& arrangements() const { return arrangements_; }           ///< 10496 bytes
    [[nodiscard]] const ByteBuffer& programs() const { return programs_; }                   ///< 11008 bytes
    [[nodiscard]] const ByteBuffer& programSecondArea() const { return programSecondArea_; } ///< 2104 bytes
    [[nodiscard]] const ByteBuffer& globalBlock() const { return globalBlock_; }             ///< 415 bytes
    [[nodiscard]] const StyleGroup& styleGroup(int group) const;                             ///< 0 to 3
    [[nodiscard]] std::string_view styleBlock(int slot) const;                               ///< 0 to 15
    [[nodiscard]] std::string arrangementName(int index) const;                              ///< 0 to 63
    [[nodiscard]] std::string styleName(int slot) const;                                     ///< 0 to 15
    [[nodiscard]] std::string programName(int index) const;                                  ///< 0 to 63
    /// The sound that a channel other than the global one has selected: factory or held here.
    [[nodiscard]] std::string selectedProgramName(int channelNumber) const;

    // What came in.
    [[nodiscard]] std::int64_t byteCount() const { return byteCount_; }
    [[nodiscard]] int messageCount() const { return messageCount_; } ///< well-formed ones; real-time bytes apart
    [[nodiscard]] int malformedCount() const;
    [[nodiscard]] int malformedCount(Fault fault) const;
    [[nodiscard]] std::int64_t loggedCount() const { return loggedCount_; } ///< lines ever written to the log below
    [[nodiscard]] const std::deque<LoggedMessage>& lastMessages() const { return log_; } ///< oldest first

private:
    void hear(const StreamDecoder::Message& message);
    void takeChannelMessage(std::string_view bytes);
    std::string takeController(int channelIndex, int controller, int value);
    std::string takeProgramChange(int channelIndex, int program);
    void takeFrame(std::string_view frame);
    Fault takeBody(int function, std::string_view body, std::string& words);
    Fault takeParameter(std::string_view body, std::string& words);
    Fault takeMode(std::string_view body, std::string& words);
    Fault takeDump(int function, const ByteBuffer& body, std::string& words);
    Fault takeStyleGroup(const ByteBuffer& body, std::string& words);
    void count(Fault fault, std::string_view bytes);
    void note(std::string_view bytes, std::string words, Fault fault = Fault::None);

    StreamDecoder decoder_;
    int mode_ = NoMode;
    int globalChannel_ = 0;
    std::array<ChannelState, ChannelCount> channels_;
    std::array<std::optional<int>, 128> parameters_;
    ByteBuffer arrangements_;
    ByteBuffer programs_;
    ByteBuffer programSecondArea_;
    ByteBuffer globalBlock_;
    std::array<StyleGroup, 4> styles_;
    std::int64_t byteCount_ = 0;
    int messageCount_ = 0;
    std::array<int, static_cast<std::size_t>(Fault::Count)> faults_{};
    std::deque<LoggedMessage> log_;
    std::int64_t loggedCount_ = 0;
    bool changed_ = false;
};

/// What the instrument holds, in a few lines of the run's language, UTF-8.
std::string accountOf(const VirtualInstrument& instrument);
