// The genres of the factory arrangements: who plays, how loud, in which room.
#pragma once

#include "tools/ArrangementMaker.h"

enum GenreKind {
    EightBeat,
    SixteenBeat,
    Analog,
    Funk,
    Ballad,
    SlowRock,
    Sixties,
    Polka,
    Disco,
    Club,
    Jungle,
    HipHop,
    Bossa,
    Samba,
    Ballroom,
    Tango,
    Reggae,
    Salsa,
    FolkWaltz,
    Musette,
    March,
    Waltz,
    Foxtrot,
    BigBand,
    Swing,
    JazzBallad,
    AcidJazz,
    Blues,
    Gospel,
    Rock,
    HeavyRock,
    RockBallad,
    RockAndRoll,
    Country,
    Dixie,
    Tarantella,
    Flamenco,
    Oriental,
    Mariachi,
    Baroque,
    Bolero,
    NewAge
};

const Genre& genreOf(GenreKind kind);
