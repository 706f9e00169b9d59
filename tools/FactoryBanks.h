// The two factory banks: an arrangement for each of the instrument's 128 styles.
#pragma once

#include "tools/ArrangementMaker.h"

/// What a style sounds like: the genre and tempo of factory style 0 to 127, named after it.
Arrangement factoryArrangement(int style);

/// TvlArrA (0) holds styles 0 to 63, TvlArrB (1) styles 64 to 127.
ByteBuffer factoryBank(int bank);
