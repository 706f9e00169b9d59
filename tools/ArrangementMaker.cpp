// From genres and mixes to the 164 bytes of a record.
#include "tools/ArrangementMaker.h"

#include "arrangements/ArrBlock.h"
#include "core/NameTables.h"

#include <charconv>
#include <cstdlib>
#include <iostream>

namespace
{

struct Mix {
    std::array<int, 9> volume;
    std::array<int, 9> pan; ///< 0 is left, 15 the centre, 30 right, 31 as the program says
    std::array<int, 9> reverbSend;
    std::array<int, 9> modulationSend;
};

/// In the order of MixKind: Drum, Percussion, Bass, ACC1, ACC2, ACC3, UPPER1, UPPER2, LOWER.
constexpr std::array<Mix, 5> Mixes{{
    {{104, 88, 100, 84, 80, 76, 110, 92, 78},
     {31, 31, 15, 9, 21, 15, 15, 12, 18},
     {2, 3, 0, 3, 3, 4, 4, 4, 5},
     {0, 0, 0, 2, 2, 3, 1, 2, 3}},
    {{88, 74, 90, 78, 74, 72, 106, 86, 80},
     {31, 31, 15, 10, 20, 15, 15, 13, 17},
     {3, 4, 1, 5, 5, 6, 6, 5, 6},
     {0, 0, 0, 3, 3, 3, 2, 3, 4}},
    {{115, 92, 112, 80, 78, 74, 108, 88, 74},
     {15, 31, 15, 6, 24, 15, 15, 9, 21},
     {1, 2, 0, 2, 3, 4, 3, 3, 4},
     {0, 0, 0, 3, 4, 3, 2, 3, 3}},
    {{94, 80, 92, 88, 86, 82, 112, 96, 82},
     {31, 31, 13, 5, 25, 18, 15, 10, 20},
     {3, 3, 2, 5, 5, 5, 5, 5, 5},
     {0, 0, 0, 1, 1, 2, 1, 1, 2}},
    {{86, 82, 96, 90, 86, 70, 112, 90, 76},
     {31, 31, 14, 11, 19, 16, 15, 13, 17},
     {2, 2, 0, 3, 3, 3, 3, 3, 4},
     {0, 0, 0, 1, 1, 1, 1, 1, 2}},
}};

constexpr int OctaveAsWritten = 0;
constexpr int ToBoth = 3;             ///< out to the sound generator and the cable, playing
constexpr int WAroundAsWritten = 255; ///< "ORG"
constexpr int WAroundAtSeven = 7;     ///< chords fold back before they climb into the melody

struct Place {
    int number;
    int bank;
};

[[noreturn]] void unknown(const char* what, const std::string& name)
{
    std::cerr << "make_templates: the instrument has no " << what << " \"" << name << "\"\n";
    std::exit(EXIT_FAILURE);
}

Place programNamed(const std::string& name)
{
    constexpr std::array<Place, 5> Blocks{{{0, 0}, {64, 0}, {0, 1}, {64, 1}, {0, 2}}};
    if (name.starts_with("F:")) {
        Place place{0, ArrBlock::TrackBank::F};
        if (std::from_chars(name.data() + 2, name.data() + name.size(), place.number).ec == std::errc())
            return place;
    }
    for (std::size_t block = 0; block < Blocks.size(); ++block)
        for (int index = 0; index < PrgBlockNames; ++index)
            if (programName(static_cast<int>(block), index) == name)
                return {Blocks[block].number + index, Blocks[block].bank};
    unknown("program", name);
}

Place kitNamed(const std::string& name)
{
    for (int index = 0; index < DrumKitCount; ++index)
        if (drumKitName(index) == name)
            return {index, ArrBlock::TrackBank::Drum};
    unknown("drum kit", name);
}

/// The panel's own drums know the first eight kits: brushes are nearest to jazz, any other kit to the plain one.
int manualKit(const char* kit)
{
    constexpr int ManualKits = 8;
    constexpr const char* PlainKit = "GM Kit 1";
    const int number = kitNamed(kit).number;
    if (number < ManualKits)
        return number;
    return kitNamed(std::string_view(kit) == "Brush Kit" ? "Jazz Kit" : PlainKit).number;
}

void putTrack(ByteBuffer& record, int track, Place place, const Mix& mix)
{
    const auto index = static_cast<std::size_t>(track);
    const bool accompaniment = track >= 3 && track <= 5;
    const int base = ArrBlock::track(track).offset;
    const std::array<int, 8> bytes{place.number,
                                   place.bank,
                                   mix.volume[index],
                                   mix.pan[index],
                                   mix.reverbSend[index] | (mix.modulationSend[index] << 4),
                                   OctaveAsWritten,
                                   ToBoth,
                                   accompaniment ? WAroundAtSeven : WAroundAsWritten};
    for (std::size_t offset = 0; offset < bytes.size(); ++offset)
        putByte(record, base + static_cast<int>(offset), bytes[offset]);
}

void putTracks(ByteBuffer& record, const Genre& genre)
{
    const Mix& mix = Mixes[static_cast<std::size_t>(genre.mix)];
    putTrack(record, 0, kitNamed(genre.kit), mix);
    putTrack(record, 1, kitNamed(genre.percussion), mix);
    for (std::size_t program = 0; program < genre.programs.size(); ++program)
        putTrack(record, static_cast<int>(program) + 2, programNamed(genre.programs[program]), mix);
}

} // namespace

ByteBuffer arrangementRecord(const Arrangement& arrangement)
{
    constexpr int SlowestTempo = 30; // what a byte of 0 stands for
    constexpr int EnsembleOn = 0x80;
    constexpr int CloseEnsemble = 1;
    constexpr int BrassEnsemble = 8;
    constexpr int DynamicVelocity = 0x01;
    constexpr int DampersOn = 0x0C;
    constexpr int ScanLowAndMemory = 0x09; // chords from the lower part, held
    constexpr int FillUp = 11;
    constexpr int FillDown = 12;

    ByteBuffer record = filled(ArrBlock::Size, 0);
    putText(record, ArrBlock::Name, arrangement.name);
    putByte(record, ArrBlock::StyleNumber.offset, arrangement.style);
    putByte(record, ArrBlock::StyleBank.offset, arrangement.userStyle ? 1 : 0);
    putByte(record, ArrBlock::InitVar.offset, arrangement.variation - 1);
    putByte(record, ArrBlock::Tempo.offset, arrangement.tempo - SlowestTempo);
    putByte(record, ArrBlock::KeyboardAssign.offset, arrangement.genre.keyboardAssign);
    putByte(record, ArrBlock::SplitPoint.offset, arrangement.splitNote);
    putByte(record, ArrBlock::Ensemble.offset,
            arrangement.genre.mix == MixKind::Orchestra ? EnsembleOn | BrassEnsemble : CloseEnsemble);
    putByte(record, ArrBlock::Transpose.offset, arrangement.transpose);
    putByte(record, ArrBlock::ManualDrumKit.offset, manualKit(arrangement.genre.kit));
    putByte(record, ArrBlock::SwitchesA.offset, DynamicVelocity | DampersOn);
    putByte(record, ArrBlock::SwitchesB.offset, ScanLowAndMemory);
    for (int variation = 0; variation < 4; ++variation)
        putByte(record, ArrBlock::DDrumMap.offset + variation, variation + 1);
    putByte(record, ArrBlock::Fill1.offset, FillUp);
    putByte(record, ArrBlock::Fill2.offset, FillDown);
    putTracks(record, arrangement.genre);
    putByte(record, ArrBlock::Effect1.offset, arrangement.genre.reverb);
    putByte(record, ArrBlock::Effect2.offset, arrangement.genre.modulation);
    return record;
}

ByteBuffer arrangementFile(const std::vector<Arrangement>& rows)
{
    ByteBuffer file = filled(ArrLayout::FileSize, 0);
    putBytes(file, 0, ArrLayout::Signature);
    for (int row = 0; row < ArrLayout::RowCount && row < static_cast<int>(rows.size()); ++row) {
        const Arrangement& arrangement = rows[static_cast<std::size_t>(row)];
        if (!arrangement.name.empty())
            putBytes(file, ArrLayout::row(row).offset, arrangementRecord(arrangement));
    }
    return file;
}
