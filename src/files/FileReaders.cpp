// Reading arrangement files and banks, and global files: fixed length, fixed head.
#include "files/FileReaders.h"

#include "core/PathNames.h"
#include "core/Reports.h"
#include "files/ArrLayout.h"
#include "files/FileReading.h"
#include "files/GblLayout.h"

FilesState Files;

namespace
{

constexpr int WrongFormatCode = 4;

/// One kind of file with a fixed length and head. Read, Aborted, Refused (reported under `title`) or Absent.
int readFixed(const std::string& path, const std::string& title, int size, std::string_view signature,
              ByteBuffer& buffer)
{
    FileContent content;
    switch (readPresent(path, size, content)) {
    case Presence::Aborted:
        return ReadResult::Aborted;
    case Presence::Absent:
        return ReadResult::Absent;
    case Presence::Present:
        break;
    }
    if (!hasExactly(content, size) || !content.bytes.starts_with(signature)) {
        ReportError(WrongFormatCode, title, {});
        return ReadResult::Refused;
    }
    buffer = std::move(content.bytes);
    return ReadResult::Read;
}

} // namespace

int ArrFileRead(const std::string& path)
{
    const std::string name = FileNameOf(path);
    const int result = readFixed(path, openingTitle(name), ArrLayout::FileSize, ArrLayout::Signature, Files.ArrBuffer);
    if (result == ReadResult::Read) {
        Files.ArrFolder = FolderOf(path);
        Files.ArrName = name;
    }
    return result;
}

int GblFileRead(const std::string& path)
{
    const std::string name = FileNameOf(path);
    const int result =
        readFixed(path, openingTitle(name + ".gbl"), GblLayout::FileSize, GblLayout::Signature, Files.GblBuffer);
    if (result == ReadResult::Read) {
        Files.GblFolder = FolderOf(path);
        Files.GblName = name;
    }
    return result;
}
