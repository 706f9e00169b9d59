// The texts of the screen that stand in no table of words, each stated by hand.
#pragma once

#include <utility>

/// The same in both languages: captions of the program that its users know so, and what stands on the instrument's
/// panel and in its display. Split at the semicolons.
inline constexpr const char* FixedTexts =
    // windows, menus and buttons
    "Tarvolyne - Tarvolyne Console;Tarvolyne Console;Tarvolyne;File;OK;ARR PLAY;SONG PLAY;GLOBAL;ID;Load;Load All;"
    "Load Arr;Load Styles;Load Prog;Show Styles;Show Prog;Edit;Edit Arr;+TvlDBArr;+ TvlDBArr;TvlDBArr;Add All;Apri Sty;"
    "Apri Gbl;Arr A;Arr B;Style A;Style B;Prg A;Prg B;Prg C;Prg D;Prg E;Drum;Percussion;Global Parameters;Edit "
    "TvlDBArr;"
    "MIDI Thru;MIDI Channel;Style;Program;bytes;All Notes Off;Click Key;Hold Note;Hold Chord;Note (Number);3/999;"
    "Reset US1;Reset US2;Reset US3;Reset US4;Load Styles 11-14;Load Styles 15-18;Load Styles 21-24;Load Styles 25-28;"
    "Global(*.gbl);Programs (*.prg);Programs(*.pgg);Styles (*.sty);Name;Delete;Arrangements (*.arr);Style "
    "(*.sty);Programs (*.prg/pgg);Global (*.gbl);All files (*.*);"
    // the language window, which speaks both
    "Scegliere una lingua / Choose a language;Italiano;English;"
    // the keyboard window
    "Att Time;Rel Time;Bend;COMod;PMod;Chorus;Reverb;Pan;Volume;Vel On;Vel Off;L;R;"
    // the editor of arrangements
    "General, Drum, Percussion, Bass;ACC1,2,3, UPPER1, UPPER2, LOWER;General;Bass;ACC1;ACC2;ACC3;UPPER1;UPPER2;LOWER;S;"
    "M;On;Off;Sw;Vol;C Send L;D Send L;Octave;Status1;Status2;W-Around;DDrumMap;DDrumMap, Variation;Drum kit;Kick;"
    "Kick Designation;Snare;Snare Designation;Manual drum kit;Keyboard;Keyboard Assign;Fill 1;Fill 2;Init. Var.;Tempo;"
    "Split Point;Transpose;Switches;Dynamic Velocity;Tempo Lock;KBD1 Damp En;KBD2 Damp En;Chord Scan Low;"
    "Chord Scan High;Bass Inversion;Chord Hold;Chord Latch;Ensemble;Ensemble Sw;Effects 1,2, On/Off;Effect 1;Effect 2;"
    "Effect 1 (Off);Effect 2 (Off);Effect 1 On/Off;Effect 2 On/Off;Style (U12);"
    // the global window
    "Pedals;Damper Polarity;Damper Polarity +;Damper Polarity -;+;-;Assignable Pedal;Ext. Controller A;"
    "Ext. Controller B;Ext. Controller C;Ext. Controller D;Ext. Controller E;Scales;Main Scale Key;Main Scale Type;"
    "Sub Scale Key;Sub Scale Type;Midi In;JS x LOW;JS x UP1;JS x UP2;Echo Back;Chord Recognition;Master Tune;Velocity;"
    "Velocity Curve;After Touch Curve;Auto Chord Scan;Transpose Lock;Voc/Gtr Lock;Octave Upper;Octave Lower;Normal;"
    "User Scale 1, 2;User Scale 3, 4;Harmony;Harmony, MIDI;Channel (Arr);Channel (Song Play);Track;Range L(Arr);"
    "Range H(Arr);TG (Song Play);MIDI Channels;GLB (Global);ARRANG (Arrangement);LOW (Lower);UP2 (Upper 2);"
    "UP1 (Upper 1);DRM (Drum);PER (Percussion);BAS (Bass);AC1 (Accomp. 1);AC2 (Accomp. 2);AC3 (Accomp. 3);"
    // the instrument's lists
    "->1;->2;->3;->4;1&2;1&3;1&4;2&3;2&4;3&4;UP;DOWN;OFF;INT;EXT;BOTH;PLAY;MUTE;SOLO;ORG;PRG;DIS;VAR1;VAR2;VAR3;VAR4;"
    "FULL 1;FULL 2;FULL 3;FULL 4;SPLIT 1;SPLIT 2;SPLIT 3;SPLIT 4;SPLIT 5;SPLIT 6;M. DRUMS;Duet;Close;Open1;Open2;"
    "Power Ens.;Fourths;Block;Brass Ens.;Reed Ens.;Fingered1;Fingered2;One Finger;IN 1;IN 2;DRUM;PERC;BASS;UP1;LOW/UP2;"
    "No Effect;Hall;Ensemble Hall;Concert Hall;Room;Large Room;Live Stage;Wet Plate;Dry Plate;Spring Reverb;"
    "Early Ref 1;Early Ref 2;Early Ref 3;Stereo Delay;Cross Delay;Dual Delay;Multitap Dly1;Multitap Dly2;Multitap Dly3;"
    "Chorus 1;Chorus 2;Quad Chorus;XOver Chorus;Harmonic Cho.;Symphonic Ens;Flanger 1;Flanger 2;XOver Flanger;Exciter;"
    "Enhancer;Distortion;Overdrive;Phaser 1;Phaser 2;Rotary Speaker;Auto Pan;Tremolo;Equalizer;Chorus-Delay;"
    "Flanger-Delay;Delay/Hall;Delay/Room;Delay/Chorus;Delay/Flanger;Delay/Dist;Delay/Overdrv;Delay/Phaser;Delay/Rotary;"
    "START/STOP;SYNC START;SYNC STOP;RESET;TAP TEMPO;TEMPO LOCK;INTRO/ENDING 1;INTRO/ENDING 2;FILL 1;FILL 2;VARIATION "
    "1;"
    "VARIATION 2;VARIATION 3;VARIATION 4;CHORD MEMORY;BASS INVERSION;SCALE CHANGE;ARR/STY UP;ARR/STY DOWN;PROGRAM UP;"
    "PROGRAM DOWN;VARIATION UP;VARIATION DOWN;PUNCH IN/OUT;EFFECT 1 ON/OFF;EFFECT 2 ON/OFF;EFFECT CONTROL;"
    "ENSEMBLE ON/OFF;FADE IN/OUT;CHORD LATCH ON/OFF;C BUTTON ON/OFF;DAMPER ON/OFF;SUSTAIN ON/OFF;KEYBOARD SET UP;"
    "KEYBOARD SET DOWN;LOW HARM MEMORY;DRUM MUTE;PERC MUTE;BASS MUTE;ACC1 MUTE;ACC2 MUTE;ACC3 MUTE;ACC1-3 MUTE;"
    "LOW/UP1/UP2 MUTE;A/B FADER;DATA ENTRY;EXPRESSION;KB VOLUME;MASTER VOLUME;VDF CUTOFF;QUARTER TONE;EQUAL TEMP;"
    "EQUAL TEMP 2;PURE MAJOR;PURE MINOR;ARABIC;PYTHAGOREAN;WERKMEISTER;KIRNBERGER;SLENDRO;PELOG;"
    // what the walk itself puts into files and names
    "TvlArrA;TvlArrB;song.arr;1\tTvlArrA;2\tTvlArrB;3\tsong.arr;File Arr - song.arr (1);File Sty - song.sty (1);File "
    "Prg - song.prg (1) - MIDI "
    "Channel18;"
    "File Gbl - song.gbl (1);Edit Arrangement  song.arr / First;Drum - MIDI Channel2;Percussion - MIDI Channel2;"
    "Prg A - MIDI Channel2;Prg B - MIDI Channel2;Prg C - MIDI Channel2;Prg D - MIDI Channel2;Prg E - MIDI Channel2;"
    "8 Beat 2 (A12);song.sty;A title;A text";

/// Fixed texts that follow a rule: figures, notes, parameters of a track, pan positions.
inline constexpr const char* FixedRules[] = {
    "[-+]?\\d+",
    "(Ctrl|Alt)\\+[1-9]", // keys
    "/.*",                // folders in the dialogs
    "[A-G]#?(-?\\d)?",
    "[A-G]#?/(Do|Re|Mi|Fa|Sol|La|Si)#? \\(\\d+\\)",
    "User Scale [1-4](, [A-G]#?)?",
    "USER SCALE \\d+",
    "[LR]\\d\\d",
    "[UL][-+]\\d",
    "Dr[12][1-8]",
    "ETr[1-8]",
    "(MIDI|Song) Ch\\d\\d",
    ("(Volume|Pan|C Send L|D Send L|Octave|Out Status1|Out Status2|W-Around|Program|Program label|Solo|Mute), "
     "(Drum|Percussion|Bass|ACC1|ACC2|ACC3|UPPER1|UPPER2|LOWER)"),
};

/// Texts put together from rows of the table, whose numbers stand in braces.
inline constexpr const char* Composed[] = {
    "{30} Tarvolyne",
    "{80} - {81}.arr (1)",
    "{88} - {81}.prg (2) - MIDI Channel18",
    "{121} - {81}.sty (2)",
    "File Arr - tune.arr (2){122}",
    "Tarvolyne - Tarvolyne Console - {67}",
    "{46}:",
};

/// Names of the instrument that a table has as a word of one language too, by the window that shows them.
inline constexpr std::pair<const char*, const char*> PanelNames[] = {
    {"frmEditArr", "Keyboard"},   {"frmEditArr", "Octave"},
    {"frmEditArr", "Close"},      {"frmEditArr", "Name"},
    {"frmEditArr", "Style"},      {"frmGbl", "Keyboard"},
    {"frmGbl", "Octave"},         {"frmArr", "Style"},
    {"frmArr", "Program"},        {"frmArrU", "Edit"},
    {"frmDrum", "MIDI Channel"},  {"frmPcgAE", "MIDI Channel"},
    {"frmPrgUN", "MIDI Channel"}, {"frmTastiera", "MIDI Channel"},
    {"frmEditDBArr", "Delete"},   {"frmLingua", "Italiano"},
    {"frmLingua", "English"},
};
