// Messages are built by midi/SysEx and handed to the port in one go.
#include "arrangements/ArrSends.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "files/WindowLayout.h"
#include "midi/MIDI.h"
#include "midi/SysEx.h"

namespace
{

constexpr int ControlChange = 0xB0;
constexpr int ProgramChange = 0xC0;
constexpr int BankSelectHigh = 0;
constexpr int BankSelectLow = 32;

constexpr Field RecordsInImage{WindowLayout::ArrFile.offset + ArrLayout::Rows.offset, ArrLayout::Rows.size};

int bankOf(int kind) { return kind == WindowKind::ArrFile || kind == WindowKind::ArrNew ? 1 : 0; }

} // namespace

void ArrBlockSend(std::string_view image)
{
    Midi.SysExOutput = sysExFrame(Function::ArrangementDump, packedSevenBit(slice(image, RecordsInImage)));
    MidiLongSend();
}

ByteBuffer ArrSelect(int number, int kind)
{
    const int control = ControlChange | App.GlobalChannel;
    const int program = ProgramChange | App.GlobalChannel;
    const int bank = bankOf(kind);
    const int place = kind == WindowKind::ArrBankB ? number + ArrLayout::RowCount : number;
    MidiShortBytesSend(control, BankSelectHigh, 0);
    MidiShortBytesSend(control, BankSelectLow, bank);
    MidiShortBytesSend(program, place, 0);
    ByteBuffer log;
    for (int value : {control, BankSelectHigh, 0, control, BankSelectLow, bank, program, place})
        log += byteText(value);
    return log;
}

bool differsFromSent(std::string_view stem, std::string_view info) { return infoStem(stem) != infoStem(info); }

ByteBuffer programFileImage(std::string_view file, std::string_view extension)
{
    ByteBuffer image = filled(WindowLayout::PrgFile.offset, ' ');
    if (extension == "pgg")
        putByte(image, WindowLayout::PrgTypeOffset, 1);
    image.append(file);
    return image;
}
