// Which genre each factory style belongs to, and how fast it goes.
#include "tools/FactoryBanks.h"

#include "core/NameTables.h"
#include "tools/Genres.h"

#include <cstdlib>
#include <iostream>

namespace
{

struct StyleRow {
    const char* name; ///< Latin-1, as the instrument's own table has it
    GenreKind kind;
    int tempo;
};

constexpr StyleRow Styles[] = {
    {"8 Beat 1", EightBeat, 112},
    {"8 Beat 2", EightBeat, 104},
    {"8 Beat 3", EightBeat, 120},
    {"8 Beat 4", EightBeat, 96},
    {"8 Beat Analog", Analog, 116},
    {"8 Beat Rock", Rock, 126},
    {"Bt. Shuffle", Sixties, 118},
    {"R&B", Funk, 100},
    {"16 Beat 1", SixteenBeat, 92},
    {"16 Beat 2", SixteenBeat, 98},
    {"16 Beat 3", SixteenBeat, 88},
    {"16 Beat 4", SixteenBeat, 104},
    {"16Beat pop", SixteenBeat, 100},
    {"16BeatAnalog", Analog, 102},
    {"16 Beat Funk", Funk, 106},
    {"16 Beat Rock", Rock, 108},
    {"Slow Pop", Ballad, 72},
    {"Slow Rock 1", SlowRock, 66},
    {"Slow Rock 2", SlowRock, 72},
    {"Flipper 6/8", SlowRock, 96},
    {"Flipper 4/4", Sixties, 132},
    {"Twist", Sixties, 164},
    {"Hully Gully", Sixties, 138},
    {"Surf Rock", Sixties, 168},
    {"Party Polka", Polka, 132},
    {"Disco Party", Disco, 122},
    {"Motown", Funk, 124},
    {"Love Disco", Disco, 108},
    {"Disco '70", Disco, 118},
    {"80's Dance", Disco, 124},
    {"House", Club, 126},
    {"Techno", Club, 138},
    {"Progress.", Club, 132},
    {"Underground", Club, 128},
    {"Jungle", Jungle, 164},
    {"Garage", Club, 130},
    {"Rap", HipHop, 94},
    {"Hip Hop", HipHop, 98},
    {"Dancing Tribe", Club, 130},
    {"Down Beat", HipHop, 84},
    {"Bossa 1", Bossa, 124},
    {"Bossa 2", Bossa, 132},
    {"Bossa 3", Bossa, 140},
    {"Samba 1", Samba, 104},
    {"Samba 2", Samba, 112},
    {"Beguine", Ballroom, 116},
    {"Last Rhumba", Ballroom, 108},
    {"Cha Cha Cha", Ballroom, 124},
    {"Tango", Tango, 126},
    {"Habanera", Tango, 112},
    {"Paso Doble", March, 120},
    {"Cumbia", Salsa, 92},
    {"Bajon", Samba, 112},
    {"Calypso", Reggae, 110},
    {"Reggae", Reggae, 76},
    {"Dance Reggae", Reggae, 98},
    {"Mambo", Salsa, 180},
    {"Salsa", Salsa, 188},
    {"Merengue", Salsa, 132},
    {"Meneito", Salsa, 128},
    {"Macarena", Salsa, 104},
    {"Tikytikit\xE0", Samba, 128},
    {"Lambada", Samba, 118},
    {"Disco Samba", Disco, 126},
    {"I. Waltz", FolkWaltz, 176},
    {"Mazurka", FolkWaltz, 168},
    {"Polka", Polka, 120},
    {"German Waltz", FolkWaltz, 174},
    {"Laendler", FolkWaltz, 140},
    {"GermanPolka", Polka, 122},
    {"WaltzMusette", Musette, 184},
    {"French March", March, 116},
    {"Wien Waltz", Waltz, 180},
    {"Slow Waltz 1", Waltz, 88},
    {"Slow Waltz 2", Waltz, 92},
    {"Fox Trot 1", Foxtrot, 116},
    {"Fox Trot 2", Foxtrot, 124},
    {"Big Band Fox", BigBand, 128},
    {"Quick step", Foxtrot, 200},
    {"Charleston", Dixie, 208},
    {"40's Big Band", BigBand, 140},
    {"Big Band", BigBand, 152},
    {"Fast Big Band", BigBand, 208},
    {"Latin Big Band", BigBand, 128},
    {"Broadway", BigBand, 132},
    {"Hollywood", Waltz, 96},
    {"Jazz Waltz", Swing, 152},
    {"5/4 Swing", Swing, 168},
    {"Swing Ballad", JazzBallad, 66},
    {"Medium Swing", Swing, 132},
    {"Be bop", Swing, 216},
    {"Acid Jazz", AcidJazz, 104},
    {"Latin Jazz", AcidJazz, 176},
    {"New Jazz", AcidJazz, 118},
    {"Party Funk", Funk, 112},
    {"Groove", Funk, 98},
    {"R & B", Funk, 92},
    {"6/8 Blues", Blues, 66},
    {"Gospel", Gospel, 84},
    {"Blues Shuffle", Blues, 112},
    {"Pub Shuffle", Blues, 126},
    {"Hip Blues", Blues, 96},
    {"R&B Funk", Funk, 104},
    {"Rhythm&Funk", Funk, 110},
    {"Light Rock", Rock, 112},
    {"Pop Rock", Rock, 120},
    {"Open Rock", Rock, 124},
    {"Heavy Rock", HeavyRock, 132},
    {"Rock Ballad", RockBallad, 70},
    {"Half Time", RockBallad, 76},
    {"Rock & Roll", RockAndRoll, 172},
    {"Rock Hip Hop", HipHop, 96},
    {"Country", Country, 110},
    {"Country beat", Country, 124},
    {"Country Bld.", Country, 78},
    {"Dixieland", Dixie, 192},
    {"March", March, 116},
    {"Tarantella", Tarantella, 140},
    {"Sevillana", Flamenco, 176},
    {"Gipsy", Flamenco, 116},
    {"9/8 Roman", Oriental, 120},
    {"Ciftetelli", Oriental, 96},
    {"Mariachi", Mariachi, 128},
    {"Raspa", Mariachi, 132},
    {"Baroque", Baroque, 84},
    {"Minuet", Baroque, 116},
    {"Bolero", Bolero, 76},
    {"New Age", NewAge, 72},
};
static_assert(std::size(Styles) == StyNameCount);

} // namespace

Arrangement factoryArrangement(int style)
{
    const StyleRow& row = Styles[static_cast<std::size_t>(style)];
    if (factoryStyleName(style) != row.name) {
        std::cerr << "make_templates: style " << style << " is \"" << factoryStyleName(style) << "\", not \""
                  << row.name << "\"\n";
        std::exit(EXIT_FAILURE);
    }
    Arrangement arrangement{row.name, genreOf(row.kind)};
    arrangement.style = style;
    arrangement.tempo = row.tempo;
    return arrangement;
}

ByteBuffer factoryBank(int bank)
{
    constexpr int BankSize = 64;
    std::vector<Arrangement> rows;
    for (int row = 0; row < BankSize; ++row)
        rows.push_back(factoryArrangement(bank * BankSize + row));
    return arrangementFile(rows);
}
