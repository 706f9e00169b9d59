// Seven-bit packing, the frames around it, and the short frames of parameters and modes.
//
// Input: a byte of choices (the channel in its low four bits), a function, then the bytes.
#include "Fuzz.h"
#include "Wire.h"

#include "core/Dichiarazioni.h"
#include "midi/DeviceModes.h"
#include "midi/SysEx.h"

using namespace Fuzz;

namespace
{

void checkPacked(std::string_view source)
{
    const std::string packed = packedSevenBit(source);
    must(packed.size() == source.size() + (source.size() + 6) / 7, "n bytes become n + ceil(n / 7)");
    for (const char byte : packed)
        must(valueOf(byte) < 0x80, "no byte is over 7F");
    std::string back, byProgram;
    must(unpacked(packed, back) && back == source, "what is packed unpacks to the source");
    must(unpackSevenBit(packed, byProgram) && byProgram == source, "also by the program's own way");
    SevenBitPack(source);
    must(Midi.SysExOutput == packed, "the output string gets the same");
}

/// Bytes that nobody has packed: taken where the rules take them, and then both ways give the same.
void checkUnpacked(std::string_view wire)
{
    std::string byHand, byProgram = "kept";
    const bool good = unpacked(wire, byHand);
    must(unpackSevenBit(wire, byProgram) == good, "what is no packing is refused");
    must(byProgram == (good ? byHand : "kept"), "and changes nothing then");
}

void checkFrames(LastMessage& wire, Choices& choices, int channel)
{
    wire.message.clear();
    const int parameter = choices.byte() % 128, track = choices.byte() % 24, value = choices.word() % 16000;
    const bool negative = choices.byte() % 2 == 1;
    ParamChangeSend(track, parameter, value, negative ? 1 : 0);
    constexpr int Shifts[] = {0, 64, 128, 192, 256, 384};
    const int shift = parameter != 70 ? 0 : track == 21 ? 320 : track >= 4 && track <= 9 ? Shifts[track - 4] : 0;
    const std::string expected = {static_cast<char>(parameter), static_cast<char>((value + shift) % 128),
                                  static_cast<char>(negative ? 127 : (value + shift) / 128)};
    must(bodyOf(wire.message, channel, 0x41) == expected, "a parameter change is its number and a value of 14 bits");
    ModeGlobal();
    must(bodyOf(wire.message, channel, 0x4E) == "\x04", "the mode GLOBAL is 4");
    ModeSongPlay();
    must(bodyOf(wire.message, channel, 0x4E) == "\x06", "the mode SONG PLAY is 6");
    ModeArrPlay();
    must(bodyOf(wire.message, channel, 0x4E) == "\x0A", "the mode ARR PLAY is 10");
}

} // namespace

void fuzzOne(std::string_view input)
{
    static LastMessage wire;
    desk();
    Choices choices(input);
    const int how = choices.byte();
    App.GlobalChannel = how & 15;
    checkPacked(choices.rest());
    checkUnpacked(choices.rest());
    Midi.SysExOutput = sysExFrame(Function::StyleDump, packedSevenBit(choices.rest()));
    MidiLongSend();
    std::string body;
    must(unpacked(bodyOf(wire.message, App.GlobalChannel, 0x65), body) && body == choices.rest(), "on the wire too");
    checkFrames(wire, choices, App.GlobalChannel);
}
