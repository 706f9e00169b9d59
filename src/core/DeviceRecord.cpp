// Dornflex: the record through which the programs of the family share the MIDI ports.
//
// This program writes the fields it knows and hands all others on as it found them.
#include "core/StateFiles.h"

#include "core/Dichiarazioni.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "core/Strings.h"

#include <array>
#include <cstdint>

DeviceRecord Device;

namespace
{

using namespace DeviceRecordLayout;

constexpr const char* RecordName = "Dornflex";
constexpr int OpeningRow = 111;

/// Texts of other programs of the family: blank, with a NUL byte behind each.
constexpr std::array SpareTexts = {Field{50, 24}, Field{75, 24}, Field{100, 24}};

int handleAt(std::string_view bytes, int offset)
{
    const auto low = static_cast<std::uint32_t>(word16LowFirst(bytes, offset));
    const auto high = static_cast<std::uint32_t>(word16LowFirst(bytes, offset + 2));
    return static_cast<std::int32_t>(high << 16 | low);
}

void putHandle(ByteBuffer& bytes, int offset, int handle)
{
    putWord16LowFirst(bytes, offset, handle);
    putWord16LowFirst(bytes, offset + 2, handle >> 16);
}

} // namespace

bool DeviceRecord::signatureGood() const { return slice(bytes, Signature) == RecordName; }
int DeviceRecord::UserCount() const { return byteAt(bytes, UserCountOffset); }
void DeviceRecord::setUserCount(int count) { putByte(bytes, UserCountOffset, count); }
int DeviceRecord::ThisProgramIn() const { return byteAt(bytes, ThisProgramInOffset); }
void DeviceRecord::setThisProgramIn(int value) { putByte(bytes, ThisProgramInOffset, value); }
int DeviceRecord::SharedOutHandle() const { return handleAt(bytes, SharedOutHandleOffset); }
void DeviceRecord::setSharedOutHandle(int handle) { putHandle(bytes, SharedOutHandleOffset, handle); }
int DeviceRecord::SharedInHandle() const { return handleAt(bytes, SharedInHandleOffset); }
void DeviceRecord::setSharedInHandle(int handle) { putHandle(bytes, SharedInHandleOffset, handle); }

std::string deviceRecordPath() { return App.StateDir + "/" + RecordName; }

void DeviceRecordInit()
{
    Device.bytes = filled(Length, 0);
    putText(Device.bytes, Signature, RecordName);
    for (const Field field : SpareTexts)
        putText(Device.bytes, field, {});
}

void DeviceRecordCreate()
{
    App.ErrTitle = ResText(OpeningRow) + RecordName;
    DeviceRecordInit();
    if (const int error = DeviceRecordWrite(); error != 0)
        ReportError(reportCodeOf(error), App.ErrTitle, {});
}

int DeviceRecordRead()
{
    FileContent file;
    if (const int error = readFile(deviceRecordPath(), Length, file); error != 0)
        return error;
    Device.bytes = recordOf(file.bytes, Length, 1);
    return 0;
}

int DeviceRecordWrite() { return replaceRunRecord(deviceRecordPath(), recordOf(Device.bytes, Length, 1)); }

int DeviceRecordDelete() { return deleteFile(deviceRecordPath()); }
