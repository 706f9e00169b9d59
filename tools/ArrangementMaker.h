// Makes arrangement records and files out of musical descriptions: a genre says who plays, a mix how loud and where.
#pragma once

#include "core/Bytes.h"

#include <array>
#include <string>
#include <vector>

/// How loud, and where on the stage, the nine tracks are.
enum class MixKind {
    Band,      ///< drums and bass in front
    Soft,      ///< the accompaniment behind a singer
    Dance,     ///< kick and bass carry it
    Orchestra, ///< sections from left to right
    Folk       ///< few players close together
};

/// Programs and kits by their names in the instrument's tables. "F:n" is the user program n of the companion file.
struct Genre {
    const char* kit;
    const char* percussion;
    std::array<const char*, 7> programs; ///< Bass, ACC1, ACC2, ACC3, UPPER1, UPPER2, LOWER
    MixKind mix;
    int keyboardAssign; ///< 0 to 10: FULL 1, FULL 2, SPLIT 1, M. DRUMS, FULL 3 ...
    int reverb;         ///< effect 1, 0 to 47
    int modulation;     ///< effect 2, 0 to 47
};

/// One arrangement as a musician would tell it.
struct Arrangement {
    std::string name; ///< Latin-1, cut to 16
    Genre genre;
    int style = 0; ///< factory style 0 to 127, or slot 0 to 15 of the companion style file
    bool userStyle = false;
    int tempo = 120;    ///< quarter notes a minute, 40 to 240
    int variation = 1;  ///< 1 to 4, the one it starts with
    int transpose = 0;  ///< semitones, -11 to 11
    int splitNote = 60; ///< MIDI note 36 to 96
};

/// The 164 bytes of a record. A program or kit that the instrument does not have ends the generator with a message.
ByteBuffer arrangementRecord(const Arrangement& arrangement);

/// A whole file: the 32-byte head and 64 records. `rows` beyond its end, and those without a name, are unused.
ByteBuffer arrangementFile(const std::vector<Arrangement>& rows);
