// The files that a newcomer opens first: a musician's own songs with styles and programs, an encore, a studio set-up.
#pragma once

#include "tools/ArrangementMaker.h"

// Beside the program.
ByteBuffer emptyProgramFile(); ///< TvlPrg: a valid head, 64 free records

// samples/
ByteBuffer songArrangements();   ///< song.arr
ByteBuffer songStyles();         ///< song.sty: 16 slots of different lengths
ByteBuffer songPrograms();       ///< song.prg
ByteBuffer encoreArrangements(); ///< encore.arr, which has a program file but no style file
ByteBuffer encorePrograms();     ///< encore.pgg: its own programs and references to factory programs
ByteBuffer studioGlobal();       ///< studio.gbl

/// The rows of song.arr and of encore.arr; a row without a name is unused.
std::vector<Arrangement> songRows();
std::vector<Arrangement> encoreRows();
