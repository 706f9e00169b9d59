// Names of the words that the system's own string table lacks: tool tips, progress, the virtual instrument.
#pragma once

/// Ids of the supplementary table, named by their use. The numbers are those of the Italian text; they follow from the
/// order here, which is that of the rows in SupplementText.cpp.
namespace Words
{
enum Id : int {
    TransferInProgress = 401, ///< the progress bar of a long send
    VirtualInstrument,        ///< title of the virtual instrument's window
    CableSpeed,               ///< its box: take bytes no faster than a real cable
    Ok,                       ///< the buttons of message boxes
    Yes,
    No,
    Cancel,
    LookIn, ///< labels of the open dialog
    FileType,
    ModeHint, ///< tool tips of the status panel
    LastArrHint,
    LastStyHint,
    LastPrgHint,
    InstNoteOn, ///< the messages of the virtual instrument in words; "_" in the order of the values
    InstNoteOff,
    InstPolyPressure,
    InstController,
    InstBankMsb,
    InstBankLsb,
    InstAllNotesOff,
    InstProgramChange,
    InstSelected,
    InstPressure,
    InstPitchBend,
    InstModeChange,
    InstParameter,
    InstArrDump,
    InstStyDump,
    InstPrgDump,
    InstGblDump,
    InstSystem,
    InstMalformed,
    InstCutByStatus, ///< why a message is malformed
    InstHighByteInside,
    InstStrayEnd,
    InstNoStatus,
    InstTooLong,
    InstWrongManufacturer,
    InstWrongFormat,
    InstWrongModel,
    InstUnknownFunction,
    InstWrongLength,
    InstWrongContent,
    InstMode, ///< the window of the virtual instrument, and its account
    InstNothingYet,
    InstArrangement,
    InstSelections,
    InstArrangements,
    InstStyles,
    InstPrograms,
    InstGlobal,
    InstParameters,
    InstBytes,
    InstKeys,
    InstMessages,
    InstCounts,
    InstChannel,
    InstGlobalChannel,
    ReplaceFile,      ///< the question before a file is overwritten
    ProgramFieldHint, ///< tool tips of the arrangement editor
    StyleFieldHint,
    OutputHint, ///< tool tip of the status panel: the MIDI port in use
    NoOutputHint,
    AboutDescription, ///< the about window
    AboutVersion,
    AboutDisclaimer,
    CurveHint, ///< tool tips of the global window
    GlobalLoadHint,
    GlobalModeHint,
    ResetScaleHint,
    ChannelsHint,
    StyleLength, ///< what the figures of a style window mean; "_" is the panel code of the slot or slots
    StyleGroup,
    StyleTotal,
    FindIdHint,  ///< tool tip of the find window's field
    OctaveShift, ///< the keyboard window
    SplitNote,
    SplitMarker,
    ClickKeyHint,
    HoldNoteHint,
    HoldChordHint,
    SecondsLeft, ///< on the progress bar of a long send
    InstMemory,  ///< the virtual instrument: how full it is
    StatusPanel,
    // The next name stands here, its row at the end of SupplementText.cpp.
    End
};
inline constexpr int First = 401;
/// Rows of the supplementary table: First to First + count() - 1.
constexpr int count() { return End - First; }
} // namespace Words
