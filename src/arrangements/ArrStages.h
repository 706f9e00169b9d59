// The stages of the loads, as the Interval of their timers: milliseconds and meaning at once. 10 is always rest.
#pragma once

namespace ArrStage
{

/// TimerLoadArr.
namespace LoadArr
{
inline constexpr int Send = 9;
}

/// TimerLoadPrg.
namespace LoadPrg
{
inline constexpr int WindowFound = 9;
inline constexpr int SendWindow = 8;
inline constexpr int FileRead = 7;
inline constexpr int SendFile = 6;
} // namespace LoadPrg

/// TimerLoadAll.
namespace LoadAll
{
inline constexpr int SendArr = 11;
inline constexpr int AnnounceSty = 820; ///< the instrument's pause after an arrangement dump
inline constexpr int LoadSty = 12;
inline constexpr int LoadPrg = 800; ///< its pause after a style dump
} // namespace LoadAll

/// TimerList1.
namespace List1
{
inline constexpr int AfterArrLoad = 11;
inline constexpr int AfterStyLoad = 12;
} // namespace List1

/// TimerFindID.
namespace FindID
{
inline constexpr int AfterArrLoad = 800;
inline constexpr int NoArrLoad = 20;
inline constexpr int AfterStyLoad = 820;
inline constexpr int NoStyLoad = 30;
inline constexpr int Select = 40;
} // namespace FindID

/// Timer(i) on the second pass of what it carries.
inline constexpr int SecondPass = 0;

} // namespace ArrStage

/// Codes of the status line.
namespace ArrNotice
{
inline constexpr int None = 0;
inline constexpr int LoadingStyle = 2;
inline constexpr int LoadingArr = 3;
inline constexpr int LoadingProgram = 4;
inline constexpr int Updating = 8;
} // namespace ArrNotice
