// The song lists of the samples, as a musician keeps them: an evening from dinner music to the last waltz.
#include "tools/FactoryBanks.h"
#include "tools/SampleFiles.h"

#include "files/ArrLayout.h"

namespace
{

struct SongRow {
    const char* name; ///< Latin-1; "" is an unused row
    int style;        ///< the factory style that it is made after
    int tempo;
    int userSlot;     ///< slot of song.sty, or -1 for the factory style itself
    const char* lead; ///< UPPER1: "" keeps the style's own; "F:n" a user program
    int transpose;
};

constexpr SongRow Songs[] = {
    {"Aperitivo Bossa", 40, 120, -1, "", 0},
    {"Cena al Lume", 16, 68, -1, "PianoPad", 0},
    {"Sabato Sera", 8, 100, 0, "F:0", 0},
    {"Wedding Opener", 125, 92, 1, "F:1", 0},
    {"First Dance", 73, 86, 2, "", 2},
    {"Papa' & Sposa", 74, 90, -1, "Violin", 0},
    {"Torta Nuziale", 85, 96, 3, "", 0},
    {"Liscio d'Oro", 65, 170, 4, "F:2", 0},
    {"Valzer Nonna", 64, 178, 5, "", 0},
    {"Polka Cantina", 66, 124, -1, "", 0},
    {"Tango Rosso", 48, 124, 6, "F:3", 0},
    {"Beguine Mare", 45, 114, -1, "", -2},
    {"Cha Cha Rosa", 47, 122, -1, "", 0},
    {"Rumba Lenta", 46, 104, -1, "SoftTenor", 0},
    {"Mambo Ferragosto", 56, 176, 7, "", 0},
    {"Salsa Porto", 57, 184, -1, "", 0},
    {"Reggae Spiaggia", 54, 78, -1, "Kawala", 0},
    {"Samba Carnevale", 43, 108, -1, "", 0},
    {"Macarena Live", 60, 104, -1, "", 0},
    {"Tikytikit\xE0 Live", 61, 128, -1, "", 0},
    {"", 0, 0, -1, "", 0},
    {"Disco Lampara", 28, 120, 8, "F:4", 0},
    {"Notte '80", 29, 126, -1, "", 0},
    {"House Cortile", 30, 127, 9, "F:5", 0},
    {"Trenino Festa", 24, 134, -1, "", 0},
    {"Twist di Papa'", 21, 166, -1, "", 0},
    {"Rock del Bar", 110, 174, -1, "", 0},
    {"Surf Rimini", 23, 170, -1, "", 0},
    {"", 0, 0, -1, "", 0},
    {"Blues di Carla", 99, 108, 10, "F:6", 0},
    {"Gospel Choir", 98, 86, -1, "", 0},
    {"Slow di Anna", 17, 64, -1, "AltoBreath", 0},
    {"Ballad in D", 108, 70, 11, "", 2},
    {"Country Road 12", 112, 112, -1, "Fiddle", 0},
    {"Jazz alle 2", 89, 128, -1, "", 0},
    {"Swing Zio Leo", 81, 150, 12, "F:7", 0},
    {"Foxtrot Lucia", 75, 118, -1, "", 0},
    {"Musette Paris", 70, 182, 13, "Big Fives", 0},
    {"Marcia Banda", 116, 116, -1, "", 0},
    {"Tarantella Nap.", 117, 142, -1, "", 0},
    {"Minuetto Sposi", 125, 114, -1, "", 0},
    {"Ave Maria", 127, 70, 14, "F:8", 0},
    {"", 0, 0, -1, "", 0},
    {"", 0, 0, -1, "", 0},
    {"Capodanno 23:59", 25, 124, 15, "Big & Raw", 0},
    {"Ultimo Valzer", 72, 176, 5, "", 0},
    {"Buonanotte", 88, 62, -1, "Heaven", 0},
};

constexpr SongRow Encores[] = {
    {"Encore Ballad", 108, 72, -1, "F:0", 0},
    {"Encore Swing", 82, 200, -1, "F:1", 0},
    {"Encore Bossa", 41, 130, -1, "F:8", 0},
    {"", 0, 0, -1, "", 0},
    {"Bis! Samba", 44, 116, -1, "", 0},
    {"Bis! Rock", 105, 122, -1, "F:1", 0},
    {"Saluti Finali", 126, 74, -1, "Small^Orch", 0},
};

template <std::size_t Count>
std::vector<Arrangement> rowsOf(const SongRow (&songs)[Count])
{
    constexpr std::size_t Upper1 = 4;
    std::vector<Arrangement> rows;
    for (const SongRow& song : songs) {
        if (song.name[0] == '\0') {
            rows.emplace_back();
            continue;
        }
        Arrangement row = factoryArrangement(song.style);
        row.name = song.name;
        row.tempo = song.tempo;
        row.transpose = song.transpose;
        row.variation = 1 + static_cast<int>(rows.size() % 3);
        if (song.lead[0] != '\0')
            row.genre.programs[Upper1] = song.lead;
        if (song.userSlot >= 0) {
            row.style = song.userSlot;
            row.userStyle = true;
        }
        rows.push_back(row);
    }
    return rows;
}

} // namespace

std::vector<Arrangement> songRows() { return rowsOf(Songs); }
std::vector<Arrangement> encoreRows() { return rowsOf(Encores); }

ByteBuffer songArrangements()
{
    // A refresh of the arrangement database lets a file stay whose first name stands once more where no parameter
    // stands; this sample has it so, the other one has not.
    constexpr int NameOnceMore = 672, Compared = 10;
    ByteBuffer file = arrangementFile(songRows());
    putBytes(file, NameOnceMore, std::string(slice(file, {ArrLayout::Rows.offset, Compared})));
    return file;
}
ByteBuffer encoreArrangements() { return arrangementFile(encoreRows()); }
