// The global file (.gbl): one copy of the instrument's global block. Offsets are 0-based bytes.
#pragma once

#include "core/Bytes.h"

namespace GblLayout
{

inline constexpr std::string_view Signature{"KORG\x4D\x00\x06\x01", 8};
inline constexpr Field Head{0, 32};
inline constexpr Field Parameters{end(Head), 415}; ///< exactly what a global dump carries
inline constexpr int FileSize = 448;               ///< one byte behind the parameters is kept and not sent
static_assert(end(Parameters) + 1 == FileSize);

} // namespace GblLayout
