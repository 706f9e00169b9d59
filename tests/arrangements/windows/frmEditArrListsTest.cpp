// Every list of the editor through all of its rows: the byte it writes, the bits it leaves alone, the message it sends
// or the silence. The expectations are the instrument's parameter list, written out.
#include "EditorWindow.h"

namespace
{

/// A list of the general part.
struct ListCase {
    const char* array;
    int index;
    std::size_t offset;
    int mask;
    const char* parameter; ///< "" when the list is never sent
    std::vector<ListRow> rows;
};

/// A list or fader of each track: parameter numbers of the nine, "" where the instrument takes none.
struct TrackCase {
    int place; ///< Combo2 of track 0
    std::size_t offset;
    int mask;
    std::array<const char*, 9> parameters;
    std::vector<ListRow> rows;
};

const std::vector<ListRow> Fills = {
    {" OFF", 0, "00 00"},  {" ->1", 1, "01 00"}, {" ->2", 2, "02 00"},  {" ->3", 3, "03 00"}, {" ->4", 4, "04 00"},
    {" 1&2", 5, "05 00"},  {" 1&3", 6, "06 00"}, {" 1&4", 7, "07 00"},  {" 2&3", 8, "08 00"}, {" 2&4", 9, "09 00"},
    {" 3&4", 10, "0A 00"}, {" UP", 11, "0B 00"}, {" DOWN", 12, "0C 00"}};

const std::vector<ListRow> Effects = {
    {"Delay/Rotary", 0x2F, "2F 00"},  {"Delay/Phaser", 0x2E, "2E 00"},   {"Delay/Overdrv", 0x2D, "2D 00"},
    {"Delay/Dist", 0x2C, "2C 00"},    {"Delay/Flanger", 0x2B, "2B 00"},  {"Delay/Chorus", 0x2A, "2A 00"},
    {"Delay/Room", 0x29, "29 00"},    {"Delay/Hall", 0x28, "28 00"},     {"Flanger-Delay", 0x27, "27 00"},
    {"Chorus-Delay", 0x26, "26 00"},  {"Equalizer", 0x25, "25 00"},      {"Tremolo", 0x24, "24 00"},
    {"Auto Pan", 0x23, "23 00"},      {"Rotary Speaker", 0x22, "22 00"}, {"Phaser 2", 0x21, "21 00"},
    {"Phaser 1", 0x20, "20 00"},      {"Overdrive", 0x1F, "1F 00"},      {"Distortion", 0x1E, "1E 00"},
    {"Enhancer", 0x1D, "1D 00"},      {"Exciter", 0x1C, "1C 00"},        {"XOver Flanger", 0x1B, "1B 00"},
    {"Flanger 2", 0x1A, "1A 00"},     {"Flanger 1", 0x19, "19 00"},      {"Symphonic Ens", 0x18, "18 00"},
    {"Harmonic Cho.", 0x17, "17 00"}, {"XOver Chorus", 0x16, "16 00"},   {"Quad Chorus", 0x15, "15 00"},
    {"Chorus 2", 0x14, "14 00"},      {"Chorus 1", 0x13, "13 00"},       {"Multitap Dly3", 0x12, "12 00"},
    {"Multitap Dly2", 0x11, "11 00"}, {"Multitap Dly1", 0x10, "10 00"},  {"Dual Delay", 0x0F, "0F 00"},
    {"Cross Delay", 0x0E, "0E 00"},   {"Stereo Delay", 0x0D, "0D 00"},   {"Early Ref 3", 0x0C, "0C 00"},
    {"Early Ref 2", 0x0B, "0B 00"},   {"Early Ref 1", 0x0A, "0A 00"},    {"Spring Reverb", 0x09, "09 00"},
    {"Dry Plate", 0x08, "08 00"},     {"Wet Plate", 0x07, "07 00"},      {"Live Stage", 0x06, "06 00"},
    {"Large Room", 0x05, "05 00"},    {"Room", 0x04, "04 00"},           {"Concert Hall", 0x03, "03 00"},
    {"Ensemble Hall", 0x02, "02 00"}, {"Hall", 0x01, "01 00"},           {"No Effect", 0x00, "00 00"},
};

const std::vector<ListCase> Lists = {
    {"Combo1",
     0,
     22,
     0xFF,
     "",
     {{"FULL 1", 0, ""},
      {"FULL 2", 1, ""},
      {"SPLIT 1", 2, ""},
      {"M. DRUMS", 3, ""},
      {"FULL 3", 4, ""},
      {"FULL 4", 5, ""},
      {"SPLIT 2", 6, ""},
      {"SPLIT 3", 7, ""},
      {"SPLIT 4", 8, ""},
      {"SPLIT 5", 9, ""},
      {"SPLIT 6", 10, ""}}},
    {"Combo1", 1, 37, 0xFF, "04", Fills},
    {"Combo1", 2, 38, 0xFF, "05", Fills},
    {"Combo1", 3, 19, 0xFF, "", {{" 1", 0, ""}, {" 2", 1, ""}, {" 3", 2, ""}, {" 4", 3, ""}}},
    {"Combo1", 4, 25, 0xFF, "03", {{" +11", 0x0B, "0B 00"}, {" +10", 0x0A, "0A 00"}, {" +9", 0x09, "09 00"},
                                   {" +8", 0x08, "08 00"},  {" +7", 0x07, "07 00"},  {" +6", 0x06, "06 00"},
                                   {" +5", 0x05, "05 00"},  {" +4", 0x04, "04 00"},  {" +3", 0x03, "03 00"},
                                   {" +2", 0x02, "02 00"},  {" +1", 0x01, "01 00"},  {"  0", 0x00, "00 00"},
                                   {" -1", 0xFF, "7F 7F"},  {" -2", 0xFE, "7E 7F"},  {" -3", 0xFD, "7D 7F"},
                                   {" -4", 0xFC, "7C 7F"},  {" -5", 0xFB, "7B 7F"},  {" -6", 0xFA, "7A 7F"},
                                   {" -7", 0xF9, "79 7F"},  {" -8", 0xF8, "78 7F"},  {" -9", 0xF7, "77 7F"},
                                   {" -10", 0xF6, "76 7F"}, {" -11", 0xF5, "75 7F"}}},
    {"Combo1",
     8,
     24,
     0x7F,
     "",
     {{"Duet", 0, ""},
      {"Close", 1, ""},
      {"Open1", 2, ""},
      {"Open2", 3, ""},
      {"Octave", 4, ""},
      {"Power Ens.", 5, ""},
      {"Fourths", 6, ""},
      {"Block", 7, ""},
      {"Brass Ens.", 8, ""},
      {"Reed Ens.", 9, ""}}},
    {"Combo1",
     9,
     26,
     0xFF,
     "",
     {{" Dr11", 0, ""},
      {" Dr12", 1, ""},
      {" Dr13", 2, ""},
      {" Dr14", 3, ""},
      {" Dr15", 4, ""},
      {" Dr16", 5, ""},
      {" Dr17", 6, ""},
      {" Dr18", 7, ""},
      {" Dr21", 8, ""},
      {" Dr22", 9, ""},
      {" Dr23", 10, ""},
      {" Dr24", 11, ""},
      {" Dr25", 12, ""},
      {" Dr26", 13, ""},
      {" Dr27", 14, ""},
      {" Dr28", 15, ""}}},
    {"EffCombo", 0, 135, 0xFF, "06", Effects},
    {"EffCombo", 1, 136, 0xFF, "08", Effects},
};

const std::vector<TrackCase> TrackLists = {
    {0,
     4,
     0x0F,
     {"0D", "17", "21", "2B", "35", "3F", "49", "53", "5D"},
     {{"PRG", 0x0A, "0A 00"},
      {" 9", 0x09, "09 00"},
      {" 8", 0x08, "08 00"},
      {" 7", 0x07, "07 00"},
      {" 6", 0x06, "06 00"},
      {" 5", 0x05, "05 00"},
      {" 4", 0x04, "04 00"},
      {" 3", 0x03, "03 00"},
      {" 2", 0x02, "02 00"},
      {" 1", 0x01, "01 00"},
      {" 0", 0x00, "00 00"}}},
    {1,
     4,
     0xF0,
     {"0E", "18", "22", "2C", "36", "40", "4A", "54", "5E"},
     {{"PRG", 0xA0, "0A 00"},
      {" 9", 0x90, "09 00"},
      {" 8", 0x80, "08 00"},
      {" 7", 0x70, "07 00"},
      {" 6", 0x60, "06 00"},
      {" 5", 0x50, "05 00"},
      {" 4", 0x40, "04 00"},
      {" 3", 0x30, "03 00"},
      {" 2", 0x20, "02 00"},
      {" 1", 0x10, "01 00"},
      {" 0", 0x00, "00 00"}}},
    {2,
     5,
     0xFF,
     {"", "", "24", "2E", "38", "42", "4C", "56", "60"},
     {{" +2", 0x02, "02 00"},
      {" +1", 0x01, "01 00"},
      {"  0", 0x00, "00 00"},
      {" -1", 0xFF, "7F 7F"},
      {" -2", 0xFE, "7E 7F"}}},
    {3,
     6,
     0x03,
     {"11", "1B", "25", "2F", "39", "43", "4D", "", ""},
     {{"OFF", 0, "00 00"}, {"INT", 1, "01 00"}, {"EXT", 2, "02 00"}, {"BOTH", 3, "03 00"}}},
    {4,
     6,
     0x0C,
     {"0F", "19", "23", "2D", "37", "41", "4B", "55", "5F"},
     {{"PLAY", 0x00, "00 00"}, {"MUTE", 0x04, "01 00"}, {"SOLO", 0x08, ""}}},
    {5,
     7,
     0xFF,
     {"", "", "26", "30", "3A", "44", "4E", "", ""},
     {{" 12", 11, "0B 00"},
      {" 11", 10, "0A 00"},
      {" 10", 9, "09 00"},
      {" 9", 8, "08 00"},
      {" 8", 7, "07 00"},
      {" 7", 6, "06 00"},
      {" 6", 5, "05 00"},
      {" 5", 4, "04 00"},
      {" 4", 3, "03 00"},
      {" 3", 2, "02 00"},
      {" 2", 1, "01 00"},
      {" 1", 0, "00 00"},
      {" ORG", 0xFF, "7F 7F"}}},
};

} // namespace

class EditorLists : public EditorControls
{
protected:
    /// Walks a list down and up again; every step is an edit of its own.
    void walk(QComboBox* box, std::size_t offset, int mask, const char* number, const std::vector<ListRow>& rows)
    {
        ASSERT_EQ(box->count(), static_cast<int>(rows.size()));
        choose(box, 0);
        std::vector<int> steps;
        for (int row = 1; row < box->count(); ++row)
            steps.push_back(row);
        for (int row = box->count() - 2; row >= 0; --row)
            steps.push_back(row);
        for (const int row : steps) {
            const ListRow& expected = rows[static_cast<std::size_t>(row)];
            SCOPED_TRACE(expected.text);
            ready();
            choose(box, row);
            EXPECT_EQ(box->currentText().toStdString(), expected.text);
            expectEdit(offset, mask, expected.bits, message(number, expected.value));
        }
    }
};

TEST_F(EditorLists, eachGeneralListWritesItsByteAndSendsWhatTheInstrumentTakes)
{
    for (const ListCase& one : Lists) {
        SCOPED_TRACE(member(one.array, one.index));
        walk(combo(one.array, one.index), one.offset, one.mask, one.parameter, one.rows);
    }
}

TEST_F(EditorLists, eachListOfEachTrackWritesItsBitsAndSendsWhatTheInstrumentTakes)
{
    for (const TrackCase& one : TrackLists)
        for (std::size_t track = 0; track < 9; ++track) {
            const int index = 6 * static_cast<int>(track) + one.place;
            SCOPED_TRACE(member("Combo2", index));
            walk(combo("Combo2", index), Record[track] + one.offset, one.mask, one.parameters[track], one.rows);
        }
}

TEST_F(EditorLists, theSameListsAreWrittenSilentlyThatTheRulesName)
{
    for (const int index : {2, 5, 8, 11, 45, 47, 51, 53}) {
        QComboBox* box = combo("Combo2", index);
        choose(box, 0);
        forget();
        choose(box, 1);
        EXPECT_EQ(sent(), std::vector<std::string>{}) << index;
    }
}
