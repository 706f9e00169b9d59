// The colours of the virtual instrument's panel: signs on dark glass, whatever the desktop's colours are. Each sign
// keeps a contrast of 4.5 to 1 to the glass at the least.
#pragma once

#include <QColor>

namespace InstrumentColours
{
inline const QColor Glass(0x10, 0x26, 0x2B);
inline const QColor GlassEdge(0x2F, 0x4A, 0x50);
inline const QColor Well(0x08, 0x17, 0x1B);  ///< the ground of bars and unlit lamps
inline const QColor Sign(0xA9, 0xF0, 0xD1);  ///< text and what is lit
inline const QColor Faint(0x7C, 0xB0, 0x9F); ///< text beside
inline const QColor Warning(0xFF, 0xB4, 0x54);
} // namespace InstrumentColours
