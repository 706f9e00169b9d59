// Sending user styles to the instrument, one group of four at a time, and selecting one.
//
// A Load Styles is a sequence of events that a window's timers carry: begin, then one step for each group with a pause
// after it. What each step does is the same for a style window and an arrangement window and stands here; the windows
// differ in their pause alone.
#pragma once

#include "core/Bytes.h"

#include <string_view>

/// The sequence of groups that a Load Styles is sending. Shared by all windows: only one can run.
struct StyleLoadState {
    int currentGroup = 0;
    int groupCount = 0;
    const void* owner = nullptr; ///< the window whose load runs; null when none does
};

extern StyleLoadState StyLoad;

/// Milliseconds of a Load Styles.
namespace StyleLoadTiming
{
inline constexpr int FirstGroup = 20;        ///< from the press to the first group
inline constexpr int StyleWindowPause = 800; ///< between groups, from the end of a group, in frmStyUN
inline constexpr int ArrWindowPause = 1000;  ///< the same in the arrangement windows
} // namespace StyleLoadTiming

/// Composes the message of group 0 to 3 of a window buffer in the SysEx output string. 0, or 1 when the group cannot
/// be built (a slot is absent, or an offset passes 65535): then nothing has changed. Blocks that the buffer does not
/// hold whole go out as far as they are there.
// F0 42 3g 4D 65 <packed> F7
[[nodiscard]] int StyGroupBuild(std::string_view buffer, int group);

/// StyGroupBuild, the status notice, and the send. 0 sent, 1 nothing sent.
[[nodiscard]] int StyGroupSend(int group, std::string_view buffer);

/// Selects a style; `style` may come back increased by 64 (kind 3). The eight bytes of the three messages are left in
/// the SysEx output string for the caller to log.
// B0|g 00 00, B0|g 20 bb, C0|g ss
void StyBankSelect(int& style, int kind);

/// Starts a Load Styles of the window `owner` from its buffer, with the notice in the status panel. False, with
/// nothing changed, when any window's load runs already, or the buffer has no group to send: an arrangement window
/// whose style area is not a real style file has none.
[[nodiscard]] bool StyLoadBegin(std::string_view buffer, const void* owner);

enum class StyLoadStep {
    Sent, ///< a group went out: the next step comes after the window's pause
    Ended ///< no group was left, or one could not be sent: the notice is cleared and the sequence is over
};

/// One step of the running sequence; the buffer is read afresh.
[[nodiscard]] StyLoadStep StyLoadNext(std::string_view buffer);

/// The window closes: when the running load is its own, the sequence ends and the notice is cleared.
void StyLoadAbandon(const void* owner);
