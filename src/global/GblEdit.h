// A global block at work: the buffer of a window on it, an edit by the user, and the dump by which the instrument hears
// of every change. There are two kinds of windows, the view of the instrument's own block and the view of a file; both
// are live, so that the block last edited is the one that the instrument has.
#pragma once

#include "files/WindowBuffer.h"
#include "global/GblParameters.h"

#include <string>

/// Sends the block of a window whole and takes it as the instrument's. Nothing at all while Gbl.GblLoading.
// F0 42 3g 4D 51, 415 bytes packed by seven, F7
void GblSend(const WindowBuffer& tag);

/// Takes a position that the user chose: its byte changes, the block is modified and sent. False, with nothing done,
/// for a position that cannot be stored.
[[nodiscard]] bool gblEdit(WindowBuffer& tag, GblField which, int position, int index = 0);

/// What a window's control shows.
int gblShown(const WindowBuffer& tag, GblField which, int index = 0);

/// Sets the twelve notes of user scale 0 to 3 to 0. The block does not count as modified.
void gblResetScale(WindowBuffer& tag, int scale);

/// The buffer of a new window: slot 0 is the instrument's block from App.GblCurrent, slots 1 to 8 the file in the
/// hand-over buffer under the name of its entry, which is marked as used.
WindowBuffer GblTagBuild(int slot);
/// Gives the entry of a window's slot back.
void GblSlotLeave(const WindowBuffer& tag);

/// The caption of a window, UTF-8.
std::string GblCaption(const WindowBuffer& tag);

/// "C4" for MIDI note 60.
std::string NoteName(int note);
/// The velocity slider's text: "Normal" for 0.
std::string gblVelocityText(int velocity);

// The MIDI channels of the program's settings, which the window shows beside the block: the global channel first, then
// ARRANG, LOW, UP2, UP1, DRM, PER, BAS, AC1, AC2, AC3.
inline constexpr int GblChannelCount = 11;
/// 0 to 15; a damaged settings file may hold more.
int gblChannel(int place);
void gblSetChannel(int place, int channel);
