// The virtual instrument: any bytes of a cable, cut into any pieces.
//
// Input: a byte of choices, a byte for the pieces' length, then the bytes. With choice 1 they are a script instead: a
// byte that says what comes (a whole frame with a good head and a packed body, or bytes as they are).
#include "Fuzz.h"
#include "Images.h"

#include "instrument/InstrumentTexts.h"
#include "instrument/VirtualInstrument.h"
#include "midi/SysEx.h"

#include <memory>

using namespace Fuzz;

namespace
{

constexpr int Script = 1, Dump = 2; ///< choices

struct Heard {
    MessageKind kind;
    Fault fault;
    std::string bytes;
    bool operator==(const Heard&) const = default;
};

/// Messages as they come. Data without a status is told at the end of a piece at the latest, so how it is cut and where
/// it stands among the others is no promise: it is kept apart.
struct Listener {
    std::vector<Heard> messages;
    std::string stray;
    int told = 0; ///< messages of all kinds but real time
    StreamDecoder decoder{[this](const StreamDecoder::Message& message) {
        told += message.kind == MessageKind::RealTime ? 0 : 1;
        if (message.fault == Fault::NoStatus)
            stray += message.bytes;
        else
            messages.push_back({message.kind, message.fault, std::string(message.bytes)});
    }};

    Listener(std::string_view bytes, std::size_t pieces)
    {
        for (; !bytes.empty(); bytes.remove_prefix(std::min(pieces, bytes.size())))
            decoder.feed(bytes.substr(0, pieces));
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
};

/// Data bytes that belong to a status, by the table of messages; a frame has no end but its own.
std::size_t dataOf(int status)
{
    if (status == 0xF0)
        return std::string_view::npos;
    const bool one = status / 16 == 0xC || status / 16 == 0xD || status == 0xF1 || status == 0xF3;
    return one ? 1 : status < 0xF0 || status == 0xF2 ? 2 : 0;
}

void checkMessage(const Heard& heard)
{
    const int status = at(heard.bytes, 0);
    must(!heard.bytes.empty(), "a message has bytes");
    must((heard.kind == MessageKind::Malformed) == (heard.fault != Fault::None), "what is malformed has its reason");
    if (heard.kind == MessageKind::Malformed) {
        const bool byEnd = at(heard.bytes, heard.bytes.size() - 1) == 0xF7;
        must(heard.bytes == "\xF7" || heard.bytes.size() - (byEnd ? 2 : 1) < dataOf(status),
             "what is cut is shorter than its message");
        return;
    }
    const bool frame = heard.kind == MessageKind::SysEx;
    for (std::size_t k = 1; k + (frame ? 1 : 0) < heard.bytes.size(); ++k)
        must(at(heard.bytes, k) < 0x80, "no status stands inside a message");
    if (frame)
        must(status == 0xF0 && at(heard.bytes, heard.bytes.size() - 1) == 0xF7, "a frame goes from F0 to F7");
    else if (heard.kind == MessageKind::Channel)
        must(status >= 0x80 && status < 0xF0 && heard.bytes.size() == 1 + dataOf(status),
             "a channel message has its data");
    else
        must(heard.kind == MessageKind::RealTime
                 ? status >= 0xF8
                 : status > 0xF0 && status < 0xF7 && heard.bytes.size() == 1 + dataOf(status),
             "a system message");
}

/// A tune request at the end brings out whatever is still pending: then each data byte has been told once, in a message
/// or with the reason why it is in none.
void checkAccount(const std::string& bytes)
{
    const auto isData = [](char byte) { return valueOf(byte) < 0x80; };
    const Listener all(bytes + "\xF6", bytes.size() + 1);
    auto told = std::count_if(all.stray.begin(), all.stray.end(), isData);
    for (const Heard& one : all.messages)
        told += std::count_if(one.bytes.begin(), one.bytes.end(), isData);
    must(told == std::count_if(bytes.begin(), bytes.end(), isData), "every data byte is told once");
    must(all.messages.back().kind == MessageKind::System, "and the last message is heard");
}

/// The bytes of a cable that an input scripts: good frames among others.
std::string scripted(Choices& choices)
{
    static const std::string records = Images::arr().substr(32), block = Images::gbl().substr(32, 415);
    std::string bytes;
    while (!choices.empty()) {
        const int what = choices.byte();
        const auto length = static_cast<std::size_t>(choices.byte());
        if (what % 4 == 0) {
            bytes += choices.text(length);
            continue;
        }
        std::string body = what % 4 == 1 ? block : std::string(choices.text(length));
        if (what % 4 == 3) { // a style group of blocks of 16 bytes and more, as a sender would build it
            std::string group, blocks;
            for (int slot = 0; slot < 4; ++slot) {
                const int size = 16 + choices.byte() % 4, offset = 24 + static_cast<int>(blocks.size());
                for (const int value : {offset, 0, 0, 0x80 + what / 4 % 4, size, 0})
                    group += static_cast<char>(value);
                blocks += std::string(static_cast<std::size_t>(size), static_cast<char>('A' + slot));
            }
            body = group + blocks;
        }
        constexpr Function Functions[] = {Function::GlobalDump, Function::ParameterChange, Function::ModeChange,
                                          Function::ProgramDump, Function::ArrangementDump};
        const Function function = what % 4 == 3   ? Function::StyleDump
                                  : what % 4 == 1 ? Function::GlobalDump
                                                  : Functions[what / 4 % 5];
        bytes += sysExFrame(function, what % 4 == 2 && what / 4 % 5 < 3 ? body : packedSevenBit(body));
    }
    return bytes;
}

/// Four descriptors that follow on one another, of one group, and exactly the blocks that they tell of.
bool isGroup(std::string_view body)
{
    std::size_t expected = 24;
    for (std::size_t slot = 0; slot < 4; ++slot) {
        const std::size_t place = 6 * slot;
        const auto offset = static_cast<std::size_t>(at(body, place) + at(body, place + 2) * 256);
        const auto length = static_cast<std::size_t>(at(body, place + 4) + at(body, place + 5) * 256);
        const int mark = at(body, place + 3);
        if (offset != expected || length == 0 || at(body, place + 1) != 0 || mark < 0x80 || mark > 0x83 ||
            mark != at(body, 3))
            return false;
        expected += length;
    }
    return body.size() == expected;
}

/// A frame that the instrument must take: by its head, its function, and the length that its function asks for.
bool isTaken(std::string_view frame)
{
    if (frame.size() < 6 || at(frame, 1) != 0x42 || at(frame, 2) / 16 != 3 || at(frame, 3) != 0x4D)
        return false;
    const std::string_view body = frame.substr(5, frame.size() - 6);
    const int function = at(frame, 4);
    if (function == 0x41)
        return body.size() == 3;
    if (function == 0x4E)
        return body == "\x0A" || body == "\x06" || body == "\x04";
    std::string bytes;
    if (!unpacked(body, bytes))
        return false;
    return (function == 0x64 && bytes.size() == 10496) || (function == 0x4C && bytes.size() == 13112) ||
           (function == 0x51 && bytes.size() == 415) || (function == 0x65 && isGroup(bytes));
}

/// Messages that are well formed, real time apart.
int goodOnes(const std::vector<Heard>& messages)
{
    int count = 0;
    for (const Heard& one : messages)
        count += one.kind == MessageKind::Channel || one.kind == MessageKind::System ||
                         (one.kind == MessageKind::SysEx && isTaken(one.bytes))
                     ? 1
                     : 0;
    return count;
}

void checkInstrument(const VirtualInstrument& instrument, std::string_view bytes, int told, int good)
{
    must(instrument.byteCount() == static_cast<std::int64_t>(bytes.size()), "every byte is counted");
    must(instrument.messageCount() == good, "every good message is taken, and no other");
    must(instrument.malformedCount() == told - good, "every other is counted with its reason");
    must(instrument.mode() >= -1 && instrument.mode() <= 2, "a mode is one of three");
    must(instrument.globalChannel() >= 0 && instrument.globalChannel() <= 15, "a channel is one of 16");
    must(instrument.arrangements().empty() || instrument.arrangements().size() == 10496, "arrangements are whole");
    must(instrument.programs().empty() || instrument.programs().size() == 11008, "programs are whole");
    must(instrument.globalBlock().empty() || instrument.globalBlock().size() == 415, "a global block is whole");
    must(instrument.lastMessages().size() <= 200, "the log keeps 200 lines");
    for (int slot = 0; slot < 16; ++slot)
        must(instrument.styleName(slot).size() <= 16, "a style's name is short");
    for (const SoundingNote& note : instrument.soundingNotes())
        must(note.note <= 127 && note.velocity >= 1 && note.velocity <= 127, "a note is one of 128");
}

void checkTexts(const VirtualInstrument& instrument)
{
    must(InstrumentTexts::channelRows(instrument).size() <= 16, "a row for each channel at most");
    must(InstrumentTexts::parameterRows(instrument).size() <= 129, "a row for each parameter at most");
    must(!InstrumentTexts::counts(instrument).empty() && !accountOf(instrument).empty(), "the account has words");
    for (int row = 0; row < 64; ++row)
        must(instrument.arrangementName(row).size() <= 16 && instrument.programName(row).size() <= 16,
             "names are short");
}

} // namespace

void fuzzOne(std::string_view input)
{
    desk();
    Choices choices(input);
    const int how = choices.byte();
    const auto pieces = static_cast<std::size_t>(choices.byte() % 16 + 1);
    const std::string bytes = (how & Script) != 0 ? scripted(choices) : std::string(choices.rest());
    const Listener whole(bytes, bytes.size() + 1), cut(bytes, pieces);
    must(whole.messages == cut.messages && whole.stray == cut.stray,
         "however the bytes are cut, the messages are the same");
    for (const Heard& one : whole.messages)
        checkMessage(one);
    checkAccount(bytes);

    VirtualInstrument instrument;
    instrument.take(bytes);
    checkInstrument(instrument, bytes, whole.told, goodOnes(whole.messages));
    if ((how & Dump) != 0)
        checkTexts(instrument);
}
