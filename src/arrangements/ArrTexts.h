// The words that a block's bytes read as: styles and programs by the instrument's panel numbers, pan, split note,
// effects.
#pragma once

#include "core/Bytes.h"

#include <optional>
#include <string>
#include <string_view>

/// The short code of a factory style, "A11" to "B88". The number comes back reduced by 64 when it was 64 or more.
std::string StyleLabel(int& number);

/// A user style's panel number: 11 to 18, 21 to 28 for numbers 0 to 15.
std::string userStyleCode(int number);

/// The label beside a style's name: "Style (A11)", or "Style (U11)" for bank 1.
std::string styleLabelText(int number, int bank);

/// A style's name as a window's image knows it, trimmed at the right: from its own style area, from the factory names,
/// or "UserStyle3" where the user style is not at hand. A bank other than 0 and 1 has no name.
std::string arrStyleName(std::string_view image, int number, int bank);

/// A style in the styles box: its name and its label, "8 Beat (A11)", "My Groove (U11)".
std::string styleEntry(std::string_view image, int number, int bank);

/// A track's program as the editor shows it.
struct ProgramText {
    std::string name;  ///< 16 bytes as they stand; may be empty
    std::string label; ///< "A 11", "Dr 23"; empty when the name is blank
};

/// The program of track 0 to 8 of ArrEditBuf.
ProgramText trackProgram(std::string_view editBuffer, int track);

/// "L15" to "L1", "CNT", "R1" to "R15", "PRG", "OFF" of a stored pan byte.
std::string panText(int stored);

/// The note's text, sharp behind the octave: "C4", "C4#". Nothing below note 36: what is shown stays.
std::optional<std::string> splitNoteText(int note);

/// "Effect 1 (Off)", "Effect 2 (17)" for effect 1 or 2 and its stored value.
std::string effectLabel(int effect, int stored);
