// The instrument's factory names, as its own display words them, in table order. Latin-1.
#include "core/NameTablesData.h"

// clang-format off
namespace NameTablesData {

const PrgList PrgA = {
    "Piano 1", "Piano 2", "Piano 3", "Honky-tonk", "E. Piano 1", "E. Piano 2", "Harpsicord", "Clavinet", "Celesta",
    "Glockenspiel", "Music Box", "Vibraphone", "Marimba", "Xylophone", "Tubular Bell", "Santur", "Organ 1", "Organ 2",
    "Organ 3", "ChurchOrgan", "Reed Organ", "Musette", "Harmonica", "Bandoneon", "Nylon Gtr.", "Steel Gtr.",
    "Jazz Gtr.", "Clean Gtr.", "Muted Gtr.", "Overdrive", "Dist. gtr.", "GT.Harm.", "Acoustic Bs.", "Fingered Bs.",
    "Picked Bs. 1", "Fretless Bs.", "Slap Bass 1", "Slap Bass 2", "SynthBass 1", "SynthBass 2", "Violin", "Viola",
    "Cello", "Contrabass", "Tremolo Str.", "PizzicatoStr.", "Harp", "Timpani", "Strings", "Slow Strings",
    "SynStrings 1", "SynStrings 2", "Choir Aahs", "Voice Oohs", "SynVox", "OrchestraHit", "Trumpet", "Trombone",
    "Tuba", "MuteTrumpet", "French Horns", "Brass", "Syn.Brass1", "Syn.Brass2",
};

const PrgList PrgB = {
    "SopranoSax", "Alto Sax", "Tenor Sax", "Baritone Sax", "Oboe 1", "EnglishHorn", "Bassoon", "Clarinet", "Piccolo",
    "Flute", "Recorder", "Pan Flute", "Bottle Blow", "Shaku 1", "Whistle 1", "Ocarina 1", "SquareWave", "Saw Wave",
    "Syn.Calliope", "Chiffer Lead", "Charang", "Solo Vox", "5Th Wave", "Bass & Lead", "Fantasia", "Warm Pad",
    "PolySynth", "Space Voice", "BowedGlass", "Metal Pad", "Halo Pad", "Sweep Pad", "Ice Rain", "SoundTrack",
    "Crystal", "Atmosphere", "Brightness", "Goblin", "Echo Drops", "Star Theme", "Sitar", "Banjo", "Shamisen", "Koto",
    "Kalimba", "Bagpipe", "Fiddle", "Shanai", "Tinkle Bell", "Agogo", "Steel Drums", "Woodblock", "Taiko",
    "Melo. Tom", "Synth Drum", "ReverseCym.", "Gt.FretNoise", "Breath Noise", "Seashore", "Birds", "Telephone 1",
    "Helicopter", "Applause", "Gun Shot",
};

const PrgList PrgC = {
    "90's Piano", "Rock Piano", "New Piano", "M1 Piano", "Whirly", "DW-8000 EP", "HarpsiFunk", "Clavmation",
    "SynCelesta", "Sistro", "Orgel", "SynVibes", "Balaphone", "Gamelan", "ChurchBell", "Celtic Plug", "Gospel Org.",
    "ClickOrgan", "Rotary Org.", "EuroPipe", "SmallPipe", "Fr.Musette", "Akordeon", "Cassotto", "L&R Ac.Gtr.",
    "Strings", "PedalSteel", "L&R El. Gtr.", "Clean Funk", "DistoMutes", "Solo Dist.", "PowerChord", "Upright",
    "Bass/Harm", "Picked Bs.2", "Fat Fretty", "SuperRound", "DynaSlap", "Dance Bass", "Square Bass", "The Strings",
    "ChambViola", "Cello Ens.", "ChamDBass", "Octave Str.", "OctavePizz.", "My dream", "SftTimpani", "Marcato",
    "Exp. Str.", "AnalogPad", "AnaStrings", "Doolally", "AirVoxDbl", "Glassglide", "ImpactHit", "FlugeHorn",
    "Dynabone", "OB. Tuba", "Mute Ens.", "Horns Ens.", "Brass Band", "Syn.Brass3", "Stz<Brass",
};

const PrgList PrgD = {
    "AltoBreath", "Folk Sax", "SoftTenor", "PerkySaxes", "Oboe 2", "Woodwinds", "Small^Orch", "Clarn. Ens.",
    "Synth File", "BreathFlute", "Traverso", "Kawala", "BottleBlow", "Shaku 2", "Whistle 2", "Ocarina 2", "Soft Solo",
    "Big Lead", "PurePanLd.", "Rubby", "Dist.Lead", "Vox Lead", "Big Fives", "Big & Raw", "Thick Pad", "Soft Pad",
    "Farluce", "Heaven", "Glass Pad", "Panner Pad", "Polar Pad", "Celestial", "Caribean", "Rave", "BellPad",
    "AmbientPad", "ElastikPad", "Bell Choir", "Big Panner", "Odyssey", "Tambra", "Bouzouki", "Oud", "Kanoon",
    "Ukulele", "Jaw Harp", "Mando Trem.", "Hichiriki", "WindChimes", "Cowbell", "Claves", "Castanets", "Tsuzumi",
    "Oil Drum", "Rev. Tom", "Rev. Snare", "Heart Beat", "Laughing", "Wind", "Gallop", "Telephone 2", "Train",
    "Stadium!!", "Explosion",
};

const PrgList PrgE = {
    "Piano&Strgs", "PianoPad", "Midi Piano", "Fresh Air", "Mark II bis", "hard Tines", "FunkyRoads", "PianoVibes",
    "Tone Wheel", "70' Organ", "Theatre Org.", "Jimmy Org.", "DblBrass", "SlowSunset", "Ultra Rez", "DanceReMix",
    "R&R Guitar", "Dobro", "ElectricAc.", "Mr.Clean", "Hackbrett", "Gtr.Strings", "StereoDist.", "Gtr/Bass",
    "FingerDark", "Dyno Bass", "Bass/Mute", "Stick Bass", "Deep House", "Dr.Octave", "Rap Bass", "Zap Bass",
    "Velo Flute", "Flute/Muted", "Trump Ens.", "Lyle Stack", "Folk Clar.", "SectWinds", "FallAngels", "Lylesircs",
    "i3 Strings", "N-Strings", "Ravel Pad", "Dark Pad", "Yoshi Pad", "Swell Pad", "Light Pizz", "DblStrings",
    "LiteVoices", "DigitalAir", "Air Vox", "Ambi.Voice", "Airways", "Stab Pad", "Poppin'Pad", "MonoLead", "Jet Star",
    "Space Wing", "Ambience", "Glide Fx", "SteamCloud", "WhiteNoise", "Fragments", "Brass Fall",
};

const DrumKitList DrumKits = {
    "GM Kit 1", "GM Kit 2", "Room Kit", "Power Kit", "Electronic Kit", "Analog Kit", "Dance Kit", "Jazz Kit",
    "Brush Kit", "Orchestra Kit", "Percussion Kit", "Latin Perc. Kit", "Arabian Kit", "SFX Kit", "(User 1)",
    "(User 2)",
};

const StyList Styles = {
    "8 Beat 1", "8 Beat 2", "8 Beat 3", "8 Beat 4", "8 Beat Analog", "8 Beat Rock", "Bt. Shuffle", "R&B", "16 Beat 1",
    "16 Beat 2", "16 Beat 3", "16 Beat 4", "16Beat pop", "16BeatAnalog", "16 Beat Funk", "16 Beat Rock", "Slow Pop",
    "Slow Rock 1", "Slow Rock 2", "Flipper 6/8", "Flipper 4/4", "Twist", "Hully Gully", "Surf Rock", "Party Polka",
    "Disco Party", "Motown", "Love Disco", "Disco '70", "80's Dance", "House", "Techno", "Progress.", "Underground",
    "Jungle", "Garage", "Rap", "Hip Hop", "Dancing Tribe", "Down Beat", "Bossa 1", "Bossa 2", "Bossa 3", "Samba 1",
    "Samba 2", "Beguine", "Last Rhumba", "Cha Cha Cha", "Tango", "Habanera", "Paso Doble", "Cumbia", "Bajon",
    "Calypso", "Reggae", "Dance Reggae", "Mambo", "Salsa", "Merengue", "Meneito", "Macarena", "Tikytikit\xE0",
    "Lambada", "Disco Samba", "I. Waltz", "Mazurka", "Polka", "German Waltz", "Laendler", "GermanPolka",
    "WaltzMusette", "French March", "Wien Waltz", "Slow Waltz 1", "Slow Waltz 2", "Fox Trot 1", "Fox Trot 2",
    "Big Band Fox", "Quick step", "Charleston", "40's Big Band", "Big Band", "Fast Big Band", "Latin Big Band",
    "Broadway", "Hollywood", "Jazz Waltz", "5/4 Swing", "Swing Ballad", "Medium Swing", "Be bop", "Acid Jazz",
    "Latin Jazz", "New Jazz", "Party Funk", "Groove", "R & B", "6/8 Blues", "Gospel", "Blues Shuffle", "Pub Shuffle",
    "Hip Blues", "R&B Funk", "Rhythm&Funk", "Light Rock", "Pop Rock", "Open Rock", "Heavy Rock", "Rock Ballad",
    "Half Time", "Rock & Roll", "Rock Hip Hop", "Country", "Country beat", "Country Bld.", "Dixieland", "March",
    "Tarantella", "Sevillana", "Gipsy", "9/8 Roman", "Ciftetelli", "Mariachi", "Raspa", "Baroque", "Minuet", "Bolero",
    "New Age",
};

// Required: code 22 stands twice and 19 nowhere; the pedal function list of the instrument has it so.
const PedalList Pedals = {
    0, 1, 2, 47, 3, 38, 37, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 22, 20, 21, 22, 23, 24, 25, 26, 27,
    28, 29, 39, 40, 41, 42, 44, 45, 46, 48, 49, 50, 51, 52, 30, 43, 31, 32, 33, 34, 53,
};

} // namespace NameTablesData
// clang-format on
