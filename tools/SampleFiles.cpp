// The style, program and global files of the samples. What the program never looks into is filled with bytes of the
// whole range, so that a sample sent and compared proves every bit of the way.
#include "tools/SampleFiles.h"

#include "files/GblLayout.h"
#include "files/PrgLayout.h"
#include "files/StyLayout.h"

#include <array>
#include <cstdint>
#include <iterator>

namespace
{

/// The same bytes on every machine and at every run.
class SoundData
{
public:
    explicit SoundData(std::uint32_t seed) : state_(seed) {}

    ByteBuffer bytes(int count)
    {
        ByteBuffer data;
        for (int i = 0; i < count; ++i) {
            state_ = state_ * 1664525U + 1013904223U;
            data += static_cast<char>(state_ >> 24);
        }
        return data;
    }

private:
    std::uint32_t state_;
};

struct StyleSlot {
    const char* name;
    int length; ///< bytes, name included
};

constexpr StyleSlot SongSlots[] = {
    {"Sabato Beat", 2310},   {"Corteo", 1745},      {"Primo Ballo", 1988},  {"Taglio Torta", 1200},
    {"Mazurka Oro", 3056},   {"Valzerone", 2741},   {"Tango Notte", 2222},  {"Mambo Piazza", 4200},
    {"Lampara Disco", 3999}, {"House Cort.", 3571}, {"Blues Carla", 1501},  {"Ballata in D", 1640},
    {"Swing Leo", 2899},     {"Musette 3/4", 2048}, {"Organo Chiesa", 700}, {"Mezzanotte", 3333},
};

constexpr const char* SongProgramNames[] = {"Sabato Lead",   "Corteo Organ", "Fisarmonica mia", "Bandoneon Ros.",
                                            "Disco Strings", "Cortile Stab", "Armonica Carl",   "Sezione Leo",
                                            "Coro Chiesa",   "Piano Casa",   "Rhodes Sporco",   "Pad Tramonto"};

constexpr int FullProgram = 0x42; ///< any first byte but 0 and 1

void putProgram(ByteBuffer& file, int index, const char* name, SoundData& data)
{
    const Field record = PrgLayout::record(index);
    putBytes(file, record.offset, data.bytes(record.size));
    putByte(file, record.offset + PrgLayout::RecordStateOffset, FullProgram);
    putText(file, {record.offset + PrgLayout::RecordName.offset, PrgLayout::RecordName.size}, name);
}

void putReference(ByteBuffer& file, int index, int bank, int number, const char* name)
{
    const int record = PrgLayout::record(index).offset;
    putByte(file, record + PrgLayout::RecordStateOffset, PrgLayout::ReferenceRecord);
    putByte(file, record + PrgLayout::ReferenceBankOffset, bank);
    putByte(file, record + PrgLayout::ReferenceNumberOffset, number);
    putText(file, {record + PrgLayout::RecordName.offset, PrgLayout::RecordName.size}, name);
}

ByteBuffer programFile(std::string_view signature, SoundData& data)
{
    ByteBuffer file = filled(PrgLayout::FileSize, 0);
    putBytes(file, 0, signature);
    putBytes(file, PrgLayout::SecondArea.offset, data.bytes(PrgLayout::SecondArea.size));
    return file;
}

} // namespace

ByteBuffer emptyProgramFile()
{
    ByteBuffer file = filled(PrgLayout::FileSize, 0);
    putBytes(file, 0, PrgLayout::PrgSignature);
    return file;
}

ByteBuffer songStyles()
{
    static_assert(std::size(SongSlots) == StyLayout::SlotCount);
    SoundData data{1968};
    ByteBuffer file = filled(StyLayout::HeadSize, 0);
    putBytes(file, 0, StyLayout::Signature);
    for (int slot = 0; slot < StyLayout::SlotCount; ++slot) {
        const StyleSlot& style = SongSlots[slot];
        putWord16LowFirst(file, StyLayout::lengthOffset(slot), style.length);
        file += padded(style.name, StyLayout::NameSize) + data.bytes(style.length - StyLayout::NameSize);
    }
    return file;
}

ByteBuffer songPrograms()
{
    SoundData data{1979};
    ByteBuffer file = programFile(PrgLayout::PrgSignature, data);
    int index = 0;
    for (const char* name : SongProgramNames)
        putProgram(file, index++, name, data);
    putProgram(file, PrgLayout::RecordCount - 1, "Ultimo Suono", data);
    return file;
}

ByteBuffer encorePrograms()
{
    constexpr int BankAB = 0, BankCD = 1, BankE = 2, BankDrum = 4;
    SoundData data{1985};
    ByteBuffer file = programFile(PrgLayout::PggSignature, data);
    putProgram(file, 0, "Bis Lead", data);
    putProgram(file, 1, "Bis Brass", data);
    putReference(file, 2, BankCD, 30, "Solo Dist.");
    putReference(file, 3, BankAB, 0, "Piano 1");
    putReference(file, 4, BankAB, 73, "Flute");
    putReference(file, 5, BankCD, 91, "Heaven");
    putReference(file, 6, BankE, 20, "Hackbrett");
    putReference(file, 7, BankDrum, 32, "Jazz Kit");
    putProgram(file, 8, "Bis Organ", data);
    return file;
}

ByteBuffer studioGlobal()
{
    // Offsets of the parameter data that a studio sets; all others stay 0, the plain setting.
    constexpr int DamperFlags = 2, AssignablePedal = 3, VelocityCurve = 19, UserScale1 = 32, HarmonyHigh = 217,
                  HarmonyChannel = 218, HarmonySongChannel = 220;
    constexpr int DamperPlus = 0x01, StartStop = 1, HighestNote = 127, ChannelOff = 255;
    constexpr std::array<int, 12> PureMajor{0, -10, 4, 16, -14, -2, -17, 2, 14, -16, -4, -12}; // cents off equal
    ByteBuffer file = filled(GblLayout::FileSize, 0);
    putBytes(file, 0, GblLayout::Signature);
    const auto set = [&](int offset, int value) { putByte(file, GblLayout::Parameters.offset + offset, value); };
    set(DamperFlags, DamperPlus);
    set(AssignablePedal, StartStop);
    set(VelocityCurve, 3);
    for (std::size_t note = 0; note < PureMajor.size(); ++note)
        set(UserScale1 + static_cast<int>(note), PureMajor[note]);
    set(HarmonyHigh, HighestNote);
    set(HarmonyChannel, ChannelOff);
    set(HarmonySongChannel, ChannelOff);
    return file;
}
